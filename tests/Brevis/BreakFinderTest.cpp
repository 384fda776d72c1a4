// The finders of break points and the walkers over groups, each on small texts.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "first/wrap/Brevis_BraceWalker.h"
#include "first/wrap/Brevis_FindFirstBinaryOp.h"
#include "first/wrap/Brevis_FindFirstCast.h"
#include "first/wrap/Brevis_FindFirstElem.h"
#include "first/wrap/Brevis_FindFirstOldCast.h"
#include "first/wrap/Brevis_ParenWalker.h"
#include "first/wrap/Brevis_PieceReader.h"

namespace Brevis {
namespace {

// The text with a `|` behind each break point that the finder finds one after the other.
std::string split(const std::string& text, FirstWrapToken& finder) {
    const LexedText lexed(text);
    PieceReader rest(lexed, finder);
    std::string result;
    while (!rest.empty()) {
        result += rest.cut(rest.textThrough()).text;
        if (!rest.empty()) result += '|';
    }
    return result;
}

// The marks in `expected` tell where the text is to be split.
template <class Finder, class... Args>
void expectSplits(const std::vector<std::string>& expected, const Args&... args) {
    for (const std::string& marked : expected) {
        std::string text = marked;
        std::erase(text, '|');
        Finder finder(args...);
        EXPECT_EQ(split(text, finder), marked);
    }
}

TEST(BreakFinder, CommasAtDepthZero) {
    expectSplits<FindFirstElem>(
        {"f(a, b),| c", "{a, b},| [c, d],| e", "m<a, b> x,| y", "a,| v<b, c>", "static_cast<A, B>(x),| y", "a,, b,| c",
         "a,| b,", ",",
         // A `<` behind a name that closes before `;`, `&&` or `||` opens template arguments.
         "a < b, c > d", "a < b,| c", "a < b; c,| d > e", "1 < 2,| 3 > 4", "a < b < c, d > > e,| f",
         // An unbalanced close bracket hides all that follows.
         "a,| )b, c"},
        WrapTokens::commaOp);
}

TEST(BreakFinder, BinaryOperatorsAndSigns) {
    expectSplits<FindFirstBinaryOp>(
        {"-a +| b", "a ?| b :| c", "x[a + b] -| y", "a <| b && c >| d", "a * -|b +| c", "a <= b & c ^ d", "a, -|b",
         "a, -1", "a, -|(1)",
         // The kind in front of the operator found is kept, so that a sign behind it counts as binary.
         "a /| -|1", "(a) %| +|b"});
}

TEST(BreakFinder, EndsOfCasts) {
    expectSplits<FindFirstCast>({"static_cast<A<B> >|(x) + const_cast<C>|(y)", "f(static_cast<A>(x))", "a < b > c"});
    expectSplits<FindFirstOldCast>({"(int)| x + (char *)| \"s\"", "(T)| (y)| z", "(a + b) * c", "f(a) b", "v<a> (b) c",
                                    "((a) b) * c", "(int)| 'c'"});
}

template <class Walker>
std::string groups(const std::string& text, Walker walker) {
    std::string result;
    for (walker.step(); walker; walker.step()) {
        if constexpr (requires { walker.prev(); }) {
            if (walker.hasName()) result += text.substr(walker.prev().begin, walker.prev().end - walker.prev().begin);
        }
        result += "(" + text.substr(walker.open().end, walker.close().begin - walker.open().end) + ")";
    }
    return result;
}

TEST(BreakFinder, GroupsAtALevel) {
    const struct {
        const char* text;
        int level;
        const char* parens;
        const char* braces;
    } cases[] = {
        {"f(g(a), h(b)) c", 1, "f(g(a), h(b))", ""},
        {"f(g(a), h(b)) c", 2, "g(a)", ""},  // behind a group the count begins anew
        {"f(a)(b) c", 0, "f(a)(b)", ""},
        {"a[f(b)] + (c)", 1, "(c)", ""},
        {"f() (", 1, "f()", ""},
        // A group that isn't closed ends in front of the last character.
        {"f(a, bc", 1, "f(a, b)", ""},
        // A closing brace takes nothing off the count.
        {"{a} {b} {c} d", 2, "", "(b)"},
        {"{a {b} c} {d} e", 1, "", "(a {b} c)(d)"},
    };
    for (const auto& test : cases) {
        const LexedText lexed(test.text);
        EXPECT_EQ(groups(test.text, ParenWalker(lexed, test.level)), test.parens) << test.text << test.level;
        EXPECT_EQ(groups(test.text, BraceWalker(lexed, Trn::Kind::OpenBrace, test.level)), test.braces) << test.text;
    }
}

TEST(BreakFinder, Depths) {
    EXPECT_EQ(maxParenDepth(LexedText("a[(1)] + (b) c")), 1);
    EXPECT_EQ(maxParenDepth(LexedText(")((a) b")), 2);
    EXPECT_EQ(maxParenDepth(LexedText("a (")), 0);  // the last token is never looked at
    EXPECT_EQ(maxBraceDepth(LexedText("{ } { { a")), 2);
}

}  // namespace
}  // namespace Brevis
