#include "interruptions/scenario.h"
#include "suite/expenses.h"

namespace cuvexa::tests {
namespace {

const std::string receipt = "RP-MTY-00000001";
const std::string second_receipt = "RP-MTY-00000002";
const std::string deposit = "DP-MTY-00000001";
const std::string check = "CH-MTY-00000001";
const std::string request = "SC-MTY-00000001";

/// Another day than that of the documents, so that the date of an application shows.
Date application_date() {
    return make_date(2024, 3, 20);
}

Preparation in_turn(std::vector<Preparation> steps) {
    return [steps = std::move(steps)](Company& company) {
        for (const Preparation& step : steps) step(company);
    };
}

Preparation done(const Call& call) {
    return [call](Company& company) {
        if (!call(company)) throw std::runtime_error(company.treasury().Error());
    };
}

// ---- Receipts and deposits ------------------------------------------------------------------------------------------

const std::vector<tRpDetalle> cash_and_check = {Company::receipt_line(60),
                                                Company::receipt_line(40, "02", "Sierra", "1")};
const std::vector<tRpDetalle> cash_and_card = {Company::receipt_line(60), Company::receipt_line(40, "06", "", "V-1")};

Preparation captured(const std::vector<tRpDetalle>& lines, const std::string& type, const std::string& party) {
    return [=](Company& company) { company.capture_receipt(lines, Company::receipt_header(type, party)); };
}

bool close_receipt(Company& company) {
    return company.treasury().FinReciboCaja(receipt);
}

Preparation closed(const std::vector<tRpDetalle>& lines, const std::string& type, const std::string& party) {
    return in_turn({captured(lines, type, party), done(close_receipt)});
}

/// More than the customer owes: payments and an advance.
const std::vector<tRpDetalle> much_in_cash = {Company::receipt_line(9000)};

void two_closed_receipts(Company& company) {
    for (const std::string& folio : {receipt, second_receipt}) {
        company.capture_receipt(cash_and_check);
        company.treasury().FinReciboCaja(folio);
    }
}

bool make_deposit(Company& company) {
    return company.treasury().Genera_Deposito("SRR-MXN", receipt + "," + second_receipt, Company::today(), true,
                                              Company::today());
}

bool deposit_of_one(Company& company) {
    return company.treasury().Genera_Deposito("SRR-MXN", receipt, Company::today(), false, Company::today());
}

bool cancel_receipt(Company& company) {
    return company.treasury().Cancelar_Recibo_Caja(receipt, true, true);
}

std::vector<Scenario> receipt_scenarios() {
    const auto begun = [](Company& company) {
        company.treasury().NuevoReciboCaja();
        company.treasury().RpEncabezado(Company::receipt_header());
        company.treasury().RpDetalle(Company::receipt_line(100));
    };
    const auto cancel_deposit = [](Company& company) { return company.treasury().Cancelar_Deposito(deposit); };
    const auto cancel_movements = [](Company& company) {
        return company.treasury().Cancelar_Documento_Bancos("DEPOSITO_PAGO", deposit);
    };
    const Preparation one_deposited = in_turn({closed(cash_and_check, "01", ""), done(deposit_of_one)});
    const Preparation two_deposited = in_turn({two_closed_receipts, done(make_deposit)});
    return {
        {"Add_Recibo_Caja_Detalle", begun,
         [](Company& company) { return company.treasury().Add_Recibo_Caja_Detalle(); }},
        {"FinReciboCaja_of_nobody", captured(cash_and_check, "01", ""), close_receipt},
        {"FinReciboCaja_with_a_receivable", captured(cash_and_card, "01", ""), close_receipt},
        {"FinReciboCaja_of_a_customer", captured(much_in_cash, "02", "CL01"), close_receipt},
        {"FinReciboCaja_of_a_customer_in_two_methods", captured(cash_and_check, "02", "CL01"), close_receipt},
        {"FinReciboCaja_of_a_debtor", captured(cash_and_check, "03", "DE01"), close_receipt},
        {"FinReciboCaja_of_a_supplier", captured(cash_and_check, "04", "PV01"), close_receipt},
        {"Cancelar_Recibo_Caja_of_nobody", closed(cash_and_check, "01", ""), cancel_receipt},
        {"Cancelar_Recibo_Caja_with_a_receivable", closed(cash_and_card, "01", ""), cancel_receipt},
        {"Cancelar_Recibo_Caja_of_a_customer", closed(much_in_cash, "02", "CL01"), cancel_receipt},
        {"Cancelar_Recibo_Caja_of_a_debtor", closed(cash_and_check, "03", "DE01"), cancel_receipt},
        {"Cancelar_Recibo_Caja_of_a_supplier", closed(cash_and_check, "04", "PV01"), cancel_receipt},
        {"Cancelar_Recibo_Caja_with_its_deposit", one_deposited, cancel_receipt},
        {"Genera_Deposito", two_closed_receipts, make_deposit},
        {"Cancelar_Deposito", two_deposited, cancel_deposit},
        {"Cancelar_Documento_Bancos", two_deposited, cancel_movements},
    };
}

// ---- Bank movements and check requests --------------------------------------------------------------------------------

bool register_movement(Company& company) {
    tBnMovimiento movement = Company::movement();
    return company.treasury().Registra_Movimiento_Banco(movement);
}

bool add_request(Company& company) {
    company.treasury().SchEncabezado(Company::request_header());
    return company.treasury().Add_Solicitud_Cheque();
}

bool add_request_line(Company& company) {
    company.treasury().SchDetalle(Company::request_line(request));
    return company.treasury().Add_Solicitud_Cheque_Detalle();
}

void requests_wait(Company& company) {
    company.set_parameter("TES_AUTORIZAR_SOLICITUD_CHEQUE", "1");
}

std::vector<Scenario> movement_scenarios() {
    const Preparation with_lines = in_turn({done(add_request), done(add_request_line), done(add_request_line)});
    return {
        {"Registra_Movimiento_Banco", {}, register_movement},
        {"Cancelar_Movimiento_Bancos", done(register_movement),
         [](Company& company) { return company.treasury().Cancelar_Movimiento_Bancos("BM-00000001"); }},
        // An instance that has taken a folio for its request answers True from there on.
        {"Add_Solicitud_Cheque", {}, add_request, true},
        {"Add_Solicitud_Cheque_Detalle", done(add_request), add_request_line},
        {"Autorizar_Solicitud_Cheque", in_turn({requests_wait, with_lines}),
         [](Company& company) { return company.treasury().Autorizar_Solicitud_Cheque(request); }},
        {"Cancelar_Solicitud_Cheque", with_lines,
         [](Company& company) { return company.treasury().Cancelar_Solicitud_Cheque(request); }},
    };
}

// ---- Checks -----------------------------------------------------------------------------------------------------------

/// The header and one line, the line written where the member that creates the check does not do it.
Preparation header_and_line(const std::string& type, const std::string& party, double amount, bool written) {
    return [=](Company& company) {
        tTsDetalle line = Company::check_line(amount, type == "0001" ? "CXP-MTY-00000001" : "");
        if (written) {
            company.capture_check({line, line}, Company::check_header(type, party));
            return;
        }
        company.treasury().Nuevo();
        company.treasury().Encabezado(Company::check_header(type, party));
        company.treasury().Detalle(line);
    };
}

struct Kind {
    std::string name;
    bool writes_its_line;  ///< the member that creates the check
    Preparation captured;
    Call create;
    Preparation ready = {};  ///< what its application needs besides
};

void link_advances(Company& company) {
    reference::link_advance_to_check(*company.suite(), check, "AN-MTY-00000001", 400, 1);
    reference::link_advance_to_check(*company.suite(), check, "AN-MTY-00000002", 250, 1);
}

const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all = {
        {"supplier", false, header_and_line("0001", "PV01", 100, true),
         [](Company& company) { return company.treasury().Crear_Cheque_Pago_Proveedor(check); }},
        {"expense", true, header_and_line("0002", "DE01", 1300, false),
         [](Company& company) { return company.treasury().Crear_Cheque_Gasto_x_Comprobar(); }, link_advances},
        {"customer", false, header_and_line("0003", "CL01", 400, true),
         [](Company& company) { return company.treasury().Crear_Cheque_Devolucion_Cliente(); }},
        {"debtor", true, header_and_line("0004", "DE01", 700, false),
         [](Company& company) { return company.treasury().Crear_Cheque_Deudor(); }},
        {"supplier_advance", true, header_and_line("0005", "PV01", 800, false),
         [](Company& company) { return company.treasury().Crear_Cheque_Anticipo_Cxp(); }},
    };
    return all;
}

/// One that its budget holds back.
const Kind& held_back() {
    static const Kind kind = {"held_back", true, header_and_line("0002", "DE01", 99000, false),
                              [](Company& company) { return company.treasury().Crear_Cheque_Gasto_x_Comprobar(); }};
    return kind;
}

Preparation created(const Kind& kind) {
    return in_turn({kind.captured, done(kind.create), kind.ready ? kind.ready : [](Company&) {}});
}

bool apply(Company& company) {
    return company.treasury().Aplicar_Cheque(check, application_date());
}
bool apply_firm(Company& company) {
    return company.treasury().Aplicar_Cheque(check, Company::today(), true);
}
bool take_back(Company& company) {
    return company.treasury().Cancelar_Aplicacion_Cheque(check);
}
bool cancel_check(Company& company) {
    return company.treasury().Cancelar_Cheque(check);
}

/// A check that writes its own line, interrupted between the line and the check: the call again writes a second line, and a
/// check of two lines is a normal thing.
Scenario creation(const Kind& kind) {
    Scenario scenario{"Crear_Cheque_" + kind.name, kind.captured, kind.create};
    if (kind.writes_its_line) {
        scenario.doubles_unseen_at = {"SELECT ISNULL(SUM(Cxa_Importe * Cxa_Tipo_Cambio)", "INSERT INTO Cheque("};
    }
    return scenario;
}

std::vector<Scenario> scenarios_of(const Kind& kind) {
    const Preparation applied = in_turn({created(kind), done(apply)});
    return {creation(kind),
            {"Aplicar_Cheque_" + kind.name, created(kind), apply},
            {"Cancelar_Aplicacion_Cheque_" + kind.name, applied, take_back},
            {"Cancelar_Cheque_" + kind.name, created(kind), cancel_check},
            {"Cancelar_Cheque_applied_" + kind.name, applied, cancel_check}};
}

std::vector<Scenario> check_scenarios() {
    const Kind& supplier = kinds().front();
    const auto own_transfer = [](Company& company) {
        tTsEncabezado header = Company::check_header("0000", "");
        header.Bc_Cve_Banco_Cuenta2 = "PTO-MXN";
        company.capture_check({Company::check_line(10, "")}, header);
    };
    std::vector<Scenario> all = {
        {"Add_Cheque_Detalle", header_and_line("0001", "PV01", 100, false),
         [](Company& company) { return company.treasury().Add_Cheque_Detalle(); }},
        {"Crear_Cheque_Devolucion_Anticipo", supplier.captured,
         [](Company& company) { return company.treasury().Crear_Cheque_Devolucion_Anticipo(check); }},
        {"Crear_Traspaso_Cuenta_Propia", own_transfer,
         [](Company& company) { return company.treasury().Crear_Traspaso_Cuenta_Propia(); }},
        creation(held_back()),
        {"Cancelar_Cheque_held_back", created(held_back()), cancel_check},
        {"Aplicar_Cheque_firm", created(supplier), apply_firm},
        {"Cancelar_Aplicacion_Cheque_firm", in_turn({created(supplier), done(apply_firm)}), take_back},
        {"Finalizar_Cheque", created(supplier),
         [](Company& company) { return company.treasury().Finalizar_Cheque(check); }},
    };
    for (const Kind& kind : kinds()) {
        for (Scenario& scenario : scenarios_of(kind)) all.push_back(std::move(scenario));
    }
    return all;
}

}  // namespace

const std::vector<Scenario>& scenarios() {
    static const std::vector<Scenario> all = [] {
        std::vector<Scenario> gathered;
        for (const auto& group : {receipt_scenarios(), movement_scenarios(), check_scenarios()}) {
            gathered.insert(gathered.end(), group.begin(), group.end());
        }
        return gathered;
    }();
    return all;
}

}  // namespace cuvexa::tests
