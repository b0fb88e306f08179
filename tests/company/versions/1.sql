-- A company of version 1 of the schema, as the program of that version left it: the sample company after the
-- demonstration, and a receipt that was deposited and posted. The tests upgrade it; it never changes.

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
CREATE INDEX Ix_Recibo_Pago_Rp_Folio_Deposito
    ON Recibo_Pago (Rp_Folio_Deposito);
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
CREATE INDEX Ix_Banco_Movimiento_Bc_Cve_Banco_Cuenta
    ON Banco_Movimiento (Bc_Cve_Banco_Cuenta, Es_Cve_Estado, Bm_Importe);
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
CREATE TABLE Poliza_Detalle (
    Pz_Folio varchar(60) NOT NULL,
    Pzd_ID varchar(60) NOT NULL,
    Pzd_Cuenta_Contable varchar(60) DEFAULT '',
    Pzd_Concepto varchar(8000) DEFAULT '',
    Pzd_Cargo float DEFAULT 0,
    Pzd_Abono float DEFAULT 0,
    PRIMARY KEY (Pz_Folio, Pzd_ID)
);
CREATE TABLE Configuracion_Contable (
    Ct_Codigo varchar(80) NOT NULL,
    Ct_Automatica varchar(10) DEFAULT 'NO',
    Ct_Cuenta_Cargo varchar(60) DEFAULT '',
    Ct_Cuenta_Abono varchar(60) DEFAULT '',
    PRIMARY KEY (Ct_Codigo)
);
CREATE TABLE Documento_Contabilizado (
    Dt_Documento varchar(60) NOT NULL,
    Dt_Tabla varchar(80) NOT NULL,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    PRIMARY KEY (Dt_Documento, Dt_Tabla)
);
CREATE TABLE Parametro_Sistema (
    Ps_Nombre varchar(80) NOT NULL,
    Ps_Valor varchar(8000) DEFAULT '',
    PRIMARY KEY (Ps_Nombre)
);
CREATE TABLE Folio_Serie (
    Fs_Codigo varchar(80) NOT NULL,
    Fs_Sucursal varchar(60) NOT NULL,
    Fs_Ultimo int DEFAULT 0,
    Fs_Abierta varchar(10) DEFAULT 'SI',
    PRIMARY KEY (Fs_Codigo, Fs_Sucursal)
);
CREATE TABLE Periodo_Operativo (
    Po_Modulo varchar(60) NOT NULL,
    Po_Ejercicio int NOT NULL,
    Po_Mes int NOT NULL,
    Po_Estado varchar(60) DEFAULT 'AB',
    PRIMARY KEY (Po_Modulo, Po_Ejercicio, Po_Mes)
);
CREATE TABLE Documento_Registrado (
    Dr_Documento varchar(60) NOT NULL,
    Dr_Codigo varchar(80) NOT NULL,
    Dr_Veces int DEFAULT 0,
    Oper_Alta varchar(60) DEFAULT '',
    Fecha_Alta datetime DEFAULT NULL,
    Fecha_Ult_Modif datetime DEFAULT NULL,
    PRIMARY KEY (Dr_Documento, Dr_Codigo)
);
CREATE TABLE Servidor_Suite (
    Sv_Llave int NOT NULL,
    Sv_Servidor_Id varchar(60) DEFAULT '',
    Sv_Replica varchar(10) DEFAULT 'NO',
    PRIMARY KEY (Sv_Llave)
);
CREATE TABLE Esquema_Suite (
    Eq_Nombre varchar(60) NOT NULL,
    Eq_Version int DEFAULT 0,
    PRIMARY KEY (Eq_Nombre)
);

INSERT INTO Empresa (Em_Cve_Empresa, Em_Descripcion, Em_RFC)
    VALUES ('EM01', 'Comercializadora Río Claro, S.A. de C.V.', 'CRC010101AAA');
INSERT INTO Empresa (Em_Cve_Empresa, Em_Descripcion, Em_RFC, Es_Cve_Estado)
    VALUES ('EM99', 'Inmobiliaria Dos Lagunas, S.A. de C.V.', 'IDL990101BBB', 'BA');
INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, Sc_Centro_Costo, Sc_Cuenta_Contable)
    VALUES ('MTY', 'Monterrey', 'EM01', 'CC-MTY', '1105-01');
INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, Sc_Centro_Costo, Sc_Cuenta_Contable)
    VALUES ('GDL', 'Guadalajara', 'EM01', 'CC-GDL', '1105-02');
INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, Sc_Servidor_Id, Sc_Centro_Costo, Sc_Cuenta_Contable)
    VALUES ('TIJ', 'Tijuana', 'EM01', 'NORTE', 'CC-TIJ', '1105-03');
INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, Sc_Centro_Costo, Sc_Cuenta_Contable, Es_Cve_Estado)
    VALUES ('LEN', 'León', 'EM01', 'CC-LEN', '1105-04', 'BA');
INSERT INTO Moneda (Mn_Cve_Moneda, Mn_Descripcion, Mn_Simbolo)
    VALUES ('MXN', 'Peso mexicano', '$');
INSERT INTO Moneda (Mn_Cve_Moneda, Mn_Descripcion, Mn_Simbolo)
    VALUES ('USD', 'Dólar estadounidense', 'US$');
INSERT INTO Moneda (Mn_Cve_Moneda, Mn_Descripcion, Mn_Simbolo, Es_Cve_Estado)
    VALUES ('EUR', 'Euro', '€', 'BA');
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable)
    VALUES ('01', 'Efectivo', '01', '01', '1101-01');
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Requiere_Banco, Fp_Requiere_Referencia, Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable)
    VALUES ('02', 'Cheque', '02', 'SI', 'SI', '02', '1101-02');
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Requiere_Banco, Fp_Requiere_Referencia, Fp_Requiere_Cuenta, Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable)
    VALUES ('03', 'Transferencia electrónica', '03', 'SI', 'SI', 'SI', '03', '1101-03');
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Requiere_Referencia, Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable)
    VALUES ('04', 'Tarjeta de crédito', '04', 'SI', '04', '1101-04');
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Depositable, Fp_Requiere_Referencia, Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable)
    VALUES ('05', 'Vale de despensa', '05', 'NO', 'SI', '08', '1101-05');
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Depositable, Fp_Generar_Cuenta_x_Cobrar, Fp_Cliente, Fp_Requiere_Referencia, Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable)
    VALUES ('06', 'Crédito de tarjeta departamental', '06', 'NO', 'SI', 'TARJ', 'SI', '99', '1101-06');
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Depositable, Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable)
    VALUES ('07', 'Aplicación de anticipo', '07', 'NO', '30', '2106-01');
