// The description for machines says what the tables and the headers say.
#include "automation/openrpc.h"

#include <gmock/gmock.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "automation/contract.h"
#include "automation/json_rpc.h"
#include "automation/members.h"

namespace cuvexa::tests {
namespace {

using namespace automation;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Pair;
using testing::StartsWith;
using testing::UnorderedElementsAre;
using Json = nlohmann::ordered_json;

Json document() {
    return Json::parse(openrpc_document());
}

const Json& named(const Json& list, const std::string& name, const std::string& kind = "") {
    for (const Json& each : list) {
        if (each["name"] == name && (kind.empty() || each["kind"] == kind)) return each;
    }
    static const Json none;
    return none;
}

// ---- The comments of the headers ------------------------------------------------------------------------------------

TEST(Contract, is_read_from_the_comments_of_types_members_and_fields) {
    EXPECT_THAT(contract_of("// Of receipts.\n"
                            "// And more.\n"
                            "#pragma once\n"
                            "// No contract.\n"
                            "/// A line.\n"
                            "struct Line {\n"
                            "    std::string Rp_ID;     ///< its number\n"
                            "    double Rp_Importe = 0;  ///< amount; not 0\n"
                            "    bool Nameless;\n"
                            "};\n"
                            "\n"
                            "class Tesoreria {\n"
                            "public:\n"
                            "    /// Gives it.\n"
                            "    ///\n"
                            "    /// Refuses another.\n"
                            "    bool Give(const std::string& Folio,\n"
                            "              bool Again = false);\n"
                            "    /// Its value.\n"
                            "    int Value() const { return 1; }\n"
                            "    void Value(int value);\n"
                            "    /// Lost.\n"
                            "\n"
                            "    int bare() const;\n"),
                UnorderedElementsAre(
                    Pair(Pair("Line", ""), "A line."), Pair(Pair("Tesoreria", ""), "Of receipts.\nAnd more."),
                    Pair(Pair("Line", "Rp_ID"), "its number"), Pair(Pair("Line", "Rp_Importe"), "amount; not 0"),
                    Pair(Pair("Tesoreria", "Give"), "Gives it.\n\nRefuses another."),
                    Pair(Pair("Tesoreria", "Value"), "Its value.")));
}

TEST(Contract, knows_where_a_comment_lists_refusals) {
    EXPECT_EQ(refusals_in("Closes.\nRefusals, in order: a; b.\nLeft half done by a failure: c."),
              "Refusals, in order: a; b.");
    EXPECT_EQ(refusals_in("Undoes.\n\nRefuses, in this order: a; b. Up to here nothing is written."),
              "Refuses, in this order: a; b. Up to here nothing is written.");
    EXPECT_EQ(refusals_in("Starts a receipt."), "");
}

TEST(Contract, tells_every_method_and_every_class) {
    const Contract contract = contract_of(contract_headers());
    for (const Automation_class& type : automation_classes()) {
        EXPECT_NE(contract.count({std::string(type.name), ""}), 0u) << type.name;
        for (const Member& member : type.members) {
            EXPECT_NE(contract.count({std::string(type.name), std::string(member.name)}), 0u) << member.name;
        }
    }
    for (const Record_type& record : record_types) {
        EXPECT_NE(contract.count({std::string(record.name), ""}), 0u) << record.name;
    }
}

// ---- The document ---------------------------------------------------------------------------------------------------

TEST(Openrpc, describes_every_class_and_member_of_the_table_in_its_order) {
    const Json classes = document()["x-classes"];
    ASSERT_EQ(classes.size(), automation_classes().size());
    for (std::size_t c = 0; c < classes.size(); ++c) {
        const Automation_class& type = automation_classes()[c];
        EXPECT_EQ(classes[c]["name"], type.name);
        ASSERT_EQ(classes[c]["members"].size(), type.members.size());
        for (std::size_t m = 0; m < type.members.size(); ++m) {
            const Json& told = classes[c]["members"][m];
            const Member& member = type.members[m];
            EXPECT_EQ(told["name"], member.name);
            EXPECT_EQ(told["identifier"], member.identifier);
            EXPECT_THAT(told["description"].get<std::string>(), testing::Not(IsEmpty())) << member.name;
            ASSERT_EQ(told["params"].size(), member.parameters.size());
            for (std::size_t p = 0; p < member.parameters.size(); ++p) {
                EXPECT_EQ(told["params"][p]["name"], member.parameters[p].name);
                EXPECT_EQ(told["params"][p]["required"], !member.parameters[p].optional);
                EXPECT_EQ(told["params"][p]["byReference"], member.parameters[p].by_reference);
            }
        }
    }
}

TEST(Openrpc, tells_types_descriptions_and_refusals_of_a_member) {
    const Json members = document()["x-classes"][0]["members"];
    const Json check = named(members, "Aplicar_Cheque");
    EXPECT_EQ(check["kind"], "method");
    EXPECT_EQ(check["params"][0]["schema"], Json::parse(R"({"type":"string"})"));
    EXPECT_EQ(check["params"][1]["schema"], Json::parse(R"({"$ref":"#/components/schemas/Date"})"));
    EXPECT_EQ(check["params"][2]["required"], false);
    EXPECT_EQ(check["result"], Json::parse(R"({"type":"boolean"})"));
    EXPECT_THAT(check["description"].get<std::string>(), StartsWith("Applies the check `Ch_Folio` on `Fecha`:"));
    EXPECT_THAT(check["refusals"].get<std::string>(),
                StartsWith("Refusals, in order, all behind the tag: no such check;"));
    EXPECT_THAT(check["refusals"].get<std::string>(), testing::EndsWith("accounting."));
    EXPECT_EQ(named(members, "GetSaldo")["result"], Json::parse(R"({"type":"number"})"));
    EXPECT_EQ(named(members, "Afectar_Cheque_Presupuesto")["params"][1]["schema"],
              Json::parse(R"({"type":"integer","minimum":-32768,"maximum":32767})"));
    EXPECT_EQ(named(members, "PedirDatosDeposito")["dialog"], true);
    EXPECT_FALSE(check.contains("dialog"));
    EXPECT_EQ(named(members, "RpEncabezado", "get")["result"],
              Json::parse(R"({"$ref":"#/components/schemas/tRpEncabezado"})"));
    EXPECT_EQ(named(members, "RpDetalle2", "let")["params"][0]["schema"],
              Json::parse(R"({"$ref":"#/components/schemas/Object"})"));
}

TEST(Openrpc, describes_every_record_field_by_field) {
    const Json schemas = document()["components"]["schemas"];
    for (const Record_type& record : record_types) {
        std::vector<std::string> fields;
        for (const auto& field : schemas[std::string(record.name)]["properties"].items()) fields.push_back(field.key());
        EXPECT_EQ(fields, std::vector<std::string>([&] {
                      std::vector<std::string> names;
                      for (const Field& field : record.fields) names.emplace_back(field.name);
                      return names;
                  }()))
            << record.name;
    }
    const Json fields = schemas["tRpEncabezado"]["properties"];
    EXPECT_EQ(fields["Rp_Folio"]["type"], "string");
    EXPECT_EQ(fields["Rp_Folio"]["description"], "receipt folio; empty until the first line is accepted");
    EXPECT_EQ(fields["Sucursal"]["allOf"][0]["$ref"], "#/components/schemas/tSucursalGeneral");
    EXPECT_EQ(fields["Rp_Tipo_Cambio"]["type"], "number");
    EXPECT_EQ(schemas["tTrpTipoReciboPago"]["properties"]["Trp_Solicitar_Fecha"]["type"], "boolean");
    EXPECT_EQ(schemas["tTsSucursal"]["properties"]["UserDef"],
              Json::parse(R"({"$ref":"#/components/schemas/tUserDef"})"));
}

TEST(Openrpc, names_the_requests_and_what_each_may_be_about) {
    const Json methods = document()["methods"];
    std::vector<std::string> names;
    for (const Json& method : methods) names.push_back(method["name"]);
    EXPECT_THAT(names, ElementsAre("create", "call", "get", "let", "release", "rpc.discover"));
    EXPECT_THAT(named(named(methods, "create")["params"], "class")["schema"]["enum"],
                ElementsAre("Tesoreria", "clsRpDetalle"));
    const auto told = [&](const char* method) {
        return named(named(methods, method)["params"], "member")["schema"].dump();
    };
    EXPECT_THAT(told("call"), HasSubstr("\"FinReciboCaja\""));
    EXPECT_THAT(told("get"), HasSubstr("\"Error\""));
    EXPECT_THAT(told("let"), testing::Not(HasSubstr("\"Error\"")));
}

TEST(Openrpc, is_what_a_client_discovers_on_one_line) {
    std::istringstream requests(R"({"jsonrpc":"2.0","id":1,"method":"rpc.discover"})"
                                "\n"
                                R"({"jsonrpc":"2.0","id":2,"method":"rpc.discover","params":{"x":1}})"
                                "\n");
    std::ostringstream answers;
    serve_json_rpc(requests, answers, [](std::string_view) { return Object(); });
    std::istringstream lines(answers.str());
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(Json::parse(line)["result"], document());
    std::getline(lines, line);
    EXPECT_EQ(Json::parse(line)["error"]["code"], -32602);
}

}  // namespace
}  // namespace cuvexa::tests
