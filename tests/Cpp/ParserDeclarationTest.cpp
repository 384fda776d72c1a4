// Declarations: the dispatch by token shapes, data and pointers to functions.
#include "TreeShape.h"

namespace Cpp {
namespace {

TEST(ParserDeclaration, ShapesFallWhereTheirLandmarkSends) {
    expectShapes({
        {"int x;", "DataDecl{Type'int' Id'x'}"},
        {"int x = 1;", "DataDecl{Type'int' Id'x' Expr'= 1'}"},
        {"int a[4];", "DataDecl{Type'int' Id'a [ 4 ]'}"},
        {"struct S s;", "DataDecl{Type'struct S' Id's'}"},
        {"x;", "DataDecl{Id'x'}"},
        {"class A;", "DataDecl{Type'class' Id'A'}"},
        {"A B(C);", "FunctionDecl{FunctionHead{FunctionReturn'A' Id'B' ParameterList{Parameter'C'}}}"},
        {"int *f(int);", "FunctionDecl{FunctionHead{FunctionReturn'int *' Id'f' ParameterList{Parameter'int'}}}"},
        {"int (f)(int);", "FunctionPtrDecl{Type' int' Id' f )' ParameterList{Parameter'int'}}"},
        {"int (*fp)(int);", "FunctionPtrDecl{Type' int' Id' * fp )' ParameterList{Parameter'int'}}"},
        {"int *(*fp)(int);", "FunctionPtrDecl{Type' int *' Id' * fp )' ParameterList{Parameter'int'}}"},
        {"int (A::*fp)(int);", "FunctionPtrDecl{Type' int' Id' A:: * fp )' ParameterList{Parameter'int'}}"},
        {"int *(p);", "FunctionPtrDecl{Type' int *' Id' p )'}"},
        {"A::A() : b(1) { }",
         "CtorDecl{FunctionHead{Id'A::A' ParameterList} Block InitializerList{Initializer{Id'b' "
         "ArgList{Arg'1'}}}}"},
        {"struct S f() { }", "FunctionDecl{FunctionHead{FunctionReturn'struct S' Id'f' ParameterList} Block}"},
        {"enum E { };", "EnumDecl{EnumHead'enum E' EnumBody}"},
        {"class A : public B { };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A' BaseClauseList{BaseClause[access=1]'B'}} "
         "ClassBody}"},
        {"struct S { int a; } s;",
         "ClassDecl{ClassHead{ClassName[key=1]'struct S'} ClassBody{DataDecl{Type'int' Id'a'}}} "
         "DataDecl{Id's'}"},
        {"typedef struct { int a; } T;",
         "ClassDecl{ClassHead{ClassName[key=1]'typedef struct'} ClassBody{DataDecl{Type'int' Id'a'}}} "
         "DataDecl{Id'T'}"},
        {"__declspec(dllexport) int x;", "DataDecl{Type'__declspec ( dllexport ) int' Id'x'}"},
        {"vector<int(*)()> v;", "DataDecl{Type'vector < int ( * ) ( ) >' Id'v'}"},
        {"a < b > c (d);", "FunctionDecl{FunctionHead{FunctionReturn'a < b >' Id'c' ParameterList{Parameter'd'}}}"},
        {"a < b (c);", "DataDecl{Type'a < b (' Id'c )'}"},
    });
}

TEST(ParserDeclaration, Macros) {
    expectShapes({
        {"MACRO(x) { y; }", "FunctionDecl{FunctionHead{Id'MACRO' ParameterList{Parameter'x'}} Block{DataDecl{Id'y'}}}"},
        {"MACRO(x) int y;",
         "FunctionDecl{FunctionHead{Id'MACRO' ParameterList{Parameter'x'}}} DataDecl{Type'int' Id'y'}", "2@1:10"},
        {"MACRO\nint x;", "DataDecl{Type'MACRO int' Id'x'}"},
        {"class A { MACRO(x) public: int a; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{FunctionDecl{FunctionHead{Id'MACRO' "
         "ParameterList{Parameter'x'}}} AccessSpec[access=1] DataDecl{Type'int' Id'a'}}}"},
        {"namespace X { NAME { int x; } }",
         "NamespaceDecl{NamespaceHead'X' NamespaceBody{ClassDecl{ClassHead ClassBody{DataDecl{Type'int' "
         "Id'x'}}}}}",
         "'Expected an identifier for the class name.'@1:20"},
    });
}

TEST(ParserDeclaration, TailsOfFunctions) {
    expectShapes({
        {"void f() /* c */ ;", "FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' ParameterList}}"},
        {"void f() const throw(A) ;",
         "FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' ParameterList Text'const' Expr'throw A "
         ")'}}"},
        {"void f() throw(A, B<C>);",
         "FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' ParameterList Expr'throw A , B < C > )'}}"},
        {"void f() throw;", "",
         "'Expected '(' as part of exception specification clause 'throw()'. Got: ;'@1:15, 7@1:1"},
        {"virtual void f() = 0;",
         "FunctionDecl{FunctionHead{FunctionReturn'virtual void' Id'f' ParameterList Expr'= 0'}}"},
        {"void f() = 0 // c\n;", "FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' ParameterList Expr'= 0'}}"},
        {"void f() = 1;", "FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' ParameterList}} DataDecl{Id'1'}",
         "2@1:10, 'Expected '= 0' to indicate a pure virtual function. Got: = '@1:10, 7@1:10"},
        {"void f(), g();",
         "FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' ParameterList}} "
         "FunctionDecl{FunctionHead{Id'g' ParameterList}}"},
        {"A::A() : b(1)", "", "1@1:13, 7@1:1"},
        {"f() throw(", "", "1@1:10, 7@1:1"},
    });
}

TEST(ParserDeclaration, TriviaInFrontOfTheInitializer) {
    expectShapes({
        {"int x = /* c */ 5;", "DataDecl{Type'int' Id'x' Expr'= 5'}"},
        {"int a /* c */ [ /* d */ 3 ];", "DataDecl{Type'int' Id'a [ 3 ]'}"},
        {"const int x /* c */ = /* d */ 1;", "DataDecl{Type'const int' Id'x' Expr'= 1'}"},
        {"A& operator=/* c */(const A&);",
         "FunctionDecl{FunctionHead{FunctionReturn'A &' Id'operator =' ParameterList{Parameter'const A "
         "&'}}}"},
    });
}

TEST(ParserDeclaration, TypeAndName) {
    expectShapes({
        {"int;", "DataDecl{Id'int'}"},
        {"int *;", "DataDecl{Id'int *'}"},
        {"unsigned long x;", "DataDecl{Type'unsigned long' Id'x'}"},
        {"A::B<C> *p[3];", "DataDecl{Type'A::B < C > *' Id'p [ 3 ]'}"},
        {R"(const char *const p = "a";)", R"(DataDecl{Type'const char * const' Id'p' Expr'= \'a\''})"},
        {"char *argv[];", "DataDecl{Type'char *' Id'argv [ ]'}"},
        {"int a[3], b[4];", "DataDecl{Type'int' Id'a [ 3 ] , b [ 4 ]'}"},
        {"map<int, int> m;", "DataDecl{Type'map < int , int >' Id'm'}"},
        {"int a = 1, b = 2;", "DataDecl{Type'int' Id'a' Expr'= 1 , b = 2'}"},
        {"int a, b = 2;", "DataDecl{Type'int' Id'a , b' Expr'= 2'}"},
        {"int a[] = { 1, 2 };", "DataDecl{Type'int' Id'a [ ]' Expr'= { 1 , 2 }'}"},
        {"{ const int x /* c */, y; }", "Block{DataDecl{Type'const int' Id'x , y'}}"},
    });
}

TEST(ParserDeclaration, DataInBlocks) {
    expectShapes({
        {"{ int a(1); int b = (2, 3); f(1); }",
         "Block{DataDecl{Type'int' Id'a' Expr'( 1 )'} DataDecl{Type'int' Id'b' Expr'= ( 2 , 3 )'} Expr'f "
         "1;'}"},
        {"{ int x(1; }", "Block{Expr'int x 1 ; }'}", "5@1:10, 1@1:10, 1@1:12"},
        {"{ a b : 3; }", "Block{DataDecl{Type'a' Id'b : 3'}}"},
        {"{ __declspec x; const __declspec(y) int z; }",
         "Block{DataDecl{Type'__declspec' Id'x'} DataDecl{Type'const __declspec ( y ) int' Id'z'}}"},
        {"{ a * (b); }", "Block{DataDecl{Type'a * (' Id'b )'}}"},
        {"{ static int y = 2; auto x = 1; }",
         "Block{DataDecl{Type'static int' Id'y' Expr'= 2'} DataDecl{Type'auto' Id'x' Expr'= 1'}}"},
    });
}

TEST(ParserDeclaration, Bitfields) {
    expectShapes({
        {"class A { int a : 3, b : 4; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{DataDecl{Type'int' Id'a' Expr': 3 , b "
         ": 4'}}}"},
        {"class A { static int a : 3; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{DataDecl{Type'static int' Id'a' "
         "Expr': 3'}}}"},
        {"class A { unsigned int : 3; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{DataDecl{Type'unsigned int' Expr': "
         "3'}}}"},
        {"class A { MyEnum a : W; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{DataDecl{Type'MyEnum' Id'a' Expr': "
         "W'}}}"},
        {"class A { MyEnum : 4; };",
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody{AccessSpec[access=4] DataDecl{Id'4'}}}"},
        {"class A { int a : 3, 4; };", "ClassDecl{ClassHead{ClassName[key=0]'class A'}}",
         "'Bad looking bitfield. Expected an Identifier. Got: '4'.'@1:22, 7@1:11"},
        {"class A { int a : 3, b 4; };", "ClassDecl{ClassHead{ClassName[key=0]'class A'}}",
         "'Bad looking bitfield. Expected ':'. Got: '4'.'@1:24, 7@1:11"},
        {"class A { int a : N + 1; };", "ClassDecl{ClassHead{ClassName[key=0]'class A'}}", "3@1:26, 7@1:11"},
    });
}

TEST(ParserDeclaration, FunctionPointers) {
    expectShapes({
        {"int (*fp)(int) const;", "FunctionPtrDecl{Type' int' Id' * fp )' ParameterList{Parameter'int'} Text'const'}"},
        {"int (*fp)(int) = 0;", "FunctionPtrDecl{Type' int' Id' * fp )' ParameterList{Parameter'int'}}"},
        {"int (*a[3])(int);", "FunctionPtrDecl{Type' int' Id' * a [ 3 ] )' ParameterList{Parameter'int'}}"},
        {"int (WINAPI *fp)(int);", "FunctionPtrDecl{Type' int' Id' WINAPI * fp )' ParameterList{Parameter'int'}}"},
        {"int (*fp) X (int);", "FunctionPtrDecl{Type' int' Id' * fp X )' ParameterList{Parameter'int'}}"},
        {"(*fp)(int);", "FunctionPtrDecl{Type'' Id' * fp )' ParameterList{Parameter'int'}}"},
        {"void (*signal(int, void (*)(int)))(int);",
         "FunctionPtrDecl{Type' void' Id' * signal ( int , void ( * ) ( int ) ) )' "
         "ParameterList{Parameter'int'}}"},
        {"int (*fp) = 0;", "", R"('Expected "(" as part of pointer-to-function declaration. Got: ='@1:11, 7@1:1)"},
        {"int *(fp", "", "1@1:7, 7@1:1"},
        {"int (*fp)(int public", "FunctionPtrDecl{Type' int' Id' * fp )'}", "1@1:11, 7@1:15"},
    });
}

TEST(ParserDeclaration, PositionsOfData) {
    EXPECT_EQ(ParsedText("int x;").shapeWithPositions(), "DataDecl 1:1-1:6 {Type 1:1-1:3 'int' Id 1:5-1:5 'x'}");
    EXPECT_EQ(ParsedText("int x = 1 ;").shapeWithPositions(),
              "DataDecl 1:1-1:11 {Type 1:1-1:3 'int' Id 1:5-1:5 'x' Expr 1:7-1:11 '= 1'}");
    // A comment that is the type's last token counts for its place and not for its text.
    EXPECT_EQ(ParsedText("{ const int /* c */ x; }").shapeWithPositions(),
              "Block 1:1-1:24 {DataDecl 1:3-1:22 {Type 1:3-1:19 'const int' Id 1:21-1:21 'x'}}");
    // The stored end goes before the initializer's; only a plain `;` stores one.
    ParsedText both("x; y = 1;");
    EXPECT_EQ(dynamic_cast<DataDeclNode&>(both.root.child(0)).endPosition, (Position{1, 2}));
    EXPECT_EQ(dynamic_cast<DataDeclNode&>(both.root.child(1)).endPosition, Position());
}

TEST(ParserDeclaration, PositionsOfFunctionPointers) {
    EXPECT_EQ(ParsedText("int (*fp)(int) ;").shapeWithPositions(),
              "FunctionPtrDecl 1:1-1:16 {Type 1:1-1:3 ' int' Id 1:5-1:9 ' * fp )' "
              "ParameterList 1:10-1:14 {Parameter 1:11-1:13 'int'}}");
}

}  // namespace
}  // namespace Cpp
