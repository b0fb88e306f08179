-- AccountsReceivableService

-- ---- ApplyReceipt, to the oldest of what is owed

SELECT Cl_Descripcion
FROM Cliente
WHERE Cl_Cve_Cliente = 'CL01' AND Es_Cve_Estado <> 'BA';

SELECT TOP 1 Rp_Tabla, Rp_Documento
FROM Recibo_Pago
WHERE Rp_Folio = 'RP-MTY-00000001' AND Rp_Tabla <> '' AND Rp_Documento <> ''
ORDER BY Rp_Id;

SELECT Cxc_Folio
FROM Cuenta_x_Cobrar
WHERE Cl_Cve_Cliente = 'CL01' AND Mn_Cve_Moneda = 'MXN' AND Cxc_Precio_Neto_Saldo > 0.005 AND Es_Cve_Estado <> 'CA'
AND Cxc_Tabla NOT LIKE '%-CA:%'
ORDER BY Cxc_Fecha, Cxc_Folio;

SELECT Cxc_Tabla AS Tabla, Cxc_Documento AS Documento, Es_Cve_Estado, Mn_Cve_Moneda, Cxc_Tipo_Cambio AS Tipo_Cambio,
Cxc_Precio_Neto_Importe AS Importe, Cxc_Precio_Neto_Saldo AS Saldo, (SELECT ISNULL(MAX(CAST(Pc_ID AS INT)),
0) FROM Pago_Cxc WHERE Cxc_Folio = 'CXC-MTY-00000001') AS Ultimo_Pago
FROM Cuenta_x_Cobrar
WHERE Cxc_Folio = 'CXC-MTY-00000001';

INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tipo_Cambio, Pc_Importe_Pago,
Mn_Cve_Moneda_Pago, Pc_Tipo_Cambio_Pago, Pc_Tabla, Pc_Documento, Pc_Referencia, Pc_Concepto, Fp_Cve_Forma_Pago,
Pc_Afecta_Saldo, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado) OUTPUT inserted.Pc_ID
SELECT 'CXC-MTY-00000001', '0001', '2024-03-15', 100, 'MXN', 1, 100, 'MXN', 1, 'RECIBO_PAGO', 'RP-MTY-00000001', '',
'', '', 'SI', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'AC'
WHERE NOT EXISTS (SELECT Pc_ID FROM Pago_Cxc WHERE Cxc_Folio = 'CXC-MTY-00000001' AND Pc_ID = '0001');

UPDATE Cuenta_x_Cobrar SET Cxc_Precio_Neto_Pago = (SELECT ISNULL(SUM(Pc_Importe),
0) FROM Pago_Cxc WHERE Cxc_Folio = 'CXC-MTY-00000001' AND Es_Cve_Estado <> 'CA' AND Pc_Afecta_Saldo = 'SI'),
Cxc_Precio_Neto_Saldo = Cxc_Precio_Neto_Importe - (SELECT ISNULL(SUM(Pc_Importe),
0) FROM Pago_Cxc WHERE Cxc_Folio = 'CXC-MTY-00000001' AND Es_Cve_Estado <> 'CA' AND Pc_Afecta_Saldo = 'SI'),
Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Cxc_Folio = 'CXC-MTY-00000001';

-- ---- ApplyReceipt, beyond what is owed: an advance is left

-- again SELECT Cliente
-- again SELECT Recibo_Pago
-- again SELECT Cuenta_x_Cobrar
-- again SELECT Pago_Cxc
-- again INSERT Pago_Cxc with 5000 for 100
-- again UPDATE Cuenta_x_Cobrar
-- again SELECT Pago_Cxc with 'CXC-MTY-00000002' for 'CXC-MTY-00000001'
-- again INSERT Pago_Cxc with 'CXC-MTY-00000002' for 'CXC-MTY-00000001', 3000 for 100
-- again UPDATE Cuenta_x_Cobrar with 'CXC-MTY-00000002' for 'CXC-MTY-00000001'
-- DataServices: UPDATE Folio_Serie with 1, 'ANTICIPO_CXC', 'MTY', 'SI'

