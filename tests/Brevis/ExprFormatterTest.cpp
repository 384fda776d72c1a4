// The expression formatter: one row a rule, and random texts under random values, from which nothing may be lost.
#include "Brevis_CppExprFormatter.h"

#include <gtest/gtest.h>

#include <chrono>
#include <random>

#include "Cpp_Lexer.h"

namespace Brevis {
namespace {

// A scheme in short: pairs of key and string value, parted by bars.
PropertySet schemeOf(std::string_view pairs) {
    PropertySet scheme;
    while (!pairs.empty()) {
        const std::string_view pair = pairs.substr(0, pairs.find('|'));
        pairs.remove_prefix(std::min(pair.size() + 1, pairs.size()));
        const std::size_t equals = pair.find('=');
        const std::string_view key = pair.substr(0, equals);
        const std::string value(pair.substr(equals + 1));
        if (key == "LINE_WRAP" || key.starts_with("ALIGN_"))
            scheme.setBool(key, value == "1");
        else if (key == "ASTERISK_ANCHOR" || key == "AMPERSAND_ANCHOR")
            scheme.setInt(key, std::stoi(value));
        else
            scheme.setString(key, value);
    }
    return scheme;
}

IndentStreamSettings midLine(std::string indent = {}, bool keep = false, int column = 8) {
    IndentStreamSettings settings;
    settings.indent = std::move(indent);
    settings.keepLeadingWs = keep;
    settings.tabSize = 4;
    settings.column = column;
    return settings;
}

struct Case {
    const char* scheme;
    const char* text;
    const char* expected;
};

class Rules : public testing::TestWithParam<Case> {};

TEST_P(Rules, format) {
    CppExprFormatter formatter(schemeOf(GetParam().scheme));
    EXPECT_EQ(formatter.format(GetParam().text, midLine("    ")), GetParam().expected);
}

#define OP "WS_BETWEEN_EXPR_OP_OPERANDS= "
const Case operators[] = {
    {"", "a+b * c\t-d", "a+b * c\t-d"},
    {OP, "a+b*c", "a + b * c"},
    {OP, "x=-y", "x = -y"},
    {OP, "a=*b", "a = *b"},
    {OP, "a.b->c", "a.b->c"},
    {OP, "return  -1", "return  -1"},
    {OP, "throw *p", "throw *p"},
    {OP, "x=~1", "x = ~ 1"},
    {OP, "x=~y", "x = ~y"},
    {OP, "f(a, *b)", "f(a, * b)"},
    {OP, "f(a, -b)", "f(a, -b)"},
    {OP, "a?*b:&c", "a ? *b : &c"},
    {OP, "a ;*b", "a ; *b"},
    {OP, "a /* x */  +  /* y */ b", "a /* x */ +   /* y */ b"},
    {OP, "a // x\n + b", "a // x\n    + b"},
    {OP, "a+ // x\n b", "a +  // x\n    b"},
    {OP, "-a", "-a"},
    {OP, "a+", "a +"},
    {"WS_BETWEEN_EXPR_OP_OPERANDS=\n", "a&&b", "a\n    &&\n    b"},
    {"WS_BETWEEN_EXPR_OP_OPERANDS=", "a + b", "a+b"},
    // Bytes that are no tokens stay where they are
    {OP, "a $ + @b", "a $ + @b"},
    {OP, "a+100i64*2", "a + 100i64 * 2"},
    {OP, "a \\\n  +b", "a \\\n  + b"},
};
INSTANTIATE_TEST_SUITE_P(Operators, Rules, testing::ValuesIn(operators));

#define PARENS "WS_AFTER_EXPR_OPEN_PAREN= |WS_BEFORE_EXPR_CLOSE_PAREN= "
const Case brackets[] = {
    {PARENS, "f(a,(b))", "f( a,( b ) )"},
    {PARENS, "f( )+g(/* x */ )", "f()+g(/* x */)"},
    {PARENS, "f(a // x\n  )", "f( a // x\n    )"},
    {"WS_AFTER_EXPR_OPEN_PAREN=", "f(  a  )", "f(a  )"},
    {"WS_BEFORE_EXPR_CLOSE_PAREN=", "f(  a  )", "f(  a)"},
    {PARENS, "f(a", "f( a "},
    {PARENS, "f(", "f("},
    {PARENS, "(", "( "},
    {"WS_AFTER_FN_CALL_NAME= ", "f(a)+sizeof(b)+throw(c)+new(d)", "f (a)+sizeof (b)+throw (c)+new(d)"},
    {"WS_AFTER_LBRACKET= |WS_BEFORE_RBRACKET= ", "a[b[1]]+c[ ]", "a[ b[ 1 ] ]+c[]"},
    {"WS_BETWEEN_FN_CALL_ARGS= ", "f(a,g(b,c),d)", "f(a, g(b, c), d)"},
    {"WS_BETWEEN_FN_CALL_ARGS= |WS_BEFORE_FN_CALL_COMMA= ", "f(a,a<b,c)", "f(a , a<b,c)"},
    {"ALIGN_FN_CALL_ARGS_LEFT=1", "f(a,g(b,c))", "f(a,\n          g(b,\n    c))"},
    {"ALIGN_FN_CALL_ARGS_LEFT=1|WS_BETWEEN_FN_CALL_ARGS= ", "f(a,b)", "f(a, b)"},
    {"WS_BETWEEN_FN_CALL_ARGS= ", "f(a, // x\n b)", "f(a, // x\n    b)"},
    // Casts
    {OP, "(T*)p", "(T *) p"},
    {OP, "(a)*b", "(a) * b"},
    {OP, "(char*)*p", "(char *) *p"},
    {"", "(char*)  *p", "(char*)  *p"},
    {OP, "(int)-1", "(int) - 1"},
    {OP, "static_cast<int*>(p)+1", "static_cast<int*> (p) + 1"},
    {"WS_AFTER_TP_OPEN_BRACKET= |WS_BEFORE_TP_CLOSE_BRACKET= ", "const_cast<A>(p)", "const_cast< A >(p)"},
    {"WS_BETWEEN_TP_PARAMS= |ASTERISK_ANCHOR=0|WS_BETWEEN_ASTERISK_ANCHOR=", "A<int *,B>", "A<int *, B>"},
    // `<`
    {OP, "a<b", "a < b"},
    {OP, "a<b>c", "a<b>c"},
    {OP, "a<b&&c>d", "a<b && c>d"},
    {OP, "a<b+c<d-e", "a < b + c < d - e"},
    {OP, "a< b>::x", "a< b>::x"},
    {"WS_AFTER_TP_OPEN_BRACKET=", "A< >+B<", "A<>+B<"},
    {"WS_BEFORE_TP_CLOSE_BRACKET=", "A<B<C> >", "A<B<C> >"},
    {"WS_BEFORE_TP_CLOSE_BRACKET=", "A<B >", "A<B>"},
    {"WS_BEFORE_TP_CLOSE_BRACKET= |WS_AFTER_TP_OPEN_BRACKET= ", "A<B,C>", "A< B,C >"},
    {OP, "< b", "< b"},
    {OP, "! < b", "! < b"},
    // Unbalanced brackets
    {OP, "(a+b", "(a +b"},
    {OP, "a+b)*c", "a + b) * c"},
};
INSTANTIATE_TEST_SUITE_P(Brackets, Rules, testing::ValuesIn(brackets));

#define BRACES "WS_BEFORE_DD_OPEN_BRACE=\n|WS_AFTER_DD_OPEN_BRACE=\n|WS_BEFORE_DD_CLOSE_BRACE=\n|INDENT_DD_CONTENT=  "
const Case initializers[] = {
    {BRACES, "={1,2}", "=\n    {\n      1,2\n    }"},
    {BRACES "|WS_BETWEEN_DD_ELEMENTS=\n", "= {1,{2,3}}", "=\n    {\n      1,\n      {2,3}\n    }"},
    {BRACES, "={ }", "=\n    {}"},
    {BRACES, "= // x\n {1}", "= // x\n    {\n      1\n    }"},
    {"WS_BETWEEN_DD_ELEMENTS= ", "={f(1,2),3}", "={f(1,2), 3}"},
    {"WS_BEFORE_DD_COMMA= ", "={1, // x\n 2}", "={1 , // x\n    2}"},
    {OP, "={a+b", "={a + b"},
    {OP, "=a+b", "= a + b"},
    // Directives and strings
    {"", "a\n  #if 1\n  +b\n#endif\n", "a\n  #if 1\n    +b\n#endif\n"},
    {"ALIGN_PPD_LEFT_MOST=1|LEFT_MARGIN=", "a\n  #if 1 \\\n    +b\n c", "a\n#if 1 \\\n  +b\n    c"},
    {"ALIGN_PPD_LEFT_MOST=1", "a\n#if 1\n c", "a\n    #if 1\n    c"},
    {"ALIGN_PPD_LEFT_MOST=1|LEFT_MARGIN=  ", "a\n#if 1\n+b", "a\n  #if 1\n    +b"},
    {"ALIGN_PPD_LEFT_MOST=0", "a\n#if 1\n+b", "a\n    #if 1\n    +b"},
    {"LINE_WRAP=1", "\"a\"\n  \"b\"  \"c\"", "\"a\" \"b\" \"c\""},
    {"", "\"a\"\n  \"b\"  \"c\"", "\"a\"\n    \"b\"  \"c\""},
    {PARENS, "f(\"a\\\n   b\")", "f( \"a\\\n   b\" )"},
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
    CppExprFormatter formatter(schemeOf(c.scheme));
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
    {OP, noWs, "static_cast<int>(a)*b", "static_cast<int> (a) * b"},
};
INSTANTIATE_TEST_SUITE_P(Types, Signs, testing::ValuesIn(signs));

TEST(ExprFormatter, alignsAssignments) {
    CppExprFormatter formatter(schemeOf(""));
    IndentStreamSettings settings = midLine("    ", false, 0);
    settings.convertMode = 1;
    EXPECT_EQ(formatter.alignAssignments("    a = 1,\n    bbbb  =2, // x\n    c", settings),
              "    a           = 1,\n    bbbb        =2, // x\n    c");
    EXPECT_EQ(formatter.alignAssignments("", settings), "");
    // A line that begins inside a comment takes no part, though its end looks like an element
    EXPECT_EQ(formatter.alignAssignments("    a /*\n   b */ = 1,\n    c = 2", settings),
              "    a /*\n   b */ = 1,\n    c           = 2");
}

}  // namespace
}  // namespace Brevis
