-- Cancelar_Movimiento_Bancos

-- ---- one movement

SELECT
   Banco_Movimiento.Bm_Folio,
   Banco_Movimiento.Bm_Fecha,
   Banco_Movimiento.Bc_Cve_Banco_Cuenta,
  Banco_Cuenta.Bn_Cve_Banco,
   Banco_Movimiento.Es_Cve_Estado,
   ISNULL(SUM(Banco_Movimiento.Bm_Importe),0) as Importe
FROM Banco_Movimiento
   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Banco_Movimiento.Bc_Cve_Banco_Cuenta
WHERE
   Banco_Movimiento.Bm_Folio = 'BM-00000001'
GROUP BY
   Banco_Movimiento.Bm_Folio,
   Banco_Movimiento.Bm_Fecha,
   Banco_Movimiento.Bc_Cve_Banco_Cuenta,
  Banco_Cuenta.Bn_Cve_Banco,
   Banco_Movimiento.Es_Cve_Estado ;

UPDATE Banco_Cuenta SET
   Bc_Saldo = Bc_Saldo - 100,
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN';

UPDATE Banco SET
   Bn_Saldo = Bn_Saldo - 100,
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Bn_Cve_Banco = 'SIERRA';

UPDATE Banco_Movimiento SET
    Es_Cve_Estado = 'CA',
    Oper_Ult_Modif = 'CAJA1',
    Fecha_Ult_Modif = '2024-03-15 10:20:30',
    Oper_Baja = 'CAJA1',
    Fecha_Baja = '2024-03-15 10:20:30'
WHERE
   Bm_Folio = 'BM-00000001';
