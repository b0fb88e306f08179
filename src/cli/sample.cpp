// cuvexa sample: a company of any size, to try things on.
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <iostream>
#include <memory>

#include "cli/command.h"
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

/// One line that tells a person how far it is, wiped before the result.
std::function<void(int)> progress_of(int receipts) {
    if (isatty(STDERR_FILENO) == 0) return [](int) {};
    return [receipts](int done) {
        std::cerr << "\r\033[K" << done << " de " << receipts << " recibos (" << 100LL * done / std::max(receipts, 1)
                  << " %)" << (done == receipts ? "\r\033[K" : "") << std::flush;
    };
}

void make_sample(const Sample_options& options) {
    Life_plan plan = options.plan;
    plan.last_day = day_of(*parse_date(options.until));
    if (calendar(first_day_of(plan)).year < first_year) {
        throw CLI::ValidationError("the sample company's periods begin in 2024: fewer --months, or a later --until");
    }
    Company::create(options.company, Contents::sample_company);
    Company company(options.company);
    const auto begun = std::chrono::steady_clock::now();
    Sample_life(company, plan).live(progress_of(plan.receipts));
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
