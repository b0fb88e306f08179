// What the published objects of one thread share: the suite behind them and its database.
#pragma once

#include <functional>
#include <memory>

#include "com/pointers.h"
#include "cuvexa/services.h"

namespace cuvexa::com_suite {

using namespace com;

class Published_connection;

/// Lives as long as one of the objects that share it.
class Session {
public:
    /// Gives the suite. It is asked at every use, so that what is wrong with a database is told by the call that needed it,
    /// and the next call tries again.
    using Source = std::function<Suite&()>;

    explicit Session(Source suite) : suite_(std::move(suite)) {}

    /// The session of this thread, over the embedded suite, which is opened when it is first needed. Its `suite` throws as
    /// `make_embedded_suite`.
    static std::shared_ptr<Session> of_this_thread();

    Suite& suite() const { return suite_(); }

    /// The one connection object, as long as somebody holds it. `self` keeps this session alive for it.
    static Pointer<IDispatch> connection_object(const std::shared_ptr<Session>& self);
    void connection_gone() { connection_ = nullptr; }

private:
    Source suite_;
    Published_connection* connection_ = nullptr;
};

}  // namespace cuvexa::com_suite
