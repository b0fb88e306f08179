#include "service/paper_statement.h"

#include <algorithm>
#include <string_view>

#include "paper/statement_form.h"
#include "service/form.h"
#include "service/query.h"

namespace cuvexa::service {

namespace {

constexpr std::string_view pdf = "application/pdf", page = "text/html";

/// Some four hundred pages.
constexpr std::size_t most_movements = 20'000;

std::string_view kind_of(const httplib::Request& http) {
    return first_listed(http.get_header_value("Accept"), {pdf, page, "text/csv", "application/json", "*/*"});
}

bool is_plain(unsigned char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '-' || c == '_' ||
           c == '.';
}

std::string percent_encoded(const std::string& text) {
    constexpr char digits[] = "0123456789ABCDEF";
    std::string result;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (is_plain(byte)) {
            result += c;
        } else {
            result.append({'%', digits[byte >> 4], digits[byte & 0xF]});
        }
    }
    return result;
}

/// With a name that any program may give the file, and the one it has where letters are of Unicode.
std::string disposition(const std::string& how, const std::string& name, const std::string& ending) {
    std::string plain = name;
    std::replace_if(
        plain.begin(), plain.end(), [](unsigned char c) { return !is_plain(c); }, '_');
    return how + "; filename=\"" + plain + ending + "\"; filename*=UTF-8''" + percent_encoded(name + ending);
}

}  // namespace

bool takes_paper(const httplib::Request& http) {
    const std::string_view kind = kind_of(http);
    return kind == pdf || kind == page;
}

Reply paper_statement(const reports::Source& source, const std::string& account, const httplib::Request& http) {
    const bool as_pdf = kind_of(http) == pdf;
    if (as_pdf && !paper::writes_pdf()) {
        return error_reply(406, "this service was built without what writes PDF; there is text/html");
    }
    const Query query(http, {"from", "to"});
    const auto statement = read_whole_statement(source, account, query.period(), most_movements);
    if (!statement) return error_reply(404, "there is no such document or account");
    const std::string name = paper::file_name_of(*statement);
    if (as_pdf) {
        return {200,
                paper::pdf_of(*statement),
                std::string(pdf),
                {{"Content-Disposition", disposition("attachment", name, ".pdf")}}};
    }
    return {200,
            paper::html_of(*statement),
            std::string(page) + "; charset=utf-8",
            {{"Content-Disposition", disposition("inline", name, ".html")},
             {"Content-Security-Policy",
              "default-src 'none'; style-src 'unsafe-inline'; base-uri 'none'; form-action 'none'; "
              "frame-ancestors 'self'"}}};
}

}  // namespace cuvexa::service
