#include "suite/context.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "core/case.h"
#include "core/codes.h"
#include "suite/folio_series.h"
#include "suite/kept_catalogs.h"
#include "suite/kept_settings.h"
#include "suite/schema_names.h"

namespace cuvexa::reference {
namespace {

constexpr std::size_t most_new_folios = 32;

/// Stands before the first of settings that were read together: one that is absent is not looked for again.
constexpr std::string_view was_read = "*";

std::string column_of(const Setting& setting) {
    if (setting.kind == Setting::parameter) {
        return sql("(SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = '{}') AS {}", setting.name,
                   Raw{setting.name});
    }
    if (setting.kind == Setting::posting) {
        return sql("(SELECT Ct_Automatica FROM Configuracion_Contable WHERE Ct_Codigo = '{}') AS {}", setting.name,
                   Raw{setting.name});
    }
    return sql("(SELECT {} FROM Servidor_Suite WHERE Sv_Llave = 1) AS {}", Raw{setting.name}, Raw{setting.name});
}

/// Each setting as a column of its name, empty where it is absent.
std::string columns_of(std::span<const Setting> settings) {
    std::string columns;
    for (const Setting& each : settings) columns.append(columns.empty() ? "" : ", ").append(column_of(each));
    return columns;
}

}  // namespace

double cents(double amount) {
    return std::round(amount * 100) / 100;
}

std::string Context::day_text(Date date) const {
    const Calendar day = calendar(date);
    const char* form = options_.date_style == Date_style::iso ? "%04d-%02d-%02d" : "%04d%02d%02d";
    char text[40];
    std::snprintf(text, sizeof text, form, day.year, day.month, day.day);
    return text;
}

std::string Context::time_text(Date date) const {
    const Calendar t = calendar(date);
    const char separator = options_.date_style == Date_style::iso ? ' ' : 'T';
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d%c%02d:%02d:%02d", t.year, t.month, t.day, separator, t.hour,
                  t.minute, t.second);
    return text;
}

Date Context::now() {
    if (options_.server_date) return *options_.server_date;
    return clock_.now([this] { return query("SELECT GETDATE() AS Ahora").date("Ahora"); });
}

Date Context::time_of(const Rows& row) {
    if (options_.server_date) return *options_.server_date;
    const Date now = row.date("Ahora");
    clock_.told(now);
    return now;
}

std::string Context::year_in_sql() const {
    return options_.server_date ? std::to_string(calendar(*options_.server_date).year) : "YEAR(GETDATE())";
}

std::string Context::month_in_sql() const {
    return options_.server_date ? std::to_string(calendar(*options_.server_date).month) : "MONTH(GETDATE())";
}

// ---- Settings -------------------------------------------------------------------------------------------------------

/// Reads what is asked for in the same operations by one statement, with the time.
void Context::read_with(const Setting& asked) {
    struct Together {
        std::span<const Setting> settings;
        std::string columns;
    };
    static const std::array all{
        Together{start_settings, columns_of(start_settings)}, Together{capture_settings, columns_of(capture_settings)},
        Together{deposit_settings, columns_of(deposit_settings)}, Together{check_settings, columns_of(check_settings)}};
    for (const Together& together : all) {
        if (!is_due(together.settings, asked)) continue;
        return keep(together.settings, query("SELECT {}{}", Raw{together.columns}, Raw{time_column()}));
    }
}

void Context::keep(std::span<const Setting> settings, const Rows& row) {
    time_of(row);
    for (const Setting& each : settings) {
        const Value value = row.value(each.name);
        if (!is_null(value)) memory_.keep({each.kind, each.name}, to_text(value));
    }
    memory_.keep({was_read, settings.front().name}, {});
}

/// Whether it is one of them, and they were not read.
bool Context::is_due(std::span<const Setting> settings, const Setting& asked) const {
    return lists(settings, asked) && memory_.answer({was_read, settings.front().name}) == nullptr;
}

/// None outside an operation, and for what is not among those that are read together, or absent.
const std::string* Context::setting(const Setting& asked) {
    if (!memory_.lasts()) return nullptr;
    if (const std::string* const known = memory_.answer({asked.kind, asked.name})) return known;
    read_with(asked);
    return memory_.answer({asked.kind, asked.name});
}

std::string Context::parameter(std::string_view name, std::string_view fallback) {
    if (const std::string* const value = setting({Setting::parameter, name})) return *value;
    const Rows rows = query("SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = '{}'", name);
    return rows.eof() ? std::string(fallback) : rows.text("Ps_Valor");
}

bool Context::posts_automatically(std::string_view document_code) {
    if (const std::string* const value = setting({Setting::posting, document_code})) return *value == "SI";
    const Rows rows = query("SELECT Ct_Automatica FROM Configuracion_Contable WHERE Ct_Codigo = '{}'", document_code);
    return !rows.eof() && rows.text("Ct_Automatica") == "SI";
}

