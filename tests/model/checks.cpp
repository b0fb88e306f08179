// Checks and transfers: capture, creation by purpose, application, cancellation.
#include <cmath>

#include "cuvexa/value.h"
#include "model/treasury.h"

namespace cuvexa::model {

// ---- Capture --------------------------------------------------------------------------------------------------------

bool Treasury::Add_Cheque_Detalle() {
    return operation("Cuvexa.dll - Add_Cheque_Detalle()", [&] {
        if (Encabezado.Ch_Folio.empty()) {
            check_header_of_check();
            open_check_folio();
        }
        fail_if(Detalle.Ch_Importe == 0, "Importe del cheque erróneo!");
        fail_if(Detalle.Ch_Tipo_Cambio <= 0, "El tipo de cambio del pago es incorrecto!");
        Detalle.Ch_ID = line_id();
        stop_unless(Inserta_Detalle_Cheque());
    });
}

void Treasury::check_header_of_check() {
    const tTsEncabezado& header = Encabezado;
    check_central_server(server_of_branch(header.Sucursal.Sc_Cve_Sucursal));
    if (const Text why = other_day(header.Ch_Fecha); !why.empty()) fail(why);
    if (const Text why = closed_period(header.Ch_Fecha); !why.empty()) fail(why);
    check_branch(header.Sucursal.Sc_Cve_Sucursal, "La sucursal: ");
    check_currency_and_type(header.Mn_Cve_Moneda, header.Tc_Cve_Tipo_Cheque);
    fail_if(header.Ch_Transferencia.empty(), "No se indicó el tipo de operación (cheque o transferencia)");
    if (header.Ch_Tipo_Cambio <= 0) fail("El tipo de cambio: " + number_text(header.Ch_Tipo_Cambio) + ", no es válido");
    if (header.Tc_Cve_Tipo_Cheque == "0000") return;
    const Text kind = check_type(header.Tc_Cve_Tipo_Cheque, &rows::Tipo_Cheque::Tc_Solicitar);
    const Text& key = header.Ch_Solicitar_Valor;
    const Text missing = key + ", no existe o esta dado de baja";
    if (kind == "01" || kind == "05") fail_if(!exists_supplier(key), "El proveedor: " + missing);
    if (kind == "02" || kind == "04") fail_if(!exists_customer(key, "DE"), "El deudor: " + missing);
    if (kind == "03") fail_if(!exists_customer(key, "CL"), "El cliente: " + missing);
}

void Treasury::check_branch(const Text& branch, const Text& message) {
    fail_if(
        suite_.look_up(db.Sucursal, &rows::Sucursal::Sc_Descripcion, &rows::Sucursal::Sc_Cve_Sucursal, branch).empty(),
        message + branch + ", no existe o está dada de baja");
}

/// Currency and type of a check or of a check request.
void Treasury::check_currency_and_type(const Text& currency, const Text& type) {
    fail_if(!exists_currency(currency), "La moneda: " + currency + ", no existe o está dada de baja");
    fail_if(check_type(type, &rows::Tipo_Cheque::Tc_Descripcion).empty(),
            "El tipo de cheque: " + type + ", no existe o esta dado de baja");
}

/// Takes the folio, unless the reference has been issued before.
void Treasury::open_check_folio() {
    const Text reference = quoted(Encabezado.Ch_Referencia), account = quoted(Encabezado.Bc_Cve_Banco_Cuenta),
               transfer = quoted(Encabezado.Ch_Transferencia);
    const auto issued = db.Cheque.first([&](const auto& r) {
        return same(r.Ch_Referencia, reference) && same(r.Bc_Cve_Banco_Cuenta, account) &&
               same(r.Ch_Transferencia, transfer) && differs(r.Es_Cve_Estado, "CA");
    });
    if (issued) {
        fail(Encabezado.Ch_Transferencia == "SI"
                 ? "La transferencia electrónica " + Encabezado.Ch_Referencia +
                       " ya fue impresa con el folio: " + issued->Ch_Folio
                 : "El cheque " + Encabezado.Ch_Referencia + " ya fue impreso con el folio: " + issued->Ch_Folio);
    }
    Encabezado.Ch_Folio = data_.GetNextFolio(Encabezado.Sucursal.Sc_Cve_Sucursal, "CHEQUE");
    fail_if(Encabezado.Ch_Folio.empty(), "Error al intentar obtener el folio del cheque!");
    line_counter_ = 0;
    check_stamp_ = suite_.stamp();
}

bool Treasury::Inserta_Detalle_Cheque() {
    return operation("Cuvexa.dll - Inserta_Detalle_Cheque()", [&] {
        rows::Cheque_x_Aplicar row;
        row.Ch_Folio = quoted(Encabezado.Ch_Folio);
        row.Cxa_ID = quoted(Detalle.Ch_ID);
        row.Ch_Cheque = quoted(Encabezado.Ch_Referencia);
        row.Cxp_Folio = quoted(Detalle.Cxp_Folio);
        row.Mn_Cve_Moneda = quoted(Detalle.Mn_Cve_Moneda);
        row.Cxa_Tipo_Cambio = bare(Detalle.Ch_Tipo_Cambio);
        row.Cxa_Importe = bare(Detalle.Ch_Importe);
        row.Oper_Alta = row.Oper_Ult_Modif = suite_.user;
        row.Fecha_Alta = row.Fecha_Ult_Modif = check_stamp_;
        db.Cheque_x_Aplicar.insert(row);
    });
}

bool Treasury::Inserta_Cheque(const Text& Ch_Folio) {
    return operation("Cuvexa.dll - Inserta_Cheque()", [&] {
        double sum = 0;
        const double rate = bare(Encabezado.Ch_Tipo_Cambio);
        const Text key = quoted(Ch_Folio);
        for (const auto& line : db.Cheque_x_Aplicar.rows()) {
            if (same(line.Ch_Folio, key)) sum += line.Cxa_Importe * line.Cxa_Tipo_Cambio;
        }
        if (rate == 0) throw Failure{words::use_of_null};  // what a division by zero gives
        const double total = sum / rate;
        if (std::isinf(total)) throw Failure{words::no_number};
        fail_if(adds_up_to_zero(total), "El importe del cheque es incorrecto");
        rows::Cheque row;
        row.Ch_Importe = bare(total);  // no number fails after a text
        row.Ch_Folio = quoted(Encabezado.Ch_Folio);
        row.Tc_Cve_Tipo_Cheque = quoted(Encabezado.Tc_Cve_Tipo_Cheque);
        row.Ch_Transferencia = quoted(Encabezado.Ch_Transferencia);
        row.Ch_Fecha = sql_date_time(Encabezado.Ch_Fecha);
        row.Bc_Cve_Banco_Cuenta = quoted(Encabezado.Bc_Cve_Banco_Cuenta);
        row.Sc_Cve_Sucursal = quoted(Encabezado.Sucursal.Sc_Cve_Sucursal);
        row.Ch_Solicitar_Valor = quoted(Encabezado.Ch_Solicitar_Valor);
        row.Ch_Beneficiario = quoted(Encabezado.Ch_Beneficiario);
        row.Ch_Tipo_Cambio = rate;
        row.Ch_Concepto = quoted(Encabezado.Ch_Concepto);
        row.Ch_Tabla = quoted(Encabezado.Ch_Tabla);
        row.Ch_Documento = quoted(Encabezado.Ch_Documento);
        row.Ch_Referencia = quoted(Encabezado.Ch_Referencia);
        row.Ch_Fecha_Firme = sql_date(Encabezado.Ch_Fecha);
        row.Ch_Cuenta_Destino = quoted(Encabezado.Bc_Cve_Banco_Cuenta2);
        row.Ch_Banco_Destino = quoted(Ch_Banco_Destino);
        row.Oper_Alta = row.Oper_Ult_Modif = suite_.user;
        row.Fecha_Alta = row.Fecha_Ult_Modif = suite_.stamp();
        db.Cheque.insert(row);
    });
}

// ---- Creation by purpose --------------------------------------------------------------------------------------------

bool Treasury::Crear_Cheque_Pago_Proveedor(const Text& Ch_Folio) {
    return operation("Cuvexa.dll - Crear_Cheque_Pago_Proveedor()", [&] {
        stop_unless(Inserta_Cheque(Ch_Folio));
        stop_unless(Registra_Movimiento_Bancario_Cheque(Encabezado.Ch_Folio));
    });
}

bool Treasury::Crear_Cheque_Devolucion_Anticipo(const Text& Ch_Folio) {
    return operation("Cuvexa.dll - Crear_Cheque_Devolucion_Anticipo()", [&] {
        stop_unless(Inserta_Cheque(Ch_Folio));
        stop_unless(Registra_Movimiento_Bancario_Cheque(Encabezado.Ch_Folio));
    });
}

bool Treasury::Crear_Cheque_Anticipo_Cxp() {
    return operation("Cuvexa.dll - Crear_Cheque_Anticipo_Cxp()", [&] { stop_unless(write_and_charge(true, 0)); });
}

bool Treasury::Crear_Cheque_Devolucion_Cliente() {
    return operation("Cuvexa.dll - Crear_Cheque_Devolucion_Cliente()",
                     [&] { stop_unless(write_and_charge(false, 4)); });
}

bool Treasury::Crear_Cheque_Deudor() {
    return operation("Cuvexa.dll - Crear_Cheque_Deudor()", [&] { stop_unless(write_and_charge(true, 3)); });
}

/// Line, check, budget and, unless the budget holds the check back, bank movement.
bool Treasury::write_and_charge(bool adds_line, int budget_kind) {
    if (adds_line && !Add_Cheque_Detalle()) return false;
    if (!Inserta_Cheque(Encabezado.Ch_Folio)) return false;
    if (!Afectar_Cheque_Presupuesto(Encabezado.Ch_Folio, budget_kind)) return false;
    return is_held_back(Encabezado.Ch_Folio) || Registra_Movimiento_Bancario_Cheque(Encabezado.Ch_Folio);
}

bool Treasury::is_held_back(const Text& folio) {
    return suite_.look_up(db.Cheque, &rows::Cheque::Es_Cve_Estado, &rows::Cheque::Ch_Folio, folio) == "PXA";
}

bool Treasury::Crear_Traspaso_Cuenta_Propia() {
    return operation("Cuvexa.dll - Crear_Traspaso_Cuenta_Propia()", [&] {
        fail_if(Encabezado.Ch_Folio.empty(), "No se proporcionó el folio del cheque o transferencia");
        stop_unless(Inserta_Cheque(Encabezado.Ch_Folio));
    });
}

bool Treasury::Crear_Cheque_Gasto_x_Comprobar() {
    return operation("Cuvexa.dll - Crear_Cheque_Gasto_x_Comprobar()", [&] {
        stop_unless(Add_Cheque_Detalle());
        stop_unless(Inserta_Cheque(Encabezado.Ch_Folio));
        const Text expense = write_expense();
        stop_unless(Afectar_Cheque_Presupuesto(Encabezado.Ch_Folio, 1));
        if (is_held_back(Encabezado.Ch_Folio)) return;
        stop_unless(Registra_Movimiento_Bancario_Cheque(Encabezado.Ch_Folio));
        db.Gasto_x_Comprobar.update([&](const auto& r) { return same(r.Gc_Folio, expense); },
                                    [](auto& r) { r.Es_Cve_Estado = "PA"; });
    });
}

/// Writes the expense of the check, to which every line of it then points; gives its folio.
Text Treasury::write_expense() {
    const Text folio = data_.GetNextFolio(Encabezado.Sucursal.Sc_Cve_Sucursal, "Gasto_x_Comprobar");
    fail_if(folio.empty(), "No se pudo generar el folio del gasto por comprobar");
    const Text check = quoted(Encabezado.Ch_Folio);
    rows::Gasto_x_Comprobar row;
    row.Gc_Folio = quoted(folio);
    row.Gc_Fecha = sql_date(Encabezado.Ch_Fecha);
    row.Gc_Tabla = "CHEQUE";
    row.Gc_Documento = check;
    row.Gc_Referencia = quoted(Encabezado.Ch_Referencia);
    row.Mn_Cve_Moneda = quoted(Encabezado.Mn_Cve_Moneda);
    row.Sc_Cve_Sucursal = quoted(Encabezado.Sucursal.Sc_Cve_Sucursal);
    row.Cl_Cve_Cliente = quoted(Encabezado.Ch_Solicitar_Valor);
    row.Gc_Importe = db.Cheque.first([&](const auto& r) { return same(r.Ch_Folio, check); })->Ch_Importe;
    row.Gc_Tipo_Cambio = bare(Detalle.Ch_Tipo_Cambio);
    row.Gc_Comentario = quoted(Encabezado.Ch_Concepto);
    row.Bc_Cve_Banco_Cuenta = quoted(Encabezado.Bc_Cve_Banco_Cuenta);
    row.Oper_Alta = row.Oper_Ult_Modif = suite_.user;
    row.Fecha_Alta = row.Fecha_Ult_Modif = check_stamp_;
    row.Es_Cve_Estado = "PXA";
    db.Gasto_x_Comprobar.insert(row);
    db.Cheque_x_Aplicar.update([&](const auto& r) { return same(r.Ch_Folio, check); },
                               [&](auto& r) { r.Cxp_Folio = folio; });
    return folio;
}

// ---- Application ----------------------------------------------------------------------------------------------------

/// An open line with what its check, type, account and bank say.
struct Treasury::Check_line {
    rows::Cheque_x_Aplicar line;
    rows::Cheque check;
    rows::Tipo_Cheque type;
    rows::Banco_Cuenta account;
    rows::Banco bank;
};

std::vector<Treasury::Check_line> Treasury::open_lines(const Text& folio) {
    std::vector<Check_line> open;
    const Text key = quoted(folio);
    const auto check = db.Cheque.first([&](const auto& r) { return same(r.Ch_Folio, key); });
    const auto type =
        db.Tipo_Cheque.first([&](const auto& r) { return same(r.Tc_Cve_Tipo_Cheque, check->Tc_Cve_Tipo_Cheque); });
    const auto account =
        db.Banco_Cuenta.first([&](const auto& r) { return same(r.Bc_Cve_Banco_Cuenta, check->Bc_Cve_Banco_Cuenta); });
    if (!type || !account) return open;
    const auto bank = db.Banco.first([&](const auto& r) { return same(r.Bn_Cve_Banco, account->Bn_Cve_Banco); });
    if (!bank) return open;
    for (const auto& line :
         db.Cheque_x_Aplicar.where([&](const auto& r) { return same(r.Ch_Folio, key) && same(r.Es_Cve_Estado, "AC"); },
                                   &rows::Cheque_x_Aplicar::Cxa_ID)) {
        open.push_back({line, *check, *type, *account, *bank});
    }
    return open;
}

bool Treasury::Aplicar_Cheque(const Text& Ch_Folio, Date Fecha, bool Firme) {
    const Text tag = "Cuvexa.dll - Aplicar_Cheque()";
    return operation(tag, [&] {
        const Text stamp = suite_.stamp();
        const Text key = quoted(Ch_Folio);
        const auto is_check = [&](const auto& r) { return same(r.Ch_Folio, key); };
        const auto check = db.Cheque.first(is_check);
        fail_if(!check, tagged(tag, "No se encontró el cheque o transferencia especificados"));
        fail_if(check->Es_Cve_Estado != "AC",
                tagged(tag, "Imposible aplicar un cheque con estado: " + check->Es_Cve_Estado));
        const auto lines = open_lines(Ch_Folio);
        fail_if(lines.empty(), tagged(tag, "No se encontró el detalle del cheque:" + Ch_Folio));
        for (const Check_line& line : lines) {
            const Text created = apply_line(tag, Ch_Folio, line, Fecha);
            db.Cheque_x_Aplicar.update(
                [&](const auto& r) {
                    return same(r.Ch_Folio, key) && same(r.Cxa_ID, line.line.Cxa_ID) && differs(r.Es_Cve_Estado, "CA");
                },
                [&](auto& r) {
                    if (!created.empty()) r.Cxp_Folio = quoted(created);
                    r.Es_Cve_Estado = "AP";
                    r.Cxa_Fecha_Aplicacion = sql_date(Fecha);
                    r.Oper_Ult_Modif = suite_.user;
                    r.Fecha_Ult_Modif = stamp;
                });
        }
        const bool all_applied =
            !db.Cheque_x_Aplicar.any([&](const auto& r) { return is_check(r) && same(r.Es_Cve_Estado, "AC"); });
        db.Cheque.update([&](const auto& r) { return is_check(r) && all_applied; },
                         [&](auto& r) {
                             r.Es_Cve_Estado = "AP";
                             r.Ch_Aplicar = "SI";
                             if (Firme) r.Ch_Fecha_Firme = sql_date(Fecha);
                             if (Firme) r.Ch_Firme = "SI";
                             r.Oper_Ult_Modif = suite_.user;
                             r.Fecha_Ult_Modif = stamp;
                         });
        db.Banco_Movimiento.update(
            [&](const auto& r) {
                return same(r.Bm_Documento, key) && same(r.Bm_Tabla, "CHEQUE") && differs(r.Es_Cve_Estado, "CA");
            },
            [&](auto& r) {
                r.Es_Cve_Estado = Firme ? "FI" : "TR";
                r.Bm_Fecha_Firme = sql_date(Fecha);
                r.Oper_Ult_Modif = suite_.user;
                r.Fecha_Ult_Modif = stamp;
            });
        if (!Contabiliza_Banco_Movimiento("", "CHEQUE", Ch_Folio)) fail(tagged(tag, Text(Error)));
    });
}

/// The effect of one line; the folio of the payable that it created, or nothing.
Text Treasury::apply_line(const Text& tag, const Text& folio, const Check_line& line, Date date) {
    const Text& kind = line.type.Tc_Solicitar;
    if (kind == "01") {
        pay_supplier(tag, line, date);
    } else if (kind == "02") {
        Receivables receivables(suite_);
        if (!receivables.ApplyCustomerDocument(line.line.Cxp_Folio)) fail(tagged(tag, receivables.LastError));
        if (!Aplicar_Anticipo_Cxc(folio, date)) fail(tagged(tag, Text(Error)));
    } else if (kind == "03" || kind == "04") {
        charge_customer(tag, line, kind == "04");
    } else if (kind == "05") {
        return advance_to_supplier(tag, line);
    }
    return {};
}

void Treasury::pay_supplier(const Text& tag, const Check_line& line, Date date) {
    const Text& transfer = line.check.Ch_Transferencia;
    fail_if((transfer == "NO" && module_.TES_FORMA_PAGO_CHEQUE.empty()) ||
                (transfer == "SI" && module_.TES_FORMA_PAGO_TRANSFERENCIA.empty()),
            tagged(tag, "No se encontró la forma de pago del documento"));
    if (line.type.Tc_Proveedor_Pago != "SI") return;
    Payables payables(suite_);
    const Payment_line payment{date_of(sql_date(date)),
                               line.line.Cxp_Folio,
                               line.line.Ch_Folio,
                               line.line.Ch_Cheque,
                               transfer == "NO" ? module_.TES_FORMA_PAGO_CHEQUE : module_.TES_FORMA_PAGO_TRANSFERENCIA,
                               line.line.Cxa_Importe,
                               line.line.Cxa_Tipo_Cambio,
                               line.line.Mn_Cve_Moneda,
                               line.bank.Bn_Descripcion,
                               line.account.Bc_Cuenta,
                               line.bank.Bn_Cve_Banco};
    if (!payables.AddPaymentLine(payment) || !payables.ApplyPayments()) fail(tagged(tag, payables.LastError));
}

/// A receivable for the whole check, whatever the line's part of it.
void Treasury::charge_customer(const Text& tag, const Check_line& line, bool debtor) {
    const rows::Cheque& check = line.check;
    const Text days = suite_.look_up(db.Cliente, &rows::Cliente::Cl_Dias_Credito, &rows::Cliente::Cl_Cve_Cliente,
                                     check.Ch_Solicitar_Valor,
                                     [&](const auto& r) { return !debtor || same(r.Tc_Cve_Tipo_Cliente, "DE"); });
    const Date date = date_of(check.Ch_Fecha);
    const Date due = add_days(date, days.empty() ? 0 : static_cast<int>(number_of(days)));
    Receivables receivables(suite_);
    if (!receivables.CreateReceivable({check.Sc_Cve_Sucursal, check.Ch_Solicitar_Valor, check.Ch_Tipo_Cambio,
                                       line.account.Mn_Cve_Moneda, "Cheque", check.Ch_Folio, check.Ch_Concepto,
                                       check.Ch_Referencia, date, due, check.Ch_Importe, check.Ch_Importe,
                                       check.Ch_Importe, check.Ch_Importe})) {
        fail(tagged(tag, receivables.LastError));
    }
}

Text Treasury::advance_to_supplier(const Text& tag, const Check_line& line) {
    const rows::Cheque& check = line.check;
    Payables payables(suite_);
    Text folio;
    if (!payables.CreateSupplierAdvance(
            {date_of(check.Ch_Fecha), check.Ch_Referencia, check.Ch_Folio, line.line.Mn_Cve_Moneda,
             line.line.Cxa_Tipo_Cambio, check.Sc_Cve_Sucursal, check.Ch_Solicitar_Valor, check.Ch_Importe,
             check.Ch_Concepto, line.account.Bc_Cve_Banco_Cuenta},
            folio)) {
        fail(tagged(tag, payables.LastError));
    }
    return folio;
}

bool Treasury::Finalizar_Cheque(const Text& Ch_Folio) {
    const Text tag = "Cuvexa.dll - Finalizar_Cheque()";
    return operation(tag, [&] {
        Accounting accounting(suite_);
        if (accounting.IsPostingEnabled("CHEQUE")) {
            const Text key = quoted(Ch_Folio);
            const auto check =
                db.Cheque.first([&](const auto& r) { return same(r.Ch_Folio, key) && differs(r.Es_Cve_Estado, "CA"); });
            const auto branch = !check ? std::nullopt : db.Sucursal.first([&](const auto& r) {
                return same(r.Sc_Cve_Sucursal, check->Sc_Cve_Sucursal) && differs(r.Es_Cve_Estado, "BA");
            });
            fail_if(!branch, tagged(tag, "No es posible determinar la empresa para la póliza"));
            if (!accounting.PostDocument("CHEQUE", Ch_Folio, branch->Em_Cve_Empresa) || !accounting.LastError.empty()) {
                fail(tagged(tag, accounting.LastError));
            }
        }
        if (!data_.RegisterDocument("CHEQUE", Ch_Folio)) fail(tagged(tag, data_.LastError));
    });
}

// ---- Cancellation ---------------------------------------------------------------------------------------------------

bool Treasury::Cancelar_Aplicacion_Cheque(const Text& Ch_Folio) {
    const Text tag = "Cuvexa.dll - Cancelar_Aplicacion_Cheque()";
    return operation(tag, [&] {
        const Text stamp = suite_.stamp();
        const Text key = quoted(Ch_Folio);
        const auto of_check = [&](const auto& r) { return same(r.Ch_Folio, key); };
        const auto check = db.Cheque.first(of_check);
        const auto type = !check ? std::nullopt : db.Tipo_Cheque.first([&](const auto& r) {
            return same(r.Tc_Cve_Tipo_Cheque, check->Tc_Cve_Tipo_Cheque);
        });
        const auto lines = db.Cheque_x_Aplicar.where(of_check, &rows::Cheque_x_Aplicar::Cxa_ID);
        fail_if(!type || lines.empty(), tagged(tag, "No se encontró el detalle del cheque"));
        for (const auto& line : lines) take_line_back(tag, Ch_Folio, line, *type);
        const auto reopen = [&](auto& r) {
            r.Es_Cve_Estado = "AC";
            r.Oper_Ult_Modif = suite_.user;
            r.Fecha_Ult_Modif = stamp;
        };
        db.Cheque_x_Aplicar.update(of_check, reopen);
        db.Cheque.update(of_check, reopen);
        db.Banco_Movimiento.update(
            [&](const auto& r) {
                return same(r.Bm_Documento, key) && same(r.Bm_Tabla, "CHEQUE") && differs(r.Es_Cve_Estado, "CA");
            },
            [&](auto& r) {
                r.Es_Cve_Estado = "TR";
                r.Bm_Fecha_Firme = r.Bm_Fecha;
                r.Oper_Ult_Modif = suite_.user;
                r.Fecha_Ult_Modif = stamp;
            });
    });
}

void Treasury::take_line_back(const Text& tag, const Text& folio, const rows::Cheque_x_Aplicar& line,
                              const rows::Tipo_Cheque& type) {
    const Text& kind = type.Tc_Solicitar;
    Payables payables(suite_);
    Receivables receivables(suite_);
    const auto withdraw_receivables = [&](const Text& table, const Text& document) {
        if (!receivables.ValidateDocumentCancellation(table, document)) fail(tagged(tag, receivables.LastError));
        db.Cuenta_x_Cobrar.update([&, key = quoted(document)](
                                      const auto& r) { return same(r.Cxc_Tabla, table) && same(r.Cxc_Documento, key); },
                                  [&](auto& r) { r.Cxc_Tabla = table + "-CA:" + r.Cxc_Folio; });
    };
    if (kind == "01" && type.Tc_Proveedor_Pago == "SI") {
        const Text payable = quoted(line.Cxp_Folio), key = quoted(folio);
        for (const auto& payment : db.Pago_Cxp.where(
                 [&](const auto& r) {
                     return same(r.Pc_Tabla, "CHEQUE") && same(r.Cxp_Folio, payable) && same(r.Pc_Documento, key) &&
                            differs(r.Es_Cve_Estado, "CA");
                 },
                 &rows::Pago_Cxp::Pc_ID)) {
            if (!payables.CancelPayment(payment.Cxp_Folio, payment.Pc_ID)) fail(tagged(tag, payables.LastError));
        }
    } else if (kind == "02") {
        if (!Cancelar_Aplicacion_Cheque_Anticipo(folio)) fail(tagged(tag, Text(Error)));
        withdraw_receivables("GASTO_X_COMPROBAR", line.Cxp_Folio);
    } else if (kind == "03" || kind == "04") {
        withdraw_receivables("CHEQUE", folio);
    } else if (kind == "05") {
        const auto advance = [key = quoted(line.Cxp_Folio)](const auto& r) {
            return same(r.Cxp_Tabla, "ANTICIPO_CXP") && same(r.Cxp_Documento, key);
        };
        fail_if(db.Pago_Cxp.any([&](const auto& payment) {
            return differs(payment.Es_Cve_Estado, "CA") && db.Cuenta_x_Pagar.any([&](const auto& r) {
                return advance(r) && same(r.Cxp_Folio, payment.Cxp_Folio);
            });
        }),
                tagged(tag, "El cheque contiene o proviene de un anticipo a proveedor y este ya está aplicado!"));
        if (!payables.ValidateAdvanceCancellation(line.Cxp_Folio)) fail(tagged(tag, payables.LastError));
        db.Cuenta_x_Pagar.update(advance, [](auto& r) { r.Cxp_Tabla = "ANTICIPO_CXP-CA:" + r.Cxp_Folio; });
    }
}

bool Treasury::Cancelar_Cheque(const Text& Ch_Folio) {
    const Text tag = "Cuvexa.dll - Cancelar_Cheque()";
    return operation(tag, [&] {
        const Text stamp = suite_.stamp();
        const Text key = quoted(Ch_Folio);
        const auto of_check = [&](const auto& r) { return same(r.Ch_Folio, key); };
        const auto check = db.Cheque.first(of_check);
        const auto type = !check ? std::nullopt : db.Tipo_Cheque.first([&](const auto& r) {
            return same(r.Tc_Cve_Tipo_Cheque, check->Tc_Cve_Tipo_Cheque);
        });
        const auto lines = db.Cheque_x_Aplicar.where(of_check, &rows::Cheque_x_Aplicar::Cxa_ID);
        fail_if(!type || lines.empty(),
                tagged(tag, "Imposible localizar el cheque! " + line_break + "Cheque: " + Ch_Folio));
        if (module_.GEN_FORZAR_TIEMPO_REAL) {
            if (const Text why = other_day(date_of(check->Ch_Fecha)); !why.empty()) fail(tagged(tag, why));
        }
        // Callers know this refusal under the tag of deposits.
        if (!Valida_Poliza_Contable("CHEQUE", Ch_Folio)) fail(tagged("Cuvexa.dll - Cancelar_Deposito()", Text(Error)));
        if (lines.front().Es_Cve_Estado == "AP") stop_unless(Cancelar_Aplicacion_Cheque(Ch_Folio));
        const bool without_movement = check->Es_Cve_Estado == "PXA";
        for (const auto& line : lines) {
            if (type->Tc_Solicitar == "02") cancel_expense(Ch_Folio, line.Cxp_Folio);
        }
        const auto mark = [&](auto& r) {
            r.Es_Cve_Estado = "CA";
            r.Oper_Baja = suite_.user;
            r.Fecha_Baja = stamp;
        };
        db.Cheque.update(of_check, mark);
        db.Cheque_x_Aplicar.update(of_check, mark);
        if (!without_movement) stop_unless(Cancelar_Documento_Bancos("CHEQUE", Ch_Folio));
    });
}

/// Cancels the expense of the check or, where none is linked to it, the one that the line names and that is linked to none.
void Treasury::cancel_expense(const Text& folio, const Text& line_document) {
    const Text key = quoted(folio);
    const auto linked = [&](const auto& r) { return same(r.Gc_Documento, key) && same(r.Gc_Tabla, "CHEQUE"); };
    const bool exists = db.Gasto_x_Comprobar.any(
        [&](const auto& r) { return linked(r) && differs(r.Es_Cve_Estado, "BA") && differs(r.Gc_Folio, ""); });
    db.Gasto_x_Comprobar.update(
        [&](const auto& r) {
            return exists ? linked(r)
                          : same(r.Gc_Folio, quoted(line_document)) && same(r.Gc_Documento, "") && same(r.Gc_Tabla, "");
        },
        [&](auto& r) {
            r.Es_Cve_Estado = "CA";
            r.Oper_Baja = suite_.user;
            r.Fecha_Baja = suite_.stamp();
        });
    db.Gasto_x_Comprobar_Documento.update(linked, [](auto& r) { r.Es_Cve_Estado = "CA"; });
}

}  // namespace cuvexa::model
