// The pass that deletes the nodes between two given nodes. It is how a region that is to be left alone disappears
// from the tree; no text is lost, since what no node covers is copied by position.
#pragma once

#include <type_traits>
#include <unordered_map>

#include "Cpp_EachVisit.h"

namespace Cpp {

// A range is half open in the order of the walk: `first` goes, `last` and all behind it stay. The walk judges a node
// behind its children, so a composite node is deleted when the walk leaves it inside a range, whatever it holds.
//
// Any number of ranges can be removed in one walk, which leaves the tree as one run for each of them would, provided
// that they don't overlap. A range whose `first` is never met removes nothing; one whose `last` is never met removes
// everything behind `first` but the root.
//
// The caller runs the visit of the root. It throws Trn::Exception for a tree beyond Trn::NestingGuard::limit.
class NodeRangeRemover : public EachVisit<NodeRangeRemover> {
public:
    NodeRangeRemover() = default;
    NodeRangeRemover(const SyntaxNode& first, const SyntaxNode& last) { addRange(first, last); }

    // The two must be different nodes.
    void addRange(const SyntaxNode& first, const SyntaxNode& last) { lastOf_.emplace(&first, &last); }

    // What each visit does: the parts of the node are judged first, in the order of its members or children.
    template <class Node>
    void each(Node& node) {
        if constexpr (std::is_base_of_v<InteriorNode, Node>) walkChildren(node);
        if constexpr (HasMembers<Node>) forEachMember(node, [this](auto& member) { this->removeIfInRange(member); });
        updateRange(node);
    }
    void each(FunctionPtrDeclNode& node);
    // A base clause, an argument and an argument list neither open nor close a range.
    void each(BaseClauseNode&) {}
    void each(SyntaxNode&) {}

private:
    // Takes the node into account and tells whether it lies in a range.
    bool updateRange(const SyntaxNode& node);
    void walkChildren(InteriorNode& node);

    // A member is not visited: what is in a list is looked at, a head's own members are not.
    template <class Node>
    void removeIfInRange(Owned<Node>& member) {
        if (!member) return;
        if constexpr (std::is_base_of_v<InteriorNode, Node>) walkChildren(*member);
        if (updateRange(*member)) member.reset();
    }

    std::unordered_map<const SyntaxNode*, const SyntaxNode*> lastOf_;  // keyed by `first`
    const SyntaxNode* awaited_ = nullptr;                              // the `last` of the range that is open
    int depth_ = 0;
};

}  // namespace Cpp
