// What a company asks of a kind of database. Another kind is a file that has such a class, and a row in engine.cpp.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include "cuvexa/company.h"

namespace cuvexa::company {

/// A session of an engine.
struct Opened {
    std::unique_ptr<Connection> connection;
    Date_style date_style = Date_style::iso;  ///< that the engine reads alike under every setting
    std::string file = {};                    ///< where its rows are; empty on a server
    std::string notice = {};                  ///< what its operator should know; mostly empty
};

/// Writes everything that a new database holds.
using Fill = std::function<void(Opened)>;

class Engine {
public:
    virtual ~Engine() = default;

    /// Whether something stands in the database's place.
    virtual bool stands() const = 0;

    /// A session of what stands there.
    virtual Opened open(Access access) const = 0;

    /// Makes a database and has it filled: whole or not at all. Throws when something stands in its place.
    virtual void create(const Fill& fill) const = 0;

    /// Copies the database to a new file, and makes the database of such a copy; whole or not at all. The tools of a
    /// server do it for the server's.
    virtual void back_up(const std::string& copy, const Work_progress& progress) const;
    virtual void restore(const std::string& copy, const Work_progress& progress) const;
};

/// The engine that the options name.
std::unique_ptr<Engine> engine_for(const Company_options& options);

/// What opens the session of a server: the password of the options, or else of the environment.
std::string password_of(const Company_options& options);

// The kinds.
std::unique_ptr<Engine> file_engine(const Company_options& options);
std::unique_ptr<Engine> postgresql_engine(const Company_options& options);
std::unique_ptr<Engine> odbc_engine(const Company_options& options);

/// A database that lives in this process alone.
Opened open_in_memory(const Company_options& options);

}  // namespace cuvexa::company
