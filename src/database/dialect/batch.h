// A server that takes several statements in one text needs no `;` between them, so the end of one must be found by its
// words. What this refuses, such a server would run.
#pragma once

#include <string_view>
#include <vector>

#include "database/dialect/lexer.h"

namespace cuvexa::dialect {

/// Throws `Database_error`, in the operator's language, when a further statement begins in `text` outside parentheses.
/// `tokens` are those of `tokenize`.
void refuse_batch(std::string_view text, const std::vector<Token>& tokens);

}  // namespace cuvexa::dialect
