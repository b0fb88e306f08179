-- The schema of a Cuvexa database, in the SQL Server dialect: the source for every engine.
--
-- A statement ends with a semicolon at the end of its line. Every column outside a key has a default, so that a row can
-- be inserted by naming only what is known. Names compare without regard to case, as do text values.
-- What the suite's own tables mean is told in docs/reference-suite.md.

-- ---- Catalogs --------------------------------------------------------------------------------------------------

-- Companies.
CREATE TABLE Empresa (
    Em_Cve_Empresa varchar(60) NOT NULL,
    Em_Descripcion varchar(400) DEFAULT '',
    Em_RFC varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Em_Cve_Empresa)
);

-- Branches. Sc_Servidor_Id: the server where their documents are captured; empty: the central one.
CREATE TABLE Sucursal (
    Sc_Cve_Sucursal varchar(60) NOT NULL,
    Sc_Descripcion varchar(400) DEFAULT '',
    Em_Cve_Empresa varchar(60) DEFAULT '',
    Sc_Servidor_Id varchar(60) DEFAULT '',
    Sc_Centro_Costo varchar(60) DEFAULT '',
    Sc_Cuenta_Contable varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Sc_Cve_Sucursal)
);

-- Currencies.
CREATE TABLE Moneda (
    Mn_Cve_Moneda varchar(60) NOT NULL,
    Mn_Descripcion varchar(400) DEFAULT '',
    Mn_Simbolo varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Mn_Cve_Moneda)
);

-- Payment methods. Fp_Tipo: '01' cash, '02' check, '04' card, other values otherwise. Fp_Depositable and
-- Fp_Generar_Cuenta_x_Cobrar: 'SI' or 'NO'. Fp_Cliente: who owes what the method collected.
CREATE TABLE Forma_Pago (
    Fp_Cve_Forma_Pago varchar(60) NOT NULL,
    Fp_Descripcion varchar(400) DEFAULT '',
    Fp_Tipo varchar(60) DEFAULT '',
    Fp_Depositable varchar(10) DEFAULT 'SI',
    Fp_Generar_Cuenta_x_Cobrar varchar(10) DEFAULT 'NO',
    Fp_Cliente varchar(60) DEFAULT '',
    Fp_Requiere_Banco varchar(10) DEFAULT 'NO',
    Fp_Requiere_Referencia varchar(10) DEFAULT 'NO',
    Fp_Requiere_Cuenta varchar(10) DEFAULT 'NO',
    Fp_Metodo_Pago_SAT varchar(60) DEFAULT '',
    Fp_Cuenta_Contable varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Fp_Cve_Forma_Pago)
);

-- Receipt types. Trp_Solicitar: '02' and '03' apply a receivable, '04' creates a payable.
CREATE TABLE Tipo_Recibo_Pago (
    Trp_Cve_Tipo_Recibo_Pago varchar(60) NOT NULL,
    Trp_Descripcion varchar(400) DEFAULT '',
    Trp_Solicitar varchar(60) DEFAULT '',
    Trp_Solicitar_Fecha varchar(10) DEFAULT 'NO',
    Trp_Solicitar_Vendedor varchar(10) DEFAULT 'NO',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Trp_Cve_Tipo_Recibo_Pago)
);

-- Check types. Tc_Solicitar: '01' supplier, '02' expense of a debtor, '03' customer, '04' debtor, '05' advance to a
-- supplier.
CREATE TABLE Tipo_Cheque (
    Tc_Cve_Tipo_Cheque varchar(60) NOT NULL,
    Tc_Descripcion varchar(400) DEFAULT '',
    Tc_Solicitar varchar(60) DEFAULT '',
    Tc_Proveedor_Pago varchar(10) DEFAULT 'NO',
    Tc_Cuenta_Contable varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Tc_Cve_Tipo_Cheque)
);

-- Banks. Bn_Codigo: code of the central bank's catalog. Bn_Saldo: sum of its accounts' balances.
CREATE TABLE Banco (
    Bn_Cve_Banco varchar(60) NOT NULL,
    Bn_Descripcion varchar(400) DEFAULT '',
    Bn_Codigo varchar(60) DEFAULT '',
    Bn_Saldo float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Bn_Cve_Banco)
);

