-- AccountingService

-- ---- IsPostingEnabled

SELECT Ct_Automatica
FROM Configuracion_Contable
WHERE Ct_Codigo = 'CHEQUE';

-- ---- PostDocument, of a receipt

SELECT Recibo_Pago.Rp_Fecha, Recibo_Pago.Mn_Cve_Moneda, Recibo_Pago.Rp_Tipo_Cambio, Forma_Pago.Fp_Cuenta_Contable,
Forma_Pago.Fp_Descripcion, Sucursal.Sc_Cuenta_Contable, Sucursal.Em_Cve_Empresa,
SUM(Recibo_Pago.Rp_Importe) AS Importe
FROM Recibo_Pago
INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago
INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Recibo_Pago.Sc_Cve_Sucursal
WHERE Recibo_Pago.Rp_Folio = 'RP-MTY-00000001' AND Recibo_Pago.Es_Cve_Estado <> 'CA'
GROUP BY Recibo_Pago.Rp_Fecha, Recibo_Pago.Mn_Cve_Moneda, Recibo_Pago.Rp_Tipo_Cambio, Forma_Pago.Fp_Cuenta_Contable,
Forma_Pago.Fp_Descripcion, Sucursal.Sc_Cuenta_Contable, Sucursal.Em_Cve_Empresa;

-- DataServices: SELECT Parametro_Sistema with 'FIN_MONEDA_LOCAL'

SELECT Poliza.Pz_Folio, Poliza.Pz_Fecha, Poliza.Es_Cve_Estado, SUM(Poliza_Detalle.Pzd_Cargo) AS Cargos
FROM Poliza
INNER JOIN Poliza_Detalle ON Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio
WHERE Poliza.Pz_Documento = 'RP-MTY-00000001' AND Poliza.Pz_Tabla = 'RECIBO_PAGO' AND Poliza.Es_Cve_Estado <> 'CA'
GROUP BY Poliza.Pz_Folio, Poliza.Pz_Fecha, Poliza.Es_Cve_Estado;

-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- DataServices: INSERT Folio_Serie with 'POLIZA', '', 0, 'SI', 'POLIZA', ''
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'

INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Cargo, Pzd_Abono)
VALUES ('PZ-00000001', '0001', '1101-01', 'Efectivo', 100, 0);

-- again INSERT Poliza_Detalle with '0002' for '0001', '1105-01' for '1101-01', 0 for 100, 100 for 0

INSERT INTO Poliza (Pz_Folio, Em_Cve_Empresa, Pz_Fecha, Pz_Tabla, Pz_Documento, Pz_Concepto, Oper_Alta, Fecha_Alta,
Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado)
VALUES ('PZ-00000001', 'EM01', '2024-03-15', 'RECIBO_PAGO', 'RP-MTY-00000001', 'Recibo de caja RP-MTY-00000001',
'CAJA1', '2024-03-15 10:20:30', 'CAJA1', '2024-03-15 10:20:30', 'AC');

-- ---- PostDocument, of a bank movement

SELECT Banco_Movimiento.Bm_Fecha, Banco_Movimiento.Bm_Importe, Banco_Movimiento.Mn_Cve_Moneda,
Banco_Movimiento.Bm_Tipo_Cambio, Banco_Movimiento.Bc_Cuenta_Contable, Banco_Movimiento.Bm_Comentario,
Banco_Tipo_Movimiento.Bt_Cuenta_Contable, Banco_Cuenta.Em_Cve_Empresa
FROM Banco_Movimiento
INNER JOIN Banco_Tipo_Movimiento ON Banco_Tipo_Movimiento.Bt_Cve_Banco_Tipo_Movimiento =
Banco_Movimiento.Bt_Cve_Banco_Tipo_Movimiento
INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Banco_Movimiento.Bc_Cve_Banco_Cuenta
WHERE Banco_Movimiento.Bm_Folio = 'BM-00000001' AND Banco_Movimiento.Es_Cve_Estado <> 'CA';

-- DataServices: SELECT Parametro_Sistema with 'FIN_MONEDA_LOCAL'
-- again SELECT Poliza with 'BM-00000001' for 'RP-MTY-00000001', 'BANCO_MOVIMIENTO' for 'RECIBO_PAGO'
-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- DataServices: INSERT Folio_Serie with 'POLIZA', '', 0, 'SI', 'POLIZA', ''
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- again INSERT Poliza_Detalle with '1102-01' for '1101-01', 'DEPOSITO EFECTIVO' for 'Efectivo'
-- again INSERT Poliza_Detalle with '0002' for '0001', '1108-01' for '1101-01', 'DEPOSITO EFECTIVO' for 'Efectivo',
--    0 for 100, 100 for 0
-- again INSERT Poliza with 'BANCO_MOVIMIENTO' for 'RECIBO_PAGO', 'BM-00000001' for 'RP-MTY-00000001',
--    'Movimiento de banco BM-00000001' for 'Recibo de caja RP-MTY-00000001'

