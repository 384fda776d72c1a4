// Lexing into offsets, and the pairing of brackets in one sweep.
#include "expr/Brevis_ExprTokens.h"

#include <algorithm>

#include "Cpp_Lexer.h"
#include "text/Brevis_OffsetFinder.h"

namespace Brevis {

namespace {

namespace Kind = Trn::Kind;

constexpr struct {
    Trn::TokenKind open, close;
} brackets[] = {{Kind::OpenParen, Kind::CloseParen},
                {Kind::OpenBrace, Kind::CloseBrace},
                {Kind::OpenBracket, Kind::CloseBracket},
                {Kind::Less, Kind::Greater}};

// Room for the tokens into which a cut may break the last one.
constexpr std::uint32_t spareTokens = 4;

}  // namespace

void ExprTokens::lex(std::string_view text) {
    text_ = text;
    tokens_.clear();
    angleCloses_.clear();
    appendLexed(0, static_cast<std::uint32_t>(text.size()), tokens_);
    count_ = static_cast<std::uint32_t>(tokens_.size());
    bool hasBrackets = false;
    bool hasAngles = false;
    for (const ExprToken& token : tokens_) {
        hasAngles |= token.kind == Kind::Less;
        for (const auto& bracket : brackets) hasBrackets |= token.kind == bracket.open;
    }
    if (hasBrackets) {
        tokens_.resize(count_ + spareTokens);
        pairBrackets();
    }
    if (hasAngles) findAngleCloses();
}

void ExprTokens::appendLexed(std::uint32_t begin, std::uint32_t end, std::vector<ExprToken>& tokens) const {
    const std::string_view text = text_.substr(begin, end - begin);
    Cpp::Lexer lexer(text);
    OffsetFinder offsetOf(text);
    for (Trn::Token token = lexer.next(); token.kind() != Kind::EndOfInput; token = lexer.next()) {
        // A first position stands behind the first character.
        const std::uint32_t first = begin + static_cast<std::uint32_t>(offsetOf(token.first())) - 1;
        tokens.push_back({token.kind(), first, begin + static_cast<std::uint32_t>(offsetOf(token.last())), none});
    }
}

std::vector<ExprToken> ExprTokens::lexed(std::uint32_t begin, std::uint32_t end) const {
    std::vector<ExprToken> tokens;
    appendLexed(begin, end, tokens);
    return tokens;
}

void ExprTokens::exchange(std::uint32_t first, std::vector<ExprToken>& tokens) {
    std::swap_ranges(tokens.begin(), tokens.end(), tokens_.begin() + first);
}

// Each kind of bracket is counted for itself, so that a stray one of another kind does no harm.
void ExprTokens::pairBrackets() {
    for (auto& open : open_) open.clear();
    for (std::uint32_t i = 0; i < count(); ++i) {
        for (std::size_t kind = 0; kind < std::size(brackets); ++kind) {
            if (tokens_[i].kind == brackets[kind].open) {
                open_[kind].push_back(i);
            } else if (tokens_[i].kind == brackets[kind].close && !open_[kind].empty()) {
                tokens_[open_[kind].back()].close = i;
                open_[kind].pop_back();
            }
        }
    }
}

// From right to left, so that each search goes on from one that is already answered.
void ExprTokens::findAngleCloses() {
    angleCloses_.assign(count(), none);
    for (std::uint32_t i = count(); i-- > 0;) {
        switch (tokens_[i].kind) {
            case Kind::Greater:
                angleCloses_[i] = i;
                break;
            case Kind::Less: {
                const std::uint32_t inner = angleClose(i + 1);
                angleCloses_[i] = inner == none ? none : angleClose(inner + 1);
                break;
            }
            case Kind::AmpAmp:
            case Kind::PipePipe:
                angleCloses_[i] = angleClose(i + 2);
                break;
            default:
                angleCloses_[i] = angleClose(i + 1);
                break;
        }
    }
}

std::uint32_t ExprTokens::angleClose(std::uint32_t from) const {
    return from < angleCloses_.size() ? angleCloses_[from] : none;
}

}  // namespace Brevis
