-- The sample company: a small trading business with two branches, in the SQL Server dialect.
--
-- Every key is told in docs/sample-company.md. What is inactive, closed or elsewhere is there to be refused.

INSERT INTO Empresa (Em_Cve_Empresa, Em_Descripcion, Em_RFC, Es_Cve_Estado) VALUES
    ('EM01', 'Comercializadora Río Claro, S.A. de C.V.', 'CRC010101AAA', 'AC'),
    ('EM99', 'Inmobiliaria Dos Lagunas, S.A. de C.V.', 'IDL990101BBB', 'BA');

-- Branches: MTY and GDL work; TIJ captures on a server of its own; LEN is closed.
INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, Sc_Servidor_Id, Sc_Centro_Costo,
    Sc_Cuenta_Contable, Es_Cve_Estado) VALUES
    ('MTY', 'Monterrey', 'EM01', '', 'CC-MTY', '1105-01', 'AC'),
    ('GDL', 'Guadalajara', 'EM01', '', 'CC-GDL', '1105-02', 'AC'),
    ('TIJ', 'Tijuana', 'EM01', 'NORTE', 'CC-TIJ', '1105-03', 'AC'),
    ('LEN', 'León', 'EM01', '', 'CC-LEN', '1105-04', 'BA');

INSERT INTO Moneda (Mn_Cve_Moneda, Mn_Descripcion, Mn_Simbolo, Es_Cve_Estado) VALUES
    ('MXN', 'Peso mexicano', '$', 'AC'),
    ('USD', 'Dólar estadounidense', 'US$', 'AC'),
    ('EUR', 'Euro', '€', 'BA');

-- Payment methods: 05 never goes to the bank, 06 creates a receivable of the card company, 07 applies advances.
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Depositable, Fp_Generar_Cuenta_x_Cobrar,
    Fp_Cliente,Fp_Requiere_Banco, Fp_Requiere_Referencia, Fp_Requiere_Cuenta, Fp_Metodo_Pago_SAT,Fp_Cuenta_Contable,
    Es_Cve_Estado) VALUES
    ('01', 'Efectivo', '01', 'SI', 'NO', '', 'NO', 'NO', 'NO', '01', '1101-01', 'AC'),
    ('02', 'Cheque', '02', 'SI', 'NO', '', 'SI', 'SI', 'NO', '02', '1101-02', 'AC'),
    ('03', 'Transferencia electrónica', '03', 'SI', 'NO', '', 'SI', 'SI', 'SI', '03', '1101-03', 'AC'),
    ('04', 'Tarjeta de crédito', '04', 'SI', 'NO', '', 'NO', 'SI', 'NO', '04', '1101-04', 'AC'),
    ('05', 'Vale de despensa', '05', 'NO', 'NO', '', 'NO', 'SI', 'NO', '08', '1101-05', 'AC'),
    ('06', 'Crédito de tarjeta departamental', '06', 'NO', 'SI', 'TARJ', 'NO', 'SI', 'NO', '99', '1101-06', 'AC'),
    ('07', 'Aplicación de anticipo', '07', 'NO', 'NO', '', 'NO', 'NO', 'NO', '30', '2106-01', 'AC'),
    ('99', 'Monedero anterior', '99', 'NO', 'NO', '', 'NO', 'NO', 'NO', '99', '1101-99', 'BA');

INSERT INTO Tipo_Recibo_Pago (Trp_Cve_Tipo_Recibo_Pago, Trp_Descripcion, Trp_Solicitar, Trp_Solicitar_Fecha,
    Trp_Solicitar_Vendedor, Es_Cve_Estado) VALUES
    ('01', 'Ingreso de caja', '01', 'NO', 'NO', 'AC'),
    ('02', 'Cobro a cliente', '02', 'NO', 'NO', 'AC'),
    ('03', 'Cobro a deudor', '03', 'NO', 'NO', 'AC'),
    ('04', 'Préstamo de proveedor', '04', 'SI', 'NO', 'AC'),
    ('05', 'Venta de mostrador', '01', 'NO', 'SI', 'AC'),
    ('99', 'Ingreso anterior', '01', 'NO', 'NO', 'BA');

INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar, Tc_Proveedor_Pago, Tc_Cuenta_Contable,
    Es_Cve_Estado) VALUES
    ('0000', 'Sin tipo', '', 'NO', '6199-01', 'AC'),
    ('0001', 'Pago a proveedor', '01', 'SI', '', 'AC'),
    ('0002', 'Gasto por comprobar', '02', 'NO', '', 'AC'),
    ('0003', 'Devolución a cliente', '03', 'NO', '', 'AC'),
    ('0004', 'Préstamo a deudor', '04', 'NO', '', 'AC'),
    ('0005', 'Anticipo a proveedor', '05', 'NO', '1109-01', 'AC'),
    ('0006', 'Proveedor sin cuenta por pagar', '01', 'NO', '6101-01', 'AC'),
    ('0099', 'Tipo anterior', '01', 'SI', '', 'BA');

INSERT INTO Banco_Tipo_Movimiento (Bt_Cve_Banco_Tipo_Movimiento, Bt_Descripcion, Bt_Tipo, Bt_Cuenta_Contable,
    Es_Cve_Estado) VALUES
    ('DEP', 'Depósito', '1', '1108-01', 'AC'),
    ('CHQ', 'Cheque', '2', '1108-02', 'AC'),
    ('TRF', 'Transferencia', '2', '1108-03', 'AC'),
    ('INT', 'Intereses ganados', '1', '7101-01', 'AC'),
    ('COM', 'Comisión bancaria', '2', '6201-01', 'AC'),
    ('ANT', 'Movimiento anterior', '1', '', 'BA');

INSERT INTO Banco (Bn_Cve_Banco, Bn_Descripcion, Bn_Codigo, Bn_Saldo, Es_Cve_Estado) VALUES
    ('SIERRA', 'Banco de la Sierra', '901', 0, 'AC'),
    ('PUERTO', 'Banco del Puerto', '902', 0, 'AC'),
    ('VIEJO', 'Banco Viejo', '903', 0, 'BA');

-- Accounts: one in pesos and one in dollars at each bank; PTO-GRAL is shared by every company; SRR-OLD is closed.
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bc_Cuenta, Bc_Cuenta_Contable, Bn_Cve_Banco,
    Mn_Cve_Moneda, Em_Cve_Empresa,Bc_MultiEmpresa, Bc_Saldo, Es_Cve_Estado) VALUES
    ('SRR-MXN', 'Sierra, operación en pesos', '0901000001', '1102-01', 'SIERRA', 'MXN', 'EM01', 'NO', 0, 'AC'),
    ('SRR-USD', 'Sierra, dólares', '0901000002', '1103-01', 'SIERRA', 'USD', 'EM01', 'NO', 0, 'AC'),
    ('PTO-MXN', 'Puerto, nómina y gastos', '0902000001', '1102-02', 'PUERTO', 'MXN', 'EM01', 'NO', 0, 'AC'),
    ('PTO-USD', 'Puerto, dólares', '0902000002', '1103-02', 'PUERTO', 'USD', 'EM01', 'NO', 0, 'AC'),
    ('PTO-GRAL', 'Puerto, concentradora', '0902000003', '1102-03', 'PUERTO', 'MXN', 'EM01', 'SI', 0, 'AC'),
    ('SRR-OLD', 'Sierra, cuenta cerrada', '0901000009', '1102-09', 'SIERRA', 'MXN', 'EM01', 'NO', 0, 'BA');

INSERT INTO Grupo_Proveedor (Gp_Cve_Grupo_Proveedor, Gp_Descripcion) VALUES
    ('MERC', 'Mercancía'),
    ('SERV', 'Servicios');

INSERT INTO Proveedor (Pv_Cve_Proveedor, Pv_Descripcion, Gp_Cve_Grupo_Proveedor, Pv_Dias_Credito,
    Pv_Cuenta_Contable, Es_Cve_Estado) VALUES
    ('PV01', 'Aceros del Bajío', 'MERC', 30, '2101-01', 'AC'),
    ('PV02', 'Importadora Tres Ríos', 'MERC', 15, '2101-02', 'AC'),
    ('PV03', 'Limpieza Jacaranda', 'SERV', 0, '2101-03', 'AC'),
    ('PV99', 'Proveedor anterior', 'SERV', 0, '2101-99', 'BA');

INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente, Cl_Dias_Credito, Cl_Cuenta_Contable,
    Es_Cve_Estado) VALUES
    ('CL01', 'Constructora Peña Alta', 'CL', 30, '1104-01', 'AC'),
    ('CL02', 'Abarrotes La Esperanza', 'CL', 0, '1104-02', 'AC'),
    ('TARJ', 'Tarjeta departamental', 'CL', 20, '1104-03', 'AC'),
    ('CL99', 'Cliente anterior', 'CL', 0, '1104-99', 'BA'),
    ('DE01', 'Laura Méndez, ventas', 'DE', 15, '1107-01', 'AC'),
    ('DE02', 'Jorge Ibarra, reparto', 'DE', 0, '1107-02', 'AC'),
    ('DE99', 'Deudor anterior', 'DE', 0, '1107-99', 'BA');

