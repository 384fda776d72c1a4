// The walk, and the cut of a gap to what differs in it.
#include "BrevisUI_GapWalk.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"

namespace BrevisUI {

namespace {

std::size_t endOfSpace(std::string_view text, std::size_t position) {
    while (position < text.size() && Vellum::isSpace(text[position])) ++position;
    return position;
}

// Whether a cut in front of this place would take a line feed from its carriage return.
bool tearsLineEnd(std::string_view text, std::size_t place) {
    return place > 0 && place < text.size() && text[place - 1] == '\r' && text[place] == '\n';
}

Gap narrowed(const Gap& gap, std::string_view source, std::string_view formatted) {
    const std::string_view before = gap.in(source);
    const std::string_view after = gap.inFormatted(formatted);
    const std::size_t shorter = std::min(before.size(), after.size());
    std::size_t head = 0;
    while (head < shorter && before[head] == after[head]) ++head;
    while (tearsLineEnd(before, head) || tearsLineEnd(after, head)) --head;
    const auto behind = [](std::string_view text, std::size_t tail) { return text.size() - tail; };
    std::size_t tail = 0;
    while (tail < shorter - head && before[behind(before, tail + 1)] == after[behind(after, tail + 1)]) ++tail;
    while (tearsLineEnd(before, behind(before, tail)) || tearsLineEnd(after, behind(after, tail))) --tail;
    return {gap.sourceBegin + head, gap.sourceEnd - tail, gap.formattedBegin + head, gap.formattedEnd - tail};
}

}  // namespace

bool GapWalk::next() {
    while (!mismatch_) {
        readGap();
        if (gap_.in(source_) != gap_.inFormatted(formatted_)) return true;
        if (gap_.sourceEnd == source_.size() && gap_.formattedEnd == formatted_.size()) return false;
        const bool ends = gap_.sourceEnd == source_.size() || gap_.formattedEnd == formatted_.size();
        mismatch_ = ends || source_[gap_.sourceEnd] != formatted_[gap_.formattedEnd];
    }
    return false;
}

void GapWalk::readGap() {
    // Runs of equal bytes go quickly: what stands there has no gap that differs.
    std::size_t source = gap_.sourceEnd;
    std::size_t formatted = gap_.formattedEnd;
    while (source < source_.size() && formatted < formatted_.size() && source_[source] == formatted_[formatted] &&
           !Vellum::isSpace(source_[source])) {
        ++source, ++formatted;
    }
    gap_ = {source, endOfSpace(source_, source), formatted, endOfSpace(formatted_, formatted)};
}

std::vector<Gap> findChangedGaps(std::string_view source, std::string_view formatted) {
    std::vector<Gap> gaps;
    GapWalk walk(source, formatted);
    while (walk.next()) gaps.push_back(narrowed(walk.gap(), source, formatted));
    if (walk.isMismatch()) gaps = {Gap{0, source.size(), 0, formatted.size()}};
    return gaps;
}

}  // namespace BrevisUI
