// A token that begins a line keeps its line.
#include "second/Brevis_ColumnGroup.h"

#include <algorithm>
#include <limits>

namespace Brevis {

void ColumnGroup::add(TokenIndex token, int least, int hang) {
    column_ = std::max(column_, least + hang);
    cells_.push_back({token, hang});
}

void ColumnGroup::close(int column) {
    column = (std::max(column_, column) + multiple_ - 1) / multiple_ * multiple_;
    // No line is that long unless a program wrote it.
    if (column <= std::numeric_limits<std::uint16_t>::max()) {
        for (const Cell& cell : cells_) {
            Gap& gap = gaps_->gap(cell.token);
            gap.sort = gaps_->startsLine(cell.token) ? Gap::Sort::LineColumn : Gap::Sort::Column;
            gap.rule = rule_;
            gap.column = static_cast<std::uint16_t>(column - cell.hang);
        }
    }
    cells_.clear();
    column_ = 0;
}

}  // namespace Brevis
