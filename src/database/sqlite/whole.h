// Whether a file holds all of its database.
#pragma once

#include <string>

namespace cuvexa::sqlite {

/// Moves what the log beside the file holds into it, reads all of it and compares. Throws `Database_error` when that
/// fails or something is damaged. The file must not be open anywhere.
void require_whole(const std::string& file);

}  // namespace cuvexa::sqlite
