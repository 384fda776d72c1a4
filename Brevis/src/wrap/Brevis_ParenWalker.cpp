#include "wrap/Brevis_ParenWalker.h"

namespace Brevis {

using namespace Trn::Kind;

void ParenWalker::step() {
    found_ = false;
    stepStart_ = next_;
    int depth = 0;
    for (std::size_t i = next_; text_.isWalked(i); ++i) {
        const Trn::TokenKind kind = text_[i].kind;
        if (kind == OpenParen && ++depth == level_) {
            found_ = true;
            open_ = i;
            close_ = next_ = text_.closeOf(i);
            return;
        }
        if (kind == CloseParen && depth > 0) --depth;
        // The walk goes on at the closing bracket.
        if (kind == OpenBracket) i = text_.closeOf(i) - 1;
    }
    next_ = text_.count();
}

}  // namespace Brevis
