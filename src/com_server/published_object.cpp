#include "com_server/published_object.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#include "automation/invoke.h"
#include "com/failures.h"
#include "com/object.h"
#include "com/own_library.h"
#include "com/virtual_table.h"
#include "com_server/arguments.h"
#include "com_server/identifiers.h"
#include "com_server/record_memory.h"

namespace cuvexa::com_server {
namespace {

constexpr const char* source = "Cuvexa";

class Published;

const void* const* functions_of(const Automation_class& type);

/// The other interface of the object: clients of the virtual table ask it whether a description was left.
class Error_support final : public ISupportErrorInfo {
public:
    explicit Error_support(Published& object) : object_(object) {}
    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override;
    ULONG STDMETHODCALLTYPE Release() override;
    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID) override { return S_OK; }

private:
    Published& object_;
};

class Published {
public:
    Published(Object object, std::shared_ptr<void> keeps)
        : face_{functions_of(object->type()), this}, object_(std::move(object)), keeps_(std::move(keeps)) {
        ++objects_alive;
    }
    ~Published() { --objects_alive; }

    IDispatch* face() { return reinterpret_cast<IDispatch*>(&face_); }
    const Automation_class& type() const { return object_->type(); }
    const Object& object() const { return object_; }

    ULONG add_reference() { return static_cast<ULONG>(++references_); }
    ULONG release() {
        const long left = --references_;
        if (left == 0) delete this;
        return static_cast<ULONG>(left);
    }

    HRESULT query(REFIID iid, void** found) {
        if (!found) return E_POINTER;
        const bool own = IsEqualIID(iid, IID_IUnknown) || IsEqualIID(iid, IID_IDispatch) ||
                         IsEqualIID(iid, own_iid<Published>()) || IsEqualIID(iid, ids_of(type().name).interface_id);
        *found = own                                      ? static_cast<void*>(&face_)
                 : IsEqualIID(iid, IID_ISupportErrorInfo) ? static_cast<void*>(&errors_)
                                                          : nullptr;
        if (!*found) return E_NOINTERFACE;
        add_reference();
        return S_OK;
    }

    // ---- Dispatch ----

    HRESULT type_info_count(UINT* count) {
        if (!count) return E_POINTER;
        *count = library_ ? 1 : 0;
        return S_OK;
    }

    HRESULT type_info(UINT at, ITypeInfo** info) {
        if (!info) return E_POINTER;
        *info = nullptr;
        if (at != 0 || !library_) return DISP_E_BADINDEX;
        return library_->GetTypeInfoOfGuid(ids_of(type().name).interface_id, info);
    }

    HRESULT identifiers(LPOLESTR* names, UINT count, DISPID* ids);
    HRESULT invoke(DISPID id, LCID locale, WORD kind, DISPPARAMS& parameters, VARIANT* result, UINT* wrong);

    // ---- Virtual table ----

