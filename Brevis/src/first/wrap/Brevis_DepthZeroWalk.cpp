#include "first/wrap/Brevis_DepthZeroWalk.h"

#include "first/wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

using namespace Trn::Kind;

bool DepthZeroWalk::count(Trn::TokenKind prevKind) {
    switch (kind()) {
        case OpenParen:
            return open(paren_);
        case CloseParen:
            return close(paren_);
        case OpenBrace:
            return open(brace_);
        case CloseBrace:
            return close(brace_);
        case OpenBracket:
            return open(bracket_);
        case CloseBracket:
            return close(bracket_);
        case Less: {
            // A `<` that opens no template arguments is an ordinary token.
            const bool opens = angle_ >= 1 || (prevKind == Identifier && text_.closeOf(at_) < end_);
            return opens ? openAngle() : atDepthZero();
        }
        case Greater:
            return closeAngle();
        default:
            return WrapTokens::isNamedCast(kind()) ? openCast() : atDepthZero();
    }
}

bool DepthZeroWalk::open(int& depth) {
    const std::size_t close = text_.closeOf(at_);
    const bool isShown = depth >= 0 && text_.pairs().areShown();
    if (isShown && close >= end_) {
        at_ = end_;  // depth zero isn't reached any more
    } else if (isShown && text_.pairs().isSealed(at_, angle_)) {
        at_ = close;
    } else {
        ++depth;
    }
    return false;
}

bool DepthZeroWalk::close(int& depth) {
    --depth;
    return false;
}

bool DepthZeroWalk::openAngle() {
    const std::size_t close = text_.closeOf(at_);
    if (angle_ == 0 && close < end_ && text_.pairs().isSealed(at_, angle_)) {
        at_ = close;
    } else {
        ++angle_;
    }
    return false;
}

bool DepthZeroWalk::closeAngle() {
    if (angle_ < 1) return atDepthZero();
    --angle_;
    return false;
}

bool DepthZeroWalk::openCast() {
    do ++at_;
    while (more() && kind() != Less);
    return openAngle();
}

}  // namespace Brevis
