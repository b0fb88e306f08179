// Rules of the audit: numbers, balances, deposits and bank movements.
#include "suite/audit_rules.h"

namespace cuvexa::reference {
namespace {

constexpr Audit_rule numbers[] = {
    {"importe-que-no-es-un-numero", nullptr, nullptr, nullptr,
     "Cancele el movimiento que lo causó, si lo hay; después ponga en la columna el importe que corresponde.",
     "SELECT 'Cuenta bancaria ' + Bc_Cve_Banco_Cuenta AS Documento, "
     "   'Bc_Saldo no es un número finito' AS Detalle FROM Banco_Cuenta "
     "WHERE Bc_Saldo IS NULL OR Bc_Saldo NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Banco ' + Bn_Cve_Banco AS Documento, "
     "   'Bn_Saldo no es un número finito' AS Detalle FROM Banco "
     "WHERE Bn_Saldo IS NULL OR Bn_Saldo NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Movimiento bancario ' + Bm_Folio AS Documento, "
     "   'Bm_Importe no es un número finito' AS Detalle FROM Banco_Movimiento "
     "WHERE Bm_Importe IS NULL OR Bm_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Renglón de recibo ' + Rp_Folio + '/' + Rp_Id AS Documento, "
     "   'Rp_Importe no es un número finito' AS Detalle FROM Recibo_Pago "
     "WHERE Rp_Importe IS NULL OR Rp_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Renglón de depósito ' + Dp_Folio + '/' + Dp_Id AS Documento, "
     "   'Dp_Importe no es un número finito' AS Detalle FROM Deposito_Pago "
     "WHERE Dp_Importe IS NULL OR Dp_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Cheque ' + Ch_Folio AS Documento, "
     "   'Ch_Importe no es un número finito' AS Detalle FROM Cheque "
     "WHERE Ch_Importe IS NULL OR Ch_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Renglón de cheque ' + Ch_Folio + '/' + Cxa_ID AS Documento, "
     "   'Cxa_Importe no es un número finito' AS Detalle FROM Cheque_x_Aplicar "
     "WHERE Cxa_Importe IS NULL OR Cxa_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Gasto por comprobar ' + Gc_Folio AS Documento, "
     "   'Gc_Importe no es un número finito' AS Detalle FROM Gasto_x_Comprobar "
     "WHERE Gc_Importe IS NULL OR Gc_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Cuenta por cobrar ' + Cxc_Folio AS Documento, "
     "   'Cxc_Precio_Neto_Saldo no es un número finito' AS Detalle FROM Cuenta_x_Cobrar "
     "WHERE Cxc_Precio_Neto_Saldo IS NULL OR Cxc_Precio_Neto_Saldo NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Cuenta por pagar ' + Cxp_Folio AS Documento, "
     "   'Cxp_Precio_Neto_Saldo no es un número finito' AS Detalle FROM Cuenta_x_Pagar "
     "WHERE Cxp_Precio_Neto_Saldo IS NULL OR Cxp_Precio_Neto_Saldo NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Pago de cuenta por cobrar ' + Cxc_Folio + ':' + Pc_ID AS Documento, "
     "   'Pc_Importe no es un número finito' AS Detalle FROM Pago_Cxc "
     "WHERE Pc_Importe IS NULL OR Pc_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Pago de cuenta por pagar ' + Cxp_Folio + ':' + Pc_ID AS Documento, "
     "   'Pc_Importe no es un número finito' AS Detalle FROM Pago_Cxp "
     "WHERE Pc_Importe IS NULL OR Pc_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Renglón de póliza ' + Pz_Folio + '/' + Pzd_ID AS Documento, "
     "   'Pzd_Cargo no es un número finito' AS Detalle FROM Poliza_Detalle "
     "WHERE Pzd_Cargo IS NULL OR Pzd_Cargo NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Renglón de póliza ' + Pz_Folio + '/' + Pzd_ID AS Documento, "
     "   'Pzd_Abono no es un número finito' AS Detalle FROM Poliza_Detalle "
     "WHERE Pzd_Abono IS NULL OR Pzd_Abono NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "UNION ALL "
     "SELECT 'Cuenta bancaria ' + Bc_Cve_Banco_Cuenta AS Documento, "
     "   'la suma de sus movimientos no es un número finito' AS Detalle FROM Banco_Movimiento "
     "WHERE Es_Cve_Estado <> 'CA' GROUP BY Bc_Cve_Banco_Cuenta "
     "HAVING SUM(Bm_Importe / 1E10) NOT BETWEEN -1.7976931348623157E298 AND 1.7976931348623157E298 "
     "ORDER BY Documento"},
};

constexpr Audit_rule balances[] = {
    {"saldo-de-cuenta", "Cuenta bancaria", "saldo de la cuenta", "suma de sus movimientos vivos",
     "Corrija Bc_Saldo a la suma de los movimientos vivos y después el saldo del banco.",
     "SELECT Banco_Cuenta.Bc_Cve_Banco_Cuenta AS Documento, Banco_Cuenta.Bc_Saldo AS Primero, "
     "   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) AS Segundo "
     "FROM Banco_Cuenta "
     "   LEFT JOIN Banco_Movimiento ON Banco_Movimiento.Bc_Cve_Banco_Cuenta = Banco_Cuenta.Bc_Cve_Banco_Cuenta AND "
     "      Banco_Movimiento.Es_Cve_Estado <> 'CA' "
     "GROUP BY Banco_Cuenta.Bc_Cve_Banco_Cuenta, Banco_Cuenta.Bc_Saldo "
     "HAVING ABS(Banco_Cuenta.Bc_Saldo - ISNULL(SUM(Banco_Movimiento.Bm_Importe),0)) >= 0.005 AND "
     "   Banco_Cuenta.Bc_Saldo BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 AND "
     "   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "ORDER BY Banco_Cuenta.Bc_Cve_Banco_Cuenta"},
    {"saldo-de-banco", "Banco", "saldo del banco", "suma de los saldos de sus cuentas",
     "Corrija Bn_Saldo a la suma de los saldos de sus cuentas.",
     "SELECT Banco.Bn_Cve_Banco AS Documento, Banco.Bn_Saldo AS Primero, ISNULL(SUM(Banco_Cuenta.Bc_Saldo),0) AS "
     "Segundo "
     "FROM Banco "
     "   LEFT JOIN Banco_Cuenta ON Banco_Cuenta.Bn_Cve_Banco = Banco.Bn_Cve_Banco "
     "GROUP BY Banco.Bn_Cve_Banco, Banco.Bn_Saldo "
     "HAVING ABS(Banco.Bn_Saldo - ISNULL(SUM(Banco_Cuenta.Bc_Saldo),0)) >= 0.005 AND "
     "   Banco.Bn_Saldo BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 AND "
     "   ISNULL(SUM(Banco_Cuenta.Bc_Saldo),0) BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 "
     "ORDER BY Banco.Bn_Cve_Banco"},
};

constexpr Audit_rule deposits[] = {
    {"deposito-sin-movimiento", "Renglón de depósito", "importe del renglón", nullptr,
     "Registre el movimiento bancario del renglón, o cancele el depósito y genérelo de nuevo.",
     "SELECT Deposito_Pago.Dp_Folio + '/' + Deposito_Pago.Dp_Id AS Documento, Deposito_Pago.Dp_Importe AS Primero "
     "FROM Deposito_Pago "
     "   LEFT JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Deposito_Pago.Dp_Folio AND "
     "      Banco_Movimiento.Bm_Tabla = 'DEPOSITO_PAGO' AND "
     "      Banco_Movimiento.Bm_Documento_ID = Deposito_Pago.Dp_Id AND Banco_Movimiento.Es_Cve_Estado <> 'CA' "
     "WHERE Deposito_Pago.Es_Cve_Estado <> 'CA' AND Banco_Movimiento.Bm_Folio IS NULL "
     "ORDER BY Deposito_Pago.Dp_Folio, Deposito_Pago.Dp_Id"},
    {"deposito-y-movimiento-difieren", "Renglón de depósito", "importe del renglón", "importe de su movimiento",
     "Cancele el depósito y genérelo de nuevo.",
     "SELECT Deposito_Pago.Dp_Folio + '/' + Deposito_Pago.Dp_Id AS Documento, Deposito_Pago.Dp_Importe AS Primero, "
     "   Banco_Movimiento.Bm_Importe AS Segundo "
     "FROM Deposito_Pago "
     "   INNER JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Deposito_Pago.Dp_Folio AND "
     "      Banco_Movimiento.Bm_Tabla = 'DEPOSITO_PAGO' AND "
     "      Banco_Movimiento.Bm_Documento_ID = Deposito_Pago.Dp_Id AND Banco_Movimiento.Es_Cve_Estado <> 'CA' "
     "WHERE Deposito_Pago.Es_Cve_Estado <> 'CA' AND "
     "   ABS(ABS(Banco_Movimiento.Bm_Importe) - ABS(Deposito_Pago.Dp_Importe)) >= 0.005 "
     "ORDER BY Deposito_Pago.Dp_Folio, Deposito_Pago.Dp_Id"},
    {"deposito-y-recibos-difieren", "Depósito", "importe del depósito", "importe de los recibos marcados con él",
     "Quedó a medias: cancele el depósito y genérelo de nuevo.",
     "SELECT Deposito_Pago.Dp_Folio AS Documento, SUM(Deposito_Pago.Dp_Importe) AS Primero, "
     "   (SELECT ISNULL(SUM(Rp_Importe),0) FROM Recibo_Pago "
     "      WHERE Recibo_Pago.Rp_Folio_Deposito = Deposito_Pago.Dp_Folio AND "
     "         Recibo_Pago.Es_Cve_Estado IN ('DP', 'AD')) AS Segundo "
     "FROM Deposito_Pago "
     "WHERE Deposito_Pago.Es_Cve_Estado <> 'CA' "
     "GROUP BY Deposito_Pago.Dp_Folio "
     "HAVING ABS(SUM(Deposito_Pago.Dp_Importe) - "
     "   (SELECT ISNULL(SUM(Rp_Importe),0) FROM Recibo_Pago "
     "      WHERE Recibo_Pago.Rp_Folio_Deposito = Deposito_Pago.Dp_Folio AND "
     "         Recibo_Pago.Es_Cve_Estado IN ('DP', 'AD'))) >= 0.005 "
     "ORDER BY Deposito_Pago.Dp_Folio"},
    {"recibo-sin-deposito", "Renglón de recibo", "importe del renglón", nullptr,
     "Su depósito no existe o está cancelado: regrese el renglón a 'AC' (o 'AP') y deposítelo de nuevo.",
     "SELECT Recibo_Pago.Rp_Folio + '/' + Recibo_Pago.Rp_Id AS Documento, Recibo_Pago.Rp_Importe AS Primero "
     "FROM Recibo_Pago "
     "   LEFT JOIN Deposito_Pago ON Deposito_Pago.Dp_Folio = Recibo_Pago.Rp_Folio_Deposito AND "
     "      Deposito_Pago.Dp_Id = Recibo_Pago.Rp_Deposito_ID AND Deposito_Pago.Es_Cve_Estado <> 'CA' "
     "WHERE Recibo_Pago.Es_Cve_Estado IN ('DP', 'AD') AND Deposito_Pago.Dp_Folio IS NULL "
     "ORDER BY Recibo_Pago.Rp_Folio, Recibo_Pago.Rp_Id"},
    {"movimiento-de-deposito-cancelado", "Movimiento bancario", "importe del movimiento", nullptr,
     "Su depósito está cancelado: cancele el movimiento.",
     "SELECT DISTINCT Banco_Movimiento.Bm_Folio AS Documento, Banco_Movimiento.Bm_Importe AS Primero "
     "FROM Banco_Movimiento "
     "   INNER JOIN Deposito_Pago ON Deposito_Pago.Dp_Folio = Banco_Movimiento.Bm_Documento AND "
     "      Deposito_Pago.Es_Cve_Estado = 'CA' "
     "WHERE Banco_Movimiento.Bm_Tabla = 'DEPOSITO_PAGO' AND Banco_Movimiento.Es_Cve_Estado <> 'CA' "
     "ORDER BY Banco_Movimiento.Bm_Folio"},
    {"deposito-sin-registrar", "Depósito", "importe del depósito", nullptr,
     "Su registro no terminó: cancélelo y genérelo de nuevo.",
     "SELECT Deposito_Pago.Dp_Folio AS Documento, SUM(Deposito_Pago.Dp_Importe) AS Primero "
     "FROM Deposito_Pago "
     "WHERE Deposito_Pago.Es_Cve_Estado <> 'CA' AND "
     "   NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado "
     "      WHERE Dr_Documento = Deposito_Pago.Dp_Folio AND Dr_Codigo = 'DEPOSITO_PAGO') "
     "GROUP BY Deposito_Pago.Dp_Folio "
     "ORDER BY Deposito_Pago.Dp_Folio"},
};

constexpr Audit_rule movements[] = {
    {"movimiento-duplicado", "Movimiento bancario", "importe del movimiento", nullptr,
     "Cancele el que sobra con Cancelar_Movimiento_Bancos.",
     "SELECT MAX(Bm_Folio) AS Documento, MAX(Bm_Importe) AS Primero "
     "FROM Banco_Movimiento "
     "WHERE Es_Cve_Estado <> 'CA' AND Bm_Documento <> '' "
     "GROUP BY Bm_Tabla, Bm_Documento, Bm_Documento_ID, Bc_Cve_Banco_Cuenta, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, "
     "   Bm_Referencia "
     "HAVING COUNT(*) > 1 "
     "ORDER BY Documento"},
    {"movimiento-sin-registrar", "Movimiento bancario", "importe del movimiento", nullptr,
     "Su registro no terminó: cancélelo (el de un depósito o un cheque, con su documento) y hágalo de nuevo.",
     "SELECT Banco_Movimiento.Bm_Folio AS Documento, Banco_Movimiento.Bm_Importe AS Primero "
     "FROM Banco_Movimiento "
     "WHERE Banco_Movimiento.Es_Cve_Estado <> 'CA' AND "
     "   NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado "
     "      WHERE Dr_Documento = Banco_Movimiento.Bm_Folio AND Dr_Codigo = 'BANCO_MOVIMIENTO') "
     "ORDER BY Banco_Movimiento.Bm_Folio"},
    // A cancellation registers its movement a second time; one that was never registered before it, for the first time.
    {"cancelacion-de-movimiento-sin-registrar", "Movimiento bancario", "importe del movimiento", nullptr,
     "Está cancelado y no se registró: aumente Dr_Veces en Documento_Registrado (BANCO_MOVIMIENTO), o agréguelo.",
     "SELECT Banco_Movimiento.Bm_Folio AS Documento, Banco_Movimiento.Bm_Importe AS Primero "
     "FROM Banco_Movimiento "
     "   LEFT JOIN Documento_Registrado ON Documento_Registrado.Dr_Documento = Banco_Movimiento.Bm_Folio AND "
     "      Documento_Registrado.Dr_Codigo = 'BANCO_MOVIMIENTO' "
     "WHERE Banco_Movimiento.Es_Cve_Estado = 'CA' AND "
     "   (Documento_Registrado.Dr_Documento IS NULL OR (Documento_Registrado.Dr_Veces < 2 AND "
     "      Documento_Registrado.Fecha_Ult_Modif < Banco_Movimiento.Fecha_Baja)) "
     "ORDER BY Banco_Movimiento.Bm_Folio"},
};

}  // namespace

std::span<const Audit_rule> number_rules() {
    return numbers;
}
std::span<const Audit_rule> balance_rules() {
    return balances;
}
std::span<const Audit_rule> deposit_rules() {
    return deposits;
}
std::span<const Audit_rule> movement_rules() {
    return movements;
}

}  // namespace cuvexa::reference
