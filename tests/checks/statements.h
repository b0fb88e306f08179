// Statements told in short, and what happens to the database in between.
#pragma once

#include <sqlite3.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "support/company.h"

namespace cuvexa::tests {

/// "INSERT Cheque", "UPDATE Banco", "SELECT Cheque_x_Aplicar" (the first table after FROM).
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

/// From here on, whenever `event` ("AFTER INSERT ON Cheque", with a condition if need be), somebody else runs
/// `statement`.
inline void meanwhile(Company& company, const std::string& event, const std::string& statement) {
    static int count = 0;
    const std::string text =
        "CREATE TRIGGER meanwhile_" + std::to_string(++count) + " " + event + " BEGIN " + statement + "; END";
    if (company.embedded() == nullptr) throw std::runtime_error("what happens meanwhile is written for SQLite");
    char* message = nullptr;
    if (sqlite3_exec(company.embedded(), text.c_str(), nullptr, nullptr, &message) != SQLITE_OK) {
        throw std::runtime_error(text + ": " + message);
    }
}

}  // namespace cuvexa::tests
