#include "first/wrap/Brevis_BraceWalker.h"

#include <algorithm>

namespace Brevis {

void BraceWalker::step() {
    const auto begin = std::lower_bound(opens_.begin(), opens_.end(), next_);
    found_ = static_cast<std::size_t>(opens_.end() - begin) >= level_;
    if (!found_) return;
    open_ = *(begin + static_cast<std::ptrdiff_t>(level_ - 1));
    close_ = next_ = text_.closeOf(open_);
}

}  // namespace Brevis
