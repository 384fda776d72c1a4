// The frame of the parser: the file level, comments and directives with their regions, reports, and limits.
#include <sstream>
#include <typeinfo>

#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "TreeShape.h"
#include "Trn_Exception.h"

namespace Cpp {
namespace {

TEST(ParserFrame, FileLevel) {
    expectShapes({
        {"", ""},
        {"; } ;", ""},
        {"using namespace std; using /* c */ a::b;", ""},
        {"return 1; throw x; goto e;", "Expr'return 1;' Expr'throw x;' Expr'goto e;'"},
        {"{ x; }", "Block{DataDecl{Id'x'}}"},
        {"BEGIN_THING { x; }", "Expr'BEGIN_THING' Block{DataDecl{Id'x'}}"},
        {"BEGIN_THING /* c */ { x; }", "Expr'BEGIN_THING' Block{DataDecl{Id'x'}}"},
        {"BEGIN_THING // CORVANE-OFF\n; // CORVANE-ON\n{ x; }", "Expr'BEGIN_THING' Block{DataDecl{Id'x'}}"},
        {"a b\n{ x; }", "ClassDecl{ClassHead ClassBody{DataDecl{Id'x'}}}",
         "'Expected an identifier for the class name.'@2:1"},
        {"int x; if (a) b;",
         "DataDecl{Type'int' Id'x'} CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} "
         "Block{Expr'b;'}}}"},
        {"'' int x; 'a\nint y;", "DataDecl{Type'int' Id'x'} DataDecl{Type'int' Id'y'}"},
        {"return 1", "", "1@1:8"},
        {"int", "", "1@1:1, 7@1:1"},
        {"int x", "", "1@1:5, 7@1:1"},
        {"using", "", "1@1:1"},
    });
}

TEST(ParserFrame, CommentsAndDirectives) {
    expectShapes({
        {"// a\n/* b */\n#define X", R"(Comment'// a\n' Comment'/* b */' PreprocDirective'#define X')"},
        {"#if 0\n{{{ \n#if 1\n#endif\n}\n#endif\nint x;", "PreprocDirective'' DataDecl{Type'int' Id'x'}"},
        {"# if 0 // off\n}\n# endif\nx;", "PreprocDirective'' DataDecl{Id'x'}"},
        {"#if 0\n x", "", "1@2:2"},
        {"#if 1\n{ #endif\n", R"(PreprocDirective'#if 1\n' Block{PreprocDirective'#endif\n'})", "1@2:3"},
        {"#ifdef A\nint x;\n#else\nint y;\n#endif",
         R"(PreprocDirective'#ifdef A\n' DataDecl{Type'int' Id'x'} PreprocDirective'#else\n' )"
         "DataDecl{Type'int' Id'y'} PreprocDirective'#endif'"},
        {"#ifdef A\nvoid f() {\n#else\nvoid g() {\n#endif\n}",
         R"(PreprocDirective'#ifdef A\n' FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' )"
         R"(ParameterList} Block{PreprocDirective'#else\n' Expr'void g'}})",
         "1@5:1"},
        {"int /* a */ x // b\n#define C\n= /* d */ 1;", "DataDecl{Type'int' Id'x' Expr'= 1'}"},
    });
}

TEST(ParserFrame, CommentRegions) {
    expectShapes({
        {"// CORVANE-OFF\n { { x /* CORVANE-ON */ int y;", "Comment[verbatim]'' DataDecl{Type'int' Id'y'}"},
        {"/*CORVANE-OFF*/ // CORVANE-OFF again\n /* CORVANE-ON */ /* CORVANE-ON */ int y;",
         "Comment[verbatim]'' DataDecl{Type'int' Id'y'}"},
        {"// CORVANE-OFF now\nint x;", R"(Comment'// CORVANE-OFF now\n' DataDecl{Type'int' Id'x'})"},
        {"// CORVANE-OFF\nint x; // CORVANE-ON now\n", "", "1@3:0"},
        {"{ a b; // CORVANE-OFF\n ( /* CORVANE-ON */ c d; }",
         "Block{DataDecl{Type'a' Id'b'} Comment[verbatim]'' DataDecl{Type'c' Id'd'}}"},
        {"if (a) { } // CORVANE-OFF\n } // CORVANE-ON\nelse b;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block} Comment[verbatim]'' "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block{Expr'b;'}}}"},
        {"if (a) b; // CORVANE-OFF\n c;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{Expr'b;'}}}", "1@2:3, 1@2:3"},
    });
}

TEST(ParserFrame, StrayAccessKeywordsAreRefusedOneByOne) {
    expectShapes({{"public private x;", "DataDecl{Id'x'}", "7@1:1, 7@1:8"}, {"}public:", "", "7@1:2, 1@1:8, 7@1:8"}});
}

// A region that doesn't end in a class reads the class's tokens to their end, and the token put back behind it then
// takes the place of the closing brace.
TEST(ParserFrame, RegionsWithoutAnEndInsideAClassDoNotStall) {
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

TEST(ParserFrame, PositionsOfRegions) {
    EXPECT_EQ(ParsedText("x; // CORVANE-OFF\n(\n// CORVANE-ON\n").shapeWithPositions(),
              "DataDecl 1:1-1:2 {Id 1:1-1:1 'x'} Comment 1:4-4:0 [verbatim]''");
    EXPECT_EQ(ParsedText("#if 0\n(\n#endif\nx;").shapeWithPositions(),
              "PreprocDirective 1:1-4:0 '' DataDecl 4:1-4:2 {Id 4:1-4:1 'x'}");
}

TEST(ParserFrame, ReportsCarryTheirTexts) {
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

TEST(ParserFrame, OneParserServesManyTexts) {
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

TEST(ParserFrame, DepthIsLimited) {
    for (const char* opener : {"{ ", "if (a) ", "if (a) b; else ", "else ", "do ", "class A { ", "namespace a { ",
                               "extern \"C\" { ", "try { ", "switch (a) { ", "template<class T> struct A { "}) {
        const std::string closer = std::string_view(opener).find('{') == std::string_view::npos ? ";" : "} ";
        EXPECT_NO_THROW(parseOnly(repeated(opener, 900) + repeated(closer, 900))) << opener;
        EXPECT_THROW(parseOnly(repeated(opener, 100000) + repeated(closer, 100000)), Trn::Exception) << opener;
    }
}

// Texts that a look ahead or a second reading would make quadratic. Each takes milliseconds; otherwise the time that
// the test is given runs out.
TEST(ParserFrame, LongTextsOfOneKindAreRead) {
    for (const char* piece : {"( ",
                              "f( ",
                              "int *(",
                              "[ ",
                              "a< ",
                              "a::",
                              "operator ",
                              "operator( ",
                              "case ",
                              "a: ",
                              "x // CORVANE-OFF\n",
                              "#if 0\n",
                              "extern ",
                              "extern \"C\" ",
                              "namespace ",
                              "template ",
                              "template<",
                              "class ",
                              "class A : ",
                              "A() : ",
                              "throw ( ",
                              "f() throw ",
                              "asm ",
                              "enum ",
                              "= ",
                              "__declspec ",
                              "do x; ",
                              "if (a) b; // c\n",
                              "int (*f)(int); ",
                              "'",
                              "\"",
                              "/* */",
                              "int a /* */ [ /* */ 3 ]; ",
                              "using ",
                              "goto ",
                              ": ",
                              "void f(), ",
                              "} "}) {
        const std::string text = repeated(piece, 20000);
        EXPECT_NO_THROW(parseOnly(text)) << piece;
        EXPECT_NO_THROW(parseOnly("{ " + text)) << piece;
        EXPECT_NO_THROW(parseOnly("class A { " + text + "};")) << piece;
    }
}

}  // namespace
}  // namespace Cpp