    HRESULT call(std::size_t member, void** arguments);

private:
    Face<Published> face_;
    Error_support errors_{*this};
    Object object_;
    std::shared_ptr<void> keeps_;
    // Held so that the system has it at hand whenever a record or a client asks for it.
    Pointer<ITypeLib> library_ = own_library();
    std::atomic<long> references_{1};
};

HRESULT Error_support::QueryInterface(REFIID iid, void** object) {
    return object_.query(iid, object);
}
ULONG Error_support::AddRef() {
    return object_.add_reference();
}
ULONG Error_support::Release() {
    return object_.release();
}

// ---- Calls that do not fit the table -------------------------------------------------------------------------------

HRESULT code_of(Invoke_error::Kind kind) {
    switch (kind) {
        case Invoke_error::Kind::unknown_member:
        case Invoke_error::Kind::wrong_kind:
            return DISP_E_MEMBERNOTFOUND;
        case Invoke_error::Kind::wrong_count:
            return DISP_E_BADPARAMCOUNT;
        case Invoke_error::Kind::wrong_type:
            return DISP_E_TYPEMISMATCH;
        case Invoke_error::Kind::out_of_range:
            return DISP_E_OVERFLOW;
        case Invoke_error::Kind::unknown_argument:
            return DISP_E_PARAMNOTFOUND;
    }
    return E_FAIL;
}

/// Runs what reads the table of members: a call that does not fit it is refused in the system's codes.
template <class Body>
decltype(auto) by_table(Body&& body) {
    try {
        return body();
    } catch (const Invoke_error& refusal) {
        throw Result_error(code_of(refusal.kind()), refusal.what());
    }
}

// ---- Names and arguments of late-bound calls -----------------------------------------------------------------------

const Member* find_any(const Automation_class& type, std::string_view name) {
    for (const Member_kind kind : {Member_kind::method, Member_kind::property_get, Member_kind::property_let}) {
        try {
            return &find_member(type, name, kind);
        } catch (const Invoke_error&) {
            // Another kind, perhaps.
        }
    }
    return nullptr;
}

/// The member that a call means. Script languages leave open whether they read a property or call a method.
const Member& meant(const Automation_class& type, DISPID id, WORD kind) {
    if (kind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) {
        return find_member(type, id, Member_kind::property_let);
    }
    if ((kind & DISPATCH_METHOD) && (kind & DISPATCH_PROPERTYGET)) {
        const bool method = std::any_of(type.members.begin(), type.members.end(), [&](const Member& member) {
            return member.identifier == id && member.kind == Member_kind::method;
        });
        return find_member(type, id, method ? Member_kind::method : Member_kind::property_get);
    }
    return find_member(type, id, kind & DISPATCH_METHOD ? Member_kind::method : Member_kind::property_get);
}

/// The place of every given argument, by parameter; null for those that were left out.
std::vector<VARIANT*> places_of(const Member& member, DISPPARAMS& parameters) {
    const std::size_t count = member.parameters.size();
    if (parameters.cArgs > count) throw Result_error(DISP_E_BADPARAMCOUNT, "too many arguments");
    std::vector<VARIANT*> places(count);
    const UINT positional = parameters.cArgs - parameters.cNamedArgs;
    for (UINT at = 0; at < positional; ++at) places[at] = &parameters.rgvarg[parameters.cArgs - 1 - at];
    for (UINT at = 0; at < parameters.cNamedArgs; ++at) {
        const DISPID named = parameters.rgdispidNamedArgs[at];
        const auto place = named == DISPID_PROPERTYPUT ? count - 1 : static_cast<std::size_t>(named);
        if (place >= count) throw Result_error(DISP_E_PARAMNOTFOUND, "no such argument");
        if (places[place]) throw Result_error(DISP_E_PARAMNOTFOUND, "an argument was given twice");
        places[place] = &parameters.rgvarg[at];
    }
    return places;
}

HRESULT Published::identifiers(LPOLESTR* names, UINT count, DISPID* ids) {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    return guarded(source, [&] {
        std::fill(ids, ids + count, DISPID_UNKNOWN);
        const Member* member = find_any(type(), utf8(names[0]));
        if (!member) return DISP_E_UNKNOWNNAME;
        ids[0] = member->identifier;
        HRESULT result = S_OK;
        for (UINT at = 1; at < count; ++at) {
            try {
                ids[at] = static_cast<DISPID>(find_parameter(*member, utf8(names[at])));
            } catch (const Invoke_error&) {
                result = DISP_E_UNKNOWNNAME;
            }
        }
        return result;
    });
}

HRESULT Published::invoke(DISPID id, LCID locale, WORD kind, DISPPARAMS& parameters, VARIANT* result, UINT* wrong) {
    const auto keep = Pointer<IDispatch>::sharing(face());  // the caller's last reference may go during the call
    const Member& member = by_table([&]() -> const Member& { return meant(type(), id, kind); });
    const std::vector<VARIANT*> places = places_of(member, parameters);
    std::vector<Variant> arguments;
    for (std::size_t at = 0; at < places.size(); ++at) {
        // Which one it is, should it be refused.
        if (wrong && places[at]) *wrong = static_cast<UINT>(places[at] - parameters.rgvarg);
        if (!places[at] || com::is_missing(*places[at])) {
            if (!member.parameters[at].optional) {
                throw Result_error(DISP_E_PARAMNOTOPTIONAL,
                                   "argument " + std::string(member.parameters[at].name) + " is not optional");
            }
            arguments.emplace_back();
        } else {
            arguments.push_back(argument(*places[at], member.parameters[at].type, locale));
        }
    }
    if (wrong) *wrong = 0;
    const std::vector<Variant> before = arguments;
    Variant value = by_table([&] { return Invoke(*object_, member, arguments); });
    for (std::size_t at = 0; at < places.size(); ++at) {
        if (places[at] && member.parameters[at].by_reference && arguments[at] != before[at]) {
            give_back(arguments[at], member.parameters[at].type, *places[at], locale);
        }
    }
    if (result) *result = result_of(value, member.result).release();
    return S_OK;
}

// ---- Calls through the virtual table -------------------------------------------------------------------------------

/// The argument of a parameter: what it points to, or for a text by value the string itself. An optional one may
/// be null.
Variant argument_at(const Parameter& parameter, void* const& given) {
    if (!parameter.by_reference) return read_value(parameter.type, &given);
    if (given) return read_value(parameter.type, given);
    if (!parameter.optional) throw Result_error(E_POINTER, "argument " + std::string(parameter.name) + " is null");
    return {};
}

HRESULT Published::call(std::size_t at, void** given) {
    const auto keep = Pointer<IDispatch>::sharing(face());
    return guarded(source, [&]() -> HRESULT {
        const Member& member = type().members[at];
        const std::size_t count = member.parameters.size();
        void* result = member.result.type == Type::none ? nullptr : given[count];
        if (member.result.type != Type::none && !result) {
            throw Result_error(E_POINTER, "the place of the result is null");
        }
        std::vector<Variant> arguments;
        for (std::size_t place = 0; place < count; ++place) {
            arguments.push_back(argument_at(member.parameters[place], given[place]));
        }
        const std::vector<Variant> before = arguments;
        Variant value = by_table([&] { return Invoke(*object_, member, arguments); });
        for (std::size_t place = 0; place < count; ++place) {
            const Parameter& parameter = member.parameters[place];
            if (parameter.by_reference && arguments[place] != before[place]) {
                write_value(parameter.type, arguments[place], given[place], Before::a_value);
            }
        }
        if (result) write_value(member.result, value, result, Before::nothing);
        return S_OK;
    });
}

// ---- The virtual table ---------------------------------------------------------------------------------------------

HRESULT STDMETHODCALLTYPE query_interface(Face<Published>* face, REFIID iid, void** object) {
    return face->object->query(iid, object);
}
ULONG STDMETHODCALLTYPE add_reference(Face<Published>* face) {
    return face->object->add_reference();
}
ULONG STDMETHODCALLTYPE release(Face<Published>* face) {
    return face->object->release();
}
HRESULT STDMETHODCALLTYPE get_type_info_count(Face<Published>* face, UINT* count) {
    return face->object->type_info_count(count);
}
HRESULT STDMETHODCALLTYPE get_type_info(Face<Published>* face, UINT at, LCID, ITypeInfo** info) {
    return face->object->type_info(at, info);
}
HRESULT STDMETHODCALLTYPE get_ids_of_names(Face<Published>* face, REFIID, LPOLESTR* names, UINT count, LCID,
                                           DISPID* ids) {
    return face->object->identifiers(names, count, ids);
}
HRESULT STDMETHODCALLTYPE invoke(Face<Published>* face, DISPID id, REFIID iid, LCID locale, WORD kind,
                                 DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* record, UINT* wrong) {
    if (!IsEqualIID(iid, IID_NULL)) return DISP_E_UNKNOWNINTERFACE;
    if (!parameters) return E_INVALIDARG;
    try {
        return face->object->invoke(id, locale, kind, *parameters, result, wrong);
    } catch (...) {
        return raise(current_failure(), source, record);
    }
}

std::vector<const void*> make_functions(const Automation_class& type) {
    std::vector<const void*> functions{
        reinterpret_cast<const void*>(&query_interface),
        reinterpret_cast<const void*>(&add_reference),
        reinterpret_cast<const void*>(&release),
        reinterpret_cast<const void*>(&get_type_info_count),
        reinterpret_cast<const void*>(&get_type_info),
        reinterpret_cast<const void*>(&get_ids_of_names),
        reinterpret_cast<const void*>(&com_server::invoke),
    };
    for (std::size_t at = 0; at < type.members.size(); ++at) {
        const Member& member = type.members[at];
        const std::size_t pointers = member.parameters.size() + (member.result.type == Type::none ? 0 : 1);
        functions.push_back(function_of<Published>(at, pointers));
    }
    return functions;
}

const void* const* functions_of(const Automation_class& type) {
    static std::mutex mutex;
    static std::map<const Automation_class*, std::vector<const void*>> tables;
    const std::lock_guard lock(mutex);
    auto& functions = tables[&type];
    if (functions.empty()) functions = make_functions(type);
    return functions.data();
}

/// An object of somebody else's: of no class that a member takes.
class Foreign_object final : public Automation_object {
public:
    const Automation_class& type() const override {
        static const Automation_class none{.name = "", .interface_name = "", .members = {}, .create = nullptr};
        return none;
    }
};

}  // namespace

Pointer<IDispatch> published(Object object, std::shared_ptr<void> keeps) {
    if (!object) return nullptr;
    return Pointer<IDispatch>::owning((new Published(std::move(object), std::move(keeps)))->face());
}

Object object_behind(IUnknown* client_object) {
    if (!client_object) return nullptr;
    Pointer<IUnknown> own;
    if (FAILED(client_object->QueryInterface(own_iid<Published>(), own.receive_void()))) {
        return std::make_shared<Foreign_object>();
    }
    return reinterpret_cast<Face<Published>*>(own.get())->object->object();
}

}  // namespace cuvexa::com_server
