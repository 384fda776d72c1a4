// The default walk: a pass over the whole tree, in the order of members and children.
#pragma once

#include <type_traits>

#include "Cpp_EachVisit.h"
#include "Trn_NestingGuard.h"

namespace Cpp {

// Visits the parts of every node; those of a pass itself are the visits that it overrides.
// A walk throws Trn::Exception for a tree beyond Trn::NestingGuard::limit.
class TreeWalk : public EachVisit<TreeWalk> {
public:
    template <class Node>
    void each(Node& node) {
        if constexpr (std::is_base_of_v<InteriorNode, Node>) walkChildren(node);
        if constexpr (HasMembers<Node>) forEachMember(node, [this](auto& member) { walk(member.get()); });
    }

protected:
    void walk(SyntaxNode* node) {
        if (node) node->accept(*this);
    }
    void walkChildren(InteriorNode& node) {
        const Trn::NestingGuard guard(depth_);
        for (const auto& child : node) child->accept(*this);
    }

private:
    int depth_ = 0;
};

}  // namespace Cpp
