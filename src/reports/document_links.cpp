#include "reports/document_links.h"

#include <algorithm>
#include <iterator>

#include "core/text.h"

namespace cuvexa::reports {

namespace {

// What was withdrawn carries the code with "-CA:" and its own folio behind it.

constexpr Relation of_receipts[] = {
    {"Depósito", "deposits",
     "Deposito_Pago.Dp_Folio IN (SELECT Rp_Folio_Deposito FROM Recibo_Pago WHERE Rp_Folio = {})"},
    {"Movimiento", "movements",
     "Banco_Movimiento.Bm_Tabla = 'DEPOSITO_PAGO' AND "
     "Banco_Movimiento.Bm_Documento IN (SELECT Rp_Folio_Deposito FROM Recibo_Pago WHERE Rp_Folio = {}) AND "
     "EXISTS (SELECT Linea.Rp_Id FROM Recibo_Pago Linea WHERE Linea.Rp_Folio = {} AND "
     "Linea.Rp_Folio_Deposito = Banco_Movimiento.Bm_Documento AND "
     "Linea.Rp_Deposito_ID = Banco_Movimiento.Bm_Documento_ID)"},
    {"Anticipo", "advances", "Anticipo_Cxc.An_Documento = {} AND Anticipo_Cxc.An_Tabla = 'RECIBO_PAGO'"},
    {"Cuenta por cobrar", "receivables",
     "Cuenta_x_Cobrar.Cxc_Documento = {} AND "
     "(Cuenta_x_Cobrar.Cxc_Tabla = 'RECIBO_PAGO' OR Cuenta_x_Cobrar.Cxc_Tabla LIKE 'RECIBO_PAGO-CA:%')"},
    {"Cuenta por cobrar pagada", "receivables",
     "Cuenta_x_Cobrar.Cxc_Folio IN (SELECT Pago_Cxc.Cxc_Folio FROM Pago_Cxc "
     "WHERE Pago_Cxc.Pc_Documento = {} AND Pago_Cxc.Pc_Tabla = 'RECIBO_PAGO')"},
    {"Cuenta por pagar", "payables",
     "Cuenta_x_Pagar.Cxp_Documento = {} AND "
     "(Cuenta_x_Pagar.Cxp_Tabla = 'RECIBO_PAGO' OR Cuenta_x_Pagar.Cxp_Tabla LIKE 'RECIBO_PAGO-CA:%')"},
    {"Póliza", "vouchers", "Poliza.Pz_Documento = {} AND Poliza.Pz_Tabla = 'RECIBO_PAGO'"},
};

constexpr Relation of_deposits[] = {
    {"Recibo", "receipts",
     "Recibo_Pago.Rp_Folio IN (SELECT Depositado.Rp_Folio FROM Recibo_Pago Depositado "
     "WHERE Depositado.Rp_Folio_Deposito = {})"},
    {"Movimiento", "movements", "Banco_Movimiento.Bm_Documento = {} AND Banco_Movimiento.Bm_Tabla = 'DEPOSITO_PAGO'"},
    {"Póliza", "vouchers", "Poliza.Pz_Documento = {} AND Poliza.Pz_Tabla = 'DEPOSITO_PAGO'"},
    {"Póliza de un movimiento", "vouchers",
     "Poliza.Pz_Tabla = 'BANCO_MOVIMIENTO' AND Poliza.Pz_Documento IN (SELECT Bm_Folio FROM Banco_Movimiento "
     "WHERE Bm_Documento = {} AND Bm_Tabla = 'DEPOSITO_PAGO')"},
};

constexpr Relation of_checks[] = {
    {"Movimiento", "movements", "Banco_Movimiento.Bm_Documento = {} AND Banco_Movimiento.Bm_Tabla = 'CHEQUE'"},
    {"Cuenta por pagar de un renglón", "payables",
     "Cuenta_x_Pagar.Cxp_Folio IN (SELECT Cheque_x_Aplicar.Cxp_Folio FROM Cheque_x_Aplicar "
     "WHERE Cheque_x_Aplicar.Ch_Folio = {})"},
    {"Anticipo a proveedor", "payables",
     "Cuenta_x_Pagar.Cxp_Documento IN (SELECT Cheque_x_Aplicar.Cxp_Folio FROM Cheque_x_Aplicar "
     "WHERE Cheque_x_Aplicar.Ch_Folio = {}) AND Cuenta_x_Pagar.Cxp_Tabla LIKE 'ANTICIPO_CXP%'"},
    {"Cuenta por pagar", "payables",
     "Cuenta_x_Pagar.Cxp_Documento = {} AND "
     "(Cuenta_x_Pagar.Cxp_Tabla = 'CHEQUE' OR Cuenta_x_Pagar.Cxp_Tabla LIKE 'CHEQUE-CA:%')"},
    {"Cuenta por pagar pagada", "payables",
     "Cuenta_x_Pagar.Cxp_Folio IN (SELECT Pago_Cxp.Cxp_Folio FROM Pago_Cxp "
     "WHERE Pago_Cxp.Pc_Documento = {} AND Pago_Cxp.Pc_Tabla = 'CHEQUE')"},
    {"Cuenta por cobrar", "receivables",
     "Cuenta_x_Cobrar.Cxc_Documento = {} AND "
     "(Cuenta_x_Cobrar.Cxc_Tabla = 'CHEQUE' OR Cuenta_x_Cobrar.Cxc_Tabla LIKE 'CHEQUE-CA:%')"},
    {"Cuenta por cobrar del gasto", "receivables",
     "Cuenta_x_Cobrar.Cxc_Documento IN (SELECT Gc_Folio FROM Gasto_x_Comprobar "
     "WHERE Gc_Documento = {} AND Gc_Tabla = 'CHEQUE') AND Cuenta_x_Cobrar.Cxc_Tabla LIKE 'GASTO_X_COMPROBAR%'"},
    {"Cuenta por cobrar pagada", "receivables",
     "Cuenta_x_Cobrar.Cxc_Folio IN (SELECT Pago_Cxc.Cxc_Folio FROM Pago_Cxc "
     "WHERE Pago_Cxc.Pc_Documento = {} AND Pago_Cxc.Pc_Tabla = 'CHEQUE')"},
    {"Póliza", "vouchers", "Poliza.Pz_Documento = {} AND Poliza.Pz_Tabla = 'CHEQUE'"},
    {"Póliza de un movimiento", "vouchers",
     "Poliza.Pz_Tabla = 'BANCO_MOVIMIENTO' AND Poliza.Pz_Documento IN (SELECT Bm_Folio FROM Banco_Movimiento "
     "WHERE Bm_Documento = {} AND Bm_Tabla = 'CHEQUE')"},
};

constexpr Relation of_requests[] = {
    {"Cheque", "checks", "Cheque.Ch_Documento = {} AND Cheque.Ch_Tabla = 'SOLICITUD_CHEQUE'"},
    {"Cuenta por pagar solicitada", "payables",
     "Cuenta_x_Pagar.Cxp_Folio IN (SELECT Scd_Documento FROM Solicitud_Cheque_Detalle "
     "WHERE Solicitud_Cheque_Detalle.Sch_Folio = {} AND Scd_Tabla = 'CUENTA_X_PAGAR')"},
    {"Cuenta por pagar del documento", "payables",
     "Cuenta_x_Pagar.Cxp_Documento IN (SELECT Scd_Documento FROM Solicitud_Cheque_Detalle "
     "WHERE Solicitud_Cheque_Detalle.Sch_Folio = {}) AND "
     "EXISTS (SELECT Scd_Id FROM Solicitud_Cheque_Detalle WHERE Solicitud_Cheque_Detalle.Sch_Folio = {} AND "
     "Scd_Documento = Cuenta_x_Pagar.Cxp_Documento AND Scd_Tabla = Cuenta_x_Pagar.Cxp_Tabla)"},
};

constexpr Relation of_movements[] = {
    {"Póliza", "vouchers", "Poliza.Pz_Documento = {} AND Poliza.Pz_Tabla = 'BANCO_MOVIMIENTO'"},
};

constexpr Relation of_advances[] = {
    {"Cuenta por cobrar", "receivables",
     "Cuenta_x_Cobrar.Cxc_Documento = {} AND Cuenta_x_Cobrar.Cxc_Tabla LIKE 'ANTICIPO_CXC%'"},
    {"Cuenta por cobrar pagada", "receivables",
     "Cuenta_x_Cobrar.Cxc_Folio IN (SELECT Pago_Cxc.Cxc_Folio FROM Pago_Cxc "
     "WHERE Pago_Cxc.Pc_Documento = {} AND Pago_Cxc.Pc_Tabla = 'ANTICIPO_CXC')"},
    {"Póliza", "vouchers", "Poliza.Pz_Documento = {} AND Poliza.Pz_Tabla = 'ANTICIPO_CXC'"},
};

constexpr Relation of_receivables[] = {
    {"Cheque del gasto", "checks",
     "Cheque.Ch_Folio IN (SELECT Gc_Documento FROM Gasto_x_Comprobar WHERE Gc_Tabla = 'CHEQUE' AND "
     "Gc_Folio IN (SELECT Cxc_Documento FROM Cuenta_x_Cobrar "
     "WHERE Cuenta_x_Cobrar.Cxc_Folio = {} AND Cxc_Tabla LIKE 'GASTO_X_COMPROBAR%'))"},
    {"Póliza", "vouchers", "Poliza.Pz_Documento = {} AND Poliza.Pz_Tabla = 'CUENTA_X_COBRAR'"},
};

constexpr Relation of_payables[] = {
    {"Cheque", "checks",
     "Cheque.Ch_Folio IN (SELECT Cheque_x_Aplicar.Ch_Folio FROM Cheque_x_Aplicar "
     "WHERE Cheque_x_Aplicar.Cxp_Folio = {})"},
    {"Cheque del anticipo", "checks",
     "Cheque.Ch_Folio IN (SELECT Cheque_x_Aplicar.Ch_Folio FROM Cheque_x_Aplicar "
     "WHERE Cheque_x_Aplicar.Cxp_Folio IN (SELECT Cxp_Documento FROM Cuenta_x_Pagar "
     "WHERE Cuenta_x_Pagar.Cxp_Folio = {} AND Cxp_Tabla LIKE 'ANTICIPO_CXP%'))"},
    {"Solicitud de cheque", "requests",
     "Solicitud_Cheque.Sch_Folio IN (SELECT Linea.Sch_Folio FROM Solicitud_Cheque_Detalle Linea "
     "WHERE Linea.Scd_Documento = {} AND Linea.Scd_Tabla = 'CUENTA_X_PAGAR')"},
    {"Solicitud de cheque", "requests",
     "Solicitud_Cheque.Sch_Folio IN (SELECT Linea.Sch_Folio FROM Cuenta_x_Pagar "
     "INNER JOIN Solicitud_Cheque_Detalle Linea ON Linea.Scd_Documento = Cuenta_x_Pagar.Cxp_Documento AND "
     "Linea.Scd_Tabla = Cuenta_x_Pagar.Cxp_Tabla WHERE Cuenta_x_Pagar.Cxp_Folio = {})"},
    {"Póliza", "vouchers", "Poliza.Pz_Documento = {} AND Poliza.Pz_Tabla = 'CUENTA_X_PAGAR'"},
};

constexpr Event_source events_of_receipts[] = {
    {"Depósito", "deposits",
     "SELECT Deposito_Pago.Oper_Alta AS Quien, Deposito_Pago.Fecha_Alta AS Cuando, "
     "MIN(CASE WHEN Recibo_Pago.Es_Cve_Estado IN ('DP', 'AD') THEN Recibo_Pago.Es_Cve_Estado ELSE '' END) AS Estado, "
     "Deposito_Pago.Dp_Folio AS Folio "
     "FROM Recibo_Pago "
     "INNER JOIN Deposito_Pago ON Deposito_Pago.Dp_Folio = Recibo_Pago.Rp_Folio_Deposito AND "
     "Deposito_Pago.Dp_Id = Recibo_Pago.Rp_Deposito_ID "
     "WHERE Recibo_Pago.Rp_Folio = {} "
     "GROUP BY Deposito_Pago.Dp_Folio, Deposito_Pago.Oper_Alta, Deposito_Pago.Fecha_Alta"},
};

constexpr Event_source events_of_checks[] = {
    {"Movimiento bancario", "movements",
     "SELECT Oper_Alta AS Quien, Fecha_Alta AS Cuando, '' AS Estado, Bm_Folio AS Folio FROM Banco_Movimiento "
     "WHERE Bm_Documento = {} AND Bm_Tabla = 'CHEQUE' ORDER BY Bm_Folio"},
};

constexpr Event_source events_of_requests[] = {
    {"Cheque", "checks",
     "SELECT Oper_Alta AS Quien, Fecha_Alta AS Cuando, '' AS Estado, Ch_Folio AS Folio FROM Cheque "
     "WHERE Ch_Documento = {} AND Ch_Tabla = 'SOLICITUD_CHEQUE' ORDER BY Ch_Folio"},
};

constexpr Event_source events_of_receivables[] = {
    {"Pago", "",
     "SELECT TOP 1000 Oper_Alta AS Quien, Fecha_Alta AS Cuando, '' AS Estado, '' AS Folio FROM Pago_Cxc "
     "WHERE Cxc_Folio = {} ORDER BY Pc_ID"},
};

constexpr Event_source events_of_payables[] = {
    {"Pago", "",
     "SELECT TOP 1000 Oper_Alta AS Quien, Fecha_Alta AS Cuando, '' AS Estado, '' AS Folio FROM Pago_Cxp "
     "WHERE Cxp_Folio = {} ORDER BY Pc_ID"},
};

constexpr Document_links all_links[] = {
    {.view = "receipts",
     .named = {"Rp_Tabla", "Rp_Documento"},
     .initial_state = "AC",
     .registered_state = "AP",
     .relations = of_receipts,
     .events = events_of_receipts},
    {.view = "deposits", .initial_state = "AC", .relations = of_deposits},
    {.view = "checks",
     .named = {"Ch_Tabla", "Ch_Documento"},
     .initial_state = "AC",
     .relations = of_checks,
     .events = events_of_checks},
    {.view = "requests",
     .named = {"Sch_Tabla", "Sch_Documento"},
     .relations = of_requests,
     .events = events_of_requests},
    {.view = "movements", .named = {"Bm_Tabla", "Bm_Documento"}, .relations = of_movements},
    {.view = "vouchers", .named = {"Pz_Tabla", "Pz_Documento"}, .initial_state = "AC"},
    {.view = "receivables",
     .named = {"Cxc_Tabla", "Cxc_Documento"},
     .initial_state = "AC",
     .paid_where = "Cxc_Folio = {}",
     .relations = of_receivables,
     .events = events_of_receivables},
    {.view = "payables",
     .named = {"Cxp_Tabla", "Cxp_Documento"},
     .initial_state = "AC",
     .paid_where = "Cxp_Folio = {}",
     .relations = of_payables,
     .events = events_of_payables},
    {.view = "advances", .named = {"An_Tabla", "An_Documento"}, .initial_state = "AC", .relations = of_advances},
};

}  // namespace

const Document_links& links_of(std::string_view view) {
    return *std::find_if(std::begin(all_links), std::end(all_links),
                         [&](const Document_links& links) { return links.view == view; });
}

std::string with_folio(std::string_view text, std::string_view folio) {
    const std::string literal = sql_quoted(folio);
    std::string result;
    std::size_t from = 0;
    for (std::size_t at; (at = text.find("{}", from)) != std::string_view::npos; from = at + 2) {
        result.append(text, from, at - from).append(literal);
    }
    return result.append(text, from);
}

}  // namespace cuvexa::reports