-- ---- PostDocument, of a deposit

-- DataServices: SELECT Parametro_Sistema with 'TES_MOVIMIENTO_DEPOSITO'

SELECT Bt_Cuenta_Contable
FROM Banco_Tipo_Movimiento
WHERE Bt_Cve_Banco_Tipo_Movimiento = 'DEP' AND Es_Cve_Estado <> 'BA';

-- SELECT Recibo_Pago (2)
SELECT Recibo_Pago.Rp_Fecha_Deposito, Recibo_Pago.Mn_Cve_Moneda, Recibo_Pago.Rp_Tipo_Cambio,
Forma_Pago.Fp_Cuenta_Contable, Forma_Pago.Fp_Descripcion, Sucursal.Em_Cve_Empresa,
SUM(Recibo_Pago.Rp_Importe) AS Importe
FROM Recibo_Pago
INNER JOIN Forma_Pago ON Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago
INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Recibo_Pago.Sc_Cve_Sucursal
WHERE Recibo_Pago.Rp_Folio_Deposito = 'DP-MTY-00000001' AND Recibo_Pago.Es_Cve_Estado <> 'CA'
GROUP BY Recibo_Pago.Rp_Fecha_Deposito, Recibo_Pago.Mn_Cve_Moneda, Recibo_Pago.Rp_Tipo_Cambio,
Forma_Pago.Fp_Cuenta_Contable, Forma_Pago.Fp_Descripcion, Sucursal.Em_Cve_Empresa;

-- DataServices: SELECT Parametro_Sistema with 'FIN_MONEDA_LOCAL'
-- again SELECT Poliza with 'DP-MTY-00000001' for 'RP-MTY-00000001', 'DEPOSITO_PAGO' for 'RECIBO_PAGO'
-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- DataServices: INSERT Folio_Serie with 'POLIZA', '', 0, 'SI', 'POLIZA', ''
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- again INSERT Poliza_Detalle with '1108-01' for '1101-01'
-- again INSERT Poliza_Detalle with '0002' for '0001', 0 for 100, 100 for 0
-- again INSERT Poliza with 'DEPOSITO_PAGO' for 'RECIBO_PAGO', 'DP-MTY-00000001' for 'RP-MTY-00000001',
--    'Depósito DP-MTY-00000001' for 'Recibo de caja RP-MTY-00000001'

-- ---- PostDocument, of a check to a supplier

SELECT Cheque.Ch_Fecha, Cheque.Ch_Importe, Cheque.Ch_Tipo_Cambio, Cheque.Ch_Concepto, Cheque.Ch_Transferencia,
Cheque.Ch_Solicitar_Valor, Tipo_Cheque.Tc_Solicitar, Tipo_Cheque.Tc_Cuenta_Contable, Sucursal.Em_Cve_Empresa
FROM Cheque
INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque
INNER JOIN Sucursal ON Sucursal.Sc_Cve_Sucursal = Cheque.Sc_Cve_Sucursal
WHERE Cheque.Ch_Folio = 'CH-MTY-00000001' AND Cheque.Es_Cve_Estado <> 'CA';

SELECT Pv_Cuenta_Contable
FROM Proveedor
WHERE Pv_Cve_Proveedor = 'PV01' AND Es_Cve_Estado <> 'BA';

-- DataServices: SELECT Parametro_Sistema with 'TES_MOVIMIENTO_CHEQUE'
-- again SELECT Banco_Tipo_Movimiento with 'CHQ' for 'DEP'
-- again SELECT Poliza with 'CH-MTY-00000001' for 'RP-MTY-00000001', 'CHEQUE' for 'RECIBO_PAGO'
-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- DataServices: INSERT Folio_Serie with 'POLIZA', '', 0, 'SI', 'POLIZA', ''
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- again INSERT Poliza_Detalle with '2101-01' for '1101-01', 'Pago de facturas' for 'Efectivo', 400 for 100
-- again INSERT Poliza_Detalle with '0002' for '0001', '1108-02' for '1101-01', 'Pago de facturas' for 'Efectivo',
--    0 for 100, 400 for 0
-- again INSERT Poliza with 'CHEQUE' for 'RECIBO_PAGO', 'CH-MTY-00000001' for 'RP-MTY-00000001',
--    'Cheque CH-MTY-00000001' for 'Recibo de caja RP-MTY-00000001'

