// What an operation costs per line does not grow with the lines. Counted are the steps of the engine, which are the same on every
// machine; bench/lines.cpp measures the time of the same operations.
#include <sqlite3.h>

#include <ostream>

#include "bench/long_documents.h"
#include "support/company.h"

namespace cuvexa::bench {

inline void PrintTo(const Long_document& document, std::ostream* out) {
    *out << document.name;
}

}  // namespace cuvexa::bench

namespace cuvexa::tests {
namespace {

using bench::Long_document;

/// Adds up the steps of every statement that ends.
int add_steps(unsigned, void* steps, void* statement, void*) {
    *static_cast<std::int64_t*>(steps) +=
        sqlite3_stmt_status(static_cast<sqlite3_stmt*>(statement), SQLITE_STMTSTATUS_VM_STEP, 1);
    return 0;
}

class Long_documents : public ::testing::TestWithParam<Long_document> {
protected:
    static double steps_per_line(int lines) {
        Company company;
        for (const std::string& preparation : bench::preparations()) company.sql(preparation);
        company.restart();
        const std::string document = GetParam().given(company.treasury(), lines);
        std::int64_t steps = 0;
        sqlite3_trace_v2(company.embedded(), SQLITE_TRACE_PROFILE, add_steps, &steps);
        EXPECT_TRUE(GetParam().call(company.treasury(), document, lines)) << company.treasury().Error();
        sqlite3_trace_v2(company.embedded(), 0, nullptr, nullptr);
        return static_cast<double>(steps) / lines;
    }
};

TEST_P(Long_documents, cost_no_more_per_line_than_short_ones) {
    const double of_few = steps_per_line(30), of_many = steps_per_line(300);
    EXPECT_GT(of_many, 1);
    if (GetParam().groups) {
        EXPECT_GT(of_many, 1.25 * of_few) << "it is no exception any more, here and in docs/performance.md";
    } else {
        EXPECT_LE(of_many, 1.25 * of_few) << "the work grows with the square of the lines";
    }
}

INSTANTIATE_TEST_SUITE_P(Of, Long_documents, ::testing::ValuesIn(bench::long_documents()),
                         [](const auto& info) { return info.param.name; });

}  // namespace
}  // namespace cuvexa::tests
