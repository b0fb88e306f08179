#include "statements/telling.h"

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

constexpr std::size_t widest = 118;

constexpr std::array<std::string_view, 9> clauses = {"FROM ",     "WHERE ", "INNER JOIN ", "LEFT JOIN ", "GROUP BY ",
                                                     "ORDER BY ", "VALUES", "HAVING ",     "SELECT "};

/// The blanks of a statement outside of its texts and, where it can be, of its parentheses, as the places for line breaks.
class Layout {
public:
    explicit Layout(const std::string& text) : text_(text) {
        for (std::size_t at = 0; at < text.size(); ++at) look_at(at);
        wrap(text.size());
    }

    std::string lines() const {
        std::string out = text_;
        for (const std::size_t at : breaks_) out[at] = '\n';
        return out;
    }

private:
    void look_at(std::size_t at) {
        const char c = text_[at];
        if (c == '\'') in_text_ = !in_text_;
        if (in_text_) return;
        if (c == '(') ++depth_;
        if (c == ')') --depth_;
        if (c != ' ' || at == 0 || text_[at - 1] == ' ') return;
        if (is_break(at)) {
            wrap(at);
            break_at(at);
        } else {
            wrap(at);
            candidate_ = at;
            if (text_[at - 1] == ',') comma_ = at;
        }
    }

    /// A run of blanks is a line of the sources; so is a clause of the statement itself.
    bool is_break(std::size_t at) const {
        const std::string_view rest = std::string_view(text_).substr(at + 1);
        if (rest.starts_with(' ')) return rest.find_first_not_of(' ') != std::string_view::npos;
        const bool verb_of_two_words = at == std::string_view("DELETE").size();
        return depth_ == 0 && !verb_of_two_words &&
               std::any_of(clauses.begin(), clauses.end(),
                           [&](std::string_view clause) { return rest.starts_with(clause); });
    }

    /// Breaks the line that ends there when it is too long, behind a comma unless that leaves much of the line empty.
    void wrap(std::size_t end) {
        if (end - line_ <= widest) return;
        if (comma_ > line_ + widest / 2) {
            break_at(comma_);
        } else if (candidate_ > line_) {
            break_at(candidate_);
        }
    }

    void break_at(std::size_t at) {
        breaks_.push_back(at);
        line_ = at + 1;
    }

    const std::string& text_;
    std::vector<std::size_t> breaks_;
    std::size_t line_ = 0;       ///< where the line begins
    std::size_t candidate_ = 0;  ///< the last blank that the line could end at
    std::size_t comma_ = 0;      ///< the last one behind a comma
    int depth_ = 0;
    bool in_text_ = false;
};

/// A comment of as many lines as it takes.
std::string comment(const std::string& text) {
    std::string out = "-- ";
    std::size_t width = 3;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find(", ", at), text.size() - 1) + 1;
        if (width > 3 && width + end - at > widest) {
            out += "\n--    ";
            width = 6;
            if (text[at] == ' ') ++at;
        }
        out += text.substr(at, end - at);
        width += end - at;
        at = end;
    }
    return out + "\n";
}

std::string listed(const std::vector<std::string>& texts) {
    std::string out;
    for (const std::string& text : texts) out += (out.empty() ? "" : ", ") + text;
    return out;
}

/// "'B' for 'A', 2 for 1"; all values where one value became several.
std::string differences(const std::vector<std::string>& before, const std::vector<std::string>& now) {
    std::map<std::string, std::string> became;
    std::vector<std::string> told;
    for (std::size_t i = 0; i < now.size(); ++i) {
        const auto [known, added] = became.emplace(before[i], now[i]);
        if (known->second != now[i]) return listed(now);
        if (added && before[i] != now[i]) told.push_back(now[i] + " for " + before[i]);
    }
    return listed(told);
}

}  // namespace

std::string laid_out(const std::string& statement) {
    std::string text = Layout(statement).lines() + ";\n";
    const std::vector<Told_statement> read_back = statements_in(text);
    if (read_back.size() != 1 || read_back[0].text != statement) {
        throw std::runtime_error("the files of statements have no form for: " + statement);
    }
    return text;
}

std::string Teller::tell(const std::string& member, const std::vector<Case_trace>& cases) {
    std::string text = "-- " + member + "\n";
    for (const Case_trace& of_case : cases) {
        text += "\n-- ---- " + of_case.title + "\n";
        bool in_full_before = true;
        for (const Sent& sent : of_case.sent) {
            const std::string told = tell_one(member, sent);
            const bool in_full = told.ends_with(";\n");
            if (in_full || in_full_before) text += "\n";
            text += told;
            in_full_before = in_full;
        }
    }
    return text;
}

std::string Teller::tell_one(const std::string& member, const Sent& sent) {
    const Statement_form statement(sent.text);
    std::string name = in_short(sent.text);
    const auto [found, is_new] = homes_.try_emplace(statement.form, Home{member, name, statement.values});
    Home& home = found->second;
    if (is_new) {
        const int number = ++names_[member + ": " + name];
        if (number > 1) home.name += " (" + std::to_string(number) + ")";
        return (number > 1 ? "-- " + home.name + "\n" : "") + (sent.refused ? std::string(refused_mark) + "\n" : "") +
               laid_out(sent.text);
    }
    const bool own = home.member == member;
    const std::string with = own ? differences(home.values, statement.values) : listed(statement.values);
    return comment((own ? "again " : home.member + ": ") + home.name + (with.empty() ? "" : " with " + with) +
                   (sent.refused ? ", which the database refuses" : ""));
}

}  // namespace cuvexa::tests
