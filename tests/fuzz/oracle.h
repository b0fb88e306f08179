// What the fuzzers share: how one says that it has found something.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace cuvexa::fuzz {

/// Ends the run, with what was promised and not kept and the texts that show it.
void require(bool kept, std::string_view promise, std::string_view shown = {}, std::string_view beside = {});

inline std::string_view text_of(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

/// The text up to the first line break, which leaves `text` with the rest.
std::string_view first_line(std::string_view& text);

/// A statement without what stands in its texts and marked names, read in the plainest way: 'a''b' is ''. What opens and
/// never closes is shown by a mark that no statement holds.
std::string skeleton(std::string_view statement);

}  // namespace cuvexa::fuzz
