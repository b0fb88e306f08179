#include "simulator/generator.h"

#include <algorithm>
#include <cmath>

#include "automation/members.h"

namespace cuvexa::simulator {
namespace {

const std::vector<std::string> no_text = {""};

/// Keys that the sample company opens with.
std::map<std::string, std::vector<std::string>> opening_documents() {
    return {{"Cuenta_x_Pagar", {"CXP-MTY-00000001", "CXP-MTY-00000002", "CXP-MTY-00000003", "CXP-GDL-00000001"}},
            {"Cuenta_x_Cobrar", {"CXC-MTY-00000001", "CXC-MTY-00000002", "CXC-GDL-00000001"}},
            {"Anticipo_Cxc", {"AN-MTY-00000001", "AN-MTY-00000002"}}};
}

std::string day_text(Date date) {
    return iso_date(date);
}

double to_cents(double amount) {
    return std::round(amount * 100) / 100;
}

}  // namespace

Generator::Generator(const Generator_options& options)
    : options_(options),
      chance_(options.seed),
      users_(static_cast<std::size_t>(options.users)),
      known_(opening_documents()),
      alterations_left_(chance_.below(25)) {}

Step Generator::next(const Scene& stage) {
    Step step = chosen(stage);
    if (step.kind == Step::Kind::call && options_.faults > 0 && chance_.in_percent(options_.faults)) {
        step.fault = fault();
    }
    return step;
}

/// Most calls have some twenty statements, few of them hundreds.
Fault Generator::fault() {
    const auto kind = static_cast<Fault::Kind>(chance_.below(static_cast<int>(Fault::Kind::disk_full) + 1));
    const int within = kind == Fault::Kind::disk_full ? 3 : chance_.of(std::vector<int>{5, 15, 30, 60, 120});
    return {kind, 1 + static_cast<std::size_t>(chance_.below(within)), chance_.in_percent(25)};
}

Step Generator::chosen(const Scene& stage) {
    const auto numbered = [&](Step step) {
        step.id = next_id_++;
        return step;
    };
    if (alterations_left_ > 0) {
        if (--alterations_left_ == 0) return numbered(another_session(stage));
        return numbered(Step::sql(alteration(stage)));
    }
    if (chance_.below(300) == 0) return numbered(another_session(stage));
    if (chance_.in_percent(3)) return numbered(administration(stage));
    const auto at = static_cast<std::size_t>(chance_.below(static_cast<int>(users_.size())));
    User& user = users_[at];
    if (user.object == 0) {
        user.object = next_id_;
        return numbered({.kind = Step::Kind::create, .name = "Tesoreria"});
    }
    if (chance_.in_percent(12)) return numbered(lone_call(stage, user.object));
    if (chance_.in_percent(2)) return numbered(lone_let(user.object));
    if (user.plans.empty()) begin_errand(at);
    const Plan plan = user.plans.front();
    if (!chance_.in_percent(2)) user.plans.pop_front();  // or it is done twice
    Step step = plan(stage);
    if (chance_.in_percent(8)) spoil(step.arguments);
    return numbered(std::move(step));
}

void Generator::observe(const Scene& stage, const Step& step) {
    if (stage.restarted()) forget_session();
    const auto made = stage.made().find(step.id);
    if (made == stage.made().end()) return;
    for (const auto& [table, keys] : made->second) {
        for (std::size_t at = 0; at < keys.size(); ++at) known_[table].push_back(reference(step.id, table, at));
    }
}

// ---- Errands --------------------------------------------------------------------------------------------------------

void Generator::plan_call(std::size_t user, const std::string& member, std::function<Json(const Scene&)> arguments) {
    plan(user, [=, this](const Scene& stage) {
        return Step{.object = object_of(user), .name = member, .arguments = arguments(stage)};
    });
}

void Generator::plan_let(std::size_t user, const std::string& member, std::function<Json(const Scene&)> value) {
    plan(user, [=, this](const Scene& stage) {
        return Step{.kind = Step::Kind::let,
                    .object = object_of(user),
                    .name = member,
                    .arguments = Json::array({value(stage)})};
    });
}

void Generator::begin_errand(std::size_t user) {
    const int which = chance_.below(100);
    if (which < 35) {
        receipt(user);
    } else if (which < 75) {
        check(user);
    } else if (which < 88) {
        request(user);
    } else {
        movement(user);
    }
}

void Generator::receipt(std::size_t user) {
    const auto nothing = [](const Scene&) { return Json::array(); };
    plan_call(user, "NuevoReciboCaja", nothing);
    plan_let(user, "RpEncabezado", [=, this](const Scene& stage) { return receipt_header(stage); });
    if (chance_.in_percent(20)) plan_let(user, "Validar_Forma_Pago", [](const Scene&) { return Json(true); });
    if (chance_.in_percent(40)) {
        plan(user, [=, this](const Scene&) {
            if (extras_.empty() || chance_.in_percent(30)) {
                extras_.push_back(next_id_);
                return Step{.kind = Step::Kind::create, .name = "clsRpDetalle"};
            }
            static const std::vector<std::string> texts = {"Rp_Cve_Banco", "Rp_Vendedor", "Rp_Comisionista",
                                                           "Rp_Promotor",  "Rp_Chofer",   "Rp_Cobratario"};
            const std::string name = chance_.of(texts);
            std::string value = text();
            if (name == "Rp_Cve_Banco") value = chance_.of({"SIERRA", "PUERTO", "VIEJO", "", "NADA"});
            if (name == "Rp_Vendedor") value = chance_.of({"VN01", "VN02", "VN99", "vn01"});
            return Step{.kind = Step::Kind::let,
                        .object = chance_.of(extras_),
                        .name = name,
                        .arguments = Json::array({value})};
        });
        plan(user, [=, this](const Scene&) {
            if (extras_.empty()) return Step{.object = object_of(user), .name = "Nuevo"};
            return Step{.kind = Step::Kind::let,
                        .object = object_of(user),
                        .name = "RpDetalle2",
                        .arguments = Json::array({{{"object", chance_.of(extras_)}}})};
        });
    }
    const auto first = std::make_shared<int>(0);
    for (int lines = 1 + chance_.below(4); lines > 0; --lines) {
        plan_let(user, "RpDetalle", [=, this](const Scene&) { return receipt_line(); });
        plan(user, [=, this](const Scene&) {
            if (*first == 0) *first = next_id_;
            return Step{.object = object_of(user), .name = "Add_Recibo_Caja_Detalle"};
        });
    }
    const auto of_this = [=, this](const Scene& stage) { return made_by(stage, *first, "Recibo_Pago"); };
    const auto its_folio = [=](const Scene& stage) { return Json::array({of_this(stage)}); };
    if (chance_.in_percent(80)) plan_call(user, "FinReciboCaja", its_folio);
    if (chance_.in_percent(55)) {
        plan_call(user, "Genera_Deposito", [=, this](const Scene& stage) {
            std::string folios = of_this(stage);
            for (int more = chance_.below(3); more > 0; --more) {
                folios += chance_.of({",", ", ", " ,  "}) + folio("Recibo_Pago");
            }
            Json arguments = {account(), folios, date(stage), chance_.in_percent(50), date(stage)};
            if (chance_.in_percent(50)) arguments.push_back(text());
            return arguments;
        });
        if (chance_.in_percent(30)) {
            plan_call(user, "Cancelar_Deposito",
                      [=, this](const Scene&) { return Json::array({folio("Deposito_Pago")}); });
        }
    }
    if (chance_.in_percent(40)) {
        plan_call(user, "Cancelar_Recibo_Caja", [=, this](const Scene& stage) {
            Json arguments = {of_this(stage)};
            if (chance_.in_percent(70)) arguments.push_back(chance_.in_percent(60));
            if (arguments.size() == 2 && chance_.in_percent(70)) arguments.push_back(chance_.in_percent(60));
            return arguments;
        });
    }
}

void Generator::check(std::size_t user) {
    struct Purpose {
        const char* member;
        const char* type;
        std::vector<const char*> beneficiaries;
        bool adds_lines;  ///< the caller does
    };
    static const std::vector<Purpose> purposes = {
        {"Crear_Cheque_Pago_Proveedor", "0001", {"PV01", "PV02", "PV03"}, true},
        {"Crear_Cheque_Pago_Proveedor", "0006", {"PV01"}, true},
        {"Crear_Cheque_Pago_Proveedor", "0000", {"", "X"}, true},
        {"Crear_Cheque_Devolucion_Anticipo", "0003", {"CL01", "CL02"}, true},
        {"Crear_Cheque_Anticipo_Cxp", "0005", {"PV01", "PV02", "PV03"}, false},
        {"Crear_Cheque_Devolucion_Cliente", "0003", {"CL01", "CL02", "TARJ"}, true},
        {"Crear_Cheque_Gasto_x_Comprobar", "0002", {"DE01", "DE01", "DE02"}, false},
        {"Crear_Cheque_Deudor", "0004", {"DE01", "DE02"}, false},
        {"Crear_Traspaso_Cuenta_Propia", "0000", {""}, true}};
    const Purpose& purpose = chance_.of(purposes);
    const std::string member = purpose.member, type = purpose.type, beneficiary = chance_.of(purpose.beneficiaries);
    const bool pays_payables = type == "0001";
    const auto nothing = [](const Scene&) { return Json::array(); };
    const auto first = std::make_shared<int>(0);
    const auto line = [=, this] { return check_line(pays_payables ? folio("Cuenta_x_Pagar") : text()); };
    plan_call(user, "Nuevo", nothing);
    if (chance_.in_percent(15)) plan_let(user, "Ch_Banco_Destino", [=, this](const Scene&) { return Json(text()); });
    plan_let(user, "Encabezado", [=, this](const Scene& stage) { return check_header(stage, type, beneficiary); });
    if (purpose.adds_lines || chance_.in_percent(5)) {
        for (int lines = 1 + chance_.below(3); lines > 0; --lines) {
            plan_let(user, "Detalle", [=](const Scene&) { return line(); });
            plan(user, [=, this](const Scene&) {
                if (*first == 0) *first = next_id_;
                return Step{.object = object_of(user), .name = "Add_Cheque_Detalle"};
            });
        }
    } else {
        plan_let(user, "Detalle", [=](const Scene&) { return line(); });
    }
    const auto of_this = [=, this](const Scene& stage) { return made_by(stage, *first, "Cheque_x_Aplicar"); };
    const auto its_folio = [=](const Scene& stage) { return Json::array({of_this(stage)}); };
    const bool takes_folio = member == "Crear_Cheque_Pago_Proveedor" || member == "Crear_Cheque_Devolucion_Anticipo";
    plan(user, [=, this](const Scene& stage) {
        if (*first == 0) *first = next_id_;
        return Step{
            .object = object_of(user), .name = member, .arguments = takes_folio ? its_folio(stage) : Json::array()};
    });
    if (type == "0002" && chance_.in_percent(70)) {
        plan(user, [=, this](const Scene& stage) {
            return Step::sql(
                "INSERT OR IGNORE INTO Gasto_x_Comprobar_Documento (Gc_Documento, Gc_Tabla, Gcd_ID, Cxc_Folio, "
                "Cxc_Importe, Cxc_Tipo_Cambio) VALUES ('" +
                of_this(stage) + "', 'CHEQUE', '" + chance_.of({"0001", "0002", "0003"}) + "', '" +
                folio("Anticipo_Cxc") + "', " + chance_.of({"100", "250", "250.5", "1000", "1000.75", "1", "0.5"}) +
                ", " + chance_.of({"1", "1", "19.5"}) + ")");
        });
    }
    if (chance_.in_percent(75)) {
        plan_call(user, "Aplicar_Cheque", [=, this](const Scene& stage) {
            Json arguments = {of_this(stage), date(stage)};
            if (chance_.in_percent(60)) arguments.push_back(chance_.in_percent(50));
            return arguments;
        });
        if (chance_.in_percent(15)) {
            plan_call(user, "Aplicar_Cheque", [=, this](const Scene& stage) {
                return Json::array({of_this(stage), date(stage)});
            });
        }
    }
    if (chance_.in_percent(50)) plan_call(user, "Finalizar_Cheque", its_folio);
    if (chance_.in_percent(30)) plan_call(user, "Cancelar_Aplicacion_Cheque", its_folio);
    if (chance_.in_percent(20)) {
        plan_call(user, "Aplicar_Cheque", [=, this](const Scene& stage) {
            return Json::array({of_this(stage), date(stage)});
        });
    }
    if (chance_.in_percent(45)) plan_call(user, "Cancelar_Cheque", its_folio);
    if (chance_.in_percent(5)) plan_call(user, "Cancelar_Cheque", its_folio);
}

void Generator::request(std::size_t user) {
    const auto first = std::make_shared<int>(0);
    // An instance captures one request, so most errands need another one.
    if (chance_.in_percent(60)) {
        plan(user, [=, this](const Scene&) {
            users_[user].object = next_id_;
            return Step{.kind = Step::Kind::create, .name = "Tesoreria"};
        });
    }
    plan_let(user, "SchEncabezado", [=, this](const Scene& stage) { return request_header(stage); });
    plan(user, [=, this](const Scene&) {
        *first = next_id_;
        return Step{.object = object_of(user), .name = "Add_Solicitud_Cheque"};
    });
    const auto of_this = [=, this](const Scene& stage) { return made_by(stage, *first, "Solicitud_Cheque"); };
    const auto its_folio = [=](const Scene& stage) { return Json::array({of_this(stage)}); };
    for (int lines = chance_.below(4); lines > 0; --lines) {
        plan_let(user, "SchDetalle", [=, this](const Scene& stage) { return request_line(of_this(stage)); });
        plan(user, [=, this](const Scene&) {
            return Step{.object = object_of(user), .name = "Add_Solicitud_Cheque_Detalle"};
        });
    }
    if (chance_.in_percent(50)) plan_call(user, "Autorizar_Solicitud_Cheque", its_folio);
    if (chance_.in_percent(40)) plan_call(user, "Cancelar_Solicitud_Cheque", its_folio);
    if (chance_.in_percent(20)) plan_call(user, "Autorizar_Solicitud_Cheque", its_folio);
}

void Generator::movement(std::size_t user) {
    const auto first = std::make_shared<int>(0);
    plan(user, [=, this](const Scene& stage) {
        *first = next_id_;
        return Step{.object = object_of(user),
                    .name = "Registra_Movimiento_Banco",
                    .arguments = Json::array({bank_movement(stage)})};
    });
    plan_call(user, "GetSaldo", [=, this](const Scene&) {
        Json arguments = {account()};
        if (chance_.in_percent(20)) arguments.push_back(chance_.in_percent(50));
        return arguments;
    });
    if (chance_.in_percent(60)) {
        plan_call(user, "Cancelar_Movimiento_Bancos",
                  [=, this](const Scene& stage) { return Json::array({made_by(stage, *first, "Banco_Movimiento")}); });
    }
}

Step Generator::lone_call(const Scene& stage, int object) {
    static const std::vector<const Member*> methods = [] {
        std::vector<const Member*> found;
        for (const Member& member : find_class("Tesoreria")->members) {
            const bool dialog = member.name.starts_with("PedirDatos");
            if (!dialog && member.kind != Member_kind::property_let) found.push_back(&member);
        }
        return found;
    }();
    const Member& member = *chance_.of(methods);
    Step step{.kind = member.kind == Member_kind::method ? Step::Kind::call : Step::Kind::get,
              .object = object,
              .name = std::string(member.name)};
    if (step.kind == Step::Kind::get) return step;
    for (const Parameter& parameter : member.parameters) {
        if (parameter.optional && chance_.in_percent(30)) break;
        step.arguments.push_back(argument(stage, std::string(parameter.name), parameter.type));
    }
    return step;
}

Step Generator::lone_let(int object) {
    const std::string property = chance_.of({"FolioMovimiento", "Ch_Banco_Destino", "Validar_Forma_Pago"});
    const Json value = property == "Validar_Forma_Pago" ? Json(chance_.in_percent(70)) : Json(text());
    return {.kind = Step::Kind::let, .object = object, .name = property, .arguments = Json::array({value})};
}

Json Generator::argument(const Scene& stage, const std::string& name, const Value_type& type) {
    if (type.type == Type::record) return bank_movement(stage);
    if (type.type == Type::boolean) return chance_.in_percent(50);
    if (type.type == Type::date) return date(stage);
    if (type.type == Type::integer16) return chance_.of(std::vector<int>{0, 1, 2, 3, 4, 0, 1, 3, 4, 5, -1, 32767});
    if (name == "Ch_Folio") return folio("Cheque");
    if (name == "Rp_Folio") return chance_.in_percent(60) ? folio("Recibo_Pago") : folio_list();
    if (name == "Dp_Folio") return folio("Deposito_Pago");
    if (name == "Bm_Folio") return folio("Banco_Movimiento");
    if (name == "Folio") return folio("Solicitud_Cheque");
    if (name == "Bm_Tabla") return chance_.of({"CHEQUE", "Cheque", "DEPOSITO_PAGO", "ESTADO_CUENTA", "", "x"});
    if (name == "Bm_Documento") return chance_.in_percent(50) ? folio("Cheque") : folio("Deposito_Pago");
    if (name == "Bc_Cve_Banco_Cuenta") return account();
    return text();
}

// ---- What people do beside the component ----------------------------------------------------------------------------

Step Generator::administration(const Scene& stage) {
    if (chance_.in_percent(20)) {
        const int seconds = chance_.below(chance_.in_percent(30) ? 200000 : 3000);
        return {.kind = Step::Kind::clock, .name = {}, .at = Date{stage.now().days + seconds / 86400.0}};
    }
    return Step::sql(alteration(stage));
}

void Generator::forget_session() {
    for (User& user : users_) user = {};
    extras_.clear();
}

Step Generator::another_session(const Scene& stage) {
    forget_session();
    Date at = add_days(stage.now(), chance_.below(3));
    if (chance_.in_percent(30)) {
        at = *parse_date(chance_.of({"2024-12-31T23:59:50", "2025-01-01T00:00:00", "2024-02-29T12:00:00",
                                     "2024-03-15T10:20:30", "2026-07-04T08:30:00"}));
    }
    return {.kind = Step::Kind::session, .name = chance_.of({"CAJA1", "CAJA2", "jefa", "Ñandú"}), .at = at};
}

// ---- Records --------------------------------------------------------------------------------------------------------

Json Generator::receipt_header(const Scene& stage) {
    Json header = {
        {"Rp_Fecha", date(stage)},
        {"Rp_Fecha_Deposito", date(stage)},
        {"TipoReciboPago", {{"Trp_Cve_Tipo_Recibo_Pago", chance_.of({"01", "01", "02", "02", "03", "04", "05"})}}},
        {"Sucursal", {{"Sc_Cve_Sucursal", branch()}}},
        {"Rp_Referencia", text()},
        {"Rp_Comentario", text()},
        {"Mn_Cve_Moneda", chance_.of({"MXN", "MXN", "MXN", "USD"})},
        {"Rp_Tipo_Cambio", rate()}};
    const std::string type = header["TipoReciboPago"]["Trp_Cve_Tipo_Recibo_Pago"];
    header["Rp_Solicitar_Valor"] = type == "04"                   ? chance_.of({"PV01", "PV02", "PV03", "PV99"})
                                   : type == "02" || type == "03" ? chance_.of({"CL01", "CL01", "CL02", "DE01", "CL99"})
                                                                  : text();
    if (chance_.in_percent(25)) {
        header["Rp_Tabla"] = chance_.of({"FACTURA_VENTA", "factura_venta", "OTRA"});
        header["Rp_Documento"] = chance_.of({"FV-5001", "FV-5002", "FV-6001", "NADA"});
    }
    if (chance_.in_percent(3)) header["Rp_Folio"] = folio("Recibo_Pago");
    if (chance_.in_percent(3)) header["Rp_Folio_Deposito"] = folio("Deposito_Pago");
    return header;
}

Json Generator::receipt_line() {
    const std::string method = chance_.of({"01", "01", "01", "02", "02", "03", "04", "05", "06", "07"});
    Json line = {{"Fp_Cve_Forma_Pago", {{"Fp_Cve_Forma_Pago", method}}}, {"Rp_Importe", amount()}};
    if (method != "01" || chance_.in_percent(10)) {
        line["Rp_Banco"] = chance_.of({"Banamex", "Bancomer", "HSBC", ""});
        line["Rp_Cheque"] = chance_.of({"1001", "1002", "A-7", ""});
    }
    if (chance_.in_percent(20)) line["Rp_Cuenta_Bancaria"] = text();
    return line;
}

Json Generator::check_header(const Scene& stage, const std::string& type, const std::string& beneficiary) {
    Json header = {{"Ch_Fecha", date(stage)},
                   {"Tc_Cve_Tipo_Cheque", type},
                   {"Ch_Transferencia", chance_.of({"NO", "NO", "SI"})},
                   {"Ch_Referencia", std::to_string(1000 + chance_.below(chance_.in_percent(10) ? 5 : 100000))},
                   {"Ch_Concepto", text()},
                   {"Ch_Beneficiario", text()},
                   {"Bc_Cve_Banco_Cuenta", account()},
                   {"Mn_Cve_Moneda", chance_.of({"MXN", "MXN", "USD"})},
                   {"Ch_Tipo_Cambio", rate()},
                   {"Ch_Solicitar_Valor", beneficiary},
                   {"Sucursal", {{"Sc_Cve_Sucursal", branch()}}}};
    if (chance_.in_percent(20)) header["Bc_Cve_Banco_Cuenta2"] = account();
    if (chance_.in_percent(20)) {
        header["Ch_Tabla"] = chance_.of({"SOLICITUD_CHEQUE", "SOLICITUD_CHEQUE", "solicitud_cheque", "OTRA"});
        header["Ch_Documento"] = folio("Solicitud_Cheque");
    }
    return header;
}

Json Generator::check_line(const std::string& document) {
    return {{"Ch_Concepto", text()},
            {"Cxp_Folio", document},
            {"Mn_Cve_Moneda", chance_.of({"MXN", "MXN", "MXN", "USD"})},
            {"Ch_Tipo_Cambio", rate()},
            {"Ch_Importe", amount()}};
}

Json Generator::request_header(const Scene& stage) {
    const std::string type = chance_.of({"0000", "0001", "0002", "0003", "0004", "0005"});
    const std::string beneficiary = type == "0001" || type == "0005"   ? chance_.of({"PV01", "PV02", "PV99"})
                                    : type == "0003"                   ? chance_.of({"CL01", "CL02", "DE01"})
                                    : type == "0002" || type == "0004" ? chance_.of({"DE01", "DE02", "CL01"})
                                                                       : text();
    return {{"Sch_Fecha", date(stage)},
            {"Tc_Cve_Tipo_Cheque", type},
            {"Bc_Cve_Banco_Cuenta", account()},
            {"Sucursal", {{"Sc_Cve_Sucursal", branch()}, {"Sc_Descripcion", "no se guarda"}}},
            {"Sch_Concepto", text()},
            {"Sch_Beneficiario", text()},
            {"Sch_Tabla", chance_.of({"ORDEN_COMPRA", ""})},
            {"Sch_Documento", text()},
            {"Sch_Referencia", text()},
            {"Sch_Importe", amount()},
            {"Mn_Cve_Moneda", chance_.of({"MXN", "USD"})},
            {"Sch_Tipo_Cambio", rate()},
            {"Sch_Transferencia", chance_.of({"SI", "NO", "tal vez"})},
            {"Sch_Aplicar", chance_.of({"SI", "NO"})},
            {"Sch_Firme", chance_.of({"SI", "NO"})},
            {"Sch_Solicitar_Valor", beneficiary}};
}

Json Generator::request_line(const std::string& folio) {
    return {{"Sch_Folio", folio},         {"Scd_Tabla", chance_.of({"FACTURA_COMPRA", "NOTA"})},
            {"Scd_Documento", "FC-1001"}, {"Scd_Importe", amount()},
            {"Mn_Cve_Moneda", "MXN"},     {"Scd_Tipo_Cambio", rate()}};
}

Json Generator::bank_movement(const Scene& stage) {
    return {{"Bt_Cve_Banco_Tipo_Movimiento",
             chance_.of({"INT", "COM", "DEP", "CHQ", "TRF", "INT", "COM", "ANT", "com", ""})},
            {"Bm_Fecha", date(stage)},
            {"Bm_Fecha_Firme", date(stage)},
            {"Bm_Tabla", chance_.of({"ESTADO_CUENTA", "CHEQUE", "", "DEPOSITO_PAGO"})},
            {"Bm_Documento", chance_.in_percent(60) ? std::string("EC-1") : folio("Cheque")},
            {"Bm_Documento_ID", "0001"},
            {"Bm_Referencia", text()},
            {"Bm_Comentario", text()},
            {"Cuenta", {{"Bc_Cve_Banco_Cuenta", account()}, {"Mn_Cve_Moneda", "XXX"}}},
            {"Bm_Importe", amount()},
            {"Bm_Tipo_Cambio", rate()},
            {"EnFirme", chance_.in_percent(50)}};
}

// ---- Values ---------------------------------------------------------------------------------------------------------

std::string Generator::date(const Scene& stage) {
    const int which = chance_.below(100);
    if (which < 70) return day_text(day_of(stage.now()));
    if (which < 78) return day_text(stage.now());
    if (which < 92) return day_text(add_days(day_of(stage.now()), chance_.below(60) - 40));
    return chance_.of({"2023-12-31", "2024-01-01", "2027-12-31", "2028-01-01", "1899-12-30", "2024-02-29",
                       "2024-03-31T23:59:59", "0100-01-01", "9999-12-31"});
}

double Generator::amount() {
    const int which = chance_.below(100);
    if (which < 45) return (1 + chance_.below(400)) * 2.5;
    if (which < 75) return to_cents(chance_.below(1000000) / 100.0);
    if (which < 82) return -(1 + chance_.below(400)) * 0.5;
    static const std::vector<double> odd = {
        0,     0.01,  0.004, -0.01,   100.9, 101,      1e-7,  1e9,  123456.789012345,
        0.3,   8000,  5000,  10000.5, 3000,  99999.99, 1e15,  -1e6, 1234567890123.45,
        2.675, 1.005, 1000,  250,     1e300, -1e200,   1e-300};
    return chance_.of(odd);
}

double Generator::rate() {
    static const std::vector<double> rates = {1, 1, 1, 1, 1, 1, 19.5, 19.5, 17.25, 0.05, 20.1234, 1.1234567890123456};
    if (chance_.in_percent(3)) return chance_.of(std::vector<double>{0, -1, 1e-5, 1e6, 1e300, 1e-300});
    return chance_.of(rates);
}

std::string Generator::text() {
    const int which = chance_.below(100);
    if (which < 50) {
        return chance_.of({"Pago de facturas", "REF-1", "Cobranza del día", "Factura A-1001", "Ñandú, 50 %"});
    }
    if (which < 65) return "";
    if (which < 73) {
        return chance_.of({"O'Brien", "''", "x''y", "'", "'''", "'; DROP TABLE Cheque; --", "d''arc '", "a'b'c"});
    }
    static const std::vector<std::string> odd = {"{}",
                                                 "{0}",
                                                 "}{",
                                                 "a;b",
                                                 "-- x",
                                                 "/* x */",
                                                 "una\nlínea",
                                                 "dos\r\nlíneas",
                                                 "😀 €",
                                                 "?",
                                                 "@p1",
                                                 ":x",
                                                 "$1",
                                                 "%",
                                                 "_",
                                                 "[a]",
                                                 "\\",
                                                 "\"",
                                                 "`",
                                                 "  delante",
                                                 "detrás  ",
                                                 "\t",
                                                 "NULL",
                                                 "0",
                                                 "1e5",
                                                 "0x1F",
                                                 "N",
                                                 "-CA:",
                                                 "ANTICIPO_CXC-CA:9",
                                                 "A|B",
                                                 "Á",
                                                 "á",
                                                 std::string(300, 'x'),
                                                 std::string(9000, 'y')};
    return chance_.of(odd);
}

std::string Generator::branch() {
    if (chance_.in_percent(88)) return chance_.of({"MTY", "MTY", "GDL"});
    return chance_.of({"TIJ", "LEN", "mty", "", "NADA", "QRO", "QRO"});
}

std::string Generator::account() {
    if (chance_.in_percent(90)) return chance_.of({"SRR-MXN", "SRR-MXN", "PTO-MXN", "SRR-USD", "PTO-GRAL", "PTO-USD"});
    return chance_.of({"SRR-OLD", "srr-mxn", "", "NADA", "QRO-MXN", "QRO-MXN"});
}

std::string Generator::folio(const std::string& table) {
    const auto& keys = known_[table];
    if (keys.empty() || chance_.in_percent(4)) return chance_.of({"", "NO-EXISTE", "CH-MTY-99999999", " ", "{}"});
    const int count = static_cast<int>(keys.size());
    const int at = chance_.in_percent(70) ? count - 1 - chance_.below(std::min(count, 6)) : chance_.below(count);
    return keys[static_cast<std::size_t>(at)];
}

std::string Generator::folio_list() {
    std::string list;
    for (int count = 1 + chance_.below(3); count > 0; --count) {
        list += (list.empty() ? "" : chance_.of({",", ", ", ",,"})) + folio("Recibo_Pago");
    }
    return list;
}

std::string Generator::made_by(const Scene& stage, int step, const std::string& table) {
    if (chance_.in_percent(2)) return folio(table);
    const auto made = stage.made().find(step);
    if (made != stage.made().end() && made->second.contains(table)) return reference(step, table, 0);
    return folio(table);
}

/// One of the values, wherever it stands, becomes another one.
void Generator::spoil(Json& arguments) {
    if (arguments.empty()) return;
    Json* value = &arguments[static_cast<std::size_t>(chance_.below(static_cast<int>(arguments.size())))];
    std::string name;
    while (value->is_object() && !value->empty() && !value->contains("object")) {
        auto member = value->begin();
        std::advance(member, chance_.below(static_cast<int>(value->size())));
        name = member.key();
        value = &member.value();
    }
    spoil_value(*value, name);
}

void Generator::spoil_value(Json& value, const std::string& name) {
    if (name.find("Fecha") != std::string::npos) {
        value = chance_.of({"2023-06-30", "2030-01-01", "2024-03-14", "1899-12-30", "2024-03-15T23:59:59"});
    } else if (value.is_string() && parse_date(value.get<std::string>())) {
        value = chance_.of({"2023-06-30", "2030-01-01", "2024-03-14", "2024-03-16"});
    } else if (value.is_string()) {
        const std::string old = value;
        std::string other_case = old;
        for (char& c : other_case) c = static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
        const bool reference = old.find("«") != std::string::npos;
        value = chance_.in_percent(30) && !reference ? other_case
                : chance_.in_percent(30)             ? old + " "
                : chance_.in_percent(30)             ? std::string()
                : chance_.in_percent(30) ? chance_.of({"99", "0099", "PV99", "CL99", "DE99", "EUR", "SRR-OLD", "LEN"})
                                         : text();
    } else if (value.is_number()) {
        value = chance_.in_percent(50) ? amount() : rate();
    } else if (value.is_boolean()) {
        value = !value.get<bool>();
    }
}

}  // namespace cuvexa::simulator
