// Classes, enums, namespaces and linkage blocks: heads, members, and what has no place in them.
#include "TreeShape.h"

namespace Cpp {
namespace {

TEST(ParserBody, ClassHeads) {
    expectShapes({
        {"class A {};", "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody}"},
        {"struct { } ;", "ClassDecl{ClassHead{ClassName[key=1]'struct'} ClassBody}"},
        {"union U { };", "ClassDecl{ClassHead{ClassName[key=2]'union U'} ClassBody}"},
        {"typedef struct tagX { int a; } X, *Y;",
         "ClassDecl{ClassHead{ClassName[key=1]'typedef struct tagX'} ClassBody{DataDecl{Type'int' "
         "Id'a'}}} DataDecl{Id'X , * Y'}"},
        {"class A<int> : public B { };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A < int >' BaseClauseList{BaseClause[access=1]'B'}} "
         "ClassBody}"},
        {"class A<class B> { };", "ClassDecl{ClassHead{ClassName[key=0]'class A < class B >'} ClassBody}"},
        {"class A { class B { struct C { int x; }; }; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} "
         "ClassBody{ClassDecl{ClassHead{ClassName[key=0]'class B'} "
         "ClassBody{ClassDecl{ClassHead{ClassName[key=1]'struct C'} ClassBody{DataDecl{Type'int' "
         "Id'x'}}}}}}}"},
        {"class A {", "", "1@1:9, 7@1:1"},
        {"inline namespace N { }", "ClassDecl{ClassHead ClassBody}",
         "'Expected an identifier for the class name.'@1:20"},
    });
}

TEST(ParserBody, BaseClauses) {
    expectShapes({
        {"struct A : B, virtual public C, private virtual D<int, E> { };",
         "ClassDecl{ClassHead{ClassName[key=1]'struct A' BaseClauseList{BaseClause[access=0]'B' "
         "BaseClause[access=1 virtual]'C' BaseClause[access=3 virtual]'D<int,E>'}} ClassBody}"},
        {"class A : B<C<int> >, D { };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A' BaseClauseList{BaseClause[access=0]'B<C<int>>' "
         "BaseClause[access=0]'D'}} ClassBody}"},
        {"class A : B, /* c */ C /* d */ { };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A' BaseClauseList{BaseClause[access=0]'B' "
         "BaseClause[access=0]'C'}} ClassBody}"},
        {"class A : public { };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A' BaseClauseList{BaseClause[access=1]''}} "
         "ClassBody}"},
        {"class A : public public B { };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A' BaseClauseList{BaseClause[access=0]'B'}} "
         "ClassBody}",
         R"('Not expecting to find keyword "public"'@1:18)"},
        {"class A : B public { };", "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody}",
         R"('Not expecting to find keyword "public"'@1:13)"},
        {"class A : B virtual { };", "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody}",
         R"('Not expecting to find keyword "virtual"'@1:13)"},
        {"class A : B<int { };", "ClassDecl{ClassHead{ClassName[key=0]'class A'}}",
         R"(1@1:17, 'Unexpected Token: "}"'@1:19, 1@0:0)"},
        {"class A : { };", "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody}"},
        {"class A : 1 { };", "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody}",
         R"('Unexpected Token: "1"'@1:11)"},
    });
}

TEST(ParserBody, Members) {
    expectShapes({
        {"class A { public: int x; protected : private:int y; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{AccessSpec[access=1] "
         "DataDecl{Type'int' Id'x'} AccessSpec[access=2] AccessSpec[access=3] DataDecl{Type'int' Id'y'}}}"},
        {"class A { public extra: int a; extra: int b; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{AccessSpec[access=4] "
         "DataDecl{Type'int' Id'a'} AccessSpec[access=4] DataDecl{Type'int' Id'b'}}}"},
        {"class A { public int b; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{AccessSpec[access=1] "
         "DataDecl{Type'int' Id'b'}}}",
         "'Expected ':' Found: int'@1:18"},
        {"class A { using B::c; friend class D; template<class T> void f(); extern int x; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{DataDecl{Type'friend class' Id'D'} "
         "Template{Keyword[kind=80] ParameterList{Parameter'class T'}} "
         "FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' ParameterList}} DataDecl{Type'extern int' "
         "Id'x'}}}"},
        {"class A { enum { X }; struct B { int x; }; int y; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{EnumDecl{EnumHead'enum' "
         "EnumBody{Expr'X'}} ClassDecl{ClassHead{ClassName[key=1]'struct B'} "
         "ClassBody{DataDecl{Type'int' Id'x'}}} DataDecl{Type'int' Id'y'}}}"},
        {"class A { { int x; } int y; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{DataDecl{Type'int' Id'x'} "
         "DataDecl{Type'int' Id'y'}}}"},
        {"class A { namespace x; };", "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{DataDecl{Id'x'}}}",
         "'Namespace declaration illegal inside class declaration.'@1:11"},
        {"class A { /* a */ int x; // b\n#define C\n};",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{Comment'/* a */' DataDecl{Type'int' "
         R"(Id'x'} Comment'// b\n' PreprocDirective'#define C\n'}})"},
        {"class A { int x; f( };", "ClassDecl{ClassHead{ClassName[key=0]'class A'}}", "1@1:19, 7@1:18"},
        {"class A { #if 0\n }; #endif\n int x; };",
         R"(ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody} PreprocDirective'#endif\n' )"
         "DataDecl{Type'int' Id'x'}",
         "1@0:0, 1@1:11"},
    });
}

TEST(ParserBody, Enums) {
    expectShapes({
        {"enum { A, B = 2, C };", "EnumDecl{EnumHead'enum' EnumBody{Expr'A' Expr'B = 2' Expr'C'}}"},
        {"enum E { A, };", "EnumDecl{EnumHead'enum E' EnumBody{Expr'A'}}"},
        {"enum E { A /* one */, B };", "EnumDecl{EnumHead'enum E' EnumBody{Expr'A' Comment'/* one */' Expr'B'}}"},
        {"enum E { A = /* x */ 1 };", "EnumDecl{EnumHead'enum E' EnumBody{Expr'A =' Comment'/* x */' Expr'1'}}"},
        {"enum E { A = sizeof(struct S) };", "EnumDecl{EnumHead'enum E' EnumBody}",
         R"('Expected "}" first to close enum declaration.'@1:21)"},
        {"enum E {\nA,\n#if X\nB,\n#endif\nC };",
         R"(EnumDecl{EnumHead'enum E' EnumBody{Expr'A' PreprocDirective'#if X\n' Expr'B' )"
         R"(PreprocDirective'#endif\n' Expr'C'}})"},
        {"enum class E { A };", "EnumDecl{EnumHead'enum class E' EnumBody{Expr'A'}}"},
        {R"(enum E { extern "C" A, { B } C };)", "EnumDecl{EnumHead'enum E' EnumBody{Expr'A' Expr'{ B C'}}"},
        {"enum E { A", "", "1@1:10, 7@1:1"},
        {"class A { enum B; enum C { D } e; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{DataDecl{Type'enum' Id'B'} "
         "EnumDecl{EnumHead'enum C' EnumBody{Expr'D'}} DataDecl{Id'e'}}}"},
    });
}

TEST(ParserBody, Namespaces) {
    expectShapes({
        {"namespace A = B;", ""},
        {"namespace N { namespace A = B; int x; }",
         "NamespaceDecl{NamespaceHead'N' NamespaceBody{DataDecl{Id'A' Expr'= B'} DataDecl{Type'int' "
         "Id'x'}}}"},
        {"namespace { int x; }", "NamespaceDecl{NamespaceHead'' NamespaceBody{DataDecl{Type'int' Id'x'}}}"},
        {"namespace /* c */ A::B /* d */ { int x; }",
         "NamespaceDecl{NamespaceHead'A::B' NamespaceBody{DataDecl{Type'int' Id'x'}}}"},
        {"namespace A { namespace /* c */ B { } }",
         "NamespaceDecl{NamespaceHead'A' NamespaceBody{Comment'/* c */' NamespaceDecl{NamespaceHead'B' "
         "NamespaceBody}}}"},
        {"namespace N { using /* c */ namespace std; }",
         "NamespaceDecl{NamespaceHead'N' NamespaceBody{Comment'/* c */'}}"},
        {R"(namespace N { { } ; template<class T> f(); extern "C" { } })",
         "NamespaceDecl{NamespaceHead'N' NamespaceBody{Template{Keyword[kind=80] "
         "ParameterList{Parameter'class T'}} FunctionDecl{FunctionHead{Id'f' ParameterList}} "
         R"(LinkageBlock{Expr'extern \'C\'' LinkageBlockBody}}})"},
        {"namespace A B { }", "NamespaceDecl{NamespaceHead'A'} Expr'B' Block", R"('Expected:: "{".'@1:13)"},
        {"namespace A { public: int x; }", "NamespaceDecl{NamespaceHead'A'} DataDecl{Type': int' Id'x'}",
         "7@1:15, 7@1:15"},
        {"namespace A { int x;", "NamespaceDecl{NamespaceHead'A' NamespaceBody{DataDecl{Type'int' Id'x'}}}", "1@1:20"},
    });
}

TEST(ParserBody, LinkageBlocks) {
    expectShapes({
        {"extern int x;", "DataDecl{Type'extern int' Id'x'}"},
        {R"(extern "C" { int x; })", R"(LinkageBlock{Expr'extern \'C\'' LinkageBlockBody{DataDecl{Type'int' Id'x'}}})"},
        {"extern { int x; }", "LinkageBlock{Expr'extern' LinkageBlockBody{DataDecl{Type'int' Id'x'}}}"},
        {R"(extern /* c */ "C" /* d */ { })", R"(LinkageBlock{Expr'extern \'C\'' LinkageBlockBody})"},
        {R"(extern "C" "D" { int x; })", "ClassDecl{ClassHead ClassBody{DataDecl{Type'int' Id'x'}}}",
         "'Expected an identifier for the class name.'@1:16"},
        {R"(extern "C" void f();)",
         R"(FunctionDecl{FunctionHead{FunctionReturn'extern \'C\' void' Id'f' ParameterList}})"},
        {R"(extern "C" { namespace N { } extern "C" { } using a; class A { }; })",
         R"(LinkageBlock{Expr'extern \'C\'' LinkageBlockBody{NamespaceDecl{NamespaceHead'N' NamespaceBody} )"
         R"(LinkageBlock{Expr'extern \'C\'' LinkageBlockBody} ClassDecl{ClassHead{ClassName[key=0]'class )"
         "A'} ClassBody}}}"},
        {R"(extern "C" { template<class T> })", R"(LinkageBlock{Expr'extern \'C\''})",
         "'templates cannot be declared to have 'C' linkage.'@1:14, 1@1:32, 7@1:22"},
        {R"(extern "C" { public if case x; })", R"(LinkageBlock{Expr'extern \'C\'' LinkageBlockBody{DataDecl{Id'x'}}})",
         "'public: protected: private: labels are illegal inside linkage blocks.'@1:14, 'control "
         "statements (e.g. if, else, while) are illegal inside linkage blocks.'@1:21, 'control "
         "statements (e.g. if, else, while) are illegal inside linkage blocks.'@1:24"},
        {"extern #if 0\n{\n#endif\n int x;", "DataDecl{Type'int' Id'x'}", "'Expected '{'. Got: int'@4:2"},
        {R"(extern "C" {)", R"(LinkageBlock{Expr'extern \'C\'' LinkageBlockBody})", "1@1:12"},
        {"extern", "", "1@1:1, 7@1:1"},
    });
}

TEST(ParserBody, PositionsOfBodies) {
    EXPECT_EQ(ParsedText("class A : B {\npublic:\n} ;").shapeWithPositions(),
              "ClassDecl 1:1-3:3 {ClassHead 1:1-1:11 {ClassName 1:1-1:7 [key=0]'class A' "
              "BaseClauseList 1:11-1:11 {BaseClause 1:11-1:11 [access=0]'B'}} "
              "ClassBody 1:13-3:1 {AccessSpec 2:1-2:7 [access=1]}}");
    EXPECT_EQ(ParsedText("namespace A { }").shapeWithPositions(),
              "NamespaceDecl 1:1-1:15 {NamespaceHead 1:1-1:11 'A' NamespaceBody 1:13-1:15 }");
    EXPECT_EQ(ParsedText("extern \"C\" { } extern { }").shapeWithPositions(),
              "LinkageBlock 1:1-1:14 {Expr 1:1-1:10 'extern \\'C\\'' LinkageBlockBody 1:12-1:14 } "
              "LinkageBlock 1:16-1:25 {Expr 1:16-1:23 'extern' LinkageBlockBody 1:23-1:25 }");
}

// Behind a dead region the next enumerator begins with the first token inside it.
TEST(ParserBody, PositionsOfEnumerators) {
    EXPECT_EQ(ParsedText("enum { A = 1, B }").shapeWithPositions(),
              "EnumDecl 1:1-1:17 {EnumHead 1:1-1:4 'enum' EnumBody 1:6-1:17 "
              "{Expr 1:8-1:12 'A = 1' Expr 1:15-1:15 'B'}}");
    EXPECT_EQ(ParsedText("enum {\n#if 0\nX\n#endif\nB }").shapeWithPositions(),
              "EnumDecl 1:1-5:3 {EnumHead 1:1-1:4 'enum' EnumBody 1:6-5:3 "
              "{PreprocDirective 2:1-5:0 '' Expr 3:1-5:1 'B'}}");
}

}  // namespace
}  // namespace Cpp
