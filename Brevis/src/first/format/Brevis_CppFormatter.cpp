// The steps that the visits of the main formatter share, and its smallest visits.
#include "first/format/Brevis_CppFormatter.h"

#include "Cpp_Lexer.h"
#include "first/text/Brevis_FirstCharacter.h"

namespace Brevis {

namespace {

constexpr Vellum::CharSet signsAndSpace("*& \t\n\v\f\r");

// The end of the literal or number with which a text starts, if it does: the rest of such a token, lexed on its own,
// would pass for code. Positions count from `start`.
std::optional<Position> endOfLeadingLiteral(std::string_view text, Position start, LeafDialect dialect) {
    const Trn::Token token = Cpp::Lexer(text, dialect.dialect, dialect.language).next();
    const Trn::TokenKind kind = token.kind();
    if (kind != Trn::Kind::StringLiteral && kind != Trn::Kind::CharLiteral && kind != Trn::Kind::Number) return {};
    if (token.first() != Position{1, 1}) return {};
    const Position last = token.last();
    return Position{start.line + last.line - 1, last.column + (last.line == 1 ? start.column : 0)};
}

}  // namespace

CppFormatter::CppFormatter(std::string_view source, const Scheme& scheme, LeafDialect dialect)
    : scheme_(scheme),
      source_(source),
      in_(source, scheme.tabSize),
      out_(scheme.outputSettings()),
      expr_(scheme, dialect) {
    // Few schemes make a text longer than that.
    out_.reserve(2 * source.size() + source.size() / 4);  // room that nobody uses takes no memory
}

int offsetFor(const ColumnTable& table, const Cpp::SyntaxNode& node) {
    const auto found = table.find(&node);
    return found == table.end() ? 1 : found->second;
}

// ---- Guards

CppFormatter::BodyIndent::BodyIndent(CppFormatter& formatter, const WsProperty& indentValue, bool keepIfUnset) {
    OIndentStream& out = formatter.out_;
    if (indentValue.isSet) {
        keep_.emplace(out, false);
        indent_.emplace(out, indentStringFor(out, formatter.topColumn()) + indentValue.text);
    } else if (keepIfUnset) {
        keep_.emplace(out, true);
    }
}

// ---- State

bool CppFormatter::takeTemplateColumn() {
    if (!templatePending_) return false;
    templatePending_ = false;
    columnStack_.pop_back();
    return true;
}

void CppFormatter::pushPending(const WsProperty& value) {
    if (value.isSet) pendingWs_.push_back(value.text);
}

std::optional<std::string_view> CppFormatter::popPending() {
    if (pendingWs_.empty()) return std::nullopt;
    const std::string_view ws = pendingWs_.back();
    pendingWs_.pop_back();
    return ws;
}

void CppFormatter::applyPending(const Cpp::SyntaxNode& node) {
    if (const auto ws = popPending()) writeGapTrailing(node.firstPosition(), *ws);
}

// ---- Copying

void CppFormatter::copyToEnd(const Cpp::SyntaxNode& node) { copyThrough(in_, out_, node.lastPosition()); }

int CppFormatter::copyFirstCharacter(const Cpp::SyntaxNode& node) {
    copyThrough(in_, out_, node.firstPosition());
    return lastColumn(out_);
}

int CppFormatter::copyFirstUnit(const Cpp::SyntaxNode& node) {
    const int column = copyFirstCharacter(node);
    if (in_.position() == node.firstPosition()) {
        const Position start{in_.line(), in_.column() - 1};
        const auto end = endOfLeadingLiteral(source_.substr(in_.offset() - 1), start, expr_.dialect());
        if (end) copyThrough(in_, out_, *end);
    }
    return column;
}

void CppFormatter::writeFirstCharacter(std::string_view& text, bool raw, int& column) {
    if (Vellum::isBlank(text)) return;
    column = raw ? writeFirstCharacterRaw(out_, text) : Brevis::writeFirstCharacter(out_, text);
}

int CppFormatter::writeFirstUnit(std::string_view& text) {
    ITextDocStream cursor(trimmedLeft(text));
    const auto end = endOfLeadingLiteral(trimmedLeft(text), cursor.position(), expr_.dialect());
    const std::size_t length = end ? readThrough(cursor, *end).size() : 1;
    const int column = writeFirstCharacterRaw(out_, text);
    writeRaw(out_, text.substr(0, length - 1));
    text.remove_prefix(length - 1);
    return column;
}

// Most gaps are white space alone: then the value is all that is left of them.
void CppFormatter::writeGapTrailing(Position before, std::string_view ws) {
    const std::string_view gap = readBefore(in_, before);
    if (Vellum::isBlank(gap)) return writeVerbatim(ws);
    std::string text(gap);
    setGapTrailing(text, ws);
    writeVerbatim(text);
}

void CppFormatter::writeGapLeading(Position before, std::string_view ws) {
    const std::string_view gap = readBefore(in_, before);
    if (Vellum::isBlank(gap)) return writeVerbatim(ws);
    std::string text(gap);
    setGapLeading(text, ws);
    writeVerbatim(text);
}

void CppFormatter::writeGapTrailing(Position before, const WsProperty& ws) {
    if (ws.isSet)
        writeGapTrailing(before, ws.text);
    else
        writeGap(before);
}

// ---- Bodies

void CppFormatter::formatChildren(Cpp::InteriorNode& node) {
    for (int i = 0; i < node.childCount(); ++i) {
        Cpp::SyntaxNode& child = node.child(i);
        if (classTailPending_ && Cpp::is<Cpp::DataDeclNode>(child)) {
            child.accept(*this);
            classTailPending_ = false;
        } else {
            classTailPending_ = false;
            child.accept(*this);
        }
        // The visit of the label has written the white space behind the colon already.
        if (scheme_.wsAfterCsCaseLabels.isSet && i + 1 < node.childCount() && Cpp::is<Cpp::CaseNode>(child)) {
            std::string gap = readGap(node.child(i + 1).firstPosition());
            trimGapLeading(gap);
            out_ << gap;
        }
    }
}

void CppFormatter::formatBracedBody(Cpp::InteriorNode& body, const WsProperty& indentValue,
                                    const WsProperty& wsAfterOpen, const WsProperty& wsBeforeClose) {
    if (const auto ws = popPending()) writeGapInFront(body, indentValue, *ws);
    if (body.childCount() == 0) return formatEmptyBody(body, indentValue, wsAfterOpen, wsBeforeClose);

    const bool braced = hasBraces(body);
    if (braced) copyThrough(in_, out_, body.firstPosition());
    {
        const BodyIndent guard(*this, indentValue);
        if (braced) {
            std::string gap = readGap(body.child(0).firstPosition());
            if (wsAfterOpen.isSet) setGapLeading(gap, wsAfterOpen.text);
            out_ << gap;
        }
        formatChildren(body);
    }

    if (braced && wsBeforeClose.isSet) {
        std::string ws = wsBeforeClose.text;
        if (endsLine(body.child(body.childCount() - 1))) std::erase(ws, '\n');  // that child ends the line itself
        writeGapTrailing(body.lastPosition(), ws);
    } else {
        writeGap(body.lastPosition());
    }
    copyToEnd(body);
}

void CppFormatter::writeGapInFront(const Cpp::InteriorNode& body, const WsProperty& indentValue, std::string_view ws) {
    std::string gap = readGap(body.firstPosition());
    const bool hasLineComment = holdsLineComment(gap);
    setGapTrailing(gap, ws);
    if (!hasLineComment) return writeVerbatim(gap);
    // The comment lines move with the body.
    const BodyIndent guard(*this, indentValue, true);
    out_ << gap;
}

void CppFormatter::formatEmptyBody(Cpp::InteriorNode& body, const WsProperty& indentValue,
                                   const WsProperty& wsAfterOpen, const WsProperty& wsBeforeClose) {
    if (hasBraces(body)) return formatEmptyBraces(body, indentValue, wsAfterOpen, wsBeforeClose);
    const BodyIndent guard(*this, indentValue, true);
    copyToEnd(body);
}

void CppFormatter::formatEmptyBraces(Cpp::InteriorNode& body, const WsProperty& indentValue,
                                     const WsProperty& wsAfterOpen, const WsProperty& wsBeforeClose) {
    copyThrough(in_, out_, body.firstPosition());
    std::string gap = readGap(body.lastPosition());
    std::string closing = wsBeforeClose.text;
    // Two values that both break the line give one line break, not two.
    if (wsAfterOpen.holdsLineFeed() && wsBeforeClose.holdsLineFeed()) std::erase(closing, '\n');

    if (wsAfterOpen.isSet) {
        writeVerbatim(wsAfterOpen.text);
        trimGapLeading(gap);
    }
    if (wsBeforeClose.isSet) trimGapTrailing(gap);
    {
        const BodyIndent guard(*this, indentValue);
        out_ << gap;
    }
    if (wsBeforeClose.isSet) writeVerbatim(closing);
    copyToEnd(body);
}

// ---- Lists

void CppFormatter::formatParenList(Cpp::InteriorNode& list, const WsProperty& wsAfterOpen,
                                   const WsProperty& wsBeforeComma, const WsProperty& wsBetween,
                                   const WsProperty& wsBeforeClose) {
    formatEnclosedItems(list, wsAfterOpen, wsBeforeComma, wsBetween, wsBeforeClose);
    if (wsAfterOpen.isSet || wsBeforeClose.isSet)
        writeGapLeading(list.lastPosition(), "");
    else
        writeGap(list.lastPosition());
}

void CppFormatter::formatEnclosedItems(Cpp::InteriorNode& list, const WsProperty& wsAfterOpen,
                                       const WsProperty& wsBeforeComma, const WsProperty& wsBetween,
                                       const WsProperty& wsBeforeClose) {
    copyThrough(in_, out_, list.firstPosition());
    const bool hasItems = list.childCount() > 0;
    if (hasItems) writeGapTrailing(list.child(0).firstPosition(), wsAfterOpen);
    formatListItems(list, wsBeforeComma, wsBetween);
    if (!hasItems) return;

    const std::string_view text = readBefore(in_, list.lastPosition());
    std::string gap = expr_.formatType(text, out_.settings(), scheme_.wsAfterParamTypeId);
    if (wsBeforeClose.isSet) setGapTrailing(gap, wsBeforeClose.text);
    writeRaw(out_, gap);
}

void CppFormatter::formatListItems(Cpp::InteriorNode& list, const WsProperty& wsBeforeComma,
                                   const WsProperty& wsBetween) {
    std::optional<Layout> layout;
    if (wsBetween.holdsLineFeed() || wsBeforeComma.holdsLineFeed()) {
        // The items on new lines stand under the first item.
        int column = topColumn();
        if (list.childCount() > 0) column = copyFirstUnit(list.child(0));
        layout.emplace(out_, false, indentStringFor(out_, column));
    }
    for (int i = 0; i < list.childCount(); ++i) {
        if (i > 0) formatGapBetween(list.child(i - 1), list.child(i), wsBeforeComma, wsBetween);
        list.child(i).accept(*this);
    }
}

void CppFormatter::formatGapBetween(const Cpp::SyntaxNode& item, const Cpp::SyntaxNode& next,
                                    const WsProperty& wsBeforeComma, const WsProperty& wsBetween) {
    std::string gap = readGap(next.firstPosition());
    const WsProperty* between = &wsBetween;
    if (wsBetween.holdsLineFeed()) {
        if (holdsLineComment(gap)) trimGapTrailing(gap);
        // The line break exists already.
        if (isLineCommentNode(next) || endsLine(item)) between = &noWs;
    } else if (Cpp::is<Cpp::PreprocDirectiveNode>(next)) {
        between = &newlineWs;  // a directive must start a line
    }
    writeRaw(out_, expr_.formatSeparated(gap, Trn::Kind::Comma, wsBeforeComma, *between, out_.settings()));
}

// ---- Signs of pointers and references in front of aligned names

CppFormatter::SignSplit CppFormatter::splitSign(std::string& text) const {
    SignSplit split;
    split.isStar = endsInStar(text);
    split.isAmp = endsInAmp(text);
    split.isAnchored = (split.isStar && scheme_.asteriskAnchor == 1) || (split.isAmp && scheme_.ampersandAnchor == 1);
    if (!split.isAnchored) return split;

    std::size_t start = text.size();
    while (start > 0 && signsAndSpace.has(text[start - 1])) --start;
    // The line feed of a line comment or directive stays with it.
    for (std::size_t feed; (feed = text.find('\n', start)) != std::string::npos;) {
        if (!endsInLineToken(std::string_view(text).substr(0, feed + 1))) break;
        start = feed + 1;
    }
    split.tail = text.substr(start);
    text.erase(start);
    trimGapLeading(split.tail);
    return split;
}

void CppFormatter::writeAligned(int offset, const SignSplit& sign) {
    int pad = alignPad(offset, out_.column(), indentWidth(out_), scheme_.tabSize);
    const bool hangs = (sign.isStar && scheme_.hangingAsterisk) || (sign.isAmp && scheme_.hangingAmpersand);
    if (sign.isAnchored && hangs) --pad;
    const LeadingWsGuard keep(out_, true);
    out_ << Pad{pad} << sign.tail;
}

// ---- Small visits

void CppFormatter::visit(Cpp::TextNode& node) { copyToEnd(node); }
void CppFormatter::visit(Cpp::KeywordNode& node) { copyToEnd(node); }
void CppFormatter::visit(Cpp::TypeNode& node) { copyToEnd(node); }
void CppFormatter::visit(Cpp::IdNode& node) { copyToEnd(node); }

void CppFormatter::visit(Cpp::ExprNode& node) {
    const std::string_view text = readThrough(in_, node.lastPosition());
    writeRaw(out_, expr_.format(text, out_.settings()));
}

}  // namespace Brevis
