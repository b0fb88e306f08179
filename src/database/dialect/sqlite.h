// SQLite, with the functions that the engine's room adds to it.
#pragma once

#include <array>

#include "database/dialect/dialect.h"
#include "database/dialect/limits.h"

namespace cuvexa::dialect {

namespace sqlite_rules {

using enum Function_result;

inline constexpr std::array functions{
    Function_rule{"ISNULL", 2, "IFNULL($1,$2)", as_arguments},
    Function_rule{"COALESCE", -1, "", as_arguments},
    Function_rule{"NULLIF", 2, "", as_arguments},
    Function_rule{"MAX", 1, "", as_arguments},
    Function_rule{"MIN", 1, "", as_arguments},
    Function_rule{"GETDATE", 0, "strftime('%Y-%m-%dT%H:%M:%S','now','localtime')"},
    Function_rule{"YEAR", 1, "cuvexa_year($1)"},
    Function_rule{"MONTH", 1, "cuvexa_month($1)"},
    Function_rule{"DAY", 1, "cuvexa_day($1)"},
    Function_rule{"LEN", 1, "LENGTH(RTRIM($1))"},
    Function_rule{"CHARINDEX", 2, "INSTR(UPPER($2),UPPER($1))"},
    Function_rule{"SUBSTRING", 3, "SUBSTR($1,$2,$3)", text},
    Function_rule{"LEFT", 2, "SUBSTR($1,1,$2)", text},
    Function_rule{"RIGHT", 2, "SUBSTR($1,-($2))", text},
    Function_rule{"UPPER", 1, "", text},
    Function_rule{"LOWER", 1, "", text},
    Function_rule{"LTRIM", 1, "", text},
    Function_rule{"RTRIM", 1, "", text},
    Function_rule{"REPLACE", 3, "", text},
};

inline constexpr std::string_view stored_text = "TEXT COLLATE NOCASE";

// Blanks at the end need no room. A date is a text of the forms that the component reads; '' is 1 January 1900. The number that no
// other exceeds, 9E999, is infinite.
inline constexpr Limit text_limit{"LENGTH(RTRIM($1))<=$2", takes_characters};
inline constexpr Limit date_limit{"$1 = '' OR CASE WHEN SUBSTR($1,3,1) = '/' THEN SUBSTR($1,7,4) ELSE $1 END >= '1753'",
                                  takes_dates};
inline constexpr Limit number_limit{"ABS($1)<9E999", takes_numbers};

inline constexpr std::array types{
    Type_rule{"varchar", stored_text, "TEXT", true, text_limit},
    Type_rule{"nvarchar", stored_text, "TEXT", true, text_limit},
    Type_rule{"char", stored_text, "TEXT", true, text_limit},
    Type_rule{"nchar", stored_text, "TEXT", true, text_limit},
    Type_rule{"text", stored_text, "TEXT", true},
    Type_rule{"ntext", stored_text, "TEXT", true},
    Type_rule{"datetime", "TEXT", "TEXT", false, date_limit},
    Type_rule{"datetime2", "TEXT", "TEXT"},
    Type_rule{"smalldatetime", "TEXT", "TEXT"},
    Type_rule{"date", "TEXT", "TEXT"},
    Type_rule{"float", "REAL", "REAL", false, number_limit},
    Type_rule{"real", "REAL", "REAL", false, number_limit},
    Type_rule{"decimal", "REAL", "REAL", false, number_limit},
    Type_rule{"numeric", "REAL", "REAL", false, number_limit},
    Type_rule{"money", "REAL", "REAL", false, number_limit},
    Type_rule{"smallmoney", "REAL", "REAL", false, number_limit},
    Type_rule{"bigint", "INTEGER", "INTEGER"},
    Type_rule{"int", "INTEGER", "INTEGER"},
    Type_rule{"smallint", "INTEGER", "INTEGER"},
    Type_rule{"tinyint", "INTEGER", "INTEGER"},
    Type_rule{"bit", "INTEGER", "INTEGER"},
};

// A transaction takes the write lock at once: waiting for it later could only end in a refusal.
inline constexpr std::array statements{
    Statement_rule{"BEGIN TRANSACTION", "BEGIN IMMEDIATE"},
    Statement_rule{"BEGIN TRAN", "BEGIN IMMEDIATE"},
    Statement_rule{"COMMIT TRAN", "COMMIT"},
    Statement_rule{"ROLLBACK TRAN", "ROLLBACK"},
};

}  // namespace sqlite_rules

inline constexpr Dialect sqlite{.functions = sqlite_rules::functions,
                                .types = sqlite_rules::types,
                                .statements = sqlite_rules::statements,
                                .text_collation = "NOCASE",
                                .single_value = "cuvexa_single",
                                .recall = "cuvexa_recall",
                                .remember = "cuvexa_remember"};

}  // namespace cuvexa::dialect
