// Conversations over JSON-RPC, as a client in any language has them.
#include "automation/json_rpc.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "automation/made_up_class.h"
#include "automation/members.h"
#include "automation/rpc_session.h"
#include "cuvexa/tesoreria.h"
#include "support/company.h"
#include "support/places.h"

namespace cuvexa::tests {
namespace {

using namespace automation;

using Json = nlohmann::json;

/// A client that sends lines and reads all answers. Object 1 is a Tesoreria, 2 a clsRpDetalle, 3 of a made-up class.
struct Json_rpc : testing::Test {
    Company company;
    std::shared_ptr<Tesoreria> instance = std::make_shared<Tesoreria>(company.module());
    Around_call around_call;
    Json_rpc_limits limits;

    std::vector<std::string> answers(const std::string& lines) {
        std::istringstream requests(lines);
        std::ostringstream answered;
        serve_json_rpc(requests, answered, factory(), around_call, limits);
        std::istringstream read(answered.str());
        std::vector<std::string> all;
        for (std::string line; std::getline(read, line);) all.push_back(line);
        return all;
    }

    /// The answer to one request in a session that holds the three objects.
    Json answer(const std::string& line) {
        const auto all = answers(with_objects + with_made_up + line + "\n");
        EXPECT_EQ(all.size(), 4u);
        return all.size() == 4 ? Json::parse(all[3]) : Json();
    }
    Json request(const std::string& method, const std::string& params) {
        return answer(R"({"jsonrpc":"2.0","id":7,"method":")" + method + R"(","params":)" + params + "}");
    }
    Json result(const std::string& method, const std::string& params) {
        const Json whole = request(method, params);
        EXPECT_TRUE(whole.contains("result")) << whole;
        return whole.value("result", Json());
    }
    Json error(const std::string& method, const std::string& params) {
        const Json whole = request(method, params);
        EXPECT_TRUE(whole.contains("error")) << whole;
        return whole.value("error", Json());
    }
    int code(const std::string& method, const std::string& params) { return error(method, params).value("code", 0); }

