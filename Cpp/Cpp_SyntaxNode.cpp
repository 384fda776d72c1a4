// The lists of children and the positions that nodes take from them.
#include "Cpp_SyntaxNode.h"

#include <utility>

namespace Cpp {

// Not inline, since compilers compare the allocations that they see with the deletions.
void* SyntaxNode::operator new(std::size_t size) { return ::operator new(size); }

void SyntaxNode::operator delete(SyntaxNode* node, std::destroying_delete_t) {
    const bool isStored = node->isStored_;
    node->~SyntaxNode();
    if (!isStored) ::operator delete(node);
}

InteriorNode::InteriorNode(const InteriorNode& other) : SyntaxNode(other) { *this = other; }

InteriorNode& InteriorNode::operator=(const InteriorNode& other) {
    Children copies;
    for (const auto& child : other.children_) copies.push_back(child->clone());
    children_.swap(copies);
    return *this;
}

void InteriorNode::setFirstPosition(Position position) {
    if (!children_.empty()) (*children_.begin())->setFirstPosition(position);
}

Position InteriorNode::firstPosition() const {
    return children_.empty() ? Position() : (*children_.begin())->firstPosition();
}

void InteriorNode::setLastPosition(Position position) {
    if (!children_.empty()) children_.end()[-1]->setLastPosition(position);
}

Position InteriorNode::lastPosition() const {
    return children_.empty() ? Position() : children_.end()[-1]->lastPosition();
}

void InteriorNode::addChild(std::unique_ptr<SyntaxNode> child) {
    if (child) children_.push_back(std::move(child));
}

InteriorNode::Children::iterator InteriorNode::eraseChildren(Children::iterator first, Children::iterator last) {
    return children_.erase(first, last);
}

Position FallbackInteriorNode::firstPosition() const {
    const Position stored = StoredInteriorNode::firstPosition();
    return stored.isSet() ? stored : InteriorNode::firstPosition();
}

Position FallbackInteriorNode::lastPosition() const {
    const Position stored = StoredInteriorNode::lastPosition();
    return stored.isSet() ? stored : InteriorNode::lastPosition();
}

}  // namespace Cpp
