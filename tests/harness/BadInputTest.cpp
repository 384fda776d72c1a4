// Texts that no sane person writes: bottomless nesting, huge lines, unfinished and binary text. The engine must give
// a clear answer in bounded time and lose nothing; and its time must grow with the text, not with its square.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <limits>

#include "../support/StepCount.h"
#include "FormatRun.h"
#include "Trn_Exception.h"

namespace Harness {
namespace {

std::string repeated(const std::string& text, int times) {
    std::string result;
    result.reserve(text.size() * static_cast<std::size_t>(times));
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

// Made when its test runs: every process of the suite builds this list, and the texts take megabytes.
struct NamedText {
    std::string name;
    std::function<std::string(int size)> text;
    int size = 400'000;  // of the largest text
};

void PrintTo(const NamedText& text, std::ostream* os) { *os << text.name; }

template <class Named>
std::string testName(const testing::TestParamInfo<Named>& info) {
    return info.param.name;
}

// And one that leaves expressions alone, which has a path of its own through brackets.
std::vector<Brevis::PropertySet> testedSchemes() {
    std::vector<Brevis::PropertySet> schemes{Brevis::PropertySet("bare")};
    for (const char* name : {"first_corvane", "first_allman", "first_kr", "Corvane", "GNU", "Linux"}) {
        schemes.push_back(readSchemeNamed(name));
    }
    return schemes;
}

// ---- Whatever the text: everything is kept, or the text is refused with a reason.

class BadInputTest : public testing::TestWithParam<NamedText> {
protected:
    void expectClearAnswer(const Brevis::PropertySet& scheme, const std::string& input, Cpp::Dialect dialect) {
        const bool isModern = dialect == Cpp::Dialect::modern;
        try {
            const FormatRun run =
                formatText(scheme, input, {isModern ? Brevis::DialectChoice::modern : Brevis::DialectChoice::classic});
            if (run.isFormatted) {
                EXPECT_TRUE(isModern || run.messages.empty());
                EXPECT_EQ(lossIn(input, run.text, dialect), "");
            } else {
                EXPECT_FALSE(run.messages.empty());
                EXPECT_EQ(run.text, "");
            }
        } catch (const Trn::Exception& exception) {
            EXPECT_EQ(exception.message(), "The text is nested more than 1000 levels deep.");
        }
    }
};

TEST_P(BadInputTest, GetsAClearAnswer) {
    // A tenth is as much for the stack there, and the steps are counted below.
    const std::string text = GetParam().text(isSanitized ? GetParam().size / 10 : GetParam().size);
    for (const Brevis::PropertySet& scheme : testedSchemes()) {
        const bool readsBoth = Brevis::Scheme::from(scheme).edition == 1;
        if (readsBoth) expectClearAnswer(scheme, text, Cpp::Dialect::classic);
        expectClearAnswer(scheme, text, Cpp::Dialect::modern);
    }
}

// Columns beyond all numbers would overflow.
TEST(BadInputTabs, MayBeHuge) {
    Brevis::PropertySet scheme("tabs");
    scheme.setInt("TAB_SIZE", std::numeric_limits<std::int32_t>::max());
    const std::string text = "// a\tb\tc\nint\tx;\n";
    const FormatRun run = formatText(scheme, text, {Brevis::DialectChoice::classic});
    EXPECT_TRUE(run.isFormatted);
    EXPECT_EQ(lossIn(text, run.text, Cpp::Dialect::classic), "");
}

class BadInputGrowthTest : public testing::TestWithParam<NamedText> {};

// The texts of one size may be refused and those of the other not; both have to be read.
TEST_P(BadInputGrowthTest, IsThatOfTheText) {
    const Brevis::PropertySet scheme = readSchemeNamed("first_corvane");
    const auto cost = [&](int size) {
        const std::string text = GetParam().text(size);
        return StepCount::of([&] {
            try {
                formatText(scheme, text);
            } catch (const Trn::Exception&) {
            }
        });
    };
    const StepCount::Cost once = cost(GetParam().size / 64), more = cost(GetParam().size / 8);
    EXPECT_TRUE(StepCount::isWithin(more, 12, once)) << once << ", then " << more;
}

constexpr int deep = 100'000;

// `inner` with `deep` times `open` in front of it, once closed and once not.
void addNested(std::vector<NamedText>& all, const std::string& name, const std::string& before, const std::string& open,
               const std::string& close, const std::string& after) {
    all.push_back(
        {name, [=](int deep) { return before + repeated(open, deep) + "x" + repeated(close, deep) + after; }, deep});
    all.push_back({name + "Unclosed", [=](int deep) { return before + repeated(open, deep); }, deep});
}

std::vector<NamedText> nestedTexts() {
    std::vector<NamedText> all;
    addNested(all, "Parentheses", "int y = ", "(", ")", ";\n");
    addNested(all, "ParenthesesInABlock", "void f()\n{\ny = ", "(", ")", ";\n}\n");
    addNested(all, "ParameterLists", "void f", "(int ", ")", ";\n");
    addNested(all, "Calls", "void f()\n{\n", "g(", ")", ";\n}\n");
    addNested(all, "Braces", "", "{", "}", "\n");
    addNested(all, "BracesInAFunction", "void f()\n", "{\n", "}\n", "");
    addNested(all, "BraceInitializers", "int y[] = ", "{", "}", ";\n");
    addNested(all, "Brackets", "int y", "[", "]", ";\n");
    addNested(all, "BracketsInABlock", "void f()\n{\ny", "[", "]", " = 1;\n}\n");
    addNested(all, "AngleBrackets", "", "A<", ">", " y;\n");
    addNested(all, "Ifs", "void f()\n{\n", "if (a) ", "", ";\n}\n");
    addNested(all, "ElseIfs", "void f()\n{\n", "if (a) b(); else ", "", ";\n}\n");
    addNested(all, "IfsWithBraces", "void f()\n{\n", "if (a)\n{\n", "}\n", "}\n");
    addNested(all, "Classes", "", "class A\n{\n", "};\n", "");
    addNested(all, "Namespaces", "", "namespace A\n{\n", "}\n", "");
    addNested(all, "Templates", "", "template <class T, ", ">", " class A;\n");
    addNested(all, "TemplateHeads", "", "template <class T>\n", "", ";\n");
    addNested(all, "LinkageBlocks", "", "extern \"C\" {\n", "}\n", "");
    addNested(all, "Conditionals", "", "#if A\n", "\n#endif\n", "\n");
    addNested(all, "DeadConditionals", "#if 0\n", "#if A\n", "\n#endif\n", "#endif\n");
    addNested(all, "Regions", "", "// CORVANE-OFF\n", "// CORVANE-ON\n", "\n");
    addNested(all, "Switches", "void f()\n{\n", "switch (a) { case 1: ", "}", "}\n");
    return all;
}

INSTANTIATE_TEST_SUITE_P(Nested, BadInputTest, testing::ValuesIn(nestedTexts()), testName<NamedText>);
INSTANTIATE_TEST_SUITE_P(Nested, BadInputGrowthTest, testing::ValuesIn(nestedTexts()), testName<NamedText>);

std::vector<NamedText> oddTexts() {
    using namespace std::string_literals;
    return {
        {"Empty", [](int) { return ""s; }},
        {"OneLineOfCode", [](int many) { return repeated("x = y + f(1); ", many / 4); }},
        {"OneLineOfOperators", [](int many) { return "int x = 1" + repeated(" + 1", many) + ";\n"; }},
        {"OneLineOfString", [](int many) { return "char* s = \"" + repeated("abcdefg ", many) + "\";\n"; }},
        {"OneLineOfComment", [](int many) { return "/*" + repeated(" abcdefg", many) + "*/ int x;\n"; }},
        {"OneWord", [](int many) { return repeated("a", 10 * many); }},
        {"ScopedWords", [](int many) { return repeated("a::", many) + "b;\n"; }},
        {"Blanks", [](int many) { return repeated(" ", 10 * many) + "int x;\n"; }},
        {"EmptyLines", [](int many) { return "int x;" + repeated("\n", 10 * many) + "int y;\n"; }},
        {"HeaderQuestions", [](int many) { return "#if " + repeated("__has_include(<", many) + "\nint x;\n#endif\n"; }},
        {"BehindOpenParentheses",
         [](int many) { return "int x = " + repeated("(", 900) + repeated("1 + ", many) + "1;\n"; }},
        {"LessThanSigns", [](int many) { return "bool b = " + repeated("a < ", many / 10) + "c;\n"; }},
        {"LessThanSignsInABlock",
         [](int many) { return "void f()\n{\nb = " + repeated("a < ", many / 10) + "c;\n}\n"; }},
        {"Stars", [](int many) { return "int " + repeated("*", many) + "p;\n"; }},
        {"Commas", [](int many) { return "int a" + repeated(", a", many) + ";\n"; }},
        {"Semicolons", [](int many) { return repeated(";", many); }},
        {"ClosingBraces", [](int many) { return repeated("}", many); }},
        {"Hashes", [](int many) { return repeated("#\n", many); }},
        {"Strings", [](int many) { return "char* s = " + repeated("\"a\" ", many) + ";\n"; }},
        {"Macros", [](int many) { return repeated("MACRO(a)\n", many / 10); }},
        {"NulBytes", [](int) { return "int\0x\0=\0 1;\0\n/* \0 */ char* s = \"a\0b\";\n"s; }},
        {"HighBytes",
         [](int) { return "\xef\xbb\xbfint gr\xc3\xb6\xc3\x9f\x65 = 1; // \xff\xfe\nchar* s = \"\xe4\";\xa0\n"s; }},
        {"StrayCharacters", [](int) { return "int $x = @y; \\ int `z`; 100i64 \\\nint a;\n"s; }},
        {"CarriageReturns", [](int) { return "int x;\r\rint y;\r\n\r\n/* a\r\n   b */\rint z;\r"s; }},
        {"UnfinishedComment", [](int) { return "int x;\n/* and so on\nint y;\n"s; }},
        {"UnfinishedString", [](int) { return "char* s = \"abc;\nint y;\n"s; }},
        {"UnfinishedCharacter", [](int) { return "char c = 'a;\nint y;\n"s; }},
        {"UnfinishedDeadRegion", [](int) { return "int x;\n#if 0\nint y;\n"s; }},
        {"UnfinishedRegion", [](int) { return "int x;\n// CORVANE-OFF\nint y;\n"s; }},
        {"DirectiveWithoutLineEnd", [](int) { return "#define A \\"s; }},
        {"LineCommentContinued", [](int) { return "// a \\\nint x;\nint y; // b \\"s; }},
        {"FormFeedsAndTabs", [](int) { return "\f\v\tint\tx\f;\v\n\f\nvoid f()\t{\fg();\v}\n"s; }},
    };
}

INSTANTIATE_TEST_SUITE_P(Odd, BadInputTest, testing::ValuesIn(oddTexts()), testName<NamedText>);
INSTANTIATE_TEST_SUITE_P(Odd, BadInputGrowthTest, testing::ValuesIn(oddTexts()), testName<NamedText>);

TEST(BadInput, UnfinishedTextIsRefusedWithItsPlace) {
    const Brevis::PropertySet scheme("any");
    for (const char* text : {"int x;\n#if 0\n", "int x;\n// CORVANE-OFF\n", "void f() {\n"}) {
        const FormatRun run = formatText(scheme, text, classicReading);
        ASSERT_EQ(run.messages.size(), 1U) << text;
        EXPECT_EQ(run.messages.front().text, "Unexpected EOF found.") << text;
        EXPECT_GE(run.messages.front().position.line, 1) << text;
    }
}

// ---- Growth: ten times the text may cost some ten times the steps, and not a hundred times.

struct Growing {
    std::string name;
    std::function<std::string(int)> text;  // for a number of repetitions
};

void PrintTo(const Growing& growing, std::ostream* os) { *os << growing.name; }

class GrowthTest : public testing::TestWithParam<Growing> {
protected:
    static StepCount::Cost costOf(const Brevis::PropertySet& scheme, int times) {
        const std::string text = GetParam().text(times);
        return StepCount::of([&] { EXPECT_TRUE(formatText(scheme, text).isFormatted); });
    }
};

TEST_P(GrowthTest, IsThatOfTheText) {
    for (const Brevis::PropertySet& scheme : testedSchemes()) {
        const StepCount::Cost once = costOf(scheme, 300), more = costOf(scheme, 3'000);
        EXPECT_TRUE(StepCount::isWithin(more, 14, once)) << scheme.name() << ": " << once << ", then " << more;
    }
}

// A text of `before`, the repeated stretch and `after`.
Growing growing(const std::string& name, const std::string& before, const std::string& stretch,
                const std::string& after) {
    return {name, [=](int times) { return before + repeated(stretch, times) + after; }};
}

const std::vector<Growing>& growingTexts() {
    static const std::vector<Growing> texts{
        growing("Functions", "", "int f(int a, char* b)\n{\nif (a) { return *b; }\nelse return 0;\n}\n", ""),
        growing("OneClass", "class A\n{\n", "int a; // a\nvoid f(int b, const char* c) const;\n", "};\n"),
        growing("OneBaseList", "class A : public B", ", public B", "\n{\n};\n"),
        growing("OneFunction", "void f()\n{\n", "for (int i = 0; i < n; ++i) g(a[i] + 1, b);\nint x = 1;\n", "}\n"),
        growing("OneSwitch", "void f()\n{\nswitch (a)\n{\n", "case 1:\ng();\nbreak;\n", "}\n}\n"),
        growing("ControlStatements", "void f()\n{\n", "if (a) { b(); }\nwhile (c) d();\n", "}\n"),
        growing("OneInitializer", "int a[] = {", "1, 0x2f, /* c */ f(3),\n", "4};\n"),
        growing("OneConstructor", "A::A() : a(1)", ", b(c, 2)", "\n{\n}\n"),
        growing("OneEnum", "enum E\n{\n", "a = 1, // a\nb,\n", "c\n};\n"),
        growing("OneComment", "void f()\n{\n/*\n", "    some words of a comment\n", "*/\n}\n"),
        growing("OneExpression", "void f()\n{\na = b", " + (c * 2)", ";\n}\n"),
        growing("OneCall", "void f()\n{\ng(a", ", b + 1", ");\n}\n"),
        growing("OneParameterList", "void f(int a", ", int* b", ");\n"),
        growing("OneTemplate", "template <class T", ", class U", ">\nclass A;\n"),
        growing("OneTemplateArgumentList", "A<int", ", B<C>", "> x;\n"),
        growing("OneDirective", "#define A \\\n", "    some(words) \\\n", "end\n"),
        growing("OneDeadRegion", "#if 0\n", "#ifdef A\nint x;\n#endif\n", "#endif\n"),
        growing("OneRegion", "// CORVANE-OFF\n", "int x; // a\n", "// CORVANE-ON\n"),
        growing("OneNamespace", "namespace N\n{\n", "int x = 1; /* a */\ntypedef int* y;\n", "}\n"),
        growing("Declarators", "int a = 1", ", *b = 0", ";\n"),
        growing("CommentsInAGap", "void f(", "/* a */ // b\n", "int a);\n"),
        growing("MacrosInAClass", "class A {\n", "FOO(x)\n", "};\n"),
        growing("Attributes", "", "[[a]]\n", "int x;\n"),
        growing("TemplateHeads", "", "template <class T> requires A<T>\n", "void f();\n"),
        growing("CallsInFrontOfData", "", "foo(a) int x;\n", ""),
        growing("LambdasInACall", "void f() { g(", "[a](int b) { return a < b; }, ", "1); }\n"),
        growing("UnevenBranches", "", "#if A\nvoid f() {\n#else\nvoid g() {\n#endif\n}\n", ""),
        growing("Directives", "", "#define A(x) x\n#ifdef B\nint x;\n#endif\n", ""),
    };
    return texts;
}

INSTANTIATE_TEST_SUITE_P(Texts, GrowthTest, testing::ValuesIn(growingTexts()), testName<Growing>);

}  // namespace
}  // namespace Harness
