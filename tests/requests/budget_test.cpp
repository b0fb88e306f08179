// The budget check of checks.
#include <cmath>

#include "support/company.h"

namespace cuvexa::tests {
namespace {

const std::string tag = "Afectar_Cheque_Presupuesto()\r\n";

struct Level {
    std::string code, holder;
};

/// A kind under budget control, with a check that is of it.
struct Kind {
    int type;
    std::string mode_parameter, asks_for, check_type, beneficiary, other_beneficiary;
    std::string table, prefix, name;
    std::vector<Level> levels;
};

const std::vector<Kind> kinds = {
    {0,
     "TES_MODO_AUTORIZAR_ANTICIPO_PROVEEDOR",
     "05",
     "0005",
     "PV01",
     "PV03",
     "Anticipo_Proveedor_Presupuesto",
     "App_",
     "un anticipo a proveedor",
     {{"PV", "PV01"}, {"GP", "MERC"}, {"SC", "MTY"}, {"EM", "EM01"}}},
    {1,
     "TES_MODO_AUTORIZAR_GASTO_X_COMPROBAR",
     "02",
     "0002",
     "DE01",
     "DE02",
     "Gasto_x_Comprobar_Presupuesto",
     "Gcp_",
     "un gasto x comprobar",
     {{"DE", "DE01"}, {"SC", "MTY"}, {"EM", "EM01"}}},
    {3,
     "TES_MODO_AUTORIZAR_PRESTAMO_DEUDOR",
     "04",
     "0004",
     "DE01",
     "DE02",
     "Prestamo_Deudor_Presupuesto",
     "Pdp_",
     "un préstamo a deudor",
     {{"DE", "DE01"}, {"SC", "MTY"}, {"EM", "EM01"}}},
    {4,
     "TES_MODO_AUTORIZAR_DEVOLUCION_CLIENTE",
     "03",
     "0003",
     "CL01",
     "CL02",
     "Devolucion_Cliente_Presupuesto",
     "Dcp_",
     "una devolución a cliente",
     {{"CL", "CL01"}, {"SC", "MTY"}, {"EM", "EM01"}}},
};

class Budget_check : public ::testing::Test {
protected:
    Budget_check() {
        for (const Kind& kind : kinds) company.sql("DELETE FROM " + kind.table);
    }

    void set_mode(const Kind& kind, const Value& mode) { company.on.parameters[kind.mode_parameter] = mode; }

    void write_check(const Kind& kind, const std::string& folio, double amount, double rate = 1,
                     const std::string& date = "2024-03-15", const std::string& state = "AC",
                     const std::string& beneficiary = {}, const std::string& branch = "MTY") {
        company.sql(
            "INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Sc_Cve_Sucursal, Ch_Solicitar_Valor, Ch_Fecha, "
            "Ch_Importe, "
            "Ch_Tipo_Cambio, Es_Cve_Estado) VALUES ('" +
            folio + "', '" + kind.check_type + "', '" + branch + "', '" +
            (beneficiary.empty() ? kind.beneficiary : beneficiary) + "', '" + date + "', " + number_text(amount) +
            ", " + number_text(rate) + ", '" + state + "')");
    }

    void set_budget(const Kind& kind, const Level& level, double amount, int month = 3, int year = 2024) {
        const std::string column = kind.prefix + (month < 10 ? "0" : "") + std::to_string(month);
        company.sql("INSERT INTO " + kind.table + " (" + kind.prefix + "Tipo, " + kind.prefix + "Valor, " +
                    kind.prefix + "Periodo, " + column + ") VALUES ('" + level.code + "', '" + level.holder + "', " +
                    std::to_string(year) + ", " + number_text(amount) + ")");
    }

    bool charge(const Kind& kind, const std::string& folio = "C1") {
        company.mark();
        return company.treasury().Afectar_Cheque_Presupuesto(folio, kind.type);
    }

    std::string state(const std::string& folio = "C1") {
        return company.scalar("SELECT Es_Cve_Estado FROM Cheque WHERE Ch_Folio = '" + folio + "'");
    }

    std::string error() { return company.treasury().Error(); }

    void expect_passes(const Kind& kind) {
        EXPECT_TRUE(charge(kind)) << error();
        EXPECT_EQ(error(), "");
        EXPECT_THAT(company.changes_with_audit(), IsEmpty());
    }

    void expect_held_back(const Kind& kind) {
        EXPECT_TRUE(charge(kind)) << error();
        EXPECT_EQ(error(), "");
        EXPECT_THAT(company.changes(), ElementsAre("~ Cheque C1: Es_Cve_Estado AC -> PXA"));
    }