INSERT INTO Forma_Pago (Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Depositable, Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable, Es_Cve_Estado)
    VALUES ('99', 'Monedero anterior', '99', 'NO', '99', '1101-99', 'BA');
INSERT INTO Tipo_Recibo_Pago (Trp_Cve_Tipo_Recibo_Pago, Trp_Descripcion, Trp_Solicitar)
    VALUES ('01', 'Ingreso de caja', '01');
INSERT INTO Tipo_Recibo_Pago (Trp_Cve_Tipo_Recibo_Pago, Trp_Descripcion, Trp_Solicitar)
    VALUES ('02', 'Cobro a cliente', '02');
INSERT INTO Tipo_Recibo_Pago (Trp_Cve_Tipo_Recibo_Pago, Trp_Descripcion, Trp_Solicitar)
    VALUES ('03', 'Cobro a deudor', '03');
INSERT INTO Tipo_Recibo_Pago (Trp_Cve_Tipo_Recibo_Pago, Trp_Descripcion, Trp_Solicitar, Trp_Solicitar_Fecha)
    VALUES ('04', 'Préstamo de proveedor', '04', 'SI');
INSERT INTO Tipo_Recibo_Pago (Trp_Cve_Tipo_Recibo_Pago, Trp_Descripcion, Trp_Solicitar, Trp_Solicitar_Vendedor)
    VALUES ('05', 'Venta de mostrador', '01', 'SI');
INSERT INTO Tipo_Recibo_Pago (Trp_Cve_Tipo_Recibo_Pago, Trp_Descripcion, Trp_Solicitar, Es_Cve_Estado)
    VALUES ('99', 'Ingreso anterior', '01', 'BA');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Cuenta_Contable)
    VALUES ('0000', 'Sin tipo', '6199-01');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar, Tc_Proveedor_Pago)
    VALUES ('0001', 'Pago a proveedor', '01', 'SI');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar)
    VALUES ('0002', 'Gasto por comprobar', '02');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar)
    VALUES ('0003', 'Devolución a cliente', '03');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar)
    VALUES ('0004', 'Préstamo a deudor', '04');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar, Tc_Cuenta_Contable)
    VALUES ('0005', 'Anticipo a proveedor', '05', '1109-01');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar, Tc_Cuenta_Contable)
    VALUES ('0006', 'Proveedor sin cuenta por pagar', '01', '6101-01');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar, Tc_Proveedor_Pago, Es_Cve_Estado)
    VALUES ('0099', 'Tipo anterior', '01', 'SI', 'BA');
INSERT INTO Banco (Bn_Cve_Banco, Bn_Descripcion, Bn_Codigo, Bn_Saldo, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('SIERRA', 'Banco de la Sierra', '901', 1750.5, 'CAJA1', '2024-03-15 00:00:00');
INSERT INTO Banco (Bn_Cve_Banco, Bn_Descripcion, Bn_Codigo, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('PUERTO', 'Banco del Puerto', '902', 'DEMO', '2024-03-15 00:00:00');
INSERT INTO Banco (Bn_Cve_Banco, Bn_Descripcion, Bn_Codigo, Es_Cve_Estado)
    VALUES ('VIEJO', 'Banco Viejo', '903', 'BA');
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bc_Cuenta, Bc_Cuenta_Contable, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa, Bc_Saldo, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('SRR-MXN', 'Sierra, operación en pesos', '0901000001', '1102-01', 'SIERRA', 'MXN', 'EM01', 1750.5, 'CAJA1', '2024-03-15 00:00:00');
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bc_Cuenta, Bc_Cuenta_Contable, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa)
    VALUES ('SRR-USD', 'Sierra, dólares', '0901000002', '1103-01', 'SIERRA', 'USD', 'EM01');
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bc_Cuenta, Bc_Cuenta_Contable, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('PTO-MXN', 'Puerto, nómina y gastos', '0902000001', '1102-02', 'PUERTO', 'MXN', 'EM01', 'DEMO', '2024-03-15 00:00:00');
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bc_Cuenta, Bc_Cuenta_Contable, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa)
    VALUES ('PTO-USD', 'Puerto, dólares', '0902000002', '1103-02', 'PUERTO', 'USD', 'EM01');
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bc_Cuenta, Bc_Cuenta_Contable, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa, Bc_MultiEmpresa)
    VALUES ('PTO-GRAL', 'Puerto, concentradora', '0902000003', '1102-03', 'PUERTO', 'MXN', 'EM01', 'SI');
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bc_Cuenta, Bc_Cuenta_Contable, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa, Es_Cve_Estado)
    VALUES ('SRR-OLD', 'Sierra, cuenta cerrada', '0901000009', '1102-09', 'SIERRA', 'MXN', 'EM01', 'BA');
INSERT INTO Banco_Tipo_Movimiento (Bt_Cve_Banco_Tipo_Movimiento, Bt_Descripcion, Bt_Tipo, Bt_Cuenta_Contable)
    VALUES ('DEP', 'Depósito', '1', '1108-01');
INSERT INTO Banco_Tipo_Movimiento (Bt_Cve_Banco_Tipo_Movimiento, Bt_Descripcion, Bt_Tipo, Bt_Cuenta_Contable)
    VALUES ('CHQ', 'Cheque', '2', '1108-02');
INSERT INTO Banco_Tipo_Movimiento (Bt_Cve_Banco_Tipo_Movimiento, Bt_Descripcion, Bt_Tipo, Bt_Cuenta_Contable)
    VALUES ('TRF', 'Transferencia', '2', '1108-03');
