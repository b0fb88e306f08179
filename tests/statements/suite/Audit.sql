-- Audit

-- ---- every check

SELECT 'Cuenta bancaria ' + Bc_Cve_Banco_Cuenta AS Documento,
   'Bc_Saldo no es un número finito' AS Detalle
FROM Banco_Cuenta
WHERE Bc_Saldo IS NULL OR Bc_Saldo NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Banco ' + Bn_Cve_Banco AS Documento,
   'Bn_Saldo no es un número finito' AS Detalle
FROM Banco
WHERE Bn_Saldo IS NULL OR Bn_Saldo NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Movimiento bancario ' + Bm_Folio AS Documento,
   'Bm_Importe no es un número finito' AS Detalle
FROM Banco_Movimiento
WHERE Bm_Importe IS NULL OR Bm_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Renglón de recibo ' + Rp_Folio + '/' + Rp_Id AS Documento,
   'Rp_Importe no es un número finito' AS Detalle
FROM Recibo_Pago
WHERE Rp_Importe IS NULL OR Rp_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Renglón de depósito ' + Dp_Folio + '/' + Dp_Id AS Documento,
   'Dp_Importe no es un número finito' AS Detalle
FROM Deposito_Pago
WHERE Dp_Importe IS NULL OR Dp_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Cheque ' + Ch_Folio AS Documento,
   'Ch_Importe no es un número finito' AS Detalle
FROM Cheque
WHERE Ch_Importe IS NULL OR Ch_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Renglón de cheque ' + Ch_Folio + '/' + Cxa_ID AS Documento,
   'Cxa_Importe no es un número finito' AS Detalle
FROM Cheque_x_Aplicar
WHERE Cxa_Importe IS NULL OR Cxa_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Gasto por comprobar ' + Gc_Folio AS Documento,
   'Gc_Importe no es un número finito' AS Detalle
FROM Gasto_x_Comprobar
WHERE Gc_Importe IS NULL OR Gc_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Cuenta por cobrar ' + Cxc_Folio AS Documento,
   'Cxc_Precio_Neto_Saldo no es un número finito' AS Detalle
FROM Cuenta_x_Cobrar
WHERE Cxc_Precio_Neto_Saldo IS NULL OR Cxc_Precio_Neto_Saldo NOT BETWEEN -1.7976931348623157E308 AND
1.7976931348623157E308 UNION ALL
SELECT 'Cuenta por pagar ' + Cxp_Folio AS Documento,
   'Cxp_Precio_Neto_Saldo no es un número finito' AS Detalle
FROM Cuenta_x_Pagar
WHERE Cxp_Precio_Neto_Saldo IS NULL OR Cxp_Precio_Neto_Saldo NOT BETWEEN -1.7976931348623157E308 AND
1.7976931348623157E308 UNION ALL
SELECT 'Pago de cuenta por cobrar ' + Cxc_Folio + ':' + Pc_ID AS Documento,
   'Pc_Importe no es un número finito' AS Detalle
FROM Pago_Cxc
WHERE Pc_Importe IS NULL OR Pc_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Pago de cuenta por pagar ' + Cxp_Folio + ':' + Pc_ID AS Documento,
   'Pc_Importe no es un número finito' AS Detalle
FROM Pago_Cxp
WHERE Pc_Importe IS NULL OR Pc_Importe NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Renglón de póliza ' + Pz_Folio + '/' + Pzd_ID AS Documento,
   'Pzd_Cargo no es un número finito' AS Detalle
FROM Poliza_Detalle
WHERE Pzd_Cargo IS NULL OR Pzd_Cargo NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Renglón de póliza ' + Pz_Folio + '/' + Pzd_ID AS Documento,
   'Pzd_Abono no es un número finito' AS Detalle
FROM Poliza_Detalle
WHERE Pzd_Abono IS NULL OR Pzd_Abono NOT BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 UNION ALL
SELECT 'Cuenta bancaria ' + Bc_Cve_Banco_Cuenta AS Documento,
   'la suma de sus movimientos no es un número finito' AS Detalle
FROM Banco_Movimiento
WHERE Es_Cve_Estado <> 'CA'
GROUP BY Bc_Cve_Banco_Cuenta
HAVING SUM(Bm_Importe / 1E10) NOT BETWEEN -1.7976931348623157E298 AND 1.7976931348623157E298
ORDER BY Documento;

-- SELECT Banco_Cuenta (2)
SELECT Banco_Cuenta.Bc_Cve_Banco_Cuenta AS Documento, Banco_Cuenta.Bc_Saldo AS Primero,
   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) AS Segundo
FROM Banco_Cuenta
   LEFT JOIN Banco_Movimiento ON Banco_Movimiento.Bc_Cve_Banco_Cuenta = Banco_Cuenta.Bc_Cve_Banco_Cuenta AND
      Banco_Movimiento.Es_Cve_Estado <> 'CA'
GROUP BY Banco_Cuenta.Bc_Cve_Banco_Cuenta, Banco_Cuenta.Bc_Saldo
HAVING ABS(Banco_Cuenta.Bc_Saldo - ISNULL(SUM(Banco_Movimiento.Bm_Importe),0)) >= 0.005 AND
   Banco_Cuenta.Bc_Saldo BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 AND
   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308
ORDER BY Banco_Cuenta.Bc_Cve_Banco_Cuenta;

SELECT Banco.Bn_Cve_Banco AS Documento, Banco.Bn_Saldo AS Primero, ISNULL(SUM(Banco_Cuenta.Bc_Saldo),0) AS Segundo
FROM Banco
   LEFT JOIN Banco_Cuenta ON Banco_Cuenta.Bn_Cve_Banco = Banco.Bn_Cve_Banco
