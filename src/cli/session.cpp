#include "cli/session.h"

#include <utility>

#include "cli/command.h"
#include "cli/desktop.h"
#include "core/statement.h"
#include "core/utf8.h"
#include "cuvexa/unit_of_work.h"

namespace cuvexa::cli {

namespace {

Suite_options suite_options(const Session_options& options, Suite_options suite) {
    suite.user = options.user;
    if (!options.server_date.empty()) suite.server_date = parse_date(options.server_date);
    return suite;
}

}  // namespace

std::string user_problem(const std::string& user) {
    for (std::size_t at = 0; at < user.size();) {
        const std::size_t length = utf8_length(user, at);
        if (length == 0 || static_cast<unsigned char>(user[at]) < ' ') return "not a text in UTF-8 without line breaks";
        at += length;
    }
    try {
        require_doubled_apostrophes(user);
    } catch (const Database_error&) {
        return "an apostrophe must be doubled: " + user;
    }
    return {};
}

std::string date_problem(const std::string& text) {
    return parse_date(text) ? std::string() : "not a date: " + text;
}

void Session_options::add_to(CLI::App& command, bool with_atomic) {
    command.add_option("--user", user, "User that the audit columns carry")
        ->type_name("NAME")
        ->capture_default_str()
        ->check(user_problem);
    command.add_option("--server-date", server_date, "Fix the server's date: 2024-03-15 or 2024-03-15T10:20:30")
        ->type_name("ISO")
        ->check(date_problem);
    if (with_atomic) {
        command.add_flag("--atomic", atomic, "Run each call in a transaction, undone when it gives False");
    }
    add_company_options(command, company);
}

Session::Session(const Session_options& options, Suite_options suite)
    : Session(Company(options.company), suite_options(options, std::move(suite)), desktop()) {
    atomic_ = options.atomic;
}

Session::Session(Company company, Suite_options suite, std::shared_ptr<Dialog_toolkit> windows)
    : company_(std::move(company)), module_(company_.suite(reporting_in(windows, std::move(suite)))) {
    module_.dialog_toolkit(std::move(windows));
}

Around_call Session::around_calls() {
    if (!atomic_) return {};
    return [this](const Called_method& method, const std::function<bool()>& call) {
        // A dialog waits for a person, and nobody else could write meanwhile.
        if (method.shows_dialog) {
            call();
        } else {
            unit_of_work(connection(), call);
        }
    };
}

}  // namespace cuvexa::cli
