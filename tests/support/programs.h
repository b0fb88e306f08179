// Programs that a test asks and that a machine may lack.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace cuvexa::tests {

inline bool is_on_path(const std::string& program) {
    return std::system(("command -v " + program + " >/dev/null 2>&1").c_str()) == 0;
}

/// Whether whoever runs the tests has installed all that they ask for: one that leaves itself out is a failure.
inline bool must_run() {
    return std::getenv("CUVEXA_TEST_MUST_RUN") != nullptr;
}

}  // namespace cuvexa::tests

/// Leaves the test out, visibly, on a machine without the program; while CUVEXA_TEST_MUST_RUN is set, fails.
#define CUVEXA_NEEDS_PROGRAM(program)                                                    \
    do {                                                                                 \
        if (!::cuvexa::tests::is_on_path(program)) {                                     \
            if (::cuvexa::tests::must_run()) FAIL() << (program) << " is not installed"; \
            GTEST_SKIP() << (program) << " is not installed";                            \
        }                                                                                \
    } while (false)
