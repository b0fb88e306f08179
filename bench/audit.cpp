// How long the audit of a whole database takes when there is nothing to find.
#include "cuvexa/suite/audit.h"

#include <benchmark/benchmark.h>

#include "company.h"

namespace cuvexa::bench {
namespace {

/// 100,000 receipts, and their deposits, checks and movements. The counter `findings` must be 0.
void audit_of_100_000_documents(benchmark::State& state) {
    const Scratch_folder folder;
    const auto file = folder.file("audited.db");
    write_database(file, 100'000);
    Sqlite_connection connection(file.string(), {});
    std::size_t findings = 0;
    for (auto _ : state) findings += audit(connection).size();
    state.counters["findings"] = static_cast<double>(findings);
    if (findings != 0) state.SkipWithError("the stored documents do not add up");
}
BENCHMARK(audit_of_100_000_documents)->Unit(benchmark::kSecond)->Iterations(1);

}  // namespace
}  // namespace cuvexa::bench
