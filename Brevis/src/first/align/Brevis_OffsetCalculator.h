// The passes that divide declarations into alignment groups, and the walk that both of them share. A group is the run
// of declarations gathered between two calls of endGroup. They only read the tree, measured as it stands in the input.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "Cpp_Nodes.h"
#include "scheme/Brevis_Scheme.h"

namespace Brevis {

// Output columns relative to the indent, keyed by node; the tables live no longer than the tree.
using ColumnTable = std::unordered_map<const Cpp::SyntaxNode*, std::int32_t>;

class OffsetCalculator : public Cpp::Emitter {
public:
    explicit OffsetCalculator(const Scheme& scheme) : tabSize_(scheme.tabSize) {}

    using Emitter::visit;
    void visit(Cpp::RootNode& node) override { closeBehind(node); }
    void visit(Cpp::NamespaceBodyNode& node) override { closeBehind(node); }
    void visit(Cpp::LinkageBlockBodyNode& node) override { closeBehind(node); }
    void visit(Cpp::CtrlStmtNode& node) override { closeBehind(node); }
    void visit(Cpp::ClassBodyNode& node) override { closeBehind(node); }
    void visit(Cpp::BlockNode& node) override;
    void visit(Cpp::NamespaceDeclNode& node) override { closeAndEnter(node.body.get()); }
    void visit(Cpp::LinkageBlockNode& node) override { closeAndEnter(node.body.get()); }
    void visit(Cpp::ClassDeclNode& node) override;
    void visit(Cpp::EnumDeclNode&) override { endGroup(); }
    void visit(Cpp::ExprNode&) override { endGroup(); }
    void visit(Cpp::SyntaxNode&) override { endGroup(); }
    void visit(Cpp::AccessSpecNode&) override { endGroup(); }
    void visit(Cpp::CtrlSubStmtNode& node) override { closeAndEnter(node.body.get()); }
    void visit(Cpp::TemplateNode& node) override;

protected:
    // Gives the members of the open group their column and opens a new one.
    virtual void endGroup() = 0;

    void visitChildren(Cpp::InteriorNode& node);
    // Ends the group and visits a body, if there is one.
    void closeAndEnter(Cpp::SyntaxNode* body);

    // At least 1.
    int tabSize() const { return tabSize_; }
    // Where a declaration begins: at its template's keyword if it stands behind one.
    Cpp::Position startOf(const Cpp::SyntaxNode& node) const;
    void clearTemplate() { afterTemplate_ = false; }

private:
    void closeBehind(Cpp::InteriorNode& node);

    int tabSize_;
    bool afterTemplate_ = false;
    Cpp::Position templatePosition_;
};

}  // namespace Brevis
