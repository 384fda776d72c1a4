// Statements: blocks, data or expression, control statements, labels and assembler.
#include "TreeShape.h"

namespace Cpp {
namespace {

TEST(ParserStatement, DataOrExpression) {
    expectShapes({
        {"{ a b; a * b; a & b; a < b; a; }",
         "Block{DataDecl{Type'a' Id'b'} DataDecl{Type'a *' Id'b'} DataDecl{Type'a &' Id'b'} "
         "DataDecl{Type'a <' Id'b'} DataDecl{Id'a'}}"},
        {"{ a(b); a = b; a.b(); a::b(c); a /* c */ b; }",
         "Block{Expr'a b;' Expr'a = b;' Expr'a . b;' Expr'a::b c;' DataDecl{Type'a' Id'b'}}"},
        {"{ inline int x; register int y; (a); this; }",
         "Block{Expr'inline int x;' Expr'register int y;' Expr'a;' Expr'this;'}"},
        {"{ class B { int x; }; struct C d; typedef int F; enum { G }; public }",
         "Block{ClassDecl{ClassHead{ClassName[key=0]'class B'} ClassBody{DataDecl{Type'int' Id'x'}}} "
         "DataDecl{Type'struct C' Id'd'} DataDecl{Type'typedef int' Id'F'} EnumDecl{EnumHead'enum' "
         "EnumBody{Expr'G'}}}",
         "8@1:62"},
        {"{ x = { 1, 2 }; }", "Block{Expr'x =' Block{Expr'1 , 2'}}"},
        {"{ x y { z; } }", "Block{Expr'x y' DataDecl{Id'z'}}"},
    });
}

TEST(ParserStatement, Expressions) {
    expectShapes({
        {"{ return x; throw; break; goto y; continue; }",
         "Block{Expr'return x;' Expr'throw;' Expr'break;' Expr'goto y;' Expr'continue;'}"},
        {"{ x /* c */ + y; // d\n }", R"(Block{Expr'x /* c */ + y;' Comment'// d\n'})"},
        {"{ MACRO(x) }", "Block{Expr'MACRO x'}"},
        {"{ MACRO(x) if (y) z; }",
         "Block{Expr'MACRO x' CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} "
         "Block{Expr'z;'}}}}"},
        {"{ MACRO(x) return 1; }", "Block{Expr'MACRO x' Expr'return 1;'}"},
        {"{ MACRO(x)\n#define Y\nz(1); }", R"(Block{Expr'MACRO x' PreprocDirective'#define Y\n' Expr'z 1;'})"},
        {"{ f(a; b); g({ }, if); }", "Block{Expr'f a ; b;' Expr'g { } , if;'}"},
        {"{ f(a }", "Block{Expr'f a }'}", "1@1:7, 1@1:7"},
        {"{ new class X; a<class Y>(); }", "Block{Expr'new' DataDecl{Type'class' Id'X'} Expr'a class Y;'}"},
    });
}

TEST(ParserStatement, WordsWithoutPlaceInABlock) {
    expectShapes({
        {R"({ extern "C" int x; extern y z; })", "Block{DataDecl{Type'int' Id'x'} DataDecl{Type'y' Id'z'}}"},
        {"{ namespace a; template<class T> b; public: c; }", "Block{DataDecl{Id'a'} Expr'class T b;' Expr': c;'}",
         "10@1:3, 9@1:16, 8@1:37"},
        {"{ using namespace a; using /* c */ b::d; }", "Block{Comment'/* c */'}"},
        {"{ '' x; }", "Block DataDecl{Id'x'}", "1@1:1"},
        {"{ a;", "Block{DataDecl{Id'a'}}", "1@1:4"},
    });
}

TEST(ParserStatement, IfAndElse) {
    expectShapes({
        {"if (a) b; else c;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{Expr'b;'}} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block{Expr'c;'}}}"},
        {"if (a) { } /* x */ else { }",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block} Comment'/* x */' "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block}}"},
        {"{ if (a) { } /* x */ b(); }",
         "Block{CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block}} Comment'/* x */' "
         "Expr'b;'}"},
        {"{ if (a) { } else { } /* x */ b(); }",
         "Block{CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block} Comment'/* x */'} Expr'b;'}"},
        {"{ if (a) { } // c\n#define D\n else ; // e\n x; }",
         R"(Block{CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block} Comment'// c\n' )"
         R"(PreprocDirective'#define D\n' CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block} Comment'// )"
         R"(e\n'} DataDecl{Id'x'}})"},
        {"if (a) ; else if (b) ; else ;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} "
         "Block{CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block}}}}}"},
        {"if (a) ; else b; else c;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block{Expr'b;'}} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block{Expr'c;'}}}"},
        {"else x;", "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block{Expr'x;'}}}"},
        {"{ if (a) else b; }",
         "Block{CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} "
         "Block{CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=94]} Block{Expr'b;'}}}}}}}"},
    });
}

TEST(ParserStatement, Loops) {
    expectShapes({
        {"do x(); while (y);",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=97]} Block{Expr'x;'}} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=98] Expr''}}}"},
        {"do x(); while (y); while (z) w();",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=97]} Block{Expr'x;'}} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=98] Expr''}} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=98] Expr''} Block{Expr'w;'}}}"},
        {"while (x);", "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=98] Expr''}}}"},
        {"while (x) /* c */ ;", "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=98] Expr''}}}"},
        {"while (x) { y; }", "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=98] Expr''} Block{DataDecl{Id'y'}}}}"},
        {"for (i = 0; i < n; i++) ;", "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=96] Expr''} Block}}"},
        {"for (;;) for (;;) { }",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=96] Expr''} "
         "Block{CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=96] Expr''} Block}}}}}"},
        {"do { } /* c */ x;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=97]} Block} Comment'/* c */'} DataDecl{Id'x'}"},
    });
}