    void expect_refused(const Kind& kind, const std::string& folio, const std::string& message) {
        EXPECT_FALSE(charge(kind, folio));
        EXPECT_EQ(error(), tag + message);
        EXPECT_THAT(company.changes_with_audit(), IsEmpty());
    }

    Company company;
};

class Budget_check_of_kind : public Budget_check, public ::testing::WithParamInterface<Kind> {
protected:
    const Kind& kind() { return GetParam(); }
};

INSTANTIATE_TEST_SUITE_P(Kinds, Budget_check_of_kind, ::testing::ValuesIn(kinds),
                         [](const auto& info) { return info.param.prefix + std::to_string(info.param.type); });

// ---- Decision table -------------------------------------------------------------------------------------------------

TEST_P(Budget_check_of_kind, without_control_nothing_is_looked_for) {
    write_check(kind(), "C1", 1000);
    set_budget(kind(), kind().levels.front(), 1);
    for (const Value& mode : {Value("0"), Value("3"), Value("-1"), Value(std::int64_t{7}), Value(""), Value()}) {
        set_mode(kind(), mode);
        expect_passes(kind());
        EXPECT_EQ(company.statements().size(), 2u) << "the check and its budget data";
    }
}

TEST_P(Budget_check_of_kind, where_no_budget_exists_mode_1_passes_and_mode_2_holds_back) {
    write_check(kind(), "C1", 1000);
    set_mode(kind(), "1");
    expect_passes(kind());
    EXPECT_EQ(company.statements().size(), 2 + kind().levels.size());
    set_mode(kind(), "2");
    expect_held_back(kind());
    EXPECT_EQ(company.statements().size(), 2 + kind().levels.size() + 1);
}

TEST_P(Budget_check_of_kind, what_equals_the_budget_passes_and_a_cent_more_is_held_back) {
    for (const char* mode : {"1", "2"}) {
        set_mode(kind(), mode);
        company.sql("DELETE FROM Cheque");
        company.sql("DELETE FROM " + kind().table);
        set_budget(kind(), kind().levels.front(), 1000);
        write_check(kind(), "C0", 600);
        write_check(kind(), "C1", 200, 2);
        expect_passes(kind());
        EXPECT_EQ(company.statements().size(), 4u);
        company.sql("UPDATE Cheque SET Ch_Importe = 200.005 WHERE Ch_Folio = 'C1'");
        expect_held_back(kind());
    }
}

TEST_P(Budget_check_of_kind, budget_and_total_are_compared_as_the_numbers_they_are) {
    set_mode(kind(), "1");
    set_budget(kind(), kind().levels.front(), 0.3);
    write_check(kind(), "C0", 0.1);
    write_check(kind(), "C1", 0.2);  // in binary, a little more than 0.3 together
    expect_held_back(kind());
}

TEST_P(Budget_check_of_kind, the_level_with_an_amount_that_is_most_specific_governs) {
    set_mode(kind(), "2");
    write_check(kind(), "C1", 100);
    for (std::size_t governing = 0; governing < kind().levels.size(); ++governing) {
        SCOPED_TRACE(kind().levels[governing].code);
        company.sql("DELETE FROM " + kind().table);
        // Levels above it have nothing, zero, or a negative amount; those below would hold the check back.
        for (std::size_t i = 0; i < governing; ++i) {
            if (i % 3 != 0) set_budget(kind(), kind().levels[i], i % 3 == 1 ? 0 : -5);
        }
        set_budget(kind(), kind().levels[governing], 100);
        for (std::size_t i = governing + 1; i < kind().levels.size(); ++i) set_budget(kind(), kind().levels[i], 1);
        expect_passes(kind());
        EXPECT_EQ(company.statements().size(), 2 + governing + 1 + 1);

        company.sql("UPDATE " + kind().table + " SET " + kind().prefix + "03 = 99 WHERE " + kind().prefix + "03 = 100");
        expect_held_back(kind());
        company.sql("UPDATE Cheque SET Es_Cve_Estado = 'AC'");
    }
}

TEST_P(Budget_check_of_kind, each_level_adds_up_the_checks_of_its_own_holder) {
    set_mode(kind(), "1");
    write_check(kind(), "C1", 100);
    write_check(kind(), "OTHER-PARTY", 10, 1, "2024-03-01", "AC", kind().other_beneficiary);
    write_check(kind(), "OTHER-BRANCH", 20, 1, "2024-03-01", "AC", "", "GDL");
    company.sql(
        "INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa) VALUES ('XAL', 'Xalapa', 'EM02')");
    write_check(kind(), "OTHER-COMPANY", 40, 1, "2024-03-01", "AC", "", "XAL");
    for (const Level& level : kind().levels) {
        SCOPED_TRACE(level.code);
        const double spent = level.code == "SC" ? 100 + 10 : level.code == "EM" ? 100 + 10 + 20 : 100 + 20 + 40;
        company.sql("DELETE FROM " + kind().table);
        set_budget(kind(), level, spent);
        expect_passes(kind());
        company.sql("UPDATE " + kind().table + " SET " + kind().prefix + "03 = " + number_text(spent - 1));
        expect_held_back(kind());
        company.sql("UPDATE Cheque SET Es_Cve_Estado = 'AC' WHERE Ch_Folio = 'C1'");
    }
}

TEST_P(Budget_check_of_kind, applied_checks_count_cancelled_and_waiting_ones_do_not) {
    set_mode(kind(), "1");
    set_budget(kind(), kind().levels.front(), 150);
    write_check(kind(), "C1", 100);
    write_check(kind(), "C2", 50, 1, "2024-03-01", "AP");
    write_check(kind(), "C3", 1000, 1, "2024-03-01", "CA");
    write_check(kind(), "C4", 1000, 1, "2024-03-01", "PXA");
    expect_passes(kind());
    company.sql("UPDATE Cheque SET Ch_Importe = 51 WHERE Ch_Folio = 'C2'");
    expect_held_back(kind());
}

TEST_P(Budget_check_of_kind, checks_of_another_kind_month_or_year_do_not_count) {
    set_mode(kind(), "1");
    set_budget(kind(), kind().levels.front(), 100);
    write_check(kind(), "C1", 100);
    write_check(kind(), "C2", 1000, 1, "2024-02-29");
    write_check(kind(), "C3", 1000, 1, "2024-04-01");
    write_check(kind(), "C4", 1000, 1, "2023-03-15");
    write_check(kind(), "C5", 1000);
    company.sql("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0001' WHERE Ch_Folio = 'C5'");
    expect_passes(kind());
}

TEST_P(Budget_check_of_kind, every_month_reads_its_own_column_and_year) {
    set_mode(kind(), "2");
    write_check(kind(), "C1", 100);
    for (int month = 1; month <= 12; ++month) {
        SCOPED_TRACE(month);
        const std::string two_digits = (month < 10 ? "0" : "") + std::to_string(month);
        company.sql("UPDATE Cheque SET Es_Cve_Estado = 'AC', Ch_Fecha = '2024-" + two_digits + "-28'");
        company.sql("DELETE FROM " + kind().table);
        set_budget(kind(), kind().levels.front(), 100, month);
        expect_passes(kind());
        company.sql("UPDATE " + kind().table + " SET " + kind().prefix + "Periodo = 2023");
        expect_held_back(kind());
    }
}

// ---- Failures --------------------------------------------------------------------------------------------------------

TEST_P(Budget_check_of_kind, a_check_that_is_held_back_carries_who_did_it) {
    set_mode(kind(), "1");
    write_check(kind(), "C1", 100);
    set_budget(kind(), kind().levels.back(), 99);
    EXPECT_TRUE(charge(kind())) << error();
    EXPECT_THAT(company.rows("SELECT Es_Cve_Estado, Oper_Ult_Modif FROM Cheque"), ElementsAre("PXA|CAJA1"));
}

TEST_P(Budget_check_of_kind, each_failing_statement_leaves_the_check_as_it_was) {
    set_mode(kind(), "1");
    write_check(kind(), "C1", 100);
    set_budget(kind(), kind().levels.front(), 99);
    for (std::size_t n = 1; n <= 5; ++n) {
        company.mark();
        company.on.failing_statement = n;
        EXPECT_FALSE(company.treasury().Afectar_Cheque_Presupuesto("C1", kind().type));
        EXPECT_EQ(error(), tag + obstructed::statement_failure);
        EXPECT_EQ(company.statements().size(), n);
        EXPECT_EQ(state(), "AC");
        company.on.clear();
    }
    expect_held_back(kind());
}

TEST_P(Budget_check_of_kind, each_failing_service_call_leaves_the_check_as_it_was) {
    company.set_parameter(kind().mode_parameter, "1");
    write_check(kind(), "C1", 100);
    set_budget(kind(), kind().levels.front(), 99);
    std::size_t n = 1;
    for (;; ++n) {
        company.mark();
        company.on.failing_call = n;
        if (company.treasury().Afectar_Cheque_Presupuesto("C1", kind().type)) break;
        EXPECT_EQ(error(), tag + obstructed::call_failure);
        EXPECT_EQ(state(), "AC");
        company.on.clear();
    }
    EXPECT_EQ(n - 1, company.on.asked.size());
    EXPECT_THAT(std::vector<std::string>(company.on.asked.begin(), company.on.asked.begin() + 4),
                ElementsAre("GetParameter", "GetParameter", "GetParameter", "GetParameter"));
}

// ---- Refusals, in step order ----------------------------------------------------------------------------------------

TEST_P(Budget_check_of_kind, refuses_an_empty_folio_without_a_statement) {
    set_mode(kind(), "2");
    expect_refused(kind(), "", "No se ha especificado el folio del cheque");
    EXPECT_THAT(company.statements(), IsEmpty());
}

TEST_P(Budget_check_of_kind, refuses_a_check_that_does_not_exist) {
    expect_refused(kind(), "NADA", "el cheque: NADA no existe!");
}

TEST_P(Budget_check_of_kind, refuses_the_states_that_cannot_be_charged_before_it_looks_at_the_kind) {
    for (const char* state : {"CA", "AP", "PXA"}) {
        company.sql("DELETE FROM Cheque");
        write_check(kind(), "C1", 100, 1, "2024-03-15", state, "NADIE");
        company.sql("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0001'");
        expect_refused(kind(), "C1", std::string("Imposible afectar el cheque: C1, con estado: ") + state);
        EXPECT_EQ(company.statements().size(), 1u);
    }
}

TEST_P(Budget_check_of_kind, refuses_a_beneficiary_of_another_class_before_it_looks_at_the_type) {
    write_check(kind(), "C1", 100, 1, "2024-03-15", "AC", kind().beneficiary == "DE01" ? "CL01" : "DE01");
    company.sql("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0001'");
    set_mode(kind(), "2");
    expect_refused(kind(), "C1", "el cheque: C1 no existe o no es " + kind().name + "!");
    EXPECT_EQ(company.statements().size(), 2u);
}

TEST_P(Budget_check_of_kind, refuses_a_type_of_another_kind_whatever_the_mode) {
    write_check(kind(), "C1", 100);
    company.sql("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0001'");
    for (const char* mode : {"0", "2"}) {
        set_mode(kind(), mode);
        expect_refused(kind(), "C1", "el cheque: C1 no es " + kind().name + "!");
        EXPECT_EQ(company.statements().size(), 2u);
    }
}

TEST_P(Budget_check_of_kind, a_budget_cell_or_a_mode_that_is_no_number_is_a_failure) {
    set_mode(kind(), "1");
    write_check(kind(), "C1", 100);
    set_budget(kind(), kind().levels.front(), 100);
    company.sql("UPDATE " + kind().table + " SET " + kind().prefix + "03 = NULL");
    expect_refused(kind(), "C1", "Uso no válido de Null");
    set_mode(kind(), "sí");
    expect_refused(kind(), "", "No coinciden los tipos");
}

TEST_F(Budget_check, the_modes_of_all_kinds_are_read_whatever_the_kind) {
    company.on.parameters[kinds[3].mode_parameter] = "99999";
    write_check(kinds[0], "C1", 100);
    expect_refused(kinds[0], "C1", "Desbordamiento");
}

TEST_F(Budget_check, a_purpose_without_budget_passes_with_nothing_read_but_the_parameters) {
    for (const int type : {2, 5, 7, -1, 32767}) {
        company.mark();
        EXPECT_TRUE(company.treasury().Afectar_Cheque_Presupuesto("NADA", type)) << error();
        EXPECT_EQ(error(), "");
        EXPECT_THAT(company.statements(), IsEmpty());
        EXPECT_THAT(company.on.asked, ElementsAre("GetParameter", "GetParameter", "GetParameter", "GetParameter"));
        EXPECT_FALSE(company.treasury().Afectar_Cheque_Presupuesto("", type));
        EXPECT_EQ(error(), tag + "No se ha especificado el folio del cheque");
    }
}

TEST_F(Budget_check, a_supplier_within_its_own_budget_passes_whatever_its_branch_and_company_have_left) {
    const Kind& kind = kinds[0];
    set_mode(kind, "2");
    write_check(kind, "C1", 100);
    write_check(kind, "C2", 5000, 1, "2024-03-02", "AC", "PV02");
    set_budget(kind, {"PV", "PV01"}, 100);
    set_budget(kind, {"SC", "MTY"}, 10);
    set_budget(kind, {"EM", "EM01"}, 10);
    expect_passes(kind);
}

TEST_F(Budget_check, the_budget_of_a_group_counts_all_its_suppliers) {
    const Kind& kind = kinds[0];
    set_mode(kind, "1");
    write_check(kind, "C1", 100);
    write_check(kind, "C2", 50, 1, "2024-03-02", "AC", "PV02");
    write_check(kind, "C3", 1000, 1, "2024-03-02", "AC", "PV03");  // of another group
    set_budget(kind, {"GP", "MERC"}, 150);
    expect_passes(kind);
    company.sql("UPDATE Anticipo_Proveedor_Presupuesto SET App_03 = 149");
    expect_held_back(kind);
}

}  // namespace
}  // namespace cuvexa::tests
