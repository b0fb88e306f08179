// Application of an issued check: what each line stands for happens, and the movement is confirmed.
#include "core/codes.h"
#include "core/due_date.h"
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

constexpr auto source_table = "Cheque";

/// One open line with its check, the check's type, account and bank. A column is converted when a step uses it.
class Line {
public:
    explicit Line(const Rows& row) : row_(row) {}

    std::string id() const { return row_.text("Cxa_ID"); }
    std::string check_folio() const { return row_.text("Ch_Folio"); }
    std::string check_number() const { return row_.text("Ch_Cheque"); }
    std::string document() const { return row_.text("Cxp_Folio"); }  ///< payable or expense that the line pays
    double amount() const { return row_.number("Cxa_Importe"); }
    std::string currency() const { return row_.text("Cxa_Moneda"); }
    double rate() const { return row_.number("Cxa_Tipo_Cambio"); }
    Date date() const { return row_.date("Ch_Fecha"); }
    std::string beneficiary() const { return row_.text("Ch_Solicitar_Valor"); }
    std::string asks_for() const { return row_.text("Tc_Solicitar"); }
    bool pays_supplier() const { return row_.text("Tc_Proveedor_Pago") == "SI"; }
    std::string transfer() const { return row_.text("Ch_Transferencia"); }
    double check_rate() const { return row_.number("Ch_Tipo_Cambio"); }
    std::string branch() const { return row_.text("Sc_Cve_Sucursal"); }
    std::string concept_text() const { return row_.text("Ch_Concepto"); }
    std::string reference() const { return row_.text("Ch_Referencia"); }
    double check_amount() const { return row_.number("Ch_Importe"); }
    std::string account_currency() const { return row_.text("Mn_Cve_Moneda"); }
    std::string account() const { return row_.text("Bc_Cve_Banco_Cuenta"); }
    std::string account_number() const { return row_.text("Bc_Cuenta"); }
    std::string bank() const { return row_.text("Bn_Cve_Banco"); }
    std::string bank_name() const { return row_.text("Bn_Descripcion"); }

private:
    const Rows& row_;
};

void check_applicable(Operation& op, const std::string& folio) {
    const Rows check = op.query("SELECT * FROM Cheque WHERE Ch_Folio = '{}' ", folio);
    op.refuse_if(check.eof(), "No se encontró el cheque o transferencia especificados");
    const std::string state = check.text("Es_Cve_Estado");
    op.refuse_if(state != state::active, "Imposible aplicar un cheque con estado: {}", state);
}

Rows read_open_lines(Operation& op, const std::string& folio) {
    Rows lines = op.query(
        "SELECT "
        "   Cheque_x_Aplicar.Ch_Folio, "
        "   Cheque_x_Aplicar.Cxa_ID, "
        "   Cheque_x_Aplicar.Ch_Cheque, "
        "   Cheque_x_Aplicar.Cxp_Folio, "
        "   Cheque_x_Aplicar.Cxa_Importe, "
        "   Cheque_x_Aplicar.Mn_Cve_Moneda as Cxa_Moneda, "
        "   Cheque_x_Aplicar.Cxa_Tipo_Cambio, "
        "   Cheque.Ch_Fecha, "
        "   Cheque.Tc_Cve_Tipo_Cheque, "
        "   Cheque.Ch_Solicitar_Valor, "
        "   Tipo_Cheque.Tc_Solicitar, "
        "   Tipo_Cheque.Tc_Proveedor_Pago, "
        "   Cheque.Ch_Transferencia, "
        "   Cheque.Ch_Tipo_Cambio, "
        "   Cheque.Ch_Documento, "
        "   Cheque.Sc_Cve_Sucursal, "
        "   Cheque.Ch_Concepto, "
        "   Cheque.Ch_Referencia, "
        "   Cheque.Ch_Importe, "
        "   Banco_Cuenta.Mn_Cve_Moneda, "
        "   Banco_Cuenta.Bc_Cve_Banco_Cuenta, "
        "   Banco_Cuenta.Bc_Cuenta, "
        "   Banco.Bn_Cve_Banco, "
        "   Banco.Bn_Descripcion "
        "FROM Cheque_x_Aplicar "
        "   INNER JOIN Cheque ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio "
        "   INNER JOIN Tipo_Cheque ON Tipo_Cheque.Tc_Cve_Tipo_Cheque = Cheque.Tc_Cve_Tipo_Cheque "
        "   INNER JOIN Banco_Cuenta ON Banco_Cuenta.Bc_Cve_Banco_Cuenta = Cheque.Bc_Cve_Banco_Cuenta "
        "   INNER JOIN Banco ON Banco.Bn_Cve_Banco = Banco_Cuenta.Bn_Cve_Banco "
        "WHERE "
        "   Cheque_x_Aplicar.Ch_Folio = '{}' AND "
        "   Cheque_x_Aplicar.Es_Cve_Estado = 'AC' "
        "ORDER BY Cheque_x_Aplicar.Cxa_ID ",
        folio);
    op.refuse_if(lines.eof(), "No se encontró el detalle del cheque:{}", folio);
    return lines;
}

