// What an engine does bare: programs, one per trace, give it the statement texts of the traces as fast as it takes
// them, all at once. Prints statements per second.
//
//   cuvexa_replay DATABASE TRACE…
//
// The texts are those that reached the engine, translated before the clock starts. SQLite: prepared, stepped through
// and finalized, with the settings that the component uses. A server: executed directly and fetched.
#include <sqlite3.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <fstream>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <vector>

#include "cuvexa/database/sqlite_connection.h"
#include "database/connection_string.h"
#include "database/sqlite/engine.h"
#ifdef CUVEXA_WITH_ODBC
#include <sql.h>
#include <sqlext.h>

#include "cuvexa/database/odbc_connection.h"
#include "database/utf16.h"
#endif

namespace cuvexa {
namespace {

/// Runs one text; false when the engine refuses it.
using Engine = std::function<bool(const std::string&)>;

std::vector<std::string> texts_of(const char* trace) {
    std::ifstream lines(trace);
    std::vector<std::string> texts;
    for (std::string line; std::getline(lines, line);) {
        const auto entry = nlohmann::json::parse(line);
        if (entry["error"].is_null()) texts.push_back(entry["text"]);
    }
    return texts;
}

Engine on_sqlite(const std::string& file, std::vector<std::string>& texts) {
    const auto connection = std::make_shared<Sqlite_connection>(file);
    for (std::string& text : texts) text = connection->translate(text);
    return [connection](const std::string& text) {
        sqlite3_stmt* statement = nullptr;
        int code = sqlite3_prepare_v2(sqlite::handle_of(*connection), text.data(), static_cast<int>(text.size()),
                                      &statement, nullptr);
        if (code != SQLITE_OK) return false;
        do code = sqlite3_step(statement);
        while (code == SQLITE_ROW);
        sqlite3_finalize(statement);
        return code == SQLITE_DONE;
    };
}

#ifdef CUVEXA_WITH_ODBC
SQLWCHAR* wide(std::u16string& text) {
    return reinterpret_cast<SQLWCHAR*>(text.data());
}

bool execute(SQLHANDLE connection, const std::string& text) {
    SQLHANDLE statement = SQL_NULL_HANDLE;
    SQLAllocHandle(SQL_HANDLE_STMT, connection, &statement);
    SQLSetStmtAttrW(statement, SQL_ATTR_NOSCAN, reinterpret_cast<SQLPOINTER>(SQL_NOSCAN_ON), 0);
    std::u16string utf16 = database::utf16_from(text);
    const SQLRETURN code = SQLExecDirectW(statement, wide(utf16), static_cast<SQLINTEGER>(utf16.size()));
    while (SQL_SUCCEEDED(SQLFetch(statement))) continue;
    SQLFreeHandle(SQL_HANDLE_STMT, statement);
    return SQL_SUCCEEDED(code) || code == SQL_NO_DATA;
}

Engine on_server(const std::string& connection_string, std::vector<std::string>& texts) {
    const Odbc_connection translator(connection_string);
    for (std::string& text : texts) text = translator.translate(text);
    SQLHANDLE environment = SQL_NULL_HANDLE, connection = SQL_NULL_HANDLE;
    SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment);
    SQLSetEnvAttr(environment, SQL_ATTR_ODBC_VERSION, reinterpret_cast<SQLPOINTER>(SQL_OV_ODBC3), 0);
    SQLAllocHandle(SQL_HANDLE_DBC, environment, &connection);
    std::u16string utf16 = database::utf16_from(connection_string);
    if (!SQL_SUCCEEDED(SQLDriverConnectW(connection, nullptr, wide(utf16), static_cast<SQLSMALLINT>(utf16.size()),
                                         nullptr, 0, nullptr, SQL_DRIVER_NOPROMPT))) {
        throw std::runtime_error("the server does not let a session in");
    }
    return [connection](const std::string& text) { return execute(connection, text); };
}
#else
Engine on_server(const std::string&, std::vector<std::string>&) {
    throw std::runtime_error("built without ODBC");
}
#endif

/// The child's life: makes ready, says so, waits until the start is given, runs. Gives how many texts were refused.
int replay(const std::string& database, const char* trace, int ready, int start) {
    std::vector<std::string> texts = texts_of(trace);
    const Engine engine =
        database::is_connection_string(database) ? on_server(database, texts) : on_sqlite(database, texts);
    char byte = '!';
    if (write(ready, &byte, 1) != 1) return 255;
    while (read(start, &byte, 1) > 0) continue;  // until the parent closes it
    int refused = 0;
    for (const std::string& text : texts) refused += !engine(text);
    return std::min(refused, 254);
}

void begin_child(const std::string& database, const char* trace, const int ready[2], const int start[2]) {
    if (fork() != 0) return;
    close(start[1]);
    int status = 255;
    try {
        status = replay(database, trace, ready[1], start[0]);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    _exit(status);
}

int run(const std::string& database, const std::vector<const char*>& traces) {
    std::size_t statements = 0;
    for (const char* trace : traces) statements += texts_of(trace).size();
    int ready[2], start[2];
    if (pipe(ready) != 0 || pipe(start) != 0) return 1;
    for (const char* trace : traces) begin_child(database, trace, ready, start);
    close(ready[1]);
    char byte;
    for (std::size_t i = 0; i < traces.size(); ++i) {
        if (read(ready[0], &byte, 1) != 1) return 1;
    }
    const auto begin = std::chrono::steady_clock::now();
    close(start[1]);
    int refused = 0;
    for (std::size_t i = 0; i < traces.size(); ++i) {
        int status = 0;
        wait(&status);
        refused += WIFEXITED(status) ? WEXITSTATUS(status) : 255;
    }
    const std::chrono::duration<double> seconds = std::chrono::steady_clock::now() - begin;
    // Two programs may begin one series of folios, and one is refused. More would be another work than was measured.
    if (static_cast<std::size_t>(refused) > traces.size()) {
        std::fprintf(stderr, "the engine refused %d of %zu statements\n", refused, statements);
        return 1;
    }
    std::printf("%.1f\n", static_cast<double>(statements) / seconds.count());
    return 0;
}

}  // namespace
}  // namespace cuvexa

int main(int count, char** arguments) {
    if (count < 3) {
        std::fprintf(stderr, "cuvexa_replay DATABASE TRACE…\n");
        return 2;
    }
    return cuvexa::run(arguments[1], std::vector<const char*>(arguments + 2, arguments + count));
}
