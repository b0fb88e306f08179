// '' where a date is wanted: SQL Server reads 1 January 1900, other engines refuse it.
#include <algorithm>
#include <string>
#include <utility>

#include "database/dialect/grammar.h"
#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

class Empty_dates {
public:
    explicit Empty_dates(const Date_columns& dates) : dates_(dates) {}

    void fill(Nodes& nodes) const {
        fill_insert(nodes);
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            if (i > 0 && nodes[i].is_group() && nodes[i - 1].is_any_word({"ISNULL", "COALESCE", "NULLIF"})) {
                fill_arguments(nodes[i].children);
            }
            if (i > 1 && is_comparison_sign(nodes[i - 1])) fill_pair(nodes, i);
            fill(nodes[i].children);
        }
    }

private:
    bool is_date(const Node& node) const {
        if (!node.is_name()) return false;
        std::string name(plain_name(node));
        for (char& c : name) c = lower_ascii(c);
        return dates_.contains(name);
    }

    static bool is_empty_text(const Node& node) {
        return node.is_text_literal() && (node.text == "''" || same_text(node.text, "N''"));
    }

    static void fill_text(Node& node) {
        node.text = "'1900-01-01'";
        node.is_text = false;
        node.pinned = true;
    }

    // a = '', '' = T.a
    void fill_pair(Nodes& nodes, std::size_t right) const {
        Node& left = nodes[right - 2];
        if (is_empty_text(nodes[right]) && is_date(left)) fill_text(nodes[right]);
        std::size_t name = right;
        while (name + 2 < nodes.size() && nodes[name + 1].is_symbol(".")) name += 2;
        if (is_empty_text(left) && is_date(nodes[name])) fill_text(left);
    }

    // ISNULL(T.a, '')
    void fill_arguments(Nodes& arguments) const {
        const std::vector<Nodes> parts = split_at_commas(arguments);
        if (std::none_of(parts.begin(), parts.end(),
                         [&](const Nodes& part) { return !part.empty() && is_date(part.back()); })) {
            return;
        }
        for (Node& node : arguments) {
            if (is_empty_text(node)) fill_text(node);
        }
    }

    // INSERT INTO T (a, b) VALUES ('', ''), INSERT INTO T (a, b) SELECT '', ''
    void fill_insert(Nodes& nodes) const {
        if (nodes.empty() || !nodes.front().is_word("INSERT")) return;
        const auto columns = std::find_if(nodes.begin(), nodes.end(), [](const Node& node) { return node.is_group(); });
        if (columns == nodes.end()) return;
        const std::vector<Nodes> names = split_at_commas(columns->children);
        for (auto it = columns + 1; it != nodes.end(); ++it) {
            if (it->is_group()) fill_row(it->children, 0, names);
            if (it->is_word("SELECT")) return fill_row(nodes, static_cast<std::size_t>(it - nodes.begin()), names);
        }
    }

    void fill_row(Nodes& nodes, std::size_t first, const std::vector<Nodes>& names) const {
        if (first < nodes.size() && nodes[first].is_word("SELECT")) ++first;
        std::size_t column = 0;
        for (std::size_t i = first; i < nodes.size() && !nodes[i].is_word("FROM"); ++i) {
            if (nodes[i].is_symbol(",")) ++column;
            const bool alone = (i == first || nodes[i - 1].is_symbol(",")) &&
                               (i + 1 == nodes.size() || nodes[i + 1].is_symbol(",") || nodes[i + 1].is_name());
            if (!alone || column >= names.size() || names[column].empty()) continue;
            if (is_empty_text(nodes[i]) && is_date(names[column].back())) fill_text(nodes[i]);
        }
    }

    const Date_columns& dates_;
};

}  // namespace

void fill_empty_dates(Nodes& statement, const Date_columns& dates) {
    Empty_dates(dates).fill(statement);
}

}  // namespace cuvexa::dialect
