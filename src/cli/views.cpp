#include "cli/views.h"

#include <algorithm>

namespace cuvexa::cli {

namespace {

using enum Column_kind;

constexpr Column receipt_columns[] = {
    {"Rp_Folio", "Recibo"},
    {"Rp_Id", "Línea"},
    {"Rp_Fecha", "Fecha", date},
    {"Sc_Cve_Sucursal", "Sucursal"},
    {"Trp_Cve_Tipo_Recibo_Pago", "Tipo"},
    {"Fp_Cve_Forma_Pago", "Forma de pago"},
    {"Rp_Banco", "Banco"},
    {"Rp_Cheque", "Referencia"},
    {"Rp_Importe", "Importe", amount},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Rp_Tipo_Cambio", "T. cambio", rate},
    {"Rp_Folio_Deposito", "Depósito"},
    {"Rp_Deposito_ID", "Lín. dep."},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column deposit_columns[] = {
    {"Dp_Folio", "Depósito"},
    {"Dp_Id", "Línea"},
    {"Dp_Fecha", "Fecha", date},
    {"Sc_Cve_Sucursal", "Sucursal"},
    {"Bc_Cve_Banco_Cuenta", "Cuenta"},
    {"Dp_Importe", "Importe", amount},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Dp_Tipo_Cambio", "T. cambio", rate},
    {"Rp_Banco", "Banco"},
    {"Rp_Cheque", "Referencia"},
    {"Dp_Comentario", "Comentario"},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column movement_columns[] = {
    {"Bm_Folio", "Movimiento"},        {"Bm_Fecha", "Fecha", date},
    {"Bc_Cve_Banco_Cuenta", "Cuenta"}, {"Bt_Cve_Banco_Tipo_Movimiento", "Tipo"},
    {"Bm_Importe", "Importe", amount}, {"Mn_Cve_Moneda", "Moneda"},
    {"Bm_Tabla", "Documento"},         {"Bm_Documento", "Folio"},
    {"Bm_Documento_ID", "Línea"},      {"Bm_Referencia", "Referencia"},
    {"Bm_Comentario", "Comentario"},   {"Bm_Fecha_Firme", "En firme", date},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column account_columns[] = {
    {"Bc_Cve_Banco_Cuenta", "Cuenta"},       {"Bc_Descripcion", "Descripción"}, {"Mn_Cve_Moneda", "Moneda"},
    {"Bc_Saldo", "Saldo", amount},           {"Bn_Cve_Banco", "Banco"},         {"Bn_Descripcion", "Nombre del banco"},
    {"Bn_Saldo", "Saldo del banco", amount}, {"Es_Cve_Estado", "Estado"},
};

constexpr Column check_columns[] = {
    {"Ch_Folio", "Cheque"},
    {"Ch_Fecha", "Fecha", date},
    {"Tc_Cve_Tipo_Cheque", "Tipo"},
    {"Ch_Transferencia", "Transf."},
    {"Ch_Beneficiario", "Beneficiario"},
    {"Bc_Cve_Banco_Cuenta", "Cuenta"},
    {"Ch_Importe", "Importe", amount},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Ch_Tipo_Cambio", "T. cambio", rate},
    {"Ch_Tabla", "Documento"},
    {"Ch_Documento", "Folio"},
    {"Ch_Aplicar", "Aplicado"},
    {"Ch_Firme", "Firme"},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column request_columns[] = {
    {"Sch_Folio", "Solicitud"},           {"Sch_Fecha", "Fecha", date},
    {"Tc_Cve_Tipo_Cheque", "Tipo"},       {"Bc_Cve_Banco_Cuenta", "Cuenta"},
    {"Sch_Beneficiario", "Beneficiario"}, {"Sch_Concepto", "Concepto"},
    {"Sch_Importe", "Importe", amount},   {"Sch_Tipo_Cambio", "T. cambio", rate},
    {"Sch_Tabla", "Documento"},           {"Sch_Documento", "Folio"},
    {"Es_Cve_Estado", "Estado"},
};

// The four budget tables have the same columns under four prefixes.
constexpr Column budget_columns[] = {
    {"Presupuesto", "Presupuesto"}, {"Tipo", "Nivel"},         {"Valor", "Clave"},        {"Periodo", "Año", number},
    {"Mes_01", "Ene", amount},      {"Mes_02", "Feb", amount}, {"Mes_03", "Mar", amount}, {"Mes_04", "Abr", amount},
    {"Mes_05", "May", amount},      {"Mes_06", "Jun", amount}, {"Mes_07", "Jul", amount}, {"Mes_08", "Ago", amount},
    {"Mes_09", "Sep", amount},      {"Mes_10", "Oct", amount}, {"Mes_11", "Nov", amount}, {"Mes_12", "Dic", amount},
};

constexpr std::string_view budgets_select =
    "SELECT * FROM ("
    "SELECT 'Anticipo a proveedor' AS Presupuesto, App_Tipo AS Tipo, App_Valor AS Valor, App_Periodo AS Periodo, "
    "App_01 AS Mes_01, App_02 AS Mes_02, App_03 AS Mes_03, App_04 AS Mes_04, App_05 AS Mes_05, App_06 AS Mes_06, "
    "App_07 AS Mes_07, App_08 AS Mes_08, App_09 AS Mes_09, App_10 AS Mes_10, App_11 AS Mes_11, App_12 AS Mes_12 "
    "FROM Anticipo_Proveedor_Presupuesto UNION ALL "
    "SELECT 'Gasto x comprobar' AS Presupuesto, Gcp_Tipo AS Tipo, Gcp_Valor AS Valor, Gcp_Periodo AS Periodo, "
    "Gcp_01 AS Mes_01, Gcp_02 AS Mes_02, Gcp_03 AS Mes_03, Gcp_04 AS Mes_04, Gcp_05 AS Mes_05, Gcp_06 AS Mes_06, "
    "Gcp_07 AS Mes_07, Gcp_08 AS Mes_08, Gcp_09 AS Mes_09, Gcp_10 AS Mes_10, Gcp_11 AS Mes_11, Gcp_12 AS Mes_12 "
    "FROM Gasto_x_Comprobar_Presupuesto UNION ALL "
    "SELECT 'Préstamo a deudor' AS Presupuesto, Pdp_Tipo AS Tipo, Pdp_Valor AS Valor, Pdp_Periodo AS Periodo, "
    "Pdp_01 AS Mes_01, Pdp_02 AS Mes_02, Pdp_03 AS Mes_03, Pdp_04 AS Mes_04, Pdp_05 AS Mes_05, Pdp_06 AS Mes_06, "
    "Pdp_07 AS Mes_07, Pdp_08 AS Mes_08, Pdp_09 AS Mes_09, Pdp_10 AS Mes_10, Pdp_11 AS Mes_11, Pdp_12 AS Mes_12 "
    "FROM Prestamo_Deudor_Presupuesto UNION ALL "
    "SELECT 'Devolución a cliente' AS Presupuesto, Dcp_Tipo AS Tipo, Dcp_Valor AS Valor, Dcp_Periodo AS Periodo, "
    "Dcp_01 AS Mes_01, Dcp_02 AS Mes_02, Dcp_03 AS Mes_03, Dcp_04 AS Mes_04, Dcp_05 AS Mes_05, Dcp_06 AS Mes_06, "
    "Dcp_07 AS Mes_07, Dcp_08 AS Mes_08, Dcp_09 AS Mes_09, Dcp_10 AS Mes_10, Dcp_11 AS Mes_11, Dcp_12 AS Mes_12 "
    "FROM Devolucion_Cliente_Presupuesto) AS Presupuestos";

constexpr Column advance_columns[] = {
    {"An_Folio", "Anticipo"},          {"An_Fecha", "Fecha", date}, {"Cl_Cve_Cliente", "Cliente"},
    {"An_Importe", "Importe", amount}, {"Mn_Cve_Moneda", "Moneda"}, {"An_Tabla", "Documento"},
    {"An_Documento", "Folio"},         {"Es_Cve_Estado", "Estado"},
};

constexpr Column receivable_columns[] = {
    {"Cxc_Folio", "Cuenta x cobrar"},
    {"Cxc_Fecha", "Fecha", date},
    {"Cxc_Fecha_Vencimiento", "Vence", date},
    {"Cl_Cve_Cliente", "Cliente"},
    {"Cxc_Precio_Neto_Importe", "Importe", amount},
    {"Cxc_Precio_Neto_Pago", "Pagos", amount},
    {"Cxc_Precio_Neto_Saldo", "Saldo", amount},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Cxc_Tabla", "Documento"},
    {"Cxc_Documento", "Folio"},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column payable_columns[] = {
    {"Cxp_Folio", "Cuenta x pagar"},
    {"Cxp_Fecha", "Fecha", date},
    {"Cxp_Fecha_Vencimiento", "Vence", date},
    {"Pv_Cve_Proveedor", "Proveedor"},
    {"Cxp_Precio_Neto_Importe", "Importe", amount},
    {"Cxp_Precio_Neto_Pago", "Pagos", amount},
    {"Cxp_Precio_Neto_Saldo", "Saldo", amount},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Cxp_Tabla", "Documento"},
    {"Cxp_Documento", "Folio"},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column voucher_columns[] = {
    {"Pz_Folio", "Póliza"},
    {"Pz_Fecha", "Fecha", date},
    {"Pz_Tabla", "Documento"},
    {"Pz_Documento", "Folio"},
    {"Pzd_ID", "Línea"},
    {"Pzd_Cuenta_Contable", "Cuenta contable"},
    {"Pzd_Concepto", "Concepto"},
    {"Pzd_Cargo", "Cargo", amount},
    {"Pzd_Abono", "Abono", amount},
    {"Es_Cve_Estado", "Estado"},
};

constexpr View views[] = {
    {"receipts", "Recibos de caja", "SELECT * FROM Recibo_Pago", "Rp_Folio", "Rp_Folio, Rp_Id", receipt_columns},
    {"deposits", "Depósitos", "SELECT * FROM Deposito_Pago", "Dp_Folio", "Dp_Folio, Dp_Id", deposit_columns},
    {"movements", "Movimientos de bancos", "SELECT * FROM Banco_Movimiento", "Bm_Folio", "Bm_Folio", movement_columns},
    {"accounts", "Cuentas bancarias",
     "SELECT Bc_Cve_Banco_Cuenta, Bc_Descripcion, Banco_Cuenta.Mn_Cve_Moneda, Bc_Saldo, Banco_Cuenta.Bn_Cve_Banco, "
     "Bn_Descripcion, Bn_Saldo, Banco_Cuenta.Es_Cve_Estado "
     "FROM Banco_Cuenta LEFT JOIN Banco ON Banco.Bn_Cve_Banco = Banco_Cuenta.Bn_Cve_Banco",
     "Bc_Cve_Banco_Cuenta", "Bc_Cve_Banco_Cuenta", account_columns},
    {"checks", "Cheques y transferencias",
     "SELECT Cheque.*, Mn_Cve_Moneda FROM Cheque "
     "LEFT JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Cheque.Bc_Cve_Banco_Cuenta",
     "Ch_Folio", "Ch_Folio", check_columns},
    {"requests", "Solicitudes de cheque", "SELECT * FROM Solicitud_Cheque", "Sch_Folio", "Sch_Folio", request_columns},
    {"budgets", "Presupuestos de cheques", budgets_select, "Valor", "Presupuesto, Tipo, Valor, Periodo",
     budget_columns},
    {"advances", "Anticipos de clientes", "SELECT * FROM Anticipo_Cxc", "An_Folio", "An_Folio", advance_columns},
    {"receivables", "Cuentas por cobrar", "SELECT * FROM Cuenta_x_Cobrar", "Cxc_Folio", "Cxc_Folio",
     receivable_columns},
    {"payables", "Cuentas por pagar", "SELECT * FROM Cuenta_x_Pagar", "Cxp_Folio", "Cxp_Folio", payable_columns},
    {"vouchers", "Pólizas",
     "SELECT Poliza.*, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Cargo, Pzd_Abono "
     "FROM Poliza LEFT JOIN Poliza_Detalle ON Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio",
     "Poliza.Pz_Folio", "Poliza.Pz_Folio, Pzd_ID", voucher_columns},
};

std::string with_key(const View& view, std::string_view key) {
    std::string statement(view.select);
    if (!key.empty()) {
        statement += " WHERE ";
        statement += view.key;
        statement += " = ";
        statement += sql_text(key);
    }
    statement += " ORDER BY ";
    statement += view.order;
    return statement;
}

}  // namespace

const View& view_named(std::string_view name) {
    return *std::find_if(std::begin(views), std::end(views), [&](const View& view) { return view.name == name; });
}

std::vector<std::string> view_names() {
    std::vector<std::string> names;
    for (const View& view : views) names.emplace_back(view.name);
    return names;
}

std::vector<Row> read_view(Connection& connection, const View& view, std::string_view key) {
    const auto recordset = connection.execute(with_key(view, key));
    return read_rows(*recordset, view.columns);
}

std::string sql_text(std::string_view text) {
    std::string literal = "'";
    for (const char c : text) literal.append(c == '\'' ? 2 : 1, c);
    literal += '\'';
    return literal;
}

}  // namespace cuvexa::cli
