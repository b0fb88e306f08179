#include "company.h"

#include <sqlite3.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <stdexcept>

#include "cuvexa/database/script.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/unit_of_work.h"
#include "database/sqlite/engine.h"

namespace cuvexa::bench {
namespace {

void run_bare(sqlite3* handle, const std::string& text) {
    char* message = nullptr;
    if (sqlite3_exec(handle, text.c_str(), nullptr, nullptr, &message) == SQLITE_OK) return;
    const std::string description = message;
    sqlite3_free(message);
    throw std::runtime_error(description + "\n" + text);
}

std::string numbers_up_to(std::int64_t last) {
    return "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < " + std::to_string(last) + ") ";
}

}  // namespace

Scratch_folder::Scratch_folder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "cuvexa-bench-XXXXXX").string();
    if (mkdtemp(pattern.data()) == nullptr) throw std::runtime_error("no folder for the benchmark's databases");
    path_ = pattern;
}

Scratch_folder::~Scratch_folder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

void write_database(const std::filesystem::path& file, std::int64_t receipts) {
    Sqlite_connection database(file.string(), {.synchronous = Synchronous::off, .create = true});
    Unit_of_work transaction(database);
    run_script(database, schema_sql());
    run_script(database, sample_company_sql());
    sqlite3* const rows = sqlite::handle_of(database);
    run_bare(rows, numbers_up_to(receipts) +
                       "INSERT INTO Recibo_Pago(Rp_Folio, Rp_Id, Rp_Fecha, Sc_Cve_Sucursal, Trp_Cve_Tipo_Recibo_Pago, "
                       "Mn_Cve_Moneda, Rp_Tipo_Cambio, Rp_Folio_Deposito, Rp_Deposito_ID, Fp_Cve_Forma_Pago, "
                       "Rp_Importe, Es_Cve_Estado) SELECT printf('OLD-%010d', i), l, '2024-02-10', 'MTY', '01', 'MXN', "
                       "1, printf('OLD-%09d', (i + 9) / 10), '0001', '01', 100.25, 'DP' "
                       "FROM n, (SELECT '0001' AS l UNION ALL SELECT '0002')");
    run_bare(rows,
             "INSERT INTO Deposito_Pago(Dp_Folio, Dp_Id, Dp_Fecha, Sc_Cve_Sucursal, Mn_Cve_Moneda, "
             "Dp_Tipo_Cambio, Bc_Cve_Banco_Cuenta, Dp_Importe, Es_Cve_Estado) SELECT Rp_Folio_Deposito, '0001', "
             "'2024-02-10', 'MTY', 'MXN', 1, 'SRR-MXN', SUM(Rp_Importe), 'AC' "
             "FROM Recibo_Pago GROUP BY Rp_Folio_Deposito");
    run_bare(rows, numbers_up_to(receipts / 10) +
                       "INSERT INTO Cheque(Ch_Folio, Tc_Cve_Tipo_Cheque, Ch_Transferencia, Ch_Fecha, "
                       "Bc_Cve_Banco_Cuenta, Sc_Cve_Sucursal, Ch_Importe, Ch_Tipo_Cambio, Ch_Referencia, "
                       "Es_Cve_Estado) SELECT printf('OLD-%010d', i), '0001', 'NO', '2024-02-10', 'SRR-MXN', 'MTY', "
                       "200, 1, printf('OLD-%d', i), 'AP' FROM n");
    run_bare(rows,
             "INSERT INTO Cheque_x_Aplicar(Ch_Folio, Cxa_ID, Mn_Cve_Moneda, Cxa_Tipo_Cambio, Cxa_Importe, "
             "Es_Cve_Estado) SELECT Ch_Folio, l, 'MXN', 1, 100, 'AP' "
             "FROM Cheque, (SELECT '0001' AS l UNION ALL SELECT '0002') WHERE Ch_Folio LIKE 'OLD-%'");
    run_bare(rows,
             "INSERT INTO Banco_Movimiento(Bm_Folio, Bc_Cve_Banco_Cuenta, Bm_Tabla, Bm_Documento, "
             "Bm_Documento_ID, Bm_Fecha, Bm_Fecha_Firme, Bt_Cve_Banco_Tipo_Movimiento, Bm_Importe, "
             "Mn_Cve_Moneda, Bm_Tipo_Cambio, Es_Cve_Estado) "
             "SELECT Dp_Folio, 'SRR-MXN', 'DEPOSITO_PAGO', Dp_Folio, Dp_Id, '2024-02-10', '2024-02-10', 'DEP', "
             "Dp_Importe, 'MXN', 1, 'FI' FROM Deposito_Pago UNION ALL "
             "SELECT Ch_Folio, 'SRR-MXN', 'CHEQUE', Ch_Folio, '', '2024-02-10', '2024-02-10', 'CHQ', "
             "-Ch_Importe, 'MXN', 1, 'FI' FROM Cheque WHERE Ch_Folio LIKE 'OLD-%'");
    for (const char* finished : {"SELECT DISTINCT Dp_Folio, 'DEPOSITO_PAGO', 1 FROM Deposito_Pago",
                                 "SELECT Bm_Folio, 'BANCO_MOVIMIENTO', 1 FROM Banco_Movimiento"}) {
        run_bare(rows, std::string("INSERT INTO Documento_Registrado(Dr_Documento, Dr_Codigo, Dr_Veces) ") + finished);
    }
    run_bare(rows,
             "UPDATE Banco_Cuenta SET Bc_Saldo = (SELECT SUM(Bm_Importe) FROM Banco_Movimiento) "
             "WHERE Bc_Cve_Banco_Cuenta = 'SRR-MXN'");
    run_bare(rows,
             "UPDATE Banco SET Bn_Saldo = (SELECT SUM(Bm_Importe) FROM Banco_Movimiento) "
             "WHERE Bn_Cve_Banco = 'SIERRA'");
    transaction.commit();
}

Company::Company(const std::filesystem::path& file, Synchronous synchronous)
    : engine(file.string(), {.synchronous = synchronous}),
      connection(engine),
      suite(std::make_shared<Reference_suite>(
          connection, Suite_options{.user = "BENCH", .server_date = make_date(2024, 3, 15, 10, 20, 30)})),
      module(suite),
      treasury(module) {
    connection.take();  // start-up is not part of any flow
}

Bare_engine::Bare_engine(const std::filesystem::path& file, Synchronous synchronous)
    : handle_(sqlite::open_database(file.string(), {.synchronous = synchronous}).release()) {}

Bare_engine::~Bare_engine() {
    sqlite3_close(handle_);
}

void Bare_engine::run(const std::vector<std::string>& texts) {
    for (const std::string& text : texts) {
        sqlite3_stmt* statement = nullptr;
        int result = sqlite3_prepare_v2(handle_, text.data(), static_cast<int>(text.size()), &statement, nullptr);
        while (result == SQLITE_OK || result == SQLITE_ROW) result = sqlite3_step(statement);
        if (result != SQLITE_DONE) throw std::runtime_error(std::string(sqlite3_errmsg(handle_)) + "\n" + text);
        sqlite3_finalize(statement);
    }
}

void require(bool succeeded, const Tesoreria& treasury) {
    if (succeeded) return;
    std::fprintf(stderr, "benchmark stopped: %s\n", treasury.Error().c_str());
    std::exit(1);
}

}  // namespace cuvexa::bench
