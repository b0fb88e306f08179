// Accounts with payments: what receivables and payables have in common.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/codes.h"
#include "suite/context.h"

namespace cuvexa::reference {

/// How the two ledgers call the same things.
struct Ledger_names {
    std::string_view accounts;  ///< table of the accounts
    std::string_view payments;  ///< table of their payments
    std::string_view prefix;    ///< of the accounts' columns
    std::string_view party;     ///< column of the customer or supplier
    std::string_view code;      ///< folio series, and code of the accounts as documents
    std::string_view module;    ///< whose periods may be closed
    std::string_view noun;      ///< in messages
};

inline constexpr Ledger_names receivable_names = {"Cuenta_x_Cobrar",  "Pago_Cxc",           "Cxc",
                                                  "Cl_Cve_Cliente",   document::receivable, "CUENTAS_X_COBRAR",
                                                  "cuenta por cobrar"};
inline constexpr Ledger_names payable_names = {
    "Cuenta_x_Pagar", "Pago_Cxp", "Cxp", "Pv_Cve_Proveedor", document::payable, "CUENTAS_X_PAGAR", "cuenta por pagar"};

/// A receivable or payable as it stands. What is owed the other way (an advance) has negative figures.
struct Account {
    std::string folio, source_table, source_document, state, currency;
    double exchange_rate = 0;
    double amount = 0;
    double balance = 0;

    bool cancelled() const { return state == state::cancelled; }
    /// Whether its document took it back by relabelling it.
    bool withdrawn() const { return source_table.find("-CA:") != std::string::npos; }
};

struct New_account {
    std::string party, branch;
    std::string source_table, source_document;  ///< an empty document: the account's own folio
    Date date, due_date;
    std::string currency;
    double exchange_rate = 0;
    double total = 0, net = 0, amount = 0;
    std::string reference, comment;
};

struct New_payment {
    Date date;
    double amount = 0;  ///< as handed over, in `currency`; its sign is that of the account
    std::string currency;
    double exchange_rate = 0;
    std::string source_table, source_document;
    std::string reference, concept_text, payment_method;
    bool affects_balance = true;
};

class Ledger {
public:
    Ledger(Context& context, const Ledger_names& names) : context_(context), names_(names) {}

    std::optional<Account> find(std::string_view folio);

    /// The account, that may still be paid: an unknown, cancelled or withdrawn one is refused.
    Account require(std::string_view folio);

    /// Writes an account with its full balance and gives its folio. No amount, no rate or an unknown currency is
    /// refused.
    std::string open(const New_account& account);

    /// An amount in the account's own currency.
    static double in_currency_of(const Account& account, double amount, std::string_view currency,
                                 double exchange_rate);

    /// Writes a payment, moves the balance and gives the payment's number: the highest of the account and one. Sessions
    /// that pay one account in the same moment all get a number.
    std::string pay(const Account& account, const New_payment& payment);

    /// Cancels a payment and gives its amount back to the balance. An unknown or cancelled payment, one posted by hand
    /// and one of a cancelled account are refused, and so are all while the module's period of today is closed.
    void cancel_payment(const std::string& folio, const std::string& payment_id);

    bool has_live_payments(std::string_view folio);

    /// Live accounts of a document, by folio.
    std::vector<std::string> of_document(std::string_view source_table, std::string_view source_document);

    /// Refuses when an account of the document has live payments, or is posted by hand.
    void require_unpaid(const std::vector<std::string>& folios);

    /// Marks the account cancelled.
    void cancel(std::string_view folio);

protected:
    void update_balance(std::string_view folio);
    void mark_payment_cancelled(std::string_view folio, std::string_view payment_id);

    Context& context_;

private:
    std::string next_payment_id(std::string_view folio);
    /// The state of the payment; no row when there is none.
    Rows payment_state(std::string_view folio, std::string_view payment_id);
    void insert_payment(const Account& account, const New_payment& payment, const std::string& id);

    const Ledger_names& names_;
};

}  // namespace cuvexa::reference
