-- Cancelar_Deposito

-- ---- its receipts are free again

SELECT *
FROM Deposito_Pago
WHERE Dp_Folio = 'DP-MTY-00000001' ;

UPDATE Recibo_Pago SET
   Es_Cve_Estado = (SELECT DISTINCT CASE Es_Cve_Estado
                           WHEN 'DP' THEN 'AC'
                           WHEN 'AD' THEN 'AP' END
                        FROM Recibo_Pago a
                        WHERE Rp_Folio_Deposito = 'DP-MTY-00000001' AND a.Rp_Folio = Recibo_Pago.Rp_Folio),
   Rp_Folio_Deposito = '',
   Rp_Deposito_ID = ''
WHERE Rp_Folio_Deposito = 'DP-MTY-00000001';

UPDATE Deposito_Pago SET
   Es_Cve_Estado = 'CA',
   Oper_Baja = 'CAJA1',
   Fecha_Baja = '2024-03-15 10:20:30',
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Dp_Folio = 'DP-MTY-00000001';

-- Cancelar_Documento_Bancos: SELECT Banco_Movimiento with 0, 'DP-MTY-00000001', 'DEPOSITO_PAGO'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with 50, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with 50, 'CAJA1', '2024-03-15 10:20:30', 'SIERRA'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000001'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with 12.25, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with 12.25, 'CAJA1', '2024-03-15 10:20:30', 'SIERRA'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000002'

-- ---- a receipt whose lines are in two states

-- again SELECT Deposito_Pago
-- again UPDATE Recibo_Pago, which the database refuses
