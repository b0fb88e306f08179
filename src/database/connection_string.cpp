#include "database/connection_string.h"

#include <algorithm>

#include "core/case.h"
#include "core/text.h"

namespace cuvexa::database {
namespace {

constexpr std::string_view blanks = " \t\r\n";

// Past the value that begins at `at`; a closing brace within braces is doubled.
std::size_t end_of_value(std::string_view text, std::size_t at) {
    at = std::min(text.find_first_not_of(blanks, at), text.size());
    if (at < text.size() && text[at] == '{') {
        for (++at; at < text.size(); ++at) {
            if (text[at] != '}') continue;
            if (at + 1 < text.size() && text[at + 1] == '}') {
                ++at;
            } else {
                break;
            }
        }
    }
    return std::min(text.find(';', at), text.size());
}

}  // namespace

std::vector<Connection_attribute> connection_attributes(std::string_view text) {
    std::vector<Connection_attribute> attributes;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t equals = text.find('=', at);
        if (equals == std::string_view::npos) break;
        const std::size_t end = end_of_value(text, equals + 1);
        attributes.push_back({trimmed(text.substr(at, equals - at), blanks),
                              trimmed(text.substr(equals + 1, end - equals - 1), blanks)});
        at = end + 1;
    }
    return attributes;
}

bool is_password_key(std::string_view key) noexcept {
    return same_text(key, "PWD") || same_text(key, "Password");
}

std::string plain_value(std::string_view value) {
    if (value.size() < 2 || value.front() != '{' || value.back() != '}') return std::string(value);
    std::string plain;
    for (std::size_t at = 1; at + 1 < value.size(); ++at) {
        plain += value[at];
        if (value[at] == '}') ++at;
    }
    return plain;
}

std::string guarded_value(std::string_view value) {
    const bool read_otherwise = value.starts_with('{') || value != trimmed(value, blanks);
    if (!read_otherwise && value.find_first_of(";%+") == std::string_view::npos) return std::string(value);
    std::string guarded = "{";
    for (const char c : value) {
        guarded += c;
        if (c == '}') guarded += c;
    }
    return guarded + "}";
}

bool is_connection_string(std::string_view text) noexcept {
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) return false;
    const std::string_view key = trimmed(text.substr(0, equals), blanks);
    return text.find(';') != std::string_view::npos || same_text(key, "DSN") || same_text(key, "FILEDSN") ||
           same_text(key, "Driver");
}

bool names_a_driver(std::string_view text) {
    const auto attributes = connection_attributes(text);
    return std::any_of(attributes.begin(), attributes.end(), [](const Connection_attribute& attribute) {
        return same_text(attribute.key, "DSN") || same_text(attribute.key, "FILEDSN") ||
               same_text(attribute.key, "Driver");
    });
}

std::string with_password(const std::string& connection_string, const std::string& password) {
    if (password.empty() || !passwords(connection_string).empty()) return connection_string;
    return "PWD=" + guarded_value(password) + ";" + connection_string;
}

std::string without_savepoints(const std::string& connection_string) {
    bool postgresql = false;
    for (const auto& [key, value] : connection_attributes(connection_string)) {
        if (same_text(key, "Driver")) postgresql = plain_value(value).starts_with("PostgreSQL");
        if (same_text(key, "Protocol")) return connection_string;
    }
    if (!postgresql) return connection_string;
    return connection_string + (connection_string.ends_with(';') ? "" : ";") + "Protocol=7.4-0";
}

std::vector<std::string> passwords(const std::string& connection_string) {
    std::vector<std::string> found;
    for (const auto& [key, value] : connection_attributes(connection_string)) {
        if (!is_password_key(key) || plain_value(value).empty()) continue;
        found.emplace_back(value);
        found.push_back(plain_value(value));
    }
    return found;
}

std::string without_secrets(const std::string& text, const std::vector<std::string>& secrets) {
    std::string shown;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t longest = 0;
        for (const std::string& secret : secrets) {
            if (text.compare(at, secret.size(), secret) == 0) longest = std::max(longest, secret.size());
        }
        shown += longest == 0 ? text.substr(at, 1) : "***";
        at += std::max<std::size_t>(longest, 1);
    }
    return shown;
}

std::string without_password(std::string_view connection_string) {
    std::string shown;
    for (const auto& [key, value] : connection_attributes(connection_string)) {
        if (!shown.empty()) shown += ';';
        shown.append(key).append("=").append(is_password_key(key) ? std::string_view("***") : value);
    }
    return shown;
}

}  // namespace cuvexa::database
