// Any text as a request by HTTP, on a service with a sample company: its answer is one of those that are promised, neither it
// nor the log shows a token, and a database changes only by what is said to be kept.
#include <httplib.h>
#include <sqlite3.h>
#include <stdlib.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <limits>
#include <nlohmann/json.hpp>
#include <sstream>
#include <stdexcept>

#include "database/sqlite/database.h"
#include "fuzz/oracle.h"
#include "service/service.h"

namespace cuvexa::fuzz {
namespace {

/// A service that listens and that nobody is served by, on a company that is as new for each request.
class Stage {
public:
    Stage() {
        std::string name = (std::filesystem::temp_directory_path() / "cuvexa-fuzz-XXXXXX").string();
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
        folder_ = name;
        Company_options company;
        company.database = (folder_ / "company.db").string();
        company.synchronous = "off";
        Company::create(company, Contents::sample_company);
        watcher_ = sqlite::open_database(company.database, {.synchronous = Synchronous::off});
        as_new_ = sqlite::open_database(":memory:", {});
        copy(watcher_.get(), as_new_.get());

        service::Service_options options;
        options.port = 0;
        options.companies[""] = company;
        options.tokens = (folder_ / "tokens.json").string();
        options.failed_attempts = std::numeric_limits<std::size_t>::max();
        options.body_bytes = 3000;
        options.server_date = parse_date("2024-03-15T10:20:30");
        options.batch.entries = 20;
        options.batch.session = {.request_bytes = 3000, .values = 500, .depth = 16, .objects = 5};
        token = service::Token_file(options.tokens).add({"ana"});
        service_ = std::make_unique<service::Service>(options, log_);
    }
    ~Stage() {
        service_.reset();
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;

    httplib::Response answer(const httplib::Request& request, std::string_view body) {
        // A body comes in pieces.
        const httplib::ContentReader read(
            [body](const httplib::ContentReceiver& take) {
                const std::size_t half = body.size() / 2;
                return take(body.data(), half) && take(body.data() + half, body.size() - half);
            },
            [](const auto&, const auto&) { return false; });
        log_.str("");
        httplib::Response response;
        service_->answer(request, response, request.method == "POST" ? &read : nullptr);
        return response;
    }

    std::string logged() const { return log_.str(); }

    /// Another text after each commit by somebody else.
    std::string version() const { return sqlite::pragma(watcher_.get(), "PRAGMA data_version"); }

    void make_as_new() const { copy(as_new_.get(), watcher_.get()); }

    std::string token;

private:
    static void copy(sqlite3* from, sqlite3* to) {
        sqlite3_backup* const backup = sqlite3_backup_init(to, "main", from, "main");
        if (backup != nullptr) sqlite3_backup_step(backup, -1);
        if (sqlite3_backup_finish(backup) != SQLITE_OK) throw std::runtime_error(sqlite3_errmsg(to));
    }

    std::filesystem::path folder_;
    sqlite::Database watcher_, as_new_;
    std::ostringstream log_;
    std::unique_ptr<service::Service> service_;
};

/// As the library reads a head, with the token where the text says {token}. Ends behind the empty line.
httplib::Request request_of(std::string_view& text, const std::string& token) {
    constexpr std::string_view mark = "{token}";
    httplib::Request request;
    std::string_view line = first_line(text);
    const std::size_t blank = std::min(line.find(' '), line.size());
    request.method = line.substr(0, blank);
    request.target = line.substr(std::min(blank + 1, line.size()));
    request.path = httplib::detail::decode_url(request.target.substr(0, request.target.find('?')), false);
    request.remote_addr = "127.0.0.1";
    while (!(line = first_line(text)).empty()) {
        const std::size_t colon = std::min(line.find(": "), line.size());
        std::string value(line.substr(std::min(colon + 2, line.size())));
        if (const auto at = value.find(mark); at != std::string::npos) value.replace(at, mark.size(), token);
        request.headers.emplace(line.substr(0, colon), value);
    }
    // Clients say it; texts that change would seldom say it right.
    if (request.method == "POST" && !request.has_header("Content-Length") && !request.has_header("Transfer-Encoding")) {
        request.headers.emplace("Content-Length", std::to_string(text.size()));
    }
    return request;
}

bool is_one_line_of_json(std::string_view text) {
    return !text.empty() && text.find('\n') == text.size() - 1 && nlohmann::json::accept(text);
}

void require_known_form(const httplib::Response& response, std::string_view shown) {
    constexpr std::array known{200, 204, 400, 401, 403, 404, 405, 411, 413, 414, 415, 422, 501};
    require(std::find(known.begin(), known.end(), response.status) != known.end(), "a status that is promised", shown,
            std::to_string(response.status) + " " + response.body);
    for (const auto& [name, value] : response.headers) {
        require(std::none_of(value.begin(), value.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; }),
                "a header is one line", shown, name + ": " + value);
    }
    const bool is_json = response.get_header_value("Content-Type") == "application/json";
    require(!is_json || nlohmann::json::accept(response.body), "a body is what its type says", shown, response.body);
}

/// What a unit of work that was kept answers, and one that was not.
void require_outcome(const httplib::Response& response, std::string_view shown) {
    const std::string outcome = response.get_header_value("Cuvexa-Outcome");
    const auto json = nlohmann::json::parse(response.body, nullptr, false);
    if (json.is_discarded() || response.status != 200) return;
    bool failed = false;
    for (const auto& one : json.is_array() ? json : nlohmann::json::array({json})) {
        failed = failed || (one.is_object() && one.contains("error"));
    }
    require(outcome != "kept" || !failed, "what is kept has not failed in part", shown, response.body);
    require(outcome != "undone" || response.has_header("Cuvexa-Ended-By"), "what is undone says by what", shown);
}

void require_same_again(Stage& stage, const httplib::Request& request, std::string_view body,
                        const httplib::Response& first, std::string_view shown) {
    const std::string before = stage.version();
    const httplib::Response again = stage.answer(request, body);
    require(again.status == first.status && again.body == first.body, "a key gives the same answer", shown, again.body);
    require(again.get_header_value("Idempotency-Replayed") == "true", "it says that it did nothing", shown);
    require(stage.version() == before, "it does nothing", shown);
}

void ask(Stage& stage, std::string_view shown) {
    std::string_view body = shown;
    const httplib::Request request = request_of(body, stage.token);
    const std::string before = stage.version();
    const httplib::Response response = stage.answer(request, body);
    const std::string logged = stage.logged();
    require_known_form(response, shown);
    require_outcome(response, shown);
    require(is_one_line_of_json(logged), "the log tells it in one line", shown, logged);
    for (const std::string_view told : {std::string_view(response.body), std::string_view(logged)}) {
        require(told.find(stage.token) == std::string_view::npos, "no token is shown", shown, told);
    }
    if (stage.version() == before) return;
    const std::string outcome = response.get_header_value("Cuvexa-Outcome");
    require(outcome == "kept" || outcome == "statement-by-statement", "what changes is said to be kept", shown,
            response.body);
    if (outcome == "kept" && request.has_header("Idempotency-Key")) {
        require_same_again(stage, request, body, response, shown);
    }
    stage.make_as_new();
}

}  // namespace
}  // namespace cuvexa::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static cuvexa::fuzz::Stage stage;
    cuvexa::fuzz::ask(stage, cuvexa::fuzz::text_of(data, size));
    return 0;
}