-- Bank accounts. Bc_MultiEmpresa: 'SI' when every company may use it.
CREATE TABLE Banco_Cuenta (
    Bc_Cve_Banco_Cuenta varchar(60) NOT NULL,
    Bc_Descripcion varchar(400) DEFAULT '',
    Bc_Cuenta varchar(60) DEFAULT '',
    Bc_Cuenta_Contable varchar(60) DEFAULT '',
    Bn_Cve_Banco varchar(60) DEFAULT '',
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Em_Cve_Empresa varchar(60) DEFAULT '',
    Bc_MultiEmpresa varchar(10) DEFAULT 'NO',
    Bc_Saldo float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Bc_Cve_Banco_Cuenta)
);

-- Kinds of bank movement. Bt_Tipo: '2' takes money out of the account, any other value brings it in.
CREATE TABLE Banco_Tipo_Movimiento (
    Bt_Cve_Banco_Tipo_Movimiento varchar(60) NOT NULL,
    Bt_Descripcion varchar(400) DEFAULT '',
    Bt_Tipo varchar(60) DEFAULT '',
    Bt_Cuenta_Contable varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Bt_Cve_Banco_Tipo_Movimiento)
);

-- Supplier groups.
CREATE TABLE Grupo_Proveedor (
    Gp_Cve_Grupo_Proveedor varchar(60) NOT NULL,
    Gp_Descripcion varchar(400) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Gp_Cve_Grupo_Proveedor)
);

-- Suppliers.
CREATE TABLE Proveedor (
    Pv_Cve_Proveedor varchar(60) NOT NULL,
    Pv_Descripcion varchar(400) DEFAULT '',
    Gp_Cve_Grupo_Proveedor varchar(60) DEFAULT '',
    Pv_Dias_Credito int DEFAULT 0,
    Pv_Cuenta_Contable varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Pv_Cve_Proveedor)
);

-- Customers ('CL') and debtors ('DE').
CREATE TABLE Cliente (
    Cl_Cve_Cliente varchar(60) NOT NULL,
    Cl_Descripcion varchar(400) DEFAULT '',
    Tc_Cve_Tipo_Cliente varchar(60) DEFAULT '',
    Cl_Dias_Credito int DEFAULT 0,
    Cl_Cuenta_Contable varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Cl_Cve_Cliente)
);

-- Sellers.
CREATE TABLE Vendedor (
    Vn_Cve_Vendedor varchar(60) NOT NULL,
    Vn_Descripcion varchar(400) DEFAULT '',
    Vn_Centro_Costo varchar(60) DEFAULT '',
    Vn_Cuenta_Contable varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Vn_Cve_Vendedor)
);

-- ---- Cash receipts and deposits --------------------------------------------------------------------------------

-- Cash receipts, one row per payment line; the header's columns repeat in every line.
CREATE TABLE Recibo_Pago (
    Rp_Folio varchar(60) NOT NULL,
    Rp_Id varchar(60) NOT NULL,
    Rp_Fecha datetime DEFAULT NULL,
    Sc_Cve_Sucursal varchar(60) DEFAULT '',
    Trp_Cve_Tipo_Recibo_Pago varchar(60) DEFAULT '',
    Rp_Solicitar_Valor varchar(60) DEFAULT '',
    Rp_Tabla varchar(80) DEFAULT '',
    Rp_Documento varchar(60) DEFAULT '',
    Rp_Referencia varchar(8000) DEFAULT '',
    Rp_Comentario varchar(8000) DEFAULT '',
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Rp_Tipo_Cambio float DEFAULT 0,
    Rp_Fecha_Deposito datetime DEFAULT NULL,
    Rp_Folio_Deposito varchar(60) DEFAULT '',
    Rp_Deposito_ID varchar(60) DEFAULT '',
    Fp_Cve_Forma_Pago varchar(60) DEFAULT '',
    Rp_Banco varchar(400) DEFAULT '',
    Rp_Cheque varchar(400) DEFAULT '',
    Rp_Cuenta_Bancaria varchar(400) DEFAULT '',
    Rp_Importe float DEFAULT 0,
    Rp_Cve_Banco varchar(60) DEFAULT '',
    Rp_Vendedor varchar(60) DEFAULT '',
    Rp_Comisionista varchar(60) DEFAULT '',
    Rp_Promotor varchar(60) DEFAULT '',
    Rp_Chofer varchar(60) DEFAULT '',
    Rp_Cobratario varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Rp_Folio, Rp_Id)
);
CREATE INDEX Ix_Recibo_Pago_Rp_Folio_Deposito_Rp_Folio
    ON Recibo_Pago (Rp_Folio_Deposito, Rp_Folio, Es_Cve_Estado);
CREATE INDEX Ix_Recibo_Pago_Rp_Fecha
    ON Recibo_Pago (Rp_Fecha, Rp_Folio, Rp_Id);

