#include "model/payables.h"

namespace cuvexa::model {
namespace {

const Text advance_code = "ANTICIPO_CXP";

}  // namespace

bool Payables::CreatePayable(const New_payable& payable) {
    return serve([&] { supplier_account(payable); });
}

Text Payables::supplier_account(const New_payable& given) {
    refuse_if(
        suite
            .look_up(db.Proveedor, &rows::Proveedor::Pv_Descripcion, &rows::Proveedor::Pv_Cve_Proveedor, given.supplier)
            .empty(),
        {"El proveedor: ", given.supplier, ", no existe o está dado de baja; elija otro"});
    rows::Cuenta_x_Pagar account;
    account.Cxp_Tabla = given.table;
    account.Cxp_Documento = given.document;
    account.Pv_Cve_Proveedor = given.supplier;
    account.Mn_Cve_Moneda = given.currency;
    account.Cxp_Tipo_Cambio = given.rate;
    account.Cxp_Importe = account.Cxp_Precio_Neto_Importe = given.amount;
    account.Cxp_Neto = given.net_amount;
    account.Cxp_Referencia = given.reference;
    account.Cxp_Comentario = given.comment;
    return open(account, given.branch, given.date, given.due_date);
}

/// A payable of its own with negative figures; its own folio is its document.
bool Payables::CreateSupplierAdvance(const Supplier_advance& advance, Text& payable_folio) {
    return serve([&] {
        refuse_if(!(advance.amount > 0), {"El importe del anticipo debe ser mayor que cero; indique un importe"});
        payable_folio = supplier_account({advance.supplier,
                                          advance.branch,
                                          advance.date,
                                          advance.concept_text,
                                          advance_code,
                                          {},
                                          advance.date,
                                          -advance.amount,
                                          -advance.amount,
                                          advance.reference,
                                          advance.currency,
                                          advance.rate});
        accounts().update(of(payable_folio), [&](auto& r) {
            r.Ch_Folio = advance.check_folio;
            r.Bc_Cve_Banco_Cuenta = advance.bank_account;
        });
    });
}

bool Payables::AddPaymentLine(const Payment_line& line) {
    return serve([&] {
        const auto account = require(line.payable_folio);
        const double amount = in_currency_of(account, line.amount, line.currency, line.rate);
        refuse_if(std::abs(amount) < half_a_cent,
                  {"El importe del pago de la cuenta por pagar: ", line.payable_folio, ", no puede ser cero"});
        refuse_if((amount < 0) != (account.Cxp_Precio_Neto_Importe < 0),
                  {"El importe: ", number_text(amount), ", tiene el signo contrario al de la cuenta por pagar: ",
                   line.payable_folio, "; corrija el importe"});
        double balance = account.Cxp_Precio_Neto_Saldo;
        for (const Pending& earlier : pending_) {
            if (same(earlier.line.payable_folio, line.payable_folio)) balance -= earlier.amount;
        }
        refuse_if(std::abs(amount) > std::abs(balance) + half_a_cent || (balance < 0) != (amount < 0),
                  {"El pago: ", number_text(amount), ", es mayor al saldo: ", number_text(cents(balance)),
                   ", de la cuenta por pagar: ", line.payable_folio, "; pague a lo más el saldo"});
        pending_.push_back({account, line, amount});
    });
}

bool Payables::ApplyPayments() {
    return serve([&] {
        refuse_if(pending_.empty(), {"No hay pagos por aplicar; agregue al menos uno"});
        const auto lines = std::exchange(pending_, {});
        for (const auto& [account, line, amount] : lines) {
            const Payment_line& given = line;
            const Text id = pay(account, line.payable_folio,
                                {line.date, line.amount, line.currency, line.rate, "CHEQUE", line.check_folio,
                                 line.check_number, "Pago con cheque o transferencia", line.method});
            payments().update(
                [&](const auto& r) { return same(r.Cxp_Folio, given.payable_folio) && same(r.Pc_ID, id); },
                [&](auto& r) {
                    r.Ch_Cheque = given.check_number;
                    r.Bn_Cve_Banco = given.bank;
                    r.Bn_Descripcion = given.bank_name;
                    r.Bc_Cuenta = given.bank_account_number;
                });
        }
    });
}

bool Payables::CancelPayment(const Text& folio, const Text& id) {
    return serve([&] { cancel_payment(folio, id); });
}

bool Payables::ValidateAdvanceCancellation(const Text& advance_folio) {
    return serve([&] {
        for (const Text& folio : of_document(advance_code, advance_folio)) {
            refuse_if(has_live_payments(folio),
                      {"El anticipo a proveedor: ", folio, ", ya está aplicado; cancele antes sus pagos"});
            refuse_if(suite.is_posted(advance_code, folio),
                      {"El anticipo a proveedor: ", folio,
                       ", está contabilizado; cancele antes su registro en contabilidad"});
        }
    });
}

bool Payables::CancelDocumentPayables(const Text& document_code, const Text& folio) {
    return serve([&] {
        const auto folios = of_document(document_code, folio);
        require_unpaid(folios);
        for (const Text& payable : folios) cancel(payable);
    });
}

}  // namespace cuvexa::model
