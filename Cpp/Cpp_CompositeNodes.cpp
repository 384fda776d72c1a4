// The copies that are not made member by member alone.
#include "Cpp_CompositeNodes.h"

namespace Cpp {

namespace {

template <class Node>
void copyWithComputedEnd(Node& node, const Node& other) {
    std::apply([&](auto... member) { ((node.*member = other.*member), ...); }, Node::members);
    node.endPosition = other.lastPosition();
}

}  // namespace

FunctionHeadNode::FunctionHeadNode(const FunctionHeadNode& other) : EndedNode(other) {
    copyWithComputedEnd(*this, other);
}

FunctionPtrDeclNode::FunctionPtrDeclNode(const FunctionPtrDeclNode& other) : EndedNode(other) {
    copyWithComputedEnd(*this, other);
}

}  // namespace Cpp
