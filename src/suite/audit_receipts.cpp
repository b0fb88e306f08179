// Rules of the audit: cash receipts and what their closing made.
#include "suite/audit_rules.h"

namespace cuvexa::reference {
namespace {

constexpr const char* cancel_and_capture =
    "Cancélelo con Cancelar_Recibo_Caja, con sus pagos; si ha de valer, captúrelo de nuevo. Si nombra un depósito en el "
    "que no está, vacíe antes ese folio en sus renglones; si parte de él ya está cancelada, ponga los demás "
    "en 'CA'.";

constexpr Audit_rule receipts[] = {
    {"recibo-cerrado-a-medias", "Recibo de caja", "importe del recibo", nullptr, cancel_and_capture,
     "SELECT Recibo_Pago.Rp_Folio AS Documento, SUM(Recibo_Pago.Rp_Importe) AS Primero "
     "FROM Recibo_Pago "
     "WHERE Recibo_Pago.Es_Cve_Estado <> 'CA' AND "
     "   NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado "
     "      WHERE Dr_Documento = Recibo_Pago.Rp_Folio AND Dr_Codigo = 'RECIBO_PAGO') AND "
     "   (EXISTS (SELECT Pc_ID FROM Pago_Cxc WHERE Pc_Documento = Recibo_Pago.Rp_Folio AND Pc_Tabla = 'RECIBO_PAGO' AND "
     "      Pago_Cxc.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT An_Folio FROM Anticipo_Cxc WHERE An_Documento = Recibo_Pago.Rp_Folio AND An_Tabla = 'RECIBO_PAGO' AND "
     "      Anticipo_Cxc.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT Cxp_Folio FROM Cuenta_x_Pagar WHERE Cxp_Documento = Recibo_Pago.Rp_Folio AND "
     "      Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Documento = Recibo_Pago.Rp_Folio AND "
     "      Cxc_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT Pz_Folio FROM Poliza WHERE Pz_Documento = Recibo_Pago.Rp_Folio AND Pz_Tabla = 'RECIBO_PAGO' AND "
     "      Poliza.Es_Cve_Estado <> 'CA')) "
     "GROUP BY Recibo_Pago.Rp_Folio "
     "ORDER BY Recibo_Pago.Rp_Folio"},
    // Those that a closing applies: payments and advance of a customer, payables of a supplier.
    {"recibo-y-aplicacion-difieren", "Recibo de caja", "importe del recibo",
     "pagos, anticipos y cuentas por pagar vivos", cancel_and_capture,
     "SELECT Recibo_Pago.Rp_Folio AS Documento, SUM(Recibo_Pago.Rp_Importe) AS Primero, "
     "   (SELECT ISNULL(SUM(Pc_Importe_Pago),0) FROM Pago_Cxc WHERE Pc_Documento = Recibo_Pago.Rp_Folio AND "
     "      Pc_Tabla = 'RECIBO_PAGO' AND Pago_Cxc.Es_Cve_Estado <> 'CA') + "
     "   (SELECT ISNULL(SUM(An_Importe),0) FROM Anticipo_Cxc WHERE An_Documento = Recibo_Pago.Rp_Folio AND "
     "      An_Tabla = 'RECIBO_PAGO' AND Anticipo_Cxc.Es_Cve_Estado <> 'CA') + "
     "   (SELECT ISNULL(SUM(Cxp_Importe),0) FROM Cuenta_x_Pagar WHERE Cxp_Documento = Recibo_Pago.Rp_Folio AND "
     "      Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA') AS Segundo "
     "FROM Recibo_Pago "
     "   INNER JOIN Tipo_Recibo_Pago ON "
     "      Tipo_Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago = Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago "
     "WHERE Recibo_Pago.Es_Cve_Estado IN ('AP', 'AD') AND Tipo_Recibo_Pago.Trp_Solicitar IN ('02', '03', '04') "
     "GROUP BY Recibo_Pago.Rp_Folio "
     "HAVING ABS(SUM(Recibo_Pago.Rp_Importe) - "
     "   (SELECT ISNULL(SUM(Pc_Importe_Pago),0) FROM Pago_Cxc WHERE Pc_Documento = Recibo_Pago.Rp_Folio AND "
     "      Pc_Tabla = 'RECIBO_PAGO' AND Pago_Cxc.Es_Cve_Estado <> 'CA') - "
     "   (SELECT ISNULL(SUM(An_Importe),0) FROM Anticipo_Cxc WHERE An_Documento = Recibo_Pago.Rp_Folio AND "
     "      An_Tabla = 'RECIBO_PAGO' AND Anticipo_Cxc.Es_Cve_Estado <> 'CA') - "
     "   (SELECT ISNULL(SUM(Cxp_Importe),0) FROM Cuenta_x_Pagar WHERE Cxp_Documento = Recibo_Pago.Rp_Folio AND "
     "      Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA')) >= 0.005 "
     "ORDER BY Recibo_Pago.Rp_Folio"},
    // A closing makes one receivable per payment method of that customer.
    {"recibo-y-cuentas-por-cobrar-difieren", "Recibo de caja", nullptr, nullptr, cancel_and_capture,
     "SELECT Cuenta_x_Cobrar.Cxc_Documento AS Documento, "
     "   'sus cuentas por cobrar vivas no son las de sus formas de pago' AS Detalle "
     "FROM Cuenta_x_Cobrar "
     "WHERE Cuenta_x_Cobrar.Cxc_Tabla = 'RECIBO_PAGO' AND "
     "   EXISTS (SELECT Rp_Id FROM Recibo_Pago "
     "      WHERE Recibo_Pago.Rp_Folio = Cuenta_x_Cobrar.Cxc_Documento AND Recibo_Pago.Es_Cve_Estado <> 'CA') "
     "GROUP BY Cuenta_x_Cobrar.Cxc_Documento, Cuenta_x_Cobrar.Cl_Cve_Cliente "
     "HAVING (SUM(CASE WHEN Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' THEN 0 ELSE 1 END) > 1 AND "
     "      SUM(CASE WHEN Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' THEN 0 ELSE 1 END) > "
     "   (SELECT COUNT(DISTINCT Recibo_Pago.Fp_Cve_Forma_Pago) FROM Recibo_Pago "
     "         INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago "
     "      WHERE Recibo_Pago.Rp_Folio = Cuenta_x_Cobrar.Cxc_Documento AND "
     "         Forma_Pago.Fp_Cliente = Cuenta_x_Cobrar.Cl_Cve_Cliente)) OR "
     "   (SUM(CASE WHEN Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' THEN 1 ELSE 0 END) > 0 AND "
     "      SUM(CASE WHEN Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' THEN 0 ELSE 1 END) < "
     "   (SELECT COUNT(DISTINCT Recibo_Pago.Fp_Cve_Forma_Pago) FROM Recibo_Pago "
     "         INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago "
     "      WHERE Recibo_Pago.Rp_Folio = Cuenta_x_Cobrar.Cxc_Documento AND "
     "         Forma_Pago.Fp_Cliente = Cuenta_x_Cobrar.Cl_Cve_Cliente)) "
     "ORDER BY Documento"},
    {"aplicacion-de-recibo-cancelado", "Recibo de caja", "importe del recibo", nullptr,
     "Está cancelado: cancele en cuentas por cobrar y por pagar lo que dejó su cierre.",
     "SELECT Recibo_Pago.Rp_Folio AS Documento, SUM(Recibo_Pago.Rp_Importe) AS Primero "
     "FROM Recibo_Pago "
     "WHERE Recibo_Pago.Es_Cve_Estado = 'CA' AND "
     "   (EXISTS (SELECT Pc_ID FROM Pago_Cxc WHERE Pc_Documento = Recibo_Pago.Rp_Folio AND Pc_Tabla = 'RECIBO_PAGO' AND "
     "      Pago_Cxc.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT An_Folio FROM Anticipo_Cxc WHERE An_Documento = Recibo_Pago.Rp_Folio AND An_Tabla = 'RECIBO_PAGO' AND "
     "      Anticipo_Cxc.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT Cxp_Folio FROM Cuenta_x_Pagar WHERE Cxp_Documento = Recibo_Pago.Rp_Folio AND "
     "      Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Documento = Recibo_Pago.Rp_Folio AND "
     "      Cxc_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA')) "
     "GROUP BY Recibo_Pago.Rp_Folio "
     "ORDER BY Recibo_Pago.Rp_Folio"},
};

}  // namespace

std::span<const Audit_rule> receipt_rules() {
    return receipts;
}

}  // namespace cuvexa::reference
