// Vouchers.
#include "suite/fixture.h"

namespace cuvexa::tests {
namespace {

class Accounting : public Suite_test {
protected:
    Accounting() {
        sql("INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Fecha, Sc_Cve_Sucursal, Mn_Cve_Moneda, Rp_Tipo_Cambio, "
            "Fp_Cve_Forma_Pago, Rp_Importe, Rp_Folio_Deposito, Rp_Fecha_Deposito) VALUES "
            "('RP-1', '0001', '2024-03-15', 'MTY', 'MXN', 1, '01', 100.1, 'DP-1', '2024-03-16'), "
            "('RP-1', '0002', '2024-03-15', 'MTY', 'MXN', 1, '01', 50, 'DP-1', '2024-03-16'), "
            "('RP-1', '0003', '2024-03-15', 'MTY', 'MXN', 1, '04', 200, 'DP-1', '2024-03-16'), "
            "('RP-USD', '0001', '2024-03-15', 'GDL', 'USD', 19.5, '01', 10, '', NULL)");
        sql("INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bc_Cuenta_Contable, Bm_Fecha, "
            "Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio) VALUES "
            "('BM-IN', 'SRR-MXN', '1102-01', '2024-03-15', 'DEP', 150, 'MXN', 1), "
            "('BM-OUT', 'SRR-MXN', '1102-01', '2024-03-15', 'CHQ', -195, 'MXN', 19.5), "
            "('BM-USD', 'SRR-USD', '1103-01', '2024-03-15', 'CHQ', -10, 'USD', 19.5)");
        sql("INSERT INTO Cheque (Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Fecha, Sc_Cve_Sucursal, Ch_Solicitar_Valor, "
            "Ch_Importe, "
            "Ch_Tipo_Cambio, Ch_Concepto) VALUES ('CH-1', '0001', '2024-03-15', 'MTY', 'PV01', 10, 19.5, 'Pago')");
    }
    /// Lines of the document's live voucher: "account debit credit".
    std::vector<std::string> lines(const std::string& document) {
        std::vector<std::string> all;
        Rows rows(connection.execute(
            "SELECT Pzd_Cuenta_Contable, Pzd_Cargo, Pzd_Abono FROM Poliza INNER JOIN Poliza_Detalle ON "
            "Poliza_Detalle.Pz_Folio = Poliza.Pz_Folio WHERE Pz_Documento = '" +
            document +
            "' AND "
            "Es_Cve_Estado <> 'CA' ORDER BY Pzd_ID"));
        for (; !rows.eof(); rows.next()) {
            all.push_back(rows.text("Pzd_Cuenta_Contable") + " " + rows.text("Pzd_Cargo") + " " +
                          rows.text("Pzd_Abono"));
        }
        return all;
    }
    bool post(const std::string& code, const std::string& folio, const std::string& company = {}) {
        const auto service = suite.new_accounting();
        const bool done = service->PostDocument(code, folio, company);
        error = service->LastError();
        return done;
    }
    bool let_go(const std::string& code, const std::string& folio) {
        const auto service = suite.new_accounting();
        const bool done = service->ValidateVoucherCancellation(code, folio);
        error = service->LastError();
        return done;
    }
    std::string error;
};

TEST_F(Accounting, a_code_is_posted_once_it_is_switched_on) {
    EXPECT_FALSE(suite.new_accounting()->IsPostingEnabled("RECIBO_PAGO"));
    set_posting(connection, "recibo_pago", true);
    EXPECT_TRUE(suite.new_accounting()->IsPostingEnabled("RECIBO_PAGO"));
    set_posting(connection, "RECIBO_PAGO", false);
    EXPECT_FALSE(suite.new_accounting()->IsPostingEnabled("RECIBO_PAGO"));
    set_posting(connection, "OTRO", true);
    EXPECT_TRUE(suite.new_accounting()->IsPostingEnabled("OTRO"));
    EXPECT_EQ(postings(connection).size(), 5u);
}

TEST_F(Accounting, a_receipt_is_cash_against_what_the_branch_collects) {
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-1")) << error;
    EXPECT_THAT(lines("RP-1"), ElementsAre("1101-01 150.1 0", "1105-01 0 150.1", "1101-04 200 0", "1105-01 0 200"));
    EXPECT_EQ(scalar("SELECT Em_Cve_Empresa AS value FROM Poliza"), "EM01");
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-USD"));
    EXPECT_THAT(lines("RP-USD"), ElementsAre("1101-01 195 0", "1105-02 0 195"));
}

TEST_F(Accounting, a_movement_is_the_bank_against_the_kind_of_movement) {
    ASSERT_TRUE(post("BANCO_MOVIMIENTO", "BM-IN", "EM77")) << error;
    EXPECT_THAT(lines("BM-IN"), ElementsAre("1102-01 150 0", "1108-01 0 150"));
    EXPECT_EQ(scalar("SELECT Em_Cve_Empresa AS value FROM Poliza"), "EM77") << "the company it was given";
    ASSERT_TRUE(post("BANCO_MOVIMIENTO", "BM-OUT"));
    EXPECT_THAT(lines("BM-OUT"), ElementsAre("1108-02 195 0", "1102-01 0 195")) << "pesos are not converted";
    ASSERT_TRUE(post("BANCO_MOVIMIENTO", "BM-USD"));
    EXPECT_THAT(lines("BM-USD"), ElementsAre("1108-02 195 0", "1103-01 0 195"));
}

TEST_F(Accounting, a_deposit_is_money_on_its_way_against_what_it_was) {
    ASSERT_TRUE(post("DEPOSITO_PAGO", "DP-1")) << error;
    EXPECT_THAT(lines("DP-1"), ElementsAre("1108-01 150.1 0", "1101-01 0 150.1", "1108-01 200 0", "1101-04 0 200"));
}

TEST_F(Accounting, a_check_is_its_beneficiary_against_money_on_its_way) {
    ASSERT_TRUE(post("CHEQUE", "CH-1")) << error;
    EXPECT_THAT(lines("CH-1"), ElementsAre("2101-01 195 0", "1108-02 0 195"));
    sql("UPDATE Cheque SET Tc_Cve_Tipo_Cheque = '0005', Ch_Transferencia = 'SI', Ch_Folio = 'CH-2'");
    ASSERT_TRUE(post("CHEQUE", "CH-2"));
    EXPECT_THAT(lines("CH-2"), ElementsAre("1109-01 195 0", "1108-03 0 195"));
}

TEST_F(Accounting, posting_again_keeps_the_voucher_or_writes_another) {
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-1"));
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-1"));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Poliza"), "1");
    sql("UPDATE Recibo_Pago SET Rp_Importe = 300 WHERE Rp_Id = '0003'");
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-1"));
    EXPECT_THAT(column("SELECT Es_Cve_Estado AS value FROM Poliza ORDER BY Pz_Folio"), ElementsAre("CA", "AC"));
    EXPECT_EQ(lines("RP-1").size(), 4u);
}

