// There and back: a document of the sample company is made with the reference services, taken back, and every balance
// is what it was.
#include <functional>

#include "support/in_turn.h"

namespace cuvexa::tests {
namespace {

/// What is owed and owned: accounts, banks, what customers owe, what is owed to suppliers, usable advances. What a
/// cancellation withdrew by its table code counts no more.
std::vector<std::string> balances(Company& company) {
    std::vector<std::string> found;
    const auto add = [&](const std::string& query) {
        for (const std::string& row : company.rows(query)) found.push_back(row);
    };
    add("SELECT Bc_Cve_Banco_Cuenta, Bc_Saldo FROM Banco_Cuenta ORDER BY 1");
    add("SELECT Bn_Cve_Banco, Bn_Saldo FROM Banco ORDER BY 1");
    add("SELECT Cxc_Folio, Cxc_Precio_Neto_Saldo FROM Cuenta_x_Cobrar WHERE Es_Cve_Estado <> 'CA' AND Cxc_Tabla NOT "
        "LIKE "
        "'%-CA:%' ORDER BY 1");
    add("SELECT Cxp_Folio, Cxp_Precio_Neto_Saldo FROM Cuenta_x_Pagar WHERE Es_Cve_Estado <> 'CA' AND Cxp_Tabla NOT "
        "LIKE "
        "'%-CA:%' ORDER BY 1");
    add("SELECT An_Folio, An_Importe FROM Anticipo_Cxc WHERE Es_Cve_Estado = 'AC' ORDER BY 1");
    for (const std::string& account :
         company.rows("SELECT Bc_Cve_Banco_Cuenta FROM Banco_Cuenta WHERE Es_Cve_Estado <> 'BA'")) {
        found.push_back("GetSaldo " + account + " " + number_text(company.treasury().GetSaldo(account)));
        EXPECT_EQ(company.treasury().Error(), "");
    }
    return found;
}

/// One way there, step by step, and the way back.
struct Journey {
    std::string name;
    std::function<bool(Company&)> there;
    std::function<bool(Company&)> back;
    std::function<void(Company&)> given = {};
};

std::ostream& operator<<(std::ostream& out, const Journey& journey) {
    return out << journey.name;
}

std::string receipt_folio(Company& company) {
    return company.treasury().RpEncabezado().Rp_Folio;
}
std::string check_folio(Company& company) {
    return company.treasury().Encabezado().Ch_Folio;
}

bool close_receipt(Company& company, const std::string& type, const std::string& party = {}) {
    const std::string folio =
        company.capture_receipt({Company::receipt_line(150), Company::receipt_line(80, "02", "SIERRA", "778")},
                                Company::receipt_header(type, party));
    return company.treasury().FinReciboCaja(folio);
}

bool deposit_receipt(Company& company) {
    return company.treasury().Genera_Deposito("SRR-MXN", receipt_folio(company), Company::today(), false,
                                              Company::today());
}

bool cancel_receipt(Company& company, bool with_deposit = false) {
    return company.treasury().Cancelar_Recibo_Caja(receipt_folio(company), with_deposit, true);
}

/// Sets header and line; the members that add the line themselves need no more.
void capture(Company& company, const std::string& type, const std::string& beneficiary) {
    company.treasury().Nuevo();
    company.treasury().Encabezado(Company::check_header(type, beneficiary));
    company.treasury().Detalle(Company::check_line(120));
}

bool apply(Company& company) {
    return company.treasury().Aplicar_Cheque(check_folio(company), Company::today(), true);
}
bool cancel_check(Company& company) {
    return company.treasury().Cancelar_Cheque(check_folio(company));
}
bool undo_application(Company& company) {
    return company.treasury().Cancelar_Aplicacion_Cheque(check_folio(company));
}

bool supplier_check(Company& company) {
    const std::string folio = company.capture_check({Company::check_line(100), Company::check_line(20)});
    return company.treasury().Crear_Cheque_Pago_Proveedor(folio);
}

bool customer_check(Company& company) {
    company.capture_check({Company::check_line(120)}, Company::check_header("0003", "CL01"));
    return company.treasury().Crear_Cheque_Devolucion_Cliente();
}

bool debtor_check(Company& company) {
    capture(company, "0004", "DE01");
    return company.treasury().Crear_Cheque_Deudor();
}

bool advance_check(Company& company) {
    capture(company, "0005", "PV01");
    return company.treasury().Crear_Cheque_Anticipo_Cxp();
}

bool expense_check(Company& company) {
    capture(company, "0002", "DE01");
    return company.treasury().Crear_Cheque_Gasto_x_Comprobar();
}

/// A debtor who already holds 50 as an advance.
void advance_of_debtor(Company& company) {
    company.sql(
        "INSERT INTO Anticipo_Cxc (An_Folio, An_Tabla, Cl_Cve_Cliente, Mn_Cve_Moneda, An_Tipo_Cambio, An_Importe) "
        "VALUES ('AN-1', 'GASTO_REGISTRO', 'DE01', 'MXN', 1, 50)");
    company.sql(
        "INSERT INTO Cuenta_x_Cobrar (Cxc_Folio, Cxc_Tabla, Cxc_Documento, Cl_Cve_Cliente, Sc_Cve_Sucursal, "
        "Mn_Cve_Moneda, Cxc_Tipo_Cambio, Cxc_Importe, Cxc_Neto, Cxc_Precio_Neto_Importe, Cxc_Precio_Neto_Saldo) "
        "VALUES ('CXC-AN', 'ANTICIPO_CXC', 'AN-1', 'DE01', 'MTY', 'MXN', 1, -50, -50, -50, -50)");
}

/// An expense that the advance is to be set against.
bool expense_check_with_advance(Company& company) {
    if (!expense_check(company)) return false;
    company.sql(
        "INSERT INTO Gasto_x_Comprobar_Documento (Gc_Documento, Gc_Tabla, Gcd_ID, Cxc_Folio, Cxc_Importe, "
        "Cxc_Tipo_Cambio) VALUES ('" +
        check_folio(company) + "', 'CHEQUE', '0001', 'AN-1', 50, 1)");
    return true;
}

/// Applied, taken back to applicable, applied again.
std::function<bool(Company&)> applied(bool (*create)(Company&)) {
    return [create](Company& company) {
        return create(company) && apply(company) && undo_application(company) && apply(company);
    };
}

const std::vector<Journey> journeys = {
    {"movement",
     [](Company& company) {
         tBnMovimiento movement = Company::movement(75, "COM");
         return company.treasury().Registra_Movimiento_Banco(movement);
     },
     [](Company& company) {
         return company.treasury().Cancelar_Movimiento_Bancos(company.treasury().FolioMovimiento);
     }},
    {"receipt", [](Company& company) { return close_receipt(company, "01"); },
     [](Company& company) { return cancel_receipt(company); }},
    {"receipt_of_a_customer", [](Company& company) { return close_receipt(company, "02", "CL01"); },
     [](Company& company) { return cancel_receipt(company); }},
    {"receipt_of_a_debtor", [](Company& company) { return close_receipt(company, "03", "DE01"); },
     [](Company& company) { return cancel_receipt(company); }},
    {"loan_of_a_supplier", [](Company& company) { return close_receipt(company, "04", "PV01"); },
     [](Company& company) { return cancel_receipt(company); }},
    {"deposit", [](Company& company) { return close_receipt(company, "01") && deposit_receipt(company); },
     [](Company& company) {
         return company.treasury().Cancelar_Deposito(company.treasury().Dp_Folio()) && cancel_receipt(company);
     }},
    {"deposited_receipt_of_a_customer",
     [](Company& company) { return close_receipt(company, "02", "CL01") && deposit_receipt(company); },
     [](Company& company) { return cancel_receipt(company, true); }},
    {"check_to_a_supplier", supplier_check, cancel_check},
    {"check_to_a_customer", customer_check, cancel_check},
    {"check_to_a_debtor", debtor_check, cancel_check},
    {"check_for_an_advance", advance_check, cancel_check},
    {"check_for_an_expense", expense_check, cancel_check},
    {"applied_check_to_a_supplier", applied(supplier_check), cancel_check},
    {"applied_check_to_a_customer", applied(customer_check), cancel_check},
    {"applied_check_to_a_debtor", applied(debtor_check), cancel_check},
    {"applied_check_for_an_advance", applied(advance_check), cancel_check},
    {"applied_check_for_an_expense", applied(expense_check_with_advance), cancel_check, advance_of_debtor},
};

class Round_trip : public ::testing::TestWithParam<Journey> {
protected:
    void travel() {
        if (GetParam().given) GetParam().given(company);
        const std::vector<std::string> before = balances(company);
        ASSERT_TRUE(GetParam().there(company)) << company.treasury().Error();
        if (GetParam().name != "receipt") {
            EXPECT_NE(balances(company), before);
        }
        company.mark();
        ASSERT_TRUE(GetParam().back(company)) << company.treasury().Error();
        EXPECT_EQ(balances(company), before);
        for (const std::string& line : company.changes()) EXPECT_FALSE(line.starts_with("- ")) << "deleted: " << line;
    }