    const std::string with_objects = R"({"jsonrpc":"2.0","id":1,"method":"create","params":{"class":"Tesoreria"}})"
                                     "\n"
                                     R"({"jsonrpc":"2.0","id":2,"method":"create","params":{"class":"clsRpDetalle"}})"
                                     "\n";
    const std::string with_made_up = R"({"jsonrpc":"2.0","id":3,"method":"create","params":{"class":"Made_up"}})"
                                     "\n";

private:
    /// The first Tesoreria is the one that the test looks into.
    Object_factory factory() {
        return [this, make = object_factory(company.module())](std::string_view name) -> Object {
            if (name == "Tesoreria") return std::make_shared<Automation_object_of<Tesoreria>>(instance);
            if (name == "Made_up") return std::make_shared<Made_up_object>();
            return make(name);
        };
    }
};

constexpr int parse_error = -32700, invalid_request = -32600, method_not_found = -32601, invalid_params = -32602,
              run_time_error = -32000;

// ---- Objects -------------------------------------------------------------------------------------------------------

TEST_F(Json_rpc, objects_are_created_and_numbered_from_one) {
    EXPECT_THAT(answers(with_objects), testing::ElementsAre(R"({"jsonrpc":"2.0","result":{"object":1},"id":1})",
                                                            R"({"jsonrpc":"2.0","result":{"object":2},"id":2})"));
}

TEST_F(Json_rpc, a_class_is_found_without_regard_to_case_and_an_unknown_one_refused) {
    EXPECT_EQ(result("create", R"({"class":"tesoreria"})"), (Json{{"object", 4}}));
    EXPECT_EQ(code("create", R"({"class":"Chequera"})"), invalid_params);
    EXPECT_EQ(code("create", R"({"class":1})"), invalid_params);
    EXPECT_EQ(code("create", R"({})"), invalid_params);
}

TEST_F(Json_rpc, a_released_object_is_gone_and_its_number_is_not_given_again) {
    const auto all = answers(with_objects + R"({"jsonrpc":"2.0","id":3,"method":"release","params":{"object":2}}
{"jsonrpc":"2.0","id":4,"method":"get","params":{"object":2,"member":"Rp_Chofer"}}
{"jsonrpc":"2.0","id":5,"method":"release","params":{"object":2}}
{"jsonrpc":"2.0","id":6,"method":"create","params":{"class":"clsRpDetalle"}}
)");
    ASSERT_EQ(all.size(), 6u);
    EXPECT_EQ(all[2], R"({"jsonrpc":"2.0","result":{"value":null},"id":3})");
    EXPECT_EQ(Json::parse(all[3])["error"]["code"], invalid_params);
    EXPECT_EQ(Json::parse(all[4])["error"]["code"], invalid_params);
    EXPECT_EQ(Json::parse(all[5])["result"], (Json{{"object", 3}}));
}

TEST_F(Json_rpc, releasing_an_object_lets_go_of_it) {
    answers(with_objects + R"({"jsonrpc":"2.0","method":"release","params":{"object":1}})"
                           "\n");
    EXPECT_EQ(instance.use_count(), 1);
}

TEST_F(Json_rpc, an_object_is_named_by_a_number_that_was_given) {
    for (const char* object : {"4", "0", "-1", "1.0", "\"1\"", "null", "18446744073709551615", "[1]"}) {
        EXPECT_EQ(code("get", R"({"member":"Error","object":)" + std::string(object) + "}"), invalid_params) << object;
    }
}

// ---- call ----------------------------------------------------------------------------------------------------------

TEST_F(Json_rpc, a_call_answers_the_result_and_the_arguments_as_they_are_after_it) {
    const std::string args = R"(["B1","R1","2024-03-15",true,"2024-03-16T10:20:30","nota"])";
    EXPECT_EQ(result("call", R"({"object":1,"member":"Genera_Deposito","args":)" + args + "}"),
              (Json{{"value", false}, {"args", Json::parse(args)}}));
    EXPECT_THAT(instance->Error(), testing::StartsWith("Cuvexa.dll - Genera_Deposito()"));
}

TEST_F(Json_rpc, a_call_reaches_the_member_with_its_arguments) {
    const std::string receipts = company.capture_receipt({Company::receipt_line(100)});
    company.mark();
    result(
        "call",
        R"({"object":1,"member":"Genera_Deposito","args":["SRR-MXN","RP-MTY-00000001","2024-03-15",true,"2024-03-16"]})");
    Company other;
    other.capture_receipt({Company::receipt_line(100)});
    other.mark();
    EXPECT_TRUE(
        other.treasury().Genera_Deposito("SRR-MXN", receipts, make_date(2024, 3, 15), true, make_date(2024, 3, 16)));
    EXPECT_EQ(company.asked(), other.asked());
}

TEST_F(Json_rpc, a_member_is_found_without_regard_to_case) {
    EXPECT_EQ(result("call", R"({"object":1,"member":"CREAR_CHEQUE","args":["C1"]})")["value"], false);
}

TEST_F(Json_rpc, a_member_without_result_answers_null) {
    EXPECT_EQ(result("call", R"({"object":1,"member":"Nuevo"})"), Json::parse(R"({"value":null,"args":[]})"));
    EXPECT_EQ(result("call", R"({"object":1,"member":"Nuevo","args":[]})"), Json::parse(R"({"value":null,"args":[]})"));
}

TEST_F(Json_rpc, optional_arguments_may_be_left_out_or_null) {
    EXPECT_EQ(result("call", R"({"object":1,"member":"GetSaldo","args":["B1"]})")["args"], Json::parse(R"(["B1"])"));
    EXPECT_EQ(result("call", R"({"object":1,"member":"GetSaldo","args":["B1",null]})")["args"],
              Json::parse(R"(["B1",null])"));
}

TEST_F(Json_rpc, what_a_member_writes_comes_back_in_by_reference_arguments_only) {
    const Json answered = result(
        "call", R"({"object":3,"member":"Write","args":[{"Bm_Importe":2.5,"Cuenta":{"Bn_Cve_Banco":"A"}},"note"]})");
    EXPECT_EQ(answered["value"], "note");
    EXPECT_EQ(answered["args"][0]["Bm_Importe"], -2.5);
    EXPECT_EQ(answered["args"][0]["Cuenta"]["Bn_Cve_Banco"], "BX");
    EXPECT_EQ(answered["args"][1], "note");
}

TEST_F(Json_rpc, arguments_may_be_given_by_name_and_come_back_so) {
    const Json answered =
        result("call", R"({"object":3,"member":"Write","args":{"nota":"note","Datos":{"Bm_Importe":2.5}}})");
    EXPECT_EQ(answered["value"], "note");
    EXPECT_EQ(answered["args"]["Datos"]["Bm_Importe"], -2.5);
    EXPECT_EQ(answered["args"]["Nota"], "note");
    EXPECT_EQ(result("call", R"({"object":3,"member":"Write","args":{"Datos":{}}})")["value"], "-") << "the default";
    EXPECT_EQ(code("call", R"({"object":3,"member":"Write","args":{"Datos":{},"Otro":1}})"), invalid_params);
    EXPECT_EQ(code("call", R"({"object":3,"member":"Write","args":{"Nota":"a"}})"), invalid_params);
    EXPECT_EQ(code("call", R"({"object":3,"member":"Write","args":{"Datos":{},"Nota":"a","NOTA":"b"}})"),
              invalid_params);
}

TEST_F(Json_rpc, wrong_counts_and_types_of_arguments_are_invalid_params_and_nothing_runs) {
    company.mark();
    for (const char* args : {R"([])", R"(["B1",true,1])", R"([null])", R"([1])", R"([true])", R"([["B1"]])",
                             R"([{"object":1}])", R"(["B1","si"])", R"(["B1",[]])", R"("B1")", R"(1)", R"(null)"}) {
        EXPECT_EQ(code("call", R"({"object":1,"member":"GetSaldo","args":)" + std::string(args) + "}"), invalid_params)
            << args;
    }
    EXPECT_THAT(company.asked(), IsEmpty());
}

TEST_F(Json_rpc, an_error_names_the_argument) {
    EXPECT_EQ(error("call", R"({"object":1,"member":"Aplicar_Cheque","args":["C1","ayer"]})")["message"],
              R"(Aplicar_Cheque: Fecha must be a date as "2024-03-15" or "2024-03-15T10:20:30")");
    EXPECT_EQ(error("call", R"({"object":1,"member":"Aplicar_Cheque","args":["C1"]})")["message"],
              "Aplicar_Cheque: argument Fecha is not optional");
}

TEST_F(Json_rpc, members_are_used_as_what_they_are) {
    EXPECT_EQ(code("call", R"({"object":1,"member":"Cheques"})"), invalid_params);
    EXPECT_EQ(code("call", R"({"object":1,"member":"Error"})"), invalid_params);
    EXPECT_EQ(code("get", R"({"object":1,"member":"Nuevo"})"), invalid_params);
    EXPECT_EQ(code("let", R"({"object":1,"member":"Error","value":""})"), invalid_params) << "read-only";
    EXPECT_EQ(code("let", R"({"object":1,"member":"Dp_Folio","value":""})"), invalid_params) << "read-only";
    EXPECT_EQ(code("get", R"({"object":2,"member":"Error"})"), invalid_params) << "of the other class";
}

// ---- get and let ---------------------------------------------------------------------------------------------------

TEST_F(Json_rpc, properties_are_let_and_read) {
    EXPECT_EQ(result("let", R"({"object":1,"member":"FolioMovimiento","value":"M1"})"), (Json{{"value", nullptr}}));
    EXPECT_EQ(instance->FolioMovimiento, "M1");
    EXPECT_EQ(result("get", R"({"object":1,"member":"FolioMovimiento"})"), (Json{{"value", "M1"}}));
    EXPECT_EQ(result("get", R"({"object":1,"member":"Error"})"), (Json{{"value", ""}}));
    result("let", R"({"object":1,"member":"Validar_Forma_Pago","value":1})");
    EXPECT_EQ(result("get", R"({"object":1,"member":"Validar_Forma_Pago"})"), (Json{{"value", true}}));
}

TEST_F(Json_rpc, the_error_text_keeps_its_line_breaks_and_accents) {
    result("call", R"({"object":1,"member":"Genera_Deposito","args":["B1","R1","2024-03-15",true,"2024-03-16"]})");
    EXPECT_EQ(result("get", R"({"object":1,"member":"Error"})")["value"], instance->Error());
    EXPECT_THAT(instance->Error(), testing::HasSubstr("()\r\nNo se encontró"));
}

TEST_F(Json_rpc, a_let_needs_a_value) {
    EXPECT_EQ(code("let", R"({"object":1,"member":"FolioMovimiento"})"), invalid_params);
    EXPECT_EQ(code("let", R"({"object":1,"member":"FolioMovimiento","value":null})"), invalid_params);
    EXPECT_EQ(code("let", R"({"object":1,"member":"FolioMovimiento","value":5})"), invalid_params);
}

TEST_F(Json_rpc, a_record_is_an_object_by_member_name_in_the_published_order) {
    const auto all =
        answers(with_objects + R"({"jsonrpc":"2.0","id":3,"method":"get","params":{"object":1,"member":"RpDetalle"}})"
                               "\n");
    EXPECT_EQ(all.at(2),
              R"({"jsonrpc":"2.0","result":{"value":{"Rp_ID":"","Fp_Cve_Forma_Pago":{"Fp_Cve_Forma_Pago":"",)"
              R"("Fp_Descripcion":"","Fp_Cuenta_Contable":""},"Rp_Banco":"","Rp_Cheque":"",)"
              R"("Rp_Cuenta_Bancaria":"","Rp_Importe":0.0}},"id":3})");
}

TEST_F(Json_rpc, the_members_of_a_record_that_are_absent_or_null_are_empty_or_zero) {
    tRpDetalle before;
    before.Rp_Banco = "B";
    before.Rp_Importe = 3;
    instance->RpDetalle(before);
    result("let", R"({"object":1,"member":"RpDetalle","value":{"Rp_Cheque":"123","Rp_Importe":null,)"
                  R"("Fp_Cve_Forma_Pago":{"Fp_Cve_Forma_Pago":"EF"}}})");
    tRpDetalle expected;
    expected.Rp_Cheque = "123";
    expected.Fp_Cve_Forma_Pago.Fp_Cve_Forma_Pago = "EF";
    EXPECT_EQ(instance->RpDetalle(), expected);
}

TEST_F(Json_rpc, a_record_is_let_as_it_was_read) {
    tRpEncabezado receipt;
    receipt.Rp_Fecha = make_date(2024, 3, 15, 10, 20, 30);
    receipt.Sucursal.Sc_Cve_Sucursal = "MTY";
    receipt.TipoReciboPago.Trp_Solicitar_Vendedor = true;
    receipt.Rp_Tipo_Cambio = 17.123456789012345;
    receipt.Rp_Comentario = "año \"uno\" \\ dos\n";
    instance->RpEncabezado(receipt);
    const Json read = result("get", R"({"object":1,"member":"RpEncabezado"})")["value"];
    EXPECT_EQ(read["Rp_Fecha"], "2024-03-15T10:20:30");
    instance->RpEncabezado({});
    result("let", R"({"object":1,"member":"RpEncabezado","value":)" + read.dump() + "}");
    EXPECT_EQ(instance->RpEncabezado(), receipt);
}

TEST_F(Json_rpc, a_record_with_an_unknown_member_or_a_wrong_type_is_refused_whole) {
    for (const char* value : {R"({"Rp_Banko":"x"})", R"({"rp_banco":"x"})", R"({"Rp_Importe":"5"})",
                              R"({"Rp_Importe":true})", R"({"Rp_Banco":5})", R"({"Fp_Cve_Forma_Pago":"EF"})",
                              R"({"Fp_Cve_Forma_Pago":{"Clave":"EF"}})", R"([])", R"("x")", R"(1)"}) {
        EXPECT_EQ(code("let", R"({"object":1,"member":"RpDetalle","value":)" + std::string(value) + "}"),
                  invalid_params)
            << value;
    }
    EXPECT_EQ(
        error("let", R"({"object":1,"member":"RpDetalle","value":{"Fp_Cve_Forma_Pago":{"Clave":"EF"}}})")["message"],
        "RpDetalle: value.Fp_Cve_Forma_Pago has no member Clave");
    EXPECT_EQ(instance->RpDetalle(), tRpDetalle());
}

TEST_F(Json_rpc, an_object_is_let_by_its_number) {
    answers(with_objects +
            R"({"jsonrpc":"2.0","id":3,"method":"let","params":{"object":1,"member":"RpDetalle2","value":{"object":2}}}
{"jsonrpc":"2.0","id":4,"method":"let","params":{"object":2,"member":"Rp_Vendedor","value":"V1"}}
{"jsonrpc":"2.0","id":5,"method":"let","params":{"object":1,"member":"RpEncabezado","value":{"Rp_Fecha":"2024-03-15"}}}
)");
    EXPECT_EQ(result("let", R"({"object":1,"member":"RpDetalle2","value":{"object":1}})"),
              Json::parse(R"({"value":null})"));
    EXPECT_EQ(instance->Error(), "Cuvexa.dll - Property Let RpDetalle2()No coinciden los tipos") << "of another class";
    EXPECT_EQ(code("let", R"({"object":1,"member":"RpDetalle2","value":{"object":9}})"), invalid_params);
    EXPECT_EQ(code("let", R"({"object":1,"member":"RpDetalle2","value":{"object":2,"x":1}})"), invalid_params);
    EXPECT_EQ(code("let", R"({"object":1,"member":"RpDetalle2","value":{}})"), invalid_params);
    EXPECT_EQ(code("let", R"({"object":1,"member":"RpDetalle2","value":2})"), invalid_params);
}

TEST_F(Json_rpc, an_object_result_gets_a_number_once) {
    EXPECT_EQ(result("get", R"({"object":3,"member":"Extras"})"), Json::parse(R"({"value":{"object":4}})"));
    const auto all = answers(with_objects + with_made_up +
                             R"({"jsonrpc":"2.0","id":3,"method":"get","params":{"object":3,"member":"Extras"}}
{"jsonrpc":"2.0","id":4,"method":"get","params":{"object":3,"member":"Extras"}}
)");
    EXPECT_EQ(Json::parse(all.at(4))["result"], Json::parse(all.at(3))["result"]);
    EXPECT_EQ(result("get", R"({"object":3,"member":"Nothing"})"), Json::parse(R"({"value":null})"));
}

// ---- Values --------------------------------------------------------------------------------------------------------

TEST_F(Json_rpc, numbers_travel_without_loss) {
    for (const char* number : {"0.1", "-1234567.89", "1e+300", "5e-324", "123456789012345.6", "17.123456789012344"}) {
        const auto all =
            answers(with_objects + with_made_up +
                    R"({"jsonrpc":"2.0","id":3,"method":"call","params":{"object":3,"member":"Same","args":[)" +
                    number + "]}}\n");
        EXPECT_EQ(all.at(3), R"({"jsonrpc":"2.0","result":{"value":)" + std::string(number) + R"(,"args":[)" + number +
                                 R"(]},"id":3})");
    }
}

TEST_F(Json_rpc, whole_numbers_are_rounded_half_to_even_and_kept_to_16_bits) {
    EXPECT_EQ(result("call", R"({"object":3,"member":"Whole","args":[2.5]})"),
              Json::parse(R"({"value":2,"args":[2]})"));
    EXPECT_EQ(code("call", R"({"object":3,"member":"Whole","args":[32768]})"), invalid_params);
    EXPECT_EQ(code("call", R"({"object":3,"member":"Whole","args":[true]})"), invalid_params);
    EXPECT_EQ(code("call", R"({"object":3,"member":"Whole","args":["2"]})"), invalid_params);
}

TEST_F(Json_rpc, a_number_beyond_a_double_is_refused_and_the_session_goes_on) {
    const auto all =
        answers(with_objects + with_made_up +
                R"({"jsonrpc":"2.0","id":3,"method":"call","params":{"object":3,"member":"Same","args":[1e999]}}
{"jsonrpc":"2.0","id":4,"method":"call","params":{"object":3,"member":"Same","args":[1]}}
)");
    EXPECT_EQ(
        Json::parse(all.at(3)),
        Json::parse(R"({"jsonrpc":"2.0","error":{"code":-32700,"message":"a number is out of range"},"id":null})"));
    EXPECT_EQ(Json::parse(all.at(4))["result"]["value"], 1.0);
}

TEST_F(Json_rpc, dates_are_iso_8601) {
    for (const char* date : {"2024-03-15", "2024-03-15T10:20:30", "1899-12-30", "0100-01-01", "9999-12-31T23:59:59"}) {
        EXPECT_EQ(result("call", R"({"object":3,"member":"Day","args":[")" + std::string(date) + "\"]}")["value"],
                  date);
    }
    for (const char* date : {"", "2024-3-15", "2024-02-30", "15/03/2024", "20240315", "2024-03-15 10:20:30",
                             "2024-03-15T10:20", "2024-03-15T25:00:00", "2024-03-15T10:20:30Z", "mañana"}) {
        EXPECT_EQ(code("call", R"({"object":3,"member":"Day","args":[")" + std::string(date) + "\"]}"), invalid_params)
            << date;
    }
    EXPECT_EQ(code("call", R"({"object":3,"member":"Day","args":[45000]})"), invalid_params);
}