TEST(ParserStatement, TryAndSwitch) {
    expectShapes({
        {"try { } catch (A) { } catch (...) { }",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=99]} Block} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=100] Expr''} Block} "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=100] Expr''} Block}}"},
        {"try { } /* a */ catch (A) { } /* b */ x;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=99]} Block} Comment'/* a */' "
         "CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=100] Expr''} Block}} Comment'/* b */' DataDecl{Id'x'}"},
        {"switch (a) { case 1: case B::c: x(); default: y; }",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=101] Expr''} Block{Case{Keyword[kind=102] "
         "Expr'1'} Case{Keyword[kind=102] Expr'B::c'} Expr'x;' Case{Keyword[kind=103]} DataDecl{Id'y'}}}}"},
        {"switch (a) { default x }",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=101] Expr''} Block{Case{Keyword[kind=103]} "
         "Expr'x'}}}",
         "'Expected a : immediately following 'default'. Got: x'@1:22"},
        {"{ case a ? b : c: x; }", "Block{Case{Keyword[kind=102] Expr'a ? b'} Label{Id'c'} DataDecl{Id'x'}}"},
        {"{ case (1) /* c */ + 2 : }", "Block{Case{Keyword[kind=102] Expr'( 1 ) + 2'}}"},
        {"{ case 1", "Block{Case{Keyword[kind=102] Expr'1'}}", "1@1:8"},
    });
}

TEST(ParserStatement, LostBrackets) {
    expectShapes({
        {"if x; y;", "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93]} Block{Expr'x;'}}} DataDecl{Id'y'}",
         "13@1:4"},
        {"{ for (;; }", "Block", "12@1:11"},
        {"if (a { b; }", "Block{DataDecl{Id'b'}}", "12@1:7"},
        {"while (a return b;", "Expr'return b;'", "12@1:10"},
        {"{ if (a", "Block", "12@1:7, 1@1:7"},
        {"catch;", "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=100]} Block}}", "13@1:6"},
    });
}

TEST(ParserStatement, SingleStatements) {
    expectShapes({
        {"if (x) int a;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{DataDecl{Type'int' "
         "Id'a'}}}}"},
        {"if (x) a b;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{DataDecl{Type'a' Id'b'}}}}"},
        {"if (x) a::b < c;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{DataDecl{Type'a::b <' "
         "Id'c'}}}}"},
        {"if (x) typedef int T;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{DataDecl{Type'typedef int' "
         "Id'T'}}}}"},
        {"if (x) /* c */ return;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{Expr'return;'}}}"},
        {"if (x) class A { };",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{Expr''}}} "
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody}"},
        {"if (x) }", "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{Expr''}}}"},
        {"if (x) case 1: y;",
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=93] Expr''} Block{Expr''}}} "
         "DataDecl{Type'case 1 :' Id'y'}"},
    });
}

