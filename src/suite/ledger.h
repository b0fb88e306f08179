// Accounts with payments: what receivables and payables have in common.
#pragma once

#include <cstdint>
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
    std::string_view parties;   ///< table of them
    std::string_view party_name, party_noun;
    std::string_view code;    ///< folio series, and code of the accounts as documents
    std::string_view module;  ///< whose periods may be closed
    std::string_view noun;    ///< in messages
};

inline constexpr Ledger_names receivable_names = {.accounts = "Cuenta_x_Cobrar",
                                                  .payments = "Pago_Cxc",
                                                  .prefix = "Cxc",
                                                  .party = "Cl_Cve_Cliente",
                                                  .parties = "Cliente",
                                                  .party_name = "Cl_Descripcion",
                                                  .party_noun = "cliente",
                                                  .code = document::receivable,
                                                  .module = "CUENTAS_X_COBRAR",
                                                  .noun = "cuenta por cobrar"};
inline constexpr Ledger_names payable_names = {.accounts = "Cuenta_x_Pagar",
                                               .payments = "Pago_Cxp",
                                               .prefix = "Cxp",
                                               .party = "Pv_Cve_Proveedor",
                                               .parties = "Proveedor",
                                               .party_name = "Pv_Descripcion",
                                               .party_noun = "proveedor",
                                               .code = document::payable,
                                               .module = "CUENTAS_X_PAGAR",
                                               .noun = "cuenta por pagar"};

/// A receivable or payable as it stands. What is owed the other way (an advance) has negative figures.
struct Account {
    std::string folio, source_table, source_document, state, currency;
    double exchange_rate = 0;
    double amount = 0;
    double balance = 0;
    std::int64_t last_payment = 0;  ///< the number of its last payment, cancelled ones included
    Date asked = {};                ///< when it stood so

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

/// A live account of a document.
struct Live_account {
    std::string folio;
    bool paid = false;    ///< it has live payments
    bool posted = false;  ///< by hand
    Date asked = {};      ///< when it stood so
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

    /// The account, that may still be paid: an unknown, cancelled or withdrawn one is refused.
    Account require(std::string_view folio);

    /// Refuses an unknown or retired customer or supplier.
    void require_party(const std::string& party);

    /// Writes an account with its full balance and gives its folio. An unknown or retired party, no amount, no rate and an
    /// unknown currency are refused.
    std::string open(const New_account& account);

    /// An amount in the account's own currency.
    static double in_currency_of(const Account& account, double amount, std::string_view currency,
                                 double exchange_rate);

    /// Writes a payment, moves the balance and gives the payment's number: the highest of the account and one. Sessions
    /// that pay one account in the same moment all get a number.
    std::string pay(const Account& account, const New_payment& payment);

    /// Cancels a payment and gives its amount back to the balance. An unknown or cancelled payment, one posted by hand
    /// and one of a cancelled account are refused, and so are all while the module's period of today is closed. Gives what
    /// was known of it: `Tabla` and `Documento` of the account, `Pc_Tabla`, `Pc_Documento` and `Pc_Referencia`,
    /// and the time.
    Rows cancel_payment(const std::string& folio, const std::string& payment_id);

    /// Live accounts of a document, by folio. They may be posted as documents of another code than the ledger's own.
    std::vector<Live_account> of_document(std::string_view source_table, std::string_view source_document) {
        return of_document(source_table, source_document, names_.code);
    }
    std::vector<Live_account> of_document(std::string_view source_table, std::string_view source_document,
                                          std::string_view posted_as);

    /// Refuses when an account of the document has live payments, or is posted by hand.
    void require_unpaid(const std::vector<Live_account>& accounts);

    /// Marks the account cancelled.
    void cancel(const Live_account& account);

protected:
    /// From the payments, not from the old balance: cancelling a payment gives back exactly the figure there was before it.
    void update_balance(std::string_view folio, const std::string& now);
    void mark_payment_cancelled(std::string_view folio, std::string_view payment_id, const std::string& now);

    Context& context_;

private:
    void refuse_party_if(bool unknown, const std::string& party);
    std::int64_t last_payment(std::string_view folio);
    /// False when there is a payment of that number already.
    bool insert_payment(const Account& account, const New_payment& payment, std::int64_t number,
                        const std::string& now);
    bool insert_if_new(const Account& account, const New_payment& payment, const std::string& id,
                       const std::string& now);

    const Ledger_names& names_;
};

}  // namespace cuvexa::reference
