#include "database/conninfo.h"

#include <algorithm>
#include <array>

#include "core/text.h"
#include "database/connection_string.h"

namespace cuvexa::database {
namespace {

constexpr std::string_view blanks = " \t\r\n\f\v";
constexpr std::string_view hidden = "***";

// What a text may begin with; the rest of a connection's settings stand behind one of these or beside them.
constexpr std::array<std::string_view, 22> keywords = {"host",
                                                       "hostaddr",
                                                       "port",
                                                       "dbname",
                                                       "user",
                                                       "password",
                                                       "passfile",
                                                       "service",
                                                       "connect_timeout",
                                                       "options",
                                                       "sslmode",
                                                       "sslrootcert",
                                                       "sslcert",
                                                       "sslkey",
                                                       "application_name",
                                                       "gssencmode",
                                                       "keepalives",
                                                       "krbsrvname",
                                                       "requirepeer",
                                                       "channel_binding",
                                                       "client_encoding",
                                                       "target_session_attrs"};

bool is_uri(std::string_view text) noexcept {
    return text.starts_with("postgresql://") || text.starts_with("postgres://");
}

bool is_secret(std::string_view key) noexcept {
    return key == "password" || key == "sslpassword";
}

std::string uri_without_password(std::string_view uri) {
    std::string shown(uri);
    const std::size_t user = shown.find("://") + 3;
    const std::size_t question = std::min(shown.find('?'), shown.size());
    const std::size_t at = shown.rfind('@', question);
    const std::size_t colon = shown.find(':', user);
    std::size_t query = question;
    if (at != std::string::npos && at >= user && at < question && colon < at) {
        shown.replace(colon + 1, at - colon - 1, hidden);
        query = std::min(shown.find('?', colon), shown.size());
    }
    while (query < shown.size()) {
        const std::size_t end = std::min(shown.find('&', query + 1), shown.size());
        const std::size_t equals = std::min(shown.find('=', query), end);
        if (is_secret(std::string_view(shown).substr(query + 1, equals - query - 1)) && equals < end) {
            shown.replace(equals + 1, end - equals - 1, hidden);
            query = equals + 1 + hidden.size();
        } else {
            query = end;
        }
    }
    return shown;
}

// Past a value: in quotes, or up to a blank; a backslash takes the next character along.
std::size_t end_of_value(std::string_view text, std::size_t at) {
    const bool quoted = at < text.size() && text[at] == '\'';
    if (quoted) ++at;
    for (; at < text.size(); ++at) {
        if (text[at] == '\\') {
            ++at;
        } else if (quoted ? text[at] == '\'' : blanks.find(text[at]) != std::string_view::npos) {
            break;
        }
    }
    return std::min(quoted ? at + 1 : at, text.size());
}

std::string settings_without_password(std::string_view text) {
    std::string shown;
    std::size_t from = 0;
    for (std::size_t equals = text.find('='); equals != std::string_view::npos; equals = text.find('=', from)) {
        const std::size_t value = std::min(text.find_first_not_of(blanks, equals + 1), text.size());
        const std::size_t end = end_of_value(text, value);
        const bool secret = is_secret(trimmed(text.substr(from, equals - from), blanks));
        shown += text.substr(from, value - from);
        shown += secret ? hidden : text.substr(value, end - value);
        from = end;
    }
    return shown += text.substr(from);
}

}  // namespace

bool is_conninfo(std::string_view text) {
    if (is_uri(text)) return true;
    const std::size_t equals = text.find('=');
    if (equals == std::string_view::npos) return false;
    const std::string_view key = trimmed(text.substr(0, equals), blanks);
    return std::find(keywords.begin(), keywords.end(), key) != keywords.end() && !names_a_driver(text);
}

std::string conninfo_without_password(std::string_view text) {
    return is_uri(text) ? uri_without_password(text) : settings_without_password(text);
}

}  // namespace cuvexa::database
