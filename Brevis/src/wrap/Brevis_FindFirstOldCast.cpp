#include "wrap/Brevis_FindFirstOldCast.h"

#include "wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

using namespace Trn::Kind;

std::size_t FindFirstOldCast::find(const LexedText& text, std::size_t from) {
    int depth = 0;
    bool isCast = false;
    Trn::TokenKind prev = EndOfInput;
    for (std::size_t i = from; text.isWalked(i); ++i) {
        const Trn::TokenKind kind = text[i].kind;
        if (kind == OpenParen) {
            ++depth;
            isCast = prev != Identifier && prev != Greater;
        } else if (kind == CloseParen && --depth == 0 && isCast) {
            isCast = false;
            if (WrapTokens::castOperand.contains(text[i + 1].kind)) return i;
        }
        prev = kind;
    }
    return text.count();
}

}  // namespace Brevis
