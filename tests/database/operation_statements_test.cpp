// The statements of the operations, as they are composed, on the schema as it is delivered: each is translated, runs,
// and finds its rows without walking through a table of documents.
#include <fstream>
#include <sstream>

#include "cuvexa/database/script.h"
#include "fixture.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

std::string file(const std::string& name) {
    std::ifstream in(tests::in_source("schema/" + name));
    std::stringstream content;
    content << in.rdbuf();
    return content.str();
}

const std::vector<std::string> statements = {
    // Receipts
    "SELECT * FROM Tipo_Recibo_Pago WHERE Trp_Cve_Tipo_Recibo_Pago = '01' ",
    "INSERT INTO Recibo_Pago(Rp_Folio, \r\nRp_Id, Rp_Fecha, Sc_Cve_Sucursal, Trp_Cve_Tipo_Recibo_Pago, "
    "Rp_Solicitar_Valor, Rp_Tabla, "
    "Rp_Documento, Rp_Referencia, Rp_Comentario, Mn_Cve_Moneda, Rp_Tipo_Cambio, Rp_Fecha_Deposito, Rp_Folio_Deposito, "
    "Rp_Deposito_ID, Fp_Cve_Forma_Pago, Rp_Banco, Rp_Cheque, Rp_Cuenta_Bancaria, Rp_Importe, Rp_Cve_Banco, "
    "Rp_Vendedor, "
    "Rp_Comisionista, Rp_Promotor, Rp_Chofer, Rp_Cobratario, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif) "
    "VALUES('R1', '0001', '2024-03-15', 'MTY', '01', '', '', '', '', 'Ñandú', 'MXN', 1, '2024-03-15', '', '', '01', "
    "'', '', '', "
    "-100.5, '', '', '', '', '', '', 'CAJA', '2024-03-15T10:20:30', 'CAJA', '2024-03-15T10:20:30')",
    "SELECT Recibo_Pago.Rp_Folio, Rp_Fecha, Recibo_Pago.Sc_Cve_Sucursal, Mn_Cve_Moneda, Rp_Tipo_Cambio, "
    "Rp_Solicitar_Valor, "
    "Rp_Comentario, Rp_Referencia, Trp_Solicitar, Fp_Generar_Cuenta_x_Cobrar, Fp_Cliente, Em_Cve_Empresa, "
    "SUM(Rp_Importe) as Rp_Importe "
    "FROM Recibo_Pago INNER JOIN Tipo_Recibo_Pago ON Tipo_Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago = "
    "Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago "
    "INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago "
    "INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Recibo_Pago.Sc_Cve_Sucursal "
    "WHERE Recibo_Pago.Rp_Folio = 'R1' AND Recibo_Pago.Es_Cve_Estado <> 'CA' "
    "GROUP BY Recibo_Pago.Rp_Folio, Rp_Fecha, Recibo_Pago.Sc_Cve_Sucursal, Mn_Cve_Moneda, Rp_Tipo_Cambio, "
    "Rp_Solicitar_Valor, "
    "Rp_Comentario, Rp_Referencia, Trp_Solicitar, Fp_Generar_Cuenta_x_Cobrar, Fp_Cliente, Em_Cve_Empresa",
    "UPDATE Recibo_Pago SET Es_Cve_Estado = 'AP', Oper_Ult_Modif = 'CAJA', Fecha_Ult_Modif = '2024-03-15T10:20:30' "
    "WHERE Rp_Folio = 'R1'",
    "SELECT Fp_Cve_Forma_Pago, Rp_Banco, Rp_Cheque, Rp_Fecha, Rp_Folio_Deposito, Es_Cve_Estado FROM Recibo_Pago WHERE "
    "Rp_Folio = 'R1'",
    "SELECT Cxc_Folio, Pc_Id FROM Pago_Cxc WHERE Pc_Tabla = 'RECIBO_PAGO' AND Pc_Documento = 'R1' AND Es_Cve_Estado <> "
    "'CA'",
    "SELECT An_Folio FROM Anticipo_Cxc WHERE An_Tabla = 'RECIBO_PAGO' AND An_Documento = 'R1' AND Es_Cve_Estado <> "
    "'CA'",
    "SELECT Cxp_Folio FROM Cuenta_x_Pagar WHERE Cxp_Tabla = 'RECIBO_PAGO' AND Cxp_Documento = 'R1' AND Es_Cve_Estado "
    "<> 'CA'",
    "SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Tabla = 'RECIBO_PAGO' AND Cxc_Documento = 'R1' AND Es_Cve_Estado "
    "<> 'CA'",
    "SELECT COUNT(DISTINCT Rp_Folio) as Recibos FROM Recibo_Pago WHERE Es_Cve_Estado <> 'CA' AND Rp_Folio_Deposito = "
    "'D1' AND "
    "Rp_Folio_Deposito <> ''",
    "UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA', Oper_Ult_Modif = 'CAJA', Fecha_Baja = "
    "'2024-03-15T10:20:30', "
    "Fecha_Ult_Modif = '2024-03-15T10:20:30' WHERE Rp_Folio = 'R1'",

    // Checks: capture and creation
    "SELECT Ch_Folio FROM Cheque WHERE Ch_Referencia = '123' AND Bc_Cve_Banco_Cuenta = 'C1' AND Ch_Transferencia = "
    "'NO' AND "
    "Es_Cve_Estado <> 'CA'",
    "INSERT INTO Cheque_x_Aplicar(Ch_Folio, Cxa_ID, Ch_Cheque, Cxp_Folio, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, "
    "Oper_Alta, "
    "Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif) VALUES('CH1', '0001', '123', '', 'MXN', 18.5, 1E+15, 'CAJA', "
    "'2024-03-15', 'CAJA', '2024-03-15')",
    "SELECT ISNULL(SUM(Cxa_Importe * Cxa_Tipo_Cambio),0) / 18.5 as Cxa_Importe FROM Cheque_x_Aplicar WHERE Ch_Folio = "
    "'CH1'",
    "INSERT INTO Cheque(Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, "
    "Sc_Cve_Sucursal, "
    "Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Tabla, Ch_Documento, "
    "Ch_Referencia, "
    "Ch_Fecha_Firme, Ch_Cuenta_Destino, Ch_Banco_Destino, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif) "
    "SELECT 'CH1', '0001', 'NO', '2024-03-15T10:20:30', 'C1', 'MTY', 'P1', 'Beneficiario', 100, 1, '', '', '', '123', "
    "'2024-03-15', '', '', "
    "'CAJA', '2024-03-15', 'CAJA', '2024-03-15'",
    "INSERT INTO Gasto_X_Comprobar(Gc_Folio, Gc_Fecha, Gc_Tabla, Gc_Documento, Gc_Referencia, Mn_Cve_Moneda, "
    "Sc_Cve_Sucursal, "
    "Cl_Cve_Cliente, Gc_Importe, Gc_Tipo_Cambio, Gc_Comentario, Bc_Cve_Banco_Cuenta, Oper_Alta, Fecha_Alta, "
    "Oper_Ult_Modif, "
    "Fecha_Ult_Modif, Es_Cve_Estado) SELECT 'G1', '2024-03-15', 'CHEQUE', 'CH1', '123', 'MXN', 'MTY', 'D1', "
    "(SELECT Ch_Importe FROM Cheque WHERE Ch_Folio = 'CH1'), 1, '', 'C1', 'CAJA', '2024-03-15', 'CAJA', '2024-03-15', "
    "'PXA'",
    "UPDATE Cheque_x_Aplicar SET Cxp_Folio = 'G1' WHERE Ch_Folio = 'CH1'",
    "UPDATE Gasto_x_Comprobar SET Es_Cve_Estado = 'PA' WHERE Gc_Folio = 'G1'",

    // Checks: application and cancellation
    "SELECT Cheque_x_Aplicar.Ch_Folio, Cxa_ID, Ch_Cheque, Cxp_Folio, Cxa_Importe, Cheque_x_Aplicar.Mn_Cve_Moneda as "
    "Cxa_Moneda, "
    "Cxa_Tipo_Cambio, Cheque.Ch_Fecha, Tipo_Cheque.Tc_Cve_Tipo_Cheque, Ch_Solicitar_Valor, Tipo_Cheque.Tc_Solicitar, "
    "Tc_Proveedor_Pago, "
    "Cheque.Ch_Transferencia, Ch_Tipo_Cambio, Ch_Documento, Sc_Cve_Sucursal, Ch_Concepto, Ch_Referencia, Ch_Importe, "
    "Banco_Cuenta.Mn_Cve_Moneda, Banco_Cuenta.Bc_Cve_Banco_Cuenta, Bc_Cuenta, Banco.Bn_Cve_Banco, Bn_Descripcion FROM "
    "Cheque_x_Aplicar "
    "INNER JOIN Cheque ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio "
    "INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
    "INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Cheque.Bc_Cve_Banco_Cuenta "
    "INNER JOIN Banco ON Banco.Bn_Cve_Banco = Banco_Cuenta.Bn_Cve_Banco "
    "WHERE Cheque_x_Aplicar.Ch_Folio = 'CH1' AND Cheque_x_Aplicar.Es_Cve_Estado = 'AC'",
    "UPDATE Cheque_x_Aplicar SET Cxp_Folio = 'X', Es_Cve_Estado = 'AP', Cxa_Fecha_Aplicacion = '2024-03-15', "
    "Oper_Ult_Modif = 'CAJA', "
    "Fecha_Ult_Modif = '2024-03-15' WHERE Ch_Folio = 'CH1' AND Cxa_ID = '0001' AND Es_Cve_Estado <> 'CA'",
    "UPDATE Cheque SET Es_Cve_Estado = 'AP', Ch_Aplicar = 'SI', Ch_Fecha_Firme = '2024-03-15', Ch_Firme = 'SI', "
    "Oper_Ult_Modif = 'CAJA', "
    "Fecha_Ult_Modif = '2024-03-15' WHERE Ch_Folio = 'CH1' AND Ch_Folio NOT IN (SELECT Cheque.Ch_Folio FROM Cheque "
    "INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio WHERE Cheque_x_Aplicar.Es_Cve_Estado = "
    "'AC' AND "
    "Cheque.Ch_Folio = 'CH1')",
    "UPDATE Banco_Movimiento SET Es_Cve_Estado = 'FI', Bm_Fecha_Firme = '2024-03-15', Oper_Ult_Modif = 'CAJA', "
    "Fecha_Ult_Modif = '2024-03-15' WHERE Bm_Documento = 'CH1' AND Bm_Tabla = 'CHEQUE' AND Es_Cve_Estado <> 'CA'",
    "SELECT Em_Cve_Empresa FROM Cheque INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal WHERE "
    "Ch_Folio = 'CH1' "
    "AND Cheque.Es_Cve_Estado <> 'CA' AND Sucursal.Es_Cve_Estado <> 'BA'",
    "SELECT Cheque_x_Aplicar.*, Tipo_Cheque.Tc_Solicitar, Tipo_Cheque.Tc_Proveedor_Pago FROM Cheque INNER JOIN "
    "Cheque_x_Aplicar ON "
    "Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio INNER JOIN Tipo_Cheque ON Cheque.Tc_Cve_Tipo_Cheque = "
    "Tipo_Cheque.Tc_Cve_Tipo_Cheque "
    "WHERE Cheque.Ch_Folio = 'CH1'",
    "SELECT Cxp_Folio, Pc_ID FROM Pago_Cxp WHERE Pc_Tabla = 'CHEQUE' AND Cxp_Folio = 'X' AND Pc_Documento = 'CH1' AND "
    "Es_Cve_Estado <> 'CA'",
    "UPDATE Cuenta_x_Cobrar SET Cxc_Tabla = 'GASTO_X_COMPROBAR-CA:' + Cxc_Folio WHERE Cxc_Tabla = 'GASTO_X_COMPROBAR' "
    "AND "
    "Cxc_Documento = 'X'",
    "UPDATE Cuenta_x_Cobrar SET Cxc_Tabla = 'CHEQUE-CA:' + Cxc_Folio WHERE Cxc_Tabla = 'CHEQUE' AND Cxc_Documento = "
    "'CH1'",
    "SELECT * FROM Pago_Cxp WHERE Cxp_Folio IN (SELECT Cxp_Folio FROM Cuenta_x_Pagar WHERE CxP_Tabla = 'ANTICIPO_CXP' "
    "AND "
    "Cxp_Documento = 'X') AND Es_Cve_Estado <> 'CA'",
    "UPDATE Cuenta_X_Pagar SET Cxp_Tabla = 'ANTICIPO_CXP-CA:' + Cxp_Folio WHERE CxP_Tabla = 'ANTICIPO_CXP' AND "
    "Cxp_Documento = 'X'",
    "UPDATE Banco_Movimiento SET Es_Cve_Estado = 'TR', Bm_Fecha_Firme = Bm_Fecha, Oper_Ult_Modif = 'CAJA', "
    "Fecha_Ult_Modif = '2024-03-15' "
    "WHERE Bm_Documento = 'CH1' AND Bm_Tabla = 'CHEQUE' AND Es_Cve_Estado <> 'CA'",
    "SELECT Cheque_x_Aplicar.*, Cheque.Es_Cve_Estado as EstadoCheque, Cheque.Ch_Fecha, Tipo_Cheque.Tc_Solicitar, "
    "Tipo_Cheque.Tc_Proveedor_Pago FROM Cheque INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = "
    "Cheque_x_Aplicar.Ch_Folio INNER JOIN "
    "Tipo_Cheque ON Cheque.Tc_Cve_Tipo_Cheque = Tipo_Cheque.Tc_Cve_Tipo_Cheque WHERE Cheque.Ch_Folio = 'CH1'",
    "UPDATE Gasto_x_Comprobar SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA', Fecha_Baja = '2024-03-15' WHERE "
    "Gc_Documento = 'CH1' AND "
    "Gc_Tabla = 'CHEQUE'",
    "UPDATE Gasto_x_Comprobar SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA', Fecha_Baja = '2024-03-15' WHERE Gc_Folio = "
    "'X' AND "
    "Gc_Documento = '' AND Gc_Tabla = ''",
    "UPDATE Gasto_x_Comprobar_Documento SET Es_Cve_Estado = 'CA' WHERE Gc_Documento = 'CH1' AND Gc_Tabla = 'CHEQUE'",

    // Bank movements
    "SELECT * FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'C1' ",
    "UPDATE Banco_Cuenta SET    Bc_Saldo = Bc_Saldo + -100,    Oper_Ult_Modif = 'CAJA',    Fecha_Ult_Modif = "
    "'2024-03-15' "
    "WHERE Bc_Cve_Banco_Cuenta = 'C1'",
    "UPDATE Banco SET    Bn_Saldo = Bn_Saldo + 100,    Oper_Ult_Modif = 'CAJA',    Fecha_Ult_Modif = '2024-03-15' "
    "WHERE Bn_Cve_Banco = (SELECT Bn_Cve_Banco FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'C1')",
    "SELECT Cheque.*, Cheque_x_Aplicar.Mn_Cve_Moneda as Ch_Moneda, Banco_Cuenta.Mn_Cve_Moneda FROM Cheque    INNER "
    "JOIN Cheque_x_Aplicar "
    "ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio    INNER JOIN Banco_Cuenta ON Cheque.Bc_Cve_Banco_cuenta = "
    "Banco_Cuenta.Bc_Cve_Banco_cuenta WHERE Cheque.Ch_Folio = 'CH1'",
    "SELECT Banco_Movimiento.Bm_Folio, Empresa.Em_Cve_Empresa FROM Banco_Movimiento    INNER JOIN Banco_Cuenta ON "
    "Banco_Cuenta.Bc_Cve_Banco_Cuenta= Banco_Movimiento.Bc_Cve_Banco_Cuenta    INNER JOIN Empresa ON "
    "Empresa.Em_Cve_Empresa = "
    "Banco_Cuenta.Em_Cve_Empresa WHERE    (Bm_Folio = 'M1'   OR (Bm_Documento = 'D1' AND Bm_Tabla = 'DEPOSITO_PAGO' ) "
    ") AND    "
    "Banco_Movimiento.Es_Cve_Estado <> 'CA' AND    Empresa.Es_Cve_Estado <> 'BA' ",
    "SELECT    Banco_Movimiento.Bm_Folio,    Banco_Movimiento.Bm_Fecha,    Banco_Movimiento.Bc_Cve_Banco_Cuenta,   "
    "Banco_Cuenta.Bn_Cve_Banco,    Banco_Movimiento.Es_Cve_Estado,    ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) as "
    "Importe "
    "FROM Banco_Movimiento    INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = "
    "Banco_Movimiento.Bc_Cve_Banco_Cuenta "
    "WHERE Banco_Movimiento.Bm_Folio = 'M1' GROUP BY Banco_Movimiento.Bm_Folio, Banco_Movimiento.Bm_Fecha, "
    "Banco_Movimiento.Bc_Cve_Banco_Cuenta, Banco_Cuenta.Bn_Cve_Banco, Banco_Movimiento.Es_Cve_Estado",
    "UPDATE Banco_Cuenta SET    Bc_Saldo = Bc_Saldo - -100,    Oper_Ult_Modif = 'CAJA',    Fecha_Ult_Modif = "
    "'2024-03-15' "
    "WHERE Bc_Cve_Banco_Cuenta = 'C1'",
    "SELECT SUM(Bm_Importe) as Saldo FROM Banco_Movimiento WHERE Bc_Cve_Banco_Cuenta = 'C1' AND    Es_Cve_Estado <> "
    "'CA' ",

    // Deposits
    "SELECT    Sucursal.Sc_Cve_Sucursal,    Forma_Pago.Fp_Cve_Forma_Pago,    CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN "
    "'DEPOSITO EFECTIVO'    "
    "   WHEN Forma_Pago.Fp_Tipo = '02' THEN 'DEPOSITO CON CHEQUE'       WHEN Forma_Pago.Fp_Tipo = '04' THEN 'DEPOSITO "
    "CON TARJETA DE CREDITO' "
    "      ELSE Rp_Comentario END as Rp_Comentario,    CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Banco END "
    "as Rp_Banco,    "
    "CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Cheque END as Rp_Cheque,    SUM(Rp_Importe) as Rp_Importe,    "
    "Mn_Cve_Moneda,    "
    "Recibo_Pago.Rp_Tipo_Cambio,    Sucursal.Em_Cve_Empresa FROM Recibo_Pago    INNER JOIN Forma_Pago ON "
    "Recibo_Pago.Fp_Cve_Forma_Pago = "
    "Forma_Pago.Fp_Cve_Forma_Pago    INNER JOIN Sucursal ON Recibo_Pago.Sc_Cve_Sucursal = Sucursal.Sc_Cve_Sucursal "
    "WHERE Rp_Folio IN "
    "('R1','R2') AND    Recibo_Pago.Es_Cve_Estado IN ('AC', 'AP') GROUP BY    Sucursal.Sc_Cve_Sucursal,    "
    "Forma_Pago.Fp_Cve_Forma_Pago,    "
    "CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN 'DEPOSITO EFECTIVO'       WHEN Forma_Pago.Fp_Tipo = '02' THEN 'DEPOSITO "
    "CON CHEQUE'       "
    "WHEN Forma_Pago.Fp_Tipo = '04' THEN 'DEPOSITO CON TARJETA DE CREDITO'       ELSE Rp_Comentario END,    CASE WHEN "
    "Forma_Pago.Fp_Tipo "
    "= '01' THEN '' ELSE Rp_Banco END,    CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Cheque END,    "
    "Mn_Cve_Moneda,    "
    "Recibo_Pago.Rp_Tipo_Cambio,    Sucursal.Em_Cve_Empresa ORDER BY    Forma_Pago.Fp_Cve_Forma_Pago,    Rp_Banco,    "
    "Rp_Cheque",
    "UPDATE Recibo_Pago SET    Recibo_Pago.Es_Cve_Estado = (CASE Recibo_Pago.Es_Cve_Estado WHEN 'AC' THEN 'DP' WHEN "
    "'AP' THEN 'AD' END ),  "
    "  Recibo_Pago.Rp_Folio_Deposito = 'D1',    Recibo_Pago.Rp_Deposito_ID = '0001',    Recibo_Pago.Rp_Fecha_Deposito "
    "= '2024-03-15' FROM "
    "Recibo_Pago    INNER JOIN Forma_Pago on Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago WHERE    "
    "Recibo_Pago.Rp_Folio IN "
    "('R1','R2') AND    Recibo_Pago.Es_Cve_Estado IN ('AC', 'AP') AND    Recibo_Pago.Fp_Cve_Forma_Pago = '01' AND    "
    "(CASE WHEN "
    "Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Banco END) = '' AND    (CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' "
    "ELSE Rp_Cheque END) = '' ",
    "INSERT INTO Deposito_Pago(   Dp_Folio,    Dp_Id,    Dp_Fecha,    Sc_Cve_Sucursal,    Mn_Cve_Moneda,    "
    "Dp_Tipo_Cambio,    "
    "Bc_Cve_Banco_Cuenta,    Dp_Importe,    Dp_Referencia,    Dp_Comentario,    Rp_Banco,    Rp_Cheque,    Oper_Alta,  "
    "  Fecha_Alta,    "
    "Oper_Ult_Modif,    Fecha_Ult_Modif) VALUES('D1', '0001', '2024-03-15', 'MTY', 'MXN', 1, 'C1', 150, '', '', '', "
    "'', 'CAJA', "
    "'2024-03-15', 'CAJA', '2024-03-15')",
    "SELECT * FROM Deposito_Pago WHERE Dp_Folio = 'D1' ",
    "UPDATE Recibo_Pago SET    Es_Cve_Estado = (SELECT DISTINCT CASE Es_Cve_Estado                            WHEN "
    "'DP' THEN 'AC'             "
    "               WHEN 'AD' THEN 'AP' END                         FROM Recibo_Pago a                         WHERE "
    "Rp_Folio_Deposito = 'D1' "
    "AND a.Rp_Folio = Recibo_Pago.Rp_Folio),    Rp_Folio_Deposito = '',    Rp_Deposito_ID = '' WHERE Rp_Folio_Deposito "
    "= 'D1'",
    "SELECT Bc_Descripcion FROM Banco_Cuenta  WHERE Mn_Cve_Moneda = 'MXN' AND   Bc_Cve_Banco_Cuenta = 'C1' AND "
    "Es_Cve_Estado <> 'BA'  AND "
    "(Em_Cve_Empresa = 'EM01' OR Bc_MultiEmpresa = 'SI')",

    // Check requests and budgets
    "SELECT * FROM Solicitud_Cheque WHERE Sch_Folio = 'S1' AND Es_Cve_Estado <> 'CA'",
    "UPDATE Solicitud_Cheque SET Es_Cve_Estado = 'AC' WHERE Sch_Folio = 'S1'",
    "UPDATE Solicitud_Cheque_Detalle SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA', Fecha_Baja = '2024-03-15' WHERE "
    "Sch_Folio = 'S1'",
    "SELECT Ch_Folio FROM Cheque WHERE Ch_Tabla = 'SOLICITUD_CHEQUE' AND Ch_Documento = 'S1' AND Es_Cve_Estado <> 'CA'",
    "SELECT Proveedor.Pv_Cve_Proveedor AS Proveedor, Grupo_Proveedor.Gp_Cve_Grupo_Proveedor AS Grupo_Proveedor, "
    "Sucursal.Sc_Cve_Sucursal AS "
    "Sucursal, Sucursal.Em_Cve_Empresa AS Empresa, Tc_Solicitar AS Tipo, Ch_Fecha AS Fecha, Ch_Importe * "
    "Ch_Tipo_Cambio AS Importe FROM "
    "Cheque INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque INNER JOIN Sucursal "
    "ON "
    "Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal INNER JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = "
    "Cheque.Ch_Solicitar_Valor INNER "
    "JOIN Grupo_Proveedor ON Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = Proveedor.Gp_Cve_Grupo_Proveedor WHERE "
    "Cheque.Ch_Folio = 'CH1' AND "
    "Cheque.Es_Cve_Estado NOT IN ('CA','AP')",
    "SELECT App_03 AS Importe FROM Anticipo_Proveedor_Presupuesto WHERE App_Tipo = 'PV' AND App_Valor = 'P1' AND "
    "App_Periodo = 2024",
    "SELECT SUM(Ch_Importe * Ch_Tipo_Cambio) AS Importe FROM Cheque INNER JOIN Tipo_Cheque ON "
    "Tipo_Cheque.Tc_Cve_Tipo_Cheque = "
    "Cheque.Tc_Cve_Tipo_Cheque INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal INNER JOIN "
    "Proveedor ON "
    "Proveedor.Pv_Cve_Proveedor = Cheque.Ch_Solicitar_Valor INNER JOIN Grupo_Proveedor ON "
    "Grupo_Proveedor.Gp_Cve_Grupo_Proveedor = "
    "Proveedor.Gp_Cve_Grupo_Proveedor WHERE Proveedor.Pv_Cve_Proveedor = 'P1' AND Tipo_Cheque.Tc_Solicitar = '05' AND "
    "MONTH(Cheque.Ch_Fecha) "
    "= 3 AND YEAR(Cheque.Ch_Fecha) = 2024 AND Cheque.Es_Cve_Estado NOT IN ('CA','PXA')",

    // Advances
    "SELECT Cxc_Folio, Cxc_Precio_Neto_Importe, Mn_Cve_Moneda, Cxc_Tipo_Cambio FROM Cuenta_X_Cobrar WHERE Cxc_Tabla = "
    "'GASTO_X_COMPROBAR' "
    "AND Cxc_Documento IN (SELECT Gc_Folio FROM Gasto_x_Comprobar WHERE Gc_Tabla = 'CHEQUE' AND Gc_Documento = 'CH1')",
    "SELECT Anticipo_Cxc.*, Cxc_Precio_Neto_Importe, Cxc_Precio_Neto_Saldo, Cxc_Precio_Neto_Pago, "
    "Gasto_x_Comprobar_Documento.Gcd_ID, "
    "Gasto_x_Comprobar_Documento.Cxc_Tipo_Cambio, Gasto_x_Comprobar_Documento.Cxc_Importe FROM Anticipo_Cxc INNER JOIN "
    "Cuenta_X_Cobrar ON "
    "Cxc_Tabla = 'ANTICIPO_CXC' AND Cxc_Documento = An_Folio INNER JOIN Gasto_x_Comprobar_Documento ON "
    "Gasto_x_Comprobar_Documento.Gc_Tabla = "
    "'CHEQUE' AND Gasto_x_Comprobar_Documento.Gc_Documento = 'CH1' AND Gasto_x_Comprobar_Documento.Cxc_Folio = "
    "An_Folio WHERE "
    "Anticipo_Cxc.Es_Cve_Estado = 'AC' AND Anticipo_Cxc.An_Tabla = 'GASTO_REGISTRO' AND Cuenta_X_Cobrar.Es_Cve_Estado "
    "= 'AC' ORDER BY An_Folio "
    "ASC",
    "SELECT Cuenta_X_Cobrar.Cxc_Folio, IsNull(MAX(Pago_Cxc.Pc_ID), '0000') AS Pc_ID FROM Cuenta_X_Cobrar LEFT JOIN "
    "Pago_Cxc ON "
    "Cuenta_X_Cobrar.Cxc_Folio = Pago_Cxc.Cxc_Folio WHERE Cuenta_X_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND "
    "Cuenta_X_Cobrar.Cxc_Documento = 'A1' "
    "GROUP BY Cuenta_X_Cobrar.Cxc_Folio",
    "SELECT ISNULL(SUM(Pc_Importe * Pc_Tipo_Cambio),0) AS Pagos FROM Pago_Cxc WHERE Pc_Tabla = 'ANTICIPO_CXC' AND "
    "Pc_Documento = 'A1' AND "
    "Pc_Referencia = 'X:0001' AND Fp_Cve_Forma_Pago <> 'DA'",
    "UPDATE Gasto_x_Comprobar_Documento SET Es_Cve_Estado = 'AP' WHERE Gc_Tabla = 'CHEQUE' AND Gc_Documento = 'CH1' "
    "AND Cxc_Folio = 'A1'",
    "SELECT Pc_Tabla, Pc_Documento FROM Pago_CXC WHERE Cxc_Folio IN (SELECT Cxc_Folio FROM Cuenta_X_Cobrar WHERE "
    "Cxc_Tabla = "
    "'GASTO_X_COMPROBAR' AND Cxc_Documento IN (SELECT Gc_Folio FROM Gasto_x_Comprobar WHERE Gc_Tabla = 'CHEQUE' AND "
    "Gc_Documento = 'CH1')) "
    "AND Pc_Tabla = 'ANTICIPO_CXC' AND Pago_CXC.Es_Cve_Estado <> 'CA'",
    "SELECT * FROM Pago_Cxc WHERE Es_Cve_Estado <> 'CA' AND Cxc_Folio IN (SELECT Cxc_Folio FROM Cuenta_X_Cobrar WHERE "
    "Cxc_Tabla = "
    "'ANTICIPO_CXC' AND Cxc_Documento = 'A1')",

    // Payment-method dialog
    "SELECT    Forma_Pago.Fp_Descripcion,    Forma_Pago.Fp_Requiere_Banco,    Forma_Pago.Fp_Requiere_Referencia,   "
    "Forma_Pago.Fp_Requiere_Cuenta,    Forma_Pago.Fp_Metodo_Pago_SAT,    Forma_Pago.Es_Cve_Estado  FROM Forma_Pago "
    "WHERE    "
    "Forma_Pago.Fp_Cve_Forma_Pago = '01'",
    "SELECT COUNT(Dcb_Id) as Cuentas FROM Documento_Cuenta_Bancaria WHERE Dcb_Tabla = 'T' AND    Dcb_Documento = 'D' "
    "AND    Dcb_Banco <> '' ",
    "SELECT    DISTINCT Documento_Cuenta_Bancaria.Dcb_Banco AS BANCO,    Banco.Bn_Descripcion as DESCRIPCION, '' FROM "
    "Documento_Cuenta_Bancaria    INNER JOIN Banco ON Banco.Bn_Cve_Banco = Documento_Cuenta_Bancaria.Dcb_Banco WHERE   "
    " (Banco.Bn_Cve_Banco "
    "LIKE '%b%' OR    Banco.Bn_Codigo LIKE '%b%' OR    Banco.Bn_Descripcion LIKE '%b%') AND    "
    "(Documento_Cuenta_Bancaria.Dcb_Tabla = 'T' AND "
    "   Documento_Cuenta_Bancaria.Dcb_Documento = 'D' )",
    "SELECT    Dcb_Cuenta AS CUENTA,    Dcb_ID AS ID,    Dcb_CLABE AS CLABE,    Banco.Bn_Codigo + ' - ' + "
    "Banco.Bn_Descripcion AS BANCO FROM "
    "Documento_Cuenta_Bancaria    INNER JOIN Banco ON Documento_Cuenta_Bancaria.Dcb_Banco = Banco.Bn_Cve_Banco WHERE "
    "(Dcb_Tabla = 'T' AND    "
    "Dcb_Documento = 'D' AND    Dcb_Banco = 'B' AND    Documento_Cuenta_Bancaria.Es_Cve_Estado <> 'BA' ) AND    "
    "(Dcb_Cuenta LIKE '%1%') ORDER "
    "BY Dcb_ID ASC ",
    "SELECT Dcb_Id FROM Documento_Cuenta_Bancaria WHERE  Dcb_Tabla = 'T' AND  Dcb_Documento = 'D' AND  Dcb_Banco = 'B' "
    "AND  Dcb_Cuenta = '1'",
};

