// Registration of a bank movement: its row, the balances it moves, its hand-off to accounting.
#include <cmath>
#include <limits>

#include "cuvexa/suite/audit.h"
#include "support/in_turn.h"
#include "support/texts.h"

namespace cuvexa::tests {
namespace {

const std::string tag = "Cuvexa.dll - Registra_Movimiento_Banco()\r\n";
const std::string tag_with_blank = "Cuvexa.dll - Registra_Movimiento_Banco() \r\n";
const std::string accounting_tag = "Cuvexa.dll - Contabiliza_Banco_Movimiento()\r\n";
constexpr double infinity = std::numeric_limits<double>::infinity();

class Bank_movement : public ::testing::Test {
protected:
    Bank_movement() {
        company.sql("UPDATE Banco_Cuenta SET Bc_Saldo = 1000 WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
        company.sql("UPDATE Banco SET Bn_Saldo = 5000 WHERE Bn_Cve_Banco = 'SIERRA'");
        company.mark();
    }

    bool record() { return company.treasury().Registra_Movimiento_Banco(movement); }
    std::string error() { return company.treasury().Error(); }

    /// The rules by which the audit finds something.
    std::vector<std::string> found() {
        std::vector<std::string> rules;
        for (const Finding& finding : audit(company.connection())) rules.push_back(finding.check);
        return rules;
    }

    Company company;
    tBnMovimiento movement = Company::movement();
};

// ---- What a movement writes -----------------------------------------------------------------------------------------

TEST_F(Bank_movement, an_inflow_writes_its_row_moves_both_balances_and_is_registered) {
    movement.Bm_Fecha_Firme = make_date(2024, 3, 18);
    movement.Bm_Tipo_Cambio = 19.5;
    ASSERT_TRUE(record()) << error();
    EXPECT_EQ(error(), "");
    EXPECT_THAT(
        company.changes_with_audit(),
        ElementsAre("~ Banco SIERRA: Bn_Saldo 5000.0 -> 5100.0, Oper_Ult_Modif  -> CAJA1, "
                    "Fecha_Ult_Modif NULL -> 2024-03-15 10:20:30",
                    "~ Banco_Cuenta SRR-MXN: Bc_Saldo 1000.0 -> 1100.0, Oper_Ult_Modif  -> CAJA1, "
                    "Fecha_Ult_Modif NULL -> 2024-03-15 10:20:30",
                    "+ Banco_Movimiento BM-00000001: Bm_Folio=BM-00000001, Bc_Cve_Banco_Cuenta=SRR-MXN, "
                    "Bm_Tabla=ESTADO_CUENTA, Bm_Documento=EC-1, Bm_Documento_ID=0001, Bm_Referencia=REF-9, "
                    "Bc_Cuenta_Contable=1102-01, Bm_Comentario=Intereses del mes, Bm_Fecha=2024-03-15, "
                    "Bm_Fecha_Firme=2024-03-18, Bt_Cve_Banco_Tipo_Movimiento=INT, Bm_Importe=100.0, Mn_Cve_Moneda=MXN, "
                    "Bm_Tipo_Cambio=19.5, Oper_Alta=CAJA1, Fecha_Alta=2024-03-15 10:20:30, Oper_Ult_Modif=CAJA1, "
                    "Fecha_Ult_Modif=2024-03-15 10:20:30, Es_Cve_Estado=TR",
                    "+ Documento_Registrado BM-00000001/BANCO_MOVIMIENTO: Dr_Documento=BM-00000001, "
                    "Dr_Codigo=BANCO_MOVIMIENTO, Dr_Veces=1, Oper_Alta=CAJA1, Fecha_Alta=2024-03-15 10:20:30, "
                    "Fecha_Ult_Modif=2024-03-15 10:20:30",
                    "+ Folio_Serie BANCO_MOVIMIENTO/: Fs_Codigo=BANCO_MOVIMIENTO, Fs_Ultimo=1, Fs_Abierta=SI"));
    EXPECT_EQ(company.treasury().FolioMovimiento, "BM-00000001");
}

TEST_F(Bank_movement, an_outflow_type_negates_the_amount_also_in_the_caller_s_record) {
    movement = Company::movement(100, "COM");
    ASSERT_TRUE(record());
    EXPECT_EQ(movement.Bm_Importe, -100);
    EXPECT_EQ(company.scalar("SELECT Bm_Importe FROM Banco_Movimiento"), "-100.0");
    EXPECT_EQ(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"), "900.0");
    EXPECT_EQ(company.scalar("SELECT Bn_Saldo FROM Banco WHERE Bn_Cve_Banco = 'SIERRA'"), "4900.0");
}

TEST_F(Bank_movement, only_type_2_is_an_outflow) {
    for (const std::string type : {"", "0", "1", "3", "02", "22", "two"}) {
        company.sql("UPDATE Banco_Tipo_Movimiento SET Bt_Tipo = '" + type +
                    "' WHERE Bt_Cve_Banco_Tipo_Movimiento = 'COM'");
        movement = Company::movement(100, "COM");
        ASSERT_TRUE(record()) << error();
        EXPECT_EQ(movement.Bm_Importe, 100) << type;
    }
}

TEST_F(Bank_movement, a_negative_amount_of_an_outflow_becomes_an_inflow) {
    movement = Company::movement(-100, "COM");
    ASSERT_TRUE(record());
    EXPECT_EQ(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"), "1100.0");
}

TEST_F(Bank_movement, a_zero_amount_is_a_movement_like_any_other) {
    movement = Company::movement(0, "COM");
    ASSERT_TRUE(record());
    EXPECT_EQ(company.scalar("SELECT Bm_Importe FROM Banco_Movimiento"), "0.0");
}

TEST_F(Bank_movement, firm_and_in_transit_are_states_whatever_the_firm_date_says) {
    movement.EnFirme = true;
    movement.Bm_Fecha_Firme = {};
    ASSERT_TRUE(record());
    movement.EnFirme = false;
    movement.Bm_Fecha_Firme = Company::yesterday();
    ASSERT_TRUE(record());
    EXPECT_THAT(company.rows("SELECT Bm_Folio, Es_Cve_Estado, Bm_Fecha_Firme FROM Banco_Movimiento ORDER BY Bm_Folio"),
                ElementsAre("BM-00000001|FI|1899-12-30", "BM-00000002|TR|2024-03-14"));
}

TEST_F(Bank_movement, an_empty_table_becomes_Cheque_in_the_row_and_in_the_caller_s_record) {
    movement.Bm_Tabla = "";
    ASSERT_TRUE(record());
    EXPECT_EQ(movement.Bm_Tabla, "Cheque");
    EXPECT_EQ(company.scalar("SELECT Bm_Tabla FROM Banco_Movimiento"), "Cheque");
}

TEST_F(Bank_movement, the_caller_s_record_receives_what_the_account_says_and_keeps_the_rest) {
    movement.Bm_Folio = "del cliente";
    movement.Cuenta.Bc_Cuenta_Contable = "x";
    movement.Cuenta.Bn_Cve_Banco = "y";
    movement.Cuenta.Mn_Cve_Moneda = "z";
    tBnMovimiento expected = movement;
    ASSERT_TRUE(record());
    expected.Cuenta.Bc_Cuenta_Contable = "1102-01";
    expected.Cuenta.Bn_Cve_Banco = "SIERRA";
    expected.Cuenta.Mn_Cve_Moneda = "MXN";
    EXPECT_EQ(movement, expected) << "the folio of the record is neither read nor written";
}

TEST_F(Bank_movement, balances_move_in_the_account_s_own_currency_without_conversion) {
    movement.Cuenta.Bc_Cve_Banco_Cuenta = "SRR-USD";
    movement.Bm_Tipo_Cambio = 19.5;
    ASSERT_TRUE(record());
    EXPECT_EQ(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-USD'"), "100.0");
    EXPECT_EQ(company.scalar("SELECT Bn_Saldo FROM Banco WHERE Bn_Cve_Banco = 'SIERRA'"), "5100.0");
    EXPECT_EQ(company.scalar("SELECT Mn_Cve_Moneda FROM Banco_Movimiento"), "USD");
}

TEST_F(Bank_movement, the_folio_comes_from_the_series_without_branch) {
    ASSERT_TRUE(record());
    ASSERT_TRUE(record());
    EXPECT_EQ(company.treasury().FolioMovimiento, "BM-00000002");
    EXPECT_EQ(company.scalar("SELECT Fs_Sucursal FROM Folio_Serie WHERE Fs_Codigo = 'BANCO_MOVIMIENTO'"), "");
}

TEST_F(Bank_movement, the_caller_may_write_the_folio_of_the_last_movement) {
    company.treasury().FolioMovimiento = "apuntado";
    EXPECT_EQ(company.treasury().FolioMovimiento, "apuntado");
}

// ---- Dates ----------------------------------------------------------------------------------------------------------

TEST_F(Bank_movement, in_real_time_only_a_movement_of_today_is_accepted_whatever_the_time) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    for (const double time : {0.0, 0.5, 0.99999}) {
        movement = Company::movement();
        movement.Bm_Fecha = Date{Company::today().days + time};
        EXPECT_TRUE(record()) << error();
        movement.Bm_Fecha = Date{Company::yesterday().days + time};
        EXPECT_FALSE(record());
        EXPECT_EQ(error(), tag + not_today);
    }
}

TEST_F(Bank_movement, out_of_real_time_a_movement_of_the_past_is_accepted_in_a_closed_period_too) {
    movement.Bm_Fecha = make_date(2019, 1, 1);
    EXPECT_TRUE(record()) << error();
}

// ---- The refusals, in their order -----------------------------------------------------------------------------------

const Preparation prepare = [](Company& company) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    company.post_automatically("BANCO_MOVIMIENTO");
};
const Call call = [](Company& company) {
    tBnMovimiento movement = Company::movement(100, "COM");
    return company.treasury().Registra_Movimiento_Banco(movement);
};

TEST(Bank_movement_order, the_refusals_come_in_the_order_of_the_steps) {
    const std::string no_type = "El tipo de movimiento de banco no existe o está dado de baja";
    const std::string written = "~Banco ~Banco_Cuenta +Banco_Movimiento +Folio_Serie";
    expect_refusals_in_order(
        {{"account", sql("DELETE FROM Banco_Cuenta"), tag_with_blank + "No se encontró la cuenta bancaria"},
         {"inactive account", sql("UPDATE Banco_Cuenta SET Es_Cve_Estado = 'BA'"),
          tag_with_blank + "La cuenta bancaria está dada de baja"},
         {"same day", a_day_later, tag + not_today_but_yesterday},
         {"movement type", sql("DELETE FROM Banco_Tipo_Movimiento"), tag_with_blank + no_type},
         {"folio", without_folio, tag_with_blank + "No se pudo generar el folio de movimiento de bancos"},
         {"company of the account", sql("UPDATE Empresa SET Es_Cve_Estado = 'BA'"),
          tag + accounting_tag + "No es posible determinar la empresa para la póliza", written},
         {"voucher", refusing("PostDocument", "Cuenta inválida"), tag + accounting_tag + "Cuenta inválida", written},
         {"registration", refusing("RegisterDocument", "Sin réplica"), tag + "Sin réplica",
          written + " +Poliza +Poliza_Detalle"}},
        prepare, call);
}

TEST_F(Bank_movement, an_unknown_account_is_refused_before_anything_else) {
    movement.Cuenta.Bc_Cve_Banco_Cuenta = "NADIE";
    movement.Bt_Cve_Banco_Tipo_Movimiento = "NADA";
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), tag_with_blank + "No se encontró la cuenta bancaria");
    EXPECT_THAT(company.changes(), IsEmpty());
}

TEST_F(Bank_movement, an_inactive_movement_type_is_refused_and_the_record_stays_as_it_was) {
    movement.Bt_Cve_Banco_Tipo_Movimiento = "ANT";
    movement.Bm_Tabla = "";
    const tBnMovimiento before = movement;
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), tag_with_blank + "El tipo de movimiento de banco no existe o está dado de baja");
    EXPECT_EQ(movement, before);
}

