// The walk that the finders of separators share: it leaves out what stands inside brackets and template arguments.
#pragma once

#include "wrap/Brevis_LexedText.h"
#include "wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

// Gives the index of the first token from `from` up to, but not including, the last one in front of `end` that stands
// at depth zero and for which `isBreak(index)` is true; `end` without one. `prevKind` is the kind of the token in front
// of the one tested. It is kept up to date for the test, and the token found is not put into it.
template <class BreakTest>
std::size_t findAtDepthZero(const LexedText& text, std::size_t from, std::size_t end, Trn::TokenKind& prevKind,
                            BreakTest isBreak) {
    using namespace Trn::Kind;
    int paren = 0;
    int brace = 0;
    int bracket = 0;
    int angle = 0;
    for (std::size_t i = from; i + 1 < end; ++i) {
        bool isTested = false;
        int* depth = nullptr;  // the one that the token opens
        switch (text[i].kind) {
            case OpenParen:
                depth = &paren;
                break;
            case CloseParen:
                --paren;
                break;
            case OpenBrace:
                depth = &brace;
                break;
            case CloseBrace:
                --brace;
                break;
            case OpenBracket:
                depth = &bracket;
                break;
            case CloseBracket:
                --bracket;
                break;
            case Less:
                // A `<` that opens no template arguments is an ordinary token.
                if (angle >= 1 || (prevKind == Identifier && text.closeOf(i) < end)) ++angle;
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
                while (i + 1 < end && text[i].kind != Less);
                ++angle;
                break;
            default:
                isTested = true;
                break;
        }
        if (depth != nullptr && *depth >= 0 && text.pairs().areShown()) {
            const std::size_t close = text.closeOf(i);
            if (close >= end) return end;  // there is no depth zero behind it
            if (text.pairs().isSealed(i, angle)) {
                i = close;
            } else {
                ++*depth;
            }
        } else if (depth != nullptr) {
            ++*depth;
        }
        const bool atDepthZero = paren == 0 && brace == 0 && bracket == 0 && angle == 0;
        if (isTested && atDepthZero && isBreak(i)) return i;
        prevKind = text[i].kind;
    }
    return end;
}

}  // namespace Brevis
