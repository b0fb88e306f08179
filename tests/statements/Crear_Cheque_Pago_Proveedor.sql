-- Crear_Cheque_Pago_Proveedor

-- ---- of two lines

SELECT ISNULL(SUM(Cxa_Importe * Cxa_Tipo_Cambio),0) / 1 as Cxa_Importe
FROM Cheque_x_Aplicar
WHERE Ch_Folio = 'CH-MTY-00000001' ;

INSERT INTO Cheque(
  Ch_Folio,
   Tc_Cve_Tipo_Cheque,
   Ch_Transferencia,
   Ch_Fecha,
   Bc_Cve_Banco_Cuenta,
   Sc_Cve_Sucursal,
   Ch_Solicitar_Valor,
   Ch_Beneficiario,
   Ch_Importe,
   Ch_Tipo_Cambio,
   Ch_Concepto,
   Ch_Tabla,
   Ch_Documento,
   Ch_Referencia,
   Ch_Fecha_Firme,
   Ch_Cuenta_Destino,
   Ch_Banco_Destino,
   Oper_Alta,
   Fecha_Alta,
   Oper_Ult_Modif,
   Fecha_Ult_Modif)
SELECT 'CH-MTY-00000001', '0001', 'NO', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'PV01', 'Aceros del Bajío', 420, 1,
'Pago de facturas', '', '', '1001', '2024-03-15', '', '', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
'2024-03-15 10:20:30';

-- Registra_Movimiento_Bancario_Cheque: SELECT Cheque with 'CH-MTY-00000001'
-- Registra_Movimiento_Banco: SELECT Banco_Cuenta with 'SRR-MXN'
-- Registra_Movimiento_Banco: INSERT Banco_Movimiento with 'BM-00000001', 'SRR-MXN', 'Cheque', 'CH-MTY-00000001', '',
--    '1001', '1102-01', 'Pago de facturas', '2024-03-15', '2024-03-15', 'CHQ', -420, 'MXN', 1, 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'TR'
-- Registra_Movimiento_Banco: UPDATE Banco_Cuenta with -420, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Registra_Movimiento_Banco: UPDATE Banco with -420, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