TEST_F(Json_rpc, a_text_of_10_mb_goes_through) {
    const std::string text(10'000'000, 'x');
    result("let", R"({"object":1,"member":"FolioMovimiento","value":")" + text + "\"}");
    EXPECT_EQ(instance->FolioMovimiento.size(), text.size());
}

TEST_F(Json_rpc, texts_keep_every_character) {
    const std::string text = R"("\u0000\u00f1\ud83d\ude00\\\" \n")";
    EXPECT_EQ(result("call", R"({"object":3,"member":"Text","args":[)" + text + "]}")["value"], Json::parse(text));
}

TEST_F(Json_rpc, a_stored_text_that_is_not_utf_8_is_answered_with_replacement_characters) {
    EXPECT_EQ(result("get", R"({"object":3,"member":"Broken_text"})")["value"],
              "a\uFFFD"
              "b");
}

// ---- Failures ------------------------------------------------------------------------------------------------------

TEST_F(Json_rpc, an_automation_error_carries_number_and_description) {
    const Json failed = error("get", R"({"object":1,"member":"RpDetalle2"})");
    EXPECT_EQ(failed["code"], run_time_error);
    EXPECT_EQ(failed["data"]["number"], 91);
    EXPECT_EQ(failed["data"]["description"], "Variable de objeto o bloque With no establecido");
    EXPECT_EQ(failed["message"], failed["data"]["description"]);
}