GROUP BY Banco.Bn_Cve_Banco, Banco.Bn_Saldo
HAVING ABS(Banco.Bn_Saldo - ISNULL(SUM(Banco_Cuenta.Bc_Saldo),0)) >= 0.005 AND
   Banco.Bn_Saldo BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308 AND
   ISNULL(SUM(Banco_Cuenta.Bc_Saldo),0) BETWEEN -1.7976931348623157E308 AND 1.7976931348623157E308
ORDER BY Banco.Bn_Cve_Banco;

SELECT Deposito_Pago.Dp_Folio + '/' + Deposito_Pago.Dp_Id AS Documento, Deposito_Pago.Dp_Importe AS Primero
FROM Deposito_Pago
   LEFT JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Deposito_Pago.Dp_Folio AND
      Banco_Movimiento.Bm_Tabla = 'DEPOSITO_PAGO' AND
      Banco_Movimiento.Bm_Documento_ID = Deposito_Pago.Dp_Id AND Banco_Movimiento.Es_Cve_Estado <> 'CA'
WHERE Deposito_Pago.Es_Cve_Estado <> 'CA' AND Banco_Movimiento.Bm_Folio IS NULL
ORDER BY Deposito_Pago.Dp_Folio, Deposito_Pago.Dp_Id;

-- SELECT Deposito_Pago (2)
SELECT Deposito_Pago.Dp_Folio + '/' + Deposito_Pago.Dp_Id AS Documento, Deposito_Pago.Dp_Importe AS Primero,
   Banco_Movimiento.Bm_Importe AS Segundo
FROM Deposito_Pago
   INNER JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Deposito_Pago.Dp_Folio AND
      Banco_Movimiento.Bm_Tabla = 'DEPOSITO_PAGO' AND
      Banco_Movimiento.Bm_Documento_ID = Deposito_Pago.Dp_Id AND Banco_Movimiento.Es_Cve_Estado <> 'CA'
WHERE Deposito_Pago.Es_Cve_Estado <> 'CA' AND
   ABS(ABS(Banco_Movimiento.Bm_Importe) - ABS(Deposito_Pago.Dp_Importe)) >= 0.005
ORDER BY Deposito_Pago.Dp_Folio, Deposito_Pago.Dp_Id;

SELECT Deposito_Pago.Dp_Folio AS Documento, SUM(Deposito_Pago.Dp_Importe) AS Primero,
   (SELECT ISNULL(SUM(Rp_Importe),0) FROM Recibo_Pago
      WHERE Recibo_Pago.Rp_Folio_Deposito = Deposito_Pago.Dp_Folio AND
         Recibo_Pago.Es_Cve_Estado IN ('DP', 'AD')) AS Segundo
FROM Deposito_Pago
WHERE Deposito_Pago.Es_Cve_Estado <> 'CA'
GROUP BY Deposito_Pago.Dp_Folio
HAVING ABS(SUM(Deposito_Pago.Dp_Importe) -
   (SELECT ISNULL(SUM(Rp_Importe),0) FROM Recibo_Pago
      WHERE Recibo_Pago.Rp_Folio_Deposito = Deposito_Pago.Dp_Folio AND
         Recibo_Pago.Es_Cve_Estado IN ('DP', 'AD'))) >= 0.005
ORDER BY Deposito_Pago.Dp_Folio;

-- SELECT Recibo_Pago (2)
SELECT Recibo_Pago.Rp_Folio + '/' + Recibo_Pago.Rp_Id AS Documento, Recibo_Pago.Rp_Importe AS Primero
FROM Recibo_Pago
   LEFT JOIN Deposito_Pago ON Deposito_Pago.Dp_Folio = Recibo_Pago.Rp_Folio_Deposito AND
      Deposito_Pago.Dp_Id = Recibo_Pago.Rp_Deposito_ID AND Deposito_Pago.Es_Cve_Estado <> 'CA'
WHERE Recibo_Pago.Es_Cve_Estado IN ('DP', 'AD') AND Deposito_Pago.Dp_Folio IS NULL
ORDER BY Recibo_Pago.Rp_Folio, Recibo_Pago.Rp_Id;

SELECT DISTINCT Banco_Movimiento.Bm_Folio AS Documento, Banco_Movimiento.Bm_Importe AS Primero
FROM Banco_Movimiento
   INNER JOIN Deposito_Pago ON Deposito_Pago.Dp_Folio = Banco_Movimiento.Bm_Documento AND
      Deposito_Pago.Es_Cve_Estado = 'CA'
WHERE Banco_Movimiento.Bm_Tabla = 'DEPOSITO_PAGO' AND Banco_Movimiento.Es_Cve_Estado <> 'CA'
ORDER BY Banco_Movimiento.Bm_Folio;

-- SELECT Deposito_Pago (3)
SELECT Deposito_Pago.Dp_Folio AS Documento, SUM(Deposito_Pago.Dp_Importe) AS Primero
FROM Deposito_Pago
WHERE Deposito_Pago.Es_Cve_Estado <> 'CA' AND
   NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado
      WHERE Dr_Documento = Deposito_Pago.Dp_Folio AND Dr_Codigo = 'DEPOSITO_PAGO')
GROUP BY Deposito_Pago.Dp_Folio
ORDER BY Deposito_Pago.Dp_Folio;

SELECT Cheque_x_Aplicar.Ch_Folio + '/' + Cheque_x_Aplicar.Cxa_ID AS Documento,
   Cheque_x_Aplicar.Cxa_Importe AS Primero
FROM Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio
WHERE Cheque.Es_Cve_Estado = 'AP' AND Cheque_x_Aplicar.Es_Cve_Estado = 'AC'
ORDER BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxa_ID;

-- SELECT Cheque (2)
SELECT Cheque_x_Aplicar.Ch_Folio + '/' + Cheque_x_Aplicar.Cxa_ID AS Documento,
   Cheque_x_Aplicar.Cxa_Importe AS Primero
