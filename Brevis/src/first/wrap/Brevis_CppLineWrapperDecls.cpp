// The visits of the line wrapper for classes, functions, data declarations and enums.
#include "first/text/Brevis_FirstCharacter.h"
#include "first/text/Brevis_NodeTests.h"
#include "first/text/Brevis_ParenText.h"
#include "first/text/Brevis_TokenReader.h"
#include "first/wrap/Brevis_CppLineWrapper.h"

namespace Brevis {

// ---- Classes and templates

void CppLineWrapper::visit(Cpp::ClassDeclNode& node) {
    const int column = topColumn();
    clearTemplate();
    if (!isOverlong(node)) return copyToEnd(node);
    wrapHeadAndBody(column, node.head.get(), node.body.get());
}

void CppLineWrapper::visit(Cpp::ClassHeadNode& head) {
    if (!isOverlong(head)) return copyToEnd(head);
    if (head.name) head.name->accept(*this);
    if (head.bases) head.bases->accept(*this);
}

void CppLineWrapper::visit(Cpp::BaseClauseListNode& list) {
    if (!isOverlong(list)) return copyToEnd(list);
    copyBeforeRaw(in_, out_, list.firstPosition());
    const WsProperty& between = scheme_.betweenBaseClauses();
    wrapListItems(list, scheme_.wsBeforeBaseClausesComma, between, scheme_.commaWrapStyle == 2);
}

void CppLineWrapper::visit(Cpp::BaseClauseNode& clause) { copyThrough(in_, out_, clause.lastPosition()); }

// The column stays on the stack until the next class or function takes it off.
void CppLineWrapper::visit(Cpp::TemplateNode& node) {
    columnStack_.push_back(copyFirstCharacter(node));
    templatePending_ = true;
    if (isOverlong(node) && node.parameters) {
        copyThroughRaw(in_, out_, node.parameters->firstPosition());
        wrapListItems(*node.parameters, scheme_.wsBeforeTpComma, scheme_.betweenTpParams(), false);
    }
    copyToEnd(node);
}

// ---- Functions

void CppLineWrapper::visit(Cpp::FunctionDeclNode& node) { wrapFunction(node, nullptr); }

void CppLineWrapper::visit(Cpp::CtorDeclNode& node) { wrapFunction(node, node.initializers.get()); }

void CppLineWrapper::wrapFunction(Cpp::FunctionDeclNode& node, Cpp::InitializerListNode* initializers) {
    if (!isOverlong(node)) {
        clearTemplate();
        return copyToEnd(node);
    }
    const ColumnPush push(columnStack_, wrapFunctionHead(node));
    if (initializers != nullptr) initializers->accept(*this);
    if (node.body) wrapBracedBody(*node.body, scheme_.indentFnContent);
}

// Gives the column of the head's first token.
int CppLineWrapper::wrapFunctionHead(Cpp::FunctionDeclNode& node) {
    int column = topColumn();
    clearTemplate();
    if (!node.head) return column;
    Cpp::FunctionHeadNode& head = *node.head;
    if (head.returnType) {
        column = copyFirstCharacter(*head.returnType);
    } else if (head.name) {
        column = copyFirstCharacter(*head.name);
    }
    if (head.name) copyToEnd(*head.name);
    if (head.parameters) {
        const ColumnPush push(columnStack_, column);
        wrapParenList(*head.parameters, scheme_.wsBeforeFnComma, scheme_.betweenFnParams());
    }
    copyToEnd(head);
    return column;
}

void CppLineWrapper::visit(Cpp::InitializerListNode& list) {
    if (!isOverlong(list)) return copyToEnd(list);
    copyBeforeRaw(in_, out_, list.firstPosition());
    wrapListItems(list, scheme_.wsBeforeClassInitsComma, scheme_.wsBetweenClassInits, false);
}

void CppLineWrapper::visit(Cpp::InitializerNode& node) {
    if (!isOverlong(node)) return copyToEnd(node);
    const std::string text = readToEnd(node);
    writeWrapped(exprWrapper_.wrapList(text, out_.settings(), false), text.size());
}

// ---- Function pointers

void CppLineWrapper::visit(Cpp::FunctionPtrDeclNode& node) {
    if (!isOverlong(node)) return copyToEnd(node);
    const ColumnPush push(columnStack_, node.name ? wrapPointerDeclarator(node) : topColumn());
    if (node.parameters) {
        out_ << readBefore(in_, node.parameters->firstPosition());
        wrapParenList(*node.parameters, scheme_.wsBeforeFnComma, scheme_.betweenFnParams());
    }
    copyThrough(in_, out_, node.lastPosition());
}

// Writes the type and the parenthesised name, and gives the column of the name's parenthesis.
int CppLineWrapper::wrapPointerDeclarator(Cpp::FunctionPtrDeclNode& node) {
    if (node.type) copyBefore(in_, out_, node.type->firstPosition());
    std::string typeText = readGap(node.name->firstPosition());
    if (node.type) typeText = expr_.formatType(typeText, out_.settings(), noWs);
    std::string declarator = readToEnd(*node.name);
    padInsideParens(declarator, scheme_.wsAfterFnOpenParen, scheme_.wsBeforeFnCloseParen);
    out_ << typeText;
    std::string_view rest = declarator;
    const int column = writeFirstCharacter(out_, rest);
    out_ << rest;
    return column;
}

// ---- Data declarations

void CppLineWrapper::visit(Cpp::DataDeclNode& node) {
    if (!isOverlong(node)) return copyToEnd(node);
    int column = topColumn();
    if (node.type) column = copyFirstCharacter(*node.type);
    if (node.name) {
        copyToEnd(*node.name);
        if (!node.type) column = lastColumn(out_);
    }
    if (node.initializer) wrapInitializer(*node.initializer, column);
    copyToEnd(node);
}

void CppLineWrapper::wrapInitializer(const Cpp::ExprNode& initializer, int column) {
    copyBeforeRaw(in_, out_, initializer.firstPosition());
    const std::string_view text = readThrough(in_, initializer.lastPosition());
    ITextDocStream local(text);
    TokenReader reader(text, exprWrapper_.dialect());
    const auto kind = [&reader] { return reader.current().kind(); };

    // A parenthesised initializer stays whole.
    reader.advance();
    while (reader.more() && kind() != Trn::Kind::OpenBrace && kind() != Trn::Kind::OpenParen) reader.advance();
    const bool isBraced = reader.more() && kind() == Trn::Kind::OpenBrace;
    if (isBraced) copyThroughRaw(local, out_, reader.current().last());

    const LeadingWsGuard keep(out_, true);
    const IndentStringGuard indent(out_, indentStringFor(out_, column));
    if (isBraced) {
        // The last token stands for a brace that is missing.
        for (int depth = 1; depth > 0;) {
            reader.advance();
            if (!reader.more()) break;
            if (kind() == Trn::Kind::OpenBrace) ++depth;
            if (kind() == Trn::Kind::CloseBrace) --depth;
        }
        const std::string list(readBefore(local, reader.current().first()));
        const IndentStringGuard content(out_, out_.indent() + scheme_.indentDdContent.text);
        writeWrapped(exprWrapper_.wrapList(list, out_.settings(), scheme_.indentDdContent.isSet), list.size());
    }
    const std::string rest(remainderOf(local));
    writeWrapped(exprWrapper_.wrapExpression(rest, out_.settings(), false), rest.size());
}

// ---- Enums

void CppLineWrapper::visit(Cpp::EnumDeclNode& node) {
    if (!isOverlong(node)) return copyToEnd(node);
    wrapHeadAndBody(topColumn(), node.head.get(), node.body.get());
}

bool CppLineWrapper::isEnumWrapped(const Cpp::EnumBodyNode& body) const {
    const bool isBroken = scheme_.wsBeforeEnumComma.holdsLineFeed() || scheme_.wsBetweenEnumElements.holdsLineFeed();
    return body.childCount() > 0 && isOverlong(body) && !isBroken && scheme_.wrapStyle != 0;
}

void CppLineWrapper::visit(Cpp::EnumBodyNode& body) {
    if (!isEnumWrapped(body)) return copyToEnd(body);
    copyThroughRaw(in_, out_, body.firstPosition());
    const Cpp::SyntaxNode& first = body.child(0);
    std::string gap = readGap(first.firstPosition());
    if (scheme_.wsAfterEnumOpenBrace.isSet && !Cpp::is<Cpp::PreprocDirectiveNode>(first)) {
        setGapLeading(gap, scheme_.wsAfterEnumOpenBrace.text);
        writeVerbatim(gap);
    } else {
        writeRaw(out_, gap);
    }
    wrapEnumElements(body, topColumn());
    wrapEnumTail(body);
}

void CppLineWrapper::wrapEnumElements(const Cpp::EnumBodyNode& body, int column) {
    OIndentStream scratch(out_.settings());
    std::string text = readToEnd(body.child(body.childCount() - 1));
    const WsProperty& beforeComma = scheme_.wsBeforeEnumComma;
    const WsProperty& between = scheme_.wsBetweenEnumElements;

    const LeadingWsGuard keep(scratch, false);
    const IndentStringGuard indent(scratch, indentStringFor(scratch, column) + scheme_.indentEnumContent.text);
    const IndentStreamSettings settings = scratch.settings();
    if (beforeComma.isSet || between.isSet) {
        text = expr_.formatSeparated(text, Trn::Kind::Comma, beforeComma, between, settings);
    }
    writeRaw(scratch, exprWrapper_.wrapList(std::move(text), settings, scheme_.indentEnumContent.isSet));
    writeRaw(out_, scratch.str());
}

void CppLineWrapper::wrapEnumTail(const Cpp::EnumBodyNode& body) {
    std::string gap = readGap(body.lastPosition());
    if (scheme_.wsBeforeEnumCloseBrace.isSet) {
        std::string ws = scheme_.wsBeforeEnumCloseBrace.text;
        if (endsLine(body.child(body.childCount() - 1))) std::erase(ws, '\n');  // that child ends the line itself
        setGapTrailing(gap, ws);
        writeVerbatim(gap);
    } else {
        out_ << gap;
    }
    copyThrough(in_, out_, body.lastPosition());
}

}  // namespace Brevis
