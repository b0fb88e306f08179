// Closing of a cash receipt.
#include <cmath>

#include "support/in_turn.h"

namespace cuvexa::tests {
namespace {

const std::string tag = "Cuvexa.dll - FinReciboCaja()\r\n";
const std::string folio = "RP-MTY-00000001";

tRpDetalle cash(double amount) {
    return Company::receipt_line(amount, "01");
}
tRpDetalle check(double amount) {
    return Company::receipt_line(amount, "02", "Sierra", "1");
}
tRpDetalle store_card(double amount) {
    return Company::receipt_line(amount, "06", "", "T-1");
}

/// A receipt of that type for that supplier or customer.
tRpEncabezado header_of(const std::string& type, const std::string& party) {
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Fecha = make_date(2024, 3, 14);
    header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = type;
    header.Rp_Solicitar_Valor = party;
    header.Mn_Cve_Moneda = "USD";
    header.Rp_Tipo_Cambio = 19.5;
    return header;
}

std::string text_of(const Payable& p) {
    return p.supplier + "|" + p.branch + "|" + iso_date(p.date) + "|" + p.comment + "|" + p.source_table + "|" +
           p.source_document + "|" + iso_date(p.due_date) + "|" + number_text(p.amount) + "|" +
           number_text(p.net_amount) + "|" + p.reference + "|" + p.currency + "|" + number_text(p.exchange_rate);
}

std::string text_of(const Receivable& r) {
    return r.customer + "|" + r.branch + "|" + iso_date(r.date) + "|" + r.comment + "|" + r.source_table + "|" +
           r.source_document + "|" + iso_date(r.due_date) + "|" + number_text(r.amount) + "|" +
           number_text(r.net_amount) + "|" + number_text(r.net_price_amount) + "|" + number_text(r.balance) + "|" +
           r.reference + "|" + r.currency + "|" + number_text(r.exchange_rate);
}

std::string text_of(const Receipt_application& r) {
    return r.customer + "|" + r.document_code + "|" + r.folio + "|" + iso_date(r.date) + "|" + r.reference + "|" +
           r.comment + "|" + r.branch + "|" + number_text(r.amount) + "|" + r.currency + "|" +
           number_text(r.exchange_rate);
}

template <class Handed>
std::vector<std::string> texts_of(const std::vector<Handed>& handed) {
    std::vector<std::string> texts;
    for (const Handed& one : handed) texts.push_back(text_of(one));
    return texts;
}

class Receipt_closing : public ::testing::Test {
protected:
    void capture(const std::string& type, const std::string& party, const std::vector<tRpDetalle>& lines) {
        company.capture_receipt(lines, header_of(type, party));
        company.mark();
    }
    bool close(const std::string& receipt = folio) { return company.treasury().FinReciboCaja(receipt); }
    std::string error() { return company.treasury().Error(); }
    std::string states() {
        std::string text;
        for (const std::string& state :
             company.rows("SELECT Es_Cve_Estado FROM Recibo_Pago ORDER BY Rp_Folio, Rp_Id")) {
            text += state + " ";
        }
        return text;
    }

