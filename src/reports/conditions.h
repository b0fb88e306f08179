// Conditions that are composed of values: each value stands in quotes, its apostrophes doubled.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "core/text.h"
#include "cuvexa/date.h"
#include "reports/table.h"

namespace cuvexa::reports {

/// A date as a statement of that database writes it, in quotes.
std::string date_literal(Date date, Date_style style);

/// A date that a row or a place gave as text, in quotes. What is no date goes as it is.
std::string date_literal(const std::string& text, Date_style style);

/// Whether a text stands somewhere in a column.
std::string holds(std::string_view column, const std::string& text);

/// `column` between two days, both included; true of every row with a date when neither is given.
std::string between_days(std::string_view column, const std::optional<Date>& from, const std::optional<Date>& to,
                         Date_style style);

/// Texts joined by a word between them.
std::string joined(const std::vector<std::string>& parts, std::string_view word);

}  // namespace cuvexa::reports
