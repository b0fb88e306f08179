// Between the component, which speaks the SQL Server dialect, and a session of a server.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/data_access.h"
#include "database/dialect/lexer.h"
#include "database/dialect/translation.h"
#include "database/servers.h"

namespace cuvexa::database {

class Interpreter {
public:
    /// Runs a text in the server's own words.
    using Ask = std::function<std::unique_ptr<Recordset>(std::string_view text)>;

    /// `ask` is for what the server alone knows; the server is asked when a statement first needs it.
    Interpreter(const Server& server, Ask ask) : server_(&server), ask_(std::move(ask)) {}

    /// The one statement to be sent, in the server's words. Throws `Database_error` for a text that may not be sent: an
    /// empty one, a second statement, what `tokenize` refuses.
    std::string to_send(std::string_view text);

    /// What goes around the statement that was last asked for with `to_send`.
    Transaction_words around_last() const { return around_; }

    /// The pieces of a text that is to be sent, good until the next text. Throws as `to_send` does.
    const std::vector<dialect::Token>& read(std::string_view text);

    /// The text that was read last, for a server with a dialect of its own.
    dialect::Translation translation(std::string_view text);

    /// The statement in the server's words, to be looked at; as it stands for a server that takes it so.
    std::string translate(std::string_view text);

private:
    const dialect::Date_columns& dates_for(std::string_view text);

    const Server* server_;
    Ask ask_;
    std::vector<dialect::Token> tokens_;  ///< of the text under way
    Transaction_words around_;
    std::optional<dialect::Date_columns> dates_;
};

}  // namespace cuvexa::database
