// Customer advances set against the expense that a check paid, and their way back. A text of the receivables service stands
// alone, without tag: the caller of these routines puts its own before it.
#include <cmath>

#include "core/codes.h"
#include "core/number_text.h"
#include "core/operation.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

/// The amount in whole units of its currency, which is how balances are compared here: less than a unit is tolerated.
double whole_units(double amount) {
    return std::trunc(std::round(amount * 100) / 100);
}

/// The receivable of the expense that the check paid.
struct Expense {
    explicit Expense(const Rows& row)
        : receivable(row.text("Cxc_Folio")), currency(row.text("Mn_Cve_Moneda")), rate(row.number("Cxc_Tipo_Cambio")) {}

    std::string receivable, currency;
    double rate;
};

/// One advance to apply, with the line of the expense that names it: the current row.
class Advance {
public:
    explicit Advance(const Rows& row) : row_(row) {}

    std::string folio() const { return row_.text("An_Folio"); }
    double total() const { return row_.number("An_Importe"); }    ///< of the advance
    double amount() const { return row_.number("Cxc_Importe"); }  ///< to apply of it
    std::string currency() const { return row_.text("Mn_Cve_Moneda"); }
    double rate() const { return row_.number("Cxc_Tipo_Cambio"); }  ///< of the line

private:
    const Rows& row_;
};

Expense read_expense(Operation& op, const std::string& check) {
    const Rows row = op.query(
        "SELECT "
        "   Cxc_Folio, "
        "   Cxc_Precio_Neto_Importe, "
        "   Mn_Cve_Moneda, "
        "   Cxc_Tipo_Cambio "
        "FROM Cuenta_X_Cobrar "
        "WHERE "
        "   Cxc_Tabla = 'GASTO_X_COMPROBAR' AND "
        "   Cxc_Documento IN (SELECT Gc_Folio FROM Gasto_x_Comprobar "
        "      WHERE Gc_Tabla = 'CHEQUE' AND Gc_Documento = '{}') ",
        check);
    op.refuse_if(row.eof(), "No se encontró la cuenta x cobrar del cheque!");
    return Expense(row);
}

Rows read_advances(Operation& op, const std::string& check) {
    Rows rows = op.query(
        "SELECT "
        "   Anticipo_Cxc.*, "
        "   Cuenta_X_Cobrar.Cxc_Precio_Neto_Importe, "
        "   Cuenta_X_Cobrar.Cxc_Precio_Neto_Saldo, "
        "   Cuenta_X_Cobrar.Cxc_Precio_Neto_Pago, "
        "   Gasto_x_Comprobar_Documento.Gcd_ID, "
        "   Gasto_x_Comprobar_Documento.Cxc_Tipo_Cambio, "
        "   Gasto_x_Comprobar_Documento.Cxc_Importe "
        "FROM Anticipo_Cxc "
        "   INNER JOIN Cuenta_X_Cobrar ON Cuenta_X_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND "
        "      Cuenta_X_Cobrar.Cxc_Documento = Anticipo_Cxc.An_Folio "
        "   INNER JOIN Gasto_x_Comprobar_Documento ON Gasto_x_Comprobar_Documento.Gc_Tabla = 'CHEQUE' AND "
        "      Gasto_x_Comprobar_Documento.Gc_Documento = '{}' AND "
        "      Gasto_x_Comprobar_Documento.Cxc_Folio = Anticipo_Cxc.An_Folio "
        "WHERE "
        "   Anticipo_Cxc.Es_Cve_Estado = 'AC' AND "
        "   Anticipo_Cxc.An_Tabla = 'GASTO_REGISTRO' AND "
        "   Cuenta_X_Cobrar.Es_Cve_Estado = 'AC' "
        "ORDER BY Anticipo_Cxc.An_Folio ASC ",
        check);
    op.refuse_if(rows.eof(), "No se encontraron anticipos CXC por aplicar");
    return rows;
}

/// The advance's receivable, and the reference that both payments of this application carry.
struct Application {
    std::string receivable;
    std::string reference;  ///< receivable, colon, its next payment id
};

