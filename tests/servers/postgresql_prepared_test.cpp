// A statement does, gives and fails with the same whether the server has it prepared or is sent its text: every statement
// that the product sends, as it was sent and with values that are none of a column's.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "cuvexa/database/postgresql_connection.h"
#include "cuvexa/errors.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/unit_of_work.h"
#include "database/postgresql/engine.h"
#include "database/row_set.h"
#include "servers/session.h"
#include "support/statement_files.h"
#include "support/test_database.h"

namespace cuvexa::tests {
namespace {

/// What a statement came to: its rows, the number of those that it changed, or its SQLSTATE, or what is told without one.
std::string outcome(Connection& connection, const std::string& text) {
    Unit_of_work undone(connection);
    try {
        const auto rows = connection.execute(text);
        const auto& read = dynamic_cast<database::Row_set&>(*rows);
        std::string told = std::to_string(read.rows()) + " rows";
        for (; !rows->eof(); rows->move_next()) {
            told += "\n";
            for (std::size_t i = 0; i < read.columns().size(); ++i) {
                told += read.columns()[i] + "=" + std::to_string(read.value(i).index()) + ":" + to_text(read.value(i)) +
                        " ";
            }
        }
        return told;
    } catch (const Database_error& error) {
        const std::string said = error.what();
        const std::size_t state = said.rfind('[');
        return state == std::string::npos ? said : said.substr(state);
    }
}

/// The statement, and the statement with each of its values in turn replaced by such as a caller may send.
std::vector<std::string> variations(const std::string& statement) {
    std::vector<std::string> all = {statement};
    const std::vector<std::string> values = Statement_form(statement).values;
    std::size_t from = 0;
    for (const std::string& value : values) {
        const std::size_t at = statement.find(value, from);
        from = at + value.size();
        const bool text = value.front() == '\'';
        for (const std::string other : {"''", "'2024-02-30'", "'no es nada'", "99999999999", "70000.5"}) {
            if ((other.front() == '\'') == text) {
                all.push_back(statement.substr(0, at) + other + statement.substr(from));
            }
        }
    }
    return all;
}

class Both_ways : public ::testing::Test {
protected:
    void SetUp() override {
        const std::string text = postgresql_text();
        if (text.empty()) GTEST_SKIP() << "CUVEXA_TEST_DB is no text of PostgreSQL";
        company = std::make_unique<Test_database>(sample_company_sql());
        prepared = std::make_unique<Postgresql_connection>(text, Postgresql_options{.kept_statements = 1000});
        bare = std::make_unique<Postgresql_connection>(text, Postgresql_options{.kept_statements = 0});
    }

    std::unique_ptr<Test_database> company;
    std::unique_ptr<Postgresql_connection> prepared, bare;
};

TEST_F(Both_ways, every_statement_comes_to_the_same) {
    std::size_t compared = 0;
    for (const Told_statement& told : told_statements()) {
        for (const std::string& statement : variations(told.text)) {
            EXPECT_EQ(outcome(*prepared, statement), outcome(*bare, statement)) << told.file << ": " << statement;
            ++compared;
        }
        // By now the server may have a plan that serves any values.
        for (int again = 0; again < 6; ++again) outcome(*prepared, told.text);
        EXPECT_EQ(outcome(*prepared, told.text), outcome(*bare, told.text)) << told.file << ": " << told.text;
    }
    EXPECT_GT(compared, 1000u);
    EXPECT_GT(postgresql::Engine::of(*prepared).kept_statements(), 150u);
    EXPECT_EQ(postgresql::Engine::of(*bare).preparations(), 0u);
}

}  // namespace
}  // namespace cuvexa::tests
