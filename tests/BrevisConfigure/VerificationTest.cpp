// The checks of a formatted text.
#include "BrevisUI_Verification.h"

#include <gtest/gtest.h>

namespace BrevisUI {
namespace {

TEST(Verification, TakesLineEndsAsACompilerDoes) {
    const struct {
        std::string source;
        std::string formatted;
        Trn::Position place;  // not set: no difference
        std::string text;
    } cases[] = {
        {"// a\n b;\n",
         "// a b;\n",
         {1, 1},
         "change the code: \"// a\" stands here, \"// a b;\" would take its place."},
        {"\r\n s(R\"(\t\r)\");\n",
         "\ns(R\"(\t )\");\n",
         {2, 4},
         "\"R\"(\\t\\n)\"\" stands here, \"R\"(\\t )\"\" would"},
        {"#define A b\n", "#define A\rb\n", {1, 11}, "would not leave \"b\" what it is."},
        {"a\r\n\x01", "a\n", {2, 1}, "\"\\x01\" stands here, the end of the file would take its place."},
        {"#define A 1 \\\r\n 2\r\n// a\r\nR\"(\r\n)\";", "#define A 1 \\\n    2\n// a\nR\"(\n)\";\n", {}, ""},
        {"#define A 1 \\\r 2\r// a\rb;\r", "#define A 1 \\\n 2\n// a\nb;\n", {}, ""},
        {"\xEF\xBB\xBF"
         "a\rb /* \r */;\n",
         "\xEF\xBB\xBF"
         "a\nb /*\n */;\n",
         {},
         ""},
    };
    for (const auto& [source, formatted, place, text] : cases) {
        const auto change = findChangedToken(source, formatted);
        ASSERT_EQ(place.isSet(), change.has_value()) << source;
        if (!change) continue;
        EXPECT_EQ(3, change->severity);
        EXPECT_EQ(place, change->position) << source << change->position.line << ':' << change->position.column;
        EXPECT_NE(std::string::npos, change->text.find(text)) << change->text;
    }
}

TEST(Verification, NamesTheFirstPlaceThatASecondRunWouldChange) {
    Brevis::PropertySet scheme("two blanks");
    scheme.setString("INDENT_FN_CONTENT", "  ");
    const std::string longName(59, 'x');
    const struct {
        std::string formatted;
        Trn::Position place;  // not set: none, or none is known
        std::string text;     // empty: no warning
    } cases[] = {
        {"void f( ){\n  g( );\n}\n", {}, ""},
        {"void f( ){\n    g( );\n}\n", {2, 3}, "Another run would change this line of the result: \"    g( );\""},
        {"void f( ){\n " + longName + "\xC3\xA4();\n}\n", {2, 2}, "\" " + longName + "\""},
        {"void f( ){\n" + longName + "\xC3\xA4();\n}\n", {2, 1}, "\"" + longName + "\""},
        {"int x;\n  class A { int (; };\n", {2, 20}, "Another run would refuse the result: "},
        {"int x = " + std::string(5000, '(') + "1;\n", {}, "Another run would refuse the result: "},
    };
    for (const auto& [formatted, place, text] : cases) {
        const auto change = findSecondChange(Brevis::FormatterProperties(scheme), formatted);
        ASSERT_EQ(!text.empty(), change.has_value()) << formatted;
        if (!change) continue;
        EXPECT_EQ(2, change->severity);
        EXPECT_EQ(place, change->position) << formatted << change->position.line << ':' << change->position.column;
        EXPECT_NE(std::string::npos, change->text.find(text)) << change->text;
    }
}

}  // namespace
}  // namespace BrevisUI
