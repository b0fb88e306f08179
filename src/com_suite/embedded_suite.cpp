#include "com_suite/embedded_suite.h"

#include <charconv>
#include <filesystem>

#include "com/pointers.h"
#include "com_suite/suite_objects.h"

namespace cuvexa::com_suite {

using namespace com;
namespace {

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
    throw Company_error("CUVEXA_WAIT no es un número de segundos de 0 a 3600: " + text);
}

Date fixed_date(const std::string& text) {
    if (const auto date = parse_date(text)) return *date;
    throw Company_error("CUVEXA_SERVER_DATE no es una fecha (AAAA-MM-DD o AAAA-MM-DDThh:mm:ss): " + text);
}

std::string try_out_file() {
    const std::string folder = environment(L"LOCALAPPDATA");
    if (folder.empty()) throw Company_error("Falta decir cuál es la base de datos: CUVEXA_DB");
    return folder + "\\Cuvexa\\empresa.db";
}

/// Makes the company that nobody named, to try things on. Where another program is faster, its company stays.
void make_company_to_try(const std::string& file) {
    std::error_code ignored;
    std::filesystem::create_directories(std::filesystem::path(wide(file)).parent_path(), ignored);
    Company::create_if_missing({.database = file}, Contents::sample_company);
}

Company open_company(const Embedded_settings& settings) {
    const Company_options& options = settings.company;
    if (options.is_server()) {
        throw Company_error("La base de datos tiene que ser un archivo, no un servidor: " + options.shown());
    }
    if (settings.try_out) make_company_to_try(options.database);
    return Company(options);
}

}  // namespace

Embedded_settings embedded_settings() {
    Embedded_settings settings;
    Company_options& company = settings.company;
    company.database = environment(L"CUVEXA_DB");
    if (company.database.empty()) company.database = registry_setting(L"Cuvexa", L"BaseDeDatos");
    settings.try_out = company.database.empty();
    if (settings.try_out) company.database = try_out_file();
    company.trace = environment(L"CUVEXA_TRACE");
    if (const std::string name = environment(L"CUVEXA_SYNCHRONOUS"); !name.empty()) company.synchronous = name;
    if (const std::string wait = environment(L"CUVEXA_WAIT"); !wait.empty()) company.wait_s = seconds(wait);
    if (const std::string date = environment(L"CUVEXA_SERVER_DATE"); !date.empty()) {
        settings.server_date = fixed_date(date);
    }
    for (const std::string& user : {windows_user(), environment(L"CUVEXA_USER")}) {
        if (!user.empty()) settings.user = user;
    }
    return settings;
}

std::shared_ptr<Suite> make_embedded_suite(std::function<void(const Reported_error&)> report_error) {
    const Embedded_settings settings = embedded_settings();
    Suite_options suite{.user = settings.user, .server_date = settings.server_date};
    suite.report_error = std::move(report_error);
    return open_company(settings).suite(std::move(suite));
}

}  // namespace cuvexa::com_suite
