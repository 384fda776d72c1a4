// The remover: which nodes a range takes along, and that many ranges in one walk leave what single runs leave.
#include "Cpp_NodeRangeRemover.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>
#include <vector>

#include "Trn_NestingGuard.h"

namespace Cpp {
namespace {

// Writes a tree as `class:name{...}`, a missing member as `-`.
class Sketch : public Emitter {
public:
    static std::string of(SyntaxNode& node) {
        Sketch sketch;
        node.accept(sketch);
        return sketch.text_;
    }

    using Emitter::visit;
    void visit(RootNode& node) override { children(node); }
    void visit(BlockNode& node) override { children(node); }
    void visit(ClassBodyNode& node) override { children(node); }
    void visit(CtrlStmtNode& node) override { children(node); }
    void visit(InitializerListNode& node) override { children(node); }
    void visit(CommentNode& node) override { text_ += "#" + node.text; }
    void visit(ExprNode& node) override { text_ += node.text; }
    void visit(ClassHeadNode&) override { text_ += "head"; }
    void visit(FunctionHeadNode&) override { text_ += "head"; }
    void visit(CtrlSubStmtHeadNode&) override { text_ += "head"; }
    void visit(ClassDeclNode& node) override { members("class:", node.head, node.body); }
    void visit(FunctionDeclNode& node) override { members("fn:", node.head, node.body); }
    void visit(CtorDeclNode& node) override { members("ctor:", node.head, node.initializers, node.body); }
    void visit(CtrlSubStmtNode& node) override { members("sub:", node.head, node.body); }

private:
    void children(InteriorNode& node) {
        text_ += "{";
        for (auto& child : node) {
            child->accept(*this);
            text_ += " ";
        }
        text_ += "}";
    }

    template <class Member>
    void member(Member& node) {
        if (node) {
            node->accept(*this);
        } else {
            text_ += "-";
        }
        text_ += " ";
    }

    template <class... Members>
    void members(const char* name, Members&... nodes) {
        text_ += name;
        (member(nodes), ...);
    }

