// The base classes of the syntax tree.
//
// The tree is coarse: it records where each declaration, statement, comment and directive lies and how they
// nest; an expression, a type or a parameter is one leaf. Formatters copy the text by the nodes' positions, so
// a node's `text` (its tokens joined by blanks) only serves for measuring and recognising. Such a text is a view, of
// the source or of the storage of the root, so a node must outlive neither, and a copy of a node no more than the node.
#pragma once

#include <cstddef>
#include <memory>
#include <new>
#include <type_traits>
#include <utility>

#include "Cpp_Emitter.h"
#include "Cpp_NodeKind.h"
#include "Cpp_NodeList.h"
#include "Trn_SyntaxNode.h"

namespace Cpp {

using Trn::Position;

class SyntaxNode : public Trn::SyntaxNode {
public:
    SyntaxNode() = default;
    SyntaxNode(const SyntaxNode& other) noexcept : nodeKind_(other.nodeKind_) {}
    SyntaxNode& operator=(const SyntaxNode&) noexcept { return *this; }

    // A node is deleted like any object, whether it lies in a TreeStorage or not.
    static void* operator new(std::size_t size);
    static void operator delete(SyntaxNode* node, std::destroying_delete_t);
    // To be called for a node in a TreeStorage.
    void setStored() { isStored_ = true; }

    // Calls the visit of the node's own class.
    virtual void accept(Emitter& emitter) = 0;
    // A deep copy.
    virtual std::unique_ptr<SyntaxNode> clone() const = 0;

    // Tells the node's own class.
    NodeKind nodeKind() const { return nodeKind_; }

protected:
    void setNodeKind(NodeKind kind) { nodeKind_ = kind; }

private:
    NodeKind nodeKind_{};
    bool isStored_ = false;  // not copied: a copy lies on the heap
};

// Gives the concrete class Derived its `accept`, its `clone` and its tag.
template <class Derived, class Base, NodeKind kind>
class Visitable : public Base {
public:
    static constexpr NodeKind classKind = kind;

    template <class... Args>
    Visitable(Args&&... args) : Base(std::forward<Args>(args)...) {
        this->setNodeKind(kind);
    }

    void accept(Emitter& emitter) override { emitter.visit(static_cast<Derived&>(*this)); }
    std::unique_ptr<SyntaxNode> clone() const override {
        return std::make_unique<Derived>(static_cast<const Derived&>(*this));
    }
};

// Whether the node is of the class T, which must have no derived classes.
template <class T>
bool is(const SyntaxNode& node) {
    static_assert(std::is_final_v<T>);
    return node.nodeKind() == T::classKind;
}

// The node as a T, or null if it is none.
template <class T>
const T* nodeCast(const SyntaxNode& node) {
    return is<T>(node) ? static_cast<const T*>(&node) : nullptr;
}

// Stores both positions.
class LeafNode : public SyntaxNode {
public:
    LeafNode() = default;
    LeafNode(Position first, Position last) : first_(first), last_(last) {}

    void setFirstPosition(Position position) override { first_ = position; }
    Position firstPosition() const override { return first_; }
    void setLastPosition(Position position) override { last_ = position; }
    Position lastPosition() const override { return last_; }

private:
    Position first_;
    Position last_;
};

// An ordered list of owned children. Its positions are those of the first and the last child, (0,0) without any;
// a setter goes to that child and does nothing without one.
class InteriorNode : public SyntaxNode {
public:
    using Children = NodeList<SyntaxNode>;

    InteriorNode() = default;
    InteriorNode(const InteriorNode& other);
    InteriorNode(InteriorNode&&) noexcept = default;
    InteriorNode& operator=(const InteriorNode& other);
    InteriorNode& operator=(InteriorNode&&) noexcept = default;

    void setFirstPosition(Position position) override;
    Position firstPosition() const override;
    void setLastPosition(Position position) override;
    Position lastPosition() const override;

    Children::iterator begin() { return children_.begin(); }
    Children::const_iterator begin() const { return children_.begin(); }
    Children::iterator end() { return children_.end(); }
    Children::const_iterator end() const { return children_.end(); }
    int childCount() const { return static_cast<int>(children_.size()); }
    SyntaxNode& child(int index) const { return *children_.begin()[index]; }

    // Takes ownership; null is ignored. A node cannot be added twice, since the caller has given it away.
    void addChild(std::unique_ptr<SyntaxNode> child);
    Children::iterator eraseChildren(Children::iterator first, Children::iterator last);
    void swapChildren(InteriorNode& other) noexcept { children_.swap(other.children_); }

private:
    Children children_;
};

// An interior node with positions of its own.
class StoredInteriorNode : public InteriorNode {
public:
    StoredInteriorNode() = default;
    StoredInteriorNode(Position first, Position last) : first_(first), last_(last) {}

    void setFirstPosition(Position position) override { first_ = position; }
    Position firstPosition() const override { return first_; }
    void setLastPosition(Position position) override { last_ = position; }
    Position lastPosition() const override { return last_; }

private:
    Position first_;
    Position last_;
};

// As StoredInteriorNode; a position that is not set falls back on the children.
class FallbackInteriorNode : public StoredInteriorNode {
public:
    using StoredInteriorNode::StoredInteriorNode;

    Position firstPosition() const override;
    Position lastPosition() const override;
};

// Base of declarations.
class DeclNode : public SyntaxNode {};

}  // namespace Cpp
