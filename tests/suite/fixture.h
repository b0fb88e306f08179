// The reference suite over the sample company, in a SQLite database of its own.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/rows.h"
#include "cuvexa/database/script.h"
#include "cuvexa/database/sqlite_connection.h"
#include "cuvexa/suite/administration.h"
#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/suite/schema.h"

namespace cuvexa::tests {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class Suite_test : public ::testing::Test {
protected:
    Suite_test() {
        run_script(connection, schema_sql());
        run_script(connection, sample_company_sql());
    }

    static Date today() { return make_date(2024, 3, 15, 10, 20, 30); }

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

    Sqlite_connection connection{":memory:", {.synchronous = Synchronous::off}};
    Reference_suite suite{connection, {.user = "CAJA1", .server_date = today()}};
};

}  // namespace cuvexa::tests