INSERT INTO Vendedor (Vn_Cve_Vendedor, Vn_Descripcion, Vn_Centro_Costo, Vn_Cuenta_Contable, Es_Cve_Estado) VALUES
    ('VN01', 'Ana Torres', 'CC-MTY', '4101-01', 'AC'),
    ('VN02', 'Luis Robles', 'CC-GDL', '4101-02', 'AC'),
    ('VN99', 'Vendedor anterior', 'CC-MTY', '4101-99', 'BA');

-- ---- Budgets of 2024 to 2027, every month alike ------------------------------------------------------------------

-- Supplier advances: PV01 has its own, PV02 a row without amount, so that its group governs.
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04,
    App_05, App_06,App_07, App_08, App_09, App_10, App_11, App_12) VALUES
    ('PV', 'PV01', 2024, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000),
    ('PV', 'PV02', 2024, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
    ('GP', 'MERC', 2024, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000),
    ('SC', 'MTY', 2024, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000),
    ('EM', 'EM01', 2024, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000),
    ('PV', 'PV01', 2025, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000),
    ('PV', 'PV02', 2025, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
    ('GP', 'MERC', 2025, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000),
    ('SC', 'MTY', 2025, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000),
    ('EM', 'EM01', 2025, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000),
    ('PV', 'PV01', 2026, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000),
    ('PV', 'PV02', 2026, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
    ('GP', 'MERC', 2026, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000),
    ('SC', 'MTY', 2026, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000),
    ('EM', 'EM01', 2026, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000),
    ('PV', 'PV01', 2027, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000, 10000),
    ('PV', 'PV02', 2027, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0),
    ('GP', 'MERC', 2027, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000, 25000),
    ('SC', 'MTY', 2027, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000, 50000),
    ('EM', 'EM01', 2027, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000, 100000);

-- Expenses to be justified.
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04,
    Gcp_05, Gcp_06,Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12) VALUES
    ('DE', 'DE01', 2024, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000),
    ('SC', 'MTY', 2024, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000),
    ('EM', 'EM01', 2024, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000),
    ('DE', 'DE01', 2025, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000),
    ('SC', 'MTY', 2025, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000),
    ('EM', 'EM01', 2025, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000),
    ('DE', 'DE01', 2026, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000),
    ('SC', 'MTY', 2026, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000),
    ('EM', 'EM01', 2026, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000),
    ('DE', 'DE01', 2027, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000, 5000),
    ('SC', 'MTY', 2027, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000, 15000),
    ('EM', 'EM01', 2027, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000, 40000);

-- Loans: none for the company, so that GDL has no budget and is held back by the strict mode.
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05,
    Pdp_06,Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12) VALUES
    ('DE', 'DE01', 2024, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000),
    ('SC', 'MTY', 2024, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000),
    ('DE', 'DE01', 2025, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000),
    ('SC', 'MTY', 2025, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000),
    ('DE', 'DE01', 2026, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000),
    ('SC', 'MTY', 2026, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000),
    ('DE', 'DE01', 2027, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000, 8000),
    ('SC', 'MTY', 2027, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000, 20000);

-- Refunds: controlled once TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE is 1 or 2.
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04,
    Dcp_05, Dcp_06,Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12) VALUES
    ('CL', 'CL01', 2024, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000),
    ('SC', 'MTY', 2024, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000),
    ('EM', 'EM01', 2024, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000),
    ('CL', 'CL01', 2025, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000),
    ('SC', 'MTY', 2025, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000),
    ('EM', 'EM01', 2025, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000),
    ('CL', 'CL01', 2026, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000),
    ('SC', 'MTY', 2026, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000),
    ('EM', 'EM01', 2026, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000),
    ('CL', 'CL01', 2027, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000, 3000),
    ('SC', 'MTY', 2027, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000, 9000),
    ('EM', 'EM01', 2027, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000, 30000);

-- ---- Open documents ----------------------------------------------------------------------------------------------

