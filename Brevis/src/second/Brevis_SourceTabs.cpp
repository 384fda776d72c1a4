// One pass over the lines, each of which votes with the one above it. Only what the sizes disagree on counts.
#include "second/Brevis_SourceTabs.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "second/Brevis_LineColumns.h"

namespace Brevis {

namespace {

constexpr std::size_t sizeCount = 4, maxStops = 8;
using Columns = std::array<int, sizeCount>;  // under each of the sizes

// What the line votes by.
struct Line {
    struct Stop {
        Columns columns{};  // behind a tab or several blanks
        bool hasTab = false;
    };

    std::string_view text;  // without the white space round it
    Columns lead{};
    bool hasTabLead = false;
    bool hasBlanksLast = false;  // its indent ends with blanks
    std::array<Stop, maxStops> stops{};
    std::size_t stopCount = 0;
    Columns bracket{};  // behind the last round bracket that stays open
    bool hasBracket = false;
};

bool isBlank(char c) { return c == ' ' || c == '\t'; }

class TabVotes {
public:
    explicit TabVotes(int tabSize) : sizes_{tabSize, 8, 4, 2} {}

    void read(std::string_view line);
    int winner() const;

private:
    using Marks = std::array<bool, sizeCount>;

    void advance(Columns& columns, std::string_view text) const;
    void addStop(Line& line, Columns columns, bool hasTab, std::string_view text) const;
    void readStops(Line& line, std::string_view text) const;
    void vote(const Marks& marks, int weight = 1);
    void voteByStops();
    void voteByBracket();
    void voteByDepth();

    const std::array<int, sizeCount> sizes_;
    std::array<int, sizeCount> votes_{};
    Line above_;
    Line here_;
};

void TabVotes::advance(Columns& columns, std::string_view text) const {
    for (std::size_t size = 0; size < sizeCount; ++size) {
        columns[size] = columnBehind(text, columns[size], sizes_[size]);
    }
}

void TabVotes::read(std::string_view line) {
    const std::size_t lead = blankSize(line);
    while (line.size() > lead && isBlank(line.back())) line.remove_suffix(1);
    if (line.size() == lead) return;
    here_ = {};
    here_.text = line.substr(lead);
    here_.hasTabLead = line.substr(0, lead).find('\t') != std::string_view::npos;
    here_.hasBlanksLast = lead > 0 && line[lead - 1] == ' ';
    advance(here_.lead, line.substr(0, lead));
    readStops(here_, here_.text);
    if (!above_.text.empty()) {
        voteByStops();
        voteByBracket();
        voteByDepth();
    }
    above_ = here_;
}

// In front of `text`, and behind its signs: names may stand in one column with the signs in front of it.
void TabVotes::addStop(Line& line, Columns columns, bool hasTab, std::string_view text) const {
    if (line.stopCount < maxStops) line.stops[line.stopCount++] = {columns, hasTab};
    const std::size_t signs = std::min(text.find_first_not_of('*'), text.size());
    if (signs == 0 || line.stopCount == maxStops) return;
    advance(columns, text.substr(0, signs));
    line.stops[line.stopCount++] = {columns, hasTab};
}

void TabVotes::readStops(Line& line, std::string_view text) const {
    std::array<Columns, maxStops> open{};
    std::size_t depth = 0;
    Columns columns = line.lead;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t end = at;
        if (isBlank(text[at])) {
            while (isBlank(text[end])) ++end;
            const std::string_view gap = text.substr(at, end - at);
            const bool hasTab = gap.find('\t') != std::string_view::npos;
            advance(columns, gap);
            if (hasTab || gap.size() > 1) {
                addStop(line, columns, hasTab, text.substr(end));
            }
        } else {
            while (end < text.size() && !isBlank(text[end]) && text[end] != '(' && text[end] != ')') ++end;
            if (end == at) ++end;
            advance(columns, text.substr(at, end - at));
            if (text[at] == '(' && depth < maxStops) open[depth++] = columns;
            if (text[at] == ')' && depth > 0) --depth;
        }
        at = end;
    }
    line.hasBracket = depth > 0;
    if (depth > 0) line.bracket = open[depth - 1];
}

void TabVotes::vote(const Marks& marks, int weight) {
    for (std::size_t size = 0; size < sizeCount; ++size) votes_[size] += marks[size] ? weight : 0;
}

void TabVotes::voteByStops() {
    for (std::size_t stop = 0; stop < here_.stopCount; ++stop) {
        Marks marks{};
        for (std::size_t other = 0; other < above_.stopCount; ++other) {
            if (!here_.stops[stop].hasTab && !above_.stops[other].hasTab) continue;
            for (std::size_t size = 0; size < sizeCount; ++size) {
                const bool isEqual = here_.stops[stop].columns[size] == above_.stops[other].columns[size];
                marks[size] = marks[size] || isEqual;
            }
        }
        vote(marks);
    }
}

// A column that no step of tabs ends in is hardly met by chance.
void TabVotes::voteByBracket() {
    if (!above_.hasBracket || !here_.hasTabLead || !here_.hasBlanksLast) return;
    Marks marks{};
    for (std::size_t size = 0; size < sizeCount; ++size) marks[size] = here_.lead[size] == above_.bracket[size];
    vote(marks, 2);
}

// What a brace or a head has opened stands further to the right than that, and what a brace closes so too.
void TabVotes::voteByDepth() {
    if (here_.hasTabLead == above_.hasTabLead || here_.text[0] == '#' || above_.text[0] == '#') return;
    const bool closes = here_.text[0] == '}';
    const bool isHead = above_.text.back() == ')' &&
                        (above_.text.starts_with("if ") || above_.text.starts_with("for "));
    const bool opens = above_.text.back() == '{' || isHead;
    if (opens == closes || here_.text[0] == '{' || here_.text.back() == ':') return;
    const Columns& outer = opens ? above_.lead : here_.lead;
    const Columns& inner = opens ? here_.lead : above_.lead;
    Marks marks{};
    for (std::size_t size = 0; size < sizeCount; ++size) marks[size] = inner[size] > outer[size];
    vote(marks);
}

int TabVotes::winner() const {
    const auto most = std::max_element(votes_.begin(), votes_.end());
    return *most > votes_[0] + 1 ? sizes_[static_cast<std::size_t>(most - votes_.begin())] : sizes_[0];
}

}  // namespace

int tabSizeOf(std::string_view source, int tabSize) {
    TabVotes votes(tabSize);
    while (!source.empty()) {
        const std::size_t size = std::min(source.find('\n'), source.size());
        votes.read(source.substr(0, size));
        source.remove_prefix(std::min(size + 1, source.size()));
    }
    return votes.winner();
}

}  // namespace Brevis
