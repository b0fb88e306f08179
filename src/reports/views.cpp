#include "reports/views.h"

#include <algorithm>

#include "core/case.h"
#include "core/codes.h"
#include "core/text.h"

namespace cuvexa::reports {

namespace {

using enum Column_kind;

// ---- Columns: first those that a table shows, then what else a program gets ----------------------------------------

constexpr Column receipt_columns[] = {
    {"Rp_Folio", "Recibo"},
    {"Rp_Fecha", "Fecha", date},
    {"Sc_Cve_Sucursal", "Sucursal"},
    {"Trp_Cve_Tipo_Recibo_Pago", "Tipo"},
    {"Rp_Solicitar_Valor", "Clave"},
    {"Parte", "Cliente o proveedor"},
    {"Importe", "Importe", amount},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Rp_Tipo_Cambio", "T. cambio", rate},
    {"Renglones", "Renglones", number},
    {"Rp_Folio_Deposito", "Depósito"},
    {"Rp_Tabla", "Documento"},
    {"Rp_Documento", "Folio"},
    {"Rp_Referencia", "Referencia"},
    {"Rp_Comentario", "Comentario"},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column receipt_line_columns[] = {
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
    {"Dp_Fecha", "Fecha", date},
    {"Sc_Cve_Sucursal", "Sucursal"},
    {"Bc_Cve_Banco_Cuenta", "Cuenta"},
    {"Importe", "Importe", amount},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Dp_Tipo_Cambio", "T. cambio", rate},
    {"Renglones", "Renglones", number},
    {"Dp_Referencia", "Referencia"},
    {"Dp_Comentario", "Comentario"},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column deposit_line_columns[] = {
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
    {"Es_Cve_Estado", "Estado"},       {"Bm_Tipo_Cambio", "T. cambio", rate},
};
constexpr std::size_t movements_shown = std::size(movement_columns) - 1;

constexpr Column account_columns[] = {
    {"Bc_Cve_Banco_Cuenta", "Cuenta"},
    {"Bc_Descripcion", "Descripción"},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Bc_Saldo", "Saldo", amount},
    {"Bn_Cve_Banco", "Banco"},
    {"Bn_Descripcion", "Nombre del banco"},
    {"Bn_Saldo", "Saldo del banco", amount},
    {"Es_Cve_Estado", "Estado"},
    {"Bc_Cuenta", "Número"},
    {"Em_Cve_Empresa", "Empresa"},
    {"Saldo_Firme", "En firme", amount},
    {"Saldo_Transito", "En tránsito", amount},
};
constexpr std::size_t accounts_shown = std::size(account_columns) - 4;

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
    {"Sc_Cve_Sucursal", "Sucursal"},
    {"Ch_Solicitar_Valor", "Clave"},
    {"Ch_Concepto", "Concepto"},
    {"Ch_Referencia", "Referencia"},
    {"Ch_Fecha_Firme", "En firme", date},
    {"Ch_Banco_Destino", "Banco destino"},
    {"Ch_Cuenta_Destino", "Cuenta destino"},
};
constexpr std::size_t checks_shown = std::size(check_columns) - 7;

constexpr Column check_line_columns[] = {
    {"Cxa_ID", "Línea"},
    {"Ch_Cheque", "Cheque"},
    {"Cxp_Folio", "Cuenta x pagar"},
    {"Mn_Cve_Moneda", "Moneda"},
    {"Cxa_Tipo_Cambio", "T. cambio", rate},
    {"Cxa_Importe", "Importe", amount},
    {"Cxa_Fecha_Aplicacion", "Aplicado", date},
    {"Es_Cve_Estado", "Estado"},
};

constexpr Column request_columns[] = {
    {"Sch_Folio", "Solicitud"},           {"Sch_Fecha", "Fecha", date},
    {"Tc_Cve_Tipo_Cheque", "Tipo"},       {"Bc_Cve_Banco_Cuenta", "Cuenta"},
    {"Sch_Beneficiario", "Beneficiario"}, {"Sch_Concepto", "Concepto"},
    {"Sch_Importe", "Importe", amount},   {"Sch_Tipo_Cambio", "T. cambio", rate},
    {"Sch_Tabla", "Documento"},           {"Sch_Documento", "Folio"},
    {"Es_Cve_Estado", "Estado"},          {"Sc_Cve_Sucursal", "Sucursal"},
    {"Sch_Solicitar_Valor", "Clave"},     {"Sch_Referencia", "Referencia"},
    {"Sch_Transferencia", "Transf."},
};
constexpr std::size_t requests_shown = std::size(request_columns) - 4;

constexpr Column request_line_columns[] = {
    {"Scd_Id", "Línea"},         {"Scd_Tabla", "Documento"},
    {"Scd_Documento", "Folio"},  {"Scd_Importe", "Importe", amount},
    {"Mn_Cve_Moneda", "Moneda"}, {"Scd_Tipo_Cambio", "T. cambio", rate},
    {"Es_Cve_Estado", "Estado"},
};

// The four budget tables have the same columns under four prefixes.
constexpr Column budget_columns[] = {
    {"Presupuesto", "Presupuesto"}, {"Tipo", "Nivel"},         {"Valor", "Clave"},        {"Periodo", "Año", number},
    {"Mes_01", "Ene", amount},      {"Mes_02", "Feb", amount}, {"Mes_03", "Mar", amount}, {"Mes_04", "Abr", amount},
    {"Mes_05", "May", amount},      {"Mes_06", "Jun", amount}, {"Mes_07", "Jul", amount}, {"Mes_08", "Ago", amount},
    {"Mes_09", "Sep", amount},      {"Mes_10", "Oct", amount}, {"Mes_11", "Nov", amount}, {"Mes_12", "Dic", amount},
};

constexpr std::string_view from_budgets =
    "FROM ("
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
    {"An_Folio", "Anticipo"},        {"An_Fecha", "Fecha", date},
    {"Cl_Cve_Cliente", "Cliente"},   {"An_Importe", "Importe", amount},
    {"Mn_Cve_Moneda", "Moneda"},     {"An_Tabla", "Documento"},
    {"An_Documento", "Folio"},       {"Es_Cve_Estado", "Estado"},
    {"Sc_Cve_Sucursal", "Sucursal"}, {"Parte", "Nombre"},
    {"An_Referencia", "Referencia"}, {"An_Comentario", "Comentario"},
};
constexpr std::size_t advances_shown = std::size(advance_columns) - 4;

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
    {"Sc_Cve_Sucursal", "Sucursal"},
    {"Parte", "Nombre"},
    {"Cxc_Referencia", "Referencia"},
    {"Cxc_Comentario", "Comentario"},
};
constexpr std::size_t receivables_shown = std::size(receivable_columns) - 4;

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
    {"Sc_Cve_Sucursal", "Sucursal"},
    {"Parte", "Nombre"},
    {"Cxp_Referencia", "Referencia"},
    {"Cxp_Comentario", "Comentario"},
};
constexpr std::size_t payables_shown = std::size(payable_columns) - 4;

