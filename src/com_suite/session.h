// What the published objects of one thread share: the reference suite and its database.
#pragma once

#include <memory>

#include "com/pointers.h"
#include "com_suite/embedded_suite.h"

namespace cuvexa::com_suite {

using namespace com;

class Published_connection;

/// Lives as long as one of the thread's objects. The database is opened when it is first needed, so that what is wrong
/// with it is told by the call that needed it.
class Session {
public:
    static std::shared_ptr<Session> of_this_thread();

    /// Throws as `embedded_settings` and `Embedded_suite`; the next call tries again.
    Suite& suite();

    /// Publishes another suite on this thread instead of the embedded one; null ends that. It must outlive what is
    /// published.
    static void publish(Suite* suite);

    /// The one connection object, as long as somebody holds it. `self` keeps this session alive for it.
    static Pointer<IDispatch> connection_object(const std::shared_ptr<Session>& self);
    void connection_gone() { connection_ = nullptr; }

private:
    std::unique_ptr<Suite> own_suite_;
    Published_connection* connection_ = nullptr;
};

}  // namespace cuvexa::com_suite