TEST(ParserStatement, LabelsAndAssembler) {
    expectShapes({
        {"{ label: x(); a /* c */ : b; }", "Block{Label{Id'label'} Expr'x;' Label{Id'a'} DataDecl{Id'b'}}"},
        {"{ __asm { nop } }", "Block{Asm[form=2]{Text'__asm' Block{Text'nop'}}}"},
        {"{ __asm { a { b } /* c */ } x; }",
         "Block{Asm[form=2]{Text'__asm' Block{Text'a { b } /* c */'}} DataDecl{Id'x'}}"},
        {"{ __asm {} }", "Block{Asm[form=2]{Text'__asm' Block{Text''}}}"},
        {"{ __asm nop\n x; }", "Block{Asm[form=0]{Text'__asm' Block} DataDecl{Id'x'}}"},
        {R"({ _asm mov eax, 1 ; asm("nop"); })", "Block{Asm[form=0]{Text'_asm' Block} Asm[form=1]{Text'asm' Block}}"},
        {"_asm mov eax, 1\nint x;", "Asm[form=0]{Text'_asm' Block} DataDecl{Type'int' Id'x'}"},
        {"__asm nop\n; x;", "Asm[form=0]{Text'__asm' Block} DataDecl{Id'x'}"},
        {"{ __asm }", "Block{Asm[form=0]{Text'__asm' Block}}", "1@1:9"},
        {"__asm { nop", "", "1@1:11"},
        {"asm /* c */ volatile (\"nop\"\n);", "Asm[form=1]{Text'asm' Block} DataDecl{Id')'}"},
    });
}

TEST(ParserStatement, PositionsOfStatements) {
    EXPECT_EQ(ParsedText("do x; while (y) ;").shapeWithPositions(),
              "CtrlStmt 1:1-1:17 {CtrlSubStmt 1:1-1:5 {CtrlSubStmtHead 1:1-1:2 {Keyword 1:1-1:2 [kind=97]} "
              "Block 1:4-1:5 {Expr 1:4-1:5 'x;'}} CtrlSubStmt 1:7-1:17 {CtrlSubStmtHead 1:7-1:17 "
              "{Keyword 1:7-1:11 [kind=98] Expr 1:13-1:15 ''}}}");
    EXPECT_EQ(ParsedText("if (a) ;").shapeWithPositions(),
              "CtrlStmt 1:1-1:8 {CtrlSubStmt 1:1-1:8 {CtrlSubStmtHead 1:1-1:6 {Keyword 1:1-1:2 [kind=93] "
              "Expr 1:4-1:6 ''} Block 1:8-1:8 }}");
    // A landmark ends the expression at the token in front of it.
    EXPECT_EQ(ParsedText("{ f ( x ) }").shapeWithPositions(), "Block 1:1-1:11 {Expr 1:3-1:9 'f x'}");
}

TEST(ParserStatement, PositionsOfLabels) {
    EXPECT_EQ(ParsedText("{ case a : l : default\n: }").shapeWithPositions(),
              "Block 1:1-2:3 {Case 1:3-1:10 {Keyword 1:3-1:6 [kind=102] Expr 1:8-1:8 'a'} "
              "Label 1:12-1:14 {Id 1:12-1:12 'l'} Case 1:16-2:1 {Keyword 1:16-1:22 [kind=103]}}");
    EXPECT_EQ(ParsedText("__asm mov a, b\n{ __asm { nop } }").shapeWithPositions(),
              "Asm 1:1-1:14 [form=0]{Text 1:1-1:5 '__asm' Block 1:7-1:14 } "
              "Block 2:1-2:17 {Asm 2:3-2:15 [form=2]{Text 2:3-2:7 '__asm' Block 2:9-2:15 {Text 2:11-2:13 'nop'}}}");
}

}  // namespace
}  // namespace Cpp
