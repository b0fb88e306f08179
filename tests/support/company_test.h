// Tests on the sample company (see company.h) whose services agree to everything and do nothing, so that the test alone says
// what stands in the tables: documents, payments and movements are written as rows.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "support/in_turn.h"

namespace cuvexa::tests {

/// The services agree, and the account PTO-MXN at the bank PUERTO, as SRR-USD at SIERRA, has a balance to begin with.
inline void among_agreeing_services(Company& company) {
    company.on.agreeing = true;
    company.sql("UPDATE Banco SET Bn_Saldo = 1500 WHERE Bn_Cve_Banco = 'PUERTO'");
    company.sql("UPDATE Banco SET Bn_Saldo = 70 WHERE Bn_Cve_Banco = 'SIERRA'");
    company.sql("UPDATE Banco_Cuenta SET Bc_Saldo = 1000 WHERE Bc_Cve_Banco_Cuenta = 'PTO-MXN'");
    company.sql("UPDATE Banco_Cuenta SET Bc_Saldo = 70 WHERE Bc_Cve_Banco_Cuenta = 'SRR-USD'");
}

class Company_test : public ::testing::Test {
protected:
    Company_test() { among_agreeing_services(company); }

    /// The component; its module starts with the first use, with the parameters that `on` gives by then.
    Tesoreria& treasury() {
        if (!started_) company.restart();
        started_ = true;
        return company.treasury();
    }

    /// Runs a statement behind the component's back.
    void run(const std::string& statement) { company.sql(statement); }

    /// The columns (separated by ", ") of the rows of a table that meet a condition, as "one|two", in that order.
    std::vector<std::string> rows(const std::string& table, const std::string& columns,
                                  const std::string& condition = "1 = 1") {
        return company.rows("SELECT " + columns + " FROM " + table + " WHERE " + condition + " ORDER BY " + columns);
    }

    /// What an operation that succeeds changes in the database, row by row.
    std::vector<std::string> changes(const std::function<bool()>& operation, bool with_audit = false) {
        treasury();
        company.mark();
        EXPECT_TRUE(operation()) << treasury().Error();
        EXPECT_EQ(treasury().Error(), "");
        return with_audit ? company.changes_with_audit() : company.changes();
    }

    /// What an operation that fails with that text leaves changed.
    std::vector<std::string> left_by(const std::string& error, const std::function<bool()>& operation) {
        treasury();
        company.mark();
        EXPECT_FALSE(operation());
        EXPECT_EQ(treasury().Error(), error);
        return company.changes();
    }

    /// What an operation that refuses leaves: its text, and the database as it was.
    void expect_refusal(const std::string& error, const std::function<bool()>& operation) {
        EXPECT_THAT(left_by(error, operation), IsEmpty());
    }

    Company company;
    Obstacles& on = company.on;

private:
    bool started_ = false;
};

}  // namespace cuvexa::tests
