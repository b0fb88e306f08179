// The component at work on a company: who works, when, with which windows, and what is kept of a call.
#pragma once

#include <CLI/CLI.hpp>
#include <memory>
#include <string>

#include "cuvexa/automation.h"
#include "cuvexa/company.h"
#include "cuvexa/module.h"

namespace cuvexa::cli {

/// The options of a command that works on a company.
struct Session_options {
    Company_options company;
    std::string user = Suite_options{}.user;
    std::string server_date;
    bool atomic = false;

    /// Adds --user, --server-date, if wanted --atomic, and those of the company to a command.
    void add_to(CLI::App& command, bool with_atomic = false);
};

/// Why a text cannot be a user's name in statements; empty when it can.
std::string user_problem(const std::string& user);

/// Why a text is no date; empty when it is one.
std::string date_problem(const std::string& text);

class Session {
public:
    /// Opens the company and shows dialogs in windows, where this program has any. `suite` says what the options do
    /// not.
    explicit Session(const Session_options& options, Suite_options suite = {});

    /// On an open company, `windows` or none.
    Session(Company company, Suite_options suite, std::shared_ptr<Dialog_toolkit> windows = nullptr);

    Connection& connection() { return company_.connection(); }
    Module& module() { return module_; }

    /// Keeps each call whole or not at all, when the options say so; else calls run as they are.
    Around_call around_calls();

private:
    Company company_;
    Module module_;
    bool atomic_ = false;
};

}  // namespace cuvexa::cli
