// Rules of the audit: receivables, payables, advances and vouchers.
#include "suite/audit_rules.h"

namespace cuvexa::reference {
namespace {

constexpr Audit_rule ledgers[] = {
    {"saldo-de-cuenta-por-cobrar", "Cuenta por cobrar", "saldo", "importe menos pagos vivos",
     "Corrija Cxc_Precio_Neto_Saldo y Cxc_Precio_Neto_Pago según sus pagos vivos.",
     "SELECT Cuenta_x_Cobrar.Cxc_Folio AS Documento, Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo AS Primero, "
     "   Cuenta_x_Cobrar.Cxc_Precio_Neto_Importe - ISNULL(SUM(Pago_Cxc.Pc_Importe),0) AS Segundo "
     "FROM Cuenta_x_Cobrar "
     "   LEFT JOIN Pago_Cxc ON Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio AND Pago_Cxc.Es_Cve_Estado <> 'CA' AND "
     "      Pago_Cxc.Pc_Afecta_Saldo = 'SI' "
     "WHERE Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA' "
     "GROUP BY Cuenta_x_Cobrar.Cxc_Folio, Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo, "
     "   Cuenta_x_Cobrar.Cxc_Precio_Neto_Importe "
     "HAVING ABS(Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo - Cuenta_x_Cobrar.Cxc_Precio_Neto_Importe + "
     "   ISNULL(SUM(Pago_Cxc.Pc_Importe),0)) >= 0.005 "
     "ORDER BY Cuenta_x_Cobrar.Cxc_Folio"},
    {"saldo-de-cuenta-por-pagar", "Cuenta por pagar", "saldo", "importe menos pagos vivos",
     "Corrija Cxp_Precio_Neto_Saldo y Cxp_Precio_Neto_Pago según sus pagos vivos.",
     "SELECT Cuenta_x_Pagar.Cxp_Folio AS Documento, Cuenta_x_Pagar.Cxp_Precio_Neto_Saldo AS Primero, "
     "   Cuenta_x_Pagar.Cxp_Precio_Neto_Importe - ISNULL(SUM(Pago_Cxp.Pc_Importe),0) AS Segundo "
     "FROM Cuenta_x_Pagar "
     "   LEFT JOIN Pago_Cxp ON Pago_Cxp.Cxp_Folio = Cuenta_x_Pagar.Cxp_Folio AND Pago_Cxp.Es_Cve_Estado <> 'CA' "
     "WHERE Cuenta_x_Pagar.Es_Cve_Estado <> 'CA' "
     "GROUP BY Cuenta_x_Pagar.Cxp_Folio, Cuenta_x_Pagar.Cxp_Precio_Neto_Saldo, "
     "   Cuenta_x_Pagar.Cxp_Precio_Neto_Importe "
     "HAVING ABS(Cuenta_x_Pagar.Cxp_Precio_Neto_Saldo - Cuenta_x_Pagar.Cxp_Precio_Neto_Importe + "
     "   ISNULL(SUM(Pago_Cxp.Pc_Importe),0)) >= 0.005 "
     "ORDER BY Cuenta_x_Pagar.Cxp_Folio"},
    {"cuenta-de-anticipo-sin-anticipo", "Cuenta por cobrar", "importe", nullptr,
     "Su anticipo no existe: cancélela ('CA').",
     "SELECT Cuenta_x_Cobrar.Cxc_Folio AS Documento, Cuenta_x_Cobrar.Cxc_Importe AS Primero "
     "FROM Cuenta_x_Cobrar "
     "WHERE Cuenta_x_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA' AND "
     "   NOT EXISTS (SELECT An_Folio FROM Anticipo_Cxc WHERE An_Folio = Cuenta_x_Cobrar.Cxc_Documento) "
     "ORDER BY Cuenta_x_Cobrar.Cxc_Folio"},
    {"anticipo-sin-su-cuenta", "Anticipo de cliente", "importe del anticipo", nullptr,
     "Su cuenta por cobrar está cancelada: cancélelo también ('CA').",
     "SELECT Anticipo_Cxc.An_Folio AS Documento, Anticipo_Cxc.An_Importe AS Primero "
     "FROM Anticipo_Cxc "
     "   INNER JOIN Cuenta_x_Cobrar ON Cuenta_x_Cobrar.Cxc_Documento = Anticipo_Cxc.An_Folio AND "
     "      Cuenta_x_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' "
     "WHERE Anticipo_Cxc.Es_Cve_Estado <> 'CA' "
     "ORDER BY Anticipo_Cxc.An_Folio"},
    {"anticipo-usado-con-saldo", "Anticipo de cliente", "importe del anticipo", "saldo de su cuenta por cobrar",
     "No está usado del todo: regréselo a 'AC'.",
     "SELECT Anticipo_Cxc.An_Folio AS Documento, Anticipo_Cxc.An_Importe AS Primero, "
     "   Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo AS Segundo "
     "FROM Anticipo_Cxc "
     "   INNER JOIN Cuenta_x_Cobrar ON Cuenta_x_Cobrar.Cxc_Documento = Anticipo_Cxc.An_Folio AND "
     "      Cuenta_x_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA' "
     "WHERE Anticipo_Cxc.Es_Cve_Estado = 'AP' AND ABS(Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo) >= 0.005 "
     "ORDER BY Anticipo_Cxc.An_Folio"},
};

constexpr Audit_rule vouchers[] = {
    {"poliza-descuadrada", "Póliza", "cargos", "abonos",
     "Corrija la póliza en contabilidad, o cancélela y genérela de nuevo.",
     "SELECT Poliza.Pz_Folio AS Documento, ISNULL(SUM(Poliza_Detalle.Pzd_Cargo),0) AS Primero, "
     "   ISNULL(SUM(Poliza_Detalle.Pzd_Abono),0) AS Segundo "
     "FROM Poliza "
     "   LEFT JOIN Poliza_Detalle ON Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio "
     "WHERE Poliza.Es_Cve_Estado <> 'CA' "
     "GROUP BY Poliza.Pz_Folio "
     "HAVING ABS(ISNULL(SUM(Poliza_Detalle.Pzd_Cargo),0) - ISNULL(SUM(Poliza_Detalle.Pzd_Abono),0)) >= 0.005 OR "
     "   COUNT(Poliza_Detalle.Pzd_ID) = 0 "
     "ORDER BY Poliza.Pz_Folio"},
    {"renglones-sin-poliza", "Póliza", "cargos", "abonos", "Su póliza no llegó a escribirse: borre sus renglones.",
     "SELECT Poliza_Detalle.Pz_Folio AS Documento, SUM(Poliza_Detalle.Pzd_Cargo) AS Primero, "
     "   SUM(Poliza_Detalle.Pzd_Abono) AS Segundo "
     "FROM Poliza_Detalle "
     "WHERE NOT EXISTS (SELECT Poliza.Pz_Folio FROM Poliza WHERE Poliza.Pz_Folio = Poliza_Detalle.Pz_Folio) "
     "GROUP BY Poliza_Detalle.Pz_Folio "
     "ORDER BY Poliza_Detalle.Pz_Folio"},
    {"poliza-duplicada", "Póliza", nullptr, nullptr, "Cancele la que sobra ('CA').",
     "SELECT MAX(Pz_Folio) AS Documento, 'hay más de una viva de su documento' AS Detalle "
     "FROM Poliza "
     "WHERE Es_Cve_Estado <> 'CA' AND Pz_Documento <> '' "
     "GROUP BY Pz_Tabla, Pz_Documento "
     "HAVING COUNT(*) > 1 "
     "ORDER BY Documento"},
    {"documento-con-poliza-cancelada", "Documento", nullptr, nullptr,
     "Su póliza está cancelada y él no: cancélelo otra vez, o contabilícelo de nuevo.",
     "SELECT DISTINCT Poliza.Pz_Documento AS Documento, 'su póliza está cancelada y él no' AS Detalle "
     "FROM Poliza "
     "WHERE Poliza.Es_Cve_Estado = 'CA' AND "
     "   NOT EXISTS (SELECT Viva.Pz_Folio FROM Poliza Viva WHERE Viva.Pz_Documento = Poliza.Pz_Documento AND "
     "      Viva.Pz_Tabla = Poliza.Pz_Tabla AND Viva.Es_Cve_Estado <> 'CA') AND "
     "   ((Poliza.Pz_Tabla = 'RECIBO_PAGO' AND EXISTS (SELECT Rp_Id FROM Recibo_Pago "
     "      WHERE Rp_Folio = Poliza.Pz_Documento AND Recibo_Pago.Es_Cve_Estado <> 'CA')) OR "
     "   (Poliza.Pz_Tabla = 'DEPOSITO_PAGO' AND EXISTS (SELECT Dp_Id FROM Deposito_Pago "
     "      WHERE Dp_Folio = Poliza.Pz_Documento AND Deposito_Pago.Es_Cve_Estado <> 'CA')) OR "
     "   (Poliza.Pz_Tabla = 'CHEQUE' AND EXISTS (SELECT Ch_Folio FROM Cheque "
     "      WHERE Cheque.Ch_Folio = Poliza.Pz_Documento AND Cheque.Es_Cve_Estado <> 'CA')) OR "
     "   (Poliza.Pz_Tabla = 'BANCO_MOVIMIENTO' AND EXISTS (SELECT Bm_Folio FROM Banco_Movimiento "
     "      WHERE Bm_Folio = Poliza.Pz_Documento AND Banco_Movimiento.Es_Cve_Estado <> 'CA'))) "
     "ORDER BY Poliza.Pz_Documento"},
};

}  // namespace

std::span<const Audit_rule> ledger_rules() {
    return ledgers;
}
std::span<const Audit_rule> voucher_rules() {
    return vouchers;
}

}  // namespace cuvexa::reference
