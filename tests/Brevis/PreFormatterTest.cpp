// The pre-formatter: which comments open and close a region, and what stands for the region afterwards.
#include <gtest/gtest.h>

#include <string>

#include "../support/StepCount.h"
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Trn_NestingGuard.h"
#include "first/format/Brevis_CppPreFormatter.h"

namespace Brevis {
namespace {

// The text must outlive the tree.
void parse(const std::string& text, Cpp::RootNode& root) {
    Cpp::Lexer lexer(text);
    Trn::ParseMessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    ASSERT_TRUE(messages.empty()) << text;
}

// Lists the comments of a tree: a region by its first and last line, any other by a star.
class Comments : public CppPreFormatter {
public:
    Comments() : CppPreFormatter(regionTable()) {}
    using CppPreFormatter::visit;
    void visit(Cpp::CommentNode& comment) override {
        EXPECT_EQ(comment.verbatim, comment.text.empty());
        list += comment.verbatim ? std::to_string(comment.firstPosition().line) + "-" +
                                       std::to_string(comment.lastPosition().line) + " "
                                 : "* ";
    }
    std::string list;
};

std::string comments(Cpp::RootNode& root) {
    Comments result;
    root.accept(result);
    return result.list;
}

std::string foldedComments(const std::string& text, const RegionTable& table = regionTable()) {
    Cpp::RootNode root;
    parse(text, root);
    CppPreFormatter preFormatter(table);
    root.accept(preFormatter);
    return comments(root);
}

const std::string off = "/* CV-FORMAT-OFF */\n";
const std::string on = "/* CV-FORMAT-ON */\n";

TEST(PreFormatter, FindsTheMarkersOfTheTable) {
    EXPECT_EQ(foldedComments("int a;\n// CV-FORMAT-OFF\nint b;\n// CV-FORMAT-ON\n"), "2-5 ");
    EXPECT_EQ(foldedComments("/*   CV-FORMAT-OFF   */\nint b;\n/*CV-FORMAT-ON*/"), "1-3 ");
    EXPECT_EQ(foldedComments("//{{AFX_MSG(X)\n//{{AFX_MSG\nint b; // c\n/*AFX_MSG}}*/"), "* 2-4 ");
    EXPECT_EQ(foldedComments("/*{{{AFX_DISP*/\nint b;\n/*AFX_DISP}}}*/"), "1-3 ");
    EXPECT_EQ(foldedComments(off + on + off + on + "// c\n"), "1-2 3-4 * ");
    EXPECT_EQ(foldedComments(off + "//{{AFX_MSG\n" + on + "//AFX_MSG}}\n"), "1-3 * ");
    // These open or close nothing.
    EXPECT_EQ(foldedComments("// CV-FORMAT-OFF now\n" + on), "* * ");
    EXPECT_EQ(foldedComments("// cv-format-off\n" + on), "* * ");
    EXPECT_EQ(foldedComments(off + "int b;\n"), "* ");
    EXPECT_EQ(foldedComments(off + "//AFX_MSG}}\n"), "* * ");
    EXPECT_EQ(foldedComments(off + on, {}), "* * ");
}

TEST(PreFormatter, LooksIntoAllLists) {
    const std::string region = off + on;
    EXPECT_EQ(foldedComments("extern \"C\" {" + region + "}"), "1-2 ");
    EXPECT_EQ(foldedComments("enum E { a,\n" + region + "};"), "2-3 ");
    EXPECT_EQ(foldedComments("namespace N { class A {\n" + region + "}; }"), "2-3 ");
    EXPECT_EQ(foldedComments("A::A() : a(1) {\n" + region + "{" + region + "} }"), "2-3 4-5 ");
    EXPECT_EQ(foldedComments("void f() { if (a) {\n" + region + "}\n" + region + "else {\n" + region + "} }"),
              "2-3 5-6 8-9 ");
    EXPECT_EQ(foldedComments("void f() {\n" + off + "{ int a;\n" + on + off + "} }\nint b;\n" + on), "5-8 ");
}

TEST(PreFormatter, ServesSeveralTrees) {
    CppPreFormatter preFormatter(regionTable());
    const std::string text = on + off + on;
    Cpp::RootNode open, closed;
    parse(off, open);
    parse(text, closed);
    open.accept(preFormatter);
    closed.accept(preFormatter);
    EXPECT_EQ(comments(closed), "* 2-3 ");
}

TEST(PreFormatter, RefusesATreeThatIsTooDeep) {
    Cpp::RootNode root;
    Cpp::InteriorNode* inner = &root;
    for (int depth = 0; depth < Trn::NestingGuard::limit; ++depth) {
        inner->addChild(std::make_unique<Cpp::BlockNode>());
        inner = static_cast<Cpp::BlockNode*>(&inner->child(0));
    }
    CppPreFormatter preFormatter(regionTable());
    EXPECT_THROW(root.accept(preFormatter), Trn::Exception);
}

// A walk of the remover for each region would take 64 times as long for 8 times the regions.
TEST(PreFormatterGrowth, IsThatOfTheNumberOfRegions) {
    const auto cost = [](int regions) {
        std::string text;
        for (int i = 0; i < regions; ++i) text += off + "int a;" + on + "int b;";
        Cpp::RootNode root;
        parse(text, root);
        CppPreFormatter preFormatter(regionTable());
        const StepCount::Cost result = StepCount::of([&] { root.accept(preFormatter); });
        EXPECT_EQ(root.childCount(), 2 * regions);
        return result;
    };
    const StepCount::Cost once = cost(1000), more = cost(8000);
    EXPECT_TRUE(StepCount::isWithin(more, 10, once)) << once << ", then " << more;
}

}  // namespace
}  // namespace Brevis
