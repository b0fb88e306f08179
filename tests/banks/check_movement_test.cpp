// The bank movement of a check or transfer.
#include "support/in_turn.h"

namespace cuvexa::tests {
namespace {

const std::string tag = "Cuvexa.dll - Registra_Movimiento_Bancario_Cheque()\r\n";
const std::string movement_tag = "Cuvexa.dll - Registra_Movimiento_Banco()\r\n";
const std::string movement_tag_with_blank = "Cuvexa.dll - Registra_Movimiento_Banco() \r\n";

/// A check of 10.00 at rate 19.5, drawn on `account`, with one line in `currency`.
void insert_check(Company& company, const std::string& account = "SRR-MXN", const std::string& currency = "MXN",
                  const std::string& transfer = "NO") {
    company.sql(
        "INSERT INTO Cheque (Ch_Folio, Ch_Transferencia, Ch_Fecha, Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Importe, "
        "Ch_Tipo_Cambio, Ch_Concepto, Ch_Referencia) VALUES ('CH-1', '" +
        transfer + "', '2024-03-14', '" + account + "', 'MTY', 10, 19.5, 'Pago de facturas', '1001')");
    company.sql(
        "INSERT INTO Cheque_x_Aplicar (Ch_Folio, Cxa_ID, Mn_Cve_Moneda, Cxa_Importe) VALUES ('CH-1', '0001', '" +
        currency + "', 10)");
}

class Check_movement : public ::testing::Test {
protected:
    bool record(const std::string& folio = "CH-1") {
        return company.treasury().Registra_Movimiento_Bancario_Cheque(folio);
    }
    std::string error() { return company.treasury().Error(); }
    std::string balance(const std::string& account = "SRR-MXN") {
        return company.scalar("SELECT Bc_Saldo FROM Banco_Cuenta WHERE Bc_Cve_Banco_Cuenta = '" + account + "'");
    }

    Company company;
};

TEST_F(Check_movement, a_check_takes_its_amount_out_of_the_account_in_transit) {
    insert_check(company);
    company.mark();
    ASSERT_TRUE(record()) << error();
    EXPECT_THAT(
        company.changes(),
        ElementsAre(
            "~ Banco SIERRA: Bn_Saldo 0.0 -> -10.0", "~ Banco_Cuenta SRR-MXN: Bc_Saldo 0.0 -> -10.0",
            "+ Banco_Movimiento BM-00000001: Bm_Folio=BM-00000001, Bc_Cve_Banco_Cuenta=SRR-MXN, Bm_Tabla=Cheque, "
            "Bm_Documento=CH-1, Bm_Referencia=1001, Bc_Cuenta_Contable=1102-01, Bm_Comentario=Pago de facturas, "
            "Bm_Fecha=2024-03-14, Bm_Fecha_Firme=2024-03-14, Bt_Cve_Banco_Tipo_Movimiento=CHQ, "
            "Bm_Importe=-10.0, Mn_Cve_Moneda=MXN, Bm_Tipo_Cambio=19.5, Es_Cve_Estado=TR",
            "+ Documento_Registrado BM-00000001/BANCO_MOVIMIENTO: Dr_Documento=BM-00000001, "
            "Dr_Codigo=BANCO_MOVIMIENTO, Dr_Veces=1",
            "+ Folio_Serie BANCO_MOVIMIENTO/: Fs_Codigo=BANCO_MOVIMIENTO, Fs_Ultimo=1, Fs_Abierta=SI"));
    EXPECT_EQ(company.treasury().FolioMovimiento, "BM-00000001");
}

TEST_F(Check_movement, a_dollar_check_of_a_peso_account_moves_it_by_the_amount_in_pesos) {
    insert_check(company, "SRR-MXN", "USD");
    ASSERT_TRUE(record());
    EXPECT_EQ(balance(), "-195.0");
    EXPECT_THAT(company.rows("SELECT Bm_Importe, Bm_Tipo_Cambio, Mn_Cve_Moneda FROM Banco_Movimiento"),
                ElementsAre("-195.0|19.5|MXN"));
}

TEST_F(Check_movement, a_check_in_the_account_s_own_currency_moves_it_by_its_amount_whatever_its_rate) {
    insert_check(company, "SRR-USD", "USD");
    ASSERT_TRUE(record());
    EXPECT_EQ(balance("SRR-USD"), "-10.0");
    EXPECT_EQ(company.scalar("SELECT Bm_Tipo_Cambio FROM Banco_Movimiento"), "19.5");
}

TEST_F(Check_movement, a_transfer_takes_the_movement_type_of_transfers) {
    insert_check(company, "SRR-MXN", "MXN", "SI");
    ASSERT_TRUE(record());
    EXPECT_EQ(company.scalar("SELECT Bt_Cve_Banco_Tipo_Movimiento FROM Banco_Movimiento"), "TRF");
}

TEST_F(Check_movement, anything_but_SI_is_a_check) {
    insert_check(company, "SRR-MXN", "MXN", "S");
    ASSERT_TRUE(record());
    EXPECT_EQ(company.scalar("SELECT Bt_Cve_Banco_Tipo_Movimiento FROM Banco_Movimiento"), "CHQ");
}

TEST_F(Check_movement, the_movement_type_is_read_at_the_moment_of_use) {
    insert_check(company);
    company.sql("UPDATE Parametro_Sistema SET Ps_Valor = 'COM' WHERE Ps_Nombre = 'TES_MOVIMIENTO_CHEQUE'");
    ASSERT_TRUE(record());
    EXPECT_EQ(company.scalar("SELECT Bt_Cve_Banco_Tipo_Movimiento FROM Banco_Movimiento"), "COM");
}

TEST_F(Check_movement, the_sign_comes_from_the_configured_type_alone) {
    insert_check(company);
    company.set_parameter("TES_MOVIMIENTO_CHEQUE", "INT");
    ASSERT_TRUE(record());
    EXPECT_EQ(balance(), "10.0");
}

TEST_F(Check_movement, an_unknown_check_is_refused) {
    insert_check(company);
    company.mark();
    EXPECT_FALSE(record("CH-2"));
    EXPECT_EQ(error(), tag + "No se encontró el cheque o transferencia especificados");
    EXPECT_THAT(company.changes(), IsEmpty());
}

TEST_F(Check_movement, a_check_without_lines_is_not_found) {
    insert_check(company);
    company.sql("DELETE FROM Cheque_x_Aplicar");
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), tag + "No se encontró el cheque o transferencia especificados");
}