TEST_F(Json_rpc, whatever_a_member_throws_is_an_answer) {
    EXPECT_EQ(error("call", R"({"object":3,"member":"Fail"})"),
              Json::parse(R"({"code":-32000,"message":"words","data":{"number":440,"description":"words"}})"));
    EXPECT_EQ(code("call", R"({"object":3,"member":"Fail_oddly"})"), -32603);
}

TEST_F(Json_rpc, an_unknown_method_is_not_found) {
    EXPECT_EQ(code("describe", "{}"), method_not_found);
    EXPECT_EQ(code("Call", "{}"), method_not_found);
}

TEST_F(Json_rpc, params_have_known_names_only) {
    EXPECT_EQ(code("create", R"({"class":"Tesoreria","clase":1})"), invalid_params);
    EXPECT_EQ(code("call", R"({"object":1,"member":"Nuevo","arg":[]})"), invalid_params);
    EXPECT_EQ(code("get", R"({"object":1,"member":"Error","value":1})"), invalid_params);
    EXPECT_EQ(code("let", R"({"object":1,"member":"FolioMovimiento","value":"","args":[]})"), invalid_params);
    EXPECT_EQ(code("release", R"({"object":1,"member":"Error"})"), invalid_params);
    EXPECT_EQ(code("create", R"(["Tesoreria"])"), invalid_params) << "by name, not by place";
    EXPECT_EQ(code("get", R"({"object":1})"), invalid_params);
    EXPECT_EQ(code("get", R"({"object":1,"member":7})"), invalid_params);
    EXPECT_EQ(code("get", R"({"member":"Error"})"), invalid_params);
}

