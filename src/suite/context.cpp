#include "suite/context.h"

#include <cmath>
#include <cstdio>

#include "core/case.h"
#include "core/codes.h"
#include "suite/folio_series.h"
#include "suite/schema_names.h"

namespace cuvexa::reference {
namespace {

constexpr std::size_t most_new_folios = 32;

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

std::string Context::look_up(std::string_view column, std::string_view key_column, std::string_view key,
                             std::string_view table, std::string_view condition) {
    require_in_schema(table, {column, key_column});
    std::string more;
    if (schema_has(table, "Es_Cve_Estado")) more += " AND Es_Cve_Estado <> 'BA'";
    if (!condition.empty()) more.append(" AND (").append(condition).append(")");
    const Rows rows =
        query("SELECT {} FROM {} WHERE {} = '{}'{}", Raw{column}, Raw{table}, Raw{key_column}, key, Raw{more});
    return rows.eof() ? std::string() : rows.text(column);
}

std::string Context::parameter(std::string_view name, std::string_view fallback) {
    const Rows rows = query("SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = '{}'", name);
    return rows.eof() ? std::string(fallback) : rows.text("Ps_Valor");
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
