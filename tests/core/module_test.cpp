// Module start-up: the shared services, the server id and the seven parameters, each read once.
#include "cuvexa/module.h"

#include "support/company.h"

namespace cuvexa::tests {
namespace {

/// A session that notes how each parameter is asked for.
class Asked_session : public SessionServices {
public:
    Connection& GetConnection() override { throw std::runtime_error("no connection is needed to start"); }
    Value GetParameter(const std::string& name, int flag, const std::string& type,
                       const std::string& fallback) override {
        asked.push_back(name + "|" + std::to_string(flag) + "|" + type + "|" + fallback);
        const auto value = values.find(name);
        return value == values.end() ? Value(fallback) : value->second;
    }
    std::string GetUserName() override { return "CAJA1"; }
    std::string GetServerId() override {
        ++server_id_asked;
        return "NORTE";
    }
    bool IsReplicaServer() override { return false; }
    void ReportError(const std::string&, int, const std::string&, const std::string&, const std::string&,
                     const std::string&) override {}

    std::vector<std::string> asked;
    std::map<std::string, Value> values;
    int server_id_asked = 0;
};

/// Gives that session and nothing else, and counts what is asked of it.
class Bare_suite : public Suite {
public:
    std::shared_ptr<SessionServices> session() override {
        ++shared_services;
        return asked;
    }
    std::shared_ptr<DataServices> data() override {
        ++shared_services;
        return nullptr;
    }
    std::shared_ptr<PaymentMethodService> payment_methods() override {
        ++shared_services;
        return nullptr;
    }
    std::shared_ptr<DocumentPaymentsService> document_payments() override {
        ++shared_services;
        return nullptr;
    }
    std::unique_ptr<AccountsPayableService> new_accounts_payable() override { return nullptr; }
    std::unique_ptr<AccountsReceivableService> new_accounts_receivable() override { return nullptr; }
    std::unique_ptr<AccountingService> new_accounting() override { return nullptr; }

    std::shared_ptr<Asked_session> asked = std::make_shared<Asked_session>();
    int shared_services = 0;
};

TEST(Module_start, reads_seven_parameters_each_in_its_own_way) {
    const auto suite = std::make_shared<Bare_suite>();
    const Module module(suite);
    EXPECT_THAT(suite->asked->asked,
                ElementsAre("TES_REDONDEA_IMPORTE_CHEQUE|0|B|0", "TES_FORMA_PAGO_CHEQUE|0||",
                            "TES_FORMA_PAGO_TRANSFERENCIA|0||", "TES_MOVIMIENTO_DEPOSITO|0||", "FIN_MONEDA_LOCAL|0||",
                            "GEN_FORZAR_TIEMPO_REAL|0|B|0", "TES_AUTORIZAR_SOLICITUD_CHEQUE|0|B|0"));
}

TEST(Module_start, asks_for_each_shared_service_and_for_the_server_id_once) {
    const auto suite = std::make_shared<Bare_suite>();
    Module module(suite);
    const Tesoreria first(module);
    const Tesoreria second(module);
    EXPECT_EQ(suite->shared_services, 4);
    EXPECT_EQ(suite->asked->server_id_asked, 1);
    EXPECT_EQ(suite->asked->asked.size(), 7u);
    EXPECT_EQ(module.server_id(), "NORTE");
}

TEST(Module_start, absent_parameters_are_false_and_empty) {
    const Module module(std::make_shared<Bare_suite>());
    const Cached_parameters& parameters = module.parameters();
    EXPECT_FALSE(parameters.TES_REDONDEA_IMPORTE_CHEQUE);
    EXPECT_FALSE(parameters.GEN_FORZAR_TIEMPO_REAL);
    EXPECT_FALSE(parameters.TES_AUTORIZAR_SOLICITUD_CHEQUE);
    EXPECT_EQ(parameters.TES_FORMA_PAGO_CHEQUE, "");
    EXPECT_EQ(parameters.TES_FORMA_PAGO_TRANSFERENCIA, "");
    EXPECT_EQ(parameters.TES_MOVIMIENTO_DEPOSITO, "");
    EXPECT_EQ(parameters.FIN_MONEDA_LOCAL, "");
}

TEST(Module_start, each_parameter_lands_in_its_own_place) {
    const auto suite = std::make_shared<Bare_suite>();
    suite->asked->values = {{"TES_REDONDEA_IMPORTE_CHEQUE", Value(true)},
                            {"TES_FORMA_PAGO_CHEQUE", Value(std::int64_t{2})},
                            {"TES_FORMA_PAGO_TRANSFERENCIA", Value(std::string("03"))},
                            {"TES_MOVIMIENTO_DEPOSITO", Value(std::string("DEP"))},
                            {"FIN_MONEDA_LOCAL", Value()},
                            {"GEN_FORZAR_TIEMPO_REAL", Value(-1.0)},
                            {"TES_AUTORIZAR_SOLICITUD_CHEQUE", Value(std::string("True"))}};
    const Module module(suite);
    EXPECT_TRUE(module.parameters().TES_REDONDEA_IMPORTE_CHEQUE);
    EXPECT_EQ(module.parameters().TES_FORMA_PAGO_CHEQUE, "2");
    EXPECT_EQ(module.parameters().TES_FORMA_PAGO_TRANSFERENCIA, "03");
    EXPECT_EQ(module.parameters().TES_MOVIMIENTO_DEPOSITO, "DEP");
    EXPECT_EQ(module.parameters().FIN_MONEDA_LOCAL, "");
    EXPECT_TRUE(module.parameters().GEN_FORZAR_TIEMPO_REAL);
    EXPECT_TRUE(module.parameters().TES_AUTORIZAR_SOLICITUD_CHEQUE);
}

TEST(Module_start, a_parameter_that_is_no_boolean_stops_the_start) {
    const auto suite = std::make_shared<Bare_suite>();
    suite->asked->values["GEN_FORZAR_TIEMPO_REAL"] = std::string("tal vez");
    EXPECT_THROW(Module{suite}, Automation_error);
}

TEST(Module_start, cached_parameters_do_not_follow_the_database) {
    Company company;
    company.sql("UPDATE Parametro_Sistema SET Ps_Valor = '1' WHERE Ps_Nombre = 'GEN_FORZAR_TIEMPO_REAL'");
    EXPECT_FALSE(company.module().parameters().GEN_FORZAR_TIEMPO_REAL);
    EXPECT_TRUE(company.module().boolean_parameter("GEN_FORZAR_TIEMPO_REAL")) << "read now";
    tRpEncabezado header = Company::receipt_header();
    header.Rp_Fecha = Company::yesterday();
    EXPECT_NE(company.capture_receipt({Company::receipt_line(1)}, header), "")
        << "the component still goes by the cached one";
    company.restart();
    EXPECT_TRUE(company.module().parameters().GEN_FORZAR_TIEMPO_REAL);
}

TEST(Module_start, the_statement_buffer_holds_the_last_statement) {
    Company company;
    company.treasury().RpEncabezado(Company::receipt_header());
    EXPECT_EQ(company.module().statement(), "SELECT * FROM Tipo_Recibo_Pago WHERE Trp_Cve_Tipo_Recibo_Pago = '01' ");
}

}  // namespace
}  // namespace cuvexa::tests
