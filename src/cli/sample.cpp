// cuvexa sample: a company of any size, to try things on.
#include <chrono>
#include <iostream>
#include <memory>

#include "cli/command.h"
#include "cli/progress.h"
#include "cli/sample_life.h"
#include "cli/session.h"

namespace cuvexa::cli {

namespace {

struct Sample_options {
    Company_options company;
    Life_plan plan;
    std::string until = "2026-10-31";
};

constexpr int first_year = 2024, last_year = 2027;

/// One life, from its first day to its last.
void live(Company_options options, const Life_plan& plan) {
    heed_ctrl_c(options, "no queda ninguna base de datos");
    Progress progress("Recibos: 0 de " + std::to_string(plan.receipts) + " (0 %)");
    Company::create(options, Contents::sample_company, progress.per_cent_of("Base de datos nueva"));
    heed_ctrl_c(options, "la empresa queda hasta su último día completo");
    Company company(options);
    Sample_life(company, plan).live([&](int receipts) {
        progress.tell("Recibos", static_cast<std::size_t>(receipts), static_cast<std::size_t>(plan.receipts));
    });
}

void make_sample(const Sample_options& options) {
    Life_plan plan = options.plan;
    plan.last_day = day_of(*parse_date(options.until));
    if (calendar(first_day_of(plan)).year < first_year) {
        throw CLI::ValidationError("the sample company's periods begin in 2024: fewer --months, or a later --until");
    }
    const auto begun = std::chrono::steady_clock::now();
    live(options.company, plan);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begun).count();
    std::cout << "Empresa creada: " << plan.receipts << " recibos en " << plan.months
              << " meses: " << options.company.shown() << " (" << static_cast<int>(seconds * 10) / 10.0 << " s)\n";
}

std::string operating_day_problem(const std::string& text) {
    const auto date = parse_date(text);
    if (!date) return "not a date: " + text;
    const int year = calendar(*date).year;
    return year < first_year || year > last_year ? "the sample company's periods are those of 2024 to 2027: " + text
                                                 : "";
}

}  // namespace

void add_sample(CLI::App& program) {
    auto options = std::make_shared<Sample_options>();
    CLI::App* command = program.add_subcommand(
        "sample", "Make a company of any size to try things on: the sample company with a life of its own");
    command->add_option("--receipts", options->plan.receipts, "How many cash receipts; all else follows from them")
        ->check(CLI::Range(1, 100'000'000))
        ->capture_default_str();
    command->add_option("--months", options->plan.months, "In how many months, the last one included")
        ->check(CLI::Range(1, 34))
        ->capture_default_str();
    command->add_option("--seed", options->plan.seed, "The same number makes the same company")->capture_default_str();
    command->add_option("--until", options->until, "Its last day")
        ->type_name("DAY")
        ->check(operating_day_problem)
        ->capture_default_str();
    add_company_options(*command, options->company);
    command->callback([options] { make_sample(*options); });
}

}  // namespace cuvexa::cli
