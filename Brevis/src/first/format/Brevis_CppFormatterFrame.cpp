// The outer frame of a file: the root, namespaces, linkage blocks, plain blocks and template heads.
#include "first/align/Brevis_DataOffsetCalculator.h"
#include "first/align/Brevis_NameOffsetCalculator.h"
#include "first/format/Brevis_CppFormatter.h"

namespace Brevis {

void CppFormatter::visit(Cpp::RootNode& root) {
    if (scheme_.alignClassMemberNamesLeft || scheme_.alignFnDeclNamesLeft || scheme_.alignDdNamesLeft) {
        NameOffsetCalculator calculator(scheme_);
        root.accept(calculator);
        functionNameColumns_ = calculator.functionNameColumns();
        dataNameColumns_ = calculator.dataNameColumns();
    }
    if (scheme_.alignDdInitializers) {
        DataOffsetCalculator calculator(scheme_);
        root.accept(calculator);
        initializerColumns_ = calculator.initializerColumns();
    }

    const LeadingWsGuard keep(out_, !scheme_.leftMargin.isSet);
    {
        const BodyIndent indent(*this, scheme_.leftMargin);
        formatChildren(root);
    }
    out_ << remainderOf(in_);
}

void CppFormatter::visit(Cpp::NamespaceDeclNode& node) {
    applyPending(node);
    std::optional<ColumnPush> column;
    if (node.head) {
        column.emplace(columnStack_, copyFirstCharacter(*node.head));
        node.head->accept(*this);
        if (node.body) pushPending(scheme_.wsBeforeNsOpenBrace);
    }
    if (node.body) node.body->accept(*this);
}

void CppFormatter::visit(Cpp::NamespaceHeadNode& node) { copyToEnd(node); }

void CppFormatter::visit(Cpp::NamespaceBodyNode& body) {
    formatBracedBody(body, scheme_.indentNsContent, scheme_.wsAfterNsOpenBrace, scheme_.wsBeforeNsCloseBrace);
}

void CppFormatter::visit(Cpp::LinkageBlockNode& node) {
    int column = topColumn();
    if (node.head) {
        column = copyFirstCharacter(*node.head);
        node.head->accept(*this);
        if (node.body) pushPending(scheme_.globalWsBeforeOpenBrace);
    }
    const ColumnPush push(columnStack_, column);
    if (node.body) node.body->accept(*this);
}

void CppFormatter::visit(Cpp::LinkageBlockBodyNode& body) {
    applyPending(body);
    formatBracedBody(body, scheme_.globalIndentContent, scheme_.globalWsAfterOpenBrace,
                     scheme_.globalWsBeforeCloseBrace);
}

// A block that is not the body of a function or control statement.
void CppFormatter::visit(Cpp::BlockNode& block) {
    const ColumnPush push(columnStack_, indentWidth(out_));
    const IndentStringGuard indent(out_, indentStringFor(out_, topColumn()));
    if (scheme_.globalWsBeforeOpenBrace.isSet) {
        std::string_view ws = scheme_.globalWsBeforeOpenBrace.text;
        if (ws.starts_with('\n') && out_.column() == 0) ws.remove_prefix(1);  // a new line has been started already
        writeGapTrailing(block.firstPosition(), ws);
    }
    formatBracedBody(block, scheme_.globalIndentContent, scheme_.globalWsAfterOpenBrace,
                     scheme_.globalWsBeforeCloseBrace);
}

void CppFormatter::visit(Cpp::TemplateNode& node) {
    applyPending(node);
    // The declaration behind the head takes the column off the stack.
    columnStack_.push_back(copyFirstCharacter(node));
    templatePending_ = true;

    if (node.parameters) formatTemplateParameters(*node.parameters);
    copyToEnd(node);
    pushPending(scheme_.wsAfterTpCloseBracket);
}

namespace {

// The value, or a blank where an empty one would let two angle brackets run together.
WsProperty apartFromBracket(const WsProperty& value, bool isBesideBracket) {
    return isBesideBracket && value.isSet && value.text.empty() ? WsProperty{true, " "} : value;
}

bool startsWithBracket(const Cpp::SyntaxNode& node) {
    const auto* parameter = Cpp::nodeCast<Cpp::ParameterNode>(node);
    return parameter && parameter->text.starts_with("<");
}

bool endsWithBracket(const Cpp::SyntaxNode& node) {
    const auto* parameter = Cpp::nodeCast<Cpp::ParameterNode>(node);
    return parameter && parameter->text.ends_with(">");
}

}  // namespace

void CppFormatter::formatTemplateParameters(Cpp::ParameterListNode& list) {
    writeGapTrailing(list.firstPosition(), scheme_.wsBeforeTpOpenBracket);
    const int count = list.childCount();
    const WsProperty& afterOpen = scheme_.wsAfterTpOpenBracket;
    const WsProperty& beforeClose = scheme_.wsBeforeTpCloseBracket;
    formatEnclosedItems(list, apartFromBracket(afterOpen, count > 0 && startsWithBracket(list.child(0))),
                        scheme_.wsBeforeTpComma, scheme_.betweenTpParams(),
                        apartFromBracket(beforeClose, count > 0 && endsWithBracket(list.child(count - 1))));
    if (afterOpen.isSet || beforeClose.isSet)
        writeGapTrailing(list.lastPosition(), "");
    else
        writeGap(list.lastPosition());
}

}  // namespace Brevis
