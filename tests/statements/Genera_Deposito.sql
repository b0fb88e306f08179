-- Genera_Deposito

-- ---- one receipt in cash, in transit

SELECT
   Sucursal.Sc_Cve_Sucursal,
   Forma_Pago.Fp_Cve_Forma_Pago,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN 'DEPOSITO EFECTIVO'
      WHEN Forma_Pago.Fp_Tipo = '02' THEN 'DEPOSITO CON CHEQUE'
      WHEN Forma_Pago.Fp_Tipo = '04' THEN 'DEPOSITO CON TARJETA DE CREDITO'
      ELSE Rp_Comentario END as Rp_Comentario,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Banco END as Rp_Banco,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Cheque END as Rp_Cheque,
   SUM(Rp_Importe) as Rp_Importe,
   Mn_Cve_Moneda,
   Recibo_Pago.Rp_Tipo_Cambio,
   Sucursal.Em_Cve_Empresa
FROM Recibo_Pago
   INNER JOIN Forma_Pago ON Recibo_Pago.Fp_Cve_Forma_Pago = Forma_Pago.Fp_Cve_Forma_Pago
   INNER JOIN Sucursal ON Recibo_Pago.Sc_Cve_Sucursal = Sucursal.Sc_Cve_Sucursal
WHERE Rp_Folio IN ('RP-MTY-00000001') AND
   Recibo_Pago.Es_Cve_Estado IN ('AC', 'AP')
GROUP BY
   Sucursal.Sc_Cve_Sucursal,
   Forma_Pago.Fp_Cve_Forma_Pago,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN 'DEPOSITO EFECTIVO'
      WHEN Forma_Pago.Fp_Tipo = '02' THEN 'DEPOSITO CON CHEQUE'
      WHEN Forma_Pago.Fp_Tipo = '04' THEN 'DEPOSITO CON TARJETA DE CREDITO'
      ELSE Rp_Comentario END,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Banco END,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Cheque END,
   Mn_Cve_Moneda,
   Recibo_Pago.Rp_Tipo_Cambio,
   Sucursal.Em_Cve_Empresa
ORDER BY
   Forma_Pago.Fp_Cve_Forma_Pago,
   Rp_Banco,
   Rp_Cheque;

-- SELECT Recibo_Pago (2)
SELECT
   Recibo_Pago.Sc_Cve_Sucursal,
   Sucursal.Em_Cve_Empresa,
   Forma_Pago.Fp_Cve_Forma_Pago,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN 'DEPOSITO EFECTIVO'
      WHEN Forma_Pago.Fp_Tipo = '02' THEN 'DEPOSITO CON CHEQUE'
      WHEN Forma_Pago.Fp_Tipo = '04' THEN 'DEPOSITO CON TARJETA DE CREDITO'
      ELSE Rp_Comentario END as Rp_Comentario,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Banco END as Rp_Banco,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Cheque END as Rp_Cheque,
   SUM(Rp_Importe) as Rp_Importe,
   Mn_Cve_Moneda,
   Recibo_Pago.Rp_Tipo_Cambio
FROM Recibo_Pago
   INNER JOIN Forma_Pago ON Recibo_Pago.Fp_Cve_Forma_Pago = Forma_Pago.Fp_Cve_Forma_Pago
   INNER JOIN Sucursal ON Recibo_Pago.Sc_Cve_Sucursal = Sucursal.Sc_Cve_Sucursal
WHERE Rp_Folio IN ('RP-MTY-00000001') AND Fp_Depositable = 'SI' AND
   Recibo_Pago.Es_Cve_Estado IN ('AC', 'AP')
GROUP BY
   Recibo_Pago.Sc_Cve_Sucursal,
   Sucursal.Em_Cve_Empresa,
   Forma_Pago.Fp_Cve_Forma_Pago,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN 'DEPOSITO EFECTIVO'
      WHEN Forma_Pago.Fp_Tipo = '02' THEN 'DEPOSITO CON CHEQUE'
      WHEN Forma_Pago.Fp_Tipo = '04' THEN 'DEPOSITO CON TARJETA DE CREDITO'
      ELSE Rp_Comentario END,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Banco END,
   CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Cheque END,
   Mn_Cve_Moneda,
   Recibo_Pago.Rp_Tipo_Cambio
