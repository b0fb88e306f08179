// A run that ended early may have left the suite registered; this one begins without it.
#include "windows/com_suite/registered.h"

namespace cuvexa::tests {
namespace {

class Clean_start : public ::testing::Environment {
    void SetUp() override { Library().call("DllUnregisterServer"); }
};

[[maybe_unused]] const auto* const clean_start = ::testing::AddGlobalTestEnvironment(new Clean_start);

}  // namespace
}  // namespace cuvexa::tests