TEST_F(Json_rpc, a_request_without_params_is_one_with_none) {
    EXPECT_EQ(answer(R"({"jsonrpc":"2.0","id":1,"method":"create"})")["error"]["message"],
              "parameter class is missing");
}

// ---- The protocol --------------------------------------------------------------------------------------------------

TEST_F(Json_rpc, a_line_that_is_not_json_is_answered_and_the_session_goes_on) {
    for (const char* line :
         {"hola", "{", R"({"jsonrpc":"2.0","id":1)", "{} {}", "\x01", "\"a\xFF\"", R"("\ud800")", "[1,]"}) {
        const auto all = answers(std::string(line) + "\n" + with_objects);
        ASSERT_EQ(all.size(), 3u) << line;
        EXPECT_EQ(Json::parse(all[0])["error"]["code"], parse_error) << line;
        EXPECT_EQ(Json::parse(all[0])["id"], nullptr);
        EXPECT_EQ(Json::parse(all[2])["result"]["object"], 2);
    }
}

TEST_F(Json_rpc, json_that_is_no_request_is_invalid) {
    for (const char* line :
         {"1", "\"a\"", "null", "true", "{}", R"({"id":1,"method":"create"})",
          R"({"jsonrpc":"1.0","id":1,"method":"create"})", R"({"jsonrpc":2.0,"id":1,"method":"create"})",
          R"({"jsonrpc":"2.0","id":1})", R"({"jsonrpc":"2.0","id":1,"method":1})",
          R"({"jsonrpc":"2.0","id":1,"method":"create","params":"x"})",
          R"({"jsonrpc":"2.0","id":1,"method":"create","params":null})",
          R"({"jsonrpc":"2.0","id":{},"method":"create"})", R"({"jsonrpc":"2.0","id":true,"method":"create"})"}) {
        EXPECT_EQ(answer(line)["error"]["code"], invalid_request) << line;
    }
    EXPECT_EQ(answer(R"({"jsonrpc":"2.0","id":8})")["id"], 8);
    EXPECT_EQ(answer(R"({"jsonrpc":"2.0","id":[8],"method":"create"})")["id"], nullptr);
}

