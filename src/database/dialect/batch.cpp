#include "database/dialect/batch.h"

#include <algorithm>
#include <array>
#include <string>

#include "core/case.h"
#include "cuvexa/errors.h"

namespace cuvexa::dialect {
namespace {

using namespace std::string_view_literals;

// Words with which a statement begins on a server of this dialect, and which stand in the middle of none. Those that may
// stand there are looked at one by one below.
constexpr std::array begin_a_statement = {
    "ADD"sv,      "ALTER"sv,    "BACKUP"sv,   "BEGIN"sv,     "BREAK"sv,      "BULK"sv,    "CHECKPOINT"sv,  "CLOSE"sv,
    "COMMIT"sv,   "CONTINUE"sv, "CREATE"sv,   "DBCC"sv,      "DEALLOCATE"sv, "DECLARE"sv, "DELETE"sv,      "DENY"sv,
    "DISABLE"sv,  "DROP"sv,     "DUMP"sv,     "ENABLE"sv,    "EXEC"sv,       "EXECUTE"sv, "FETCH"sv,       "GET"sv,
    "GOTO"sv,     "GRANT"sv,    "IF"sv,       "INSERT"sv,    "KILL"sv,       "LINENO"sv,  "LOAD"sv,        "MERGE"sv,
    "MOVE"sv,     "OPEN"sv,     "PRINT"sv,    "RAISERROR"sv, "READTEXT"sv,   "RECEIVE"sv, "RECONFIGURE"sv, "RENAME"sv,
    "RESTORE"sv,  "RETURN"sv,   "REVERT"sv,   "REVOKE"sv,    "ROLLBACK"sv,   "SAVE"sv,    "SEND"sv,        "SETUSER"sv,
    "SHUTDOWN"sv, "THROW"sv,    "TRUNCATE"sv, "UPDATE"sv,    "UPDATETEXT"sv, "USE"sv,     "WAITFOR"sv,     "WHILE"sv,
    "WRITETEXT"sv};

constexpr std::array join_selects = {"UNION"sv, "ALL"sv, "EXCEPT"sv, "INTERSECT"sv};

constexpr std::array definitions = {"ALTER"sv, "CREATE"sv, "DROP"sv};

template <std::size_t N>
bool is_one_of(std::string_view word, const std::array<std::string_view, N>& words) {
    return std::any_of(words.begin(), words.end(), [&](std::string_view each) { return same_text(each, word); });
}

/// What has been read of one statement.
class One_statement {
public:
    explicit One_statement(std::string_view first) : first_(first) {}

    /// Whether the statement may go on with this word, the token at `position`; `previous` is the token before it.
    bool goes_on_with(std::string_view word, std::string_view previous, std::size_t position) {
        if (same_text(word, "SELECT")) return takes_select(previous);
        if (same_text(word, "SET")) return same_text(first_, "UPDATE") && sets_++ == 0;
        if (same_text(word, "INTO")) return same_text(previous, "INSERT");
        if (same_text(word, "VALUES")) return same_text(first_, "INSERT") && !values_ && (values_ = true);
        if (same_text(word, "CASE")) return ++open_cases_ > 0;
        if (same_text(word, "END")) return --open_cases_ >= 0;
        if (is_one_of(first_, definitions)) return continues_definition(word, previous, position);
        if (same_text(word, "FETCH") && is_one_of(previous, std::array{"ROW"sv, "ROWS"sv})) return true;
        return !is_one_of(word, begin_a_statement);
    }

private:
    // An INSERT takes one SELECT in place of its values; further ones must be joined to it.
    bool takes_select(std::string_view previous) {
        if (is_one_of(previous, join_selects)) return true;
        return same_text(first_, "INSERT") && !values_ && selects_++ == 0;
    }

    // ALTER TABLE T ADD …, DROP TABLE IF EXISTS T, ON DELETE CASCADE.
    bool continues_definition(std::string_view word, std::string_view previous, std::size_t position) const {
        if (same_text(previous, "ON") && is_one_of(word, std::array{"DELETE"sv, "UPDATE"sv})) return true;
        if (same_text(word, "IF") && is_one_of(previous, std::array{"TABLE"sv, "INDEX"sv, "VIEW"sv})) return true;
        if (same_text(first_, "ALTER") && position == 3 && is_one_of(word, std::array{"ADD"sv, "ALTER"sv, "DROP"sv})) {
            return true;
        }
        return !is_one_of(word, begin_a_statement);
    }

    std::string_view first_;
    int sets_ = 0, selects_ = 0, open_cases_ = 0;
    bool values_ = false;
};

}  // namespace

void refuse_batch(std::string_view text, const std::vector<Token>& tokens) {
    if (tokens.empty()) return;
    One_statement statement(tokens[0].in(text));
    int depth = tokens[0].kind == Token_kind::open ? 1 : 0;
    for (std::size_t i = 1; i < tokens.size(); ++i) {
        if (tokens[i].kind == Token_kind::open) ++depth;
        if (tokens[i].kind == Token_kind::close) --depth;
        if (tokens[i].kind != Token_kind::word || depth > 0) continue;
        const std::string_view word = tokens[i].in(text);
        const std::string_view previous = tokens[i - 1].in(text);
        if (previous == "." || statement.goes_on_with(word, previous, i)) {
            continue;  // a column may be called as it likes
        }
        throw Database_error("Solo se admite una instrucción a la vez: otra empieza en " + std::string(word) +
                             "; la instrucción no se envió a la base de datos");
    }
}

}  // namespace cuvexa::dialect
