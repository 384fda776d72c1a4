// One pass over the lines for each question.
#include "second/Brevis_BranchLines.h"

#include <algorithm>

#include "second/Brevis_LineColumns.h"

namespace Brevis {

namespace {

bool goesOn(std::string_view line) { return line.ends_with('\\') || line.ends_with("?\?/"); }

// Hands each line to `take`, with the size of its indent; 0 for a line that stays.
template <typename Take>
void eachLine(std::string_view branch, Take take) {
    bool isDirective = true;
    for (std::size_t begin = 0;;) {
        const std::size_t size = std::min(branch.find('\n', begin), branch.size()) - begin;
        const std::string_view line = branch.substr(begin, size);
        const std::size_t lead = blankSize(line);
        const bool isEmpty = lead == size;
        isDirective = isDirective || (!isEmpty && line[lead] == '#');
        if (!take(line, isEmpty || isDirective ? std::string_view::npos : lead)) return;
        isDirective = isDirective && goesOn(line);
        begin += size + 1;
        if (begin > branch.size()) return;
    }
}

}  // namespace

bool holdsBranch(std::string_view directive) {
    if (directive.find("R\"") != std::string_view::npos) return false;
    std::size_t end = directive.find('\n');
    while (end != std::string_view::npos && goesOn(directive.substr(0, end))) end = directive.find('\n', end + 1);
    return end != std::string_view::npos && end + 1 < directive.size();
}

int firstColumn(std::string_view branch, int tabSize) {
    int column = -1;
    eachLine(branch, [&](std::string_view line, std::size_t lead) {
        if (lead != std::string_view::npos) column = columnBehind(line.substr(0, lead), 0, tabSize);
        return column < 0;
    });
    return column;
}

std::string movedBranch(std::string_view branch, int shift, int tabSize, bool wantsTabs) {
    if (shift == 0) return std::string(branch);
    std::string moved;
    eachLine(branch, [&](std::string_view line, std::size_t lead) {
        if (!moved.empty()) moved += '\n';
        if (lead == std::string_view::npos) {
            moved += line;
            return true;
        }
        const int column = columnBehind(line.substr(0, lead), 0, tabSize) + shift;
        if (column < 0) {
            moved = branch;
            return false;
        }
        const bool hasTabs = wantsTabs || line.starts_with('\t');
        const std::size_t tabs = hasTabs ? static_cast<std::size_t>(column / tabSize) : 0;
        moved.append(tabs, '\t');
        moved.append(static_cast<std::size_t>(column) - tabs * static_cast<std::size_t>(tabSize), ' ');
        moved += line.substr(lead);
        return true;
    });
    return moved;
}

std::string trimmedBranch(std::string_view branch) {
    std::string trimmed;
    trimmed.reserve(branch.size());
    eachLine(branch, [&](std::string_view line, std::size_t) {
        const std::size_t last = line.find_last_not_of(" \t");
        const std::string_view text = line.substr(0, last == std::string_view::npos ? 0 : last + 1);
        trimmed += goesOn(text) ? line : text;
        trimmed += '\n';
        return true;
    });
    trimmed.pop_back();
    return trimmed;
}

}  // namespace Brevis
