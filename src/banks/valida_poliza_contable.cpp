// The accounting guard that every cancellation passes first.
#include "core/operation.h"
#include "core/text.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

void refuse_if_posted_by_hand(Operation& op, const std::string& table, const std::string& document) {
    if (!op.data().IsDocumentPosted(table, document)) return;
    const std::string reason = op.data().LastErrorText();
    op.refuse("Imposible cancelar el documento, ya está contabilizado! \r\n{}",
              reason.empty() ? filled("{}: {}", table, document) : reason);
}

}  // namespace

bool Tesoreria::Valida_Poliza_Contable(const std::string& Tabla, const std::string& Documento) {
    return operation(module_, error_, "Cuvexa.dll - Valida_Poliza_Contable()", [&](Operation& op) {
        op.refuse_if(trimmed(Tabla).empty(), "No se especificó la tabla");
        op.refuse_if(trimmed(Documento).empty(), "No se especificó el documento");

        const auto accounting = op.module().suite().new_accounting();
        if (accounting->IsPostingEnabled(Tabla)) {
            op.relay_unless(accounting->ValidateVoucherCancellation(Tabla, Documento), *accounting);
        } else {
            refuse_if_posted_by_hand(op, Tabla, Documento);
        }
    });
}

}  // namespace cuvexa