-- Deposits, one row per group of receipt lines.
CREATE TABLE Deposito_Pago (
    Dp_Folio varchar(60) NOT NULL,
    Dp_Id varchar(60) NOT NULL,
    Dp_Fecha datetime DEFAULT NULL,
    Sc_Cve_Sucursal varchar(60) DEFAULT '',
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Dp_Tipo_Cambio float DEFAULT 0,
    Bc_Cve_Banco_Cuenta varchar(60) DEFAULT '',
    Dp_Importe float DEFAULT 0,
    Dp_Referencia varchar(8000) DEFAULT '',
    Dp_Comentario varchar(8000) DEFAULT '',
    Rp_Banco varchar(400) DEFAULT '',
    Rp_Cheque varchar(400) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Dp_Folio, Dp_Id)
);
CREATE INDEX Ix_Deposito_Pago_Dp_Fecha
    ON Deposito_Pago (Dp_Fecha, Dp_Folio, Dp_Id);

-- ---- Bank movements --------------------------------------------------------------------------------------------

-- Movements of bank accounts; Bm_Importe is signed. Estado: 'TR' in transit, 'FI' firm, 'CA' cancelled.
CREATE TABLE Banco_Movimiento (
    Bm_Folio varchar(60) NOT NULL,
    Bc_Cve_Banco_Cuenta varchar(60) DEFAULT '',
    Bm_Tabla varchar(80) DEFAULT '',
    Bm_Documento varchar(60) DEFAULT '',
    Bm_Documento_ID varchar(60) DEFAULT '',
    Bm_Referencia varchar(8000) DEFAULT '',
    Bc_Cuenta_Contable varchar(60) DEFAULT '',
    Bm_Comentario varchar(8000) DEFAULT '',
    Bm_Fecha datetime DEFAULT NULL,
    Bm_Fecha_Firme datetime DEFAULT NULL,
    Bt_Cve_Banco_Tipo_Movimiento varchar(60) DEFAULT '',
    Bm_Importe float DEFAULT 0,
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Bm_Tipo_Cambio float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'TR',
    PRIMARY KEY (Bm_Folio)
);
CREATE INDEX Ix_Banco_Movimiento_Bm_Documento
    ON Banco_Movimiento (Bm_Documento, Bm_Tabla);
CREATE INDEX Ix_Banco_Movimiento_Bc_Cve_Banco_Cuenta_Bm_Fecha
    ON Banco_Movimiento (Bc_Cve_Banco_Cuenta, Bm_Fecha, Es_Cve_Estado, Bm_Importe);
CREATE INDEX Ix_Banco_Movimiento_Bm_Fecha
    ON Banco_Movimiento (Bm_Fecha, Bm_Folio);

-- ---- Checks, transfers and their requests ----------------------------------------------------------------------

-- Checks ('NO' in Ch_Transferencia) and transfers ('SI').
CREATE TABLE Cheque (
    Ch_Folio varchar(60) NOT NULL,
    Tc_Cve_Tipo_Cheque varchar(60) DEFAULT '',
    Ch_Transferencia varchar(60) DEFAULT '',
    Ch_Fecha datetime DEFAULT NULL,
    Bc_Cve_Banco_Cuenta varchar(60) DEFAULT '',
    Sc_Cve_Sucursal varchar(60) DEFAULT '',
    Ch_Solicitar_Valor varchar(60) DEFAULT '',
    Ch_Beneficiario varchar(400) DEFAULT '',
    Ch_Importe float DEFAULT 0,
    Ch_Tipo_Cambio float DEFAULT 0,
    Ch_Concepto varchar(8000) DEFAULT '',
    Ch_Tabla varchar(80) DEFAULT '',
    Ch_Documento varchar(60) DEFAULT '',
    Ch_Referencia varchar(400) DEFAULT '',
    Ch_Fecha_Firme datetime DEFAULT NULL,
    Ch_Cuenta_Destino varchar(60) DEFAULT '',
    Ch_Banco_Destino varchar(400) DEFAULT '',
    Ch_Aplicar varchar(10) DEFAULT 'NO',
    Ch_Firme varchar(10) DEFAULT 'NO',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Ch_Folio)
);
CREATE INDEX Ix_Cheque_Ch_Referencia
    ON Cheque (Ch_Referencia, Bc_Cve_Banco_Cuenta);
CREATE INDEX Ix_Cheque_Ch_Documento
    ON Cheque (Ch_Documento, Ch_Tabla);
CREATE INDEX Ix_Cheque_Tc_Cve_Tipo_Cheque
    ON Cheque (Tc_Cve_Tipo_Cheque, Ch_Fecha);
