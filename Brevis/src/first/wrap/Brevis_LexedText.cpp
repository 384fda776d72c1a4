// Lexing into offsets, and the search for what may break in one sweep.
#include "first/wrap/Brevis_LexedText.h"

#include <algorithm>
#include <array>

#include "first/wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

using namespace Trn::Kind;

LexedText::LexedText(std::string_view text, LeafDialect dialect) : text_(text), dialect_(dialect) {
    LeafLexer lexer(text, dialect);
    tokens_.reserve(text.size() / 3 + 2);
    for (Token token = lexer.next(); token.kind != EndOfInput; token = lexer.next()) tokens_.push_back(token);
    // The end token's first position is the last one of the token in front of it.
    const std::uint32_t end = tokens_.empty() ? 0 : tokens_.back().end;
    tokens_.push_back({EndOfInput, end == 0 ? 0 : end - 1, end});
}

LexedText::LexedText(const LexedText& text, std::size_t offset)
    : text_(text.text_.substr(offset)), dialect_(text.dialect_) {
    for (const Token& token : text.tokens_) {
        const bool isEnd = token.kind == EndOfInput;
        if (isEnd && tokens_.empty()) {
            tokens_.emplace_back();
        } else if (isEnd || token.begin >= offset) {
            const auto shift = static_cast<std::uint32_t>(offset);
            tokens_.push_back({token.kind, token.begin - shift, token.end - shift});
        }
    }
}

const BracketPairs& LexedText::pairs() const {
    if (!pairs_) pairs_.emplace(tokens_);
    return *pairs_;
}

const ParenLevels& LexedText::parenLevels() const {
    if (!parenLevels_) parenLevels_.emplace(*this);
    return *parenLevels_;
}

const std::vector<std::size_t>& LexedText::walked(Trn::TokenKind kind) const {
    const auto [place, isNew] = walked_.try_emplace(kind);
    for (std::size_t i = 0; isNew && isWalked(i); ++i) {
        if (tokens_[i].kind == kind) place->second.push_back(i);
    }
    return place->second;
}

bool LexedText::mayBreakInside(std::size_t open) const {
    if (breaksInside_.empty()) findBreaks();
    return breaksInside_[open] || Trn::isTrivia(tokens_[open + 1].kind) || (closeOf(open) == count() && endBreaks_);
}

namespace {

bool holdsAny(const std::vector<std::size_t>& ascending, std::size_t begin, std::size_t end) {
    const auto first = std::lower_bound(ascending.begin(), ascending.end(), begin);
    return first != ascending.end() && *first < end;
}

}  // namespace

bool LexedText::holdsNamedCast(std::size_t begin, std::size_t end) const {
    if (breaksInside_.empty()) findBreaks();
    return holdsAny(namedCasts_, begin, end);
}

bool LexedText::holdsOldCast(std::size_t begin, std::size_t end) const {
    if (breaksInside_.empty()) findBreaks();
    return holdsAny(oldCastEnds_, begin, end);
}

bool LexedText::cutMakesOtherTokens() const {
    if (count() == 0) return false;
    const Token& last = tokens_[count() - 1];
    if (Trn::isTrivia(last.kind)) return true;
    if (last.end - last.begin <= 1) return false;
    Cpp::Lexer lexer(text_.substr(last.begin, last.end - last.begin - 1), dialect_.dialect, dialect_.language);
    return lexer.next().kind() != last.kind || lexer.next().kind() != EndOfInput;
}

void LexedText::findBreaks() const {
    struct OpenGroups {
        Trn::TokenKind open, close;
        bool showsCasts;  // the finders of casts look into groups of this kind
        std::vector<std::size_t> indices{};
    };
    std::array<OpenGroups, 2> all{{{OpenParen, CloseParen, false}, {OpenBrace, CloseBrace, true}}};
    std::vector<bool> holdsCast(tokens_.size(), false);
    breaksInside_.assign(tokens_.size(), false);
    endBreaks_ = cutMakesOtherTokens();
    for (std::size_t i = 0; i < count(); ++i) {
        const Trn::TokenKind kind = tokens_[i].kind;
        const bool endsOldCast = kind == CloseParen && WrapTokens::castOperand.contains(tokens_[i + 1].kind);
        if (endsOldCast) oldCastEnds_.push_back(i);
        if (WrapTokens::isNamedCast(kind)) namedCasts_.push_back(i);
        for (OpenGroups& groups : all) {
            bool isCast = endsOldCast || WrapTokens::isNamedCast(kind);
            if (kind == groups.close && !groups.indices.empty()) {
                isCast = isCast || (groups.showsCasts && holdsCast[groups.indices.back()]);
                groups.indices.pop_back();
            }
            if (!groups.indices.empty() && (isCast || WrapTokens::isBreakOp(kind))) {
                breaksInside_[groups.indices.back()] = true;
                if (isCast) holdsCast[groups.indices.back()] = true;
            }
            if (kind == groups.open) groups.indices.push_back(i);
        }
    }
}

int maxParenDepth(const LexedText& text) { return text.parenLevels().highest(); }

int maxBraceDepth(const LexedText& text) {
    int depth = 0;
    int highest = 0;
    for (std::size_t i = 0; text.isWalked(i); ++i) {
        if (text[i].kind == OpenBrace) highest = std::max(highest, ++depth);
        if (text[i].kind == CloseBrace) depth = std::max(0, depth - 1);
    }
    return highest;
}

}  // namespace Brevis
