// The writers for text of several lines.
#include "first/expr/Brevis_CppExprFormatterBase.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"

namespace Brevis {

std::string CppExprFormatterBase::writeOrdinary(std::string_view text, const IndentStreamSettings& settings) {
    // Only the start of a line or a conversion can change anything.
    const auto isChanged = [&](char c) {
        return c == '\n' || (c == '\t' && settings.convertMode == 1) || (c == ' ' && settings.convertMode == 2);
    };
    if (settings.column > 0 && std::none_of(text.begin(), text.end(), isChanged)) return std::string(text);
    OIndentStream out(settings);
    out << text;
    return out.takeStr();
}

namespace {

// A later line of a stretch without the white space that the first line's column accounts for. A line feed is not
// such white space: an empty line stays.
std::string_view withoutLayout(std::string_view line, int firstColumn, int tabSize) {
    int column = 1;
    std::size_t i = 0;
    while (i < line.size() && column < firstColumn && line[i] != '\n' && Vellum::isSpace(line[i])) {
        column += charWidth(line[i], column, tabSize);
        ++i;
    }
    return line.substr(i);
}

}  // namespace

void CppExprFormatterBase::writeMultiLine(Position first, Position last, ITextDocStream& in, OIndentStream& out) const {
    if (last.line <= first.line) {
        copyThrough(in, out, last);
        return;
    }
    copyThrough(in, out, first);
    std::string indent = indentStringFor(out, lastColumn(out));
    copyThrough(in, out, {first.line + 1, 0});

    const LeadingWsGuard keep(out, true);
    const IndentStringGuard anchor(out, std::move(indent));
    for (int line = first.line + 1; line <= last.line; ++line) {
        const std::string_view text = readThrough(in, std::min(last, Position{line + 1, 0}));
        // A line that goes on with a string literal has no layout of ours.
        out << (out.lineStartsInLiteral() ? text : withoutLayout(text, first.column, out.tabSize()));
    }
}

void CppExprFormatterBase::writeDirective(Position first, Position last, ITextDocStream& in, OIndentStream& out) const {
    const std::optional<bool> leftMost = scheme_.alignPpdLeftMost;
    if (leftMost == true) {
        const IndentStringGuard indent(out, scheme_.leftMargin.isSet ? scheme_.leftMargin.text : out.indent());
        writeMultiLine(first, last, in, out);
    } else if (leftMost == false) {
        writeMultiLine(first, last, in, out);
    } else {
        const IndentStringGuard indent(out, {});
        const LeadingWsGuard keep(out, true);
        copyThrough(in, out, last);
    }
}

}  // namespace Brevis
