// The list passes and the writers for text of several lines.
#include "first/expr/Brevis_CppExprFormatterBase.h"

#include <gtest/gtest.h>

namespace Brevis {
namespace {

IndentStreamSettings settingsOf(std::string indent, bool keep = false, int column = 8) {
    IndentStreamSettings settings;
    settings.indent = std::move(indent);
    settings.keepLeadingWs = keep;
    settings.tabSize = 4;
    settings.column = column;
    return settings;
}

Scheme directivesAt(bool leftMost) {
    Scheme scheme;
    scheme.alignPpdLeftMost = leftMost;
    scheme.leftMargin = {true, ""};
    scheme.tabSize = 4;
    return scheme;
}

WsProperty ws(const char* text) { return {true, text}; }

struct ListCase {
    const char* text;
    WsProperty before;
    WsProperty after;
    const char* separated;
    const char* around;
};

class ListPasses : public testing::TestWithParam<ListCase> {};

TEST_P(ListPasses, bothWays) {
    const ListCase& c = GetParam();
    const Scheme scheme = directivesAt(true);
    const CppExprFormatterBase base(scheme);
    const IndentStreamSettings settings = settingsOf("    ");
    EXPECT_EQ(base.formatSeparated(c.text, Trn::Kind::Comma, c.before, c.after, settings), c.separated);
    EXPECT_EQ(base.formatAround(c.text, Trn::Kind::Comma, c.before, c.after, settings), c.around);
}

const ListCase cases[] = {
    {"a , b ,c", noWs, noWs, "a , b ,c", "a , b ,c"},
    {"a , b ,c", ws(""), ws(" "), "a, b, c", "a, b, c"},
    {"a, b, c", noWs, newlineWs, "a,\n        b,\n        c", "a,\n    b,\n    c"},
    {"a, b", newlineWs, ws(" "), "a\n      , b", "a\n    , b"},
    {"a, b", newlineWs, newlineWs, "a\n      ,\n      b", "a\n    ,\n    b"},
    {"f(a,b),[c,d],{e,f}", noWs, ws(" "), "f(a,b), [c,d], {e,f}", "f(a,b), [c,d], {e,f}"},
    // A comparison hides the separators behind it, and so does a stray closing bracket
    {"a<b,c", noWs, ws(" "), "a<b,c", "a<b,c"},
    {"a),c,d", noWs, ws(" "), "a),c,d", "a),c,d"},
    // Comments and directives behind a separator
    {"a, // x\n b", noWs, newlineWs, "a, // x\n    b", "a, // x\n    b"},
    {"a, /* x */ b,c", noWs, ws("  "), "a,  /* x */ b,  c", "a, /* x */ b,  c"},
    {"a, /* x\n    y */ b", noWs, newlineWs, "a,\n        /* x\n         y */ b", "a, /* x\n            y */ b"},
    {"a,\n#if 1\nb", noWs, ws(" "), "a,\n#if 1\n    b", "a,\n#if 1\n    b"},
    {"a,\n  #if 1\nb", noWs, newlineWs, "a,\n#if 1\n    b", "a,\n#if 1\n    b"},
    {"a\n  #if 1\n", noWs, ws(" "), "a\n#if 1\n", "a\n    #if 1\n"},
    {"a // x\n, b", ws(""), ws(" "), "a // x\n    , b", "a // x\n    , b"},
    // Ends
    {"a,  ", noWs, ws(" "), "a, ", "a, "},
    {"  ,b", ws(" "), ws(" "), " , b", " , b"},
    {"", ws(" "), ws(" "), "", ""},
    // White space behind a backslash at a line end stays
    {"a \\\n   ,\\\n  b", ws(" "), ws(" "), "a \\\n   ,\\\n  b", "a \\\n   ,\\\n  b"},
};

INSTANTIATE_TEST_SUITE_P(Cases, ListPasses, testing::ValuesIn(cases));

TEST(ListPasses, emptyLinesOfACommentStay) {
    const Scheme scheme = directivesAt(false);
    const CppExprFormatterBase base(scheme);
    const std::string_view comment = "      /* a\n\n\t  * b\n   c */";
    ITextDocStream in(comment, 4);
    OIndentStream out(settingsOf("  ", false, 0));
    base.writeMultiLine({1, 7}, {4, 7}, in, out);
    EXPECT_EQ(out.str(), "  /* a\n\n  * b\n  c */");
}

TEST(ListPasses, directivesGoByTheirProperty) {
    const std::string_view directive = "  #d \\\n     e \\\n c\n";
    const auto write = [&](const Scheme& scheme) {
        const CppExprFormatterBase base(scheme);
        ITextDocStream in(directive, 4);
        OIndentStream out(settingsOf("    ", false, 0));
        base.writeDirective({1, 3}, {4, 0}, in, out);
        return out.takeStr();
    };
    EXPECT_EQ(write(Scheme()), "  #d \\\n     e \\\n c\n");
    EXPECT_EQ(write(directivesAt(true)), "#d \\\n   e \\\nc\n");
    EXPECT_EQ(write(directivesAt(false)), "    #d \\\n       e \\\n    c\n");
}

}  // namespace
}  // namespace Brevis