-- Payables of PV01 and PV02, receivables of CL01 and CL02, and two expense advances of the debtor DE01.
INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Cxp_Fecha, Cxp_Fecha_Vencimiento,
    Sc_Cve_Sucursal, Pv_Cve_Proveedor,Mn_Cve_Moneda, Cxp_Tipo_Cambio, Cxp_Importe, Cxp_Neto, Cxp_Precio_Neto_Importe,
    Cxp_Precio_Neto_Saldo, Cxp_Referencia) VALUES
    ('CXP-MTY-00000001', 'FACTURA_COMPRA', 'FC-1001', '2024-01-10', '2024-02-09', 'MTY', 'PV01', 'MXN', 1, 11600, 10000, 11600, 11600, 'Factura A-1001'),
    ('CXP-MTY-00000002', 'FACTURA_COMPRA', 'FC-1002', '2024-01-15', '2024-02-14', 'MTY', 'PV01', 'MXN', 1, 5800, 5000, 5800, 5800, 'Factura A-1002'),
    ('CXP-MTY-00000003', 'FACTURA_COMPRA', 'FC-2001', '2024-01-20', '2024-02-04', 'MTY', 'PV02', 'USD', 19.5, 500, 500, 500, 500, 'Invoice 2001'),
    ('CXP-GDL-00000001', 'FACTURA_COMPRA', 'FC-3001', '2024-01-22', '2024-01-22', 'GDL', 'PV03', 'MXN', 1, 2320, 2000, 2320, 2320, 'Factura L-3001');

INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Cxc_Fecha, Cxc_Fecha_Vencimiento,
    Sc_Cve_Sucursal, Cl_Cve_Cliente,Mn_Cve_Moneda, Cxc_Tipo_Cambio, Cxc_Importe, Cxc_Neto, Cxc_Precio_Neto_Importe,
    Cxc_Precio_Neto_Saldo, Cxc_Referencia) VALUES
    ('CXC-MTY-00000001', 'FACTURA_VENTA', 'FV-5001', '2024-01-08', '2024-02-07', 'MTY', 'CL01', 'MXN', 1, 5000, 4310.34, 5000, 5000, 'Factura 5001'),
    ('CXC-MTY-00000002', 'FACTURA_VENTA', 'FV-5002', '2024-01-18', '2024-02-17', 'MTY', 'CL01', 'MXN', 1, 3000, 2586.21, 3000, 3000, 'Factura 5002'),
    ('CXC-GDL-00000001', 'FACTURA_VENTA', 'FV-6001', '2024-01-25', '2024-01-25', 'GDL', 'CL02', 'USD', 19.5, 200, 200, 200, 200, 'Factura 6001'),
    ('CXC-MTY-00000003', 'ANTICIPO_CXC', 'AN-MTY-00000001', '2024-02-01', '2024-02-01', 'MTY', 'DE01', 'MXN', 1, -1000, -1000, -1000, -1000, 'Comprobación 31'),
    ('CXC-MTY-00000004', 'ANTICIPO_CXC', 'AN-MTY-00000002', '2024-02-05', '2024-02-05', 'MTY', 'DE01', 'MXN', 1, -250, -250, -250, -250, 'Comprobación 32');

INSERT INTO Anticipo_Cxc (An_Folio, An_Tabla, An_Documento, An_Fecha, Sc_Cve_Sucursal, Cl_Cve_Cliente,
    Mn_Cve_Moneda, An_Tipo_Cambio,An_Importe, An_Referencia) VALUES
    ('AN-MTY-00000001', 'GASTO_REGISTRO', 'GR-31', '2024-02-01', 'MTY', 'DE01', 'MXN', 1, 1000, 'Comprobación 31'),
    ('AN-MTY-00000002', 'GASTO_REGISTRO', 'GR-32', '2024-02-05', 'MTY', 'DE01', 'MXN', 1, 250, 'Comprobación 32');

INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo) VALUES
    ('CUENTA_X_PAGAR', 'MTY', 3),
    ('CUENTA_X_PAGAR', 'GDL', 1),
    ('CUENTA_X_COBRAR', 'MTY', 4),
    ('CUENTA_X_COBRAR', 'GDL', 1),
    ('ANTICIPO_CXC', 'MTY', 2);

-- ---- Configuration -----------------------------------------------------------------------------------------------

