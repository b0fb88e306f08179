// The way to the database, on which something goes wrong when it is told to.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "cuvexa/data_access.h"
#include "simulator/step.h"

namespace cuvexa::simulator {

class Wire : public Connection {
public:
    /// Both must outlive the object and are one.
    Wire(Connection& connection, sqlite3* database) : connection_(connection), database_(database) {}
    ~Wire() override { end(); }

    /// Counts anew, and lets happen what is given.
    void begin(const std::optional<Fault>& fault);
    /// All is well again.
    void end();

    std::unique_ptr<Recordset> execute(std::string_view text) override;

    /// What happened since `begin`.
    struct Met {
        std::string description = {};  ///< what the statement failed with
        std::size_t writes = 0;        ///< statements that had changed rows by then
        bool at_a_write = false;       ///< the one that failed would have been the next of them
        bool kept = false;             ///< a unit of work had been kept by then
        std::string statement = {};    ///< its text
    };
    const std::optional<Met>& met() const { return met_; }
    std::size_t writes() const { return writes_; }

private:
    [[noreturn]] void fail(std::string_view text);
    bool would_write(std::string_view text);
    void give_room(int pages);

    Connection& connection_;
    sqlite3* database_;
    std::optional<Fault> fault_;
    std::optional<Met> met_;
    std::size_t statements_ = 0, writes_ = 0;
    bool gone_ = false;
};

}  // namespace cuvexa::simulator
