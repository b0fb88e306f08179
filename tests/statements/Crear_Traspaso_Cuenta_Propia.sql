-- Crear_Traspaso_Cuenta_Propia

-- ---- between two accounts

-- Crear_Cheque_Pago_Proveedor: SELECT Cheque_x_Aplicar with 0, 20, 'CH-MTY-00000001'
-- Crear_Cheque_Pago_Proveedor: INSERT Cheque with 'CH-MTY-00000001', '0001', 'SI', '2024-03-14 09:30:00', 'SRR-MXN',
--    'MTY', 'PV01', 'Aceros del Bajío', 395, 20, 'Pago de facturas', 'SOLICITUD_CHEQUE', 'SOL-1', '1001',
--    '2024-03-14', 'PTO-USD', 'PUERTO', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
