// What the words and signs of a statement are, as far as the rules must know.
#pragma once

#include "database/dialect/tree.h"

namespace cuvexa::dialect {

/// SELECT … or WITH …
bool starts_query(const Nodes& nodes);

/// A word after which a name does not go on and a group is no function call.
bool is_keyword(const Node& node);

/// +, =, a comma, a dot: whatever is neither name nor value.
bool is_sign(const Node& node);

/// =, <>, !=, <, >, <=, >=
bool is_comparison_sign(const Node& node);

/// A comparison sign, IN, NOT, LIKE, BETWEEN.
bool is_comparison(const Node& node);

/// What stands between one expression and the next.
bool separates(const Node& node);

/// The clause in which a node stands, as far as it decides what a group or a number is.
enum class Clause { other, from, into, order };

/// The clause in which a node and those after it stand; those before it stand in `clause`.
Clause clause_at(const Node& node, Clause clause);

}  // namespace cuvexa::dialect
