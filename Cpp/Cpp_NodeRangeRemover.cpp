// The walk of the remover. It changes the shape of the tree and nothing else.
#include "Cpp_NodeRangeRemover.h"

#include <algorithm>

#include "Trn_NestingGuard.h"

namespace Cpp {

bool NodeRangeRemover::updateRange(const SyntaxNode& node) {
    if (awaited_ != nullptr) {
        if (&node == awaited_) awaited_ = nullptr;
    } else if (const auto range = lastOf_.find(&node); range != lastOf_.end()) {
        awaited_ = range->second;
    }
    return awaited_ != nullptr;
}

void NodeRangeRemover::walkChildren(InteriorNode& node) {
    const Trn::NestingGuard guard(depth_);
    for (auto& child : node) {
        child->accept(*this);
        if (awaited_ != nullptr) child.reset();
    }
    node.eraseChildren(std::remove(node.begin(), node.end(), nullptr), node.end());
}

// Here the walk takes the qualifiers in front of the parameters.
void NodeRangeRemover::each(FunctionPtrDeclNode& node) {
    removeIfInRange(node.type);
    removeIfInRange(node.name);
    removeIfInRange(node.qualifiers);
    removeIfInRange(node.parameters);
    updateRange(node);
}

}  // namespace Cpp
