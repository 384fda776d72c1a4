#include "first/wrap/Brevis_ParenWalker.h"

namespace Brevis {

void ParenWalker::step() {
    stepStart_ = next_;
    open_ = text_.parenLevels().findLevel(stepStart_, level_);
    found_ = open_ < text_.count();
    close_ = next_ = found_ ? text_.closeOf(open_) : text_.count();
}

}  // namespace Brevis