TEST_F(Json_rpc, the_answer_carries_the_id_of_its_request) {
    for (const char* id : {"0", "-5", "\"a\"", "1.5", "null", "18446744073709551615"}) {
        EXPECT_EQ(answer(R"({"jsonrpc":"2.0","method":"get","params":{"object":1,"member":"Error"},"id":)" +
                         std::string(id) + "}")["id"],
                  Json::parse(id));
    }
}

TEST_F(Json_rpc, a_notification_runs_and_gets_no_answer) {
    const auto all = answers(
        with_objects + R"({"jsonrpc":"2.0","method":"let","params":{"object":1,"member":"FolioMovimiento","value":"M1"}}
{"jsonrpc":"2.0","method":"nada"}
{"jsonrpc":"2.0","method":"get","params":{"object":1,"member":"RpDetalle2"}}
)");
    EXPECT_EQ(all.size(), 2u);
    EXPECT_EQ(instance->FolioMovimiento, "M1");
}

TEST_F(Json_rpc, a_batch_is_answered_by_one_line_without_the_notifications) {
    const auto all =
        answers(with_objects +
                R"([{"jsonrpc":"2.0","method":"let","params":{"object":1,"member":"FolioMovimiento","value":"M1"}},)"
                R"(1,{"jsonrpc":"2.0","id":"a","method":"get","params":{"object":1,"member":"FolioMovimiento"}},[]])"
                "\n");
    ASSERT_EQ(all.size(), 3u);
    const Json batch = Json::parse(all[2]);
    ASSERT_EQ(batch.size(), 3u);
    EXPECT_EQ(batch[0]["error"]["code"], invalid_request);
    EXPECT_EQ(batch[1], Json::parse(R"({"jsonrpc":"2.0","id":"a","result":{"value":"M1"}})"));
    EXPECT_EQ(batch[2]["error"]["code"], invalid_request);
}

TEST_F(Json_rpc, an_empty_batch_is_invalid_and_one_of_notifications_gets_no_answer) {
    EXPECT_EQ(answer("[]")["error"]["code"], invalid_request);
    EXPECT_THAT(answers(R"([{"jsonrpc":"2.0","method":"nada"}])"
                        "\n"),
                testing::IsEmpty());
}

TEST_F(Json_rpc, an_id_comes_back_to_the_letter) {
    for (const char* id : {"18446744073709551616", "-123456789012345678901234567890", "1.50", "1E2", "9007199254740993",
                           R"("\u00f1 \"x\"")"}) {
        const auto all = answers(R"({"jsonrpc":"2.0","method":"create","params":{"class":"clsRpDetalle"},"id":)" +
                                 std::string(id) + "}");
        ASSERT_EQ(all.size(), 1u);
        const std::string expected = id[0] == '"' ? Json::parse(id).dump() : id;
        EXPECT_EQ(all[0], R"({"jsonrpc":"2.0","result":{"object":1},"id":)" + expected + "}");
    }
}

TEST_F(Json_rpc, blank_lines_are_passed_over_and_the_last_line_needs_no_end) {
    EXPECT_EQ(answers("\n  \r\n\n" + with_objects).size(), 2u);
    EXPECT_EQ(answers(R"({"jsonrpc":"2.0","id":1,"method":"create","params":{"class":"Tesoreria"}})"
                      "\r\n")
                  .size(),
              1u);
    EXPECT_EQ(answers(R"({"jsonrpc":"2.0","id":1,"method":"create","params":{"class":"Tesoreria"}})").size(), 1u);
}

