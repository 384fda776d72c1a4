// The rewriting of gaps: a line comment or a directive keeps its line end whatever a value asks, and no comment is
// changed. Most gaps hold no comment at all, so a lexer runs only where a sign of one is seen.
#include "first/text/Brevis_Gaps.h"

#include <algorithm>

#include "Cpp_Lexer.h"
#include "Vellum_LiteralTracker.h"
#include "Vellum_WhiteSpace.h"
#include "first/text/Brevis_OffsetFinder.h"

namespace Brevis {

using Trn::Token;

namespace {

constexpr Vellum::CharSet triviaSigns("/#");

bool mayHoldTrivia(std::string_view text) { return triviaSigns.isIn(text); }

template <typename Test>
bool anyToken(std::string_view text, Test test) {
    if (!mayHoldTrivia(text)) return false;
    Cpp::Lexer lexer(text);
    for (Token token = lexer.next(); token.kind() != Trn::Kind::EndOfInput; token = lexer.next()) {
        if (test(token.kind())) return true;
    }
    return false;
}

// Where a text that starts with a line comment or a directive is split: behind its first line feed, and behind the
// whole directive if that line feed stands in one of several lines. 0 if the text starts with neither, the whole length
// if there is no line feed.
std::size_t splitOfLeadingLineToken(std::string_view text) {
    if (!mayHoldTrivia(text)) return 0;
    Cpp::Lexer lexer(text);
    const Token token = lexer.next();
    if (!Trn::isLineToken(token.kind())) return 0;
    OffsetFinder offsetOf(text);
    std::size_t lineFeed = text.find('\n');
    if (lineFeed != std::string_view::npos && lineFeed >= offsetOf(token.first())) {
        lineFeed = text.find('\n', offsetOf(token.last()) - 1);
    }
    return lineFeed == std::string_view::npos ? text.size() : lineFeed + 1;
}

// The length of a text without the white space at its end, unless that has to stay.
std::size_t trimmedLength(std::string_view text) { return trimmedRight(text).size(); }

// The same without a line feed that ends a line comment or a directive: only what stands behind the last line feed is
// trimmed. A text without one stays as it is.
std::size_t lengthWithLineEnd(std::string_view text) {
    const std::size_t lineFeed = text.rfind('\n');
    return lineFeed == std::string_view::npos ? text.size() : std::max(lineFeed + 1, trimmedLength(text));
}

bool holdsLineFeed(std::string_view ws) { return ws.find('\n') != std::string_view::npos; }

}  // namespace

bool endsInLineToken(std::string_view text) {
    Trn::TokenKind last = Trn::Kind::EndOfInput;
    anyToken(text, [&](Trn::TokenKind kind) {
        last = kind;
        return false;
    });
    return Trn::isLineToken(last);
}

bool startsWithLineToken(std::string_view text) { return splitOfLeadingLineToken(text) > 0; }

bool holdsLineComment(std::string_view text) {
    return anyToken(text, [](Trn::TokenKind kind) { return kind == Trn::Kind::LineComment; });
}

bool holdsCommentOrDirective(std::string_view text) { return anyToken(text, Trn::isTrivia); }

bool endsBehindBackslash(std::string_view text) {
    const std::size_t length = Vellum::withoutTrailingSpace(text).size();
    if (length == 0 || text[length - 1] != '\\' || text.find('\n', length) == std::string_view::npos) return false;
    Vellum::LiteralTracker tracker;
    tracker.feed(text);
    return tracker.behindBackslash();
}

void writeWs(OIndentStream& out, std::string_view ws) {
    if (!out.behindBackslash()) out << ws;
}

void writeWsVerbatim(OIndentStream& out, std::string_view ws) {
    if (!out.behindBackslash()) out << Verbatim{ws};
}

void appendWs(std::string& text, std::string_view ws) {
    if (!endsBehindBackslash(text)) text += ws;
}

std::string_view trimmedLeft(std::string_view text) { return Vellum::withoutLeadingSpace(text); }

std::string_view trimmedRight(std::string_view text) {
    return endsBehindBackslash(text) ? text : Vellum::withoutTrailingSpace(text);
}

void trimLeft(std::string& text) { text.erase(0, text.size() - trimmedLeft(text).size()); }

void trimRight(std::string& text) { text.resize(trimmedLength(text)); }

void setGapTrailing(std::string& text, std::string_view ws) {
    if (!holdsLineFeed(ws) && endsInLineToken(text)) {
        text.resize(lengthWithLineEnd(text));
    } else {
        trimRight(text);
        appendWs(text, ws);
    }
}

void setGapLeading(std::string& text, std::string_view ws) {
    const std::size_t split = splitOfLeadingLineToken(text);
    const std::string_view rest = std::string_view(text).substr(split);
    text.replace(split, rest.size() - trimmedLeft(rest).size(), ws);
}

void setGapBoth(std::string& text, std::string_view leading, std::string_view trailing) {
    const bool keepsLineEnd = !holdsLineFeed(trailing) && endsInLineToken(text);
    setGapLeading(text, leading);
    text.resize(keepsLineEnd ? lengthWithLineEnd(text) : trimmedLength(text));
    appendWs(text, trailing);
}

void trimGapLeading(std::string& text) { setGapLeading(text, {}); }

void trimGapTrailing(std::string& text) {
    text.resize(endsInLineToken(text) ? lengthWithLineEnd(text) : trimmedLength(text));
}

void trimGapBoth(std::string& text) {
    if (startsWithLineToken(text) || endsInLineToken(text)) return;
    trimLeft(text);
    trimRight(text);
}

void replaceCharInGap(std::string& text, char from, char to) {
    if (startsWithLineToken(text) || endsInLineToken(text)) return;
    // What stays although the value asks otherwise: literals, white space behind a backslash at a line end, and
    // the line ends of comments and directives further inside, without which they would swallow what follows.
    Vellum::LiteralTracker tracker;
    for (char& c : text) {
        const bool literal = tracker.inLiteral();
        const bool backslash = tracker.behindBackslash() || (tracker.followsBackslash() && Vellum::isSpace(c));
        const bool lineEnd = tracker.inLineToken() && c == '\n';
        tracker.feed(c);
        if (c == from && !literal && !backslash && !lineEnd) c = to;
    }
}

}  // namespace Brevis
