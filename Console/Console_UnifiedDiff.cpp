// 1. Both texts are split into lines. Each line remembers how many characters other than white space stand in front of
//    it; since the texts hold the same such characters, that number is a place in both of them.
// 2. Two lines are the same line if they begin at the same place and have the same text. Places never decrease, so one
//    walk over both texts finds all such pairs.
// 3. What lies between the pairs is a change; changes whose context would touch share a hunk.
#include "Console_UnifiedDiff.h"

#include <algorithm>
#include <cctype>
#include <vector>

namespace Console {

namespace {

constexpr std::size_t contextLines = 3;

constexpr std::string_view bold = "\x1b[1m";
constexpr std::string_view red = "\x1b[31m";
constexpr std::string_view green = "\x1b[32m";
constexpr std::string_view cyan = "\x1b[36m";
constexpr std::string_view plainAgain = "\x1b[m";

struct Line {
    std::string_view text;  // with its line feed, which only the last line may lack
    std::size_t place;
    bool blank;
};

using Lines = std::vector<Line>;

std::size_t countInk(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](unsigned char c) { return std::isspace(c) == 0; }));
}

Lines splitLines(std::string_view text) {
    Lines lines;
    std::size_t place = 0;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size() - 1) + 1;
        const std::size_t ink = countInk(text.substr(0, end));
        lines.push_back({text.substr(0, end), place, ink == 0});
        place += ink;
        text.remove_prefix(end);
    }
    return lines;
}

// A stretch of lines that gave way to another; either may be empty, not both.
struct Change {
    std::size_t beforeBegin, beforeEnd;
    std::size_t afterBegin, afterEnd;
};

bool isSameLine(const Line& a, const Line& b) { return a.place == b.place && a.text == b.text; }

// Moves past the line, or past both lines, that can have no partner any more.
void skipUnpaired(const Line& before, const Line& after, std::size_t& i, std::size_t& j) {
    const bool sameKind = before.place == after.place && before.blank == after.blank;
    // Of lines at one place, the blank ones come first.
    const bool beforeIsFirst = before.place != after.place ? before.place < after.place : before.blank;
    if (sameKind || beforeIsFirst) ++i;
    if (sameKind || !beforeIsFirst) ++j;
}

std::vector<Change> findChanges(const Lines& before, const Lines& after) {
    std::vector<Change> changes;
    std::size_t i = 0;
    std::size_t j = 0;
    while (i < before.size() || j < after.size()) {
        Change change{i, i, j, j};
        while (i < before.size() && j < after.size() && !isSameLine(before[i], after[j])) {
            skipUnpaired(before[i], after[j], i, j);
        }
        if (i == before.size()) j = after.size();
        if (j == after.size()) i = before.size();
        change.beforeEnd = i;
        change.afterEnd = j;
        if (change.beforeBegin != change.beforeEnd || change.afterBegin != change.afterEnd) changes.push_back(change);
        while (i < before.size() && j < after.size() && isSameLine(before[i], after[j])) ++i, ++j;
    }
    return changes;
}

// Writes the lines of a diff.
class Writer {
public:
    Writer(const Lines& before, const Lines& after, bool coloured)
        : before_(before), after_(after), coloured_(coloured) {}

    std::string takeText() { return std::move(text_); }

    void writeHead(std::string_view name) {
        writeLine(bold, "--- ", std::string(name) + "\t(as it is)\n");
        writeLine(bold, "+++ ", std::string(name) + "\t(formatted)\n");
    }

    // The changes `first` up to `last`, which is not part of the hunk.
    void writeHunk(const Change* first, const Change* last);

private:
    void writeLine(std::string_view colour, std::string_view mark, std::string_view line);
    void writeLines(const Lines& lines, std::size_t begin, std::size_t end, std::string_view colour,
                    std::string_view mark);
    static std::string range(std::size_t begin, std::size_t end);

    const Lines& before_;
    const Lines& after_;
    const bool coloured_;
    std::string text_;
};

void Writer::writeLine(std::string_view colour, std::string_view mark, std::string_view line) {
    const bool ended = !line.empty() && line.back() == '\n';
    const bool paint = coloured_ && !colour.empty();
    if (paint) text_.append(colour);
    text_.append(mark).append(line.substr(0, line.size() - (ended ? 1 : 0)));
    if (paint) text_.append(plainAgain);
    text_.append(ended ? "\n" : "\n\\ No newline at end of file\n");
}

void Writer::writeLines(const Lines& lines, std::size_t begin, std::size_t end, std::string_view colour,
                        std::string_view mark) {
    for (std::size_t index = begin; index < end; ++index) writeLine(colour, mark, lines[index].text);
}

// First line and count; a count of 1 is left out, and an empty range names the line in front of it.
std::string Writer::range(std::size_t begin, std::size_t end) {
    const std::size_t count = end - begin;
    const std::string first = std::to_string(count == 0 ? begin : begin + 1);
    return count == 1 ? first : first + "," + std::to_string(count);
}

void Writer::writeHunk(const Change* first, const Change* last) {
    const Change& final = last[-1];
    const std::size_t lead = std::min(first->beforeBegin, contextLines);
    const std::size_t trail = std::min(before_.size() - final.beforeEnd, contextLines);
    writeLine(cyan, "@@ ",
              "-" + range(first->beforeBegin - lead, final.beforeEnd + trail) + " +" +
              range(first->afterBegin - lead, final.afterEnd + trail) + " @@\n");
    std::size_t shown = first->beforeBegin - lead;
    for (const Change* change = first; change != last; ++change) {
        writeLines(before_, shown, change->beforeBegin, {}, " ");
        writeLines(before_, change->beforeBegin, change->beforeEnd, red, "-");
        writeLines(after_, change->afterBegin, change->afterEnd, green, "+");
        shown = change->beforeEnd;
    }
    writeLines(before_, shown, final.beforeEnd + trail, {}, " ");
}

}  // namespace

std::string unifiedDiff(std::string_view name, std::string_view before, std::string_view after, bool coloured) {
    const Lines beforeLines = splitLines(before);
    const Lines afterLines = splitLines(after);
    const std::vector<Change> changes = findChanges(beforeLines, afterLines);
    if (changes.empty()) return {};

    Writer writer(beforeLines, afterLines, coloured);
    writer.writeHead(name);
    const Change* first = changes.data();
    const Change* const end = first + changes.size();
    while (first != end) {
        const Change* last = first + 1;
        while (last != end && last->beforeBegin - last[-1].beforeEnd <= 2 * contextLines) ++last;
        writer.writeHunk(first, last);
        first = last;
    }
    return writer.takeText();
}

}  // namespace Console
