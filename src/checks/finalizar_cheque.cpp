// The closing step of a check: its own voucher, and its registration as finished.
#include "core/codes.h"
#include "core/operation.h"
#include "core/posting.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

std::string company_of(Operation& op, const std::string& folio) {
    const Rows company = op.query(
        "SELECT Em_Cve_Empresa "
        "FROM Cheque "
        "   INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal "
        "WHERE "
        "   Ch_Folio = '{}' AND "
        "   Cheque.Es_Cve_Estado <> 'CA' AND "
        "   Sucursal.Es_Cve_Estado <> 'BA' ",
        folio);
    op.refuse_if(company.eof(), "No es posible determinar la empresa para la póliza");
    return company.text("Em_Cve_Empresa");
}

}  // namespace

bool Tesoreria::Finalizar_Cheque(const std::string& Ch_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Finalizar_Cheque()", [&](Operation& op) {
        const auto accounting = module_.suite().new_accounting();
        if (accounting->IsPostingEnabled(document::check)) {
            post(op, *accounting, document::check, Ch_Folio, company_of(op, Ch_Folio));
        }
        op.relay_unless(op.data().RegisterDocument(document::check, Ch_Folio), op.data());
    });
}

}  // namespace cuvexa