Application next_application(Operation& op, const Advance& advance) {
    const Rows row = op.query(
        "SELECT Cuenta_X_Cobrar.Cxc_Folio, IsNull(MAX(Pago_Cxc.Pc_ID), '0000') AS Pc_ID "
        "FROM Cuenta_X_Cobrar "
        "   LEFT JOIN Pago_Cxc ON Cuenta_X_Cobrar.Cxc_Folio = Pago_Cxc.Cxc_Folio "
        "WHERE "
        "   Cuenta_X_Cobrar.Cxc_Tabla = 'ANTICIPO_CXC' AND "
        "   Cuenta_X_Cobrar.Cxc_Documento = '{}' "
        "GROUP BY Cuenta_X_Cobrar.Cxc_Folio ",
        advance.folio());
    op.refuse_if(row.eof(), "No se encontró la cuenta x cobrar del anticipo & {}", advance.folio());
    const std::string receivable = row.text("Cxc_Folio");
    return {receivable, receivable + ":" + four_digits(to_integer(row.value("Pc_ID")) + 1)};
}

void check_balance(Operation& op, const std::string& receivable, double amount) {
    const Rows row = op.query("SELECT Cxc_Precio_Neto_Saldo FROM Cuenta_x_Cobrar WHERE Cxc_Folio = '{}' ", receivable);
    op.refuse_if(row.eof(), "No se encontró la cuenta x cobrar!");
    op.refuse_if(std::fabs(whole_units(row.number("Cxc_Precio_Neto_Saldo"))) < std::fabs(whole_units(amount)),
                 "El importe aplicado es mayor al saldo del documento");
}

/// Refuses when more was paid under the reference than is being applied, as when an application runs twice.
void check_not_duplicated(Operation& op, const Advance& advance, const std::string& reference) {
    const double paid = op.query(
                              "SELECT ISNULL(SUM(Pc_Importe * Pc_Tipo_Cambio),0) AS Pagos "
                              "FROM Pago_Cxc "
                              "WHERE "
                              "   Pc_Tabla = 'ANTICIPO_CXC' AND "
                              "   Pc_Documento = '{}' AND "
                              "   Pc_Referencia = '{}' AND "
                              "   Fp_Cve_Forma_Pago <> 'DA' ",
                              advance.folio(), reference)
                            .number("Pagos");
    op.refuse_if(
        whole_units(advance.amount()) < whole_units(paid),
        "Se ha aplicado un importe mayor al saldo del anticipo, probablemente se está duplicando la aplicación\r\n"
        " importe anticipo: {}\r\n"
        " Pagos: {}",
        advance.amount(), paid);
}

/// The receivable of an advance carries its paid amount with negative sign.
void mark_used_advance(Operation& op, const Advance& advance) {
    const double paid = op.query(
                              "SELECT Cxc_Precio_Neto_Pago "
                              "FROM Cuenta_x_Cobrar "
                              "WHERE "
                              "   Cxc_Tabla = 'ANTICIPO_CXC' AND "
                              "   Cxc_Documento = '{}' ",
                              advance.folio())
                            .number("Cxc_Precio_Neto_Pago");
    if (advance.total() > -paid) return;
    op.execute("UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AP' WHERE An_Folio = '{}'", advance.folio());
}

void set_expense_line_state(Operation& op, const std::string& check, const std::string& advance, const char* state) {
    op.execute(
        "UPDATE Gasto_x_Comprobar_Documento SET "
        "   Es_Cve_Estado = '{}' "
        "WHERE "
        "   Gc_Tabla = 'CHEQUE' AND "
        "   Gc_Documento = '{}' AND "
        "   Cxc_Folio = '{}'",
        state, check, advance);
}

/// What the payments of one call have in common.
struct Payment_data {
    Date date;
    std::string method;
};

void apply_advance(Operation& op, AccountsReceivableService& receivables, const Expense& expense,
                   const Advance& advance, const Payment_data& common) {
    const Application application = next_application(op, advance);
    Receivable_payment payment{.receivable_folio = expense.receivable,
                               .amount = advance.amount(),
                               .date = common.date,
                               .concept_text = "Aplicación de anticipo",
                               .source_table = document::customer_advance,
                               .source_document = advance.folio(),
                               .reference = application.reference,
                               .currency = expense.currency,
                               .exchange_rate = expense.rate,
                               .payment_method = common.method};
    check_balance(op, expense.receivable, advance.amount());
    op.pass_on_unless(receivables.RegisterPayment(payment), receivables);
    check_not_duplicated(op, advance, application.reference);

    payment.receivable_folio = application.receivable;
    payment.source_table.clear();
    payment.source_document.clear();
    payment.currency = advance.currency();
    payment.exchange_rate = advance.rate();
    check_balance(op, application.receivable, advance.amount());
    op.pass_on_unless(receivables.RegisterPayment(payment), receivables);
    mark_used_advance(op, advance);
}

