// The rules of the audit, by families. Each is a query; what it gives is what does not add up.
#pragma once

#include <span>
#include <vector>

namespace cuvexa::reference {

/// The query gives one row per finding, with a column Documento and, where `first` and `second` name them, two numbers in
/// the columns Primero and Segundo. Without `first` it says what it found in a text column Detalle.
struct Audit_rule {
    const char* name;
    const char* document;  ///< what the column Documento names
    const char* first;
    const char* second;
    const char* remedy;
    const char* query;
};

std::span<const Audit_rule> number_rules();
std::span<const Audit_rule> balance_rules();
std::span<const Audit_rule> deposit_rules();
std::span<const Audit_rule> movement_rules();
std::span<const Audit_rule> check_rules();
std::span<const Audit_rule> expense_rules();
std::span<const Audit_rule> receipt_rules();
std::span<const Audit_rule> request_rules();
std::span<const Audit_rule> ledger_rules();
std::span<const Audit_rule> voucher_rules();

/// All of them, in the order in which they are checked.
std::vector<Audit_rule> all_rules();

}  // namespace cuvexa::reference
