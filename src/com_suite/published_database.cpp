#include "com_suite/published_database.h"

#include <array>

#include "com/failures.h"
#include "core/case.h"
#include "cuvexa/errors.h"

namespace cuvexa::com_suite {
namespace {

// Numbers and states of ADO.
constexpr int error_no_current_record = 3021;
constexpr int error_item_not_found = 3265;
constexpr int error_object_closed = 3704;
constexpr std::int32_t state_closed = 0, state_open = 1;

constexpr std::array<std::string_view, 3> connection_members = {"Execute", "Close", "State"};
constexpr std::array<std::string_view, 6> recordset_members = {"EOF", "BOF", "Fields", "MoveNext", "Close", "State"};
constexpr std::array<std::string_view, 2> fields_members = {"Item", "Count"};
constexpr std::array<std::string_view, 2> field_members = {"Value", "Name"};

void require_get(WORD kind) {
    if (!gets(kind)) check(DISP_E_MEMBERNOTFOUND);
}

/// One column of a recordset: its value is the current row's.
class Published_field final : public Named_object {
public:
    Published_field(Pointer<Published_recordset> recordset, std::size_t column)
        : recordset_(std::move(recordset)), column_(column) {}

protected:
    std::span<const std::string_view> member_names() const override { return field_members; }
    std::string_view default_member() const override { return "Value"; }

    Any perform(std::size_t member, WORD kind, const Call_arguments& given) override {
        require_get(kind);
        given.expect(0);
        const database::Row_set& rows = recordset_->rows();
        if (member == 1) return any(rows.columns()[column_]);
        if (rows.eof()) throw Automation_error(error_no_current_record, "No hay un registro actual");
        return any(rows.value(column_));
    }
    const char* source() const override { return "CuvexaSuite.Field"; }

private:
    Pointer<Published_recordset> recordset_;
    std::size_t column_;
};

class Published_fields final : public Named_object {
public:
    explicit Published_fields(Pointer<Published_recordset> recordset) : recordset_(std::move(recordset)) {}

    Any item(const VARIANT& name_or_index) {
        const std::size_t column = find(*copy_of(name_or_index).get());
        return any(Pointer<IDispatch>::owning(new Published_field(recordset_, column)));
    }

protected:
    std::span<const std::string_view> member_names() const override { return fields_members; }
    std::string_view default_member() const override { return "Item"; }

    Any perform(std::size_t member, WORD kind, const Call_arguments& given) override {
        require_get(kind);
        given.expect(member == 0 ? 1 : 0);
        if (member == 0) return item(given.required(0));
        return any(static_cast<std::int32_t>(recordset_->rows().columns().size()));
    }
    const char* source() const override { return "CuvexaSuite.Fields"; }

private:
    std::size_t find(const VARIANT& name_or_index) {
        const auto& names = recordset_->rows().columns();
        std::size_t column = 0;
        if (name_or_index.vt == VT_BSTR) {
            const std::string name = text_in(name_or_index);
            while (column < names.size() && !same_text(names[column], name)) ++column;
        } else {
            column = static_cast<std::size_t>(integer_in(name_or_index));  // a negative one is beyond the last
        }
        if (column >= names.size()) {
            throw Automation_error(error_item_not_found, "No existe la columna: " + text_in(name_or_index));
        }
        return column;
    }

    Pointer<Published_recordset> recordset_;
};

}  // namespace

std::span<const std::string_view> Published_connection::member_names() const {
    return connection_members;
}

Any Published_connection::perform(std::size_t member, WORD kind, const Call_arguments& given) {
    require_get(kind);
    switch (member) {
        case 0:
            return execute(given);
        case 1:
            given.expect(0);
            open_ = false;
            return {};
        default:
            given.expect(0);
            return any(open_ ? state_open : state_closed);
    }
}

Any Published_connection::execute(const Call_arguments& given) {
    given.expect(1, 3);
    if (!open_) throw Automation_error(error_object_closed, "La conexión está cerrada");
    auto recordset = session_->suite().session()->GetConnection().execute(text_in(given.required(0)));
    std::unique_ptr<database::Row_set> rows(&dynamic_cast<database::Row_set&>(*recordset));
    recordset.release();
    if (given.has(1)) give_back(given[1], any(static_cast<std::int32_t>(rows->rows())));
    return any(Pointer<IDispatch>::owning(new Published_recordset(std::move(rows))));
}

std::span<const std::string_view> Published_recordset::member_names() const {
    return recordset_members;
}

database::Row_set& Published_recordset::rows() {
    if (!open_) throw Automation_error(error_object_closed, "El conjunto de registros está cerrado");
    return *rows_;
}

Any Published_recordset::perform(std::size_t member, WORD kind, const Call_arguments& given) {
    require_get(kind);
    given.expect(0, member == 2 ? 1 : 0);
    switch (member) {
        case 0:
            return any(rows().eof());
        case 1:
            return any((rows(), empty_));
        case 2: {
            rows();
            const auto self = Pointer<Published_recordset>::sharing(this);
            const auto fields = Pointer<Published_fields>::owning(new Published_fields(self));
            return given.has(0) ? fields->item(given[0]) : any(Pointer<IDispatch>::sharing(fields.get()));
        }
        case 3:
            if (rows().eof()) throw Automation_error(error_no_current_record, "No hay un registro actual");
            rows().move_next();
            return {};
        case 4:
            rows().close();
            open_ = false;
            return {};
        default:
            return any(open_ ? state_open : state_closed);
    }
}

}  // namespace cuvexa::com_suite
