// Closing of a cash receipt: what it collected goes to payables, receivables and accounting.
#include "core/codes.h"
#include "core/due_date.h"
#include "core/operation.h"
#include "core/posting.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

constexpr auto source_table = "Recibo_Pago";

/// One row of the closing query: the lines of one payment method, added up. A column is converted when a step uses it: a
/// receipt that creates nothing may lack a date.
class Collected {
public:
    explicit Collected(const Rows& row) : row_(row) {}

    Date date() const { return row_.date("Rp_Fecha"); }
    std::string branch() const { return row_.text("Sc_Cve_Sucursal"); }
    std::string currency() const { return row_.text("Mn_Cve_Moneda"); }
    double rate() const { return row_.number("Rp_Tipo_Cambio"); }
    /// Supplier or customer that the receipt type asks for.
    std::string party() const { return row_.text("Rp_Solicitar_Valor"); }
    std::string comment() const { return row_.text("Rp_Comentario"); }
    std::string reference() const { return row_.text("Rp_Referencia"); }
    double amount() const { return row_.number("Rp_Importe"); }
    std::string asks_for() const { return row_.text("Trp_Solicitar"); }
    bool creates_receivable() const { return row_.text("Fp_Generar_Cuenta_x_Cobrar") == "SI"; }
    /// Who owes the money collected with the method.
    std::string method_customer() const { return row_.text("Fp_Cliente"); }

private:
    const Rows& row_;
};

void create_payable(Operation& op, AccountsPayableService& payables, const std::string& folio, const Collected& row) {
    const Date due = supplier_due_date(op, row.date(), row.party());
    Payable payable = payables.NewDocument();
    payable.supplier = row.party();
    payable.branch = row.branch();
    payable.date = row.date();
    payable.comment = row.comment();
    payable.source_table = source_table;
    payable.source_document = folio;
    payable.due_date = due;
    payable.amount = row.amount();
    payable.net_amount = row.amount();
    payable.reference = row.reference();
    payable.currency = row.currency();
    payable.exchange_rate = row.rate();
    op.relay_unless(payables.CreatePayable(payable), payables);
}

void apply_receipt(Operation& op, AccountsReceivableService& receivables, const std::string& folio,
                   const Collected& row) {
    const Receipt_application receipt{.customer = row.party(),
                                      .document_code = document::receipt,
                                      .folio = folio,
                                      .date = row.date(),
                                      .reference = row.reference(),
                                      .comment = row.comment(),
                                      .branch = row.branch(),
                                      .amount = row.amount(),
                                      .currency = row.currency(),
                                      .exchange_rate = row.rate()};
    op.relay_unless(receivables.ApplyReceipt(receipt), receivables);
}

void create_receivable(Operation& op, AccountsReceivableService& receivables, const std::string& folio,
                       const Collected& row) {
    const Receivable receivable{.branch = row.branch(),
                                .customer = row.method_customer(),
                                .exchange_rate = row.rate(),
                                .currency = row.currency(),
                                .source_table = source_table,
                                .source_document = folio,
                                .comment = row.comment(),
                                .reference = row.reference(),
                                .date = row.date(),
                                .due_date = customer_due_date(op, row.date(), row.method_customer(), "Cliente"),
                                .amount = row.amount(),
                                .net_amount = row.amount(),
                                .net_price_amount = row.amount(),
                                .balance = row.amount()};
    op.relay_unless(receivables.CreateReceivable(receivable), receivables);
}

void mark_applied(Operation& op, const std::string& folio) {
    const std::string user = op.session().GetUserName();
    op.execute(
        "UPDATE Recibo_Pago SET "
        "   Es_Cve_Estado = 'AP', "
        "   Oper_Ult_Modif = '{}', "
        "   Fecha_Ult_Modif = '{}' "
        "WHERE Rp_Folio = '{}'",
        user, op.server_stamp(), folio);
}

}  // namespace

