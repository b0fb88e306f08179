// Statements that PostgreSQL is given bare, by its own library and without the component: as texts, or prepared.
#pragma once

#include <libpq-fe.h>

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

#include "database/interpreter.h"
#include "database/shape.h"

namespace cuvexa::bench {

/// A session, in which any statement that is refused ends the program's work.
class Bare_session {
public:
    enum class As { text, prepared };

    Bare_session(const std::string& conninfo, As as);

    /// Makes ready for texts of the component's dialect: translated, and of those that are to be prepared each shape
    /// prepared once and the values apart.
    void make_ready(const std::vector<std::string>& texts);

    /// Runs what was made ready, as fast as the server takes it.
    void run();

    int process() const { return PQbackendPID(connection_.get()); }

private:
    struct Closer {
        void operator()(PGconn* connection) const noexcept { PQfinish(connection); }
        void operator()(PGresult* result) const noexcept { PQclear(result); }
    };
    using Result = std::unique_ptr<PGresult, Closer>;
    struct Call {
        std::string text;  ///< or the name of what is prepared
        bool prepared = false;
        std::vector<std::string> values = {};
    };

    Call call_for(const std::string& text);
    const std::string& prepared(const std::string& text, const std::vector<Oid>& types);
    void require(Result result, const std::string& text) const;

    As as_;
    std::unique_ptr<PGconn, Closer> connection_;
    database::Interpreter interpreter_;
    database::Shape shape_;
    std::unordered_map<std::string, std::string> names_;  ///< by the statement with its parameters; empty: goes as text
    std::vector<Call> calls_;
};

}  // namespace cuvexa::bench
