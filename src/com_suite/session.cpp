#include "com_suite/session.h"

#include <map>
#include <mutex>

#include "com_suite/embedded_suite.h"
#include "com_suite/published_database.h"

namespace cuvexa::com_suite {
namespace {

/// What was reported goes to the user, over the active window.
void show(const Reported_error& report) {
    const std::string text = report.description + "\n\n" + report.routine + " " + report.code;
    const std::string title = report.title.empty() ? report.project : report.title;
    MessageBoxW(GetActiveWindow(), wide(text).c_str(), wide(title).c_str(),
                MB_OK | MB_TASKMODAL | static_cast<UINT>(report.style));
}

Session::Source embedded_suite() {
    return [suite = std::shared_ptr<Suite>()]() mutable -> Suite& {
        if (!suite) suite = make_embedded_suite(show);
        return *suite;
    };
}

}  // namespace

std::shared_ptr<Session> Session::of_this_thread() {
    static std::mutex one_at_a_time;
    static std::map<DWORD, std::weak_ptr<Session>> sessions;
    const std::lock_guard lock(one_at_a_time);
    std::erase_if(sessions, [](const auto& entry) { return entry.second.expired(); });
    auto session = sessions[GetCurrentThreadId()].lock();
    if (!session) {
        session = std::make_shared<Session>(embedded_suite());
        sessions[GetCurrentThreadId()] = session;
    }
    return session;
}

Pointer<IDispatch> Session::connection_object(const std::shared_ptr<Session>& self) {
    if (self->connection_) return Pointer<IDispatch>::sharing(self->connection_);
    self->suite();
    auto* const created = new Published_connection(self);
    self->connection_ = created;
    return Pointer<IDispatch>::owning(created);
}

}  // namespace cuvexa::com_suite
