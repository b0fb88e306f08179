#include "automation/record_table.h"

namespace cuvexa::automation {
namespace {

template <auto member>
struct Field_of;
template <class R, class V, V R::*member>
struct Field_of<member> {
    using Type = V;
    static Place place(void* record) {
        V& value = static_cast<R*>(record)->*member;
        if constexpr (is_record<V>) {
            return Record_place{&record_type<V>(), &value};
        } else {
            return &value;
        }
    }
};

template <auto member>
constexpr Field field(std::string_view name) {
    return {name, value_type<typename Field_of<member>::Type>(), &Field_of<member>::place};
}

template <class R>
constexpr Record_type record(std::string_view name, std::span<const Field> fields) {
    return {name, fields, [] { return Record(std::in_place_type<R>); }};
}

constexpr Field ts_encabezado_fields[] = {
    field<&tTsEncabezado::Ch_Folio>("Ch_Folio"),
    field<&tTsEncabezado::Ch_Fecha>("Ch_Fecha"),
    field<&tTsEncabezado::Tc_Cve_Tipo_Cheque>("Tc_Cve_Tipo_Cheque"),
    field<&tTsEncabezado::Ch_Transferencia>("Ch_Transferencia"),
    field<&tTsEncabezado::Ch_Tabla>("Ch_Tabla"),
    field<&tTsEncabezado::Ch_Documento>("Ch_Documento"),
    field<&tTsEncabezado::Ch_Referencia>("Ch_Referencia"),
    field<&tTsEncabezado::Ch_Concepto>("Ch_Concepto"),
    field<&tTsEncabezado::Ch_Beneficiario>("Ch_Beneficiario"),
    field<&tTsEncabezado::Bc_Cve_Banco_Cuenta>("Bc_Cve_Banco_Cuenta"),
    field<&tTsEncabezado::Bc_Cve_Banco_Cuenta2>("Bc_Cve_Banco_Cuenta2"),
    field<&tTsEncabezado::Mn_Cve_Moneda>("Mn_Cve_Moneda"),
    field<&tTsEncabezado::Ch_Tipo_Cambio>("Ch_Tipo_Cambio"),
    field<&tTsEncabezado::Mn_Cve_Moneda_2>("Mn_Cve_Moneda_2"),
    field<&tTsEncabezado::Ch_Tipo_Cambio_2>("Ch_Tipo_Cambio_2"),
    field<&tTsEncabezado::Ch_Solicitar_Valor>("Ch_Solicitar_Valor"),
    field<&tTsEncabezado::Sucursal>("Sucursal"),
};

constexpr Field ts_detalle_fields[] = {
    field<&tTsDetalle::Ch_ID>("Ch_ID"),
    field<&tTsDetalle::Ch_Concepto>("Ch_Concepto"),
    field<&tTsDetalle::Cxp_Folio>("Cxp_Folio"),
    field<&tTsDetalle::Mn_Cve_Moneda>("Mn_Cve_Moneda"),
    field<&tTsDetalle::Ch_Tipo_Cambio>("Ch_Tipo_Cambio"),
    field<&tTsDetalle::Ch_Importe>("Ch_Importe"),
};

constexpr Field rp_encabezado_fields[] = {
    field<&tRpEncabezado::Rp_Folio>("Rp_Folio"),
    field<&tRpEncabezado::Rp_Fecha>("Rp_Fecha"),
    field<&tRpEncabezado::TipoReciboPago>("TipoReciboPago"),
    field<&tRpEncabezado::Sucursal>("Sucursal"),
    field<&tRpEncabezado::Rp_Solicitar_Valor>("Rp_Solicitar_Valor"),
    field<&tRpEncabezado::Rp_Tabla>("Rp_Tabla"),
    field<&tRpEncabezado::Rp_Documento>("Rp_Documento"),
    field<&tRpEncabezado::Rp_Referencia>("Rp_Referencia"),
    field<&tRpEncabezado::Rp_Comentario>("Rp_Comentario"),
    field<&tRpEncabezado::Mn_Cve_Moneda>("Mn_Cve_Moneda"),
    field<&tRpEncabezado::Rp_Tipo_Cambio>("Rp_Tipo_Cambio"),
    field<&tRpEncabezado::Rp_Fecha_Deposito>("Rp_Fecha_Deposito"),
    field<&tRpEncabezado::Rp_Folio_Deposito>("Rp_Folio_Deposito"),
    field<&tRpEncabezado::Rp_Deposito_ID>("Rp_Deposito_ID"),
};

constexpr Field trp_tipo_recibo_pago_fields[] = {
    field<&tTrpTipoReciboPago::Trp_Cve_Tipo_Recibo_Pago>("Trp_Cve_Tipo_Recibo_Pago"),
    field<&tTrpTipoReciboPago::Trp_Descripcion>("Trp_Descripcion"),
    field<&tTrpTipoReciboPago::Trp_Solicitar_Fecha>("Trp_Solicitar_Fecha"),
    field<&tTrpTipoReciboPago::Trp_Solicitar_Vendedor>("Trp_Solicitar_Vendedor"),
};

constexpr Field rp_detalle_fields[] = {
    field<&tRpDetalle::Rp_ID>("Rp_ID"),
    field<&tRpDetalle::Fp_Cve_Forma_Pago>("Fp_Cve_Forma_Pago"),
    field<&tRpDetalle::Rp_Banco>("Rp_Banco"),
    field<&tRpDetalle::Rp_Cheque>("Rp_Cheque"),
    field<&tRpDetalle::Rp_Cuenta_Bancaria>("Rp_Cuenta_Bancaria"),
    field<&tRpDetalle::Rp_Importe>("Rp_Importe"),
};

constexpr Field forma_pago_fields[] = {
    field<&tFormaPago::Fp_Cve_Forma_Pago>("Fp_Cve_Forma_Pago"),
    field<&tFormaPago::Fp_Descripcion>("Fp_Descripcion"),
    field<&tFormaPago::Fp_Cuenta_Contable>("Fp_Cuenta_Contable"),
};

constexpr Field sch_encabezado_fields[] = {
    field<&tSchEncabezado::Sch_Folio>("Sch_Folio"),
    field<&tSchEncabezado::Sch_Fecha>("Sch_Fecha"),
    field<&tSchEncabezado::Tc_Cve_Tipo_Cheque>("Tc_Cve_Tipo_Cheque"),
    field<&tSchEncabezado::Bc_Cve_Banco_Cuenta>("Bc_Cve_Banco_Cuenta"),
    field<&tSchEncabezado::Sucursal>("Sucursal"),
    field<&tSchEncabezado::Sch_Concepto>("Sch_Concepto"),
    field<&tSchEncabezado::Sch_Beneficiario>("Sch_Beneficiario"),
    field<&tSchEncabezado::Sch_Tabla>("Sch_Tabla"),
    field<&tSchEncabezado::Sch_Documento>("Sch_Documento"),
    field<&tSchEncabezado::Sch_Referencia>("Sch_Referencia"),
    field<&tSchEncabezado::Sch_Importe>("Sch_Importe"),
    field<&tSchEncabezado::Mn_Cve_Moneda>("Mn_Cve_Moneda"),
    field<&tSchEncabezado::Sch_Tipo_Cambio>("Sch_Tipo_Cambio"),
    field<&tSchEncabezado::Sch_Transferencia>("Sch_Transferencia"),
    field<&tSchEncabezado::Sch_Aplicar>("Sch_Aplicar"),
    field<&tSchEncabezado::Sch_Firme>("Sch_Firme"),
    field<&tSchEncabezado::Sch_Solicitar_Valor>("Sch_Solicitar_Valor"),
};

constexpr Field sch_detalle_fields[] = {
    field<&tSchDetalle::Sch_Folio>("Sch_Folio"),
    field<&tSchDetalle::Scd_Id>("Scd_Id"),
    field<&tSchDetalle::Scd_Tabla>("Scd_Tabla"),
    field<&tSchDetalle::Scd_Documento>("Scd_Documento"),
    field<&tSchDetalle::Scd_Importe>("Scd_Importe"),
    field<&tSchDetalle::Mn_Cve_Moneda>("Mn_Cve_Moneda"),
    field<&tSchDetalle::Scd_Tipo_Cambio>("Scd_Tipo_Cambio"),
};

constexpr Field bn_movimiento_fields[] = {
    field<&tBnMovimiento::Bm_Folio>("Bm_Folio"),
    field<&tBnMovimiento::Bt_Cve_Banco_Tipo_Movimiento>("Bt_Cve_Banco_Tipo_Movimiento"),
    field<&tBnMovimiento::Bm_Fecha>("Bm_Fecha"),
    field<&tBnMovimiento::Bm_Fecha_Firme>("Bm_Fecha_Firme"),
    field<&tBnMovimiento::Bm_Tabla>("Bm_Tabla"),
    field<&tBnMovimiento::Bm_Documento>("Bm_Documento"),
    field<&tBnMovimiento::Bm_Referencia>("Bm_Referencia"),
    field<&tBnMovimiento::Bm_Comentario>("Bm_Comentario"),
    field<&tBnMovimiento::Cuenta>("Cuenta"),
    field<&tBnMovimiento::Bm_Importe>("Bm_Importe"),
    field<&tBnMovimiento::Bm_Tipo_Cambio>("Bm_Tipo_Cambio"),
    field<&tBnMovimiento::EnFirme>("EnFirme"),
    field<&tBnMovimiento::Bm_Documento_ID>("Bm_Documento_ID"),
};

constexpr Field cuenta_fields[] = {
    field<&tCuenta::Bc_Cve_Banco_Cuenta>("Bc_Cve_Banco_Cuenta"),
    field<&tCuenta::Bc_Cuenta_Contable>("Bc_Cuenta_Contable"),
    field<&tCuenta::Bn_Cve_Banco>("Bn_Cve_Banco"),
    field<&tCuenta::Mn_Cve_Moneda>("Mn_Cve_Moneda"),
};

constexpr Field ts_sucursal_fields[] = {
    field<&tTsSucursal::Sc_Cve_Sucursal>("Sc_Cve_Sucursal"),
    field<&tTsSucursal::Sc_Centro_Costo>("Sc_Centro_Costo"),
    field<&tTsSucursal::Sc_Cuenta_Contable>("Sc_Cuenta_Contable"),
    field<&tTsSucursal::UserDef>("UserDef"),
};

constexpr Field ts_proveedor_fields[] = {
    field<&tTsProveedor::Pv_Cve_Proveedor>("Pv_Cve_Proveedor"),
    field<&tTsProveedor::Pv_Cuenta_Contable>("Pv_Cuenta_Contable"),
    field<&tTsProveedor::UserDef>("UserDef"),
};

constexpr Field vn_vendedor_fields[] = {
    field<&tVnVendedor::Vn_Cve_Vendedor>("Vn_Cve_Vendedor"),
    field<&tVnVendedor::Vn_Centro_Costo>("Vn_Centro_Costo"),
    field<&tVnVendedor::Vn_Cuenta_Contable>("Vn_Cuenta_Contable"),
};

constexpr Field sucursal_general_fields[] = {
    field<&tSucursalGeneral::Sc_Cve_Sucursal>("Sc_Cve_Sucursal"),
    field<&tSucursalGeneral::Sc_Descripcion>("Sc_Descripcion"),
    field<&tSucursalGeneral::Em_Cve_Empresa>("Em_Cve_Empresa"),
    field<&tSucursalGeneral::Sc_Centro_Costo>("Sc_Centro_Costo"),
    field<&tSucursalGeneral::Sc_Cuenta_Contable>("Sc_Cuenta_Contable"),
    field<&tSucursalGeneral::Sc_Servidor_Id>("Sc_Servidor_Id"),
    field<&tSucursalGeneral::Sc_Calle>("Sc_Calle"),
    field<&tSucursalGeneral::Sc_Colonia>("Sc_Colonia"),
    field<&tSucursalGeneral::Sc_Ciudad>("Sc_Ciudad"),
    field<&tSucursalGeneral::Sc_Entidad>("Sc_Entidad"),
    field<&tSucursalGeneral::Sc_Codigo_Postal>("Sc_Codigo_Postal"),
    field<&tSucursalGeneral::Sc_Telefono>("Sc_Telefono"),
    field<&tSucursalGeneral::Es_Cve_Estado>("Es_Cve_Estado"),
};

constexpr Field user_def_fields[] = {
    field<&tUserDef::Ud_Valor_1>("Ud_Valor_1"),
    field<&tUserDef::Ud_Valor_2>("Ud_Valor_2"),
    field<&tUserDef::Ud_Valor_3>("Ud_Valor_3"),
};

}  // namespace

const Record_type record_types[] = {
    record<tTsEncabezado>("tTsEncabezado", ts_encabezado_fields),
    record<tTsDetalle>("tTsDetalle", ts_detalle_fields),
    record<tRpEncabezado>("tRpEncabezado", rp_encabezado_fields),
    record<tTrpTipoReciboPago>("tTrpTipoReciboPago", trp_tipo_recibo_pago_fields),
    record<tRpDetalle>("tRpDetalle", rp_detalle_fields),
    record<tFormaPago>("tFormaPago", forma_pago_fields),
    record<tSchEncabezado>("tSchEncabezado", sch_encabezado_fields),
    record<tSchDetalle>("tSchDetalle", sch_detalle_fields),
    record<tBnMovimiento>("tBnMovimiento", bn_movimiento_fields),
    record<tCuenta>("tCuenta", cuenta_fields),
    record<tTsSucursal>("tTsSucursal", ts_sucursal_fields),
    record<tTsProveedor>("tTsProveedor", ts_proveedor_fields),
    record<tVnVendedor>("tVnVendedor", vn_vendedor_fields),
    record<tSucursalGeneral>("tSucursalGeneral", sucursal_general_fields),
    record<tUserDef>("tUserDef", user_def_fields),
};

Record_place place_of(Record& record) {
    return {&type_of(record), std::visit([](auto& value) -> void* { return &value; }, record)};
}

}  // namespace cuvexa::automation