TEST_F(Bank_movement, without_a_folio_the_account_s_fields_are_in_the_record_but_the_amount_stays) {
    company.treasury().FolioMovimiento = "BM-ANTES";
    company.on.next_folio = "";
    movement = Company::movement(100, "COM");
    EXPECT_FALSE(record());
    EXPECT_EQ(movement.Cuenta.Bn_Cve_Banco, "SIERRA");
    EXPECT_EQ(movement.Bm_Importe, 100);
    EXPECT_EQ(company.treasury().FolioMovimiento, "BM-ANTES");
    EXPECT_THAT(company.changes(), IsEmpty());
}

TEST_F(Bank_movement, a_later_failure_keeps_the_folio_and_the_changed_record) {
    company.on.refuse("RegisterDocument", "Sin réplica");
    movement = Company::movement(100, "COM");
    EXPECT_FALSE(record());
    EXPECT_EQ(company.treasury().FolioMovimiento, "BM-00000001");
    EXPECT_EQ(movement.Bm_Importe, -100);
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Banco_Movimiento"), "1");
}

// ---- Accounting -----------------------------------------------------------------------------------------------------

TEST_F(Bank_movement, without_automatic_posting_accounting_is_only_asked) {
    ASSERT_TRUE(record());
    EXPECT_THAT(company.on.calls,
                ElementsAre("IsPostingEnabled(BANCO_MOVIMIENTO)", "RegisterDocument(BANCO_MOVIMIENTO, BM-00000001)"));
}