TEST_F(Accounting, a_closed_voucher_with_other_amounts_is_not_replaced) {
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-1"));
    ASSERT_TRUE(set_voucher_closed(connection, "PZ-00000001", true));
    EXPECT_TRUE(post("RECIBO_PAGO", "RP-1")) << "the same amounts need no other";
    sql("UPDATE Recibo_Pago SET Rp_Importe = 300 WHERE Rp_Id = '0003'");
    EXPECT_FALSE(post("RECIBO_PAGO", "RP-1"));
    EXPECT_EQ(error,
              "La póliza: PZ-00000001, de RECIBO_PAGO: RP-1, está cerrada; ábrala en contabilidad antes de continuar");
}

TEST_F(Accounting, what_cannot_be_posted_is_refused) {
    EXPECT_FALSE(post("RECIBO_PAGO", "NO-EXISTE"));
    EXPECT_EQ(error, "No se encontró el recibo de caja: NO-EXISTE, por contabilizar");
    EXPECT_FALSE(post("BANCO_MOVIMIENTO", "NO-EXISTE"));
    EXPECT_EQ(error, "No se encontró el movimiento de banco: NO-EXISTE, por contabilizar");
    EXPECT_FALSE(post("DEPOSITO_PAGO", "NO-EXISTE"));
    EXPECT_EQ(error, "No se encontró el depósito: NO-EXISTE, por contabilizar");
    EXPECT_FALSE(post("CHEQUE", "NO-EXISTE"));
    EXPECT_EQ(error, "No se encontró el cheque: NO-EXISTE, por contabilizar");
    EXPECT_FALSE(post("PEDIDO", "P-1"));
    EXPECT_THAT(error, HasSubstr("Los documentos de código: PEDIDO, no se contabilizan"));
    sql("UPDATE Forma_Pago SET Fp_Cuenta_Contable = ''");
    sql("UPDATE Configuracion_Contable SET Ct_Cuenta_Cargo = ''");
    EXPECT_FALSE(post("RECIBO_PAGO", "RP-1"));
    EXPECT_THAT(error, HasSubstr("No hay cuenta contable para RECIBO_PAGO; asígnela en el catálogo"));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Poliza"), "0");
}

