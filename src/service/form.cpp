#include "service/form.h"

#include <algorithm>
#include <charconv>

#include "core/case.h"
#include "core/text.h"

namespace cuvexa::service {

namespace {

constexpr std::size_t longest_target = 2048;

bool has_control(std::string_view text) {
    return std::any_of(text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; });
}

/// The parts of a text between separators, without the blanks around them.
template <class Take>
void for_each_part(std::string_view text, char separator, Take&& take) {
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(separator), text.size());
        take(trimmed(text.substr(0, end), " \t"));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
}

Reply refusal_of_body(const httplib::Request& request, std::size_t most_bytes) {
    const std::string length = request.get_header_value("Content-Length");
    const bool chunked = request.has_header("Transfer-Encoding");
    // Behind another server each of these could hide a second request in the body of the first.
    if (request.get_header_value_count("Content-Length") > 1 ||
        request.get_header_value_count("Transfer-Encoding") > 1) {
        return error_reply(400, "more than one length");
    }
    if (chunked && request.has_header("Content-Length")) return error_reply(400, "two kinds of length");
    if (chunked && !same_text(request.get_header_value("Transfer-Encoding"), "chunked")) {
        return error_reply(501, "a transfer encoding that is not chunked");
    }
    if (request.method != "POST") {
        return length.empty() && !chunked ? Reply{0} : error_reply(400, "a body where none is read");
    }
    if (chunked) return {0};
    if (length.empty()) return error_reply(411, "a body without length");
    std::size_t bytes = 0;
    const auto [end, error] = std::from_chars(length.data(), length.data() + length.size(), bytes);
    if (error == std::errc::result_out_of_range || (error == std::errc() && bytes > most_bytes)) {
        return error_reply(413, "a body of more than " + std::to_string(most_bytes) + " bytes");
    }
    if (error != std::errc() || end != length.data() + length.size()) {
        return error_reply(400, "a length that is no number");
    }
    return {0};
}

}  // namespace

Reply refusal_of_form(const httplib::Request& request, std::size_t most_body_bytes) {
    if (request.target.size() > longest_target) return error_reply(414, "a path that is too long");
    if (has_control(request.path)) return error_reply(400, "a path with control characters");
    if (request.method != "GET" && request.method != "HEAD" && request.method != "POST" && request.method != "DELETE") {
        Reply reply = error_reply(405, "no such method");
        reply.headers.emplace("Allow", "GET, HEAD, POST, DELETE");
        return reply;
    }
    if (Reply reply = refusal_of_body(request, most_body_bytes); reply.status != 0) return reply;
    if (request.has_header("Content-Encoding")) return error_reply(415, "a packed body");
    if (request.get_header_value("Content-Type").starts_with("multipart/")) return error_reply(415, "a body in parts");
    return {0};
}

std::vector<std::string> steps_of(std::string_view path) {
    std::vector<std::string> steps;
    if (!path.empty() && path.front() == '/') path.remove_prefix(1);
    while (!path.empty()) {
        const std::size_t end = std::min(path.find('/'), path.size());
        steps.emplace_back(path.substr(0, end));
        path.remove_prefix(std::min(end + 1, path.size()));
    }
    return steps;
}

std::string cookie(const httplib::Request& request, std::string_view name) {
    std::string found;
    const std::string cookies = request.get_header_value("Cookie");
    for_each_part(cookies, ';', [&](std::string_view part) {
        if (part.size() > name.size() && part.starts_with(name) && part[name.size()] == '=') {
            found = part.substr(name.size() + 1);
        }
    });
    return found;
}

std::string_view first_listed(const std::string& header, std::initializer_list<std::string_view> words) {
    std::string_view found;
    for_each_part(header, ',', [&](std::string_view part) {
        const auto listed = trimmed(part.substr(0, part.find(';')), " \t");
        for (const std::string_view word : words) {
            if (found.empty() && same_text(listed, word)) found = word;
        }
    });
    return found;
}

bool lists(const std::string& header, std::string_view word) {
    return !first_listed(header, {word}).empty();
}

}  // namespace cuvexa::service
