// The report of changed gaps: what it names, and that it tells of every change.
#include "second/Brevis_GapReport.h"

#include <gtest/gtest.h>

#include <sstream>

#include "Brevis_Formatter.h"
#include "Trn_Escapes.h"

namespace Brevis {
namespace {

PropertySet parsed(const std::string& properties) {
    PropertySet scheme;
    std::istringstream in("Brevis::PropertySet\n1\n\"s\"\n2 EDITION 2\n2 TAB_SIZE 4\n" + properties);
    scheme.read(in);
    EXPECT_FALSE(in.bad()) << properties;
    return scheme;
}

struct ReportCase {
    const char* scheme;
    const char* source;
    const char* expected;  // a line a change: place, first line, name, old and new white space
};

constexpr ReportCase reportCases[] = {
    {"", "int  a ;\n", ""},
    // Properties, and an indent by the key of its scope.
    {"3 WS_BEFORE_FN_OPEN_BRACE \"\\n\"\n3 WS_AFTER_FN_OPEN_BRACE \"\\n\"\n3 INDENT_FN_CONTENT \"  \"\n",
     "void f() { a;\n   b;\n}\n",
     "1:10 1 WS_BEFORE_FN_OPEN_BRACE ' ' '\\n'\n"
     "1:12 1 WS_AFTER_FN_OPEN_BRACE ' ' '\\n  '\n"
     "2:4 2 INDENT_FN_CONTENT '\\n   ' '\\n  '\n"},
    // A line that moves with another one, and the later lines of a comment.
    {"3 INDENT_FN_CONTENT \"   \"\n", "void f()\n{\n  a(1,\n    2); /* b\n      c */\n}\n",
     "3:3 3 INDENT_FN_CONTENT '\\n  ' '\\n   '\n"
     "4:5 4 indent '\\n    ' '\\n     '\n"
     "5:7 5 comment-line '\\n      ' '\\n       '\n"},
    // Without a blank between `/` and `*` a comment would begin.
    {"3 WS_BETWEEN_EXPR_OP_OPERANDS \"\"\n", "int x = a /  *b, y = -1;\n",
     "1:7 1 WS_BETWEEN_EXPR_OP_OPERANDS ' ' ''\n"
     "1:9 1 WS_BETWEEN_EXPR_OP_OPERANDS ' ' ''\n"
     "1:11 1 WS_BETWEEN_EXPR_OP_OPERANDS ' ' ''\n"
     "1:14 1 blank '  ' ' '\n"
     "1:20 1 WS_BETWEEN_EXPR_OP_OPERANDS ' ' ''\n"
     "1:22 1 WS_BETWEEN_EXPR_OP_OPERANDS ' ' ''\n"},
    {"2 MAX_BLANK_LINES 1\n", "int a;\n\n\n\nint b;\n", "5:1 1 MAX_BLANK_LINES '\\n\\n\\n\\n' '\\n\\n'\n"},
    {"1 REMOVE_TRAILING_WS 1\n", "int a;  \nint b;\n", "2:1 1 REMOVE_TRAILING_WS '  \\n' '\\n'\n"},
    // The source shows tabs of 8 itself: a tab for as many blanks is a conversion, and no indent of the key.
    {"2 CONVERT_WS 1\n3 INDENT_FN_CONTENT \"        \"\n", "void f() {\n        g(abc,\n\t  b);\n\th();\n}\n",
     "3:4 3 CONVERT_WS '\\n\\t  ' '\\n          '\n"
     "4:2 4 CONVERT_WS '\\n\\t' '\\n        '\n"},
    {"1 ALIGN_PPD_LEFT_MOST 1\n", "  #if A\n#endif\n", "1:3 1 ALIGN_PPD_LEFT_MOST '  ' ''\n"},
};

std::string printed(std::string_view source, const GapChange& change) {
    std::ostringstream out;
    out << change.place.line << ':' << change.place.column << ' ' << change.firstLine << ' ' << nameOf(change) << " '"
        << Trn::escape(source.substr(change.begin, change.end - change.begin)) << "' '" << Trn::escape(change.text)
        << "'\n";
    return out.str();
}

std::string applied(std::string_view source, const std::vector<GapChange>& changes) {
    std::string text;
    std::size_t place = 0;
    for (const GapChange& change : changes) {
        text.append(source.substr(place, change.begin - place)).append(change.text);
        place = change.end;
    }
    return text.append(source.substr(place));
}

TEST(GapReport, NamesWhatDecided) {
    for (const ReportCase& test : reportCases) {
        const FormatterProperties properties(parsed(test.scheme));
        Trn::ParseMessageList messages;
        const auto changes = findGapChanges(properties, test.source, messages);
        ASSERT_TRUE(changes) << test.source;
        std::string report;
        for (const GapChange& change : *changes) report += printed(test.source, change);
        EXPECT_EQ(test.expected, report) << test.source;

        // Done in the source, the changes give what a run gives.
        UpdateFunctor update;
        EXPECT_EQ(Formatter().format(properties, test.source, messages, update).text, applied(test.source, *changes));
    }
}

TEST(GapReport, RefusesWhatARunRefuses) {
    Trn::ParseMessageList messages;
    EXPECT_FALSE(findGapChanges(FormatterProperties(parsed("")), "void f() {", messages));
    EXPECT_FALSE(messages.empty());
    EXPECT_FALSE(hasGapReport(Scheme::from(PropertySet())));
}

}  // namespace
}  // namespace Brevis
