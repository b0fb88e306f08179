#include "support/places.h"

namespace cuvexa::tests {

std::string in_source(const std::string& path) {
    return CUVEXA_SOURCE_DIR "/" + path;
}

std::string in_build(const std::string& path) {
    return CUVEXA_BINARY_DIR "/" + path;
}

}  // namespace cuvexa::tests
