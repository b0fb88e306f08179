#include "database/sqlite/comparison.h"

#include <sqlite3.h>

#include <string>

#include "core/case.h"
#include "cuvexa/errors.h"
#include "database/sqlite/database.h"
#include "database/sqlite/functions.h"

namespace cuvexa::sqlite {
namespace {

constexpr int marked = 1;  // user_version of a file in which texts compare as here

constexpr bool is_even(unsigned c) {
    return c % 2 == 0;
}

// The small letter of what U+00C0 to U+017F hold; anything else stays as it is.
constexpr unsigned small_letter(unsigned c) {
    if (c >= 0xC0 && c <= 0xDE && c != 0xD7) return c + 0x20;
    if (c == 0x178) return 0xFF;
    const bool capitals_are_even =
        (c >= 0x100 && c <= 0x12F) || (c >= 0x132 && c <= 0x137) || (c >= 0x14A && c <= 0x177);
    const bool capitals_are_odd = (c >= 0x139 && c <= 0x148) || (c >= 0x179 && c <= 0x17E);
    return (capitals_are_even && is_even(c)) || (capitals_are_odd && !is_even(c)) ? c + 1 : c;
}

constexpr unsigned byte_at(std::string_view text, std::size_t at) {
    return static_cast<unsigned char>(text[at]);
}

/// What stands at `at` as a number that sorts as its bytes do, small; goes past it.
constexpr unsigned next_letter(std::string_view text, std::size_t& at) {
    const unsigned first = byte_at(text, at++);
    if (first < 0x80) {
        return static_cast<unsigned>(static_cast<unsigned char>(lower_ascii(static_cast<char>(first)))) << 8;
    }
    if (first < 0xC3 || first > 0xC5 || at == text.size() || (byte_at(text, at) & 0xC0) != 0x80) return first << 8;
    const unsigned small = small_letter((first & 0x1F) << 6 | (byte_at(text, at++) & 0x3F));
    return (0xC0 | small >> 6) << 8 | 0x80 | (small & 0x3F);
}

std::string_view without_last_blanks(std::string_view text) {
    while (!text.empty() && text.back() == ' ') text.remove_suffix(1);
    return text;
}

int compare_for_engine(void*, int size_a, const void* a, int size_b, const void* b) {
    return compared({static_cast<const char*>(a), static_cast<std::size_t>(size_a)},
                    {static_cast<const char*>(b), static_cast<std::size_t>(size_b)});
}

std::string in_small_letters(std::string_view text) {
    std::string small;
    small.reserve(text.size());
    for (std::size_t at = 0; at < text.size();) {
        const unsigned letter = next_letter(text, at);
        small += static_cast<char>(letter >> 8);
        if ((letter & 0xFF) != 0) small += static_cast<char>(letter & 0xFF);
    }
    return small;
}

// text LIKE pattern ESCAPE mark, which the engine gives as pattern, text, mark. It is C: nothing may be thrown through it.
void like(sqlite3_context* context, int count, sqlite3_value** arguments) noexcept {
    for (int i = 0; i < count; ++i) {
        if (sqlite3_value_type(arguments[i]) == SQLITE_NULL) return sqlite3_result_null(context);
    }
    try {
        const std::string pattern = in_small_letters(text_of(arguments[0])),
                          text = in_small_letters(text_of(arguments[1]));
        const std::string mark = count > 2 ? in_small_letters(text_of(arguments[2])) : std::string();
        if (count > 2 && mark.size() != 1) {
            return sqlite3_result_error(context, "ESCAPE expression must be a single character", -1);
        }
        const unsigned escape = mark.empty() ? 0 : byte_at(mark, 0);
        sqlite3_result_int(context, sqlite3_strlike(pattern.c_str(), text.c_str(), escape) == 0);
    } catch (...) {
        sqlite3_result_error_nomem(context);
    }
}

}  // namespace

int compared(std::string_view a, std::string_view b) noexcept {
    a = without_last_blanks(a);
    b = without_last_blanks(b);
    std::size_t at_a = 0, at_b = 0;
    while (at_a < a.size() && at_b < b.size()) {
        const unsigned x = next_letter(a, at_a), y = next_letter(b, at_b);
        if (x != y) return x < y ? -1 : 1;
    }
    return static_cast<int>(at_a < a.size()) - static_cast<int>(at_b < b.size());
}

void install_comparison(sqlite3* database, bool writable) {
    const bool is_new = pragma(database, "PRAGMA schema_version") == "0";
    if (is_new && writable) run(database, "PRAGMA user_version = " + std::to_string(marked));
    if (pragma(database, "PRAGMA user_version") != std::to_string(marked)) return;
    const auto take_like = [&](int arguments) {
        return sqlite3_create_function_v2(database, "like", arguments,
                                          SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr, like, nullptr,
                                          nullptr, nullptr);
    };
    const int failures =
        sqlite3_create_collation_v2(database, "NOCASE", SQLITE_UTF8, nullptr, compare_for_engine, nullptr) |
        take_like(2) | take_like(3);
    if (failures != SQLITE_OK) throw Database_error(sqlite3_errmsg(database));
}

}  // namespace cuvexa::sqlite