    Company company;
};

TEST_P(Round_trip, leaves_every_balance_as_it_was_and_deletes_nothing) {
    travel();
}

TEST_P(Round_trip, does_so_with_everything_posted_to_accounting_and_vouchers_that_balance) {
    company.sql("UPDATE Configuracion_Contable SET Ct_Automatica = 'SI'");
    travel();
    EXPECT_THAT(
        company.rows("SELECT Poliza.Pz_Folio FROM Poliza INNER JOIN Poliza_Detalle ON Poliza_Detalle.Pz_Folio = "
                     "Poliza.Pz_Folio GROUP BY Poliza.Pz_Folio HAVING ABS(SUM(Pzd_Cargo) - SUM(Pzd_Abono)) > 0.005"),
        IsEmpty());
    EXPECT_THAT(company.rows("SELECT Pz_Tabla, Pz_Documento FROM Poliza WHERE Es_Cve_Estado <> 'CA'"), IsEmpty());
}

/// The way there, done, and with everything that the way back may ask for.
void arrive(Company& company, const Journey& journey) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    company.set_parameter("GEN_VALIDAR_PERIODO_OPERATIVO", "1");
    if (journey.given) journey.given(company);
    ASSERT_TRUE(journey.there(company)) << company.treasury().Error();
}

TEST_P(Round_trip, is_reported_behind_a_tag_wherever_it_stops_on_the_way_back) {
    const auto prepare = [](Company& started) { arrive(started, GetParam()); };
    std::vector<Outcome> outcomes = statements_fail_in_turn(prepare, GetParam().back);
    EXPECT_FALSE(outcomes.empty());
    for (const Outcome& outcome : outcomes) {
        EXPECT_THAT(outcome.error, ::testing::EndsWith(std::string("()\r\n") + obstructed::statement_failure));
    }
    const std::vector<Outcome> calls = calls_fail_in_turn(prepare, GetParam().back);
    outcomes.insert(outcomes.end(), calls.begin(), calls.end());
    for (const Outcome& outcome : outcomes) {
        EXPECT_THAT(outcome.error, ::testing::StartsWith("Cuvexa.dll - Cancelar_")) << outcome.failed;
    }
}

INSTANTIATE_TEST_SUITE_P(Of_a, Round_trip, ::testing::ValuesIn(journeys),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace cuvexa::tests