CREATE INDEX Ix_Cheque_Ch_Solicitar_Valor
    ON Cheque (Ch_Solicitar_Valor, Ch_Fecha);
CREATE INDEX Ix_Cheque_Ch_Fecha
    ON Cheque (Ch_Fecha, Ch_Folio);

-- Lines of checks.
CREATE TABLE Cheque_x_Aplicar (
    Ch_Folio varchar(60) NOT NULL,
    Cxa_ID varchar(60) NOT NULL,
    Ch_Cheque varchar(400) DEFAULT '',
    Cxp_Folio varchar(60) DEFAULT '',
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Cxa_Tipo_Cambio float DEFAULT 0,
    Cxa_Importe float DEFAULT 0,
    Cxa_Fecha_Aplicacion datetime DEFAULT NULL,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Ch_Folio, Cxa_ID)
);
CREATE INDEX Ix_Cheque_x_Aplicar_Cxp_Folio
    ON Cheque_x_Aplicar (Cxp_Folio, Ch_Folio);

-- Check requests.
CREATE TABLE Solicitud_Cheque (
    Sch_Folio varchar(60) NOT NULL,
    Sch_Fecha datetime DEFAULT NULL,
    Tc_Cve_Tipo_Cheque varchar(60) DEFAULT '',
    Bc_Cve_Banco_Cuenta varchar(60) DEFAULT '',
    Sc_Cve_Sucursal varchar(60) DEFAULT '',
    Sch_Concepto varchar(8000) DEFAULT '',
    Sch_Beneficiario varchar(400) DEFAULT '',
    Sch_Tabla varchar(80) DEFAULT '',
    Sch_Documento varchar(60) DEFAULT '',
    Sch_Referencia varchar(400) DEFAULT '',
    Sch_Importe float DEFAULT 0,
    Sch_Tipo_Cambio float DEFAULT 0,
    Sch_Transferencia varchar(60) DEFAULT '',
    Sch_Aplicar varchar(60) DEFAULT '',
    Sch_Firme varchar(60) DEFAULT '',
    Sch_Solicitar_Valor varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Sch_Folio)
);
CREATE INDEX Ix_Solicitud_Cheque_Sch_Fecha
    ON Solicitud_Cheque (Sch_Fecha, Sch_Folio);

-- Documents that a check request pays.
CREATE TABLE Solicitud_Cheque_Detalle (
    Sch_Folio varchar(60) NOT NULL,
    Scd_Id varchar(60) NOT NULL,
    Scd_Tabla varchar(80) DEFAULT '',
    Scd_Documento varchar(60) DEFAULT '',
    Scd_Importe float DEFAULT 0,
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Scd_Tipo_Cambio float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Sch_Folio, Scd_Id)
);
CREATE INDEX Ix_Solicitud_Cheque_Detalle_Scd_Documento
    ON Solicitud_Cheque_Detalle (Scd_Documento, Scd_Tabla, Sch_Folio);

-- Expenses to be justified. Estado: 'PXA' until the check has its movement, then 'PA'.
CREATE TABLE Gasto_x_Comprobar (
    Gc_Folio varchar(60) NOT NULL,
    Gc_Fecha datetime DEFAULT NULL,
    Gc_Tabla varchar(80) DEFAULT '',
    Gc_Documento varchar(60) DEFAULT '',
    Gc_Referencia varchar(400) DEFAULT '',
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Sc_Cve_Sucursal varchar(60) DEFAULT '',
    Cl_Cve_Cliente varchar(60) DEFAULT '',
    Gc_Importe float DEFAULT 0,
    Gc_Tipo_Cambio float DEFAULT 0,
    Gc_Comentario varchar(8000) DEFAULT '',
    Bc_Cve_Banco_Cuenta varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Gc_Folio)
);
CREATE INDEX Ix_Gasto_x_Comprobar_Gc_Documento
    ON Gasto_x_Comprobar (Gc_Documento, Gc_Tabla);

-- Advances that a check's expense is set against; Cxc_Folio holds the folio of the advance.
CREATE TABLE Gasto_x_Comprobar_Documento (
    Gc_Documento varchar(60) NOT NULL,
    Gc_Tabla varchar(80) NOT NULL,
    Gcd_ID varchar(60) NOT NULL,
    Cxc_Folio varchar(60) DEFAULT '',
    Cxc_Importe float DEFAULT 0,
    Cxc_Tipo_Cambio float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Gc_Documento, Gc_Tabla, Gcd_ID)
);

