#include "service/kept_answers.h"

#include "core/rows.h"
#include "core/statement.h"
#include "core/text.h"
#include "cuvexa/date.h"

namespace cuvexa::service {

namespace {

template <class... Arguments>
Rows run(Connection& connection, Statement<std::type_identity_t<Arguments>...> statement,
         const Arguments&... arguments) {
    std::string text;
    compose(text, statement, arguments...);
    return Rows(connection.execute(text));
}

}  // namespace

std::optional<Kept_answer> find_answer(Connection& connection, const Request_key& key) {
    const Rows rows = run(connection,
                          "SELECT Pe_Huella, Pe_Estado, Pe_Respuesta FROM Peticion_Servicio WHERE Pe_Nombre = '{}' "
                          "AND Pe_Llave = '{}'",
                          sql_escaped(key.user), key.key);
    if (rows.eof()) return std::nullopt;
    return Kept_answer{rows.text("Pe_Huella"), static_cast<int>(rows.number("Pe_Estado")), rows.text("Pe_Respuesta")};
}

void keep_answer(Connection& connection, const Request_key& key, int status, std::string_view body) {
    run(connection,
        "INSERT INTO Peticion_Servicio (Pe_Nombre, Pe_Llave, Pe_Huella, Pe_Estado, Pe_Respuesta, Fecha_Alta) "
        "VALUES ('{}', '{}', '{}', {}, '{}', GETDATE())",
        sql_escaped(key.user), key.key, key.fingerprint, status, sql_escaped(body));
}

void forget_answers(Connection& connection, DataServices& dates, int days) {
    const Date now = Rows(connection.execute("SELECT GETDATE() AS Ahora")).date("Ahora");
    run(connection, "DELETE FROM Peticion_Servicio WHERE Fecha_Alta < '{}'", dates.SqlDate(add_days(now, -days)));
}

}  // namespace cuvexa::service
