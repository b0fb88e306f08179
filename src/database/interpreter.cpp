#include "database/interpreter.h"

#include <algorithm>

#include "core/case.h"
#include "cuvexa/errors.h"
#include "database/dialect/batch.h"

namespace cuvexa::database {
namespace {

using dialect::Date_columns;
using dialect::Token;

bool is_definition(std::string_view text, const std::vector<Token>& tokens) {
    if (tokens.empty()) return false;
    const std::string_view first = tokens.front().in(text);
    return same_text(first, "CREATE") || same_text(first, "ALTER") || same_text(first, "DROP");
}

bool has_empty_text(std::string_view text, const std::vector<Token>& tokens) {
    return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) {
        return token.kind == dialect::Token_kind::text && (token.in(text) == "''" || same_text(token.in(text), "N''"));
    });
}

}  // namespace

std::string Interpreter::to_send(std::string_view text) {
    read(text);
    around_ = server_->around(tokens_.front().in(text));
    if (server_->dialect != nullptr) return translation(text).with_literals();
    refuse_batch(text, tokens_);
    return std::string(text);
}

const std::vector<Token>& Interpreter::read(std::string_view text) {
    tokenize(text, tokens_);
    if (tokens_.empty()) throw Database_error("La instrucción está vacía");
    return tokens_;
}

std::string Interpreter::translate(std::string_view text) {
    if (server_->dialect == nullptr) return std::string(text);
    tokenize(text, tokens_);
    return translation(text).with_literals();
}

dialect::Translation Interpreter::translation(std::string_view text) {
    return dialect::translate(text, tokens_, *server_->dialect, dates_for(text));
}

// Asked of the server when a statement first needs them, and again after a definition of this session.
const Date_columns& Interpreter::dates_for(std::string_view text) {
    static const Date_columns none;
    const bool definition = is_definition(text, tokens_);
    if (definition) dates_.reset();
    if (definition || server_->date_columns.empty() || !has_empty_text(text, tokens_)) return none;
    if (dates_) return *dates_;
    const auto rows = ask_(server_->date_columns);
    dates_.emplace();
    for (; !rows->eof(); rows->move_next()) dates_->insert(to_text(rows->field("column_name")));
    return *dates_;
}

}  // namespace cuvexa::database
