// Measures data declarations up to the end of their names.
#include "first/align/Brevis_DataOffsetCalculator.h"

#include <algorithm>

#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_StreamColumns.h"

namespace Brevis {

// A declaration with a type and no initializer is passed over: it neither joins the group nor ends it.
void DataOffsetCalculator::visit(Cpp::DataDeclNode& node) {
    if (node.initializer || !node.type) {
        pending_.push_back(&node);
        maxWidth_ = std::max(maxWidth_, widthOf(node));
    }
    clearTemplate();
}

int DataOffsetCalculator::widthOf(const Cpp::DataDeclNode& node) const {
    if (!node.name) {
        return node.type ? sameLineDistance(node.type->firstPosition(), node.type->lastPosition()) : 0;
    }
    // With the names in one column, what stands in front of them doesn't count.
    const bool fromName = alignNames_ || !node.type;
    const Position start = fromName ? node.name->firstPosition() : node.type->firstPosition();
    return sameLineDistance(start, node.name->lastPosition()) + 1;
}

void DataOffsetCalculator::visit(Cpp::FunctionDeclNode& node) { visitFunction(node); }

void DataOffsetCalculator::visit(Cpp::CtorDeclNode& node) { visitFunction(node); }

void DataOffsetCalculator::visitFunction(Cpp::FunctionDeclNode& node) {
    clearTemplate();
    closeAndEnter(node.body.get());
}

// The width is the column as it stands: the formatter rounds it.
void DataOffsetCalculator::endGroup() {
    for (const Cpp::SyntaxNode* node : pending_) columns_[node] = maxWidth_;
    pending_.clear();
    maxWidth_ = 0;
}

}  // namespace Brevis
