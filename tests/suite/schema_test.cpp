#include <sqlite3.h>

#include <cctype>
#include <map>
#include <regex>
#include <set>

#include "core/case.h"
#include "cuvexa/errors.h"
#include "suite/fixture.h"

namespace cuvexa::tests {
namespace {

using Schema = Suite_test;

struct Column {
    std::string table, name, definition;
    bool key;
};

/// The columns as the schema text defines them.
std::vector<Column> columns() {
    std::vector<Column> all;
    const std::string text(schema_sql());
    static const std::regex table_form("CREATE TABLE (\\w+) \\(\n([^;]*)\\);");
    for (std::sregex_iterator at(text.begin(), text.end(), table_form), end; at != end; ++at) {
        const std::string body = (*at)[2];
        static const std::regex line_form("    (\\w+) ([a-z]+(?:\\((?:\\d+|max)\\))? [^\n]*?),?\n");
        for (std::sregex_iterator line(body.begin(), body.end(), line_form); line != end; ++line) {
            all.push_back({(*at)[1], (*line)[1], (*line)[2], (*line)[2].str().find("NOT NULL") != std::string::npos});
        }
    }
    return all;
}

TEST_F(Schema, every_column_outside_a_key_has_a_default) {
    const std::vector<Column> all = columns();
    ASSERT_GT(all.size(), 500u);
    for (const Column& column : all) {
        if (column.key) continue;
        EXPECT_NE(column.definition.find("DEFAULT"), std::string::npos) << column.table << '.' << column.name;
    }
}

TEST_F(Schema, a_row_can_be_inserted_by_naming_only_its_key) {
    std::map<std::string, std::vector<Column>> tables;
    for (const Column& column : columns()) {
        if (column.key) tables[column.table].push_back(column);
    }
    ASSERT_EQ(tables.size(), 43u);
    for (const auto& [table, keys] : tables) {
        std::string names, values;
        for (const Column& key : keys) {
            names += (names.empty() ? "" : ", ") + key.name;
            values += (values.empty() ? "" : ", ") + std::string(key.definition.starts_with("int") ? "77" : "'ZZ'");
        }
        EXPECT_NO_THROW(sql("INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")")) << table;
        EXPECT_THROW(sql("INSERT INTO " + table + " (" + names + ") VALUES (" + values + ")"), Database_error)
            << table << " took its key twice";
    }
}

TEST_F(Schema, documents_begin_active_and_movements_in_transit) {
    for (const char* table :
         {"Recibo_Pago", "Deposito_Pago", "Cheque", "Cheque_x_Aplicar", "Solicitud_Cheque", "Solicitud_Cheque_Detalle",
          "Gasto_x_Comprobar_Documento", "Cuenta_x_Cobrar", "Pago_Cxc"}) {
        for (const Column& column : columns()) {
            if (column.table == table && column.name == "Es_Cve_Estado") {
                EXPECT_NE(column.definition.find("DEFAULT 'AC'"), std::string::npos) << table;
            }
        }
    }
    sql("INSERT INTO Banco_Movimiento (Bm_Folio) VALUES ('X')");
    EXPECT_EQ(scalar("SELECT Es_Cve_Estado AS value FROM Banco_Movimiento"), "TR");
}

// Statements name some columns without their table; a second table with such a column would make them ambiguous.
TEST_F(Schema, columns_that_statements_name_alone_stand_in_one_table_of_their_join) {
    std::map<std::string, std::set<std::string>> tables_of;
    for (const Column& column : columns()) tables_of[column.name].insert(column.table);
    const auto absent = [&](const char* column, const char* table) {
        EXPECT_FALSE(tables_of[column].contains(table)) << column << " in " << table;
    };
    for (const char* table : {"Forma_Pago", "Sucursal"}) {
        for (const char* column :
             {"Mn_Cve_Moneda", "Rp_Importe", "Rp_Banco", "Rp_Cheque", "Rp_Comentario", "Rp_Folio"}) {
            absent(column, table);
        }
    }
    absent("Mn_Cve_Moneda", "Cheque");
    for (const char* column : {"Cxc_Importe", "Cxc_Tipo_Cambio", "Cxc_Folio", "Cxc_Tabla", "Cxc_Documento"}) {
        absent(column, "Anticipo_Cxc");
    }
    for (const char* column : {"Cxc_Tabla", "Cxc_Documento", "An_Folio", "Cxc_Precio_Neto_Saldo"}) {
        absent(column, "Gasto_x_Comprobar_Documento");
    }
}

TEST_F(Schema, the_sample_accounts_add_up) {
    EXPECT_EQ(
        scalar("SELECT COUNT(*) AS value FROM Cuenta_x_Cobrar WHERE Cxc_Precio_Neto_Importe <> Cxc_Precio_Neto_Saldo"),
        "0");
    EXPECT_EQ(
        scalar("SELECT COUNT(*) AS value FROM Cuenta_x_Pagar WHERE Cxp_Precio_Neto_Importe <> Cxp_Precio_Neto_Saldo"),
        "0");
    EXPECT_EQ(suite.data()->GetNextFolio("MTY", "CUENTA_X_COBRAR"), "CXC-MTY-00000005") << "the next one is free";
    EXPECT_EQ(suite.data()->GetNextFolio("MTY", "CUENTA_X_PAGAR"), "CXP-MTY-00000004");
    EXPECT_EQ(suite.data()->GetNextFolio("MTY", "ANTICIPO_CXC"), "AN-MTY-00000003");
}

TEST_F(Schema, parameters_are_listed_set_and_unset) {
    EXPECT_EQ(parameter(connection, "TES_MOVIMIENTO_DEPOSITO"), "DEP");
    EXPECT_EQ(parameter(connection, "NO_EXISTE"), std::nullopt);
    set_parameter(connection, "NUEVO", "it's");
    EXPECT_EQ(parameter(connection, "nuevo"), "it's");
    set_parameter(connection, "NUEVO", "");
    EXPECT_EQ(parameter(connection, "NUEVO"), "");
    const std::size_t before = parameters(connection).size();
    EXPECT_TRUE(unset_parameter(connection, "NUEVO"));
    EXPECT_FALSE(unset_parameter(connection, "NUEVO"));
    EXPECT_EQ(parameters(connection).size(), before - 1);
}

}  // namespace
}  // namespace cuvexa::tests
