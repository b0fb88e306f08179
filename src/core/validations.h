// Validations that several operations share, worded as each of them words its refusals.
#pragma once

#include <string>

#include "core/operation.h"

namespace cuvexa {

/// The server that owns a branch; empty for a branch without server.
std::string branch_server_id(DataServices& data, const std::string& branch);

/// Refuses when this installation is not the server that owns the branch (or, for a branch without server, not the
/// central).
void check_central_server(Operation& op, const std::string& branch_server_id, Wording wording);

/// While "GEN_FORZAR_TIEMPO_REAL" is on, refuses a document that is not of the server's day; the time of day is
/// ignored.
void check_same_day(Operation& op, Date document_date, Wording wording);

/// The same of the date in a row, which is read only then.
void check_same_day(Operation& op, const Rows& row, std::string_view date_column, Wording wording);

/// While the parameter "GEN_VALIDAR_PERIODO_OPERATIVO" is on, refuses a date outside an open period of "FINANZAS".
void check_operating_period(Operation& op, Date document_date, Wording wording);

/// The same of the date in a row, which is read only then.
void check_operating_period(Operation& op, const Rows& row, std::string_view date_column, Wording wording);

/// Refuses a currency that does not exist or is inactive.
void check_currency(Operation& op, const std::string& currency, Wording wording);

/// Refuses a check type that does not exist or is inactive.
void check_check_type(Operation& op, const std::string& check_type, Wording wording);

/// Whether the check type of a supplier advance ("05") asks for the supplier: a check's does, a request's does not.
enum class Advance { names_supplier, names_none };

/// Refuses a beneficiary who is not active in the catalog that the check type asks for; "0000" is no type and asks for
/// none.
void check_beneficiary(Operation& op, const std::string& check_type, const std::string& key, Advance advance,
                       Wording wording);

/// Refuses an exchange rate that is not valid.
void check_rate(Operation& op, double rate, Wording wording);

/// Whether an exchange rate can be used: greater than 0 (and a number).
bool is_valid_rate(double rate);

}  // namespace cuvexa
