// The visits of the main formatter for classes: declaration, head, base clauses, body and access labels.
#include "first/format/Brevis_CppFormatter.h"

namespace Brevis {

void CppFormatter::visit(Cpp::ClassDeclNode& node) {
    applyPending(node);
    int column = topColumn();
    const bool hadTemplate = takeTemplateColumn();
    if (node.head) {
        if (!hadTemplate) column = copyFirstCharacter(*node.head);
        node.head->accept(*this);
        if (node.body) pushPending(scheme_.wsBeforeClassOpenBrace);
    }
    const ColumnPush push(columnStack_, column);
    if (node.body) {
        node.body->accept(*this);
        // The declaration stops at its brace, so that a declarator follows.
        classTailPending_ =
            node.body->childCount() > 0 && hasBraces(*node.body) && node.lastPosition() == node.body->lastPosition();
    }
}

void CppFormatter::visit(Cpp::ClassHeadNode& head) {
    if (head.name) {
        head.name->accept(*this);
        if (head.bases) pushPending(scheme_.wsAfterClassName);
    }
    if (head.bases) head.bases->accept(*this);
}

void CppFormatter::visit(Cpp::ClassNameNode& name) { copyToEnd(name); }

void CppFormatter::visit(Cpp::BaseClauseListNode& list) {
    const std::string_view gap = readBefore(in_, list.firstPosition());
    WsProperty before = noWs;
    if (auto ws = popPending()) before = {true, std::string(*ws)};
    writeRaw(out_, expr_.formatAround(gap, Trn::Kind::Colon, before, scheme_.wsBeforeBaseClauses, out_.settings()));

    const WsProperty& between = scheme_.betweenBaseClauses();
    formatListItems(list, scheme_.wsBeforeBaseClausesComma, between);
}

void CppFormatter::visit(Cpp::BaseClauseNode& clause) {
    out_ << expr_.formatType(readThrough(in_, clause.lastPosition()), out_.settings(), scheme_.wsAfterParamTypeId);
}

void CppFormatter::visit(Cpp::ClassBodyNode& body) {
    applyPending(body);
    const bool wasInClassBody = std::exchange(inClassBody_, true);
    formatBracedBody(body, scheme_.indentClassContent, scheme_.wsAfterClassOpenBrace, scheme_.wsBeforeClassCloseBrace);
    inClassBody_ = wasInClassBody;
}

// A label stands at the column of the class, whatever the indent of the members.
void CppFormatter::visit(Cpp::AccessSpecNode& node) {
    writeGapTrailing(node.firstPosition(), scheme_.wsBeforeAccessSpecs);

    const std::string_view label = readThrough(in_, node.lastPosition());
    const WsProperty& indent = scheme_.indentAccessSpecLabel;
    const Layout layout(out_, !indent.isSet, indentStringFor(out_, topColumn()) + indent.text);
    out_ << label;
}

}  // namespace Brevis
