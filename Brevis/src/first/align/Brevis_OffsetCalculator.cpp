// The walk of the alignment passes.
#include "first/align/Brevis_OffsetCalculator.h"

namespace Brevis {

void OffsetCalculator::visit(Cpp::BlockNode& node) {
    endGroup();
    visitChildren(node);
    endGroup();
}

void OffsetCalculator::visit(Cpp::ClassDeclNode& node) {
    clearTemplate();
    closeAndEnter(node.body.get());
}

void OffsetCalculator::visit(Cpp::TemplateNode& node) {
    afterTemplate_ = true;
    templatePosition_ = node.firstPosition();
}

void OffsetCalculator::visitChildren(Cpp::InteriorNode& node) {
    for (const auto& child : node) child->accept(*this);
}

void OffsetCalculator::closeBehind(Cpp::InteriorNode& node) {
    visitChildren(node);
    endGroup();
}

void OffsetCalculator::closeAndEnter(Cpp::SyntaxNode* body) {
    endGroup();
    if (body) body->accept(*this);
}

Cpp::Position OffsetCalculator::startOf(const Cpp::SyntaxNode& node) const {
    return afterTemplate_ ? templatePosition_ : node.firstPosition();
}

}  // namespace Brevis