-- ---- Budgets: twelve amounts per year and holder, in the company's own currency --------------------------------

-- App_Tipo: 'PV' supplier, 'GP' supplier group, 'SC' branch, 'EM' company.
CREATE TABLE Anticipo_Proveedor_Presupuesto (
    App_Tipo varchar(60) NOT NULL,
    App_Valor varchar(60) NOT NULL,
    App_Periodo int NOT NULL,
    App_01 float DEFAULT 0,
    App_02 float DEFAULT 0,
    App_03 float DEFAULT 0,
    App_04 float DEFAULT 0,
    App_05 float DEFAULT 0,
    App_06 float DEFAULT 0,
    App_07 float DEFAULT 0,
    App_08 float DEFAULT 0,
    App_09 float DEFAULT 0,
    App_10 float DEFAULT 0,
    App_11 float DEFAULT 0,
    App_12 float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (App_Tipo, App_Valor, App_Periodo)
);

-- Gcp_Tipo: 'DE' debtor, 'SC' branch, 'EM' company.
CREATE TABLE Gasto_x_Comprobar_Presupuesto (
    Gcp_Tipo varchar(60) NOT NULL,
    Gcp_Valor varchar(60) NOT NULL,
    Gcp_Periodo int NOT NULL,
    Gcp_01 float DEFAULT 0,
    Gcp_02 float DEFAULT 0,
    Gcp_03 float DEFAULT 0,
    Gcp_04 float DEFAULT 0,
    Gcp_05 float DEFAULT 0,
    Gcp_06 float DEFAULT 0,
    Gcp_07 float DEFAULT 0,
    Gcp_08 float DEFAULT 0,
    Gcp_09 float DEFAULT 0,
    Gcp_10 float DEFAULT 0,
    Gcp_11 float DEFAULT 0,
    Gcp_12 float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Gcp_Tipo, Gcp_Valor, Gcp_Periodo)
);

-- Pdp_Tipo: 'DE' debtor, 'SC' branch, 'EM' company.
CREATE TABLE Prestamo_Deudor_Presupuesto (
    Pdp_Tipo varchar(60) NOT NULL,
    Pdp_Valor varchar(60) NOT NULL,
    Pdp_Periodo int NOT NULL,
    Pdp_01 float DEFAULT 0,
    Pdp_02 float DEFAULT 0,
    Pdp_03 float DEFAULT 0,
    Pdp_04 float DEFAULT 0,
    Pdp_05 float DEFAULT 0,
    Pdp_06 float DEFAULT 0,
    Pdp_07 float DEFAULT 0,
    Pdp_08 float DEFAULT 0,
    Pdp_09 float DEFAULT 0,
    Pdp_10 float DEFAULT 0,
    Pdp_11 float DEFAULT 0,
    Pdp_12 float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Pdp_Tipo, Pdp_Valor, Pdp_Periodo)
);

-- Dcp_Tipo: 'CL' customer, 'SC' branch, 'EM' company.
CREATE TABLE Devolucion_Cliente_Presupuesto (
    Dcp_Tipo varchar(60) NOT NULL,
    Dcp_Valor varchar(60) NOT NULL,
    Dcp_Periodo int NOT NULL,
    Dcp_01 float DEFAULT 0,
    Dcp_02 float DEFAULT 0,
    Dcp_03 float DEFAULT 0,
    Dcp_04 float DEFAULT 0,
    Dcp_05 float DEFAULT 0,
    Dcp_06 float DEFAULT 0,
    Dcp_07 float DEFAULT 0,
    Dcp_08 float DEFAULT 0,
    Dcp_09 float DEFAULT 0,
    Dcp_10 float DEFAULT 0,
    Dcp_11 float DEFAULT 0,
    Dcp_12 float DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Dcp_Tipo, Dcp_Valor, Dcp_Periodo)
);

-- ---- Receivables and payables ----------------------------------------------------------------------------------

