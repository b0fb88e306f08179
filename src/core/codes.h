// The codes that rows carry, each with its name: states, purposes, and the codes by which documents name each other.
//
// C++ compares with these names and passes them on. Inside a statement the code itself stands, so that the statement is
// one literal that can be searched for. docs/states.md shows which member leads a document from which state to which.
#pragma once

namespace cuvexa {

using Code = const char*;

/// `Es_Cve_Estado`.
namespace state {
inline constexpr Code active = "AC";    ///< captured and open; of a catalog's row: in use
inline constexpr Code waiting = "PXA";  ///< for an authorization, or for the money
inline constexpr Code applied = "AP";
inline constexpr Code deposited = "DP";
inline constexpr Code applied_and_deposited = "AD";
inline constexpr Code in_transit = "TR";  ///< on its way into or out of the account
inline constexpr Code firm = "FI";        ///< confirmed by the bank
inline constexpr Code paid = "PA";
inline constexpr Code closed = "CE";  ///< a voucher that accounting holds
inline constexpr Code cancelled = "CA";
inline constexpr Code retired = "BA";  ///< of a catalog's row
}  // namespace state

/// `Po_Estado`, of an operating period.
namespace period {
inline constexpr Code open = "AB";
inline constexpr Code closed = "CE";
}  // namespace period

/// `Tc_Solicitar`: what a check is for, and so whom its type asks for.
namespace check_purpose {
inline constexpr Code supplier_payment = "01";
inline constexpr Code expense_to_verify = "02";
inline constexpr Code customer_refund = "03";
inline constexpr Code debtor_loan = "04";
inline constexpr Code supplier_advance = "05";
}  // namespace check_purpose

/// The argument `Tipo` of `Afectar_Cheque_Presupuesto`: the purposes whose checks are charged to a budget.
namespace budget {
inline constexpr int supplier_advance = 0;
inline constexpr int expense_to_verify = 1;
inline constexpr int debtor_loan = 3;
inline constexpr int customer_refund = 4;
}  // namespace budget

/// `Trp_Solicitar`: what a receipt collects. Any other is plain income.
namespace receipt_purpose {
inline constexpr Code customer_collection = "02";
inline constexpr Code debtor_collection = "03";
inline constexpr Code supplier_loan = "04";
}  // namespace receipt_purpose

/// Document codes: of folio series, accounting and registration, and in the columns that name a source document.
namespace document {
inline constexpr Code receipt = "RECIBO_PAGO";
inline constexpr Code deposit = "DEPOSITO_PAGO";
inline constexpr Code bank_movement = "BANCO_MOVIMIENTO";
inline constexpr Code check = "CHEQUE";
inline constexpr Code check_request = "SOLICITUD_CHEQUE";
inline constexpr Code expense = "GASTO_X_COMPROBAR";      ///< money that a debtor has to justify
inline constexpr Code expense_record = "GASTO_REGISTRO";  ///< what the debtor spent
inline constexpr Code customer_advance = "ANTICIPO_CXC";
inline constexpr Code supplier_advance = "ANTICIPO_CXP";
inline constexpr Code receivable = "CUENTA_X_COBRAR";
inline constexpr Code receivable_payment = "PAGO_CXC";
inline constexpr Code payable = "CUENTA_X_PAGAR";
inline constexpr Code voucher = "POLIZA";
}  // namespace document

}  // namespace cuvexa
