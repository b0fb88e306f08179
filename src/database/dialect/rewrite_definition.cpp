// CREATE TABLE, ALTER TABLE … ADD, CREATE INDEX, DROP INDEX: column types and words that only SQL Server knows.
#include <string>
#include <utility>

#include "database/dialect/limits.h"
#include "database/dialect/rewriting.h"

namespace cuvexa::dialect {
namespace {

std::string marked(std::string_view name) {
    std::string result = "\"";
    for (const char c : name) result.append(c == '"' ? 2 : 1, c);
    return result += '"';
}

class Definition {
public:
    explicit Definition(const Dialect& dialect) : dialect_(dialect) {}

    Nodes rewrite(Nodes nodes) const {
        nodes = without_storage(std::move(nodes));
        const bool table = nodes.size() > 1 && nodes[1].is_word("TABLE");
        if (!table) return without_table_of_index(std::move(nodes));
        if (nodes.front().is_word("CREATE") && nodes.back().is_group()) {
            nodes.back().children = columns(nodes.back().children);
        } else if (nodes.front().is_word("ALTER")) {
            rewrite_added_column(nodes);
        }
        return nodes;
    }

private:
    // [dbo]., CLUSTERED, IDENTITY(1,1), ON [PRIMARY]: where and how rows are kept is the engine's own business.
    static Nodes without_storage(Nodes nodes) {
        Nodes result;
        for (std::size_t i = 0; i < nodes.size(); ++i) {
            const bool more = i + 1 < nodes.size();
            if (nodes[i].is_any_word({"CLUSTERED", "NONCLUSTERED"})) continue;
            if (nodes[i].is_any_word({"IDENTITY", "INCLUDE"})) {
                i += more && nodes[i + 1].is_group() ? 1 : 0;
            } else if (more && nodes[i].is_word("ON") && same_text(plain_name(nodes[i + 1]), "PRIMARY")) {
                ++i;
            } else if (more && nodes[i].is_name() && nodes[i + 1].is_symbol(".") &&
                       same_text(plain_name(nodes[i]), "dbo")) {
                ++i;
            } else {
                nodes[i].children = without_storage(std::move(nodes[i].children));
                result.push_back(std::move(nodes[i]));
            }
        }
        return result;
    }

    // DROP INDEX I ON T: an index has its name in the whole database.
    static Nodes without_table_of_index(Nodes nodes) {
        const bool dropped = nodes.size() > 1 && nodes[0].is_word("DROP") && nodes[1].is_word("INDEX");
        if (dropped) cut(nodes, find_word(nodes, {"ON"}), nodes.size());
        return nodes;
    }

    Nodes columns(const Nodes& nodes) const {
        Nodes result;
        for (Nodes& part : split_at_commas(nodes)) {
            if (!result.empty()) result.push_back(symbol(","));
            append(result, column(std::move(part)));
        }
        return result;
    }

    Nodes column(Nodes part) const {
        if (part.size() < 2 || part.front().is_any_word({"CONSTRAINT", "PRIMARY", "UNIQUE", "FOREIGN", "CHECK"})) {
            return part;
        }
        Nodes limit;
        if (const Type_rule* const type = part[1].is_name() ? dialect_.type(plain_name(part[1])) : nullptr) {
            Nodes length = part.size() > 2 && part[2].is_group() ? cut(part, 2, 3).front().children : Nodes{};
            limit = limit_of(part.front(), std::move(length), type->limit);
            part[1] = word(type->column);
        }
        part = with_default(std::move(part));
        append(part, std::move(limit));
        return part;
    }

    // CONSTRAINT "A: admite hasta 10 caracteres" CHECK (…); of (max) there is none.
    static Nodes limit_of(const Node& column, Nodes length, const Limit& limit) {
        const bool needs_length = limit.fits.find("$2") != std::string_view::npos;
        if (limit.fits.empty() || (needs_length && (length.size() != 1 || !length.front().is_number()))) return {};
        const std::string name =
            limit_name(plain_name(column), limit.takes, needs_length ? length.front().text : std::string_view());
        return {word("CONSTRAINT"), composed(marked(name)), word("CHECK"),
                group(filled(limit.fits, {{column}, std::move(length)}))};
    }

    // DEFAULT GETDATE(): a call stands between parentheses.
    Nodes with_default(Nodes part) const {
        const std::size_t at = find_word(part, {"DEFAULT"}) + 1;
        if (at >= part.size()) return part;
        const std::size_t end = at + (at + 1 < part.size() && part[at].is_name() && part[at + 1].is_group() ? 2 : 1);
        Nodes value = cut(part, at, end);
        const bool call = value.size() == 2;
        value = rewrite_expressions(std::move(value), dialect_);
        Nodes result = cut(part, 0, at);
        append(result, call ? Nodes{group(std::move(value))} : std::move(value));
        append(result, std::move(part));
        return result;
    }

    // ALTER TABLE T ADD [COLUMN] name type …
    void rewrite_added_column(Nodes& nodes) const {
        std::size_t at = find_word(nodes, {"ADD"}) + 1;
        if (at < nodes.size() && nodes[at].is_word("COLUMN")) ++at;
        if (at >= nodes.size()) return;
        append(nodes, column(cut(nodes, at, nodes.size())));
    }

    const Dialect& dialect_;
};

}  // namespace

Nodes rewrite_definition(Nodes nodes, const Dialect& dialect) {
    return Definition(dialect).rewrite(std::move(nodes));
}

}  // namespace cuvexa::dialect
