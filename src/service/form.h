// The form of a request: what is refused before anybody asks who sent it.
#pragma once

#include <httplib.h>

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "service/reply.h"

namespace cuvexa::service {

/// Why a request is refused whatever it asks for: a method that nothing here knows, a body whose length two readers could
/// understand in two ways, one that is packed or too long. Status 0 when nothing is wrong with it.
Reply refusal_of_form(const httplib::Request& request, std::size_t most_body_bytes);

/// The steps of a path between its slashes.
std::vector<std::string> steps_of(std::string_view path);

/// The value of a cookie; empty when there is none.
std::string cookie(const httplib::Request& request, std::string_view name);

/// Which of some words a header that lists words, as `Accept` does, names first; empty when it names none of them.
std::string_view first_listed(const std::string& header, std::initializer_list<std::string_view> words);

/// Whether a header that lists words, as `Prefer` and `Accept` do, holds this one, whatever its parameters.
bool lists(const std::string& header, std::string_view word);

}  // namespace cuvexa::service
