-- Cancelar_Documento_Bancos

-- ---- a document with two movements

SELECT
   Banco_Movimiento.Bm_Folio,
   Banco_Movimiento.Bc_Cve_Banco_Cuenta,
  Banco_Cuenta.Bn_Cve_Banco,
   Banco_Movimiento.Es_Cve_Estado,
   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) as Importe
FROM Banco_Movimiento
   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Banco_Movimiento.Bc_Cve_Banco_Cuenta
WHERE
   Banco_Movimiento.Bm_Documento = 'EC-1' AND
   Banco_Movimiento.Bm_Tabla = 'ESTADO_CUENTA'
GROUP BY
   Banco_Movimiento.Bm_Folio,
   Banco_Movimiento.Bc_Cve_Banco_Cuenta,
  Banco_Cuenta.Bn_Cve_Banco,
   Banco_Movimiento.Es_Cve_Estado ;

-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with 100, 'CAJA1', '2024-03-15 10:20:30', 'SRR-MXN'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with 100, 'CAJA1', '2024-03-15 10:20:30', 'SIERRA'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000001'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Cuenta with -25.5, 'CAJA1', '2024-03-15 10:20:30', 'PTO-USD'
-- Cancelar_Movimiento_Bancos: UPDATE Banco with -25.5, 'CAJA1', '2024-03-15 10:20:30', 'PUERTO'
-- Cancelar_Movimiento_Bancos: UPDATE Banco_Movimiento with 'CA', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
--    '2024-03-15 10:20:30', 'BM-00000002'
