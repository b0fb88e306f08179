#include "com_suite/late_database.h"

#include "com/failures.h"

namespace cuvexa::com_suite {
namespace {

constexpr std::int32_t unspecified_options = -1;
constexpr std::int32_t state_closed = 0;

/// Runs a call on the database's objects; what fails there is a failure of the database.
template <class Body>
auto on_database(Body&& body) {
    try {
        return body();
    } catch (const std::exception& failure) {
        throw Database_error(failure.what());
    }
}

class Late_recordset final : public Recordset {
public:
    /// Without an object, or with one that is closed, it is at its end: the statement gave no rows.
    explicit Late_recordset(Pointer<IDispatch> recordset) : recordset_(std::move(recordset)) {
        open_ = recordset_ && !(recordset_.has("State") && integer_in(*recordset_.get("State").get()) == state_closed);
    }
    ~Late_recordset() override {
        try {
            close();
        } catch (const Database_error&) {
            // It is given back with its last reference.
        }
    }

    bool eof() const override {
        return on_database([&] { return !open_ || boolean_in(*recordset_.get("EOF").get()); });
    }

    Value field(std::string_view name) const override {
        return on_database([&] {
            require_row();
            if (!fields_) fields_ = Late_object(object_in(*recordset_.get("Fields").get()));
            Late_object field(object_in(*fields_.get("Item", name).get()));
            return value_in(*field.get("Value").get());
        });
    }

    void move_next() override {
        on_database([&] {
            require_row();
            recordset_.call("MoveNext");
        });
    }

    void close() override {
        if (!open_) return;
        open_ = false;
        on_database([&] { recordset_.call("Close"); });
    }

private:
    void require_row() const {
        if (eof()) throw Database_error("The recordset has no current row");
    }

    mutable Late_object recordset_;
    mutable Late_object fields_;
    bool open_ = false;
};

}  // namespace

void Late_connection::use(const Pointer<IDispatch>& connection) {
    if (connection.get() != connection_.object().get()) connection_ = Late_object(connection);
}

std::unique_ptr<Recordset> Late_connection::execute(std::string_view text) {
    return on_database([&]() -> std::unique_ptr<Recordset> {
        Any given[] = {any(text), missing(), any(unspecified_options)};
        const Any rows = connection_.invoke("Execute", DISPATCH_METHOD, given);
        return std::make_unique<Late_recordset>(object_in(*rows.get()));
    });
}

}  // namespace cuvexa::com_suite
