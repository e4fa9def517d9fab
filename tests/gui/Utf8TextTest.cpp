#include "Utf8Text.h"

#include <gtest/gtest.h>

TEST(Utf8Text, ValidTextPassesUnchanged)
{
    const std::string text = "enhanced mix \xC3\xA9 \xE2\x82\xAC \xF0\x9F\x8E\xB9";
    EXPECT_EQ(spatara::validUtf8(text), text);
    EXPECT_EQ(spatara::validUtf8(""), "");
}

TEST(Utf8Text, EachInvalidPartBecomesOneReplacementCharacter)
{
    const std::string replacement = "\xEF\xBF\xBD";
    // A lone lead byte at the end, a Latin-1 letter, an overlong slash, a surrogate, past U+10FFFF.
    EXPECT_EQ(spatara::validUtf8("ab\xC3"), "ab" + replacement);
    EXPECT_EQ(spatara::validUtf8("caf\xE9!"), "caf" + replacement + "!");
    EXPECT_EQ(spatara::validUtf8("\xC0\xAF"), replacement + replacement);
    EXPECT_EQ(spatara::validUtf8("\xED\xA0\x80"), replacement + replacement + replacement);
    EXPECT_EQ(spatara::validUtf8("\xF4\x90\x80\x80"), replacement + replacement + replacement + replacement);
    // A three-byte character missing its last byte is one invalid part.
    EXPECT_EQ(spatara::validUtf8("\xE2\x82x"), replacement + "x");
}

TEST(Utf8Text, CutsFallBetweenCharacters)
{
    EXPECT_EQ(spatara::utf8CutLength("short", 23), 5u);
    EXPECT_EQ(spatara::utf8CutLength("abcdefghijklmnopqrstuv\xC3\xA9", 23), 22u);
    EXPECT_EQ(spatara::utf8CutLength("abcdefghijklmnopqrstuvw\xC3\xA9", 23), 23u);
    // A four-byte character that starts at byte 21 reaches past the limit and goes whole.
    EXPECT_EQ(spatara::utf8CutLength("abcdefghijklmnopqrstu\xF0\x9F\x8E\xB9", 23), 21u);
    // Bytes that are no UTF-8 are cut where the limit falls.
    EXPECT_EQ(spatara::utf8CutLength("abcdefghijklmnopqrstuv\xE9\xE9\xE9", 23), 23u);
    EXPECT_EQ(spatara::utf8CutLength(nullptr, 23), 0u);
}
