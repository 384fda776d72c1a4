// How a stretch of text moves the column, and how wide its lines are, in a form that can be added up.
#pragma once

#include <cstdint>
#include <string_view>

namespace Brevis {

// A tab reaches the next tab stop, so all that counts of a line is what stands in front of its first tab and behind it.
struct LineSpan {
    std::int64_t head = 0;  // columns of the first line in front of its first tab or its end
    std::int64_t behindTab =
        -1;                   // columns of the first line from the stop that its first tab reaches; -1 without a tab
    std::int64_t last = -1;   // width of the last line; -1 in a stretch of one line
    std::int64_t widest = 0;  // width of the widest line between the two
    bool isEmpty = true;
};

// The arithmetic of spans under a tab size, which must be positive.
class LineSpans {
public:
    explicit LineSpans(int tabSize) : tabSize_(tabSize) {}

    LineSpan of(std::string_view text) const;
    // The sum of two neighbours.
    LineSpan operator()(const LineSpan& left, const LineSpan& right) const;

    // The column behind a stretch that begins at `column`.
    std::int64_t columnBehind(const LineSpan& span, std::int64_t column) const {
        return span.last >= 0 ? span.last : firstLine(span, column);
    }
    // Whether a line of it is wider than `limit`.
    bool overflows(const LineSpan& span, std::int64_t column, std::int64_t limit) const;

private:
    std::int64_t nextStop(std::int64_t column) const { return column + tabSize_ - column % tabSize_; }
    std::int64_t firstLine(const LineSpan& span, std::int64_t column) const {
        return span.behindTab < 0 ? column + span.head : nextStop(column + span.head) + span.behindTab;
    }

    std::int64_t tabSize_;
};

}  // namespace Brevis
