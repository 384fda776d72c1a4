// Functions: the place of the name, parameters, the tail of a head, constructors and templates.
#include "TreeShape.h"

namespace Cpp {
namespace {

TEST(ParserFunction, PlainAndQualifiedNames) {
    expectShapes({
        {"f();", "FunctionDecl{FunctionHead{Id'f' ParameterList}}"},
        {"int A::f();", "FunctionDecl{FunctionHead{FunctionReturn'int' Id'A::f' ParameterList}}"},
        {"A::~A();", "FunctionDecl{FunctionHead{Id'A::~A' ParameterList}}"},
        {"A<int>::B<char>::f();", "FunctionDecl{FunctionHead{Id'A < int > ::B < char > ::f' ParameterList}}"},
        {"void f<int>(int);",
         "FunctionDecl{FunctionHead{FunctionReturn'void f' Id'< int >' ParameterList{Parameter'int'}}}"},
        {"int ::f();", "FunctionDecl{FunctionHead{FunctionReturn'int' Id'::f' ParameterList}}"},
        {"C ::f();", "FunctionDecl{FunctionHead{Id'C ::f' ParameterList}}"},
        {R"(extern "C" "x"();)", R"(FunctionDecl{FunctionHead{FunctionReturn'extern \'C\'' Id'\'x\'' ParameterList}})"},
    });
}

TEST(ParserFunction, Operators) {
    expectShapes({
        {"bool operator==(const A&) const;",
         "FunctionDecl{FunctionHead{FunctionReturn'bool' Id'operator ==' ParameterList{Parameter'const A "
         "&'} Text'const'}}"},
        {"A& operator=(const A&);",
         "FunctionDecl{FunctionHead{FunctionReturn'A &' Id'operator =' ParameterList{Parameter'const A "
         "&'}}}"},
        {"void operator()(int);",
         "FunctionDecl{FunctionHead{FunctionReturn'void' Id'operator ( )' ParameterList{Parameter'int'}}}"},
        {"void A::operator()(int) const;",
         "FunctionDecl{FunctionHead{FunctionReturn'void' Id'A ::operator ( )' "
         "ParameterList{Parameter'int'} Text'const'}}"},
        {"operator int();", "FunctionDecl{FunctionHead{Id'operator int' ParameterList}}"},
        {"A::operator int*();", "FunctionDecl{FunctionHead{Id'A ::operator int *' ParameterList}}"},
        {"operator char*();", "FunctionDecl{FunctionHead{Id'operator char *' ParameterList}}"},
        {"A::operator bool() const;", "FunctionDecl{FunctionHead{Id'A ::operator bool' ParameterList Text'const'}}"},
        {"void* operator new[](size_t);",
         "FunctionDecl{FunctionHead{FunctionReturn'void *' Id'operator new [ ]' "
         "ParameterList{Parameter'size_t'}}}"},
        {"void* operator new(size_t);",
         "FunctionDecl{FunctionHead{FunctionReturn'void *' Id'operator new' "
         "ParameterList{Parameter'size_t'}}}"},
        {"A& A::operator[](int i);",
         "FunctionDecl{FunctionHead{FunctionReturn'A &' Id'A ::operator [ ]' ParameterList{Parameter'int "
         "i'}}}"},
        {"bool operator>(int, int);",
         "FunctionDecl{FunctionHead{FunctionReturn'bool' Id'operator >' ParameterList{Parameter'int' "
         "Parameter'int'}}}"},
        {"bool operator<(int, int);",
         "FunctionDecl{FunctionHead{FunctionReturn'bool' Id'operator <' ParameterList{Parameter'int' "
         "Parameter'int'}}}"},
        {"void operator,(int);",
         "FunctionDecl{FunctionHead{FunctionReturn'void' Id'operator ,' ParameterList{Parameter'int'}}}"},
        {"void* ::operator new(size_t);",
         "FunctionDecl{FunctionHead{FunctionReturn'void *' Id' ::operator new' "
         "ParameterList{Parameter'size_t'}}}"},
    });
}

TEST(ParserFunction, NamesThatAreNone) {
    expectShapes({
        {"operator+(A, B);", "", "'Could not recognize overloaded operator.'@1:9, 7@1:1"},
        {"operator()(int);", "", "'Expected (.'@1:10, 7@1:1"},
        {"int operator(x);", "", "7@1:1"},
        {"int x>(y);", "", R"('Expected "<".'@1:6, 7@1:1)"},
        {"int signed(x);", "", "'Expected function name. Got: signed'@1:5, 7@1:1"},
        {"int +(x);", "", R"('Expected "operator". Got: int'@1:5, 7@1:1)"},
        {"int operator(", "", "1@1:13, 7@1:1"},
    });
}

TEST(ParserFunction, Parameters) {
    expectShapes({
        {"f( );", "FunctionDecl{FunctionHead{Id'f' ParameterList}}"},
        {"f(int a /* c */, int b /* d */);",
         "FunctionDecl{FunctionHead{Id'f' ParameterList{Parameter'int a' Parameter'int b'}}}"},
        {"f(a, (b), c = d(e, f), g<h, i> j, );",
         "FunctionDecl{FunctionHead{Id'f' ParameterList{Parameter'a' Parameter'( b )' Parameter'c = d ( "
         "e , f )' Parameter'g h , i j'}}}"},
        {"f(, a);", "FunctionDecl{FunctionHead{Id'f' ParameterList{Parameter'' Parameter'a'}}}"},
        {"f(a<b);", "FunctionDecl{FunctionHead{Id'f' ParameterList{Parameter'a b'}}}", "'Expected '>'. Got: )'@1:6"},
        {"f(int (*g)(int), ...);",
         "FunctionDecl{FunctionHead{Id'f' ParameterList{Parameter'int ( * g ) ( int )' Parameter'. . "
         ".'}}}"},
        {"f(())", "FunctionDecl{FunctionHead{Id'f' ParameterList}}"},
    });
}

TEST(ParserFunction, Constructors) {
    expectShapes({
        {"A::A() : b(1), c(d(2, 3)) { }",
         "CtorDecl{FunctionHead{Id'A::A' ParameterList} Block InitializerList{Initializer{Id'b' "
         "ArgList{Arg'1'}} Initializer{Id'c' ArgList{Arg'd(2,3)'}}}}"},
        {R"(A::A() : Base<int>(1, "x"), e(), f((1)) { })",
         "CtorDecl{FunctionHead{Id'A::A' ParameterList} Block InitializerList{Initializer{Id'Base < int "
         R"(>' ArgList{Arg'1' Arg'\'x\''}} Initializer{Id'e' ArgList{Arg''}} Initializer{Id'f' )"
         "ArgList{Arg'(1)'}}}}"},
        {"A() : { }", "FunctionDecl{FunctionHead{Id'A' ParameterList} Block}"},
        {"A() : 1(2) { }", "FunctionDecl{FunctionHead{Id'A' ParameterList} Block}",
         R"('Expected a variable name for an initializer. Got: "1"'@1:7, 'Expected a variable name for an )"
         R"(initializer. Got: "("'@1:8, 'Expected a variable name for an initializer. Got: "2"'@1:9, )"
         R"x('Expected a variable name for an initializer. Got: ")"'@1:10)x"},
        {"A() : b { }", "FunctionDecl{FunctionHead{Id'A' ParameterList} Block}", "1@1:9, 1@0:0"},
        {"A() : b(1 { }", "FunctionDecl{FunctionHead{Id'A' ParameterList} Block}", "1@0:0, 1@0:0"},
        {"A() try : b(1) { } catch (...) { }",
         "FunctionDecl{FunctionHead{Id'A' ParameterList}} "
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=99]} Block{Expr': b 1'}}} Block "
         "CtrlStmt{CtrlSubStmt{CtrlSubStmtHead{Keyword[kind=100] Expr''} Block}}",
         "2@1:5"},
    });
}

