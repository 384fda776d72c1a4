// The column arithmetic, with its answers for odd arguments.
#include "first/text/Brevis_Columns.h"

#include <algorithm>

namespace Brevis {

int charWidth(char c, int column, int tabSize) {
    return c == '\t' && column >= 0 && tabSize >= 1 ? tabSize - column % tabSize : 1;
}

int columnAfter(std::string_view text, int startColumn, int tabSize) {
    if (tabSize < 1 || startColumn < 0) return static_cast<int>(text.size());
    int column = startColumn;
    for (std::size_t tab; (tab = text.find('\t')) != std::string_view::npos; text.remove_prefix(tab + 1)) {
        column += static_cast<int>(tab);
        column += charWidth('\t', column, tabSize);
    }
    return column + static_cast<int>(text.size());
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

int sameLineDistance(Vellum::Position a, Vellum::Position b) { return a.line == b.line ? b.column - a.column : 0; }

int alignPad(int offset, int column, int indentWidth, int tabSize) {
    if (offset < 0 || column < 0 || indentWidth < 0 || tabSize < 0) return 1;
    const int target = offset + indentWidth;
    int stop = roundUpToMultiple(target, tabSize);
    if (column == 0) return stop < indentWidth ? stop : stop - indentWidth;
    if (column > target && stop <= column) stop = roundUpToMultiple(column, tabSize);
    return stop < column ? 1 : stop - column;
}

}  // namespace Brevis