Rows read_advance_payments(Operation& op, const std::string& check) {
    return op.query(
        "SELECT Pc_Tabla, Pc_Documento "
        "FROM Pago_CXC "
        "WHERE "
        "   Cxc_Folio IN (SELECT Cxc_Folio FROM Cuenta_X_Cobrar "
        "      WHERE Cxc_Tabla = 'GASTO_X_COMPROBAR' AND Cxc_Documento IN "
        "         (SELECT Gc_Folio FROM Gasto_x_Comprobar WHERE Gc_Tabla = 'CHEQUE' AND Gc_Documento = '{}')) AND "
        "   Pc_Tabla = 'ANTICIPO_CXC' AND "
        "   Pago_CXC.Es_Cve_Estado <> 'CA' ",
        check);
}

void cancel_all_expense_lines(Operation& op, const std::string& check) {
    op.execute(
        "UPDATE Gasto_x_Comprobar_Documento SET "
        "   Es_Cve_Estado = 'CA' "
        "WHERE "
        "   Gc_Tabla = 'CHEQUE' AND "
        "   Gc_Documento = '{}'",
        check);
}

/// Every live payment of the advance's receivable, not only the one that this check made.
void cancel_payments(Operation& op, AccountsReceivableService& receivables, const std::string& advance) {
    auto payments = op.query(
        "SELECT * "
        "FROM Pago_Cxc "
        "WHERE "
        "   Es_Cve_Estado <> 'CA' AND "
        "   Cxc_Folio IN (SELECT Cxc_Folio FROM Cuenta_X_Cobrar "
        "      WHERE Cxc_Tabla = 'ANTICIPO_CXC' AND Cxc_Documento = '{}') ",
        advance);
    for (; !payments.eof(); payments.next()) {
        op.pass_on_unless(receivables.CancelPayment(payments.text("Cxc_Folio"), payments.text("Pc_Id")), receivables);
    }
}

void reopen_advance(Operation& op, const std::string& advance, const std::string& user, const std::string& stamp) {
    op.execute(
        "UPDATE Anticipo_Cxc SET "
        "   Es_Cve_Estado = 'AC', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE An_Folio = '{}'",
        user, stamp, advance);
}

}  // namespace

bool Tesoreria::Aplicar_Anticipo_Cxc(const std::string& Ch_Folio, Date Fecha) {
    return operation(module_, error_, "Aplicar_Anticipo_Cxc()", [&](Operation& op) {
        const auto receivables = module_.suite().new_accounts_receivable();
        const Expense expense = read_expense(op, Ch_Folio);
        const Payment_data common{Fecha, module_.text_parameter("CXC_FORMA_PAGO_ANTICIPO_CLIENTE")};
        for (Rows rows = read_advances(op, Ch_Folio); !rows.eof(); rows.next()) {
            const Advance advance(rows);
            apply_advance(op, *receivables, expense, advance, common);
            set_expense_line_state(op, Ch_Folio, advance.folio(), state::applied);
        }
    });
}

bool Tesoreria::Cancelar_Aplicacion_Cheque_Anticipo(const std::string& Ch_Folio) {
    return operation(module_, error_, "Cancelar_Aplicacion_Cheque_Anticipo()", [&](Operation& op) {
        Rows payments = read_advance_payments(op, Ch_Folio);
        if (payments.eof()) {
            cancel_all_expense_lines(op, Ch_Folio);
            return;
        }

        const auto receivables = module_.suite().new_accounts_receivable();
        const std::string user = op.session().GetUserName();
        const std::string stamp = op.server_stamp();
        for (; !payments.eof(); payments.next()) {
            const std::string advance = payments.text("Pc_Documento");
            op.pass_on_unless(receivables->DocumentCheck(document::customer_advance, advance), *receivables);
            cancel_payments(op, *receivables, advance);
            reopen_advance(op, advance, user, stamp);
            set_expense_line_state(op, Ch_Folio, advance, state::cancelled);
        }
    });
}

}  // namespace cuvexa
