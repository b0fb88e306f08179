// Rules of the audit: checks, the expenses that they pay, and their requests.
#include "suite/audit_rules.h"

namespace cuvexa::reference {
namespace {

constexpr Audit_rule checks[] = {
    {"cheque-aplicado-con-renglones-abiertos", "Renglón de cheque", "importe del renglón", nullptr,
     "Cancele la aplicación del cheque y aplíquelo de nuevo.",
     "SELECT Cheque_x_Aplicar.Ch_Folio + '/' + Cheque_x_Aplicar.Cxa_ID AS Documento, "
     "   Cheque_x_Aplicar.Cxa_Importe AS Primero "
     "FROM Cheque "
     "   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio "
     "WHERE Cheque.Es_Cve_Estado = 'AP' AND Cheque_x_Aplicar.Es_Cve_Estado = 'AC' "
     "ORDER BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxa_ID"},
    {"cheque-aplicado-a-medias", "Renglón de cheque", "importe del renglón", nullptr,
     "Cancele su aplicación con Cancelar_Aplicacion_Cheque; si ha de valer, aplíquelo de nuevo.",
     "SELECT Cheque_x_Aplicar.Ch_Folio + '/' + Cheque_x_Aplicar.Cxa_ID AS Documento, "
     "   Cheque_x_Aplicar.Cxa_Importe AS Primero "
     "FROM Cheque "
     "   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio "
     "WHERE Cheque.Es_Cve_Estado IN ('AC', 'PXA') AND Cheque_x_Aplicar.Es_Cve_Estado = 'AP' "
     "ORDER BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxa_ID"},
    {"cheque-con-efectos-sin-aplicar", "Cheque", "importe del cheque", nullptr,
     "Cancele su aplicación con Cancelar_Aplicacion_Cheque; si ha de valer, aplíquelo de nuevo.",
     "SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero "
     "FROM Cheque "
     "WHERE Cheque.Es_Cve_Estado <> 'AP' AND "
     "   (EXISTS (SELECT Pc_ID FROM Pago_Cxp "
     "      WHERE Pc_Documento = Cheque.Ch_Folio AND Pc_Tabla = 'CHEQUE' AND Pago_Cxp.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar "
     "      WHERE Cxc_Documento = Cheque.Ch_Folio AND Cxc_Tabla = 'CHEQUE' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA') OR "
     "   EXISTS (SELECT Gc_Folio FROM Gasto_x_Comprobar "
     "         INNER JOIN Cuenta_x_Cobrar ON Cxc_Documento = Gc_Folio AND Cxc_Tabla = 'GASTO_X_COMPROBAR' AND "
     "            Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA' "
     "      WHERE Gc_Documento = Cheque.Ch_Folio AND Gc_Tabla = 'CHEQUE') OR "
     "   EXISTS (SELECT Gcd_ID FROM Gasto_x_Comprobar_Documento "
     "      WHERE Gc_Documento = Cheque.Ch_Folio AND Gc_Tabla = 'CHEQUE' AND "
     "         Gasto_x_Comprobar_Documento.Es_Cve_Estado = 'AP')) "
     "ORDER BY Cheque.Ch_Folio"},
    // What the lines say and what came of them, where anything ever came of them: a suite may keep its payments elsewhere.
    {"cheque-y-pagos-difieren", "Pago de cheque", "importe de sus renglones", "pagos vivos",
     "Cancele su aplicación con Cancelar_Aplicacion_Cheque; si ha de valer, aplíquelo de nuevo.",
     "SELECT Cheque_x_Aplicar.Ch_Folio + '/' + Cheque_x_Aplicar.Cxp_Folio AS Documento, "
     "   SUM(Cheque_x_Aplicar.Cxa_Importe) AS Primero, "
     "   (SELECT ISNULL(SUM(Pc_Importe_Pago),0) FROM Pago_Cxp "
     "      WHERE Pago_Cxp.Pc_Documento = Cheque_x_Aplicar.Ch_Folio AND Pago_Cxp.Pc_Tabla = 'CHEQUE' AND "
     "         Pago_Cxp.Cxp_Folio = Cheque_x_Aplicar.Cxp_Folio AND Pago_Cxp.Es_Cve_Estado <> 'CA') AS Segundo "
     "FROM Cheque "
     "   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
     "   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio "
     "WHERE Cheque.Es_Cve_Estado = 'AP' AND Tipo_Cheque.Tc_Solicitar = '01' AND "
     "   EXISTS (SELECT Pc_ID FROM Pago_Cxp "
     "      WHERE Pago_Cxp.Pc_Documento = Cheque_x_Aplicar.Ch_Folio AND Pago_Cxp.Pc_Tabla = 'CHEQUE' AND "
     "         Pago_Cxp.Cxp_Folio = Cheque_x_Aplicar.Cxp_Folio) "
     "GROUP BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxp_Folio "
     "HAVING ABS(SUM(Cheque_x_Aplicar.Cxa_Importe) - "
     "   (SELECT ISNULL(SUM(Pc_Importe_Pago),0) FROM Pago_Cxp "
     "      WHERE Pago_Cxp.Pc_Documento = Cheque_x_Aplicar.Ch_Folio AND Pago_Cxp.Pc_Tabla = 'CHEQUE' AND "
     "         Pago_Cxp.Cxp_Folio = Cheque_x_Aplicar.Cxp_Folio AND Pago_Cxp.Es_Cve_Estado <> 'CA')) >= 0.005 "
     "ORDER BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxp_Folio"},
    // Each line of such a check charges its whole amount.
    {"cheque-y-cuentas-por-cobrar-difieren", "Cheque", "importe del cheque por sus renglones",
     "cuentas por cobrar vivas",
     "Cancele su aplicación con Cancelar_Aplicacion_Cheque; si ha de valer, aplíquelo de nuevo.",
     "SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe * COUNT(Cheque_x_Aplicar.Cxa_ID) AS Primero, "
     "   (SELECT ISNULL(SUM(Cxc_Precio_Neto_Importe),0) FROM Cuenta_x_Cobrar "
     "      WHERE Cxc_Documento = Cheque.Ch_Folio AND Cxc_Tabla = 'CHEQUE' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA') AS Segundo "
     "FROM Cheque "
     "   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
     "   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio "
     "WHERE Cheque.Es_Cve_Estado = 'AP' AND Tipo_Cheque.Tc_Solicitar IN ('03', '04') AND "
     "   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar "
     "      WHERE Cxc_Documento = Cheque.Ch_Folio AND (Cxc_Tabla = 'CHEQUE' OR Cxc_Tabla LIKE 'CHEQUE-CA:%')) "
     "GROUP BY Cheque.Ch_Folio, Cheque.Ch_Importe "
     "HAVING ABS(Cheque.Ch_Importe * COUNT(Cheque_x_Aplicar.Cxa_ID) - "
     "   (SELECT ISNULL(SUM(Cxc_Precio_Neto_Importe),0) FROM Cuenta_x_Cobrar "
     "      WHERE Cxc_Documento = Cheque.Ch_Folio AND Cxc_Tabla = 'CHEQUE' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA')) >= 0.005 "
     "ORDER BY Cheque.Ch_Folio"},
    {"anticipo-a-proveedor-sin-cheque", "Cuenta por pagar", "importe del anticipo", nullptr,
     "Ningún renglón de cheque lo nombra: retírelo (Cxp_Tabla 'ANTICIPO_CXP-CA:' y su folio).",
     "SELECT Cuenta_x_Pagar.Cxp_Folio AS Documento, Cuenta_x_Pagar.Cxp_Importe AS Primero "
     "FROM Cuenta_x_Pagar "
     "WHERE Cuenta_x_Pagar.Cxp_Tabla = 'ANTICIPO_CXP' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA' AND "
     "   NOT EXISTS (SELECT Cxa_ID FROM Cheque_x_Aplicar "
     "      WHERE Cheque_x_Aplicar.Ch_Folio = Cuenta_x_Pagar.Ch_Folio AND "
     "         Cheque_x_Aplicar.Cxp_Folio = Cuenta_x_Pagar.Cxp_Folio AND Cheque_x_Aplicar.Es_Cve_Estado <> 'CA') "
     "ORDER BY Cuenta_x_Pagar.Cxp_Folio"},
    // The same from the other side: the advance was withdrawn and the check is still applied.
    {"cheque-sin-su-anticipo-a-proveedor", "Renglón de cheque", "importe del renglón", nullptr,
     "Cancele su aplicación con Cancelar_Aplicacion_Cheque; si ha de valer, aplíquelo de nuevo.",
     "SELECT Cheque_x_Aplicar.Ch_Folio + '/' + Cheque_x_Aplicar.Cxa_ID AS Documento, "
     "   Cheque_x_Aplicar.Cxa_Importe AS Primero "
     "FROM Cheque "
     "   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
     "   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio "
     "   INNER JOIN Cuenta_x_Pagar ON Cuenta_x_Pagar.Cxp_Folio = Cheque_x_Aplicar.Cxp_Folio "
     "WHERE Cheque.Es_Cve_Estado = 'AP' AND Tipo_Cheque.Tc_Solicitar = '05' AND "
     "   Cuenta_x_Pagar.Cxp_Tabla LIKE 'ANTICIPO_CXP-CA:%' "
     "ORDER BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxa_ID"},
    // The bank may confirm a movement later, so only one in transit is compared.
    {"movimiento-de-cheque-sin-marcar", "Cheque", "importe del cheque", "importe de su movimiento",
     "Cancele su aplicación con Cancelar_Aplicacion_Cheque; si ha de valer, aplíquelo de nuevo.",
     "SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero, Banco_Movimiento.Bm_Importe AS Segundo "
     "FROM Cheque "
     "   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio "
     "   INNER JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Cheque.Ch_Folio AND "
     "      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado = 'TR' "
     "WHERE Cheque.Es_Cve_Estado = 'AP' AND Cheque_x_Aplicar.Es_Cve_Estado = 'AP' AND "
     "   (Banco_Movimiento.Bm_Fecha_Firme <> Cheque_x_Aplicar.Cxa_Fecha_Aplicacion OR "
     "   (Cheque.Ch_Firme = 'SI' AND Banco_Movimiento.Fecha_Ult_Modif < Cheque.Fecha_Ult_Modif)) "
     "ORDER BY Cheque.Ch_Folio"},
    {"aplicacion-de-cheque-cancelada-a-medias", "Cheque", "importe del cheque", "importe de su movimiento",
     "Su movimiento sigue como si estuviera aplicado: cancele su aplicación otra vez con Cancelar_Aplicacion_Cheque.",
     "SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero, Banco_Movimiento.Bm_Importe AS Segundo "
     "FROM Cheque "
     "   INNER JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Cheque.Ch_Folio AND "
     "      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA' "
     "WHERE Cheque.Es_Cve_Estado = 'AC' AND Cheque.Ch_Aplicar = 'SI' AND "
     "   (Banco_Movimiento.Es_Cve_Estado = 'FI' OR Banco_Movimiento.Bm_Fecha_Firme <> Banco_Movimiento.Bm_Fecha) "
     "ORDER BY Cheque.Ch_Folio"},
    {"cheque-sin-encabezado", "Cheque", "importe de sus renglones", nullptr,
     "Su captura no terminó: créelo, o cancele sus renglones.",
     "SELECT Cheque_x_Aplicar.Ch_Folio AS Documento, SUM(Cheque_x_Aplicar.Cxa_Importe) AS Primero "
     "FROM Cheque_x_Aplicar "
     "   LEFT JOIN Cheque ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio "
     "WHERE Cheque.Ch_Folio IS NULL AND Cheque_x_Aplicar.Es_Cve_Estado <> 'CA' "
     "GROUP BY Cheque_x_Aplicar.Ch_Folio "
     "ORDER BY Cheque_x_Aplicar.Ch_Folio"},
    // A transfer between own accounts names its destination and has no movement.
    {"cheque-sin-movimiento", "Cheque", "importe del cheque", nullptr,
     "Si su presupuesto se controla, páselo otra vez por Afectar_Cheque_Presupuesto; si queda activo, registre su "
     "movimiento con Registra_Movimiento_Bancario_Cheque. Si no se puede, cancélelo con Cancelar_Cheque o, si no "
     "tiene renglones, póngalo en 'CA'.",
     "SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero "
     "FROM Cheque "
     "   LEFT JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Cheque.Ch_Folio AND "
     "      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA' "
     "WHERE Cheque.Es_Cve_Estado IN ('AC', 'AP') AND Cheque.Ch_Cuenta_Destino = '' AND "
     "   Banco_Movimiento.Bm_Folio IS NULL "
     "ORDER BY Cheque.Ch_Folio"},
    {"cheque-duplicado", "Cheque", "importe del cheque", nullptr, "Cancele el que sobra con Cancelar_Cheque.",
     "SELECT MAX(Ch_Folio) AS Documento, MAX(Ch_Importe) AS Primero "
     "FROM Cheque "
     "WHERE Es_Cve_Estado <> 'CA' AND Ch_Referencia <> '' "
     "GROUP BY Ch_Referencia, Bc_Cve_Banco_Cuenta, Ch_Transferencia "
     "HAVING COUNT(*) > 1 "
     "ORDER BY Documento"},
    {"cheque-sin-finalizar", "Cheque", "importe del cheque", nullptr,
     "Tiene póliza y no está registrado: finalícelo otra vez con Finalizar_Cheque.",
     "SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero "
     "FROM Cheque "
     "   INNER JOIN Poliza ON Poliza.Pz_Documento = Cheque.Ch_Folio AND Poliza.Pz_Tabla = 'CHEQUE' AND "
     "      Poliza.Es_Cve_Estado <> 'CA' "
     "WHERE Cheque.Es_Cve_Estado <> 'CA' AND "
     "   NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado "
     "      WHERE Dr_Documento = Cheque.Ch_Folio AND Dr_Codigo = 'CHEQUE') "
     "ORDER BY Cheque.Ch_Folio"},
    {"cheque-de-solicitud-cancelada", "Cheque", "importe del cheque", nullptr,
     "La solicitud que paga está cancelada: cancele el cheque.",
     "SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero "
     "FROM Cheque "
     "   INNER JOIN Solicitud_Cheque ON Solicitud_Cheque.Sch_Folio = Cheque.Ch_Documento "
     "WHERE Cheque.Ch_Tabla = 'SOLICITUD_CHEQUE' AND Cheque.Es_Cve_Estado <> 'CA' AND Solicitud_Cheque.Es_Cve_Estado = 'CA' "
     "ORDER BY Cheque.Ch_Folio"},
    {"cheque-cancelado-a-medias", "Cheque", "importe del cheque", nullptr,
     "Cancele el cheque otra vez; si ya no tiene movimiento vivo, cancele sus renglones.",
     "SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero "
     "FROM Cheque "
     "   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio "
     "WHERE Cheque.Es_Cve_Estado = 'CA' AND Cheque_x_Aplicar.Es_Cve_Estado <> 'CA' "
     "ORDER BY Cheque.Ch_Folio"},
    {"movimiento-de-cheque-cancelado", "Movimiento bancario", "importe del movimiento", nullptr,
     "Su cheque está cancelado: cancele el movimiento.",
     "SELECT Banco_Movimiento.Bm_Folio AS Documento, Banco_Movimiento.Bm_Importe AS Primero "
     "FROM Banco_Movimiento "
     "   INNER JOIN Cheque ON Cheque.Ch_Folio = Banco_Movimiento.Bm_Documento AND Cheque.Es_Cve_Estado = 'CA' "
     "WHERE Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA' "
     "ORDER BY Banco_Movimiento.Bm_Folio"},
};

constexpr Audit_rule expenses[] = {
    {"gasto-por-comprobar-sin-pagar", "Gasto por comprobar", "importe del gasto", nullptr,
     "Su cheque ya tiene movimiento: márquelo pagado ('PA').",
     "SELECT Gasto_x_Comprobar.Gc_Folio AS Documento, Gasto_x_Comprobar.Gc_Importe AS Primero "
     "FROM Gasto_x_Comprobar "
     "   INNER JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Gasto_x_Comprobar.Gc_Documento AND "
     "      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA' "
     "WHERE Gasto_x_Comprobar.Gc_Tabla = 'CHEQUE' AND Gasto_x_Comprobar.Es_Cve_Estado = 'PXA' "
     "ORDER BY Gasto_x_Comprobar.Gc_Folio"},
    {"cheque-de-gasto-sin-gasto", "Cheque", "importe del cheque", nullptr,
     "Cancele el cheque con Cancelar_Cheque y créelo de nuevo.",
     "SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero "
     "FROM Cheque "
     "   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
     "   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio "
     "WHERE Cheque.Es_Cve_Estado <> 'CA' AND Tipo_Cheque.Tc_Solicitar = '02' AND "
     "   NOT EXISTS (SELECT Gc_Folio FROM Gasto_x_Comprobar "
     "      WHERE Gasto_x_Comprobar.Gc_Folio = Cheque_x_Aplicar.Cxp_Folio AND Gasto_x_Comprobar.Es_Cve_Estado <> 'CA') "
     "ORDER BY Cheque.Ch_Folio"},
    {"cheque-y-gasto-difieren", "Cheque", "importe del gasto", "cuentas por cobrar vivas del gasto",
     "Cancele su aplicación con Cancelar_Aplicacion_Cheque; si ha de valer, aplíquelo de nuevo.",
     "SELECT Cheque.Ch_Folio AS Documento, Gasto_x_Comprobar.Gc_Importe AS Primero, "
     "   (SELECT ISNULL(SUM(Cxc_Precio_Neto_Importe),0) FROM Cuenta_x_Cobrar "
     "      WHERE Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND Cxc_Tabla = 'GASTO_X_COMPROBAR' AND "
     "         Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA') AS Segundo "
     "FROM Cheque "
     "   INNER JOIN Gasto_x_Comprobar ON Gasto_x_Comprobar.Gc_Documento = Cheque.Ch_Folio AND "
     "      Gasto_x_Comprobar.Gc_Tabla = 'CHEQUE' "
     "WHERE Cheque.Es_Cve_Estado = 'AP' AND "
     "   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND "
     "      (Cxc_Tabla = 'GASTO_X_COMPROBAR' OR Cxc_Tabla LIKE 'GASTO_X_COMPROBAR-CA:%')) AND "
     "   ABS(Gasto_x_Comprobar.Gc_Importe - "
     "   (SELECT ISNULL(SUM(Cxc_Precio_Neto_Importe),0) FROM Cuenta_x_Cobrar "
     "      WHERE Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND Cxc_Tabla = 'GASTO_X_COMPROBAR' AND "
     "         Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA')) >= 0.005 "
     "ORDER BY Cheque.Ch_Folio"},
    {"anticipo-aplicado-a-medias", "Pago de cuenta por cobrar", "importe del pago", nullptr,
     "No tiene contraparte en la cuenta del anticipo: cancele el pago en cuentas por cobrar.",
     "SELECT Pago_Cxc.Cxc_Folio + ':' + Pago_Cxc.Pc_ID AS Documento, Pago_Cxc.Pc_Importe AS Primero "
     "FROM Pago_Cxc "
     "WHERE Pago_Cxc.Pc_Tabla = 'ANTICIPO_CXC' AND Pago_Cxc.Es_Cve_Estado <> 'CA' AND Pago_Cxc.Pc_Referencia <> '' AND "
     "   NOT EXISTS (SELECT Propio.Pc_ID FROM Cuenta_x_Cobrar "
     "         INNER JOIN Pago_Cxc Propio ON Propio.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio "
     "      WHERE Cuenta_x_Cobrar.Cxc_Documento = Pago_Cxc.Pc_Documento AND Cuenta_x_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND "
     "         Propio.Pc_Referencia = Pago_Cxc.Pc_Referencia AND Propio.Es_Cve_Estado <> 'CA') "
     "ORDER BY Pago_Cxc.Cxc_Folio, Pago_Cxc.Pc_ID"},
    {"cheque-sin-sus-anticipos", "Cheque", "importe del cheque", nullptr,
     "Cancele su aplicación con Cancelar_Aplicacion_Cheque; si ha de valer, aplíquelo de nuevo.",
     "SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero "
     "FROM Cheque "
     "   INNER JOIN Gasto_x_Comprobar ON Gasto_x_Comprobar.Gc_Documento = Cheque.Ch_Folio AND "
     "      Gasto_x_Comprobar.Gc_Tabla = 'CHEQUE' "
     "   INNER JOIN Gasto_x_Comprobar_Documento ON Gasto_x_Comprobar_Documento.Gc_Documento = Cheque.Ch_Folio AND "
     "      Gasto_x_Comprobar_Documento.Gc_Tabla = 'CHEQUE' "
     "WHERE Cheque.Es_Cve_Estado = 'AP' AND "
     "   ((Gasto_x_Comprobar_Documento.Es_Cve_Estado = 'AP' AND "
     "      (SELECT ISNULL(SUM(Pago_Cxc.Pc_Importe),0) FROM Cuenta_x_Cobrar "
     "            INNER JOIN Pago_Cxc ON Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio "
     "         WHERE Cuenta_x_Cobrar.Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND "
     "            Cuenta_x_Cobrar.Cxc_Tabla = 'GASTO_X_COMPROBAR' AND Pago_Cxc.Pc_Tabla = 'ANTICIPO_CXC' AND "
     "            Pago_Cxc.Pc_Documento = Gasto_x_Comprobar_Documento.Cxc_Folio AND Pago_Cxc.Es_Cve_Estado <> 'CA') "
     "         NOT BETWEEN Gasto_x_Comprobar_Documento.Cxc_Importe - 0.005 AND "
     "            Gasto_x_Comprobar_Documento.Cxc_Importe + 0.005) OR "
     "   (Gasto_x_Comprobar_Documento.Es_Cve_Estado = 'CA' AND "
     "      EXISTS (SELECT Pc_ID FROM Cuenta_x_Cobrar "
     "            INNER JOIN Pago_Cxc ON Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio "
     "         WHERE Cuenta_x_Cobrar.Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND "
     "            Cuenta_x_Cobrar.Cxc_Tabla = 'GASTO_X_COMPROBAR' AND Pago_Cxc.Pc_Tabla = 'ANTICIPO_CXC' AND "
     "            Pago_Cxc.Pc_Documento = Gasto_x_Comprobar_Documento.Cxc_Folio AND Pago_Cxc.Es_Cve_Estado = 'CA' AND "
     "            Pago_Cxc.Fecha_Baja > Cheque.Fecha_Ult_Modif)) OR "
     "   NOT EXISTS (SELECT Aplicado.Gcd_ID FROM Gasto_x_Comprobar_Documento Aplicado "
     "      WHERE Aplicado.Gc_Documento = Cheque.Ch_Folio AND Aplicado.Gc_Tabla = 'CHEQUE' AND Aplicado.Es_Cve_Estado = 'AP')) "
     "ORDER BY Cheque.Ch_Folio"},
};

constexpr Audit_rule requests[] = {
    {"solicitud-cancelada-a-medias", "Solicitud de cheque", "importe de la solicitud", nullptr,
     "Todos sus renglones están cancelados y ella no: cancélela otra vez.",
     "SELECT Solicitud_Cheque.Sch_Folio AS Documento, Solicitud_Cheque.Sch_Importe AS Primero "
     "FROM Solicitud_Cheque "
     "WHERE Solicitud_Cheque.Es_Cve_Estado <> 'CA' AND "
     "   EXISTS (SELECT Scd_Id FROM Solicitud_Cheque_Detalle "
     "      WHERE Solicitud_Cheque_Detalle.Sch_Folio = Solicitud_Cheque.Sch_Folio) AND "
     "   NOT EXISTS (SELECT Scd_Id FROM Solicitud_Cheque_Detalle "
     "      WHERE Solicitud_Cheque_Detalle.Sch_Folio = Solicitud_Cheque.Sch_Folio AND "
     "         Solicitud_Cheque_Detalle.Es_Cve_Estado <> 'CA') "
     "ORDER BY Solicitud_Cheque.Sch_Folio"},
    {"solicitud-autorizada-a-medias", "Solicitud de cheque", "importe de la solicitud", nullptr,
     "Está activa y un renglón suyo espera autorización: autorícela otra vez.",
     "SELECT DISTINCT Solicitud_Cheque.Sch_Folio AS Documento, Solicitud_Cheque.Sch_Importe AS Primero "
     "FROM Solicitud_Cheque "
     "   INNER JOIN Solicitud_Cheque_Detalle ON Solicitud_Cheque_Detalle.Sch_Folio = Solicitud_Cheque.Sch_Folio "
     "WHERE Solicitud_Cheque.Es_Cve_Estado = 'AC' AND Solicitud_Cheque_Detalle.Es_Cve_Estado = 'PXA' "
     "ORDER BY Solicitud_Cheque.Sch_Folio"},
};

}  // namespace

std::span<const Audit_rule> check_rules() {
    return checks;
}
std::span<const Audit_rule> expense_rules() {
    return expenses;
}
std::span<const Audit_rule> request_rules() {
    return requests;
}

}  // namespace cuvexa::reference
