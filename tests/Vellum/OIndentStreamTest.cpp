// The output stream: indent, dropped white space, the convert modes and what no mode may touch.
#include "Vellum_OIndentStream.h"

#include <gtest/gtest.h>

#include <random>

namespace Vellum {
namespace {

IndentStreamSettings settingsOf(int mode, int tabSize, std::string indent = {}, bool keep = true, int column = 0) {
    IndentStreamSettings settings;
    settings.indent = std::move(indent);
    settings.keepLeadingWs = keep;
    settings.convertMode = mode;
    settings.tabSize = tabSize;
    settings.column = column;
    return settings;
}

std::string written(const IndentStreamSettings& settings, std::string_view text) {
    OIndentStream out(settings);
    out << text;
    return out.takeStr();
}

struct Case {
    const char* name;
    IndentStreamSettings settings;
    const char* text;
    const char* expected;
    int column;  // at the end
};

class OIndentStreamTest : public testing::TestWithParam<Case> {};

TEST_P(OIndentStreamTest, writesText) {
    const Case& c = GetParam();
    OIndentStream out(c.settings);
    out << std::string_view(c.text);
    EXPECT_EQ(out.column(), c.column);
    EXPECT_EQ(out.str(), c.expected);
}

const Case cases[] = {
    // Indent and leading white space
    {"indents", settingsOf(0, 4, "  ", false), " a\n\n   b \n \t\n", "  a\n\n  b \n\n", 0},
    {"keeps", settingsOf(0, 4, "  ", true), " a\n\n   b\n  \n", "   a\n\n     b\n    \n", 0},
    {"goesOnInMidLine", settingsOf(0, 4, "  ", false, 3), " a\n b", " a\n  b", 3},
    {"emptyIndent", settingsOf(0, 4, "", false), "\n  x", "\nx", 1},

    // Columns and conversion
    {"tabWithoutConversion", settingsOf(0, 8), "\tx\ty", "\tx\ty", 17},
    {"tabsToSpaces", settingsOf(1, 4), "\ta\tb", "    a   b", 9},
    {"spacesToTabs", settingsOf(2, 4), "        x", "\t\tx", 9},
    {"shortRunStays", settingsOf(2, 4), "      x", "\t  x", 7},
    {"runFromMidStop", settingsOf(2, 4), "ab      c", "ab  \tc", 9},
    {"heldBackSpacesCount", settingsOf(2, 4), "ab\n   ", "ab\n   ", 3},
    {"singleColumnTabs", settingsOf(2, 1), "a   b", "a   b", 5},
    {"unknownMode", settingsOf(7, 4), "\ta    b", "\ta    b", 10},
    {"convertedIndent", settingsOf(1, 4, "\t", false), "a\nb", "    a\n    b", 5},

    // Literals are never converted
    {"tabInString", settingsOf(1, 4), "\"a\tb\"\t;", "\"a\tb\"  ;", 9},
    {"spacesInString", settingsOf(2, 2), "\"    \"    x", "\"    \"\t\tx", 11},
    {"escapedQuote", settingsOf(1, 4), "\"\\\"\t\"\t", "\"\\\"\t\"   ", 8},
    {"trackingMisled", settingsOf(1, 4), "\"\\\\\" \"a\tb\"", "\"\\\\\" \"a\tb\"", 10},
    {"apostropheInComment", settingsOf(1, 4), "/*'*/ '\t' \t'", "/*'*/ '\t' \t'", 13},
    {"directiveLiteral", settingsOf(1, 4), "#d \"\\\\\" \"a\tb\"", "#d \"\\\\\" \"a\tb\"", 14},
    {"lineFeedEndsTracking", settingsOf(1, 4), "don't\n\t", "don't\n    ", 4},

    // A continued string comes out byte for byte, what follows it does not
    {"continuedString", settingsOf(0, 4, "  ", false), "\"a \\ \n   b\\\n c\"\n d", "  \"a \\ \n   b\\\n c\"\n  d", 3},
    {"continuedConverted", settingsOf(2, 2, "\t", false), "\"a\\\n    b\"", "\t\"a\\\n    b\"", 6},
    {"continuedToSpaces", settingsOf(1, 2, "\t", false), "\"\\\n\tb\"", "  \"\\\n\tb\"", 4},
    {"brokenString", settingsOf(0, 4, "  ", false), "\"a\n   b", "  \"a\n  b", 3},
    {"directiveString", settingsOf(0, 4, "  ", false), "#d \"a\\\n b\"\\\n c", "  #d \"a\\\n b\"\\\n  c", 3},
    {"continuedDirective", settingsOf(0, 4, "  ", false), "#d a\\\n b", "  #d a\\\n  b", 3},
    {"continuedComment", settingsOf(0, 4, "  ", false), "// a\\\n b", "  // a\\\n  b", 3},
    {"backslashBeforeString", settingsOf(0, 4, "  ", false), "\"\\\\\"\\\n b", "  \"\\\\\"\\\n b", 2},

    // White space behind a stray backslash at a line end stays
    {"strayBackslash", settingsOf(0, 4, "  ", false), "a \\ \n \n   b\n c", "  a \\ \n \n   b\n  c", 3},
    {"strayBackslashTabs", settingsOf(1, 4, "  ", false), "a\\\t\n\tb\tc", "  a\\\t\n\tb   c", 9},
    {"backslashInLine", settingsOf(1, 4), "a\\\tb\\ \t", "a\\  b\\  ", 8},
    {"strayBackslashToTabs", settingsOf(2, 2), "\\    \n    b    c", "\\    \n    b \t c", 10},
};

INSTANTIATE_TEST_SUITE_P(Cases, OIndentStreamTest, testing::ValuesIn(cases),
                         [](const auto& info) { return std::string(info.param.name); });

TEST(OIndentStream, settersLetHeldBackSpacesOutFirst) {
    OIndentStream out(settingsOf(2, 4));
    out << "  ";
    out.setTabSize(2);
    out << "  x";
    EXPECT_EQ(out.str(), "  \tx");

    OIndentStream modes(settingsOf(2, 4));
    modes << "   ";
    modes.setConvertMode(0);
    modes << " \tx\\";
    modes.setConvertMode(1);
    modes << "\n\ty";
    EXPECT_EQ(modes.str(), "    \tx\\\n\ty");
}

TEST(OIndentStream, guardsAndVerbatim) {
    OIndentStream out(settingsOf(0, 4, "  ", false));
    out << Verbatim{" a\n b"} << "\n c";
    {
        const LeadingWsGuard keep(out, true);
        const IndentStringGuard indent(out, "----");
        out << "\n d";
    }
    out << "\n e";
    EXPECT_EQ(out.str(), "   a\n   b\n  c\n---- d\n  e");
    EXPECT_EQ(out.line(), 5);
}

TEST(OIndentStream, settingsOpenAStreamThatGoesOn) {
    OIndentStream out(settingsOf(0, 4, "  ", false));
    out << "a \\\n";
    EXPECT_TRUE(out.behindBackslash());
    OIndentStream scratch(out.settings());
    scratch << " b\n c";
    EXPECT_EQ(scratch.str(), " b\n  c");
    out << "b";
    EXPECT_FALSE(out.behindBackslash());
}

// Written in one piece or one by one, characters come out the same.
// What one stream has written, written again raw by another at the same place, doesn't change: literals survive
// however often nested results are written.
TEST(OIndentStream, rawRewritingChangesNothing) {
    std::mt19937 random(7);
    const std::string_view letters = "\"\"'\\\\\n\n  \t\t/*#ab ";
    for (int round = 0; round < 20000; ++round) {
        std::string text;
        for (int length = static_cast<int>(random() % 24); length > 0; --length)
            text += letters[random() % letters.size()];
        IndentStreamSettings settings = settingsOf(static_cast<int>(random() % 3), 1 + static_cast<int>(random() % 4),
                                                   random() % 2 ? " \t" : "", random() % 2);
        const std::string once = written(settings, text);
        OIndentStream whole(settings), single(settings);
        whole << text;
        for (const char c : text) single << c;
        ASSERT_EQ(single.column(), whole.column());
        ASSERT_EQ(single.str(), once) << "mode " << settings.convertMode << "\n" << text;
        settings.indent.clear();
        settings.keepLeadingWs = true;
        ASSERT_EQ(written(settings, once), once) << "mode " << settings.convertMode << "\n" << text;

        std::string bare = text, bareOnce = once;
        std::erase_if(bare, [](unsigned char c) { return std::isspace(c); });
        std::erase_if(bareOnce, [](unsigned char c) { return std::isspace(c); });
        ASSERT_EQ(bareOnce, bare);
    }
}

}  // namespace
}  // namespace Vellum
