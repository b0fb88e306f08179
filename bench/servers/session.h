// A user of a server: a session of the component, and what it costs.
#pragma once

#include <memory>
#include <string>

#include "cuvexa/database/server_connection.h"
#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/tesoreria.h"

#include "../company.h"
#include "../documents.h"

namespace cuvexa::bench {

/// By its own protocol, or, for a text with a "Driver=", through ODBC.
std::unique_ptr<Server_connection> connection_to(const std::string& database);

/// Seconds that this thread has kept a processor busy.
double thread_seconds();

/// The same of a process of this machine; 0 for another machine's.
double process_seconds(int process);

/// The component in a session of its own. Used by one thread.
class Session {
public:
    /// `atomic`: each call is a unit of work, repeated while somebody is in its way.
    Session(const std::string& database, bool atomic);

    Tesoreria& treasury() { return treasury_; }
    Text_keeper& texts() { return texts_; }
    const Server_connection& connection() const { return *connection_; }
    const Have_done& done() const { return done_; }

    /// Calls that were repeated.
    int repeated() const { return repeated_; }

    /// The server's process.
    int process() const { return process_; }

private:
    void have_done(const std::function<bool()>& call);
    bool run(const std::function<bool()>& call);

    bool atomic_;
    int repeated_ = 0;
    std::unique_ptr<Server_connection> connection_;
    int process_;
    Text_keeper texts_;
    Module module_;
    Tesoreria treasury_;
    Have_done done_ = [this](const std::function<bool()>& call) { have_done(call); };
};

}  // namespace cuvexa::bench
