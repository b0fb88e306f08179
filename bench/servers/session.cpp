#include "session.h"

#include <ctime>
#include <fstream>
#include <stdexcept>

#include "cuvexa/database/postgresql_connection.h"
#include "cuvexa/unit_of_work.h"
#ifdef CUVEXA_WITH_ODBC
#include "cuvexa/database/odbc_connection.h"
#endif

namespace cuvexa::bench {
namespace {

int process_of(Connection& connection) {
    const Value process = connection.execute("SELECT pg_backend_pid() AS pid")->field("pid");
    return static_cast<int>(to_number(process));
}

std::shared_ptr<Reference_suite> suite_on(Connection& connection, Date_style style) {
    return std::make_shared<Reference_suite>(connection, Suite_options{.user = "LOAD", .date_style = style});
}

}  // namespace

std::unique_ptr<Server_connection> connection_to(const std::string& database) {
    if (database.find("Driver=") == std::string::npos) {
        return std::make_unique<Postgresql_connection>(database, Postgresql_options{.queue_table = "Folio_Serie"});
    }
#ifdef CUVEXA_WITH_ODBC
    return std::make_unique<Odbc_connection>(database);
#else
    throw std::runtime_error("built without ODBC");
#endif
}

double thread_seconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double process_seconds(int process) {
    double nanoseconds = 0;
    std::ifstream("/proc/" + std::to_string(process) + "/schedstat") >> nanoseconds;
    return nanoseconds * 1e-9;
}

Session::Session(const std::string& database, bool atomic)
    : atomic_(atomic),
      connection_(connection_to(database)),
      process_(process_of(*connection_)),
      texts_(*connection_),
      module_(suite_on(texts_, connection_->date_style())),
      treasury_(module_) {
    texts_.take();  // what a session begins with is no part of the work
}

bool Session::run(const std::function<bool()>& call) {
    return atomic_ ? unit_of_work(texts_, call) : call();
}

void Session::have_done(const std::function<bool()>& call) {
    for (;; ++repeated_) {
        const std::uint64_t before = texts_.conflicts();
        std::string why;
        try {
            if (run(call)) return;
            why = treasury_.Error();
        } catch (const Conflict_error& conflict) {
            why = conflict.what();  // found when the unit was to be kept
        }
        // Half of a call stands where it was no unit: then it is not to be repeated.
        if (!atomic_ || texts_.conflicts() == before) throw std::runtime_error(why);
    }
}

}  // namespace cuvexa::bench
