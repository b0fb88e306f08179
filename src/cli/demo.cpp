// cuvexa demo: the component at work on the sample company.
#include "cli/demo.h"

#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/session.h"

namespace cuvexa::cli {

namespace {

constexpr auto chapters = {receipt_chapter, closing_chapter,     deposit_chapter, check_chapter,
                           budget_chapter,  application_chapter, way_back_chapter};

/// A demonstration writes documents; in a company at work they would be somebody's mistake.
void require_sample_company(Connection& connection, const std::string& name) {
    const auto rows = connection.execute("SELECT Em_Descripcion FROM Empresa WHERE Em_Cve_Empresa = 'EM01'");
    if (rows->eof() || to_text(rows->field("Em_Descripcion")) != "Comercializadora Río Claro, S.A. de C.V.") {
        throw Refused("La demostración solo corre sobre la empresa de muestra (cuvexa init --sample): " + name);
    }
}

Company open_stage(const Company_options& options) {
    if (options.database.empty()) return Company::in_memory(Contents::sample_company, options);
    Company::create_if_missing(options, Contents::sample_company);
    Company company(options);
    require_sample_company(company.connection(), options.shown());
    return company;
}

void demonstrate(const Company_options& options) {
    Session session(open_stage(options), {.user = "DEMO", .server_date = make_date(2024, 3, 15)});
    std::cout << "Cuvexa lleva el dinero de una empresa: recibos de caja, depósitos, cheques, transferencias y los "
                 "movimientos y\n"
                 "saldos de sus cuentas bancarias. Aquí se llama al componente como lo hace cualquier programa: cada "
                 "línea que\n"
                 "empieza con > es una llamada a un objeto Tesoreria; debajo, su resultado y los renglones que movió.\n"
                 "Empresa de muestra; 15 de marzo de 2024.\n";
    Stage stage(session.module(), session.connection(), std::cout);
    for (const auto chapter : chapters) chapter(stage);
    if (options.database.empty()) {
        std::cout << "\nLa base de datos estuvo en memoria. Para conservarla: cuvexa demo --db demo.db\n";
    } else {
        std::cout << "\nPara ver lo que quedó: cuvexa show checks --db "
                  << (options.is_server() ? '"' + options.shown() + '"' : options.database) << '\n';
    }
}

}  // namespace

void add_demo(CLI::App& program) {
    auto options = std::make_shared<Company_options>();
    CLI::App* command = program.add_subcommand("demo", "Show what the component does, step by step");
    add_company_options(*command, *options, false);
    command->callback([options] { demonstrate(*options); });
}

}  // namespace cuvexa::cli
