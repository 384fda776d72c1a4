// One pass over the lines, each of which votes with the one above it. Only what the sizes disagree on counts.
#include "second/Brevis_SourceTabs.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "second/Brevis_LineColumns.h"

namespace Brevis {

namespace {

constexpr std::size_t sizeCount = 4, maxStops = 8;
using Columns = std::array<int, sizeCount>;  // under each of the sizes

// A place behind a tab or several blanks.
struct Stop {
    Columns columns{};
    bool hasTab = false;
};
struct Stops {
    std::array<Stop, maxStops> stops;
    std::size_t count = 0;
    bool isRead = false;

    void add(const Columns& columns, bool hasTab) {
        if (count < maxStops) stops[count++] = {columns, hasTab};
    }
};

struct Line {
    std::string_view text;  // without the white space behind it
    std::size_t lead = 0;   // how much of it is white space
    bool hasTabLead = false;
    bool hasInnerTab = false;

    std::string_view indent() const { return text.substr(0, lead); }
    char first() const { return text[lead]; }
};

bool isBlank(char c) { return c == ' ' || c == '\t'; }
bool holdsTab(std::string_view text) { return text.find('\t') != std::string_view::npos; }

class TabVotes {
public:
    explicit TabVotes(int tabSize) : sizes_{tabSize, 8, 4, 2} {}

    void read(std::string_view line);
    int winner() const;

private:
    using Marks = std::array<bool, sizeCount>;

    void advance(Columns& columns, std::string_view text) const;
    Columns columnsBehind(std::string_view text) const;
    void readStops(const Line& line, Stops& stops) const;
    void vote(const Marks& marks, int weight = 1);
    void voteByStops();
    void voteByBracket();
    void voteByComment();
    void voteByDepth();

    const std::array<int, sizeCount> sizes_;
    std::array<int, sizeCount> votes_{};
    Line above_, here_;
    Stops aboveStops_, hereStops_;
};

void TabVotes::advance(Columns& columns, std::string_view text) const {
    for (std::size_t size = 0; size < sizeCount; ++size) {
        columns[size] = columnBehind(text, columns[size], sizes_[size]);
    }
}

Columns TabVotes::columnsBehind(std::string_view text) const {
    Columns columns{};
    advance(columns, text);
    return columns;
}

void TabVotes::read(std::string_view line) {
    const std::size_t lead = blankSize(line);
    while (line.size() > lead && isBlank(line.back())) line.remove_suffix(1);
    if (line.size() == lead) return;
    here_ = {line, lead, holdsTab(line.substr(0, lead)), holdsTab(line.substr(lead))};
    hereStops_.count = 0;
    hereStops_.isRead = false;
    if (!above_.text.empty()) {
        voteByStops();
        voteByBracket();
        voteByComment();
        voteByDepth();
    }
    above_ = here_;
    if (hereStops_.isRead || aboveStops_.isRead) std::swap(aboveStops_, hereStops_);
}

void TabVotes::readStops(const Line& line, Stops& stops) const {
    if (stops.isRead) return;
    stops.isRead = true;
    const std::string_view text = line.text;
    Columns columns = columnsBehind(line.indent());
    for (std::size_t at = line.lead; at < text.size();) {
        std::size_t end = at;
        while (end < text.size() && isBlank(text[end]) == isBlank(text[at])) ++end;
        const std::string_view part = text.substr(at, end - at);
        advance(columns, part);
        const bool hasTab = holdsTab(part);
        if (hasTab || (isBlank(part[0]) && part.size() > 1)) {
            stops.add(columns, hasTab);
            // Names may stand in one column with the signs in front of them.
            const std::size_t name = std::min(text.find_first_not_of('*', end), text.size());
            Columns behind = columns;
            advance(behind, text.substr(end, name - end));
            if (name > end) stops.add(behind, hasTab);
        }
        at = end;
    }
}

void TabVotes::vote(const Marks& marks, int weight) {
    for (std::size_t size = 0; size < sizeCount; ++size) votes_[size] += marks[size] ? weight : 0;
}

void TabVotes::voteByStops() {
    if (!above_.hasInnerTab && !here_.hasInnerTab) return;
    readStops(above_, aboveStops_);
    readStops(here_, hereStops_);
    for (std::size_t stop = 0; stop < hereStops_.count; ++stop) {
        const Stop& here = hereStops_.stops[stop];
        Marks marks{};
        for (std::size_t other = 0; other < aboveStops_.count; ++other) {
            const Stop& above = aboveStops_.stops[other];
            if (!here.hasTab && !above.hasTab) continue;
            for (std::size_t size = 0; size < sizeCount; ++size) {
                marks[size] = marks[size] || here.columns[size] == above.columns[size];
            }
        }
        vote(marks);
    }
}

// Below what follows an open bracket: a column that no step of tabs ends in is hardly met by chance.
void TabVotes::voteByBracket() {
    const bool hasTab = here_.hasTabLead || above_.hasTabLead || above_.hasInnerTab;
    if (!hasTab || !here_.indent().ends_with(' ')) return;
    int depth = 0;
    std::size_t open = above_.text.size();
    while (open > above_.lead && depth <= 0) {
        --open;
        depth += above_.text[open] == '(' ? 1 : above_.text[open] == ')' ? -1 : 0;
    }
    if (depth <= 0) return;
    if (!here_.hasTabLead && !holdsTab(above_.text.substr(0, open))) return;
    const Columns bracket = columnsBehind(above_.text.substr(0, open + 1));
    const Columns lead = columnsBehind(here_.indent());
    Marks marks{};
    for (std::size_t size = 0; size < sizeCount; ++size) marks[size] = lead[size] == bracket[size];
    vote(marks, 2);
}

// Below the words of a comment behind code, or below its sign.
void TabVotes::voteByComment() {
    if (!here_.hasTabLead || !here_.indent().ends_with(' ')) return;
    const std::size_t sign = above_.text.rfind("/*");
    if (sign == std::string_view::npos || sign <= above_.lead) return;
    if (above_.text.find("*/", sign) != std::string_view::npos) return;
    const std::size_t words = above_.text.find_first_not_of(' ', sign + 2);
    const std::size_t target = here_.first() == '*' ? sign + 1 : words;
    if (target == std::string_view::npos) return;
    const Columns above = columnsBehind(above_.text.substr(0, target));
    const Columns lead = columnsBehind(here_.indent());
    Marks marks{};
    for (std::size_t size = 0; size < sizeCount; ++size) marks[size] = lead[size] == above[size];
    vote(marks, 2);
}

// What a brace or a head has opened stands further to the right than that, and what a brace closes so too.
void TabVotes::voteByDepth() {
    if (here_.hasTabLead == above_.hasTabLead || here_.first() == '#' || above_.first() == '#') return;
    const bool closes = here_.first() == '}';
    const std::string_view head = above_.text.substr(above_.lead);
    const bool isHead = head.back() == ')' && (head.starts_with("if ") || head.starts_with("for "));
    const bool opens = head.back() == '{' || isHead;
    if (opens == closes || here_.first() == '{' || here_.text.back() == ':') return;
    const Columns outer = columnsBehind((opens ? above_ : here_).indent());
    const Columns inner = columnsBehind((opens ? here_ : above_).indent());
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
