// A value of a database column or of a system parameter, before its reader says what it should be.
#pragma once

#include <cstdint>
#include <string>
#include <variant>

#include "cuvexa/date.h"

namespace cuvexa {

/// Null, Boolean, whole number, double, text or date.
using Value = std::variant<std::monostate, bool, std::int64_t, double, std::string, Date>;

/// True when the value is a database NULL (or was never set).
inline bool is_null(const Value& value) noexcept {
    return std::holds_alternative<std::monostate>(value);
}

/// The value as text. A NULL is the empty text; numbers take the form of `number_text`; dates their ISO form.
std::string to_text(const Value& value);

/// The value as a number; text is read with a decimal point. Throws `Automation_error`: 94 for NULL, 13 for text that
/// is not a number.
double to_number(const Value& value);

/// The value as a 16-bit whole number, rounded half to even. Throws as `to_number`, and 6 when out of range.
std::int16_t to_integer(const Value& value);

/// The value as a Boolean: any number but 0, and the texts "True" and "Verdadero" whatever their case, are True; "False",
/// "Falso" and the empty text are False. Throws `Automation_error`: 94 for NULL, 13 for any other text.
bool to_boolean(const Value& value);

/// The value as a date; text as `parse_date` reads it. Throws `Automation_error`: 94 for NULL, 13 for other text.
Date to_date(const Value& value);

/// The ordinary number-to-text conversion: at most 15 significant digits and a decimal point, whatever the locale; an
/// exponent as in "1E+15". Throws `Automation_error` (6) for NaN and the infinities, which no statement may carry.
std::string number_text(double number);

}  // namespace cuvexa
