// Deposits of receipts into a bank account, and their cancellation.
#include <map>
#include <set>
#include <sstream>
#include <tuple>

#include "model/treasury.h"

namespace cuvexa::model {
namespace {

Text without_blanks(Text text) {
    std::erase(text, ' ');
    return text;
}

/// The folios between the commas.
std::vector<Text> parts(const Text& list) {
    std::vector<Text> folios(1);
    for (const char c : list) {
        if (c == ',') {
            folios.emplace_back();
        } else {
            folios.back() += c;
        }
    }
    return folios;
}

/// The list as statements and messages carry it.
Text quoted_list(const Text& list) {
    Text text;
    for (const Text& folio : parts(list)) text += (text.empty() ? "'" : ",'") + folio + "'";
    return text;
}

bool lists(const std::vector<Text>& folios, const Text& folio) {
    return std::any_of(folios.begin(), folios.end(), [&](const Text& listed) { return same(listed, folio); });
}

Text folded_comment(const rows::Forma_Pago& method, const Text& comment) {
    if (same(method.Fp_Tipo, "01")) return "DEPOSITO EFECTIVO";
    if (same(method.Fp_Tipo, "02")) return "DEPOSITO CON CHEQUE";
    if (same(method.Fp_Tipo, "04")) return "DEPOSITO CON TARJETA DE CREDITO";
    return comment;
}

}  // namespace

/// Receipt lines that make one line of the deposit.
struct Treasury::Deposit_group {
    Text branch, company, method, comment, bank, check, currency;
    double rate = 0;
    double amount = 0;

