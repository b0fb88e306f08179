// What the component costs beside the bare replay of its own statement texts.
//
// Each benchmark runs chunks of one flow on one database, and after every chunk replays on a copy of that database the
// texts that reached the engine, one prepare, step and finalize each, with the same settings. Counters: operations per
// second, statements per operation, and `ratio` = time of the component, composing and translating included, over time
// of the replay. Arguments: stored receipts, and 1 for `synchronous` full, 0 for off.
#include <benchmark/benchmark.h>

#include <chrono>
#include <fstream>
#include <map>

#include "company.h"
#include "documents.h"

namespace cuvexa::bench {
namespace {

using Clock = std::chrono::steady_clock;

double seconds_since(Clock::time_point start) {
    return std::chrono::duration<double>(Clock::now() - start).count();
}

/// Once; nobody else is there.
Have_done once(const Tesoreria& treasury) {
    return [&treasury](const std::function<bool()>& call) { require(call(), treasury); };
}

std::string ten_receipts(Tesoreria& treasury) {
    std::string folios;
    for (int i = 0; i < 10; ++i) {
        folios += (i == 0 ? "" : ",") + receipt_of_two_lines(treasury, {}, once(treasury));
    }
    return folios;
}

/// Two copies of the database with that many stored receipts; the original is written once.
struct Copies {
    explicit Copies(std::int64_t receipts) {
        static Scratch_folder folder;
        static std::map<std::int64_t, std::filesystem::path> originals;
        auto& original = originals[receipts];
        if (original.empty()) {
            original = folder.file("stored-" + std::to_string(receipts) + ".db");
            write_database(original, receipts);
        }
        for (const auto& [copy, name] : {std::pair{&component, "component.db"}, std::pair{&bare, "bare.db"}}) {
            *copy = folder.file(name);
            for (const char* suffix : {"", "-wal", "-shm"}) std::filesystem::remove(copy->string() + suffix);
            std::filesystem::copy_file(original, *copy);
        }
    }
    std::filesystem::path component, bare;
};

/// `prepare` runs untimed on both sides before each chunk; `run` is the measured flow, `operations` times per chunk.
template <class Prepare, class Run>
void measure(benchmark::State& state, int operations, Prepare prepare, Run run) {
    const auto synchronous = state.range(1) != 0 ? Synchronous::full : Synchronous::off;
    const Copies copies(state.range(0));
    Company company(copies.component, synchronous);
    Bare_engine bare(copies.bare, synchronous);
    const auto texts_for_engine = [&] {
        std::vector<std::string> texts = company.connection.take();
        for (std::string& text : texts) text = company.engine.translate(text);
        return texts;
    };

    double component_s = 0, bare_s = 0;
    std::size_t statements = 0, done = 0;
    for (auto _ : state) {
        const auto prepared = prepare(company.treasury);
        bare.run(texts_for_engine());

        const auto start = Clock::now();
        for (int i = 0; i < operations; ++i) run(company.treasury, prepared);
        const double chunk_s = seconds_since(start);

        const std::vector<std::string> texts = texts_for_engine();
        const auto bare_start = Clock::now();
        bare.run(texts);
        bare_s += seconds_since(bare_start);

        component_s += chunk_s;
        statements += texts.size();
        done += static_cast<std::size_t>(operations);
        state.SetIterationTime(chunk_s);
    }
    state.counters["per_second"] = static_cast<double>(done) / component_s;
    state.counters["statements"] = static_cast<double>(statements) / static_cast<double>(done);
    state.counters["us_per_op"] = component_s / static_cast<double>(done) * 1e6;
    state.counters["ratio"] = component_s / bare_s;
}

constexpr auto nothing = [](Tesoreria&) { return 0; };

void receipts_of_two_lines_captured_and_closed(benchmark::State& state) {
    measure(state, 20, nothing, [](Tesoreria& treasury, int) { receipt_of_two_lines(treasury, {}, once(treasury)); });
}

void deposits_of_ten_receipts(benchmark::State& state) {
    measure(state, 1, ten_receipts,
            [](Tesoreria& treasury, const std::string& receipts) { deposit(treasury, {}, receipts, once(treasury)); });
}

void checks_of_five_lines_created_and_applied(benchmark::State& state) {
    measure(state, 10, nothing, [](Tesoreria& treasury, int) { applied_check(treasury, {}, 5, once(treasury)); });
}

void settings(benchmark::internal::Benchmark* benchmark) {
    benchmark->UseManualTime()->Unit(benchmark::kMillisecond)->ArgNames({"stored", "full"});
    for (const int full : {1, 0}) {
        for (const int stored : {1'000, 1'000'000}) benchmark->Args({stored, full});
    }
}

BENCHMARK(receipts_of_two_lines_captured_and_closed)->Apply(settings)->Iterations(50);
BENCHMARK(deposits_of_ten_receipts)->Apply(settings)->Iterations(50);
BENCHMARK(checks_of_five_lines_created_and_applied)->Apply(settings)->Iterations(50);

/// Kilobytes that the program holds in memory now.
double resident_kb() {
    std::ifstream status("/proc/self/statm");
    long total = 0, resident = 0;
    status >> total >> resident;
    return static_cast<double>(resident) * 4;
}

/// A million calls, half of them refused, every one with other values: what the session holds must not grow.
void memory_over_a_million_calls(benchmark::State& state) {
    const Copies copies(1'000);
    Company company(copies.component, Synchronous::off);
    double before = 0;
    for (auto _ : state) {
        for (int i = 0; i < 1'000'000; ++i) {
            if (i == 10'000) before = resident_kb();
            if (i % 2 == 0) {
                company.treasury.GetSaldo("SRR-MXN");
            } else {
                company.treasury.Cancelar_Deposito("D" + std::to_string(i));
            }
            company.connection.take();
        }
    }
    state.counters["grown_kb"] = resident_kb() - before;
}
BENCHMARK(memory_over_a_million_calls)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace
}  // namespace cuvexa::bench

BENCHMARK_MAIN();
