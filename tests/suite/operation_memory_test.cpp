// What the suite reads once in an operation, and what it must not keep.
#include <stdexcept>

#include "suite/context.h"
#include "suite/fixture.h"

namespace cuvexa::tests {
namespace {

using ::testing::StartsWith;

class Operation_memory : public Suite_test {
protected:
    Operation_memory() {
        suite.context().memory().read_from([this] { return seconds_; });
    }

    void begin() { session().operation_begins(); }
    void end() { session().operation_ends(); }
    void a_second_passes() { seconds_ = 1; }

    std::string parameter(const std::string& name) { return to_text(session().GetParameter(name, 0, "", "absent")); }
    std::string type_of(const std::string& kind) { return of_kind(kind, "Bt_Tipo"); }
    std::string name_of(const std::string& kind) { return of_kind(kind, "Bt_Descripcion"); }
    bool posts(const std::string& code) { return suite.new_accounting()->IsPostingEnabled(code); }

    /// How many statements it takes.
    template <class Work>
    std::size_t statements_of(Work&& work) {
        const std::size_t before = company.wire().count();
        work();
        return company.wire().count() - before;
    }

    /// The folio of a receipt, or why there is none.
    std::string captured() {
        try {
            return company.capture_receipt({Company::receipt_line(6)});
        } catch (const std::runtime_error& refusal) {
            return refusal.what();
        }
    }

    SessionServices& session() { return *session_; }

private:
    std::string of_kind(const std::string& kind, const std::string& column) {
        return suite.data()->LookupValue(column, "Bt_Cve_Banco_Tipo_Movimiento", kind, "Banco_Tipo_Movimiento");
    }

