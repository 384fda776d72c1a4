// How the nodes with single members answer for their positions: each names its members in the order in which
// they are tried, and the first one that is present answers or is set.
#include "Cpp_CompositeNodes.h"

#include <initializer_list>

namespace Cpp {

namespace {

using Members = std::initializer_list<SyntaxNode*>;

Position firstOf(Members members) {
    for (const SyntaxNode* member : members) {
        if (member) return member->firstPosition();
    }
    return {};
}

Position lastOf(Members members) {
    for (const SyntaxNode* member : members) {
        if (member) return member->lastPosition();
    }
    return {};
}

void setFirstOf(Members members, Position position) {
    for (SyntaxNode* member : members) {
        if (member) return member->setFirstPosition(position);
    }
}

void setLastOf(Members members, Position position) {
    for (SyntaxNode* member : members) {
        if (member) return member->setLastPosition(position);
    }
}

Position storedOr(Position stored, Position computed) { return stored.isSet() ? stored : computed; }

}  // namespace

void ClassHeadNode::setFirstPosition(Position position) { setFirstOf({name.get(), bases.get()}, position); }
Position ClassHeadNode::firstPosition() const { return firstOf({name.get(), bases.get()}); }
void ClassHeadNode::setLastPosition(Position position) { setLastOf({bases.get(), name.get()}, position); }
Position ClassHeadNode::lastPosition() const { return lastOf({bases.get(), name.get()}); }

void ClassDeclNode::setFirstPosition(Position position) { setFirstOf({head.get(), body.get()}, position); }
Position ClassDeclNode::firstPosition() const { return firstOf({head.get(), body.get()}); }
Position ClassDeclNode::lastPosition() const { return storedOr(endPosition, lastOf({body.get(), head.get()})); }

void EnumDeclNode::setFirstPosition(Position position) { setFirstOf({head.get(), body.get()}, position); }
Position EnumDeclNode::firstPosition() const { return firstOf({head.get(), body.get()}); }
Position EnumDeclNode::lastPosition() const { return storedOr(endPosition, lastOf({body.get(), head.get()})); }

void NamespaceDeclNode::setFirstPosition(Position position) { setFirstOf({head.get(), body.get()}, position); }
Position NamespaceDeclNode::firstPosition() const { return firstOf({head.get(), body.get()}); }
void NamespaceDeclNode::setLastPosition(Position position) { setLastOf({body.get(), head.get()}, position); }
Position NamespaceDeclNode::lastPosition() const { return lastOf({body.get(), head.get()}); }

void LinkageBlockNode::setFirstPosition(Position position) { setFirstOf({head.get(), body.get()}, position); }
Position LinkageBlockNode::firstPosition() const { return firstOf({head.get(), body.get()}); }
void LinkageBlockNode::setLastPosition(Position position) { setLastOf({body.get(), head.get()}, position); }
Position LinkageBlockNode::lastPosition() const { return lastOf({body.get(), head.get()}); }

void TemplateNode::setFirstPosition(Position position) { setFirstOf({keyword.get(), parameters.get()}, position); }
Position TemplateNode::firstPosition() const { return firstOf({keyword.get(), parameters.get()}); }
void TemplateNode::setLastPosition(Position position) { setLastOf({parameters.get(), keyword.get()}, position); }
Position TemplateNode::lastPosition() const { return lastOf({parameters.get(), keyword.get()}); }

FunctionHeadNode::FunctionHeadNode(const FunctionHeadNode& other)
    : Visitable(other),
      endPosition(other.lastPosition()),
      returnType(other.returnType),
      name(other.name),
      parameters(other.parameters),
      qualifiers(other.qualifiers),
      exceptionSpec(other.exceptionSpec),
      pureSpec(other.pureSpec) {}

void FunctionHeadNode::setFirstPosition(Position position) {
    setFirstOf({returnType.get(), name.get(), parameters.get(), qualifiers.get(), exceptionSpec.get(), pureSpec.get()},
               position);
}

Position FunctionHeadNode::firstPosition() const {
    return firstOf(
        {returnType.get(), name.get(), parameters.get(), qualifiers.get(), exceptionSpec.get(), pureSpec.get()});
}

Position FunctionHeadNode::lastPosition() const {
    return storedOr(endPosition, lastOf({pureSpec.get(), exceptionSpec.get(), qualifiers.get(), parameters.get(),
                                         name.get(), returnType.get()}));
}

void FunctionDeclNode::setFirstPosition(Position position) { setFirstOf({head.get(), body.get()}, position); }
Position FunctionDeclNode::firstPosition() const { return firstOf({head.get(), body.get()}); }
void FunctionDeclNode::setLastPosition(Position position) { setLastOf({body.get(), head.get()}, position); }
Position FunctionDeclNode::lastPosition() const { return lastOf({body.get(), head.get()}); }

void CtorDeclNode::setFirstPosition(Position position) {
    setFirstOf({head.get(), initializers.get(), body.get()}, position);
}
Position CtorDeclNode::firstPosition() const { return firstOf({head.get(), initializers.get(), body.get()}); }
void CtorDeclNode::setLastPosition(Position position) {
    setLastOf({body.get(), initializers.get(), head.get()}, position);
}
Position CtorDeclNode::lastPosition() const { return lastOf({body.get(), initializers.get(), head.get()}); }

void InitializerNode::setFirstPosition(Position position) { setFirstOf({name.get(), arguments.get()}, position); }
Position InitializerNode::firstPosition() const { return firstOf({name.get(), arguments.get()}); }
void InitializerNode::setLastPosition(Position position) { setLastOf({arguments.get(), name.get()}, position); }
Position InitializerNode::lastPosition() const { return lastOf({arguments.get(), name.get()}); }

FunctionPtrDeclNode::FunctionPtrDeclNode(const FunctionPtrDeclNode& other)
    : Visitable(other),
      endPosition(other.lastPosition()),
      type(other.type),
      name(other.name),
      parameters(other.parameters),
      qualifiers(other.qualifiers) {}

void FunctionPtrDeclNode::setFirstPosition(Position position) {
    setFirstOf({type.get(), name.get(), parameters.get(), qualifiers.get()}, position);
}
Position FunctionPtrDeclNode::firstPosition() const {
    return firstOf({type.get(), name.get(), parameters.get(), qualifiers.get()});
}
Position FunctionPtrDeclNode::lastPosition() const {
    return storedOr(endPosition, lastOf({qualifiers.get(), parameters.get(), name.get(), type.get()}));
}

void DataDeclNode::setFirstPosition(Position position) {
    setFirstOf({type.get(), name.get(), initializer.get()}, position);
}
Position DataDeclNode::firstPosition() const { return firstOf({type.get(), name.get(), initializer.get()}); }
Position DataDeclNode::lastPosition() const {
    return storedOr(endPosition, lastOf({initializer.get(), name.get(), type.get()}));
}

void CtrlSubStmtHeadNode::setFirstPosition(Position position) {
    setFirstOf({keyword.get(), condition.get()}, position);
}
Position CtrlSubStmtHeadNode::firstPosition() const { return firstOf({keyword.get(), condition.get()}); }
Position CtrlSubStmtHeadNode::lastPosition() const {
    return storedOr(endPosition, lastOf({condition.get(), keyword.get()}));
}

void CtrlSubStmtNode::setFirstPosition(Position position) { setFirstOf({head.get(), body.get()}, position); }
Position CtrlSubStmtNode::firstPosition() const { return firstOf({head.get(), body.get()}); }
void CtrlSubStmtNode::setLastPosition(Position position) { setLastOf({body.get(), head.get()}, position); }
Position CtrlSubStmtNode::lastPosition() const { return lastOf({body.get(), head.get()}); }

void CaseNode::setFirstPosition(Position position) { setFirstOf({keyword.get(), value.get()}, position); }
Position CaseNode::firstPosition() const {
    return keyword || value ? firstOf({keyword.get(), value.get()}) : colonPosition;
}
Position CaseNode::lastPosition() const { return storedOr(colonPosition, lastOf({value.get(), keyword.get()})); }

void LabelNode::setFirstPosition(Position position) { setFirstOf({name.get()}, position); }
Position LabelNode::firstPosition() const { return name ? name->firstPosition() : colonPosition; }
Position LabelNode::lastPosition() const { return storedOr(colonPosition, lastOf({name.get()})); }

void AsmNode::setFirstPosition(Position position) { setFirstOf({text.get(), block.get()}, position); }
Position AsmNode::firstPosition() const { return firstOf({text.get(), block.get()}); }
void AsmNode::setLastPosition(Position position) { setLastOf({block.get(), text.get()}, position); }
Position AsmNode::lastPosition() const { return lastOf({block.get(), text.get()}); }

}  // namespace Cpp
