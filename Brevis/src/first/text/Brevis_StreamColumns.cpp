// Indents and pads in the tabs and blanks that the stream's convert mode asks for.
#include "first/text/Brevis_StreamColumns.h"

#include <algorithm>

#include "first/text/Brevis_Columns.h"

namespace Brevis {

namespace {

std::string blanks(int count) { return std::string(static_cast<std::size_t>(std::max(count, 0)), ' '); }
std::string tabs(int count) { return std::string(static_cast<std::size_t>(std::max(count, 0)), '\t'); }

// The indent of a stream that converts to tabs, made wider by `extra` columns.
std::string widenWithTabs(const std::string& indent, int width, int extra, int tabSize) {
    const int behindStop = width % tabSize;
    const int toStop = behindStop > 0 ? std::min(extra, tabSize - behindStop) : 0;
    extra -= toStop;
    return indent + blanks(toStop) + tabs(extra / tabSize) + blanks(extra % tabSize);
}

}  // namespace

std::string indentStringFor(const OIndentStream& stream, int column) {
    if (column <= 0) return {};
    const int width = indentWidth(stream);
    const int tabSize = stream.tabSize();
    const bool toTabs = stream.convertMode() == 2;
    if (column == width) return stream.indent();
    if (column < width) return toTabs ? tabs(column / tabSize) + blanks(column % tabSize) : blanks(column);
    const int extra = column - width;
    return toTabs ? widenWithTabs(stream.indent(), width, extra, tabSize) : stream.indent() + blanks(extra);
}

int indentWidth(const OIndentStream& stream) { return columnAfter(stream.indent(), 0, stream.tabSize()); }

int lastColumn(const OIndentStream& stream) { return std::max(stream.column() - 1, 0); }

OIndentStream& operator<<(OIndentStream& out, Pad pad) {
    int remaining = std::max(pad.columns, 0);
    if (out.behindBackslash()) return out;
    if (out.convertMode() == 1) return out << blanks(remaining);

    const int tabSize = out.tabSize();
    for (int cur = out.column() > 0 ? out.column() : indentWidth(out); remaining > 0; cur = out.column()) {
        const int next = roundUpToMultiple(cur + 1, tabSize);
        if (next - cur > remaining) break;
        out << '\t';
        remaining -= next - cur;
    }
    if (remaining == 0) return out;
    const int column = out.column();
    const bool oneTab = !isMultiple(column + 1, tabSize) && isMultiple(column + remaining, tabSize);
    return oneTab ? out << '\t' : out << blanks(remaining);
}

}  // namespace Brevis
