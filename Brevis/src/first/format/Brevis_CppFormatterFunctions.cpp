// The visits of the main formatter for functions, their parameters, function pointers and member initializers.
#include <algorithm>

#include "first/format/Brevis_CppFormatter.h"
#include "first/text/Brevis_ParenText.h"

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
        if (scheme_.wsAfterFnName.isSet) {
            std::string gap = readGap(head.parameters->firstPosition());
            trimGapBoth(gap);
            writeVerbatim(scheme_.wsAfterFnName.text);
            out_ << gap;
        } else {
            writeGap(head.parameters->firstPosition());
        }
        formatParenList(*head.parameters, scheme_.wsAfterFnOpenParen, scheme_.wsBeforeFnComma,
                        scheme_.betweenFnParams(), scheme_.wsBeforeFnCloseParen);
    }
    if (head.tail && head.parameters) {
        writeHeadTail(head, column);
        return column;
    }
    // The close parenthesis with the qualifiers and specifiers behind it.
    writeRaw(out_, expr_.format(readThrough(in_, head.lastPosition()), out_.settings()));
    return column;
}

namespace {

// The column of a place in front of `offset`, which is at `position`.
int sourceColumn(std::string_view source, std::size_t offset, Position position, Position place, int tabSize) {
    std::size_t lineStart = offset - static_cast<std::size_t>(position.column);
    for (int line = position.line; line > place.line; --line) {
        lineStart = source.rfind('\n', lineStart - 2) + 1;  // 0 behind npos
    }
    return columnAfter(source.substr(lineStart, static_cast<std::size_t>(place.column - 1)), 0, tabSize);
}

}  // namespace

void CppFormatter::writeHeadTail(Cpp::FunctionHeadNode& head, int column) {
    copyThrough(in_, out_, head.parameters->lastPosition());
    const Position behindList = in_.position();
    const std::size_t offset = in_.offset();
    const std::string_view gap = readBefore(in_, head.tail->firstPosition());
    if (!Vellum::isBlank(gap) || gap.find('\n') == std::string_view::npos ||
        offset < static_cast<std::size_t>(behindList.column)) {
        out_ << gap;
    } else {
        const auto columnOf = [&](Position place, Position known, std::size_t at) {
            return sourceColumn(source_, at, known, place, scheme_.tabSize);
        };
        const int headColumn = columnOf(head.firstPosition(), behindList, offset);
        const int tailColumn = columnOf(head.tail->firstPosition(), in_.position(), in_.offset());
        writeRaw(out_, std::string(static_cast<std::size_t>(std::count(gap.begin(), gap.end(), '\n')), '\n'));
        writeRaw(out_, indentStringFor(out_, std::max(column + tailColumn - headColumn, 0)));
    }
    head.tail->accept(*this);
}

// The sign behind a return type that stands on one line in front of an aligned name.
CppFormatter::SignSplit CppFormatter::splitAlignedSign(std::string& text) const {
    trimGapTrailing(text);
    replaceCharInGap(text, '\n', ' ');
    return splitSign(text);
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
    const WsProperty& ws = isDefinition ? scheme_.wsAfterFnDefnReturnType : scheme_.wsAfterFnDeclReturnType;
    if (reformatted) text = expr_.formatType(text, out_.settings(), !isDefinition && namesAligned ? noWs : ws);

    const bool aligned = !isDefinition && namesAligned && !holdsCommentOrDirective(text);
    // The sign of a declaration's type that isn't aligned has had its white space from the expression formatter.
    const bool isSpaced = type && (aligned || isDefinition || !isPointer);
    const SignSplit sign = isSpaced && aligned ? splitAlignedSign(text) : SignSplit{};
    if (isSpaced && !aligned && ws.isSet) setGapTrailing(text, ws.text);

    std::string_view rest = text;
    // A reformatted text has been through a scratch stream and holds its indent already.
    if (isSpaced && !hadTemplate) writeFirstCharacter(rest, reformatted, column);
    out_ << rest;
    if (aligned) writeAligned(offsetFor(functionNameColumns_, node), sign);

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
        if (auto ws = popPending()) before = {true, std::string(*ws)};
    }
    writeRaw(out_, expr_.formatAround(gap, Trn::Kind::Colon, before, scheme_.wsBeforeClassInits, out_.settings()));
    formatListItems(list, scheme_.wsBeforeClassInitsComma, scheme_.wsBetweenClassInits);
}

void CppFormatter::visit(Cpp::InitializerNode& node) {
    out_ << expr_.formatType(readThrough(in_, node.lastPosition()), out_.settings(), noWs);
}

// The name is the parenthesised declarator, as `(*name)`.
void CppFormatter::visit(Cpp::FunctionPtrDeclNode& node) {
    int column = topColumn();
    if (node.name) {
        if (node.type) copyBefore(in_, out_, node.type->firstPosition());
        std::string text = readGap(node.name->firstPosition());
        if (node.type) text = expr_.formatType(text, out_.settings(), noWs);
        std::string declarator(readThrough(in_, node.name->lastPosition()));
        padInsideParens(declarator, scheme_.wsAfterFnOpenParen, scheme_.wsBeforeFnCloseParen);
        std::string_view front = text;
        std::string_view rest = declarator;
        const bool startsWithType = node.type && !text.empty();
        if (startsWithType) writeFirstCharacter(front, false, column);
        out_ << front;
        if (!startsWithType) writeFirstCharacter(rest, false, column);
        out_ << rest;
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
