// The pass that deletes the nodes between two given nodes. It is how a region that is to be left alone disappears
// from the tree; no text is lost, since what no node covers is copied by position.
#pragma once

#include <unordered_map>

#include "Cpp_Nodes.h"

namespace Cpp {

// A range is half open in the order of the walk: `first` goes, `last` and all behind it stay. The walk judges a node
// behind its children, so a composite node is deleted when the walk leaves it inside a range, whatever it holds.
//
// Any number of ranges can be removed in one walk, which leaves the tree as one run for each of them would, provided
// that they don't overlap. A range whose `first` is never met removes nothing; one whose `last` is never met removes
// everything behind `first` but the root.
class NodeRangeRemover : public Emitter {
public:
    NodeRangeRemover() = default;
    NodeRangeRemover(const SyntaxNode& first, const SyntaxNode& last) { addRange(first, last); }

    // The two must be different nodes.
    void addRange(const SyntaxNode& first, const SyntaxNode& last) { lastOf_.emplace(&first, &last); }

    // The visit that the caller runs. Throws Trn::Exception for a tree beyond Trn::NestingGuard::limit.
    void visit(RootNode& node) override { visitInterior(node); }

    using Emitter::visit;
    void visit(AsmNode& node) override { visitMembers(node, node.text, node.block); }
    void visit(LabelNode& node) override { visitMembers(node, node.name); }
    void visit(FunctionPtrDeclNode& node) override {
        visitMembers(node, node.type, node.name, node.qualifiers, node.parameters);
    }
    void visit(LinkageBlockNode& node) override { visitMembers(node, node.head, node.body); }
    void visit(EnumDeclNode& node) override { visitMembers(node, node.head, node.body); }
    void visit(TemplateNode& node) override { visitMembers(node, node.keyword, node.parameters); }
    void visit(CaseNode& node) override { visitMembers(node, node.keyword, node.value); }
    void visit(CtrlSubStmtHeadNode& node) override { visitMembers(node, node.keyword, node.condition); }
    void visit(CtrlSubStmtNode& node) override { visitMembers(node, node.head, node.body); }
    void visit(InitializerNode& node) override { visitMembers(node, node.name, node.arguments); }
    void visit(DataDeclNode& node) override { visitMembers(node, node.type, node.name, node.initializer); }
    void visit(FunctionDeclNode& node) override { visitMembers(node, node.head, node.body); }
    void visit(CtorDeclNode& node) override { visitMembers(node, node.head, node.initializers, node.body); }
    void visit(NamespaceDeclNode& node) override { visitMembers(node, node.head, node.body); }
    void visit(ClassDeclNode& node) override { visitMembers(node, node.head, node.body); }

    void visit(ClassBodyNode& node) override { visitInterior(node); }
    void visit(EnumBodyNode& node) override { visitInterior(node); }
    void visit(NamespaceBodyNode& node) override { visitInterior(node); }
    void visit(LinkageBlockBodyNode& node) override { visitInterior(node); }
    void visit(BlockNode& node) override { visitInterior(node); }
    void visit(CtrlStmtNode& node) override { visitInterior(node); }
    void visit(ParameterListNode& node) override { visitInterior(node); }
    void visit(InitializerListNode& node) override { visitInterior(node); }
    void visit(BaseClauseListNode& node) override { visitInterior(node); }

    void visit(TextNode& node) override { updateRange(node); }
    void visit(PreprocDirectiveNode& node) override { updateRange(node); }
    void visit(CommentNode& node) override { updateRange(node); }
    void visit(ExprNode& node) override { updateRange(node); }
    void visit(TypeNode& node) override { updateRange(node); }
    void visit(KeywordNode& node) override { updateRange(node); }
    void visit(IdNode& node) override { updateRange(node); }
    void visit(ParameterNode& node) override { updateRange(node); }
    void visit(FunctionReturnNode& node) override { updateRange(node); }
    void visit(EnumHeadNode& node) override { updateRange(node); }
    void visit(NamespaceHeadNode& node) override { updateRange(node); }
    void visit(ClassNameNode& node) override { updateRange(node); }
    void visit(AccessSpecNode& node) override { updateRange(node); }
    // These two are only judged as members of their declaration, never visited.
    void visit(ClassHeadNode& node) override { updateRange(node); }
    void visit(FunctionHeadNode& node) override { updateRange(node); }
    // These do nothing: a base clause, an argument and an argument list neither open nor close a range.
    void visit(BaseClauseNode&) override {}
    void visit(SyntaxNode&) override {}

private:
    // Takes the node into account and tells whether it lies in a range.
    bool updateRange(const SyntaxNode& node);
    void walkChildren(InteriorNode& node);
    // Whether a member lies in a range. Its `accept` is not called: a head's own members are not looked at.
    bool isRemovable(SyntaxNode* member);

    void visitInterior(InteriorNode& node) {
        walkChildren(node);
        updateRange(node);
    }

    template <class... Members>
    void visitMembers(const SyntaxNode& node, Members&... members) {
        (removeIfInRange(members), ...);
        updateRange(node);
    }

    template <class Member>
    void removeIfInRange(Member& member) {
        if (isRemovable(member.get())) member.reset();
    }

    std::unordered_map<const SyntaxNode*, const SyntaxNode*> lastOf_;  // keyed by `first`
    const SyntaxNode* awaited_ = nullptr;                              // the `last` of the range that is open
    int depth_ = 0;
};

}  // namespace Cpp
