// A class that is not published, to see what a front door carries to a member and back.
#pragma once

#include <functional>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "automation/members.h"

namespace cuvexa::tests {

using namespace automation;

class Made_up_object final : public Automation_object {
public:
    const Automation_class& type() const override {
        static const Automation_class made_up = {"Made_up", "_Made_up", members(), nullptr};
        return made_up;
    }

private:
    using Run = std::function<Variant(Automation_object&, std::span<Variant>)>;

    static Member member(std::string_view name, Member_kind kind, std::vector<Parameter> parameters, Value_type result,
                         Run run) {
        Member made;
        made.name = name;
        made.kind = kind;
        made.parameters = std::move(parameters);
        made.result = result;
        made.run = std::move(run);
        return made;
    }

    static std::vector<Member> members() {
        constexpr auto method = Member_kind::method;
        constexpr auto get = Member_kind::property_get;
        return {
            // Writes all its arguments; only the first is by reference.
            member("Write", method,
                   {{"Datos", value_type<tBnMovimiento>(), true, false, {}},
                    {"Nota", {Type::text}, false, true, std::string("-")}},
                   {Type::text},
                   [](Automation_object&, std::span<Variant> arguments) -> Variant {
                       auto& movement = std::get<tBnMovimiento>(std::get<Record>(arguments[0]));
                       movement.Bm_Importe *= -1;
                       movement.Cuenta.Bn_Cve_Banco = "BX";
                       const std::string note = std::get<std::string>(arguments[1]);
                       arguments[1] = std::string("written");
                       return note;
                   }),
            member("Same", method, {{"a", {Type::real}, false, false, {}}}, {Type::real},
                   [](Automation_object&, std::span<Variant> arguments) { return arguments[0]; }),
            member("Day", method, {{"a", {Type::date}, false, false, {}}}, {Type::date},
                   [](Automation_object&, std::span<Variant> arguments) { return arguments[0]; }),
            member("Text", method, {{"a", {Type::text}, false, false, {}}}, {Type::text},
                   [](Automation_object&, std::span<Variant> arguments) { return arguments[0]; }),
            member("Whole", method, {{"a", {Type::integer16}, true, false, {}}}, {Type::integer16},
                   [](Automation_object&, std::span<Variant> arguments) { return arguments[0]; }),
            member("Extras", get, {}, {Type::object, nullptr, "Made_up"},
                   [](Automation_object&, std::span<Variant>) -> Variant {
                       static const Object always_the_same = std::make_shared<Made_up_object>();
                       return always_the_same;
                   }),
            member("Nothing", get, {}, {Type::object, nullptr, "Made_up"},
                   [](Automation_object&, std::span<Variant>) -> Variant { return Object(); }),
            member("Broken_text", get, {}, {Type::text},
                   [](Automation_object&, std::span<Variant>) -> Variant { return std::string("a\xFF") + "b"; }),
            member("Fail", method, {}, {},
                   [](Automation_object&, std::span<Variant>) -> Variant { throw std::logic_error("words"); }),
            member("Fail_oddly", method, {}, {}, [](Automation_object&, std::span<Variant>) -> Variant { throw 1; }),
        };
    }
};

}  // namespace cuvexa::tests
