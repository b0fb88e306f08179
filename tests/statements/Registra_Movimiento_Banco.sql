-- Registra_Movimiento_Banco

-- ---- an inflow in transit

SELECT *
FROM Banco_Cuenta
WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN' ;

INSERT INTO Banco_Movimiento(
  Bm_Folio,
   Bc_Cve_Banco_Cuenta,
   Bm_Tabla,
   Bm_Documento,
   Bm_Documento_ID,
   Bm_Referencia,
   Bc_Cuenta_Contable,
   Bm_Comentario,
   Bm_Fecha,
   Bm_Fecha_Firme,
   Bt_Cve_Banco_Tipo_Movimiento,
   Bm_Importe,
   Mn_Cve_Moneda,
   Bm_Tipo_Cambio,
   Oper_Alta,
   Fecha_Alta,
   Oper_Ult_Modif,
   Fecha_Ult_Modif,
   Es_Cve_Estado)
VALUES ('BM-00000001', 'SRR-MXN', 'ESTADO_CUENTA', 'EC-1', '0001', 'REF-9', '1102-01', 'Intereses del mes',
'2024-03-15', '2024-03-18', 'INT', 100.25, 'MXN', 0.333333333333333, 'CAJA1', '2024-03-15 10:20:30', 'CAJA1',
'2024-03-15 10:20:30', 'TR');

UPDATE Banco_Cuenta SET
   Bc_Saldo = Bc_Saldo + 100.25,
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN';

UPDATE Banco SET
   Bn_Saldo = Bn_Saldo + 100.25,
   Oper_Ult_Modif = 'CAJA1',
   Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Bn_Cve_Banco = (SELECT Bn_Cve_Banco FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN');

-- ---- an outflow, firm

-- again SELECT Banco_Cuenta with 'PTO-USD' for 'SRR-MXN'
-- again INSERT Banco_Movimiento with 'PTO-USD' for 'SRR-MXN', '1103-02' for '1102-01', '2024-03-15' for '2024-03-18',
--    'COM' for 'INT', -25.5 for 100.25, 'USD' for 'MXN', 19.5 for 0.333333333333333, 'FI' for 'TR'
-- again UPDATE Banco_Cuenta with -25.5 for 100.25, 'PTO-USD' for 'SRR-MXN'
-- again UPDATE Banco with -25.5 for 100.25, 'PTO-USD' for 'SRR-MXN'

-- ---- movements are posted by themselves

-- again SELECT Banco_Cuenta
-- again INSERT Banco_Movimiento with '2024-03-15' for '2024-03-18', 100 for 100.25, 1 for 0.333333333333333
-- again UPDATE Banco_Cuenta with 100 for 100.25
-- again UPDATE Banco with 100 for 100.25

SELECT Banco_Movimiento.Bm_Folio, Empresa.Em_Cve_Empresa
FROM Banco_Movimiento
   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta= Banco_Movimiento.Bc_Cve_Banco_Cuenta
   INNER JOIN Empresa ON Empresa.Em_Cve_Empresa = Banco_Cuenta.Em_Cve_Empresa
WHERE
   (Bm_Folio = 'BM-00000001'
 ) AND
   Banco_Movimiento.Es_Cve_Estado <> 'CA' AND
   Empresa.Es_Cve_Estado <> 'BA' ;
