// The accounting guard.
#include "support/company_test.h"

namespace cuvexa::tests {

bool guard(Tesoreria& treasury, const std::string& table, const std::string& document);

// The guard is no member of the interface; an explicit instantiation may name it all the same.
template <auto Member>
struct Door {
    friend bool guard(Tesoreria& treasury, const std::string& table, const std::string& document) {
        return (treasury.*Member)(table, document);
    }
};
template struct Door<&Tesoreria::Valida_Poliza_Contable>;

namespace {

const std::string guard_tag = "Cuvexa.dll - Valida_Poliza_Contable()\r\n";

class Accounting_guard : public Company_test {
protected:
    bool ask(const std::string& table = "CHEQUE", const std::string& document = "C-1") {
        return guard(treasury(), table, document);
    }
};

TEST_F(Accounting_guard, lets_a_document_go_that_is_not_posted) {
    EXPECT_TRUE(ask());
    EXPECT_EQ(treasury().Error(), "");
    EXPECT_THAT(on.calls, ElementsAre("IsPostingEnabled(CHEQUE)", "IsDocumentPosted(CHEQUE, C-1)"));
    EXPECT_THAT(on.statements, IsEmpty());
}

TEST_F(Accounting_guard, asks_for_a_table_then_for_a_document) {
    expect_refusal(guard_tag + "No se especificó la tabla", [this] { return ask("  ", " "); });
    expect_refusal(guard_tag + "No se especificó la tabla", [this] { return ask("", "C-1"); });
    expect_refusal(guard_tag + "No se especificó el documento", [this] { return ask("CHEQUE", " "); });
    expect_refusal(guard_tag + "No se especificó el documento", [this] { return ask("CHEQUE", ""); });
    EXPECT_THAT(on.calls, IsEmpty());
}

TEST_F(Accounting_guard, leaves_a_code_that_is_posted_automatically_to_accounting) {
    on.accept("IsPostingEnabled");
    on.accept("IsDocumentPosted");  // not asked
    EXPECT_TRUE(ask());
    EXPECT_THAT(on.calls, ElementsAre("IsPostingEnabled(CHEQUE)", "ValidateVoucherCancellation(CHEQUE, C-1)"));
}

TEST_F(Accounting_guard, relays_what_accounting_refuses) {
    on.accept("IsPostingEnabled");
    on.refuse("ValidateVoucherCancellation", "La póliza P-1 está cerrada");
    expect_refusal(guard_tag + "La póliza P-1 está cerrada", [this] { return ask(); });
}

TEST_F(Accounting_guard, names_the_document_posted_by_hand_when_the_service_gives_no_text) {
    on.accept("IsDocumentPosted");
    expect_refusal(guard_tag + "Imposible cancelar el documento, ya está contabilizado! \r\nCHEQUE: C-1",
                   [this] { return ask(); });
}

TEST_F(Accounting_guard, gives_the_services_own_text_when_there_is_one) {
    on.accept("IsDocumentPosted", "Póliza de diario 12");
    expect_refusal(guard_tag + "Imposible cancelar el documento, ya está contabilizado! \r\nPóliza de diario 12",
                   [this] { return ask(); });
}

TEST_F(Accounting_guard, reports_a_service_that_does_not_answer) {
    on.fail("IsPostingEnabled", obstructed::call_failure);
    expect_refusal(guard_tag + obstructed::call_failure, [this] { return ask(); });
}

}  // namespace
}  // namespace cuvexa::tests