-- 2023 is closed; 2024 to 2027 are open.
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado) VALUES
    ('FINANZAS', 2023, 1, 'CE'), ('FINANZAS', 2023, 2, 'CE'), ('FINANZAS', 2023, 3, 'CE'), ('FINANZAS', 2023, 4, 'CE'),
    ('FINANZAS', 2023, 5, 'CE'), ('FINANZAS', 2023, 6, 'CE'), ('FINANZAS', 2023, 7, 'CE'), ('FINANZAS', 2023, 8, 'CE'),
    ('FINANZAS', 2023, 9, 'CE'), ('FINANZAS', 2023, 10, 'CE'), ('FINANZAS', 2023, 11, 'CE'), ('FINANZAS', 2023, 12, 'CE'),
    ('FINANZAS', 2024, 1, 'AB'), ('FINANZAS', 2024, 2, 'AB'), ('FINANZAS', 2024, 3, 'AB'), ('FINANZAS', 2024, 4, 'AB'),
    ('FINANZAS', 2024, 5, 'AB'), ('FINANZAS', 2024, 6, 'AB'), ('FINANZAS', 2024, 7, 'AB'), ('FINANZAS', 2024, 8, 'AB'),
    ('FINANZAS', 2024, 9, 'AB'), ('FINANZAS', 2024, 10, 'AB'), ('FINANZAS', 2024, 11, 'AB'), ('FINANZAS', 2024, 12, 'AB'),
    ('FINANZAS', 2025, 1, 'AB'), ('FINANZAS', 2025, 2, 'AB'), ('FINANZAS', 2025, 3, 'AB'), ('FINANZAS', 2025, 4, 'AB'),
    ('FINANZAS', 2025, 5, 'AB'), ('FINANZAS', 2025, 6, 'AB'), ('FINANZAS', 2025, 7, 'AB'), ('FINANZAS', 2025, 8, 'AB'),
    ('FINANZAS', 2025, 9, 'AB'), ('FINANZAS', 2025, 10, 'AB'), ('FINANZAS', 2025, 11, 'AB'), ('FINANZAS', 2025, 12, 'AB'),
    ('FINANZAS', 2026, 1, 'AB'), ('FINANZAS', 2026, 2, 'AB'), ('FINANZAS', 2026, 3, 'AB'), ('FINANZAS', 2026, 4, 'AB'),
    ('FINANZAS', 2026, 5, 'AB'), ('FINANZAS', 2026, 6, 'AB'), ('FINANZAS', 2026, 7, 'AB'), ('FINANZAS', 2026, 8, 'AB'),
    ('FINANZAS', 2026, 9, 'AB'), ('FINANZAS', 2026, 10, 'AB'), ('FINANZAS', 2026, 11, 'AB'), ('FINANZAS', 2026, 12, 'AB'),
    ('FINANZAS', 2027, 1, 'AB'), ('FINANZAS', 2027, 2, 'AB'), ('FINANZAS', 2027, 3, 'AB'), ('FINANZAS', 2027, 4, 'AB'),
    ('FINANZAS', 2027, 5, 'AB'), ('FINANZAS', 2027, 6, 'AB'), ('FINANZAS', 2027, 7, 'AB'), ('FINANZAS', 2027, 8, 'AB'),
    ('FINANZAS', 2027, 9, 'AB'), ('FINANZAS', 2027, 10, 'AB'), ('FINANZAS', 2027, 11, 'AB'), ('FINANZAS', 2027, 12, 'AB');

-- Nothing is posted automatically until `cuvexa suite posting CODE on`.
INSERT INTO Configuracion_Contable (Ct_Codigo, Ct_Automatica, Ct_Cuenta_Cargo, Ct_Cuenta_Abono) VALUES
    ('RECIBO_PAGO', 'NO', '1101-01', '1105-01'),
    ('BANCO_MOVIMIENTO', 'NO', '1102-01', '1108-01'),
    ('DEPOSITO_PAGO', 'NO', '1108-01', '1101-01'),
    ('CHEQUE', 'NO', '6199-01', '1108-02');

INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor) VALUES
    ('FIN_MONEDA_LOCAL', 'MXN'),
    ('GEN_FORZAR_TIEMPO_REAL', '0'),
    ('GEN_VALIDAR_PERIODO_OPERATIVO', '1'),
    ('TES_REDONDEA_IMPORTE_CHEQUE', '0'),
    ('TES_AUTORIZAR_SOLICITUD_CHEQUE', '0'),
    ('TES_FORMA_PAGO_CHEQUE', '02'),
    ('TES_FORMA_PAGO_TRANSFERENCIA', '03'),
    ('TES_MOVIMIENTO_DEPOSITO', 'DEP'),
    ('TES_MOVIMIENTO_CHEQUE', 'CHQ'),
    ('TES_MOVIMIENTO_TRANSFERENCIA', 'TRF'),
    ('TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR', '1'),
    ('TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR', '1'),
    ('TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR', '2'),
    ('TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE', '0'),
    ('CXC_FORMA_PAGO_ANTICIPO_CLIENTE', '07'),
    ('FTO_BANCO_CUENTA', '>AAAAAAAAAA'),
    ('FTO_BANCO', '>AAAAAAAAAA'),
    ('FTO_FORMA_PAGO', '00');