bool Tesoreria::FinReciboCaja(const std::string& Rp_Folio) {
    return operation(module_, error_, "Cuvexa.dll - FinReciboCaja()", [&](Operation& op) {
        const auto payables = module_.suite().new_accounts_payable();
        const auto receivables = module_.suite().new_accounts_receivable();
        const auto accounting = module_.suite().new_accounting();

        Rows rows = op.query(
            "SELECT "
            "   Recibo_Pago.Rp_Folio, "
            "   Recibo_Pago.Rp_Fecha, "
            "   Recibo_Pago.Sc_Cve_Sucursal, "
            "   Recibo_Pago.Mn_Cve_Moneda, "
            "   Recibo_Pago.Rp_Tipo_Cambio, "
            "   Recibo_Pago.Rp_Solicitar_Valor, "
            "   Recibo_Pago.Rp_Comentario, "
            "   Recibo_Pago.Rp_Referencia, "
            "   SUM(Recibo_Pago.Rp_Importe) as Rp_Importe, "
            "   Forma_Pago.Fp_Cve_Forma_Pago, "
            "   Tipo_Recibo_Pago.Trp_Solicitar, "
            "   Forma_Pago.Fp_Generar_Cuenta_x_Cobrar, "
            "   Forma_Pago.Fp_Cliente, "
            "   Sucursal.Em_Cve_Empresa "
            "FROM Recibo_Pago "
            "   INNER JOIN Tipo_Recibo_Pago ON Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago = "
            "Tipo_Recibo_Pago.Trp_Cve_Tipo_Recibo_Pago "
            "   INNER JOIN Forma_Pago ON Recibo_Pago.Fp_Cve_Forma_Pago = Forma_Pago.Fp_Cve_Forma_Pago "
            "   INNER JOIN Sucursal ON Recibo_Pago.Sc_Cve_Sucursal = Sucursal.Sc_Cve_Sucursal "
            "WHERE Recibo_Pago.Rp_Folio = '{}' AND "
            "   Recibo_Pago.Es_Cve_Estado <> 'CA' "
            "GROUP BY "
            "   Recibo_Pago.Rp_Folio, "
            "   Recibo_Pago.Rp_Fecha, "
            "   Recibo_Pago.Sc_Cve_Sucursal, "
            "   Recibo_Pago.Mn_Cve_Moneda, "
            "   Recibo_Pago.Rp_Tipo_Cambio, "
            "   Recibo_Pago.Rp_Solicitar_Valor, "
            "   Recibo_Pago.Rp_Comentario, "
            "   Recibo_Pago.Rp_Referencia, "
            "   Forma_Pago.Fp_Cve_Forma_Pago, "
            "   Tipo_Recibo_Pago.Trp_Solicitar, "
            "   Forma_Pago.Fp_Generar_Cuenta_x_Cobrar, "
            "   Forma_Pago.Fp_Cliente, "
            "   Sucursal.Em_Cve_Empresa",
            Rp_Folio);
        op.refuse_if(rows.eof(), "No se encontró el recibo de caja: {}", Rp_Folio);
        const std::string company = rows.text("Em_Cve_Empresa");

        for (; !rows.eof(); rows.next()) {
            const Collected row(rows);
            if (row.asks_for() == receipt_purpose::supplier_loan) {
                create_payable(op, *payables, Rp_Folio, row);
                mark_applied(op, Rp_Folio);
            } else if (row.asks_for() == receipt_purpose::customer_collection ||
                       row.asks_for() == receipt_purpose::debtor_collection) {
                apply_receipt(op, *receivables, Rp_Folio, row);
                mark_applied(op, Rp_Folio);
            }
            if (row.creates_receivable()) create_receivable(op, *receivables, Rp_Folio, row);
        }

        post_if_enabled(op, *accounting, document::receipt, Rp_Folio, company);
        op.relay_unless(op.data().RegisterDocument(document::receipt, Rp_Folio), op.data());
    });
}

}  // namespace cuvexa
