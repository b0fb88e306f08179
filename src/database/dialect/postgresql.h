// PostgreSQL with the extension citext. Texts are of that type, which compares, groups and sorts without regard to case and still takes LIKE;
// a literal beside such a column takes its type, and what only yields text is cast to it.
#pragma once

#include <array>

#include "database/dialect/dialect.h"
#include "database/dialect/limits.h"

namespace cuvexa::dialect {

namespace postgresql_rules {

using enum Function_result;

inline constexpr std::array functions{
    Function_rule{"ISNULL", 2, "COALESCE($1,$2)", as_arguments},
    Function_rule{"COALESCE", -1, "", as_arguments},
    Function_rule{"NULLIF", 2, "", as_arguments},
    Function_rule{"MAX", 1, "", as_arguments},
    Function_rule{"MIN", 1, "", as_arguments},
    Function_rule{"GETDATE", 0, "LOCALTIMESTAMP(3)"},
    Function_rule{"YEAR", 1, "CAST(EXTRACT(YEAR FROM CAST($1 AS timestamp)) AS integer)"},
    Function_rule{"MONTH", 1, "CAST(EXTRACT(MONTH FROM CAST($1 AS timestamp)) AS integer)"},
    Function_rule{"DAY", 1, "CAST(EXTRACT(DAY FROM CAST($1 AS timestamp)) AS integer)"},
    Function_rule{"LEN", 1, "LENGTH(RTRIM($1))"},
    Function_rule{"CHARINDEX", 2, "STRPOS(LOWER($2),LOWER($1))"},
    Function_rule{"SUBSTRING", 3, "SUBSTR($1,$2,$3)", text},
    Function_rule{"LEFT", 2, "", text},
    Function_rule{"RIGHT", 2, "", text},
    Function_rule{"UPPER", 1, "", text},
    Function_rule{"LOWER", 1, "", text},
    Function_rule{"LTRIM", 1, "", text},
    Function_rule{"RTRIM", 1, "", text},
    Function_rule{"REPLACE", 3, "", text},
};

// What is not a number exceeds the infinite there.
inline constexpr Limit text_limit{"CHAR_LENGTH(RTRIM($1))<=$2", takes_characters};
inline constexpr Limit date_limit{"$1>='1753-01-01' AND $1<'10000-01-01'", takes_dates};
inline constexpr Limit number_limit{"ABS($1)<'Infinity'", takes_numbers};

inline constexpr std::array types{
    Type_rule{"varchar", "citext", "citext", true, text_limit},
    Type_rule{"nvarchar", "citext", "citext", true, text_limit},
    Type_rule{"char", "citext", "citext", true, text_limit},
    Type_rule{"nchar", "citext", "citext", true, text_limit},
    Type_rule{"text", "citext", "citext", true},
    Type_rule{"ntext", "citext", "citext", true},
    Type_rule{"datetime", "timestamp(3)", "timestamp(3)", false, date_limit},
    Type_rule{"datetime2", "timestamp", "timestamp"},
    Type_rule{"smalldatetime", "timestamp(0)", "timestamp(0)"},
    Type_rule{"date", "date", "date"},
    Type_rule{"float", "double precision", "double precision", false, number_limit},
    Type_rule{"real", "real", "real", false, number_limit},
    Type_rule{"decimal", "numeric", "numeric"},
    Type_rule{"numeric", "numeric", "numeric"},
    Type_rule{"money", "numeric(19,4)", "numeric(19,4)"},
    Type_rule{"smallmoney", "numeric(10,4)", "numeric(10,4)"},
    Type_rule{"bigint", "bigint", "bigint"},
    Type_rule{"int", "integer", "integer"},
    Type_rule{"smallint", "smallint", "smallint"},
    Type_rule{"tinyint", "smallint", "smallint"},
    Type_rule{"bit", "smallint", "smallint"},
};

// Transactions are units of work, which are serializable. A bare statement stays as the server has it.
inline constexpr std::array statements{
    Statement_rule{"BEGIN TRANSACTION", "BEGIN TRANSACTION ISOLATION LEVEL SERIALIZABLE"},
    Statement_rule{"BEGIN TRAN", "BEGIN TRANSACTION ISOLATION LEVEL SERIALIZABLE"},
    Statement_rule{"COMMIT TRAN", "COMMIT TRANSACTION"},
    Statement_rule{"ROLLBACK TRAN", "ROLLBACK TRANSACTION"},
};

}  // namespace postgresql_rules

inline constexpr Dialect postgresql{.functions = postgresql_rules::functions,
                                    .types = postgresql_rules::types,
                                    .statements = postgresql_rules::statements,
                                    .text_cast = "::citext",
                                    .folds_names = true,
                                    .knows_groups_by_literals = true};

}  // namespace cuvexa::dialect
