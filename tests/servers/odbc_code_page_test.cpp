// Characters that a server's database does not keep.
#include "database/odbc/code_page.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "cuvexa/errors.h"

namespace cuvexa::odbc {
namespace {

std::string refusal(int code_page, const std::string& statement) {
    try {
        Code_page(code_page).require_kept(statement);
    } catch (const Database_error& error) {
        return error.what();
    }
    return "";
}

TEST(Code_page, names_the_characters_that_it_lacks_each_once) {
    EXPECT_EQ(Code_page(1252).lacking("¡Año de la Peña, 5 € «œŠÿ»!"), "");
    EXPECT_EQ(Code_page(1252).lacking("日本 y 日本, Łódź 😀"), "日本Łź😀");
    EXPECT_EQ(Code_page(1250).lacking("Łódź"), "");
    EXPECT_EQ(Code_page(1250).lacking("Peña"), "ñ");
    EXPECT_EQ(Code_page(850).lacking("Peña €"), "€");
    EXPECT_EQ(Code_page(28591).lacking("Peña €"), "€");
    EXPECT_EQ(Code_page(932).lacking("日本"), "");
}

// Where a code page has a letter like it, a server puts that in its place, which is no better.
TEST(Code_page, a_letter_that_is_only_like_it_is_another) {
    EXPECT_EQ(Code_page(1252).lacking("Ā＇"), "Ā＇");
}

TEST(Code_page, utf_8_takes_all_and_so_does_what_this_machine_does_not_know) {
    for (const int all : {65001, 0, 54321}) EXPECT_EQ(Code_page(all).lacking("日本 Łódź 😀"), "") << all;
}

TEST(Code_page, a_statement_is_refused_for_what_goes_through_it) {
    EXPECT_EQ(
        refusal(1252, "SELECT '日' AS a, 'x', 'ź日'"),
        "La base de datos no guarda estos caracteres: 日ź (su página de códigos es la 1252); la instrucción no se "
        "envió a la base de datos");
    EXPECT_EQ(refusal(1252, "SELECT N'日本' AS a, 'Peña €'"), "");
    EXPECT_EQ(refusal(65001, "SELECT '日本'"), "");
}

}  // namespace
}  // namespace cuvexa::odbc