FROM Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio
WHERE Cheque.Es_Cve_Estado IN ('AC', 'PXA') AND Cheque_x_Aplicar.Es_Cve_Estado = 'AP'
ORDER BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxa_ID;

-- SELECT Cheque (3)
SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero
FROM Cheque
WHERE Cheque.Es_Cve_Estado <> 'AP' AND
   (EXISTS (SELECT Pc_ID FROM Pago_Cxp
      WHERE Pc_Documento = Cheque.Ch_Folio AND Pc_Tabla = 'CHEQUE' AND Pago_Cxp.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar
      WHERE Cxc_Documento = Cheque.Ch_Folio AND Cxc_Tabla = 'CHEQUE' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT Gc_Folio FROM Gasto_x_Comprobar
         INNER JOIN Cuenta_x_Cobrar ON Cxc_Documento = Gc_Folio AND Cxc_Tabla = 'GASTO_X_COMPROBAR' AND
            Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA'
      WHERE Gc_Documento = Cheque.Ch_Folio AND Gc_Tabla = 'CHEQUE') OR
   EXISTS (SELECT Gcd_ID FROM Gasto_x_Comprobar_Documento
      WHERE Gc_Documento = Cheque.Ch_Folio AND Gc_Tabla = 'CHEQUE' AND
         Gasto_x_Comprobar_Documento.Es_Cve_Estado = 'AP'))
ORDER BY Cheque.Ch_Folio;

SELECT Cheque_x_Aplicar.Ch_Folio + '/' + Cheque_x_Aplicar.Cxp_Folio AS Documento,
   SUM(Cheque_x_Aplicar.Cxa_Importe) AS Primero,
   (SELECT ISNULL(SUM(Pc_Importe_Pago),0) FROM Pago_Cxp
      WHERE Pago_Cxp.Pc_Documento = Cheque_x_Aplicar.Ch_Folio AND Pago_Cxp.Pc_Tabla = 'CHEQUE' AND
         Pago_Cxp.Cxp_Folio = Cheque_x_Aplicar.Cxp_Folio AND Pago_Cxp.Es_Cve_Estado <> 'CA') AS Segundo
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio
WHERE Cheque.Es_Cve_Estado = 'AP' AND Tipo_Cheque.Tc_Solicitar = '01' AND
   EXISTS (SELECT Pc_ID FROM Pago_Cxp
      WHERE Pago_Cxp.Pc_Documento = Cheque_x_Aplicar.Ch_Folio AND Pago_Cxp.Pc_Tabla = 'CHEQUE' AND
         Pago_Cxp.Cxp_Folio = Cheque_x_Aplicar.Cxp_Folio)
GROUP BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxp_Folio
HAVING ABS(SUM(Cheque_x_Aplicar.Cxa_Importe) -
   (SELECT ISNULL(SUM(Pc_Importe_Pago),0) FROM Pago_Cxp
      WHERE Pago_Cxp.Pc_Documento = Cheque_x_Aplicar.Ch_Folio AND Pago_Cxp.Pc_Tabla = 'CHEQUE' AND
         Pago_Cxp.Cxp_Folio = Cheque_x_Aplicar.Cxp_Folio AND Pago_Cxp.Es_Cve_Estado <> 'CA')) >= 0.005
ORDER BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxp_Folio;

SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe * COUNT(Cheque_x_Aplicar.Cxa_ID) AS Primero,
   (SELECT ISNULL(SUM(Cxc_Precio_Neto_Importe),0) FROM Cuenta_x_Cobrar
      WHERE Cxc_Documento = Cheque.Ch_Folio AND Cxc_Tabla = 'CHEQUE' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA') AS
Segundo
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio
WHERE Cheque.Es_Cve_Estado = 'AP' AND Tipo_Cheque.Tc_Solicitar IN ('03', '04') AND
   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar
      WHERE Cxc_Documento = Cheque.Ch_Folio AND (Cxc_Tabla = 'CHEQUE' OR Cxc_Tabla LIKE 'CHEQUE-CA:%'))
