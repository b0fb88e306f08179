#include "simulator/wire.h"

#include "cuvexa/lost_connection.h"

namespace cuvexa::simulator {
namespace {

/// The most that the engine takes.
constexpr int every_page = 1'073'741'823;

}  // namespace

void Wire::begin(const std::optional<Fault>& fault) {
    end();
    fault_ = fault;
    met_.reset();
    statements_ = writes_ = 0;
    if (fault_ && fault_->kind == Fault::Kind::disk_full) give_room(static_cast<int>(fault_->at) - 1);
}

void Wire::end() {
    if (fault_ && fault_->kind == Fault::Kind::disk_full) give_room(every_page);
    fault_.reset();
    gone_ = false;
    // A unit that a lost connection or a killed program left open is undone by the engine.
    if (sqlite3_get_autocommit(database_) == 0) sqlite3_exec(database_, "ROLLBACK", nullptr, nullptr, nullptr);
}

/// Room for so many pages more than there are.
void Wire::give_room(int pages) {
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(database_, "PRAGMA page_count", -1, &statement, nullptr);
    sqlite3_step(statement);
    const int used = sqlite3_column_int(statement, 0);
    sqlite3_finalize(statement);
    const std::string most = std::to_string(pages == every_page ? every_page : used + pages);
    sqlite3_exec(database_, ("PRAGMA max_page_count = " + most).c_str(), nullptr, nullptr, nullptr);
}

/// Whether the statement would change rows; it is tried and taken back.
bool Wire::would_write(std::string_view text) {
    const auto changes = sqlite3_total_changes(database_);
    sqlite3_exec(database_, "SAVEPOINT tried", nullptr, nullptr, nullptr);
    bool writes = false;
    try {
        connection_.execute(text);
        writes = sqlite3_total_changes(database_) != changes;
    } catch (const Database_error&) {
        // It would have failed by itself.
    }
    sqlite3_exec(database_, "ROLLBACK TO tried; RELEASE tried", nullptr, nullptr, nullptr);
    return writes;
}

void Wire::fail(std::string_view text) {
    met_->statement = text;
    switch (fault_->kind) {
        case Fault::Kind::refused:
            met_->description = "Falla provocada";
            throw Database_error(met_->description);
        case Fault::Kind::conflict:
            met_->description = "Otra sesión trabaja con los mismos datos; repita la operación";
            throw Conflict_error(met_->description);
        default:
            met_->description = "Se perdió la conexión";
            gone_ = true;
            throw Lost_connection_error(met_->description);
    }
}

std::unique_ptr<Recordset> Wire::execute(std::string_view text) {
    if (gone_) throw Lost_connection_error(met_->description);
    const bool here = text != "ROLLBACK TRANSACTION" &&
                      ++statements_ == (fault_ && fault_->kind != Fault::Kind::disk_full ? fault_->at : 0);
    const bool unit = text.ends_with(" TRANSACTION");
    const bool behind = here && (fault_->kind == Fault::Kind::unanswered || fault_->kind == Fault::Kind::killed_behind);
    if (here && !behind) {
        met_ = Met{.writes = writes_, .at_a_write = !unit && would_write(text)};
        fail(text);
    }
    const auto changes = sqlite3_total_changes(database_);
    try {
        auto rows = connection_.execute(text);
        if (!unit && sqlite3_total_changes(database_) != changes) ++writes_;
        if (!behind) return rows;
    } catch (const Database_error& failure) {
        const bool full = fault_ && fault_->kind == Fault::Kind::disk_full && !met_ &&
                          std::string_view(failure.what()).find("full") != std::string_view::npos;
        if (full) met_ = Met{failure.what(), writes_, !unit, false, std::string(text)};
        if (!behind) throw;
    }
    met_ = Met{.writes = writes_, .kept = text == "COMMIT TRANSACTION"};
    fail(text);
}

}  // namespace cuvexa::simulator
