// Connection strings taken apart, and texts as drivers exchange them.
#include "database/connection_string.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "database/utf16.h"

namespace cuvexa::database {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(Connection_string, a_server_is_told_from_a_file) {
    EXPECT_TRUE(is_connection_string("Driver=FreeTDS;Server=x"));
    EXPECT_TRUE(is_connection_string("DSN=caja"));
    EXPECT_TRUE(is_connection_string("dsn=caja;UID=x"));
    EXPECT_TRUE(is_connection_string("FILEDSN=caja.dsn"));
    EXPECT_TRUE(is_connection_string("Driver=FreeTDS"));
    EXPECT_FALSE(is_connection_string("empresa.db"));
    EXPECT_FALSE(is_connection_string("C:/datos/a=b.db"));
    EXPECT_FALSE(is_connection_string(""));
}

TEST(Connection_string, names_a_driver_by_itself_or_by_a_source) {
    EXPECT_TRUE(names_a_driver("Server=x;Driver=FreeTDS"));
    EXPECT_TRUE(names_a_driver("UID=ana;FILEDSN=caja.dsn"));
    EXPECT_TRUE(names_a_driver("UID=ana;dsn=caja"));
    EXPECT_FALSE(names_a_driver("Server=x;UID=ana"));
}

TEST(Connection_string, a_value_that_is_not_closed_stands_as_it_is) {
    for (const char* const value : {"{", "{a", "a}", "}"}) EXPECT_EQ(plain_value(value), value);
}

TEST(Connection_string, the_password_is_not_shown_whatever_stands_in_it) {
    EXPECT_EQ(without_password("DSN=caja;UID=ana;PWD=a;Port=1"), "DSN=caja;UID=ana;PWD=***;Port=1");
    EXPECT_EQ(without_password("DSN=caja;password={a;b}}c=};UID=ana"), "DSN=caja;password=***;UID=ana");
    EXPECT_EQ(without_password("PWD={never closed;UID=ana"), "PWD=***");
}

TEST(Connection_string, a_guarded_value_reads_back) {
    for (const char* const value :
         {"plain", "with;mark", "}", "{x}", "a}}b", "a b", " a", "a ", "a=b", "[]()?*!@{", "%41+b", "{", "a;b}"}) {
        const std::string text = "PWD=" + guarded_value(value) + ";UID=ana";
        const auto attributes = connection_attributes(text);
        ASSERT_EQ(attributes.size(), 2u) << text;
        EXPECT_EQ(plain_value(attributes[0].value), value);
    }
    EXPECT_EQ(connection_attributes("UID=" + guarded_value("\tana\n")).front().value, "{\tana\n}") << "not trimmed";
}

// Not every driver reads a value in braces, nor a brace in them.
TEST(Connection_string, a_value_stands_in_braces_only_when_it_must) {
    for (const char* const bare : {"plain", "a b", "a{b", "a}b", "ab}", "a=b", "[]()?*!@"}) {
        EXPECT_EQ(guarded_value(bare), bare);
    }
    EXPECT_EQ(guarded_value("a;b"), "{a;b}");
    EXPECT_EQ(guarded_value("{ab}"), "{{ab}}}");
    EXPECT_EQ(guarded_value(" ab"), "{ ab}");
    EXPECT_EQ(guarded_value("ab "), "{ab }");
    EXPECT_EQ(guarded_value("%41"), "{%41}");
    EXPECT_EQ(guarded_value("a+b"), "{a+b}");
}

TEST(Connection_string, its_passwords_are_known_as_they_stand_and_without_braces) {
    EXPECT_THAT(passwords("DSN=caja;PWD={a;b};Port=1"), ElementsAre("{a;b}", "a;b"));
    EXPECT_THAT(passwords("DSN=caja;PWD="), IsEmpty());
    EXPECT_THAT(passwords("DSN=caja;PWD = {a;b} ;Port=1"), ElementsAre("{a;b}", "a;b"));
    EXPECT_THAT(passwords("DSN=caja;PWD={}"), IsEmpty()) << "nothing is no secret: it would stand everywhere";
}

TEST(Connection_string, secrets_are_blotted_out_once_and_the_longest_first) {
    EXPECT_EQ(without_secrets("clave de ana: clave", {"clave", "clave de ana"}), "***: ***");
    EXPECT_EQ(without_secrets("a*b", {"*", "*", "*"}), "a***b") << "what was put in its place is not blotted out again";
    EXPECT_EQ(without_secrets("nada", {}), "nada");
}

TEST(Connection_string, a_password_given_apart_is_for_a_text_that_has_none) {
    EXPECT_EQ(with_password("DSN=caja", ""), "DSN=caja");
    EXPECT_EQ(with_password("DSN=caja", "a;b"), "PWD={a;b};DSN=caja");
    EXPECT_EQ(with_password("DSN=caja;", "a b"), "PWD=a b;DSN=caja;");
    EXPECT_EQ(with_password("DSN=caja;pwd=c", "a;b"), "DSN=caja;pwd=c");
}

TEST(Utf16, every_length_comes_back) {
    for (const char* const text : {"a", "ñ", "€", "🏦", "a🏦ñ€z", ""}) EXPECT_EQ(utf8_from(utf16_from(text)), text);
    EXPECT_EQ(utf16_from("🏦"), u"\U0001F3E6");
    EXPECT_EQ(utf8_from(std::u16string(1, char16_t(0xD83C))), "\xEF\xBF\xBD");
}

TEST(Connection_string, tells_postgresqls_driver_to_set_no_savepoints) {
    EXPECT_EQ(without_savepoints("Driver=PostgreSQL Unicode;Server=x"),
              "Driver=PostgreSQL Unicode;Server=x;Protocol=7.4-0");
    EXPECT_EQ(without_savepoints("Driver={PostgreSQL ANSI};"), "Driver={PostgreSQL ANSI};Protocol=7.4-0");
    EXPECT_EQ(without_savepoints("Driver=PostgreSQL Unicode;Protocol=7.4-2"),
              "Driver=PostgreSQL Unicode;Protocol=7.4-2");
    EXPECT_EQ(without_savepoints("Driver=FreeTDS;Server=x"), "Driver=FreeTDS;Server=x");
    EXPECT_EQ(without_savepoints("DSN=caja"), "DSN=caja");
}

}  // namespace
}  // namespace cuvexa::database
