// A ladder of separators: a stretch that is too long is broken at the coarsest ones outside of all brackets; what is
// still too long between two of them is a stretch of its own. One without separators is broken inside its brackets.
#include "second/Brevis_GapWrapper.h"

#include <algorithm>
#include <utility>

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;
using Mode = IndentScope::Mode;

namespace {

// Behind or in front of a separator, as the scheme counts them.
constexpr int inFront = 1, behindIt = 2;

}  // namespace

GapWrapper::GapWrapper(const GapText& text, const Scheme& scheme, GapTable& gaps, std::vector<LaidPlace> places)
    : text_(text), scheme_(scheme), gaps_(gaps), places_(std::move(places)) {}

// A comment at the end of a line counts for nothing: no break makes it shorter.
bool GapWrapper::run() {
    for (TokenIndex first = 1; first < text_.size();) {
        TokenIndex last = first;
        while (last + 1 < text_.size() && places_[last + 1].line == places_[first].line) ++last;
        const TokenIndex next = last + 1;
        while (last > first && text_.isTrivia(last)) --last;
        if (!text_.isTrivia(first) && endOf(last) > scheme_.rightMargin) wrapLine(first, last);
        first = next;
    }
    return hasBroken_;
}

// Of a token over several lines, the end of the first one.
int GapWrapper::endOf(TokenIndex token) const {
    const LaidPlace& next = places_[token + 1];
    if (text_.token(token).holdsLines) {
        return places_[token].column + static_cast<int>(text_.text(token).find('\n'));
    }
    if (next.line == places_[token].line || next.gap > places_[token].column) return next.gap;
    return places_[token].column + static_cast<int>(text_.text(token).size());
}

void GapWrapper::wrapLine(TokenIndex first, TokenIndex last) {
    line_ = first;
    const TokenIndex begin = behindHead(first, last);
    lay({begin, last, places_[begin].column, 0});
}

// Behind a `return` and the first assignment outside of brackets: what stands in front of that is never broken.
TokenIndex GapWrapper::behindHead(TokenIndex first, TokenIndex last) const {
    if (text_.kind(first) == Kind::Return && first < last) ++first;
    for (TokenIndex at = first; at < last; at = behind(at, last)) {
        const Role role = text_.role(at);
        if (role == Role::Assignment || role == Role::Initializer) return at + 1;
        if (rungOf(at) != Rung::None) break;
    }
    return first;
}

TokenIndex GapWrapper::behind(TokenIndex token, TokenIndex last) const {
    const TokenIndex partner = text_.partner(token);
    return (partner > token ? std::min(partner, last) : token) + 1;
}

// ---- Laying out

int GapWrapper::lay(const Stretch& stretch) {
    const int end = stretch.column + width(stretch.first, stretch.last);
    if (end + stretch.tail <= scheme_.rightMargin) return end;
    const Rung rung = coarsest(stretch);
    return rung == Rung::None ? layBrackets(stretch) : layAtSeparators(stretch, rung);
}

int GapWrapper::layAtSeparators(const Stretch& stretch, Rung rung) {
    const Stretch aligned = alignmentOf(stretch, rung);
    int column = stretch.column;
    TokenIndex begin = stretch.first;
    for (TokenIndex at = behind(begin, stretch.last);; at = behind(at, stretch.last)) {
        const bool isEnd = at > stretch.last;
        if (!isEnd && breakOf(at) != rung) continue;
        const TokenIndex last = isEnd ? stretch.last : at - 1;
        Stretch piece{begin, last, column, isEnd ? stretch.tail : 0};
        if (begin != stretch.first) {
            piece.column += places_[begin].column - endOf(begin - 1);
            const bool fits = piece.column + width(begin, last) + piece.tail <= scheme_.rightMargin;
            if (!fills(rung) || !fits) {
                breakAt(begin, aligned);
                piece.column = columnAfterBreak(begin, aligned);
            }
        }
        column = lay(piece);
        if (isEnd) return column;
        begin = at;
    }
}

int GapWrapper::layBrackets(const Stretch& stretch) {
    int shift = stretch.column - places_[stretch.first].column;
    for (TokenIndex at = stretch.first; at <= stretch.last; at = behind(at, stretch.last)) {
        const TokenIndex partner = text_.partner(at);
        if (partner <= at + 1 || text_.kind(at) == Kind::Less || isBody(text_.role(at))) continue;
        const TokenIndex close = std::min(partner, stretch.last + 1);
        if (close == at + 1) continue;
        const Stretch inside{at + 1, close - 1, places_[at + 1].column + shift,
                             close > stretch.last ? stretch.tail : tailOf(close, stretch)};
        shift = lay(inside) - endOf(close - 1);
    }
    return endOf(stretch.last) + shift;
}

// What follows a closed bracket up to the inside of the next one.
int GapWrapper::tailOf(TokenIndex close, const Stretch& stretch) const {
    TokenIndex at = close;
    while (at < stretch.last && text_.partner(at + 1) <= at + 1) ++at;
    if (at == stretch.last) return width(close, at) + stretch.tail;
    return width(close, at + 1);
}

