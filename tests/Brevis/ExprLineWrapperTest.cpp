// The expression line wrapper: each rung of the ladder with each style, lists, `for` heads, what stands between the
// operands, and that nothing is lost and time grows with the text.
#include <gtest/gtest.h>

#include <functional>
#include <random>
#include <string>
#include <vector>

#include "../support/StepCount.h"
#include "first/wrap/Brevis_CppExprLineWrapper.h"
#include "first/wrap/Brevis_LaidOperands.h"
#include "first/wrap/Brevis_StreamedOperands.h"
#include "first/wrap/Brevis_WrapSteps.h"

namespace Brevis {
namespace {

using Values = std::vector<std::pair<std::string, int>>;

Scheme schemeWith(const Values& values) {
    PropertySet properties;
    properties.setBool("LINE_WRAP", true);
    properties.setInt("RIGHT_MARGIN", 20);
    properties.setInt("TAB_SIZE", 4);
    properties.setInt("WRAP_STYLE", 1);
    properties.setString("WRAP_INDENT", "    ");
    for (const auto& [key, value] : values) properties.setInt(key, value);
    return Scheme::from(properties);
}

IndentStreamSettings settingsAt(int column, int convertMode = 0) {
    IndentStreamSettings settings;
    settings.indent = std::string(static_cast<std::size_t>(column), ' ');
    settings.column = column;
    settings.tabSize = 4;
    settings.convertMode = convertMode;
    return settings;
}

struct WrapCase {
    Values values;
    std::string text;
    std::string expected;
    int column = 0;
    bool noExtraIndent = false;
};

void expectExpressions(const std::vector<WrapCase>& cases) {
    for (const WrapCase& test : cases) {
        const Scheme scheme = schemeWith(test.values);
        CppExprLineWrapper wrapper(scheme);
        EXPECT_EQ(wrapper.wrapExpression(test.text, settingsAt(test.column), test.noExtraIndent), test.expected);
    }
}

TEST(ExprLineWrapper, BreaksCallsAtTheirCommas) {
    const std::string text = "x = f(aaaaaa, bbbbbbbb);";
    expectExpressions({
        {{}, text, "x = f(aaaaaa,\n      bbbbbbbb);"},
        {{{"WRAP_STYLE", 2}}, text, "x = f(aaaaaa,\n        bbbbbbbb);"},
        {{{"WRAP_STYLE", 0}}, text, "x = f(aaaaaa,\nbbbbbbbb);"},
        {{{"COMMA_WRAP_STYLE", 1}}, text, "x = f(aaaaaa\n    , bbbbbbbb);"},
        {{{"COMMA_WRAP_STYLE", 0}, {"WRAP_STYLE", 9}}, text, "x = f(aaaaaa\n, bbbbbbbb);"},
        {{{"COMMA_WRAP_STYLE", 3}}, text, "x = f(aaaaaa,\n      bbbbbbbb);"},
        {{{"RIGHT_MARGIN", 24}}, text, text},
        // Arguments are tested without their `)`; those of inner calls come after all of the outer ones.
        {{}, "f(g(aaaaaaa, bbbbbbb))", "f(g(aaaaaaa, bbbbbbb))"},
        {{}, "f(g(aaaaaaa, bbbbbbbb))", "f(g(aaaaaaa,\n    bbbbbbbb))"},
        {{}, "((aaaaaaaaa, bbbbbbbb))", "((aaaaaaaaa,\n  bbbbbbbb))"},
        {{{"CONVERT_WS", 2}}, "x = ffffff(aaaaaaa, bbbbbbbb);", "x = ffffff(aaaaaaa,\n           bbbbbbbb);"},
    });
    const Scheme scheme = schemeWith({});
    CppExprLineWrapper wrapper(scheme);
    EXPECT_EQ(wrapper.wrapExpression("x = ffffff(aaaaaaa, bbbbbbbb);", settingsAt(0, 2), false),
              "x = ffffff(aaaaaaa,\n\t\t   bbbbbbbb);");
}

TEST(ExprLineWrapper, BreaksAtOperatorsRungByRung) {
    const std::string sum = "return aaaaaaaa + bbbbbbbbbb;";
    const std::string shifts = "cout << aaaa << bbbb << cccc;";
    expectExpressions({
        {{}, sum, "return aaaaaaaa\n     + bbbbbbbbbb;"},
        {{{"EXPR_WRAP_STYLE", 2}}, sum, "return aaaaaaaa +\n       bbbbbbbbbb;"},
        {{}, shifts, "cout << aaaa << bbbb\n     << cccc;"},
        {{{"SHIFT_WRAP_STYLE", 2}}, shifts, "cout << aaaa <<\n     bbbb << cccc;"},
        {{{"SHIFT_WRAP_STYLE", 0}}, shifts, "cout\n<< aaaa\n<< bbbb\n<< cccc;"},
        {{}, "aaaa == bbbb && cccc == dddd", "aaaa == bbbb\n && cccc == dddd", 4},
        {{}, "static_cast<Type>(aaaaaaaaaaa)", "static_cast<Type>\n(aaaaaaaaaaa)"},
        {{}, "(unsigned char) aaaaaaaa;", "(unsigned char)\naaaaaaaa;"},
        // A sign behind an operator stays with it.
        {{}, "aaaaaaaaaaaaaa / -bbbbb;", "aaaaaaaaaaaaaa\n/ -bbbbb;"},
        // The left side of an assignment is no operand; `>=` counts as one and `/=` doesn't.
        {{}, "xxxx >= yyyyyyyy + zzzzzzzzz", "xxxx >= yyyyyyyy\n      + zzzzzzzzz"},
        {{}, "xxxx /= yyyyyyyy + zzzzzzzzz", "xxxx /= yyyyyyyy\n+ zzzzzzzzz"},
        {{{"WRAP_STYLE", 2}, {"EXPR_WRAP_STYLE", 2}}, "aaaaaaaaaa + bbbbbbbbbb", "aaaaaaaaaa +\n      bbbbbbbbbb", 2},
        {{{"WRAP_STYLE", 2}, {"EXPR_WRAP_STYLE", 2}}, "aaaaaaaaaa + bbbbbbbbbb", "aaaaaaaaaa +\n  bbbbbbbbbb", 2, true},
        {{}, "aaaaaaaaaaaaaaaaaaaaaaaaaaa", "aaaaaaaaaaaaaaaaaaaaaaaaaaa"},
    });
}

TEST(ExprLineWrapper, KeepsStringsCommentsAndDirectivesInPlace) {
    expectExpressions({
        {{}, "f(\"a\" \"b\")", "f(\"a\"\n  \"b\")"},
        {{}, "s=\"a\" \"b\"+\"c\" \"d\"", "s=\"a\"\n  \"b\"+\"c\"\n  \"d\""},
        {{}, "f(\"a\" \"b\\\n   c\")", "f(\"a\"\n  \"b\\\n   c\")"},
        {{}, "a #if X\n b", "a\n#if X\n b"},
        {{{"RIGHT_MARGIN", 14}}, "f(aaaaaaa, // c\n bbbbbbbbb, ccccc)", "f(aaaaaaa, // c\n  bbbbbbbbb,\n  ccccc)"},
        {{}, "f(aaaaaaaa, /* x */ bbbbbbb)", "f(aaaaaaaa, /* x */\n  bbbbbbb)"},
        // White space behind a backslash at a line end stays as it is.
        {{}, "aaaaaaaaaa \\\n   + bbbbbbbbbbbbbbbbbbbb", "aaaaaaaaaa \\\n   + bbbbbbbbbbbbbbbbbbbb"},
    });
    Scheme off = schemeWith({});
    off.lineWrap = false;
    EXPECT_EQ(CppExprLineWrapper(off).wrapExpression("f(\"a\" \"b\") + cccccccccccccccc", settingsAt(0), false),
              "f(\"a\" \"b\") + cccccccccccccccc");
}

TEST(ExprLineWrapper, Lists) {
    const std::string numbers = "1, 2, 3, 4, 5, 6, 7, 8";
    const std::vector<WrapCase> cases = {
        {{}, numbers, numbers},
        {{{"LIST_WRAP_STRATEGY", 1}}, numbers, "1, 2, 3,\n4, 5, 6,\n7, 8"},
        {{{"LIST_WRAP_STRATEGY", 1}, {"COMMA_WRAP_STYLE", 1}}, numbers, "1, 2, 3, 4\n, 5, 6, 7\n, 8"},
        {{{"LIST_WRAP_STRATEGY", 1}, {"COMMA_WRAP_STYLE", 0}}, numbers, numbers},
        {{{"LIST_WRAP_STRATEGY", 1}}, "1, 2, // c\n3, 4, 5, 6", "1, 2, // c\n3, 4, 5, 6"},
        {{{"LIST_WRAP_STRATEGY", 2}}, "11111, 22222,", "11111,\n22222,"},
        {{{"LIST_WRAP_STRATEGY", 2}}, "{1111, 2222}, {3333, 4444}", "{1111,\n 2222},\n{3333,\n 4444}"},
    };
    for (const WrapCase& test : cases) {
        Values values = test.values;
        values.emplace_back("RIGHT_MARGIN", 10);
        const Scheme scheme = schemeWith(values);
        CppExprLineWrapper wrapper(scheme);
        EXPECT_EQ(wrapper.wrapList(test.text, settingsAt(0), false), test.expected);
    }
}

TEST(ExprLineWrapper, ForHeads) {
    const Scheme scheme = schemeWith({});
    CppExprLineWrapper wrapper(scheme);
    EXPECT_EQ(wrapper.wrapForHead("int i = 0; i < n; ++i", settingsAt(5)), "int i = 0;\n     i < n;\n     ++i");
    EXPECT_EQ(wrapper.wrapForHead("aaaaaa(bbbbbbb, ccccccc); d; e", settingsAt(0)),
              "aaaaaa(bbbbbbb,\n       ccccccc);\nd;\ne");
}

// ---- Any text

std::string withoutWhiteSpace(std::string text) {
    std::erase_if(text, [](unsigned char c) { return std::isspace(c) != 0; });
    return text;
}

std::vector<Trn::TokenKind> kinds(const std::string& text) {
    const LexedText lexed(text);
    std::vector<Trn::TokenKind> result;
    for (std::size_t i = 0; i < lexed.count(); ++i) result.push_back(lexed[i].kind);
    return result;
}

std::string randomList(std::mt19937& random) {
    static const std::vector<std::string> soup = {"a",
                                                  "name",
                                                  "A::",
                                                  "return",
                                                  "static_cast",
                                                  "int",
                                                  "1",
                                                  "12i64",
                                                  "\"s \\\" t\"",
                                                  "\"a\\\n  b\"",
                                                  "'c'",
                                                  "(",
                                                  ")",
                                                  "(",
                                                  ")",
                                                  "{",
                                                  "}",
                                                  "[",
                                                  "]",
                                                  "<",
                                                  ">",
                                                  ",",
                                                  ",",
                                                  ";",
                                                  "?",
                                                  ":",
                                                  "+",
                                                  "-",
                                                  "/",
                                                  "<<",
                                                  ">>",
                                                  "&&",
                                                  "=",
                                                  ">=",
                                                  "*",
                                                  "// c\n",
                                                  "/* d */",
                                                  "/* e\n   f */",
                                                  "#define X\n",
                                                  "$",
                                                  "\\\n",
                                                  "\"open\n",
                                                  "'open\n",
                                                  "\t"};
    static const std::vector<std::string> gaps = {"", " ", " ", " ", "  ", "\n", "\n   "};
    std::string text;
    for (std::size_t count = 1 + random() % 40; count > 0; --count) {
        text += soup[random() % soup.size()] + gaps[random() % gaps.size()];
    }
    return text;
}

TEST(ExprLineWrapper, ChangesNothingButWhiteSpace) {
    int changed = 0;
    for (unsigned seed = 0; seed < 4000; ++seed) {
        std::mt19937 random(seed);
        Values values = {{"RIGHT_MARGIN", static_cast<int>(random() % 60)}};
        for (const char* key :
             {"WRAP_STYLE", "EXPR_WRAP_STYLE", "SHIFT_WRAP_STYLE", "COMMA_WRAP_STYLE", "LIST_WRAP_STRATEGY"}) {
            values.emplace_back(key, static_cast<int>(random() % 4));
        }
        const Scheme scheme = schemeWith(values);
        CppExprLineWrapper wrapper(scheme);
        const std::string text = randomList(random);
        const IndentStreamSettings settings =
            settingsAt(static_cast<int>(random() % 20), static_cast<int>(random() % 3));
        for (const std::string& wrapped :
             {wrapper.wrapExpression(text, settings, random() % 2 == 0), wrapper.wrapList(text, settings, false),
              wrapper.wrapForHead(text, settings)}) {
            changed += wrapped != text ? 1 : 0;
            ASSERT_EQ(withoutWhiteSpace(wrapped), withoutWhiteSpace(text)) << "seed " << seed;
            ASSERT_EQ(kinds(wrapped), kinds(text)) << "seed " << seed << "\n" << text;
        }
    }
    EXPECT_GT(changed, 4000);
}

// ---- Breaking in place

// Calls, groups, casts and operators in any order, some of them never closed.
std::string randomNest(std::mt19937& random, int depth) {
    static const std::vector<std::string> opens = {"f(", "name (a, ",       "(",      "{1, ",
                                                   "a[", "static_cast<T>(", "(int) ", "v<"};
    static const std::vector<std::string> closes = {")", ")", ")", "}", "]", ")", "", ">"};
    static const std::vector<std::string> joints = {", ",  " + ", " - ",  " && ",      " << ",
                                                    " ? ", " : ", "\n* ", " // c\n, ", ",/*d*/ "};
    if (depth == 0) return random() % 2 == 0 ? "aaaa" : "\"b, c\"";
    const std::size_t kind = random() % opens.size();
    std::string text = opens[kind] + randomNest(random, depth - 1);
    for (auto count = random() % 3; count > 0; --count) {
        text += joints[random() % joints.size()] + randomNest(random, depth - 1);
    }
    return random() % 50 == 0 ? text : text + closes[kind];
}

// What is done to the gaps alone has to come out as if the whole text were written to a stream at every step.
TEST(ExprLineWrapper, BreaksInPlaceAsThroughStreams) {
    int broken = 0;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        std::mt19937 random(seed);
        Values drawn = {{"RIGHT_MARGIN", static_cast<int>(5 + random() % 60)}};
        for (const char* key : {"WRAP_STYLE", "EXPR_WRAP_STYLE", "SHIFT_WRAP_STYLE", "COMMA_WRAP_STYLE"}) {
            drawn.emplace_back(key, static_cast<int>(random() % 3));
        }
        const Scheme scheme = schemeWith(drawn);
        const WrapValues values(scheme);
        const CppExprFormatterBase writers(scheme);
        const IndentStreamSettings settings =
            settingsAt(static_cast<int>(random() % 20), static_cast<int>(random() % 3));
        const WrapPlace place(settings);
        const std::string text = randomNest(random, 1 + static_cast<int>(random() % 5)) + ";";
        const LexedText lexed(text);
        if (!LaidText::isSuited(lexed, place, values)) continue;

        LaidOperands laid(lexed, place, values);
        WrapSteps(laid).run();
        if (laid.hasGivenUp()) continue;
        StreamedOperands streamed(text, place, {values, writers});
        WrapSteps(streamed).run();
        const std::string expected = streamed.take();
        ASSERT_EQ(laid.text(), expected) << "seed " << seed << "\n" << text;
        broken += expected != text ? 1 : 0;
    }
    EXPECT_GT(broken, 2000);
}

// ---- Cost

std::string repeated(const std::string& front, const std::string& unit, int count, const std::string& back) {
    std::string text = front;
    while (count-- > 0) text += unit;
    return text + back;
}

// Calls on one long line are broken further and further to the right. Where that goes through streams, because of a
// stray character, such columns are folded while the steps run, and nothing of that may be seen in the result.
TEST(ExprLineWrapper, FarColumns) {
    const Scheme scheme = schemeWith({{"LIST_WRAP_STRATEGY", 2}});
    CppExprLineWrapper wrapper(scheme);
    for (const std::string last : {"bbbb", "bbb$"}) {
        const std::string call = "ff(aaaa, " + last + ")";
        // The break between the calls brings their arguments back.
        const std::string list = wrapper.wrapList(repeated("", call + ", ", 200, "0"), settingsAt(0), false);
        const std::string end = repeated("", "ff(aaaa,\n   " + last + "),\n", 190, "0");
        ASSERT_GT(list.size(), end.size());
        EXPECT_EQ(list.substr(list.size() - end.size()), end);
        // Without one they stay where they are.
        const std::string product = wrapper.wrapList(repeated("", call + " * ", 60, "1"), settingsAt(0), false);
        EXPECT_EQ(product.substr(product.rfind('\n')), "\n" + std::string(20 + 58 * 11, ' ') + last + ") * 1");
    }
}

TEST(ExprLineWrapperGrowth, IsThatOfTheText) {
    const std::string nest = repeated("", "(", 200, "a") + repeated("", ")", 200, " + ");
    const struct {
        std::string front, unit, back;
        int count;
    } cases[] = {{"f(", "aaaa, ", "0);", 1000},    {"x = ", "aaaa + ", "0;", 1000},
                 {"cout", " << aaaa", ";", 1000},  {"", "a < b, ", "0", 1000},
                 {"", "{1, {2, 3}}, ", "0", 1000}, {"", "f(a) + ", "0", 1000},
                 {"", "f(a, $b), ", "0", 500},     {"", "f(a, b), ", "0", 500},
                 {"", "a,\n", "0", 1000},          {"", nest, "0", 8}};
    for (const int strategy : {1, 2}) {
        const Scheme scheme = schemeWith({{"LIST_WRAP_STRATEGY", strategy}});
        CppExprLineWrapper wrapper(scheme);
        for (const auto& test : cases) {
            const auto cost = [&](int count) {
                const std::string text = repeated(test.front, test.unit, count, test.back);
                return StepCount::of(
                    [&] { EXPECT_GE(wrapper.wrapList(text, settingsAt(4), false).size(), text.size()); });
            };
            const StepCount::Cost once = cost(test.count), more = cost(8 * test.count);
            EXPECT_TRUE(StepCount::isWithin(more, 12, once))
                << test.front << test.unit.substr(0, 20) << once << ", then " << more;
        }
    }
}

// The same amount of text costs some same steps, however deep it is nested, closed or not.
TEST(ExprLineWrapperGrowth, IsNotThatOfTheDepth) {
    const struct {
        std::string open, close;
    } cases[] = {{"f(a, ", ")"}, {"(x + ", ")"}, {"{1, ", "}"},    {"static_cast<int>((", "))"}, {"v<f(a, ", ")>"},
                 {"f(a, ", ""},  {"a ? (", ""},  {"g(s << ", ")"}, {"static_cast<int>((", ""}};
    const Scheme scheme = schemeWith({{"WRAP_STYLE", 0}});
    CppExprLineWrapper wrapper(scheme);
    for (const auto& test : cases) {
        const auto cost = [&](int depth) {
            const std::string nest = repeated("", test.open, depth, "b") + repeated("", test.close, depth, ";");
            return StepCount::of([&] {
                for (int done = 0; done < 2000; done += depth) {
                    EXPECT_NE(wrapper.wrapExpression(nest, settingsAt(4), false), nest);
                }
            });
        };
        const StepCount::Cost once = cost(100), more = cost(1000);
        EXPECT_TRUE(StepCount::isWithin(more, 3, once)) << test.open << test.close << once << ", then " << more;
    }
}

}  // namespace
}  // namespace Brevis