TEST_F(Bank_movement, with_automatic_posting_the_movement_is_handed_to_accounting_with_its_company) {
    company.post_automatically("BANCO_MOVIMIENTO");
    company.mark();
    ASSERT_TRUE(record()) << error();
    EXPECT_THAT(company.on.calls,
                ElementsAre("IsPostingEnabled(BANCO_MOVIMIENTO)", "PostDocument(BANCO_MOVIMIENTO, BM-00000001, EM01)",
                            "RegisterDocument(BANCO_MOVIMIENTO, BM-00000001)"));
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Poliza WHERE Pz_Documento = 'BM-00000001'"), "1");
}

TEST_F(Bank_movement, a_voucher_that_succeeds_with_a_text_is_a_failure_all_the_same) {
    company.post_automatically("BANCO_MOVIMIENTO");
    company.on.accept("PostDocument", "Póliza sin cuadrar");
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), tag + accounting_tag + "Póliza sin cuadrar");
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Documento_Registrado"), "0");
}

// ---- Failures in turn -----------------------------------------------------------------------------------------------

TEST(Bank_movement_failures, each_statement_that_fails_leaves_what_came_before_it) {
    const std::string failure = obstructed::statement_failure;
    const std::string written = "~Banco ~Banco_Cuenta +Banco_Movimiento +Folio_Serie]";
    EXPECT_THAT(
        listed(statements_fail_in_turn(prepare, call)),
        ElementsAre("SELECT Banco_Cuenta => " + tag_with_blank + failure + " []",
                    "INSERT Banco_Movimiento => " + tag_with_blank + failure + " [+Folio_Serie]",
                    "UPDATE Banco_Cuenta => " + tag_with_blank + failure + " [+Banco_Movimiento +Folio_Serie]",
                    "UPDATE Banco => " + tag_with_blank + failure + " [~Banco_Cuenta +Banco_Movimiento +Folio_Serie]",
                    "SELECT Banco_Movimiento => " + tag + accounting_tag + failure + " [" + written));
}

