// Walks two texts side by side, from one character that isn't white space to the next.
#include "editor/BrevisUI_TextMoves.h"

#include <algorithm>

#include "Vellum_WhiteSpace.h"

namespace BrevisUI {

namespace {

using Vellum::isSpace;

// The white space from `begin` on.
std::string_view spaceAt(std::string_view text, std::size_t begin) {
    std::size_t end = begin;
    while (end < text.size() && isSpace(text[end])) ++end;
    return text.substr(begin, end - begin);
}

void add(std::vector<TextRange>& ranges, TextRange range) {
    if (!ranges.empty() && range.begin <= ranges.back().end) {
        ranges.back().end = std::max(ranges.back().end, range.end);
    } else if (range.begin < range.end) {
        ranges.push_back(range);
    }
}

// The lines of a text, each with the number of characters in front of it that aren't white space. In two forms of one
// text that number tells which lines can be the same one.
class PlacedLines {
public:
    explicit PlacedLines(std::string_view text) : rest_(text) { next(); }

    bool isAtEnd() const { return isAtEnd_; }
    std::string_view line() const { return line_; }
    std::size_t place() const { return place_; }
    bool isBlank() const { return Vellum::isBlank(line_); }

    void next() {
        place_ += static_cast<std::size_t>(std::ranges::count_if(line_, [](char c) { return !isSpace(c); }));
        isAtEnd_ = rest_.empty();
        const std::size_t length = std::min(rest_.find('\n'), rest_.size());
        line_ = rest_.substr(0, length);
        rest_.remove_prefix(std::min(length + 1, rest_.size()));
    }

private:
    std::string_view rest_;
    std::string_view line_;
    std::size_t place_ = 0;
    bool isAtEnd_ = false;
};

// Whether `after`, brought to the place of the line that `before` stands on, has the same line there.
bool standsIn(const PlacedLines& before, PlacedLines& after) {
    const auto isBehind = [&] {
        return after.place() < before.place() ||
               (after.place() == before.place() && after.isBlank() && !before.isBlank());
    };
    while (!after.isAtEnd() && isBehind()) after.next();
    if (after.isAtEnd() || after.place() != before.place() || after.isBlank() != before.isBlank()) return false;
    const bool isSame = after.line() == before.line();
    after.next();
    return isSame;
}

}  // namespace

std::vector<TextRange> movedRanges(std::string_view before, std::string_view after) {
    std::vector<TextRange> ranges;
    for (std::size_t i = 0, j = 0;; ++i, ++j) {
        const std::string_view old = spaceAt(before, i), now = spaceAt(after, j);
        if (now.empty() && !old.empty()) {
            add(ranges, {j == 0 ? 0 : j - 1, std::min(j + 1, after.size())});
        } else if (now != old) {
            add(ranges, {j, j + now.size()});
        }
        i += old.size();
        j += now.size();
        if (i == before.size() && j == after.size()) return ranges;
        if (i == before.size() || j == after.size() || before[i] != after[j]) return {};
    }
}

std::size_t countChangedLines(std::string_view before, std::string_view after) {
    std::size_t count = 0;
    PlacedLines now(after);
    for (PlacedLines old(before); !old.isAtEnd(); old.next()) count += standsIn(old, now) ? 0 : 1;
    return count;
}

std::size_t countLines(std::string_view text) {
    const auto feeds = static_cast<std::size_t>(std::ranges::count(text, '\n'));
    return feeds + (text.empty() || text.ends_with('\n') ? 0 : 1);
}

}  // namespace BrevisUI
