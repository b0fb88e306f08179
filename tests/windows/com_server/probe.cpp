#include "windows/com_server/probe.h"

#include <new>

namespace cuvexa::tests {

using namespace com;
using namespace com_server;
namespace {

using Arguments = std::span<Variant>;

Parameter by_reference(std::string_view name, Value_type type) {
    return {name, type, true, false, {}};
}
Parameter by_value(std::string_view name, Value_type type) {
    return {name, type, false, false, {}};
}
Parameter optional(std::string_view name, Value_type type, Variant value) {
    return {name, type, true, true, std::move(value)};
}

/// Notes what it got.
Variant note(Automation_object& object, Arguments arguments) {
    static_cast<Probe&>(object).seen.assign(arguments.begin(), arguments.end());
    return true;
}

Variant change_arguments(Automation_object& object, Arguments arguments) {
    note(object, arguments);
    arguments[0] = std::int16_t{-321};
    arguments[1] = 12.25;
    arguments[2] = true;
    arguments[3] = Date{45000.5};
    arguments[4] = std::string("cambiado: ñ");
    return true;
}

class Table {
public:
    std::vector<Member> members;

    template <class Run>
    void add(std::string_view name, std::vector<Parameter> parameters, Run run) {
        Member member;
        member.name = name;
        member.identifier = static_cast<std::int32_t>(100 + members.size());
        member.parameters = std::move(parameters);
        member.result = {Type::boolean};
        member.run = run;
        members.push_back(std::move(member));
    }
};

std::vector<Member> members() {
    constexpr Value_type integer{Type::integer16}, real{Type::real}, boolean{Type::boolean}, date{Type::date},
        text{Type::text};
    const Value_type movement = value_type<tBnMovimiento>();
    const Value_type object{Type::object, nullptr, "clsRpDetalle"};
    Table table;
    table.add("Take_integer", {by_reference("a", integer)}, note);
    table.add("Take_integer_by_value", {by_value("a", integer)}, note);
    table.add("Take_real", {by_reference("a", real)}, note);
    table.add("Take_boolean", {by_reference("a", boolean)}, note);
    table.add("Take_date", {by_reference("a", date)}, note);
    table.add("Take_text", {by_reference("a", text)}, note);
    table.add("Take_text_by_value", {by_value("a", text)}, note);
    table.add("Take_movement", {by_reference("a", movement)}, [](Automation_object& self, Arguments arguments) {
        note(self, arguments);
        auto& changed = std::get<tBnMovimiento>(std::get<Record>(arguments[0]));
        changed.Bm_Folio = "F-1 “ñ”";
        changed.Cuenta.Bn_Cve_Banco = "BX";
        changed.EnFirme = !changed.EnFirme;
        return Variant(true);
    });
    table.add("Take_object", {by_reference("a", object)}, note);
    table.add("Take_optional",
              {by_reference("First", text), optional("Second", integer, std::int16_t{7}),
               optional("Third", text, std::string("left out"))},
              note);
    table.add("Throw_int", {}, [](Automation_object&, Arguments) -> Variant { throw 7; });
    table.add("Throw_exception", {},
              [](Automation_object&, Arguments) -> Variant { throw std::logic_error("la lógica"); });
    table.add("Throw_automation_error", {},
              [](Automation_object&, Arguments) -> Variant { throw Automation_error(1004, "el número 1004"); });
    table.add("Throw_bad_alloc", {}, [](Automation_object&, Arguments) -> Variant { throw std::bad_alloc(); });
    table.add("Throw_odd_text", {}, [](Automation_object&, Arguments) -> Variant {
        throw std::runtime_error(
            "a\xFF"
            "b");
    });
    table.add("Change_all",
              {by_reference("a", integer), by_reference("b", real), by_reference("c", boolean), by_reference("d", date),
               by_reference("e", text)},
              change_arguments);
    return table.members;
}

}  // namespace

const Automation_class& Probe::type() const {
    static const Automation_class probe = {"Probe", "_Probe", members(), nullptr};
    return probe;
}

}  // namespace cuvexa::tests
