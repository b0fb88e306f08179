// The rows of every table, their columns in the order of the schema, with the defaults that the schema gives.
//
// The first `keys` columns of a table are its key.
#pragma once

#include <array>
#include <cstdint>

#include "model/text.h"

namespace cuvexa::model::rows {

using Whole = std::int64_t;

/// The amounts of a budget, January first.
using Months = std::array<double, 12>;

struct Empresa {
    static constexpr int keys = 1;
    Text Em_Cve_Empresa, Em_Descripcion, Em_RFC, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Sucursal {
    static constexpr int keys = 1;
    Text Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, Sc_Servidor_Id, Sc_Centro_Costo, Sc_Cuenta_Contable;
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Moneda {
    static constexpr int keys = 1;
    Text Mn_Cve_Moneda, Mn_Descripcion, Mn_Simbolo, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Forma_Pago {
    static constexpr int keys = 1;
    Text Fp_Cve_Forma_Pago, Fp_Descripcion, Fp_Tipo, Fp_Depositable = "SI", Fp_Generar_Cuenta_x_Cobrar = "NO";
    Text Fp_Cliente, Fp_Requiere_Banco = "NO", Fp_Requiere_Referencia = "NO", Fp_Requiere_Cuenta = "NO";
    Text Fp_Metodo_Pago_SAT, Fp_Cuenta_Contable, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Tipo_Recibo_Pago {
    static constexpr int keys = 1;
    Text Trp_Cve_Tipo_Recibo_Pago, Trp_Descripcion, Trp_Solicitar, Trp_Solicitar_Fecha = "NO";
    Text Trp_Solicitar_Vendedor = "NO", Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Tipo_Cheque {
    static constexpr int keys = 1;
    Text Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar, Tc_Proveedor_Pago = "NO", Tc_Cuenta_Contable, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Banco {
    static constexpr int keys = 1;
    Text Bn_Cve_Banco, Bn_Descripcion, Bn_Codigo;
    double Bn_Saldo = 0;
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Banco_Cuenta {
    static constexpr int keys = 1;
    Text Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bc_Cuenta, Bc_Cuenta_Contable, Bn_Cve_Banco, Mn_Cve_Moneda;
    Text Em_Cve_Empresa, Bc_MultiEmpresa = "NO";
    double Bc_Saldo = 0;
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Banco_Tipo_Movimiento {
    static constexpr int keys = 1;
    Text Bt_Cve_Banco_Tipo_Movimiento, Bt_Descripcion, Bt_Tipo, Bt_Cuenta_Contable, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Grupo_Proveedor {
    static constexpr int keys = 1;
    Text Gp_Cve_Grupo_Proveedor, Gp_Descripcion, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Proveedor {
    static constexpr int keys = 1;
    Text Pv_Cve_Proveedor, Pv_Descripcion, Gp_Cve_Grupo_Proveedor;
    Whole Pv_Dias_Credito = 0;
    Text Pv_Cuenta_Contable, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Cliente {
    static constexpr int keys = 1;
    Text Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente;
    Whole Cl_Dias_Credito = 0;
    Text Cl_Cuenta_Contable, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Vendedor {
    static constexpr int keys = 1;
    Text Vn_Cve_Vendedor, Vn_Descripcion, Vn_Centro_Costo, Vn_Cuenta_Contable, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Recibo_Pago {
    static constexpr int keys = 2;
    Text Rp_Folio, Rp_Id;
    Nullable Rp_Fecha;
    Text Sc_Cve_Sucursal, Trp_Cve_Tipo_Recibo_Pago, Rp_Solicitar_Valor, Rp_Tabla, Rp_Documento, Rp_Referencia;
    Text Rp_Comentario, Mn_Cve_Moneda;
    double Rp_Tipo_Cambio = 0;
    Nullable Rp_Fecha_Deposito;
    Text Rp_Folio_Deposito, Rp_Deposito_ID, Fp_Cve_Forma_Pago, Rp_Banco, Rp_Cheque, Rp_Cuenta_Bancaria;
    double Rp_Importe = 0;
    Text Rp_Cve_Banco, Rp_Vendedor, Rp_Comisionista, Rp_Promotor, Rp_Chofer, Rp_Cobratario, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja, Es_Cve_Estado = "AC";
};

struct Deposito_Pago {
    static constexpr int keys = 2;
    Text Dp_Folio, Dp_Id;
    Nullable Dp_Fecha;
    Text Sc_Cve_Sucursal, Mn_Cve_Moneda;
    double Dp_Tipo_Cambio = 0;
    Text Bc_Cve_Banco_Cuenta;
    double Dp_Importe = 0;
    Text Dp_Referencia, Dp_Comentario, Rp_Banco, Rp_Cheque, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Banco_Movimiento {
    static constexpr int keys = 1;
    Text Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, Bm_Documento_ID, Bm_Referencia, Bc_Cuenta_Contable;
    Text Bm_Comentario;
    Nullable Bm_Fecha, Bm_Fecha_Firme;
    Text Bt_Cve_Banco_Tipo_Movimiento;
    double Bm_Importe = 0;
    Text Mn_Cve_Moneda;
    double Bm_Tipo_Cambio = 0;
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "TR";
};

struct Cheque {
    static constexpr int keys = 1;
    Text Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia;
    Nullable Ch_Fecha;
    Text Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Beneficiario;
    double Ch_Importe = 0, Ch_Tipo_Cambio = 0;
    Text Ch_Concepto, Ch_Tabla, Ch_Documento, Ch_Referencia;
    Nullable Ch_Fecha_Firme;
    Text Ch_Cuenta_Destino, Ch_Banco_Destino, Ch_Aplicar = "NO", Ch_Firme = "NO", Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Cheque_x_Aplicar {
    static constexpr int keys = 2;
    Text Ch_Folio, Cxa_ID, Ch_Cheque, Cxp_Folio, Mn_Cve_Moneda;
    double Cxa_Tipo_Cambio = 0, Cxa_Importe = 0;
    Nullable Cxa_Fecha_Aplicacion;
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Solicitud_Cheque {
    static constexpr int keys = 1;
    Text Sch_Folio;
    Nullable Sch_Fecha;
    Text Tc_Cve_Tipo_Cheque, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Sch_Concepto, Sch_Beneficiario, Sch_Tabla;
    Text Sch_Documento, Sch_Referencia;
    double Sch_Importe = 0, Sch_Tipo_Cambio = 0;
    Text Sch_Transferencia, Sch_Aplicar, Sch_Firme, Sch_Solicitar_Valor, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Solicitud_Cheque_Detalle {
    static constexpr int keys = 2;
    Text Sch_Folio, Scd_Id, Scd_Tabla, Scd_Documento;
    double Scd_Importe = 0;
    Text Mn_Cve_Moneda;
    double Scd_Tipo_Cambio = 0;
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Gasto_x_Comprobar {
    static constexpr int keys = 1;
    Text Gc_Folio;
    Nullable Gc_Fecha;
    Text Gc_Tabla, Gc_Documento, Gc_Referencia, Mn_Cve_Moneda, Sc_Cve_Sucursal, Cl_Cve_Cliente;
    double Gc_Importe = 0, Gc_Tipo_Cambio = 0;
    Text Gc_Comentario, Bc_Cve_Banco_Cuenta, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Gasto_x_Comprobar_Documento {
    static constexpr int keys = 3;
    Text Gc_Documento, Gc_Tabla, Gcd_ID, Cxc_Folio;
    double Cxc_Importe = 0, Cxc_Tipo_Cambio = 0;
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Anticipo_Proveedor_Presupuesto {
    static constexpr int keys = 3;
    Text App_Tipo, App_Valor;
    Whole App_Periodo = 0;
    Months amounts = {};
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Gasto_x_Comprobar_Presupuesto {
    static constexpr int keys = 3;
    Text Gcp_Tipo, Gcp_Valor;
    Whole Gcp_Periodo = 0;
    Months amounts = {};
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Prestamo_Deudor_Presupuesto {
    static constexpr int keys = 3;
    Text Pdp_Tipo, Pdp_Valor;
    Whole Pdp_Periodo = 0;
    Months amounts = {};
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Devolucion_Cliente_Presupuesto {
    static constexpr int keys = 3;
    Text Dcp_Tipo, Dcp_Valor;
    Whole Dcp_Periodo = 0;
    Months amounts = {};
    Text Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Cuenta_x_Cobrar {
    static constexpr int keys = 1;
    Text Cxc_Folio, Cxc_Tabla, Cxc_Documento;
    Nullable Cxc_Fecha, Cxc_Fecha_Vencimiento;
    Text Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda;
    double Cxc_Tipo_Cambio = 0, Cxc_Importe = 0, Cxc_Neto = 0, Cxc_Precio_Neto_Importe = 0, Cxc_Precio_Neto_Pago = 0;
    double Cxc_Precio_Neto_Saldo = 0;
    Text Cxc_Referencia, Cxc_Comentario, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Pago_Cxc {
    static constexpr int keys = 2;
    Text Cxc_Folio, Pc_ID;
    Nullable Pc_Fecha;
    double Pc_Importe = 0;
    Text Mn_Cve_Moneda;
    double Pc_Tipo_Cambio = 0, Pc_Importe_Pago = 0;
    Text Mn_Cve_Moneda_Pago;
    double Pc_Tipo_Cambio_Pago = 0;
    Text Pc_Tabla, Pc_Documento, Pc_Referencia, Pc_Concepto, Fp_Cve_Forma_Pago, Pc_Afecta_Saldo = "SI", Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Cuenta_x_Pagar {
    static constexpr int keys = 1;
    Text Cxp_Folio, Cxp_Tabla, Cxp_Documento;
    Nullable Cxp_Fecha, Cxp_Fecha_Vencimiento;
    Text Sc_Cve_Sucursal, Pv_Cve_Proveedor, Mn_Cve_Moneda;
    double Cxp_Tipo_Cambio = 0, Cxp_Importe = 0, Cxp_Neto = 0, Cxp_Precio_Neto_Importe = 0, Cxp_Precio_Neto_Pago = 0;
    double Cxp_Precio_Neto_Saldo = 0;
    Text Cxp_Referencia, Cxp_Comentario, Bc_Cve_Banco_Cuenta, Ch_Folio, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Pago_Cxp {
    static constexpr int keys = 2;
    Text Cxp_Folio, Pc_ID;
    Nullable Pc_Fecha;
    double Pc_Importe = 0;
    Text Mn_Cve_Moneda;
    double Pc_Tipo_Cambio = 0, Pc_Importe_Pago = 0;
    Text Mn_Cve_Moneda_Pago;
    double Pc_Tipo_Cambio_Pago = 0;
    Text Pc_Tabla, Pc_Documento, Pc_Referencia, Pc_Concepto, Fp_Cve_Forma_Pago, Pc_Afecta_Saldo = "SI", Ch_Cheque;
    Text Bn_Cve_Banco, Bn_Descripcion, Bc_Cuenta, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Anticipo_Cxc {
    static constexpr int keys = 1;
    Text An_Folio, An_Tabla, An_Documento;
    Nullable An_Fecha;
    Text Sc_Cve_Sucursal, Cl_Cve_Cliente, Mn_Cve_Moneda;
    double An_Tipo_Cambio = 0, An_Importe = 0;
    Text An_Referencia, An_Comentario, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Documento_Cuenta_Bancaria {
    static constexpr int keys = 3;
    Text Dcb_Tabla, Dcb_Documento, Dcb_ID, Dcb_Banco, Dcb_Cuenta, Dcb_Sucursal, Dcb_CLABE, Dcb_Cve_Forma_Pago;
    Text Dcb_Forma_Pago, Dcb_Default = "NO", Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Poliza {
    static constexpr int keys = 1;
    Text Pz_Folio, Em_Cve_Empresa;
    Nullable Pz_Fecha;
    Text Pz_Tabla, Pz_Documento, Pz_Concepto, Oper_Alta;
    Nullable Fecha_Alta;
    Text Oper_Ult_Modif;
    Nullable Fecha_Ult_Modif;
    Text Oper_Baja;
    Nullable Fecha_Baja;
    Text Es_Cve_Estado = "AC";
};

struct Poliza_Detalle {
    static constexpr int keys = 2;
    Text Pz_Folio, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto;
    double Pzd_Cargo = 0, Pzd_Abono = 0;
};

struct Configuracion_Contable {
    static constexpr int keys = 1;
    Text Ct_Codigo, Ct_Automatica = "NO", Ct_Cuenta_Cargo, Ct_Cuenta_Abono;
};

struct Documento_Contabilizado {
    static constexpr int keys = 2;
    Text Dt_Documento, Dt_Tabla, Oper_Alta;
    Nullable Fecha_Alta;
};

struct Parametro_Sistema {
    static constexpr int keys = 1;
    Text Ps_Nombre, Ps_Valor;
};

struct Folio_Serie {
    static constexpr int keys = 2;
    Text Fs_Codigo, Fs_Sucursal;
    Whole Fs_Ultimo = 0;
    Text Fs_Abierta = "SI";
};

struct Periodo_Operativo {
    static constexpr int keys = 3;
    Text Po_Modulo;
    Whole Po_Ejercicio = 0, Po_Mes = 0;
    Text Po_Estado = "AB";
};

struct Documento_Registrado {
    static constexpr int keys = 2;
    Text Dr_Documento, Dr_Codigo;
    Whole Dr_Veces = 0;
    Text Oper_Alta;
    Nullable Fecha_Alta, Fecha_Ult_Modif;
};

struct Servidor_Suite {
    static constexpr int keys = 1;
    Whole Sv_Llave = 0;
    Text Sv_Servidor_Id, Sv_Replica = "NO";
};

struct Esquema_Suite {
    static constexpr int keys = 1;
    Text Eq_Nombre;
    Whole Eq_Version = 0;
};

}  // namespace cuvexa::model::rows