GROUP BY Cheque.Ch_Folio, Cheque.Ch_Importe
HAVING ABS(Cheque.Ch_Importe * COUNT(Cheque_x_Aplicar.Cxa_ID) -
   (SELECT ISNULL(SUM(Cxc_Precio_Neto_Importe),0) FROM Cuenta_x_Cobrar
      WHERE Cxc_Documento = Cheque.Ch_Folio AND Cxc_Tabla = 'CHEQUE' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA')) >=
0.005
ORDER BY Cheque.Ch_Folio;

SELECT Cuenta_x_Pagar.Cxp_Folio AS Documento, Cuenta_x_Pagar.Cxp_Importe AS Primero
FROM Cuenta_x_Pagar
WHERE Cuenta_x_Pagar.Cxp_Tabla = 'ANTICIPO_CXP' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA' AND
   NOT EXISTS (SELECT Cxa_ID FROM Cheque_x_Aplicar
      WHERE Cheque_x_Aplicar.Ch_Folio = Cuenta_x_Pagar.Ch_Folio AND
         Cheque_x_Aplicar.Cxp_Folio = Cuenta_x_Pagar.Cxp_Folio AND Cheque_x_Aplicar.Es_Cve_Estado <> 'CA')
ORDER BY Cuenta_x_Pagar.Cxp_Folio;

-- SELECT Cheque (4)
SELECT Cheque_x_Aplicar.Ch_Folio + '/' + Cheque_x_Aplicar.Cxa_ID AS Documento,
   Cheque_x_Aplicar.Cxa_Importe AS Primero
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio
   INNER JOIN Cuenta_x_Pagar ON Cuenta_x_Pagar.Cxp_Folio = Cheque_x_Aplicar.Cxp_Folio
WHERE Cheque.Es_Cve_Estado = 'AP' AND Tipo_Cheque.Tc_Solicitar = '05' AND
   Cuenta_x_Pagar.Cxp_Tabla LIKE 'ANTICIPO_CXP-CA:%'
ORDER BY Cheque_x_Aplicar.Ch_Folio, Cheque_x_Aplicar.Cxa_ID;

-- SELECT Cheque (5)
SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero, Banco_Movimiento.Bm_Importe AS Segundo
FROM Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio
   INNER JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Cheque.Ch_Folio AND
      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado = 'TR'
WHERE Cheque.Es_Cve_Estado = 'AP' AND Cheque_x_Aplicar.Es_Cve_Estado = 'AP' AND
   (Banco_Movimiento.Bm_Fecha_Firme <> Cheque_x_Aplicar.Cxa_Fecha_Aplicacion OR
   (Cheque.Ch_Firme = 'SI' AND Banco_Movimiento.Fecha_Ult_Modif < Cheque.Fecha_Ult_Modif))
ORDER BY Cheque.Ch_Folio;

-- SELECT Cheque (6)
SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero, Banco_Movimiento.Bm_Importe AS Segundo
FROM Cheque
   INNER JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Cheque.Ch_Folio AND
      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA'
WHERE Cheque.Es_Cve_Estado = 'AC' AND Cheque.Ch_Aplicar = 'SI' AND
   (Banco_Movimiento.Es_Cve_Estado = 'FI' OR Banco_Movimiento.Bm_Fecha_Firme <> Banco_Movimiento.Bm_Fecha)
ORDER BY Cheque.Ch_Folio;

SELECT Cheque_x_Aplicar.Ch_Folio AS Documento, SUM(Cheque_x_Aplicar.Cxa_Importe) AS Primero
FROM Cheque_x_Aplicar
   LEFT JOIN Cheque ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio
WHERE Cheque.Ch_Folio IS NULL AND Cheque_x_Aplicar.Es_Cve_Estado <> 'CA'
GROUP BY Cheque_x_Aplicar.Ch_Folio
ORDER BY Cheque_x_Aplicar.Ch_Folio;

-- SELECT Cheque (7)
SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero
FROM Cheque
   LEFT JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Cheque.Ch_Folio AND
      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA'
WHERE Cheque.Es_Cve_Estado IN ('AC', 'AP') AND Cheque.Ch_Cuenta_Destino = '' AND
   Banco_Movimiento.Bm_Folio IS NULL
ORDER BY Cheque.Ch_Folio;

-- SELECT Cheque (8)
SELECT MAX(Ch_Folio) AS Documento, MAX(Ch_Importe) AS Primero
FROM Cheque
WHERE Es_Cve_Estado <> 'CA' AND Ch_Referencia <> ''
GROUP BY Ch_Referencia, Bc_Cve_Banco_Cuenta, Ch_Transferencia
HAVING COUNT(*) > 1
ORDER BY Documento;

-- SELECT Cheque (9)
SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero
FROM Cheque
   INNER JOIN Poliza ON Poliza.Pz_Documento = Cheque.Ch_Folio AND Poliza.Pz_Tabla = 'CHEQUE' AND
      Poliza.Es_Cve_Estado <> 'CA'
WHERE Cheque.Es_Cve_Estado <> 'CA' AND
   NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado
      WHERE Dr_Documento = Cheque.Ch_Folio AND Dr_Codigo = 'CHEQUE')
ORDER BY Cheque.Ch_Folio;

-- SELECT Cheque (10)
SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero
FROM Cheque
   INNER JOIN Solicitud_Cheque ON Solicitud_Cheque.Sch_Folio = Cheque.Ch_Documento
WHERE Cheque.Ch_Tabla = 'SOLICITUD_CHEQUE' AND Cheque.Es_Cve_Estado <> 'CA' AND Solicitud_Cheque.Es_Cve_Estado = 'CA'
ORDER BY Cheque.Ch_Folio;

-- SELECT Cheque (11)
SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero
FROM Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio
WHERE Cheque.Es_Cve_Estado = 'CA' AND Cheque_x_Aplicar.Es_Cve_Estado <> 'CA'
ORDER BY Cheque.Ch_Folio;

-- SELECT Banco_Movimiento (2)
SELECT Banco_Movimiento.Bm_Folio AS Documento, Banco_Movimiento.Bm_Importe AS Primero
FROM Banco_Movimiento
   INNER JOIN Cheque ON Cheque.Ch_Folio = Banco_Movimiento.Bm_Documento AND Cheque.Es_Cve_Estado = 'CA'
WHERE Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA'
ORDER BY Banco_Movimiento.Bm_Folio;

SELECT Gasto_x_Comprobar.Gc_Folio AS Documento, Gasto_x_Comprobar.Gc_Importe AS Primero
FROM Gasto_x_Comprobar
   INNER JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Gasto_x_Comprobar.Gc_Documento AND
      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA'
WHERE Gasto_x_Comprobar.Gc_Tabla = 'CHEQUE' AND Gasto_x_Comprobar.Es_Cve_Estado = 'PXA'
ORDER BY Gasto_x_Comprobar.Gc_Folio;

-- SELECT Cheque (12)
SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero
FROM Cheque
   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque_x_Aplicar.Ch_Folio = Cheque.Ch_Folio
WHERE Cheque.Es_Cve_Estado <> 'CA' AND Tipo_Cheque.Tc_Solicitar = '02' AND
   NOT EXISTS (SELECT Gc_Folio FROM Gasto_x_Comprobar
      WHERE Gasto_x_Comprobar.Gc_Folio = Cheque_x_Aplicar.Cxp_Folio AND Gasto_x_Comprobar.Es_Cve_Estado <> 'CA')
ORDER BY Cheque.Ch_Folio;

-- SELECT Cuenta_x_Cobrar (2)
SELECT Cheque.Ch_Folio AS Documento, Gasto_x_Comprobar.Gc_Importe AS Primero,
   (SELECT ISNULL(SUM(Cxc_Precio_Neto_Importe),0) FROM Cuenta_x_Cobrar
      WHERE Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND Cxc_Tabla = 'GASTO_X_COMPROBAR' AND
         Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA') AS Segundo
FROM Cheque
   INNER JOIN Gasto_x_Comprobar ON Gasto_x_Comprobar.Gc_Documento = Cheque.Ch_Folio AND
      Gasto_x_Comprobar.Gc_Tabla = 'CHEQUE'
WHERE Cheque.Es_Cve_Estado = 'AP' AND
   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND
      (Cxc_Tabla = 'GASTO_X_COMPROBAR' OR Cxc_Tabla LIKE 'GASTO_X_COMPROBAR-CA:%')) AND
   ABS(Gasto_x_Comprobar.Gc_Importe -
   (SELECT ISNULL(SUM(Cxc_Precio_Neto_Importe),0) FROM Cuenta_x_Cobrar
      WHERE Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND Cxc_Tabla = 'GASTO_X_COMPROBAR' AND
         Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA')) >= 0.005
ORDER BY Cheque.Ch_Folio;

SELECT Pago_Cxc.Cxc_Folio + ':' + Pago_Cxc.Pc_ID AS Documento, Pago_Cxc.Pc_Importe AS Primero
FROM Pago_Cxc
WHERE Pago_Cxc.Pc_Tabla = 'ANTICIPO_CXC' AND Pago_Cxc.Es_Cve_Estado <> 'CA' AND Pago_Cxc.Pc_Referencia <> '' AND
   NOT EXISTS (SELECT Propio.Pc_ID FROM Cuenta_x_Cobrar
         INNER JOIN Pago_Cxc Propio ON Propio.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio
      WHERE Cuenta_x_Cobrar.Cxc_Documento = Pago_Cxc.Pc_Documento AND Cuenta_x_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND
         Propio.Pc_Referencia = Pago_Cxc.Pc_Referencia AND Propio.Es_Cve_Estado <> 'CA')
ORDER BY Pago_Cxc.Cxc_Folio, Pago_Cxc.Pc_ID;

-- SELECT Cheque (13)
SELECT DISTINCT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero
FROM Cheque
   INNER JOIN Gasto_x_Comprobar ON Gasto_x_Comprobar.Gc_Documento = Cheque.Ch_Folio AND
      Gasto_x_Comprobar.Gc_Tabla = 'CHEQUE'
   INNER JOIN Gasto_x_Comprobar_Documento ON Gasto_x_Comprobar_Documento.Gc_Documento = Cheque.Ch_Folio AND
      Gasto_x_Comprobar_Documento.Gc_Tabla = 'CHEQUE'
WHERE Cheque.Es_Cve_Estado = 'AP' AND
   ((Gasto_x_Comprobar_Documento.Es_Cve_Estado = 'AP' AND
      (SELECT ISNULL(SUM(Pago_Cxc.Pc_Importe),0) FROM Cuenta_x_Cobrar
            INNER JOIN Pago_Cxc ON Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio
         WHERE Cuenta_x_Cobrar.Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND
            Cuenta_x_Cobrar.Cxc_Tabla = 'GASTO_X_COMPROBAR' AND Pago_Cxc.Pc_Tabla = 'ANTICIPO_CXC' AND
            Pago_Cxc.Pc_Documento = Gasto_x_Comprobar_Documento.Cxc_Folio AND Pago_Cxc.Es_Cve_Estado <> 'CA')
         NOT BETWEEN Gasto_x_Comprobar_Documento.Cxc_Importe - 0.005 AND
            Gasto_x_Comprobar_Documento.Cxc_Importe + 0.005) OR
   (Gasto_x_Comprobar_Documento.Es_Cve_Estado = 'CA' AND
      EXISTS (SELECT Pc_ID FROM Cuenta_x_Cobrar
            INNER JOIN Pago_Cxc ON Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio
         WHERE Cuenta_x_Cobrar.Cxc_Documento = Gasto_x_Comprobar.Gc_Folio AND
            Cuenta_x_Cobrar.Cxc_Tabla = 'GASTO_X_COMPROBAR' AND Pago_Cxc.Pc_Tabla = 'ANTICIPO_CXC' AND
            Pago_Cxc.Pc_Documento = Gasto_x_Comprobar_Documento.Cxc_Folio AND Pago_Cxc.Es_Cve_Estado = 'CA' AND
            Pago_Cxc.Fecha_Baja > Cheque.Fecha_Ult_Modif)) OR
   NOT EXISTS (SELECT Aplicado.Gcd_ID FROM Gasto_x_Comprobar_Documento Aplicado
      WHERE Aplicado.Gc_Documento = Cheque.Ch_Folio AND Aplicado.Gc_Tabla = 'CHEQUE' AND Aplicado.Es_Cve_Estado =
'AP'))
ORDER BY Cheque.Ch_Folio;

-- SELECT Recibo_Pago (3)
SELECT Recibo_Pago.Rp_Folio AS Documento, SUM(Recibo_Pago.Rp_Importe) AS Primero
FROM Recibo_Pago
WHERE Recibo_Pago.Es_Cve_Estado <> 'CA' AND
   NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado
      WHERE Dr_Documento = Recibo_Pago.Rp_Folio AND Dr_Codigo = 'RECIBO_PAGO') AND
   (EXISTS (SELECT Pc_ID FROM Pago_Cxc WHERE Pc_Documento = Recibo_Pago.Rp_Folio AND Pc_Tabla = 'RECIBO_PAGO' AND
      Pago_Cxc.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT An_Folio FROM Anticipo_Cxc WHERE An_Documento = Recibo_Pago.Rp_Folio AND An_Tabla = 'RECIBO_PAGO'
AND
      Anticipo_Cxc.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT Cxp_Folio FROM Cuenta_x_Pagar WHERE Cxp_Documento = Recibo_Pago.Rp_Folio AND
      Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Documento = Recibo_Pago.Rp_Folio AND
      Cxc_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT Pz_Folio FROM Poliza WHERE Pz_Documento = Recibo_Pago.Rp_Folio AND Pz_Tabla = 'RECIBO_PAGO' AND
      Poliza.Es_Cve_Estado <> 'CA'))
GROUP BY Recibo_Pago.Rp_Folio
ORDER BY Recibo_Pago.Rp_Folio;

-- SELECT Pago_Cxc (2)
SELECT Recibo_Pago.Rp_Folio AS Documento, SUM(Recibo_Pago.Rp_Importe) AS Primero,
   (SELECT ISNULL(SUM(Pc_Importe_Pago),0) FROM Pago_Cxc WHERE Pc_Documento = Recibo_Pago.Rp_Folio AND
      Pc_Tabla = 'RECIBO_PAGO' AND Pago_Cxc.Es_Cve_Estado <> 'CA') +
   (SELECT ISNULL(SUM(An_Importe),0) FROM Anticipo_Cxc WHERE An_Documento = Recibo_Pago.Rp_Folio AND
      An_Tabla = 'RECIBO_PAGO' AND Anticipo_Cxc.Es_Cve_Estado <> 'CA') +
   (SELECT ISNULL(SUM(Cxp_Importe),0) FROM Cuenta_x_Pagar WHERE Cxp_Documento = Recibo_Pago.Rp_Folio AND
      Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA') AS Segundo
FROM Recibo_Pago
   INNER JOIN Tipo_Recibo_Pago ON
      Tipo_Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago = Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago
WHERE Recibo_Pago.Es_Cve_Estado IN ('AP', 'AD') AND Tipo_Recibo_Pago.Trp_Solicitar IN ('02', '03', '04')
GROUP BY Recibo_Pago.Rp_Folio
HAVING ABS(SUM(Recibo_Pago.Rp_Importe) -
   (SELECT ISNULL(SUM(Pc_Importe_Pago),0) FROM Pago_Cxc WHERE Pc_Documento = Recibo_Pago.Rp_Folio AND
      Pc_Tabla = 'RECIBO_PAGO' AND Pago_Cxc.Es_Cve_Estado <> 'CA') -
   (SELECT ISNULL(SUM(An_Importe),0) FROM Anticipo_Cxc WHERE An_Documento = Recibo_Pago.Rp_Folio AND
      An_Tabla = 'RECIBO_PAGO' AND Anticipo_Cxc.Es_Cve_Estado <> 'CA') -
   (SELECT ISNULL(SUM(Cxp_Importe),0) FROM Cuenta_x_Pagar WHERE Cxp_Documento = Recibo_Pago.Rp_Folio AND
      Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA')) >= 0.005
ORDER BY Recibo_Pago.Rp_Folio;

-- SELECT Cuenta_x_Cobrar (3)
SELECT Cuenta_x_Cobrar.Cxc_Documento AS Documento,
   'sus cuentas por cobrar vivas no son las de sus formas de pago' AS Detalle
FROM Cuenta_x_Cobrar
WHERE Cuenta_x_Cobrar.Cxc_Tabla = 'RECIBO_PAGO' AND
   EXISTS (SELECT Rp_Id FROM Recibo_Pago
      WHERE Recibo_Pago.Rp_Folio = Cuenta_x_Cobrar.Cxc_Documento AND Recibo_Pago.Es_Cve_Estado <> 'CA')
GROUP BY Cuenta_x_Cobrar.Cxc_Documento, Cuenta_x_Cobrar.Cl_Cve_Cliente
HAVING (SUM(CASE WHEN Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' THEN 0 ELSE 1 END) > 1 AND
      SUM(CASE WHEN Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' THEN 0 ELSE 1 END) >
   (SELECT COUNT(DISTINCT Recibo_Pago.Fp_Cve_Forma_Pago) FROM Recibo_Pago
         INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago
      WHERE Recibo_Pago.Rp_Folio = Cuenta_x_Cobrar.Cxc_Documento AND
         Forma_Pago.Fp_Cliente = Cuenta_x_Cobrar.Cl_Cve_Cliente)) OR
   (SUM(CASE WHEN Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' THEN 1 ELSE 0 END) > 0 AND
      SUM(CASE WHEN Cuenta_x_Cobrar.Es_Cve_Estado = 'CA' THEN 0 ELSE 1 END) <
   (SELECT COUNT(DISTINCT Recibo_Pago.Fp_Cve_Forma_Pago) FROM Recibo_Pago
         INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago
      WHERE Recibo_Pago.Rp_Folio = Cuenta_x_Cobrar.Cxc_Documento AND
         Forma_Pago.Fp_Cliente = Cuenta_x_Cobrar.Cl_Cve_Cliente))
ORDER BY Documento;

-- SELECT Recibo_Pago (4)
SELECT Recibo_Pago.Rp_Folio AS Documento, SUM(Recibo_Pago.Rp_Importe) AS Primero
FROM Recibo_Pago
WHERE Recibo_Pago.Es_Cve_Estado = 'CA' AND
   (EXISTS (SELECT Pc_ID FROM Pago_Cxc WHERE Pc_Documento = Recibo_Pago.Rp_Folio AND Pc_Tabla = 'RECIBO_PAGO' AND
      Pago_Cxc.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT An_Folio FROM Anticipo_Cxc WHERE An_Documento = Recibo_Pago.Rp_Folio AND An_Tabla = 'RECIBO_PAGO'
AND
      Anticipo_Cxc.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT Cxp_Folio FROM Cuenta_x_Pagar WHERE Cxp_Documento = Recibo_Pago.Rp_Folio AND
      Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA') OR
   EXISTS (SELECT Cxc_Folio FROM Cuenta_x_Cobrar WHERE Cxc_Documento = Recibo_Pago.Rp_Folio AND
      Cxc_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA'))
GROUP BY Recibo_Pago.Rp_Folio
ORDER BY Recibo_Pago.Rp_Folio;

SELECT Solicitud_Cheque.Sch_Folio AS Documento, Solicitud_Cheque.Sch_Importe AS Primero
FROM Solicitud_Cheque
WHERE Solicitud_Cheque.Es_Cve_Estado <> 'CA' AND
   EXISTS (SELECT Scd_Id FROM Solicitud_Cheque_Detalle
      WHERE Solicitud_Cheque_Detalle.Sch_Folio = Solicitud_Cheque.Sch_Folio) AND
   NOT EXISTS (SELECT Scd_Id FROM Solicitud_Cheque_Detalle
      WHERE Solicitud_Cheque_Detalle.Sch_Folio = Solicitud_Cheque.Sch_Folio AND
         Solicitud_Cheque_Detalle.Es_Cve_Estado <> 'CA')
ORDER BY Solicitud_Cheque.Sch_Folio;

-- SELECT Solicitud_Cheque (2)
SELECT DISTINCT Solicitud_Cheque.Sch_Folio AS Documento, Solicitud_Cheque.Sch_Importe AS Primero
FROM Solicitud_Cheque
   INNER JOIN Solicitud_Cheque_Detalle ON Solicitud_Cheque_Detalle.Sch_Folio = Solicitud_Cheque.Sch_Folio
WHERE Solicitud_Cheque.Es_Cve_Estado = 'AC' AND Solicitud_Cheque_Detalle.Es_Cve_Estado = 'PXA'
ORDER BY Solicitud_Cheque.Sch_Folio;

-- SELECT Banco_Movimiento (3)
SELECT MAX(Bm_Folio) AS Documento, MAX(Bm_Importe) AS Primero
FROM Banco_Movimiento
WHERE Es_Cve_Estado <> 'CA' AND Bm_Documento <> ''
GROUP BY Bm_Tabla, Bm_Documento, Bm_Documento_ID, Bc_Cve_Banco_Cuenta, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe,
   Bm_Referencia
HAVING COUNT(*) > 1
ORDER BY Documento;

-- SELECT Banco_Movimiento (4)
SELECT Banco_Movimiento.Bm_Folio AS Documento, Banco_Movimiento.Bm_Importe AS Primero
FROM Banco_Movimiento
WHERE Banco_Movimiento.Es_Cve_Estado <> 'CA' AND
   NOT EXISTS (SELECT Dr_Veces FROM Documento_Registrado
      WHERE Dr_Documento = Banco_Movimiento.Bm_Folio AND Dr_Codigo = 'BANCO_MOVIMIENTO')
ORDER BY Banco_Movimiento.Bm_Folio;

-- SELECT Banco_Movimiento (5)
SELECT Banco_Movimiento.Bm_Folio AS Documento, Banco_Movimiento.Bm_Importe AS Primero
FROM Banco_Movimiento
   LEFT JOIN Documento_Registrado ON Documento_Registrado.Dr_Documento = Banco_Movimiento.Bm_Folio AND
      Documento_Registrado.Dr_Codigo = 'BANCO_MOVIMIENTO'
WHERE Banco_Movimiento.Es_Cve_Estado = 'CA' AND
   (Documento_Registrado.Dr_Documento IS NULL OR (Documento_Registrado.Dr_Veces < 2 AND
      Documento_Registrado.Fecha_Ult_Modif < Banco_Movimiento.Fecha_Baja))
ORDER BY Banco_Movimiento.Bm_Folio;

-- SELECT Cuenta_x_Cobrar (4)
SELECT Cuenta_x_Cobrar.Cxc_Folio AS Documento, Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo AS Primero,
   Cuenta_x_Cobrar.Cxc_Precio_Neto_Importe - ISNULL(SUM(Pago_Cxc.Pc_Importe),0) AS Segundo
FROM Cuenta_x_Cobrar
   LEFT JOIN Pago_Cxc ON Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio AND Pago_Cxc.Es_Cve_Estado <> 'CA' AND
      Pago_Cxc.Pc_Afecta_Saldo = 'SI'
WHERE Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA'
GROUP BY Cuenta_x_Cobrar.Cxc_Folio, Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo,
   Cuenta_x_Cobrar.Cxc_Precio_Neto_Importe
HAVING ABS(Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo - Cuenta_x_Cobrar.Cxc_Precio_Neto_Importe +
   ISNULL(SUM(Pago_Cxc.Pc_Importe),0)) >= 0.005
ORDER BY Cuenta_x_Cobrar.Cxc_Folio;

-- SELECT Cuenta_x_Pagar (2)
SELECT Cuenta_x_Pagar.Cxp_Folio AS Documento, Cuenta_x_Pagar.Cxp_Precio_Neto_Saldo AS Primero,
   Cuenta_x_Pagar.Cxp_Precio_Neto_Importe - ISNULL(SUM(Pago_Cxp.Pc_Importe),0) AS Segundo
FROM Cuenta_x_Pagar
   LEFT JOIN Pago_Cxp ON Pago_Cxp.Cxp_Folio = Cuenta_x_Pagar.Cxp_Folio AND Pago_Cxp.Es_Cve_Estado <> 'CA'
WHERE Cuenta_x_Pagar.Es_Cve_Estado <> 'CA'
GROUP BY Cuenta_x_Pagar.Cxp_Folio, Cuenta_x_Pagar.Cxp_Precio_Neto_Saldo,
   Cuenta_x_Pagar.Cxp_Precio_Neto_Importe
HAVING ABS(Cuenta_x_Pagar.Cxp_Precio_Neto_Saldo - Cuenta_x_Pagar.Cxp_Precio_Neto_Importe +
   ISNULL(SUM(Pago_Cxp.Pc_Importe),0)) >= 0.005
ORDER BY Cuenta_x_Pagar.Cxp_Folio;

-- SELECT Cuenta_x_Cobrar (5)
SELECT Cuenta_x_Cobrar.Cxc_Folio AS Documento, Cuenta_x_Cobrar.Cxc_Importe AS Primero
FROM Cuenta_x_Cobrar
WHERE Cuenta_x_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA' AND
   NOT EXISTS (SELECT An_Folio FROM Anticipo_Cxc WHERE An_Folio = Cuenta_x_Cobrar.Cxc_Documento)
ORDER BY Cuenta_x_Cobrar.Cxc_Folio;

SELECT Anticipo_Cxc.An_Folio AS Documento, Anticipo_Cxc.An_Importe AS Primero
FROM Anticipo_Cxc
   INNER JOIN Cuenta_x_Cobrar ON Cuenta_x_Cobrar.Cxc_Documento = Anticipo_Cxc.An_Folio AND
      Cuenta_x_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND Cuenta_x_Cobrar.Es_Cve_Estado = 'CA'
WHERE Anticipo_Cxc.Es_Cve_Estado <> 'CA'
ORDER BY Anticipo_Cxc.An_Folio;

-- SELECT Anticipo_Cxc (2)
SELECT Anticipo_Cxc.An_Folio AS Documento, Anticipo_Cxc.An_Importe AS Primero,
   Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo AS Segundo
FROM Anticipo_Cxc
   INNER JOIN Cuenta_x_Cobrar ON Cuenta_x_Cobrar.Cxc_Documento = Anticipo_Cxc.An_Folio AND
      Cuenta_x_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA'
WHERE Anticipo_Cxc.Es_Cve_Estado = 'AP' AND ABS(Cuenta_x_Cobrar.Cxc_Precio_Neto_Saldo) >= 0.005
ORDER BY Anticipo_Cxc.An_Folio;

SELECT Poliza.Pz_Folio AS Documento, ISNULL(SUM(Poliza_Detalle.Pzd_Cargo),0) AS Primero,
   ISNULL(SUM(Poliza_Detalle.Pzd_Abono),0) AS Segundo
FROM Poliza
   LEFT JOIN Poliza_Detalle ON Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio
WHERE Poliza.Es_Cve_Estado <> 'CA'
GROUP BY Poliza.Pz_Folio
HAVING ABS(ISNULL(SUM(Poliza_Detalle.Pzd_Cargo),0) - ISNULL(SUM(Poliza_Detalle.Pzd_Abono),0)) >= 0.005 OR
   COUNT(Poliza_Detalle.Pzd_ID) = 0
ORDER BY Poliza.Pz_Folio;

SELECT Poliza_Detalle.Pz_Folio AS Documento, SUM(Poliza_Detalle.Pzd_Cargo) AS Primero,
   SUM(Poliza_Detalle.Pzd_Abono) AS Segundo
FROM Poliza_Detalle
WHERE NOT EXISTS (SELECT Poliza.Pz_Folio FROM Poliza WHERE Poliza.Pz_Folio = Poliza_Detalle.Pz_Folio)
GROUP BY Poliza_Detalle.Pz_Folio
ORDER BY Poliza_Detalle.Pz_Folio;

-- SELECT Poliza (2)
SELECT MAX(Pz_Folio) AS Documento, 'hay más de una viva de su documento' AS Detalle
FROM Poliza
WHERE Es_Cve_Estado <> 'CA' AND Pz_Documento <> ''
GROUP BY Pz_Tabla, Pz_Documento
HAVING COUNT(*) > 1
ORDER BY Documento;

-- SELECT Poliza (3)
SELECT DISTINCT Poliza.Pz_Documento AS Documento, 'su póliza está cancelada y él no' AS Detalle
FROM Poliza
WHERE Poliza.Es_Cve_Estado = 'CA' AND
   NOT EXISTS (SELECT Viva.Pz_Folio FROM Poliza Viva WHERE Viva.Pz_Documento = Poliza.Pz_Documento AND
      Viva.Pz_Tabla = Poliza.Pz_Tabla AND Viva.Es_Cve_Estado <> 'CA') AND
   ((Poliza.Pz_Tabla = 'RECIBO_PAGO' AND EXISTS (SELECT Rp_Id FROM Recibo_Pago
      WHERE Rp_Folio = Poliza.Pz_Documento AND Recibo_Pago.Es_Cve_Estado <> 'CA')) OR
   (Poliza.Pz_Tabla = 'DEPOSITO_PAGO' AND EXISTS (SELECT Dp_Id FROM Deposito_Pago
      WHERE Dp_Folio = Poliza.Pz_Documento AND Deposito_Pago.Es_Cve_Estado <> 'CA')) OR
   (Poliza.Pz_Tabla = 'CHEQUE' AND EXISTS (SELECT Ch_Folio FROM Cheque
      WHERE Cheque.Ch_Folio = Poliza.Pz_Documento AND Cheque.Es_Cve_Estado <> 'CA')) OR
   (Poliza.Pz_Tabla = 'BANCO_MOVIMIENTO' AND EXISTS (SELECT Bm_Folio FROM Banco_Movimiento
      WHERE Bm_Folio = Poliza.Pz_Documento AND Banco_Movimiento.Es_Cve_Estado <> 'CA')))
ORDER BY Poliza.Pz_Documento;
