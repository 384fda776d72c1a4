// Sorted ranges, joined where they touch.
#include "BrevisUI_LineSet.h"

#include <algorithm>

namespace BrevisUI {

void LineSet::add(std::size_t first, std::size_t last) {
    first = std::max<std::size_t>(first, 1);
    if (first > last) return;
    const auto begin =
        std::ranges::partition_point(ranges_, [&](const Range& range) { return range.last < first - 1; });
    auto end = begin;
    // Written so that the last number of all doesn't overflow.
    for (; end != ranges_.end() && end->first - 1 <= last; ++end) {
        first = std::min(first, end->first);
        last = std::max(last, end->last);
    }
    ranges_.insert(ranges_.erase(begin, end), Range{first, last});
}

bool LineSet::hasAll(std::size_t first, std::size_t last) const {
    const auto range = std::ranges::partition_point(ranges_, [&](const Range& range) { return range.last < first; });
    return range != ranges_.end() && range->first <= first && last <= range->last;
}

}  // namespace BrevisUI
