// Checks and transfers: one of each purpose, one held back by its budget, two applied.
#include "cli/demo.h"
#include "core/text.h"

namespace cuvexa::cli {

namespace {

using enum Column_kind;

constexpr Column check_columns[] = {
    {"Ch_Folio", "Cheque"},
    {"Tc_Descripcion", "Tipo"},
    {"Ch_Beneficiario", "Beneficiario"},
    {"Ch_Importe", "Importe", amount},
    {"Ch_Aplicar", "Aplicado"},
    {"Ch_Firme", "Firme"},
    {"Es_Cve_Estado", "Estado"},
};
constexpr Column movement_columns[] = {
    {"Bm_Folio", "Movimiento"},        {"Bc_Cve_Banco_Cuenta", "Cuenta"},    {"Bm_Documento", "Cheque"},
    {"Bm_Importe", "Importe", amount}, {"Bm_Fecha_Firme", "En firme", date}, {"Es_Cve_Estado", "Estado"},
};
constexpr Column payable_columns[] = {
    {"Cxp_Folio", "Cuenta x pagar"},
    {"Cxp_Tabla", "Documento"},
    {"Cxp_Precio_Neto_Importe", "Importe", amount},
    {"Cxp_Precio_Neto_Pago", "Pagos", amount},
    {"Cxp_Precio_Neto_Saldo", "Saldo", amount},
};

/// What a check is for: its type, who gets it and why.
struct Purpose {
    std::string type;
    std::string beneficiary_key;
    std::string beneficiary;
    std::string concept_text;
};

std::string in_list(const std::vector<std::string>& folios) {
    std::string list;
    for (const std::string& folio : folios) list += (list.empty() ? "" : ", ") + sql_quoted(folio);
    return list;
}

/// A reference that no check of this database has.
std::string next_reference(Stage& stage) {
    const auto rows = stage.connection().execute("SELECT COUNT(*) AS Cheques FROM Cheque");
    return number_text(2001 + to_number(rows->field("Cheques")));
}

void begin_check(Stage& stage, const Purpose& purpose, const std::string& transfer = "NO") {
    tTsEncabezado header;
    header.Ch_Fecha = stage.today();
    header.Tc_Cve_Tipo_Cheque = purpose.type;
    header.Ch_Transferencia = transfer;
    header.Ch_Referencia = next_reference(stage);
    header.Ch_Concepto = purpose.concept_text;
    header.Ch_Beneficiario = purpose.beneficiary;
    header.Ch_Solicitar_Valor = purpose.beneficiary_key;
    header.Bc_Cve_Banco_Cuenta = "SRR-MXN";
    if (transfer == "SI") header.Bc_Cve_Banco_Cuenta2 = "PTO-MXN";
    header.Mn_Cve_Moneda = "MXN";
    header.Ch_Tipo_Cambio = 1;
    header.Sucursal.Sc_Cve_Sucursal = "MTY";
    stage.call("Nuevo");
    stage.let("Encabezado", header, stage.shown_check);
    stage.shown_check = header;
}

void set_line(Stage& stage, const std::string& concept_text, double amount_paid, const std::string& document = {}) {
    tTsDetalle line;
    line.Ch_Concepto = concept_text;
    line.Cxp_Folio = document;
    line.Mn_Cve_Moneda = "MXN";
    line.Ch_Tipo_Cambio = 1;
    line.Ch_Importe = amount_paid;
    stage.let("Detalle", line);
}

void add_line(Stage& stage, const std::string& concept_text, double amount_paid, const std::string& document = {}) {
    set_line(stage, concept_text, amount_paid, document);
    stage.call("Add_Cheque_Detalle");
}

std::string check_in_capture(Stage& stage) {
    return stage.peek("Encabezado.Ch_Folio");
}

void keep_check(Stage& stage) {
    stage.checks.push_back(check_in_capture(stage));
}

void pay_supplier(Stage& stage) {
    stage.say("Pago a proveedor: dos líneas, cada una paga parte de una cuenta por pagar.");
    begin_check(stage, {"0001", "PV01", "Aceros del Bajío", "Pago de facturas"});
    add_line(stage, "Factura A-1001", 1000, "CXP-MTY-00000001");
    add_line(stage, "Factura A-1002", 500, "CXP-MTY-00000002");
    stage.call("Crear_Cheque_Pago_Proveedor", {check_in_capture(stage)});
    keep_check(stage);
}

void advance_to_supplier(Stage& stage) {
    stage.say("Anticipo a proveedor: de una línea; pasa por su presupuesto.");
    begin_check(stage, {"0005", "PV01", "Aceros del Bajío", "Anticipo de lámina"});
    set_line(stage, "Anticipo", 600);
    stage.call("Crear_Cheque_Anticipo_Cxp");
    keep_check(stage);
}

void expense_to_justify(Stage& stage) {
    stage.say("Gasto por comprobar: crea además el gasto que el deudor comprobará.");
    begin_check(stage, {"0002", "DE01", "Laura Méndez", "Viáticos"});
    set_line(stage, "Viáticos", 400);
    stage.call("Crear_Cheque_Gasto_x_Comprobar");
    keep_check(stage);
}

void loan_to_debtor(Stage& stage) {
    stage.say("Préstamo a deudor.");
    begin_check(stage, {"0004", "DE01", "Laura Méndez", "Préstamo personal"});
    set_line(stage, "Préstamo", 300);
    stage.call("Crear_Cheque_Deudor");
    keep_check(stage);
}

void refund_to_customer(Stage& stage) {
    stage.say("Devolución a cliente, y devolución de un anticipo suyo.");
    begin_check(stage, {"0003", "CL01", "Constructora Peña Alta", "Devolución de mercancía"});
    add_line(stage, "Devolución", 200);
    stage.call("Crear_Cheque_Devolucion_Cliente");
    keep_check(stage);

    begin_check(stage, {"0003", "CL01", "Constructora Peña Alta", "Devolución de anticipo"});
    add_line(stage, "Anticipo", 100);
    stage.call("Crear_Cheque_Devolucion_Anticipo", {check_in_capture(stage)});
    keep_check(stage);
}

void move_money(Stage& stage, const std::string& type, const std::string& account, double amount_moved) {
    tBnMovimiento movement;
    movement.Bt_Cve_Banco_Tipo_Movimiento = type;
    movement.Bm_Fecha = movement.Bm_Fecha_Firme = stage.today();
    movement.Bm_Tabla = "CHEQUE";
    movement.Bm_Documento = check_in_capture(stage);
    movement.Bm_Comentario = "Traspaso";
    movement.Cuenta.Bc_Cve_Banco_Cuenta = account;
    movement.Bm_Importe = amount_moved;
    movement.Bm_Tipo_Cambio = 1;
    movement.EnFirme = true;
    stage.call("Registra_Movimiento_Banco", {stage.variable("Datos", movement)});
}

void transfer_between_accounts(Stage& stage) {
    stage.say("Traspaso entre cuentas propias: el documento no mueve saldos; los dos movimientos se registran aparte.");
    begin_check(stage, {"0000", "", "Comercializadora Río Claro", "Fondeo de nómina"}, "SI");
    add_line(stage, "Traspaso", 900);
    stage.call("Crear_Traspaso_Cuenta_Propia");
    move_money(stage, "TRF", "SRR-MXN", 900);
    move_money(stage, "DEP", "PTO-MXN", 900);
    keep_check(stage);
}

std::string checks_select(const std::string& condition) {
    return "SELECT Cheque.*, Tc_Descripcion FROM Cheque "
           "INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
           "WHERE " +
           condition + " ORDER BY Ch_Folio";
}

void show_checks(Stage& stage) {
    stage.rows("Cheque", checks_select("Ch_Folio IN (" + in_list(stage.checks) + ")"), check_columns);
}

void show_movements(Stage& stage) {
    stage.rows("Banco_Movimiento",
               "SELECT * FROM Banco_Movimiento WHERE Bm_Tabla = 'CHEQUE' AND Bm_Documento IN (" +
                   in_list(stage.checks) + ") ORDER BY Bm_Folio",
               movement_columns);
}

void show_payables(Stage& stage) {
    stage.rows("Cuenta_x_Pagar", "SELECT * FROM Cuenta_x_Pagar WHERE Pv_Cve_Proveedor = 'PV01' ORDER BY Cxp_Folio",
               payable_columns);
}

}  // namespace

void check_chapter(Stage& stage) {
    stage.chapter("Cheques y transferencias: uno de cada propósito",
                  "El encabezado y cada línea se dejan en propiedades; la operación que crea el cheque dice para qué "
                  "es. Cada cheque\n"
                  "registra su movimiento, en tránsito (TR) hasta que se aplica.");
    pay_supplier(stage);
    advance_to_supplier(stage);
    expense_to_justify(stage);
    loan_to_debtor(stage);
    refund_to_customer(stage);
    transfer_between_accounts(stage);
    show_checks(stage);
    show_movements(stage);
    stage.balances();
}

void budget_chapter(Stage& stage) {
    stage.chapter("Presupuesto: un cheque que espera autorización",
                  "Los anticipos a PV01 tienen un presupuesto de 10000.00 al mes. El que lo excede queda en PXA: sin "
                  "movimiento, y no\n"
                  "se puede aplicar.");
    begin_check(stage, {"0005", "PV01", "Aceros del Bajío", "Anticipo de varilla"});
    set_line(stage, "Anticipo", 15000);
    stage.call("Crear_Cheque_Anticipo_Cxp");
    const std::string folio = check_in_capture(stage);
    stage.rows("Cheque", checks_select("Ch_Folio = " + sql_quoted(folio)), check_columns);
    keep_check(stage);
    stage.refused_call("Aplicar_Cheque", {folio, stage.today()});
    stage.balances();
}

void application_chapter(Stage& stage) {
    stage.chapter("Aplicación: el cheque surte efecto",
                  "El pago a proveedor se aplica en firme: sus líneas pagan las cuentas por pagar y el movimiento "
                  "queda firme (FI). El\n"
                  "anticipo se aplica en tránsito y crea la cuenta por pagar, a favor, que las facturas consumirán.");
    const std::string& payment = stage.checks.at(0);
    const std::string& advance = stage.checks.at(1);
    stage.call("Aplicar_Cheque", {payment, stage.today(), true});
    stage.call("Finalizar_Cheque", {payment});
    stage.call("Aplicar_Cheque", {advance, stage.today()});
    show_payables(stage);
    show_checks(stage);
    show_movements(stage);
}

void way_back_chapter(Stage& stage) {
    stage.chapter(
        "De regreso: todo se cancela",
        "Cada cancelación deshace en orden inverso lo que su documento movió. Ningún renglón se borra: queda en CA.");
    for (auto check = stage.checks.rbegin(); check != stage.checks.rend(); ++check) {
        stage.call("Cancelar_Cheque", {*check});
    }
    stage.say(
        "El recibo está depositado y aplicado: los dos últimos argumentos permiten cancelar también el depósito y los "
        "pagos.");
    stage.call("Cancelar_Recibo_Caja", {stage.receipt, true, true});
    show_checks(stage);
    show_payables(stage);
    stage.balances();
    stage.require_first_balances();
    stage.say("Todos los saldos son los del principio.");
    stage.audit();
}

}  // namespace cuvexa::cli
