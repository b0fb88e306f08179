// The one table of the classes and their members, from which every front door is driven.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/variant.h"
#include "cuvexa/module.h"

namespace cuvexa::automation {

enum class Member_kind { method, property_get, property_let };

struct Parameter {
    std::string_view name;
    Value_type type;
    bool by_reference = false;
    bool optional = false;
    Variant default_value;  ///< of an optional parameter: the empty value of its type
};

/// One dispatch member. A property that is read and written is two of them under one identifier.
struct Member {
    std::string_view name;
    std::int32_t identifier = 0;
    Member_kind kind = Member_kind::method;
    bool data_member = false;   ///< a public field of the class: get and let without a procedure behind
    bool shows_dialog = false;  ///< waits for a person
    std::vector<Parameter> parameters;
    Value_type result;
    std::string_view help = {};

    /// What the member does instead of refusing an object of another class than its parameter's.
    std::function<void(Automation_object&)> mismatched = {};

    /// Runs the member. There are as many arguments as parameters; by-reference ones are left as they are afterwards,
    /// in the parameter's exact type. `Invoke` is the way to it.
    std::function<Variant(Automation_object&, std::span<Variant>)> run;
};

struct Automation_class {
    std::string_view name;
    std::string_view interface_name;
    std::vector<Member> members;  ///< in the published order
    Object (*create)(Module& module);
};

/// `Tesoreria` and `clsRpDetalle`.
std::span<const Automation_class> automation_classes();

/// The class of that name, without regard to case; null when there is none.
const Automation_class* find_class(std::string_view name);

/// An object of one of the classes, as callers of other languages hold it.
class Automation_object {
public:
    virtual ~Automation_object() = default;
    virtual const Automation_class& type() const = 0;
};

/// An automation object around an instance of the C++ class.
template <class C>
class Automation_object_of final : public Automation_object {
public:
    explicit Automation_object_of(std::shared_ptr<C> instance) : instance_(std::move(instance)) {}
    const Automation_class& type() const override;
    const std::shared_ptr<C>& instance() const { return instance_; }

private:
    std::shared_ptr<C> instance_;
};

}  // namespace cuvexa::automation
