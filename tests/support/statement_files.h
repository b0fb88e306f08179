// The files of tests/statements: every statement that the product sends, as the run of each member sent it.
//
// A file reads as SQL. A statement stands as its text has it, with a line break in the place of a blank and the blanks
// that follow as indentation; it ends with ";" at the end of a line. Nothing else is changed, so that the text is got
// back letter by letter. Comments are whole lines.
#pragma once

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "support/places.h"

namespace cuvexa::tests {

/// What stands above a statement that the database refuses.
inline constexpr std::string_view refused_mark = "-- The database refuses this one:";

struct Told_statement {
    std::string file;  ///< without folder: "Genera_Deposito.sql"
    std::string text;
    bool refused = false;
};

/// The statements that a text in the form of the files tells in full, in their order.
inline std::vector<Told_statement> statements_in(const std::string& text, const std::string& file = {}) {
    std::vector<Told_statement> found;
    Told_statement statement{file, {}};
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (statement.text.empty() && (line.empty() || line.starts_with("--"))) {
            statement.refused = line == refused_mark;
            continue;
        }
        statement.text += (statement.text.empty() ? "" : " ") + line;
        if (!line.ends_with(';')) continue;
        statement.text.pop_back();
        found.push_back(statement);
        statement = {file, {}};
    }
    if (!statement.text.empty()) throw std::runtime_error(file + ": a statement without end: " + statement.text);
    return found;
}

inline std::string text_of_file(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream content;
    content << in.rdbuf();
    return content.str();
}

/// The files of a folder of tests/statements ("" for the members, "suite" for the reference suite), by name.
inline std::vector<std::filesystem::path> statement_files(const std::string& folder = {}) {
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(in_source("tests/statements/" + folder))) {
        if (entry.path().extension() == ".sql") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// Every statement that the files tell in full: those of the members, then those of the reference suite.
inline std::vector<Told_statement> told_statements() {
    std::vector<Told_statement> all;
    for (const std::string folder : {"", "suite"}) {
        for (const auto& path : statement_files(folder)) {
            const std::vector<Told_statement> of_file = statements_in(text_of_file(path), path.filename().string());
            all.insert(all.end(), of_file.begin(), of_file.end());
        }
    }
    return all;
}

/// A statement as its form, with "?" for every value, and the values as they stand. A list of texts without blanks, as
/// "'R1','R2'", is one value: its length changes from call to call.
struct Statement_form {
    explicit Statement_form(std::string_view text) {
        for (std::size_t at = 0; at < text.size();) {
            const std::size_t length = value_at(text, at);
            if (length == 0) {
                form += text[at++];
                continue;
            }
            form += '?';
            values.emplace_back(text.substr(at, length));
            at += length;
        }
    }

    std::string form;
    std::vector<std::string> values;

private:
    static bool in_word(char c) { return std::isalnum(static_cast<unsigned char>(c)) || c == '_' || c == '.'; }
    static bool is_digit(char c) { return c >= '0' && c <= '9'; }

    /// The length of the text or number that begins there; 0 when none does.
    static std::size_t value_at(std::string_view text, std::size_t at) {
        std::size_t end = at;
        if (text[at] == '\'') {
            for (;;) {
                end = std::min(text.find('\'', end + 1), text.size() - 1) + 1;
                if (text.substr(end).starts_with(",'")) ++end;
                if (end >= text.size() || text[end] != '\'') return end - at;
            }
        }
        if (at > 0 && in_word(text[at - 1])) return 0;
        if (text[end] == '-') ++end;
        if (end >= text.size() || !is_digit(text[end])) return 0;
        while (end < text.size() && in_word(text[end])) {
            const bool exponent = (text[end] == 'E' || text[end] == 'e') && end + 1 < text.size();
            end += exponent && (text[end + 1] == '+' || text[end + 1] == '-') ? 2 : 1;
        }
        return end - at;
    }
};

/// The values of a statement in order of their text: those of a list one by one, numbers without the sign, which is an
/// operator of its own.
inline std::vector<std::string> sorted_values(const std::string& statement) {
    std::vector<std::string> all;
    for (std::string value : Statement_form(statement).values) {
        if (value.starts_with('-')) value.erase(0, 1);
        for (auto comma = value.find("','"); comma != std::string::npos; comma = value.find("','")) {
            all.push_back(value.substr(0, comma + 1));
            value.erase(0, comma + 2);
        }
        all.push_back(value);
    }
    std::sort(all.begin(), all.end());
    return all;
}

/// Whether every value of a statement stands in its translation for another engine, as often as it did.
inline bool keeps_values(const std::string& statement, const std::string& translation) {
    const std::vector<std::string> before = sorted_values(statement), after = sorted_values(translation);
    return std::includes(after.begin(), after.end(), before.begin(), before.end());
}

/// "INSERT Cheque", "UPDATE Banco", "SELECT Cheque_x_Aplicar": the verb and the first table.
inline std::string in_short(const std::string& statement) {
    const std::string verb = statement.substr(0, statement.find(' '));
    const std::string before = verb == "INSERT" ? "INTO " : verb == "UPDATE" ? "UPDATE " : "FROM ";
    const auto from = statement.find(before) + before.size();
    return verb + " " + statement.substr(from, statement.find_first_of(" (", from) - from);
}

inline std::vector<std::string> in_short(const std::vector<std::string>& statements) {
    std::vector<std::string> texts;
    for (const std::string& statement : statements) texts.push_back(in_short(statement));
    return texts;
}

}  // namespace cuvexa::tests