/// Keeps what was written at each flush.
class Flush_recorder : public std::stringbuf {
public:
    std::vector<std::string> flushed;

protected:
    int sync() override {
        flushed.push_back(str());
        str("");
        return 0;
    }
};

TEST_F(Json_rpc, each_answer_is_flushed_as_one_line) {
    std::istringstream requests(with_objects);
    Flush_recorder recorder;
    std::ostream stream(&recorder);
    serve_json_rpc(requests, stream, company.module());
    EXPECT_THAT(recorder.flushed, testing::ElementsAre("{\"jsonrpc\":\"2.0\",\"result\":{\"object\":1},\"id\":1}\n",
                                                       "{\"jsonrpc\":\"2.0\",\"result\":{\"object\":2},\"id\":2}\n"));
}

// ---- What stands around a call -------------------------------------------------------------------------------------

TEST_F(Json_rpc, methods_run_inside_what_stands_around_them) {
    std::vector<std::string> seen;
    around_call = [&](const Called_method& method, const std::function<bool()>& call) {
        seen.push_back("before " + std::string(method.name));
        seen.push_back(call() ? "accepted" : "refused");
    };
    result("call", R"({"object":1,"member":"crear_cheque","args":["C1"]})");
    result("call", R"({"object":1,"member":"Nuevo"})");
    result("let", R"({"object":1,"member":"FolioMovimiento","value":"M1"})");
    result("get", R"({"object":1,"member":"FolioMovimiento"})");
    EXPECT_THAT(seen, testing::ElementsAre("before Crear_Cheque", "refused", "before Nuevo", "accepted"));
}

TEST_F(Json_rpc, what_stands_around_a_method_knows_whether_it_shows_a_dialog) {
    std::vector<bool> seen;
    around_call = [&](const Called_method& method, const std::function<bool()>& call) {
        seen.push_back(method.shows_dialog);
        call();
    };
    EXPECT_EQ(code("call", R"({"object":1,"member":"pedirdatosdeposito","args":["2024-03-15","MXN"]})"), run_time_error)
        << "there are no windows here";
    result("call", R"({"object":1,"member":"Nuevo"})");
    EXPECT_THAT(seen, testing::ElementsAre(true, false));
}

TEST_F(Json_rpc, what_a_member_throws_passes_through_what_stands_around_it) {
    bool passed = false;
    around_call = [&](const Called_method&, const std::function<bool()>& call) {
        try {
            call();
        } catch (const Automation_error&) {
            passed = true;
            throw;
        }
    };
    EXPECT_EQ(code("call", R"({"object":3,"member":"Fail"})"), run_time_error);
    EXPECT_TRUE(passed);
}

TEST_F(Json_rpc, a_failure_of_what_stands_around_is_a_run_time_error) {
    around_call = [](const Called_method&, const std::function<bool()>&) { throw Database_error("disco lleno"); };
    EXPECT_EQ(error("call", R"({"object":1,"member":"Nuevo"})")["data"],
              Json::parse(R"({"number":440,"description":"disco lleno"})"));
}

// ---- Limits --------------------------------------------------------------------------------------------------------

/// `levels` arrays or objects inside one another.
std::string nested(std::size_t levels, const std::string& open, const std::string& close) {
    std::string json;
    for (std::size_t i = 0; i < levels; ++i) json += open;
    json += "1";
    for (std::size_t i = 0; i < levels; ++i) json += close;
    return json;
}