TEST_F(Check_movement, a_refused_registration_keeps_its_own_text) {
    insert_check(company, "SRR-OLD");
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), movement_tag_with_blank + "La cuenta bancaria está dada de baja");
}

TEST_F(Check_movement, a_check_of_yesterday_is_refused_in_real_time) {
    company.set_parameter("GEN_FORZAR_TIEMPO_REAL", "1");
    insert_check(company);
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), movement_tag +
                           "No es posible realizar esta operación, la fecha del documento no es del día actual\r\n"
                           "Fecha del documento: 14/03/2024, fecha del día: 15/03/2024");
}

TEST_F(Check_movement, a_missing_parameter_is_a_movement_type_that_does_not_exist) {
    insert_check(company);
    company.unset_parameter("TES_MOVIMIENTO_CHEQUE");
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), movement_tag_with_blank + "El tipo de movimiento de banco no existe o está dado de baja");
}

TEST_F(Check_movement, each_statement_and_the_parameter_that_fail_are_reported) {
    const Preparation prepare = [](Company& company) { insert_check(company); };
    const Call call = [](Company& company) { return company.treasury().Registra_Movimiento_Bancario_Cheque("CH-1"); };
    const std::vector<Outcome> statements = statements_fail_in_turn(prepare, call);
    ASSERT_EQ(statements.size(), 5u);
    EXPECT_EQ(statements[0].error, tag + obstructed::statement_failure);
    EXPECT_EQ(statements[1].error, movement_tag_with_blank + obstructed::statement_failure);
    EXPECT_EQ(statements[4].changed, "~Banco_Cuenta +Banco_Movimiento +Folio_Serie");
    const std::vector<Outcome> calls = calls_fail_in_turn(prepare, call);
    ASSERT_GE(calls.size(), 2u);
    EXPECT_EQ(calls[0].failed, "GetParameter");
    EXPECT_EQ(calls[0].error, tag + obstructed::call_failure);
    EXPECT_EQ(calls[1].error, movement_tag_with_blank + obstructed::call_failure);
}

TEST_F(Check_movement, a_check_without_date_is_a_failure_under_its_tag) {
    insert_check(company);
    company.sql("UPDATE Cheque SET Ch_Fecha = NULL");
    company.mark();
    EXPECT_FALSE(record());
    EXPECT_EQ(error(), tag + "Uso no válido de Null");
    EXPECT_THAT(company.changes(), IsEmpty());
}

TEST_F(Check_movement, a_folio_with_a_quote_fails_in_the_database) {
    EXPECT_FALSE(record("C'1"));
    EXPECT_EQ(error().substr(0, tag.size()), tag);
    EXPECT_GT(error().size(), tag.size());
}

}  // namespace
}  // namespace cuvexa::tests
