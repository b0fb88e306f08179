-- Crear_Cheque_Devolucion_Cliente

-- ---- without budget control

-- Crear_Cheque_Pago_Proveedor: SELECT Cheque_x_Aplicar with 0, 1, 'CH-MTY-00000001'
-- Crear_Cheque_Pago_Proveedor: INSERT Cheque with 'CH-MTY-00000001', '0003', 'NO', '2024-03-15 00:00:00', 'SRR-MXN',
--    'MTY', 'CL01', 'Aceros del Bajío', 400, 1, 'Pago de facturas', '', '', '1001', '2024-03-15', '', '', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- Afectar_Cheque_Presupuesto: SELECT Cheque (11) with 'CL', 'CH-MTY-00000001', 'CA','AP'
-- Registra_Movimiento_Bancario_Cheque: SELECT Cheque with 'CH-MTY-00000001'
-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000001', 'SRR-MXN', 'Cheque', 'CH-MTY-00000001', '',
--    '1001', '1102-01', 'Pago de facturas', '2024-03-15', '2024-03-15', 'CHQ', -400, 'MXN', 1, 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'TR'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with -400, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with -400, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'

-- ---- held back, because there is no budget

-- Crear_Cheque_Pago_Proveedor: SELECT Cheque_x_Aplicar with 0, 1, 'CH-MTY-00000001'
-- Crear_Cheque_Pago_Proveedor: INSERT Cheque with 'CH-MTY-00000001', '0003', 'NO', '2024-03-15 00:00:00', 'SRR-MXN',
--    'MTY', 'CL01', 'Aceros del Bajío', 400, 1, 'Pago de facturas', '', '', '1001', '2024-03-15', '', '', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- Afectar_Cheque_Presupuesto: SELECT Cheque (11) with 'CL', 'CH-MTY-00000001', 'CA','AP'
-- Afectar_Cheque_Presupuesto: SELECT Devolucion_Cliente_Presupuesto with 'CL', 'CL01', 2024
-- Afectar_Cheque_Presupuesto: SELECT Devolucion_Cliente_Presupuesto with 'SC', 'MTY', 2024
-- Afectar_Cheque_Presupuesto: SELECT Devolucion_Cliente_Presupuesto with 'EM', 'EM01', 2024
-- Afectar_Cheque_Presupuesto: UPDATE Cheque with 'PXA', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'
