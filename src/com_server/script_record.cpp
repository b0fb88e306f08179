#include "com_server/script_record.h"

#include <algorithm>
#include <string>

#include "com/failures.h"
#include "com/late.h"
#include "com/object.h"
#include "com_server/arguments.h"
#include "com_server/record_values.h"
#include "core/case.h"

namespace cuvexa::com_server {
namespace {

constexpr const char* source = "Cuvexa";

// The members of the record have the identifiers 1, 2, … in their order.
constexpr DISPID first_field = 1;
constexpr DISPID id_leer = 0x1000;
constexpr DISPID id_vaciar = 0x1001;

class Script_record final : public Dispatch_object<> {
public:
    /// `owner` keeps the record that `place` is a part of.
    Script_record(std::shared_ptr<Record> owner, Record_place place) : owner_(std::move(owner)), place_(place) {}

    const Record_place& place() const { return place_; }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        if (!names || !ids || count == 0) return E_INVALIDARG;
        return guarded(source, [&] {
            std::fill(ids, ids + count, DISPID_UNKNOWN);
            ids[0] = identifier(utf8(names[0]));
            return ids[0] == DISPID_UNKNOWN || count > 1 ? DISP_E_UNKNOWNNAME : S_OK;
        });
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID id, REFIID, LCID locale, WORD kind, DISPPARAMS* parameters, VARIANT* result,
                                     EXCEPINFO* record, UINT*) override {
        if (!parameters) return E_INVALIDARG;
        try {
            Any value = run(id, locale, kind, *parameters);
            if (result) *result = value.release();
            return S_OK;
        } catch (...) {
            return raise(current_failure(), source, record);
        }
    }

protected:
    void* find(REFIID iid) override {
        return IsEqualIID(iid, own_iid<Script_record>()) ? static_cast<IDispatch*>(this) : Dispatch_object::find(iid);
    }

private:
    DISPID identifier(std::string_view name) const {
        for (std::size_t at = 0; at < place_.type->fields.size(); ++at) {
            if (same_text(place_.type->fields[at].name, name)) return first_field + static_cast<DISPID>(at);
        }
        if (same_text(name, "Leer")) return id_leer;
        if (same_text(name, "Vaciar")) return id_vaciar;
        return DISPID_UNKNOWN;
    }

    Any run(DISPID id, LCID locale, WORD kind, const DISPPARAMS& parameters) {
        if (id == id_leer || id == id_vaciar) {
            const UINT needed = id == id_leer ? 2 : 0;
            if (!(kind & DISPATCH_METHOD)) throw Result_error(DISP_E_MEMBERNOTFOUND, "a method is called, not read");
            if (parameters.cArgs != needed) throw Result_error(DISP_E_BADPARAMCOUNT, "wrong number of arguments");
            if (id == id_leer) {
                read(object_in(parameters.rgvarg[1]), text_in(parameters.rgvarg[0]), locale);
            } else {
                empty();
            }
            return {};
        }
        const auto at = static_cast<std::size_t>(id - first_field);
        if (id < first_field || at >= place_.type->fields.size()) {
            throw Result_error(DISP_E_MEMBERNOTFOUND, "no such member");
        }
        const Field& field = place_.type->fields[at];
        if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
            if (parameters.cArgs != 1) throw Result_error(DISP_E_BADPARAMCOUNT, "wrong number of arguments");
            let(field, parameters.rgvarg[0], locale);
            return {};
        }
        if (parameters.cArgs != 0) throw Result_error(DISP_E_BADPARAMCOUNT, "wrong number of arguments");
        return get(field);
    }

    Any get(const Field& field) {
        const Place place = field.place(place_.record);
        if (const auto* nested = std::get_if<Record_place>(&place)) {
            return any(Pointer<IDispatch>::owning(new Script_record(owner_, *nested)));
        }
        Variant value = value_at(place);
        return result_of(value, field.type);
    }

    void let(const Field& field, const VARIANT& given, LCID locale) {
        const Variant value = argument(given, field.type, locale);
        if (is_missing(value)) throw Result_error(DISP_E_TYPEMISMATCH, "a value is expected");
        assign(field.place(place_.record), value);
    }

    void read(const Pointer<IDispatch>& object, const std::string& property, LCID locale) {
        Late_object from(object);
        const Any given = from.invoke(property, DISPATCH_PROPERTYGET, {});
        Record record = std::get<Record>(argument(*given.get(), {Type::record, place_.type}, locale));
        copy_record(place_of(record), place_);
    }

    void empty() {
        Record fresh = place_.type->create();
        copy_record(place_of(fresh), place_);
    }

    std::shared_ptr<Record> owner_;
    Record_place place_;
};

}  // namespace

Pointer<IDispatch> new_script_record(const Record_type& type) {
    auto record = std::make_shared<Record>(type.create());
    const Record_place place = place_of(*record);
    return Pointer<IDispatch>::owning(new Script_record(std::move(record), place));
}

const Record_place* script_record_behind(IUnknown* object) {
    Pointer<IDispatch> found;
    if (!object || FAILED(object->QueryInterface(own_iid<Script_record>(), found.receive_void()))) return nullptr;
    return &static_cast<Script_record*>(found.get())->place();
}

}  // namespace cuvexa::com_server
