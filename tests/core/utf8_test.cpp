// What is a character in UTF-8, at the borders of every length.
#include "core/utf8.h"

#include <gtest/gtest.h>

#include <string>

namespace cuvexa::tests {
namespace {

TEST(Utf8, a_character_has_one_to_four_bytes) {
    for (const std::string text : {"\x7F", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                                   "\xEF\xBF\xBF", "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"}) {
        EXPECT_EQ(utf8_length(text, 0), text.size()) << text;
        EXPECT_EQ(utf8_length("a" + text + "a", 1), text.size()) << text;
    }
}

TEST(Utf8, what_is_cut_off_or_written_otherwise_is_none) {
    for (const std::string text : {
             "\x80",
             "\xC2",
             "\xC2x",
             "\xC1\xBF",  // two bytes
             "\xE1",
             "\xE1\x80",
             "\xE1\x80x",
             "\xE1x\x80",
             "\xE0\x9F\xBF",  // three
             "\xED\xA0\x80",
             "\xED\xBF\xBF",  // surrogates
             "\xF1",
             "\xF1\x80",
             "\xF1\x80\x80",
             "\xF1\x80\x80x",
             "\xF1x\x80\x80",  // four
             "\xF1\x80x\x80",
             "\xF0\x8F\xBF\xBF",
             "\xF4\x90\x80\x80",
             "\xF5\x80\x80\x80",  // and beyond
         }) {
        EXPECT_EQ(utf8_length(text, 0), 0u) << text;
    }
    EXPECT_EQ(utf8_length("", 0), 1u) << "the end is a NUL";
}

}  // namespace
}  // namespace cuvexa::tests
