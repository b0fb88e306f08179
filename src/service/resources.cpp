#include "service/resources.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "cuvexa/suite/audit.h"
#include "reports/account_statement.h"
#include "reports/budgets.h"
#include "reports/document.h"
#include "reports/findings.h"
#include "reports/lists.h"
#include "reports/rows_text.h"
#include "service/form.h"
#include "service/paper_statement.h"
#include "service/query.h"

namespace cuvexa::service {

namespace {

using reports::Address;
using reports::Bad_question;
using reports::Balance;
using reports::csv_of;
using reports::json_of_row;
using reports::json_of_rows;
using reports::Page;
using reports::Question;
using reports::Source;
using reports::Table;
using reports::View;
using reports::written;
using Json = reports::Ordered_json;

constexpr int most_days = 3660;

/// What is answered: rows, with what else an answer in JSON tells; or a page that is no table.
struct Answer {
    Json json;
    std::optional<Table> table = {};
    std::string next = {};
};

// ---- What a query asks for ------------------------------------------------------------------------------------------

Question question_of(const httplib::Request& http) {
    const Query query(http, {"from", "to", "state", "branch", "account", "text", "amount", "order", "after", "limit"});
    const reports::Period period = query.period();
    Question question;
    question.from = period.from;
    question.to = period.to;
    question.state = query.text("state");
    question.branch = query.text("branch");
    question.account = query.text("account");
    question.text = query.text("text");
    question.amount = query.amount();
    question.behind = query.place();
    question.limit = query.limit();
    const std::string order = query.text("order");
    if (order == "folio") question.order = reports::Order::by_key;
    if (query.has("order") && order != "folio" && order != "date") {
        throw Bad_question("order is date or folio: " + order);
    }
    return question;
}

// ---- What there is to read ------------------------------------------------------------------------------------------

/// In letters that stand in a header and in a query too.
std::string text_of_place(const std::vector<std::string>& place) {
    if (place.empty()) return {};
    return nlohmann::json(place).dump(-1, ' ', true, nlohmann::json::error_handler_t::replace);
}

Json json_of_place(const std::string& place) {
    return place.empty() ? Json(nullptr) : Json(place);
}

Answer list(const Source& source, const View& view, const httplib::Request& http) {
    Page page = read_list(source, view, question_of(http));
    Answer answer{Json::object(), std::move(page.table), text_of_place(page.next)};
    answer.json["rows"] = json_of_rows(*answer.table);
    answer.json["next"] = json_of_place(answer.next);
    return answer;
}

Json json_of(const Balance& balance) {
    return {{"balance", balance.total}, {"firm", balance.firm}};
}

Json json_of(const std::optional<Date>& day) {
    return day ? Json(iso_date(*day)) : Json(nullptr);
}

std::optional<Answer> one_account(const Source& source, const std::string& account, const httplib::Request& http) {
    const Query none(http, {});
    const View& accounts = *reports::find_view("accounts");
    const auto row = read_document_row(source, accounts, account);
    if (!row) return std::nullopt;
    return Answer{json_of_row(*row, accounts.columns)};
}

std::optional<Answer> statement(const Source& source, const std::string& account, const httplib::Request& http) {
    const Query query(http, {"from", "to", "after", "limit"});
    const reports::Period period = query.period();
    const View& accounts = *reports::find_view("accounts");
    const auto row = read_document_row(source, accounts, account);
    if (!row) return std::nullopt;
    auto page = read_statement(source, account, period, query.limit(), query.place());
    Answer answer{Json::object(), std::move(page.table), text_of_place(page.next)};
    answer.json["account"] = json_of_row(*row, accounts.columns);
    answer.json["from"] = json_of(period.from);
    answer.json["to"] = json_of(period.to);
    answer.json["opening"] = json_of(page.opening);
    answer.json["rows"] = json_of_rows(*answer.table);
    answer.json["next"] = json_of_place(answer.next);
    answer.json["closing"] = json_of(page.closing);
    return answer;
}

reports::Period bounded(const reports::Period& period) {
    if (!period.from || !period.to) throw Bad_question("from and to are both needed");
    if (period.to->days - period.from->days >= most_days) {
        throw Bad_question("more than " + std::to_string(most_days) + " days");
    }
    return period;
}

Json daily_balances(const Source& source, const std::string& account, const reports::Period& period) {
    const auto daily = read_daily_balances(source, account, period);
    Json days = Json::array();
    for (const reports::Day& day : daily.days) {
        days.push_back({{"date", iso_date(day.date)},
                        {"in", day.in},
                        {"out", day.out},
                        {"balance", day.balance.total},
                        {"firm", day.balance.firm}});
    }
    return {{"opening", json_of(daily.opening)}, {"days", std::move(days)}, {"closing", json_of(daily.closing)}};
}

std::optional<Answer> balances(const Source& source, const std::string& account, const httplib::Request& http) {
    const reports::Period period = bounded(Query(http, {"from", "to"}).period());
    if (!read_document_row(source, *reports::find_view("accounts"), account)) return std::nullopt;
    return Answer{daily_balances(source, account, period)};
}

Answer all_balances(const Source& source, const httplib::Request& http) {
    const reports::Period period = bounded(Query(http, {"from", "to"}).period());
    Json accounts = Json::array();
    for (Rows row = source.query("SELECT Bc_Cve_Banco_Cuenta FROM Banco_Cuenta ORDER BY Bc_Cve_Banco_Cuenta");
         !row.eof(); row.next()) {
        const std::string account = row.text("Bc_Cve_Banco_Cuenta");
        Json json{{"account", account}};
        json.update(daily_balances(source, account, period));
        accounts.push_back(std::move(json));
    }
    return {{{"accounts", std::move(accounts)}}};
}

Answer budgets(const Source& source, const httplib::Request& http) {
    const Query query(http, {"year"});
    Answer answer{Json::object(), read_budgets(source, query.whole("year", 1753, 9998, 0))};
    answer.json["rows"] = json_of_rows(*answer.table);
    answer.json["next"] = nullptr;
    return answer;
}

Answer findings(const Source& source, const httplib::Request& http) {
    using reports::Column;
    static constexpr Column columns[] = {{"check", "Revisión"}, {"document", "Documento"}, {"figures", "Cifras"},
                                         {"remedy", "Remedio"}, {"kind", "Tipo"},          {"folio", "Folio"}};
    const Query query(http, {"check"});
    const auto checks = audit_checks();
    const std::string check = query.text("check");
    const bool one = std::find(checks.begin(), checks.end(), check) != checks.end();
    if (query.has("check") && !one && check != "none") throw Bad_question("check is no rule of the audit: " + check);
    std::vector<Finding> found;
    if (one) found = audit_one(source.connection, check);
    if (!query.has("check")) found = audit(source.connection);

    Table table{columns};
    for (const Finding& finding : found) {
        const Address to = reports::address_of(finding);
        const bool none = to.kind.empty();
        table.rows.push_back({finding.check, finding.document, finding.figures, finding.remedy,
                              none ? Value() : Value(std::string(to.kind)), none ? Value() : Value(to.folio)});
    }
    Answer answer{Json::object(), std::move(table)};
    answer.json["checks"] = checks;
    answer.json["rows"] = json_of_rows(*answer.table);
    answer.json["next"] = nullptr;
    return answer;
}

// ---- One document ---------------------------------------------------------------------------------------------------

Json or_null(const std::string& text) {
    return text.empty() ? Json(nullptr) : Json(text);
}

Json json_of(const Address& address) {
    return {{"kind", std::string(address.kind)}, {"folio", address.folio}};
}

Json life_of(const reports::Document& document) {
    Json life = Json::array();
    for (const reports::Event& event : document.life) {
        Json json{
            {"event", event.name}, {"who", event.who}, {"when", or_null(event.when)}, {"state", or_null(event.state)}};
        if (!event.document.kind.empty()) json["document"] = json_of(event.document);
        life.push_back(std::move(json));
    }
    return life;
}

Json links_of(const reports::Document& document) {
    Json links = Json::array();
    for (const reports::Link& link : document.links) {
        Json json{{"relation", link.relation}};
        json.update(json_of(link.to));
        links.push_back(std::move(json));
    }
    return links;
}

std::optional<Answer> document(const Source& source, const View& view, const std::string& folio,
                               const httplib::Request& http) {
    const Query none(http, {});
    const auto found = read_document(source, view, folio);
    if (!found) return std::nullopt;
    Json json{{"kind", std::string(view.name)},
              {"folio", found->folio},
              {"title", std::string(view.document)},
              {"state", found->state},
              {"header", json_of_row(found->header, view.columns)},
              {"lines", json_of_rows(found->lines)},
              {"life", life_of(*found)},
              {"links", links_of(*found)}};
    for (const reports::Related_rows& related : found->related) {
        Json rows = json_of_rows(related.table);
        for (std::size_t i = 0; i < related.lines.size(); ++i) rows[i]["lines"] = json_of_rows(related.lines[i]);
        json[std::string(related.name)] = std::move(rows);
    }
    return Answer{std::move(json)};
}

// ---- The answer -----------------------------------------------------------------------------------------------------

/// What stands behind the first step: a folio may hold a slash.
std::string rest_of(const std::vector<std::string>& steps, std::size_t count) {
    std::string rest;
    for (std::size_t i = 1; i < count; ++i) rest.append(i == 1 ? "" : "/").append(steps[i]);
    return rest;
}

bool is_of_account(const std::vector<std::string>& steps, std::string_view what) {
    return steps.size() > 2 && steps[0] == "accounts" && steps.back() == what;
}

/// Nothing when there is no such document or account.
std::optional<Answer> answer_of(const Source& source, const std::vector<std::string>& steps,
                                const httplib::Request& http) {
    const std::string key = rest_of(steps, steps.size());
    if (is_of_account(steps, "statement")) return statement(source, rest_of(steps, steps.size() - 1), http);
    if (is_of_account(steps, "balances")) return balances(source, rest_of(steps, steps.size() - 1), http);
    if (steps[0] == "balances") return all_balances(source, http);
    if (steps[0] == "audit") return findings(source, http);
    if (steps[0] == "budgets") return budgets(source, http);
    const View& view = *reports::find_view(steps[0]);
    if (steps.size() == 1) return list(source, view, http);
    return view.document.empty() ? one_account(source, key, http) : document(source, view, key, http);
}

Reply reply_of(const Answer& answer, const httplib::Request& http) {
    const bool as_table = answer.table && lists(http.get_header_value("Accept"), "text/csv");
    if (!as_table) return {200, written(answer.json)};
    Reply reply{200, csv_of(*answer.table), "text/csv; charset=utf-8"};
    if (!answer.next.empty()) reply.headers.emplace("Cuvexa-Next", answer.next);
    return reply;
}

/// For its reader alone, and the same is not sent twice.
Reply kept_by_reader(Reply reply, const httplib::Request& http) {
    reply = with_tag(std::move(reply), http);
    reply.headers.emplace("Vary", "Accept, Authorization, Cookie");
    reply.headers.emplace("Cache-Control", "private, no-cache");
    return reply;
}

}  // namespace

bool is_resource(const std::vector<std::string>& steps) {
    if (steps.empty()) return false;
    const bool alone = steps[0] == "balances" || steps[0] == "audit" || steps[0] == "budgets";
    return alone ? steps.size() == 1 : reports::find_view(steps[0]) != nullptr;
}

Reply resource(const Source& source, const std::vector<std::string>& steps, const httplib::Request& http) {
    try {
        if (is_of_account(steps, "statement") && takes_paper(http)) {
            const Reply paper = paper_statement(source, rest_of(steps, steps.size() - 1), http);
            return paper.status == 200 ? kept_by_reader(paper, http) : paper;
        }
        const auto answer = answer_of(source, steps, http);
        if (!answer) return error_reply(404, "there is no such document or account");
        return kept_by_reader(reply_of(*answer, http), http);
    } catch (const Bad_question& question) {
        return error_reply(400, question.what());
    }
}

}  // namespace cuvexa::service
