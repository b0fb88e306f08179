// What a line costs in documents of ten lines and of ten thousand: the counter `us_per_line` must not grow with them.
#include <benchmark/benchmark.h>

#include <exception>

#include "company.h"
#include "long_documents.h"

namespace cuvexa::bench {
namespace {

/// Each run on a database of its own.
void measure_lines(benchmark::State& state, const Long_document& document) {
    const int lines = static_cast<int>(state.range(0));
    const Scratch_folder folder;
    const auto file = folder.file("lines.db");
    write_database(file, 1'000);
    try {
        {
            Sqlite_connection connection(file.string(), {.synchronous = Synchronous::off});
            for (const std::string& preparation : preparations()) connection.execute(preparation);
        }
        Company company(file, Synchronous::off);
        const std::string folio = document.given(company.treasury, lines);
        company.connection.take();
        for (auto _ : state) require(document.call(company.treasury, folio, lines), company.treasury);
    } catch (const std::exception& failure) {
        state.SkipWithError(failure.what());
    }
    state.counters["us_per_line"] =
        benchmark::Counter(lines * 1e-6, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

const bool registered = [] {
    for (const Long_document& document : long_documents()) {
        auto* const benchmark = benchmark::RegisterBenchmark(
            ("lines/" + document.name).c_str(), [&](benchmark::State& state) { measure_lines(state, document); });
        benchmark->ArgName("lines")->RangeMultiplier(10)->Range(10, 10'000)->Iterations(1);
        benchmark->Unit(benchmark::kMillisecond);
    }
    return true;
}();

}  // namespace
}  // namespace cuvexa::bench
