// The visits of the line wrapper for control statements.
#include "first/text/Brevis_NodeTests.h"
#include "first/text/Brevis_ParenText.h"
#include "first/wrap/Brevis_CppLineWrapper.h"

namespace Brevis {

void CppLineWrapper::visit(Cpp::CtrlStmtNode& node) {
    if (!isOverlong(node)) return copyToEnd(node);
    if (node.childCount() == 0) return;
    int column = topColumn();
    if (inElseIf_) {
        // The `if` of a chain stays at the column of its `else`.
        copyBeforeRaw(in_, out_, node.firstPosition());
    } else {
        column = copyFirstCharacter(node);
    }
    const ColumnPush push(columnStack_, column);
    for (auto& child : node) child->accept(*this);
}

void CppLineWrapper::visit(Cpp::CtrlSubStmtNode& node) {
    if (!isOverlong(node)) return copyToEnd(node);
    inElseIf_ = !inElseIf_ && isElseIf(node);
    if (node.head) node.head->accept(*this);
    if (!node.body) return;
    if (inElseIf_) {
        // The statement behind `else` gets no indent of its own.
        const WsProperty noIndent{!out_.indent().empty() || !out_.keepLeadingWs(), ""};
        wrapBracedBody(*node.body, noIndent);
    } else {
        const bool isSwitch = keywordOf(node.head.get()) == Trn::Kind::Switch;
        wrapBracedBody(*node.body, isSwitch ? scheme_.indentCsCaseContent : scheme_.indentCsContent);
    }
}

void CppLineWrapper::visit(Cpp::CtrlSubStmtHeadNode& head) {
    if (!isOverlong(head) || head.held) return copyToEnd(head);
    if (head.keyword) head.keyword->accept(*this);
    if (head.condition) wrapCondition(*head.condition, keywordOf(&head));
    copyToEnd(head);
}

void CppLineWrapper::wrapCondition(const Cpp::ExprNode& condition, Trn::TokenKind keyword) {
    const IndentStringGuard noIndent(out_, {});
    const LeadingWsGuard keep(out_, true);
    if (scheme_.wsAfterCsKey.isSet) {
        std::string gap = readGap(condition.firstPosition());
        setGapBoth(gap, "", scheme_.wsAfterCsKey.text);
        writeVerbatim(gap);
    }
    copyBefore(in_, out_, condition.firstPosition());
    const ParenParts parts(readThrough(in_, condition.lastPosition()));
    out_ << parts.open;
    const int column = out_.column();  // behind the parenthesis

    const IndentStringGuard indent(out_, indentStringFor(out_, topColumn()));
    if (keyword == Trn::Kind::For) {
        wrapForCondition(std::string(parts.inner), parts.close, column);
    } else {
        const LeadingWsGuard drop(out_, false);
        const std::string inner(parts.inner);
        writeWrapped(exprWrapper_.wrapExpression(inner, out_.settings(), false), inner.size());
        out_ << parts.close;
    }
}

void CppLineWrapper::wrapForCondition(std::string inner, std::string_view close, int column) {
    if (scheme_.wsAfterCsOpenParen.isSet) setGapLeading(inner, scheme_.wsAfterCsOpenParen.text);
    const std::size_t size = inner.size();
    inner = exprWrapper_.wrapForHead(std::move(inner), out_.settings());
    if (scheme_.wsBeforeCsCloseParen.isSet) setGapTrailing(inner, scheme_.wsBeforeCsCloseParen.text);
    writeWrapped(inner, size);
    // A line break in front of the parenthesis puts it under the open one.
    const IndentStringGuard indent(out_, indentStringFor(out_, column - 1));
    out_ << close;
}

}  // namespace Brevis
