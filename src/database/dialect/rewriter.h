// The rewriting of a statement's tree. For the use of `translate`.
#pragma once

#include "database/dialect/dialect.h"
#include "database/dialect/tree.h"

namespace cuvexa {

/// SELECT, INSERT, UPDATE, DELETE.
Nodes rewrite_statement(Nodes nodes, const Dialect& dialect);

/// CREATE, ALTER, DROP.
Nodes rewrite_definition(Nodes nodes, const Dialect& dialect);

/// What stands inside a query or an expression: functions, joined texts, collations, sub-selects. `nodes` is a
/// statement or what stands between two parentheses.
Nodes rewrite_expressions(Nodes nodes, const Dialect& dialect);

/// What concerns one query as a whole, its expressions being rewritten: TOP.
void rewrite_query(Nodes& query);

/// '' where a date is wanted, as the date that SQL Server takes it for.
void fill_empty_dates(Nodes& statement, const Date_columns& dates);

/// UPDATE … SET … FROM … with the target joined, as the form in which FROM names the other tables only.
void rewrite_update(Nodes& nodes);

}  // namespace cuvexa
