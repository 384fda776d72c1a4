#include "wrap/Brevis_BraceWalker.h"

namespace Brevis {

void BraceWalker::step() {
    found_ = false;
    int depth = 0;
    for (std::size_t i = next_; text_.isWalked(i); ++i) {
        if (text_[i].kind != openKind_ || ++depth != level_) continue;
        found_ = true;
        open_ = i;
        close_ = next_ = text_.closeOf(i);
        return;
    }
    next_ = text_.count();
}

}  // namespace Brevis
