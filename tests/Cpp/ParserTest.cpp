// What the cases of ParserShapeTest.cpp can't show: texts of reports, many texts with one parser, and limits.
#include <gtest/gtest.h>

#include <sstream>
#include <typeinfo>

#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "TreeShape.h"
#include "Trn_Exception.h"

namespace Cpp {
namespace {

// The stored end goes before the initializer's; only a plain `;` stores one.
TEST(Parser, EndPositionsOfData) {
    ParsedText both("x; y = 1;");
    EXPECT_EQ(dynamic_cast<DataDeclNode&>(both.root.child(0)).endPosition, (Position{1, 2}));
    EXPECT_EQ(dynamic_cast<DataDeclNode&>(both.root.child(1)).endPosition, Position());
}

// A region that doesn't end in a class reads the class's tokens to their end, and the token put back behind it then
// takes the place of the closing brace.
TEST(Parser, RegionsWithoutAnEndInsideAClassDoNotStall) {
    for (const char* source :
         {"class A { template /* CORVANE-OFF */ A<int>; };",
          "class A { void f() { static int x = /* CORVANE-OFF */ 1; } };",
          "class A { void f() { static int x /* */ [ /* CORVANE-OFF */ 1]; } };",
          "class A { int x = /* CORVANE-OFF */ 1; };", "class A { extern { template\n#if 0\n ; } };",
          "class A { extern { namespace B { template\n#if 0\n; } } };",
          "class A { extern { namespace\n#if 0\n B { } } };", "class A { public\n#if 0\n }; int x;"}) {
        EXPECT_NE(ParsedText(source).reports(), "") << source;
    }
}

TEST(Parser, ReportsCarryTheirTexts) {
    const std::pair<const char*, const char*> cases[] = {
        {"int", "Unexpected EOF found."},
        {"f() x;", "Unexpected token. Was expecting to find \";\" or \"{\"."},
        {"class A { int x : 1 + 2; };", "Unexpected token. Was expecting to find \";\", \"(\" or \"=\"."},
        {"{ int x(1; }", "An unexpected semicolon was found."},
        {"public", "The statement cannot be parsed."},
        {"{ public }", "public: protected: private: labels are not allowed inside block statements."},
        {"{ template }", "template declarations are not allowed inside block statements."},
        {"{ namespace }", "Namespace declarations are not allowed inside block statements."},
        {"if (a { }", "Expected \")\". Possible unbalanced parentheses."},
        {"if a;", "Expected \"(\"."},
    };
    for (const auto& [source, text] : cases) {
        ParsedText parsed(source);
        ASSERT_FALSE(parsed.messages.empty()) << source;
        EXPECT_EQ(parsed.messages[0].text, text) << source;
        EXPECT_EQ(parsed.messages[0].severity, 3);
    }
}

// A lexer and a node that the parser of C++ knows nothing of.
class OtherLexer : public Trn::Lexer {
public:
    Trn::Token next() override { return {}; }
    void dump(std::ostream&) const override {}
};

TEST(Parser, OneParserServesManyTexts) {
    Parser parser;
    RootNode root;
    Trn::ParseMessageList messages;
    Lexer first("int"), second("int y;");
    parser.parse(first, root, messages);
    EXPECT_EQ(messages.size(), 2u);
    Trn::ParseMessageList others{{1, {}, 0, "kept"}};
    parser.parse(second, root, others);
    ASSERT_EQ(others.size(), 1u);
    EXPECT_EQ(others[0].text, "kept");
    EXPECT_EQ(root.childCount(), 1);

    OtherLexer lexer;
    EXPECT_THROW(parser.parse(lexer, root, messages), std::bad_cast);
    BlockNode block;
    EXPECT_THROW(parser.parse(second, block, messages), std::bad_cast);
}

std::string repeated(std::string_view piece, int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += piece;
    return text;
}

void parseOnly(const std::string& text) {
    Lexer lexer(text);
    RootNode root;
    Trn::ParseMessageList messages;
    Parser().parse(lexer, root, messages);
}

TEST(Parser, DepthIsLimited) {
    for (const char* opener : {"{ ", "if (a) ", "if (a) b; else ", "else ", "do ", "class A { ", "namespace a { ",
                               "extern \"C\" { ", "try { ", "switch (a) { ", "template<class T> struct A { "}) {
        const std::string closer = std::string_view(opener).find('{') == std::string_view::npos ? ";" : "} ";
        EXPECT_NO_THROW(parseOnly(repeated(opener, 900) + repeated(closer, 900))) << opener;
        EXPECT_THROW(parseOnly(repeated(opener, 100000) + repeated(closer, 100000)), Trn::Exception) << opener;
    }
}

// Texts that a look ahead or a second reading would make quadratic. Each takes milliseconds; otherwise the time that
// the test is given runs out.
TEST(Parser, LongTextsOfOneKindAreRead) {
    std::istringstream pieces(
        "( |f( |int *(|[ |a< |a::|operator |operator( |case |a: |x // CORVANE-OFF\n|#if 0\n|extern |"
        "extern \"C\" |namespace |template |template<|class |class A : |A() : |throw ( |f() throw |asm |"
        "enum |= |__declspec |do x; |if (a) b; // c\n|int (*f)(int); |'|\"|/* */|"
        "int a /* */ [ /* */ 3 ]; |using |goto |: |void f(), |} ");
    for (std::string piece; std::getline(pieces, piece, '|');) {
        const std::string text = repeated(piece, 20000);
        EXPECT_NO_THROW(parseOnly(text)) << piece;
        EXPECT_NO_THROW(parseOnly("{ " + text)) << piece;
        EXPECT_NO_THROW(parseOnly("class A { " + text + "};")) << piece;
    }
}

}  // namespace
}  // namespace Cpp