    std::shared_ptr<SessionServices> session_ = suite.session();
    double seconds_ = 0;
};

TEST_F(Operation_memory, settings_that_are_asked_for_one_after_the_other_are_one_statement_with_the_time) {
    suite.set_server_date(std::nullopt);
    begin();
    EXPECT_EQ(statements_of([&] {
                  EXPECT_EQ(parameter("TES_MOVIMIENTO_DEPOSITO"), "DEP");
                  EXPECT_FALSE(posts("DEPOSITO_PAGO"));
                  EXPECT_FALSE(posts("BANCO_MOVIMIENTO"));
                  EXPECT_GE(suite.data()->GetServerDate(), local_today());
              }),
              1u);
    EXPECT_EQ(statements_of([&] {
                  EXPECT_FALSE(session().IsReplicaServer());
                  EXPECT_NE(parameter("GEN_VALIDAR_PERIODO_OPERATIVO"), "absent");
                  EXPECT_EQ(parameter("TES_MOVIMIENTO_CHEQUE"), "CHQ");
                  EXPECT_EQ(parameter("TES_MOVIMIENTO_TRANSFERENCIA"), "TRF");
                  EXPECT_FALSE(posts("CHEQUE"));
              }),
              2u);
    end();
}

TEST_F(Operation_memory, what_is_absent_is_looked_for_by_itself) {
    sql("DELETE FROM Parametro_Sistema WHERE Ps_Nombre = 'TES_MOVIMIENTO_CHEQUE'");
    begin();
    EXPECT_EQ(statements_of([&] {
                  EXPECT_EQ(parameter("TES_MOVIMIENTO_CHEQUE"), "absent");
                  EXPECT_EQ(parameter("TES_MOVIMIENTO_TRANSFERENCIA"), "TRF");
                  EXPECT_EQ(parameter("TES_MOVIMIENTO_CHEQUE"), "absent");
              }),
              3u);
    end();
}

TEST_F(Operation_memory, a_row_of_a_catalog_is_read_once_with_what_else_is_asked_of_it) {
    begin();
    EXPECT_EQ(statements_of([&] {
                  EXPECT_EQ(type_of("DEP"), "1");
                  EXPECT_NE(name_of("DEP"), "");
                  EXPECT_EQ(name_of("NO"), "") << "there is none";
                  EXPECT_EQ(type_of("NO"), "");
              }),
              2u);
    end();
}

TEST_F(Operation_memory, it_keeps_what_the_server_says_and_no_more) {
    const auto ask = [&] {
        return std::vector<std::string>{
            parameter("FIN_MONEDA_LOCAL"),
            parameter("fin_moneda_local"),
            parameter("NO_EXISTE"),
            posts("CHEQUE") ? "posts" : "",
            posts("cheque") ? "posts" : "",
            posts("OTRO") ? "posts" : "",
            session().GetServerId(),
            session().IsReplicaServer() ? "replica" : "",
            type_of("DEP"),
            type_of("dep"),
            name_of("DEP"),
            name_of("O'BRIEN"),
            suite.data()->LookupValue("bt_descripcion", "BT_CVE_BANCO_TIPO_MOVIMIENTO", "CHQ", "BANCO_TIPO_MOVIMIENTO"),
            suite.data()->LookupValue("Bt_Tipo", "Bt_Descripcion", name_of("DEP"), "Banco_Tipo_Movimiento"),
            suite.data()->LookupValue("Cl_Descripcion", "Cl_Cve_Cliente", "DE01", "Cliente"),
            suite.data()->LookupValue("Cl_Descripcion", "Cl_Cve_Cliente", "DE01", "Cliente",
                                      "Tc_Cve_Tipo_Cliente = 'CL'"),
        };
    };
    for (const char* const change : {"",
                                     "UPDATE Parametro_Sistema SET Ps_Nombre = 'Fin_Moneda_Local' WHERE Ps_Nombre = "
                                     "'FIN_MONEDA_LOCAL'",
                                     "UPDATE Configuracion_Contable SET Ct_Automatica = 'SI'",
                                     "UPDATE Banco_Tipo_Movimiento SET Es_Cve_Estado = 'BA'",
                                     "UPDATE Servidor_Suite SET Sv_Replica = 'SI', Sv_Servidor_Id = NULL",
                                     "DELETE FROM Servidor_Suite", "DELETE FROM Parametro_Sistema"}) {
        if (*change != '\0') sql(change);
        const std::vector<std::string> outside = ask();
        begin();
        EXPECT_EQ(ask(), outside) << change;
        EXPECT_EQ(ask(), outside) << "again, " << change;
        end();
    }
}

TEST_F(Operation_memory, the_next_operation_sees_what_others_changed) {
    begin();
    EXPECT_EQ(parameter("FIN_MONEDA_LOCAL"), "MXN");
    EXPECT_EQ(type_of("DEP"), "1");
    sql("UPDATE Parametro_Sistema SET Ps_Valor = 'USD' WHERE Ps_Nombre = 'FIN_MONEDA_LOCAL'");
    sql("UPDATE Banco_Tipo_Movimiento SET Bt_Tipo = '-1' WHERE Bt_Cve_Banco_Tipo_Movimiento = 'DEP'");
    EXPECT_EQ(parameter("FIN_MONEDA_LOCAL"), "MXN");
    begin();
    end();
    EXPECT_EQ(type_of("DEP"), "1") << "an operation inside it has ended, not this one";
    end();
    EXPECT_EQ(parameter("FIN_MONEDA_LOCAL"), "USD") << "nothing is kept between operations";
    begin();
    EXPECT_EQ(parameter("FIN_MONEDA_LOCAL"), "USD");
    EXPECT_EQ(type_of("DEP"), "-1");
    end();
}

TEST_F(Operation_memory, an_operation_that_waits_for_a_user_sees_it_too) {
    begin();
    EXPECT_EQ(parameter("FIN_MONEDA_LOCAL"), "MXN");
    sql("UPDATE Parametro_Sistema SET Ps_Valor = 'USD' WHERE Ps_Nombre = 'FIN_MONEDA_LOCAL'");
    a_second_passes();
    EXPECT_EQ(parameter("FIN_MONEDA_LOCAL"), "USD");
    end();
}

TEST_F(Operation_memory, a_failure_is_not_kept) {
    begin();
    company.wire().clear();
    company.wire().fail_at(1);
    EXPECT_THROW(parameter("FIN_MONEDA_LOCAL"), std::exception);
    EXPECT_EQ(parameter("FIN_MONEDA_LOCAL"), "MXN");
    end();
}

TEST_F(Operation_memory, members_and_the_start_of_a_module_say_where_they_begin_and_end) {
    company.wire().clear();
    Module module(company.suite());
    EXPECT_EQ(company.wire().count(), 2u) << "the server and six parameters, and what stands with the seventh";
    sql("UPDATE Parametro_Sistema SET Ps_Valor = 'SI' WHERE Ps_Nombre = 'GEN_VALIDAR_PERIODO_OPERATIVO'");
    sql("UPDATE Periodo_Operativo SET Po_Estado = 'CERRADO'");
    EXPECT_THAT(captured(), HasSubstr("está cerrado"));
    sql("UPDATE Parametro_Sistema SET Ps_Valor = 'NO' WHERE Ps_Nombre = 'GEN_VALIDAR_PERIODO_OPERATIVO'");
    EXPECT_THAT(captured(), StartsWith("RP-")) << "refused or not, the operation before has ended";
}

}  // namespace
}  // namespace cuvexa::tests