ORDER BY
   Forma_Pago.Fp_Cve_Forma_Pago,
   Rp_Banco,
   Rp_Cheque ;

INSERT INTO Deposito_Pago(
  Dp_Folio,
   Dp_Id,
   Dp_Fecha,
   Sc_Cve_Sucursal,
   Mn_Cve_Moneda,
   Dp_Tipo_Cambio,
   Bc_Cve_Banco_Cuenta,
   Dp_Importe,
   Dp_Referencia,
   Dp_Comentario,
   Rp_Banco,
   Rp_Cheque,
   Oper_Alta,
   Fecha_Alta,
   Oper_Ult_Modif,
   Fecha_Ult_Modif)
VALUES('DP-MTY-00000001', '0001', '2024-03-15', 'MTY', 'MXN', 1, 'SRR-MXN', 100, '', '', '', '', 'CAJA1',
'2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30');

-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000001', 'SRR-MXN', 'DEPOSITO_PAGO',
--    'DP-MTY-00000001', '0001', '', '1102-01', 'DEPOSITO EFECTIVO', '2024-03-15', '2024-03-15', 'DEP', 100, 'MXN', 1,
--    'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'TR'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with 100, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with 100, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'

UPDATE Recibo_Pago SET
   Recibo_Pago.Es_Cve_Estado = (CASE Recibo_Pago.Es_Cve_Estado WHEN 'AC' THEN 'DP' WHEN 'AP' THEN 'AD' END ),
   Recibo_Pago.Rp_Folio_Deposito = 'DP-MTY-00000001',
   Recibo_Pago.Rp_Deposito_ID = '0001',
   Recibo_Pago.Rp_Fecha_Deposito = '2024-03-15'
FROM Recibo_Pago
   INNER JOIN Forma_Pago on Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago
WHERE
   Recibo_Pago.Rp_Folio IN ('RP-MTY-00000001') AND
   Recibo_Pago.Es_Cve_Estado IN ('AC', 'AP') AND
   Recibo_Pago.Fp_Cve_Forma_Pago = '01' AND
   (CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Banco END) = '' AND
   (CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Cheque END) = '' ;

-- ---- two receipts in two groups, firm; the list has blanks

-- again SELECT Recibo_Pago with 'RP-MTY-00000001','RP-MTY-00000002' for 'RP-MTY-00000001'
-- again SELECT Recibo_Pago (2) with 'RP-MTY-00000001','RP-MTY-00000002' for 'RP-MTY-00000001'
-- again INSERT Deposito_Pago with 'DP-MTY-00000001', '0001', '2024-03-15', 'MTY', 'MXN', 1, 'SRR-MXN', 50, '',
--    'Corte', '', '', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000001', 'SRR-MXN', 'DEPOSITO_PAGO',
--    'DP-MTY-00000001', '0001', '', '1102-01', 'DEPOSITO EFECTIVO', '2024-03-15', '2024-03-20', 'DEP', 50, 'MXN', 1,
--    'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'FI'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with 50, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with 50, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- again UPDATE Recibo_Pago with 'RP-MTY-00000001','RP-MTY-00000002' for 'RP-MTY-00000001'
-- again INSERT Deposito_Pago with 'DP-MTY-00000001', '0002', '2024-03-15', 'MTY', 'USD', 19.5, 'SRR-MXN', 12.25, '',
--    'Corte', 'Sierra', 'CH-7', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000002', 'SRR-MXN', 'DEPOSITO_PAGO',
--    'DP-MTY-00000001', '0002', 'CH-7', '1102-01', 'DEPOSITO CON CHEQUE', '2024-03-15', '2024-03-20', 'DEP', 12.25,
--    'MXN', 19.5, 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'FI'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with 12.25, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with 12.25, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- again UPDATE Recibo_Pago with 'AC', 'DP', 'AP', 'AD', 'DP-MTY-00000001', '0002', '2024-03-15',
--    'RP-MTY-00000001','RP-MTY-00000002', 'AC', 'AP', '02', '01', '', 'Sierra', '01', '', 'CH-7'

-- ---- nothing that goes to the bank

-- again SELECT Recibo_Pago
-- again SELECT Recibo_Pago (2)
