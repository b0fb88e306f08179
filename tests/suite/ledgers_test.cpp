// Receivables, payables, advances and their payments.
#include <cmath>
#include <random>

#include "cuvexa/errors.h"
#include "suite/expenses.h"
#include "suite/fixture.h"
#include "support/service_records.h"

namespace cuvexa::tests {
namespace {

using Payables = Suite_test;
using Receivables = Suite_test;

class Ledgers : public Suite_test {
protected:
    Payable payable(double amount) { return payable_of(*suite.new_accounts_payable(), amount); }

    /// The last refusal of a payables service used once.
    template <class Use>
    std::string refusal(Use&& use) {
        const auto service = suite.new_accounts_receivable();
        EXPECT_FALSE(use(*service));
        return service->LastError();
    }
    template <class Use>
    std::string payable_refusal(Use&& use) {
        const auto service = suite.new_accounts_payable();
        EXPECT_FALSE(use(*service));
        return service->LastError();
    }
    void expect_balances_add_up() {
        EXPECT_THAT(
            column("SELECT Cuenta_x_Cobrar.Cxc_Folio AS value FROM Cuenta_x_Cobrar WHERE ABS(Cxc_Precio_Neto_Importe - "
                   "Cxc_Precio_Neto_Saldo - (SELECT ISNULL(SUM(Pc_Importe), 0) FROM Pago_Cxc WHERE "
                   "Pago_Cxc.Cxc_Folio = Cuenta_x_Cobrar.Cxc_Folio AND Pago_Cxc.Es_Cve_Estado <> 'CA')) > 0.0001"),
            IsEmpty());
        EXPECT_THAT(
            column("SELECT Cuenta_x_Pagar.Cxp_Folio AS value FROM Cuenta_x_Pagar WHERE ABS(Cxp_Precio_Neto_Importe - "
                   "Cxp_Precio_Neto_Saldo - (SELECT ISNULL(SUM(Pc_Importe), 0) FROM Pago_Cxp WHERE "
                   "Pago_Cxp.Cxp_Folio = Cuenta_x_Pagar.Cxp_Folio AND Pago_Cxp.Es_Cve_Estado <> 'CA')) > 0.0001"),
            IsEmpty());
    }
    void expect_dense(const char* table, const char* folio_column) {
        Rows rows(connection.execute(std::string("SELECT ") + folio_column +
                                     " AS Folio, COUNT(*) AS Pagos, MIN(Pc_ID) AS Primero, " +
                                     "MAX(Pc_ID) AS Ultimo FROM " + table + " GROUP BY " + folio_column));
        for (; !rows.eof(); rows.next()) {
            EXPECT_EQ(rows.text("Primero"), "0001");
            EXPECT_EQ(std::stod(rows.text("Ultimo")), rows.number("Pagos")) << rows.text("Folio");
        }
    }
};

// ---- Payables -------------------------------------------------------------------------------------------------------

TEST_F(Ledgers, a_new_payable_document_has_todays_date_and_the_local_currency) {
    const Payable document = suite.new_accounts_payable()->NewDocument();
    EXPECT_EQ(document.date, make_date(2024, 3, 15));
    EXPECT_EQ(document.currency, "MXN");
    EXPECT_EQ(document.exchange_rate, 1);
}

TEST_F(Ledgers, a_payable_is_owed_in_full_under_the_document_it_was_handed) {
    const auto service = suite.new_accounts_payable();
    ASSERT_TRUE(service->CreatePayable(payable(1160.5))) << service->LastError();
    const Rows rows(
        connection.execute("SELECT * FROM Cuenta_x_Pagar WHERE Cxp_Tabla = 'RECIBO_PAGO' AND "
                           "Cxp_Documento = 'RP-MTY-00000001' AND Es_Cve_Estado <> 'CA'"));
    ASSERT_FALSE(rows.eof());
    EXPECT_EQ(rows.text("Cxp_Folio"), "CXP-MTY-00000004");
    EXPECT_EQ(rows.number("Cxp_Importe"), 1160.5);
    EXPECT_EQ(rows.number("Cxp_Precio_Neto_Saldo"), 1160.5);
    EXPECT_EQ(rows.text("Oper_Alta"), "CAJA1");
}

TEST_F(Ledgers, payables_that_make_no_sense_are_refused) {
    const auto refused = [&](Payable document) {
        return payable_refusal([&](AccountsPayableService& service) { return service.CreatePayable(document); });
    };
    Payable unknown = payable(1), retired = payable(1), nothing = payable(0), rate = payable(1), currency = payable(1);
    unknown.supplier = "PV77";
    retired.supplier = "PV99";
    rate.exchange_rate = 0;
    currency.currency = "EUR";
    EXPECT_EQ(refused(unknown), "El proveedor: PV77, no existe o está dado de baja; elija otro");
    EXPECT_EQ(refused(retired), "El proveedor: PV99, no existe o está dado de baja; elija otro");
    EXPECT_EQ(refused(nothing), "El importe de la cuenta por pagar no puede ser cero; indique un importe");
    EXPECT_EQ(refused(rate), "El tipo de cambio: 0, de la cuenta por pagar no es válido; indique uno mayor que cero");
    EXPECT_EQ(refused(currency), "La moneda: EUR, no existe o está dada de baja; elija otra");
    set_folio_series_open(connection, "CUENTA_X_PAGAR", "MTY", false);
    EXPECT_THAT(refused(payable(1)), HasSubstr("está cerrada; ábrala"));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Cuenta_x_Pagar"), "4") << "nothing was written";
}

TEST_F(Ledgers, a_supplier_advance_is_owed_to_us_and_names_itself_as_its_document) {
    std::string folio;
    const auto service = suite.new_accounts_payable();
    ASSERT_TRUE(service->CreateSupplierAdvance({.date = today(),
                                                .reference = "1001",
                                                .check_folio = "CH-MTY-00000001",
                                                .currency = "MXN",
                                                .exchange_rate = 1,
                                                .branch = "MTY",
                                                .supplier = "PV01",
                                                .amount = 500,
                                                .concept_text = "Anticipo",
                                                .bank_account = "SRR-MXN"},
                                               folio))
        << service->LastError();
    EXPECT_EQ(scalar("SELECT Cxp_Documento AS value FROM Cuenta_x_Pagar WHERE Cxp_Tabla = 'ANTICIPO_CXP'"), folio);
    EXPECT_EQ(payable_balance(folio), -500);
    EXPECT_TRUE(suite.new_accounts_payable()->ValidateAdvanceCancellation(folio));

    ASSERT_TRUE(service->AddPaymentLine(check_payment(folio, -200))) << service->LastError();
    ASSERT_TRUE(service->ApplyPayments());
    EXPECT_EQ(payable_balance(folio), -300);
    EXPECT_FALSE(service->ValidateAdvanceCancellation(folio));
    EXPECT_EQ(service->LastError(),
              "El anticipo a proveedor: " + folio + ", ya está aplicado; cancele antes sus pagos");
    ASSERT_TRUE(service->CancelPayment(folio, "0001"));
    EXPECT_TRUE(service->ValidateAdvanceCancellation(folio));
    mark_posted(connection, "ANTICIPO_CXP", folio, "AUDITOR");
    EXPECT_FALSE(service->ValidateAdvanceCancellation(folio));
    EXPECT_TRUE(service->ValidateAdvanceCancellation("NO-EXISTE")) << "there is nothing to withdraw";
}

TEST_F(Ledgers, a_withdrawn_advance_has_nothing_to_validate) {
    std::string folio;
    const auto service = suite.new_accounts_payable();
    ASSERT_TRUE(service->CreateSupplierAdvance({.date = today(),
                                                .reference = "",
                                                .check_folio = "",
                                                .currency = "MXN",
                                                .exchange_rate = 1,
                                                .branch = "MTY",
                                                .supplier = "PV01",
                                                .amount = 500,
                                                .concept_text = "",
                                                .bank_account = ""},
                                               folio));
    sql("UPDATE Cuenta_x_Pagar SET Cxp_Tabla = 'ANTICIPO_CXP-CA:' + Cxp_Folio WHERE Cxp_Folio = '" + folio + "'");
    EXPECT_TRUE(service->ValidateAdvanceCancellation(folio));
    EXPECT_FALSE(service->AddPaymentLine(check_payment(folio, -200)));
    EXPECT_EQ(service->LastError(), "La cuenta por pagar: " + folio + ", está cancelada; elija otra");
}

TEST_F(Ledgers, a_payment_carries_the_check_and_moves_the_balance) {
    const auto service = suite.new_accounts_payable();
    ASSERT_TRUE(service->AddPaymentLine(check_payment("CXP-MTY-00000001", 600))) << service->LastError();
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Pago_Cxp"), "0") << "nothing is written before it is applied";
    ASSERT_TRUE(service->ApplyPayments()) << service->LastError();
    EXPECT_EQ(payable_balance("CXP-MTY-00000001"), 11000);
    const Rows rows(connection.execute("SELECT * FROM Pago_Cxp"));
    EXPECT_EQ(rows.text("Pc_ID"), "0001");
    EXPECT_EQ(rows.text("Pc_Tabla"), "CHEQUE");
    EXPECT_EQ(rows.text("Pc_Documento"), "CH-MTY-00000001");
    EXPECT_EQ(rows.text("Fp_Cve_Forma_Pago"), "02");
    EXPECT_EQ(rows.text("Bn_Descripcion"), "Banco de la Sierra");
    EXPECT_EQ(rows.text("Bc_Cuenta"), "0901000001");
    EXPECT_FALSE(service->ApplyPayments());
    EXPECT_EQ(service->LastError(), "No hay pagos por aplicar; agregue al menos uno");
}

TEST_F(Ledgers, a_payment_in_another_currency_is_turned_into_that_of_the_payable) {
    const auto service = suite.new_accounts_payable();
    ASSERT_TRUE(service->AddPaymentLine(check_payment("CXP-MTY-00000003", 1950))) << service->LastError();
    ASSERT_TRUE(service->ApplyPayments());
    EXPECT_EQ(payable_balance("CXP-MTY-00000003"), 400);
    const Rows rows(connection.execute("SELECT * FROM Pago_Cxp"));
    EXPECT_EQ(rows.number("Pc_Importe"), 100);
    EXPECT_EQ(rows.text("Mn_Cve_Moneda"), "USD");
    EXPECT_EQ(rows.number("Pc_Importe_Pago"), 1950);
    EXPECT_EQ(rows.text("Mn_Cve_Moneda_Pago"), "MXN");
}

TEST_F(Ledgers, payments_beyond_the_balance_or_of_no_payable_are_refused) {
    const auto refused = [&](const std::string& folio, double amount) {
        return payable_refusal(
            [&](AccountsPayableService& service) { return service.AddPaymentLine(check_payment(folio, amount)); });
    };
    EXPECT_EQ(refused("NO-EXISTE", 1), "La cuenta por pagar: NO-EXISTE, no existe; verifique el folio");
    EXPECT_EQ(
        refused("CXP-MTY-00000002", 5800.01),
        "El pago: 5800.01, es mayor al saldo: 5800, de la cuenta por pagar: CXP-MTY-00000002; pague a lo más el saldo");
    EXPECT_EQ(
        refused("CXP-MTY-00000002", -1),
        "El importe: -1, tiene el signo contrario al de la cuenta por pagar: CXP-MTY-00000002; corrija el importe");
    EXPECT_EQ(refused("CXP-MTY-00000002", 0),
              "El importe del pago de la cuenta por pagar: CXP-MTY-00000002, no puede ser cero");
    sql("UPDATE Cuenta_x_Pagar SET Es_Cve_Estado = 'CA' WHERE Cxp_Folio = 'CXP-MTY-00000002'");
    EXPECT_EQ(refused("CXP-MTY-00000002", 1), "La cuenta por pagar: CXP-MTY-00000002, está cancelada; elija otra");

    const auto service = suite.new_accounts_payable();
    EXPECT_TRUE(service->AddPaymentLine(check_payment("CXP-GDL-00000001", 2000)));
    EXPECT_FALSE(service->AddPaymentLine(check_payment("CXP-GDL-00000001", 321))) << "the first line leaves 320";
    EXPECT_TRUE(service->AddPaymentLine(check_payment("CXP-GDL-00000001", 320)));
    EXPECT_TRUE(service->ApplyPayments());
    EXPECT_EQ(payable_balance("CXP-GDL-00000001"), 0);
}

TEST_F(Ledgers, cancelling_a_payment_gives_the_balance_back_once) {
    const auto service = suite.new_accounts_payable();
    service->AddPaymentLine(check_payment("CXP-MTY-00000001", 600));
    service->ApplyPayments();
    EXPECT_TRUE(service->CancelPayment("CXP-MTY-00000001", "0001"));
    EXPECT_EQ(payable_balance("CXP-MTY-00000001"), 11600);
    EXPECT_FALSE(service->CancelPayment("CXP-MTY-00000001", "0001"));
    EXPECT_EQ(service->LastError(), "El pago: 0001, de la cuenta por pagar: CXP-MTY-00000001, ya está cancelado");
    EXPECT_FALSE(service->CancelPayment("CXP-MTY-00000001", "0009"));
    EXPECT_EQ(service->LastError(),
              "El pago: 0009, de la cuenta por pagar: CXP-MTY-00000001, no existe; verifique el número");
}

TEST_F(Ledgers, payments_held_by_accounting_or_a_closed_period_stay) {
    const auto service = suite.new_accounts_payable();
    service->AddPaymentLine(check_payment("CXP-MTY-00000001", 600));
    service->ApplyPayments();
    mark_posted(connection, "PAGO_CXP", "CXP-MTY-00000001:0001", "AUDITOR");
    EXPECT_FALSE(service->CancelPayment("CXP-MTY-00000001", "0001"));
    EXPECT_THAT(service->LastError(), HasSubstr("está contabilizado; cancele antes su registro en contabilidad"));
    unmark_posted(connection, "PAGO_CXP", "CXP-MTY-00000001:0001");
    set_period(connection, {"CUENTAS_X_PAGAR", 2024, 3, false});
    EXPECT_FALSE(service->CancelPayment("CXP-MTY-00000001", "0001"));
    EXPECT_THAT(service->LastError(), HasSubstr("El período de CUENTAS_X_PAGAR está cerrado; ábralo"));
    EXPECT_EQ(payable_balance("CXP-MTY-00000001"), 11000);
}

TEST_F(Ledgers, the_payables_of_a_document_are_cancelled_unless_one_is_paid) {
    const auto service = suite.new_accounts_payable();
    ASSERT_TRUE(service->CreatePayable(payable(100)));
    ASSERT_TRUE(service->CreatePayable(payable(200)));
    service->AddPaymentLine(check_payment("CXP-MTY-00000005", 50));
    service->ApplyPayments();
    EXPECT_FALSE(service->CancelDocumentPayables("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_EQ(service->LastError(),
              "La cuenta por pagar: CXP-MTY-00000005, tiene pagos aplicados; cancele antes sus pagos");
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Cuenta_x_Pagar WHERE Es_Cve_Estado = 'CA'"), "0");
    service->CancelPayment("CXP-MTY-00000005", "0001");
    EXPECT_TRUE(service->CancelDocumentPayables("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Cuenta_x_Pagar WHERE Es_Cve_Estado = 'CA' AND Oper_Baja = 'CAJA1'"),
              "2");
}

// ---- Receivables ----------------------------------------------------------------------------------------------------

TEST_F(Ledgers, a_receivable_is_owed_in_full_as_often_as_it_is_created) {
    const auto service = suite.new_accounts_receivable();
    ASSERT_TRUE(service->CreateReceivable(receivable_of(750))) << service->LastError();
    ASSERT_TRUE(service->CreateReceivable(receivable_of(750)));
    EXPECT_THAT(column("SELECT Cxc_Folio AS value FROM Cuenta_x_Cobrar WHERE Cxc_Documento = 'RP-MTY-00000001' ORDER "
                       "BY Cxc_Folio"),
                ElementsAre("CXC-MTY-00000005", "CXC-MTY-00000006"));
    EXPECT_EQ(balance("CXC-MTY-00000006"), 750);
}

TEST_F(Ledgers, a_receivable_with_the_two_old_amounts_only_is_owed_its_net) {
    Receivable old = receivable_of(750);
    old.net_price_amount = old.balance = 0;
    const auto service = suite.new_accounts_receivable();
    ASSERT_TRUE(service->CreateReceivable(old)) << service->LastError();
    EXPECT_EQ(balance("CXC-MTY-00000005"), 750);
}

TEST_F(Ledgers, receivables_that_make_no_sense_are_refused) {
    const auto refused = [&](const Receivable& document) {
        return refusal([&](AccountsReceivableService& service) { return service.CreateReceivable(document); });
    };
    Receivable unknown = receivable_of(1), paid = receivable_of(10);
    unknown.customer = "CL99";
    paid.balance = 5;
    EXPECT_EQ(refused(unknown), "El cliente: CL99, no existe o está dado de baja; elija otro");
    EXPECT_EQ(refused(receivable_of(0)), "El importe de la cuenta por cobrar no puede ser cero; indique un importe");
    EXPECT_EQ(refused(paid), "El saldo inicial: 5, de la cuenta por cobrar debe ser igual a su importe: 10");
}

TEST_F(Ledgers, payments_are_numbered_and_move_the_balance) {
    const auto service = suite.new_accounts_receivable();
    ASSERT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000001", 1000))) << service->LastError();
    ASSERT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000001", 500)));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 3500);
    EXPECT_EQ(scalar("SELECT Cxc_Precio_Neto_Pago AS value FROM Cuenta_x_Cobrar WHERE Cxc_Folio = 'CXC-MTY-00000001'"),
              "1500");
    EXPECT_TRUE(service->CancelPayment("CXC-MTY-00000001", "0001"));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 4500);
    ASSERT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000001", 10)));
    EXPECT_THAT(column("SELECT Pc_ID AS value FROM Pago_Cxc ORDER BY Pc_ID"), ElementsAre("0001", "0002", "0003"));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Documento_Registrado WHERE Dr_Codigo = 'PAGO_CXC'"), "3");
}

TEST_F(Ledgers, a_payment_takes_the_highest_number_and_one) {
    const auto service = suite.new_accounts_receivable();
    for (const char* const id : {"0003", "0001"}) {
        sql(std::string("INSERT INTO Pago_Cxc (Cxc_Folio, Pc_ID) VALUES ('CXC-MTY-00000001', '") + id + "')");
    }
    ASSERT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000001", 10))) << service->LastError();
    sql("UPDATE Pago_Cxc SET Pc_ID = '9999' WHERE Pc_ID = '0004'");
    ASSERT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000001", 10))) << service->LastError();
    ASSERT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000001", 10))) << service->LastError();
    EXPECT_THAT(column("SELECT Pc_ID AS value FROM Pago_Cxc ORDER BY Pc_ID"),
                ElementsAre("0001", "0003", "10000", "10001", "9999"));
}

TEST_F(Ledgers, the_balance_check_compares_whole_units) {
    const auto service = suite.new_accounts_receivable();
    EXPECT_FALSE(service->RegisterPayment(cash_payment("CXC-MTY-00000002", 3001)));
    EXPECT_EQ(
        service->LastError(),
        "El pago: 3001, es mayor al saldo: 3000, de la cuenta por cobrar: CXC-MTY-00000002; pague a lo más el saldo");
    EXPECT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000002", 3000.9)));
    EXPECT_NEAR(balance("CXC-MTY-00000002"), -0.9, 1e-9);
    EXPECT_FALSE(service->RegisterPayment(cash_payment("CXC-MTY-00000002", 0.5))) << "nothing is owed any more";
}

TEST_F(Ledgers, the_three_flags_of_a_payment_do_what_they_say) {
    const auto service = suite.new_accounts_receivable();
    Receivable_payment unchecked = cash_payment("CXC-MTY-00000002", 4000);
    unchecked.validate_balance = false;
    unchecked.register_document = false;
    EXPECT_TRUE(service->RegisterPayment(unchecked));
    EXPECT_EQ(balance("CXC-MTY-00000002"), -1000);
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Documento_Registrado"), "0");
    Receivable_payment on_record = cash_payment("CXC-MTY-00000001", 100);
    on_record.update_balance = false;
    EXPECT_TRUE(service->RegisterPayment(on_record));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 5000);
    EXPECT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000001", 1)));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 4999);
}

TEST_F(Ledgers, payments_of_no_receivable_or_no_amount_are_refused) {
    const auto refused = [&](const Receivable_payment& made) {
        return refusal([&](AccountsReceivableService& service) { return service.RegisterPayment(made); });
    };
    EXPECT_EQ(refused(cash_payment("NO-EXISTE", 1)), "La cuenta por cobrar: NO-EXISTE, no existe; verifique el folio");
    EXPECT_EQ(refused(cash_payment("CXC-MTY-00000001", 0)),
              "El importe del pago de la cuenta por cobrar: CXC-MTY-00000001, debe ser mayor que cero");
    EXPECT_THAT(refused(cash_payment("CXC-MTY-00000001", std::nan(""))), HasSubstr("debe ser mayor que cero"));
    sql("UPDATE Cuenta_x_Cobrar SET Cxc_Tabla = 'CHEQUE-CA:' + Cxc_Folio WHERE Cxc_Folio = 'CXC-MTY-00000001'");
    EXPECT_EQ(refused(cash_payment("CXC-MTY-00000001", 1)),
              "La cuenta por cobrar: CXC-MTY-00000001, está cancelada; elija otra");
}

TEST_F(Ledgers, an_advance_is_paid_with_negative_figures) {
    const auto service = suite.new_accounts_receivable();
    ASSERT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000003", 400))) << service->LastError();
    EXPECT_EQ(balance("CXC-MTY-00000003"), -600);
    EXPECT_EQ(scalar("SELECT Cxc_Precio_Neto_Pago AS value FROM Cuenta_x_Cobrar WHERE Cxc_Folio = 'CXC-MTY-00000003'"),
              "-400");
    EXPECT_FALSE(service->RegisterPayment(cash_payment("CXC-MTY-00000003", 601)));
    EXPECT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000003", 600)));
    EXPECT_EQ(balance("CXC-MTY-00000003"), 0);
}

TEST_F(Ledgers, both_halves_of_an_applied_advance_are_cancelled_together) {
    const auto service = suite.new_accounts_receivable();
    Receivable_payment expense = cash_payment("CXC-MTY-00000001", 250), own = cash_payment("CXC-MTY-00000004", 250);
    expense.source_table = "ANTICIPO_CXC";
    expense.source_document = "AN-MTY-00000002";
    expense.reference = own.reference = "CXC-MTY-00000004:0001";
    for (const bool from_the_advance : {true, false}) {
        ASSERT_TRUE(service->RegisterPayment(expense));
        ASSERT_TRUE(service->RegisterPayment(own));
        sql("UPDATE Anticipo_Cxc SET Es_Cve_Estado = 'AP' WHERE An_Folio = 'AN-MTY-00000002'");
        const std::string id = scalar("SELECT MAX(Pc_ID) AS value FROM Pago_Cxc");
        EXPECT_TRUE(service->CancelPayment(from_the_advance ? "CXC-MTY-00000004" : "CXC-MTY-00000001", id));
        EXPECT_EQ(balance("CXC-MTY-00000001"), 5000);
        EXPECT_EQ(balance("CXC-MTY-00000004"), -250);
        EXPECT_EQ(scalar("SELECT Es_Cve_Estado AS value FROM Anticipo_Cxc WHERE An_Folio = 'AN-MTY-00000002'"), "AC");
        EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Pago_Cxc WHERE Es_Cve_Estado <> 'CA'"), "0");
    }
}

TEST_F(Ledgers, a_receipt_pays_the_oldest_receivables_and_the_rest_is_an_advance) {
    const auto service = suite.new_accounts_receivable();
    ASSERT_TRUE(service->ApplyReceipt(receipt_of(8500))) << service->LastError();
    EXPECT_EQ(balance("CXC-MTY-00000001"), 0);
    EXPECT_EQ(balance("CXC-MTY-00000002"), 0);
    EXPECT_THAT(column("SELECT Cxc_Folio AS value FROM Pago_Cxc WHERE Pc_Tabla = 'RECIBO_PAGO' AND "
                       "Pc_Documento = 'RP-MTY-00000001' ORDER BY Cxc_Folio"),
                ElementsAre("CXC-MTY-00000001", "CXC-MTY-00000002"));
    const std::string advance = scalar(
        "SELECT An_Folio AS value FROM Anticipo_Cxc WHERE An_Tabla = 'RECIBO_PAGO' AND "
        "An_Documento = 'RP-MTY-00000001' AND An_Importe = 500 AND Es_Cve_Estado = 'AC'");
    EXPECT_EQ(advance, "AN-MTY-00000003");
    EXPECT_EQ(scalar("SELECT Cxc_Precio_Neto_Saldo AS value FROM Cuenta_x_Cobrar WHERE Cxc_Tabla = 'ANTICIPO_CXC' AND "
                     "Cxc_Documento = '" +
                     advance + "'"),
              "-500");
}

TEST_F(Ledgers, a_receipt_pays_by_date_before_folio) {
    sql("UPDATE Cuenta_x_Cobrar SET Cxc_Fecha = '2024-01-01' WHERE Cxc_Folio = 'CXC-MTY-00000002'");
    ASSERT_TRUE(suite.new_accounts_receivable()->ApplyReceipt(receipt_of(1000)));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 5000);
    EXPECT_EQ(balance("CXC-MTY-00000002"), 2000);
}

