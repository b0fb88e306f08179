#include "cuvexa/database/trace.h"

#include <chrono>
#include <exception>

#include "core/utf8.h"
#include "database/row_set.h"

namespace cuvexa {
namespace {

using Clock = std::chrono::steady_clock;

std::int64_t microseconds_since(Clock::time_point start) {
    return std::chrono::duration_cast<std::chrono::microseconds>(Clock::now() - start).count();
}

void append_escaped(std::string& out, char c) {
    constexpr char digits[] = "0123456789abcdef";
    switch (c) {
        case '"':
            out += "\\\"";
            return;
        case '\\':
            out += "\\\\";
            return;
        case '\n':
            out += "\\n";
            return;
        case '\r':
            out += "\\r";
            return;
        case '\t':
            out += "\\t";
            return;
        default:
            break;
    }
    if (static_cast<unsigned char>(c) >= 0x20) {
        out += c;
        return;
    }
    out += "\\u00";
    out += digits[static_cast<unsigned char>(c) >> 4];
    out += digits[c & 0xF];
}

std::string json_text(std::string_view text) {
    std::string out = "\"";
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t length = utf8_length(text, at);
        if (length == 1) {
            append_escaped(out, text[at]);
        } else {
            out += length == 0 ? std::string_view("\xEF\xBF\xBD") : text.substr(at, length);
        }
        at += length == 0 ? 1 : length;
    }
    out += '"';
    return out;
}

std::string rows_of(const Recordset* rows) {
    const auto* known = dynamic_cast<const database::Row_set*>(rows);
    return known == nullptr ? "null" : std::to_string(known->rows());
}

}  // namespace

std::unique_ptr<Recordset> Traced_connection::execute(std::string_view text) {
    const auto start = Clock::now();
    std::unique_ptr<Recordset> rows;
    try {
        rows = connection_->execute(text);
    } catch (const std::exception& error) {
        write(text, microseconds_since(start), "null", error.what());
        throw;
    }
    write(text, microseconds_since(start), rows_of(rows.get()), nullptr);
    if (!*out_) throw Database_error("La instrucción se ejecutó, pero no se pudo escribir en el rastro");
    return rows;
}

void Traced_connection::write(std::string_view text, std::int64_t us, const std::string& rows, const char* error) {
    *out_ << "{\"seq\":" + std::to_string(++sequence_) + ",\"text\":" + json_text(text) +
                 ",\"us\":" + std::to_string(us) + ",\"rows\":" + rows +
                 ",\"error\":" + (error == nullptr ? "null" : json_text(error)) + "}\n"
          << std::flush;
}

}  // namespace cuvexa
