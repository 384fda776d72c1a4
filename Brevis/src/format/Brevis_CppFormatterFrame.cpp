// The outer frame of a file: the root, namespaces, linkage blocks, plain blocks and template heads.
#include "align/Brevis_DataOffsetCalculator.h"
#include "align/Brevis_NameOffsetCalculator.h"
#include "format/Brevis_CppFormatter.h"

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
    formatChildren(root, scheme_.leftMargin);
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
        std::string gap = readGap(block.firstPosition());
        setGapTrailing(gap, ws);
        writeVerbatim(gap);
    }
    formatBracedBody(block, scheme_.globalIndentContent, scheme_.globalWsAfterOpenBrace,
                     scheme_.globalWsBeforeCloseBrace);
}

void CppFormatter::visit(Cpp::TemplateNode& node) {
    applyPending(node);
    // The declaration behind the head takes the column off the stack.
    columnStack_.push_back(copyFirstCharacter(node));
    templatePending_ = true;

    if (node.parameters) {
        Cpp::ParameterListNode& parameters = *node.parameters;
        std::string gap = readGap(parameters.firstPosition());
        if (scheme_.wsBeforeTpOpenBracket.isSet) {
            setGapTrailing(gap, scheme_.wsBeforeTpOpenBracket.text);
            writeVerbatim(gap);
        } else {
            out_ << gap;
        }
        copyThrough(in_, out_, parameters.firstPosition());

        const int count = parameters.childCount();
        if (count > 0) {
            gap = readGap(parameters.child(0).firstPosition());
            if (scheme_.wsAfterTpOpenBracket.isSet) {
                std::string ws = scheme_.wsAfterTpOpenBracket.text;
                const auto* first = dynamic_cast<Cpp::ParameterNode*>(&parameters.child(0));
                if (ws.empty() && first && first->text.starts_with('<'))
                    ws = " ";  // two brackets must not run together
                setGapTrailing(gap, ws);
                writeVerbatim(gap);
            } else {
                out_ << gap;
            }
        }

        formatListItems(parameters, scheme_.wsBeforeTpComma, scheme_.betweenTpParams());

        if (count > 0) {
            gap = expr_.formatType(readBefore(in_, parameters.lastPosition()), out_.settings(),
                                   scheme_.wsAfterParamTypeId);
            if (scheme_.wsBeforeTpCloseBracket.isSet) {
                std::string ws = scheme_.wsBeforeTpCloseBracket.text;
                const auto* last = dynamic_cast<Cpp::ParameterNode*>(&parameters.child(count - 1));
                if (ws.empty() && last && last->text.ends_with('>')) ws = " ";
                setGapTrailing(gap, ws);
            }
            writeRaw(out_, gap);
        }

        // The whole inside of an empty list; nothing otherwise.
        gap = readGap(parameters.lastPosition());
        if (scheme_.wsAfterTpOpenBracket.isSet || scheme_.wsBeforeTpCloseBracket.isSet) {
            setGapTrailing(gap, "");
            writeVerbatim(gap);
        } else {
            out_ << gap;
        }
    }
    copyToEnd(node);
    pushPending(scheme_.wsAfterTpCloseBracket);
}

}  // namespace Brevis
