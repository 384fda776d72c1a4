// The search for a line far from the last one.
#include "Trn_LineTable.h"

#include <algorithm>

namespace Trn {

std::size_t LineTable::find(std::size_t offset) const {
    const auto behind = std::upper_bound(starts_.begin(), starts_.end(), offset);
    return behind == starts_.begin() ? 0 : static_cast<std::size_t>(behind - starts_.begin()) - 1;
}

}  // namespace Trn