-- ---- PostDocument, of a check to a customer

-- again SELECT Cheque

SELECT Cl_Cuenta_Contable
FROM Cliente
WHERE Cl_Cve_Cliente = 'CL01' AND Es_Cve_Estado <> 'BA';

-- DataServices: SELECT Parametro_Sistema with 'TES_MOVIMIENTO_CHEQUE'
-- again SELECT Banco_Tipo_Movimiento with 'CHQ' for 'DEP'
-- again SELECT Poliza with 'CH-MTY-00000001' for 'RP-MTY-00000001', 'CHEQUE' for 'RECIBO_PAGO'
-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- DataServices: INSERT Folio_Serie with 'POLIZA', '', 0, 'SI', 'POLIZA', ''
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- again INSERT Poliza_Detalle with '1104-01' for '1101-01', 'Pago de facturas' for 'Efectivo', 400 for 100
-- again INSERT Poliza_Detalle with '0002' for '0001', '1108-02' for '1101-01', 'Pago de facturas' for 'Efectivo',
--    0 for 100, 400 for 0
-- again INSERT Poliza with 'CHEQUE' for 'RECIBO_PAGO', 'CH-MTY-00000001' for 'RP-MTY-00000001',
--    'Cheque CH-MTY-00000001' for 'Recibo de caja RP-MTY-00000001'

-- ---- PostDocument, of a check whose type and beneficiary have no account

-- again SELECT Cheque
-- again SELECT Proveedor
-- DataServices: SELECT Parametro_Sistema with 'TES_MOVIMIENTO_CHEQUE'
-- again SELECT Banco_Tipo_Movimiento with 'CHQ' for 'DEP'

-- SELECT Configuracion_Contable (2)
SELECT Ct_Cuenta_Cargo
FROM Configuracion_Contable
WHERE Ct_Codigo = 'CHEQUE';

-- again SELECT Poliza with 'CH-MTY-00000001' for 'RP-MTY-00000001', 'CHEQUE' for 'RECIBO_PAGO'
-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- DataServices: INSERT Folio_Serie with 'POLIZA', '', 0, 'SI', 'POLIZA', ''
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- again INSERT Poliza_Detalle with '6199-01' for '1101-01', 'Pago de facturas' for 'Efectivo', 400 for 100
-- again INSERT Poliza_Detalle with '0002' for '0001', '1108-02' for '1101-01', 'Pago de facturas' for 'Efectivo',
--    0 for 100, 400 for 0
-- again INSERT Poliza with 'CHEQUE' for 'RECIBO_PAGO', 'CH-MTY-00000001' for 'RP-MTY-00000001',
--    'Cheque CH-MTY-00000001' for 'Recibo de caja RP-MTY-00000001'

-- ---- PostDocument, of a receipt that changed since

-- again SELECT Recibo_Pago
-- DataServices: SELECT Parametro_Sistema with 'FIN_MONEDA_LOCAL'
-- again SELECT Poliza
-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3

UPDATE Poliza SET Es_Cve_Estado = 'CA', Oper_Baja = 'CAJA1', Fecha_Baja = '2024-03-15 10:20:30',
Oper_Ult_Modif = 'CAJA1', Fecha_Ult_Modif = '2024-03-15 10:20:30'
WHERE Pz_Folio = 'PZ-00000001';

-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3
-- DataServices: UPDATE Folio_Serie with 1, 'POLIZA', '', 'SI'
-- again INSERT Poliza_Detalle with 'PZ-00000002' for 'PZ-00000001', 90 for 100
-- again INSERT Poliza_Detalle with 'PZ-00000002' for 'PZ-00000001', '0002' for '0001', '1105-01' for '1101-01',
--    0 for 100, 90 for 0
-- again INSERT Poliza with 'PZ-00000002' for 'PZ-00000001'

-- ---- ValidateVoucherCancellation

-- SELECT Poliza (2)
SELECT Pz_Folio, Pz_Fecha, Es_Cve_Estado
FROM Poliza
WHERE Pz_Documento = 'RP-MTY-00000001' AND Pz_Tabla = 'RECIBO_PAGO' AND Es_Cve_Estado <> 'CA';

-- DataServices: SELECT Periodo_Operativo with 'CONTABILIDAD', 2024, 3
-- again UPDATE Poliza