INSERT INTO Banco_Tipo_Movimiento (Bt_Cve_Banco_Tipo_Movimiento, Bt_Descripcion, Bt_Tipo, Bt_Cuenta_Contable)
    VALUES ('INT', 'Intereses ganados', '1', '7101-01');
INSERT INTO Banco_Tipo_Movimiento (Bt_Cve_Banco_Tipo_Movimiento, Bt_Descripcion, Bt_Tipo, Bt_Cuenta_Contable)
    VALUES ('COM', 'Comisión bancaria', '2', '6201-01');
INSERT INTO Banco_Tipo_Movimiento (Bt_Cve_Banco_Tipo_Movimiento, Bt_Descripcion, Bt_Tipo, Es_Cve_Estado)
    VALUES ('ANT', 'Movimiento anterior', '1', 'BA');
INSERT INTO Grupo_Proveedor (Gp_Cve_Grupo_Proveedor, Gp_Descripcion)
    VALUES ('MERC', 'Mercancía');
INSERT INTO Grupo_Proveedor (Gp_Cve_Grupo_Proveedor, Gp_Descripcion)
    VALUES ('SERV', 'Servicios');
INSERT INTO Proveedor (Pv_Cve_Proveedor, Pv_Descripcion, Gp_Cve_Grupo_Proveedor, Pv_Dias_Credito, Pv_Cuenta_Contable)
    VALUES ('PV01', 'Aceros del Bajío', 'MERC', 30, '2101-01');
INSERT INTO Proveedor (Pv_Cve_Proveedor, Pv_Descripcion, Gp_Cve_Grupo_Proveedor, Pv_Dias_Credito, Pv_Cuenta_Contable)
    VALUES ('PV02', 'Importadora Tres Ríos', 'MERC', 15, '2101-02');
INSERT INTO Proveedor (Pv_Cve_Proveedor, Pv_Descripcion, Gp_Cve_Grupo_Proveedor, Pv_Cuenta_Contable)
    VALUES ('PV03', 'Limpieza Jacaranda', 'SERV', '2101-03');
INSERT INTO Proveedor (Pv_Cve_Proveedor, Pv_Descripcion, Gp_Cve_Grupo_Proveedor, Pv_Cuenta_Contable, Es_Cve_Estado)
    VALUES ('PV99', 'Proveedor anterior', 'SERV', '2101-99', 'BA');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente, Cl_Dias_Credito, Cl_Cuenta_Contable)
    VALUES ('CL01', 'Constructora Peña Alta', 'CL', 30, '1104-01');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente, Cl_Cuenta_Contable)
    VALUES ('CL02', 'Abarrotes La Esperanza', 'CL', '1104-02');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente, Cl_Dias_Credito, Cl_Cuenta_Contable)
    VALUES ('TARJ', 'Tarjeta departamental', 'CL', 20, '1104-03');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente, Cl_Cuenta_Contable, Es_Cve_Estado)
    VALUES ('CL99', 'Cliente anterior', 'CL', '1104-99', 'BA');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente, Cl_Dias_Credito, Cl_Cuenta_Contable)
    VALUES ('DE01', 'Laura Méndez, ventas', 'DE', 15, '1107-01');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente, Cl_Cuenta_Contable)
    VALUES ('DE02', 'Jorge Ibarra, reparto', 'DE', '1107-02');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente, Cl_Cuenta_Contable, Es_Cve_Estado)
    VALUES ('DE99', 'Deudor anterior', 'DE', '1107-99', 'BA');
INSERT INTO Vendedor (Vn_Cve_Vendedor, Vn_Descripcion, Vn_Centro_Costo, Vn_Cuenta_Contable)
    VALUES ('VN01', 'Ana Torres', 'CC-MTY', '4101-01');
INSERT INTO Vendedor (Vn_Cve_Vendedor, Vn_Descripcion, Vn_Centro_Costo, Vn_Cuenta_Contable)
    VALUES ('VN02', 'Luis Robles', 'CC-GDL', '4101-02');
INSERT INTO Vendedor (Vn_Cve_Vendedor, Vn_Descripcion, Vn_Centro_Costo, Vn_Cuenta_Contable, Es_Cve_Estado)
    VALUES ('VN99', 'Vendedor anterior', 'CC-MTY', '4101-99', 'BA');
INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Fecha, Sc_Cve_Sucursal, Trp_Cve_Tipo_Recibo_Pago, Rp_Solicitar_Valor, Rp_Tabla, Rp_Documento, Rp_Referencia, Mn_Cve_Moneda, Rp_Tipo_Cambio, Rp_Fecha_Deposito, Fp_Cve_Forma_Pago, Rp_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('RP-MTY-00000001', '0001', '2024-03-15', 'MTY', '02', 'CL01', 'FACTURA_VENTA', 'FV-5001', 'Factura 5001', 'MXN', 1.0, '2024-03-15', '01', 1500.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Fecha, Sc_Cve_Sucursal, Trp_Cve_Tipo_Recibo_Pago, Rp_Solicitar_Valor, Rp_Tabla, Rp_Documento, Rp_Referencia, Mn_Cve_Moneda, Rp_Tipo_Cambio, Rp_Fecha_Deposito, Fp_Cve_Forma_Pago, Rp_Banco, Rp_Cheque, Rp_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('RP-MTY-00000001', '0002', '2024-03-15', 'MTY', '02', 'CL01', 'FACTURA_VENTA', 'FV-5001', 'Factura 5001', 'MXN', 1.0, '2024-03-15', '02', 'Banco del Puerto', '77001', 3500.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Fecha, Sc_Cve_Sucursal, Trp_Cve_Tipo_Recibo_Pago, Mn_Cve_Moneda, Rp_Tipo_Cambio, Rp_Fecha_Deposito, Rp_Folio_Deposito, Rp_Deposito_ID, Fp_Cve_Forma_Pago, Rp_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado)
    VALUES ('RP-MTY-00000002', '0001', '2024-03-15', 'MTY', '01', 'MXN', 1.0, '2024-03-15', 'DP-MTY-00000002', '0001', '01', 1500.0, 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00', 'DP');
INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Fecha, Sc_Cve_Sucursal, Trp_Cve_Tipo_Recibo_Pago, Mn_Cve_Moneda, Rp_Tipo_Cambio, Rp_Fecha_Deposito, Rp_Folio_Deposito, Rp_Deposito_ID, Fp_Cve_Forma_Pago, Rp_Cheque, Rp_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado)
    VALUES ('RP-MTY-00000002', '0002', '2024-03-15', 'MTY', '01', 'MXN', 1.0, '2024-03-15', 'DP-MTY-00000002', '0002', '04', 'T-881', 250.5, 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00', 'DP');
INSERT INTO Deposito_Pago (Dp_Folio, Dp_Id, Dp_Fecha, Sc_Cve_Sucursal, Mn_Cve_Moneda, Dp_Tipo_Cambio, Bc_Cve_Banco_Cuenta, Dp_Importe, Dp_Comentario, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('DP-MTY-00000001', '0001', '2024-03-15', 'MTY', 'MXN', 1.0, 'SRR-MXN', 1500.0, 'Corte del día', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Deposito_Pago (Dp_Folio, Dp_Id, Dp_Fecha, Sc_Cve_Sucursal, Mn_Cve_Moneda, Dp_Tipo_Cambio, Bc_Cve_Banco_Cuenta, Dp_Importe, Dp_Comentario, Rp_Banco, Rp_Cheque, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('DP-MTY-00000001', '0002', '2024-03-15', 'MTY', 'MXN', 1.0, 'SRR-MXN', 3500.0, 'Corte del día', 'Banco del Puerto', '77001', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Deposito_Pago (Dp_Folio, Dp_Id, Dp_Fecha, Sc_Cve_Sucursal, Mn_Cve_Moneda, Dp_Tipo_Cambio, Bc_Cve_Banco_Cuenta, Dp_Importe, Dp_Comentario, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('DP-MTY-00000002', '0001', '2024-03-15', 'MTY', 'MXN', 1.0, 'SRR-MXN', 1500.0, 'Corte del día', 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00');
INSERT INTO Deposito_Pago (Dp_Folio, Dp_Id, Dp_Fecha, Sc_Cve_Sucursal, Mn_Cve_Moneda, Dp_Tipo_Cambio, Bc_Cve_Banco_Cuenta, Dp_Importe, Dp_Comentario, Rp_Cheque, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('DP-MTY-00000002', '0002', '2024-03-15', 'MTY', 'MXN', 1.0, 'SRR-MXN', 250.5, 'Corte del día', 'T-881', 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Documento_ID, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000001', 'SRR-MXN', 'DEPOSITO_PAGO', 'DP-MTY-00000001', '0001', '1102-01', 'DEPOSITO EFECTIVO', '2024-03-15', '2024-03-15', 'DEP', 1500.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Documento_ID, Bm_Referencia, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000002', 'SRR-MXN', 'DEPOSITO_PAGO', 'DP-MTY-00000001', '0002', '77001', '1102-01', 'DEPOSITO CON CHEQUE', '2024-03-15', '2024-03-15', 'DEP', 3500.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Referencia, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000003', 'SRR-MXN', 'Cheque', 'CH-MTY-00000001', '2001', '1102-01', 'Pago de facturas', '2024-03-15', '2024-03-15', 'CHQ', -1500.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Referencia, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000004', 'SRR-MXN', 'Cheque', 'CH-MTY-00000002', '2002', '1102-01', 'Anticipo de lámina', '2024-03-15', '2024-03-15', 'CHQ', -600.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Referencia, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000005', 'SRR-MXN', 'Cheque', 'CH-MTY-00000003', '2003', '1102-01', 'Viáticos', '2024-03-15', '2024-03-15', 'CHQ', -400.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Referencia, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000006', 'SRR-MXN', 'Cheque', 'CH-MTY-00000004', '2004', '1102-01', 'Préstamo personal', '2024-03-15', '2024-03-15', 'CHQ', -300.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Referencia, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000007', 'SRR-MXN', 'Cheque', 'CH-MTY-00000005', '2005', '1102-01', 'Devolución de mercancía', '2024-03-15', '2024-03-15', 'CHQ', -200.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Referencia, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000008', 'SRR-MXN', 'Cheque', 'CH-MTY-00000006', '2006', '1102-01', 'Devolución de anticipo', '2024-03-15', '2024-03-15', 'CHQ', -100.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000009', 'SRR-MXN', 'CHEQUE', 'CH-MTY-00000007', '1102-01', 'Traspaso', '2024-03-15', '2024-03-15', 'TRF', -900.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('BM-00000010', 'PTO-MXN', 'CHEQUE', 'CH-MTY-00000007', '1102-02', 'Traspaso', '2024-03-15', '2024-03-15', 'DEP', 900.0, 'MXN', 1.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Documento_ID, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado)
    VALUES ('BM-00000011', 'SRR-MXN', 'DEPOSITO_PAGO', 'DP-MTY-00000002', '0001', '1102-01', 'DEPOSITO EFECTIVO', '2024-03-15', '2024-03-15', 'DEP', 1500.0, 'MXN', 1.0, 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00', 'FI');
INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Documento_ID, Bm_Referencia, Bc_Cuenta_Contable, Bm_Comentario, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Es_Cve_Estado)
    VALUES ('BM-00000012', 'SRR-MXN', 'DEPOSITO_PAGO', 'DP-MTY-00000002', '0002', 'T-881', '1102-01', 'DEPOSITO CON TARJETA DE CREDITO', '2024-03-15', '2024-03-15', 'DEP', 250.5, 'MXN', 1.0, 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00', 'FI');
INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia, Ch_Fecha_Firme, Ch_Aplicar, Ch_Firme, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000001', '0001', 'NO', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'PV01', 'Aceros del Bajío', 1500.0, 1.0, 'Pago de facturas', '2001', '2024-03-15', 'SI', 'SI', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia, Ch_Fecha_Firme, Ch_Aplicar, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000002', '0005', 'NO', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'PV01', 'Aceros del Bajío', 600.0, 1.0, 'Anticipo de lámina', '2002', '2024-03-15', 'SI', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia, Ch_Fecha_Firme, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000003', '0002', 'NO', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'DE01', 'Laura Méndez', 400.0, 1.0, 'Viáticos', '2003', '2024-03-15', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia, Ch_Fecha_Firme, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000004', '0004', 'NO', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'DE01', 'Laura Méndez', 300.0, 1.0, 'Préstamo personal', '2004', '2024-03-15', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia, Ch_Fecha_Firme, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000005', '0003', 'NO', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'CL01', 'Constructora Peña Alta', 200.0, 1.0, 'Devolución de mercancía', '2005', '2024-03-15', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia, Ch_Fecha_Firme, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000006', '0003', 'NO', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'CL01', 'Constructora Peña Alta', 100.0, 1.0, 'Devolución de anticipo', '2006', '2024-03-15', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia, Ch_Fecha_Firme, Ch_Cuenta_Destino, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000007', '0000', 'SI', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'Comercializadora Río Claro', 900.0, 1.0, 'Fondeo de nómina', '2007', '2024-03-15', 'PTO-MXN', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Beneficiario, Ch_Importe, Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia, Ch_Fecha_Firme, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000008', '0005', 'NO', '2024-03-15 00:00:00', 'SRR-MXN', 'MTY', 'PV01', 'Aceros del Bajío', 15000.0, 1.0, 'Anticipo de varilla', '2008', '2024-03-15', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Cxp_Folio, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Cxa_Fecha_Aplicacion, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000001', '0001', '2001', 'CXP-MTY-00000001', 'MXN', 1.0, 1000.0, '2024-03-15', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Cxp_Folio, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Cxa_Fecha_Aplicacion, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000001', '0002', '2001', 'CXP-MTY-00000002', 'MXN', 1.0, 500.0, '2024-03-15', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Cxp_Folio, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Cxa_Fecha_Aplicacion, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000002', '0001', '2002', 'CXP-MTY-00000004', 'MXN', 1.0, 600.0, '2024-03-15', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Cxp_Folio, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000003', '0001', '2003', 'GC-MTY-00000001', 'MXN', 1.0, 400.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000004', '0001', '2004', 'MXN', 1.0, 300.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000005', '0001', '2005', 'MXN', 1.0, 200.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000006', '0001', '2006', 'MXN', 1.0, 100.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000007', '0001', '2007', 'MXN', 1.0, 900.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Ch_Cheque, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CH-MTY-00000008', '0001', '2008', 'MXN', 1.0, 15000.0, 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Gasto_x_Comprobar (Gc_Folio, Gc_Fecha, Gc_Tabla, Gc_Documento, Gc_Referencia, Mn_Cve_Moneda, Sc_Cve_Sucursal, Cl_Cve_Cliente, Gc_Importe, Gc_Tipo_Cambio, Gc_Comentario, Bc_Cve_Banco_Cuenta, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('GC-MTY-00000001', '2024-03-15', 'CHEQUE', 'CH-MTY-00000003', '2003', 'MXN', 'MTY', 'DE01', 400.0, 1.0, 'Viáticos', 'SRR-MXN', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('PV', 'PV01', 2024, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo)
    VALUES ('PV', 'PV02', 2024);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('GP', 'MERC', 2024, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('SC', 'MTY', 2024, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('EM', 'EM01', 2024, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('PV', 'PV01', 2025, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo)
    VALUES ('PV', 'PV02', 2025);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('GP', 'MERC', 2025, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('SC', 'MTY', 2025, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('EM', 'EM01', 2025, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('PV', 'PV01', 2026, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo)
    VALUES ('PV', 'PV02', 2026);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('GP', 'MERC', 2026, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('SC', 'MTY', 2026, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('EM', 'EM01', 2026, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('PV', 'PV01', 2027, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0, 10000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo)
    VALUES ('PV', 'PV02', 2027);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('GP', 'MERC', 2027, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0, 25000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('SC', 'MTY', 2027, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0, 50000.0);
INSERT INTO Anticipo_Proveedor_Presupuesto (App_Tipo, App_Valor, App_Periodo, App_01, App_02, App_03, App_04, App_05, App_06, App_07, App_08, App_09, App_10, App_11, App_12)
    VALUES ('EM', 'EM01', 2027, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0, 100000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('DE', 'DE01', 2024, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('SC', 'MTY', 2024, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('EM', 'EM01', 2024, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('DE', 'DE01', 2025, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('SC', 'MTY', 2025, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('EM', 'EM01', 2025, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('DE', 'DE01', 2026, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('SC', 'MTY', 2026, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('EM', 'EM01', 2026, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('DE', 'DE01', 2027, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0, 5000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('SC', 'MTY', 2027, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0, 15000.0);
INSERT INTO Gasto_x_Comprobar_Presupuesto (Gcp_Tipo, Gcp_Valor, Gcp_Periodo, Gcp_01, Gcp_02, Gcp_03, Gcp_04, Gcp_05, Gcp_06, Gcp_07, Gcp_08, Gcp_09, Gcp_10, Gcp_11, Gcp_12)
    VALUES ('EM', 'EM01', 2027, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0, 40000.0);
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05, Pdp_06, Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12)
    VALUES ('DE', 'DE01', 2024, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0);
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05, Pdp_06, Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12)
    VALUES ('SC', 'MTY', 2024, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0);
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05, Pdp_06, Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12)
    VALUES ('DE', 'DE01', 2025, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0);
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05, Pdp_06, Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12)
    VALUES ('SC', 'MTY', 2025, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0);
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05, Pdp_06, Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12)
    VALUES ('DE', 'DE01', 2026, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0);
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05, Pdp_06, Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12)
    VALUES ('SC', 'MTY', 2026, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0);
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05, Pdp_06, Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12)
    VALUES ('DE', 'DE01', 2027, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0, 8000.0);
INSERT INTO Prestamo_Deudor_Presupuesto (Pdp_Tipo, Pdp_Valor, Pdp_Periodo, Pdp_01, Pdp_02, Pdp_03, Pdp_04, Pdp_05, Pdp_06, Pdp_07, Pdp_08, Pdp_09, Pdp_10, Pdp_11, Pdp_12)
    VALUES ('SC', 'MTY', 2027, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0, 20000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('CL', 'CL01', 2024, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('SC', 'MTY', 2024, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('EM', 'EM01', 2024, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('CL', 'CL01', 2025, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('SC', 'MTY', 2025, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('EM', 'EM01', 2025, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('CL', 'CL01', 2026, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('SC', 'MTY', 2026, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('EM', 'EM01', 2026, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('CL', 'CL01', 2027, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0, 3000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('SC', 'MTY', 2027, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0, 9000.0);
INSERT INTO Devolucion_Cliente_Presupuesto (Dcp_Tipo, Dcp_Valor, Dcp_Periodo, Dcp_01, Dcp_02, Dcp_03, Dcp_04, Dcp_05, Dcp_06, Dcp_07, Dcp_08, Dcp_09, Dcp_10, Dcp_11, Dcp_12)
    VALUES ('EM', 'EM01', 2027, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0, 30000.0);
INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Cxc_Fecha, Cxc_Fecha_Vencimiento, Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda, Cxc_Tipo_Cambio, Cxc_Importe, Cxc_Neto, Cxc_Precio_Neto_Importe, Cxc_Precio_Neto_Saldo, Cxc_Referencia, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('CXC-MTY-00000001', 'FACTURA_VENTA', 'FV-5001', '2024-01-08', '2024-02-07', 'MTY', 'CL01', 'MXN', 1.0, 5000.0, 4310.34, 5000.0, 5000.0, 'Factura 5001', 'DEMO', '2024-03-15 00:00:00');
INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Cxc_Fecha, Cxc_Fecha_Vencimiento, Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda, Cxc_Tipo_Cambio, Cxc_Importe, Cxc_Neto, Cxc_Precio_Neto_Importe, Cxc_Precio_Neto_Saldo, Cxc_Referencia)
    VALUES ('CXC-MTY-00000002', 'FACTURA_VENTA', 'FV-5002', '2024-01-18', '2024-02-17', 'MTY', 'CL01', 'MXN', 1.0, 3000.0, 2586.21, 3000.0, 3000.0, 'Factura 5002');
INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Cxc_Fecha, Cxc_Fecha_Vencimiento, Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda, Cxc_Tipo_Cambio, Cxc_Importe, Cxc_Neto, Cxc_Precio_Neto_Importe, Cxc_Precio_Neto_Saldo, Cxc_Referencia)
    VALUES ('CXC-GDL-00000001', 'FACTURA_VENTA', 'FV-6001', '2024-01-25', '2024-01-25', 'GDL', 'CL02', 'USD', 19.5, 200.0, 200.0, 200.0, 200.0, 'Factura 6001');
INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Cxc_Fecha, Cxc_Fecha_Vencimiento, Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda, Cxc_Tipo_Cambio, Cxc_Importe, Cxc_Neto, Cxc_Precio_Neto_Importe, Cxc_Precio_Neto_Saldo, Cxc_Referencia)
    VALUES ('CXC-MTY-00000003', 'ANTICIPO_CXC', 'AN-MTY-00000001', '2024-02-01', '2024-02-01', 'MTY', 'DE01', 'MXN', 1.0, -1000.0, -1000.0, -1000.0, -1000.0, 'Comprobación 31');
INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Cxc_Fecha, Cxc_Fecha_Vencimiento, Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda, Cxc_Tipo_Cambio, Cxc_Importe, Cxc_Neto, Cxc_Precio_Neto_Importe, Cxc_Precio_Neto_Saldo, Cxc_Referencia)
    VALUES ('CXC-MTY-00000004', 'ANTICIPO_CXC', 'AN-MTY-00000002', '2024-02-05', '2024-02-05', 'MTY', 'DE01', 'MXN', 1.0, -250.0, -250.0, -250.0, -250.0, 'Comprobación 32');
INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tipo_Cambio, Pc_Importe_Pago, Mn_Cve_Moneda_Pago, Pc_Tipo_Cambio_Pago, Pc_Tabla, Pc_Documento, Pc_Referencia, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CXC-MTY-00000001', '0001', '2024-03-15', 1500.0, 'MXN', 1.0, 1500.0, 'MXN', 1.0, 'RECIBO_PAGO', 'RP-MTY-00000001', 'Factura 5001', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tipo_Cambio, Pc_Importe_Pago, Mn_Cve_Moneda_Pago, Pc_Tipo_Cambio_Pago, Pc_Tabla, Pc_Documento, Pc_Referencia, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CXC-MTY-00000001', '0002', '2024-03-15', 3500.0, 'MXN', 1.0, 3500.0, 'MXN', 1.0, 'RECIBO_PAGO', 'RP-MTY-00000001', 'Factura 5001', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Cxp_Fecha, Cxp_Fecha_Vencimiento, Sc_Cve_Sucursal, Pv_Cve_Proveedor, Mn_Cve_Moneda, Cxp_Tipo_Cambio, Cxp_Importe, Cxp_Neto, Cxp_Precio_Neto_Importe, Cxp_Precio_Neto_Saldo, Cxp_Referencia, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('CXP-MTY-00000001', 'FACTURA_COMPRA', 'FC-1001', '2024-01-10', '2024-02-09', 'MTY', 'PV01', 'MXN', 1.0, 11600.0, 10000.0, 11600.0, 11600.0, 'Factura A-1001', 'DEMO', '2024-03-15 00:00:00');
INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Cxp_Fecha, Cxp_Fecha_Vencimiento, Sc_Cve_Sucursal, Pv_Cve_Proveedor, Mn_Cve_Moneda, Cxp_Tipo_Cambio, Cxp_Importe, Cxp_Neto, Cxp_Precio_Neto_Importe, Cxp_Precio_Neto_Saldo, Cxp_Referencia, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('CXP-MTY-00000002', 'FACTURA_COMPRA', 'FC-1002', '2024-01-15', '2024-02-14', 'MTY', 'PV01', 'MXN', 1.0, 5800.0, 5000.0, 5800.0, 5800.0, 'Factura A-1002', 'DEMO', '2024-03-15 00:00:00');
INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Cxp_Fecha, Cxp_Fecha_Vencimiento, Sc_Cve_Sucursal, Pv_Cve_Proveedor, Mn_Cve_Moneda, Cxp_Tipo_Cambio, Cxp_Importe, Cxp_Neto, Cxp_Precio_Neto_Importe, Cxp_Precio_Neto_Saldo, Cxp_Referencia)
    VALUES ('CXP-MTY-00000003', 'FACTURA_COMPRA', 'FC-2001', '2024-01-20', '2024-02-04', 'MTY', 'PV02', 'USD', 19.5, 500.0, 500.0, 500.0, 500.0, 'Invoice 2001');
INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Cxp_Fecha, Cxp_Fecha_Vencimiento, Sc_Cve_Sucursal, Pv_Cve_Proveedor, Mn_Cve_Moneda, Cxp_Tipo_Cambio, Cxp_Importe, Cxp_Neto, Cxp_Precio_Neto_Importe, Cxp_Precio_Neto_Saldo, Cxp_Referencia)
    VALUES ('CXP-GDL-00000001', 'FACTURA_COMPRA', 'FC-3001', '2024-01-22', '2024-01-22', 'GDL', 'PV03', 'MXN', 1.0, 2320.0, 2000.0, 2320.0, 2320.0, 'Factura L-3001');
INSERT INTO Cuenta_x_Pagar (Cxp_Folio, Cxp_Tabla, Cxp_Documento, Cxp_Fecha, Cxp_Fecha_Vencimiento, Sc_Cve_Sucursal, Pv_Cve_Proveedor, Mn_Cve_Moneda, Cxp_Tipo_Cambio, Cxp_Importe, Cxp_Neto, Cxp_Precio_Neto_Importe, Cxp_Precio_Neto_Saldo, Cxp_Referencia, Cxp_Comentario, Bc_Cve_Banco_Cuenta, Ch_Folio, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('CXP-MTY-00000004', 'ANTICIPO_CXP-CA:CXP-MTY-00000004', 'CXP-MTY-00000004', '2024-03-15', '2024-03-15', 'MTY', 'PV01', 'MXN', 1.0, -600.0, -600.0, -600.0, -600.0, '2002', 'Anticipo de lámina', 'SRR-MXN', 'CH-MTY-00000002', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00');
INSERT INTO Pago_Cxp (Cxp_Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tipo_Cambio, Pc_Importe_Pago, Mn_Cve_Moneda_Pago, Pc_Tipo_Cambio_Pago, Pc_Tabla, Pc_Documento, Pc_Referencia, Pc_Concepto, Fp_Cve_Forma_Pago, Ch_Cheque, Bn_Cve_Banco, Bn_Descripcion, Bc_Cuenta, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CXP-MTY-00000001', '0001', '2024-03-15', 1000.0, 'MXN', 1.0, 1000.0, 'MXN', 1.0, 'CHEQUE', 'CH-MTY-00000001', '2001', 'Pago con cheque o transferencia', '02', '2001', 'SIERRA', 'Banco de la Sierra', '0901000001', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Pago_Cxp (Cxp_Folio, Pc_ID, Pc_Fecha, Pc_Importe, Mn_Cve_Moneda, Pc_Tipo_Cambio, Pc_Importe_Pago, Mn_Cve_Moneda_Pago, Pc_Tipo_Cambio_Pago, Pc_Tabla, Pc_Documento, Pc_Referencia, Pc_Concepto, Fp_Cve_Forma_Pago, Ch_Cheque, Bn_Cve_Banco, Bn_Descripcion, Bc_Cuenta, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif, Oper_Baja, Fecha_Baja, Es_Cve_Estado)
    VALUES ('CXP-MTY-00000002', '0001', '2024-03-15', 500.0, 'MXN', 1.0, 500.0, 'MXN', 1.0, 'CHEQUE', 'CH-MTY-00000001', '2001', 'Pago con cheque o transferencia', '02', '2001', 'SIERRA', 'Banco de la Sierra', '0901000001', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'DEMO', '2024-03-15 00:00:00', 'CA');
INSERT INTO Anticipo_Cxc (An_Folio, An_Tabla, An_Documento, An_Fecha, Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda, An_Tipo_Cambio, An_Importe, An_Referencia)
    VALUES ('AN-MTY-00000001', 'GASTO_REGISTRO', 'GR-31', '2024-02-01', 'MTY', 'DE01', 'MXN', 1.0, 1000.0, 'Comprobación 31');
INSERT INTO Anticipo_Cxc (An_Folio, An_Tabla, An_Documento, An_Fecha, Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda, An_Tipo_Cambio, An_Importe, An_Referencia)
    VALUES ('AN-MTY-00000002', 'GASTO_REGISTRO', 'GR-32', '2024-02-05', 'MTY', 'DE01', 'MXN', 1.0, 250.0, 'Comprobación 32');
INSERT INTO Poliza (Pz_Folio, Em_Cve_Empresa, Pz_Fecha, Pz_Tabla, Pz_Documento, Pz_Concepto, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('PZ-00000001', 'EM01', '2024-03-15', 'BANCO_MOVIMIENTO', 'BM-00000011', 'Movimiento de banco BM-00000011', 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00');
INSERT INTO Poliza (Pz_Folio, Em_Cve_Empresa, Pz_Fecha, Pz_Tabla, Pz_Documento, Pz_Concepto, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('PZ-00000002', 'EM01', '2024-03-15', 'BANCO_MOVIMIENTO', 'BM-00000012', 'Movimiento de banco BM-00000012', 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00');
INSERT INTO Poliza (Pz_Folio, Em_Cve_Empresa, Pz_Fecha, Pz_Tabla, Pz_Documento, Pz_Concepto, Oper_Alta, Fecha_Alta, Oper_Ult_Modif, Fecha_Ult_Modif)
    VALUES ('PZ-00000003', 'EM01', '2024-03-15', 'DEPOSITO_PAGO', 'DP-MTY-00000002', 'Depósito DP-MTY-00000002', 'CAJA1', '2024-03-15 00:00:00', 'CAJA1', '2024-03-15 00:00:00');
INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Cargo)
    VALUES ('PZ-00000001', '0001', '1102-01', 'DEPOSITO EFECTIVO', 1500.0);
INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Abono)
    VALUES ('PZ-00000001', '0002', '1108-01', 'DEPOSITO EFECTIVO', 1500.0);
INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Cargo)
    VALUES ('PZ-00000002', '0001', '1102-01', 'DEPOSITO CON TARJETA DE CREDITO', 250.5);
INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Abono)
    VALUES ('PZ-00000002', '0002', '1108-01', 'DEPOSITO CON TARJETA DE CREDITO', 250.5);
INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Cargo)
    VALUES ('PZ-00000003', '0001', '1108-01', 'Efectivo', 1500.0);
INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Abono)
    VALUES ('PZ-00000003', '0002', '1101-01', 'Efectivo', 1500.0);
INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Cargo)
    VALUES ('PZ-00000003', '0003', '1108-01', 'Tarjeta de crédito', 250.5);
INSERT INTO Poliza_Detalle (Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Abono)
    VALUES ('PZ-00000003', '0004', '1101-04', 'Tarjeta de crédito', 250.5);
INSERT INTO Configuracion_Contable (Ct_Codigo, Ct_Cuenta_Cargo, Ct_Cuenta_Abono)
    VALUES ('RECIBO_PAGO', '1101-01', '1105-01');
INSERT INTO Configuracion_Contable (Ct_Codigo, Ct_Automatica, Ct_Cuenta_Cargo, Ct_Cuenta_Abono)
    VALUES ('BANCO_MOVIMIENTO', 'SI', '1102-01', '1108-01');
INSERT INTO Configuracion_Contable (Ct_Codigo, Ct_Automatica, Ct_Cuenta_Cargo, Ct_Cuenta_Abono)
    VALUES ('DEPOSITO_PAGO', 'SI', '1108-01', '1101-01');
INSERT INTO Configuracion_Contable (Ct_Codigo, Ct_Automatica, Ct_Cuenta_Cargo, Ct_Cuenta_Abono)
    VALUES ('CHEQUE', 'SI', '6199-01', '1108-02');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('FIN_MONEDA_LOCAL', 'MXN');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('GEN_FORZAR_TIEMPO_REAL', '0');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('GEN_VALIDAR_PERIODO_OPERATIVO', '1');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_REDONDEA_IMPORTE_CHEQUE', '0');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_AUTORIZAR_SOLICITUD_CHEQUE', '0');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_FORMA_PAGO_CHEQUE', '02');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_FORMA_PAGO_TRANSFERENCIA', '03');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_MOVIMIENTO_DEPOSITO', 'DEP');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_MOVIMIENTO_CHEQUE', 'CHQ');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_MOVIMIENTO_TRANSFERENCIA', 'TRF');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR', '1');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR', '1');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR', '2');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE', '0');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('CXC_FORMA_PAGO_ANTICIPO_CLIENTE', '07');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('FTO_BANCO_CUENTA', '>AAAAAAAAAA');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('FTO_BANCO', '>AAAAAAAAAA');
INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor)
    VALUES ('FTO_FORMA_PAGO', '00');
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('CUENTA_X_PAGAR', 'MTY', 4);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('CUENTA_X_PAGAR', 'GDL', 1);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('CUENTA_X_COBRAR', 'MTY', 4);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('CUENTA_X_COBRAR', 'GDL', 1);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('ANTICIPO_CXC', 'MTY', 2);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('RECIBO_PAGO', 'MTY', 2);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('DEPOSITO_PAGO', 'MTY', 2);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('BANCO_MOVIMIENTO', '', 12);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('CHEQUE', 'MTY', 8);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('GASTO_X_COMPROBAR', 'MTY', 1);
INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo)
    VALUES ('POLIZA', '', 3);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 1, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 2, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 3, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 4, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 5, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 6, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 7, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 8, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 9, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 10, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 11, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado)
    VALUES ('FINANZAS', 2023, 12, 'CE');
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 1);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 2);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 3);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 4);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 5);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 6);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 7);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 8);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 9);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 10);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 11);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2024, 12);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 1);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 2);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 3);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 4);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 5);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 6);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 7);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 8);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 9);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 10);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 11);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2025, 12);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 1);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 2);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 3);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 4);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 5);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 6);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 7);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 8);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 9);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 10);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 11);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2026, 12);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 1);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 2);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 3);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 4);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 5);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 6);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 7);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 8);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 9);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 10);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 11);
INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes)
    VALUES ('FINANZAS', 2027, 12);
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('RP-MTY-00000001', 'RECIBO_PAGO', 1, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000001', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000002', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('DP-MTY-00000001', 'DEPOSITO_PAGO', 1, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000003', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000004', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000005', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000006', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000007', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000008', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000009', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000010', 'BANCO_MOVIMIENTO', 2, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('CH-MTY-00000001', 'CHEQUE', 1, 'DEMO', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('RP-MTY-00000002', 'RECIBO_PAGO', 1, 'CAJA1', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000011', 'BANCO_MOVIMIENTO', 1, 'CAJA1', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('BM-00000012', 'BANCO_MOVIMIENTO', 1, 'CAJA1', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif)
    VALUES ('DP-MTY-00000002', 'DEPOSITO_PAGO', 1, 'CAJA1', '2024-03-15 00:00:00', '2024-03-15 00:00:00');
INSERT INTO Servidor_Suite (Sv_Llave, Sv_Servidor_Id)
    VALUES (1, 'CENTRAL');
INSERT INTO Esquema_Suite (Eq_Nombre, Eq_Version)
    VALUES ('CUVEXA', 1);
