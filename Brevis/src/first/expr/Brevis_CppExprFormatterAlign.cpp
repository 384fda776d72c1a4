// The alignment of the assignment signs of enum elements, line by line.
#include <algorithm>
#include <vector>

#include "Vellum_LiteralTracker.h"
#include "first/expr/Brevis_CppExprFormatter.h"
#include "first/text/Brevis_TokenReader.h"

namespace Brevis {

namespace Kind = Trn::Kind;

namespace {

struct Line {
    std::string_view text;  // without its line feed
    bool takesPart;         // it doesn't begin inside a comment, literal or directive of several lines
};

std::vector<Line> splitLines(std::string_view text) {
    std::vector<Line> lines;
    Vellum::LiteralTracker tracker;
    for (std::size_t begin = 0; begin <= text.size();) {
        const std::size_t end = std::min(text.find('\n', begin), text.size());
        lines.push_back({text.substr(begin, end - begin), tracker.inCode()});
        tracker.feed(text.substr(begin, end + 1 - begin));
        begin = end + 1;
    }
    return lines;
}

// The column at which what stands in front of the line's assignment ends. A line without one counts whole.
int assignmentColumn(std::string_view line, LeafDialect dialect) {
    TokenReader reader(line, dialect);
    while (reader.more()) {
        if (isAssignment(reader.next().kind())) return reader.current().last().column;
        reader.advance();
    }
    return reader.current().last().column;
}

}  // namespace

std::string CppExprFormatter::alignAssignments(std::string_view text, const IndentStreamSettings& settings) const {
    const std::vector<Line> lines = splitLines(text);
    int widest = 0;
    for (const Line& line : lines) {
        if (line.takesPart) widest = std::max(widest, assignmentColumn(line.text, dialect()));
    }
    if (widest <= 0) return std::string(text);

    OIndentStream out(settings);
    if (!isMultiple(widest + 2, out.tabSize())) widest = roundUpToMultiple(widest + 2, out.tabSize());
    for (const Line& line : lines) {
        if (&line != &lines.front()) out << '\n';
        if (line.takesPart)
            writeAlignedLine(line.text, widest, out);
        else
            writeRaw(out, line.text);
    }
    return out.takeStr();
}

void CppExprFormatter::writeAlignedLine(std::string_view line, int widest, OIndentStream& out) const {
    ITextDocStream in(line, out.tabSize());
    TokenReader reader(line, dialect());
    for (; reader.more(); reader.advance()) {
        const Trn::Token& current = reader.current();
        const Trn::Token& next = reader.next();
        if (current.kind() == Kind::Directive) writeDirective(current.first(), current.last(), in, out);
        if (next.kind() == Kind::Defective) continue;  // also what the reader holds before its first step
        if (isAssignment(next.kind())) {
            out << trimmedRight(readBefore(in, next.first()));
            const std::string_view sign = readThrough(in, next.last());
            out << Pad{alignPad(widest, out.column(), indentWidth(out), out.tabSize())} << sign;
            break;
        }
        copyThrough(in, out, next.last());
    }
    writeRaw(out, remainderOf(in));
}

}  // namespace Brevis