    std::string text_;
};

CommentNode* addComment(InteriorNode& parent, const std::string& text) {
    auto comment = std::make_unique<CommentNode>(text);
    CommentNode* const result = comment.get();
    parent.addChild(std::move(comment));
    return result;
}

void addExpr(InteriorNode& parent, const std::string& text) { parent.addChild(std::make_unique<ExprNode>(text)); }

template <class Node, class Head, class Body>
Body& addDecl(InteriorNode& parent) {
    auto node = std::make_unique<Node>();
    node->head = std::make_unique<Head>();
    node->body = std::make_unique<Body>();
    Body& body = *node->body;
    parent.addChild(std::move(node));
    return body;
}

ClassBodyNode& addClass(InteriorNode& parent) { return addDecl<ClassDeclNode, ClassHeadNode, ClassBodyNode>(parent); }
BlockNode& addFunction(InteriorNode& parent) { return addDecl<FunctionDeclNode, FunctionHeadNode, BlockNode>(parent); }
BlockNode& addPart(InteriorNode& parent) { return addDecl<CtrlSubStmtNode, CtrlSubStmtHeadNode, BlockNode>(parent); }

template <class Node>
Node& addNode(InteriorNode& parent) {
    auto node = std::make_unique<Node>();
    Node& result = *node;
    parent.addChild(std::move(node));
    return result;
}

std::string afterRemoving(RootNode& root, const SyntaxNode& first, const SyntaxNode& last) {
    NodeRangeRemover remover(first, last);
    remover.visit(root);
    return Sketch::of(root);
}

TEST(NodeRangeRemover, TakesWhatLiesBetweenNeighbours) {
    RootNode root;
    addExpr(root, "a");
    const auto* first = addComment(root, "1");
    const auto* last = addComment(root, "2");
    addExpr(root, "b");
    EXPECT_EQ(afterRemoving(root, *first, *last), "{a #2 b }");
    EXPECT_EQ(root.childCount(), 3);

    // The last one stays and opens the next range; whole subtrees go.
    addExpr(addFunction(root), "c");
    const auto* end = addComment(root, "3");
    EXPECT_EQ(afterRemoving(root, *last, *end), "{a #3 }");
}

TEST(NodeRangeRemover, TakesTheWholeParentThatTheWalkLeavesInside) {
    RootNode root;
    auto& body = addClass(root);
    addExpr(body, "in front");
    const auto* first = addComment(body, "1");
    addExpr(root, "a");
    const auto* last = addComment(root, "2");
    addExpr(root, "b");
    EXPECT_EQ(afterRemoving(root, *first, *last), "{#2 b }");
}

TEST(NodeRangeRemover, EmptiesTheParentsOfTheEnd) {
    RootNode root;
    auto& body = addClass(root);
    const auto* first = addComment(body, "1");
    auto& block = addFunction(body);
    addExpr(block, "gone");
    const auto* last = addComment(block, "2");
    addExpr(block, "stays");
    EXPECT_EQ(afterRemoving(root, *first, *last), "{class:head {fn:- {#2 stays }  }  }");
}

TEST(NodeRangeRemover, MeetsTheMembersInTheOrderOfTheWalk) {
    RootNode root;
    const auto* first = addComment(root, "1");
    auto ctor = std::make_unique<CtorDeclNode>();
    ctor->head = std::make_unique<FunctionHeadNode>();
    ctor->initializers = std::make_unique<InitializerListNode>();
    addNode<InitializerNode>(*ctor->initializers);
    const auto* second = addComment(*ctor->initializers, "2");
    ctor->body = std::make_unique<BlockNode>();
    addExpr(*ctor->body, "a");
    const auto* third = addComment(*ctor->body, "3");
    root.addChild(std::move(ctor));
    EXPECT_EQ(afterRemoving(root, *first, *second), "{ctor:- {#2 } {a #3 }  }");
    EXPECT_EQ(afterRemoving(root, *second, *third), "{ctor:- - {#3 }  }");
}

TEST(NodeRangeRemover, WithoutOneOfItsEnds) {
    const CommentNode elsewhere("9");
    RootNode root;
    addExpr(root, "a");
    const auto* first = addComment(root, "1");
    addExpr(addClass(root), "b");
    EXPECT_EQ(afterRemoving(root, elsewhere, *first), "{a #1 class:head {b }  }");
    EXPECT_EQ(afterRemoving(root, *first, elsewhere), "{a }");
}

TEST(NodeRangeRemover, RefusesATreeThatIsTooDeep) {
    RootNode root;
    InteriorNode* inner = &root;
    for (int depth = 1; depth < Trn::NestingGuard::limit; ++depth) inner = &addNode<BlockNode>(*inner);
    const auto* first = addComment(*inner, "1");
    const auto* last = addComment(*inner, "2");
    NodeRangeRemover(*first, *last).visit(root);
    EXPECT_EQ(inner->childCount(), 1);
    addNode<BlockNode>(*inner);
    EXPECT_THROW(NodeRangeRemover(*first, *last).visit(root), Trn::Exception);
}

// ---- Many ranges

// Adds random children and notes the comments in the order of the walk.
void grow(InteriorNode& parent, std::mt19937& random, int depth, std::vector<const CommentNode*>& comments) {
    for (std::size_t count = random() % 6; count > 0; --count) {
        switch (depth == 0 ? random() % 2 : random() % 6) {
            case 0:
                comments.push_back(addComment(parent, std::to_string(comments.size())));
                break;
            case 1:
                addExpr(parent, "x");
                break;
            case 2:
                grow(addNode<BlockNode>(parent), random, depth - 1, comments);
                break;
            case 3:
                grow(addClass(parent), random, depth - 1, comments);
                break;
            case 4:
                grow(addFunction(parent), random, depth - 1, comments);
                break;
            default:
                grow(addPart(addNode<CtrlStmtNode>(parent)), random, depth - 1, comments);
                break;
        }
    }
}

// Disjoint ranges of the comments, in order.
std::vector<std::pair<std::size_t, std::size_t>> randomRanges(std::size_t count, std::mt19937& random) {
    std::vector<std::pair<std::size_t, std::size_t>> ranges;
    for (std::size_t first = random() % 3, last; (last = first + 1 + random() % 3) < count;
         first = last + 1 + random() % 3) {
        ranges.emplace_back(first, last);
    }
    return ranges;
}

TEST(NodeRangeRemover, ManyRangesLeaveWhatSingleRunsLeave) {
    int withSeveral = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        std::mt19937 random(seed), sameRandom(seed);
        RootNode root, other;
        std::vector<const CommentNode*> comments, others;
        grow(root, random, 4, comments);
        grow(other, sameRandom, 4, others);
        const auto ranges = randomRanges(comments.size(), random);
        withSeveral += ranges.size() > 1 ? 1 : 0;

        NodeRangeRemover remover;
        for (const auto& [first, last] : ranges) {
            remover.addRange(*comments[first], *comments[last]);
            NodeRangeRemover(*others[first], *others[last]).visit(other);
        }
        remover.visit(root);
        ASSERT_EQ(Sketch::of(root), Sketch::of(other)) << "seed " << seed;
    }
    EXPECT_GT(withSeveral, 100);
}

}  // namespace
}  // namespace Cpp
