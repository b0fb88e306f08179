#include "long_documents.h"

#include <cstdio>
#include <stdexcept>

namespace cuvexa::bench {
namespace {

using Given = decltype(Long_document::given);
using Call = decltype(Long_document::call);

const Date today = make_date(2024, 3, 15);
constexpr auto account = "SRR-MXN";

void require_true(bool done, const Tesoreria& treasury) {
    if (!done) throw std::runtime_error(treasury.Error());
}

template <class Member>
Call by_folio(Member member) {
    return [member](Tesoreria& treasury, const std::string& folio, int) { return (treasury.*member)(folio); };
}

Given after(const Given& given, const Call& call) {
    return [given, call](Tesoreria& treasury, int lines) {
        std::string document = given(treasury, lines);
        require_true(call(treasury, document, lines), treasury);
        return document;
    };
}

std::string numbered(const char* name, int number) {
    return name + std::to_string(number);
}

// ---- Receipts and deposits ----------------------------------------------------------------------------------------------

/// In how many ways the lines of a receipt are paid.
enum class Paid { in_cash, each_by_a_check_of_its_own };

void begin_receipt(Tesoreria& treasury, const std::string& type, const std::string& party) {
    treasury.NuevoReciboCaja();
    tRpEncabezado header = treasury.RpEncabezado();
    header.Rp_Fecha = header.Rp_Fecha_Deposito = today;
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = type;
    header.Rp_Solicitar_Valor = party;
    header.Sucursal.Sc_Cve_Sucursal = "MTY";
    header.Mn_Cve_Moneda = "MXN";
    header.Rp_Tipo_Cambio = 1;
    treasury.RpEncabezado(header);
}

bool add_receipt_lines(Tesoreria& treasury, Paid paid, int lines) {
    for (int i = 1; i <= lines; ++i) {
        tRpDetalle line;
        line.Rp_Importe = 10;
        line.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = "01";
        if (paid == Paid::each_by_a_check_of_its_own) {
            line.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = "02";
            line.Rp_Banco = "Sierra";
            line.Rp_Cheque = numbered("", i);
        }
        treasury.RpDetalle(line);
        if (!treasury.Add_Recibo_Caja_Detalle()) return false;
    }
    return true;
}

Given receipt(Paid paid, const std::string& type = "01", const std::string& party = "") {
    return [=](Tesoreria& treasury, int lines) {
        begin_receipt(treasury, type, party);
        require_true(add_receipt_lines(treasury, paid, lines), treasury);
        return treasury.RpEncabezado().Rp_Folio;
    };
}

bool close_receipt(Tesoreria& treasury, const std::string& folio, int) {
    return treasury.FinReciboCaja(folio);
}

Given closed(Paid paid, const std::string& type = "01", const std::string& party = "") {
    return after(receipt(paid, type, party), close_receipt);
}

/// As many receipts as lines, each of one, their folios parted by commas.
Given closed_receipts_of_one_line() {
    return [](Tesoreria& treasury, int lines) {
        std::string folios;
        for (int i = 0; i < lines; ++i) folios += (i == 0 ? "" : ",") + closed(Paid::in_cash)(treasury, 1);
        return folios;
    };
}

bool cancel_receipt(Tesoreria& treasury, const std::string& folio, int) {
    return treasury.Cancelar_Recibo_Caja(folio, true, true);
}

bool deposit(Tesoreria& treasury, const std::string& receipts, int) {
    return treasury.Genera_Deposito(account, receipts, today, true, today);
}

/// The deposit of what is given.
Given deposited(const Given& receipts) {
    return [receipts](Tesoreria& treasury, int lines) {
        require_true(deposit(treasury, receipts(treasury, lines), lines), treasury);
        return treasury.Dp_Folio();
    };
}

std::vector<Long_document> receipts_and_deposits() {
    const Given cash = closed(Paid::in_cash), checks = closed(Paid::each_by_a_check_of_its_own),
                many = closed_receipts_of_one_line();
    const Given begun = [](Tesoreria& treasury, int) {
        begin_receipt(treasury, "01", "");
        return std::string();
    };
    const Call add = [](Tesoreria& treasury, const std::string&, int lines) {
        return add_receipt_lines(treasury, Paid::in_cash, lines);
    };
    const Call cancel_deposit = by_folio(&Tesoreria::Cancelar_Deposito);
    const Call cancel_movements = [](Tesoreria& treasury, const std::string& folio, int) {
        return treasury.Cancelar_Documento_Bancos("DEPOSITO_PAGO", folio);
    };
    return {
        {"Add_Recibo_Caja_Detalle", begun, add},
        {"FinReciboCaja", receipt(Paid::in_cash), close_receipt},
        {"FinReciboCaja_of_a_customer", receipt(Paid::in_cash, "02", "CL01"), close_receipt},
        {"FinReciboCaja_of_a_supplier", receipt(Paid::each_by_a_check_of_its_own, "04", "PV01"), close_receipt},
        {"Cancelar_Recibo_Caja", cash, cancel_receipt},
        {"Cancelar_Recibo_Caja_of_a_customer", closed(Paid::in_cash, "02", "CL01"), cancel_receipt},
        {"Genera_Deposito_of_one_receipt", cash, deposit},
        {"Genera_Deposito_of_one_receipt_in_checks", checks, deposit, true},
        {"Genera_Deposito_of_many_receipts", many, deposit},
        {"Cancelar_Deposito_of_one_receipt", deposited(cash), cancel_deposit},
        {"Cancelar_Deposito_of_one_receipt_in_checks", deposited(checks), cancel_deposit},
        {"Cancelar_Deposito_of_many_receipts", deposited(many), cancel_deposit},
        {"Cancelar_Documento_Bancos", deposited(checks), cancel_movements},
        {"Cancelar_Recibo_Caja_with_its_deposit", after(cash, deposit), cancel_receipt},
    };
}

// ---- Movements ------------------------------------------------------------------------------------------------------------

bool register_movements(Tesoreria& treasury, const std::string&, int lines) {
    for (int i = 1; i <= lines; ++i) {
        tBnMovimiento movement;
        movement.Bt_Cve_Banco_Tipo_Movimiento = "INT";
        movement.Bm_Fecha = movement.Bm_Fecha_Firme = today;
        movement.Bm_Tabla = "ESTADO_CUENTA";
        movement.Bm_Documento = numbered("EC-", i);
        movement.Cuenta.Bc_Cve_Banco_Cuenta = account;
        movement.Bm_Importe = 10;
        movement.Bm_Tipo_Cambio = 1;
        if (!treasury.Registra_Movimiento_Banco(movement)) return false;
    }
    return true;
}

std::vector<Long_document> movements() {
    const Given none = [](Tesoreria&, int) { return std::string(); };
    const Call cancel_each = [](Tesoreria& treasury, const std::string&, int lines) {
        for (int i = 1; i <= lines; ++i) {
            if (!treasury.Cancelar_Documento_Bancos("ESTADO_CUENTA", numbered("EC-", i))) return false;
        }
        return true;
    };
    const Call balance = [](Tesoreria& treasury, const std::string&, int) { return treasury.GetSaldo(account) != 0; };
    return {
        {"Registra_Movimiento_Banco", none, register_movements},
        {"Cancelar_Documento_Bancos_of_each", after(none, register_movements), cancel_each},
        {"GetSaldo", after(none, register_movements), balance},
    };
}

// ---- Checks and requests --------------------------------------------------------------------------------------------------

void begin_check(Tesoreria& treasury, const std::string& type, const std::string& party, int number) {
    treasury.Nuevo();
    tTsEncabezado header = treasury.Encabezado();
    header.Ch_Fecha = today;
    header.Tc_Cve_Tipo_Cheque = type;
    header.Ch_Transferencia = "NO";
    header.Ch_Referencia = numbered("B", number);
    header.Ch_Concepto = "Servicios del mes";
    header.Ch_Beneficiario = "Limpieza Jacaranda";
    header.Bc_Cve_Banco_Cuenta = account;
    header.Mn_Cve_Moneda = "MXN";
    header.Ch_Tipo_Cambio = 1;
    header.Ch_Solicitar_Valor = party;
    header.Sucursal.Sc_Cve_Sucursal = "MTY";
    treasury.Encabezado(header);
}

tTsDetalle check_line(const std::string& payable) {
    tTsDetalle line;
    line.Cxp_Folio = payable;
    line.Mn_Cve_Moneda = "MXN";
    line.Ch_Tipo_Cambio = 1;
    line.Ch_Importe = 0.01;
    return line;
}

/// What the supplier is owed, and the check pays line by line.
constexpr int payables_of_the_sample_company = 3;

std::string payable(int number) {
    char folio[20];
    std::snprintf(folio, sizeof folio, "CXP-MTY-%08d", payables_of_the_sample_company + number);
    return folio;
}

void make_payables(Tesoreria& treasury, int payables) {
    for (int i = 0; i < payables; ++i) closed(Paid::in_cash, "04", "PV01")(treasury, 1);
}

enum class Pays { payables, nothing };

bool add_check_lines(Tesoreria& treasury, Pays pays, int lines) {
    for (int i = 1; i <= lines; ++i) {
        treasury.Detalle(check_line(pays == Pays::payables ? payable(i) : ""));
        if (!treasury.Add_Cheque_Detalle()) return false;
    }
    return true;
}

struct Kind {
    std::string name, type, party;
    Pays pays;
    Call create;
};

Given captured(const Kind& kind) {
    return [kind](Tesoreria& treasury, int lines) {
        if (kind.pays == Pays::payables) make_payables(treasury, lines);
        begin_check(treasury, kind.type, kind.party, 1);
        require_true(add_check_lines(treasury, kind.pays, lines), treasury);
        return treasury.Encabezado().Ch_Folio;
    };
}

bool apply(Tesoreria& treasury, const std::string& folio, int) {
    return treasury.Aplicar_Cheque(folio, today, true);
}

/// Checks of one line, one after the other.
bool create_checks(Tesoreria& treasury, const std::string&, int lines) {
    for (int i = 1; i <= lines; ++i) {
        begin_check(treasury, "0001", "PV01", i);
        if (!add_check_lines(treasury, Pays::payables, 1)) return false;
        if (!treasury.Crear_Cheque_Pago_Proveedor(treasury.Encabezado().Ch_Folio)) return false;
    }
    return true;
}

std::vector<Long_document> checks() {
    const Kind supplier{"supplier", "0001", "PV01", Pays::payables, by_folio(&Tesoreria::Crear_Cheque_Pago_Proveedor)};
    const Kind refund{"customer", "0003", "CL01", Pays::nothing, [](Tesoreria& treasury, const std::string&, int) {
                          return treasury.Crear_Cheque_Devolucion_Cliente();
                      }};
    const Given none = [](Tesoreria&, int) { return std::string(); };
    const Given begun = [](Tesoreria& treasury, int) {
        begin_check(treasury, "0001", "PV01", 1);
        return std::string();
    };
    const Call add = [](Tesoreria& treasury, const std::string&, int lines) {
        return add_check_lines(treasury, Pays::payables, lines);
    };
    const Call take_back = by_folio(&Tesoreria::Cancelar_Aplicacion_Cheque);
    const Call cancel = by_folio(&Tesoreria::Cancelar_Cheque);
    std::vector<Long_document> all = {{"Add_Cheque_Detalle", begun, add},
                                      {"Crear_Cheque_Pago_Proveedor_of_each", none, create_checks}};
    for (const Kind& kind : {supplier, refund}) {
        const Given created = after(captured(kind), kind.create), applied = after(created, apply);
        all.push_back({"Crear_Cheque_" + kind.name, captured(kind), kind.create});
        all.push_back({"Aplicar_Cheque_" + kind.name, created, apply});
        all.push_back({"Cancelar_Aplicacion_Cheque_" + kind.name, applied, take_back});
        all.push_back({"Cancelar_Cheque_" + kind.name, created, cancel});
        all.push_back({"Cancelar_Cheque_applied_" + kind.name, applied, cancel});
    }
    all.push_back(
        {"Finalizar_Cheque", after(captured(supplier), supplier.create), by_folio(&Tesoreria::Finalizar_Cheque)});
    return all;
}

std::string begin_request(Tesoreria& treasury, int) {
    tSchEncabezado header;
    header.Sch_Fecha = today;
    header.Tc_Cve_Tipo_Cheque = "0001";
    header.Bc_Cve_Banco_Cuenta = account;
    header.Sucursal.Sc_Cve_Sucursal = "MTY";
    header.Sch_Importe = 10;
    header.Mn_Cve_Moneda = "MXN";
    header.Sch_Tipo_Cambio = 1;
    header.Sch_Transferencia = "NO";
    header.Sch_Aplicar = "SI";
    header.Sch_Firme = "NO";
    header.Sch_Solicitar_Valor = "PV01";
    treasury.SchEncabezado(header);
    require_true(treasury.Add_Solicitud_Cheque(), treasury);
    return treasury.SchEncabezado().Sch_Folio;
}

bool add_request_lines(Tesoreria& treasury, const std::string& folio, int lines) {
    for (int i = 0; i < lines; ++i) {
        tSchDetalle line;
        line.Sch_Folio = folio;
        line.Scd_Tabla = "CXP";
        line.Scd_Documento = "CXP-MTY-00000001";
        line.Scd_Importe = 0.01;
        line.Mn_Cve_Moneda = "MXN";
        line.Scd_Tipo_Cambio = 1;
        treasury.SchDetalle(line);
        if (!treasury.Add_Solicitud_Cheque_Detalle()) return false;
    }
    return true;
}

std::vector<Long_document> requests() {
    const Given requested = after(begin_request, add_request_lines);
    return {
        {"Add_Solicitud_Cheque_Detalle", begin_request, add_request_lines},
        {"Autorizar_Solicitud_Cheque", requested, by_folio(&Tesoreria::Autorizar_Solicitud_Cheque)},
        {"Cancelar_Solicitud_Cheque", requested, by_folio(&Tesoreria::Cancelar_Solicitud_Cheque)},
    };
}

}  // namespace

const std::vector<Long_document>& long_documents() {
    static const std::vector<Long_document> all = [] {
        std::vector<Long_document> gathered;
        for (const auto& group : {receipts_and_deposits(), movements(), checks(), requests()}) {
            gathered.insert(gathered.end(), group.begin(), group.end());
        }
        return gathered;
    }();
    return all;
}

const std::vector<std::string>& preparations() {
    static const std::vector<std::string> all = {
        "UPDATE Configuracion_Contable SET Ct_Automatica = 'SI'",
        "DELETE FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_AUTORIZAR_SOLICITUD_CHEQUE'",
        "INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor) VALUES ('TES_AUTORIZAR_SOLICITUD_CHEQUE', '1')",
    };
    return all;
}

}  // namespace cuvexa::bench