constexpr Column voucher_columns[] = {
    {"Pz_Folio", "Póliza"},         {"Pz_Fecha", "Fecha", date},        {"Em_Cve_Empresa", "Empresa"},
    {"Pz_Tabla", "Documento"},      {"Pz_Documento", "Folio"},          {"Pz_Concepto", "Concepto"},
    {"Importe", "Importe", amount}, {"Renglones", "Renglones", number}, {"Es_Cve_Estado", "Estado"},
};

constexpr Column voucher_line_columns[] = {
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

// ---- Where a text is looked for ------------------------------------------------------------------------------------

constexpr std::string_view receipt_texts[] = {"Rp_Folio", "Rp_Solicitar_Valor", "Parte",         "Rp_Folio_Deposito",
                                              "Rp_Tabla", "Rp_Documento",       "Rp_Referencia", "Rp_Comentario"};
constexpr std::string_view deposit_texts[] = {"Dp_Folio", "Bc_Cve_Banco_Cuenta", "Dp_Referencia", "Dp_Comentario"};
constexpr std::string_view movement_texts[] = {"Bm_Folio", "Bc_Cve_Banco_Cuenta", "Bm_Documento", "Bm_Referencia",
                                               "Bm_Comentario"};
constexpr std::string_view account_texts[] = {"Bc_Cve_Banco_Cuenta", "Bc_Descripcion", "Bc_Cuenta", "Bn_Descripcion"};
constexpr std::string_view check_texts[] = {"Ch_Folio",    "Ch_Solicitar_Valor", "Ch_Beneficiario",
                                            "Ch_Concepto", "Ch_Documento",       "Ch_Referencia"};
constexpr std::string_view request_texts[] = {"Sch_Folio",    "Sch_Solicitar_Valor", "Sch_Beneficiario",
                                              "Sch_Concepto", "Sch_Documento",       "Sch_Referencia"};
constexpr std::string_view advance_texts[] = {"An_Folio",     "Cl_Cve_Cliente", "Parte",
                                              "An_Documento", "An_Referencia",  "An_Comentario"};
constexpr std::string_view receivable_texts[] = {"Cxc_Folio",     "Cl_Cve_Cliente", "Parte",
                                                 "Cxc_Documento", "Cxc_Referencia", "Cxc_Comentario"};
constexpr std::string_view payable_texts[] = {"Cxp_Folio",     "Pv_Cve_Proveedor", "Parte",
                                              "Cxp_Documento", "Cxp_Referencia",   "Cxp_Comentario"};
constexpr std::string_view voucher_texts[] = {"Pz_Folio", "Pz_Tabla", "Pz_Documento", "Pz_Concepto"};

// ---- The views -----------------------------------------------------------------------------------------------------

constexpr View views[] = {
    {.name = "receipts",
     .title = "Recibos de caja",
     .document = "Recibo de caja",
     .code = document::receipt,
     .select = "Recibo_Pago.*, "
               "CASE WHEN Trp_Solicitar = '04' THEN Pv_Descripcion "
               "WHEN Trp_Solicitar IN ('02', '03') THEN Cl_Descripcion ELSE '' END AS Parte, "
               "(SELECT SUM(Linea.Rp_Importe) FROM Recibo_Pago Linea "
               "WHERE Linea.Rp_Folio = Recibo_Pago.Rp_Folio) AS Importe, "
               "(SELECT COUNT(*) FROM Recibo_Pago Linea WHERE Linea.Rp_Folio = Recibo_Pago.Rp_Folio) AS Renglones",
     .from = "FROM Recibo_Pago "
             "LEFT JOIN Tipo_Recibo_Pago ON Tipo_Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago = "
             "Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago "
             "LEFT JOIN Cliente ON Cliente.Cl_Cve_Cliente = Recibo_Pago.Rp_Solicitar_Valor "
             "LEFT JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Recibo_Pago.Rp_Solicitar_Valor",
     .first = "NOT EXISTS (SELECT Linea.Rp_Id FROM Recibo_Pago Linea "
              "WHERE Linea.Rp_Folio = Recibo_Pago.Rp_Folio AND Linea.Rp_Id < Recibo_Pago.Rp_Id)",
     .table = "Recibo_Pago",
     .key = "Rp_Folio",
     .order = "Recibo_Pago.Rp_Folio, Recibo_Pago.Rp_Id",
     .columns = receipt_columns,
     .date = "Rp_Fecha",
     .state = "Es_Cve_Estado",
     .branch = "Sc_Cve_Sucursal",
     .amount = "Importe",
     .texts = receipt_texts},
    {.name = "deposits",
     .title = "Depósitos",
     .document = "Depósito",
     .code = document::deposit,
     .select = "Deposito_Pago.*, "
               "(SELECT SUM(Linea.Dp_Importe) FROM Deposito_Pago Linea "
               "WHERE Linea.Dp_Folio = Deposito_Pago.Dp_Folio) AS Importe, "
               "(SELECT COUNT(*) FROM Deposito_Pago Linea "
               "WHERE Linea.Dp_Folio = Deposito_Pago.Dp_Folio) AS Renglones",
     .from = "FROM Deposito_Pago",
     .first = "NOT EXISTS (SELECT Linea.Dp_Id FROM Deposito_Pago Linea "
              "WHERE Linea.Dp_Folio = Deposito_Pago.Dp_Folio AND Linea.Dp_Id < Deposito_Pago.Dp_Id)",
     .table = "Deposito_Pago",
     .key = "Dp_Folio",
     .order = "Deposito_Pago.Dp_Folio, Deposito_Pago.Dp_Id",
     .columns = deposit_columns,
     .date = "Dp_Fecha",
     .state = "Es_Cve_Estado",
     .branch = "Sc_Cve_Sucursal",
     .account = "Bc_Cve_Banco_Cuenta",
     .amount = "Importe",
     .texts = deposit_texts},
    {.name = "movements",
     .title = "Movimientos de bancos",
     .document = "Movimiento de banco",
     .code = document::bank_movement,
     .select = "Banco_Movimiento.*",
     .from = "FROM Banco_Movimiento",
     .table = "Banco_Movimiento",
     .key = "Bm_Folio",
     .order = "Bm_Folio",
     .columns = movement_columns,
     .shown = movements_shown,
     .date = "Bm_Fecha",
     .state = "Es_Cve_Estado",
     .account = "Bc_Cve_Banco_Cuenta",
     .amount = "Bm_Importe",
     .texts = movement_texts},
    {.name = "accounts",
     .title = "Cuentas bancarias",
     .select = "Banco_Cuenta.*, Bn_Descripcion, Bn_Saldo, "
               "(SELECT SUM(Bm_Importe) FROM Banco_Movimiento "
               "WHERE Banco_Movimiento.Bc_Cve_Banco_Cuenta = Banco_Cuenta.Bc_Cve_Banco_Cuenta AND "
               "Banco_Movimiento.Es_Cve_Estado = 'FI') AS Saldo_Firme, "
               "(SELECT SUM(Bm_Importe) FROM Banco_Movimiento "
               "WHERE Banco_Movimiento.Bc_Cve_Banco_Cuenta = Banco_Cuenta.Bc_Cve_Banco_Cuenta AND "
               "Banco_Movimiento.Es_Cve_Estado NOT IN ('FI', 'CA')) AS Saldo_Transito",
     .from = "FROM Banco_Cuenta LEFT JOIN Banco ON Banco.Bn_Cve_Banco = Banco_Cuenta.Bn_Cve_Banco",
     .table = "Banco_Cuenta",
     .key = "Bc_Cve_Banco_Cuenta",
     .order = "Banco_Cuenta.Bc_Cve_Banco_Cuenta",
     .columns = account_columns,
     .shown = accounts_shown,
     .state = "Es_Cve_Estado",
     .texts = account_texts},
    {.name = "checks",
     .title = "Cheques y transferencias",
     .document = "Cheque o transferencia",
     .code = document::check,
     .select = "Cheque.*, Mn_Cve_Moneda",
     .from = "FROM Cheque LEFT JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Cheque.Bc_Cve_Banco_Cuenta",
     .table = "Cheque",
     .key = "Ch_Folio",
     .order = "Ch_Folio",
     .columns = check_columns,
     .shown = checks_shown,
     .date = "Ch_Fecha",
     .state = "Es_Cve_Estado",
     .branch = "Sc_Cve_Sucursal",
     .account = "Bc_Cve_Banco_Cuenta",
     .amount = "Ch_Importe",
     .texts = check_texts},
    {.name = "requests",
     .title = "Solicitudes de cheque",
     .document = "Solicitud de cheque",
     .code = document::check_request,
     .select = "Solicitud_Cheque.*",
     .from = "FROM Solicitud_Cheque",
     .table = "Solicitud_Cheque",
     .key = "Sch_Folio",
     .order = "Sch_Folio",
     .columns = request_columns,
     .shown = requests_shown,
     .date = "Sch_Fecha",
     .state = "Es_Cve_Estado",
     .branch = "Sc_Cve_Sucursal",
     .account = "Bc_Cve_Banco_Cuenta",
     .amount = "Sch_Importe",
     .texts = request_texts},
    {.name = "budgets",
     .title = "Presupuestos de cheques",
     .select = "Presupuestos.*",
     .from = from_budgets,
     .table = "Presupuestos",
     .key = "Valor",
     .order = "Presupuesto, Tipo, Valor, Periodo",
     .columns = budget_columns,
     .shown = std::size(budget_columns)},
    {.name = "advances",
     .title = "Anticipos de clientes",
     .document = "Anticipo de cliente",
     .code = document::customer_advance,
     .select = "Anticipo_Cxc.*, Cl_Descripcion AS Parte",
     .from = "FROM Anticipo_Cxc LEFT JOIN Cliente ON Cliente.Cl_Cve_Cliente = Anticipo_Cxc.Cl_Cve_Cliente",
     .table = "Anticipo_Cxc",
     .key = "An_Folio",
     .order = "An_Folio",
     .columns = advance_columns,
     .shown = advances_shown,
     .date = "An_Fecha",
     .state = "Es_Cve_Estado",
     .branch = "Sc_Cve_Sucursal",
     .amount = "An_Importe",
     .texts = advance_texts},
    {.name = "receivables",
     .title = "Cuentas por cobrar",
     .document = "Cuenta por cobrar",
     .code = document::receivable,
     .select = "Cuenta_x_Cobrar.*, Cl_Descripcion AS Parte",
     .from = "FROM Cuenta_x_Cobrar LEFT JOIN Cliente ON Cliente.Cl_Cve_Cliente = Cuenta_x_Cobrar.Cl_Cve_Cliente",
     .table = "Cuenta_x_Cobrar",
     .key = "Cxc_Folio",
     .order = "Cxc_Folio",
     .columns = receivable_columns,
     .shown = receivables_shown,
     .date = "Cxc_Fecha",
     .state = "Es_Cve_Estado",
     .branch = "Sc_Cve_Sucursal",
     .amount = "Cxc_Precio_Neto_Importe",
     .texts = receivable_texts},
    {.name = "payables",
     .title = "Cuentas por pagar",
     .document = "Cuenta por pagar",
     .code = document::payable,
     .select = "Cuenta_x_Pagar.*, Pv_Descripcion AS Parte",
     .from = "FROM Cuenta_x_Pagar LEFT JOIN Proveedor ON Proveedor.Pv_Cve_Proveedor = Cuenta_x_Pagar.Pv_Cve_Proveedor",
     .table = "Cuenta_x_Pagar",
     .key = "Cxp_Folio",
     .order = "Cxp_Folio",
     .columns = payable_columns,
     .shown = payables_shown,
     .date = "Cxp_Fecha",
     .state = "Es_Cve_Estado",
     .branch = "Sc_Cve_Sucursal",
     .amount = "Cxp_Precio_Neto_Importe",
     .texts = payable_texts},
    {.name = "vouchers",
     .title = "Pólizas",
     .document = "Póliza",
     .code = document::voucher,
     .select = "Poliza.*, "
               "(SELECT SUM(Linea.Pzd_Cargo) FROM Poliza_Detalle Linea "
               "WHERE Linea.Pz_Folio = Poliza.Pz_Folio) AS Importe, "
               "(SELECT COUNT(*) FROM Poliza_Detalle Linea WHERE Linea.Pz_Folio = Poliza.Pz_Folio) AS Renglones",
     .from = "FROM Poliza",
     .table = "Poliza",
     .key = "Pz_Folio",
     .order = "Poliza.Pz_Folio",
     .columns = voucher_columns,
     .date = "Pz_Fecha",
     .state = "Es_Cve_Estado",
     .amount = "Importe",
     .texts = voucher_texts},
};

constexpr View line_views[] = {
    {.name = "receipts",
     .title = "Recibos de caja",
     .select = "Recibo_Pago.*",
     .from = "FROM Recibo_Pago",
     .table = "Recibo_Pago",
     .key = "Rp_Folio",
     .order = "Rp_Folio, Rp_Id",
     .columns = receipt_line_columns,
     .shown = std::size(receipt_line_columns)},
    {.name = "deposits",
     .title = "Depósitos",
     .select = "Deposito_Pago.*",
     .from = "FROM Deposito_Pago",
     .table = "Deposito_Pago",
     .key = "Dp_Folio",
     .order = "Dp_Folio, Dp_Id",
     .columns = deposit_line_columns,
     .shown = std::size(deposit_line_columns)},
    {.name = "checks",
     .title = "Renglones de cheques",
     .select = "Cheque_x_Aplicar.*",
     .from = "FROM Cheque_x_Aplicar",
     .table = "Cheque_x_Aplicar",
     .key = "Ch_Folio",
     .order = "Ch_Folio, Cxa_ID",
     .columns = check_line_columns},
    {.name = "requests",
     .title = "Renglones de solicitudes",
     .select = "Solicitud_Cheque_Detalle.*",
     .from = "FROM Solicitud_Cheque_Detalle",
     .table = "Solicitud_Cheque_Detalle",
     .key = "Sch_Folio",
     .order = "Sch_Folio, Scd_Id",
     .columns = request_line_columns},
    {.name = "vouchers",
     .title = "Pólizas",
     .select = "Poliza.*, Pzd_ID, Pzd_Cuenta_Contable, Pzd_Concepto, Pzd_Cargo, Pzd_Abono",
     .from = "FROM Poliza LEFT JOIN Poliza_Detalle ON Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio",
     .table = "Poliza",
     .key = "Pz_Folio",
     .order = "Poliza.Pz_Folio, Pzd_ID",
     .columns = voucher_line_columns,
     .shown = std::size(voucher_line_columns)},
};

const View* named(std::span<const View> all, std::string_view name) {
    const auto found = std::find_if(all.begin(), all.end(), [&](const View& view) { return view.name == name; });
    return found == all.end() ? nullptr : &*found;
}

}  // namespace

const View* find_view(std::string_view name) {
    return named(views, name);
}

const View* find_line_view(std::string_view name) {
    return named(line_views, name);
}

const View* find_view_of_code(std::string_view code) {
    if (code.empty()) return nullptr;
    const auto* const found =
        std::find_if(std::begin(views), std::end(views), [&](const View& view) { return same_text(view.code, code); });
    return found == std::end(views) ? nullptr : found;
}

std::vector<const View*> shown_views() {
    std::vector<const View*> shown;
    for (const View& view : views) shown.push_back(view.shown > 0 ? &view : find_line_view(view.name));
    return shown;
}

Table read_view(const Source& source, const View& view, std::string_view key) {
    std::string statement = "SELECT ";
    statement.append(view.select).append(" ").append(view.from);
    if (!key.empty()) {
        statement.append(" WHERE ").append(view.qualified(view.key)).append(" = ").append(sql_quoted(key));
    }
    statement.append(" ORDER BY ").append(view.order);
    const Columns columns = view.shown > 0 ? view.columns.first(view.shown) : view.columns;
    return {columns, read_rows(*source.connection.execute(statement), columns)};
}

}  // namespace cuvexa::reports
