// The line wrapper on whole texts: each construct that it takes apart, what it leaves alone, and its cost.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "../support/StepCount.h"
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "first/format/Brevis_CppPreFormatter.h"
#include "first/wrap/Brevis_CppLineWrapper.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {
namespace {

PropertySet wrapScheme(int rightMargin = 30) {
    PropertySet scheme;
    scheme.setBool("LINE_WRAP", true);
    scheme.setInt("RIGHT_MARGIN", rightMargin);
    scheme.setInt("TAB_SIZE", 8);
    scheme.setInt("WRAP_STYLE", 1);
    scheme.setInt("LIST_WRAP_STRATEGY", 1);
    return scheme;
}

// The values of `changes`: an integer, or a string for a white-space key; a flag is spelled `true`.
struct Change {
    const char* key;
    std::string value;
};

PropertySet wrapScheme(const std::vector<Change>& changes) {
    PropertySet scheme = wrapScheme();
    for (const auto& [key, value] : changes) {
        if (value == "true") {
            scheme.setBool(key, true);
        } else if (!value.empty() && std::isdigit(static_cast<unsigned char>(value.front())) != 0) {
            scheme.setInt(key, std::stoi(value));
        } else {
            scheme.setString(key, value);
        }
    }
    return scheme;
}

std::string wrapped(const std::string& text, const PropertySet& scheme) {
    Cpp::RootNode root;
    Trn::ParseMessageList messages;
    Cpp::Lexer lexer(text);
    Cpp::Parser().parse(lexer, root, messages);
    CppPreFormatter preFormatter(regionTable());
    root.accept(preFormatter);
    const FormatterProperties properties(scheme);
    CppLineWrapper wrapper(properties.scheme, text);
    root.accept(wrapper);
    return wrapper.takeText();
}

struct LineCase {
    std::string text;
    std::vector<Change> changes;
    std::string expected;
};

void expectWrapped(const std::vector<LineCase>& cases) {
    for (const LineCase& test : cases) EXPECT_EQ(wrapped(test.text, wrapScheme(test.changes)), test.expected);
}

void expectUnchanged(const std::vector<std::pair<std::string, std::vector<Change>>>& cases) {
    for (const auto& [text, changes] : cases) EXPECT_EQ(wrapped(text, wrapScheme(changes)), text);
}

TEST(LineWrapper, Lists) {
    const std::string parameters = "void f(int aaaaaaaaaa, int bbbbbbbbbb);";
    const std::string bases = "class A : public Bbbbbbbbbb, private Ccccccccc {};";
    expectWrapped({
        // Without values of the scheme the commas get a blank on both sides first.
        {parameters, {}, "void f(int aaaaaaaaaa ,\n       int bbbbbbbbbb);"},
        {parameters, {{"WS_BETWEEN_FN_PARAMS", " "}}, "void f(int aaaaaaaaaa,\n       int bbbbbbbbbb);"},
        {bases, {}, "class A : public Bbbbbbbbbb,\n          private Ccccccccc {};"},
        {bases, {{"COMMA_WRAP_STYLE", "1"}}, "class A : public Bbbbbbbbbb\n        , private Ccccccccc {};"},
        {"A::A() : aaaaaaaaa(1), bbbbbbbbbb(2) {}", {}, "A::A() : aaaaaaaaa(1) ,\n         bbbbbbbbbb(2) {}"},
        {"template <class Aaaaaaaaa, class Bbbbbbbbb> void f();",
         {},
         "template <class Aaaaaaaaa ,\n          class Bbbbbbbbb> void f();"},
        {"void (*pppp)(int aaaaaaaaaa, int bbbbbbbbb);",
         {},
         "void (*pppp)(int aaaaaaaaaa ,\n             int bbbbbbbbb);"},
        {"void (*pppp)(int aaaaaaaaaa);",
         {{"RIGHT_MARGIN", "20"}, {"WS_AFTER_FN_OPEN_PAREN", " "}},
         "void ( *pppp)(int aaaaaaaaaa);"},
    });
    // A list whose scheme breaks at every comma goes out as it stands.
    expectUnchanged({{parameters, {{"WS_BETWEEN_FN_PARAMS", "\n"}}},
                     {parameters, {{"ALIGN_FN_PARAMS_LEFT", "true"}}},
                     {bases, {{"ALIGN_BASE_CLAUSES_LEFT", "true"}}},
                     {parameters, {{"LIST_WRAP_STRATEGY", "0"}, {"WS_BETWEEN_FN_PARAMS", " "}}}});
}

TEST(LineWrapper, DataAndEnums) {
    const std::string table = "int a[] = { 11111, 22222, 33333, 44444 };";
    const std::string names = "enum E { aaaaaaaaaaa, bbbbbbbbbbb, c };";
    expectWrapped({
        {table, {}, "int a[] = { 11111, 22222,\n            33333, 44444 };"},
        {table, {{"WRAP_STYLE", "2"}, {"WRAP_INDENT", "    "}}, "int a[] = { 11111, 22222,\n    33333, 44444 };"},
        {table,
         {{"WRAP_STYLE", "2"}, {"WRAP_INDENT", "    "}, {"INDENT_DD_CONTENT", "  "}},
         "int a[] = { 11111, 22222,\n  33333, 44444 };"},
        {"int a[] = { 11111, 2222, 33333, 4444 ;", {}, "int a[] = { 11111, 2222,\n            33333, 4444 ;"},
        {"int value = aaaaaaaaa + bbbbbbbbb;", {}, "int value = aaaaaaaaa\n          + bbbbbbbbb;"},
        {names, {}, "enum E { aaaaaaaaaaa,\n         bbbbbbbbbbb, c };"},
        {names,
         {{"INDENT_ENUM_CONTENT", "  "}, {"WRAP_STYLE", "2"}, {"WS_AFTER_ENUM_OPEN_BRACE", "\n  "}},
         "enum E {\n  aaaaaaaaaaa, bbbbbbbbbbb, c };"},
        {names, {{"WS_BEFORE_ENUM_CLOSE_BRACE", "\n"}}, "enum E { aaaaaaaaaaa,\n         bbbbbbbbbbb, c\n};"},
    });
    expectUnchanged({{table, {{"LIST_WRAP_STRATEGY", "0"}}},
                     {names, {{"WRAP_STYLE", "0"}}},
                     {names, {{"WS_BETWEEN_ENUM_ELEMENTS", "\n"}}}});
}

TEST(LineWrapper, Statements) {
    expectWrapped({
        // A short neighbour of a long line is re-spaced and not wrapped.
        {"void f() {\n    x = aaaaaaaaaaaaa + bbbbbbbbbbbb;\n    y=b+c;\n}\n",
         {},
         "void f() {\n    x = aaaaaaaaaaaaa\n      + bbbbbbbbbbbb;\n    y = b + c;\n}\n"},
        {"void f() {\n    for (int i = 0; i < nnnnnnnn; ++i) a();\n}",
         {},
         "void f() {\n    for (int i = 0;\n         i < nnnnnnnn;\n         ++i) a();\n}"},
        {"void f() {\n    for (int i = 0; i < nnnnnnnn; ++i)\n        a();\n}",
         {{"WS_BEFORE_CS_CLOSE_PAREN", "\n"}},
         "void f() {\n    for (int i = 0;\n         i < nnnnnnnn;\n         ++i\n        )\n        a();\n}"},
        {"void f() {\n    if (aaaaaaaaaaaaa && bbbbbbbbbbbbb) a();\n    else if (ccccccccccc && dddddddddddd) b();\n}",
         {},
         "void f() {\n    if (aaaaaaaaaaaaa\n     && bbbbbbbbbbbbb) a();\n    else if (ccccccccccc\n          && "
         "dddddddddddd) b();\n}"},
        {"namespace N {\nclass A {\n    void f() { switch (a) { case 1: gggg(aaaaaaaaa, b); } }\n};\n}",
         {},
         "namespace N {\nclass A {\n    void f() { switch (a) { case 1: gggg(aaaaaaaaa,\n"
         "                                         b); } }\n};\n}"},
        // The column of a template head doesn't outlive the function behind it.
        {"    template <class T> void f(T aaaaaaaaaa);\nint g(int aaaaaaaaaaaaaaa, int bbbbbbbb);",
         {{"WS_BETWEEN_FN_PARAMS", " "}, {"WRAP_STYLE", "2"}},
         "    template <class T> void f(T aaaaaaaaaa);\nint g(int aaaaaaaaaaaaaaa,\nint bbbbbbbb);"},
    });
}

TEST(LineWrapper, LeavesAloneWhatIsNotOverlong) {
    const std::string region =
        "void f() {\n    // CV-FORMAT-OFF\n    aaaaaaaaaaaaaaaaaaaaaa(bbbbbbbbbbb,   c);\n    // CV-FORMAT-ON\n}\n";
    expectUnchanged({
        {"int  a ;\n\n\n  void  f ( int  a )  { return  a+b ; }\n", {{"RIGHT_MARGIN", "37"}}},
        {"\tvoid f(int a, int b);", {{"RIGHT_MARGIN", "29"}}},
        {"void f(int aaaaaaaaaaaaaaa, int bbbbbbbbbbbbbbbbbbb);", {{"RIGHT_MARGIN", "0"}}},
        {region, {}},
        // Nothing to break at; directives and comments keep their places.
        {"void f() {\n    s = \"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa\";\n#define X\n    /* a\n         b */\n}\n", {}},
    });
    EXPECT_NE(wrapped("\tvoid f(int a, int b);", wrapScheme(28)), "\tvoid f(int a, int b);");
}

// ---- Any text

std::string inkOf(std::string text) {
    std::erase_if(text, [](unsigned char c) { return std::isspace(c) != 0; });
    return text;
}

std::string randomProgram(std::mt19937& random) {
    static const std::vector<std::string> soup = {"a",
                                                  "name",
                                                  "int",
                                                  "x",
                                                  "f(",
                                                  ")",
                                                  "(",
                                                  ")",
                                                  "{",
                                                  "}",
                                                  "{",
                                                  "}",
                                                  ";",
                                                  ";",
                                                  ";",
                                                  ",",
                                                  ",",
                                                  "=",
                                                  "+",
                                                  "<<",
                                                  "&&",
                                                  "<",
                                                  ">",
                                                  "if (a)",
                                                  "else",
                                                  "for (a; b; c)",
                                                  "switch (a)",
                                                  "case 1:",
                                                  "return",
                                                  "class A",
                                                  "enum E {",
                                                  "namespace N {",
                                                  ": public B",
                                                  "template <class T, class U>",
                                                  "void f(int a, int b)",
                                                  "A::A() : a(1), b(2)",
                                                  "int a[] = {",
                                                  "(*p)(",
                                                  "extern \"C\" {",
                                                  "label:",
                                                  "\"s\"",
                                                  "\"t\\\n  u\"",
                                                  "// c\n",
                                                  "/* d\n  e */",
                                                  "#define X\n",
                                                  "// CV-FORMAT-OFF\n",
                                                  "// CV-FORMAT-ON\n",
                                                  "\\\n",
                                                  "$",
                                                  "12i64"};
    static const std::vector<std::string> gaps = {"", " ", " ", " ", "  ", "\n", "\n    "};
    std::string text;
    for (std::size_t count = random() % 80; count > 0; --count) {
        text += soup[random() % soup.size()] + gaps[random() % gaps.size()];
    }
    return text;
}

TEST(LineWrapper, ChangesNothingButWhiteSpace) {
    int changed = 0;
    for (unsigned seed = 0; seed < 3000; ++seed) {
        std::mt19937 random(seed);
        PropertySet scheme = wrapScheme(static_cast<int>(random() % 30));
        for (const char* key :
             {"WRAP_STYLE", "EXPR_WRAP_STYLE", "SHIFT_WRAP_STYLE", "COMMA_WRAP_STYLE", "LIST_WRAP_STRATEGY"}) {
            scheme.setInt(key, static_cast<int>(random() % 3));
        }
        for (const char* key :
             {"LEFT_MARGIN", "INDENT_FN_CONTENT", "INDENT_CS_CONTENT", "INDENT_DD_CONTENT", "INDENT_ENUM_CONTENT",
              "WS_BETWEEN_FN_PARAMS", "WS_BEFORE_FN_CLOSE_PAREN", "WS_BEFORE_CS_CLOSE_PAREN",
              "WS_BEFORE_ENUM_CLOSE_BRACE", "WS_BETWEEN_EXPR_OP_OPERANDS"}) {
            if (random() % 2 == 0) scheme.setString(key, random() % 2 == 0 ? "" : "  ");
        }
        const std::string text = randomProgram(random);
        const std::string result = wrapped(text, scheme);
        changed += result != text ? 1 : 0;
        ASSERT_EQ(inkOf(result), inkOf(text)) << "seed " << seed << "\n" << text;
        scheme.setInt("RIGHT_MARGIN", 100000);
        ASSERT_EQ(wrapped(text, scheme), text) << "seed " << seed;
    }
    EXPECT_GT(changed, 1000);
}

// ---- Cost

TEST(LineWrapperGrowth, IsThatOfTheText) {
    const auto cost = [](const std::string& unit, int count) {
        std::string text = "int a[] = {";
        while (count-- > 0) text += unit;
        text += "0};\nvoid f() { x = aaaaaaaaaaaaaaaaaaaaaaaaaaaa + b; }\n";
        std::string result;
        const StepCount::Cost spent = StepCount::of([&] { result = wrapped(text, wrapScheme(60)); });
        EXPECT_EQ(inkOf(result), inkOf(text));
        return spent;
    };
    for (const char* unit : {"1, ", "1,\n", "{1, 2},\n    ", "f(a), "}) {
        const StepCount::Cost once = cost(unit, 1000), more = cost(unit, 8000);
        EXPECT_TRUE(StepCount::isWithin(more, 10, once)) << unit << once << ", then " << more;
    }
}

}  // namespace
}  // namespace Brevis
