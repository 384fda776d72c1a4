#include "first/wrap/Brevis_LineSpan.h"

#include <algorithm>

namespace Brevis {

LineSpan LineSpans::of(std::string_view text) const {
    LineSpan span;
    span.isEmpty = text.empty();
    std::int64_t column = 0;
    for (const char c : text) {
        if (c == '\n') {
            if (span.last >= 0) span.widest = std::max(span.widest, column);
            span.last = column = 0;
        } else if (span.last < 0 && span.behindTab < 0) {
            if (c == '\t') {
                span.behindTab = column = 0;
            } else {
                ++span.head;
            }
        } else {
            column = c == '\t' ? nextStop(column) : column + 1;
            (span.last < 0 ? span.behindTab : span.last) = column;
        }
    }
    return span;
}

LineSpan LineSpans::operator()(const LineSpan& left, const LineSpan& right) const {
    LineSpan sum = left;
    sum.isEmpty = left.isEmpty && right.isEmpty;
    if (left.last < 0) {
        if (left.behindTab >= 0) {
            sum.behindTab = firstLine(right, left.behindTab);
        } else {
            sum.head += right.head;
            sum.behindTab = right.behindTab;
        }
        sum.last = right.last;
        sum.widest = right.widest;
    } else {
        const std::int64_t joined = firstLine(right, left.last);
        sum.last = right.last < 0 ? joined : right.last;
        if (right.last >= 0) sum.widest = std::max({left.widest, right.widest, joined});
    }
    return sum;
}

bool LineSpans::overflows(const LineSpan& span, std::int64_t column, std::int64_t limit) const {
    return !span.isEmpty && (firstLine(span, column) > limit || std::max(span.last, span.widest) > limit);
}

}  // namespace Brevis