/// "01". The payment method of the check's kind must be configured even when nothing is paid.
void pay_supplier(Operation& op, const Line& line, Date date) {
    const Cached_parameters& parameters = op.module().parameters();
    const bool no_method = (line.transfer() == "NO" && parameters.TES_FORMA_PAGO_CHEQUE.empty()) ||
                           (line.transfer() == "SI" && parameters.TES_FORMA_PAGO_TRANSFERENCIA.empty());
    op.refuse_if(no_method, "No se encontró la forma de pago del documento");
    if (!line.pays_supplier()) return;

    const auto payables = op.module().suite().new_accounts_payable();
    const Payment_line payment{.date = to_date(Value(op.data().SqlDate(date))),
                               .payable_folio = line.document(),
                               .check_folio = line.check_folio(),
                               .check_number = line.check_number(),
                               .payment_method = line.transfer() == "NO" ? parameters.TES_FORMA_PAGO_CHEQUE
                                                                         : parameters.TES_FORMA_PAGO_TRANSFERENCIA,
                               .amount = line.amount(),
                               .exchange_rate = line.rate(),
                               .currency = line.currency(),
                               .bank_name = line.bank_name(),
                               .bank_account_number = line.account_number(),
                               .bank = line.bank()};
    op.relay_unless(payables->AddPaymentLine(payment), *payables);
    op.relay_unless(payables->ApplyPayments(), *payables);
}

/// "02", first half: the expense to be justified becomes a receivable of the debtor.
void charge_expense(Operation& op, const Line& line) {
    const auto receivables = op.module().suite().new_accounts_receivable();
    op.relay_unless(receivables->ApplyCustomerDocument(line.document()), *receivables);
}

/// "03" and "04". Once per line, and each time for the whole check.
void charge_customer(Operation& op, const Line& line) {
    const char* const condition = line.asks_for() == check_purpose::debtor_loan ? "Tc_Cve_Tipo_Cliente = 'DE'" : "";
    const Receivable receivable{
        .branch = line.branch(),
        .customer = line.beneficiary(),
        .exchange_rate = line.check_rate(),
        .currency = line.account_currency(),
        .source_table = source_table,
        .source_document = line.check_folio(),
        .comment = line.concept_text(),
        .reference = line.reference(),
        .date = line.date(),
        .due_date = customer_due_date(op, line.date(), line.beneficiary(), "CLIENTE", condition),
        .amount = line.check_amount(),
        .net_amount = line.check_amount(),
        .net_price_amount = line.check_amount(),
        .balance = line.check_amount()};
    const auto receivables = op.module().suite().new_accounts_receivable();
    op.relay_unless(receivables->CreateReceivable(receivable), *receivables);
}

/// "05". Gives the folio of the new payable.
std::string create_supplier_advance(Operation& op, const Line& line) {
    const Supplier_advance advance{.date = line.date(),
                                   .reference = line.reference(),
                                   .check_folio = line.check_folio(),
                                   .currency = line.currency(),
                                   .exchange_rate = line.rate(),
                                   .branch = line.branch(),
                                   .supplier = line.beneficiary(),
                                   .amount = line.check_amount(),
                                   .concept_text = line.concept_text(),
                                   .bank_account = line.account()};
    const auto payables = op.module().suite().new_accounts_payable();
    std::string payable;
    op.relay_unless(payables->CreateSupplierAdvance(advance, payable), *payables);
    return payable;
}