TEST(Bank_movement_failures, each_service_call_that_fails_leaves_what_came_before_it) {
    const std::string failure = tag_with_blank + obstructed::call_failure;
    const std::string accounting_failure = tag + accounting_tag + obstructed::call_failure;
    const std::string written = " [~Banco ~Banco_Cuenta +Banco_Movimiento +Folio_Serie]";
    EXPECT_THAT(listed(calls_fail_in_turn(prepare, call)),
                ElementsAre("GetServerDate => " + failure + " []",            //
                            "SqlDateTime => " + failure + " []",              //
                            "GetServerDate => " + failure + " []",            //
                            "LookupValue => " + failure + " []",              //
                            "GetNextFolio => " + failure + " []",             //
                            "LookupValue => " + failure + " [+Folio_Serie]",  //
                            "GetUserName => " + failure + " [+Folio_Serie]",  //
                            "SqlDate => " + failure + " [+Folio_Serie]",      //
                            "SqlDate => " + failure + " [+Folio_Serie]",      //
                            "IsPostingEnabled => " + accounting_failure + written,
                            "PostDocument => " + accounting_failure + written,
                            "RegisterDocument => " + failure +
                                " [~Banco ~Banco_Cuenta +Banco_Movimiento +Folio_Serie +Poliza +Poliza_Detalle]"));
}

