// cuvexa_simulate: random companies, each served by the component and by its model, and compared after every call.
#include <chrono>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

#include <CLI/CLI.hpp>

#include "simulator/crowd.h"
#include "simulator/generator.h"
#include "simulator/script_file.h"
#include "simulator/shrink.h"
#include "simulator/stage.h"

namespace cuvexa::simulator {
namespace {

struct Options {
    std::uint64_t seed = 1;
    bool seed_of_the_day = false;
    long calls = 0;
    double minutes = 0;
    int steps = 400;  ///< of one company
    int users = 3;
    int threads = 1;
    int faults = 0;
    int sessions = 0;  ///< at once; 0: the instances work in turn
    bool atomic = false;
    bool statistics = false;
    std::string out = ".";
    std::string replay;
};

/// How often each member was called, and how often it did what it was asked.
struct Count {
    long calls = 0, done = 0;
    std::map<std::string, long> errors;
};

struct Tally {
    long calls = 0;
    long companies = 0;
    Stage::Disturbed disturbed;
    std::map<std::string, Count> members;

    void add(const Step& step, const Stage& stage) {
        if (step.kind != Step::Kind::call) return;
        ++calls;
        Count& count = members[step.name];
        ++count.calls;
        if (stage.succeeded()) ++count.done;
        if (const auto* treasury = stage.treasury(step.object); treasury != nullptr && !stage.succeeded()) {
            ++count.errors[without_values(treasury->Error)];
        }
    }

    void add(const Tally& other) {
        calls += other.calls;
        companies += other.companies;
        disturbed.calls += other.disturbed.calls;
        disturbed.with_findings += other.disturbed.with_findings;
        for (const auto& [member, count] : other.members) {
            Count& sum = members[member];
            sum.calls += count.calls;
            sum.done += count.done;
            for (const auto& [error, times] : count.errors) sum.errors[error] += times;
        }
    }

    /// A text without what stands in it by the way: digits.
    static std::string without_values(std::string text) {
        std::erase_if(text, [](char c) { return (c >= '0' && c <= '9') || c == '\r'; });
        std::replace(text.begin(), text.end(), '\n', '|');
        return text.substr(0, 160);
    }
};

/// A company of its own; they are copied from one, which one thread at a time may read.
std::unique_ptr<Stage> new_stage() {
    static std::mutex copying;
    const std::lock_guard lock(copying);
    return std::make_unique<Stage>();
}

/// The script of one company, as far as the two agree.
std::optional<Finding> simulate(std::uint64_t seed, const Options& options, Tally& tally) {
    const std::unique_ptr<Stage> made = new_stage();
    Stage& stage = *made;
    Generator generator({.seed = seed, .users = options.users, .faults = options.faults});
    Script script;
    for (int at = 0; at < options.steps; ++at) {
        script.push_back(generator.next(stage));
        std::vector<std::string> differences = stage.run(script.back());
        if (!differences.empty()) return Finding{std::move(script), std::move(differences), stage.made()};
        generator.observe(stage, script.back());
        tally.add(script.back(), stage);
    }
    std::vector<std::string> differences = stage.run_end();
    if (!differences.empty()) return Finding{std::move(script), std::move(differences), stage.made()};
    ++tally.companies;
    tally.disturbed = stage.disturbed();
    return std::nullopt;
}

void report(const Crowd_finding& finding, std::uint64_t seed, const Options& options) {
    for (const std::string& difference : finding.differences) std::cerr << difference << "\n";
    const auto folder = std::filesystem::path(options.out);
    std::filesystem::create_directories(folder);
    const auto path = folder / ("sessions-seed-" + std::to_string(seed) + ".script");
    std::ofstream file(path);
    write_crowd_script(finding.script, file);
    std::cerr << finding.script.size() << " steps show it: --seed " << seed << " --sessions " << options.sessions
              << (options.atomic ? " --atomic" : "") << " --replay " << path.string() << "\n";
}

Crowd_options crowd_options(std::uint64_t seed, const Options& options) {
    return {.seed = seed, .sessions = static_cast<std::size_t>(options.sessions), .atomic = options.atomic};
}

/// Companies one after the other, in each of which several sessions work at once.
int simulate_crowds(const Options& options) {
    const long enough = options.calls == 0 ? 5'000 : options.calls;
    Crowd::Figures sum;
    long companies = 0;
    for (std::uint64_t seed = options.seed; sum.calls < enough; ++seed, ++companies) {
        Crowd crowd(crowd_options(seed, options));
        for (int round = 1; round * options.sessions <= options.steps; ++round) {
            std::vector<std::string> differences = crowd.round();
            if (differences.empty()) continue;
            std::cerr << "seed " << seed << ", round " << round << ":\n" << crowd.last_round();
            for (const std::string& difference : differences) std::cerr << difference << "\n";
            report(shrunk(crowd_options(seed, options), {crowd.script(), std::move(differences)}), seed, options);
            return 1;
        }
        const Crowd::Figures figures = crowd.figures();
        sum.calls += figures.calls;
        sum.changes += figures.changes;
        sum.repetitions += figures.repetitions;
        sum.other_orders += figures.other_orders;
    }
    std::cout << sum.calls << " calls of " << options.sessions << " sessions in " << companies << " companies, "
              << (options.atomic ? "as if one after the other" : "mixed: balances, folios and vouchers hold")
              << "; the turn went from one session to another " << sum.changes << " times";
    if (options.atomic) {
        std::cout << ", " << sum.repetitions << " units were begun anew, " << sum.other_orders
                  << " rounds are as if in another order than that of their ends";
    }
    std::cout << "\n";
    return 0;
}

void report(const Finding& finding, const std::string& name, const Options& options) {
    for (const std::string& difference : finding.differences) std::cerr << difference << "\n";
    const auto folder = std::filesystem::path(options.out);
    std::filesystem::create_directories(folder);
    std::ofstream script(folder / (name + ".script")), session(folder / (name + ".sh"));
    write_script(finding.script, script);
    write_session(finding.script, finding.made, finding.differences, session);
    std::cerr << finding.script.size() << " steps show it: " << (folder / (name + ".sh")).string() << "\n";
}

void print(const Tally& tally) {
    for (const auto& [member, count] : tally.members) {
        std::cout << member << ": " << count.calls << " calls, " << count.done << " done\n";
        for (const auto& [error, times] : count.errors) std::cout << "    " << times << " × " << error << "\n";
    }
}

std::uint64_t seed_of_today() {
    const Calendar day = calendar(local_today());
    return static_cast<std::uint64_t>((day.year * 100 + day.month) * 100 + day.day) * 1'000'000;
}

int replay(const Options& options) {
    std::ifstream in(options.replay);
    if (options.sessions > 0) {
        const auto finding = play(crowd_options(options.seed, options), read_crowd_script(in));
        if (finding) report(*finding, options.seed, options);
        return finding ? 1 : 0;
    }
    const auto finding = play(read_script(in));
    if (!finding) {
        std::cout << "The component and its model agree.\n";
        return 0;
    }
    report(*finding, std::filesystem::path(options.replay).stem().string(), options);
    return 1;
}

/// Companies one after the other, or several at a time, each thread with its own, until there are enough or two differ.
class Run {
public:
    explicit Run(const Options& options)
        : options_(options),
          first_(options.seed_of_the_day ? seed_of_today() : options.seed),
          next_(first_),
          enough_(options.calls == 0 && options.minutes == 0 ? 20'000 : options.calls) {}

    int operator()() {
        std::vector<std::thread> threads;
        for (int thread = 1; thread < options_.threads; ++thread) threads.emplace_back([this] { work(); });
        work();
        for (std::thread& thread : threads) thread.join();
        if (finding_) {
            std::cerr << "seed " << found_with_ << ", step " << finding_->script.size() << ": the two differ\n";
            report(shrunk(*std::move(finding_)), "seed-" + std::to_string(found_with_), options_);
            return 1;
        }
        if (options_.statistics) print(tally_);
        if (options_.faults > 0) {
            std::cout << tally_.disturbed.calls << " calls were interrupted; " << tally_.disturbed.with_findings
                      << " left what the audit found, and following its advice put it right\n";
        }
        std::cout << tally_.calls << " calls in " << tally_.companies << " companies, seeds " << first_ << " to "
                  << next_ - 1 << ": the component and its model agree ("
                  << static_cast<long>(static_cast<double>(tally_.calls) / seconds()) << " calls a second)\n";
        return 0;
    }

private:
    void work() {
        while (const auto seed = next_seed()) {
            Tally tally;
            std::optional<Finding> finding = simulate(*seed, options_, tally);
            const std::lock_guard lock(mutex_);
            tally_.add(tally);
            if (!finding || finding_) continue;
            finding_ = std::move(finding);
            found_with_ = *seed;
        }
    }

    std::optional<std::uint64_t> next_seed() {
        const std::lock_guard lock(mutex_);
        if (finding_ || (tally_.calls >= enough_ && seconds() >= options_.minutes * 60)) return std::nullopt;
        return next_++;
    }

    double seconds() const { return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin_).count(); }