-- Receivables. Balance (Cxc_Precio_Neto_Saldo) = amount (Cxc_Precio_Neto_Importe) less the live payments. Those of
-- advances ('ANTICIPO_CXC') are negative: amount, payments and balance.
CREATE TABLE Cuenta_x_Cobrar (
    Cxc_Folio varchar(60) NOT NULL,
    Cxc_Tabla varchar(80) DEFAULT '',
    Cxc_Documento varchar(60) DEFAULT '',
    Cxc_Fecha datetime DEFAULT NULL,
    Cxc_Fecha_Vencimiento datetime DEFAULT NULL,
    Sc_Cve_Sucursal varchar(60) DEFAULT '',
    Cl_Cve_Cliente varchar(60) DEFAULT '',
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Cxc_Tipo_Cambio float DEFAULT 0,
    Cxc_Importe float DEFAULT 0,
    Cxc_Neto float DEFAULT 0,
    Cxc_Precio_Neto_Importe float DEFAULT 0,
    Cxc_Precio_Neto_Pago float DEFAULT 0,
    Cxc_Precio_Neto_Saldo float DEFAULT 0,
    Cxc_Referencia varchar(8000) DEFAULT '',
    Cxc_Comentario varchar(8000) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Cxc_Folio)
);
CREATE INDEX Ix_Cuenta_x_Cobrar_Cxc_Documento
    ON Cuenta_x_Cobrar (Cxc_Documento, Cxc_Tabla);
CREATE INDEX Ix_Cuenta_x_Cobrar_Cl_Cve_Cliente
    ON Cuenta_x_Cobrar (Cl_Cve_Cliente, Mn_Cve_Moneda, Cxc_Precio_Neto_Saldo);
CREATE INDEX Ix_Cuenta_x_Cobrar_Cxc_Fecha
    ON Cuenta_x_Cobrar (Cxc_Fecha, Cxc_Folio);

-- Payments of receivables. Pc_Importe, in the receivable's currency, carries the sign of the receivable; the columns
-- ending in _Pago are what was handed over. Pc_Afecta_Saldo 'NO': kept on record, without effect on the balance.
CREATE TABLE Pago_Cxc (
    Cxc_Folio varchar(60) NOT NULL,
    Pc_ID varchar(60) NOT NULL,
    Pc_Fecha datetime DEFAULT NULL,
    Pc_Importe float DEFAULT 0,
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Pc_Tipo_Cambio float DEFAULT 0,
    Pc_Importe_Pago float DEFAULT 0,
    Mn_Cve_Moneda_Pago varchar(60) DEFAULT '',
    Pc_Tipo_Cambio_Pago float DEFAULT 0,
    Pc_Tabla varchar(80) DEFAULT '',
    Pc_Documento varchar(60) DEFAULT '',
    Pc_Referencia varchar(400) DEFAULT '',
    Pc_Concepto varchar(8000) DEFAULT '',
    Fp_Cve_Forma_Pago varchar(60) DEFAULT '',
    Pc_Afecta_Saldo varchar(10) DEFAULT 'SI',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Cxc_Folio, Pc_ID)
);
CREATE INDEX Ix_Pago_Cxc_Pc_Documento
    ON Pago_Cxc (Pc_Documento, Pc_Tabla);

-- Payables. Balance = amount less the live payments. The payable of a supplier advance ('ANTICIPO_CXP') is negative.
CREATE TABLE Cuenta_x_Pagar (
    Cxp_Folio varchar(60) NOT NULL,
    Cxp_Tabla varchar(80) DEFAULT '',
    Cxp_Documento varchar(60) DEFAULT '',
    Cxp_Fecha datetime DEFAULT NULL,
    Cxp_Fecha_Vencimiento datetime DEFAULT NULL,
    Sc_Cve_Sucursal varchar(60) DEFAULT '',
    Pv_Cve_Proveedor varchar(60) DEFAULT '',
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Cxp_Tipo_Cambio float DEFAULT 0,
    Cxp_Importe float DEFAULT 0,
    Cxp_Neto float DEFAULT 0,
    Cxp_Precio_Neto_Importe float DEFAULT 0,
    Cxp_Precio_Neto_Pago float DEFAULT 0,
    Cxp_Precio_Neto_Saldo float DEFAULT 0,
    Cxp_Referencia varchar(8000) DEFAULT '',
    Cxp_Comentario varchar(8000) DEFAULT '',
    Bc_Cve_Banco_Cuenta varchar(60) DEFAULT '',
    Ch_Folio varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Cxp_Folio)
);
CREATE INDEX Ix_Cuenta_x_Pagar_Cxp_Documento
    ON Cuenta_x_Pagar (Cxp_Documento, Cxp_Tabla);
CREATE INDEX Ix_Cuenta_x_Pagar_Pv_Cve_Proveedor
    ON Cuenta_x_Pagar (Pv_Cve_Proveedor);
CREATE INDEX Ix_Cuenta_x_Pagar_Cxp_Fecha
    ON Cuenta_x_Pagar (Cxp_Fecha, Cxp_Folio);