// ---- Hostile values -------------------------------------------------------------------------------------------------

TEST_F(Bank_movement, numbers_that_are_none_write_no_row) {
    for (const double amount : {std::nan(""), infinity, -infinity}) {
        movement = Company::movement(amount);
        EXPECT_FALSE(record());
        EXPECT_EQ(error(), tag_with_blank + "Desbordamiento");
        movement = Company::movement();
        movement.Bm_Tipo_Cambio = amount;
        EXPECT_FALSE(record());
        EXPECT_EQ(error(), tag_with_blank + "Desbordamiento");
        movement = Company::movement();
        movement.Bm_Fecha = Date{amount};
        EXPECT_FALSE(record());
    }
    EXPECT_EQ(touched(company.changes()), "+Folio_Serie");
}

TEST_F(Bank_movement, a_balance_stays_a_number) {
    company.sql("UPDATE Banco_Cuenta SET Bc_Saldo = 0");
    company.sql("UPDATE Banco SET Bn_Saldo = 0");
    movement = Company::movement(1e308);
    ASSERT_TRUE(record()) << error();
    movement = Company::movement(1e308);
    movement.Bm_Documento = "EC-2";
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), tag_with_blank + "El resultado no cabe en un número");
    EXPECT_EQ(company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'"), "1.0e+308");

    // Its row stands, which the sum of the movements shows, and the audit says what to do.
    EXPECT_EQ(company.treasury().GetSaldo("SRR-MXN"), 0);
    EXPECT_EQ(error(), "Cuvexa.dll - GetSaldo()\r\nEl resultado no cabe en un número");
    EXPECT_THAT(found(), testing::IsSupersetOf({"importe-que-no-es-un-numero", "movimiento-sin-registrar"}));
    const std::string left = company.treasury().FolioMovimiento;
    EXPECT_TRUE(company.treasury().Cancelar_Movimiento_Bancos(left)) << error();
    company.sql("UPDATE Banco_Cuenta SET Bc_Saldo = 1E308 WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    company.sql("UPDATE Banco SET Bn_Saldo = 1E308 WHERE Bn_Cve_Banco = 'SIERRA'");
    EXPECT_THAT(found(), IsEmpty());
}

TEST_F(Bank_movement, a_quote_in_any_text_fails_and_smuggles_nothing_in) {
    std::string tBnMovimiento::*const texts[] = {&tBnMovimiento::Bm_Tabla, &tBnMovimiento::Bm_Documento,
                                                 &tBnMovimiento::Bm_Documento_ID, &tBnMovimiento::Bm_Referencia,
                                                 &tBnMovimiento::Bm_Comentario};
    for (const std::string value : {"D'Oro", "x'); DELETE FROM Banco; --", "'", "', '"}) {
        for (const auto text : texts) {
            movement = Company::movement();
            movement.*text = value;
            EXPECT_FALSE(record());
            EXPECT_EQ(error().substr(0, tag_with_blank.size()), tag_with_blank);
            EXPECT_GT(error().size(), tag_with_blank.size());
        }
        movement = Company::movement();
        movement.Cuenta.Bc_Cve_Banco_Cuenta = value;
        EXPECT_FALSE(record());
        movement = Company::movement();
        movement.Bt_Cve_Banco_Tipo_Movimiento = value;
        EXPECT_FALSE(record());
    }
    EXPECT_EQ(touched(company.changes()), "+Folio_Serie");
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Banco"), "3");
}

TEST_F(Bank_movement, malformed_text_fails_and_a_long_one_is_kept_whole_or_refused) {
    movement.Bm_Comentario = "\xff";
    EXPECT_FALSE(record());
    EXPECT_EQ(touched(company.changes()), "+Folio_Serie");
    movement.Bm_Comentario = std::string(10'000'000, 'x');
    EXPECT_FALSE(record());
    EXPECT_THAT(error(),
                testing::HasSubstr("El valor no cabe en la columna Bm_Comentario: admite hasta 8000 caracteres"));
    movement.Bm_Comentario = std::string(8000, 'x');
    ASSERT_TRUE(record()) << error();
    EXPECT_EQ(company.scalar("SELECT length(Bm_Comentario) FROM Banco_Movimiento"), "8000");
}

}  // namespace
}  // namespace cuvexa::tests
