#include "model/accounting.h"

#include <cmath>
#include <map>
#include <tuple>

#include "cuvexa/value.h"

namespace cuvexa::model {
namespace {

const Text module_name = "CONTABILIDAD";

template <class Row>
std::optional<Row> by(const Table<Row>& table, Text Row::*column, const Text& key) {
    return table.first([&](const Row& r) { return same(r.*column, key); });
}

/// Receipt lines whose voucher line is one, in the order in which the database groups them.
struct Group {
    Text day, currency;
    double rate = 0;
    Text method_account, method_name, branch_account, company;
    double sum = 0;

    auto key() const {
        return std::make_tuple(day, in_one_case(currency), rate, in_one_case(method_account), in_one_case(method_name),
                               in_one_case(branch_account), in_one_case(company));
    }
};

template <class Groups>
void add(Groups& groups, const Group& line) {
    const auto [place, fresh] = groups.emplace(line.key(), line);
    if (!fresh) place->second.sum += line.sum;
}

using Groups = std::map<decltype(std::declval<Group>().key()), Group>;

}  // namespace

bool Accounting::IsPostingEnabled(const Text& document_code) {
    LastError.clear();
    const auto row = by(db.Configuracion_Contable, &rows::Configuracion_Contable::Ct_Codigo, document_code);
    return row && row->Ct_Automatica == "SI";
}

bool Accounting::PostDocument(const Text& document_code, const Text& folio, const Text& company) {
    return serve([&] {
        Voucher voucher = voucher_of(document_code, folio);
        if (!company.empty()) voucher.company = company;
        std::erase_if(voucher.entries, [](const Entry& entry) { return entry.amount == 0; });
        if (keeps_voucher(document_code, folio, voucher)) return;
        refuse_if(suite.is_period_closed(voucher.date, module_name),
                  {"El período contable del: ", short_date(voucher.date), ", está cerrado; ábralo para contabilizar ",
                   document_code, ": ", folio});
        if (!voucher.entries.empty()) write(document_code, folio, voucher);
    });
}

/// An open voucher lets its document be cancelled, and is cancelled with the question.
bool Accounting::ValidateVoucherCancellation(const Text& document_code, const Text& folio) {
    return serve([&] {
        const auto voucher = db.Poliza.first([&](const auto& r) {
            return same(r.Pz_Documento, folio) && same(r.Pz_Tabla, document_code) && differs(r.Es_Cve_Estado, "CA");
        });
        if (voucher) cancel_voucher(*voucher, document_code + ": " + folio);
    });
}

Voucher Accounting::voucher_of(const Text& document_code, const Text& folio) {
    if (same_code(document_code, "RECIBO_PAGO")) return of_receipt(folio);
    if (same_code(document_code, "BANCO_MOVIMIENTO")) return of_movement(folio);
    if (same_code(document_code, "DEPOSITO_PAGO")) return of_deposit(folio);
    if (same_code(document_code, "CHEQUE")) return of_check(folio);
    throw Refusal{"Los documentos de código: " + document_code +
                  ", no se contabilizan; desactive su contabilización automática"};
}

Voucher Accounting::of_receipt(const Text& folio) {
    Groups groups;
    for (const auto& line : db.Recibo_Pago.rows()) {
        if (!same(line.Rp_Folio, folio) || !differs(line.Es_Cve_Estado, "CA")) continue;
        const auto method = by(db.Forma_Pago, &rows::Forma_Pago::Fp_Cve_Forma_Pago, line.Fp_Cve_Forma_Pago);
        const auto branch = by(db.Sucursal, &rows::Sucursal::Sc_Cve_Sucursal, line.Sc_Cve_Sucursal);
        if (!method || !branch) continue;
        add(groups, {line.Rp_Fecha.value_or(""), line.Mn_Cve_Moneda, line.Rp_Tipo_Cambio, method->Fp_Cuenta_Contable,
                     method->Fp_Descripcion, branch->Sc_Cuenta_Contable, branch->Em_Cve_Empresa, line.Rp_Importe});
    }
    refuse_if(groups.empty(), {"No se encontró el recibo de caja: ", folio, ", por contabilizar"});
    const Group& first = groups.begin()->second;
    Voucher voucher{first.company, date_of(first.day), "Recibo de caja " + folio, {}};
    for (const auto& [key, group] : groups) {
        voucher.entries.push_back(
            {account_or(group.method_account, &rows::Configuracion_Contable::Ct_Cuenta_Cargo, "RECIBO_PAGO"),
             account_or(group.branch_account, &rows::Configuracion_Contable::Ct_Cuenta_Abono, "RECIBO_PAGO"),
             local_amount(group.sum, group.currency, group.rate), group.method_name});
    }
    return voucher;
}

Voucher Accounting::of_movement(const Text& folio) {
    const auto movement = db.Banco_Movimiento.first(
        [&](const auto& r) { return same(r.Bm_Folio, folio) && differs(r.Es_Cve_Estado, "CA"); });
    const auto type = !movement
                          ? std::nullopt
                          : by(db.Banco_Tipo_Movimiento, &rows::Banco_Tipo_Movimiento::Bt_Cve_Banco_Tipo_Movimiento,
                               movement->Bt_Cve_Banco_Tipo_Movimiento);
    const auto account =
        !movement ? std::nullopt
                  : by(db.Banco_Cuenta, &rows::Banco_Cuenta::Bc_Cve_Banco_Cuenta, movement->Bc_Cve_Banco_Cuenta);
    refuse_if(!type || !account, {"No se encontró el movimiento de banco: ", folio, ", por contabilizar"});
    const double amount = local_amount(movement->Bm_Importe, movement->Mn_Cve_Moneda, movement->Bm_Tipo_Cambio);
    return {
        account->Em_Cve_Empresa,
        date_of(movement->Bm_Fecha),
        "Movimiento de banco " + folio,
        {{account_or(movement->Bc_Cuenta_Contable, &rows::Configuracion_Contable::Ct_Cuenta_Cargo, "BANCO_MOVIMIENTO"),
          account_or(type->Bt_Cuenta_Contable, &rows::Configuracion_Contable::Ct_Cuenta_Abono, "BANCO_MOVIMIENTO"),
          amount, movement->Bm_Comentario}}};
}

Voucher Accounting::of_deposit(const Text& folio) {
    const Text transit = account_or(movement_account("TES_MOVIMIENTO_DEPOSITO"),
                                    &rows::Configuracion_Contable::Ct_Cuenta_Cargo, "DEPOSITO_PAGO");
    Groups groups;
    for (const auto& line : db.Recibo_Pago.rows()) {
        if (!same(line.Rp_Folio_Deposito, folio) || !differs(line.Es_Cve_Estado, "CA")) continue;
        const auto method = by(db.Forma_Pago, &rows::Forma_Pago::Fp_Cve_Forma_Pago, line.Fp_Cve_Forma_Pago);
        const auto branch = by(db.Sucursal, &rows::Sucursal::Sc_Cve_Sucursal, line.Sc_Cve_Sucursal);
        if (!method || !branch) continue;
        add(groups, {line.Rp_Fecha_Deposito.value_or(""), line.Mn_Cve_Moneda, line.Rp_Tipo_Cambio,
                     method->Fp_Cuenta_Contable, method->Fp_Descripcion, "", branch->Em_Cve_Empresa, line.Rp_Importe});
    }
    refuse_if(groups.empty(), {"No se encontró el depósito: ", folio, ", por contabilizar"});
    const Group& first = groups.begin()->second;
    Voucher voucher{first.company, date_of(first.day), "Depósito " + folio, {}};
    for (const auto& [key, group] : groups) {
        voucher.entries.push_back(
            {transit, account_or(group.method_account, &rows::Configuracion_Contable::Ct_Cuenta_Abono, "DEPOSITO_PAGO"),
             local_amount(group.sum, group.currency, group.rate), group.method_name});
    }
    return voucher;
}

Voucher Accounting::of_check(const Text& folio) {
    const auto check =
        db.Cheque.first([&](const auto& r) { return same(r.Ch_Folio, folio) && differs(r.Es_Cve_Estado, "CA"); });
    const auto type =
        !check ? std::nullopt : by(db.Tipo_Cheque, &rows::Tipo_Cheque::Tc_Cve_Tipo_Cheque, check->Tc_Cve_Tipo_Cheque);
    const auto branch =
        !check ? std::nullopt : by(db.Sucursal, &rows::Sucursal::Sc_Cve_Sucursal, check->Sc_Cve_Sucursal);
    refuse_if(!type || !branch, {"No se encontró el cheque: ", folio, ", por contabilizar"});
    Text debit = type->Tc_Cuenta_Contable;
    if (debit.empty() && (type->Tc_Solicitar == "01" || type->Tc_Solicitar == "05")) {
        debit = suite.look_up(db.Proveedor, &rows::Proveedor::Pv_Cuenta_Contable, &rows::Proveedor::Pv_Cve_Proveedor,
                              check->Ch_Solicitar_Valor);
    } else if (debit.empty() && !type->Tc_Solicitar.empty()) {
        debit = suite.look_up(db.Cliente, &rows::Cliente::Cl_Cuenta_Contable, &rows::Cliente::Cl_Cve_Cliente,
                              check->Ch_Solicitar_Valor);
    }
    const Text credit =
        movement_account(check->Ch_Transferencia == "SI" ? "TES_MOVIMIENTO_TRANSFERENCIA" : "TES_MOVIMIENTO_CHEQUE");
    return {branch->Em_Cve_Empresa,
            date_of(check->Ch_Fecha),
            "Cheque " + folio,
            {{account_or(debit, &rows::Configuracion_Contable::Ct_Cuenta_Cargo, "CHEQUE"),
              account_or(credit, &rows::Configuracion_Contable::Ct_Cuenta_Abono, "CHEQUE"),
              cents(check->Ch_Importe * check->Ch_Tipo_Cambio), check->Ch_Concepto}}};
}

double Accounting::local_amount(double amount, const Text& currency, double rate) {
    return cents(same_code(currency, suite.parameter("FIN_MONEDA_LOCAL")) ? amount : amount * rate);
}

Text Accounting::account_or(const Text& account, Text rows::Configuracion_Contable::*configured, const Text& code) {
    if (!account.empty()) return account;
    const auto row = by(db.Configuracion_Contable, &rows::Configuracion_Contable::Ct_Codigo, code);
    refuse_if(!row || ((*row).*configured).empty(),
              {"No hay cuenta contable para ", code,
               "; asígnela en el catálogo o en la configuración contable del documento"});
    return (*row).*configured;
}

Text Accounting::movement_account(const Text& type_parameter) {
    return suite.look_up(db.Banco_Tipo_Movimiento, &rows::Banco_Tipo_Movimiento::Bt_Cuenta_Contable,
                         &rows::Banco_Tipo_Movimiento::Bt_Cve_Banco_Tipo_Movimiento, suite.parameter(type_parameter));
}

/// Whether the document's voucher stands with the same amount; one that does not is cancelled.
bool Accounting::keeps_voucher(const Text& document_code, const Text& folio, const Voucher& voucher) {
    const auto old = db.Poliza.first([&](const auto& r) {
        return same(r.Pz_Documento, folio) && same(r.Pz_Tabla, document_code) && differs(r.Es_Cve_Estado, "CA") &&
               db.Poliza_Detalle.any([&](const auto& line) { return same(line.Pz_Folio, r.Pz_Folio); });
    });
    if (!old) return false;
    double debits = 0, charged = 0;
    for (const Entry& entry : voucher.entries) debits += std::abs(entry.amount);
    for (const auto& line : db.Poliza_Detalle.rows()) {
        if (same(line.Pz_Folio, old->Pz_Folio)) charged += line.Pzd_Cargo;
    }
    if (std::abs(debits - charged) < half_a_cent) return true;
    cancel_voucher(*old, document_code + ": " + folio);
    return false;
}

void Accounting::cancel_voucher(const rows::Poliza& voucher, const Text& document) {
    refuse_if(voucher.Es_Cve_Estado == "CE", {"La póliza: ", voucher.Pz_Folio, ", de ", document,
                                              ", está cerrada; ábrala en contabilidad antes de continuar"});
    refuse_if(suite.is_period_closed(date_of(voucher.Pz_Fecha), module_name),
              {"El período contable de la póliza: ", voucher.Pz_Folio, ", de ", document,
               ", está cerrado; ábralo en contabilidad antes de continuar"});
    db.Poliza.update([&](const auto& r) { return same(r.Pz_Folio, voucher.Pz_Folio); },
                     [&](auto& r) {
                         r.Es_Cve_Estado = "CA";
                         r.Oper_Baja = r.Oper_Ult_Modif = suite.user;
                         r.Fecha_Baja = r.Fecha_Ult_Modif = suite.stamp();
                     });
}

/// The lines first, then the voucher.
void Accounting::write(const Text& document_code, const Text& folio, const Voucher& voucher) {
    const Text voucher_folio = suite.take_folio({}, "POLIZA");
    int number = 0;
    for (const Entry& entry : voucher.entries) {
        const bool reversed = entry.amount < 0;
        const double amount = bare(std::abs(entry.amount));
        db.Poliza_Detalle.insert({voucher_folio, four_digits(++number),
                                  reversed ? entry.credit_account : entry.debit_account, entry.text, amount, 0});
        db.Poliza_Detalle.insert({voucher_folio, four_digits(++number),
                                  reversed ? entry.debit_account : entry.credit_account, entry.text, 0, amount});
    }
    rows::Poliza row;
    row.Pz_Folio = voucher_folio;
    row.Em_Cve_Empresa = voucher.company;
    row.Pz_Fecha = sql_date(voucher.date);
    row.Pz_Tabla = document_code;
    row.Pz_Documento = folio;
    row.Pz_Concepto = voucher.text;
    row.Oper_Alta = row.Oper_Ult_Modif = suite.user;
    row.Fecha_Alta = row.Fecha_Ult_Modif = suite.stamp();
    db.Poliza.insert(row);
}

}  // namespace cuvexa::model
