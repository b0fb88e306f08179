#include "database/dialect/batch.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/case.h"
#include "cuvexa/errors.h"

namespace cuvexa::dialect {
namespace {

using namespace std::string_view_literals;

// Words that begin a statement and stand in the middle of none.
constexpr std::array begin_a_statement = {
    "ALTER"sv,     "BACKUP"sv,  "BEGIN"sv,   "BULK"sv,     "CREATE"sv,   "DBCC"sv,   "DECLARE"sv, "DELETE"sv, "DENY"sv,
    "DROP"sv,      "EXEC"sv,    "EXECUTE"sv, "GRANT"sv,    "IF"sv,       "INSERT"sv, "KILL"sv,    "MERGE"sv,  "PRINT"sv,
    "RAISERROR"sv, "RESTORE"sv, "REVOKE"sv,  "SHUTDOWN"sv, "TRUNCATE"sv, "UPDATE"sv, "WAITFOR"sv, "WHILE"sv};

constexpr std::array join_selects = {"UNION"sv, "ALL"sv, "EXCEPT"sv, "INTERSECT"sv};

template <std::size_t N>
bool is_one_of(std::string_view word, const std::array<std::string_view, N>& words) {
    return std::any_of(words.begin(), words.end(), [&](std::string_view each) { return same_text(each, word); });
}

/// Whether a statement may go on with this word; `previous` is the token before it.
bool goes_on_with(std::string_view word, std::string_view previous, std::string_view first) {
    if (same_text(word, "SELECT")) return same_text(first, "INSERT") || is_one_of(previous, join_selects);
    if (same_text(word, "SET")) return same_text(first, "UPDATE");
    return !is_one_of(word, begin_a_statement);
}

}  // namespace

void refuse_batch(std::string_view text, const std::vector<Token>& tokens) {
    int depth = 0;
    int selects = 0;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
        if (tokens[i].kind == Token_kind::open) ++depth;
        if (tokens[i].kind == Token_kind::close) --depth;
        if (tokens[i].kind != Token_kind::word || depth > 0 || i == 0) continue;
        const std::string_view word = tokens[i].in(text);
        const std::string_view previous = tokens[i - 1].in(text);
        if (previous == ".") continue;  // a column may be called as it likes
        // An INSERT takes one SELECT; further ones must be joined to it.
        const bool second_select = same_text(word, "SELECT") && selects++ > 0 && !is_one_of(previous, join_selects);
        if (second_select || !goes_on_with(word, previous, tokens[0].in(text))) {
            throw Database_error("Solo se admite una instrucción a la vez: otra empieza en " + std::string(word) +
                                 "; la instrucción no se envió a la base de datos");
        }
    }
}

}  // namespace cuvexa::dialect
