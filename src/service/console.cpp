#include "service/console.h"

#include <algorithm>
#include <string>
#include <utility>

#include "service/form.h"

namespace cuvexa::service {

namespace {

constexpr std::string_view folder = "/console/";

// Nothing is run, shown or asked for but what this service itself gives; no text becomes a part of the page by being taken for one.
constexpr const char* policy =
    "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; connect-src 'self'; base-uri 'none'; "
    "form-action 'none'; frame-ancestors 'none'; require-trusted-types-for 'script'; trusted-types 'none'";

constexpr std::pair<std::string_view, const char*> types[] = {
    {".html", "text/html; charset=utf-8"}, {".js", "text/javascript; charset=utf-8"},
    {".css", "text/css; charset=utf-8"},   {".svg", "image/svg+xml"},
    {".txt", "text/plain; charset=utf-8"},
};

const char* type_of(std::string_view name) {
    const auto* const type =
        std::find_if(std::begin(types), std::end(types), [&](const auto& each) { return name.ends_with(each.first); });
    return type == std::end(types) ? "application/octet-stream" : type->second;
}

const Console_file* file_named(std::string_view name) {
    const auto files = console_files();
    const auto found = std::find_if(files.begin(), files.end(), [&](const auto& file) { return file.name == name; });
    return found == files.end() ? nullptr : &*found;
}

/// The file that a path shows, `page` being what stands at its root; null when it shows none.
const Console_file* file_at(std::string_view path, std::string_view page) {
    if (path == "/") return file_named(page);
    if (!path.starts_with(folder) || path.ends_with(".html")) return nullptr;
    return file_named(path.substr(folder.size()));
}

const Console_file* file_of_company(std::string_view path) {
    const std::size_t end = path.find('/', 1);
    return end == std::string_view::npos ? nullptr : file_at(path.substr(end), "index.html");
}

}  // namespace

std::optional<Reply> console_reply(const httplib::Request& http, bool several_companies) {
    if (http.method != "GET" && http.method != "HEAD") return std::nullopt;
    const Console_file* file = file_at(http.path, several_companies ? "companies.html" : "index.html");
    if (file == nullptr && several_companies) file = file_of_company(http.path);
    if (file == nullptr) return std::nullopt;
    Reply reply{200, std::string(file->content), type_of(file->name)};
    reply.headers = {{"Cache-Control", "no-cache"},
                     {"Content-Security-Policy", policy},
                     {"Cross-Origin-Opener-Policy", "same-origin"},
                     {"Cross-Origin-Resource-Policy", "same-origin"},
                     {"Referrer-Policy", "no-referrer"}};
    return with_tag(std::move(reply), http);
}

}  // namespace cuvexa::service
