// The visits of the main formatter for text that is no code: comments, directives, labels and asm statements.
#include "first/format/Brevis_CppFormatter.h"

namespace Brevis {

void CppFormatter::visit(Cpp::CommentNode& node) {
    if (node.isLineComment())
        copyToEnd(node);
    else  // a block comment, or a region that is left alone
        expr_.writeMultiLine(node.firstPosition(), node.lastPosition(), in_, out_);
}

void CppFormatter::visit(Cpp::PreprocDirectiveNode& node) {
    expr_.writeDirective(node.firstPosition(), node.lastPosition(), in_, out_);
}

void CppFormatter::visit(Cpp::VerbatimNode& node) {
    if (templatePending_) applyPending(node);  // a clause behind the head
    expr_.writeMultiLine(node.firstPosition(), node.lastPosition(), in_, out_);
}

void CppFormatter::visit(Cpp::LabelNode& node) { copyToEnd(node); }

void CppFormatter::visit(Cpp::AsmNode& node) {
    if (node.asmForm != 2) {
        if (node.block)
            copyThrough(in_, out_, node.block->lastPosition());
        else if (node.text)
            copyThrough(in_, out_, node.text->lastPosition());
        return;
    }
    int column = topColumn();
    if (node.text) {
        column = copyFirstCharacter(*node.text);
        node.text->accept(*this);
    }
    const ColumnPush push(columnStack_, column);
    if (node.block) node.block->accept(*this);
}

}  // namespace Brevis
