// cuvexa show and cuvexa demo.
#include "cli/program.h"
#include "cuvexa/database/sqlite_connection.h"

namespace cuvexa::tests {
namespace {

using testing::HasSubstr;
using testing::Not;

class Cli_show : public Program {
protected:
    void SetUp() override {
        Program::SetUp();
        make_company();
    }
};

TEST_F(Cli_show, every_view_answers_people_and_programs) {
    output_of("suite posting DEPOSITO_PAGO on --db company.db");
    output_of("suite posting CHEQUE on --db company.db");
    output_of("demo --db company.db --synchronous off");
    for (const std::string view : {"receipts", "deposits", "movements", "accounts", "checks", "budgets", "advances",
                                   "receivables", "payables", "vouchers"}) {
        EXPECT_THAT(output_of("show " + view + " --db company.db"), Not(HasSubstr("sin renglones"))) << view;
        EXPECT_FALSE(shown(view).empty()) << view;
    }
    EXPECT_EQ(output_of("show requests --db company.db"), "Solicitudes de cheque\n(sin renglones)\n");
    EXPECT_EQ(output_of("show requests --json --db company.db"), "[]\n");
}

TEST_F(Cli_show, a_key_selects_one_document) {
    EXPECT_EQ(shown("accounts PTO-MXN").size(), 1u);
    EXPECT_EQ(shown("accounts pto-mxn").size(), 1u) << "keys compare without regard to case";
    EXPECT_TRUE(shown("accounts NOBODY").empty());
    EXPECT_TRUE(shown("accounts \"it's\"").empty());
    EXPECT_EQ(shown("budgets PV01").size(), 4u);
}

TEST_F(Cli_show, amounts_stand_to_the_right_with_two_decimals) {
    EXPECT_EQ(output_of("show payables CXP-MTY-00000001 --db company.db"),
              "Cuentas por pagar\n"
              "Cuenta x pagar    Fecha       Vence       Proveedor   Importe  Pagos     Saldo  Moneda  Documento       "
              "Folio    Estado\n"
              "CXP-MTY-00000001  2024-01-10  2024-02-09  PV01       11600.00   0.00  11600.00  MXN     FACTURA_COMPRA  "
              "FC-1001  AC\n");
}

TEST_F(Cli_show, json_holds_the_columns_of_the_database) {
    EXPECT_EQ(shown("payables CXP-MTY-00000003"), nlohmann::json::array({{{"Cxp_Folio", "CXP-MTY-00000003"},
                                                                          {"Cxp_Fecha", "2024-01-20"},
                                                                          {"Cxp_Fecha_Vencimiento", "2024-02-04"},
                                                                          {"Pv_Cve_Proveedor", "PV02"},
                                                                          {"Cxp_Precio_Neto_Importe", 500.0},
                                                                          {"Cxp_Precio_Neto_Pago", 0.0},
                                                                          {"Cxp_Precio_Neto_Saldo", 500.0},
                                                                          {"Mn_Cve_Moneda", "USD"},
                                                                          {"Cxp_Tabla", "FACTURA_COMPRA"},
                                                                          {"Cxp_Documento", "FC-2001"},
                                                                          {"Es_Cve_Estado", "AC"}}}));
}

TEST_F(Cli_show, a_date_has_one_form_however_it_is_stored) {
    Sqlite_connection rows(folder / "company.db");
    rows.execute(
        "UPDATE Cuenta_x_Pagar SET Cxp_Fecha = '2024-01-20 00:00:00', Cxp_Fecha_Vencimiento = '20240204' "
        "WHERE Cxp_Folio = 'CXP-MTY-00000003'");
    rows.execute(
        "UPDATE Cuenta_x_Pagar SET Cxp_Fecha = '2024-01-20 10:20:30', Cxp_Fecha_Vencimiento = NULL "
        "WHERE Cxp_Folio = 'CXP-MTY-00000001'");
    rows.close();
    const auto midnight = shown("payables CXP-MTY-00000003")[0], morning = shown("payables CXP-MTY-00000001")[0];
    EXPECT_EQ(midnight["Cxp_Fecha"], "2024-01-20");
    EXPECT_EQ(midnight["Cxp_Fecha_Vencimiento"], "2024-02-04");
    EXPECT_EQ(morning["Cxp_Fecha"], "2024-01-20T10:20:30");
    EXPECT_TRUE(morning["Cxp_Fecha_Vencimiento"].is_null());
}

TEST_F(Cli_show, columns_line_up_by_what_is_seen) {
    output_of("init --db empty.db");
    output_of("parameter set --db empty.db ñandú 'dos\nlíneas'");
    output_of("parameter set --db empty.db largo_nombre x");
    EXPECT_EQ(output_of("parameter list --db empty.db"),
              "Parámetro     Valor\n"
              "largo_nombre  x\n"
              "ñandú         dos líneas\n");
}

class Cli_demo : public Program {};

TEST_F(Cli_demo, plays_in_memory_and_leaves_nothing) {
    const std::string text = output_of("demo");
    for (const char* part : {"1. Recibo de caja", "2. Cierre", "3. Depósito", "4. Cheques", "5. Presupuesto",
                             "6. Aplicación", "7. De regreso", "Imposible aplicar un cheque con estado: PXA",
                             "Todos los saldos son los del principio.", "Auditoría: todo cuadra."}) {
        EXPECT_THAT(text, HasSubstr(part));
    }
    EXPECT_FALSE(std::filesystem::exists(folder / "demo.db"));
}

TEST_F(Cli_demo, shows_calls_as_a_program_writes_them_with_what_they_gave) {
    const std::string text = output_of("demo");
    for (const char* part : {
             "   > RpDetalle = {Fp_Cve_Forma_Pago: {Fp_Cve_Forma_Pago: \"01\"}, Rp_Importe: 1500}\n"
             "   > Add_Recibo_Caja_Detalle()\n     True\n",
             "   > RpEncabezado.Rp_Folio\n     \"RP-MTY-00000001\"\n",
             "   > Genera_Deposito(\"SRR-MXN\", \"RP-MTY-00000001\", 2024-03-15, True, 2024-03-15, \"Corte del día\")\n"
             "     True\n",
             "   > GetSaldo(\"SRR-MXN\")\n     5000\n",
             "   > Nuevo()\n   > Encabezado = {…, Tc_Cve_Tipo_Cheque: \"0005\", Ch_Referencia: \"2002\", ",
             "   > Registra_Movimiento_Banco(Datos)\n     True\n",
             "     False\n   > Error\n     Cuvexa.dll - Aplicar_Cheque()\n",
         }) {
        EXPECT_THAT(text, HasSubstr(part));
    }
}

TEST_F(Cli_demo, keeps_its_database_and_may_be_played_again_on_it) {
    output_of("demo --db demo.db --synchronous off");
    output_of("demo --db demo.db --synchronous off");
    const auto checks = nlohmann::json::parse(output_of("show checks --json --db demo.db"));
    EXPECT_EQ(checks.size(), 16u);
    for (const auto& check : checks) EXPECT_EQ(check["Es_Cve_Estado"], "CA");
}

TEST_F(Cli_demo, refuses_a_database_that_is_not_the_sample_company) {
    output_of("init --db company.db");
    const Outcome outcome = run("demo --db company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err,
              "La demostración solo corre sobre la empresa de muestra (cuvexa init --sample): company.db\n");
}

TEST_F(Cli_demo, ends_with_the_error_of_a_refused_call) {
    make_company();
    output_of("suite period close 2024-03 --db company.db");
    const Outcome outcome = run("demo --db company.db");
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err,
              "Cuvexa.dll - Add_Recibo_Caja_Detalle()\n"
              "El período operativo correspondiente a la fecha: 15-03-2024, está cerrado o no existe!\n");
}

}  // namespace
}  // namespace cuvexa::tests
