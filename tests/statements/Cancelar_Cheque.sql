-- Cancelar_Cheque

-- ---- of a supplier

SELECT
   Cheque_x_Aplicar.*,
   Cheque.Es_Cve_Estado as EstadoCheque,
   Cheque.Ch_Fecha,
   Tipo_Cheque.Tc_Solicitar,
   Tipo_Cheque.Tc_Proveedor_Pago
FROM Cheque
   INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio
   INNER JOIN Tipo_Cheque ON Cheque.Tc_Cve_Tipo_Cheque = Tipo_Cheque.Tc_Cve_Tipo_Cheque
WHERE Cheque.Ch_Folio = 'CH-MTY-00000001'
ORDER BY Cheque_x_Aplicar.Cxa_ID ;

UPDATE Cheque SET
   Es_Cve_Estado = 'CA',
   Oper_Baja = 'CAJA1',
   Fecha_Baja = '2024-03-15 10:20:30'
WHERE Ch_Folio = 'CH-MTY-00000001';

UPDATE Cheque_x_Aplicar SET
   Es_Cve_Estado = 'CA',
   Oper_Baja = 'CAJA1',
   Fecha_Baja = '2024-03-15 10:20:30'
WHERE Ch_Folio = 'CH-MTY-00000001';

-- Cancelar_Documento_Bancos: SELECT Banco_Movimiento with 0, 'CH-MTY-00000001', 'CHEQUE'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with -420, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with -420, 'CAJA1', '2024-03-15 10:20:30', 'SIERRA'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000001'

-- ---- of an expense to verify

-- again SELECT Cheque

UPDATE Gasto_x_Comprobar SET
   Es_Cve_Estado = 'CA',
   Oper_Baja = 'CAJA1',
   Fecha_Baja = '2024-03-15 10:20:30'
WHERE
   Gc_Documento = 'CH-MTY-00000001' AND
   Gc_Tabla = 'CHEQUE';

UPDATE Gasto_x_Comprobar_Documento SET
   Es_Cve_Estado = 'CA'
WHERE
   Gc_Documento = 'CH-MTY-00000001' AND
   Gc_Tabla = 'CHEQUE';

-- again UPDATE Cheque
-- again UPDATE Cheque_x_Aplicar
-- Cancelar_Documento_Bancos: SELECT Banco_Movimiento with 0, 'CH-MTY-00000001', 'CHEQUE'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with -1300, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with -1300, 'CAJA1', '2024-03-15 10:20:30', 'SIERRA'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000001'

-- ---- of an expense that does not name its check

-- again SELECT Cheque

-- UPDATE Gasto_x_Comprobar (2)
UPDATE Gasto_x_Comprobar SET
   Es_Cve_Estado = 'CA',
   Oper_Baja = 'CAJA1',
   Fecha_Baja = '2024-03-15 10:20:30'
WHERE
   Gc_Folio = 'GC-MTY-00000001' AND
   Gc_Documento = '' AND
   Gc_Tabla = '';

-- again UPDATE Gasto_x_Comprobar_Documento
-- again UPDATE Cheque
-- again UPDATE Cheque_x_Aplicar
-- Cancelar_Documento_Bancos: SELECT Banco_Movimiento with 0, 'CH-MTY-00000001', 'CHEQUE'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with -1300, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with -1300, 'CAJA1', '2024-03-15 10:20:30', 'SIERRA'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000001'

-- ---- an applied one is taken back before

-- again SELECT Cheque
-- Cancelar_Aplicacion_Cheque: SELECT Cheque with 'CH-MTY-00000001'
-- Cancelar_Aplicacion_Cheque: SELECT Pago_Cxp with 'CHEQUE', 'CXP-MTY-00000001', 'CH-MTY-00000001', 'CA'
-- Cancelar_Aplicacion_Cheque: SELECT Pago_Cxp with 'CHEQUE', 'CXP-MTY-00000002', 'CH-MTY-00000001', 'CA'
-- Cancelar_Aplicacion_Cheque: UPDATE Cheque_x_Aplicar with 'AC', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'
-- Afectar_Cheque_Presupuesto: UPDATE Cheque with 'AC', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001'
-- Cancelar_Aplicacion_Cheque: UPDATE Banco_Movimiento with 'TR', 'CAJA1', '2024-03-15 10:20:30', 'CH-MTY-00000001',
--    'CHEQUE', 'CA'
-- again UPDATE Cheque
-- again UPDATE Cheque_x_Aplicar
-- Cancelar_Documento_Bancos: SELECT Banco_Movimiento with 0, 'CH-MTY-00000001', 'CHEQUE'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with -420, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with -420, 'CAJA1', '2024-03-15 10:20:30', 'SIERRA'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000001'