-- Payments of payables, as those of receivables.
CREATE TABLE Pago_Cxp (
    Cxp_Folio varchar(60) NOT NULL,
    Pc_ID varchar(60) NOT NULL,
    Pc_Fecha datetime DEFAULT NULL,
    Pc_Importe float DEFAULT 0,
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    Pc_Tipo_Cambio float DEFAULT 0,
    Pc_Importe_Pago float DEFAULT 0,
    Mn_Cve_Moneda_Pago varchar(60) DEFAULT '',
    Pc_Tipo_Cambio_Pago float DEFAULT 0,
    Pc_Tabla varchar(80) DEFAULT '',
    Pc_Documento varchar(60) DEFAULT '',
    Pc_Referencia varchar(400) DEFAULT '',
    Pc_Concepto varchar(8000) DEFAULT '',
    Fp_Cve_Forma_Pago varchar(60) DEFAULT '',
    Pc_Afecta_Saldo varchar(10) DEFAULT 'SI',
    Ch_Cheque varchar(400) DEFAULT '',
    Bn_Cve_Banco varchar(60) DEFAULT '',
    Bn_Descripcion varchar(400) DEFAULT '',
    Bc_Cuenta varchar(60) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Cxp_Folio, Pc_ID)
);
CREATE INDEX Ix_Pago_Cxp_Pc_Documento
    ON Pago_Cxp (Pc_Documento, Pc_Tabla);

-- Customer advances. Estado: 'AC' usable, 'AP' wholly used.
CREATE TABLE Anticipo_Cxc (
    An_Folio varchar(60) NOT NULL,
    An_Tabla varchar(80) DEFAULT '',
    An_Documento varchar(60) DEFAULT '',
    An_Fecha datetime DEFAULT NULL,
    Sc_Cve_Sucursal varchar(60) DEFAULT '',
    Cl_Cve_Cliente varchar(60) DEFAULT '',
    Mn_Cve_Moneda varchar(60) DEFAULT '',
    An_Tipo_Cambio float DEFAULT 0,
    An_Importe float DEFAULT 0,
    An_Referencia varchar(8000) DEFAULT '',
    An_Comentario varchar(8000) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (An_Folio)
);
CREATE INDEX Ix_Anticipo_Cxc_An_Documento
    ON Anticipo_Cxc (An_Documento, An_Tabla);
CREATE INDEX Ix_Anticipo_Cxc_An_Fecha
    ON Anticipo_Cxc (An_Fecha, An_Folio);

-- Bank accounts known for the party of a document.
CREATE TABLE Documento_Cuenta_Bancaria (
    Dcb_Tabla varchar(80) NOT NULL,
    Dcb_Documento varchar(60) NOT NULL,
    Dcb_ID varchar(60) NOT NULL,
    Dcb_Banco varchar(60) DEFAULT '',
    Dcb_Cuenta varchar(60) DEFAULT '',
    Dcb_Sucursal varchar(60) DEFAULT '',
    Dcb_CLABE varchar(60) DEFAULT '',
    Dcb_Cve_Forma_Pago varchar(60) DEFAULT '',
    Dcb_Forma_Pago varchar(400) DEFAULT '',
    Dcb_Default varchar(10) DEFAULT 'NO',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Dcb_Tabla, Dcb_Documento, Dcb_ID)
);

-- ---- Accounting ------------------------------------------------------------------------------------------------

-- Journal vouchers; the debits of the live lines equal the credits. Estado: 'AC' open, 'CE' closed by accounting,
-- 'CA' cancelled.
CREATE TABLE Poliza (
    Pz_Folio varchar(60) NOT NULL,
    Em_Cve_Empresa varchar(60) DEFAULT '',
    Pz_Fecha datetime DEFAULT NULL,
    Pz_Tabla varchar(80) DEFAULT '',
    Pz_Documento varchar(60) DEFAULT '',
    Pz_Concepto varchar(8000) DEFAULT '',
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Oper_Ult_Modif varchar(60) DEFAULT '',
    Fecha_Ult_Modif datetime DEFAULT NULL,
    Oper_Baja varchar(60) DEFAULT '',
    Fecha_Baja datetime DEFAULT NULL,
    Es_Cve_Estado varchar(10) DEFAULT 'AC',
    PRIMARY KEY (Pz_Folio)
);
CREATE INDEX Ix_Poliza_Pz_Documento
    ON Poliza (Pz_Documento, Pz_Tabla);
CREATE INDEX Ix_Poliza_Pz_Fecha
    ON Poliza (Pz_Fecha, Pz_Folio);

