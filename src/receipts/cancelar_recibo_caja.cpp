// Cancellation of a cash receipt, with what its closing produced and, when asked, its deposit.
#include "core/codes.h"
#include "core/operation.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

void release_payment_lines(Operation& op, Rows& lines) {
    PaymentMethodService& methods = op.module().payment_methods();
    for (; !lines.eof(); lines.next()) {
        op.relay_unless(methods.ReleasePaymentLine(lines.text("Fp_Cve_Forma_Pago"), lines.text("Rp_Cheque"),
                                                   lines.text("Rp_Banco")),
                        methods);
    }
}

/// The payments that remain after the document's own were cancelled: only the caller may let them go.
void cancel_applied_payments(Operation& op, const std::string& folio, bool allowed) {
    auto payments = op.query(
        "SELECT "
        "   Cxc_Folio, "
        "   Pc_Id "
        "FROM Pago_Cxc "
        "WHERE "
        "   Pc_Tabla = 'RECIBO_PAGO' AND "
        "   Pc_Documento = '{}' AND "
        "   Es_Cve_Estado <> 'CA' "
        "ORDER BY "
        "   Cxc_Folio, "
        "   Pc_Id ",
        folio);
    if (payments.eof()) return;
    op.refuse_if(!allowed, "Imposible cancelar el recibo de caja:{}, esta aplicado", folio);

    const auto receivables = op.module().suite().new_accounts_receivable();
    for (; !payments.eof(); payments.next()) {
        op.relay_unless(receivables->CancelPayment(payments.text("Cxc_Folio"), payments.text("Pc_Id")), *receivables);
    }
}

void cancel_advances(Operation& op, const std::string& folio) {
    auto advances = op.query(
        "SELECT An_Folio "
        "FROM Anticipo_Cxc "
        "WHERE "
        "   An_Tabla = 'RECIBO_PAGO' AND "
        "   An_Documento = '{}' AND "
        "   Es_Cve_Estado <> 'CA' ",
        folio);
    if (advances.eof()) return;
    const auto receivables = op.module().suite().new_accounts_receivable();
    op.relay_unless(receivables->CancelDocumentAdvances(document::receipt, folio), *receivables);
}

void cancel_payables(Operation& op, const std::string& folio) {
    auto created = op.query(
        "SELECT Cxp_Folio "
        "FROM Cuenta_x_Pagar "
        "WHERE "
        "   Cxp_Tabla = 'RECIBO_PAGO' AND "
        "   Cxp_Documento = '{}' AND "
        "   Es_Cve_Estado <> 'CA' ",
        folio);
    if (created.eof()) return;
    const auto payables = op.module().suite().new_accounts_payable();
    op.relay_unless(payables->CancelDocumentPayables(document::receipt, folio), *payables);
}

void cancel_receivables(Operation& op, const std::string& folio) {
    auto created = op.query(
        "SELECT Cxc_Folio "
        "FROM Cuenta_x_Cobrar "
        "WHERE "
        "   Cxc_Tabla = 'RECIBO_PAGO' AND "
        "   Cxc_Documento = '{}' AND "
        "   Es_Cve_Estado <> 'CA' ",
        folio);
    if (created.eof()) return;
    const auto receivables = op.module().suite().new_accounts_receivable();
    op.relay_unless(receivables->CancelDocumentReceivables(document::receipt, folio), *receivables);
}

/// Whether the deposit is to be cancelled along with the receipt. Refuses when it may not be.
bool takes_deposit_along(Operation& op, const std::string& folio, const std::string& deposit, bool allowed) {
    auto count = op.query(
        "SELECT COUNT(DISTINCT Rp_Folio) as Recibos "
        "FROM Recibo_Pago "
        "WHERE "
        "   Es_Cve_Estado <> 'CA' AND "
        "   Rp_Folio_Deposito = '{}' AND "
        "   Rp_Folio_Deposito <> '' ",
        deposit);
    const double receipts = count.number("Recibos");
    // The folio runs into the next words: callers parse these texts.
    op.refuse_if(!allowed, "Imposible cancelar recibo: {}Este se encuentra depositado", folio);
    op.refuse_if(receipts >= 2,
                 "Imposible cancelar recibo: {}Este se encuentra depositado\r\n"
                 "En conjunto con otros recibos",
                 folio);
    return receipts == 1;
}

void mark_cancelled(Operation& op, const std::string& folio, const std::string& stamp) {
    const std::string user = op.session().GetUserName();
    op.execute(
        "UPDATE Recibo_Pago SET "
        "   Es_Cve_Estado = 'CA', "
        "   Oper_Baja = '{}', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Baja = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Rp_Folio = '{}'",
        user, user, stamp, stamp, folio);
}

}  // namespace

bool Tesoreria::Cancelar_Recibo_Caja(const std::string& Rp_Folio, bool bCancelaDeposito, bool bCancelaPagos) {
    return operation(module_, error_, "Cuvexa.dll - Cancelar_Recibo_Caja()", [&](Operation& op) {
        const std::string stamp = op.server_stamp();

        auto lines = op.query(
            "SELECT "
            "   Fp_Cve_Forma_Pago, "
            "   Rp_Banco, "
            "   Rp_Cheque, "
            "   Rp_Fecha, "
            "   Rp_Folio_Deposito, "
            "   Es_Cve_Estado "
            "FROM Recibo_Pago "
            "WHERE Rp_Folio = '{}' "
            "ORDER BY Rp_Id ",
            Rp_Folio);
        op.refuse_if(lines.eof(), "No se encontró el recibo de caja:{}, especificado", Rp_Folio);
        op.refuse_if(lines.text("Es_Cve_Estado") == state::cancelled,
                     "Imposible cancelar el recibo de caja:{}, esta cancelado", Rp_Folio);
        const std::string deposit = lines.text("Rp_Folio_Deposito");
        check_same_day(op, lines, "Rp_Fecha", Wording::tagged);
        op.relay_unless(Valida_Poliza_Contable(document::receipt, Rp_Folio));

        release_payment_lines(op, lines);
        DocumentPaymentsService& payments = op.module().document_payments();
        op.relay_unless(payments.CancelDocumentPayments(document::receipt, Rp_Folio), payments);
        cancel_applied_payments(op, Rp_Folio, bCancelaPagos);
        cancel_advances(op, Rp_Folio);
        cancel_payables(op, Rp_Folio);
        cancel_receivables(op, Rp_Folio);
        if (!deposit.empty() && takes_deposit_along(op, Rp_Folio, deposit, bCancelaDeposito)) {
            op.relay_unless(Cancelar_Deposito(deposit));
        }
        mark_cancelled(op, Rp_Folio, stamp);
    });
}

}  // namespace cuvexa
