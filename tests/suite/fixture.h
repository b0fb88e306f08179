// The reference suite over the sample company (see support/company.h), asked directly.
#pragma once

#include <string>
#include <vector>

#include "core/rows.h"
#include "cuvexa/suite/administration.h"
#include "support/company.h"

namespace cuvexa::tests {

using ::testing::HasSubstr;

class Suite_test : public ::testing::Test {
protected:
    static Date today() { return Company::now(); }

    void sql(const std::string& text) { connection.execute(text); }

    /// The first column named `value` of the first row, as text.
    std::string scalar(const std::string& query) {
        const Rows rows(connection.execute(query));
        return rows.eof() ? "(none)" : rows.text("value");
    }

    double balance(const std::string& folio) {
        return std::stod(
            scalar("SELECT Cxc_Precio_Neto_Saldo AS value FROM Cuenta_x_Cobrar WHERE Cxc_Folio = '" + folio + "'"));
    }
    double payable_balance(const std::string& folio) {
        return std::stod(
            scalar("SELECT Cxp_Precio_Neto_Saldo AS value FROM Cuenta_x_Pagar WHERE Cxp_Folio = '" + folio + "'"));
    }

    /// The column `value` of every row.
    std::vector<std::string> column(const std::string& query) {
        std::vector<std::string> values;
        for (Rows rows(connection.execute(query)); !rows.eof(); rows.next()) values.push_back(rows.text("value"));
        return values;
    }

    Company company;
    Connection& connection = company.wire();  // the one that the suite was made with
    Reference_suite& suite = *company.suite();
};

}  // namespace cuvexa::tests