    auto order() const {
        return std::make_tuple(in_one_case(method), in_one_case(bank), in_one_case(check), in_one_case(branch),
                               in_one_case(company), in_one_case(comment), in_one_case(currency), rate);
    }
};

std::vector<Treasury::Deposit_group> Treasury::deposit_groups(const std::vector<Text>& folios, bool depositable_only) {
    std::map<decltype(Deposit_group().order()), Deposit_group> groups;
    for (const auto& line : db.Recibo_Pago.rows()) {
        if (!lists(folios, line.Rp_Folio) || !(same(line.Es_Cve_Estado, "AC") || same(line.Es_Cve_Estado, "AP"))) {
            continue;
        }
        const auto method =
            db.Forma_Pago.first([&](const auto& r) { return same(r.Fp_Cve_Forma_Pago, line.Fp_Cve_Forma_Pago); });
        const auto branch =
            db.Sucursal.first([&](const auto& r) { return same(r.Sc_Cve_Sucursal, line.Sc_Cve_Sucursal); });
        if (!method || !branch || (depositable_only && differs(method->Fp_Depositable, "SI"))) continue;
        const bool cash = same(method->Fp_Tipo, "01");
        Deposit_group group{line.Sc_Cve_Sucursal,
                            branch->Em_Cve_Empresa,
                            method->Fp_Cve_Forma_Pago,
                            folded_comment(*method, line.Rp_Comentario),
                            cash ? "" : line.Rp_Banco,
                            cash ? "" : line.Rp_Cheque,
                            line.Mn_Cve_Moneda,
                            line.Rp_Tipo_Cambio,
                            line.Rp_Importe};
        const auto [place, fresh] = groups.emplace(group.order(), group);
        if (!fresh) place->second.amount += line.Rp_Importe;
    }
    std::vector<Deposit_group> in_order;
    for (const auto& [order, group] : groups) in_order.push_back(group);
    return in_order;
}

bool Treasury::Genera_Deposito(const Text& Bc_Cve_Banco_Cuenta, const Text& Rp_Folio, Date Dp_Fecha, bool Bm_Firme,
                               Date Bm_Fecha_Firme, const Text& sComentario) {
    const Text tag = "Cuvexa.dll - Genera_Deposito()";
    return operation(tag, [&] {
        const Text list = without_blanks(Rp_Folio);
        fail_if(!exists_account(Bc_Cve_Banco_Cuenta),
                tagged(tag, "No se encontró la información de la cuenta bancaria!"));
        if (const Text why = other_day(Dp_Fecha); !why.empty()) fail(tagged(tag, why));
        const Text stamp = suite_.stamp();
        std::vector<Text> folios;
        for (const Text& folio : parts(list)) folios.push_back(quoted(folio));
        fail_if(deposit_groups(folios, false).empty(),
                tagged(tag, "No se encontró el recibo de caja o el estado no permite realizar deposito:" +
                                quoted_list(list)));
        const auto groups = deposit_groups(folios, true);
        if (groups.empty()) return;
        Dp_Folio = data_.GetNextFolio(groups.front().branch, "DEPOSITO_PAGO");
        fail_if(Dp_Folio.empty(), tagged(tag, "Imposible obtener el folio del depósito"));
        int number = 0;  // of its own: a receipt in capture goes on as it was
        for (const Deposit_group& group : groups) {
            deposit_group(group, four_digits(++number), Bc_Cve_Banco_Cuenta, folios, Dp_Fecha, Bm_Firme, Bm_Fecha_Firme,
                          sComentario, stamp);
        }
        post(tag, "DEPOSITO_PAGO", Dp_Folio, groups.front().company);
        if (!data_.RegisterDocument("DEPOSITO_PAGO", Dp_Folio)) fail(tagged(tag, data_.LastError));
    });
}

/// One line of the deposit, its bank movement, and the mark on its receipts.
void Treasury::deposit_group(const Deposit_group& group, const Text& id, const Text& account,
                             const std::vector<Text>& folios, Date date, bool firm, Date firm_date, const Text& comment,
                             const Text& stamp) {
    rows::Deposito_Pago row;
    row.Dp_Importe = bare(group.amount);  // no number fails after a text
    row.Dp_Folio = quoted(Dp_Folio);
    row.Dp_Id = id;
    row.Dp_Fecha = sql_date(date);
    row.Sc_Cve_Sucursal = quoted(group.branch);
    row.Mn_Cve_Moneda = quoted(group.currency);
    row.Dp_Tipo_Cambio = bare(group.rate);
    row.Bc_Cve_Banco_Cuenta = quoted(account);
    row.Dp_Comentario = quoted(comment);
    row.Rp_Banco = quoted(group.bank);
    row.Rp_Cheque = quoted(group.check);
    row.Oper_Alta = row.Oper_Ult_Modif = suite_.user;
    row.Fecha_Alta = row.Fecha_Ult_Modif = stamp;
    db.Deposito_Pago.insert(row);

    tBnMovimiento movement;
    movement.Bt_Cve_Banco_Tipo_Movimiento = suite_.parameter("TES_MOVIMIENTO_DEPOSITO");
    movement.Bm_Fecha = date;
    movement.Bm_Fecha_Firme = firm ? firm_date : date;
    movement.Bm_Tabla = "DEPOSITO_PAGO";
    movement.Bm_Documento = Dp_Folio;
    movement.Bm_Documento_ID = id;
    movement.Bm_Referencia = group.check;
    movement.Bm_Comentario = group.comment;
    movement.Cuenta.Bc_Cve_Banco_Cuenta = account;
    movement.Bm_Importe = group.amount;
    movement.Bm_Tipo_Cambio = group.rate;
    movement.EnFirme = firm;
    stop_unless(Registra_Movimiento_Banco(movement));

    // By method, bank and check alone: a group that differs in something else finds its lines marked already.
    const Text method_key = quoted(group.method), bank = quoted(group.bank), check = quoted(group.check);
    const auto method = db.Forma_Pago.first([&](const auto& r) { return same(r.Fp_Cve_Forma_Pago, method_key); });
    const bool cash = same(method->Fp_Tipo, "01");
    db.Recibo_Pago.update(
        [&](const auto& r) {
            return lists(folios, r.Rp_Folio) && (same(r.Es_Cve_Estado, "AC") || same(r.Es_Cve_Estado, "AP")) &&
                   same(r.Fp_Cve_Forma_Pago, method_key) && same(cash ? Text() : r.Rp_Banco, bank) &&
                   same(cash ? Text() : r.Rp_Cheque, check);
        },
        [&](auto& r) {
            r.Es_Cve_Estado = same(r.Es_Cve_Estado, "AC") ? "DP" : "AD";
            r.Rp_Folio_Deposito = quoted(Dp_Folio);
            r.Rp_Deposito_ID = id;
            r.Rp_Fecha_Deposito = sql_date(date);
        });
}

bool Treasury::Cancelar_Deposito(const Text& Dp_Folio) {
    const Text tag = "Cuvexa.dll - Cancelar_Deposito()";
    return operation(tag, [&] {
        const Text stamp = suite_.stamp();
        const Text key = quoted(Dp_Folio);
        const auto of_deposit = [&](const auto& r) { return same(r.Dp_Folio, key); };
        const auto line = db.Deposito_Pago.first(of_deposit);
        fail_if(!line, tagged(tag, "El depósito: " + Dp_Folio + ", no existe!"));
        fail_if(line->Es_Cve_Estado == "CA", tagged(tag, "El depósito: " + Dp_Folio + ", está cancelado!"));
        if (const Text why = other_day(date_of(line->Dp_Fecha)); !why.empty()) fail(tagged(tag, why));
        if (!Valida_Poliza_Contable("DEPOSITO_PAGO", Dp_Folio)) fail(tagged(tag, Text(Error)));

        // The one state that the deposited lines of each receipt go back to.
        std::map<Text, std::set<Nullable>> states;
        for (const auto& receipt : db.Recibo_Pago.rows()) {
            if (!same(receipt.Rp_Folio_Deposito, key)) continue;
            states[in_one_case(receipt.Rp_Folio)].insert(same(receipt.Es_Cve_Estado, "DP")   ? Nullable("AC")
                                                         : same(receipt.Es_Cve_Estado, "AD") ? Nullable("AP")
                                                                                             : std::nullopt);
        }
        for (const auto& [receipt, back] : states) {
            if (back.size() > 1) throw Failure{words::two_values};
        }
        db.Recibo_Pago.update([&](const auto& r) { return same(r.Rp_Folio_Deposito, key); },
                              [&](auto& r) {
                                  r.Es_Cve_Estado = *states[in_one_case(r.Rp_Folio)].begin();
                                  r.Rp_Folio_Deposito.clear();
                                  r.Rp_Deposito_ID.clear();
                              });
        db.Deposito_Pago.update(of_deposit, [&](auto& r) {
            r.Es_Cve_Estado = "CA";
            r.Oper_Baja = r.Oper_Ult_Modif = suite_.user;
            r.Fecha_Baja = r.Fecha_Ult_Modif = stamp;
        });
        if (!Cancelar_Documento_Bancos("DEPOSITO_PAGO", Dp_Folio)) fail(tagged(tag, Text(Error)));
    });
}

}  // namespace cuvexa::model
