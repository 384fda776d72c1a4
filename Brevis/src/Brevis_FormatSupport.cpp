// Column arithmetic and the operations that copy from the input cursor.
#include "Brevis_FormatSupport.h"

#include <algorithm>

namespace Brevis {

// ---- Column arithmetic

int charWidth(char c, int column, int tabSize) {
    return c == '\t' && column >= 0 && tabSize >= 1 ? tabSize - column % tabSize : 1;
}

int columnAfter(std::string_view text, int startColumn, int tabSize) {
    if (tabSize < 1 || startColumn < 0) return static_cast<int>(text.size());
    int column = startColumn;
    for (const char c : text) column += charWidth(c, column, tabSize);
    return column;
}

int columnBefore(std::string_view text, int column, int tabSize) {
    if (tabSize < 1 || column < 1) return 0;
    for (auto c = text.rbegin(); c != text.rend() && column > 0; ++c) column -= charWidth(*c, column, tabSize);
    return std::max(column, 0);
}

int roundUpToMultiple(int n, int m) {
    m = std::max(m, 1);
    const int remainder = n % m;
    if (remainder == 0) return n;
    return remainder > 0 ? n + m - remainder : n - remainder;
}

bool isMultiple(int n, int m) { return n % std::max(m, 1) == 0; }

int sameLineDistance(Position a, Position b) { return a.line == b.line ? b.column - a.column : 0; }

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

int alignPad(int offset, int column, int indentWidth, int tabSize) {
    if (offset < 0 || column < 0 || indentWidth < 0 || tabSize < 0) return 1;
    const int target = offset + indentWidth;
    int stop = roundUpToMultiple(target, tabSize);
    if (column == 0) return stop < indentWidth ? stop : stop - indentWidth;
    if (column > target && stop <= column) stop = roundUpToMultiple(column, tabSize);
    return stop < column ? 1 : stop - column;
}

// ---- Moving through the input

std::string_view readThrough(ITextDocStream& in, Position position) { return in.readWhileBelow(position); }

std::string_view readBefore(ITextDocStream& in, Position position) {
    std::string_view text = in.readWhileBelow(position);
    if (!text.empty() && in.position() == position) {
        in.unget();
        text.remove_suffix(1);
    }
    return text;
}

bool copyThrough(ITextDocStream& in, OIndentStream& out, Position position) {
    const std::string_view text = readThrough(in, position);
    if (in.good()) out << text;
    return in.good();
}

bool copyBefore(ITextDocStream& in, OIndentStream& out, Position position) {
    const std::string_view text = readBefore(in, position);
    if (in.good()) out << text;
    return in.good();
}

bool copyThroughRaw(ITextDocStream& in, OIndentStream& out, Position position) {
    const std::string_view text = readThrough(in, position);
    if (in.good()) writeRaw(out, text);
    return in.good();
}

bool copyBeforeRaw(ITextDocStream& in, OIndentStream& out, Position position) {
    const std::string_view text = readBefore(in, position);
    if (in.good()) writeRaw(out, text);
    return in.good();
}

void writeRaw(OIndentStream& out, std::string_view text) {
    const LeadingWsGuard keep(out, true);
    const IndentStringGuard indent(out, {});
    out << text;
}

bool skipThrough(ITextDocStream& in, Position position) {
    in.readWhileBelow(position);
    return in.good();
}

bool skipBefore(ITextDocStream& in, Position position) {
    in.readWhileBelow(position);
    return in.position() == position && in.unget();
}

std::string_view remainderOf(ITextDocStream& in) { return in.readRest(); }

std::vector<int> overlongLines(ITextDocStream& in, int limit) {
    std::vector<int> lines;
    int startColumn = in.column();
    std::string_view rest = in.readRest();
    for (int line = 1; !rest.empty(); ++line, startColumn = 0) {
        const std::size_t length = std::min(rest.find('\n'), rest.size());
        if (columnAfter(rest.substr(0, length), startColumn, in.tabSize()) > limit) lines.push_back(line);
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return lines;
}

}  // namespace Brevis
