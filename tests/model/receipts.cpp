// Cash receipts: capture, closing, cancellation.
#include <map>
#include <tuple>

#include "cuvexa/value.h"
#include "model/treasury.h"

namespace cuvexa::model {

// ---- Capture --------------------------------------------------------------------------------------------------------

bool Treasury::Add_Recibo_Caja_Detalle() {
    const Text tag = "Cuvexa.dll - Add_Recibo_Caja_Detalle()";
    return operation(tag, [&] {
        if (!RpDetalle2) RpDetalle2 = std::make_shared<Extras>();
        if (RpEncabezado.Rp_Folio.empty()) {
            check_central_server(branch_server_id_);
            if (const Text why = other_day(RpEncabezado.Rp_Fecha); !why.empty()) fail(tagged(tag, why));
            if (const Text why = closed_period(RpEncabezado.Rp_Fecha); !why.empty()) fail(tagged(tag, why));
            fail_if(!exists_currency(RpEncabezado.Mn_Cve_Moneda),
                    "La moneda: " + RpEncabezado.Mn_Cve_Moneda + ", no existe o está dada de baja");
            if (RpEncabezado.Rp_Tipo_Cambio <= 0) {
                fail("El tipo de cambio: " + number_text(RpEncabezado.Rp_Tipo_Cambio) + ", no es válido");
            }
            RpEncabezado.Rp_Folio = data_.GetNextFolio(RpEncabezado.Sucursal.Sc_Cve_Sucursal, "RECIBO_PAGO");
            fail_if(RpEncabezado.Rp_Folio.empty(), "Error al intentar obtener el folio del recibo de caja!");
            line_counter_ = 0;
            receipt_stamp_ = suite_.stamp();
        }
        const Text& method = RpDetalle.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago;
        fail_if(
            suite_
                .look_up(db.Forma_Pago, &rows::Forma_Pago::Fp_Descripcion, &rows::Forma_Pago::Fp_Cve_Forma_Pago, method)
                .empty(),
            "La forma de pago no existe o está dada de baja");
        fail_if(RpDetalle.Rp_Importe == 0, "Importe del recibo erróneo, no puede ser cero!");
        fail_if(!RpDetalle2->Rp_Cve_Banco.empty() && suite_
                                                         .look_up(db.Banco, &rows::Banco::Bn_Descripcion,
                                                                  &rows::Banco::Bn_Cve_Banco, RpDetalle2->Rp_Cve_Banco)
                                                         .empty(),
                "El banco no existe o está de baja");
        fail_if(RpEncabezado.TipoReciboPago.Trp_Solicitar_Vendedor &&
                    suite_
                        .look_up(db.Vendedor, &rows::Vendedor::Vn_Descripcion, &rows::Vendedor::Vn_Cve_Vendedor,
                                 RpDetalle2->Rp_Vendedor)
                        .empty(),
                "El vendedor no existe o está de baja");
        RpDetalle.Rp_ID = line_id();
        if (Validar_Forma_Pago) {
            Payment_methods methods(suite_);
            if (!methods.ValidatePaymentLine(method, RpDetalle.Rp_Cheque, RpDetalle.Rp_Banco)) {
                fail(tagged(tag, methods.LastError));
            }
        }
        stop_unless(Inserta_Recibo_Pago());
    });
}

/// Its own failures leave the description alone.
bool Treasury::Inserta_Recibo_Pago() {
    try {
        const tRpEncabezado& header = RpEncabezado;
        rows::Recibo_Pago row;
        row.Rp_Folio = quoted(header.Rp_Folio);
        row.Rp_Id = quoted(RpDetalle.Rp_ID);
        row.Rp_Fecha = sql_date(header.Rp_Fecha);
        row.Sc_Cve_Sucursal = quoted(header.Sucursal.Sc_Cve_Sucursal);
        row.Trp_Cve_Tipo_Recibo_Pago = quoted(header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago);
        row.Rp_Solicitar_Valor = quoted(header.Rp_Solicitar_Valor);
        row.Rp_Tabla = quoted(header.Rp_Tabla);
        row.Rp_Documento = quoted(header.Rp_Documento);
        row.Rp_Referencia = quoted(header.Rp_Referencia);
        row.Rp_Comentario = quoted(header.Rp_Comentario);
        row.Mn_Cve_Moneda = quoted(header.Mn_Cve_Moneda);
        row.Rp_Tipo_Cambio = bare(header.Rp_Tipo_Cambio);
        row.Rp_Fecha_Deposito = sql_date(header.Rp_Fecha_Deposito);
        row.Rp_Folio_Deposito = quoted(header.Rp_Folio_Deposito);
        row.Rp_Deposito_ID = quoted(header.Rp_Deposito_ID);
        row.Fp_Cve_Forma_Pago = quoted(RpDetalle.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago);
        row.Rp_Banco = quoted(RpDetalle.Rp_Banco);
        row.Rp_Cheque = quoted(RpDetalle.Rp_Cheque);
        row.Rp_Cuenta_Bancaria = quoted(RpDetalle.Rp_Cuenta_Bancaria);
        row.Rp_Importe = bare(RpDetalle.Rp_Importe);
        row.Rp_Cve_Banco = quoted(RpDetalle2->Rp_Cve_Banco);
        row.Rp_Vendedor = quoted(RpDetalle2->Rp_Vendedor);
        row.Rp_Comisionista = quoted(RpDetalle2->Rp_Comisionista);
        row.Rp_Promotor = quoted(RpDetalle2->Rp_Promotor);
        row.Rp_Chofer = quoted(RpDetalle2->Rp_Chofer);
        row.Rp_Cobratario = quoted(RpDetalle2->Rp_Cobratario);
        row.Oper_Alta = row.Oper_Ult_Modif = suite_.user;
        row.Fecha_Alta = row.Fecha_Ult_Modif = receipt_stamp_;
        db.Recibo_Pago.insert(row);
        return true;
    } catch (const Failure& failure) {
        Error = failure.description;
    } catch (const std::exception& failure) {
        Error = failure.what();
    }
    return false;
}

// ---- Closing --------------------------------------------------------------------------------------------------------

/// The lines of one payment method that say the same, with their sum.
struct Treasury::Receipt_group {
    Text date, branch, currency;
    double rate = 0;
    Text value, comment, reference, method, solicitar, creates_receivable, customer, company;
    double amount = 0;

