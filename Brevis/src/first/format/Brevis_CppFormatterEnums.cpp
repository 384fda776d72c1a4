// The visits of the main formatter for enums. The elements are not walked one by one: everything from the first to
// the last is one text, re-spaced round its commas in a scratch stream and written in one piece.
#include <algorithm>

#include "first/format/Brevis_CppFormatter.h"

namespace Brevis {

void CppFormatter::visit(Cpp::EnumDeclNode& node) {
    applyPending(node);
    int column = topColumn();
    if (node.head) {
        column = copyFirstCharacter(*node.head);
        node.head->accept(*this);
        if (node.body) pushPending(scheme_.wsBeforeEnumOpenBrace);
    }
    const ColumnPush push(columnStack_, column);
    if (node.body) node.body->accept(*this);
}

void CppFormatter::visit(Cpp::EnumHeadNode& head) { copyToEnd(head); }

void CppFormatter::visit(Cpp::EnumBodyNode& body) {
    applyPending(body);
    copyThrough(in_, out_, body.firstPosition());
    if (body.childCount() == 0) {
        formatBracedBody(body, scheme_.indentEnumContent, scheme_.wsAfterEnumOpenBrace, scheme_.wsBeforeEnumCloseBrace);
        return;
    }

    const Cpp::SyntaxNode& first = body.child(0);
    if (scheme_.wsAfterEnumOpenBrace.isSet && !Cpp::is<Cpp::PreprocDirectiveNode>(first))
        writeGapLeading(first.firstPosition(), scheme_.wsAfterEnumOpenBrace.text);
    else
        writeGap(first.firstPosition());

    formatEnumElements(body);
    writeGapBehindElements(body);
    copyToEnd(body);
}

void CppFormatter::writeGapBehindElements(const Cpp::EnumBodyNode& body) {
    const std::string_view gap = readBefore(in_, body.lastPosition());
    if (!scheme_.wsBeforeEnumCloseBrace.isSet) {
        out_ << gap;
        return;
    }
    // A last element that ends its line has put the brace on a line of its own already.
    if (Vellum::isBlank(gap) && endsLine(body.child(body.childCount() - 1))) return;
    std::string text(gap);
    setGapTrailing(text, scheme_.wsBeforeEnumCloseBrace.text);
    writeVerbatim(text);
}

namespace {

// True if every child from the second on starts on a later source line than the first.
bool startOnLaterLines(const Cpp::EnumBodyNode& body) {
    const int firstLine = body.child(0).firstPosition().line;
    return std::all_of(std::next(body.begin()), body.end(),
                       [&](const auto& child) { return child->firstPosition().line > firstLine; });
}

}  // namespace

void CppFormatter::formatEnumElements(Cpp::EnumBodyNode& body) {
    const WsProperty& before = scheme_.wsBeforeEnumComma;
    const WsProperty& between = scheme_.wsBetweenEnumElements;

    OIndentStream scratch(out_.settings());
    const std::string bodyIndent = indentStringFor(scratch, topColumn()) + scheme_.indentEnumContent.text;
    const std::string_view text = readThrough(in_, body.child(body.childCount() - 1).lastPosition());
    {
        const Layout layout(scratch, false, bodyIndent);
        const IndentStreamSettings settings = scratch.settings();
        if (before.isSet || between.isSet) {
            const std::string spaced = expr_.format(text, settings);
            writeRaw(scratch, expr_.formatSeparated(spaced, Trn::Kind::Comma, before, between, settings));
        } else if (scheme_.indentEnumContent.isSet) {
            scratch << text;  // the lines are re-indented
        } else {
            writeRaw(scratch, text);
        }
    }

    const Layout layout(out_, false, bodyIndent);
    const bool oneElementPerLine = before.holdsLineFeed() || between.holdsLineFeed() || startOnLaterLines(body);
    if (scheme_.alignEnumInitializers && body.childCount() > 1 && oneElementPerLine)
        writeRaw(out_, expr_.alignAssignments(scratch.str(), out_.settings()));
    else
        writeRaw(out_, scratch.str());
}

}  // namespace Brevis