TEST_F(Json_rpc, what_is_nested_too_deep_is_refused_wherever_it_stands) {
    const std::size_t outside = 3;  // request, params, args
    const auto with = [](const std::string& args) {
        return R"({"jsonrpc":"2.0","id":1,"method":"call","params":{"object":1,"member":"GetSaldo","args":[)" + args +
               "]}}";
    };
    for (const auto& [open, close] : {std::pair("[", "]"), std::pair(R"({"a":)", "}")}) {
        EXPECT_EQ(answer(with(nested(128 - outside, open, close)))["error"]["code"], invalid_params);
        for (const std::size_t levels :
             {129 - outside, std::size_t{60'000}, std::size_t{150'000}, std::size_t{1'000'000}}) {
            const Json refused = answer(with(nested(levels, open, close)));
            EXPECT_EQ(refused["error"]["code"], parse_error) << levels;
            EXPECT_EQ(refused["error"]["message"], "nested deeper than 128 levels");
            EXPECT_EQ(refused["id"], nullptr);
        }
    }
    EXPECT_EQ(answer(std::string(100'000, '['))["error"]["code"], parse_error);
    EXPECT_EQ(answer(nested(100'000, "[", "]"))["error"]["code"], parse_error) << "a batch";
    EXPECT_EQ(answer(R"({"jsonrpc":"2.0","method":"create","id":)" + nested(100'000, "[", "]") + "}")["error"]["code"],
              parse_error);
}

TEST_F(Json_rpc, a_line_beyond_the_limit_is_refused_and_the_session_goes_on) {
    const std::string request = R"({"jsonrpc":"2.0","id":9,"method":"create","params":{"class":"clsRpDetalle"}})";
    limits.request_bytes = request.size();
    for (const std::size_t more : {std::size_t{1}, std::size_t{16'384}, std::size_t{1'000'000}}) {
        const auto all = answers(request + std::string(more, ' ') + "\n" + request + "\n" + request + " ");
        ASSERT_EQ(all.size(), 3u);
        EXPECT_EQ(Json::parse(all[0])["error"],
                  (Json{{"code", invalid_request},
                        {"message", "a request of more than " + std::to_string(request.size()) + " bytes"}}));
        EXPECT_EQ(Json::parse(all[1])["result"]["object"], 1);
        EXPECT_EQ(Json::parse(all[2])["error"]["code"], invalid_request) << "the last line, which has no end";
    }
}

TEST_F(Json_rpc, lines_of_every_length_around_the_reading_s_pieces_are_read_whole) {
    for (const std::size_t size : {16'381, 16'382, 16'383, 16'384, 16'385, 32'765, 32'766, 32'767, 32'768}) {
        std::string request = R"({"jsonrpc":"2.0","id":9,"method":"create","params":{"class":"clsRpDetalle"}})";
        request.resize(size, ' ');
        EXPECT_EQ(answers(request).size(), 1u) << size;
        EXPECT_EQ(answers(request + "\n").size(), 1u) << size;
        const auto two = answers(request + "\n" + request + "\n");
        ASSERT_EQ(two.size(), 2u) << size;
        EXPECT_EQ(Json::parse(two[1])["result"]["object"], 2);
    }
}

TEST_F(Json_rpc, a_line_of_too_many_values_is_refused) {
    limits.values = 12;  // the batch, and three values in each request
    const std::string request = R"({"jsonrpc":"2.0","id":1,"method":"create"})";
    EXPECT_EQ(Json::parse(answers("[" + request + "," + request + "]").at(0)).size(), 2u);
    EXPECT_EQ(Json::parse(answers("[" + request + "," + request + "," + request + ",1,2]").at(0))["error"],
              (Json{{"code", invalid_request}, {"message", "a request of more than 12 values"}}));
}

TEST_F(Json_rpc, a_session_holds_so_many_objects_at_a_time) {
    limits.objects = 3;
    const auto all = answers(with_objects + with_made_up + with_objects +
                             R"({"jsonrpc":"2.0","id":4,"method":"get","params":{"object":3,"member":"Extras"}}
{"jsonrpc":"2.0","id":5,"method":"release","params":{"object":2}}
)" + with_objects);
    ASSERT_EQ(all.size(), 9u);
    for (const std::size_t refused : {3, 4, 5, 8}) {
        EXPECT_EQ(Json::parse(all[refused])["error"],
                  (Json{{"code", invalid_params}, {"message", "no more than 3 objects at a time: release some"}}));
    }
    EXPECT_EQ(Json::parse(all[7])["result"]["object"], 4);
}

TEST_F(Json_rpc, a_session_answers_texts_one_by_one_for_other_doors) {
    Rpc_session session(object_factory(company.module()));
    std::ostringstream answered;
    EXPECT_TRUE(
        session.answer_text(R"([{"jsonrpc":"2.0","id":1,"method":"create","params":{"class":"Tesoreria"}},)"
                            "\n"
                            R"({"jsonrpc":"2.0","id":2,"method":"get","params":{"object":1,"member":"Error"}}])",
                            answered));
    EXPECT_FALSE(session.answer_text(R"({"jsonrpc":"2.0","method":"release","params":{"object":1}})", answered));
    EXPECT_EQ(answered.str(), R"([{"jsonrpc":"2.0","result":{"object":1},"id":1},)"
                              R"({"jsonrpc":"2.0","result":{"value":""},"id":2}])");
}

/// Gives so many bytes, then fails as a broken disk does.
class Breaking : public std::streambuf {
public:
    explicit Breaking(std::string text) : text_(std::move(text)) {
        setg(text_.data(), text_.data(), text_.data() + text_.size());
    }

protected:
    int_type underflow() override { throw std::ios_base::failure("broken"); }

private:
    std::string text_;
};

TEST_F(Json_rpc, requests_that_cannot_be_read_leave_their_stream_bad) {
    Breaking broken(with_objects + "{\"jsonrpc\"");
    std::istream requests(&broken);
    std::ostringstream answered;
    serve_json_rpc(requests, answered, company.module());
    EXPECT_TRUE(requests.bad());
    const std::string answers = answered.str();
    EXPECT_EQ(std::count(answers.begin(), answers.end(), '\n'), 2);
}

// ---- The manual ----------------------------------------------------------------------------------------------------

TEST_F(Json_rpc, the_conversation_of_the_manual_is_the_real_one) {
    std::ifstream manual(tests::in_source("docs/json-rpc.md"));
    std::string requests;
    std::vector<std::string> expected;
    for (std::string line; std::getline(manual, line);) {
        if (line.starts_with("→ ")) requests += line.substr(std::string("→ ").size()) + "\n";
        if (line.starts_with("← ")) expected.push_back(line.substr(std::string("← ").size()));
    }
    EXPECT_GE(expected.size(), 10u);
    EXPECT_EQ(answers(requests), expected);
}

}  // namespace
}  // namespace cuvexa::tests