    auto key() const {
        return std::make_tuple(date, in_one_case(branch), in_one_case(currency), rate, in_one_case(value),
                               in_one_case(comment), in_one_case(reference), in_one_case(method),
                               in_one_case(solicitar), in_one_case(creates_receivable), in_one_case(customer),
                               in_one_case(company));
    }
};

std::vector<Treasury::Receipt_group> Treasury::receipt_groups(const Text& folio) {
    std::map<decltype(Receipt_group().key()), Receipt_group> groups;
    const Text key = quoted(folio);
    for (const auto& line : db.Recibo_Pago.rows()) {
        if (!same(line.Rp_Folio, key) || !differs(line.Es_Cve_Estado, "CA")) continue;
        const auto type = db.Tipo_Recibo_Pago.first(
            [&](const auto& r) { return same(r.Trp_Cve_Tipo_Recibo_Pago, line.Trp_Cve_Tipo_Recibo_Pago); });
        const auto method =
            db.Forma_Pago.first([&](const auto& r) { return same(r.Fp_Cve_Forma_Pago, line.Fp_Cve_Forma_Pago); });
        const auto branch =
            db.Sucursal.first([&](const auto& r) { return same(r.Sc_Cve_Sucursal, line.Sc_Cve_Sucursal); });
        if (!type || !method || !branch) continue;
        Receipt_group group{line.Rp_Fecha.value_or(""),
                            line.Sc_Cve_Sucursal,
                            line.Mn_Cve_Moneda,
                            line.Rp_Tipo_Cambio,
                            line.Rp_Solicitar_Valor,
                            line.Rp_Comentario,
                            line.Rp_Referencia,
                            method->Fp_Cve_Forma_Pago,
                            type->Trp_Solicitar,
                            method->Fp_Generar_Cuenta_x_Cobrar,
                            method->Fp_Cliente,
                            branch->Em_Cve_Empresa,
                            line.Rp_Importe};
        const auto [place, fresh] = groups.emplace(group.key(), group);
        if (!fresh) place->second.amount += line.Rp_Importe;
    }
    std::vector<Receipt_group> in_order;
    for (const auto& [key_of_group, group] : groups) in_order.push_back(group);
    return in_order;
}

bool Treasury::FinReciboCaja(const Text& Rp_Folio) {
    const Text tag = "Cuvexa.dll - FinReciboCaja()";
    return operation(tag, [&] {
        const auto groups = receipt_groups(Rp_Folio);
        fail_if(groups.empty(), tagged(tag, "No se encontró el recibo de caja: " + Rp_Folio));
        for (const Receipt_group& group : groups) close_group(tag, Rp_Folio, group);
        post(tag, "RECIBO_PAGO", Rp_Folio, groups.front().company);
        if (!data_.RegisterDocument("RECIBO_PAGO", Rp_Folio)) fail(tagged(tag, data_.LastError));
    });
}

void Treasury::close_group(const Text& tag, const Text& folio, const Receipt_group& group) {
    const Date date = date_of(group.date);
    const auto due_after = [&](const Text& days) {
        return add_days(date, days.empty() ? 0 : static_cast<int>(number_of(days)));
    };
    if (group.solicitar == "04") {
        const Text days = suite_.look_up(db.Proveedor, &rows::Proveedor::Pv_Dias_Credito,
                                         &rows::Proveedor::Pv_Cve_Proveedor, group.value);
        Payables payables(suite_);
        if (!payables.CreatePayable({group.value, group.branch, date, group.comment, "Recibo_Pago", folio,
                                     due_after(days), group.amount, group.amount, group.reference, group.currency,
                                     group.rate})) {
            fail(tagged(tag, payables.LastError));
        }
        mark_receipt_applied(folio);
    } else if (group.solicitar == "02" || group.solicitar == "03") {
        Receivables receivables(suite_);
        if (!receivables.ApplyReceipt({group.value, "RECIBO_PAGO", folio, date, group.reference, group.comment,
                                       group.branch, group.amount, group.currency, group.rate})) {
            fail(tagged(tag, receivables.LastError));
        }
        mark_receipt_applied(folio);
    }
    if (group.creates_receivable == "SI") {
        const Text days =
            suite_.look_up(db.Cliente, &rows::Cliente::Cl_Dias_Credito, &rows::Cliente::Cl_Cve_Cliente, group.customer);
        Receivables receivables(suite_);
        New_receivable receivable{group.branch,  group.customer,  group.rate,    group.currency,
                                  "Recibo_Pago", folio,           group.comment, group.reference,
                                  date,          due_after(days), group.amount,  group.amount};
        if (!receivables.CreateReceivable(receivable)) fail(tagged(tag, receivables.LastError));
    }
}

void Treasury::mark_receipt_applied(const Text& folio) {
    db.Recibo_Pago.update([&, key = quoted(folio)](const auto& r) { return same(r.Rp_Folio, key); },
                          [&](auto& r) {
                              r.Es_Cve_Estado = "AP";
                              r.Oper_Ult_Modif = suite_.user;
                              r.Fecha_Ult_Modif = suite_.stamp();
                          });
}

// ---- Cancellation ---------------------------------------------------------------------------------------------------

bool Treasury::Cancelar_Recibo_Caja(const Text& Rp_Folio, bool bCancelaDeposito, bool bCancelaPagos) {
    const Text tag = "Cuvexa.dll - Cancelar_Recibo_Caja()";
    return operation(tag, [&] {
        const Text stamp = suite_.stamp();
        const Text key = quoted(Rp_Folio);
        const auto lines =
            db.Recibo_Pago.where([&](const auto& r) { return same(r.Rp_Folio, key); }, &rows::Recibo_Pago::Rp_Id);
        fail_if(lines.empty(), tagged(tag, "No se encontró el recibo de caja:" + Rp_Folio + ", especificado"));
        fail_if(lines.front().Es_Cve_Estado == "CA",
                tagged(tag, "Imposible cancelar el recibo de caja:" + Rp_Folio + ", esta cancelado"));
        const Text deposit = lines.front().Rp_Folio_Deposito;
        if (module_.GEN_FORZAR_TIEMPO_REAL) {
            if (const Text why = other_day(date_of(lines.front().Rp_Fecha)); !why.empty()) fail(tagged(tag, why));
        }
        if (!Valida_Poliza_Contable("RECIBO_PAGO", Rp_Folio)) fail(tagged(tag, Text(Error)));
        undo_closing(tag, Rp_Folio, bCancelaPagos);
        if (!deposit.empty()) undo_deposit(tag, Rp_Folio, deposit, bCancelaDeposito);
        db.Recibo_Pago.update([&](const auto& r) { return same(r.Rp_Folio, key); },
                              [&](auto& r) {
                                  r.Es_Cve_Estado = "CA";
                                  r.Oper_Baja = r.Oper_Ult_Modif = suite_.user;
                                  r.Fecha_Baja = r.Fecha_Ult_Modif = stamp;
                              });
    });
}

/// Takes back payments, advances, payables and receivables that the receipt produced.
void Treasury::undo_closing(const Text& tag, const Text& folio, bool payments_too) {
    const Text code = "RECIBO_PAGO";
    const Text key = quoted(folio);
    Document_payments payments(suite_);
    if (!payments.CancelDocumentPayments(code, folio)) fail(tagged(tag, payments.LastError));
    Receivables receivables(suite_);
    for (const auto& payment : db.Pago_Cxc.where([&](const auto& r) {
             return same(r.Pc_Tabla, code) && same(r.Pc_Documento, key) && differs(r.Es_Cve_Estado, "CA");
         })) {
        fail_if(!payments_too, tagged(tag, "Imposible cancelar el recibo de caja:" + folio + ", esta aplicado"));
        if (!receivables.CancelPayment(payment.Cxc_Folio, payment.Pc_ID)) fail(tagged(tag, receivables.LastError));
    }
    if (db.Anticipo_Cxc.any([&](const auto& r) {
            return same(r.An_Tabla, code) && same(r.An_Documento, key) && differs(r.Es_Cve_Estado, "CA");
        }) &&
        !receivables.CancelDocumentAdvances(code, folio)) {
        fail(tagged(tag, receivables.LastError));
    }
    Payables payables(suite_);
    if (db.Cuenta_x_Pagar.any([&](const auto& r) {
            return same(r.Cxp_Tabla, code) && same(r.Cxp_Documento, key) && differs(r.Es_Cve_Estado, "CA");
        }) &&
        !payables.CancelDocumentPayables(code, folio)) {
        fail(tagged(tag, payables.LastError));
    }
    if (db.Cuenta_x_Cobrar.any([&](const auto& r) {
            return same(r.Cxc_Tabla, code) && same(r.Cxc_Documento, key) && differs(r.Es_Cve_Estado, "CA");
        }) &&
        !receivables.CancelDocumentReceivables(code, folio)) {
        fail(tagged(tag, receivables.LastError));
    }
}

void Treasury::undo_deposit(const Text& tag, const Text& folio, const Text& deposit, bool allowed) {
    std::map<Text, int> receipts;
    const Text key = quoted(deposit);
    for (const auto& line : db.Recibo_Pago.rows()) {
        if (differs(line.Es_Cve_Estado, "CA") && same(line.Rp_Folio_Deposito, key) &&
            differs(line.Rp_Folio_Deposito, "")) {
            ++receipts[in_one_case(line.Rp_Folio)];
        }
    }
    const Text message = "Imposible cancelar recibo: " + folio + "Este se encuentra depositado";
    fail_if(!allowed, tagged(tag, message));
    fail_if(receipts.size() >= 2, tagged(tag, message + line_break + "En conjunto con otros recibos"));
    if (receipts.size() == 1 && !Cancelar_Deposito(deposit)) fail(tagged(tag, Text(Error)));
}

}  // namespace cuvexa::model
