// Check requests, and the budgets of checks.
#include <map>

#include "cuvexa/value.h"
#include "model/treasury.h"

namespace cuvexa::model {

// ---- Capture --------------------------------------------------------------------------------------------------------

bool Treasury::Add_Solicitud_Cheque() {
    const Text tag = "Cuvexa.dll - Add_Solicitud_Cheque()";
    return operation(tag, [&] {
        tSchEncabezado& header = SchEncabezado;
        if (!header.Sch_Folio.empty()) return;
        try {
            check_central_server(
                server_of_branch(header.Sucursal.Sc_Cve_Sucursal));  // not that of a receipt in capture
            if (const Text why = other_day(header.Sch_Fecha); !why.empty()) fail(why);
            if (const Text why = closed_period(header.Sch_Fecha); !why.empty()) fail(why);
            check_branch(header.Sucursal.Sc_Cve_Sucursal, "la sucursal: ");
            check_currency_and_type(header.Mn_Cve_Moneda, header.Tc_Cve_Tipo_Cheque);
            fail_if(header.Sch_Transferencia.empty(), "No se indicó el tipo de operación (cheque o transferencia)");
            fail_if(header.Sch_Aplicar.empty(), "No se indicó un valor válido para la opción: aplicar");
            fail_if(header.Sch_Firme.empty(), "No se indicó un valor válido para la opción: firme");
            if (header.Sch_Tipo_Cambio <= 0) {
                fail("el tipo de cambio: " + number_text(header.Sch_Tipo_Cambio) + ", no es válido");
            }
            check_beneficiary_of_request();
            fail_if(header.Sch_Importe == 0, "Importe del cheque erróneo!");
            header.Sch_Folio = data_.GetNextFolio(header.Sucursal.Sc_Cve_Sucursal, "SOLICITUD_CHEQUE");
            fail_if(header.Sch_Folio.empty(), "Error al intentar obtener el folio de la solicitud de cheque!");
            request_stamp_ = suite_.stamp();
            if (!Inserta_Solicitud_Cheque()) fail(Error);
        } catch (const Refusal& refusal) {
            fail(tagged(tag, refusal.text));
        }
        line_counter_ = 0;
    });
}

void Treasury::check_beneficiary_of_request() {
    if (SchEncabezado.Tc_Cve_Tipo_Cheque == "0000") return;
    const Text kind = check_type(SchEncabezado.Tc_Cve_Tipo_Cheque, &rows::Tipo_Cheque::Tc_Solicitar);
    const Text& key = SchEncabezado.Sch_Solicitar_Valor;
    const Text missing = key + ", no existe o esta dado de baja";
    if (kind == "01") fail_if(!exists_supplier(key), "El proveedor: " + missing);
    if (kind == "02" || kind == "04") fail_if(!exists_customer(key, "DE"), "El deudor: " + missing);
    if (kind == "03") fail_if(!exists_customer(key, "CL"), "El cliente: " + missing);
}

bool Treasury::Inserta_Solicitud_Cheque() {
    return operation("Inserta_Solicitud_Cheque()", [&] {
        const tSchEncabezado& header = SchEncabezado;
        rows::Solicitud_Cheque row;
        row.Sch_Folio = quoted(header.Sch_Folio);
        row.Sch_Fecha = sql_date(header.Sch_Fecha);
        row.Tc_Cve_Tipo_Cheque = quoted(header.Tc_Cve_Tipo_Cheque);
        row.Bc_Cve_Banco_Cuenta = quoted(header.Bc_Cve_Banco_Cuenta);
        row.Sc_Cve_Sucursal = quoted(header.Sucursal.Sc_Cve_Sucursal);
        row.Sch_Concepto = quoted(header.Sch_Concepto);
        row.Sch_Beneficiario = quoted(header.Sch_Beneficiario);
        row.Sch_Tabla = quoted(header.Sch_Tabla);
        row.Sch_Documento = quoted(header.Sch_Documento);
        row.Sch_Referencia = quoted(header.Sch_Referencia);
        row.Sch_Importe = bare(header.Sch_Importe);
        row.Sch_Tipo_Cambio = bare(header.Sch_Tipo_Cambio);
        row.Sch_Transferencia = quoted(header.Sch_Transferencia);
        row.Sch_Aplicar = quoted(header.Sch_Aplicar);
        row.Sch_Firme = quoted(header.Sch_Firme);
        row.Sch_Solicitar_Valor = quoted(header.Sch_Solicitar_Valor);
        row.Oper_Alta = row.Oper_Ult_Modif = suite_.user;
        row.Fecha_Alta = row.Fecha_Ult_Modif = request_stamp_;
        row.Es_Cve_Estado = module_.TES_AUTORIZAR_SOLICITUD_CHEQUE ? "PXA" : "AC";
        db.Solicitud_Cheque.insert(row);
    });
}

bool Treasury::Add_Solicitud_Cheque_Detalle() {
    const Text tag = "Cuvexa.dll - Add_Solicitud_Cheque_Detalle()";
    return operation(tag, [&] {
        tSchDetalle& line = SchDetalle;
        fail_if(line.Sch_Folio.empty(), tagged(tag, "No se especificó el folio de la solicitud de cheque"));
        fail_if(line.Sch_Folio != SchEncabezado.Sch_Folio,
                tagged(tag, "El folio especificado no coincide con el de la solicitud de cheque en proceso"));
        fail_if(line.Scd_Tabla.empty(), tagged(tag, "No se especificó la tabla para el documento del detalle"));
        fail_if(line.Scd_Documento.empty(), tagged(tag, "No se especificó el documento del detalle"));
        fail_if(line.Scd_Importe <= 0, tagged(tag, "No se especificó el importe para el documento del detalle"));
        fail_if(line.Mn_Cve_Moneda.empty(), tagged(tag, "No se especificó la moneda para el documento del detalle"));
        fail_if(line.Scd_Tipo_Cambio <= 0,
                tagged(tag, "No se especificó el tipo de cambio para el documento del detalle"));
        line.Scd_Id = line_id();
        if (!Inserta_Solicitud_Cheque_Detalle()) fail(tagged(tag, Text(Error)));
    });
}

bool Treasury::Inserta_Solicitud_Cheque_Detalle() {
    return operation("Inserta_Solicitud_Cheque_Detalle()", [&] {
        rows::Solicitud_Cheque_Detalle row;
        row.Sch_Folio = quoted(SchEncabezado.Sch_Folio);
        row.Scd_Id = quoted(SchDetalle.Scd_Id);
        row.Scd_Tabla = quoted(SchDetalle.Scd_Tabla);
        row.Scd_Documento = quoted(SchDetalle.Scd_Documento);
        row.Scd_Importe = bare(SchDetalle.Scd_Importe);
        row.Mn_Cve_Moneda = quoted(SchDetalle.Mn_Cve_Moneda);
        row.Scd_Tipo_Cambio = bare(SchDetalle.Scd_Tipo_Cambio);
        row.Oper_Alta = row.Oper_Ult_Modif = suite_.user;
        row.Fecha_Alta = row.Fecha_Ult_Modif = request_stamp_;
        row.Es_Cve_Estado = module_.TES_AUTORIZAR_SOLICITUD_CHEQUE ? "PXA" : "AC";
        db.Solicitud_Cheque_Detalle.insert(row);
    });
}

// ---- Authorization and cancellation ---------------------------------------------------------------------------------

bool Treasury::Autorizar_Solicitud_Cheque(const Text& Folio) {
    const Text tag = "Cuvexa.dll - Autorizar_Solicitud_Cheque()";
    return operation(tag, [&] {
        fail_if(Folio.empty(), tagged(tag, "Debe especificar un folio válido para la solicitud"));
        const Text key = quoted(Folio);
        const auto of_request = [&](const auto& r) { return same(r.Sch_Folio, key); };
        const auto live = [&](const auto& r) { return of_request(r) && differs(r.Es_Cve_Estado, "CA"); };
        fail_if(!db.Solicitud_Cheque.any(live), tagged(tag, "La solicitud de cheque no existe o está de baja"));
        const auto activate = [](auto& r) { r.Es_Cve_Estado = "AC"; };
        db.Solicitud_Cheque.update(of_request, activate);
        if (db.Solicitud_Cheque_Detalle.any(live)) db.Solicitud_Cheque_Detalle.update(of_request, activate);
    });
}

bool Treasury::Cancelar_Solicitud_Cheque(const Text& Folio) {
    const Text tag = "Cuvexa.dll - Cancelar_Solicitud_Cheque()";
    return operation(tag, [&] {
        fail_if(Folio.empty(), tagged(tag, "Debe especificar un folio válido para la solicitud"));
        const Text key = quoted(Folio);
        const auto of_request = [&](const auto& r) { return same(r.Sch_Folio, key); };
        const auto request = db.Solicitud_Cheque.first(of_request);
        fail_if(!request,
                tagged(tag, "Imposible localizar la solicitud de cheque! " + line_break + "Solicitud: " + Folio));
        fail_if(request->Es_Cve_Estado == "CA",
                tagged(tag, "La solicitud de cheque ya está cancelada! " + line_break + "Solicitud: " + Folio));
        const auto checks = db.Cheque.where(
            [&](const auto& r) {
                return same(r.Ch_Tabla, "SOLICITUD_CHEQUE") && same(r.Ch_Documento, key) &&
                       differs(r.Es_Cve_Estado, "CA");
            },
            &rows::Cheque::Ch_Folio);
        if (!checks.empty()) {
            fail(tagged(tag, "La solicitud ya está aplicada" + line_break +
                                 "Debe cancelar el cheque antes de continuar" + line_break +
                                 "Cheque: " + checks.front().Ch_Folio));
        }
        const auto mark = [&](auto& r) {
            r.Es_Cve_Estado = "CA";
            r.Oper_Baja = suite_.user;
            r.Fecha_Baja = suite_.stamp();
        };
        db.Solicitud_Cheque_Detalle.update(of_request, mark);
        db.Solicitud_Cheque.update(of_request, mark);
    });
}

// ---- Budgets --------------------------------------------------------------------------------------------------------

/// A kind of check that budgets control.
struct Treasury::Budget_kind {
    int number = 0;
    Text parameter, solicitar, customer_kind, name;
};

/// What of a check its budget depends on.
struct Treasury::Budget_data {
    Text beneficiary, group, branch, company, solicitar;
    Date date;
    double amount = 0;
};

bool Treasury::Afectar_Cheque_Presupuesto(const Text& Ch_Folio, int Tipo) {
    static const Budget_kind kinds[] = {
        {0, "TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR", "05", "", "un anticipo a proveedor!"},
        {1, "TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR", "02", "DE", "un gasto x comprobar!"},
        {3, "TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR", "04", "DE", "un préstamo a deudor!"},
        {4, "TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE", "03", "CL", "una devolución a cliente!"}};
    const Text tag = "Afectar_Cheque_Presupuesto()";
    return operation(tag, [&] {
        std::map<int, int> modes;
        for (const Budget_kind& kind : kinds) {
            modes[kind.number] = to_integer(Value(suite_.parameter(kind.parameter, "0")));
        }
        fail_if(Ch_Folio.empty(), tagged(tag, "No se ha especificado el folio del cheque"));
        // A kind without budgets: nothing but the parameters is read.
        const auto kind =
            std::find_if(std::begin(kinds), std::end(kinds), [&](const auto& k) { return k.number == Tipo; });
        if (kind == std::end(kinds)) return;
        const Text key = quoted(Ch_Folio);
        const auto check = db.Cheque.first([&](const auto& r) { return same(r.Ch_Folio, key); });
        fail_if(!check, tagged(tag, "el cheque: " + Ch_Folio + " no existe!"));
        const Text& state = check->Es_Cve_Estado;
        fail_if(state == "CA" || state == "AP" || state == "PXA",
                tagged(tag, "Imposible afectar el cheque: " + Ch_Folio + ", con estado: " + state));
        const auto data = budget_data(*kind, *check);
        fail_if(!data, tagged(tag, "el cheque: " + Ch_Folio + " no existe o no es " + kind->name));
        fail_if(data->solicitar != kind->solicitar, tagged(tag, "el cheque: " + Ch_Folio + " no es " + kind->name));
        charge_to_budget(*kind, *data, modes[Tipo], Ch_Folio);
    });
}

/// Nothing when the check's beneficiary is not of the kind's class.
std::optional<Treasury::Budget_data> Treasury::budget_data(const Budget_kind& kind, const rows::Cheque& check) {
    const auto type =
        db.Tipo_Cheque.first([&](const auto& r) { return same(r.Tc_Cve_Tipo_Cheque, check.Tc_Cve_Tipo_Cheque); });
    const auto branch =
        db.Sucursal.first([&](const auto& r) { return same(r.Sc_Cve_Sucursal, check.Sc_Cve_Sucursal); });
    if (!type || !branch) return std::nullopt;
    Budget_data data{{},
                     {},
                     branch->Sc_Cve_Sucursal,
                     branch->Em_Cve_Empresa,
                     type->Tc_Solicitar,
                     date_of(check.Ch_Fecha),
                     check.Ch_Importe * check.Ch_Tipo_Cambio};
    if (kind.number == 0) {
        const auto supplier =
            db.Proveedor.first([&](const auto& r) { return same(r.Pv_Cve_Proveedor, check.Ch_Solicitar_Valor); });
        const auto group = !supplier ? std::nullopt : db.Grupo_Proveedor.first([&](const auto& r) {
            return same(r.Gp_Cve_Grupo_Proveedor, supplier->Gp_Cve_Grupo_Proveedor);
        });
        if (!group) return std::nullopt;
        data.beneficiary = supplier->Pv_Cve_Proveedor;
        data.group = group->Gp_Cve_Grupo_Proveedor;
    } else {
        const auto customer = db.Cliente.first([&](const auto& r) {
            return same(r.Cl_Cve_Cliente, check.Ch_Solicitar_Valor) && same(r.Tc_Cve_Tipo_Cliente, kind.customer_kind);
        });
        if (!customer) return std::nullopt;
        data.beneficiary = customer->Cl_Cve_Cliente;
    }
    return data;
}

namespace {

/// The amount of a holder's budget in a month; nothing where there is no such row.
template <class Row>
double budget_of(const Table<Row>& budgets, Text Row::*type, Text Row::*holder, rows::Whole Row::*year,
                 const Text& level, const Text& key, const Calendar& day) {
    const auto row = budgets.first(
        [&](const Row& r) { return same(r.*type, level) && same(r.*holder, key) && r.*year == day.year; });
    return row ? row->amounts[static_cast<std::size_t>(day.month - 1)] : 0;
}

double budget_of(const Database& db, int kind, const Text& level, const Text& key, const Calendar& day) {
    using namespace rows;
    using App = Anticipo_Proveedor_Presupuesto;
    using Gcp = Gasto_x_Comprobar_Presupuesto;
    using Pdp = Prestamo_Deudor_Presupuesto;
    using Dcp = Devolucion_Cliente_Presupuesto;
    switch (kind) {
        case 0:
            return budget_of(db.Anticipo_Proveedor_Presupuesto, &App::App_Tipo, &App::App_Valor, &App::App_Periodo,
                             level, key, day);
        case 1:
            return budget_of(db.Gasto_x_Comprobar_Presupuesto, &Gcp::Gcp_Tipo, &Gcp::Gcp_Valor, &Gcp::Gcp_Periodo,
                             level, key, day);
        case 3:
            return budget_of(db.Prestamo_Deudor_Presupuesto, &Pdp::Pdp_Tipo, &Pdp::Pdp_Valor, &Pdp::Pdp_Periodo, level,
                             key, day);
        default:
            return budget_of(db.Devolucion_Cliente_Presupuesto, &Dcp::Dcp_Tipo, &Dcp::Dcp_Valor, &Dcp::Dcp_Periodo,
                             level, key, day);
    }
}

}  // namespace

void Treasury::charge_to_budget(const Budget_kind& kind, const Budget_data& check, int mode, const Text& folio) {
    if (mode != 1 && mode != 2) return;
    struct Level {
        Text code;
        Text Budget_data::*key;
    };
    const std::vector<Level> levels = kind.number == 0
                                          ? std::vector<Level>{{"PV", &Budget_data::beneficiary},
                                                               {"GP", &Budget_data::group},
                                                               {"SC", &Budget_data::branch},
                                                               {"EM", &Budget_data::company}}
                                          : std::vector<Level>{{kind.customer_kind, &Budget_data::beneficiary},
                                                               {"SC", &Budget_data::branch},
                                                               {"EM", &Budget_data::company}};
    const Calendar month = calendar(check.date);
    for (const Level& level : levels) {
        const double budget = budget_of(db, kind.number, level.code, quoted(check.*level.key), month);
        if (!(budget > 0)) continue;
        double spent = 0;
        for (const auto& other : db.Cheque.rows()) {
            if (!differs(other.Es_Cve_Estado, "CA") || !differs(other.Es_Cve_Estado, "PXA")) continue;
            const auto data = budget_data(kind, other);
            if (!data || !same(data->solicitar, kind.solicitar) || !same((*data).*level.key, check.*level.key)) {
                continue;
            }
            const Calendar its_month = calendar(data->date);
            if (its_month.year == month.year && its_month.month == month.month) spent += data->amount;
        }
        if (budget < spent) hold_back(folio);
        return;
    }
    if (mode == 2) hold_back(folio);
}

void Treasury::hold_back(const Text& folio) {
    db.Cheque.update([&](const auto& r) { return same(r.Ch_Folio, quoted(folio)); },
                     [&](auto& r) {
                         r.Es_Cve_Estado = "PXA";
                         r.Oper_Ult_Modif = suite_.user;
                         r.Fecha_Ult_Modif = suite_.stamp();
                     });
}

}  // namespace cuvexa::model
