#include "windows/replay/remote_objects.h"

#include <deque>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "com/failures.h"
#include "com/late.h"
#include "com/values.h"
#include "com_server/identifiers.h"
#include "com_server/record_memory.h"
#include "com_server/types.h"

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
        if (parameter.type.type == Type::record) {
            pass_record();
        } else if (parameter.type.type == Type::object) {
            given_ = com::any(behind(std::get<Object>(value)));
        } else {
            pass_plain();
        }
    }
    Argument(const Argument&) = delete;
    ~Argument() {
        if (memory_) info_->RecordDestroy(memory_);
        if (parameter_.type.type == Type::text) SysFreeString(com::bytes_at<BSTR>(&plain_));
    }

    Any take() { return std::move(given_); }

    /// What the member left.
    void give_back() {
        if (!parameter_.by_reference || parameter_.type.type == Type::object) return;
        if (parameter_.type.type == Type::record) {
            com_server::read_record(memory_, place_of(std::get<Record>(value_)));
        } else {
            value_ = com_server::read_value(parameter_.type, &plain_);
        }
    }

private:
    static Pointer<IDispatch> behind(const Object& object) {
        return object ? static_cast<Remote_object&>(*object).late().object() : nullptr;
    }

    void pass_plain() {
        com_server::write_value(parameter_.type, value_, &plain_, com::Before::nothing);
        given_->vt = com_server::facts_of(parameter_.type).number | VT_BYREF;
        given_->byref = &plain_;
    }

    void pass_record() {
        check(GetRecordInfoFromGuids(com_server::library_id, com_server::library_major, com_server::library_minor, 0,
                                     com_server::record_id(*parameter_.type.record), info_.receive()));
        memory_ = info_->RecordCreate();
        com_server::write_record(place_of(std::get<Record>(value_)), memory_, com::Before::nothing);
        given_->vt = VT_RECORD | VT_BYREF;
        given_->pvRecord = memory_;
        given_->pRecInfo = info_.get();
    }

    const Parameter& parameter_;
    Variant& value_;
    Any given_;
    std::uint64_t plain_ = 0;  ///< what is no record and no object
    void* memory_ = nullptr;
    Pointer<IRecordInfo> info_;
};

Variant result_from(const Value_type& type, const Any& value) {
    if (type.type == Type::record) return com_server::read_value(type, value->pvRecord);
    if (type.type == Type::object) return remote(com::object_in(*value.get()), type.class_name);
    if (value->vt != com_server::facts_of(type).number) throw std::runtime_error("a result of another type");
    return com_server::read_value(type, &value->llVal);
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
