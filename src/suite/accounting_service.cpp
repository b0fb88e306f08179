#include "suite/accounting_service.h"

#include <algorithm>
#include <cmath>

#include "core/case.h"
#include "core/codes.h"
#include "core/number_text.h"

namespace cuvexa::reference {
namespace {

constexpr std::string_view module_name = "CONTABILIDAD";

}  // namespace

bool Accounting::IsPostingEnabled(const std::string& document_code) {
    last_error_.clear();
    return context_->posts_automatically(document_code);
}

bool Accounting::PostDocument(const std::string& document_code, const std::string& folio, const std::string& company) {
    return serve(last_error_, [&] {
        local_currency_.reset();
        Voucher voucher = voucher_of(document_code, folio);
        if (!company.empty()) voucher.company = company;
        std::erase_if(voucher.entries, [](const Entry& entry) { return entry.amount == 0; });
        if (keeps_voucher(document_code, folio, voucher)) return;
        refuse_if(context_->is_period_closed(voucher.date, module_name),
                  "El período contable del: {}, está cerrado; ábralo para contabilizar {}: {}",
                  short_date(voucher.date), document_code, folio);
        if (!voucher.entries.empty()) write(document_code, folio, voucher);
    });
}

bool Accounting::ValidateVoucherCancellation(const std::string& document_code, const std::string& folio) {
    return serve(last_error_, [&] {
        const Rows voucher = context_->query(
            "SELECT Pz_Folio, Pz_Fecha, Es_Cve_Estado FROM Poliza WHERE Pz_Documento = '{}' AND Pz_Tabla = '{}' AND "
            "Es_Cve_Estado <> 'CA'",
            folio, document_code);
        if (voucher.eof()) return;
        cancel_voucher(voucher.text("Pz_Folio"), voucher.date("Pz_Fecha"), voucher.text("Es_Cve_Estado"),
                       document_code + ": " + folio);
    });
}

Voucher Accounting::voucher_of(const std::string& document_code, const std::string& folio) {
    if (same_text(document_code, document::receipt)) return of_receipt(folio);
    if (same_text(document_code, document::bank_movement)) return of_movement(folio);
    if (same_text(document_code, document::deposit)) return of_deposit(folio);
    if (same_text(document_code, document::check)) return of_check(folio);
    refuse("Los documentos de código: {}, no se contabilizan; desactive su contabilización automática", document_code);
}

/// Cash and the like against what the branch collects.
Voucher Accounting::of_receipt(const std::string& folio) {
    Rows rows = context_->query(
        "SELECT Recibo_Pago.Rp_Fecha, Recibo_Pago.Mn_Cve_Moneda, Recibo_Pago.Rp_Tipo_Cambio, "
        "Forma_Pago.Fp_Cuenta_Contable, Forma_Pago.Fp_Descripcion, Sucursal.Sc_Cuenta_Contable, "
        "Sucursal.Em_Cve_Empresa, "
        "SUM(Recibo_Pago.Rp_Importe) AS Importe FROM Recibo_Pago "
        "INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago "
        "INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Recibo_Pago.Sc_Cve_Sucursal "
        "WHERE Recibo_Pago.Rp_Folio = '{}' AND Recibo_Pago.Es_Cve_Estado <> 'CA' "
        "GROUP BY Recibo_Pago.Rp_Fecha, Recibo_Pago.Mn_Cve_Moneda, Recibo_Pago.Rp_Tipo_Cambio, "
        "Forma_Pago.Fp_Cuenta_Contable, Forma_Pago.Fp_Descripcion, Sucursal.Sc_Cuenta_Contable, "
        "Sucursal.Em_Cve_Empresa",
        folio);
    refuse_if(rows.eof(), "No se encontró el recibo de caja: {}, por contabilizar", folio);
    Voucher voucher{rows.text("Em_Cve_Empresa"), rows.date("Rp_Fecha"), "Recibo de caja " + folio, {}};
    for (; !rows.eof(); rows.next()) {
        voucher.entries.push_back(
            {.debit_account = account_or(rows.text("Fp_Cuenta_Contable"), "Ct_Cuenta_Cargo", document::receipt),
             .credit_account = account_or(rows.text("Sc_Cuenta_Contable"), "Ct_Cuenta_Abono", document::receipt),
             .amount = local_amount(rows, "Importe", "Rp_Tipo_Cambio"),
             .text = rows.text("Fp_Descripcion")});
    }
    return voucher;
}

/// The bank account against the account of the movement's kind.
Voucher Accounting::of_movement(const std::string& folio) {
    const Rows rows = context_->query(
        "SELECT Banco_Movimiento.Bm_Fecha, Banco_Movimiento.Bm_Importe, Banco_Movimiento.Mn_Cve_Moneda, "
        "Banco_Movimiento.Bm_Tipo_Cambio, Banco_Movimiento.Bc_Cuenta_Contable, Banco_Movimiento.Bm_Comentario, "
        "Banco_Tipo_Movimiento.Bt_Cuenta_Contable, Banco_Cuenta.Em_Cve_Empresa FROM Banco_Movimiento "
        "INNER JOIN Banco_Tipo_Movimiento ON "
        "Banco_Tipo_Movimiento.Bt_Cve_Banco_Tipo_Movimiento = Banco_Movimiento.Bt_Cve_Banco_Tipo_Movimiento "
        "INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Banco_Movimiento.Bc_Cve_Banco_Cuenta "
        "WHERE Banco_Movimiento.Bm_Folio = '{}' AND Banco_Movimiento.Es_Cve_Estado <> 'CA'",
        folio);
    refuse_if(rows.eof(), "No se encontró el movimiento de banco: {}, por contabilizar", folio);
    const double amount = local_amount(rows, "Bm_Importe", "Bm_Tipo_Cambio");
    return {rows.text("Em_Cve_Empresa"),
            rows.date("Bm_Fecha"),
            "Movimiento de banco " + folio,
            {{.debit_account = account_or(rows.text("Bc_Cuenta_Contable"), "Ct_Cuenta_Cargo", document::bank_movement),
              .credit_account = account_or(rows.text("Bt_Cuenta_Contable"), "Ct_Cuenta_Abono", document::bank_movement),
              .amount = amount,
              .text = rows.text("Bm_Comentario")}}};
}

/// Money on its way to the bank against the cash and the like that it was.
Voucher Accounting::of_deposit(const std::string& folio) {
    const std::string transit =
        account_or(context_->look_up("Bt_Cuenta_Contable", "Bt_Cve_Banco_Tipo_Movimiento",
                                     context_->parameter("TES_MOVIMIENTO_DEPOSITO"), "Banco_Tipo_Movimiento"),
                   "Ct_Cuenta_Cargo", document::deposit);
    Rows rows = context_->query(
        "SELECT Recibo_Pago.Rp_Fecha_Deposito, Recibo_Pago.Mn_Cve_Moneda, Recibo_Pago.Rp_Tipo_Cambio, "
        "Forma_Pago.Fp_Cuenta_Contable, Forma_Pago.Fp_Descripcion, Sucursal.Em_Cve_Empresa, "
        "SUM(Recibo_Pago.Rp_Importe) AS Importe FROM Recibo_Pago "
        "INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago "
        "INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Recibo_Pago.Sc_Cve_Sucursal "
        "WHERE Recibo_Pago.Rp_Folio_Deposito = '{}' AND Recibo_Pago.Es_Cve_Estado <> 'CA' "
        "GROUP BY Recibo_Pago.Rp_Fecha_Deposito, Recibo_Pago.Mn_Cve_Moneda, Recibo_Pago.Rp_Tipo_Cambio, "
        "Forma_Pago.Fp_Cuenta_Contable, Forma_Pago.Fp_Descripcion, Sucursal.Em_Cve_Empresa",
        folio);
    refuse_if(rows.eof(), "No se encontró el depósito: {}, por contabilizar", folio);
    Voucher voucher{rows.text("Em_Cve_Empresa"), rows.date("Rp_Fecha_Deposito"), "Depósito " + folio, {}};
    for (; !rows.eof(); rows.next()) {
        voucher.entries.push_back(
            {.debit_account = transit,
             .credit_account = account_or(rows.text("Fp_Cuenta_Contable"), "Ct_Cuenta_Abono", document::deposit),
             .amount = local_amount(rows, "Importe", "Rp_Tipo_Cambio"),
             .text = rows.text("Fp_Descripcion")});
    }
    return voucher;
}

/// The account of the check's type, or else of its beneficiary, against money on its way out of the bank.
Voucher Accounting::of_check(const std::string& folio) {
    const Rows rows = context_->query(
        "SELECT Cheque.Ch_Fecha, Cheque.Ch_Importe, Cheque.Ch_Tipo_Cambio, Cheque.Ch_Concepto, "
        "Cheque.Ch_Transferencia, "
        "Cheque.Ch_Solicitar_Valor, Tipo_Cheque.Tc_Solicitar, Tipo_Cheque.Tc_Cuenta_Contable, Sucursal.Em_Cve_Empresa "
        "FROM Cheque INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
        "INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal "
        "WHERE Cheque.Ch_Folio = '{}' AND Cheque.Es_Cve_Estado <> 'CA'",
        folio);
    refuse_if(rows.eof(), "No se encontró el cheque: {}, por contabilizar", folio);

    std::string debit = rows.text("Tc_Cuenta_Contable");
    const std::string beneficiary = rows.text("Ch_Solicitar_Valor");
    const std::string kind = rows.text("Tc_Solicitar");
    if (debit.empty() && (kind == check_purpose::supplier_payment || kind == check_purpose::supplier_advance)) {
        debit = context_->look_up("Pv_Cuenta_Contable", "Pv_Cve_Proveedor", beneficiary, "Proveedor");
    } else if (debit.empty() && !kind.empty()) {
        debit = context_->look_up("Cl_Cuenta_Contable", "Cl_Cve_Cliente", beneficiary, "Cliente");
    }
    const std::string movement =
        rows.text("Ch_Transferencia") == "SI" ? "TES_MOVIMIENTO_TRANSFERENCIA" : "TES_MOVIMIENTO_CHEQUE";
    const std::string credit = context_->look_up("Bt_Cuenta_Contable", "Bt_Cve_Banco_Tipo_Movimiento",
                                                 context_->parameter(movement), "Banco_Tipo_Movimiento");
    return {rows.text("Em_Cve_Empresa"),
            rows.date("Ch_Fecha"),
            "Cheque " + folio,
            {{.debit_account = account_or(debit, "Ct_Cuenta_Cargo", document::check),
              .credit_account = account_or(credit, "Ct_Cuenta_Abono", document::check),
              .amount = cents(rows.number("Ch_Importe") * rows.number("Ch_Tipo_Cambio")),
              .text = rows.text("Ch_Concepto")}}};
}

double Accounting::local_amount(const Rows& row, std::string_view amount, std::string_view exchange_rate) {
    if (!local_currency_) local_currency_ = context_->parameter("FIN_MONEDA_LOCAL");
    const double as_it_stands = row.number(amount), rate = row.number(exchange_rate);
    return cents(same_text(row.text("Mn_Cve_Moneda"), *local_currency_) ? as_it_stands : as_it_stands * rate);
}

std::string Accounting::account_or(const std::string& account, std::string_view configured_column,
                                   std::string_view code) {
    if (!account.empty()) return account;
    const Rows rows =
        context_->query("SELECT {} FROM Configuracion_Contable WHERE Ct_Codigo = '{}'", Raw{configured_column}, code);
    std::string configured = rows.eof() ? std::string() : rows.text(configured_column);
    refuse_if(configured.empty(),
              "No hay cuenta contable para {}; asígnela en el catálogo o en la configuración contable del documento",
              code);
    return configured;
}

/// True when the document's voucher stands as it should. One that does not is cancelled, so that another can be
/// written.
bool Accounting::keeps_voucher(const std::string& document_code, const std::string& folio, const Voucher& voucher) {
    const Rows old = context_->query(
        "SELECT Poliza.Pz_Folio, Poliza.Pz_Fecha, Poliza.Es_Cve_Estado, SUM(Poliza_Detalle.Pzd_Cargo) AS Cargos FROM "
        "Poliza "
        "INNER JOIN Poliza_Detalle ON Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio "
        "WHERE Poliza.Pz_Documento = '{}' AND Poliza.Pz_Tabla = '{}' AND Poliza.Es_Cve_Estado <> 'CA' "
        "GROUP BY Poliza.Pz_Folio, Poliza.Pz_Fecha, Poliza.Es_Cve_Estado",
        folio, document_code);
    if (old.eof()) return false;
    double debits = 0;
    for (const Entry& entry : voucher.entries) debits += std::abs(entry.amount);
    if (std::abs(debits - old.number("Cargos")) < tolerance) return true;
    cancel_voucher(old.text("Pz_Folio"), old.date("Pz_Fecha"), old.text("Es_Cve_Estado"), document_code + ": " + folio);
    return false;
}

void Accounting::cancel_voucher(const std::string& voucher_folio, Date date, const std::string& state,
                                const std::string& document) {
    refuse_if(state == state::closed, "La póliza: {}, de {}, está cerrada; ábrala en contabilidad antes de continuar",
              voucher_folio, document);
    refuse_if(context_->is_period_closed(date, module_name),
              "El período contable de la póliza: {}, de {}, está cerrado; ábralo en contabilidad antes de continuar",
              voucher_folio, document);
    const std::string now = context_->stamp();
    context_->execute(
        "UPDATE Poliza SET Es_Cve_Estado = 'CA', Oper_Baja = '{}', Fecha_Baja = '{}', Oper_Ult_Modif = '{}', "
        "Fecha_Ult_Modif = '{}' WHERE Pz_Folio = '{}'",
        context_->user(), now, context_->user(), now, voucher_folio);
}

void Accounting::write(const std::string& document_code, const std::string& folio, const Voucher& voucher) {
    const std::string voucher_folio = context_->take_folio({}, document::voucher);
    const std::string now = context_->stamp();
    int line = 0;
    const auto write_line = [&](const std::string& account, const std::string& text, double debit, double credit) {
        context_->execute(
            "INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Cargo, Pzd_Abono) "
            "VALUES ('{}', '{}', '{}', '{}', {}, {})",
            voucher_folio, four_digits(++line), account, text, debit, credit);
    };
    // The lines come first: a voucher that is there is complete.
    for (const Entry& entry : voucher.entries) {
        const bool reversed = entry.amount < 0;
        const double amount = std::abs(entry.amount);
        write_line(reversed ? entry.credit_account : entry.debit_account, entry.text, amount, 0);
        write_line(reversed ? entry.debit_account : entry.credit_account, entry.text, 0, amount);
    }
    context_->execute(
        "INSERT INTO Poliza (Pz_Folio, Em_Cve_Empresa, Pz_Fecha, Pz_Tabla, Pz_Documento, Pz_Concepto, Oper_Alta, "
        "Fecha_Alta, "
        "Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado) "
        "VALUES ('{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', 'AC')",
        voucher_folio, voucher.company, context_->day_text(voucher.date), document_code, folio, voucher.text,
        context_->user(), now, context_->user(), now);
}

}  // namespace cuvexa::reference
