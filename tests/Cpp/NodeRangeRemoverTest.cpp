// The remover: which nodes a range takes along, and that many ranges in one walk leave what single runs leave.
#include "Cpp_NodeRangeRemover.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"

namespace Cpp {
namespace {

// Writes a tree as `{...}` for lists and `(...)` for declarations, a missing member as `-`, and notes its comments.
class Sketch : public Emitter {
public:
    explicit Sketch(RootNode& root) { root.accept(*this); }

    std::string text;
    std::vector<const CommentNode*> comments;

    using Emitter::visit;
    void visit(RootNode& node) override { children(node); }
    void visit(BlockNode& node) override { children(node); }
    void visit(ClassBodyNode& node) override { children(node); }
    void visit(CtrlStmtNode& node) override { children(node); }
    void visit(ClassDeclNode& node) override { members(node.head, node.body); }
    void visit(FunctionDeclNode& node) override { members(node.head, node.body); }
    void visit(CtrlSubStmtNode& node) override { members(node.head, node.body); }
    void visit(ClassHeadNode&) override { text += "class"; }
    void visit(FunctionHeadNode&) override { text += "fn"; }
    void visit(CtrlSubStmtHeadNode&) override { text += "if"; }
    void visit(ExprNode& node) override { text += node.text; }
    void visit(CommentNode& node) override {
        text += node.text;
        comments.push_back(&node);
    }

private:
    void children(InteriorNode& node) {
        text += "{";
        for (auto& child : node) child->accept(*this);
        text += "}";
    }
    template <class... Members>
    void members(Members&... nodes) {
        text += "(";
        ((nodes ? nodes->accept(*this) : void(text += "-")), ...);
        text += ")";
    }
};

// The text must outlive the tree.
void parse(std::string_view text, RootNode& root) {
    Lexer lexer(text);
    Trn::ParseMessageList messages;
    Parser().parse(lexer, root, messages);
    ASSERT_TRUE(messages.empty()) << text;
}

TEST(NodeRangeRemover, TakesWhatLiesBetweenTwoComments) {
    // The range goes from the first comment to the last one.
    const struct {
        const char* text;
        const char* expected;
    } cases[] = {
        {"return a; /*1*/ /*2*/ return b;", "{return a;/*2*/return b;}"},
        {"/*1*/ void f() { g(); } class A { }; /*2*/ return b;", "{/*2*/return b;}"},
        // A declaration that the walk leaves inside goes whole, what stands in front of the range included.
        {"class A { void f(); /*1*/ }; return a; /*2*/", "{/*2*/}"},
        // Round the end the parents stay, without what came before it.
        {"class A { void f(); /*1*/ void g() { a(); /*2*/ b(); } };", "{(class{(fn-)(-{/*2*/b;})})}"},
        {"void f() { if (a) { /*1*/ b(); } else { /*2*/ c(); } }", "{(fn{{(-{/*2*/c;})}})}"},
        {"void f() { if (a) { /*1*/ b(); } c(); /*2*/ }", "{(fn{/*2*/})}"},
    };
    for (const auto& test : cases) {
        RootNode root;
        parse(test.text, root);
        const Sketch before(root);
        NodeRangeRemover(*before.comments.front(), *before.comments.back()).visit(root);
        EXPECT_EQ(Sketch(root).text, test.expected) << test.text;
    }
}

TEST(NodeRangeRemover, WithoutOneOfItsEnds) {
    const CommentNode elsewhere("9");
    RootNode root;
    parse("return a; /*1*/ void f() { }", root);
    const CommentNode& comment = *Sketch(root).comments.front();
    NodeRangeRemover(elsewhere, comment).visit(root);
    EXPECT_EQ(Sketch(root).text, "{return a;/*1*/(fn{})}");
    NodeRangeRemover(comment, elsewhere).visit(root);
    EXPECT_EQ(Sketch(root).text, "{return a;}");
}

// ---- Many ranges

std::string randomBody(std::mt19937& random, int depth) {
    std::string body = "{ ";
    for (std::size_t count = random() % 6; count > 0; --count) {
        const bool isDeep = depth == 0;
        switch (random() % (isDeep ? 3 : 5)) {
            case 0:
                body += "a(); ";
                break;
            case 3:
                body += "if (a) " + randomBody(random, depth - 1) + "else " + randomBody(random, depth - 1);
                break;
            case 4:
                body += randomBody(random, depth - 1);
                break;
            default:
                body += "/*c*/ ";
        }
    }
    return body + "} ";
}

TEST(NodeRangeRemover, ManyRangesLeaveWhatSingleRunsLeave) {
    int withSeveral = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        std::mt19937 random(seed);
        const std::string text =
            "class A { void f() " + randomBody(random, 3) + "/*c*/ void g() " + randomBody(random, 3) + "};";
        RootNode root, other;
        parse(text, root);
        parse(text, other);
        const auto comments = Sketch(root).comments;
        const auto others = Sketch(other).comments;

        NodeRangeRemover remover;
        std::size_t ranges = 0;
        for (std::size_t first = random() % 3, last; (last = first + 1 + random() % 3) < comments.size(); ++ranges) {
            remover.addRange(*comments[first], *comments[last]);
            NodeRangeRemover(*others[first], *others[last]).visit(other);
            first = last + 1 + random() % 3;
        }
        remover.visit(root);
        ASSERT_EQ(Sketch(root).text, Sketch(other).text) << text;
        withSeveral += ranges > 1 ? 1 : 0;
    }
    EXPECT_GT(withSeveral, 100);
}

}  // namespace
}  // namespace Cpp
