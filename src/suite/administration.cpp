#include "cuvexa/suite/administration.h"

#include "core/case.h"
#include "core/codes.h"
#include "suite/statements.h"

namespace cuvexa {
namespace {

using reference::query;

const char* yes_no(bool yes) {
    return yes ? "SI" : "NO";
}

}  // namespace

std::vector<System_parameter> parameters(Connection& connection) {
    std::vector<System_parameter> all;
    for (Rows rows = query(connection, "SELECT Ps_Nombre, Ps_Valor FROM Parametro_Sistema ORDER BY Ps_Nombre");
         !rows.eof(); rows.next()) {
        all.push_back({rows.text("Ps_Nombre"), rows.text("Ps_Valor")});
    }
    return all;
}

std::optional<std::string> parameter(Connection& connection, const std::string& name) {
    const Rows rows = query(connection, "SELECT Ps_Valor FROM Parametro_Sistema WHERE Ps_Nombre = '{}'", name);
    if (rows.eof()) return std::nullopt;
    return rows.text("Ps_Valor");
}

void set_parameter(Connection& connection, const std::string& name, const std::string& value) {
    if (parameter(connection, name)) {
        query(connection, "UPDATE Parametro_Sistema SET Ps_Valor = '{}' WHERE Ps_Nombre = '{}'", value, name);
    } else {
        query(connection, "INSERT INTO Parametro_Sistema (Ps_Nombre, Ps_Valor) VALUES ('{}', '{}')", name, value);
    }
}

bool unset_parameter(Connection& connection, const std::string& name) {
    const bool was_there = parameter(connection, name).has_value();
    query(connection, "DELETE FROM Parametro_Sistema WHERE Ps_Nombre = '{}'", name);
    return was_there;
}

Server_identity server_identity(Connection& connection) {
    const Rows rows = query(connection, "SELECT Sv_Servidor_Id, Sv_Replica FROM Servidor_Suite WHERE Sv_Llave = 1");
    if (rows.eof()) return {};
    return {rows.text("Sv_Servidor_Id"), rows.text("Sv_Replica") == "SI"};
}

void set_server_identity(Connection& connection, const Server_identity& identity) {
    query(connection, "UPDATE Servidor_Suite SET Sv_Servidor_Id = '{}', Sv_Replica = '{}' WHERE Sv_Llave = 1",
          identity.id, yes_no(identity.replica));
}

std::vector<Posting> postings(Connection& connection) {
    std::vector<Posting> all;
    for (Rows rows =
             query(connection, "SELECT Ct_Codigo, Ct_Automatica FROM Configuracion_Contable ORDER BY Ct_Codigo");
         !rows.eof(); rows.next()) {
        all.push_back({rows.text("Ct_Codigo"), rows.text("Ct_Automatica") == "SI"});
    }
    return all;
}

void set_posting(Connection& connection, const std::string& code, bool automatic) {
    if (query(connection, "SELECT Ct_Codigo FROM Configuracion_Contable WHERE Ct_Codigo = '{}'", code).eof()) {
        query(connection, "INSERT INTO Configuracion_Contable (Ct_Codigo) VALUES ('{}')", upper_ascii(code));
    }
    query(connection, "UPDATE Configuracion_Contable SET Ct_Automatica = '{}' WHERE Ct_Codigo = '{}'",
          yes_no(automatic), code);
}

std::vector<Period> periods(Connection& connection) {
    std::vector<Period> all;
    for (Rows rows = query(connection, "SELECT * FROM Periodo_Operativo ORDER BY Po_Modulo, Po_Ejercicio, Po_Mes");
         !rows.eof(); rows.next()) {
        all.push_back({rows.text("Po_Modulo"), static_cast<int>(rows.number("Po_Ejercicio")),
                       static_cast<int>(rows.number("Po_Mes")), rows.text("Po_Estado") == period::open});
    }
    return all;
}

void set_period(Connection& connection, const Period& period) {
    const char* state = period.open ? period::open : period::closed;
    const bool known =
        !query(connection,
               "SELECT Po_Estado FROM Periodo_Operativo WHERE Po_Modulo = '{}' AND Po_Ejercicio = {} AND "
               "Po_Mes = {}",
               period.module, period.year, period.month)
             .eof();
    if (known) {
        query(connection,
              "UPDATE Periodo_Operativo SET Po_Estado = '{}' WHERE Po_Modulo = '{}' AND Po_Ejercicio = {} AND Po_Mes = "
              "{}",
              state, period.module, period.year, period.month);
    } else {
        query(connection,
              "INSERT INTO Periodo_Operativo (Po_Modulo, Po_Ejercicio, Po_Mes, Po_Estado) VALUES ('{}', {}, {}, '{}')",
              upper_ascii(period.module), period.year, period.month, state);
    }
}

void mark_posted(Connection& connection, const std::string& code, const std::string& folio, const std::string& user) {
    query(
        connection,
        "INSERT INTO Documento_Contabilizado (Dt_Documento, Dt_Tabla, Oper_Alta, Fecha_Alta) SELECT '{}', '{}', '{}', "
        "GETDATE() "
        "WHERE NOT EXISTS (SELECT Dt_Documento FROM Documento_Contabilizado WHERE Dt_Documento = '{}' AND Dt_Tabla = "
        "'{}')",
        folio, upper_ascii(code), user, folio, code);
}

bool unmark_posted(Connection& connection, const std::string& code, const std::string& folio) {
    const bool was_there =
        !query(connection,
               "SELECT Dt_Documento FROM Documento_Contabilizado WHERE Dt_Documento = '{}' AND Dt_Tabla = '{}'", folio,
               code)
             .eof();
    query(connection, "DELETE FROM Documento_Contabilizado WHERE Dt_Documento = '{}' AND Dt_Tabla = '{}'", folio, code);
    return was_there;
}

bool set_voucher_closed(Connection& connection, const std::string& voucher, bool closed) {
    const Rows rows = query(connection,
                            "UPDATE Poliza SET Es_Cve_Estado = '{}' OUTPUT inserted.Pz_Folio "
                            "WHERE Pz_Folio = '{}' AND Es_Cve_Estado <> 'CA'",
                            closed ? state::closed : state::active, voucher);
    return !rows.eof();
}

}  // namespace cuvexa