TEST_F(Ledgers, a_receipt_in_part_leaves_no_advance) {
    ASSERT_TRUE(suite.new_accounts_receivable()->ApplyReceipt(receipt_of(1000)));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 4000);
    EXPECT_EQ(balance("CXC-MTY-00000002"), 3000);
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Anticipo_Cxc WHERE An_Tabla = 'RECIBO_PAGO'"), "0");
}

TEST_F(Ledgers, a_receipt_that_names_a_document_pays_that_one_only) {
    sql("INSERT INTO Recibo_Pago (Rp_Folio, Rp_Id, Rp_Tabla, Rp_Documento) VALUES ('RP-MTY-00000001', '0001', "
        "'FACTURA_VENTA', 'FV-5002')");
    ASSERT_TRUE(suite.new_accounts_receivable()->ApplyReceipt(receipt_of(3200)));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 5000);
    EXPECT_EQ(balance("CXC-MTY-00000002"), 0);
    EXPECT_EQ(scalar("SELECT An_Importe AS value FROM Anticipo_Cxc WHERE An_Tabla = 'RECIBO_PAGO'"), "200");
}

TEST_F(Ledgers, withdrawn_cancelled_and_foreign_receivables_are_not_paid_by_a_receipt) {
    sql("UPDATE Cuenta_x_Cobrar SET Cxc_Tabla = 'CHEQUE-CA:' + Cxc_Folio WHERE Cxc_Folio = 'CXC-MTY-00000001'");
    sql("UPDATE Cuenta_x_Cobrar SET Es_Cve_Estado = 'CA' WHERE Cxc_Folio = 'CXC-MTY-00000002'");
    Receipt_application dollars = receipt_of(100);
    dollars.currency = "USD";
    dollars.exchange_rate = 19.5;
    ASSERT_TRUE(suite.new_accounts_receivable()->ApplyReceipt(receipt_of(100)));
    ASSERT_TRUE(suite.new_accounts_receivable()->ApplyReceipt(dollars));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Pago_Cxc"), "0");
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Anticipo_Cxc WHERE An_Tabla = 'RECIBO_PAGO'"), "2");
}

