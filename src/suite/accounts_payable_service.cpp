#include "suite/accounts_payable_service.h"

#include <cmath>

#include "core/case.h"
#include "core/codes.h"

namespace cuvexa::reference {
namespace {

constexpr std::string_view advance_code = document::supplier_advance;

}  // namespace

Payable Payables::NewDocument() {
    Payable payable;
    payable.date = payable.due_date = day_of(context_->now());
    payable.currency = context_->parameter("FIN_MONEDA_LOCAL");
    payable.exchange_rate = 1;
    return payable;
}

bool Payables::CreatePayable(const Payable& payable) {
    return serve(last_error_, [&] {
        ledger_.open({.party = payable.supplier,
                      .branch = payable.branch,
                      .source_table = payable.source_table,
                      .source_document = payable.source_document,
                      .date = payable.date,
                      .due_date = payable.due_date,
                      .currency = payable.currency,
                      .exchange_rate = payable.exchange_rate,
                      .total = payable.amount,
                      .net = payable.net_amount,
                      .amount = payable.amount,
                      .reference = payable.reference,
                      .comment = payable.comment});
    });
}

bool Payables::CreateSupplierAdvance(const Supplier_advance& advance, std::string& payable_folio) {
    return serve(last_error_, [&] {
        refuse_if(!(advance.amount > 0), "El importe del anticipo debe ser mayor que cero; indique un importe");
        payable_folio = ledger_.open({.party = advance.supplier,
                                      .branch = advance.branch,
                                      .source_table = std::string(advance_code),
                                      .source_document = {},
                                      .date = advance.date,
                                      .due_date = advance.date,
                                      .currency = advance.currency,
                                      .exchange_rate = advance.exchange_rate,
                                      .total = -advance.amount,
                                      .net = -advance.amount,
                                      .amount = -advance.amount,
                                      .reference = advance.reference,
                                      .comment = advance.concept_text});
        context_->execute(
            "UPDATE Cuenta_x_Pagar SET Ch_Folio = '{}', Bc_Cve_Banco_Cuenta = '{}' WHERE Cxp_Folio = '{}'",
            advance.check_folio, advance.bank_account, payable_folio);
    });
}

bool Payables::AddPaymentLine(const Payment_line& line) {
    return serve(last_error_, [&] {
        Account account = ledger_.require(line.payable_folio);
        const double amount = Ledger::in_currency_of(account, line.amount, line.currency, line.exchange_rate);
        refuse_if(std::abs(amount) < tolerance, "El importe del pago de la cuenta por pagar: {}, no puede ser cero",
                  account.folio);
        refuse_if((amount < 0) != (account.amount < 0),
                  "El importe: {}, tiene el signo contrario al de la cuenta por pagar: {}; corrija el importe", amount,
                  account.folio);
        double balance = account.balance;
        for (const Pending& earlier : pending_) {
            if (same_text(earlier.account.folio, account.folio)) balance -= earlier.amount;
        }
        refuse_if(std::abs(amount) > std::abs(balance) + tolerance || (balance < 0) != (amount < 0),
                  "El pago: {}, es mayor al saldo: {}, de la cuenta por pagar: {}; pague a lo más el saldo", amount,
                  cents(balance), account.folio);
        pending_.push_back({std::move(account), line, amount});
    });
}

bool Payables::ApplyPayments() {
    return serve(last_error_, [&] {
        refuse_if(pending_.empty(), "No hay pagos por aplicar; agregue al menos uno");
        const std::vector<Pending> lines = std::exchange(pending_, {});
        for (const Pending& pending : lines) post(pending);
    });
}

bool Payables::CancelPayment(const std::string& payable_folio, const std::string& payment_id) {
    return serve(last_error_, [&] { ledger_.cancel_payment(payable_folio, payment_id); });
}

bool Payables::ValidateAdvanceCancellation(const std::string& advance_folio) {
    return serve(last_error_, [&] {
        for (const Live_account& advance : ledger_.of_document(advance_code, advance_folio, advance_code)) {
            refuse_if(advance.paid, "El anticipo a proveedor: {}, ya está aplicado; cancele antes sus pagos",
                      advance.folio);
            refuse_if(advance.posted,
                      "El anticipo a proveedor: {}, está contabilizado; cancele antes su registro en contabilidad",
                      advance.folio);
        }
    });
}

bool Payables::CancelDocumentPayables(const std::string& document_code, const std::string& folio) {
    return serve(last_error_, [&] {
        const std::vector<Live_account> payables = ledger_.of_document(document_code, folio);
        ledger_.require_unpaid(payables);
        for (const Live_account& payable : payables) ledger_.cancel(payable);
    });
}

void Payables::post(const Pending& pending) {
    const Payment_line& line = pending.line;
    const std::string id = ledger_.pay(pending.account, {.date = line.date,
                                                         .amount = line.amount,
                                                         .currency = line.currency,
                                                         .exchange_rate = line.exchange_rate,
                                                         .source_table = document::check,
                                                         .source_document = line.check_folio,
                                                         .reference = line.check_number,
                                                         .concept_text = "Pago con cheque o transferencia",
                                                         .payment_method = line.payment_method});
    context_->execute(
        "UPDATE Pago_Cxp SET Ch_Cheque = '{}', Bn_Cve_Banco = '{}', Bn_Descripcion = '{}', Bc_Cuenta = '{}' "
        "WHERE Cxp_Folio = '{}' AND Pc_ID = '{}'",
        line.check_number, line.bank, line.bank_name, line.bank_account_number, pending.account.folio, id);
}

}  // namespace cuvexa::reference
