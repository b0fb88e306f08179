-- Audit

-- ---- every check

SELECT Banco_Cuenta.Bc_Cve_Banco_Cuenta AS Documento, Banco_Cuenta.Bc_Saldo AS Primero,
   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) AS Segundo
FROM Banco_Cuenta
   LEFT JOIN Banco_Movimiento ON Banco_Movimiento.Bc_Cve_Banco_Cuenta = Banco_Cuenta.Bc_Cve_Banco_Cuenta AND
      Banco_Movimiento.Es_Cve_Estado <> 'CA'
GROUP BY Banco_Cuenta.Bc_Cve_Banco_Cuenta, Banco_Cuenta.Bc_Saldo
HAVING ABS(Banco_Cuenta.Bc_Saldo - ISNULL(SUM(Banco_Movimiento.Bm_Importe),0)) >= 0.005
ORDER BY Banco_Cuenta.Bc_Cve_Banco_Cuenta;

SELECT Banco.Bn_Cve_Banco AS Documento, Banco.Bn_Saldo AS Primero, ISNULL(SUM(Banco_Cuenta.Bc_Saldo),0) AS Segundo
FROM Banco
   LEFT JOIN Banco_Cuenta ON Banco_Cuenta.Bn_Cve_Banco = Banco.Bn_Cve_Banco
GROUP BY Banco.Bn_Cve_Banco, Banco.Bn_Saldo
HAVING ABS(Banco.Bn_Saldo - ISNULL(SUM(Banco_Cuenta.Bc_Saldo),0)) >= 0.005
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

SELECT Cheque_x_Aplicar.Ch_Folio AS Documento, SUM(Cheque_x_Aplicar.Cxa_Importe) AS Primero
FROM Cheque_x_Aplicar
   LEFT JOIN Cheque ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio
WHERE Cheque.Ch_Folio IS NULL AND Cheque_x_Aplicar.Es_Cve_Estado <> 'CA'
GROUP BY Cheque_x_Aplicar.Ch_Folio
ORDER BY Cheque_x_Aplicar.Ch_Folio;

-- SELECT Cheque (3)
SELECT Cheque.Ch_Folio AS Documento, Cheque.Ch_Importe AS Primero
FROM Cheque
   LEFT JOIN Banco_Movimiento ON Banco_Movimiento.Bm_Documento = Cheque.Ch_Folio AND
      Banco_Movimiento.Bm_Tabla = 'CHEQUE' AND Banco_Movimiento.Es_Cve_Estado <> 'CA'
WHERE Cheque.Es_Cve_Estado IN ('AC', 'AP') AND Cheque.Ch_Cuenta_Destino = '' AND
   Banco_Movimiento.Bm_Folio IS NULL
ORDER BY Cheque.Ch_Folio;

-- SELECT Cheque (4)
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

SELECT DISTINCT Recibo_Pago.Rp_Folio AS Documento, Cuenta_x_Pagar.Cxp_Importe AS Primero
FROM Cuenta_x_Pagar
   INNER JOIN Recibo_Pago ON Recibo_Pago.Rp_Folio = Cuenta_x_Pagar.Cxp_Documento AND
      Recibo_Pago.Es_Cve_Estado IN ('AC', 'DP')
WHERE Cuenta_x_Pagar.Cxp_Tabla = 'RECIBO_PAGO' AND Cuenta_x_Pagar.Es_Cve_Estado <> 'CA'
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

SELECT Poliza.Pz_Folio AS Documento, ISNULL(SUM(Poliza_Detalle.Pzd_Cargo),0) AS Primero,
   ISNULL(SUM(Poliza_Detalle.Pzd_Abono),0) AS Segundo
FROM Poliza
   LEFT JOIN Poliza_Detalle ON Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio
WHERE Poliza.Es_Cve_Estado <> 'CA'
GROUP BY Poliza.Pz_Folio
HAVING ABS(ISNULL(SUM(Poliza_Detalle.Pzd_Cargo),0) - ISNULL(SUM(Poliza_Detalle.Pzd_Abono),0)) >= 0.005 OR
   COUNT(Poliza_Detalle.Pzd_ID) = 0
ORDER BY Poliza.Pz_Folio;
