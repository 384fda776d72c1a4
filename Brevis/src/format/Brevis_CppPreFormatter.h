// The pass that folds marked regions of source, which are to be left alone, into single comment nodes. It changes the
// tree; it reads no source text.
#pragma once

#include <string>
#include <vector>

#include "Cpp_Nodes.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Brevis {

// Run by `root.accept(preFormatter)`, for any number of trees in turn.
//
// A comment that consists of an opening marker opens a region, and the next comment that consists of its closing marker
// closes it. The closing comment then stands for the whole region: it has the positions of both comments, no text and
// its `verbatim` flag set, and the nodes in front of it, the opening comment included, are gone. A region that is never
// closed is no region.
class CppPreFormatter : public Cpp::Emitter {
public:
    explicit CppPreFormatter(RegionTable regions) : regions_(std::move(regions)) {}

    using Emitter::visit;
    void visit(Cpp::RootNode& root) override;
    void visit(Cpp::CommentNode& comment) override;

    void visit(Cpp::FunctionPtrDeclNode& node) override { visitMember(node.parameters); }
    void visit(Cpp::LinkageBlockNode& node) override { visitMember(node.body); }
    void visit(Cpp::EnumDeclNode& node) override { visitMember(node.body); }
    void visit(Cpp::TemplateNode& node) override { visitMember(node.parameters); }
    void visit(Cpp::CtrlSubStmtNode& node) override { visitMember(node.body); }
    void visit(Cpp::FunctionHeadNode& node) override { visitMember(node.parameters); }
    void visit(Cpp::NamespaceDeclNode& node) override { visitMember(node.body); }
    void visit(Cpp::ClassHeadNode& node) override { visitMember(node.bases); }
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;
    void visit(Cpp::ClassDeclNode& node) override;

    void visit(Cpp::LinkageBlockBodyNode& node) override { walkChildren(node); }
    void visit(Cpp::EnumBodyNode& node) override { walkChildren(node); }
    void visit(Cpp::CtrlStmtNode& node) override { walkChildren(node); }
    void visit(Cpp::InitializerListNode& node) override { walkChildren(node); }
    void visit(Cpp::ParameterListNode& node) override { walkChildren(node); }
    void visit(Cpp::BlockNode& node) override { walkChildren(node); }
    void visit(Cpp::NamespaceBodyNode& node) override { walkChildren(node); }
    void visit(Cpp::ClassBodyNode& node) override { walkChildren(node); }
    void visit(Cpp::BaseClauseListNode& node) override { walkChildren(node); }

private:
    struct Region {
        const Cpp::CommentNode* start;
        const Cpp::CommentNode* end;
    };

    void walkChildren(Cpp::InteriorNode& node);
    void openRegion(const Cpp::CommentNode& comment, const std::string& marker);
    void closeRegion(Cpp::CommentNode& comment);
    void removeRegions(Cpp::RootNode& root);

    template <class Member>
    void visitMember(Member& member) {
        if (member) member->accept(*this);
    }

    const RegionTable regions_;

    // State of one run
    const Cpp::CommentNode* regionStart_ = nullptr;
    std::string closeMarker_;  // empty while no region is open
    std::vector<Region> found_;
    int depth_ = 0;
};

}  // namespace Brevis
