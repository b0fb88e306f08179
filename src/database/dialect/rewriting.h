// The rules by which the tree of a statement is rewritten, one to a function. For the use of `translate`; what stands
// in the tables of a dialect decides what most of them write.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "database/dialect/dialect.h"
#include "database/dialect/translation.h"
#include "database/dialect/tree.h"

namespace cuvexa::dialect {

// ---- Whole statements -----------------------------------------------------------------------------------------------

/// SELECT, INSERT, UPDATE, DELETE: the rules below in their order.
Nodes rewrite_statement(Nodes nodes, const Dialect& dialect);

/// CREATE, ALTER, DROP: column types and the words that only SQL Server knows.
Nodes rewrite_definition(Nodes nodes, const Dialect& dialect);

/// '' where a date is wanted, as the date that SQL Server takes it for.
void fill_empty_dates(Nodes& statement, const Date_columns& dates);

/// INSERT T …, DELETE T …: with the INTO and the FROM that SQL Server lets one leave out.
void complete_words(Nodes& statement);

/// SELECT TOP n … as SELECT … LIMIT n, in a query and in those that are joined to it.
void move_top(Nodes& query);

/// SELECT f('x') … GROUP BY f('x'): where a group is told by literals they stay in the statement, here and there.
void pin_groups(Nodes& query, const Dialect& dialect);

/// INSERT INTO T (…) (SELECT …) without the parentheses.
void open_select(Nodes& insert);

/// OUTPUT inserted.a in the middle as RETURNING a at the end.
void move_output(Nodes& statement);

/// UPDATE … SET … FROM … with the target joined, as the form in which FROM names the other tables only.
void take_target_out_of_from(Nodes& update);

/// UPDATE T SET a = (SELECT … FROM T x WHERE x.k = T.k): asked once for each T.k.
void remember_answers(Nodes& update, const Dialect& dialect);

// ---- What may stand anywhere in a statement -------------------------------------------------------------------------

/// Every rule below where it belongs, inner parts first. `nodes` is a statement or what stands between two parentheses.
Nodes rewrite_expressions(Nodes nodes, const Dialect& dialect);

/// The text of a rule with what stands for "$1", "$2", … in it.
Nodes filled(std::string_view text, const std::vector<Nodes>& arguments);

/// The call of a function, in the engine's words. The arguments are rewritten already.
Node rewrite_call(Node name, Node arguments, const Dialect& dialect);

/// CAST(value AS type) or CONVERT(type, value), to a type that the dialect knows.
struct Conversion {
    Nodes value;
    const Type_rule* type;
};

/// Nothing where the call is no conversion; a CONVERT with a style is none.
std::optional<Conversion> conversion(const Node& name, const Node& arguments, const Dialect& dialect);

/// The conversion in the engine's words; its value is rewritten already.
Node rewrite_conversion(Conversion conversion, const Dialect& dialect);

/// A value that is no column, so that it compares without regard to case where it is text.
Node without_case(Node value, const Dialect& dialect);

/// a + 'x' + b as a || 'x' || b; a sum without any text stays a sum.
void join_texts(Nodes& nodes, const Dialect& dialect);

/// 'a' = …: a literal on the left would compare with regard to case.
void collate_compared_literals(Nodes& nodes, const Dialect& dialect);

/// A sub-select that stands for one value, so that it is refused when it yields a second row. `aggregate` fails at it.
void require_single_value(Nodes& query, std::string_view aggregate);

}  // namespace cuvexa::dialect