/// What the updates of one application have in common.
struct Marking {
    std::string folio, user, stamp;
    std::string date;  ///< application date, as the database reads it
    bool firm;
};

void mark_line(Operation& op, const Marking& by, const std::string& line_id, const std::string& new_payable) {
    const Part payable = new_payable.empty() ? Part() : part("   Cxp_Folio = '{}', ", new_payable);
    op.execute(
        "UPDATE Cheque_x_Aplicar SET "
        "{}"
        "   Es_Cve_Estado = 'AP', "
        "   Cxa_Fecha_Aplicacion = '{}', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE "
        "   Ch_Folio = '{}' AND "
        "   Cxa_ID = '{}' AND "
        "   Es_Cve_Estado <> 'CA'",
        payable, by.date, by.user, by.stamp, by.folio, line_id);
}

/// The check is applied only when none of its lines is left open.
void mark_check(Operation& op, const Marking& by) {
    const Part firm = by.firm ? part("   Ch_Fecha_Firme = '{}',    Ch_Firme = 'SI', ", by.date) : Part();
    op.execute(
        "UPDATE Cheque SET "
        "   Es_Cve_Estado = 'AP', "
        "   Ch_Aplicar = 'SI', "
        "{}"
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE "
        "   Ch_Folio = '{}' AND "
        "   Ch_Folio NOT IN (SELECT Cheque.Ch_Folio "
        "                    FROM Cheque "
        "                       INNER JOIN Cheque_x_Aplicar ON Cheque.Ch_Folio = Cheque_x_Aplicar.Ch_Folio "
        "                    WHERE Cheque_x_Aplicar.Es_Cve_Estado = 'AC' AND Cheque.Ch_Folio = '{}')",
        firm, by.user, by.stamp, by.folio, by.folio);
}

void mark_movement(Operation& op, const Marking& by) {
    op.execute(
        "UPDATE Banco_Movimiento SET "
        "   Es_Cve_Estado = '{}', "
        "   Bm_Fecha_Firme = '{}', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE "
        "   Bm_Documento = '{}' AND "
        "   Bm_Tabla = 'CHEQUE' AND "
        "   Es_Cve_Estado <> 'CA'",
        by.firm ? state::firm : state::in_transit, by.date, by.user, by.stamp, by.folio);
}

}  // namespace

bool Tesoreria::Aplicar_Cheque(const std::string& Ch_Folio, Date Fecha, bool Firme) {
    return operation(module_, error_, "Cuvexa.dll - Aplicar_Cheque()", [&](Operation& op) {
        const std::string stamp = op.server_stamp();
        check_applicable(op, Ch_Folio);
        Rows lines = read_open_lines(op, Ch_Folio);

        const Marking by{Ch_Folio, op.session().GetUserName(), stamp, op.data().SqlDate(Fecha), Firme};
        for (; !lines.eof(); lines.next()) {
            const Line line(lines);
            std::string new_payable;
            if (line.asks_for() == check_purpose::supplier_payment) {
                pay_supplier(op, line, Fecha);
            } else if (line.asks_for() == check_purpose::expense_to_verify) {
                charge_expense(op, line);
                op.relay_unless(Aplicar_Anticipo_Cxc(Ch_Folio, Fecha));
            } else if (line.asks_for() == check_purpose::customer_refund ||
                       line.asks_for() == check_purpose::debtor_loan) {
                charge_customer(op, line);
            } else if (line.asks_for() == check_purpose::supplier_advance) {
                new_payable = create_supplier_advance(op, line);
            }
            mark_line(op, by, line.id(), new_payable);
        }
        mark_check(op, by);
        mark_movement(op, by);
        op.relay_unless(Contabiliza_Banco_Movimiento("", document::check, Ch_Folio));
    });
}

}  // namespace cuvexa
