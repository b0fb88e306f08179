#include "automation/invoke.h"

#include <gmock/gmock.h>

#include <cmath>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "cuvexa/tesoreria.h"
#include "support/company.h"

namespace cuvexa::tests {
namespace {

using namespace automation;

constexpr auto method = Member_kind::method;
constexpr auto get = Member_kind::property_get;
constexpr auto let = Member_kind::property_let;
using Arguments = std::vector<Variant>;

struct Invocation : testing::Test {
    Company company;
    std::shared_ptr<Tesoreria> instance = std::make_shared<Tesoreria>(company.module());
    Object tesoreria = std::make_shared<Automation_object_of<Tesoreria>>(instance);

    Variant call(std::string_view name, Arguments arguments = {}) {
        return Invoke(*tesoreria, name, method, arguments);
    }
    Variant read(std::string_view name) {
        Arguments none;
        return Invoke(*tesoreria, name, get, none);
    }
    void write(std::string_view name, Variant value) {
        Arguments arguments = {std::move(value)};
        Invoke(*tesoreria, name, let, arguments);
    }
};

Variant text(std::string value) {
    return Variant(std::move(value));
}

/// A record with one field set.
template <class R, class V>
R with(V R::*field, const std::type_identity_t<V>& value) {
    R record;
    record.*field = value;
    return record;
}

/// The kind of the `Invoke_error` that the action ends with.
std::optional<Invoke_error::Kind> refusal(const std::function<void()>& action) {
    try {
        action();
    } catch (const Invoke_error& error) {
        return error.kind();
    }
    return std::nullopt;
}

// ---- Every member reaches its C++ namesake -------------------------------------------------------------------------

struct Operation_case {
    std::string_view name;
    Arguments arguments;
    std::function<Variant(Tesoreria&)> direct;
};

const Date march = make_date(2024, 3, 15);
const Date april = make_date(2024, 4, 16);

const std::vector<Operation_case>& operations() {
    using T = Tesoreria;
    static const std::vector<Operation_case> all = {
        {"Cancelar_Deposito", {text("D1")}, [](T& t) { return t.Cancelar_Deposito("D1"); }},
        {"FinReciboCaja", {text("R1")}, [](T& t) { return t.FinReciboCaja("R1"); }},
        {"Add_Recibo_Caja_Detalle", {}, [](T& t) { return t.Add_Recibo_Caja_Detalle(); }},
        {"Add_Cheque_Detalle", {}, [](T& t) { return t.Add_Cheque_Detalle(); }},
        {"Crear_Cheque_Pago_Proveedor", {text("C1")}, [](T& t) { return t.Crear_Cheque_Pago_Proveedor("C1"); }},
        {"Crear_Cheque_Devolucion_Anticipo",
         {text("C1")},
         [](T& t) { return t.Crear_Cheque_Devolucion_Anticipo("C1"); }},
        {"Crear_Cheque_Anticipo_Cxp", {}, [](T& t) { return t.Crear_Cheque_Anticipo_Cxp(); }},
        {"Crear_Cheque_Devolucion_Cliente", {}, [](T& t) { return t.Crear_Cheque_Devolucion_Cliente(); }},
        {"Crear_Cheque_Gasto_x_Comprobar", {}, [](T& t) { return t.Crear_Cheque_Gasto_x_Comprobar(); }},
        {"Crear_Cheque_Deudor", {}, [](T& t) { return t.Crear_Cheque_Deudor(); }},
        {"Cancelar_Cheque", {text("C1")}, [](T& t) { return t.Cancelar_Cheque("C1"); }},
        {"Aplicar_Cheque", {text("C1"), march, true}, [](T& t) { return t.Aplicar_Cheque("C1", march, true); }},
        {"Registra_Movimiento_Bancario_Cheque",
         {text("C1")},
         [](T& t) { return t.Registra_Movimiento_Bancario_Cheque("C1"); }},
        {"Registra_Movimiento_Banco",
         {Record(Company::movement())},
         [](T& t) {
             tBnMovimiento movement = Company::movement();
             return t.Registra_Movimiento_Banco(movement);
         }},
        {"Cancelar_Documento_Bancos",
         {text("CHEQUE"), text("C1")},
         [](T& t) { return t.Cancelar_Documento_Bancos("CHEQUE", "C1"); }},
        {"Cancelar_Aplicacion_Cheque", {text("C1")}, [](T& t) { return t.Cancelar_Aplicacion_Cheque("C1"); }},
        {"Crear_Cheque", {text("C1")}, [](T& t) { return t.Crear_Cheque("C1"); }},
        {"Registrar_Deposito_Recibo_Caja",
         {text("R1"), text("SRR-MXN")},
         [](T& t) { return t.Registrar_Deposito_Recibo_Caja("R1", "SRR-MXN"); }},
        {"Genera_Deposito",
         {text("SRR-MXN"), text("R1"), march, true, april, text("nota")},
         [](T& t) { return t.Genera_Deposito("SRR-MXN", "R1", march, true, april, "nota"); }},
        {"GetSaldo", {text("SRR-MXN"), true}, [](T& t) { return t.GetSaldo("SRR-MXN", true); }},
        {"Cancelar_Movimiento_Bancos", {text("M1")}, [](T& t) { return t.Cancelar_Movimiento_Bancos("M1"); }},
        {"Cancelar_Recibo_Caja",
         {text("R1"), true, false},
         [](T& t) { return t.Cancelar_Recibo_Caja("R1", true, false); }},
        {"Crear_Traspaso_Cuenta_Propia", {}, [](T& t) { return t.Crear_Traspaso_Cuenta_Propia(); }},
        {"Finalizar_Cheque", {text("C1")}, [](T& t) { return t.Finalizar_Cheque("C1"); }},
        {"Add_Solicitud_Cheque", {}, [](T& t) { return t.Add_Solicitud_Cheque(); }},
        {"Add_Solicitud_Cheque_Detalle", {}, [](T& t) { return t.Add_Solicitud_Cheque_Detalle(); }},
        {"Autorizar_Solicitud_Cheque", {text("S1")}, [](T& t) { return t.Autorizar_Solicitud_Cheque("S1"); }},
        {"Cancelar_Solicitud_Cheque", {text("S1")}, [](T& t) { return t.Cancelar_Solicitud_Cheque("S1"); }},
        {"Afectar_Cheque_Presupuesto",
         {text("C1"), std::int16_t{1}},
         [](T& t) { return t.Afectar_Cheque_Presupuesto("C1", 1); }},
    };
    return all;
}

/// What can be seen of an operation from outside, run on a fresh company with a receipt and a check in capture; `offline`:
/// nothing answers.
template <class Run>
std::vector<std::string> trace(bool offline, const Run& run) {
    Company company;
    auto instance = std::make_shared<Tesoreria>(company.module());
    instance->RpEncabezado(Company::receipt_header());
    instance->RpDetalle(Company::receipt_line(100));
    instance->Encabezado(Company::check_header());
    instance->Detalle(Company::check_line(400));
    company.mark();
    company.on.offline = offline;
    const Variant result = run(instance);
    std::vector<std::string> seen = company.asked();
    seen.push_back("result " + std::to_string(result.index()) + (result == Variant(true) ? " true" : ""));
    seen.push_back(instance->Error());
    return seen;
}

std::vector<std::string> trace_of_invoked(const Operation_case& operation, bool offline) {
    return trace(offline, [&](const std::shared_ptr<Tesoreria>& instance) {
        Automation_object_of<Tesoreria> object(instance);
        Arguments arguments = operation.arguments;
        return Invoke(object, operation.name, method, arguments);
    });
}

TEST_F(Invocation, an_operation_does_what_its_cpp_namesake_does) {
    for (const Operation_case& operation : operations()) {
        for (const bool offline : {false, true}) {
            SCOPED_TRACE(operation.name);
            EXPECT_EQ(trace_of_invoked(operation, offline),
                      trace(offline, [&](const auto& instance) { return operation.direct(*instance); }));
        }
    }
}

TEST_F(Invocation, the_unsupported_operations_say_so) {
    EXPECT_EQ(call("Crear_Cheque", {text("C1")}), Variant(false));
    EXPECT_EQ(read("Error"), text("Esta operación no está soportada por la versión del sistema"));
}

TEST_F(Invocation, the_members_without_result_give_none) {
    instance->Validar_Forma_Pago(true);
    EXPECT_EQ(call("NuevoReciboCaja"), Variant());
    EXPECT_FALSE(instance->Validar_Forma_Pago());
    EXPECT_EQ(call("Nuevo"), Variant());
    EXPECT_EQ(instance->Encabezado().Ch_Fecha, make_date(2024, 3, 15, 10, 20, 30));
}

TEST_F(Invocation, texts_and_the_flag_are_let_and_read_back) {
    write("FolioMovimiento", text("M7"));
    EXPECT_EQ(instance->FolioMovimiento, "M7");
    EXPECT_EQ(read("FolioMovimiento"), text("M7"));

    write("Ch_Banco_Destino", text("BANAMEX"));
    EXPECT_EQ(instance->Ch_Banco_Destino(), "BANAMEX");
    EXPECT_EQ(read("Ch_Banco_Destino"), text("BANAMEX"));

    write("Validar_Forma_Pago", true);
    EXPECT_TRUE(instance->Validar_Forma_Pago());
    EXPECT_EQ(read("Validar_Forma_Pago"), Variant(true));

    EXPECT_EQ(read("Dp_Folio"), text(""));
    EXPECT_EQ(read("Error"), text(""));
}

TEST_F(Invocation, records_are_let_and_read_back) {
    write("RpEncabezado", Record(with(&tRpEncabezado::Rp_Referencia, "receipt")));
    EXPECT_EQ(instance->RpEncabezado().Rp_Referencia, "receipt");
    EXPECT_EQ(read("RpEncabezado"), Variant(Record(instance->RpEncabezado())));

    write("RpDetalle", Record(with(&tRpDetalle::Rp_Importe, 7)));
    EXPECT_EQ(instance->RpDetalle().Rp_Importe, 7);
    EXPECT_EQ(read("RpDetalle"), Variant(Record(instance->RpDetalle())));

    write("Encabezado", Record(with(&tTsEncabezado::Ch_Concepto, "check")));
    EXPECT_EQ(instance->Encabezado().Ch_Concepto, "check");
    EXPECT_EQ(read("Encabezado"), Variant(Record(instance->Encabezado())));

    write("Detalle", Record(with(&tTsDetalle::Ch_Importe, 8)));
    EXPECT_EQ(instance->Detalle().Ch_Importe, 8);
    EXPECT_EQ(read("Detalle"), Variant(Record(instance->Detalle())));

    write("SchEncabezado", Record(with(&tSchEncabezado::Sch_Concepto, "request")));
    EXPECT_EQ(instance->SchEncabezado().Sch_Concepto, "request");
    EXPECT_EQ(read("SchEncabezado"), Variant(Record(instance->SchEncabezado())));

    write("SchDetalle", Record(with(&tSchDetalle::Scd_Importe, 9)));
    EXPECT_EQ(instance->SchDetalle().Scd_Importe, 9);
    EXPECT_EQ(read("SchDetalle"), Variant(Record(instance->SchDetalle())));
}

TEST_F(Invocation, each_extra_of_a_receipt_line_is_let_and_read_by_name) {
    auto extras = std::make_shared<clsRpDetalle>();
    Automation_object_of<clsRpDetalle> object(extras);
    const std::vector<std::pair<std::string_view, std::string clsRpDetalle::*>> properties = {
        {"Rp_Cve_Banco", &clsRpDetalle::Rp_Cve_Banco},
        {"Rp_Vendedor", &clsRpDetalle::Rp_Vendedor},
        {"Rp_Comisionista", &clsRpDetalle::Rp_Comisionista},
        {"Rp_Promotor", &clsRpDetalle::Rp_Promotor},
        {"Rp_Chofer", &clsRpDetalle::Rp_Chofer},
        {"Rp_Cobratario", &clsRpDetalle::Rp_Cobratario}};
    for (const auto& [name, property] : properties) {
        Arguments value = {text("of " + std::string(name))}, none;
        EXPECT_EQ(Invoke(object, name, let, value), Variant());
        EXPECT_EQ((*extras).*property, "of " + std::string(name));
        EXPECT_EQ(Invoke(object, name, get, none), value[0]);
    }
}

TEST_F(Invocation, extras_are_handed_over_by_reference) {
    auto extras = std::make_shared<clsRpDetalle>();
    write("RpDetalle2", Object(std::make_shared<Automation_object_of<clsRpDetalle>>(extras)));
    EXPECT_EQ(extras.use_count(), 2) << "kept by the instance, not copied";
}

TEST_F(Invocation, an_object_of_another_class_fires_the_trap_of_the_extras_and_the_one_that_is_held_stays) {
    auto extras = std::make_shared<clsRpDetalle>();
    write("RpDetalle2", Object(std::make_shared<Automation_object_of<clsRpDetalle>>(extras)));
    write("RpDetalle2", find_class("Tesoreria")->create(company.module()));
    EXPECT_EQ(read("Error"), text("Cuvexa.dll - Property Let RpDetalle2()No coinciden los tipos"));
    EXPECT_EQ(extras.use_count(), 2);
}

TEST_F(Invocation, the_extras_are_never_handed_back) {
    write("RpDetalle2", find_class("clsRpDetalle")->create(company.module()));
    try {
        read("RpDetalle2");
        FAIL() << "the property gives no object";
    } catch (const Automation_error& error) {
        EXPECT_EQ(error.number(), 91);
    }
}

// ---- Finding -------------------------------------------------------------------------------------------------------

TEST_F(Invocation, names_are_found_without_regard_to_case) {
    write("foliomovimiento", text("M1"));
    EXPECT_EQ(read("FOLIOMOVIMIENTO"), text("M1"));
}

TEST_F(Invocation, every_member_is_found_by_its_name_and_by_its_identifier) {
    for (const Automation_class& type : automation_classes()) {
        for (const Member& member : type.members) {
            EXPECT_EQ(&find_member(type, member.name, member.kind), &member) << member.name;
            EXPECT_EQ(&find_member(type, member.identifier, member.kind), &member) << member.name;
        }
    }
}

TEST_F(Invocation, a_member_runs_by_its_identifier) {
    Arguments value = {text("M9")}, none;
    Invoke(*tesoreria, 0x4003000A, let, value);
    EXPECT_EQ(Invoke(*tesoreria, 0x4003000A, get, none), text("M9"));
}

TEST_F(Invocation, an_unknown_member_is_refused) {
    EXPECT_EQ(refusal([&] { call("Inserta_Cheque"); }), Invoke_error::Kind::unknown_member) << "private";
    EXPECT_EQ(refusal([&] { find_member(tesoreria->type(), 0x60030099, method); }), Invoke_error::Kind::unknown_member);
}

TEST_F(Invocation, a_member_is_used_as_what_it_is) {
    EXPECT_EQ(refusal([&] { call("Error"); }), Invoke_error::Kind::wrong_kind);
    EXPECT_EQ(refusal([&] { read("Nuevo"); }), Invoke_error::Kind::wrong_kind);
    EXPECT_EQ(refusal([&] { write("Error", text("x")); }), Invoke_error::Kind::wrong_kind) << "read-only";
    EXPECT_EQ(refusal([&] { write("Dp_Folio", text("x")); }), Invoke_error::Kind::wrong_kind) << "read-only";
    EXPECT_EQ(refusal([&] { write("Nuevo", text("x")); }), Invoke_error::Kind::wrong_kind);
}

TEST_F(Invocation, parameters_are_found_by_name_without_regard_to_case) {
    const Member& member = find_member(tesoreria->type(), "Genera_Deposito", method);
    EXPECT_EQ(find_parameter(member, "scomentario"), 5u);
    EXPECT_EQ(refusal([&] { find_parameter(member, "Nada"); }), Invoke_error::Kind::unknown_argument);
}

// ---- Arguments -----------------------------------------------------------------------------------------------------

TEST_F(Invocation, optional_arguments_may_be_missing_or_fewer) {
    EXPECT_EQ(refusal([&] { call("GetSaldo", {text("B1")}); }), std::nullopt);
    EXPECT_EQ(refusal([&] { call("GetSaldo", {text("B1"), Missing()}); }), std::nullopt);
}

TEST_F(Invocation, a_missing_argument_that_is_not_optional_or_one_too_many_is_refused) {
    EXPECT_EQ(refusal([&] { call("GetSaldo"); }), Invoke_error::Kind::wrong_count);
    EXPECT_EQ(refusal([&] { call("GetSaldo", {Missing(), true}); }), Invoke_error::Kind::wrong_count);
    EXPECT_EQ(refusal([&] { call("GetSaldo", {text("B1"), true, true}); }), Invoke_error::Kind::wrong_count);
    EXPECT_EQ(refusal([&] { write("FolioMovimiento", Missing()); }), Invoke_error::Kind::wrong_count);
    EXPECT_THAT(company.asked(), IsEmpty()) << "nothing ran";
}

TEST_F(Invocation, an_argument_of_another_kind_is_refused) {
    const Object other = find_class("Tesoreria")->create(company.module());
    EXPECT_EQ(refusal([&] { call("GetSaldo", {1.5}); }), Invoke_error::Kind::wrong_type);
    EXPECT_EQ(refusal([&] { call("GetSaldo", {text("B1"), text("no")}); }), Invoke_error::Kind::wrong_type);
    EXPECT_EQ(refusal([&] { call("FinReciboCaja", {Record(tCuenta{})}); }), Invoke_error::Kind::wrong_type);
    EXPECT_EQ(refusal([&] { write("RpDetalle", Record(tTsDetalle{})); }), Invoke_error::Kind::wrong_type);
    EXPECT_EQ(refusal([&] { write("RpDetalle", text("x")); }), Invoke_error::Kind::wrong_type);
    EXPECT_EQ(refusal([&] { write("RpDetalle2", text("x")); }), Invoke_error::Kind::wrong_type);
    EXPECT_EQ(refusal([&] { call("Aplicar_Cheque", {text("C1"), text("mañana")}); }), Invoke_error::Kind::wrong_type);
    EXPECT_EQ(refusal([&] { call("FinReciboCaja", {other}); }), Invoke_error::Kind::wrong_type);
}

TEST_F(Invocation, numbers_become_booleans_as_automation_has_it) {
    for (const Variant& truth : {Variant(std::int16_t{-1}), Variant(std::int32_t{2}), Variant(0.5)}) {
        instance->Validar_Forma_Pago(false);
        write("Validar_Forma_Pago", truth);
        EXPECT_TRUE(instance->Validar_Forma_Pago());
    }
    write("Validar_Forma_Pago", std::int32_t{0});
    EXPECT_FALSE(instance->Validar_Forma_Pago());
}

/// The argument `at` as the call leaves it.
Variant after_call(Automation_object& object, std::string_view name, Arguments arguments, std::size_t at) {
    Invoke(object, name, method, arguments);
    return arguments.at(at);
}

TEST_F(Invocation, by_reference_arguments_come_back_in_the_exact_type) {
    const auto kind_of_check = [&](Variant given) {
        return after_call(*tesoreria, "Afectar_Cheque_Presupuesto", {text("C1"), std::move(given)}, 1);
    };
    EXPECT_EQ(kind_of_check(std::int32_t{2}), Variant(std::int16_t{2}));
    EXPECT_EQ(kind_of_check(2.5), Variant(std::int16_t{2})) << "half to even";
    EXPECT_EQ(kind_of_check(3.5), Variant(std::int16_t{4})) << "half to even";
    EXPECT_EQ(kind_of_check(true), Variant(std::int16_t{-1}));
    EXPECT_EQ(after_call(*tesoreria, "Aplicar_Cheque", {text("C1"), march.days}, 1), Variant(march));
    EXPECT_EQ(after_call(*tesoreria, "Aplicar_Cheque", {text("C1"), text("2024-03-15")}, 1), Variant(march));
}

TEST_F(Invocation, a_number_that_does_not_fit_is_refused) {
    for (const double number : {32768.0, -32769.0, 1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_EQ(refusal([&] {
                      call("Afectar_Cheque_Presupuesto", {text("C1"), number});
                  }),
                  Invoke_error::Kind::out_of_range)
            << number;
    }
}

TEST_F(Invocation, missing_arguments_stay_missing_and_by_value_ones_stay_as_given) {
    EXPECT_EQ(after_call(*tesoreria, "GetSaldo", {text("B1"), Missing()}, 1), Variant());
    EXPECT_EQ(after_call(*tesoreria, "Crear_Cheque", {text("C1")}, 0), text("C1"));
}

/// A member of a class made up here, to see what passes through a call.
Member made_up(std::vector<Parameter> parameters, std::function<void(std::span<Variant>)> body) {
    Member member;
    member.name = "Made_up";
    member.parameters = std::move(parameters);
    member.run = [body](Automation_object&, std::span<Variant> arguments) {
        body(arguments);
        return Variant();
    };
    return member;
}

/// What the refusal of an argument of that type says when it is given a record that no parameter takes.
std::string words_of_refusal(const Value_type& type) {
    Company company;
    const Object object = find_class("Tesoreria")->create(company.module());
    Arguments arguments = {Record(tCuenta{})};
    try {
        Invoke(*object, made_up({{"a", type, false, false, {}}}, [](std::span<Variant>) {}), arguments);
    } catch (const Invoke_error& error) {
        return error.what();
    }
    return "taken";
}

TEST_F(Invocation, a_refusal_says_what_the_argument_must_be) {
    EXPECT_THAT(words_of_refusal({Type::boolean}), testing::EndsWith("argument a must be a Boolean"));
    EXPECT_THAT(words_of_refusal({Type::integer16}), testing::EndsWith("argument a must be a 16-bit whole number"));
    EXPECT_THAT(words_of_refusal({Type::real}), testing::EndsWith("argument a must be a number"));
    EXPECT_THAT(words_of_refusal({Type::text}), testing::EndsWith("argument a must be a text"));
    EXPECT_THAT(words_of_refusal({Type::date}), testing::EndsWith("argument a must be a date"));
    EXPECT_THAT(words_of_refusal(value_type<tRpDetalle>()),
                testing::EndsWith("argument a must be a record tRpDetalle"));
    EXPECT_THAT(words_of_refusal({Type::object, nullptr, "clsRpDetalle"}),
                testing::EndsWith("argument a must be an object clsRpDetalle"));
    EXPECT_EQ(words_of_refusal(value_type<tCuenta>()), "taken");
}

TEST_F(Invocation, a_date_becomes_the_number_of_its_days_and_nothing_stands_for_any_object) {
    Variant seen;
    const auto see = [&](std::span<Variant> arguments) { seen = arguments[0]; };
    Arguments day = {march};
    Invoke(*tesoreria, made_up({{"a", {Type::real}, false, false, {}}}, see), day);
    EXPECT_EQ(seen, Variant(march.days));
    Arguments nothing = {Object()};
    Invoke(*tesoreria, made_up({{"a", {Type::object, nullptr, "clsRpDetalle"}, false, false, {}}}, see), nothing);
    EXPECT_EQ(seen, Variant(Object()));
}

TEST_F(Invocation, what_a_member_writes_reaches_by_reference_arguments_only) {
    const Member member = made_up({{"a", {Type::text}, true, false, {}}, {"b", {Type::text}, false, false, {}}},
                                  [](std::span<Variant> arguments) { arguments[0] = arguments[1] = text("written"); });
    Arguments arguments = {text("a"), text("b")};
    Invoke(*tesoreria, member, arguments);
    EXPECT_EQ(arguments, (Arguments{text("written"), text("b")}));
}

TEST_F(Invocation, a_failure_of_another_kind_is_automation_error_440) {
    const Member member = made_up({}, [](std::span<Variant>) { throw std::logic_error("words"); });
    Arguments none;
    try {
        Invoke(*tesoreria, member, none);
        FAIL();
    } catch (const Automation_error& error) {
        EXPECT_EQ(error.number(), 440);
        EXPECT_STREQ(error.what(), "words");
    }
}

TEST_F(Invocation, a_failing_accessor_without_a_trap_reaches_the_caller) {
    company.on.offline = true;
    try {
        call("Nuevo");
        FAIL();
    } catch (const Automation_error& error) {
        EXPECT_STREQ(error.what(), obstructed::call_failure);
    }
}

}  // namespace
}  // namespace cuvexa::tests
