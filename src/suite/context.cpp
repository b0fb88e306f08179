#include "suite/context.h"

#include <array>
#include <cmath>
#include <cstdio>

#include "core/case.h"

namespace cuvexa {
namespace {

/// The suite's own tables, which have no state column.
constexpr std::array<std::string_view, 9> stateless = {
    "Poliza_Detalle",    "Configuracion_Contable", "Documento_Contabilizado", "Parametro_Sistema", "Folio_Serie",
    "Periodo_Operativo", "Documento_Registrado",   "Servidor_Suite",          "Esquema_Suite"};

bool has_state(std::string_view table) {
    for (const auto name : stateless) {
        if (same_text(name, table)) return false;
    }
    return true;
}

struct Prefix {
    std::string_view code, prefix;
};

constexpr std::array<Prefix, 12> prefixes = {{{"RECIBO_PAGO", "RP"},
                                              {"CHEQUE", "CH"},
                                              {"BANCO_MOVIMIENTO", "BM"},
                                              {"DEPOSITO_PAGO", "DP"},
                                              {"SOLICITUD_CHEQUE", "SC"},
                                              {"GASTO_X_COMPROBAR", "GC"},
                                              {"ANTICIPO_CXC", "AN"},
                                              {"ANTICIPO_CXP", "AP"},
                                              {"CUENTA_X_COBRAR", "CXC"},
                                              {"CUENTA_X_PAGAR", "CXP"},
                                              {"GASTO_REGISTRO", "GR"},
                                              {"POLIZA", "PZ"}}};

std::string upper(std::string_view text) {
    std::string out(text);
    for (char& c : out) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return out;
}

std::string folio_text(const std::string& code, const std::string& branch, std::int64_t number) {
    std::string text = code;
    for (const Prefix& known : prefixes) {
        if (known.code == code) text = known.prefix;
    }
    if (!branch.empty()) text += '-' + branch;
    char digits[24];
    std::snprintf(digits, sizeof digits, "-%08lld", static_cast<long long>(number));
    return text + digits;
}

}  // namespace

std::string escaped(std::string_view text) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        out += c;
        if (c == '\'') out += c;
    }
    return out;
}

double cents(double amount) {
    return std::round(amount * 100) / 100;
}

std::string Suite_context::day_text(Date date) const {
    const Calendar day = calendar(date);
    const char* form = options_.date_style == Date_style::iso ? "%04d-%02d-%02d" : "%04d%02d%02d";
    char text[40];
    std::snprintf(text, sizeof text, form, day.year, day.month, day.day);
    return text;
}

std::string Suite_context::time_text(Date date) const {
    const Calendar t = calendar(date);
    const char separator = options_.date_style == Date_style::iso ? ' ' : 'T';
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02d%c%02d:%02d:%02d", t.year, t.month, t.day, separator, t.hour,
                  t.minute, t.second);
    return text;
}

std::string Suite_context::look_up(std::string_view column, std::string_view key_column, std::string_view key,
                                   std::string_view table, std::string_view condition) {
    std::string more;
    if (has_state(table)) more += " AND Es_Cve_Estado <> 'BA'";
    if (!condition.empty()) more.append(" AND (").append(condition).append(")");
    const Rows rows =
        query("SELECT {} FROM {} WHERE {} = '{}'{}", Raw{column}, Raw{table}, Raw{key_column}, key, Raw{more});
    return rows.eof() ? std::string() : rows.text(column);
}

std::string Suite_context::parameter(std::string_view name, std::string_view fallback) {
    const Rows rows = query("SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = '{}'", name);
    return rows.eof() ? std::string(fallback) : rows.text("Ps_Valor");
}

std::string Suite_context::next_folio(const std::string& branch, const std::string& document_code, std::string& why) {
    const std::string code = upper(document_code);
    // One statement takes the number, so that two sessions never get the same one. The second round is for a new
    // series.
    for (int round = 0; round < 2; ++round) {
        const Rows taken = query(
            "UPDATE Folio_Serie SET Fs_Ultimo = Fs_Ultimo + 1 OUTPUT inserted.Fs_Ultimo "
            "WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}' AND Fs_Abierta = 'SI'",
            code, branch);
        if (!taken.eof()) return folio_text(code, branch, static_cast<std::int64_t>(taken.number("Fs_Ultimo")));
        begin_series(code, branch);
    }
    why = filled("La serie de folios de {} de la sucursal: {}, está cerrada; ábrala antes de continuar", code, branch);
    return {};
}

void Suite_context::begin_series(std::string_view code, std::string_view branch) {
    try {
        execute(
            "INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo, Fs_Abierta) SELECT '{}', '{}', 0, 'SI' "
            "WHERE NOT EXISTS (SELECT Fs_Codigo FROM Folio_Serie WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}')",
            code, branch, code, branch);
    } catch (const Database_error&) {
        // A server may look in two sessions at once and find no series in either; then the other one has begun it.
        if (query("SELECT Fs_Codigo FROM Folio_Serie WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}'", code, branch)
                .eof())
            throw;
    }
}

std::string Suite_context::take_folio(const std::string& branch, const std::string& document_code) {
    std::string why;
    std::string folio = next_folio(branch, document_code, why);
    if (folio.empty()) throw Suite_refusal{why};
    return folio;
}

void Suite_context::register_document(std::string_view document_code, std::string_view folio) {
    const Rows again = query(
        "UPDATE Documento_Registrado SET Dr_Veces = Dr_Veces + 1, Fecha_Ult_Modif = '{}' OUTPUT inserted.Dr_Veces "
        "WHERE Dr_Documento = '{}' AND Dr_Codigo = '{}'",
        stamp(), folio, document_code);
    if (!again.eof()) return;
    execute(
        "INSERT INTO Documento_Registrado (Dr_Documento, Dr_Codigo, Dr_Veces, Oper_Alta, Fecha_Alta, Fecha_Ult_Modif) "
        "VALUES ('{}', '{}', 1, '{}', '{}', '{}')",
        folio, upper(document_code), user(), stamp(), stamp());
}

bool Suite_context::is_posted(std::string_view document_code, std::string_view folio) {
    return !query("SELECT Dt_Documento FROM Documento_Contabilizado WHERE Dt_Documento = '{}' AND Dt_Tabla = '{}'",
                  folio, document_code)
                .eof();
}

std::string Suite_context::period_state(Date date, std::string_view module) {
    const Calendar day = calendar(date);
    const Rows rows =
        query("SELECT Po_Estado FROM Periodo_Operativo WHERE Po_Modulo = '{}' AND Po_Ejercicio = {} AND Po_Mes = {}",
              module, day.year, day.month);
    return rows.eof() ? std::string() : rows.text("Po_Estado");
}

bool Suite_context::is_period_open(Date date, std::string_view module) {
    return period_state(date, module) == "AB";
}

bool Suite_context::is_period_closed(Date date, std::string_view module) {
    return period_state(date, module) == "CE";
}

}  // namespace cuvexa
