#include "first/wrap/Brevis_FindFirstElem.h"

#include "first/wrap/Brevis_DepthZeroWalk.h"

namespace Brevis {

std::size_t FindFirstElem::find(const LexedText& text, std::size_t from, std::size_t end) {
    Trn::TokenKind prevKind = Trn::Kind::EndOfInput;
    return findAtDepthZero(text, from, end, prevKind, [&](std::size_t i) {
        return isWrapToken(text[i].kind) && !isWrapToken(prevKind) && !isWrapToken(text[i + 1].kind);
    });
}

}  // namespace Brevis