TEST_F(Accounting, a_catalog_without_account_falls_back_on_the_configured_one) {
    sql("UPDATE Sucursal SET Sc_Cuenta_Contable = '' WHERE Sc_Cve_Sucursal = 'GDL'");
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-USD"));
    EXPECT_THAT(lines("RP-USD"), ElementsAre("1101-01 195 0", "1105-01 0 195"));
}

TEST_F(Accounting, a_closed_accounting_period_takes_no_voucher) {
    set_period(connection, {"CONTABILIDAD", 2024, 3, false});
    EXPECT_FALSE(post("RECIBO_PAGO", "RP-1"));
    EXPECT_EQ(error, "El período contable del: 15/03/2024, está cerrado; ábralo para contabilizar RECIBO_PAGO: RP-1");
}

TEST_F(Accounting, a_document_without_amount_gets_no_voucher) {
    sql("UPDATE Recibo_Pago SET Rp_Importe = 0");
    EXPECT_TRUE(post("RECIBO_PAGO", "RP-1"));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Poliza"), "0");
}

TEST_F(Accounting, an_open_voucher_goes_with_its_document) {
    EXPECT_TRUE(let_go("RECIBO_PAGO", "RP-1")) << "there is none";
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-1"));
    EXPECT_TRUE(let_go("Recibo_Pago", "RP-1"));
    EXPECT_EQ(scalar("SELECT Es_Cve_Estado AS value FROM Poliza"), "CA");
    EXPECT_EQ(scalar("SELECT Oper_Baja AS value FROM Poliza"), "CAJA1");
    EXPECT_FALSE(set_voucher_closed(connection, "PZ-00000001", true)) << "a cancelled one cannot be closed";
}

TEST_F(Accounting, a_closed_voucher_or_period_holds_the_document) {
    ASSERT_TRUE(post("RECIBO_PAGO", "RP-1"));
    set_voucher_closed(connection, "PZ-00000001", true);
    EXPECT_FALSE(let_go("RECIBO_PAGO", "RP-1"));
    EXPECT_EQ(error,
              "La póliza: PZ-00000001, de RECIBO_PAGO: RP-1, está cerrada; ábrala en contabilidad antes de continuar");
    set_voucher_closed(connection, "PZ-00000001", false);
    set_period(connection, {"CONTABILIDAD", 2024, 3, false});
    EXPECT_FALSE(let_go("RECIBO_PAGO", "RP-1"));
    EXPECT_EQ(
        error,
        "El período contable de la póliza: PZ-00000001, de RECIBO_PAGO: RP-1, está cerrado; ábralo en contabilidad "
        "antes de continuar");
    EXPECT_EQ(scalar("SELECT Es_Cve_Estado AS value FROM Poliza"), "AC");
}

TEST_F(Accounting, the_debits_of_every_voucher_equal_its_credits) {
    for (int i = 0; i < 40; ++i) {
        const std::string folio = "RP-X" + std::to_string(i);
        for (int line = 1; line <= 3; ++line) {
            sql("INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Fecha, Sc_Cve_Sucursal, Mn_Cve_Moneda, Rp_Tipo_Cambio, "
                "Fp_Cve_Forma_Pago, Rp_Importe) VALUES ('" +
                folio + "', '000" + std::to_string(line) + "', '2024-03-15', 'MTY', 'USD', 19.4321, '0" +
                std::to_string(line) + "', " + std::to_string(line == 2 ? -0.137 * i : 1.117 * i) + ")");
        }
        ASSERT_TRUE(post("RECIBO_PAGO", folio)) << error;
    }
    EXPECT_THAT(column("SELECT Pz_Folio AS value FROM Poliza_Detalle GROUP BY Pz_Folio "
                       "HAVING ABS(SUM(Pzd_Cargo) - SUM(Pzd_Abono)) > 0.0001"),
                IsEmpty());
    EXPECT_THAT(
        column("SELECT Pzd_Cargo AS value FROM Poliza_Detalle WHERE ABS(ROUND(Pzd_Cargo, 2) - Pzd_Cargo) > 0.00001 OR "
               "ABS(ROUND(Pzd_Abono, 2) - Pzd_Abono) > 0.00001 OR Pzd_Cargo < 0 OR Pzd_Abono < 0"),
        IsEmpty())
        << "to the cent, and on the side where they belong";
}

}  // namespace
}  // namespace cuvexa::tests
