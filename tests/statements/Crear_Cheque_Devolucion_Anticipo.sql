-- Crear_Cheque_Devolucion_Anticipo

-- ---- of two lines

-- Crear_Cheque_Pago_Proveedor: SELECT Cheque_x_Aplicar with 0, 1, 'CH-MTY-00000001'
-- Crear_Cheque_Pago_Proveedor: INSERT Cheque with 'CH-MTY-00000001', '0003', 'NO', '2024-03-15 00:00:00', 'SRR-MXN',
--    'MTY', 'CL01', 'Aceros del Bajío', 420, 1, 'Pago de facturas', '', '', '1001', '2024-03-15', '', '', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- Registra_Movimiento_Bancario_Cheque: SELECT Cheque with 'CH-MTY-00000001'
-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000001', 'SRR-MXN', 'Cheque', 'CH-MTY-00000001', '',
--    '1001', '1102-01', 'Pago de facturas', '2024-03-15', '2024-03-15', 'CHQ', -420, 'MXN', 1, 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'TR'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with -420, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with -420, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
