// cuvexa demo: the component at work on the sample company.
#include "cli/demo.h"

#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cuvexa/suite/reference_suite.h"

namespace cuvexa::cli {

namespace {

constexpr auto chapters = {receipt_chapter, closing_chapter,     deposit_chapter, check_chapter,
                           budget_chapter,  application_chapter, way_back_chapter};

/// A demonstration writes documents; in a company at work they would be somebody's mistake.
void require_sample_company(Connection& connection, const std::string& file) {
    const auto rows = connection.execute("SELECT Em_Descripcion FROM Empresa WHERE Em_Cve_Empresa = 'EM01'");
    if (rows->eof() || to_text(rows->field("Em_Descripcion")) != "Comercializadora Río Claro, S.A. de C.V.") {
        throw Refused("La demostración solo corre sobre la empresa de muestra (cuvexa init --sample): " + file);
    }
}

std::unique_ptr<Database> open_stage(const Database_options& options) {
    if (options.file.empty()) return Database::in_memory(options, true);
    if (!options.stands()) Database::create(options, true);
    auto database = std::make_unique<Database>(options, Access::write);
    require_sample_company(database->connection(), options.shown());
    return database;
}

void demonstrate(const Database_options& options) {
    const auto database = open_stage(options);
    Suite_options suite;
    suite.user = "DEMO";
    suite.date_style = database->date_style();
    suite.server_date = make_date(2024, 3, 15);
    Module module(std::make_shared<Reference_suite>(database->connection(), suite));
    std::cout << "Cuvexa lleva el dinero de una empresa: recibos de caja, depósitos, cheques, transferencias y los "
                 "movimientos y\n"
                 "saldos de sus cuentas bancarias. Aquí se llama al componente como lo hace cualquier programa: cada "
                 "línea que\n"
                 "empieza con > es una llamada a un objeto Tesoreria; debajo, su resultado y los renglones que movió.\n"
                 "Empresa de muestra; 15 de marzo de 2024.\n";
    Stage stage(module, database->connection(), std::cout);
    for (const auto chapter : chapters) chapter(stage);
    if (options.file.empty()) {
        std::cout << "\nLa base de datos estuvo en memoria. Para conservarla: cuvexa demo --db demo.db\n";
    } else {
        std::cout << "\nPara ver lo que quedó: cuvexa show checks --db "
                  << (options.is_server() ? '"' + options.shown() + '"' : options.file) << '\n';
    }
}

}  // namespace

void add_demo(CLI::App& program) {
    auto options = std::make_shared<Database_options>();
    CLI::App* command = program.add_subcommand("demo", "Show what the component does, step by step");
    options->add_to(*command, false);
    command->callback([options] { demonstrate(*options); });
}

}  // namespace cuvexa::cli
