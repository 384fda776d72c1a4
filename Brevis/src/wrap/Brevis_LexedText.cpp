// Lexing into offsets, and the pairing of brackets in one sweep each.
#include "wrap/Brevis_LexedText.h"

#include <algorithm>
#include <array>

#include "Cpp_Lexer.h"
#include "text/Brevis_OffsetFinder.h"
#include "wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

using namespace Trn::Kind;

LexedText::LexedText(std::string_view text) : text_(text) {
    Cpp::Lexer lexer(text);
    OffsetFinder offsetOf(text);
    for (Trn::Token token = lexer.next(); token.kind() != EndOfInput; token = lexer.next()) {
        // A first position stands behind the first character.
        const std::size_t begin = offsetOf(token.first()) - 1;
        tokens_.push_back({token.kind(), begin, offsetOf(token.last())});
    }
    // The end token's first position is the last one of the token in front of it.
    const std::size_t end = tokens_.empty() ? 0 : tokens_.back().end;
    tokens_.push_back({EndOfInput, end == 0 ? 0 : end - 1, end});
}

std::size_t LexedText::closeOf(std::size_t open) const {
    if (closes_.empty()) pairBrackets();
    return closes_[open];
}

bool LexedText::opensArguments(std::size_t less) const {
    if (opensArguments_.empty()) pairAngles();
    return opensArguments_[less];
}

bool LexedText::mayBreakInside(std::size_t open) const {
    if (breaksInside_.empty()) findBreaks();
    return breaksInside_[open] || Trn::isTrivia(tokens_[open + 1].kind) || (closeOf(open) == count() && endBreaks_);
}

// Without its close token a group's inside ends in front of the text's last character.
bool LexedText::cutMakesOtherTokens() const {
    const Token& last = tokens_[count() - 1];
    if (Trn::isTrivia(last.kind)) return true;
    if (last.end - last.begin <= 1) return false;
    Cpp::Lexer lexer(text_.substr(last.begin, last.end - last.begin - 1));
    return lexer.next().kind() != last.kind || lexer.next().kind() != EndOfInput;
}

// Each kind of bracket is counted for itself, so that a stray one of another kind does no harm.
void LexedText::pairBrackets() const {
    struct Kinds {
        Trn::TokenKind open, close;
        std::vector<std::size_t> pending{};
    };
    std::array<Kinds, 3> all{{{OpenParen, CloseParen}, {OpenBrace, CloseBrace}, {OpenBracket, CloseBracket}}};
    closes_.assign(tokens_.size(), count());
    for (std::size_t i = 0; i < count(); ++i) {
        for (Kinds& kinds : all) {
            if (tokens_[i].kind == kinds.open) {
                kinds.pending.push_back(i);
            } else if (tokens_[i].kind == kinds.close && !kinds.pending.empty()) {
                closes_[kinds.pending.back()] = i;
                kinds.pending.pop_back();
            }
        }
    }
}

void LexedText::pairAngles() const {
    std::vector<std::size_t> pending;
    opensArguments_.assign(tokens_.size(), false);
    for (std::size_t i = 0; i < count(); ++i) {
        switch (tokens_[i].kind) {
            case Less:
                pending.push_back(i);
                break;
            case Greater:
                if (pending.empty()) break;
                opensArguments_[pending.back()] = true;
                pending.pop_back();
                break;
            case Semicolon:
            case AmpAmp:
            case PipePipe:
                pending.clear();
                break;  // these end the search of all that are still open
            default:
                break;
        }
    }
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

int maxParenDepth(const LexedText& text) {
    int depth = 0;
    int highest = 0;
    for (std::size_t i = 0; text.isWalked(i); ++i) {
        switch (text[i].kind) {
            case OpenParen:
                highest = std::max(highest, ++depth);
                break;
            case CloseParen:
                depth = std::max(0, depth - 1);
                break;
            case OpenBracket:
                i = text.closeOf(i) - 1;
                break;
            default:
                break;
        }
    }
    return highest;
}

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
