// The expression formatter: one row a rule, and random texts under random values, from which nothing may be lost.
#include "first/expr/Brevis_CppExprFormatter.h"

#include <gtest/gtest.h>

#include <random>

#include "../support/StepCount.h"
#include "Cpp_Lexer.h"

namespace Brevis {
namespace {

// Sets of values that many cases share.
constexpr struct {
    std::string_view name, pairs;
} presets[] = {
    {"OP", "WS_BETWEEN_EXPR_OP_OPERANDS= "},
    {"PARENS", "WS_AFTER_EXPR_OPEN_PAREN= |WS_BEFORE_EXPR_CLOSE_PAREN= "},
    {"BRACES",
     "WS_BEFORE_DD_OPEN_BRACE=\n|WS_AFTER_DD_OPEN_BRACE=\n|WS_BEFORE_DD_CLOSE_BRACE=\n|INDENT_DD_CONTENT=  "}};

// A scheme in short: pairs of key and value, or names of presets, parted by bars.
void addTo(PropertySet& scheme, std::string_view pairs) {
    while (!pairs.empty()) {
        const std::string_view pair = pairs.substr(0, pairs.find('|'));
        pairs.remove_prefix(std::min(pair.size() + 1, pairs.size()));
        for (const auto& preset : presets) {
            if (pair == preset.name) addTo(scheme, preset.pairs);
        }
        const std::size_t equals = pair.find('=');
        if (equals == std::string_view::npos) continue;
        const std::string_view key = pair.substr(0, equals);
        const std::string value(pair.substr(equals + 1));
        if (key == "LINE_WRAP" || key.starts_with("ALIGN_"))
            scheme.setBool(key, value == "1");
        else if (key == "ASTERISK_ANCHOR" || key == "AMPERSAND_ANCHOR")
            scheme.setInt(key, std::stoi(value));
        else
            scheme.setString(key, value);
    }
}

Scheme schemeOf(std::string_view pairs) {
    PropertySet properties;
    addTo(properties, pairs);
    return Scheme::from(properties);
}

IndentStreamSettings midLine(std::string indent = {}, bool keep = false, int column = 8) {
    IndentStreamSettings settings;
    settings.indent = std::move(indent);
    settings.keepLeadingWs = keep;
    settings.tabSize = 4;
    settings.column = column;
    return settings;
}

struct ExprCase {
    const char* scheme;
    const char* text;
    const char* expected;
};

class Rules : public testing::TestWithParam<ExprCase> {};

TEST_P(Rules, format) {
    const Scheme scheme = schemeOf(GetParam().scheme);
    CppExprFormatter formatter(scheme);
    EXPECT_EQ(formatter.format(GetParam().text, midLine("    ")), GetParam().expected);
}

const ExprCase operators[] = {
    {"", "a+b * c\t-d", "a+b * c\t-d"},
    {"OP", "a+b*c", "a + b * c"},
    {"OP", "x=-y", "x = -y"},
    {"OP", "a=*b", "a = *b"},
    {"OP", "a.b->c", "a.b->c"},
    {"OP", "return  -1", "return  -1"},
    {"OP", "throw *p", "throw *p"},
    {"OP", "x=~1", "x = ~ 1"},
    {"OP", "x=~y", "x = ~y"},
    {"OP", "f(a, *b)", "f(a, * b)"},
    {"OP", "f(a, -b)", "f(a, -b)"},
    {"OP", "a?*b:&c", "a ? *b : &c"},
    {"OP", "a ;*b", "a ; *b"},
    {"OP", "a /* x */  +  /* y */ b", "a /* x */ +   /* y */ b"},
    {"OP", "a // x\n + b", "a // x\n    + b"},
    {"OP", "a+ // x\n b", "a +  // x\n    b"},
    {"OP", "-a", "-a"},
    {"OP", "a+", "a +"},
    {"WS_BETWEEN_EXPR_OP_OPERANDS=\n", "a&&b", "a\n    &&\n    b"},
    {"WS_BETWEEN_EXPR_OP_OPERANDS=", "a + b", "a+b"},
    // Bytes that are no tokens stay where they are
    {"OP", "a $ + @b", "a $ + @b"},
    {"OP", "a+100i64*2", "a + 100i64 * 2"},
    {"OP", "a \\\n  +b", "a \\\n  + b"},
};
INSTANTIATE_TEST_SUITE_P(Operators, Rules, testing::ValuesIn(operators));

const ExprCase brackets[] = {
    {"PARENS", "f(a,(b))", "f( a,( b ) )"},
    {"PARENS", "f( )+g(/* x */ )", "f()+g(/* x */)"},
    {"PARENS", "f(a // x\n  )", "f( a // x\n    )"},
    {"WS_AFTER_EXPR_OPEN_PAREN=", "f(  a  )", "f(a  )"},
    {"WS_BEFORE_EXPR_CLOSE_PAREN=", "f(  a  )", "f(  a)"},
    {"PARENS", "f(a", "f( a "},
    {"PARENS", "f(", "f("},
    {"PARENS", "(", "( "},
    {"WS_AFTER_FN_CALL_NAME= ", "f(a)+sizeof(b)+throw(c)+new(d)", "f (a)+sizeof (b)+throw (c)+new(d)"},
    {"WS_AFTER_LBRACKET= |WS_BEFORE_RBRACKET= ", "a[b[1]]+c[ ]", "a[ b[ 1 ] ]+c[]"},
    {"WS_BETWEEN_FN_CALL_ARGS= ", "f(a,g(b,c),d)", "f(a, g(b, c), d)"},
    {"WS_BETWEEN_FN_CALL_ARGS= |WS_BEFORE_FN_CALL_COMMA= ", "f(a,a<b,c)", "f(a , a<b,c)"},
    {"ALIGN_FN_CALL_ARGS_LEFT=1", "f(a,g(b,c))", "f(a,\n          g(b,\n    c))"},
    {"ALIGN_FN_CALL_ARGS_LEFT=1|WS_BETWEEN_FN_CALL_ARGS= ", "f(a,b)", "f(a, b)"},
    {"WS_BETWEEN_FN_CALL_ARGS= ", "f(a, // x\n b)", "f(a, // x\n    b)"},
    // Commas beside stray brackets, beside each other, behind what joins, and at line starts
    {"WS_BEFORE_FN_CALL_COMMA= |WS_BETWEEN_FN_CALL_ARGS=  ", "f(a>b,g(c),d<h(e,i),j>)",
     "f(a>b,g(c),d<h(e ,  i) ,  j>)"},
    {"WS_BEFORE_FN_CALL_COMMA= |WS_BETWEEN_FN_CALL_ARGS=  ", "f(a,,A:: ,b ,)", "f(a ,  ,   A::  ,  b ,  )"},
    {"WS_BETWEEN_EXPR_OP_OPERANDS=|WS_BEFORE_FN_CALL_COMMA= ", "f(a / *b,c)+f(2 - 1,d)", "f(a/*b,c)+f(2-1 ,d)"},
    {"WS_BETWEEN_FN_CALL_ARGS=\n", "f(a\n,b,A<g(c,d)>,e<h(i,j))",
     "f(a\n          ,\n          b,\n          A<g(c,\n    d)>,\n          e<h(i,\n    j))"},
    {"WS_BETWEEN_FN_CALL_ARGS=\n", "a<b+f(c,d)", "a<b+f(c,\n    d)"},
    {"WS_BETWEEN_FN_CALL_ARGS=\n|WS_AFTER_EXPR_OPEN_PAREN=\n", "f(g(a,b))", "f(\n    g(\n    a,\n    b))"},
    {"WS_BETWEEN_TP_PARAMS= |WS_BETWEEN_FN_CALL_ARGS= ", "A<b,  /*c*/d,e>(i,  /*f*/g)", "A<b,  /*c*/d, e>(i, /*f*/g)"},
    // Casts
    {"OP", "(T*)p", "(T *) p"},
    {"OP", "(a)*b", "(a) * b"},
    {"OP", "(char*)*p", "(char *) *p"},
    {"", "(char*)  *p", "(char*)  *p"},
    {"OP", "(int)-1", "(int) - 1"},
    {"OP", "static_cast<int*>(p)+1", "static_cast<int*> (p) + 1"},
    {"WS_AFTER_TP_OPEN_BRACKET= |WS_BEFORE_TP_CLOSE_BRACKET= ", "const_cast<A>(p)", "const_cast< A >(p)"},
    {"WS_BETWEEN_TP_PARAMS= |ASTERISK_ANCHOR=0|WS_BETWEEN_ASTERISK_ANCHOR=", "A<int *,B>", "A<int *, B>"},
    // `<`
    {"OP", "a<b", "a < b"},
    {"OP", "a<b>c", "a<b>c"},
    {"OP", "a<b&&c>d", "a<b && c>d"},
    {"OP", "a<b+c<d-e", "a < b + c < d - e"},
    {"OP", "a< b>::x", "a< b>::x"},
    {"WS_AFTER_TP_OPEN_BRACKET=", "A< >+B<", "A<>+B<"},
    {"WS_BEFORE_TP_CLOSE_BRACKET=", "A<B<C> >", "A<B<C> >"},
    {"WS_BEFORE_TP_CLOSE_BRACKET=", "A<B >", "A<B>"},
    {"WS_BEFORE_TP_CLOSE_BRACKET= |WS_AFTER_TP_OPEN_BRACKET= ", "A<B,C>", "A< B,C >"},
    {"OP", "< b", "< b"},
    {"OP", "! < b", "! < b"},
    // Unbalanced brackets
    {"OP", "(a+b", "(a +b"},
    {"OP", "(a+bc", "(a + bc"},
    {"WS_BEFORE_EXPR_CLOSE_PAREN= ", "[(abc", "[(abc"},
    {"OP", "a+b)*c", "a + b) * c"},
};
INSTANTIATE_TEST_SUITE_P(Brackets, Rules, testing::ValuesIn(brackets));

const ExprCase initializers[] = {
    {"BRACES", "={1,2}", "=\n    {\n      1,2\n    }"},
    {"BRACES|WS_BETWEEN_DD_ELEMENTS=\n", "= {1,{2,3}}", "=\n    {\n      1,\n      {2,3}\n    }"},
    {"BRACES", "={ }", "=\n    {}"},
    {"BRACES", "= // x\n {1}", "= // x\n    {\n      1\n    }"},
    {"WS_BETWEEN_DD_ELEMENTS= ", "={f(1,2),3}", "={f(1,2), 3}"},
    {"WS_BEFORE_DD_COMMA= ", "={1, // x\n 2}", "={1 , // x\n    2}"},
    {"OP", "={a+b", "={a + b"},
    {"OP", "=a+b", "= a + b"},
    // Directives and strings
    {"", "a\n  #if 1\n  +b\n#endif\n", "a\n  #if 1\n    +b\n#endif\n"},
    {"ALIGN_PPD_LEFT_MOST=1|LEFT_MARGIN=", "a\n  #if 1 \\\n    +b\n c", "a\n#if 1 \\\n  +b\n    c"},
    {"ALIGN_PPD_LEFT_MOST=1", "a\n#if 1\n c", "a\n    #if 1\n    c"},
    {"ALIGN_PPD_LEFT_MOST=1|LEFT_MARGIN=  ", "a\n#if 1\n+b", "a\n  #if 1\n    +b"},
    {"ALIGN_PPD_LEFT_MOST=0", "a\n#if 1\n+b", "a\n    #if 1\n    +b"},
    {"LINE_WRAP=1", "\"a\"\n  \"b\"  \"c\"", "\"a\" \"b\" \"c\""},
    {"", "\"a\"\n  \"b\"  \"c\"", "\"a\"\n    \"b\"  \"c\""},
    {"PARENS", "f(\"a\\\n   b\")", "f( \"a\\\n   b\" )"},
};
INSTANTIATE_TEST_SUITE_P(Initializers, Rules, testing::ValuesIn(initializers));

struct TypeCase {
    const char* scheme;
    WsProperty wsAfterType;
    const char* text;
    const char* expected;
};

class Signs : public testing::TestWithParam<TypeCase> {};

TEST_P(Signs, formatType) {
    const TypeCase& c = GetParam();
    const Scheme scheme = schemeOf(c.scheme);
    CppExprFormatter formatter(scheme);
    EXPECT_EQ(formatter.formatType(c.text, midLine("    "), c.wsAfterType), c.expected);
}

const WsProperty blank{true, " "};
const TypeCase signs[] = {
    {"ASTERISK_ANCHOR=1", noWs, "int*  p", "int  *p"},
    {"ASTERISK_ANCHOR=0", noWs, "int  *p", "int*  p"},
    {"ASTERISK_ANCHOR=-1", blank, "int  * p", "int  * p"},
    {"ASTERISK_ANCHOR=7", blank, "int  * p", "int  * p"},
    {"ASTERISK_ANCHOR=1|WS_BETWEEN_ASTERISK_ANCHOR=", blank, "const char   *  *p", "const char **p"},
    {"ASTERISK_ANCHOR=0|WS_BETWEEN_ASTERISK_ANCHOR=", blank, "int *p", "int* p"},
    {"ASTERISK_ANCHOR=0|WS_BETWEEN_ASTERISK_ANCHOR=", blank, "int *", "int* "},
    {"ASTERISK_ANCHOR=1|WS_BETWEEN_ASTERISK_ANCHOR=", noWs, "int * p", "int*p"},
    {"ASTERISK_ANCHOR=1|WS_BETWEEN_ASTERISK_ANCHOR= ", newlineWs, "int *p", "int *\n    p"},
    {"AMPERSAND_ANCHOR=0|WS_BETWEEN_AMPERSAND_ANCHOR=", blank, "A<int> &r, B &s", "A<int>& r, B& s"},
    {"ASTERISK_ANCHOR=1|WS_BETWEEN_ASTERISK_ANCHOR=", blank, "int *const p", "int *const p"},
    {"ASTERISK_ANCHOR=1|WS_BETWEEN_ASTERISK_ANCHOR=", blank, "int* * const p", "int** const p"},
    {"ASTERISK_ANCHOR=1|WS_BETWEEN_ASTERISK_ANCHOR=", blank, "int * $ p", "int * $ p"},
    {"ASTERISK_ANCHOR=1|WS_BETWEEN_ASTERISK_ANCHOR=", blank, "void(*f)(int* a)", "void(*f)(int *a)"},
    {"OP", noWs, "static_cast<int>(a)*b", "static_cast<int> (a) * b"},
};
INSTANTIATE_TEST_SUITE_P(Types, Signs, testing::ValuesIn(signs));

TEST(ExprFormatter, alignsAssignments) {
    const Scheme scheme = schemeOf("");
    CppExprFormatter formatter(scheme);
    IndentStreamSettings settings = midLine("    ", false, 0);
    settings.convertMode = 1;
    EXPECT_EQ(formatter.alignAssignments("    a = 1,\n    bbbb  =2, // x\n    c", settings),
              "    a           = 1,\n    bbbb        =2, // x\n    c");
    EXPECT_EQ(formatter.alignAssignments("", settings), "");
    // A line that begins inside a comment takes no part, though its end looks like an element
    EXPECT_EQ(formatter.alignAssignments("    a /*\n   b */ = 1,\n    c = 2", settings),
              "    a /*\n   b */ = 1,\n    c           = 2");
}

// ---- What holds for any text and any scheme

constexpr std::string_view stringKeys[] = {
    "WS_BETWEEN_EXPR_OP_OPERANDS", "WS_AFTER_FN_CALL_NAME",   "WS_AFTER_EXPR_OPEN_PAREN",
    "WS_BEFORE_EXPR_CLOSE_PAREN",  "WS_BEFORE_FN_CALL_COMMA", "WS_BETWEEN_FN_CALL_ARGS",
    "WS_AFTER_LBRACKET",           "WS_BEFORE_RBRACKET",      "WS_AFTER_TP_OPEN_BRACKET",
    "WS_BEFORE_TP_CLOSE_BRACKET",  "WS_BETWEEN_TP_PARAMS",    "WS_BETWEEN_ASTERISK_ANCHOR",
    "WS_BETWEEN_AMPERSAND_ANCHOR", "WS_BEFORE_DD_OPEN_BRACE", "WS_AFTER_DD_OPEN_BRACE",
    "WS_BEFORE_DD_CLOSE_BRACE",    "WS_BEFORE_DD_COMMA",      "WS_BETWEEN_DD_ELEMENTS"};
constexpr std::string_view values[] = {" ", "  ", "\n", "\t", "\n  ", " \n\t", ""};
constexpr std::string_view pieces[] = {"a",  "b::c", "A::operator", "int", "return", "sizeof", "static_cast",
                                       "10", "$",    "\"s t\"",     "'c'", "(",      ")",      "(",
                                       ")",  "[",    "]",           "{",   "}",      "<b",     ">",
                                       "<b", ">",    ",",           ",",   ";",      ":",      "?",
                                       "=",  "*",    "&b",          "-",   "!",      "~",      "+",
                                       "&&", "||",   "->",          ">>",  "$",      "\\",     "\"x\\\n   y\""};
constexpr std::string_view gaps[] = {" ",         " ",         "  ",        "\n",  "\n   ",           "\t",
                                     " /* c */ ", " // d's\n", "\n#if 1\n", "\n ", "\n# d \\\n  e\n", "/* m\n   n */",
                                     " \\\n  "};

// Values that join nothing are all but the last.
Scheme randomScheme(std::mt19937& random, bool mayJoin) {
    PropertySet properties;
    for (const std::string_view key : stringKeys) {
        if (random() % 2) properties.setString(key, std::string(values[random() % (std::size(values) - !mayJoin)]));
    }
    for (const std::string_view key : {"INDENT_DD_CONTENT", "LEFT_MARGIN"}) {
        if (random() % 2) properties.setString(key, random() % 2 ? "  " : "\t");
    }
    properties.setInt("ASTERISK_ANCHOR", static_cast<int>(random() % 3) - 1);
    properties.setInt("AMPERSAND_ANCHOR", static_cast<int>(random() % 3) - 1);
    for (const std::string_view key : {"LINE_WRAP", "ALIGN_PPD_LEFT_MOST", "ALIGN_FN_CALL_ARGS_LEFT"}) {
        if (random() % 2) properties.setBool(key, random() % 2);
    }
    return Scheme::from(properties);
}

std::string randomText(std::mt19937& random) {
    std::string text(random() % 8 ? "" : "= ");
    for (int count = static_cast<int>(random() % 24); count > 0; --count) {
        text += pieces[random() % std::size(pieces)];
        text += gaps[random() % std::size(gaps)];
    }
    return text;
}

std::string withoutWs(std::string_view text) {
    std::string bare(text);
    std::erase_if(bare, [](unsigned char c) { return std::isspace(c); });
    return bare;
}

std::string tokensOf(std::string_view text) {
    std::string tokens;
    Cpp::Lexer lexer(text);
    for (Trn::Token token = lexer.next(); token.kind() != Trn::Kind::EndOfInput; token = lexer.next()) {
        const bool isLiteral = token.kind() == Trn::Kind::StringLiteral || token.kind() == Trn::Kind::CharLiteral;
        tokens += std::to_string(token.kind()) + ' ';
        tokens += isLiteral ? std::string(token.text()) : withoutWs(token.text());
        tokens += '\n';
    }
    return tokens;
}

TEST(ExprFormatter, nothingIsLost) {
    std::mt19937 random(11);
    for (int round = 0; round < 1500; ++round) {
        const bool mayJoin = round % 3 == 0;
        const Scheme scheme = randomScheme(random, mayJoin);
        CppExprFormatter formatter(scheme);
        for (int i = 0; i < 10; ++i) {
            const std::string text = randomText(random);
            IndentStreamSettings settings = midLine(random() % 2 ? "    " : "", random() % 2, random() % 2 ? 5 : 0);
            settings.convertMode = static_cast<int>(random() % 3);
            const std::string result = random() % 2 ? formatter.format(text, settings)
                                                    : formatter.formatType(text, settings, random() % 2 ? blank : noWs);
            ASSERT_EQ(withoutWs(result), withoutWs(text)) << text;
            if (mayJoin) continue;
            ASSERT_EQ(tokensOf(result), tokensOf(text)) << text << "\n---\n" << result;
        }
    }
}

// ---- Limits

std::string repeated(std::string_view piece, int count) {
    std::string text;
    for (; count > 0; --count) text += piece;
    return text;
}

TEST(ExprFormatter, limitsNesting) {
    const Scheme scheme = schemeOf("OP");
    CppExprFormatter formatter(scheme);
    for (const auto& [open, close] : {std::pair("(a+", ")"), std::pair("b[", "]"), std::pair("A<", " >")}) {
        const std::string deep = repeated(open, 990) + "x" + repeated(close, 990);
        EXPECT_EQ(withoutWs(formatter.format(deep, midLine())), withoutWs(deep));
        const std::string tooDeep = repeated(open, 1100) + "x" + repeated(close, 1100);
        EXPECT_THROW(formatter.format(tooDeep, midLine()), Trn::Exception);
    }
    EXPECT_EQ(formatter.format("a+b", midLine()), "a + b");  // after a throw as before it
}

// Line feeds in the indent make lines of their own at each level of brackets that don't close.
TEST(ExprFormatter, limitsLinesThatDouble) {
    const Scheme scheme = schemeOf("OP");
    CppExprFormatter formatter(scheme);
    const auto unclosed = [](int count) { return repeated("(", count) + "x\n" + repeated("y", count); };
    const std::string result = formatter.format(unclosed(10), midLine("\n \n ", true));
    EXPECT_GT(result.size(), std::size_t{1} << 10);
    EXPECT_EQ(withoutWs(result), withoutWs(unclosed(10)));
    EXPECT_THROW(formatter.format(unclosed(60), midLine("\n \n ", true)), Trn::Exception);
    EXPECT_NO_THROW(formatter.format(unclosed(60), midLine("  ", true)));
}

TEST(ExprFormatterGrowth, isThatOfTheText) {
    const Scheme scheme = schemeOf("OP|WS_BETWEEN_FN_CALL_ARGS= |ALIGN_PPD_LEFT_MOST=1");
    for (const std::string_view piece : {"a<b+", "a<b,\n", "a<(b)&&", "f(a,b)+", "#x\n", "\"a\\\n\"", "(a)*b\\\n"}) {
        for (const bool keep : {false, true}) {
            const auto cost = [&](int count) {
                const std::string text = "(" + repeated(piece, count) + "c)";
                // A new one, which has no memory from an earlier text.
                CppExprFormatter formatter(scheme);
                std::string result;
                const StepCount::Cost spent =
                    StepCount::of([&] { result = formatter.format(text, midLine(keep ? "" : "  ", keep)); });
                EXPECT_EQ(withoutWs(result), withoutWs(text)) << piece;
                return spent;
            };
            const StepCount::Cost once = cost(1000), more = cost(8000);
            EXPECT_TRUE(StepCount::isWithin(more, 10, once)) << piece << once << ", then " << more;
        }
    }
}

// Ten texts of a tenth of the depth are as long as the deep one. Work at each level for all levels in it costs some ten
// times as much.
TEST(ExprFormatterGrowth, isNotThatOfTheDepth) {
    for (const char* breaks : {" ", "\n"}) {
        const Scheme scheme =
            schemeOf("OP|PARENS|WS_BETWEEN_TP_PARAMS= |WS_BETWEEN_FN_CALL_ARGS=" + std::string(breaks));
        CppExprFormatter formatter(scheme);
        for (const auto& [open, close] : {std::pair("f(a,\n", ")"), std::pair("f(\"x\\n\",b+", ",c)"),
                                          std::pair("(a*", ")"), std::pair("b[i+", "]"), std::pair("A<B,", " >")}) {
            const auto nested = [&](int depth) { return repeated(open, depth) + "x" + repeated(close, depth); };
            const auto cost = [&](const std::string& text) {
                return StepCount::of([&] { formatter.format(text, midLine("  ")); });
            };
            const StepCount::Cost flat = cost(repeated(nested(90) + "+", 10)), deep = cost(nested(900));
            EXPECT_TRUE(StepCount::isWithin(deep, 2, flat)) << open << flat << ", then " << deep;
        }
    }
}

}  // namespace
}  // namespace Brevis
