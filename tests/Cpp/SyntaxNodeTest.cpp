// The nodes: how they answer for their positions, what they refuse, how they are copied and visited.
#include <gtest/gtest.h>

#include <string>

#include "Cpp_Nodes.h"

namespace Cpp {
namespace {

constexpr Position none{}, p1{1, 1}, p2{1, 5}, p3{2, 1}, p4{2, 9}, p5{3, 3};

TEST(SyntaxNode, PositionsOfListsComeFromTheEnds) {
    RootNode root;
    EXPECT_EQ(root.firstPosition(), none);
    root.setLastPosition(p3);
    EXPECT_EQ(root.lastPosition(), none);
    root.addChild(std::make_unique<ExprNode>("a", p1, p2));
    root.addChild(std::make_unique<ExprNode>("b", p3, p4));
    root.addChild(nullptr);
    EXPECT_EQ(root.childCount(), 2);
    EXPECT_EQ(root.firstPosition(), p1);
    EXPECT_EQ(root.lastPosition(), p4);
    root.setLastPosition(p5);
    EXPECT_EQ(root.child(1).lastPosition(), p5);
    EXPECT_EQ(root.child(0).lastPosition(), p2);
}

TEST(SyntaxNode, BlocksFallBackOnTheirChildren) {
    BlockNode single;
    EXPECT_EQ(single.firstPosition(), none);
    single.addChild(std::make_unique<ExprNode>("a", p1, p2));
    EXPECT_EQ(single.firstPosition(), p1);
    EXPECT_EQ(single.lastPosition(), p2);
    single.setLastPosition(p3);
    EXPECT_EQ(single.lastPosition(), p3);
    EXPECT_EQ(BlockNode(p4, p5).firstPosition(), p4);

    // A class body only answers with what it stores.
    ClassBodyNode body;
    body.addChild(std::make_unique<ExprNode>("a", p1, p2));
    EXPECT_EQ(body.firstPosition(), none);
}

TEST(SyntaxNode, StoredEndsGoBeforeMembers) {
    DataDeclNode data;
    EXPECT_EQ(data.lastPosition(), none);
    data.name = std::make_unique<IdNode>("x", p2, p3);
    data.initializer = std::make_unique<ExprNode>("= 1", p3, p5);
    EXPECT_EQ(data.firstPosition(), p2);
    EXPECT_EQ(data.lastPosition(), p5);
    data.setLastPosition(p4);
    EXPECT_EQ(data.lastPosition(), p4);
    EXPECT_EQ(data.initializer->lastPosition(), p5);

    CaseNode label;
    label.setLastPosition(p4);
    EXPECT_EQ(label.firstPosition(), p4);
    label.value = std::make_unique<ExprNode>("1", p1, p2);
    EXPECT_EQ(label.firstPosition(), p1);

    CtrlSubStmtHeadNode head;
    head.setFirstPosition(p1);
    EXPECT_EQ(head.firstPosition(), none);
}

TEST(SyntaxNode, ConstructorsOrderTheirMembersByPlace) {
    CtorDeclNode ctor;
    ctor.initializers = std::make_unique<InitializerListNode>();
    ctor.initializers->addChild(std::make_unique<ExprNode>("a", p2, p3));
    EXPECT_EQ(ctor.firstPosition(), p2);
    ctor.body = std::make_unique<BlockNode>(p4, p5);
    ctor.head = std::make_unique<FunctionHeadNode>();
    ctor.head->name = std::make_unique<IdNode>("A", p1, p1);
    EXPECT_EQ(ctor.firstPosition(), p1);
    EXPECT_EQ(ctor.lastPosition(), p5);
    ctor.setLastPosition(p4);
    EXPECT_EQ(ctor.body->lastPosition(), p4);
}

TEST(SyntaxNode, LeavesRefuseWhatTheyCannotHold) {
    EXPECT_THROW(IdNode(""), InvalidId);
    EXPECT_NO_THROW(KeywordNode(53));
    KeywordNode keyword(103);
    EXPECT_THROW(KeywordNode(52), InvalidKeyword);
    EXPECT_THROW(keyword.setKind(104), InvalidKeyword);
    EXPECT_EQ(keyword.kind(), 103);
}

TEST(SyntaxNode, CommentBodies) {
    const std::pair<std::string, std::string> cases[] = {
        {"", ""},           {"/", ""},        {"//", ""},       {"/**/", ""}, {"/*/", ""}, {"// a \n", " a \n"},
        {"/* a */", " a "}, {"/* a", "/* a"}, {"  // b", " b"}, {"  x", "x"}, {"ab", "ab"},
    };
    for (const auto& [text, body] : cases) EXPECT_EQ(CommentNode(text).commentBody(), body) << text;
    EXPECT_TRUE(CommentNode("//").isLineComment());
    EXPECT_TRUE(CommentNode("/*").isBlockComment());
    CommentNode region("// a");
    region.verbatim = true;
    EXPECT_FALSE(region.isLineComment());
    EXPECT_FALSE(CommentNode("/").isBlockComment());
}

TEST(SyntaxNode, ClonesAreDeepAndOfTheSameClass) {
    RootNode root;
    auto function = std::make_unique<CtorDeclNode>();
    function->head = std::make_unique<FunctionHeadNode>();
    function->head->parameters = std::make_unique<ParameterListNode>(p1, p2);
    function->head->pureSpec = std::make_unique<ExprNode>("= 0", p3, p4);
    function->body = std::make_unique<BlockNode>();
    function->body->addChild(std::make_unique<CommentNode>("// a", p3, p3));
    root.addChild(std::move(function));

    const auto copy = root.clone();
    root.eraseChildren(root.begin(), root.end());
    auto& function2 = dynamic_cast<CtorDeclNode&>(dynamic_cast<RootNode&>(*copy).child(0));
    EXPECT_EQ(dynamic_cast<CommentNode&>(function2.body->child(0)).text, "// a");
    // The copy of a function head stores the end that its source computed.
    EXPECT_EQ(function2.head->endPosition, p4);
    EXPECT_EQ(DataDeclNode(*std::make_unique<DataDeclNode>()).endPosition, none);
}

TEST(SyntaxNode, VisitsArriveByClass) {
    struct Recorder : Emitter {
        std::string seen;
        using Emitter::visit;
        void visit(TextNode&) override { seen += "text "; }
        void visit(CommentNode&) override { seen += "comment "; }
        void visit(FunctionDeclNode&) override { seen += "function "; }
        void visit(CtorDeclNode&) override { seen += "ctor "; }
        void visit(SyntaxNode&) override { seen += "any "; }
    } recorder;
    std::vector<std::unique_ptr<SyntaxNode>> nodes;
    nodes.push_back(std::make_unique<TextNode>());
    nodes.push_back(std::make_unique<CommentNode>());
    nodes.push_back(std::make_unique<CtorDeclNode>());
    nodes.push_back(std::make_unique<FunctionDeclNode>());
    nodes.push_back(std::make_unique<ArgNode>());
    nodes.push_back(std::make_unique<ArgListNode>());
    nodes.push_back(std::make_unique<FunctionReturnNode>());
    for (const auto& node : nodes) node->accept(recorder);
    EXPECT_EQ(recorder.seen, "text comment ctor function any any ");
}

}  // namespace
}  // namespace Cpp
