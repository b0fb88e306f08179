#include "database/sqlite/functions.h"

#include <sqlite3.h>

#include <string>
#include <string_view>

#include "cuvexa/date.h"
#include "cuvexa/errors.h"

namespace cuvexa::sqlite {
namespace {

struct Single {
    sqlite3_value* value;
};

void single_step(sqlite3_context* context, int, sqlite3_value** arguments) {
    auto* single = static_cast<Single*>(sqlite3_aggregate_context(context, sizeof(Single)));
    if (single == nullptr) return sqlite3_result_error_nomem(context);
    if (single->value != nullptr) {
        return sqlite3_result_error(context, "La subconsulta devolvió más de un valor donde se espera uno solo", -1);
    }
    single->value = sqlite3_value_dup(arguments[0]);
    if (single->value == nullptr) sqlite3_result_error_nomem(context);
}

void single_final(sqlite3_context* context) {
    auto* single = static_cast<Single*>(sqlite3_aggregate_context(context, 0));
    if (single == nullptr || single->value == nullptr) return sqlite3_result_null(context);
    sqlite3_result_value(context, single->value);
    sqlite3_value_free(single->value);
    single->value = nullptr;
}

// The empty text is 1 January 1900, as it is for SQL Server. The engine is C: nothing may be thrown through it.
template <int Calendar::*part>
void date_part(sqlite3_context* context, int, sqlite3_value** arguments) noexcept {
    if (sqlite3_value_type(arguments[0]) == SQLITE_NULL) return sqlite3_result_null(context);
    const std::string_view text = text_of(arguments[0]);
    try {
        const auto date = parse_date(text.empty() ? std::string_view("1900-01-01") : text);
        if (date) return sqlite3_result_int(context, calendar(*date).*part);
    } catch (...) {
        // Falls through to the same refusal as a text that is no date.
    }
    sqlite3_result_error(context, "Error al convertir un texto en fecha", -1);
}

}  // namespace

std::string_view text_of(sqlite3_value* value) {
    const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
    return text == nullptr ? std::string_view{}
                           : std::string_view(text, static_cast<std::size_t>(sqlite3_value_bytes(value)));
}

void install_functions(sqlite3* database) {
    constexpr int flags = SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS;
    const auto scalar = [&](const char* name, auto function) {
        return sqlite3_create_function_v2(database, name, 1, flags, nullptr, function, nullptr, nullptr, nullptr);
    };
    const int failures = scalar("cuvexa_year", date_part<&Calendar::year>) |
                         scalar("cuvexa_month", date_part<&Calendar::month>) |
                         scalar("cuvexa_day", date_part<&Calendar::day>) |
                         sqlite3_create_function_v2(database, "cuvexa_single", 1, flags, nullptr, nullptr, single_step,
                                                    single_final, nullptr);
    if (failures != SQLITE_OK) throw Database_error(sqlite3_errmsg(database));
}

}  // namespace cuvexa::sqlite
