#include "suite/document_payments_service.h"

#include "core/case.h"
#include "core/codes.h"
#include "suite/receivable_ledger.h"

namespace cuvexa::reference {

bool Document_payments::CancelDocumentPayments(const std::string& document_code, const std::string& folio) {
    return serve(last_error_, [&] {
        if (same_text(document_code, document::receipt)) return;
        Receivable_ledger ledger(*context_);
        Rows payments = context_->query(
            "SELECT Cxc_Folio, Pc_ID FROM Pago_Cxc "
            "WHERE Pc_Documento = '{}' AND Pc_Tabla = '{}' AND Es_Cve_Estado <> 'CA' ORDER BY Cxc_Folio, Pc_ID",
            folio, document_code);
        for (; !payments.eof(); payments.next()) {
            ledger.cancel_payment(payments.text("Cxc_Folio"), payments.text("Pc_ID"));
        }
    });
}

}  // namespace cuvexa::reference
