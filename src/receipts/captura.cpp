// Capture of a cash receipt, line by line.
#include "core/codes.h"
#include "core/number_text.h"
#include "core/operation.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {

void Tesoreria::NuevoReciboCaja() {
    line_counter_ = 0;
    validate_payment_method_ = false;
    receipt_.Rp_Folio.clear();
    receipt_.Rp_Folio_Deposito.clear();
    receipt_.Mn_Cve_Moneda.clear();
    receipt_.Rp_Comentario.clear();
    receipt_.Rp_Documento.clear();
    receipt_.Rp_Referencia.clear();
    receipt_.Rp_Tabla.clear();
    receipt_.Rp_Solicitar_Valor.clear();
    receipt_.Sucursal.Sc_Cve_Sucursal.clear();
    receipt_.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago.clear();
    receipt_.Rp_Tipo_Cambio = 0;
    receipt_.Rp_Fecha = receipt_.Rp_Fecha_Deposito = local_today();
    // Rp_Deposito_ID, the rest of the type and of the branch, the line and its extras stay on purpose.
}

void Tesoreria::RpEncabezado(const tRpEncabezado& value) {
    branch_server_id_ = branch_server_id(module_.data(), value.Sucursal.Sc_Cve_Sucursal);
    receipt_ = value;
    const Rows type = query(module_, "SELECT * FROM Tipo_Recibo_Pago WHERE Trp_Cve_Tipo_Recibo_Pago = '{}' ",
                            value.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago);
    if (type.eof()) return;
    receipt_.TipoReciboPago.Trp_Descripcion = type.text("Trp_Descripcion");
    receipt_.TipoReciboPago.Trp_Solicitar_Fecha = type.text("Trp_Solicitar_Fecha") == "SI";
    receipt_.TipoReciboPago.Trp_Solicitar_Vendedor = type.text("Trp_Solicitar_Vendedor") == "SI";
}

bool Tesoreria::Add_Recibo_Caja_Detalle() {
    return operation(module_, error_, "Cuvexa.dll - Add_Recibo_Caja_Detalle()", [&](Operation& op) {
        if (!receipt_line_extras_) receipt_line_extras_ = std::make_shared<clsRpDetalle>();
        const clsRpDetalle& extras = *receipt_line_extras_;

        if (receipt_.Rp_Folio.empty()) {
            check_central_server(op, branch_server_id_, Wording::plain);
            check_same_day(op, receipt_.Rp_Fecha, Wording::tagged);
            check_operating_period(op, receipt_.Rp_Fecha, Wording::tagged);
            check_currency(op, receipt_.Mn_Cve_Moneda, Wording::plain);
            check_rate(op, receipt_.Rp_Tipo_Cambio, Wording::plain);

            // Kept at once: when a check of the line below refuses, the receipt has its folio all the same.
            receipt_.Rp_Folio = op.data().GetNextFolio(receipt_.Sucursal.Sc_Cve_Sucursal, document::receipt);
            op.refuse_plain_if(receipt_.Rp_Folio.empty(), "Error al intentar obtener el folio del recibo de caja!");
            line_counter_ = 0;
            receipt_stamp_ = op.server_stamp();
        }

        const std::string& method = receipt_line_.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago;
        op.refuse_plain_if(op.data().LookupValue("Fp_Descripcion", "Fp_Cve_Forma_Pago", method, "FORMA_PAGO").empty(),
                           "La forma de pago no existe o está dada de baja");
        op.refuse_plain_if(receipt_line_.Rp_Importe == 0, "Importe del recibo erróneo, no puede ser cero!");
        op.refuse_plain_if(
            !extras.Rp_Cve_Banco.empty() &&
                op.data().LookupValue("Bn_Descripcion", "Bn_Cve_Banco", extras.Rp_Cve_Banco, "BANCO").empty(),
            "El banco no existe o está de baja");
        op.refuse_plain_if(
            receipt_.TipoReciboPago.Trp_Solicitar_Vendedor &&
                op.data().LookupValue("Vn_Descripcion", "Vn_Cve_Vendedor", extras.Rp_Vendedor, "Vendedor").empty(),
            "El vendedor no existe o está de baja");

        // A line that fails from here on uses up its number.
        receipt_line_.Rp_ID = next_line_id();
        if (validate_payment_method_) {
            PaymentMethodService& methods = op.module().payment_methods();
            op.relay_unless(methods.ValidatePaymentLine(method, receipt_line_.Rp_Cheque, receipt_line_.Rp_Banco,
                                                        receipt_line_.Rp_Importe, document::receipt, receipt_.Rp_Folio,
                                                        receipt_.Rp_Referencia, receipt_.Rp_Comentario),
                            methods);
        }
        op.pass_on_unless(Inserta_Recibo_Pago());
    });
}

bool Tesoreria::Inserta_Recibo_Pago() {
    constexpr auto no_tag = "";  // its failures carry the description alone
    return operation(module_, error_, no_tag, [&](Operation& op) {
        const std::string user = op.session().GetUserName();
        const clsRpDetalle& extras = *receipt_line_extras_;
        op.execute(
            "INSERT INTO Recibo_Pago("
            "   Rp_Folio, "
            "   Rp_Id, "
            "   Rp_Fecha, "
            "   Sc_Cve_Sucursal, "
            "   Trp_Cve_Tipo_Recibo_Pago, "
            "   Rp_Solicitar_Valor, "
            "   Rp_Tabla, "
            "   Rp_Documento, "
            "   Rp_Referencia, "
            "   Rp_Comentario, "
            "   Mn_Cve_Moneda, "
            "   Rp_Tipo_Cambio, "
            "   Rp_Fecha_Deposito, "
            "   Rp_Folio_Deposito, "
            "   Rp_Deposito_ID, "
            "   Fp_Cve_Forma_Pago, "
            "   Rp_Banco, "
            "   Rp_Cheque, "
            "   Rp_Cuenta_Bancaria, "
            "   Rp_Importe, "
            "   Rp_Cve_Banco, "
            "   Rp_Vendedor, "
            "   Rp_Comisionista, "
            "   Rp_Promotor, "
            "   Rp_Chofer, "
            "   Rp_Cobratario, "
            "   Oper_Alta, "
            "   Fecha_Alta, "
            "   Oper_Ult_Modif, "
            "   Fecha_Ult_Modif) "
            "VALUES('{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', {}, '{}', '{}', '{}', "
            "'{}', '{}', '{}', '{}', {}, '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}', '{}')",
            receipt_.Rp_Folio, receipt_line_.Rp_ID, op.data().SqlDate(receipt_.Rp_Fecha),
            receipt_.Sucursal.Sc_Cve_Sucursal, receipt_.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago,
            receipt_.Rp_Solicitar_Valor, receipt_.Rp_Tabla, receipt_.Rp_Documento, receipt_.Rp_Referencia,
            receipt_.Rp_Comentario, receipt_.Mn_Cve_Moneda, receipt_.Rp_Tipo_Cambio,
            op.data().SqlDate(receipt_.Rp_Fecha_Deposito), receipt_.Rp_Folio_Deposito, receipt_.Rp_Deposito_ID,
            receipt_line_.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago, receipt_line_.Rp_Banco, receipt_line_.Rp_Cheque,
            receipt_line_.Rp_Cuenta_Bancaria, receipt_line_.Rp_Importe, extras.Rp_Cve_Banco, extras.Rp_Vendedor,
            extras.Rp_Comisionista, extras.Rp_Promotor, extras.Rp_Chofer, extras.Rp_Cobratario, user, receipt_stamp_,
            user, receipt_stamp_);
    });
}

}  // namespace cuvexa
