-- AccountsPayableService

-- ---- CreatePayable

-- DataServices: SELECT Parametro_Sistema with 'FIN_MONEDA_LOCAL'

SELECT Pv_Descripcion
FROM Proveedor
WHERE Pv_Cve_Proveedor = 'PV01' AND Es_Cve_Estado <> 'BA';

SELECT Mn_Descripcion
FROM Moneda
WHERE Mn_Cve_Moneda = 'MXN' AND Es_Cve_Estado <> 'BA';

-- DataServices: UPDATE Folio_Serie with 1, 'CUENTA_X_PAGAR', 'MTY', 'SI'

INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Cxp_Fecha, Cxp_Fecha_Vencimiento, Sc_Cve_Sucursal,
Pv_Cve_Proveedor, Mn_Cve_Moneda, Cxp_Tipo_Cambio, Cxp_Importe, Cxp_Neto, Cxp_Precio_Neto_Importe,
Cxp_Precio_Neto_Pago, Cxp_Precio_Neto_Saldo, Cxp_Referencia, Cxp_Comentario, Oper_Alta, Fecha_Alta, Oper_Ult_Modif,
Fecha_Ult_Modif)
VALUES ('CXP-MTY-00000004', 'Recibo_Pago', 'RP-MTY-00000001', '2024-03-15', '2024-03-15', 'MTY', 'PV01', 'MXN', 1,
150, 150, 150, 0, 150, '', '', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30');

-- ---- AddPaymentLine and ApplyPayments

SELECT Cxp_Tabla AS Tabla, Cxp_Documento AS Documento, Es_Cve_Estado, Mn_Cve_Moneda, Cxp_Tipo_Cambio AS Tipo_Cambio,
Cxp_Precio_Neto_Importe AS Importe, Cxp_Precio_Neto_Saldo AS Saldo
FROM Cuenta_x_Pagar
WHERE Cxp_Folio = 'CXP-MTY-00000001';

SELECT ISNULL(MAX(CAST(Pc_ID AS INT)), 0) AS Pc_ID
FROM Pago_Cxp
WHERE Cxp_Folio = 'CXP-MTY-00000001';

INSERT INTO Pago_Cxp (Cxp_Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tipo_Cambio, Pc_Importe_Pago,
Mn_Cve_Moneda_Pago, Pc_Tipo_Cambio_Pago, Pc_Tabla, Pc_Documento, Pc_Referencia, Pc_Concepto, Fp_Cve_Forma_Pago,
Pc_Afecta_Saldo, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado)
VALUES ('CXP-MTY-00000001', '0001', '2024-03-15', 400, 'MXN', 1, 400, 'MXN', 1, 'CHEQUE', 'CH-MTY-00000001', '1001',
'Pago con cheque o transferencia', '02', 'SI', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'AC');

UPDATE Cuenta_x_Pagar SET Cxp_Precio_Neto_Pago = (SELECT ISNULL(SUM(Pc_Importe),
0) FROM Pago_Cxp WHERE Cxp_Folio = 'CXP-MTY-00000001' AND Es_Cve_Estado <> 'CA' AND Pc_Afecta_Saldo = 'SI'),
Cxp_Precio_Neto_Saldo = Cxp_Precio_Neto_Importe - (SELECT ISNULL(SUM(Pc_Importe),
0) FROM Pago_Cxp WHERE Cxp_Folio = 'CXP-MTY-00000001' AND Es_Cve_Estado <> 'CA' AND Pc_Afecta_Saldo = 'SI'),
Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Cxp_Folio = 'CXP-MTY-00000001';

UPDATE Pago_Cxp SET Ch_Cheque = '1001', Bn_Cve_Banco = 'SIERRA', Bn_Descripcion = 'Banco de la Sierra',
Bc_Cuenta = '0901000001'
WHERE Cxp_Folio = 'CXP-MTY-00000001' AND Pc_ID = '0001';

-- ---- CancelPayment

-- again SELECT Cuenta_x_Pagar

-- SELECT Pago_Cxp (2)
SELECT Es_Cve_Estado
FROM Pago_Cxp
WHERE Cxp_Folio = 'CXP-MTY-00000001' AND Pc_ID = '0001';

-- DataServices: SELECT Documento_Contabilizado with 'CXP-MTY-00000001:0001', 'Pago_Cxp'
-- DataServices: SELECT Periodo_Operativo with 'CUENTAS_X_PAGAR', 2024, 3

-- UPDATE Pago_Cxp (2)
UPDATE Pago_Cxp SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA1', Fecha_Baja = '2024-03-15 10:20:30',
Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Cxp_Folio = 'CXP-MTY-00000001' AND Pc_ID = '0001';

-- again UPDATE Cuenta_x_Pagar

-- ---- CreateSupplierAdvance

-- again SELECT Proveedor
-- again SELECT Moneda
-- DataServices: UPDATE Folio_Serie with 1, 'CUENTA_X_PAGAR', 'MTY', 'SI'
-- again INSERT Cuenta_x_Pagar with 'CXP-MTY-00000004', 'ANTICIPO_CXP', 'CXP-MTY-00000004', '2024-03-15',
--    '2024-03-15', 'MTY', 'PV01', 'MXN', 1, -400, -400, -400, 0, -400, '1001', 'Anticipo', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'

-- UPDATE Cuenta_x_Pagar (2)
UPDATE Cuenta_x_Pagar SET Ch_Folio = 'CH-MTY-00000001', Bc_Cve_Banco_Cuenta = 'SRR-MXN'
WHERE Cxp_Folio = 'CXP-MTY-00000004';

-- ---- ValidateAdvanceCancellation

-- SELECT Cuenta_x_Pagar (2)
SELECT Cxp_Folio AS Folio
FROM Cuenta_x_Pagar
WHERE Cxp_Documento = 'CXP-MTY-00000004' AND Cxp_Tabla = 'ANTICIPO_CXP' AND Es_Cve_Estado <> 'CA'
ORDER BY Cxp_Folio;

-- SELECT Pago_Cxp (3)
SELECT Pc_ID
FROM Pago_Cxp
WHERE Cxp_Folio = 'CXP-MTY-00000004' AND Es_Cve_Estado <> 'CA';

-- DataServices: SELECT Documento_Contabilizado with 'CXP-MTY-00000004', 'ANTICIPO_CXP'

-- ---- CancelDocumentPayables

-- again SELECT Cuenta_x_Pagar (2) with 'RP-MTY-00000001' for 'CXP-MTY-00000004', 'RECIBO_PAGO' for 'ANTICIPO_CXP'
-- again SELECT Pago_Cxp (3)
-- DataServices: SELECT Documento_Contabilizado with 'CXP-MTY-00000004', 'CUENTA_X_PAGAR'

-- UPDATE Cuenta_x_Pagar (3)
UPDATE Cuenta_x_Pagar SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA1', Fecha_Baja = '2024-03-15 10:20:30',
Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Cxp_Folio = 'CXP-MTY-00000004';
