// How PostgreSQL would run what the reports send: along an index, however large a company becomes. It is told to avoid walks through
// tables and sorts, as it does by itself where there is much to walk through; what is left then cannot be done otherwise.
#ifdef CUVEXA_WITH_POSTGRESQL
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "core/case.h"
#include "cuvexa/database/postgresql_connection.h"
#include "cuvexa/suite/schema.h"
#include "database/postgresql/session.h"
#include "reports/document.h"
#include "reports/lists.h"
#include "reports/whole_statement.h"
#include "servers/session.h"
#include "support/recording_connection.h"
#include "support/test_database.h"

namespace cuvexa::tests {
namespace {

using reports::Order;
using reports::Question;

class Reports_postgresql_plans : public testing::Test {
protected:
    void SetUp() override {
        const std::string text = postgresql_text();
        if (text.empty()) GTEST_SKIP() << "CUVEXA_TEST_DB is no text of PostgreSQL";
        company = std::make_unique<Test_database>(sample_company_sql());
        connection = std::make_unique<Postgresql_connection>(text);
        wire = std::make_unique<Recording_connection>(*connection);
        planner = std::make_unique<postgresql::Session>(text, Postgresql_options{});
        for (const char* costly : {"seqscan", "sort", "incremental_sort", "hashjoin", "bitmapscan"}) {
            planner->run(std::string("SET enable_") + costly + " = off");
        }
    }

    reports::Source source() const { return {*wire, connection->date_style()}; }

    /// The lines of the plans of everything that was sent, in capitals.
    std::vector<std::string> steps() const {
        std::vector<std::string> found;
        for (const std::string& statement : wire->texts()) {
            const auto plan = planner->run("EXPLAIN (COSTS OFF) " + connection->translate(statement));
            for (int i = 0; i < PQntuples(plan.get()); ++i) {
                found.push_back(upper_ascii(std::string_view(PQgetvalue(plan.get(), i, 0))));
            }
        }
        return found;
    }

    static std::size_t count(const std::vector<std::string>& steps, const std::string& what) {
        std::size_t found = 0;
        for (const std::string& step : steps) found += step.find(what) == std::string::npos ? 0 : 1;
        return found;
    }

    std::string shown(const std::vector<std::string>& steps) const {
        std::string text = wire->texts().empty() ? "" : wire->texts().front();
        for (const std::string& step : steps) text += '\n' + step;
        return text;
    }

    std::unique_ptr<Test_database> company;
    std::unique_ptr<Postgresql_connection> connection;
    std::unique_ptr<Recording_connection> wire;
    std::unique_ptr<postgresql::Session> planner;
};

TEST_F(Reports_postgresql_plans, every_list_walks_along_an_index_in_its_order) {
    const auto day = make_date(2024, 3, 15);
    for (const char* name : {"receipts", "deposits", "movements", "checks", "requests", "advances", "receivables",
                             "payables", "vouchers"}) {
        const reports::View& view = *reports::find_view(name);
        for (const Question& question : std::vector<Question>{{},
                                                              {.from = day, .to = day},
                                                              {.behind = {"2024-03-15", "X"}},
                                                              {.order = Order::by_key},
                                                              {.order = Order::by_key, .behind = {"X"}}}) {
            wire->clear();
            read_list(source(), view, question);
            const auto plan = steps();
            EXPECT_EQ(count(plan, "SEQ SCAN ON " + upper_ascii(view.table)), 0u) << shown(plan);
            EXPECT_EQ(count(plan, "SORT KEY"), 0u) << shown(plan);
        }
    }
}

/// What was found among the documents of an index may be sorted.
TEST_F(Reports_postgresql_plans, a_search_takes_its_documents_along_an_index) {
    for (const char* name : {"receipts", "deposits", "movements", "checks", "requests", "advances", "receivables",
                             "payables", "vouchers"}) {
        const reports::View& view = *reports::find_view(name);
        wire->clear();
        read_list(source(), view, {.state = "AC", .text = "x", .amount = 1, .behind = {"2024-03-15", "X"}});
        const auto plan = steps();
        EXPECT_EQ(wire->count(), 2u);
        EXPECT_EQ(count(plan, "SEQ SCAN ON " + upper_ascii(view.table)), 0u) << shown(plan);
        EXPECT_LE(count(plan, "SORT KEY"), 2u) << shown(plan);
    }
}

TEST_F(Reports_postgresql_plans, a_statement_reads_one_account_along_its_index) {
    wire->clear();
    read_whole_statement(source(), "SRR-MXN", {make_date(2024, 3, 1), make_date(2024, 3, 31)});
    const auto plan = steps();
    EXPECT_EQ(count(plan, "SEQ SCAN ON BANCO_MOVIMIENTO"), 0u) << shown(plan);
    EXPECT_GE(count(plan, "USING IX_BANCO_MOVIMIENTO_BC_CVE_BANCO_CUENTA_BM_FECHA"), 4u) << shown(plan);
}

}  // namespace
}  // namespace cuvexa::tests
#endif
