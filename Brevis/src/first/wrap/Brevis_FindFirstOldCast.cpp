#include "first/wrap/Brevis_FindFirstOldCast.h"

#include "first/wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

using namespace Trn::Kind;

std::size_t FindFirstOldCast::find(const LexedText& text, std::size_t from, std::size_t end) {
    if (!text.holdsOldCast(from, end)) return end;
    int depth = 0;
    bool isCast = false;
    // The parenthesis opened last decides, whatever group it belongs to.
    const auto opensCast = [&](std::size_t open) {
        return open == from || (text[open - 1].kind != Identifier && text[open - 1].kind != Greater);
    };
    for (std::size_t i = from; i + 1 < end; ++i) {
        const Trn::TokenKind kind = text[i].kind;
        if (kind == OpenParen && depth >= 0) {
            const std::size_t close = text.closeOf(i);
            if (close >= end) return end;  // depth zero isn't reached any more
            isCast = opensCast(text.pairs().lastOpenParen(close));
            ++depth;
            i = close - 1;
        } else if (kind == OpenParen) {
            ++depth;
            isCast = opensCast(i);
        } else if (kind == CloseParen && --depth == 0 && isCast) {
            isCast = false;
            if (WrapTokens::castOperand.contains(text[i + 1].kind)) return i;
        }
    }
    return end;
}

}  // namespace Brevis
