#include "statements/cases.h"

namespace cuvexa::tests {
namespace {

using Create = bool (*)(Tesoreria&);

/// A kind of check under budget control.
struct Kind {
    std::string name;
    int type;
    std::string mode_parameter;
    std::string check_type, beneficiary;
    std::string table, prefix;
    std::vector<std::vector<std::string>> levels;  ///< code, holder and name of each, most specific first
    Create create;
    bool adds_its_line;
};

const std::vector<Kind> kinds = {
    {"a supplier advance",
     0,
     "TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR",
     "0005",
     "PV01",
     "Anticipo_Proveedor_Presupuesto",
     "App_",
     {{"PV", "PV01", "supplier"},
      {"GP", "MERC", "supplier's group"},
      {"SC", "MTY", "branch"},
      {"EM", "EM01", "company"}},
     [](Tesoreria& treasury) { return treasury.Crear_Cheque_Anticipo_Cxp(); },
     true},
    {"an expense to verify",
     1,
     "TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR",
     "0002",
     "DE01",
     "Gasto_x_Comprobar_Presupuesto",
     "Gcp_",
     {{"DE", "DE01", "debtor"}, {"SC", "MTY", "branch"}, {"EM", "EM01", "company"}},
     [](Tesoreria& treasury) { return treasury.Crear_Cheque_Gasto_x_Comprobar(); },
     true},
    {"a loan to a debtor",
     3,
     "TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR",
     "0004",
     "DE01",
     "Prestamo_Deudor_Presupuesto",
     "Pdp_",
     {{"DE", "DE01", "debtor"}, {"SC", "MTY", "branch"}, {"EM", "EM01", "company"}},
     [](Tesoreria& treasury) { return treasury.Crear_Cheque_Deudor(); },
     true},
    {"a refund to a customer",
     4,
     "TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE",
     "0003",
     "CL01",
     "Devolucion_Cliente_Presupuesto",
     "Dcp_",
     {{"CL", "CL01", "customer"}, {"SC", "MTY", "branch"}, {"EM", "EM01", "company"}},
     [](Tesoreria& treasury) { return treasury.Crear_Cheque_Devolucion_Cliente(); },
     false},
};

const Kind& kind_of(const std::string& check_type) {
    return *std::find_if(kinds.begin(), kinds.end(), [&](const Kind& kind) { return kind.check_type == check_type; });
}

/// Header and line, the line written where the member that creates the check does not do it.
void capture(Company& company, const Kind& kind) {
    if (!kind.adds_its_line) {
        company.capture_check({Company::check_line(400)}, Company::check_header(kind.check_type, kind.beneficiary));
        return;
    }
    company.treasury().Nuevo();
    company.treasury().Encabezado(Company::check_header(kind.check_type, kind.beneficiary));
    company.treasury().Detalle(Company::check_line(400));
}

// ---- The budget -----------------------------------------------------------------------------------------------------

/// A written check of that kind, and one budget of March alone.
Preparation with_budget(const Kind& kind, const std::vector<std::string>& level) {
    return [=](Company& company) {
        company.on.parameters[kind.mode_parameter] = std::string("0");
        capture(company, kind);
        kind.create(company.treasury());
        company.on.parameters[kind.mode_parameter] = std::string("1");
        company.sql("DELETE FROM " + kind.table);
        company.sql("INSERT INTO " + kind.table + " (" + kind.prefix + "Tipo, " + kind.prefix + "Valor, " +
                    kind.prefix + "Periodo, " + kind.prefix + "03) VALUES ('" + level[0] + "', '" + level[1] +
                    "', 2024, 9000)");
    };
}

Call charges(const Kind& kind) {
    return
        [=](Company& company) { return company.treasury().Afectar_Cheque_Presupuesto("CH-MTY-00000001", kind.type); };
}

std::vector<Case> budget_cases() {
    std::vector<Case> cases;
    for (const Kind& kind : kinds) {
        for (const auto& level : kind.levels) {
            cases.push_back(
                {kind.name + ", with a budget of the " + level[2], with_budget(kind, level), charges(kind)});
        }
    }
    const Kind& loan = kind_of("0004");
    cases.push_back({"a loan beyond its budget is held back",
                     [=](Company& company) {
                         with_budget(loan, loan.levels[0])(company);
                         company.sql("UPDATE Prestamo_Deudor_Presupuesto SET Pdp_03 = 1");
                     },
                     charges(loan)});
    cases.push_back({"a loan without control",
                     [=](Company& company) {
                         with_budget(loan, loan.levels[0])(company);
                         company.on.parameters[loan.mode_parameter] = std::string("0");
                     },
                     charges(loan)});
    return cases;
}

// ---- Creation -------------------------------------------------------------------------------------------------------

/// Without control and held back.
std::vector<Case> creation_cases(const std::string& check_type) {
    const Kind& kind = kind_of(check_type);
    const auto in_mode = [&](const std::string& mode, bool budget) -> Preparation {
        return [=](Company& company) {
            company.on.parameters[kind.mode_parameter] = mode;
            if (!budget) company.sql("DELETE FROM " + kind.table);
            capture(company, kind);
        };
    };
    const Call create = [&](Company& company) { return kind.create(company.treasury()); };
    return {{"without budget control", in_mode("0", true), create},
            {"held back, because there is no budget", in_mode("2", false), create}};
}

Preparation captured(const std::string& check_type, const std::string& beneficiary) {
    return [=](Company& company) {
        company.capture_check({Company::check_line(400), Company::check_line(20)},
                              Company::check_header(check_type, beneficiary));
    };
}

std::vector<Case> with(std::vector<Case> cases, Case another) {
    cases.push_back(std::move(another));
    return cases;
}

template <bool (Tesoreria::*create)(const std::string&)>
bool create_captured(Company& company) {
    return (company.treasury().*create)(company.treasury().Encabezado().Ch_Folio);
}

/// In dollars, with a line in pesos, and every field of the header filled.
void own_transfer(Company& company) {
    tTsEncabezado header = Company::check_header();
    header.Ch_Fecha = make_date(2024, 3, 14, 9, 30, 0);
    header.Ch_Transferencia = "SI";
    header.Ch_Tabla = "SOLICITUD_CHEQUE";
    header.Ch_Documento = "SOL-1";
    header.Bc_Cve_Banco_Cuenta2 = "PTO-USD";
    header.Mn_Cve_Moneda = "USD";
    header.Ch_Tipo_Cambio = 20;
    tTsDetalle dollars = Company::check_line(400, "");
    dollars.Mn_Cve_Moneda = "USD";
    dollars.Ch_Tipo_Cambio = 20;
    company.treasury().Ch_Banco_Destino("PUERTO");
    company.capture_check({dollars, Company::check_line(-100, "")}, header);
}

/// A line in another currency than its check.
void expense_in_dollars(Company& company) {
    company.on.parameters["TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR"] = std::string("0");
    tTsEncabezado header = Company::check_header("0002", "DE01");
    header.Mn_Cve_Moneda = "USD";
    header.Ch_Tipo_Cambio = 2;
    tTsDetalle line = Company::check_line(400);
    line.Ch_Tipo_Cambio = 4;
    company.treasury().Nuevo();
    company.treasury().Encabezado(header);
    company.treasury().Detalle(line);
}

bool create_expense(Company& company) {
    return company.treasury().Crear_Cheque_Gasto_x_Comprobar();
}

void created(Company& company) {
    captured("0001", "PV01")(company);
    create_captured<&Tesoreria::Crear_Cheque_Pago_Proveedor>(company);
}

bool finish(Company& company) {
    return company.treasury().Finalizar_Cheque("CH-MTY-00000001");
}

}  // namespace

std::vector<Member_cases> check_cases() {
    return {
        {"Add_Cheque_Detalle",
         {{"the first line",
           [](Company& company) {
               capture(company, kinds[0]);
               tTsDetalle line = Company::check_line(250.5);
               line.Mn_Cve_Moneda = "USD";
               line.Ch_Tipo_Cambio = 19.25;
               company.treasury().Detalle(line);
           },
           [](Company& company) { return company.treasury().Add_Cheque_Detalle(); }},
          {"another line", captured("0001", "PV01"),
           [](Company& company) { return company.treasury().Add_Cheque_Detalle(); }}}},
        {"Afectar_Cheque_Presupuesto", budget_cases()},
        {"Crear_Cheque_Pago_Proveedor",
         {{"of two lines", captured("0001", "PV01"), create_captured<&Tesoreria::Crear_Cheque_Pago_Proveedor>}}},
        {"Crear_Cheque_Devolucion_Anticipo",
         {{"of two lines", captured("0003", "CL01"), create_captured<&Tesoreria::Crear_Cheque_Devolucion_Anticipo>}}},
        {"Crear_Cheque_Anticipo_Cxp", creation_cases("0005")},
        {"Crear_Cheque_Devolucion_Cliente", creation_cases("0003")},
        {"Crear_Cheque_Gasto_x_Comprobar",
         with(creation_cases("0002"), {"in two currencies", expense_in_dollars, create_expense})},
        {"Crear_Cheque_Deudor", creation_cases("0004")},
        {"Crear_Traspaso_Cuenta_Propia",
         {{"between two accounts", own_transfer,
           [](Company& company) { return company.treasury().Crear_Traspaso_Cuenta_Propia(); }}}},
        {"Finalizar_Cheque",
         {{"checks are posted by themselves",
           [](Company& company) {
               created(company);
               company.post_automatically("CHEQUE");
           },
           finish},
          {"they are not", created, finish}}},
    };
}

}  // namespace cuvexa::tests
