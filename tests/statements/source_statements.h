// The statements that stand in the sources.
#pragma once

#include <string>
#include <vector>

namespace cuvexa::tests {

struct Source_statement {
    std::string file;  ///< from the root of the tree
    std::string text;  ///< as it is composed, with its holes
};

/// The text literals of a C++ source, those that stand side by side as one.
std::vector<std::string> literals_of(const std::string& source);

/// The literals of a room that begin a statement.
std::vector<Source_statement> source_statements(const std::string& room);

/// Whether the statement came of that literal: all between its holes is there, in this order, from the first word on.
bool comes_of(const std::string& statement, const std::string& literal);

}  // namespace cuvexa::tests
