// A treasury over a database (see test_database.h) with a small company of its own, a clock and a user that stand still, and
// obstacles to put in its way.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cuvexa/tesoreria.h"
#include "support/obstacles.h"
#include "support/plain_suite.h"
#include "support/snapshot.h"
#include "support/test_database.h"

namespace cuvexa::tests {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// One step that can refuse: what brings it about, and the text it leaves.
struct Refusal_step {
    std::string name;
    std::function<void()> obstruct;
    std::string message;
};

class Obstructed_treasury : public ::testing::Test {
protected:
    Obstructed_treasury() { on.server_date = make_date(2024, 3, 15, 10, 20, 30); }

    /// The component; its module starts with the first use, with the parameters set so far.
    Tesoreria& treasury() {
        if (!treasury_) {
            module_.emplace(
                std::make_shared<Obstructed_suite>(std::make_shared<Plain_suite>(database_.connection()), on));
            treasury_.emplace(*module_);
        }
        return *treasury_;
    }

    /// Runs a statement behind the component's back.
    void run(const std::string& statement) { database_.connection().execute(statement); }

    /// The columns (separated by ", ") of the rows of a table that meet a condition, as "one|two", in that order.
    std::vector<std::string> rows(const std::string& table, const std::string& columns,
                                  const std::string& condition = "1 = 1") {
        const std::vector<std::string> names = split(columns);
        std::vector<std::string> found;
        for (auto row = database_.connection().execute("SELECT " + columns + " FROM " + table + " WHERE " + condition +
                                                       " ORDER BY " + columns);
             !row->eof(); row->move_next()) {
            std::string line;
            for (std::size_t i = 0; i < names.size(); ++i) line += (i == 0 ? "" : "|") + to_text(row->field(names[i]));
            found.push_back(line);
        }
        return found;
    }

    /// What the database holds now, to be compared with later.
    Snapshot look() const { return Snapshot(database_.look()); }

    /// What an operation that succeeds changes in the database, row by row.
    std::vector<std::string> changes(const std::function<bool()>& operation, bool with_audit = false) {
        treasury();
        on.forget();
        const Snapshot before = look();
        EXPECT_TRUE(operation()) << treasury().Error();
        EXPECT_EQ(treasury().Error(), "");
        return before.changes_to(look(), with_audit);
    }

    /// What an operation that fails with that text leaves changed.
    std::vector<std::string> left_by(const std::string& error, const std::function<bool()>& operation) {
        treasury();
        on.forget();
        const Snapshot before = look();
        EXPECT_FALSE(operation());
        EXPECT_EQ(treasury().Error(), error);
        return before.changes_to(look());
    }

    /// What an operation that refuses leaves: its text, and the database as it was.
    void expect_refusal(const std::string& error, const std::function<bool()>& operation) {
        EXPECT_THAT(left_by(error, operation), IsEmpty());
    }

    Date today() const { return *on.server_date; }
    Date yesterday() const { return add_days(today(), -1); }

    Obstacles on;

private:
    static std::vector<std::string> split(const std::string& columns) {
        std::vector<std::string> names;
        for (std::size_t at = 0; at < columns.size();) {
            const std::size_t comma = std::min(columns.find(", ", at), columns.size());
            names.push_back(columns.substr(at, comma - at));
            at = comma + 2;
        }
        return names;
    }

    static constexpr auto company = R"(
INSERT INTO Empresa (Em_Cve_Empresa, Em_Descripcion) VALUES ('01', 'Comercial del Norte');
INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, Sc_Servidor_Id) VALUES ('MTY', 'Monterrey', '01', 'S1');
INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa) VALUES ('GDL', 'Guadalajara', '01');
INSERT INTO Sucursal (Sc_Cve_Sucursal, Sc_Descripcion, Em_Cve_Empresa, Sc_Servidor_Id) VALUES ('CUN', 'Cancún', '01', 'S3');
INSERT INTO Moneda (Mn_Cve_Moneda, Mn_Descripcion) VALUES ('MXN', 'Peso');
INSERT INTO Moneda (Mn_Cve_Moneda, Mn_Descripcion) VALUES ('USD', 'Dólar');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar) VALUES ('0000', 'Sin tipo', '');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar, Tc_Proveedor_Pago) VALUES ('T01', 'Proveedor', '01', 'SI');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar, Tc_Proveedor_Pago) VALUES ('T1N', 'Proveedor sin pago', '01', 'NO');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar) VALUES ('T02', 'Gasto', '02');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar) VALUES ('T03', 'Cliente', '03');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar) VALUES ('T04', 'Deudor', '04');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar) VALUES ('T05', 'Anticipo', '05');
INSERT INTO Tipo_Cheque (Tc_Cve_Tipo_Cheque, Tc_Descripcion, Tc_Solicitar) VALUES ('T06', 'Otro', '06');
INSERT INTO Proveedor (Pv_Cve_Proveedor, Pv_Descripcion) VALUES ('PROV-1', 'Papelera');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente) VALUES ('CLIENTE-1', 'Tienda', 'CL');
INSERT INTO Cliente (Cl_Cve_Cliente, Cl_Descripcion, Tc_Cve_Tipo_Cliente) VALUES ('DEUDOR-1', 'Empleado', 'DE');
INSERT INTO Banco (Bn_Cve_Banco, Bn_Descripcion, Bn_Saldo) VALUES ('BAN-1', 'Banco del Norte', 1500);
INSERT INTO Banco (Bn_Cve_Banco, Bn_Descripcion, Bn_Saldo) VALUES ('BAN-2', 'Banco del Sur', 70);
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa, Bc_Saldo) VALUES ('CTA-1', 'Cheques', 'BAN-1', 'MXN', '01', 1000);
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa, Bc_Saldo) VALUES ('CTA-2', 'Nómina', 'BAN-1', 'MXN', '01', 500);
INSERT INTO Banco_Cuenta (Bc_Cve_Banco_Cuenta, Bc_Descripcion, Bn_Cve_Banco, Mn_Cve_Moneda, Em_Cve_Empresa, Bc_Saldo) VALUES ('CTA-3', 'Dólares', 'BAN-2', 'USD', '01', 70);
)";

    Test_database database_{company, 'T'};
    std::optional<Module> module_;
    std::optional<Tesoreria> treasury_;
};

}  // namespace cuvexa::tests
