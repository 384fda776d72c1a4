// The base of the nodes with single members. Such a class names its members once, in the table `members`, and whatever
// goes through them follows that table: the positions here, and the passes by `forEachMember`.
#pragma once

#include <tuple>
#include <type_traits>

#include "Cpp_Owned.h"
#include "Cpp_SyntaxNode.h"

namespace Cpp {

template <class Node>
concept HasMembers = requires {
    Node::members;
};

// Calls `f` with the owning pointer of each member, in the order of the table.
template <HasMembers Node, class F>
void forEachMember(Node& node, F f) {
    std::apply([&](auto... member) { (f(node.*member), ...); }, std::remove_const_t<Node>::members);
}

// A position query goes to the first or last member that is present and gives (0,0) without any; the setters go the
// same way.
template <class Derived, class Base, NodeKind kind>
class MemberNode : public Visitable<Derived, Base, kind> {
public:
    using Visitable<Derived, Base, kind>::Visitable;

    void setFirstPosition(Position position) override {
        if (SyntaxNode* member = firstMember()) member->setFirstPosition(position);
    }
    Position firstPosition() const override {
        const SyntaxNode* member = firstMember();
        return member ? member->firstPosition() : Position();
    }
    void setLastPosition(Position position) override {
        if (SyntaxNode* member = lastMember()) member->setLastPosition(position);
    }
    Position lastPosition() const override {
        const SyntaxNode* member = lastMember();
        return member ? member->lastPosition() : Position();
    }

protected:
    SyntaxNode* firstMember() const {
        SyntaxNode* first = nullptr;
        forEachMember(static_cast<const Derived&>(*this), [&](const auto& member) {
            if (!first) first = member.get();
        });
        return first;
    }
    SyntaxNode* lastMember() const {
        SyntaxNode* last = nullptr;
        forEachMember(static_cast<const Derived&>(*this), [&](const auto& member) {
            if (member) last = member.get();
        });
        return last;
    }
};

// A node that stores its last position in the field that the table `end` names, and answers with it when it is set.
template <class Derived, class Base, NodeKind kind>
class EndedNode : public MemberNode<Derived, Base, kind> {
public:
    using MemberNode<Derived, Base, kind>::MemberNode;

    void setLastPosition(Position position) override { static_cast<Derived&>(*this).*Derived::end = position; }
    Position lastPosition() const override {
        const Position stored = static_cast<const Derived&>(*this).*Derived::end;
        return stored.isSet() ? stored : MemberNode<Derived, Base, kind>::lastPosition();
    }
};

}  // namespace Cpp