-- Lines of vouchers, in local currency.
CREATE TABLE Poliza_Detalle (
    Pz_Folio varchar(60) NOT NULL,
    Pzd_ID varchar(60) NOT NULL,
    Pzd_Cuenta_Contable varchar(60) DEFAULT '',
    Pzd_Concepto varchar(8000) DEFAULT '',
    Pzd_Cargo float DEFAULT 0,
    Pzd_Abono float DEFAULT 0,
    PRIMARY KEY (Pz_Folio, Pzd_ID)
);

-- How documents of one code are posted: Ct_Automatica 'SI' or 'NO', and the accounts used where the catalogs name none.
CREATE TABLE Configuracion_Contable (
    Ct_Codigo varchar(80) NOT NULL,
    Ct_Automatica varchar(10) DEFAULT 'NO',
    Ct_Cuenta_Cargo varchar(60) DEFAULT '',
    Ct_Cuenta_Abono varchar(60) DEFAULT '',
    PRIMARY KEY (Ct_Codigo)
);

-- Documents posted to accounting by hand.
CREATE TABLE Documento_Contabilizado (
    Dt_Documento varchar(60) NOT NULL,
    Dt_Tabla varchar(80) NOT NULL,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    PRIMARY KEY (Dt_Documento, Dt_Tabla)
);

-- ---- The suite's own tables ------------------------------------------------------------------------------------

-- System parameters; an empty value is a value.
CREATE TABLE Parametro_Sistema (
    Ps_Nombre varchar(80) NOT NULL,
    Ps_Valor varchar(8000) DEFAULT '',
    PRIMARY KEY (Ps_Nombre)
);

-- Folio series. Fs_Ultimo: the last number given. Fs_Abierta: 'SI' or 'NO'.
CREATE TABLE Folio_Serie (
    Fs_Codigo varchar(80) NOT NULL,
    Fs_Sucursal varchar(60) NOT NULL,
    Fs_Ultimo int DEFAULT 0,
    Fs_Abierta varchar(10) DEFAULT 'SI',
    PRIMARY KEY (Fs_Codigo, Fs_Sucursal)
);

-- Operating periods. Po_Estado: 'AB' open, 'CE' closed.
CREATE TABLE Periodo_Operativo (
    Po_Modulo varchar(60) NOT NULL,
    Po_Ejercicio int NOT NULL,
    Po_Mes int NOT NULL,
    Po_Estado varchar(60) DEFAULT 'AB',
    PRIMARY KEY (Po_Modulo, Po_Ejercicio, Po_Mes)
);

-- Finished documents, with how often each was registered.
CREATE TABLE Documento_Registrado (
    Dr_Documento varchar(60) NOT NULL,
    Dr_Codigo varchar(80) NOT NULL,
    Dr_Veces int DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Fecha_Ult_Modif datetime DEFAULT NULL,
    PRIMARY KEY (Dr_Documento, Dr_Codigo)
);

-- This server; one row. Sv_Replica: 'SI' when it is not the central one.
CREATE TABLE Servidor_Suite (
    Sv_Llave int NOT NULL,
    Sv_Servidor_Id varchar(60) DEFAULT '',
    Sv_Replica varchar(10) DEFAULT 'NO',
    PRIMARY KEY (Sv_Llave)
);

-- Requests that a service has answered, so that one that comes again is answered alike and does nothing. Pe_Nombre: who
-- asked, the name of the token. Pe_Llave: the request's key. Pe_Huella: of what was asked. Pe_Estado: of the answer.
CREATE TABLE Peticion_Servicio (
    Pe_Nombre varchar(60) NOT NULL,
    Pe_Llave varchar(200) NOT NULL,
    Pe_Huella varchar(64) DEFAULT '',
    Pe_Estado int DEFAULT 0,
    Pe_Respuesta nvarchar(max) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    PRIMARY KEY (Pe_Nombre, Pe_Llave)
);
CREATE INDEX Ix_Peticion_Servicio_Fecha_Alta
    ON Peticion_Servicio (Fecha_Alta);

-- Version of this schema. Eq_Programa: the first version of the program that works with it. How a database of an earlier
-- version becomes one of this: upgrades/.
CREATE TABLE Esquema_Suite (
    Eq_Nombre varchar(60) NOT NULL,
    Eq_Version int DEFAULT 0,
    Eq_Programa varchar(60) DEFAULT '',
    PRIMARY KEY (Eq_Nombre)
);

INSERT INTO Esquema_Suite (Eq_Nombre, Eq_Version, Eq_Programa) VALUES ('CUVEXA', 2, '0.2.0');

INSERT INTO Servidor_Suite (Sv_Llave, Sv_Servidor_Id, Sv_Replica) VALUES (1, 'CENTRAL', 'NO');
