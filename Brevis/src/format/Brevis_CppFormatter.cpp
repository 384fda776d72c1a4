// The steps that the visits of the main formatter share, and its smallest visits.
#include "format/Brevis_CppFormatter.h"

#include <algorithm>
#include <cctype>

#include "Cpp_Lexer.h"

namespace Brevis {

namespace {

bool isSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

// The last character that is no white space, the first character of the text not being looked at; NUL if there is none.
char lastMark(std::string_view text) {
    const std::string_view trimmed = trimmedRight(text);
    return trimmed.size() > 1 ? trimmed.back() : '\0';
}

// The rest of such a token, lexed on its own, would pass for code.
bool isLiteralOrNumber(const Trn::Token& token) {
    const Trn::TokenKind kind = token.kind();
    return kind == Trn::Kind::StringLiteral || kind == Trn::Kind::CharLiteral || kind == Trn::Kind::Number;
}

}  // namespace

CppFormatter::CppFormatter(std::string_view source, const Scheme& scheme)
    : scheme_(scheme), source_(source), in_(source, scheme.tabSize), out_(scheme.outputSettings()), expr_(scheme) {}

bool hasBraces(const Cpp::InteriorNode& body) {
    if (body.childCount() == 0) return body.firstPosition() != body.lastPosition();
    return body.firstPosition() != body.child(0).firstPosition();
}

bool endsInStar(std::string_view text) { return lastMark(text) == '*'; }
bool endsInAmp(std::string_view text) { return lastMark(text) == '&'; }

int offsetFor(const ColumnTable& table, const Cpp::SyntaxNode& node) {
    const auto found = table.find(&node);
    return found == table.end() ? 1 : found->second;
}

bool isLineCommentNode(const Cpp::SyntaxNode& node) {
    const auto* comment = dynamic_cast<const Cpp::CommentNode*>(&node);
    return comment && comment->isLineComment();
}

bool endsLine(const Cpp::SyntaxNode& node) { return is<Cpp::PreprocDirectiveNode>(node) || isLineCommentNode(node); }

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

std::optional<std::string> CppFormatter::popPending() {
    if (pendingWs_.empty()) return std::nullopt;
    std::string ws = std::move(pendingWs_.back());
    pendingWs_.pop_back();
    return ws;
}

void CppFormatter::applyPending(const Cpp::SyntaxNode& node) {
    if (const auto ws = popPending()) {
        std::string gap = readGap(node.firstPosition());
        setGapTrailing(gap, *ws);
        writeVerbatim(gap);
    }
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
        Cpp::Lexer lexer(source_.substr(in_.offset() - 1), {in_.line(), in_.column() - 1});
        if (const Trn::Token token = lexer.next(); isLiteralOrNumber(token)) copyThrough(in_, out_, token.last());
    }
    return column;
}

void CppFormatter::writeFirstCharacter(std::string& text, bool raw, int& column) {
    const auto first = std::find_if_not(text.begin(), text.end(), isSpace);
    if (first == text.end()) return;
    const auto length = static_cast<std::size_t>(first - text.begin()) + 1;
    const auto start = std::string_view(text).substr(0, length);
    if (raw)
        writeRaw(out_, start);
    else
        out_ << start;
    text.erase(0, length);
    column = lastColumn(out_);
}

void CppFormatter::writeFirstUnit(std::string& text, int& column) {
    Cpp::Lexer lexer(text);
    const Trn::Token token = lexer.next();
    ITextDocStream cursor(text);
    const bool startsText = trimmedLeft(readThrough(cursor, token.first())).size() == 1;
    const std::size_t rest = startsText && isLiteralOrNumber(token) ? readThrough(cursor, token.last()).size() : 0;
    writeFirstCharacter(text, true, column);
    writeRaw(out_, std::string_view(text).substr(0, rest));
    text.erase(0, rest);
}

// ---- Bodies

void CppFormatter::formatChildren(Cpp::InteriorNode& node, const WsProperty& indentValue) {
    const BodyIndent guard(*this, indentValue);
    for (int i = 0; i < node.childCount(); ++i) {
        Cpp::SyntaxNode& child = node.child(i);
        if (classTailPending_ && is<Cpp::DataDeclNode>(child)) {
            child.accept(*this);
            classTailPending_ = false;
        } else {
            classTailPending_ = false;
            child.accept(*this);
        }
        // The visit of the label has written the white space behind the colon already.
        if (scheme_.wsAfterCsCaseLabels.isSet && i + 1 < node.childCount() && is<Cpp::CaseNode>(child)) {
            std::string gap = readGap(node.child(i + 1).firstPosition());
            trimGapLeading(gap);
            out_ << gap;
        }
    }
}

