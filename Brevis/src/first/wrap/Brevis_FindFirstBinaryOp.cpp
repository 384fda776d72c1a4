#include "first/wrap/Brevis_FindFirstBinaryOp.h"

#include "first/wrap/Brevis_DepthZeroWalk.h"

namespace Brevis {

using namespace WrapTokens;

std::size_t FindFirstBinaryOp::find(const LexedText& text, std::size_t from, std::size_t end) {
    return findAtDepthZero(text, from, end, prevKind_,
                           [&](std::size_t i) { return isBreakableOp(text[i].kind, text[i + 1].kind); });
}

bool FindFirstBinaryOp::isWrapToken(Trn::TokenKind kind) const {
    return wrapBinaryOps.contains(kind) || signOps.contains(kind);
}

bool FindFirstBinaryOp::isBreakableOp(Trn::TokenKind kind, Trn::TokenKind nextKind) const {
    if (wrapBinaryOps.contains(kind)) return true;
    if (!signOps.contains(kind)) return false;
    if (prevKind_ == Trn::Kind::EndOfInput) return false;
    // A sign behind an operand is binary.
    if (!isWrapToken(prevKind_) && !listPunct.contains(prevKind_)) return true;
    return operandStart.contains(nextKind);
}

}  // namespace Brevis
