// The visits of the main formatter for functions, their parameters, function pointers and member initializers.
#include "format/Brevis_CppFormatter.h"

namespace Brevis {

void CppFormatter::visit(Cpp::FunctionDeclNode& node) {
    const ColumnPush push(columnStack_, formatFunctionHead(node));
    if (node.body) pushPending(scheme_.wsBeforeFnOpenBrace);
    formatFunctionBody(node);
}

void CppFormatter::visit(Cpp::CtorDeclNode& node) {
    const ColumnPush push(columnStack_, formatFunctionHead(node));
    if (node.initializers && scheme_.wsBeforeClassInitList.isSet)
        pushPending(scheme_.wsBeforeClassInitList);
    else if (node.initializers || node.body)
        pushPending(scheme_.wsBeforeFnOpenBrace);

    if (node.initializers) {
        node.initializers->accept(*this);
        if (node.body) pushPending(scheme_.wsAfterClassInitList);
    }
    formatFunctionBody(node);
}

void CppFormatter::formatFunctionBody(Cpp::FunctionDeclNode& node) {
    if (!node.body) return;
    formatBracedBody(*node.body, scheme_.indentFnContent, scheme_.wsAfterFnOpenBrace, scheme_.wsBeforeFnCloseBrace);
}

// Gives the column from which the function's body is measured.
int CppFormatter::formatFunctionHead(Cpp::FunctionDeclNode& node) {
    applyPending(node);
    int column = topColumn();
    if (!node.head) return column;
    const bool hadTemplate = takeTemplateColumn();
    Cpp::FunctionHeadNode& head = *node.head;

    if (head.name) column = writeReturnTypeAndName(node, column, hadTemplate);

    const ColumnPush push(columnStack_, column);
    if (head.parameters) {
        std::string gap = readGap(head.parameters->firstPosition());
        if (scheme_.wsAfterFnName.isSet) {
            trimGapBoth(gap);
            writeVerbatim(scheme_.wsAfterFnName.text);
        }
        out_ << gap;
        formatParenList(*head.parameters, scheme_.wsAfterFnOpenParen, scheme_.wsBeforeFnComma,
                        scheme_.betweenFnParams(), scheme_.wsBeforeFnCloseParen);
    }
    // The close parenthesis with the qualifiers and specifiers behind it.
    writeRaw(out_, expr_.format(readThrough(in_, head.lastPosition()), out_.settings()));
    return column;
}

int CppFormatter::writeReturnTypeAndName(Cpp::FunctionDeclNode& node, int column, bool hadTemplate) {
    const Cpp::FunctionReturnNode* type = node.head->returnType.get();
    const Cpp::IdNode& name = *node.head->name;
    const bool isDefinition = node.body != nullptr;
    const bool namesAligned = scheme_.alignFnDeclNamesLeft || (scheme_.alignClassMemberNamesLeft && inClassBody_);

    if (type) copyBefore(in_, out_, type->firstPosition());
    // The return type with everything that stands between it and the name.
    std::string text = readGap(name.firstPosition());

    const bool isPointer = type && endsInSign(text);
    const bool reformatted = isPointer && !scheme_.fnDoNotFormat;
    if (reformatted) {
        const WsProperty& wsAfterType = isDefinition   ? scheme_.wsAfterFnDefnReturnType
                                        : namesAligned ? noWs
                                                       : scheme_.wsAfterFnDeclReturnType;
        text = expr_.formatType(text, out_.settings(), wsAfterType);
    }

    if (!isDefinition && namesAligned && !holdsCommentOrDirective(text)) {
        SignSplit sign;
        if (type) {
            trimGapTrailing(text);
            replaceCharInGap(text, '\n', ' ');
            sign = splitSign(text);
            // A reformatted text has been through a scratch stream and holds its indent already.
            if (!hadTemplate) writeFirstCharacter(text, reformatted, column);
        }
        out_ << text;
        writeAligned(offsetFor(functionNameColumns_, node), sign);
    } else if (!isDefinition) {
        if (type && !isPointer) {
            if (scheme_.wsAfterFnDeclReturnType.isSet) setGapTrailing(text, scheme_.wsAfterFnDeclReturnType.text);
            if (!hadTemplate) writeFirstCharacter(text, false, column);
        }
        out_ << text;
    } else {
        if (type) {
            if (scheme_.wsAfterFnDefnReturnType.isSet) setGapTrailing(text, scheme_.wsAfterFnDefnReturnType.text);
            if (!hadTemplate) writeFirstCharacter(text, reformatted, column);
        }
        out_ << text;
    }

    copyThrough(in_, out_, name.firstPosition());
    if (!type && !hadTemplate) column = lastColumn(out_);
    copyThrough(in_, out_, name.lastPosition());
    return column;
}

void CppFormatter::visit(Cpp::ParameterNode& node) {
    std::string text =
        expr_.formatType(readThrough(in_, node.lastPosition()), out_.settings(), scheme_.wsAfterParamTypeId);
    if (endsInSign(text)) trimGapTrailing(text);  // an unnamed parameter
    out_ << text;
}

void CppFormatter::visit(Cpp::InitializerListNode& list) {
    const std::string_view gap = readBefore(in_, list.firstPosition());
    WsProperty before = noWs;
    if (scheme_.wsBeforeFnOpenBrace.isSet || scheme_.wsBeforeClassInitList.isSet) {
        if (auto ws = popPending()) before = {true, std::move(*ws)};
    }
    writeRaw(out_, expr_.formatAround(gap, Trn::Kind::Colon, before, scheme_.wsBeforeClassInits, out_.settings()));
    formatListItems(list, scheme_.wsBeforeClassInitsComma, scheme_.wsBetweenClassInits);
}

void CppFormatter::visit(Cpp::InitializerNode& node) {
    out_ << expr_.formatType(readThrough(in_, node.lastPosition()), out_.settings(), noWs);
}

namespace {

// Puts the values of the parentheses into a parenthesised declarator such as `(*name)`.
std::string spacedDeclarator(std::string_view declarator, const WsProperty& wsAfterOpen,
                             const WsProperty& wsBeforeClose) {
    if (declarator.size() < 2) return std::string(declarator);
    std::string inside(declarator.substr(1, declarator.size() - 2));
    if (wsAfterOpen.isSet) {
        trimLeft(inside);
        inside.insert(0, wsAfterOpen.text);
    }
    if (wsBeforeClose.isSet) setGapTrailing(inside, wsBeforeClose.text);
    return declarator.front() + inside + declarator.back();
}

}  // namespace

// The name is the parenthesised declarator, as `(*name)`.
void CppFormatter::visit(Cpp::FunctionPtrDeclNode& node) {
    int column = topColumn();
    if (node.name) {
        if (node.type) copyBefore(in_, out_, node.type->firstPosition());
        std::string text = readGap(node.name->firstPosition());
        if (node.type) text = expr_.formatType(text, out_.settings(), noWs);
        std::string inner = spacedDeclarator(readThrough(in_, node.name->lastPosition()), scheme_.wsAfterFnOpenParen,
                                             scheme_.wsBeforeFnCloseParen);
        if (node.type && !text.empty()) {
            writeFirstCharacter(text, false, column);
            out_ << text;
        } else {
            out_ << text;
            writeFirstCharacter(inner, false, column);
        }
        out_ << inner;
    }
    const ColumnPush push(columnStack_, column);
    if (node.parameters) {
        out_ << readBefore(in_, node.parameters->firstPosition());
        formatParenList(*node.parameters, scheme_.wsAfterFnOpenParen, scheme_.wsBeforeFnComma,
                        scheme_.betweenFnParams(), scheme_.wsBeforeFnCloseParen);
    }
    copyToEnd(node);
}

}  // namespace Brevis
