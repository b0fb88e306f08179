// Every operation of every service, through the published objects and directly: the same answers and the same rows.
#include <atomic>
#include <functional>
#include <thread>

#include "cuvexa/suite/administration.h"
#include "database/sqlite/engine.h"
#include "windows/com_suite/registered.h"

namespace cuvexa::tests {
namespace {

using Journal = std::vector<std::string>;

std::string shown(const std::string& text) {
    return text;
}
std::string shown(bool answer) {
    return answer ? "True" : "False";
}
std::string shown(double number) {
    return number_text(number);
}
std::string shown(Date date) {
    return iso_date(date);
}
std::string shown(const Value& value) {
    return std::to_string(value.index()) + ":" + to_text(value);
}

/// The same play on two databases that are alike at first.
class Services : public Registered_suite {
protected:
    using Play = std::function<void(Suite&, Journal&)>;

    /// What the play noted, once for both.
    Journal played(const Play& play) {
        std::filesystem::copy_file(folder / "empresa.db", folder / "directa.db");
        Journal directly, through_automation;
        {
            Sqlite_connection connection(folder / "directa.db", {.synchronous = Synchronous::off});
            Reference_suite suite(connection, {.user = "CAJA1", .server_date = today()});
            play(suite, directly);
        }
        play(*make_automation_suite({}), through_automation);
        EXPECT_EQ(through_automation, directly);
        Sqlite_connection one(folder / "directa.db"), other(folder / "empresa.db");
        EXPECT_THAT(Snapshot(sqlite::handle_of(one)).changes_to(Snapshot(sqlite::handle_of(other)), true), IsEmpty());
        return through_automation;
    }
};

TEST_F(Services, the_session_answers_alike) {
    sql("UPDATE Servidor_Suite SET Sv_Servidor_Id = 'ÑANDÚ', Sv_Replica = 'SI'");
    sql("UPDATE Parametro_Sistema SET Ps_Valor = 'niño y \"señor\"' WHERE Ps_Nombre = 'FIN_MONEDA_LOCAL'");
    const Journal noted = played([](Suite& suite, Journal& journal) {
        const auto session = suite.session();
        journal.push_back(shown(session->GetUserName()));
        journal.push_back(shown(session->GetServerId()));
        journal.push_back(shown(session->IsReplicaServer()));
        journal.push_back(shown(session->GetParameter("FIN_MONEDA_LOCAL", 0, "", "")));
        journal.push_back(shown(session->GetParameter("GEN_FORZAR_TIEMPO_REAL", 0, "B", "0")));
        journal.push_back(shown(session->GetParameter("NO_EXISTE", 0, "", "por omisión")));
        journal.push_back(shown(session->GetConnection().execute("SELECT COUNT(*) AS n FROM Banco")->field("n")));
    });
    EXPECT_THAT(noted,
                ElementsAre("CAJA1", "ÑANDÚ", "True", "4:niño y \"señor\"", ::testing::_, "4:por omisión", "2:3"));
}

TEST_F(Services, data_answers_alike) {
    sql("INSERT INTO Documento_Contabilizado (Dt_Tabla, Dt_Documento) VALUES ('CHEQUE', 'CH-9')");
    const Journal noted = played([](Suite& suite, Journal& journal) {
        const auto data = suite.data();
        journal.push_back(data->LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", "MXN", "Moneda"));
        journal.push_back("[" + data->LookupValue("Mn_Descripcion", "Mn_Cve_Moneda", "EUR", "Moneda") + "]");
        journal.push_back(
            "[" +
            data->LookupValue("Cl_Dias_Credito", "Cl_Cve_Cliente", "CL01", "CLIENTE", "Tc_Cve_Tipo_Cliente = 'DE'") +
            "]");
        journal.push_back(shown(data->GetServerDate()));
        journal.push_back(data->GetNextFolio("MTY", "RECIBO_PAGO"));
        journal.push_back(data->GetNextFolio("MTY", "RECIBO_PAGO"));
        journal.push_back(shown(data->IsOperatingPeriodOpen(make_date(2024, 3, 1), "FINANZAS")));
        journal.push_back(shown(data->IsOperatingPeriodOpen(make_date(1999, 3, 1), "FINANZAS")));
        journal.push_back(data->SqlDate(make_date(2024, 2, 29, 23, 59, 59)));
        journal.push_back(data->SqlDateTime(make_date(2024, 2, 29, 23, 59, 59)));
        const auto answered = [&](bool answer) { journal.push_back(shown(answer) + data->LastErrorText()); };
        answered(data->RegisterDocument("CHEQUE", "CH-9"));
        answered(data->IsDocumentPosted("CHEQUE", "CH-8"));
        answered(data->IsDocumentPosted("CHEQUE", "CH-9"));
    });
    EXPECT_EQ(noted[1], "[]");
    EXPECT_EQ(noted[2], "[]") << "the condition arrives";
    EXPECT_EQ(noted[3], "2024-03-15T10:20:30");
    EXPECT_EQ(noted[5], "RP-MTY-00000002");
    EXPECT_EQ(noted[6] + noted[7], "TrueFalse");
    EXPECT_EQ(noted[9], "2024-02-29 23:59:59");
    EXPECT_EQ(noted[11], "False");
    EXPECT_THAT(noted[12], ::testing::StartsWith("True"));
    EXPECT_THAT(noted[12], HasSubstr("CH-9"));
}

TEST_F(Services, payment_methods_and_document_payments_answer_alike) {
    const Journal noted = played([](Suite& suite, Journal& journal) {
        const auto methods = suite.payment_methods();
        const auto line = [&](const char* method, const char* number, const char* bank) {
            const bool fine =
                methods->ValidatePaymentLine(method, number, bank, 100.5, "RECIBO_PAGO", "RP-1", "R", "C");
            journal.push_back(shown(fine) + methods->LastError());
        };
        line("01", "", "");
        line("02", "", "");
        line("02", "77", "SIERRA");
        journal.push_back(shown(methods->ReleasePaymentLine("02", "77", "SIERRA")));

        const auto receivables = suite.new_accounts_receivable();
        Receivable_payment payment;
        payment.receivable_folio = "CXC-MTY-00000001";
        payment.amount = 10;
        payment.date = make_date(2024, 3, 15);
        payment.source_table = "CHEQUE";
        payment.source_document = "CH-1";
        payment.currency = "MXN";
        payment.exchange_rate = 1;
        payment.payment_method = "01";
        journal.push_back(shown(receivables->RegisterPayment(payment)));
        const auto payments = suite.document_payments();
        journal.push_back(shown(payments->CancelDocumentPayments("CHEQUE", "CH-1")));
        journal.push_back(payments->LastError());
    });
    EXPECT_EQ(noted[0], "True");
    EXPECT_EQ(noted[1].substr(0, 24), "FalseLa forma de pago: 0");
    EXPECT_EQ(noted[2] + noted[3] + noted[4] + noted[5], "TrueTrueTrueTrue");
}

TEST_F(Services, payables_answer_alike) {
    const Journal noted = played([](Suite& suite, Journal& journal) {
        const auto payables = suite.new_accounts_payable();
        const auto answered = [&](bool answer) { journal.push_back(shown(answer) + payables->LastError()); };
        Payable document = payables->NewDocument();
        journal.push_back(shown(document.date) + document.currency + shown(document.exchange_rate));
        document.supplier = "PV01";
        document.branch = "MTY";
        document.comment = "Préstamo de \"Ñ\" y O'Hara";
        document.source_table = "Recibo_Pago";
        document.source_document = "RP-MTY-00000001";
        document.due_date = make_date(2024, 4, 14);
        document.amount = 1160.5;
        document.net_amount = 1000.25;
        document.reference = "R-1";
        answered(payables->CreatePayable(document));
        document.supplier = "PV77";
        answered(payables->CreatePayable(document));

        Supplier_advance advance{today(), "R-2", "CH-1", "MXN", 1, "MTY", "PV01", 250, "Anticipo", "SRR-MXN"};
        std::string folio = "nothing yet";
        answered(payables->CreateSupplierAdvance(advance, folio));
        journal.push_back(folio);
        answered(payables->ValidateAdvanceCancellation(folio));
        advance.amount = 0;
        answered(payables->CreateSupplierAdvance(advance, folio));
        journal.push_back(folio);

        Payment_line line{today(), "CXP-MTY-00000001",   "CH-1",       "1001",  "02", 12.34, 1,
                          "MXN",   "Banco de la Sierra", "0901000001", "SIERRA"};
        answered(payables->AddPaymentLine(line));
        answered(payables->ApplyPayments());
        line.amount = 0;
        answered(payables->AddPaymentLine(line));
        answered(payables->CancelPayment("CXP-MTY-00000001", "0001"));
        answered(payables->CancelPayment("CXP-MTY-00000001", "0099"));
        answered(payables->CancelDocumentPayables("RECIBO_PAGO", "RP-MTY-00000001"));
    });
    EXPECT_EQ(noted[0], "2024-03-15MXN1");
    EXPECT_EQ(noted[1], "True");
    EXPECT_EQ(noted[2], "FalseEl proveedor: PV77, no existe o está dado de baja; elija otro");
    EXPECT_EQ(noted[3], "True");
    EXPECT_THAT(noted[4], ::testing::StartsWith("CXP-MTY-"));
    EXPECT_THAT(noted[6], ::testing::StartsWith("False"));
    EXPECT_EQ(noted[8] + noted[9], "TrueTrue");
    EXPECT_THAT(noted[10], ::testing::StartsWith("False"));
    EXPECT_EQ(noted[11], "True");
    EXPECT_EQ(noted[13], "True");
}

TEST_F(Services, receivables_answer_alike) {
    const Journal noted = played([](Suite& suite, Journal& journal) {
        const auto receivables = suite.new_accounts_receivable();
        const auto answered = [&](bool answer) { journal.push_back(shown(answer) + receivables->LastError()); };
        Receivable owed{"MTY",  "CL01",       1,     "MXN",   "Cheque",
                        "CH-1", "Comentario", "R-1", today(), add_days(today(), 30),
                        500,    500,          500,   500};
        answered(receivables->CreateReceivable(owed));
        owed.customer = "CL99";
        answered(receivables->CreateReceivable(owed));
        Receipt_application receipt{"CL01", "RECIBO_PAGO", "RP-1", today(), "R-2", "C", "MTY", 9999.99, "MXN", 1};
        answered(receivables->ApplyReceipt(receipt));
        receipt.customer = "CL99";
        answered(receivables->ApplyReceipt(receipt));
        answered(receivables->CancelDocumentAdvances("RECIBO_PAGO", "RP-1"));
        answered(receivables->ApplyCustomerDocument("NO-EXISTE"));
        Receivable_payment payment{
            "CXC-MTY-00000004", 9, today(), "Abono", "CHEQUE", "CH-2", "R-3", "MXN", 1, "01", true, false, false};
        answered(receivables->RegisterPayment(payment));
        payment.receivable_folio = "NO-EXISTE";
        answered(receivables->RegisterPayment(payment));
        answered(receivables->DocumentCheck("CHEQUE", "CH-2"));
        answered(receivables->CancelPayment("CXC-MTY-00000004", "0001"));
        answered(receivables->CancelPayment("CXC-MTY-00000004", "0099"));
        answered(receivables->ValidateDocumentCancellation("CHEQUE", "CH-1"));
        answered(receivables->CancelDocumentReceivables("CHEQUE", "CH-1"));
    });
    EXPECT_EQ(noted[0], "True");
    EXPECT_EQ(noted[1], "FalseEl cliente: CL99, no existe o está dado de baja; elija otro");
    EXPECT_EQ(noted[2], "True");
    EXPECT_THAT(noted[5], ::testing::StartsWith("False"));
    EXPECT_THAT(noted[10], ::testing::StartsWith("False"));
}

TEST_F(Services, accounting_answers_alike) {
    sql("INSERT INTO Banco_Movimiento (Bm_Folio, Bc_Cve_Banco_Cuenta, Bc_Cuenta_Contable, Bm_Fecha, "
        "Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, Mn_Cve_Moneda, Bm_Tipo_Cambio) VALUES "
        "('BM-IN', 'SRR-MXN', '1102-01', '2024-03-15', 'DEP', 150, 'MXN', 1)");
    sql("UPDATE Configuracion_Contable SET Ct_Automatica = 'SI' WHERE Ct_Codigo = 'CHEQUE'");
    const Journal noted = played([](Suite& suite, Journal& journal) {
        const auto accounting = suite.new_accounting();
        const auto answered = [&](bool answer) { journal.push_back(shown(answer) + accounting->LastError()); };
        answered(accounting->IsPostingEnabled("CHEQUE"));
        answered(accounting->IsPostingEnabled("DEPOSITO_PAGO"));
        answered(accounting->PostDocument("BANCO_MOVIMIENTO", "BM-IN", "EM77"));
        answered(accounting->PostDocument("BANCO_MOVIMIENTO", "BM-IN"));
        answered(accounting->PostDocument("BANCO_MOVIMIENTO", "NO-EXISTE"));
        answered(accounting->ValidateVoucherCancellation("BANCO_MOVIMIENTO", "BM-IN"));
        journal.push_back(
            shown(suite.session()->GetConnection().execute("SELECT Em_Cve_Empresa AS e FROM Poliza")->field("e")));
    });
    EXPECT_EQ(noted[0] + noted[1] + noted[2] + noted[3], "TrueFalseTrueTrue");
    EXPECT_THAT(noted[4], ::testing::StartsWith("False"));
    EXPECT_EQ(noted[5], "True");
    EXPECT_EQ(noted[6], "4:EM77");
}

TEST_F(Services, shared_services_are_created_once_and_the_others_for_each_use) {
    const auto suite = make_automation_suite({});
    EXPECT_EQ(suite->session(), suite->session());
    EXPECT_EQ(suite->data(), suite->data());
    EXPECT_EQ(suite->payment_methods(), suite->payment_methods());
    EXPECT_EQ(suite->document_payments(), suite->document_payments());
    const auto one = suite->new_accounts_payable(), other = suite->new_accounts_payable();
    EXPECT_FALSE(one->ValidateAdvanceCancellation("NO-EXISTE") && !one->CreatePayable({}) && one->LastError().empty());
    EXPECT_FALSE(one->LastError().empty());
    EXPECT_EQ(other->LastError(), "") << "a refusal stays with the object that it was given to";
}

TEST_F(Services, the_objects_of_a_thread_share_one_session_and_another_thread_has_its_own) {
    const auto suite = make_automation_suite({});
    const auto keep = suite->session();
    suite->session()->GetConnection().execute("BEGIN TRANSACTION");
    suite->data()->GetNextFolio("MTY", "CHEQUE");
    std::string elsewhere;
    std::thread([&] {
        const Apartment apartment;
        elsewhere = to_text(
            make_automation_suite({})
                ->session()
                ->GetConnection()
                .execute("SELECT COUNT(*) AS n FROM Folio_Serie WHERE Fs_Codigo = 'CHEQUE' AND Fs_Sucursal = 'MTY'")
                ->field("n"));
    }).join();
    const std::string here =
        to_text(suite->session()
                    ->GetConnection()
                    .execute("SELECT COUNT(*) AS n FROM Folio_Serie WHERE Fs_Codigo = 'CHEQUE' AND Fs_Sucursal = 'MTY'")
                    ->field("n"));
    suite->session()->GetConnection().execute("COMMIT TRANSACTION");
    EXPECT_EQ(here, "1") << "the data service writes on the session's connection";
    EXPECT_EQ(elsewhere, "0") << "and another thread does not see it before it is committed";
}

TEST_F(Services, what_is_wrong_with_the_database_is_told_by_the_first_call) {
    const Variable missing("CUVEXA_DB", folder / "otra.db");
    const auto suite = make_automation_suite({});
    const auto session = suite->session();
    try {
        session->GetServerId();
        FAIL();
    } catch (const Automation_error& failure) {
        EXPECT_THAT(failure.what(), HasSubstr("No existe la base de datos: "));
        EXPECT_THAT(failure.what(), HasSubstr("otra.db"));
    }
    make_sample_company(folder / "otra.db");
    EXPECT_EQ(session->GetServerId(), "CENTRAL") << "the next call tries again";
}

/// Closes the message box of that title once it stands, and gives up when there was none.
class Closer {
public:
    explicit Closer(std::wstring title) : title_(std::move(title)), thread_([this] { close(); }) {}
    std::string text() {
        returned_ = true;
        thread_.join();
        return text_;
    }

private:
    void close() {
        HWND box = nullptr;
        while (!(box = FindWindowW(nullptr, title_.c_str()))) {
            if (returned_) return;
            Sleep(10);
        }
        wchar_t text[1000] = {};
        for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
            wchar_t part[1000] = {};
            SendMessageW(child, WM_GETTEXT, 1000, reinterpret_cast<LPARAM>(part));
            if (wcslen(part) > wcslen(text)) wcscpy(text, part);
        }
        text_ = utf8(text);
        for (; !returned_; Sleep(10)) PostMessageW(box, WM_COMMAND, IDOK, 0);
    }

    std::wstring title_;
    std::string text_;
    std::atomic<bool> returned_ = false;  // from showing it
    std::thread thread_;
};

TEST_F(Services, an_error_that_is_reported_is_shown_to_the_user) {
    Closer closer(L"Cuvexa de prueba");
    make_automation_suite({})->session()->ReportError("Descripción del error", 16, "Mostrar()", "", "Cuvexa de prueba",
                                                      "ERR-ID:7500007");
    const std::string text = closer.text();
    EXPECT_THAT(text, HasSubstr("Descripción del error"));
    EXPECT_THAT(text, HasSubstr("Mostrar() ERR-ID:7500007"));
}

}  // namespace
}  // namespace cuvexa::tests
