#include "races/race.h"
#include "suite/expenses.h"

namespace cuvexa::tests {
namespace {

using Given = decltype(Race::given);
using Call_on = decltype(Race::call);

Given no_document() {
    return [](User&, int) { return std::string(); };
}

/// A member that takes a folio.
template <class Member>
Call_on by_folio(Member member) {
    return [member](User& user, const std::string& folio, int) { return (user.treasury().*member)(folio); };
}

/// The document, and what was done to it before.
Given after(const Given& given, const Call_on& call) {
    return [given, call](User& user, int number) {
        std::string folio = given(user, number);
        require(call(user, folio, number), user);
        return folio;
    };
}

// ---- Receipts, deposits, movements ------------------------------------------------------------------------------------

Given captured(const std::string& type, const std::string& party) {
    return [=](User& user, int) {
        user.treasury().NuevoReciboCaja();
        user.treasury().RpEncabezado(Company::receipt_header(type, party));
        for (const tRpDetalle& line :
             {Company::receipt_line(6), Company::receipt_line(4, "02", "Sierra", "1"), Company::receipt_line(2)}) {
            user.treasury().RpDetalle(line);
            require(user.treasury().Add_Recibo_Caja_Detalle(), user);
        }
        return user.treasury().RpEncabezado().Rp_Folio;
    };
}

bool close_receipt(User& user, const std::string& folio, int) {
    return user.treasury().FinReciboCaja(folio);
}

bool cancel_receipt(User& user, const std::string& folio, int) {
    return user.treasury().Cancelar_Recibo_Caja(folio, true, true);
}

Given closed(const std::string& type = "01", const std::string& party = "") {
    return after(captured(type, party), close_receipt);
}

bool deposit(User& user, const std::string& receipts, int = 0) {
    return user.treasury().Genera_Deposito("SRR-MXN", receipts, Company::today(), true, Company::today());
}

/// The folio of the deposit.
Given deposited() {
    return [](User& user, int number) {
        require(deposit(user, closed()(user, number)), user);
        return user.treasury().Dp_Folio();
    };
}

std::vector<Race> receipt_races() {
    std::vector<Race> all;
    for (const auto& [kind, type, party] : {std::tuple{"nobody", "01", ""}, std::tuple{"customer", "02", "CL01"},
                                            std::tuple{"debtor", "03", "DE01"}, std::tuple{"supplier", "04", "PV01"}}) {
        all.push_back({std::string("FinReciboCaja_of_") + kind, captured(type, party), close_receipt, Told::doubles});
        all.push_back({std::string("Cancelar_Recibo_Caja_of_") + kind, closed(type, party), cancel_receipt});
    }
    const Given three_receipts = [](User& user, int number) {
        std::string folios;
        for (int i = 0; i < 3; ++i) folios += (i == 0 ? "" : ",") + closed()(user, number);
        return folios;
    };
    const auto deposit_all_but_last = [](User& user, const std::string& receipts, int) {
        return deposit(user, receipts.substr(0, receipts.rfind(',')));
    };
    const auto deposit_all_but_first = [](User& user, const std::string& receipts, int) {
        return deposit(user, receipts.substr(receipts.find(',') + 1));
    };
    all.push_back({"Genera_Deposito", closed(), deposit});
    all.push_back({"Genera_Deposito_of_some_in_common", three_receipts, deposit_all_but_last, Told::true_again,
                   deposit_all_but_first});
    all.push_back({"Cancelar_Deposito", deposited(), by_folio(&Tesoreria::Cancelar_Deposito)});
    all.push_back({"Genera_Deposito_and_Cancelar_Recibo_Caja", closed(), deposit, Told::true_again, cancel_receipt});
    return all;
}

std::string source_document(int number) {
    return "EC-" + std::to_string(number);
}

bool register_movement(User& user, const std::string&, int number) {
    tBnMovimiento movement = Company::movement();
    movement.Bm_Documento = source_document(number);
    return user.treasury().Registra_Movimiento_Banco(movement);
}

std::vector<Race> movement_races() {
    const Given registered = [](User& user, int number) {
        require(register_movement(user, "", number), user);
        return user.treasury().FolioMovimiento;
    };
    const auto register_another = [](User& user, const std::string& document, int number) {
        return register_movement(user, document, -number);
    };
    const auto cancel_all = [](User& user, const std::string&, int number) {
        return user.treasury().Cancelar_Documento_Bancos("ESTADO_CUENTA", source_document(number));
    };
    return {
        {"Registra_Movimiento_Banco", no_document(), register_movement, Told::true_again, register_another},
        {"Cancelar_Movimiento_Bancos", registered, by_folio(&Tesoreria::Cancelar_Movimiento_Bancos)},
        {"Cancelar_Documento_Bancos", registered, cancel_all},
    };
}

// ---- Check requests -----------------------------------------------------------------------------------------------------

Given requested() {
    return [](User& user, int) {
        user.renew();
        user.treasury().SchEncabezado(Company::request_header());
        require(user.treasury().Add_Solicitud_Cheque(), user);
        const std::string folio = user.treasury().SchEncabezado().Sch_Folio;
        user.treasury().SchDetalle(Company::request_line(folio));
        require(user.treasury().Add_Solicitud_Cheque_Detalle(), user);
        return folio;
    };
}

std::vector<Race> request_races() {
    const Call_on authorize = by_folio(&Tesoreria::Autorizar_Solicitud_Cheque);
    const Call_on cancel = by_folio(&Tesoreria::Cancelar_Solicitud_Cheque);
    return {
        {"Autorizar_Solicitud_Cheque", requested(), authorize, Told::true_again},
        {"Cancelar_Solicitud_Cheque", requested(), cancel},
        {"Autorizar_Solicitud_Cheque_and_Cancelar_Solicitud_Cheque", requested(), authorize, Told::true_again, cancel},
    };
}

// ---- Checks -------------------------------------------------------------------------------------------------------------

constexpr double amount = 1;
constexpr auto expense_type = "0002";

struct Kind {
    std::string name, type, party;
    bool writes_its_line;  ///< the member that creates the check
    std::function<bool(Tesoreria&, const std::string& folio)> create;
};

const std::vector<Kind>& kinds() {
    static const std::vector<Kind> all = {
        {"supplier", "0001", "PV01", false,
         [](Tesoreria& treasury, const std::string& folio) { return treasury.Crear_Cheque_Pago_Proveedor(folio); }},
        {"expense", expense_type, "DE01", true,
         [](Tesoreria& treasury, const std::string&) { return treasury.Crear_Cheque_Gasto_x_Comprobar(); }},
        {"customer", "0003", "CL01", false,
         [](Tesoreria& treasury, const std::string&) { return treasury.Crear_Cheque_Devolucion_Cliente(); }},
        {"debtor", "0004", "DE01", true,
         [](Tesoreria& treasury, const std::string&) { return treasury.Crear_Cheque_Deudor(); }},
        {"supplier_advance", "0005", "PV01", true,
         [](Tesoreria& treasury, const std::string&) { return treasury.Crear_Cheque_Anticipo_Cxp(); }},
        {"returned_advance", "0001", "PV01", false,
         [](Tesoreria& treasury, const std::string& folio) {
             return treasury.Crear_Cheque_Devolucion_Anticipo(folio);
         }},
    };
    return all;
}

/// Captures and creates the check of that number.
Call_on create(const Kind& kind) {
    return [kind](User& user, const std::string&, int number) {
        Tesoreria& treasury = user.treasury();
        treasury.Nuevo();
        tTsEncabezado header = Company::check_header(kind.type, kind.party);
        header.Ch_Referencia = "R" + std::to_string(number);
        treasury.Encabezado(header);
        treasury.Detalle(Company::check_line(amount, kind.type == "0001" ? "CXP-MTY-00000001" : ""));
        if (!kind.writes_its_line && !treasury.Add_Cheque_Detalle()) return false;
        return kind.create(treasury, treasury.Encabezado().Ch_Folio);
    };
}

/// Something that the debtor has proved, which the application of the check sets against its money.
void prove_expense(User& user, const std::string& check, int number) {
    const std::string advance =
        reference::register_expense_advance(user.suite(), {.debtor = "DE01",
                                                           .branch = "MTY",
                                                           .expense = "GR-" + std::to_string(number),
                                                           .date = Company::today(),
                                                           .amount = amount,
                                                           .currency = "MXN"});
    reference::link_advance_to_check(user.suite(), check, advance, amount);
}

Given created(const Kind& kind) {
    return [kind](User& user, int number) {
        require(create(kind)(user, "", number), user);
        std::string folio = user.treasury().Encabezado().Ch_Folio;
        if (kind.type == expense_type) prove_expense(user, folio, number);
        return folio;
    };
}

bool apply(User& user, const std::string& folio, int) {
    return user.treasury().Aplicar_Cheque(folio, Company::today());
}

std::vector<Race> check_races() {
    const Call_on take_back = by_folio(&Tesoreria::Cancelar_Aplicacion_Cheque);
    const Call_on cancel = by_folio(&Tesoreria::Cancelar_Cheque);
    std::vector<Race> all;
    for (const Kind& kind : kinds()) {
        const Given applied = after(created(kind), apply);
        all.push_back({"Crear_Cheque_" + kind.name, no_document(), create(kind)});
        all.push_back({"Aplicar_Cheque_" + kind.name, created(kind), apply});
        all.push_back({"Cancelar_Aplicacion_Cheque_" + kind.name, applied, take_back, Told::true_again});
        all.push_back({"Cancelar_Cheque_" + kind.name, created(kind), cancel});
        all.push_back({"Cancelar_Cheque_applied_" + kind.name, applied, cancel});
    }
    const Given supplier = created(kinds().front());
    all.push_back({"Finalizar_Cheque", supplier, by_folio(&Tesoreria::Finalizar_Cheque), Told::true_again});
    all.push_back({"Aplicar_Cheque_and_Cancelar_Cheque", supplier, apply, Told::true_again, cancel});
    return all;
}

}  // namespace

void require(bool done, User& user) {
    if (!done) throw std::runtime_error(user.treasury().Error());
}

const std::vector<Race>& races() {
    static const std::vector<Race> all = [] {
        std::vector<Race> gathered;
        for (const auto& group : {receipt_races(), movement_races(), request_races(), check_races()}) {
            gathered.insert(gathered.end(), group.begin(), group.end());
        }
        return gathered;
    }();
    return all;
}

}  // namespace cuvexa::tests