    Company company;
};

// ---- By receipt type ------------------------------------------------------------------------------------------------

TEST_F(Receipt_closing, a_plain_receipt_is_registered_and_stays_active) {
    capture("01", "", {cash(100)});
    ASSERT_TRUE(close()) << error();
    EXPECT_EQ(error(), "");
    EXPECT_THAT(company.changes(), ElementsAre("+ Documento_Registrado RP-MTY-00000001/RECIBO_PAGO: "
                                               "Dr_Documento=RP-MTY-00000001, Dr_Codigo=RECIBO_PAGO, Dr_Veces=1"));
}

TEST_F(Receipt_closing, a_receipt_of_a_supplier_creates_one_payable_per_method_and_is_applied) {
    capture("04", "PV01", {cash(100), check(40), cash(50)});
    company.sql("UPDATE Recibo_Pago SET Oper_Ult_Modif = 'OTRO', Fecha_Ult_Modif = ''");
    company.on.server_date = make_date(2024, 3, 16, 8, 0, 1);
    company.mark();
    ASSERT_TRUE(close()) << error();
    EXPECT_THAT(
        texts_of(company.on.payables),
        ElementsAre("PV01|MTY|2024-03-14|Cobranza|Recibo_Pago|RP-MTY-00000001|2024-04-13|150|150|REF-1|USD|19.5",
                    "PV01|MTY|2024-03-14|Cobranza|Recibo_Pago|RP-MTY-00000001|2024-04-13|40|40|REF-1|USD|19.5"));
    EXPECT_EQ(company.on.receivables.size() + company.on.applications.size(), 0u);
    EXPECT_THAT(
        company.rows("SELECT Rp_Id, Es_Cve_Estado, Oper_Ult_Modif, Fecha_Ult_Modif FROM Recibo_Pago ORDER BY Rp_Id"),
        ElementsAre("0001|AP|CAJA1|2024-03-16 08:00:01", "0002|AP|CAJA1|2024-03-16 08:00:01",
                    "0003|AP|CAJA1|2024-03-16 08:00:01"));
    EXPECT_THAT(
        company.rows("SELECT Pv_Cve_Proveedor, Cxp_Tabla, Cxp_Documento, Cxp_Precio_Neto_Saldo FROM Cuenta_x_Pagar "
                     "WHERE Cxp_Documento = 'RP-MTY-00000001' ORDER BY Cxp_Folio"),
        ElementsAre("PV01|Recibo_Pago|RP-MTY-00000001|150.0", "PV01|Recibo_Pago|RP-MTY-00000001|40.0"));
}

TEST_F(Receipt_closing, a_supplier_without_credit_days_or_unknown_is_due_on_the_receipt_s_date) {
    for (const std::string supplier : {"PV03", "NADIE", ""}) {
        company.on.accept("CreatePayable");
        const std::string receipt = company.capture_receipt({cash(1)}, header_of("04", supplier));
        company.mark();
        ASSERT_TRUE(close(receipt)) << error();
        ASSERT_EQ(company.on.payables.size(), 1u);
        EXPECT_EQ(company.on.payables[0].due_date, make_date(2024, 3, 14)) << supplier;
    }
}

TEST_F(Receipt_closing, a_receipt_of_a_customer_or_debtor_is_applied_on_the_receivables_side) {
    for (const std::string type : {"02", "03"}) {
        const std::string receipt = company.capture_receipt({cash(100), cash(50), check(40)}, header_of(type, "CL02"));
        company.mark();
        ASSERT_TRUE(close(receipt)) << error();
        EXPECT_THAT(texts_of(company.on.applications),
                    ElementsAre("CL02|RECIBO_PAGO|" + receipt + "|2024-03-14|REF-1|Cobranza|MTY|150|USD|19.5",
                                "CL02|RECIBO_PAGO|" + receipt + "|2024-03-14|REF-1|Cobranza|MTY|40|USD|19.5"));
        EXPECT_EQ(company.on.payables.size() + company.on.receivables.size(), 0u);
        EXPECT_EQ(company.scalar("SELECT count(*) FROM Recibo_Pago WHERE Es_Cve_Estado = 'AP' AND Rp_Folio = '" +
                                 receipt + "'"),
                  "3");
    }
}

TEST_F(Receipt_closing, any_other_code_of_the_type_asks_for_nothing) {
    for (const std::string code : {"", "05", "4", "2", "99"}) {
        company.sql("UPDATE Tipo_Recibo_Pago SET Trp_Solicitar = '" + code + "' WHERE Trp_Cve_Tipo_Recibo_Pago = '01'");
        const std::string receipt = company.capture_receipt({cash(1)}, header_of("01", "PV01"));
        company.mark();
        ASSERT_TRUE(close(receipt)) << error();
        EXPECT_EQ(touched(company.changes()), "+Documento_Registrado") << code;
    }
}

TEST_F(Receipt_closing, a_method_that_creates_a_receivable_does_so_for_its_own_amount) {
    capture("01", "", {cash(100), store_card(30), store_card(5)});
    ASSERT_TRUE(close()) << error();
    EXPECT_THAT(
        texts_of(company.on.receivables),
        ElementsAre("TARJ|MTY|2024-03-14|Cobranza|Recibo_Pago|RP-MTY-00000001|2024-04-03|35|35|35|35|REF-1|USD|19.5"));
    EXPECT_EQ(states(), "AC AC AC ") << "the receivable alone does not apply the receipt";
    EXPECT_EQ(
        company.scalar("SELECT Cxc_Precio_Neto_Saldo FROM Cuenta_x_Cobrar WHERE Cxc_Documento = 'RP-MTY-00000001'"),
        "35.0");
}

TEST_F(Receipt_closing, a_receivable_of_an_unknown_customer_is_due_on_the_receipt_s_date) {
    company.sql("UPDATE Forma_Pago SET Fp_Cliente = 'NADIE' WHERE Fp_Cve_Forma_Pago = '06'");
    company.on.accept("CreateReceivable");
    capture("01", "", {store_card(30)});
    ASSERT_TRUE(close()) << error();
    ASSERT_EQ(company.on.receivables.size(), 1u);
    EXPECT_EQ(company.on.receivables[0].due_date, make_date(2024, 3, 14));
}

TEST_F(Receipt_closing, the_method_s_receivable_comes_on_top_of_what_the_type_asks_for) {
    capture("04", "PV01", {store_card(30)});
    ASSERT_TRUE(close()) << error();
    EXPECT_EQ(company.on.payables.size(), 1u);
    EXPECT_EQ(company.on.receivables.size(), 1u);
    EXPECT_EQ(states(), "AP ");
}

TEST_F(Receipt_closing, a_header_changed_between_lines_makes_rows_of_its_own) {
    tRpEncabezado header = header_of("02", "CL02");
    company.treasury().NuevoReciboCaja();
    company.treasury().RpEncabezado(header);
    company.treasury().RpDetalle(cash(1));
    ASSERT_TRUE(company.treasury().Add_Recibo_Caja_Detalle());
    header = company.treasury().RpEncabezado();
    header.Rp_Comentario = "otro";
    company.treasury().RpEncabezado(header);
    ASSERT_TRUE(company.treasury().Add_Recibo_Caja_Detalle());
    company.mark();
    ASSERT_TRUE(close()) << error();
    EXPECT_EQ(company.on.applications.size(), 2u);
}

// ---- The refusals, in their order -----------------------------------------------------------------------------------

const Preparation prepare_payable = [](Company& company) {
    company.post_automatically("RECIBO_PAGO");
    company.capture_receipt({store_card(100)}, header_of("04", "PV01"));
};
const Call call = [](Company& company) { return company.treasury().FinReciboCaja(folio); };

TEST(Receipt_closing_order, the_refusals_come_in_the_order_of_the_steps) {
    const std::string applied = "+Cuenta_x_Pagar ~Folio_Serie ~Recibo_Pago";
    const std::string posted = "+Cuenta_x_Cobrar +Cuenta_x_Pagar ~Folio_Serie +Folio_Serie +Poliza +Poliza_Detalle";
    expect_refusals_in_order(
        {{"receipt", sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA'"),
          tag + "No se encontró el recibo de caja: RP-MTY-00000001"},
         {"payable", refusing("CreatePayable", "Proveedor suspendido"), tag + "Proveedor suspendido"},
         {"receivable", refusing("CreateReceivable", "Cliente suspendido"), tag + "Cliente suspendido", applied},
         {"voucher", refusing("PostDocument", "Cuenta inválida"), tag + "Cuenta inválida",
          "+Cuenta_x_Cobrar " + applied},
         {"registration", refusing("RegisterDocument", "Sin réplica"), tag + "Sin réplica", posted + " ~Recibo_Pago"}},
        prepare_payable, call);
}

TEST_F(Receipt_closing, a_refused_application_leaves_the_receipt_active) {
    capture("02", "CL01", {cash(100)});
    company.on.refuse("ApplyReceipt", "Cliente bloqueado");
    EXPECT_FALSE(close());
    EXPECT_EQ(error(), tag + "Cliente bloqueado");
    EXPECT_EQ(states(), "AC ");
}

TEST_F(Receipt_closing, an_unknown_or_wholly_cancelled_receipt_is_not_found) {
    capture("01", "", {cash(100)});
    EXPECT_FALSE(close("NADIE"));
    EXPECT_EQ(error(), tag + "No se encontró el recibo de caja: NADIE");
    EXPECT_FALSE(close(""));
    EXPECT_EQ(error(), tag + "No se encontró el recibo de caja: ");
}

TEST_F(Receipt_closing, cancelled_lines_are_left_out) {
    capture("02", "CL02", {cash(100), cash(50)});
    company.sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA' WHERE Rp_Id = '0002'");
    ASSERT_TRUE(close());
    ASSERT_EQ(company.on.applications.size(), 1u);
    EXPECT_EQ(company.on.applications[0].amount, 100);
}

TEST_F(Receipt_closing, applied_marks_the_cancelled_lines_too) {
    // The statement names the folio alone.
    capture("02", "CL02", {cash(100), cash(50)});
    company.sql("UPDATE Recibo_Pago SET Es_Cve_Estado = 'CA' WHERE Rp_Id = '0002'");
    ASSERT_TRUE(close());
    EXPECT_EQ(states(), "AP AP ");
}

TEST_F(Receipt_closing, an_unknown_receipt_type_is_a_receipt_not_found) {
    capture("77", "", {cash(100)});
    EXPECT_FALSE(close());
    EXPECT_EQ(error(), tag + "No se encontró el recibo de caja: RP-MTY-00000001");
}

TEST_F(Receipt_closing, a_refusal_of_the_second_row_leaves_the_first_one_done) {
    capture("04", "PV01", {cash(100), store_card(30)});
    company.on.refuse("CreateReceivable", "Cliente suspendido");
    EXPECT_FALSE(close());
    EXPECT_EQ(error(), tag + "Cliente suspendido");
    EXPECT_EQ(company.on.payables.size(), 2u);
    EXPECT_EQ(states(), "AP AP ");
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Documento_Registrado"), "0");
}

TEST_F(Receipt_closing, closing_again_repeats_every_row) {
    capture("04", "PV01", {cash(100)});
    company.on.refuse("RegisterDocument", "Sin réplica");
    EXPECT_FALSE(close());
    company.on.clear();
    EXPECT_TRUE(close()) << error();
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Cuenta_x_Pagar WHERE Cxp_Documento = 'RP-MTY-00000001'"), "2");
    EXPECT_EQ(company.scalar("SELECT Dr_Veces FROM Documento_Registrado WHERE Dr_Documento = 'RP-MTY-00000001'"), "1");
}

// ---- Accounting -----------------------------------------------------------------------------------------------------

TEST_F(Receipt_closing, with_automatic_posting_the_receipt_is_handed_to_accounting_before_its_registration) {
    company.post_automatically("RECIBO_PAGO");
    capture("01", "", {cash(100), check(5)});
    ASSERT_TRUE(close()) << error();
    EXPECT_THAT(company.on.calls, ElementsAre("IsPostingEnabled(RECIBO_PAGO)",
                                              ::testing::StartsWith("PostDocument(RECIBO_PAGO, RP-MTY-00000001, "),
                                              "RegisterDocument(RECIBO_PAGO, RP-MTY-00000001)"));
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Poliza WHERE Pz_Documento = 'RP-MTY-00000001'"), "1");
}

TEST_F(Receipt_closing, without_automatic_posting_no_voucher_is_made) {
    capture("01", "", {cash(100)});
    ASSERT_TRUE(close());
    EXPECT_THAT(company.on.calls,
                ElementsAre("IsPostingEnabled(RECIBO_PAGO)", "RegisterDocument(RECIBO_PAGO, RP-MTY-00000001)"));
}

TEST_F(Receipt_closing, a_voucher_that_succeeds_with_a_text_is_a_failure_all_the_same) {
    company.post_automatically("RECIBO_PAGO");
    company.on.accept("PostDocument", "Póliza sin cuadrar");
    capture("01", "", {cash(100)});
    EXPECT_FALSE(close());
    EXPECT_EQ(error(), tag + "Póliza sin cuadrar");
    EXPECT_EQ(company.scalar("SELECT count(*) FROM Documento_Registrado"), "0");
}

// ---- Failures in turn -----------------------------------------------------------------------------------------------

TEST(Receipt_closing_failures, each_statement_that_fails_leaves_what_came_before_it) {
    const std::string failure = " => " + tag + obstructed::statement_failure;
    EXPECT_THAT(listed(statements_fail_in_turn(prepare_payable, call)),
                ElementsAre("SELECT Recibo_Pago" + failure + " []",
                            "UPDATE Recibo_Pago" + failure + " [+Cuenta_x_Pagar ~Folio_Serie]"));
}

TEST(Receipt_closing_failures, each_service_call_that_fails_leaves_what_came_before_it) {
    const std::string failure = " => " + tag + obstructed::call_failure;
    const std::string applied = " [+Cuenta_x_Pagar ~Folio_Serie ~Recibo_Pago]";
    const std::string owed = " [+Cuenta_x_Cobrar +Cuenta_x_Pagar ~Folio_Serie ~Recibo_Pago]";
    EXPECT_THAT(
        listed(calls_fail_in_turn(prepare_payable, call)),
        ElementsAre(
            "LookupValue" + failure + " []",                                //
            "NewDocument" + failure + " []",                                //
            "CreatePayable" + failure + " []",                              //
            "GetUserName" + failure + " [+Cuenta_x_Pagar ~Folio_Serie]",    //
            "GetServerDate" + failure + " [+Cuenta_x_Pagar ~Folio_Serie]",  //
            "SqlDateTime" + failure + " [+Cuenta_x_Pagar ~Folio_Serie]",    //
            "LookupValue" + failure + applied,                              //
            "CreateReceivable" + failure + applied,                         //
            "IsPostingEnabled" + failure + owed,                            //
            "PostDocument" + failure + owed,                                //
            "RegisterDocument" + failure +
                " [+Cuenta_x_Cobrar +Cuenta_x_Pagar ~Folio_Serie +Folio_Serie +Poliza +Poliza_Detalle ~Recibo_Pago]"));
}

TEST(Receipt_closing_failures, a_failing_application_is_reported_too) {
    const Preparation prepare = [](Company& company) { company.capture_receipt({cash(100)}, header_of("02", "CL01")); };
    const std::vector<Outcome> outcomes = calls_fail_in_turn(prepare, call);
    ASSERT_FALSE(outcomes.empty());
    EXPECT_EQ(outcomes[0].failed, "ApplyReceipt");
    EXPECT_EQ(outcomes[0].error, tag + obstructed::call_failure);
}

// ---- Hostile values -------------------------------------------------------------------------------------------------

TEST_F(Receipt_closing, a_folio_with_a_quote_fails_in_the_database_and_changes_nothing) {
    capture("01", "", {cash(100)});
    for (const std::string receipt : {"R'1", "x'; DELETE FROM Recibo_Pago; --", "'", "\xff"}) {
        EXPECT_FALSE(close(receipt));
        EXPECT_EQ(error().substr(0, tag.size()), tag);
        EXPECT_GT(error().size(), tag.size());
    }
    EXPECT_THAT(company.changes(), IsEmpty());
}

TEST_F(Receipt_closing, credit_days_that_are_no_number_are_a_failure_under_the_tag) {
    capture("04", "PV01", {cash(100)});
    // In a suite that keeps them as a text.
    company.sql("DROP TABLE Proveedor");
    company.sql(
        "CREATE TABLE Proveedor (Pv_Cve_Proveedor varchar(60), Pv_Descripcion varchar(60), "
        "Gp_Cve_Grupo_Proveedor varchar(60), Pv_Dias_Credito varchar(60), Pv_Cuenta_Contable varchar(60), "
        "Oper_Alta varchar(60), Fecha_Alta datetime, Oper_Ult_Modif varchar(60), Fecha_Ult_Modif datetime, "
        "Oper_Baja varchar(60), Fecha_Baja datetime, Es_Cve_Estado varchar(10))");
    company.sql(
        "INSERT INTO Proveedor (Pv_Cve_Proveedor, Pv_Dias_Credito, Es_Cve_Estado) VALUES ('PV01', 'treinta', 'AC')");
    EXPECT_FALSE(close());
    EXPECT_EQ(error(), tag + "No coinciden los tipos");
    company.sql("UPDATE Proveedor SET Pv_Dias_Credito = '2147483648' WHERE Pv_Cve_Proveedor = 'PV01'");
    EXPECT_FALSE(close());
    EXPECT_EQ(error(), tag + "Desbordamiento");
    EXPECT_EQ(states(), "AC ");
    // The next test on a server makes its schema anew.
    company.sql("DROP TABLE Proveedor");
}

TEST_F(Receipt_closing, credit_days_beyond_a_16_bit_number_are_days_like_others) {
    capture("04", "PV01", {cash(100)});
    company.sql("UPDATE Proveedor SET Pv_Dias_Credito = 40000 WHERE Pv_Cve_Proveedor = 'PV01'");
    ASSERT_TRUE(close()) << error();
    EXPECT_EQ(company.on.payables.at(0).due_date, add_days(make_date(2024, 3, 14), 40000));
}

TEST_F(Receipt_closing, a_receipt_without_date_is_a_failure_under_the_tag_when_a_step_needs_the_date) {
    capture("04", "PV01", {cash(100)});
    company.sql("UPDATE Recibo_Pago SET Rp_Fecha = NULL");
    EXPECT_FALSE(close());
    EXPECT_EQ(error(), tag + "Uso no válido de Null");
}

TEST_F(Receipt_closing, a_receipt_that_creates_nothing_is_closed_without_a_date_and_a_rate) {
    capture("01", "", {cash(100)});
    company.sql("UPDATE Recibo_Pago SET Rp_Fecha = NULL, Rp_Tipo_Cambio = NULL, Rp_Importe = NULL");
    EXPECT_TRUE(close()) << error();
}

}  // namespace
}  // namespace cuvexa::tests
