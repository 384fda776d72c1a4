// The walk of the alignment passes.
#include "align/Brevis_OffsetCalculator.h"

#include <algorithm>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace Brevis {

OffsetCalculator::OffsetCalculator(const PropertySet& properties) {
    std::int32_t tabSize = 1;
    properties.getInt(Key::TAB_SIZE, tabSize);
    tabSize_ = std::max(tabSize, 1);
}

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