// The first element, but of a row of shifts whose operators begin the lines the first operator.
GapWrapper::Stretch GapWrapper::alignmentOf(const Stretch& stretch, Rung rung) const {
    if (rung != Rung::Shift || styleOf(rung) != inFront) return stretch;
    TokenIndex at = behind(stretch.first, stretch.last);
    while (rungOf(at) != Rung::Shift) at = behind(at, stretch.last);
    return {at, stretch.last, stretch.column + places_[at].column - places_[stretch.first].column, stretch.tail};
}

void GapWrapper::breakAt(TokenIndex token, const Stretch& aligned) {
    if (gaps_.isFixed(token)) return;
    Gap& gap = gaps_.gap(token);
    if (!hasOwnIndent(token)) {
        switch (scheme_.wrapStyle) {
            case 1:
                gap.scope = gaps_.addScope({.from = aligned.first, .mode = Mode::At, .isAnchored = true});
                break;
            case 2:
                gap.scope =
                    gaps_.addScope({.from = line_,
                                    .mode = Mode::Indent,
                                    .rule = scheme_.wrapIndent.isSet ? ruleOf<&Scheme::wrapIndent>() : GapRule::None,
                                    .isAnchored = true});
                break;
            default:
                gap.scope = gaps_.addScope({.mode = Mode::Margin});
                break;
        }
    }
    gap.sort = Gap::Sort::Lines;
    gap.rule = GapRule::Wrapped;
    hasBroken_ = true;
}

// Whether the scheme indents later lines here without regard to who has broken them.
bool GapWrapper::hasOwnIndent(TokenIndex token) const {
    const IndentScope& scope = gaps_.scopes()[gaps_[token].scope];
    return scope.mode == Mode::Behind || scope.mode == Mode::At ||
           (scope.mode == Mode::Indent && scope.rule != GapRule::None);
}

// Where the token comes to stand: a first guess, which the next round mends if it was wrong.
int GapWrapper::columnAfterBreak(TokenIndex token, const Stretch& aligned) const {
    const IndentScope& scope = gaps_.scopes()[gaps_[token].scope];
    switch (scope.mode) {
        case Mode::Margin:
            return 0;
        case Mode::Indent:
            return places_[line_].column +
                   (scope.rule == GapRule::None ? 0 : static_cast<int>(gaps_.text(scope.rule).size()));
        default:
            return aligned.column;
    }
}

// ---- Separators

GapWrapper::Rung GapWrapper::coarsest(const Stretch& stretch) const {
    Rung rung = Rung::None;
    for (TokenIndex at = behind(stretch.first, stretch.last); at <= stretch.last; at = behind(at, stretch.last)) {
        rung = std::min(rung, breakOf(at));
    }
    return rung;
}

GapWrapper::Rung GapWrapper::breakOf(TokenIndex token) const {
    if (text_.isTrivia(token) || text_.isTrivia(token - 1)) return Rung::None;
    const Rung here = rungOf(token);
    if (here != Rung::None && styleOf(here) == inFront) return here;
    const Rung before = rungOf(token - 1);
    if (before != Rung::None && styleOf(before) == behindIt) return before;
    const bool isSequence = text_.kind(token) == Kind::StringLiteral && text_.kind(token - 1) == Kind::StringLiteral;
    return isSequence ? Rung::Strings : Rung::None;
}

int GapWrapper::styleOf(Rung rung) const {
    switch (rung) {
        case Rung::Comma:
            return scheme_.commaWrapStyle;
        case Rung::Shift:
            return scheme_.shiftWrapStyle;
        case Rung::Clause:
            return behindIt;
        default:
            return scheme_.exprWrapStyle;
    }
}

GapWrapper::Rung GapWrapper::rungOfOperator(Trn::TokenKind kind) {
    switch (kind) {
        case Kind::ShiftLeft:
        case Kind::ShiftRight:
            return Rung::Shift;
        case Kind::AmpAmp:
        case Kind::PipePipe:
            return Rung::Logic;
        case Kind::Amp:
        case Kind::Pipe:
        case Kind::Caret:
            return Rung::Bits;
        case Kind::Plus:
        case Kind::Minus:
            return Rung::Sum;
        default:
            return Rung::Product;
    }
}

GapWrapper::Rung GapWrapper::rungOf(TokenIndex token) const {
    switch (text_.role(token)) {
        case Role::ForSemicolon:
            return Rung::Clause;
        case Role::Question:
        case Role::TernaryColon:
            return Rung::Ternary;
        case Role::Comparison:
            return Rung::Comparison;
        case Role::Binary:
            return rungOfOperator(text_.kind(token));
        default:
            return rungOfComma(token);
    }
}

// A strategy of 0 leaves lists as they are, though not the arguments of calls.
GapWrapper::Rung GapWrapper::rungOfComma(TokenIndex token) const {
    if (text_.kind(token) != Kind::Comma) return Rung::None;
    switch (text_.role(token)) {
        case Role::ArgumentComma:
        case Role::CommaOperator:
            return Rung::Comma;
        case Role::TemplateComma:
        case Role::CaptureComma:
        case Role::BindingComma:
        case Role::AttributeComma:
            return Rung::None;
        default:
            return scheme_.listWrapStrategy == 0 ? Rung::None : Rung::Comma;
    }
}

}  // namespace Brevis
