#include "cuvexa/suite/administration.h"

#include "cuvexa/errors.h"
#include "suite/context.h"

namespace cuvexa {
namespace {

template <class... Arguments>
Rows run(Connection& connection, Holes<std::type_identity_t<Arguments>...> statement, const Arguments&... arguments) {
    return Rows(connection.execute(sql(statement, arguments...)));
}

const char* yes_no(bool yes) {
    return yes ? "SI" : "NO";
}

std::string stamp() {
    const Calendar t = calendar(local_now());
    return iso_date(make_date(t.year, t.month, t.day, t.hour, t.minute, t.second));
}

std::string upper(std::string text) {
    for (char& c : text) {
        if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    }
    return text;
}

Folio_series series_row(const Rows& rows) {
    return {rows.text("Fs_Codigo"), rows.text("Fs_Sucursal"), static_cast<int>(rows.number("Fs_Ultimo")),
            rows.text("Fs_Abierta") == "SI"};
}

/// A row of the series, so that it can be changed.
void begin_series(Connection& connection, const std::string& code, const std::string& branch) {
    run(connection,
        "INSERT INTO Folio_Serie (Fs_Codigo, Fs_Sucursal, Fs_Ultimo, Fs_Abierta) SELECT '{}', '{}', 0, 'SI' "
        "WHERE NOT EXISTS (SELECT Fs_Codigo FROM Folio_Serie WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}')",
        upper(code), branch, code, branch);
}

/// The version of the schema, or nothing when the table that tells it is not there.
std::optional<int> version(Connection& connection) {
    try {
        const Rows rows = run(connection, "SELECT Eq_Version FROM Esquema_Suite WHERE Eq_Nombre = 'CUVEXA'");
        if (rows.eof()) return std::nullopt;
        return static_cast<int>(rows.number("Eq_Version"));
    } catch (const Database_error&) {
        return std::nullopt;
    }
}

}  // namespace

bool has_schema(Connection& connection) {
    return version(connection).has_value();
}

void require_schema(Connection& connection) {
    const std::optional<int> found = version(connection);
    if (!found) {
        throw Database_error("The database does not hold the Cuvexa schema; create one with: cuvexa init --db FILE");
    }
    if (*found != schema_version) {
        throw Database_error(
            filled("The database holds version {} of the schema, and this program works with version {}; use "
                   "the program of that version, or create another database with: cuvexa init --db FILE",
                   *found, schema_version));
    }
}

std::vector<System_parameter> parameters(Connection& connection) {
    std::vector<System_parameter> all;
    for (Rows rows = run(connection, "SELECT Ps_Nombre, Ps_Valor FROM Parametro_Sistema ORDER BY Ps_Nombre");
         !rows.eof(); rows.next()) {
        all.push_back({rows.text("Ps_Nombre"), rows.text("Ps_Valor")});
    }
    return all;
}

std::optional<std::string> parameter(Connection& connection, const std::string& name) {
    const Rows rows = run(connection, "SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = '{}'", name);
    if (rows.eof()) return std::nullopt;
    return rows.text("Ps_Valor");
}

void set_parameter(Connection& connection, const std::string& name, const std::string& value) {
    if (parameter(connection, name)) {
        run(connection, "UPDATE Parametro_Sistema SET Ps_Valor = '{}' WHERE Ps_Nombre = '{}'", value, name);
    } else {
        run(connection, "INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor) VALUES ('{}', '{}')", name, value);
    }
}

bool unset_parameter(Connection& connection, const std::string& name) {
    const bool was_there = parameter(connection, name).has_value();
    run(connection, "DELETE FROM Parametro_Sistema WHERE Ps_Nombre = '{}'", name);
    return was_there;
}

Server_identity server_identity(Connection& connection) {
    const Rows rows = run(connection, "SELECT Sv_Servidor_Id, Sv_Replica FROM Servidor_Suite WHERE Sv_Llave = 1");
    if (rows.eof()) return {};
    return {rows.text("Sv_Servidor_Id"), rows.text("Sv_Replica") == "SI"};
}

void set_server_identity(Connection& connection, const Server_identity& identity) {
    run(connection, "UPDATE Servidor_Suite SET Sv_Servidor_Id = '{}', Sv_Replica = '{}' WHERE Sv_Llave = 1",
        identity.id, yes_no(identity.replica));
}

std::vector<Posting> postings(Connection& connection) {
    std::vector<Posting> all;
    for (Rows rows = run(connection, "SELECT Ct_Codigo, Ct_Automatica FROM Configuracion_Contable ORDER BY Ct_Codigo");
         !rows.eof(); rows.next()) {
        all.push_back({rows.text("Ct_Codigo"), rows.text("Ct_Automatica") == "SI"});
    }
    return all;
}

void set_posting(Connection& connection, const std::string& code, bool automatic) {
    if (run(connection, "SELECT Ct_Codigo FROM Configuracion_Contable WHERE Ct_Codigo = '{}'", code).eof()) {
        run(connection, "INSERT INTO Configuracion_Contable (Ct_Codigo) VALUES ('{}')", upper(code));
    }
    run(connection, "UPDATE Configuracion_Contable SET Ct_Automatica = '{}' WHERE Ct_Codigo = '{}'", yes_no(automatic),
        code);
}

std::vector<Period> periods(Connection& connection) {
    std::vector<Period> all;
    for (Rows rows = run(connection, "SELECT * FROM Periodo_Operativo ORDER BY Po_Modulo, Po_Ejercicio, Po_Mes");
         !rows.eof(); rows.next()) {
        all.push_back({rows.text("Po_Modulo"), static_cast<int>(rows.number("Po_Ejercicio")),
                       static_cast<int>(rows.number("Po_Mes")), rows.text("Po_Estado") == "AB"});
    }
    return all;
}

void set_period(Connection& connection, const Period& period) {
    const char* state = period.open ? "AB" : "CE";
    const bool known = !run(connection,
                            "SELECT Po_Estado FROM Periodo_Operativo WHERE Po_Modulo = '{}' AND Po_Ejercicio = {} AND "
                            "Po_Mes = {}",
                            period.module, period.year, period.month)
                            .eof();
    if (known) {
        run(connection,
            "UPDATE Periodo_Operativo SET Po_Estado = '{}' WHERE Po_Modulo = '{}' AND Po_Ejercicio = {} AND Po_Mes = "
            "{}",
            state, period.module, period.year, period.month);
    } else {
        run(connection,
            "INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado) VALUES ('{}', {}, {}, '{}')",
            upper(period.module), period.year, period.month, state);
    }
}

std::vector<Folio_series> folio_series(Connection& connection) {
    std::vector<Folio_series> all;
    for (Rows rows = run(connection, "SELECT * FROM Folio_Serie ORDER BY Fs_Codigo, Fs_Sucursal"); !rows.eof();
         rows.next()) {
        all.push_back(series_row(rows));
    }
    return all;
}

Folio_series folio_series_of(Connection& connection, const std::string& code, const std::string& branch) {
    const Rows rows =
        run(connection, "SELECT * FROM Folio_Serie WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}'", code, branch);
    return rows.eof() ? Folio_series{upper(code), branch, 0, true} : series_row(rows);
}

void set_next_folio(Connection& connection, const std::string& code, const std::string& branch, int next) {
    begin_series(connection, code, branch);
    const Rows moved = run(connection,
                           "UPDATE Folio_Serie SET Fs_Ultimo = {} OUTPUT inserted.Fs_Ultimo "
                           "WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}' AND Fs_Ultimo < {}",
                           next - 1, code, branch, next);
    if (moved.eof()) {
        throw Database_error(filled("The series {} of branch {} has given {} already; folios are given once",
                                    upper(code), branch, next));
    }
}

void set_folio_series_open(Connection& connection, const std::string& code, const std::string& branch, bool open) {
    begin_series(connection, code, branch);
    run(connection, "UPDATE Folio_Serie SET Fs_Abierta = '{}' WHERE Fs_Codigo = '{}' AND Fs_Sucursal = '{}'",
        yes_no(open), code, branch);
}

void mark_posted(Connection& connection, const std::string& code, const std::string& folio, const std::string& user) {
    run(connection,
        "INSERT INTO Documento_Contabilizado (Dt_Documento, Dt_Tabla, Oper_Alta, Fecha_Alta) SELECT '{}', '{}', '{}', "
        "'{}' "
        "WHERE NOT EXISTS (SELECT Dt_Documento FROM Documento_Contabilizado WHERE Dt_Documento = '{}' AND Dt_Tabla = "
        "'{}')",
        folio, upper(code), user, stamp(), folio, code);
}

bool unmark_posted(Connection& connection, const std::string& code, const std::string& folio) {
    const bool was_there =
        !run(connection,
             "SELECT Dt_Documento FROM Documento_Contabilizado WHERE Dt_Documento = '{}' AND Dt_Tabla = '{}'", folio,
             code)
             .eof();
    run(connection, "DELETE FROM Documento_Contabilizado WHERE Dt_Documento = '{}' AND Dt_Tabla = '{}'", folio, code);
    return was_there;
}

bool set_voucher_closed(Connection& connection, const std::string& voucher, bool closed) {
    const Rows rows = run(connection,
                          "UPDATE Poliza SET Es_Cve_Estado = '{}' OUTPUT inserted.Pz_Folio "
                          "WHERE Pz_Folio = '{}' AND Es_Cve_Estado <> 'CA'",
                          closed ? "CE" : "AC", voucher);
    return !rows.eof();
}

}  // namespace cuvexa
