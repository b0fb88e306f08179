-- Cancelar_Recibo_Caja

-- ---- nothing came of it

SELECT
   Fp_Cve_Forma_Pago,
   Rp_Banco,
   Rp_Cheque,
   Rp_Fecha,
   Rp_Folio_Deposito,
   Es_Cve_Estado
FROM Recibo_Pago
WHERE Rp_Folio = 'RP-MTY-00000001'
ORDER BY Rp_Id ;

SELECT
   Cxc_Folio,
   Pc_Id
FROM Pago_Cxc
WHERE
   Pc_Tabla = 'RECIBO_PAGO' AND
   Pc_Documento = 'RP-MTY-00000001' AND
   Es_Cve_Estado <> 'CA'
ORDER BY
   Cxc_Folio,
   Pc_Id ;

SELECT An_Folio
FROM Anticipo_Cxc
WHERE
   An_Tabla = 'RECIBO_PAGO' AND
   An_Documento = 'RP-MTY-00000001' AND
   Es_Cve_Estado <> 'CA' ;

SELECT Cxp_Folio
FROM Cuenta_x_Pagar
WHERE
   Cxp_Tabla = 'RECIBO_PAGO' AND
   Cxp_Documento = 'RP-MTY-00000001' AND
   Es_Cve_Estado <> 'CA' ;

SELECT Cxc_Folio
FROM Cuenta_x_Cobrar
WHERE
   Cxc_Tabla = 'RECIBO_PAGO' AND
   Cxc_Documento = 'RP-MTY-00000001' AND
   Es_Cve_Estado <> 'CA' ;

UPDATE Recibo_Pago SET
   Es_Cve_Estado = 'CA',
   Oper_Baja = 'CAJA1',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Baja = '2024-03-15 10:20:30',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Rp_Folio = 'RP-MTY-00000001';

-- ---- of a customer, with the payments and the advance that its closing made

-- again SELECT Recibo_Pago
-- again SELECT Pago_Cxc
-- again SELECT Anticipo_Cxc
-- again SELECT Cuenta_x_Pagar
-- again SELECT Cuenta_x_Cobrar
-- again UPDATE Recibo_Pago

-- ---- of a supplier, with its payable

-- again SELECT Recibo_Pago
-- again SELECT Pago_Cxc
-- again SELECT Anticipo_Cxc
-- again SELECT Cuenta_x_Pagar
-- again SELECT Cuenta_x_Cobrar
-- again UPDATE Recibo_Pago

-- ---- deposited alone, with its deposit

-- again SELECT Recibo_Pago
-- again SELECT Pago_Cxc
-- again SELECT Anticipo_Cxc
-- again SELECT Cuenta_x_Pagar
-- again SELECT Cuenta_x_Cobrar

-- SELECT Recibo_Pago (2)
SELECT COUNT(DISTINCT Rp_Folio) as Recibos
FROM Recibo_Pago
WHERE
   Es_Cve_Estado <> 'CA' AND
   Rp_Folio_Deposito = 'DP-MTY-00000001' AND
   Rp_Folio_Deposito <> '' ;

-- Cancelar_Deposito: SELECT Deposito_Pago with 'DP-MTY-00000001'
-- Cancelar_Deposito: UPDATE Recibo_Pago with 'DP', 'AC', 'AD', 'AP', 'DP-MTY-00000001', '', '', 'DP-MTY-00000001'
-- Cancelar_Deposito: UPDATE Deposito_Pago with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30',
--    'DP-MTY-00000001'
-- Cancelar_Documento_Bancos: SELECT Banco_Movimiento with 0, 'DP-MTY-00000001', 'DEPOSITO_PAGO'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with 100, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with 100, 'CAJA1', '2024-03-15 10:20:30', 'SIERRA'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000001'
-- again UPDATE Recibo_Pago
