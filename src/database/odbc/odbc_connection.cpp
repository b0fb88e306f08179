#include "cuvexa/database/odbc_connection.h"

#include "cuvexa/errors.h"
#include "database/interpreter.h"
#include "database/odbc/code_page.h"
#include "database/odbc/session.h"
#include "database/renewable.h"

namespace cuvexa {

using database::Transaction_words;

namespace {

/// A session and what stands between it and the component.
struct Interpreted_session {
    Interpreted_session(const std::string& connection_string, const Odbc_options& options)
        : session(connection_string, options) {}

    std::unique_ptr<Recordset> execute(std::string_view text) {
        const std::string sent = interpreter.to_send(text);
        code_page.require_kept(sent);
        const Transaction_words words = interpreter.around_last();
        if (!words.before.empty()) session.run(words.before);
        auto rows = session.run(sent);
        if (!words.after.empty()) session.run(words.after);
        return rows;
    }

    std::uint64_t conflicts() const noexcept { return session.conflicts(); }
    bool failure_ends_unit() const noexcept { return session.server().failure_ends_unit; }

    /// A server that cannot say it keeps everything.
    odbc::Code_page asked_code_page() {
        try {
            const auto rows = session.run(session.server().code_page);
            return odbc::Code_page(rows->eof() ? 0 : static_cast<int>(to_number(rows->field("code_page"))));
        } catch (const std::runtime_error&) {
            return odbc::Code_page(0);
        }
    }

    odbc::Session session;
    odbc::Code_page code_page{asked_code_page()};
    database::Interpreter interpreter{session.server(), [this](std::string_view text) { return session.run(text); }};
};

}  // namespace

struct Odbc_connection::Parts : database::Renewable<Interpreted_session> {
    using Renewable::Renewable;
};

Odbc_connection::Odbc_connection(const std::string& connection_string, const Odbc_options& options)
    : parts_(std::make_unique<Parts>([connection_string, options] {
          return std::make_unique<Interpreted_session>(connection_string, options);
      })) {}

Odbc_connection::~Odbc_connection() = default;

std::unique_ptr<Recordset> Odbc_connection::execute(std::string_view text) {
    return parts_->execute(text);
}

std::uint64_t Odbc_connection::conflicts() const noexcept {
    return parts_->conflicts();
}

void Odbc_connection::prepare_database() {
    odbc::Session& session = parts_->session().session;
    if (!session.server().preparation.empty()) session.run(session.server().preparation);
    if (session.run(session.server().letters_are_equal)->eof()) {
        throw Database_error(
            "La base de datos distingue mayúsculas de minúsculas; créela con una intercalación que no las distinga");
    }
}

Date_style Odbc_connection::date_style() const noexcept {
    return parts_->session().session.server().date_style;
}

const std::string& Odbc_connection::server_name() const noexcept {
    return parts_->session().session.name();
}

std::optional<Replica> Odbc_connection::replica() {
    odbc::Session& session = parts_->session().session;
    return session.server().replica_told([&](std::string_view text) { return session.run(text); });
}

std::string Odbc_connection::translate(std::string_view text) const {
    return parts_->session().interpreter.translate(text);
}

}  // namespace cuvexa