std::string Context::of_this_server(std::string_view column) {
    if (const std::string* const value = setting({Setting::server, column})) return *value;
    const Rows rows = query("SELECT {} FROM Servidor_Suite WHERE Sv_Llave = 1", Raw{column});
    return rows.eof() ? std::string() : rows.text(column);
}

// ---- Catalogs -------------------------------------------------------------------------------------------------------

std::string Context::look_up(std::string_view column, std::string_view key_column, std::string_view key,
                             std::string_view table, std::string_view condition) {
    require_in_schema(table, {column, key_column});
    const Kept_catalog* const catalog = condition.empty() && memory_.lasts() ? kept_catalog(table, column) : nullptr;
    if (catalog != nullptr) return look_up_in(*catalog, column, key_column, key);
    const Rows rows = active_row(column, key_column, key, table, condition);
    return rows.eof() ? std::string() : rows.text(column);
}

/// Reads what operations ask of the row, one after the other, at once.
std::string Context::look_up_in(const Kept_catalog& catalog, std::string_view column, std::string_view key_column,
                                std::string_view key) {
    const std::string by = upper_ascii(key_column), asked = upper_ascii(column);
    if (const std::string* const known = memory_.answer({catalog.table, by, key, asked})) return *known;
    const Rows rows = active_row(catalog.list, key_column, key, catalog.table, {});
    const auto text = [&](std::string_view of) { return rows.eof() ? std::string() : rows.text(of); };
    for (const std::string_view each : catalog.columns) {
        if (!each.empty()) memory_.keep({catalog.table, by, key, upper_ascii(each)}, text(each));
    }
    return text(column);
}

Rows Context::active_row(std::string_view columns, std::string_view key_column, std::string_view key,
                         std::string_view table, std::string_view condition) {
    std::string more;
    if (schema_has(table, "Es_Cve_Estado")) more += " AND Es_Cve_Estado <> 'BA'";
    if (!condition.empty()) more.append(" AND (").append(condition).append(")");
    return query("SELECT {} FROM {} WHERE {} = '{}'{}", Raw{columns}, Raw{table}, Raw{key_column}, key, Raw{more});
}

std::string Context::next_folio(const std::string& branch, const std::string& document_code, std::string& why) {
    std::string folio = reference::next_folio(own_, branch, document_code, why);
    new_folios_.push_back(folio);
    if (new_folios_.size() > most_new_folios) new_folios_.pop_front();
    return folio;
}

std::string Context::take_folio(const std::string& branch, const std::string& document_code) {
    std::string why;
    std::string folio = next_folio(branch, document_code, why);
    refuse_if(folio.empty(), "{}", why);
    return folio;
}

void Context::register_document(std::string_view document_code, std::string_view folio) {
    const std::string now = stamp();
    // One statement, when the guess is right. Another session may register the document in between.
    if (std::erase(new_folios_, folio) != 0 && register_first(document_code, folio, now)) return;
    if (register_again(document_code, folio, now)) return;
    if (!register_first(document_code, folio, now)) register_again(document_code, folio, now);
}

bool Context::register_first(std::string_view document_code, std::string_view folio, std::string_view now) {
    return !query(
                "INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, "
                "Fecha_Ult_Modif) OUTPUT inserted.Dr_Veces SELECT '{}', '{}', 1, '{}', '{}', '{}' WHERE NOT EXISTS "
                "(SELECT Dr_Veces FROM Documento_Registrado WHERE Dr_Documento = '{}' AND Dr_Codigo = '{}')",
                folio, upper_ascii(document_code), user(), now, now, folio, document_code)
                .eof();
}

bool Context::register_again(std::string_view document_code, std::string_view folio, std::string_view now) {
    return !query(
                "UPDATE Documento_Registrado SET Dr_Veces = Dr_Veces + 1, Fecha_Ult_Modif = '{}' OUTPUT "
                "inserted.Dr_Veces WHERE Dr_Documento = '{}' AND Dr_Codigo = '{}'",
                now, folio, document_code)
                .eof();
}

bool Context::is_posted(std::string_view document_code, std::string_view folio) {
    return !query("SELECT Dt_Documento FROM Documento_Contabilizado WHERE Dt_Documento = '{}' AND Dt_Tabla = '{}'",
                  folio, document_code)
                .eof();
}

std::string Context::period_state(Date date, std::string_view module) {
    const Calendar day = calendar(date);
    const Rows rows =
        query("SELECT Po_Estado FROM Periodo_Operativo WHERE Po_Modulo = '{}' AND Po_Ejercicio = {} AND Po_Mes = {}",
              module, day.year, day.month);
    return rows.eof() ? std::string() : rows.text("Po_Estado");
}

bool Context::is_period_open(Date date, std::string_view module) {
    return period_state(date, module) == period::open;
}

bool Context::is_period_closed(Date date, std::string_view module) {
    return period_state(date, module) == period::closed;
}

}  // namespace cuvexa::reference
