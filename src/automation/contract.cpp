#include "automation/contract.h"

#include <algorithm>
#include <cctype>

#include "core/text.h"

namespace cuvexa::automation {

namespace {

constexpr std::string_view blanks = " \t";

bool is_word(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_';
}

/// The word that ends at a place: `Bm_Importe` of "double Bm_Importe = 0;" at its "=".
std::string_view word_before(std::string_view line, std::size_t end) {
    while (end > 0 && line[end - 1] == ' ') --end;
    std::size_t begin = end;
    while (begin > 0 && is_word(line[begin - 1])) --begin;
    return line.substr(begin, end - begin);
}

/// The name that a line declares inside a type; empty when it declares none.
std::string_view declared_name(std::string_view line) {
    const std::size_t end = line.find_first_of("(;=");
    return end == std::string_view::npos ? std::string_view() : word_before(line, end);
}

/// Goes through headers line by line.
class Reader {
public:
    Contract read(std::string_view headers) {
        while (!headers.empty()) {
            const std::size_t end = std::min(headers.find('\n'), headers.size());
            take(headers.substr(0, end));
            headers.remove_prefix(std::min(end + 1, headers.size()));
        }
        return std::move(contract_);
    }

private:
    void take(std::string_view line) {
        const std::string_view text = trimmed(line, blanks);
        if (text.starts_with("///")) {
            add(comment_, text.substr(3));
        } else if (line.starts_with("//") && at_top_) {
            add(of_file_, text.substr(2));
        } else if (line == "#pragma once") {
            at_top_ = false;
        } else if (line.starts_with("}  // namespace")) {
            at_top_ = true;
            of_file_.clear();
        } else if ((line.starts_with("struct ") || line.starts_with("class ")) && line.ends_with("{")) {
            type_ = word_before(line, line.size() - 1);
            if (comment_.empty()) comment_ = of_file_;
            note("");
        } else if (const std::string_view name = declared_name(text); !name.empty() && line.starts_with("    ")) {
            if (const std::size_t behind = text.find("///<"); behind != std::string_view::npos) {
                comment_ = trimmed(text.substr(behind + 4), blanks);
            }
            note(name);
        } else {
            comment_.clear();
        }
    }

    static void add(std::string& comment, std::string_view line) {
        comment.append(comment.empty() ? "" : "\n").append(trimmed(line, blanks));
    }

    void note(std::string_view name) {
        if (!comment_.empty()) contract_.try_emplace({type_, std::string(name)}, std::move(comment_));
        comment_.clear();
    }

    Contract contract_;
    std::string type_;
    std::string comment_;
    std::string of_file_;
    bool at_top_ = true;  ///< of a header
};

}  // namespace

Contract contract_of(std::string_view headers) {
    return Reader().read(headers);
}

std::string_view refusals_in(std::string_view comment) {
    const std::size_t begin = std::min(comment.find("Refus"), comment.size());
    const std::size_t end = comment.find("Left half done", begin);
    return trimmed(comment.substr(begin, end == std::string_view::npos ? end : end - begin), " \n");
}

}  // namespace cuvexa::automation