TEST(ParserFunction, Templates) {
    expectShapes({
        {"template<> void f();",
         "Template{Keyword[kind=80] ParameterList} FunctionDecl{FunctionHead{FunctionReturn'void' Id'f' "
         "ParameterList}}"},
        {"template<class T> class A {};",
         "Template{Keyword[kind=80] ParameterList{Parameter'class T'}} "
         "ClassDecl{ClassHead{ClassName[key=0]'class A'} ClassBody}"},
        {"template<class T = X<int>, int N = 3> T f();",
         "Template{Keyword[kind=80] ParameterList{Parameter'class T = X < int >' Parameter'int N = 3'}} "
         "FunctionDecl{FunctionHead{FunctionReturn'T' Id'f' ParameterList}}"},
        {"template class A<int>;", "Expr'class A int;'"},
        {"template /* c */ void f<int>();", "Expr'void f int;'"},
        {"template<class T", "Template{Keyword[kind=80]}", "1@1:16"},
        {"template struct A {", "Expr'struct A' Block", "1@1:19"},
    });
}

TEST(ParserFunction, PositionsOfHeads) {
    EXPECT_EQ(ParsedText("int f(a, b /* c */) const ;").shapeWithPositions(),
              "FunctionDecl 1:1-1:27 {FunctionHead 1:1-1:27 {FunctionReturn 1:1-1:3 'int' Id 1:5-1:5 'f' "
              "ParameterList 1:6-1:19 {Parameter 1:7-1:7 'a' Parameter 1:10-1:10 'b'} Text 1:21-1:25 'const'}}");
    EXPECT_EQ(ParsedText("f() = 0, g() throw ( ) { }").shapeWithPositions(),
              "FunctionDecl 1:1-1:8 {FunctionHead 1:1-1:8 {Id 1:1-1:1 'f' ParameterList 1:2-1:3  Expr 1:5-1:7 '= 0'}} "
              "FunctionDecl 1:10-1:26 {FunctionHead 1:10-1:22 {Id 1:10-1:10 'g' ParameterList 1:11-1:12  "
              "Expr 1:14-1:22 'throw )'} Block 1:24-1:26 }");
}

// A comment is no part of a parameter's text. Behind a parameter of a template it still extends its place.
TEST(ParserFunction, PositionsOfTemplates) {
    EXPECT_EQ(ParsedText("template < class T /* c */ > x;").shapeWithPositions(),
              "Template 1:1-1:28 {Keyword 1:1-1:8 [kind=80] ParameterList 1:10-1:28 {Parameter 1:12-1:26 'class T'}} "
              "DataDecl 1:30-1:31 {Id 1:30-1:30 'x'}");
}

TEST(ParserFunction, PositionsOfInitializers) {
    EXPECT_EQ(ParsedText("A() : b<c>(1, d) { }").shapeWithPositions(),
              "CtorDecl 1:1-1:20 {FunctionHead 1:1-1:3 {Id 1:1-1:1 'A' ParameterList 1:2-1:3 } Block 1:18-1:20  "
              "InitializerList 1:7-1:16 {Initializer 1:7-1:16 {Id 1:7-1:10 'b < c >' "
              "ArgList 1:11-1:16 {Arg 1:12-1:12 '1' Arg 1:15-1:15 'd'}}}}");
}

}  // namespace
}  // namespace Cpp
