#include "com_suite/embedded_suite.h"

#include <charconv>
#include <filesystem>

#include "com/pointers.h"
#include "com_suite/suite_objects.h"
#include "cuvexa/database/script.h"
#include "cuvexa/errors.h"
#include "cuvexa/suite/administration.h"
#include "cuvexa/suite/schema.h"
#include "cuvexa/unit_of_work.h"
#include "database/connection_string.h"

namespace cuvexa::com_suite {

using namespace com;
namespace {

namespace fs = std::filesystem;

fs::path path(const std::string& utf8_name) {
    return fs::path(wide(utf8_name));
}

/// As it is now: the run-time library has only what stood there when the program started.
std::string environment(const wchar_t* name) {
    std::wstring value(32768, L'\0');
    value.resize(GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size())));
    return utf8(value);
}

std::string windows_user() {
    wchar_t name[257] = {};
    DWORD size = 257;
    return GetUserNameW(name, &size) ? utf8(name) : std::string();
}

double seconds(const std::string& text) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc() && end == text.data() + text.size() && value >= 0 && value <= 3600) return value;
    throw Database_error("CUVEXA_WAIT no es un número de segundos de 0 a 3600: " + text);
}

Date fixed_date(const std::string& text) {
    if (const auto date = parse_date(text)) return *date;
    throw Database_error("CUVEXA_SERVER_DATE no es una fecha (AAAA-MM-DD o AAAA-MM-DDThh:mm:ss): " + text);
}

std::string try_out_file() {
    const std::string folder = environment(L"LOCALAPPDATA");
    if (folder.empty()) throw Database_error("Falta decir cuál es la base de datos: CUVEXA_DB");
    return folder + "\\Cuvexa\\empresa.db";
}

Sqlite_options engine_options(const Embedded_settings& settings) {
    Sqlite_options options;
    options.synchronous = synchronous_named(settings.synchronous);
    options.busy_timeout_ms = static_cast<int>(settings.wait_s * 1000);
    return options;
}

void fill_with_sample_company(const std::string& file) {
    Sqlite_connection connection(file, {.create = true});
    Unit_of_work whole(connection);
    run_script(connection, schema_sql());
    run_script(connection, sample_company_sql());
    whole.commit();
}

void remove_database(const std::string& file) {
    std::error_code ignored;
    for (const char* ending : {"", "-wal", "-shm", "-journal"}) fs::remove(path(file + ending), ignored);
}

/// Makes the sample company under a name of its own, so that nobody meets it half done. When another program was
/// faster, its file stays.
void make_sample_company(const std::string& file) {
    const std::string draft =
        file + ".nueva-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(GetCurrentThreadId());
    std::error_code ignored;
    for (const char* ending : {"-wal", "-journal"}) {
        if (fs::exists(path(file + ending), ignored) && !fs::exists(path(file), ignored)) {
            throw Database_error("Quedan restos de otra base de datos: " + file + ending);
        }
    }
    fs::create_directories(path(file).parent_path(), ignored);
    remove_database(draft);
    fill_with_sample_company(draft);
    const bool moved = MoveFileExW(wide(draft).c_str(), wide(file).c_str(), MOVEFILE_WRITE_THROUGH);
    remove_database(draft);
    if (!moved && !fs::exists(path(file), ignored))
        throw Database_error("No es posible crear la base de datos: " + file);
}

const std::string& standing_file(const Embedded_settings& settings) {
    const std::string& file = settings.database;
    if (database::is_connection_string(file)) {
        throw Database_error("La base de datos tiene que ser un archivo, no un servidor: " +
                             database::without_password(file));
    }
    std::error_code ignored;
    if (settings.try_out && !fs::exists(path(file), ignored)) make_sample_company(file);
    if (!fs::exists(path(file), ignored)) {
        throw Database_error("No existe la base de datos: " + file + " (se crea con: cuvexa init --db " + file + ")");
    }
    if (fs::is_directory(path(file), ignored))
        throw Database_error("No es una base de datos sino una carpeta: " + file);
    if (!settings.trace.empty() && fs::equivalent(path(settings.trace), path(file), ignored)) {
        throw Database_error("El rastro no puede escribirse en la base de datos: " + settings.trace);
    }
    return file;
}

void require_this_version(Connection& connection, const std::string& file) {
    if (!has_schema(connection)) throw Database_error("No es una base de datos de Cuvexa: " + file);
    const auto rows = connection.execute("SELECT Eq_Version FROM Esquema_Suite WHERE Eq_Nombre = 'CUVEXA'");
    const std::string found = rows->eof() ? "desconocida" : to_text(rows->field("Eq_Version"));
    if (found == std::to_string(schema_version)) return;
    throw Database_error("La versión del esquema de la base de datos es " + found + " y la de este programa es " +
                         std::to_string(schema_version) + ": " + file);
}

}  // namespace

Embedded_settings embedded_settings() {
    Embedded_settings settings;
    settings.database = environment(L"CUVEXA_DB");
    if (settings.database.empty()) settings.database = registry_setting(L"Cuvexa", L"BaseDeDatos");
    settings.try_out = settings.database.empty();
    if (settings.try_out) settings.database = try_out_file();
    settings.trace = environment(L"CUVEXA_TRACE");
    if (const std::string name = environment(L"CUVEXA_SYNCHRONOUS"); !name.empty()) settings.synchronous = name;
    if (const std::string wait = environment(L"CUVEXA_WAIT"); !wait.empty()) settings.wait_s = seconds(wait);
    if (const std::string date = environment(L"CUVEXA_SERVER_DATE"); !date.empty())
        settings.server_date = fixed_date(date);
    for (const std::string& user : {windows_user(), environment(L"CUVEXA_USER")})
        if (!user.empty()) settings.user = user;
    return settings;
}

Embedded_suite::Embedded_suite(const Embedded_settings& settings,
                               std::function<void(const Reported_error&)> report_error)
    : engine_(standing_file(settings), engine_options(settings)) {
    require_this_version(engine_, settings.database);
    if (!settings.trace.empty()) {
        trace_.open(path(settings.trace), std::ios::app);
        if (!trace_) throw Database_error("No se puede escribir el rastro: " + settings.trace);
        traced_.emplace(engine_, trace_);
    }
    Suite_options options{.user = settings.user, .server_date = settings.server_date};
    options.report_error = std::move(report_error);
    suite_.emplace(connection(), std::move(options));
}

std::shared_ptr<Suite> make_embedded_suite(std::function<void(const Reported_error&)> report_error) {
    return std::make_shared<Embedded_suite>(embedded_settings(), std::move(report_error));
}

}  // namespace cuvexa::com_suite
