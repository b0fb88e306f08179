// Vouchers of the documents that are posted automatically.
#pragma once

#include <optional>
#include <vector>

#include "suite/context.h"

namespace cuvexa::reference {

/// One side of a voucher's line, in local currency; negative amounts stand on the other side.
struct Entry {
    std::string debit_account, credit_account;
    double amount = 0;
    std::string text;
};

/// What a document says in accounting.
struct Voucher {
    std::string company;
    Date date;
    std::string text;
    std::vector<Entry> entries;
};

/// Posts RECIBO_PAGO, BANCO_MOVIMIENTO, DEPOSITO_PAGO and CHEQUE. The debits of a live voucher equal its credits, to
/// the cent, and a document has at most one live voucher.
class Accounting : public AccountingService {
public:
    explicit Accounting(std::shared_ptr<Context> context) : context_(std::move(context)) {}

    bool IsPostingEnabled(const std::string& document_code) override;

    /// A document that is posted already keeps its voucher while the amounts are the same; otherwise the old voucher is
    /// cancelled and another one written. Refuses an unknown document or code, a missing ledger account, a closed
    /// voucher with other amounts, and a date in a closed period of CONTABILIDAD.
    bool PostDocument(const std::string& document_code, const std::string& folio, const std::string& company) override;

    /// Cancels the document's open voucher and answers True, also when there is none. Refuses when the voucher is
    /// closed or its date lies in a closed period of CONTABILIDAD.
    bool ValidateVoucherCancellation(const std::string& document_code, const std::string& folio) override;

    std::string LastError() override { return last_error_; }

private:
    Voucher voucher_of(const std::string& document_code, const std::string& folio);
    Voucher of_receipt(const std::string& folio);
    Voucher of_movement(const std::string& folio);
    Voucher of_deposit(const std::string& folio);
    Voucher of_check(const std::string& folio);

    /// The amount of a row in local currency, which has rate 1 whatever the document says. `amount` and `exchange_rate` are
    /// columns beside `Mn_Cve_Moneda`.
    double local_amount(const Rows& row, std::string_view amount, std::string_view exchange_rate);
    /// The catalog's account, or the one configured for the document code.
    std::string account_or(const std::string& account, std::string_view configured_column, std::string_view code);

    bool keeps_voucher(const std::string& document_code, const std::string& folio, const Voucher& voucher);
    void cancel_voucher(const std::string& voucher_folio, Date date, const std::string& state,
                        const std::string& document);
    void write(const std::string& document_code, const std::string& folio, const Voucher& voucher);

    std::shared_ptr<Context> context_;
    std::optional<std::string> local_currency_;  ///< asked once for a voucher
    std::string last_error_;
};

}  // namespace cuvexa::reference
