// What the commands of the program share: how they fail, and how they open a database.
#pragma once

#include <CLI/CLI.hpp>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "cuvexa/data_access.h"
#include "cuvexa/database/trace.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa::cli {

enum Exit_code { exit_done = 0, exit_refused = 1, exit_wrong_use = 2 };

/// Ends a command with exit code 1; the text goes to standard error.
class Refused : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The options of every command that opens a database.
struct Database_options {
    std::string file;
    std::string trace;
    std::string synchronous = "full";
    double wait_s = 10;

    /// Whether `file` names a server by a connection string.
    bool is_server() const;

    /// `file` as it may be shown: a connection string without its password.
    std::string shown() const;

    /// Whether something stands in the database's place: a file, or the schema in a server's database.
    bool stands() const;

    /// Adds --db, --trace, --synchronous and --wait to a command.
    void add_to(CLI::App& command, bool db_required = true);
};

enum class Access { read, write };

/// An open Cuvexa database, traced when the options say so.
class Database {
public:
    /// Opens an existing database of this version. Throws `Refused` with one line that says what is wrong with it.
    Database(const Database_options& options, Access access);

    /// A new database in memory.
    static std::unique_ptr<Database> in_memory(const Database_options& options, bool sample);

    /// Makes the file, or fills the server's database, with the schema and, if wanted, the sample company: whole or not
    /// at all. Throws `Refused` when there is something in its place.
    static void create(const Database_options& options, bool sample);

    Connection& connection();

    /// The dates that the engine reads alike under every setting.
    Date_style date_style() const { return date_style_; }

private:
    Database(std::unique_ptr<Connection> engine, const std::string& file, const std::string& trace);
    static std::unique_ptr<Database> filled(std::unique_ptr<Connection> engine, const std::string& file,
                                            const Database_options& options, bool sample);

    std::ofstream trace_file_;
    std::unique_ptr<Connection> engine_;
    Date_style date_style_ = Date_style::iso;
    std::optional<Traced_connection> traced_;
};

/// The commands; each adds itself, with what it does when chosen.
void add_init(CLI::App& program);
void add_demo(CLI::App& program);
void add_rpc(CLI::App& program);
void add_show(CLI::App& program);
void add_parameter(CLI::App& program);
void add_suite(CLI::App& program);
void add_audit(CLI::App& program);
void add_dialog(CLI::App& program);

}  // namespace cuvexa::cli
