// The seam guard alone: what a pass could have written, and what the guard leaves of it.
#include "guard/Brevis_SeamGuard.h"

#include <gtest/gtest.h>

#include <random>

#include "Trn_Exception.h"
#include "guard/Brevis_TokenDifference.h"

namespace Brevis {
namespace {

using namespace std::string_literals;

void expectMended(const std::string& source, const std::string& written, const std::string& mended, std::size_t seams) {
    std::string text = written;
    EXPECT_EQ(seams, SeamGuard(source).mend(text)) << source;
    EXPECT_EQ(mended, text) << source;
    EXPECT_FALSE(findTokenDifference(source, text)) << source;
}

struct Pair {
    const char* first;
    const char* second;
    bool join;
};

TEST(SeamGuardTest, PutsABlankWhereTokensWouldJoin) {
    const Pair pairs[] = {
        {"else", "x", true},        {"L", "\"s\"", true},    {"u8", "'c'", true},     {"R", "\"(s)\"", true},
        {"1", ".5", true},          {"1", "x", true},        {"1", "'a'", true},      {"0x1e", "+1", true},
        {"\"s\"", "PRIx", true},    {"'c'", "_x", true},     {"+", "+", true},        {"-", "->", true},
        {"&", "&&", true},          {">", ">", true},        {"/", "*p", true},       {"/", "/* c */", true},
        {".", "5", true},           {".", ".", true},        {"<", "::A", true},      {"<:", ":", true},
        {":", ":", true},           {"::", ">", true},       {"%", ":", true},        {"<=", ">", true},
        {"#", "#", true},           {"@", "a", true},        {"$", "x", true},        {"a", "\\u00e9", true},
        {"\"a\"_x", "\"b\"", true}, {"a", "(", false},       {"x", "\"s\"", false},   {"1", "+", false},
        {"\"s\"", "\"t\"", false},  {"a", "/* c */", false}, {"*", "/* c */", false}, {"a", ".5", false},
        {"=", "-1", false},         {"/* c */", "/", false}, {")", "b", false},       {"!", "!", false},
        {"\xc3\xa4", "b", true},
    };
    for (const auto& [first, second, join] : pairs) {
        const std::string apart = "x; "s + first + ' ' + second + '\n', together = "x; "s + first + second + '\n';
        expectMended(apart, together, join ? apart : together, join ? 1 : 0);
    }
}

struct SeamCase {
    std::string source;
    std::string written;
    std::string mended;
    std::size_t seams;
};

// The blanks at the ends of lines of comments and directives come back, unless the pass may trim them.
TEST(SeamGuardTest, LetsLineEndsBeTrimmedIfThePassMay) {
    const std::string source = "int a; // b  \n/* c \n d\t\n*/ \n#define E  \n// f \\  \ng \nchar *h = \"i  \nint j;\n";
    const std::string trimmed = "int a; // b\n/* c\n d\n*/\n#define E\n// f \\\ng\nchar *h = \"i\nint j;\n";
    std::string text = trimmed;
    SeamGuard(source).mend(text);
    EXPECT_EQ(text, "int a; // b  \n/* c \n d\t\n*/\n#define E  \n// f \\  \ng \nchar *h = \"i  \nint j;\n");
    text = trimmed;
    SeamGuard(source, SeamGuard::LineEnds::Trimmed).mend(text);
    EXPECT_EQ(text, "int a; // b\n/* c\n d\n*/\n#define E\n// f \\  \ng\nchar *h = \"i  \nint j;\n");
}

TEST(SeamGuardTest, LeavesTheTokensOfTheSource) {
    const SeamCase cases[] = {
        // No token is torn, and strays stay with what they touch.
        {"f(100i64,0b1,1'000,0x1p-3,.5e+1)", "f( 100 i64 ,0 b1,1 ' 000,0x1p - 3, .5e + 1 )",
         "f( 100i64 ,0b1,1'000,0x1p-3, .5e+1 )", 5},
        {"a<=>b+=c", "a <= > b + =c", "a <=> b +=c", 2},
        {"x b@ (c); \\( a);", "x b@(c); \\(a);", "x b@ (c); \\( a);", 2},
        {"@\"s\" a@b", "@ \"s\" a @ b", "@\"s\" a@b", 3},
        // The inside of literals.
        {"s=\"a  b\" 'c'; R\"x(a\n  b)\" )x\";", "s = \"a b\"'c';R\"x(a\nb)\" )x\";",
         "s = \"a  b\"'c';R\"x(a\n  b)\" )x\";", 2},
        {"s = \"a \\\n  b\";", "s = \"a \\\nb\";", "s = \"a \\\n  b\";", 1},
        {"#error don't  do\nx", "#error don't do\nx", "#error don't  do\nx", 1},
        {"#include <a  b>\nx", "#include <a b>\nx", "#include <a  b>\nx", 1},
        {"#if __has_include(<a  b>)\n", "#if __has_include(<a\tb>)\n", "#if __has_include(<a  b>)\n", 1},
        {"import <a/b>;\n", "import < a / b >;\n", "import <a/b>;\n", 1},
        // In comments the starts of lines are free, and tabs and blanks may stand for each other.
        {"/* a  b\n  c\td\n */", "/* a b\n\t\tc   d\n*/", "/* a  b\n\t\tc   d\n*/", 1},
        {"/* a\n\n b */", "/* a\n b */", "/* a\n\n b */", 1},
        {"// a  \nx", "// a\n\n  x", "// a  \n\n  x", 1},
        {"// a\nx", "// a x", "// a\nx", 1},
        {"// a \\\n b  c\nx", "// a \\\n   b c\nx", "// a \\\n   b  c\nx", 1},
        {"// a \\ \n b\n\nx", "// a \\\n b\nx", "// a \\ \n b\nx", 1},
        // Directives.
        {"x;\n#if A\ny\n#endif\nz", "x; #if A y\n  #endif z", "x;\n#if A\ny\n  #endif\nz", 3},
        {"x;\n/* c */ #if A\n#endif", "x; /* c */ #if A\n#endif", "x; /* c */\n#if A\n#endif", 1},
        {"f(a, #b, c);", "f(a,\n#b,\nc);", "f(a, #b,\nc);", 1},
        {"f(a, /* c */ #b);", "f(a,\n/* c */\n#b);", "f(a, /* c */ #b);", 1},
        {"#define F(x) x\n#define G (x)\n", "#define F (x) x\n#define G(x)\n", "#define F(x) x\n#define G (x)\n", 2},
        {"#define A \\\n  b c\nx", "#define A \\\n\tb  c x", "#define A \\\n\tb c\nx", 2},
        {"#define A\\\n  b\n", "#define A\\\nb\n", "#define A\\\n  b\n", 1},
        {"#define A /* a\n b */ c  d\nx", "#define A /* a\n   b */\nc d\nx", "#define A /* a\n   b */ c  d\nx", 2},
        {"#define A c,\\\n\td, \\\n\te\n", "#define A c,\\\nd, \\\ne\n", "#define A c,\\\n\td, \\\ne\n", 1},
        {"// \\\n  b\n/\\\n*\\\n  b */", "// \\\nb\n/\\\n  *\\\nb */", "// \\\nb\n/\\\n*\\\n  b */", 2},
        {"\xef\xbb\xbf#if A\nx\n#endif", " \xef\xbb\xbf#if A x\n#endif", "\xef\xbb\xbf#if A\nx\n#endif", 2},
        // A backslash at a line end.
        {"i\\\nnt x = a + \\\n  b;", "i \\\n nt x =a+\\\nb;", "i\\\nnt x =a+ \\\n  b;", 2},
        {"a \\\n\n#if A\n", "a \\\n#if A\n", "a \\\n\n#if A\n", 1},
    };
    for (const auto& [source, written, mended, seams] : cases) expectMended(source, written, mended, seams);
}

TEST(SeamGuardTest, RefusesMoreThanWhiteSpace) {
    for (const char* written :
         {"int x;\n  inty;", "int x;\n  int z;", "int x;\n  int y", "int x;\n  int y;;", "int x;\n /* i */nt y;"}) {
        std::string text = written;
        const bool isKept = text == "int x;\n  inty;";
        try {
            SeamGuard("int x;\n  int y;").mend(text);
            EXPECT_TRUE(isKept) << written;
        } catch (const Trn::Exception& exception) {
            EXPECT_FALSE(isKept) << written;
            EXPECT_NE(std::string::npos, exception.message().find("at line 2, column ")) << exception.message();
        }
    }
}

// Whatever white space is put in or taken out of whatever text: the tokens are those of the source again, and a
// second look finds nothing to mend.
TEST(SeamGuardTest, MendsAnyChangeOfWhiteSpace) {
    constexpr const char* pieces[] = {"\\\n",
                                      "\\ \n",
                                      "/*",
                                      "*/",
                                      "//",
                                      "\"",
                                      "'",
                                      "R\"(",
                                      ")\"",
                                      "#",
                                      "#define A",
                                      "#define F(",
                                      "(",
                                      "%:",
                                      "<",
                                      ":",
                                      ".",
                                      "..",
                                      "1'0",
                                      "u8",
                                      "L",
                                      "0x1p-3",
                                      "import <a b>;",
                                      "\\",
                                      "@",
                                      "$",
                                      "\n",
                                      "\n",
                                      " ",
                                      " ",
                                      "+",
                                      "-",
                                      ">",
                                      "=",
                                      "&",
                                      "a",
                                      "1",
                                      "/",
                                      "*",
                                      "\\u00e9",
                                      "#include <a b>",
                                      "#error don't",
                                      "\"a\"_x",
                                      "??",
                                      "\n#if 0\n",
                                      "\n#endif\n"};
    constexpr const char* spaces[] = {"", "", " ", "\n", "\t", "  ", "\n\n", "\n  ", " \n", "\v"};
    std::mt19937 random(4);
    const auto draw = [&](std::size_t count) { return random() % count; };
    std::size_t seams = 0;
    for (int round = 0; round < 20'000; ++round) {
        std::string source, text;
        for (std::size_t left = 1 + draw(30); left > 0; --left) source += pieces[draw(std::size(pieces))];
        for (const char c : source) {
            const bool isSpace = c == ' ' || c == '\n';
            if (draw(isSpace ? 3 : 8) == 0) text += spaces[draw(std::size(spaces))];
            if (!isSpace || draw(3) > 0) text += c;
        }
        seams += SeamGuard(source).mend(text);
        ASSERT_FALSE(findTokenDifference(source, text)) << source << "\n----\n" << text;
        ASSERT_EQ(0u, SeamGuard(source).mend(text)) << source << "\n----\n" << text;
    }
    EXPECT_GT(seams, 20'000u);
}

TEST(TokenDifferenceTest, NamesTheFirstPlace) {
    const struct {
        const char* text;
        const char* other;
        const char* before;
        const char* after;
        Trn::Position place;
    } cases[] = {
        {"int x;\n  else y;", "int x;\nelsey;", "else", "elsey", {2, 3}},
        {"a / *p;", "a /*p;", "/", "/*p;", {1, 3}},
        {"#define F(x)", "#define F (x)", "(", "(", {1, 10}},
        {"x\n#if A\n#endif", "x #if A\n#endif", "#", "#", {2, 1}},
        {"#if A\nx\n#endif", "#if A x\n#endif", "x", "x", {2, 1}},
        {"s = \"a  b\";", "s = \"a b\";", "\"a  b\"", "\"a b\"", {1, 5}},
        {"x; y;", "x;", "y", "", {1, 4}},
    };
    for (const auto& [text, other, before, after, place] : cases) {
        const auto difference = findTokenDifference(text, other);
        ASSERT_TRUE(difference) << text;
        EXPECT_EQ(before, difference->before);
        EXPECT_EQ(after, difference->after);
        EXPECT_EQ(place, difference->place) << text;
    }
    EXPECT_FALSE(findTokenDifference("/* a\n  b */ f( x );\n", "/* a\n b */\nf(x);"));
}

}  // namespace
}  // namespace Brevis
