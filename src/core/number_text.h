// Numbers as text: in statements, in messages, and as line numbers.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace cuvexa {

/// Writes at most 15 significant digits of a finite number and gives the length. Throws `Automation_error` (6)
/// otherwise.
std::size_t write_number(double number, char (&buffer)[40]);

/// The number as a message shows it: as `number_text`, and "NaN", "Infinito" or "-Infinito" for what no statement may
/// carry.
std::string shown_number(double number);

/// Whether amounts that a statement added up come to zero. Their sum strays in the sixteenth digit (0.1, 0.2 and -0.3 give
/// 5.55E-17), so what is nearer to zero than half a millionth is zero. The one comparison that is not made on the numbers
/// as they are.
bool adds_up_to_zero(double total);

/// A line number as the documents write it: at least four digits, "0001".
std::string four_digits(std::int64_t number);

/// Raises a 16-bit line counter and gives the line number. Throws `Automation_error` (6) after 32767.
std::string next_line_number(std::int16_t& counter);

}  // namespace cuvexa