void CppFormatter::formatBracedBody(Cpp::InteriorNode& body, const WsProperty& indentValue,
                                    const WsProperty& wsAfterOpen, const WsProperty& wsBeforeClose) {
    if (const auto ws = popPending()) {
        std::string gap = readGap(body.firstPosition());
        const bool hasLineComment = holdsLineComment(gap);
        setGapTrailing(gap, *ws);
        if (hasLineComment) {
            // The comment lines move with the body.
            const BodyIndent guard(*this, indentValue, true);
            out_ << gap;
        } else {
            writeVerbatim(gap);
        }
    }

    const bool braced = hasBraces(body);
    if (body.childCount() == 0) {
        if (braced) {
            formatEmptyBraces(body, indentValue, wsAfterOpen, wsBeforeClose);
        } else {
            const BodyIndent guard(*this, indentValue, true);
            copyToEnd(body);
        }
        return;
    }

    if (braced) {
        copyThrough(in_, out_, body.firstPosition());
        std::string gap = readGap(body.child(0).firstPosition());
        if (wsAfterOpen.isSet) setGapLeading(gap, wsAfterOpen.text);
        const BodyIndent guard(*this, indentValue);
        out_ << gap;
    }
    formatChildren(body, indentValue);

    std::string gap = readGap(body.lastPosition());
    if (braced && wsBeforeClose.isSet) {
        std::string ws = wsBeforeClose.text;
        if (endsLine(body.child(body.childCount() - 1))) std::erase(ws, '\n');  // that child ends the line itself
        setGapTrailing(gap, ws);
        writeVerbatim(gap);
    } else {
        out_ << gap;
    }
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
    copyThrough(in_, out_, list.firstPosition());
    const bool hasItems = list.childCount() > 0;
    if (hasItems) {
        std::string gap = readGap(list.child(0).firstPosition());
        if (wsAfterOpen.isSet) {
            setGapTrailing(gap, wsAfterOpen.text);
            writeVerbatim(gap);
        } else {
            out_ << gap;
        }
    }

    formatListItems(list, wsBeforeComma, wsBetween);

    if (hasItems) {
        std::string gap =
            expr_.formatType(readBefore(in_, list.lastPosition()), out_.settings(), scheme_.wsAfterParamTypeId);
        if (wsBeforeClose.isSet) setGapTrailing(gap, wsBeforeClose.text);
        writeRaw(out_, gap);
    }

    // The whole inside of an empty list; nothing otherwise.
    std::string gap = readGap(list.lastPosition());
    if (wsAfterOpen.isSet || wsBeforeClose.isSet) {
        setGapLeading(gap, "");
        writeVerbatim(gap);
    } else {
        out_ << gap;
    }
}

void CppFormatter::formatListItems(Cpp::InteriorNode& list, const WsProperty& wsBeforeComma,
                                   const WsProperty& wsBetween) {
    const bool breaksBetween = wsBetween.holdsLineFeed();
    const bool breaks = breaksBetween || wsBeforeComma.holdsLineFeed();
    std::optional<Layout> layout;
    if (breaks) {
        // The items on new lines stand under the first item.
        int column = topColumn();
        if (list.childCount() > 0) column = copyFirstUnit(list.child(0));
        layout.emplace(out_, false, indentStringFor(out_, column));
    }

    for (int i = 0; i < list.childCount(); ++i) {
        Cpp::SyntaxNode& child = list.child(i);
        child.accept(*this);
        if (i + 1 == list.childCount()) break;

        const Cpp::SyntaxNode& next = list.child(i + 1);
        std::string gap = readGap(next.firstPosition());
        const WsProperty* between = &wsBetween;
        if (breaksBetween) {
            if (holdsLineComment(gap)) trimGapTrailing(gap);
            // The line break exists already.
            if (isLineCommentNode(next) || endsLine(child)) between = &noWs;
        } else if (is<Cpp::PreprocDirectiveNode>(next)) {
            between = &newlineWs;  // a directive must start a line
        }
        writeRaw(out_, expr_.formatSeparated(gap, Trn::Kind::Comma, wsBeforeComma, *between, out_.settings()));
    }
}

// ---- Signs of pointers and references in front of aligned names

CppFormatter::SignSplit CppFormatter::splitSign(std::string& text) const {
    SignSplit split;
    split.isStar = endsInStar(text);
    split.isAmp = endsInAmp(text);
    split.isAnchored = (split.isStar && scheme_.asteriskAnchor == 1) || (split.isAmp && scheme_.ampersandAnchor == 1);
    if (!split.isAnchored) return split;

    std::size_t start = text.size();
    while (start > 0 && (text[start - 1] == '*' || text[start - 1] == '&' || isSpace(text[start - 1]))) --start;
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
