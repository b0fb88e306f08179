// A database file with the sample company and many stored receipts, and the component on it.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/tesoreria.h"

struct sqlite3;

namespace cuvexa::bench {

/// A folder that goes away with the program.
class Scratch_folder {
public:
    Scratch_folder();
    ~Scratch_folder();
    std::filesystem::path file(const std::string& name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

/// Writes a database of the sample company with `receipts` stored receipts of two lines, deposited by tens, and as many
/// applied checks of two lines as a tenth of that, with their movements and balances: the audit finds nothing in it.
void write_database(const std::filesystem::path& file, std::int64_t receipts);

/// Keeps the texts that pass through, so that they can be replayed bare.
class Text_keeper : public Connection {
public:
    explicit Text_keeper(Connection& connection) : connection_(connection) {}
    std::unique_ptr<Recordset> execute(std::string_view text) override {
        texts_.emplace_back(text);
        return connection_.execute(text);
    }
    std::uint64_t conflicts() const noexcept override { return connection_.conflicts(); }
    std::vector<std::string> take() { return std::exchange(texts_, {}); }

private:
    Connection& connection_;
    std::vector<std::string> texts_;
};

/// The component on a database file.
struct Company {
    Company(const std::filesystem::path& file, Synchronous synchronous);

    Sqlite_connection engine;
    Text_keeper connection;
    std::shared_ptr<Reference_suite> suite;
    Module module;
    Tesoreria treasury;
};

/// Prepares, steps and finalizes each text on a bare handle: the reference of every ratio. Throws when one fails.
class Bare_engine {
public:
    Bare_engine(const std::filesystem::path& file, Synchronous synchronous);
    ~Bare_engine();
    void run(const std::vector<std::string>& texts);

private:
    sqlite3* handle_;
};

/// Stops the program with the text of `Error` when an operation of a benchmark fails.
void require(bool succeeded, const Tesoreria& treasury);

}  // namespace cuvexa::bench
