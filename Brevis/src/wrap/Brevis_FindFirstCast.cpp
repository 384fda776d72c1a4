#include "wrap/Brevis_FindFirstCast.h"

#include "wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

using namespace Trn::Kind;

std::size_t FindFirstCast::find(const LexedText& text, std::size_t from, std::size_t end) {
    int paren = 0;
    int bracket = 0;
    int angle = 0;
    for (std::size_t i = from; i + 1 < end; ++i) {
        const Trn::TokenKind kind = text[i].kind;
        if (kind == OpenParen || kind == OpenBracket) {
            int& depth = kind == OpenParen ? paren : bracket;
            if (depth >= 0 && angle == 0 && text.pairs().areShown()) {
                const std::size_t close = text.closeOf(i);
                if (close >= end) return end;  // no cast behind it counts
                if (text.pairs().isSealed(i, angle)) {
                    i = close;
                    continue;
                }
            }
            ++depth;
        } else if (kind == CloseParen) {
            --paren;
        } else if (kind == CloseBracket) {
            --bracket;
        } else if (kind == Less && angle > 0) {
            ++angle;
        } else if (kind == Greater && angle > 0) {
            if (--angle == 0 && paren == 0 && bracket == 0) return i;
        } else if (WrapTokens::isNamedCast(kind) && paren == 0 && bracket == 0) {
            do ++i;
            while (i + 1 < end && text[i].kind != Less);
            ++angle;
        }
    }
    return end;
}

}  // namespace Brevis
