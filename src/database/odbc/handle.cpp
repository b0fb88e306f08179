#include "database/odbc/handle.h"

#include <algorithm>
#include <array>

#include "cuvexa/errors.h"
#include "database/utf16.h"

namespace cuvexa::odbc {
namespace {

std::string trimmed_end(std::string text) {
    while (!text.empty() && (text.back() == '\n' || text.back() == '\r' || text.back() == ' ')) text.pop_back();
    return text;
}

}  // namespace

Handle::Handle(SQLSMALLINT kind, SQLHANDLE parent) : kind_(kind) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(kind, parent, &handle_))) {
        throw Database_error("No hay memoria para la conexión con el servidor de base de datos");
    }
}

std::vector<Diagnostic> diagnostics(const Handle& handle) {
    std::vector<Diagnostic> records;
    std::u16string message(2048, u'\0');
    for (SQLSMALLINT record = 1; record < 100; ++record) {
        std::array<SQLWCHAR, 6> state{};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        if (!SQL_SUCCEEDED(SQLGetDiagRecW(handle.kind(), handle, record, state.data(), &native, wide(message),
                                          static_cast<SQLSMALLINT>(message.size()), &length))) {
            break;
        }
        const auto taken =
            std::min<std::size_t>(static_cast<std::size_t>(std::max<SQLSMALLINT>(length, 0)), message.size() - 1);
        records.push_back({std::string(state.begin(), state.end() - 1), native,
                           database::utf8_from(std::u16string_view(message).substr(0, taken))});
    }
    return records;
}

std::string description(const std::vector<Diagnostic>& records) {
    std::string text;
    for (const Diagnostic& record : records) {
        if (!text.empty()) text += "\r\n";
        text += trimmed_end(record.message) + " [" + record.state + ", " + std::to_string(record.native) + "]";
    }
    return text.empty() ? "El servidor de base de datos no dijo por qué falló" : text;
}

}  // namespace cuvexa::odbc