-- SELECT Cliente (2)
SELECT (SELECT Cl_Descripcion FROM Cliente WHERE Cl_Cve_Cliente = 'CL01' AND Es_Cve_Estado <> 'BA') AS Nombre,
(SELECT Mn_Descripcion FROM Moneda WHERE Mn_Cve_Moneda = 'MXN' AND Es_Cve_Estado <> 'BA') AS Moneda;

-- DataServices: UPDATE Folio_Serie with 1, 'CUENTA_X_COBRAR', 'MTY', 'SI'

INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Cxc_Fecha, Cxc_Fecha_Vencimiento, Sc_Cve_Sucursal,
Cl_Cve_Cliente, Mn_Cve_Moneda, Cxc_Tipo_Cambio, Cxc_Importe, Cxc_Neto, Cxc_Precio_Neto_Importe, Cxc_Precio_Neto_Pago,
Cxc_Precio_Neto_Saldo, Cxc_Referencia, Cxc_Comentario, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif)
VALUES ('CXC-MTY-00000005', 'ANTICIPO_CXC', 'AN-MTY-00000003', '2024-03-15', '2024-03-15', 'MTY', 'CL01', 'MXN', 1,
-1000, -1000, -1000, 0, -1000, '', '', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30');

INSERT INTO Anticipo_Cxc (An_Folio, An_Tabla, An_Documento, An_Fecha, Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda,
An_Tipo_Cambio, An_Importe, An_Referencia, An_Comentario, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif,
Es_Cve_Estado)
VALUES ('AN-MTY-00000003', 'RECIBO_PAGO', 'RP-MTY-00000001', '2024-03-15', 'MTY', 'CL01', 'MXN', 1, 1000, '', '',
'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'AC');

-- ---- ApplyReceipt, to the document that the receipt names

-- again SELECT Cliente
-- again SELECT Recibo_Pago

-- SELECT Cuenta_x_Cobrar (2)
SELECT Cxc_Folio
FROM Cuenta_x_Cobrar
WHERE Cl_Cve_Cliente = 'CL01' AND Mn_Cve_Moneda = 'MXN' AND Cxc_Precio_Neto_Saldo > 0.005 AND Es_Cve_Estado <> 'CA'
AND Cxc_Tabla NOT LIKE '%-CA:%' AND Cxc_Tabla = 'FACTURA_VENTA' AND Cxc_Documento = 'FV-5002'
ORDER BY Cxc_Fecha, Cxc_Folio;

-- again SELECT Pago_Cxc with 'CXC-MTY-00000002' for 'CXC-MTY-00000001'
-- again INSERT Pago_Cxc with 'CXC-MTY-00000002' for 'CXC-MTY-00000001'
-- again UPDATE Cuenta_x_Cobrar with 'CXC-MTY-00000002' for 'CXC-MTY-00000001'

-- ---- CreateReceivable

-- again SELECT Cliente
-- again SELECT Cliente (2)
-- DataServices: UPDATE Folio_Serie with 1, 'CUENTA_X_COBRAR', 'MTY', 'SI'
-- again INSERT Cuenta_x_Cobrar with 'Recibo_Pago' for 'ANTICIPO_CXC', 'RP-MTY-00000001' for 'AN-MTY-00000003',
--    35 for -1000

-- ---- ApplyCustomerDocument

SELECT *
FROM Gasto_x_Comprobar
WHERE Gc_Folio = 'GC-MTY-00000001';

-- SELECT Pago_Cxc (2)
SELECT Cuenta_x_Cobrar.Cxc_Folio AS Folio, Documento_Contabilizado.Dt_Documento,
(SELECT COUNT(*) FROM Pago_Cxc WHERE Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio AND Pago_Cxc.Es_Cve_Estado <>
'CA') AS Pagos
FROM Cuenta_x_Cobrar
LEFT JOIN Documento_Contabilizado ON Documento_Contabilizado.Dt_Documento = Cuenta_x_Cobrar.Cxc_Folio AND
Documento_Contabilizado.Dt_Tabla = 'CUENTA_X_COBRAR'
WHERE Cuenta_x_Cobrar.Cxc_Documento = 'GC-MTY-00000001' AND Cuenta_x_Cobrar.Cxc_Tabla = 'GASTO_X_COMPROBAR' AND
Cuenta_x_Cobrar.Es_Cve_Estado <> 'CA'
ORDER BY Cuenta_x_Cobrar.Cxc_Folio;

-- again SELECT Cliente (2) with 'DE01' for 'CL01'
-- DataServices: UPDATE Folio_Serie with 1, 'CUENTA_X_COBRAR', 'MTY', 'SI'
-- again INSERT Cuenta_x_Cobrar with 'CXC-MTY-00000005', 'GASTO_X_COMPROBAR', 'GC-MTY-00000001', '2024-03-15',
--    '2024-03-15', 'MTY', 'DE01', 'MXN', 1, 1300, 1300, 1300, 0, 1300, '1001', 'Pago de facturas', 'CAJA1',
--    '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30'

-- ---- ValidateDocumentCancellation

-- again SELECT Pago_Cxc (2) with 'RP-MTY-00000001' for 'GC-MTY-00000001', 'RECIBO_PAGO' for 'GASTO_X_COMPROBAR'

-- ---- CancelDocumentAdvances

SELECT An_Folio
FROM Anticipo_Cxc
WHERE An_Documento = 'RP-MTY-00000001' AND An_Tabla = 'RECIBO_PAGO' AND Es_Cve_Estado <> 'CA'
ORDER BY An_Folio;

-- again SELECT Pago_Cxc (2) with 'AN-MTY-00000003' for 'GC-MTY-00000001', 'ANTICIPO_CXC' for 'GASTO_X_COMPROBAR'
-- DataServices: SELECT Documento_Contabilizado with 'AN-MTY-00000003', 'ANTICIPO_CXC'
-- again SELECT Pago_Cxc (2) with 'AN-MTY-00000003' for 'GC-MTY-00000001', 'ANTICIPO_CXC' for 'GASTO_X_COMPROBAR'

-- UPDATE Cuenta_x_Cobrar (2)
UPDATE Cuenta_x_Cobrar SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA1', Fecha_Baja = '2024-03-15 10:20:30',
Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Cxc_Folio = 'CXC-MTY-00000005';

UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA1', Fecha_Baja = '2024-03-15 10:20:30',
Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE An_Folio = 'AN-MTY-00000003';

-- ---- CancelDocumentReceivables

-- again SELECT Pago_Cxc (2) with 'RP-MTY-00000001' for 'GC-MTY-00000001', 'RECIBO_PAGO' for 'GASTO_X_COMPROBAR'
-- again UPDATE Cuenta_x_Cobrar (2)

-- ---- RegisterPayment

-- again SELECT Pago_Cxc
-- again INSERT Pago_Cxc with 'CXC-MTY-00000001', '0001', '2024-03-15', 100, 'MXN', 1, 100, 'MXN', 1, '', '', '', '',
--    '01', 'SI', 'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'AC', 'CXC-MTY-00000001', '0001'
-- again UPDATE Cuenta_x_Cobrar
-- DataServices: UPDATE Documento_Registrado with 1, '2024-03-15 10:20:30', 'CXC-MTY-00000001:0001', 'PAGO_CXC'
-- DataServices: INSERT Documento_Registrado with 'CXC-MTY-00000001:0001', 'PAGO_CXC', 1, 'CAJA1',
--    '2024-03-15 10:20:30', '2024-03-15 10:20:30', 'CXC-MTY-00000001:0001', 'PAGO_CXC'

-- ---- CancelPayment

-- SELECT Cuenta_x_Cobrar (3)
SELECT Cuenta_x_Cobrar.Cxc_Tabla AS Tabla, Cuenta_x_Cobrar.Cxc_Documento AS Documento,
Cuenta_x_Cobrar.Es_Cve_Estado AS Estado, Pago_Cxc.Es_Cve_Estado AS Estado_Pago, Pago_Cxc.Pc_ID, Pago_Cxc.Pc_Tabla,
Pago_Cxc.Pc_Documento, Pago_Cxc.Pc_Referencia, Documento_Contabilizado.Dt_Documento, Periodo_Operativo.Po_Estado
FROM Cuenta_x_Cobrar
LEFT JOIN Pago_Cxc ON Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio AND Pago_Cxc.Pc_ID = '0001'
LEFT JOIN Documento_Contabilizado ON Documento_Contabilizado.Dt_Documento = 'CXC-MTY-00000001:0001' AND
Documento_Contabilizado.Dt_Tabla = 'Pago_Cxc'
LEFT JOIN Periodo_Operativo ON Periodo_Operativo.Po_Modulo = 'CUENTAS_X_COBRAR' AND Periodo_Operativo.Po_Ejercicio =
2024 AND Periodo_Operativo.Po_Mes = 3
WHERE Cuenta_x_Cobrar.Cxc_Folio = 'CXC-MTY-00000001';

UPDATE Pago_Cxc SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA1', Fecha_Baja = '2024-03-15 10:20:30',
Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Cxc_Folio = 'CXC-MTY-00000001' AND Pc_ID = '0001';

-- again UPDATE Cuenta_x_Cobrar

-- ---- CancelPayment, of an advance: the expense's payment goes too

-- again SELECT Cuenta_x_Cobrar (3) with 'CXC-MTY-00000004:0001' for 'CXC-MTY-00000001:0001',
--    'CXC-MTY-00000004' for 'CXC-MTY-00000001'
-- again UPDATE Pago_Cxc with 'CXC-MTY-00000004' for 'CXC-MTY-00000001'
-- again UPDATE Cuenta_x_Cobrar with 'CXC-MTY-00000004' for 'CXC-MTY-00000001'

-- SELECT Pago_Cxc (3)
SELECT Cxc_Folio, Pc_ID
FROM Pago_Cxc
WHERE Pc_Documento = 'AN-MTY-00000002' AND Pc_Tabla = 'ANTICIPO_CXC' AND Pc_Referencia = 'CXC-MTY-00000004:0001' AND
Es_Cve_Estado <> 'CA';

-- again UPDATE Pago_Cxc with 'CXC-MTY-00000005' for 'CXC-MTY-00000001'
-- again UPDATE Cuenta_x_Cobrar with 'CXC-MTY-00000005' for 'CXC-MTY-00000001'

-- UPDATE Anticipo_Cxc (2)
UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AC', Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE An_Folio = 'AN-MTY-00000002' AND Es_Cve_Estado = 'AP';

-- ---- CancelPayment, of an expense: the advance's payment goes too

-- again SELECT Cuenta_x_Cobrar (3) with 'CXC-MTY-00000005:0001' for 'CXC-MTY-00000001:0001',
--    'CXC-MTY-00000005' for 'CXC-MTY-00000001'
-- again UPDATE Pago_Cxc with 'CXC-MTY-00000005' for 'CXC-MTY-00000001'
-- again UPDATE Cuenta_x_Cobrar with 'CXC-MTY-00000005' for 'CXC-MTY-00000001'
-- again SELECT Pago_Cxc (2) with 'AN-MTY-00000002' for 'GC-MTY-00000001', 'ANTICIPO_CXC' for 'GASTO_X_COMPROBAR'

-- SELECT Pago_Cxc (4)
SELECT Cxc_Folio, Pc_ID
FROM Pago_Cxc
WHERE Cxc_Folio = 'CXC-MTY-00000004' AND Pc_Referencia = 'CXC-MTY-00000004:0001' AND Es_Cve_Estado <> 'CA';

-- again UPDATE Pago_Cxc with 'CXC-MTY-00000004' for 'CXC-MTY-00000001'
-- again UPDATE Cuenta_x_Cobrar with 'CXC-MTY-00000004' for 'CXC-MTY-00000001'
-- again UPDATE Anticipo_Cxc (2)

-- ---- DocumentCheck

-- SELECT Anticipo_Cxc (2)
SELECT Es_Cve_Estado
FROM Anticipo_Cxc
WHERE An_Folio = 'AN-MTY-00000002';

-- DataServices: SELECT Documento_Contabilizado with 'AN-MTY-00000002', 'ANTICIPO_CXC'
-- DataServices: SELECT Periodo_Operativo with 'CUENTAS_X_COBRAR', 2024, 3
