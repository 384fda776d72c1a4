// The walk that the finders of separators share: it leaves out what stands inside brackets and template arguments.
#pragma once

#include "wrap/Brevis_LexedText.h"
#include "wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

// Gives the index of the first token at or behind `from` that stands at depth zero and for which `isBreak(index)` is
// true; text.count() without one. `prevKind` is the kind of the token in front of the one tested. It is kept up to date
// for the test, and the token found is not put into it.
template <class BreakTest>
std::size_t findAtDepthZero(const LexedText& text, std::size_t from, Trn::TokenKind& prevKind, BreakTest isBreak) {
    using namespace Trn::Kind;
    int paren = 0;
    int brace = 0;
    int bracket = 0;
    int angle = 0;
    for (std::size_t i = from; text.isWalked(i); ++i) {
        bool isTested = false;
        switch (text[i].kind) {
            case OpenParen:
                ++paren;
                break;
            case CloseParen:
                --paren;
                break;
            case OpenBrace:
                ++brace;
                break;
            case CloseBrace:
                --brace;
                break;
            case OpenBracket:
                ++bracket;
                break;
            case CloseBracket:
                --bracket;
                break;
            case Less:
                // A `<` that opens no template arguments is an ordinary token.
                if (angle >= 1 || (prevKind == Identifier && text.opensArguments(i))) ++angle;
                isTested = true;
                break;
            case Greater:
                isTested = angle < 1;
                if (angle >= 1) --angle;
                break;
            case StaticCast:
            case DynamicCast:
            case ConstCast:
            case ReinterpretCast:
                do ++i;
                while (text.isWalked(i) && text[i].kind != Less);
                ++angle;
                break;
            default:
                isTested = true;
                break;
        }
        const bool atDepthZero = paren == 0 && brace == 0 && bracket == 0 && angle == 0;
        if (isTested && atDepthZero && isBreak(i)) return i;
        prevKind = text[i].kind;
    }
    return text.count();
}

}  // namespace Brevis
