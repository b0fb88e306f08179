// The hand-off of bank movements to accounting.
#include "core/codes.h"
#include "core/operation.h"
#include "core/posting.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {

bool Tesoreria::Contabiliza_Banco_Movimiento(const std::string& Bm_Folio, const std::string& Bm_Tabla,
                                             const std::string& Bm_Documento) {
    return operation(module_, error_, "Cuvexa.dll - Contabiliza_Banco_Movimiento()", [&](Operation& op) {
        const auto accounting = module_.suite().new_accounting();
        if (!accounting->IsPostingEnabled(document::bank_movement)) return;

        const bool by_document = !Bm_Documento.empty() && !Bm_Tabla.empty();
        const Part or_document =
            by_document ? part("  OR (Bm_Documento = '{}' AND Bm_Tabla = '{}' ) ) AND ", Bm_Documento, Bm_Tabla)
                        : Part(" ) AND ");
        const Rows movement = op.query(
            "SELECT Banco_Movimiento.Bm_Folio, Empresa.Em_Cve_Empresa "
            "FROM Banco_Movimiento "
            "   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta= Banco_Movimiento.Bc_Cve_Banco_Cuenta "
            "   INNER JOIN Empresa ON Empresa.Em_Cve_Empresa = Banco_Cuenta.Em_Cve_Empresa "
            "WHERE "
            "   (Bm_Folio = '{}' "
            "{}"
            "   Banco_Movimiento.Es_Cve_Estado <> 'CA' AND "
            "   Empresa.Es_Cve_Estado <> 'BA' ",
            Bm_Folio, or_document);
        op.refuse_if(movement.eof(), "No es posible determinar la empresa para la póliza");
        post(op, *accounting, document::bank_movement, movement.text("Bm_Folio"), movement.text("Em_Cve_Empresa"));
    });
}

}  // namespace cuvexa
