#include "reports/conditions.h"

#include <algorithm>

namespace cuvexa::reports {

namespace {

std::string without(std::string text, char unwanted) {
    text.erase(std::remove(text.begin(), text.end(), unwanted), text.end());
    return text;
}

}  // namespace

std::string date_literal(Date date, Date_style style) {
    std::string text = iso_date(date);
    const bool has_time = text.size() > 10;
    if (style == Date_style::neutral && !has_time) text = without(text, '-');
    if (style == Date_style::iso && has_time) text[10] = ' ';
    return sql_quoted(text);
}

std::string date_literal(const std::string& text, Date_style style) {
    // The embedded engine compares dates as the texts that it holds.
    const auto date = parse_date(text);
    return date && style == Date_style::neutral ? date_literal(*date, style) : sql_quoted(text);
}

std::string holds(std::string_view column, const std::string& text) {
    std::string pattern = "%";
    bool marked = false;
    for (const char c : text) {
        if (std::string_view("%_[\\").find(c) != std::string_view::npos) {
            pattern += '\\';
            marked = true;
        }
        pattern += c;
    }
    pattern += '%';
    return std::string(column) + " LIKE " + sql_quoted(pattern) + (marked ? " ESCAPE '\\'" : "");
}

std::string between_days(std::string_view column, const std::optional<Date>& from, const std::optional<Date>& to,
                         Date_style style) {
    const std::string name(column);
    std::vector<std::string> parts;
    if (from) parts.push_back(name + " >= " + date_literal(day_of(*from), style));
    // Behind the last day of all there is none.
    if (to && *to < make_date(9999, 12, 31)) {
        parts.push_back(name + " < " + date_literal(add_days(day_of(*to), 1), style));
    }
    if (parts.empty()) parts.push_back(name + " IS NOT NULL");
    return joined(parts, " AND ");
}

std::string joined(const std::vector<std::string>& parts, std::string_view word) {
    std::string text;
    for (const std::string& part : parts) text.append(text.empty() ? "" : word).append(part);
    return text;
}

}  // namespace cuvexa::reports
