// A whole company to test against: the sample company in a database of its own (see test_database.h), the reference
// services over it, a clock that stands still, and the component on top.
//
//     Company company;
//     company.sql("UPDATE Banco_Cuenta SET Es_Cve_Estado = 'BA' WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
//     company.mark();
//     EXPECT_FALSE(company.treasury().Genera_Deposito("SRR-MXN", folio, company.now(), false, company.now()));
//     EXPECT_EQ(company.treasury().Error(), "…");
//     EXPECT_THAT(company.changes(), IsEmpty());
//
// - `treasury()` is the component; `set_parameter` writes a system parameter and starts the module again, as the
//   seven of them that are read at start-up need (the instance is then a new one).
// - `sql`, `scalar` and `rows` work on the database behind the component's back; `rows` gives "a|b|c" per row.
// - `mark` remembers the database and forgets the notes so far; `changes` tells what happened since, row by row (see
//   `Snapshot`), without the columns of the audit; `changes_with_audit` with them.
// - `statements()` are the component's own statements since `mark`, in order; those of the services are not among them.
//   `wire()` remembers both, `asked()` the calls of the services too. What members send stands in tests/statements.
// - `on` is what stands in the way: `on.refuse("RegisterDocument", "text")`, `on.fail("GetServerDate", "text")`,
//   `on.failing_statement = n`, `on.failing_call = n`, `on.agreeing`, `on.offline` (see `Obstacles`).
//   `on.reports_in_full` is the suite's error dialog.
// - The builders give documents that are accepted as they are; a test changes the one thing it is about.
//
// Keys are those of docs/sample-company.md.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sqlite3.h>

#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "cuvexa/suite/reference_suite.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/tesoreria.h"
#include "support/obstacles.h"
#include "support/recording_connection.h"
#include "support/snapshot.h"
#include "support/test_database.h"

namespace cuvexa::tests {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class Company {
public:
    Company() : database_(sample_company_sql()) {
        suite_ = std::make_shared<Reference_suite>(wire_, Suite_options{.user = "CAJA1", .server_date = now()});
        restart();
    }

    // ---- The component --------------------------------------------------------------------------------------------

    Tesoreria& treasury() { return *treasury_; }
    Module& module() { return *module_; }

    /// Starts the module again and gives it a new instance of the component.
    void restart() {
        treasury_.reset();
        module_.reset();
        module_.emplace(std::make_shared<Obstructed_suite>(suite_, on));
        treasury_.emplace(*module_);
        mark();
    }

    void set_parameter(const std::string& name, const std::string& value) {
        sql("DELETE FROM Parametro_Sistema WHERE Ps_Nombre = '" + name + "'");
        sql("INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor) VALUES ('" + name + "', '" + value + "')");
        restart();
    }
    void unset_parameter(const std::string& name) {
        sql("DELETE FROM Parametro_Sistema WHERE Ps_Nombre = '" + name + "'");
        restart();
    }

    /// Documents of that code are posted to accounting by themselves from here on.
    void post_automatically(const std::string& code) {
        sql("UPDATE Configuracion_Contable SET Ct_Automatica = 'SI' WHERE Ct_Codigo = '" + code + "'");
    }

    /// What stands in the way of the services and the statements.
    Obstacles on;

    /// The server's date and time.
    static Date now() { return make_date(2024, 3, 15, 10, 20, 30); }
    static Date today() { return day_of(now()); }
    static Date yesterday() { return add_days(today(), -1); }

    // ---- The database behind the component's back -------------------------------------------------------------------

    void sql(std::string_view statement) { connection().execute(statement); }

    /// The first column of the only row of a query; numbers as text. Throws when there is not exactly one row.
    std::string scalar(const std::string& query) {
        const std::vector<std::string> found = rows(query);
        if (found.size() != 1) throw std::runtime_error(query + ": " + std::to_string(found.size()) + " rows");
        return found.front().substr(0, found.front().find('|'));
    }

