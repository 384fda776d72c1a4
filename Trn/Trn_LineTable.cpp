// The search for a line that is not the last one.
#include "Trn_LineTable.h"

#include <algorithm>

namespace Trn {

std::size_t LineTable::find(std::size_t offset) const {
    constexpr int nearby = 8;
    std::size_t line = line_;
    for (int i = 0; i < nearby && line > 0 && offset < starts_[line]; ++i) --line;
    for (int i = 0; i < nearby && line + 1 < starts_.size() && starts_[line + 1] <= offset; ++i) ++line;
    if (isIn(line, offset)) return line;
    const auto behind = std::upper_bound(starts_.begin(), starts_.end(), offset);
    return behind == starts_.begin() ? 0 : static_cast<std::size_t>(behind - starts_.begin()) - 1;
}

}  // namespace Trn
