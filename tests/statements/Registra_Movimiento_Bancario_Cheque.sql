-- Registra_Movimiento_Bancario_Cheque

-- ---- of a check

SELECT Cheque.*, Cheque_x_Aplicar.Mn_Cve_Moneda as Ch_Moneda, Banco_Cuenta.Mn_Cve_Moneda
FROM Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio
   INNER JOIN Banco_Cuenta ON Cheque.Bc_Cve_Banco_cuenta = Banco_Cuenta.Bc_Cve_Banco_cuenta
WHERE Cheque.Ch_Folio = 'CH-MTY-00000001';

-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000002', 'SRR-MXN', 'Cheque', 'CH-MTY-00000001', '',
--    '1001', '1102-01', 'Pago de facturas', '2024-03-15', '2024-03-15', 'CHQ', -400, 'MXN', 1, 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'TR'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with -400, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with -400, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'

-- ---- of a transfer in another currency than its lines

-- again SELECT Cheque
-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'PTO-USD'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000002', 'PTO-USD', 'Cheque', 'CH-MTY-00000001', '',
--    '1001', '1103-02', 'Pago de facturas', '2024-03-15', '2024-03-15', 'TRF', -400, 'USD', 19.5, 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'TR'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with -400, 'CAJA1', '2024-03-15 10:20:30', 'PTO-USD'
-- Registra_Movimiento_Banco: UPDATE Banco with -400, 'CAJA1', '2024-03-15 10:20:30', 'PTO-USD'
