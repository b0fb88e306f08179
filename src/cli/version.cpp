#include "cli/version.h"

namespace cuvexa::cli {

std::string version_text() {
    return "cuvexa " CUVEXA_VERSION "\ncommit: " CUVEXA_COMMIT "\nengines: " CUVEXA_ENGINES;
}

}  // namespace cuvexa::cli
