// Deposit of cash receipts into a bank account: one line and one bank movement per group of payment lines.
#include <string>

#include "core/codes.h"
#include "core/number_text.h"
#include "core/operation.h"
#include "core/posting.h"
#include "core/validations.h"
#include "cuvexa/tesoreria.h"

namespace cuvexa {
namespace {

/// What a deposit line stands for: one row of the grouping query.
struct Group {
    explicit Group(const Rows& row)
        : branch(row.text("Sc_Cve_Sucursal")),
          method(row.text("Fp_Cve_Forma_Pago")),
          comment(row.text("Rp_Comentario")),
          bank(row.text("Rp_Banco")),
          check(row.text("Rp_Cheque")),
          amount(row.number("Rp_Importe")),
          currency(row.text("Mn_Cve_Moneda")),
          rate(row.number("Rp_Tipo_Cambio")) {}

    std::string branch, method, comment, bank, check;
    double amount;
    std::string currency;
    double rate;
};

/// What the caller said of the deposit, and what this call adds to every row.
struct Deposit {
    const std::string& account;
    const Text_list& receipts;
    Date date;
    bool firm;
    Date firm_date;
    const std::string& comment;
    std::string movement_type;
    std::string stamp;
    std::string folio;
};

// What the statements compute of a receipt line: cash folds whatever its bank and check, and the movement's comment comes from
// the kind of payment.
constexpr Words line_comment =
    "CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN 'DEPOSITO EFECTIVO' "
    "      WHEN Forma_Pago.Fp_Tipo = '02' THEN 'DEPOSITO CON CHEQUE' "
    "      WHEN Forma_Pago.Fp_Tipo = '04' THEN 'DEPOSITO CON TARJETA DE CREDITO' "
    "      ELSE Rp_Comentario END";
constexpr Words line_bank = "CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Banco END";
constexpr Words line_check = "CASE WHEN Forma_Pago.Fp_Tipo = '01' THEN '' ELSE Rp_Cheque END";

/// The deposit is refused when none of the receipts is in a state that can be deposited.
bool any_receipt(Operation& op, const Text_list& receipts) {
    const Rows rows = op.query(
        "SELECT "
        "   Sucursal.Sc_Cve_Sucursal, "
        "   Forma_Pago.Fp_Cve_Forma_Pago, "
        "   {} as Rp_Comentario, "
        "   {} as Rp_Banco, "
        "   {} as Rp_Cheque, "
        "   SUM(Rp_Importe) as Rp_Importe, "
        "   Mn_Cve_Moneda, "
        "   Recibo_Pago.Rp_Tipo_Cambio, "
        "   Sucursal.Em_Cve_Empresa "
        "FROM Recibo_Pago "
        "   INNER JOIN Forma_Pago ON Recibo_Pago.Fp_Cve_Forma_Pago = Forma_Pago.Fp_Cve_Forma_Pago "
        "   INNER JOIN Sucursal ON Recibo_Pago.Sc_Cve_Sucursal = Sucursal.Sc_Cve_Sucursal "
        "WHERE Rp_Folio IN ({}) AND "
        "   Recibo_Pago.Es_Cve_Estado IN ('AC', 'AP') "
        "GROUP BY "
        "   Sucursal.Sc_Cve_Sucursal, "
        "   Forma_Pago.Fp_Cve_Forma_Pago, "
        "   {}, "
        "   {}, "
        "   {}, "
        "   Mn_Cve_Moneda, "
        "   Recibo_Pago.Rp_Tipo_Cambio, "
        "   Sucursal.Em_Cve_Empresa "
        "ORDER BY "
        "   Forma_Pago.Fp_Cve_Forma_Pago, "
        "   Rp_Banco, "
        "   Rp_Cheque",
        line_comment, line_bank, line_check, receipts, line_comment, line_bank, line_check);
    return !rows.eof();
}

Rows groups(Operation& op, const Text_list& receipts) {
    return op.query(
        "SELECT "
        "   Recibo_Pago.Sc_Cve_Sucursal, "
        "   Sucursal.Em_Cve_Empresa, "
        "   Forma_Pago.Fp_Cve_Forma_Pago, "
        "   {} as Rp_Comentario, "
        "   {} as Rp_Banco, "
        "   {} as Rp_Cheque, "
        "   SUM(Rp_Importe) as Rp_Importe, "
        "   Mn_Cve_Moneda, "
        "   Recibo_Pago.Rp_Tipo_Cambio "
        "FROM Recibo_Pago "
        "   INNER JOIN Forma_Pago ON Recibo_Pago.Fp_Cve_Forma_Pago = Forma_Pago.Fp_Cve_Forma_Pago "
        "   INNER JOIN Sucursal ON Recibo_Pago.Sc_Cve_Sucursal = Sucursal.Sc_Cve_Sucursal "
        "WHERE Rp_Folio IN ({}) AND Fp_Depositable = 'SI' AND "
        "   Recibo_Pago.Es_Cve_Estado IN ('AC', 'AP') "
        "GROUP BY "
        "   Recibo_Pago.Sc_Cve_Sucursal, "
        "   Sucursal.Em_Cve_Empresa, "
        "   Forma_Pago.Fp_Cve_Forma_Pago, "
        "   {}, "
        "   {}, "
        "   {}, "
        "   Mn_Cve_Moneda, "
        "   Recibo_Pago.Rp_Tipo_Cambio "
        "ORDER BY "
        "   Forma_Pago.Fp_Cve_Forma_Pago, "
        "   Rp_Banco, "
        "   Rp_Cheque ",
        line_comment, line_bank, line_check, receipts, line_comment, line_bank, line_check);
}

void insert_line(Operation& op, const Deposit& deposit, const std::string& line_id, const Group& group) {
    const std::string user = op.session().GetUserName();
    op.execute(
        "INSERT INTO Deposito_Pago("
        "   Dp_Folio, "
        "   Dp_Id, "
        "   Dp_Fecha, "
        "   Sc_Cve_Sucursal, "
        "   Mn_Cve_Moneda, "
        "   Dp_Tipo_Cambio, "
        "   Bc_Cve_Banco_Cuenta, "
        "   Dp_Importe, "
        "   Dp_Referencia, "
        "   Dp_Comentario, "
        "   Rp_Banco, "
        "   Rp_Cheque, "
        "   Oper_Alta, "
        "   Fecha_Alta, "
        "   Oper_Ult_Modif, "
        "   Fecha_Ult_Modif) "
        "VALUES('{}', '{}', '{}', '{}', '{}', {}, '{}', {}, '', '{}', '{}', '{}', '{}', '{}', '{}', '{}')",
        deposit.folio, line_id, op.data().SqlDate(deposit.date), group.branch, group.currency, group.rate,
        deposit.account, group.amount, deposit.comment, group.bank, group.check, user, deposit.stamp, user,
        deposit.stamp);
}

tBnMovimiento movement_of(const Deposit& deposit, const std::string& line_id, const Group& group) {
    tBnMovimiento movement;
    movement.Bt_Cve_Banco_Tipo_Movimiento = deposit.movement_type;
    movement.Bm_Fecha = deposit.date;
    movement.Bm_Fecha_Firme = deposit.firm ? deposit.firm_date : deposit.date;
    movement.Bm_Tabla = document::deposit;
    movement.Bm_Documento = deposit.folio;
    movement.Bm_Documento_ID = line_id;
    movement.Bm_Referencia = group.check;
    movement.Bm_Comentario = group.comment;
    movement.Cuenta.Bc_Cve_Banco_Cuenta = deposit.account;
    movement.Bm_Importe = group.amount;
    movement.Bm_Tipo_Cambio = group.rate;
    movement.EnFirme = deposit.firm;
    return movement;
}

/// Selects by method, bank and check alone: of two groups that differ in another column, the first marks the lines of both.
void mark_receipts(Operation& op, const Deposit& deposit, const std::string& line_id, const Group& group) {
    op.execute(
        "UPDATE Recibo_Pago SET "
        "   Recibo_Pago.Es_Cve_Estado = (CASE Recibo_Pago.Es_Cve_Estado WHEN 'AC' THEN 'DP' WHEN 'AP' THEN 'AD' END ), "
        "   Recibo_Pago.Rp_Folio_Deposito = '{}', "
        "   Recibo_Pago.Rp_Deposito_ID = '{}', "
        "   Recibo_Pago.Rp_Fecha_Deposito = '{}' "
        "FROM Recibo_Pago "
        "   INNER JOIN Forma_Pago on Forma_Pago.Fp_Cve_Forma_Pago = Recibo_Pago.Fp_Cve_Forma_Pago "
        "WHERE "
        "   Recibo_Pago.Rp_Folio IN ({}) AND "
        "   Recibo_Pago.Es_Cve_Estado IN ('AC', 'AP') AND "
        "   Recibo_Pago.Fp_Cve_Forma_Pago = '{}' AND "
        "   ({}) = '{}' AND "
        "   ({}) = '{}' ",
        deposit.folio, line_id, op.data().SqlDate(deposit.date), deposit.receipts, group.method, line_bank, group.bank,
        line_check, group.check);
}

}  // namespace

bool Tesoreria::Genera_Deposito(const std::string& Bc_Cve_Banco_Cuenta, const std::string& Rp_Folio, Date Dp_Fecha,
                                bool Bm_Firme, Date Bm_Fecha_Firme, const std::string& sComentario) {
    return operation(module_, error_, "Cuvexa.dll - Genera_Deposito()", [&](Operation& op) {
        const Text_list receipts(Rp_Folio);
        op.refuse_if(
            op.data().LookupValue("Bc_Descripcion", "Bc_Cve_Banco_Cuenta", Bc_Cve_Banco_Cuenta, "Banco_Cuenta").empty(),
            "No se encontró la información de la cuenta bancaria!");
        check_same_day(op, Dp_Fecha, Wording::tagged);

        Deposit deposit{.account = Bc_Cve_Banco_Cuenta,
                        .receipts = receipts,
                        .date = Dp_Fecha,
                        .firm = Bm_Firme,
                        .firm_date = Bm_Fecha_Firme,
                        .comment = sComentario,
                        .movement_type = module_.text_parameter("TES_MOVIMIENTO_DEPOSITO"),
                        .stamp = op.server_stamp(),
                        .folio = {}};

        op.refuse_if(!any_receipt(op, receipts),
                     "No se encontró el recibo de caja o el estado no permite realizar deposito:{}", receipts.text());
        Rows rows = groups(op, receipts);
        if (rows.eof()) return;  // nothing of these receipts goes to the bank

        const std::string company = rows.text("Em_Cve_Empresa");
        deposit.folio = op.data().GetNextFolio(rows.text("Sc_Cve_Sucursal"), document::deposit);
        deposit_folio_ = deposit.folio;
        op.refuse_if(deposit.folio.empty(), "Imposible obtener el folio del depósito");

        // A counter of its own: a receipt in capture on this instance is not renumbered.
        for (std::int16_t lines = 0; !rows.eof(); rows.next()) {
            const Group group(rows);
            const std::string line_id = next_line_number(lines);
            insert_line(op, deposit, line_id, group);
            tBnMovimiento movement = movement_of(deposit, line_id, group);
            op.pass_on_unless(Registra_Movimiento_Banco(movement));
            mark_receipts(op, deposit, line_id, group);
        }

        const auto accounting = module_.suite().new_accounting();
        post_if_enabled(op, *accounting, document::deposit, deposit.folio, company);
        op.relay_unless(op.data().RegisterDocument(document::deposit, deposit.folio), op.data());
    });
}

}  // namespace cuvexa
