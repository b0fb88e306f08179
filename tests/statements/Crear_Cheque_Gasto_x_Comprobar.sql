-- Crear_Cheque_Gasto_x_Comprobar

-- ---- without budget control

-- Add_Cheque_Detalle: SELECT Cheque with '1001', 'SRR-MXN', 'NO', 'CA'
-- Add_Cheque_Detalle: INSERT Cheque_x_Aplicar with 'CH-MTY-00000001', '0001', '1001', 'CXP-MTY-00000001', 'MXN', 1,
--    400, 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- Crear_Cheque_Pago_Proveedor: SELECT Cheque_x_Aplicar with 0, 1, 'CH-MTY-00000001'
-- Crear_Cheque_Pago_Proveedor: INSERT Cheque with 'CH-MTY-00000001', '0002', 'NO', '2024-03-15 00:00:00', 'SRR-MXN',
--    'MTY', 'DE01', 'Aceros del Bajío', 400, 1, 'Pago de facturas', '', '', '1001', '2024-03-15', '', '', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'

INSERT INTO Gasto_X_Comprobar(
  Gc_Folio,
   Gc_Fecha,
   Gc_Tabla,
   Gc_Documento,
   Gc_Referencia,
   Mn_Cve_Moneda,
   Sc_Cve_Sucursal,
   Cl_Cve_Cliente,
   Gc_Importe,
   Gc_Tipo_Cambio,
   Gc_Comentario,
   Bc_Cve_Banco_Cuenta,
   Oper_Alta,
   Fecha_Alta,
   Oper_Ult_Modif,
   Fecha_Ult_Modif,
   Es_Cve_Estado)
SELECT 'GC-MTY-00000001', '2024-03-15', 'CHEQUE', 'CH-MTY-00000001', '1001', 'MXN', 'MTY', 'DE01',
(SELECT Ch_Importe FROM Cheque WHERE Ch_Folio = 'CH-MTY-00000001'), 1, 'Pago de facturas', 'SRR-MXN', 'CAJA1',
'2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'PXA';

UPDATE Cheque_x_Aplicar SET
   Cxp_Folio = 'GC-MTY-00000001'
WHERE Ch_Folio = 'CH-MTY-00000001';

-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- Afectar_Cheque_Presupuesto: SELECT Cheque (7) with 'DE', 'CH-MTY-00000001', 'CA','AP'
-- Registra_Movimiento_Bancario_Cheque: SELECT Cheque with 'CH-MTY-00000001'
-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000001', 'SRR-MXN', 'Cheque', 'CH-MTY-00000001', '',
--    '1001', '1102-01', 'Pago de facturas', '2024-03-15', '2024-03-15', 'CHQ', -400, 'MXN', 1, 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'TR'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with -400, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with -400, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'

UPDATE Gasto_x_Comprobar SET
   Es_Cve_Estado = 'PA'
WHERE Gc_Folio = 'GC-MTY-00000001';

-- ---- held back, because there is no budget

-- Add_Cheque_Detalle: SELECT Cheque with '1001', 'SRR-MXN', 'NO', 'CA'
-- Add_Cheque_Detalle: INSERT Cheque_x_Aplicar with 'CH-MTY-00000001', '0001', '1001', 'CXP-MTY-00000001', 'MXN', 1,
--    400, 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- Crear_Cheque_Pago_Proveedor: SELECT Cheque_x_Aplicar with 0, 1, 'CH-MTY-00000001'
-- Crear_Cheque_Pago_Proveedor: INSERT Cheque with 'CH-MTY-00000001', '0002', 'NO', '2024-03-15 00:00:00', 'SRR-MXN',
--    'MTY', 'DE01', 'Aceros del Bajío', 400, 1, 'Pago de facturas', '', '', '1001', '2024-03-15', '', '', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- again INSERT Gasto_X_Comprobar
-- again UPDATE Cheque_x_Aplicar
-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- Afectar_Cheque_Presupuesto: SELECT Cheque (7) with 'DE', 'CH-MTY-00000001', 'CA','AP'
-- Afectar_Cheque_Presupuesto: SELECT Gasto_x_Comprobar_Presupuesto with 'DE', 'DE01', 2024
-- Afectar_Cheque_Presupuesto: SELECT Gasto_x_Comprobar_Presupuesto with 'SC', 'MTY', 2024
-- Afectar_Cheque_Presupuesto: SELECT Gasto_x_Comprobar_Presupuesto with 'EM', 'EM01', 2024
-- Afectar_Cheque_Presupuesto: UPDATE Cheque with 'PXA', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'

-- ---- in two currencies

-- Add_Cheque_Detalle: SELECT Cheque with '1001', 'SRR-MXN', 'NO', 'CA'
-- Add_Cheque_Detalle: INSERT Cheque_x_Aplicar with 'CH-MTY-00000001', '0001', '1001', 'CXP-MTY-00000001', 'MXN', 4,
--    400, 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- Crear_Cheque_Pago_Proveedor: SELECT Cheque_x_Aplicar with 0, 2, 'CH-MTY-00000001'
-- Crear_Cheque_Pago_Proveedor: INSERT Cheque with 'CH-MTY-00000001', '0002', 'NO', '2024-03-15 00:00:00', 'SRR-MXN',
--    'MTY', 'DE01', 'Aceros del Bajío', 800, 2, 'Pago de facturas', '', '', '1001', '2024-03-15', '', '', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'
-- again INSERT Gasto_X_Comprobar with 'USD' for 'MXN', 4 for 1
-- again UPDATE Cheque_x_Aplicar
-- Afectar_Cheque_Presupuesto: SELECT Cheque with 'CH-MTY-00000001'
-- Afectar_Cheque_Presupuesto: SELECT Cheque (7) with 'DE', 'CH-MTY-00000001', 'CA','AP'
-- Registra_Movimiento_Bancario_Cheque: SELECT Cheque with 'CH-MTY-00000001'
-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000001', 'SRR-MXN', 'Cheque', 'CH-MTY-00000001', '',
--    '1001', '1102-01', 'Pago de facturas', '2024-03-15', '2024-03-15', 'CHQ', -800, 'MXN', 2, 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'TR'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with -800, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with -800, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- again UPDATE Gasto_x_Comprobar
