// From which place a column is counted.
#include "second/Brevis_LineColumns.h"

#include <algorithm>

namespace Brevis {

int LineColumns::columnOf(std::string_view text, std::size_t lineBegin, std::size_t offset) {
    Place from{lineBegin, lineBegin, 0};
    if (last_.line == lineBegin && last_.offset <= offset) {
        from = last_;
    } else if (!marks_.empty()) {
        const auto isBehind = [](std::size_t at, const Place& mark) { return at < mark.offset; };
        const auto mark = std::upper_bound(marks_.begin(), marks_.end(), offset, isBehind);
        if (mark != marks_.begin() && std::prev(mark)->line == lineBegin) from = *std::prev(mark);
    }
    from.column = columnBehind(text.substr(from.offset, offset - from.offset), from.column, tabSize_);
    from.offset = offset;
    last_ = from;
    return from.column;
}

void LineColumns::mark(std::string_view text, std::size_t lineBegin, std::size_t offset) {
    marks_.push_back({lineBegin, offset, columnOf(text, lineBegin, offset)});
}

void LineColumns::forget(std::size_t offset) {
    if (last_.offset > offset) last_ = {};
    while (!marks_.empty() && marks_.back().offset > offset) marks_.pop_back();
}

}  // namespace Brevis
