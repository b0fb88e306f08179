// Statements as the product would send them: for each line of standard input, {"literal": "… '{}' …", "values": […]}, one line
// with a list: the text for each value, null where the value or the text is refused. For a parser of T-SQL to look at.
#include <exception>
#include <iostream>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "core/statement.h"
#include "cuvexa/errors.h"
#include "database/dialect/batch.h"
#include "database/dialect/lexer.h"

namespace {

using nlohmann::json;

json composed(const std::string& literal, const std::string& value) {
    constexpr cuvexa::Quoted_holes the_only_one = 1;
    std::string text;
    std::vector<cuvexa::dialect::Token> tokens;
    try {
        cuvexa::append_filled(text, literal, {value}, the_only_one);
        cuvexa::dialect::tokenize(text, tokens);
        cuvexa::dialect::refuse_batch(text, tokens);
        return text;
    } catch (const cuvexa::Database_error&) {
        return nullptr;
    }
}

}  // namespace

int main() {
    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);) {
        const json asked = json::parse(line);
        json answer = json::array();
        for (const json& value : asked.at("values")) answer.push_back(composed(asked.at("literal"), value));
        std::cout << answer.dump() << '\n';
    }
}