    /// The rows of a query, their columns parted by "|".
    std::vector<std::string> rows(const std::string& query) {
        std::vector<std::string> lines;
        read_bare(database_.look(), query, [&](const Snapshot::Row& row) {
            std::string line;
            for (const auto& [column, value] : row) line += (&column == &row.front().first ? "" : "|") + value;
            lines.push_back(line);
        });
        return lines;
    }

    void mark() {
        marked_.emplace(database_.look());
        on.forget();
        wire_.clear();
    }
    std::vector<std::string> changes() const { return marked_->changes_to(Snapshot(database_.look())); }
    std::vector<std::string> changes_with_audit() const {
        return marked_->changes_to(Snapshot(database_.look()), true);
    }

    const std::vector<std::string>& statements() const { return on.statements; }

    Connection& connection() { return database_.connection(); }

    /// The connection of component and services, which remembers what both of them send.
    Recording_connection& wire() { return wire_; }

    /// All that component and services asked for since `mark`: the statements, then the calls of the services.
    std::vector<std::string> asked() const {
        std::vector<std::string> all = wire_.texts();
        all.insert(all.end(), on.calls.begin(), on.calls.end());
        return all;
    }

    /// The engine's own handle where the database is embedded; null on a server.
    sqlite3* embedded() const { return database_.embedded(); }
    std::shared_ptr<Reference_suite> suite() { return suite_; }