TEST_F(Ledgers, a_receipt_of_nobody_or_of_nothing_is_refused) {
    Receipt_application nobody = receipt_of(1);
    nobody.customer = "CL77";
    EXPECT_EQ(refusal([&](AccountsReceivableService& service) { return service.ApplyReceipt(nobody); }),
              "El cliente: CL77, no existe o está dado de baja; elija otro");
    EXPECT_EQ(refusal([&](AccountsReceivableService& service) { return service.ApplyReceipt(receipt_of(-5)); }),
              "El importe a aplicar del recibo: RP-MTY-00000001, debe ser mayor que cero");
}

TEST_F(Ledgers, the_payments_of_a_receipt_are_left_to_whoever_cancels_it) {
    suite.new_accounts_receivable()->ApplyReceipt(receipt_of(100));
    Receivable_payment other = cash_payment("CXC-MTY-00000002", 50);
    other.source_table = "NOTA_CREDITO";
    other.source_document = "NC-1";
    suite.new_accounts_receivable()->RegisterPayment(other);
    EXPECT_TRUE(suite.document_payments()->CancelDocumentPayments("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_TRUE(suite.document_payments()->CancelDocumentPayments("NOTA_CREDITO", "NC-1"));
    EXPECT_EQ(balance("CXC-MTY-00000001"), 4900);
    EXPECT_EQ(balance("CXC-MTY-00000002"), 3000);
}

TEST_F(Ledgers, the_advances_of_a_receipt_are_cancelled_unless_used) {
    const auto service = suite.new_accounts_receivable();
    ASSERT_TRUE(service->ApplyReceipt(receipt_of(8500)));
    ASSERT_TRUE(service->RegisterPayment(cash_payment("CXC-MTY-00000005", 100)));
    EXPECT_FALSE(service->CancelDocumentAdvances("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_EQ(service->LastError(), "El anticipo: AN-MTY-00000003, ya está aplicado; cancele antes su aplicación");
    service->CancelPayment("CXC-MTY-00000005", "0001");
    EXPECT_TRUE(service->CancelDocumentAdvances("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_EQ(scalar("SELECT Es_Cve_Estado AS value FROM Anticipo_Cxc WHERE An_Folio = 'AN-MTY-00000003'"), "CA");
    EXPECT_EQ(scalar("SELECT Es_Cve_Estado AS value FROM Cuenta_x_Cobrar WHERE Cxc_Folio = 'CXC-MTY-00000005'"), "CA");
}

TEST_F(Ledgers, the_receivables_of_a_document_may_go_unless_paid_or_posted) {
    const auto service = suite.new_accounts_receivable();
    EXPECT_TRUE(service->ValidateDocumentCancellation("CHEQUE", "NO-EXISTE")) << "nothing to withdraw";
    ASSERT_TRUE(service->CreateReceivable(receivable_of(100)));
    EXPECT_TRUE(service->ValidateDocumentCancellation("RECIBO_PAGO", "RP-MTY-00000001"));
    service->RegisterPayment(cash_payment("CXC-MTY-00000005", 10));
    EXPECT_FALSE(service->ValidateDocumentCancellation("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_EQ(service->LastError(),
              "La cuenta por cobrar: CXC-MTY-00000005, tiene pagos aplicados; cancele antes sus pagos");
    EXPECT_FALSE(service->CancelDocumentReceivables("RECIBO_PAGO", "RP-MTY-00000001"));
    service->CancelPayment("CXC-MTY-00000005", "0001");
    mark_posted(connection, "CUENTA_X_COBRAR", "CXC-MTY-00000005", "AUDITOR");
    EXPECT_FALSE(service->ValidateDocumentCancellation("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_THAT(service->LastError(), HasSubstr("está contabilizada; cancele antes su registro en contabilidad"));
    unmark_posted(connection, "CUENTA_X_COBRAR", "CXC-MTY-00000005");
    EXPECT_TRUE(service->CancelDocumentReceivables("RECIBO_PAGO", "RP-MTY-00000001"));
    EXPECT_EQ(scalar("SELECT Es_Cve_Estado AS value FROM Cuenta_x_Cobrar WHERE Cxc_Folio = 'CXC-MTY-00000005'"), "CA");
}

TEST_F(Ledgers, an_expense_becomes_one_receivable_however_often_it_is_applied) {
    sql("INSERT INTO Gasto_x_Comprobar (Gc_Folio, Gc_Fecha, Gc_Tabla, Gc_Documento, Mn_Cve_Moneda, Sc_Cve_Sucursal, "
        "Cl_Cve_Cliente, Gc_Importe, Gc_Tipo_Cambio, Es_Cve_Estado) "
        "VALUES ('GC-MTY-00000001', '2024-03-15', 'CHEQUE', 'CH-1', 'MXN', 'MTY', 'DE01', 1500, 1, 'PA')");
    const auto service = suite.new_accounts_receivable();
    ASSERT_TRUE(service->ApplyCustomerDocument("GC-MTY-00000001")) << service->LastError();
    ASSERT_TRUE(service->ApplyCustomerDocument("GC-MTY-00000001"));
    EXPECT_THAT(
        column("SELECT Cxc_Precio_Neto_Saldo AS value FROM Cuenta_x_Cobrar WHERE Cxc_Tabla = 'GASTO_X_COMPROBAR' AND "
               "Cxc_Documento = 'GC-MTY-00000001'"),
        ElementsAre("1500"));
    sql("UPDATE Cuenta_x_Cobrar SET Cxc_Tabla = 'GASTO_X_COMPROBAR-CA:' + Cxc_Folio WHERE Cxc_Tabla = "
        "'GASTO_X_COMPROBAR'");
    EXPECT_TRUE(service->ApplyCustomerDocument("GC-MTY-00000001"));
    EXPECT_EQ(scalar("SELECT COUNT(*) AS value FROM Cuenta_x_Cobrar WHERE Cxc_Documento = 'GC-MTY-00000001'"), "2")
        << "a withdrawn receivable does not count";
    EXPECT_FALSE(service->ApplyCustomerDocument("NO-EXISTE"));
    EXPECT_EQ(service->LastError(), "El gasto por comprobar: NO-EXISTE, no existe; verifique el folio");
    sql("UPDATE Gasto_x_Comprobar SET Es_Cve_Estado = 'CA'");
    EXPECT_FALSE(service->ApplyCustomerDocument("GC-MTY-00000001"));
    EXPECT_EQ(service->LastError(), "El gasto por comprobar: GC-MTY-00000001, está cancelado; genere otro");
}

TEST_F(Ledgers, the_payments_of_an_advance_may_be_undone_while_nobody_holds_it) {
    const auto service = suite.new_accounts_receivable();
    EXPECT_TRUE(service->DocumentCheck("ANTICIPO_CXC", "AN-MTY-00000001"));
    EXPECT_FALSE(service->DocumentCheck("ANTICIPO_CXC", "NO-EXISTE"));
    EXPECT_EQ(service->LastError(), "El anticipo: NO-EXISTE, no existe; verifique el folio");
    mark_posted(connection, "ANTICIPO_CXC", "AN-MTY-00000001", "AUDITOR");
    EXPECT_FALSE(service->DocumentCheck("ANTICIPO_CXC", "AN-MTY-00000001"));
    EXPECT_EQ(service->LastError(),
              "ANTICIPO_CXC: AN-MTY-00000001, está contabilizado; cancele antes su registro en contabilidad");
    set_period(connection, {"CUENTAS_X_COBRAR", 2024, 3, false});
    EXPECT_FALSE(service->DocumentCheck("ANTICIPO_CXC", "AN-MTY-00000002"));
    EXPECT_THAT(service->LastError(), HasSubstr("El período de CUENTAS_X_COBRAR está cerrado; ábralo"));
}

TEST_F(Ledgers, expense_advances_are_registered_and_linked_for_checks) {
    const std::string folio = reference::register_expense_advance(
        suite,
        {.debtor = "DE02", .branch = "GDL", .expense = "GR-40", .date = today(), .amount = 300, .currency = "MXN"});
    EXPECT_EQ(folio, "AN-GDL-00000001");
    EXPECT_EQ(scalar("SELECT An_Tabla AS value FROM Anticipo_Cxc WHERE An_Folio = '" + folio + "'"), "GASTO_REGISTRO");
    reference::link_advance_to_check(suite, "CH-1", folio, 300);
    reference::link_advance_to_check(suite, "CH-1", "AN-MTY-00000001", 100);
    EXPECT_THAT(
        column("SELECT Gcd_ID AS value FROM Gasto_x_Comprobar_Documento WHERE Gc_Tabla = 'CHEQUE' ORDER BY Gcd_ID"),
        ElementsAre("0001", "0002"));
    EXPECT_THROW(
        reference::register_expense_advance(
            suite,
            {.debtor = "DE02", .branch = "GDL", .expense = "X", .date = today(), .amount = 0, .currency = "MXN"}),
        Database_error);
}

TEST_F(Ledgers, a_failure_of_the_database_is_thrown_and_not_answered) {
    sql("DROP TABLE Pago_Cxc");
    EXPECT_THROW(suite.new_accounts_receivable()->RegisterPayment(cash_payment("CXC-MTY-00000001", 1)), Database_error);
}

TEST_F(Ledgers, quotes_in_texts_are_stored_as_they_are) {
    Receivable odd = receivable_of(5);
    odd.comment = "D'Angelo''s";
    ASSERT_TRUE(suite.new_accounts_receivable()->CreateReceivable(odd));
    EXPECT_EQ(scalar("SELECT Cxc_Comentario AS value FROM Cuenta_x_Cobrar WHERE Cxc_Folio = 'CXC-MTY-00000005'"),
              "D'Angelo''s");
}

TEST_F(Ledgers, over_random_sequences_balances_add_up_and_payments_stay_dense) {
    const unsigned seed = std::random_device{}();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto pick = [&](int n) { return static_cast<int>(random() % static_cast<unsigned>(n)); };
    const auto amount = [&] { return (1 + pick(90000)) / 100.0; };
    const auto receivables = suite.new_accounts_receivable();
    const auto payables = suite.new_accounts_payable();
    const auto any = [&](const char* query) {
        const std::vector<std::string> all = column(query);
        return all.empty() ? std::string("NONE") : all[static_cast<std::size_t>(pick(static_cast<int>(all.size())))];
    };
    for (int step = 0; step < 300; ++step) {
        const std::string receipt_folio = "RP-" + std::to_string(pick(20));
        const std::string open = any("SELECT Cxc_Folio AS value FROM Cuenta_x_Cobrar");
        const std::string owed = any("SELECT Cxp_Folio AS value FROM Cuenta_x_Pagar");
        switch (pick(10)) {
            case 0:
                receivables->CreateReceivable(receivable_of(amount()));
                break;
            case 1:
                receivables->ApplyReceipt(receipt_of(amount(), receipt_folio));
                break;
            case 2:
            case 3:
                receivables->RegisterPayment(cash_payment(open, amount()));
                break;
            case 4:
                receivables->CancelPayment(open, "000" + std::to_string(1 + pick(4)));
                break;
            case 5:
                payables->CreatePayable(payable(amount()));
                break;
            case 6:
            case 7:
                if (payables->AddPaymentLine(check_payment(owed, amount()))) payables->ApplyPayments();
                break;
            case 8:
                payables->CancelPayment(owed, "000" + std::to_string(1 + pick(4)));
                break;
            case 9:
                receivables->CancelDocumentAdvances("RECIBO_PAGO", receipt_folio);
                break;
        }
    }
    EXPECT_GT(std::stoi(scalar("SELECT COUNT(*) AS value FROM Pago_Cxc")), 5);
    EXPECT_GT(std::stoi(scalar("SELECT COUNT(*) AS value FROM Pago_Cxp")), 5);
    expect_balances_add_up();
    expect_dense("Pago_Cxc", "Cxc_Folio");
    expect_dense("Pago_Cxp", "Cxp_Folio");
}

}  // namespace
}  // namespace cuvexa::tests
