#include "windows/replay/remote_objects.h"

#include <deque>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "com/failures.h"
#include "com/late.h"
#include "com/values.h"
#include "com_server/identifiers.h"
#include "com_server/record_memory.h"

namespace cuvexa::tests {
namespace {

using com::Any;
using com::check;
using com::Late_object;
using com::Pointer;

const Automation_class& remote_class(std::string_view name);

class Remote_object final : public Automation_object {
public:
    Remote_object(Late_object object, std::string_view class_name)
        : object_(std::move(object)), type_(remote_class(class_name)) {}
    const Automation_class& type() const override { return type_; }
    Late_object& late() { return object_; }

private:
    Late_object object_;
    const Automation_class& type_;
};

/// One argument as a client that knows the type library passes it.
class Argument {
public:
    Argument(const Parameter& parameter, Variant& value) : parameter_(parameter), value_(value) {
        switch (parameter.type.type) {
            case Type::boolean:
                whole_ = std::get<bool>(value) ? VARIANT_TRUE : VARIANT_FALSE;
                pass(VT_BOOL, &whole_);
                break;
            case Type::integer16:
                whole_ = std::get<std::int16_t>(value);
                pass(VT_I2, &whole_);
                break;
            case Type::real:
                real_ = std::get<double>(value);
                pass(VT_R8, &real_);
                break;
            case Type::date:
                real_ = std::get<Date>(value).days;
                pass(VT_DATE, &real_);
                break;
            case Type::text:
                text_ = com::new_string(std::get<std::string>(value));
                pass(VT_BSTR, &text_);
                break;
            case Type::record:
                pass_record();
                break;
            case Type::object:
                given_ = com::any(behind(std::get<Object>(value)));
                break;
            case Type::none:
                break;
        }
    }
    Argument(const Argument&) = delete;
    ~Argument() {
        if (memory_) info_->RecordDestroy(memory_);
        SysFreeString(text_);
    }

    Any take() { return std::move(given_); }

    /// What the member left.
    void give_back() {
        if (!parameter_.by_reference) return;
        switch (parameter_.type.type) {
            case Type::boolean:
                value_ = whole_ != VARIANT_FALSE;
                return;
            case Type::integer16:
                value_ = whole_;
                return;
            case Type::real:
                value_ = real_;
                return;
            case Type::date:
                value_ = Date{real_};
                return;
            case Type::text:
                value_ = com::text_of(text_);
                return;
            case Type::record:
                return com_server::read_record(memory_, place_of(std::get<Record>(value_)));
            default:
                return;
        }
    }

private:
    static Pointer<IDispatch> behind(const Object& object) {
        return object ? static_cast<Remote_object&>(*object).late().object() : nullptr;
    }

    void pass(VARTYPE type, void* place) {
        given_->vt = type | VT_BYREF;
        given_->byref = place;
    }

    void pass_record() {
        check(GetRecordInfoFromGuids(com_server::library_id, com_server::library_major, com_server::library_minor, 0,
                                     com_server::record_id(*parameter_.type.record), info_.receive()));
        memory_ = info_->RecordCreate();
        com_server::write_record(place_of(std::get<Record>(value_)), memory_, com_server::Before::nothing);
        given_->vt = VT_RECORD | VT_BYREF;
        given_->pvRecord = memory_;
        given_->pRecInfo = info_.get();
    }

    const Parameter& parameter_;
    Variant& value_;
    Any given_;
    SHORT whole_ = 0;
    double real_ = 0;
    BSTR text_ = nullptr;
    void* memory_ = nullptr;
    Pointer<IRecordInfo> info_;
};

Variant result_from(const Value_type& type, const Any& value) {
    switch (type.type) {
        case Type::none:
            return {};
        case Type::record: {
            Record record = type.record->create();
            com_server::read_record(value->pvRecord, place_of(record));
            return record;
        }
        case Type::object:
            return remote(com::object_in(*value.get()), type.class_name);
        case Type::text:
            return com::text_in(*value.get());
        case Type::real:
            return com::number_in(*value.get());
        default:
            return com::boolean_in(*value.get());
    }
}

WORD flag_of(Member_kind kind) {
    switch (kind) {
        case Member_kind::method:
            return DISPATCH_METHOD;
        case Member_kind::property_get:
            return DISPATCH_PROPERTYGET;
        case Member_kind::property_let:
            return DISPATCH_PROPERTYPUT;
    }
    return 0;
}

Variant call(const Member& member, Automation_object& object, std::span<Variant> values) {
    std::deque<Argument> arguments;
    std::vector<Any> given;
    for (std::size_t at = 0; at < values.size(); ++at) {
        arguments.emplace_back(member.parameters[at], values[at]);
        given.push_back(arguments.back().take());
    }
    Late_object& late = static_cast<Remote_object&>(object).late();
    const Any result = late.invoke(member.name, flag_of(member.kind), given);
    for (Argument& argument : arguments) argument.give_back();
    return result_from(member.result, result);
}

Automation_class made_remote(const Automation_class& type) {
    Automation_class remote = type;
    for (std::size_t at = 0; at < remote.members.size(); ++at) {
        const Member& published = type.members[at];
        remote.members[at].run = [&published](Automation_object& object, std::span<Variant> values) {
            return call(published, object, values);
        };
    }
    return remote;
}

const Automation_class& remote_class(std::string_view name) {
    static const std::map<std::string, Automation_class, std::less<>> classes = [] {
        std::map<std::string, Automation_class, std::less<>> made;
        for (const Automation_class& type : automation_classes()) made.emplace(type.name, made_remote(type));
        return made;
    }();
    return classes.find(name)->second;
}

}  // namespace

Object remote(Pointer<IDispatch> object, std::string_view class_name) {
    if (!object) return nullptr;
    return std::make_shared<Remote_object>(Late_object(std::move(object)), class_name);
}

Object new_remote_object(std::string_view class_name) {
    const Automation_class* type = find_class(class_name);
    if (!type) return nullptr;
    return std::make_shared<Remote_object>(Late_object::create("Cuvexa." + std::string(type->name)), type->name);
}

}  // namespace cuvexa::tests
