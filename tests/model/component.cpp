// Module, properties and the checks that several operations share.
#include "cuvexa/value.h"
#include "model/treasury.h"

namespace cuvexa::model {

Module::Module(Suite& suite)
    : suite(suite),
      server_id(suite.server_id()),
      GEN_FORZAR_TIEMPO_REAL(suite.flag("GEN_FORZAR_TIEMPO_REAL")),
      TES_AUTORIZAR_SOLICITUD_CHEQUE(suite.flag("TES_AUTORIZAR_SOLICITUD_CHEQUE")),
      TES_FORMA_PAGO_CHEQUE(suite.parameter("TES_FORMA_PAGO_CHEQUE")),
      TES_FORMA_PAGO_TRANSFERENCIA(suite.parameter("TES_FORMA_PAGO_TRANSFERENCIA")) {}

Treasury::Treasury(Module& module) : module_(module), suite_(module.suite), db(module.suite.db), data_(module.suite) {}

// ---- Properties -----------------------------------------------------------------------------------------------------

void Treasury::let_RpEncabezado(const tRpEncabezado& value) {
    branch_server_id_ = server_of_branch(value.Sucursal.Sc_Cve_Sucursal);
    RpEncabezado = value;
    const Text key = quoted(RpEncabezado.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago);
    const auto type = db.Tipo_Recibo_Pago.first([&](const auto& r) { return same(r.Trp_Cve_Tipo_Recibo_Pago, key); });
    if (!type) return;
    RpEncabezado.TipoReciboPago.Trp_Descripcion = type->Trp_Descripcion;
    RpEncabezado.TipoReciboPago.Trp_Solicitar_Fecha = type->Trp_Solicitar_Fecha == "SI";
    RpEncabezado.TipoReciboPago.Trp_Solicitar_Vendedor = type->Trp_Solicitar_Vendedor == "SI";
}

void Treasury::let_Encabezado(const tTsEncabezado& value) {
    if (!Encabezado.Ch_Folio.empty()) return;
    Encabezado.Ch_Fecha = value.Ch_Fecha;
    Encabezado.Tc_Cve_Tipo_Cheque = value.Tc_Cve_Tipo_Cheque;
    Encabezado.Ch_Transferencia = value.Ch_Transferencia;
    Encabezado.Ch_Tabla = value.Ch_Tabla;
    Encabezado.Ch_Documento = value.Ch_Documento;
    Encabezado.Ch_Referencia = value.Ch_Referencia;
    Encabezado.Ch_Concepto = value.Ch_Concepto;
    Encabezado.Ch_Beneficiario = value.Ch_Beneficiario;
    Encabezado.Bc_Cve_Banco_Cuenta = value.Bc_Cve_Banco_Cuenta;
    Encabezado.Bc_Cve_Banco_Cuenta2 = value.Bc_Cve_Banco_Cuenta2;
    Encabezado.Mn_Cve_Moneda = value.Mn_Cve_Moneda;
    Encabezado.Ch_Tipo_Cambio = value.Ch_Tipo_Cambio;
    Encabezado.Ch_Solicitar_Valor = value.Ch_Solicitar_Valor;
    Encabezado.Sucursal.Sc_Cve_Sucursal = value.Sucursal.Sc_Cve_Sucursal;
}

void Treasury::let_SchEncabezado(const tSchEncabezado& value) {
    if (!SchEncabezado.Sch_Folio.empty()) return;
    const Text branch = value.Sucursal.Sc_Cve_Sucursal;
    SchEncabezado = value;
    SchEncabezado.Sch_Folio.clear();
    SchEncabezado.Sucursal = {};
    SchEncabezado.Sucursal.Sc_Cve_Sucursal = branch;
}

void Treasury::NuevoReciboCaja(Date local_today) {
    line_counter_ = 0;
    Validar_Forma_Pago = false;
    for (Text* text : {&RpEncabezado.Rp_Folio, &RpEncabezado.Rp_Folio_Deposito, &RpEncabezado.Mn_Cve_Moneda,
                       &RpEncabezado.Rp_Comentario, &RpEncabezado.Rp_Documento, &RpEncabezado.Rp_Referencia,
                       &RpEncabezado.Rp_Tabla, &RpEncabezado.Rp_Solicitar_Valor, &RpEncabezado.Sucursal.Sc_Cve_Sucursal,
                       &RpEncabezado.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago}) {
        text->clear();
    }
    RpEncabezado.Rp_Tipo_Cambio = 0;
    RpEncabezado.Rp_Fecha = RpEncabezado.Rp_Fecha_Deposito = local_today;
}

void Treasury::Nuevo() {
    line_counter_ = 0;
    for (Text* text :
         {&Encabezado.Ch_Folio, &Encabezado.Tc_Cve_Tipo_Cheque, &Encabezado.Ch_Transferencia, &Encabezado.Ch_Tabla,
          &Encabezado.Ch_Documento, &Encabezado.Ch_Referencia, &Encabezado.Ch_Concepto, &Encabezado.Ch_Beneficiario,
          &Encabezado.Bc_Cve_Banco_Cuenta, &Encabezado.Mn_Cve_Moneda, &Encabezado.Ch_Solicitar_Valor}) {
        text->clear();
    }
    Encabezado.Ch_Tipo_Cambio = 0;
    Encabezado.Ch_Fecha = suite_.now;
}

// ---- Operations that are not supported ------------------------------------------------------------------------------

bool Treasury::Crear_Cheque(const Text&) {
    Error = "Esta operación no está soportada por la versión del sistema";
    return false;
}

bool Treasury::Registrar_Deposito_Recibo_Caja(const Text&, const Text&) {
    Error = "Esta operación no está soportada por la versión del sistema";
    return false;
}

// ---- Checks that operations share -----------------------------------------------------------------------------------

Text Treasury::server_of_branch(const Text& branch) {
    return suite_.look_up(db.Sucursal, &rows::Sucursal::Sc_Servidor_Id, &rows::Sucursal::Sc_Cve_Sucursal, branch);
}

void Treasury::check_central_server(const Text& branch_server) {
    fail_if(branch_server.empty() && suite_.is_replica(),
            "Esta operación solo puede realizarse en el servidor central");
    fail_if(!branch_server.empty() && branch_server != module_.server_id,
            "Esta operación solo puede realizarse en el servidor con id: " + branch_server + line_break +
                "el id del servidor actual es: " + module_.server_id);
}

Text Treasury::other_day(Date document_date) {
    if (!module_.GEN_FORZAR_TIEMPO_REAL || day_of(document_date) == day_of(suite_.now)) return {};
    return "No es posible realizar esta operación, la fecha del documento no es del día actual" + line_break +
           "Fecha del documento: " + short_date(document_date) + ", fecha del día: " + short_date(suite_.now);
}

Text Treasury::closed_period(Date document_date) {
    if (!suite_.flag("GEN_VALIDAR_PERIODO_OPERATIVO") || suite_.is_period_open(document_date, "FINANZAS")) return {};
    return "El período operativo correspondiente a la fecha: " + dashed_date(document_date) +
           ", está cerrado o no existe!";
}

bool Treasury::exists_currency(const Text& key) {
    return !suite_.look_up(db.Moneda, &rows::Moneda::Mn_Descripcion, &rows::Moneda::Mn_Cve_Moneda, key).empty();
}

bool Treasury::exists_account(const Text& key) {
    return !suite_
                .look_up(db.Banco_Cuenta, &rows::Banco_Cuenta::Bc_Descripcion, &rows::Banco_Cuenta::Bc_Cve_Banco_Cuenta,
                         key)
                .empty();
}

Text Treasury::check_type(const Text& key, Text rows::Tipo_Cheque::*column) {
    return suite_.look_up(db.Tipo_Cheque, column, &rows::Tipo_Cheque::Tc_Cve_Tipo_Cheque, key);
}

bool Treasury::exists_customer(const Text& key, const Text& kind) {
    return !suite_
                .look_up(db.Cliente, &rows::Cliente::Cl_Descripcion, &rows::Cliente::Cl_Cve_Cliente, key,
                         [&](const auto& r) { return same(r.Tc_Cve_Tipo_Cliente, kind); })
                .empty();
}

bool Treasury::exists_supplier(const Text& key) {
    return !suite_.look_up(db.Proveedor, &rows::Proveedor::Pv_Descripcion, &rows::Proveedor::Pv_Cve_Proveedor, key)
                .empty();
}

Text Treasury::company_of(const Text& branch) {
    const auto row = db.Sucursal.first([&](const auto& r) { return same(r.Sc_Cve_Sucursal, branch); });
    return row ? row->Em_Cve_Empresa : Text();
}

/// Has accounting write the voucher of a document, where documents of that code are posted automatically.
void Treasury::post(const Text& tag, const Text& code, const Text& folio, const Text& company) {
    Accounting accounting(suite_);
    if (!accounting.IsPostingEnabled(code)) return;
    if (!accounting.PostDocument(code, folio, company) || !accounting.LastError.empty()) {
        fail(tagged(tag, accounting.LastError));
    }
}

Text Treasury::line_id() {
    if (line_counter_ == 32767) throw Failure{words::overflow};
    return four_digits(++line_counter_);
}

}  // namespace cuvexa::model
