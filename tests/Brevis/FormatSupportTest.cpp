// Column arithmetic, the moving cursor and the rewriting of gaps.
#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_StreamColumns.h"
#include "first/wrap/Brevis_OverlongLines.h"
#include "scheme/Brevis_Escapes.h"

#include <gtest/gtest.h>

namespace Brevis {
namespace {

OIndentStream streamAt(int mode, std::string indent, int column, bool keep = true) {
    IndentStreamSettings settings;
    settings.convertMode = mode;
    settings.tabSize = 4;
    settings.indent = std::move(indent);
    settings.column = column;
    settings.keepLeadingWs = keep;
    return OIndentStream(settings);
}

// ---- Columns

TEST(Columns, widths) {
    EXPECT_EQ(charWidth('\t', 8, 4), 4);
    EXPECT_EQ(charWidth('\t', 9, 4), 3);
    EXPECT_EQ(charWidth('\t', 9, 0), 1);
    EXPECT_EQ(columnAfter("a\tb\t", 2, 4), 8);
    EXPECT_EQ(columnAfter("a\tb", 2, 0), 3);
    EXPECT_EQ(columnBefore(", \t", 8, 4), 2);
    EXPECT_EQ(columnBefore("abc", 2, 4), 0);
    EXPECT_EQ(columnBefore("abc", 2, 0), 0);
    for (int n = -9; n < 20; ++n) {
        const int up = roundUpToMultiple(n, 4);
        EXPECT_TRUE(up >= n && up < n + 4 && isMultiple(up, 4)) << n;
        EXPECT_EQ(roundUpToMultiple(n, 0), n);
    }
    EXPECT_EQ(sameLineDistance({2, 3}, {2, 9}), 6);
    EXPECT_EQ(sameLineDistance({2, 3}, {3, 9}), 0);
}

TEST(Columns, indentStringFor) {
    struct {
        int mode;
        const char* indent;
        int column;
        const char* expected;
    } cases[] = {{2, "  ", 3, "   "},     {2, "  ", 8, "    \t"}, {2, "  ", 2, "  "},   {2, "\t\t", 6, "\t  "},
                 {2, "\t", 10, "\t\t  "}, {2, "  ", 3, "   "},    {1, "\t", 6, "\t  "}, {0, "\t\t", 6, "      "},
                 {0, "\t", 4, "\t"},      {0, "\t", 0, ""},       {0, "\t", -3, ""},    {7, " ", 3, "   "}};
    for (const auto& c : cases) EXPECT_EQ(indentStringFor(streamAt(c.mode, c.indent, 0), c.column), c.expected);
}

TEST(Columns, pads) {
    struct {
        int mode, column, pad;
        const char* expected;
    } cases[] = {{1, 3, 5, "     "}, {0, 3, 5, "\t\t"}, {0, 2, 1, " "}, {0, 3, 1, "\t"}, {0, 4, 6, "\t  "},
                 {2, 5, 3, "\t"},    {0, 1, 2, "  "},   {0, 3, -2, ""}, {0, 0, 5, "----\t "}};
    for (const auto& c : cases) {
        OIndentStream out = streamAt(c.mode, "----", c.column);
        out << Pad{c.pad};
        EXPECT_EQ(out.str(), c.expected) << c.column << ' ' << c.pad;
    }

    EXPECT_EQ(alignPad(10, 5, 4, 4), 11);  // target 14, stop 16
    EXPECT_EQ(alignPad(10, 0, 4, 4), 12);
    EXPECT_EQ(alignPad(2, 9, 4, 4), 3);   // beyond the target: the next stop
    EXPECT_EQ(alignPad(6, 11, 4, 4), 1);  // beyond the target, its stop still ahead
    EXPECT_EQ(alignPad(4, 8, 4, 4), 0);
    EXPECT_EQ(alignPad(-1, 8, 4, 4), 1);
}

// ---- The cursor

TEST(Cursor, throughAndBefore) {
    ITextDocStream in("ab  cd\n  ef", 4);
    EXPECT_EQ(readThrough(in, {1, 2}), "ab");
    EXPECT_EQ(readBefore(in, {1, 5}), "  ");
    EXPECT_EQ(readBefore(in, {1, 5}), "");
    EXPECT_EQ(readThrough(in, {1, 3}), "");
    EXPECT_EQ(readThrough(in, {2, 0}), "cd\n");
    EXPECT_TRUE(skipBefore(in, {2, 3}));
    OIndentStream out = streamAt(0, "", 0);
    EXPECT_TRUE(copyBefore(in, out, {2, 4}));
    EXPECT_FALSE(copyThrough(in, out, {2, 9}));  // a failed read writes nothing
    EXPECT_EQ(out.str(), "e");
    EXPECT_EQ(remainderOf(in), "");
}

TEST(Cursor, rawCopiesChangeNothing) {
    ITextDocStream in("  a\n  b\n  c", 4);
    OIndentStream out = streamAt(0, "----", 0, false);
    copyThroughRaw(in, out, {2, 0});
    copyBeforeRaw(in, out, {2, 3});
    copyThrough(in, out, {3, 0});
    writeRaw(out, remainderOf(in));
    EXPECT_EQ(out.str(), "  a\n  b\n  c");
}

TEST(Cursor, overlongLines) {
    ITextDocStream in("x12345\n\t1\n12345\n", 4);
    in.get();
    EXPECT_EQ(overlongLines(in, 5), (std::vector<int>{1}));
    ITextDocStream again("12\n\t12\n12345", 4);
    EXPECT_EQ(overlongLines(again, 4), (std::vector<int>{2, 3}));
}

// ---- Gaps

struct GapCase {
    const char* text;
    const char* ws;
    const char* trailing;
    const char* leading;
    const char* trimTrailing;
    const char* trimLeading;
};

TEST(Gaps, setAndTrim) {
    const GapCase cases[] = {
        {"  ", "\n", "\n", "\n", "", ""},
        {"// x\n   ", " ", "// x\n", "// x\n ", "// x\n", "// x\n"},
        {"// x\n   ", "\n", "// x\n", "// x\n\n", "// x\n", "// x\n"},
        {" /* x */  ", "", " /* x */", "/* x */  ", " /* x */", "/* x */  "},
        {"// x\n  /* y */ ", "\t", "// x\n  /* y */\t", "// x\n\t/* y */ ", "// x\n  /* y */", "// x\n/* y */ "},
        {"\n #if 1\n #endif\n  ", " ", "\n #if 1\n #endif\n", "\n #if 1\n #endif\n  ", "\n #if 1\n #endif\n",
         "\n#if 1\n #endif\n  "},
        {"#d \\\n  e\n  ", " ", "#d \\\n  e\n", "#d \\\n  e\n ", "#d \\\n  e\n", "#d \\\n  e\n"},
        {"// x", " ", "// x", "// x ", "// x", "// x"},
        {" $ ", "\n", " $\n", "\n$ ", " $", "$ "},
        {" a \\ \n  ", "\n", " a \\ \n  ", "\na \\ \n  ", " a \\ \n  ", "a \\ \n  "},
        {" // \\\n  ", "", " // \\\n", " // \\\n", " // \\\n", " // \\\n"},
    };
    for (const GapCase& c : cases) {
        const auto changed = [&](auto change) {
            std::string text = c.text;
            change(text);
            return text;
        };
        EXPECT_EQ(changed([&](std::string& text) { setGapTrailing(text, c.ws); }), c.trailing) << c.text;
        EXPECT_EQ(changed([&](std::string& text) { setGapLeading(text, c.ws); }), c.leading) << c.text;
        EXPECT_EQ(changed(trimGapTrailing), c.trimTrailing) << c.text;
        EXPECT_EQ(changed(trimGapLeading), c.trimLeading) << c.text;
    }
}

TEST(Gaps, bothEnds) {
    const auto both = [](std::string text, const char* leading, const char* trailing) {
        setGapBoth(text, leading, trailing);
        return text;
    };
    EXPECT_EQ(both("  /* x */  ", " ", "\n"), " /* x */\n");
    EXPECT_EQ(both("  // x\n  ", "", " "), "  // x\n ");
    EXPECT_EQ(both("/* x */ // y\n  ", "", " "), "/* x */ // y\n ");
    EXPECT_EQ(both("/* x */ // y\n  ", "", "\n\t"), "/* x */ // y\n\t");

    const auto trimmed = [](std::string text) {
        trimGapBoth(text);
        return text;
    };
    EXPECT_EQ(trimmed("  /* x */\n"), "/* x */");
    EXPECT_EQ(trimmed("  // x\n /* y */ "), "  // x\n /* y */ ");
    EXPECT_EQ(trimmed("  /* y */ // x\n "), "  /* y */ // x\n ");
}

TEST(Gaps, replaceChar) {
    const auto replaced = [](std::string text) {
        replaceCharInGap(text, '\n', ' ');
        return text;
    };
    EXPECT_EQ(replaced("const\nint\n"), "const int ");
    EXPECT_EQ(replaced("a\n// x\n"), "a\n// x\n");
    // A line comment in the middle keeps its line end, which would else swallow what follows
    EXPECT_EQ(replaced("a\n// x\nb\n"), "a // x\nb ");
    EXPECT_EQ(replaced("\"a\\\nb\"\nc \\\nd"), "\"a\\\nb\" c \\\nd");
}

TEST(Gaps, kindsOfTokens) {
    EXPECT_FALSE(endsInLineToken("// x\n a"));
    EXPECT_TRUE(endsInLineToken("a #if 1\n"));
    EXPECT_FALSE(endsInLineToken("\"//\""));
    EXPECT_TRUE(startsWithLineToken(" \n // x"));
    EXPECT_FALSE(startsWithLineToken("/* x */ // y\n"));
    EXPECT_TRUE(holdsLineComment("a /* x */ // y\n b"));
    EXPECT_FALSE(holdsLineComment("a /* // */ \"//\""));
    EXPECT_TRUE(holdsCommentOrDirective("a #x"));
    EXPECT_FALSE(holdsCommentOrDirective("a / b"));
}

TEST(Escapes, bothWays) {
    EXPECT_EQ(unescapeText("a\\qb\\n\\r\\t\\v\\\\n\\"), "aqb\n\r\t\v\\n");
    const std::string text = "a\t\n\v\r\"'\\b";
    EXPECT_EQ(escapeText(text), "a\\t\\n\\v\\r\\\"\\'\\\\b");
    EXPECT_EQ(unescapeText(escapeText(text)), text);
}

}  // namespace
}  // namespace Brevis
