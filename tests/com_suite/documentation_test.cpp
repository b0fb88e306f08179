// What docs/suite-automation.md tells the authors of a suite is what the contract's lists say.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

#include "com/types.h"
#include "com_suite/contract.h"
#include "support/places.h"

namespace cuvexa::tests {

using namespace com_suite;
namespace {

using ::testing::ElementsAreArray;
using Lines = std::vector<std::string>;

// ---- The document --------------------------------------------------------------------------------------------------

/// The rows of the first table behind a line, as they stand, without its head.
Lines table_behind(const std::string& line) {
    std::ifstream file(tests::in_source("docs/suite-automation.md"));
    Lines rows;
    std::string text;
    while (std::getline(file, text) && text != line) continue;
    while (std::getline(file, text) && !text.starts_with("|---")) continue;
    while (std::getline(file, text) && text.starts_with("|")) rows.push_back(text);
    return rows;
}

/// "2 | SqlDate(As Date) String": the row of a member without the names of its parameters, which callers never use. Of what
/// is said about the result remains which record the member takes.
std::string without_comments(const std::string& row) {
    static const std::regex member(R"(\| (\d+) \| `([^`]*)` \| (the open connection|a \*[a-z ]+\*|\w+|–)(.*) \|)");
    static const std::regex name_of_parameter(R"(\w+ As )"), record(R"(a \*[a-z ]+\*)");
    std::smatch parts, taken;
    if (!std::regex_match(row, parts, member)) return "no row of a member: " + row;
    const std::string comment = parts[4];
    std::string line = std::string(parts[1]) + " | " + std::regex_replace(parts[2].str(), name_of_parameter, "As ") +
                       " " + std::string(parts[3]);
    if (std::regex_search(comment, taken, record)) line += "; " + std::string(taken[0]);
    return line;
}

// ---- The lists -----------------------------------------------------------------------------------------------------

template <class Record>
constexpr const char* shown_record = nullptr;
template <>
constexpr const char* shown_record<Payable> = "payable";
template <>
constexpr const char* shown_record<Supplier_advance> = "supplier advance";
template <>
constexpr const char* shown_record<Payment_line> = "payment line";
template <>
constexpr const char* shown_record<Receipt_application> = "receipt";
template <>
constexpr const char* shown_record<Receivable> = "receivable";
template <>
constexpr const char* shown_record<Receivable_payment> = "payment";

template <class Parameter>
std::string shown_parameter() {
    using Type = std::remove_cvref_t<Parameter>;
    if constexpr (std::is_same_v<Type, Slot> || std::is_same_v<Parameter, std::string&>) {
        return "ByRef As String";
    } else if constexpr (std::is_same_v<Type, Optional_text>) {
        return "[As String]";
    } else if constexpr (std::is_same_v<Type, Short>) {
        return "As Integer";
    } else if constexpr (Travelling_record<Type>) {
        return "As Object";
    } else {
        return "As " + std::string(com::facts_of<Type>().basic);
    }
}

template <class Result>
std::string shown_result() {
    using Type = std::remove_cvref_t<Result>;
    if constexpr (std::is_void_v<Type>) {
        return "–";
    } else if constexpr (std::is_same_v<Type, Connection>) {
        return "the open connection";
    } else if constexpr (Travelling_record<Type>) {
        return std::string("a *") + shown_record<Type> + "*";
    } else {
        return std::string(com::facts_of<Type>().basic);
    }
}

template <class... Parameter>
std::string shown_parameters(std::type_identity<std::tuple<Parameter...>>) {
    std::string text;
    for (const std::string& parameter : Lines{shown_parameter<Parameter>()...}) {
        text += (text.empty() ? "" : ", ") + parameter;
    }
    return text;
}

template <class... Parameter>
std::string record_among(std::type_identity<std::tuple<Parameter...>>) {
    std::string text;
    for (const char* const record :
         {static_cast<const char*>(nullptr), shown_record<std::remove_cvref_t<Parameter>>...}) {
        if (record) text += std::string("; a *") + record + "*";
    }
    return text;
}

template <auto operation>
std::string shown(const Named<operation>& named) {
    using Its = Signature<decltype(operation)>;
    const std::type_identity<typename Its::Parameters> parameters;
    return std::string(named.name) + "(" + shown_parameters(parameters) + ") " + shown_result<typename Its::Result>() +
           record_among(parameters);
}

template <class Service>
Lines shown_operations() {
    Lines lines = std::apply([](const auto&... named) { return Lines{shown(named)...}; }, operations<Service>);
    for (std::size_t at = 0; at < lines.size(); ++at) lines[at] = std::to_string(at + 1) + " | " + lines[at];
    return lines;
}

template <class Record>
std::string shown_properties() {
    const auto shown = [](const auto& property) {
        using Type = std::remove_cvref_t<decltype(Record().*property.place)>;
        const char* mark = std::is_same_v<Type, Date>     ? " D"
                           : std::is_same_v<Type, double> ? " N"
                           : std::is_same_v<Type, bool>   ? " B"
                                                          : "";
        return "`" + std::string(property.name) + "`" + mark;
    };
    std::string row = std::string("| ") + shown_record<Record> + " | ";
    const Lines properties_shown =
        std::apply([&](const auto&... property) { return Lines{shown(property)...}; }, properties<Record>);
    for (const std::string& property : properties_shown) {
        row += property + (&property == &properties_shown.back() ? " |" : ", ");
    }
    return row;
}

// ---- Both ----------------------------------------------------------------------------------------------------------

TEST(Suite_documentation, numbers_the_operations_of_every_service_with_what_they_take_and_give) {
    const auto compare = []<class Service>(const Named_service<Service>& listed) {
        Lines found = table_behind("### " + std::string(listed.name));
        for (std::string& row : found) row = without_comments(row);
        EXPECT_THAT(found, ElementsAreArray(shown_operations<Service>())) << listed.name;
    };
    for_each_service(compare);
}

TEST(Suite_documentation, lists_the_properties_of_every_record_with_their_types) {
    EXPECT_THAT(table_behind("### Records"),
                ElementsAreArray({shown_properties<Payable>(), shown_properties<Supplier_advance>(),
                                  shown_properties<Payment_line>(), shown_properties<Receipt_application>(),
                                  shown_properties<Receivable>(), shown_properties<Receivable_payment>()}));
}

TEST(Suite_documentation, names_the_services_with_their_default_objects_and_says_how_often_one_is_created) {
    Lines expected;
    for_each_service([&]<class Service>(const Named_service<Service>& listed) {
        const std::string name(listed.name);
        const bool anew = std::is_same_v<Service, AccountsPayableService> ||
                          std::is_same_v<Service, AccountsReceivableService> ||
                          std::is_same_v<Service, AccountingService>;
        expected.push_back("| `" + name + "` | `CuvexaSuite." + name + "` | " +
                           (anew ? "anew for each use" : "once per module") + " |");
    });
    EXPECT_THAT(table_behind("## Which objects"), ElementsAreArray(expected));
}

}  // namespace
}  // namespace cuvexa::tests