    /// From here on, whenever `event` ("AFTER INSERT ON Cheque", with a condition if need be), somebody else runs
    /// `statement`. On the embedded database alone.
    void meanwhile(const std::string& event, const std::string& statement) {
        if (embedded() == nullptr) throw std::runtime_error("what happens meanwhile is written for SQLite");
        const std::string text =
            "CREATE TRIGGER meanwhile_" + std::to_string(++meanwhiles_) + " " + event + " BEGIN " + statement + "; END";
        if (sqlite3_exec(embedded(), text.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
            throw std::runtime_error(text + ": " + sqlite3_errmsg(embedded()));
        }
    }

    // ---- Receipts ---------------------------------------------------------------------------------------------------

    /// A receipt in pesos, of nobody unless its type asks for somebody.
    static tRpEncabezado receipt_header(const std::string& type = "01", const std::string& party = {}) {
        tRpEncabezado header;
        header.Rp_Fecha = header.Rp_Fecha_Deposito = today();
        header.TipoReciboPago.Trp_Cve_Tipo_Recibo_Pago = type;
        header.Rp_Solicitar_Valor = party;
        header.Sucursal.Sc_Cve_Sucursal = "MTY";
        header.Rp_Referencia = "REF-1";
        header.Rp_Comentario = "Cobranza";
        header.Mn_Cve_Moneda = "MXN";
        header.Rp_Tipo_Cambio = 1;
        return header;
    }

    static tRpDetalle receipt_line(double amount, const std::string& method = "01", const std::string& bank = {},
                                   const std::string& reference = {}) {
        tRpDetalle line;
        line.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = method;
        line.Rp_Banco = bank;
        line.Rp_Cheque = reference;
        line.Rp_Importe = amount;
        return line;
    }

    /// Captures a receipt and gives its folio.
    std::string capture_receipt(const std::vector<tRpDetalle>& lines, const tRpEncabezado& header = receipt_header()) {
        treasury().NuevoReciboCaja();
        treasury().RpEncabezado(header);
        for (const tRpDetalle& line : lines) {
            treasury().RpDetalle(line);
            if (!treasury().Add_Recibo_Caja_Detalle()) throw std::runtime_error(treasury().Error());
        }
        return treasury().RpEncabezado().Rp_Folio;
    }

    // ---- Bank movements ---------------------------------------------------------------------------------------------

    /// An inflow of 100 pesos into SRR-MXN, in transit.
    static tBnMovimiento movement(double amount = 100, const std::string& type = "INT") {
        tBnMovimiento movement;
        movement.Bt_Cve_Banco_Tipo_Movimiento = type;
        movement.Bm_Fecha = movement.Bm_Fecha_Firme = today();
        movement.Bm_Tabla = "ESTADO_CUENTA";
        movement.Bm_Documento = "EC-1";
        movement.Bm_Documento_ID = "0001";
        movement.Bm_Referencia = "REF-9";
        movement.Bm_Comentario = "Intereses del mes";
        movement.Cuenta.Bc_Cve_Banco_Cuenta = "SRR-MXN";
        movement.Bm_Importe = amount;
        movement.Bm_Tipo_Cambio = 1;
        return movement;
    }

    // ---- Checks -----------------------------------------------------------------------------------------------------

    /// A check of SRR-MXN in pesos, to the supplier PV01 unless its type asks for somebody else.
    static tTsEncabezado check_header(const std::string& type = "0001", const std::string& beneficiary = "PV01") {
        tTsEncabezado header;
        header.Ch_Fecha = today();
        header.Tc_Cve_Tipo_Cheque = type;
        header.Ch_Transferencia = "NO";
        header.Ch_Referencia = "1001";
        header.Ch_Concepto = "Pago de facturas";
        header.Ch_Beneficiario = "Aceros del Bajío";
        header.Bc_Cve_Banco_Cuenta = "SRR-MXN";
        header.Mn_Cve_Moneda = "MXN";
        header.Ch_Tipo_Cambio = 1;
        header.Ch_Solicitar_Valor = beneficiary;
        header.Sucursal.Sc_Cve_Sucursal = "MTY";
        return header;
    }

    static tTsDetalle check_line(double amount, const std::string& payable = "CXP-MTY-00000001") {
        tTsDetalle line;
        line.Ch_Concepto = "Factura";
        line.Cxp_Folio = payable;
        line.Mn_Cve_Moneda = "MXN";
        line.Ch_Tipo_Cambio = 1;
        line.Ch_Importe = amount;
        return line;
    }

    /// Captures a check and gives its folio.
    std::string capture_check(const std::vector<tTsDetalle>& lines, const tTsEncabezado& header = check_header()) {
        treasury().Nuevo();
        treasury().Encabezado(header);
        for (const tTsDetalle& line : lines) {
            treasury().Detalle(line);
            if (!treasury().Add_Cheque_Detalle()) throw std::runtime_error(treasury().Error());
        }
        return treasury().Encabezado().Ch_Folio;
    }

    // ---- Check requests ---------------------------------------------------------------------------------------------

    /// A request for a check to the supplier PV01, with something in every field that a caller fills.
    static tSchEncabezado request_header() {
        tSchEncabezado header;
        header.Sch_Fecha = today();
        header.Tc_Cve_Tipo_Cheque = "0001";
        header.Bc_Cve_Banco_Cuenta = "SRR-MXN";
        header.Sucursal.Sc_Cve_Sucursal = "MTY";
        header.Sch_Concepto = "Pago de renta";
        header.Sch_Beneficiario = "Inmobiliaria del Norte";
        header.Sch_Tabla = "ORDEN_COMPRA";
        header.Sch_Documento = "OC-7";
        header.Sch_Referencia = "REF-7";
        header.Sch_Importe = 1250.5;
        header.Mn_Cve_Moneda = "MXN";
        header.Sch_Tipo_Cambio = 19.25;
        header.Sch_Transferencia = "NO";
        header.Sch_Aplicar = "SI";
        header.Sch_Firme = "NO";
        header.Sch_Solicitar_Valor = "PV01";
        return header;
    }

    static tSchDetalle request_line(const std::string& folio) {
        tSchDetalle line;
        line.Sch_Folio = folio;
        line.Scd_Tabla = "CXP";
        line.Scd_Documento = "CXP-MTY-00000001";
        line.Scd_Importe = 100.25;
        line.Mn_Cve_Moneda = "USD";
        line.Scd_Tipo_Cambio = 18.5;
        return line;
    }

private:
    Test_database database_;
    Recording_connection wire_{database_.connection()};
    std::shared_ptr<Reference_suite> suite_;
    std::optional<Module> module_;
    std::optional<Tesoreria> treasury_;
    std::optional<Snapshot> marked_;
    int meanwhiles_ = 0;
};

}  // namespace cuvexa::tests