class Operation_statements : public testing::Test {
protected:
    Operation_statements() { run_script(db, file("schema.sql")); }

    Sqlite_connection db{":memory:"};
};

TEST_F(Operation_statements, each_runs_on_an_empty_database_and_on_the_sample_company) {
    for (const std::string& statement : statements) EXPECT_EQ(failure(db, statement), "") << statement;
    run_script(db, file("sample_company.sql"));
    for (const std::string& statement : statements) {
        if (statement.starts_with("INSERT")) continue;
        EXPECT_EQ(failure(db, statement), "") << statement;
    }
}

TEST_F(Operation_statements, none_walks_through_a_table) {
    for (const std::string& statement : statements) {
        for (const std::string& step : plan(db, statement)) {
            const bool walks = step.starts_with("SCAN ") && step != "SCAN CONSTANT ROW" && step != "SCAN cuvexa_rows" &&
                               !step.starts_with("SCAN 1 ");
            EXPECT_FALSE(walks) << step << "\n" << statement;
        }
    }
}

TEST_F(Operation_statements, the_balance_of_firm_movements_is_refused_by_the_engine) {
    EXPECT_EQ(failure(db,
                      "SELECT SUM(Bm_Importe) as Saldo FROM Banco_Movimiento WHERE Bc_Cve_Banco_Cuenta = 'C1' AND    "
                      "Es_Cve_Estado <> 'CA' Es_Cve_Estado = 'FI'"),
              "near \"Es_Cve_Estado\": syntax error");
}

}  // namespace
}  // namespace cuvexa::tests
