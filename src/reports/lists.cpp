#include "reports/lists.h"

#include <utility>

#include "core/text.h"
#include "reports/conditions.h"

namespace cuvexa::reports {

namespace {

bool by_date(const View& view, const Question& question) {
    return question.order == Order::newest_first && !view.date.empty();
}

/// Refuses what the view has no column for.
void require_known(const View& view, const Question& question) {
    const auto require = [](bool given, std::string_view column, const char* name) {
        if (given && column.empty()) throw Bad_question(std::string("these rows have no ") + name);
    };
    require(question.from || question.to, view.date, "date: from and to do not fit");
    require(!question.state.empty(), view.state, "state");
    require(!question.branch.empty(), view.branch, "branch");
    require(!question.account.empty(), view.account, "account");
    require(question.amount.has_value(), view.amount, "amount");
    require(!question.text.empty(), view.texts.empty() ? "" : view.texts.front(), "text to look in");
    const std::size_t steps = by_date(view, question) ? 2 : 1;
    if (!question.behind.empty() && question.behind.size() != steps) {
        throw Bad_question("after is no place of this list in this order");
    }
}

/// Behind a place. The first condition alone is what an index is entered by.
std::string behind(const Source& source, const View& view, const Question& question) {
    const std::string key = view.qualified(view.key);
    if (!by_date(view, question)) return key + " > " + sql_quoted(question.behind[0]);
    const std::string date = view.qualified(view.date);
    const std::string day = date_literal(question.behind[0], source.dates);
    return date + " <= " + day + " AND (" + date + " < " + day + " OR " + key + " < " + sql_quoted(question.behind[1]) +
           ")";
}

/// What leads through the index of the order: its dates and the place.
std::string in_order(const Source& source, const View& view, const Question& question) {
    std::vector<std::string> conditions;
    if (by_date(view, question)) {
        conditions.push_back(between_days(view.qualified(view.date), question.from, question.to, source.dates));
    }
    if (!question.behind.empty()) conditions.push_back(behind(source, view, question));
    if (!view.first.empty()) conditions.emplace_back(view.first);
    return conditions.empty() ? "" : " WHERE " + joined(conditions, " AND ");
}

/// What is looked for among the rows: their columns have the names of the view.
std::string searched(const Source& source, const View& view, const Question& question) {
    std::vector<std::string> conditions;
    // In another order dates are looked for: through their index all rows of those days would be sorted for each page.
    if (!by_date(view, question) && (question.from || question.to)) {
        conditions.push_back(between_days(view.date, question.from, question.to, source.dates));
    }
    const auto equal = [&](std::string_view column, const std::string& value) {
        if (!value.empty()) conditions.push_back(std::string(column) + " = " + sql_quoted(value));
    };
    equal(view.state, question.state);
    equal(view.branch, question.branch);
    equal(view.account, question.account);
    if (question.amount) {
        conditions.push_back("ABS(ABS(" + std::string(view.amount) + ") - " +
                             number_text(question.amount < 0 ? -*question.amount : *question.amount) + ") < 0.005");
    }
    if (!question.text.empty()) {
        std::vector<std::string> anywhere;
        for (const std::string_view column : view.texts) anywhere.push_back(holds(column, question.text));
        conditions.push_back('(' + joined(anywhere, " OR ") + ')');
    }
    return joined(conditions, " AND ");
}

std::string top(std::size_t count) {
    return "SELECT TOP " + std::to_string(count) + ' ';
}

/// " ORDER BY", of the table's columns or, with an empty table, of those of a sub-select; the other way round if wanted.
std::string ordered(const View& view, const Question& question, bool of_table, bool turned = false) {
    const auto name = [&](std::string_view column) { return of_table ? view.qualified(column) : std::string(column); };
    if (!by_date(view, question)) return " ORDER BY " + name(view.key) + (turned ? " DESC" : "");
    const char* const way = turned ? "" : " DESC";
    return " ORDER BY " + name(view.date) + way + ", " + name(view.key) + way;
}

std::string text_of(std::string_view view) {
    return std::string(view);
}

std::vector<std::string> place_of(const View& view, const Question& question, const Value& date, const Value& key) {
    if (by_date(view, question)) return {to_text(date), to_text(key)};
    return {to_text(key)};
}

/// Where the documents end that a search has looked at; empty when there were no more.
std::vector<std::string> end_of_search(const Source& source, const View& view, const Question& question) {
    std::string keys = view.qualified(view.key);
    if (!view.date.empty()) keys += ", " + view.qualified(view.date);
    const std::string looked_at = "(" + top(searched_documents) + keys + " FROM " + text_of(view.table) +
                                  in_order(source, view, question) + ordered(view, question, true) + ") AS Tramo";
    if (source.query("SELECT COUNT(*) AS Renglones FROM " + looked_at).number("Renglones") < searched_documents) {
        return {};
    }
    const Rows last = source.query(top(1) + "* FROM " + looked_at + ordered(view, question, false, true));
    return place_of(view, question, view.date.empty() ? Value() : last.value(view.date), last.value(view.key));
}

std::string statement_of(const Source& source, const View& view, const Question& question) {
    const std::string conditions = searched(source, view, question);
    const std::string rows = text_of(view.select) + ' ' + text_of(view.from) + in_order(source, view, question) +
                             ordered(view, question, true);
    // One row more tells whether there is a next page.
    if (conditions.empty()) return top(question.limit + 1) + rows;
    return top(question.limit + 1) + "* FROM (" + top(searched_documents) + rows + ") AS Tramo WHERE " + conditions +
           ordered(view, question, false);
}

}  // namespace

Page read_list(const Source& source, const View& view, const Question& question) {
    require_known(view, question);
    Page page{{view.columns}};
    page.table.rows = read_rows(*source.connection.execute(statement_of(source, view, question)), view.columns);
    auto& rows = page.table.rows;
    if (rows.size() > question.limit) {
        rows.pop_back();
        const Value date = view.date.empty() ? Value() : value_in(rows.back(), view.columns, view.date);
        page.next = place_of(view, question, date, value_in(rows.back(), view.columns, view.key));
    } else if (!searched(source, view, question).empty()) {
        page.next = end_of_search(source, view, question);
    }
    return page;
}

std::optional<Row> read_document_row(const Source& source, const View& view, const std::string& key) {
    auto rows = read_rows_where(source, view, view.qualified(view.key) + " = " + sql_quoted(key), 1);
    if (rows.empty()) return std::nullopt;
    return std::move(rows.front());
}

std::vector<Row> read_rows_where(const Source& source, const View& view, const std::string& condition,
                                 std::size_t most) {
    std::string statement = top(most) + text_of(view.select) + ' ' + text_of(view.from) + " WHERE " + condition;
    if (!view.first.empty()) statement.append(" AND ").append(view.first);
    statement.append(" ORDER BY ").append(view.qualified(view.key));
    return read_rows(*source.connection.execute(statement), view.columns);
}

}  // namespace cuvexa::reports
