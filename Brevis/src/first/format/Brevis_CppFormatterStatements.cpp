// The visits of the main formatter for control statements and case labels.
#include "first/format/Brevis_CppFormatter.h"
#include "first/text/Brevis_OffsetFinder.h"
#include "first/text/Brevis_ParenText.h"
#include "first/text/Brevis_TokenReader.h"

namespace Brevis {

void CppFormatter::visit(Cpp::CtrlStmtNode& node) {
    if (node.childCount() == 0) return;
    int column = topColumn();
    if (inElseIf_) {
        // The `if` of a chain stands one blank behind its `else` and takes that column.
        std::string gap = readGap(node.firstPosition());
        trimGapBoth(gap);
        out_ << gap << ' ';
    } else {
        column = copyFirstCharacter(node);
    }
    const ColumnPush push(columnStack_, column);

    std::string_view between = scheme_.wsBetweenCs.text;
    const bool useBetween = scheme_.wsBetweenCs.isSet && node.childCount() > 1;
    if (useBetween) {
        const auto* first = Cpp::nodeCast<Cpp::CtrlSubStmtNode>(node.child(0));
        if (first && first->body && !hasBraces(*first->body))
            between = "\n";  // an `else` is not put behind a statement
    }

    bool afterTrivia = false;
    for (int i = 0; i < node.childCount(); ++i) {
        Cpp::SyntaxNode& child = node.child(i);
        const bool isTrivia = Cpp::is<Cpp::CommentNode>(child) || Cpp::is<Cpp::PreprocDirectiveNode>(child);
        if (useBetween && i > 0 && !isTrivia && !afterTrivia) {
            writeGapTrailing(child.firstPosition(), between);
        }
        child.accept(*this);
        afterTrivia = isTrivia;
    }
}

void CppFormatter::visit(Cpp::CtrlSubStmtNode& node) {
    // The `if` of a chain is an ordinary part from here on.
    inElseIf_ = !inElseIf_ && isElseIf(node);

    if (node.head) node.head->accept(*this);
    if (!node.body) return;

    Cpp::BlockNode& body = *node.body;
    if (inElseIf_) {
        // The nested `if` gets no indent of its own.
        const WsProperty noIndent{!(out_.indent().empty() && out_.keepLeadingWs()), ""};
        formatBracedBody(body, noIndent, scheme_.wsAfterCsOpenBrace, scheme_.wsBeforeCsCloseBrace);
        return;
    }
    if (node.head) pushPending(hasBraces(body) ? scheme_.wsBeforeCsOpenBrace : scheme_.wsAfterCsOpenBrace);
    const bool isSwitch = keywordOf(node.head.get()) == Trn::Kind::Switch;
    formatBracedBody(body, isSwitch ? scheme_.indentCsCaseContent : scheme_.indentCsContent, scheme_.wsAfterCsOpenBrace,
                     scheme_.wsBeforeCsCloseBrace);
}

void CppFormatter::visit(Cpp::CtrlSubStmtHeadNode& head) {
    if (head.keyword) head.keyword->accept(*this);
    const ColumnPush push(columnStack_, topColumn());
    if (!head.condition) return;

    // The condition is laid out here alone: the texts carry their white space complete.
    const Layout layout(out_, true, "");
    if (scheme_.wsAfterCsKey.isSet) {
        std::string gap = readGap(head.condition->firstPosition());
        setGapBoth(gap, "", scheme_.wsAfterCsKey.text);
        writeVerbatim(gap);
    } else {
        copyBefore(in_, out_, head.condition->firstPosition());
    }

    if (head.held) return head.held->accept(*this);
    const ParenParts parts(readThrough(in_, head.condition->lastPosition()));
    out_ << parts.open;
    const int insideColumn = out_.column();
    if (keywordOf(&head) == Trn::Kind::For)
        formatForInside(parts.inner, insideColumn);
    else
        writeCondition(parts.inner, keywordOf(&head), insideColumn);

    const IndentStringGuard indent(out_, indentStringFor(out_, insideColumn - 1));
    out_ << parts.close;
}

namespace {

struct Separators {
    std::size_t first = std::string_view::npos;
    std::size_t last = std::string_view::npos;
};

// The offsets of the first and the last semicolon that is no part of a literal or comment.
Separators findSemicolons(std::string_view text, LeafDialect dialect) {
    Separators found;
    TokenReader reader(text, dialect);
    OffsetFinder offsetOf(text);
    do {
        reader.advance();
        if (reader.current().kind() != Trn::Kind::Semicolon) continue;
        found.last = offsetOf(reader.current().first()) - 1;
        if (found.first == std::string_view::npos) found.first = found.last;
    } while (reader.more());
    return found;
}

}  // namespace

void CppFormatter::formatForInside(std::string_view inside, int insideColumn) {
    IndentStreamSettings settings;
    settings.keepLeadingWs = true;
    settings.convertMode = out_.convertMode();
    settings.tabSize = scheme_.tabSize;
    const std::string text = expr_.formatType(inside, settings, noWs);

    const Separators semicolons = findSemicolons(text, expr_.dialect());
    const bool byClause = scheme_.alignCsForClausesLeft || scheme_.wsBetweenCsForClauses.isSet;
    if (byClause && semicolons.first != std::string_view::npos)
        writeForClauses(text, semicolons.first + 1, semicolons.last + 1, insideColumn);
    else
        writeCondition(text, Trn::Kind::For, insideColumn);
}

// Writes the three clauses of a `for` one by one; the ends of the first two are offsets behind their semicolons.
void CppFormatter::writeForClauses(std::string_view text, std::size_t firstEnd, std::size_t secondEnd,
                                   int insideColumn) {
    const bool align = scheme_.alignCsForClausesLeft;
    const std::string between = align ? "\n" : scheme_.wsBetweenCsForClauses.text;
    const IndentStringGuard indent(out_, indentStringFor(out_, topColumn()));

    std::string clause = expr_.formatType(text.substr(0, firstEnd), out_.settings(), noWs);
    setGapBoth(clause, scheme_.wsAfterCsOpenParen.text, "");
    int clauseColumn = insideColumn;
    std::string_view rest = clause;
    // The following clauses start under the first character.
    if (align) clauseColumn = writeFirstUnit(rest);
    const IndentStringGuard clauseIndent(out_, indentStringFor(out_, clauseColumn));
    writeRaw(out_, expr_.formatType(rest, out_.settings(), noWs));

    clause = text.substr(firstEnd, secondEnd - firstEnd);
    setGapBoth(clause, between, "");
    out_ << clause;

    clause = expr_.formatType(text.substr(secondEnd), out_.settings(), noWs);
    if (trimmedLeft(clause).empty())
        clause = between + scheme_.wsBeforeCsCloseParen.text;  // the value stands in front of an empty clause too
    else
        setGapBoth(clause, between, scheme_.wsBeforeCsCloseParen.text);
    out_ << clause;
}

std::string CppFormatter::formattedCondition(std::string_view text, Trn::TokenKind keyword) {
    if (keyword == Trn::Kind::For) return expr_.formatType(text, out_.settings(), noWs);
    if (keyword != Trn::Kind::Catch) return expr_.format(text, out_.settings());
    return expr_.format(expr_.formatType(text, out_.settings(), scheme_.wsAfterParamTypeId), out_.settings());
}

// Writes what stands between the parentheses of a condition as one text.
void CppFormatter::writeCondition(std::string_view text, Trn::TokenKind keyword, int insideColumn) {
    const WsProperty& after = scheme_.wsAfterCsOpenParen;
    const WsProperty& before = scheme_.wsBeforeCsCloseParen;
    if (!after.isSet && !before.isSet) {
        const std::string formatted = formattedCondition(text, keyword);
        return keyword == Trn::Kind::For ? writeRaw(out_, formatted) : writeVerbatim(formatted);
    }
    std::string inside(text);
    if (after.isSet && before.isSet)
        setGapBoth(inside, after.text, before.text);
    else if (after.isSet)
        setGapLeading(inside, after.text);
    else
        setGapTrailing(inside, before.text);
    const Layout layout(out_, false, indentStringFor(out_, insideColumn));
    writeRaw(out_, formattedCondition(inside, keyword));
}

void CppFormatter::visit(Cpp::CaseNode& node) {
    {
        const WsProperty& indent = scheme_.indentCsCaseLabels;
        const bool keep = !indent.isSet && out_.keepLeadingWs();
        const Layout layout(out_, keep, indentStringFor(out_, topColumn()) + indent.text);
        copyToEnd(node);
    }
    if (scheme_.wsAfterCsCaseLabels.isSet) writeVerbatim(scheme_.wsAfterCsCaseLabels.text);
}

}  // namespace Brevis
