#include "statements/source_statements.h"

#include <cctype>
#include <filesystem>
#include <string_view>

#include "support/statement_files.h"

namespace cuvexa::tests {
namespace {

/// Goes through a source, from one text literal to the next.
class Literals {
public:
    explicit Literals(const std::string& source) : source_(source) {}

    std::vector<std::string> all() {
        for (; at_ < source_.size(); ++at_) {
            if (rest().starts_with("//")) {
                at_ = std::min(source_.find('\n', at_), source_.size() - 1);
            } else if (rest().starts_with("R\"(")) {
                const std::size_t end = source_.find(")\"", at_);
                add(source_.substr(at_ + 3, end - at_ - 3));
                at_ = end + 1;
            } else if (source_[at_] == '"') {
                add(quoted('"'));
            } else if (source_[at_] == '\'' &&
                       (at_ == 0 || !std::isalnum(static_cast<unsigned char>(source_[at_ - 1])))) {
                quoted('\'');
                goes_on_ = false;
            } else if (!std::isspace(static_cast<unsigned char>(source_[at_]))) {
                goes_on_ = false;
            }
        }
        return std::move(found_);
    }

private:
    std::string_view rest() const { return std::string_view(source_).substr(at_); }

    /// The content of the literal that begins here, which is left at its closing mark.
    std::string quoted(char mark) {
        std::string text;
        for (++at_; at_ < source_.size() && source_[at_] != mark; ++at_) {
            if (source_[at_] == '\\') ++at_;
            text += source_[at_];
        }
        return text;
    }

    void add(const std::string& text) {
        if (goes_on_) {
            found_.back() += text;
        } else {
            found_.push_back(text);
        }
        goes_on_ = true;
    }

    const std::string& source_;
    std::size_t at_ = 0;
    bool goes_on_ = false;  ///< nothing but blanks since the last one
    std::vector<std::string> found_;
};

bool begins_statement(const std::string& text) {
    for (const std::string_view verb : {"SELECT ", "INSERT ", "UPDATE ", "DELETE "}) {
        if (text.starts_with(verb)) return true;
    }
    return false;
}

}  // namespace

std::vector<std::string> literals_of(const std::string& source) {
    return Literals(source).all();
}

std::vector<Source_statement> source_statements(const std::string& room) {
    std::vector<Source_statement> found;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(in_source("src/" + room))) {
        if (entry.path().extension() != ".cpp" && entry.path().extension() != ".h") continue;
        const std::string source = text_of_file(entry.path());
        for (const std::string& text : literals_of(source)) {
            if (begins_statement(text)) found.push_back({room + "/" + entry.path().filename().string(), text});
        }
    }
    return found;
}

bool comes_of(const std::string& statement, const std::string& literal) {
    std::size_t at = 0;
    for (std::size_t from = 0; from <= literal.size();) {
        // "{}" is filled by the operation, "?" by a form with what its user typed.
        const std::size_t brace = literal.find("{}", from);
        const std::size_t mark = literal.find('?', from);
        const std::size_t end = std::min({brace, mark, literal.size()});
        const std::string piece = literal.substr(from, end - from);
        const std::size_t found = statement.find(piece, at);
        if (found == std::string::npos || (from == 0 && found != 0)) return false;
        at = found + piece.size();
        from = end + (end == brace ? 2 : 1);
    }
    return true;
}

}  // namespace cuvexa::tests