    const Options& options_;
    const std::chrono::steady_clock::time_point begin_ = std::chrono::steady_clock::now();
    const std::uint64_t first_;
    std::mutex mutex_;  ///< of all that follows
    std::uint64_t next_;
    long enough_;
    Tally tally_;
    std::optional<Finding> finding_;
    std::uint64_t found_with_ = 0;
};

}  // namespace
}  // namespace cuvexa::simulator

int main(int argc, char** argv) {
    using cuvexa::simulator::Options;
    Options options;
    CLI::App program("Random companies, served by the component and by its model, and compared after every call");
    program.add_option("--seed", options.seed, "Seed of the first company; the others follow")->capture_default_str();
    program.add_flag("--day", options.seed_of_the_day, "Seeds of today instead");
    program.add_option("--calls", options.calls, "Calls at least; without it and --minutes, 20000");
    program.add_option("--minutes", options.minutes, "Minutes at least");
    program.add_option("--steps", options.steps, "Steps of one company")->capture_default_str();
    program.add_option("--users", options.users, "Instances that work in turn")->capture_default_str();
    program.add_option("--threads", options.threads, "Threads, each with a component and companies of its own")
        ->capture_default_str();
    program.add_option("--faults", options.faults, "Calls out of a hundred with which something goes wrong")
        ->capture_default_str();
    program
        .add_option("--sessions", options.sessions,
                    "Sessions that work at once on one database, a file or the server that CUVEXA_TEST_DB names")
        ->check(CLI::Range(2, 8));
    program.add_flag("--atomic", options.atomic, "Each of their calls is a unit of work");
    program.add_flag("--statistics", options.statistics,
                     "Say at the end how often each member was called, and what it refused");
    program.add_option("--out", options.out, "Folder of what shows a difference")->capture_default_str();
    program.add_option("--replay", options.replay, "A script to play again, with the options that it was found with");
    CLI11_PARSE(program, argc, argv);
    try {
        if (!options.replay.empty()) return cuvexa::simulator::replay(options);
        if (options.sessions > 0) return cuvexa::simulator::simulate_crowds(options);
        return cuvexa::simulator::Run(options)();
    } catch (const std::exception& failure) {
        std::cerr << "cuvexa_simulate: " << failure.what() << "\n";
        return 2;
    }
}
