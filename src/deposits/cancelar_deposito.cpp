// Cancellation of a deposit: receipts and deposit lines first, the bank last.
#include "core/codes.h"
#include "core/operation.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

/// The sub-select must yield one value: a receipt deposited partly from 'AC' and partly from 'AP' is for the database
/// to refuse.
void restore_receipts(Operation& op, const std::string& deposit) {
    op.execute(
        "UPDATE Recibo_Pago SET "
        "   Es_Cve_Estado = (SELECT DISTINCT CASE Es_Cve_Estado "
        "                           WHEN 'DP' THEN 'AC' "
        "                           WHEN 'AD' THEN 'AP' END "
        "                        FROM Recibo_Pago a "
        "                        WHERE Rp_Folio_Deposito = '{}' AND a.Rp_Folio = Recibo_Pago.Rp_Folio), "
        "   Rp_Folio_Deposito = '', "
        "   Rp_Deposito_ID = '' "
        "WHERE Rp_Folio_Deposito = '{}'",
        deposit, deposit);
}

void cancel_lines(Operation& op, const std::string& deposit, const std::string& stamp) {
    const std::string user = op.session().GetUserName();
    op.execute(
        "UPDATE Deposito_Pago SET "
        "   Es_Cve_Estado = 'CA', "
        "   Oper_Baja = '{}', "
        "   Fecha_Baja = '{}', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Dp_Folio = '{}'",
        user, stamp, user, stamp, deposit);
}

}  // namespace

bool Tesoreria::Cancelar_Deposito(const std::string& Dp_Folio) {
    return operation(module_, error_, "Cuvexa.dll - Cancelar_Deposito()", [&](Operation& op) {
        const std::string stamp = op.server_stamp();

        auto deposit = op.query("SELECT * FROM Deposito_Pago WHERE Dp_Folio = '{}' ", Dp_Folio);
        op.refuse_if(deposit.eof(), "El depósito: {}, no existe!", Dp_Folio);
        op.refuse_if(deposit.text("Es_Cve_Estado") == state::cancelled, "El depósito: {}, está cancelado!", Dp_Folio);
        check_same_day(op, deposit, "Dp_Fecha", Wording::tagged);
        op.relay_unless(Valida_Poliza_Contable(document::deposit, Dp_Folio));

        restore_receipts(op, Dp_Folio);
        cancel_lines(op, Dp_Folio, stamp);
        op.relay_unless(Cancelar_Documento_Bancos(document::deposit, Dp_Folio));
    });
}

}  // namespace cuvexa
