// One pass over the lines of each text.
#include "inference/BrevisUI_TextStatistics.h"

#include <algorithm>
#include <numeric>

#include "second/Brevis_LineColumns.h"

namespace BrevisUI {

namespace {

bool isFilled(std::string_view lead, int tabSize) {
    const std::size_t tabs = std::min(lead.find_first_not_of('\t'), lead.size());
    const std::string_view rest = lead.substr(tabs);
    return rest.find('\t') == std::string_view::npos && rest.size() < static_cast<std::size_t>(tabSize);
}

void addLead(TextStatistics& counts, std::string_view lead) {
    ++counts.indented;
    if (lead.front() == '\t') ++counts.tabIndented;
    for (std::size_t i = 0; i < TextStatistics::tabSizes.size(); ++i) {
        const int tabSize = TextStatistics::tabSizes[i];
        if (Brevis::columnBehind(lead, 0, tabSize) < tabSize) continue;
        ++counts.wideAsTab[i];
        if (isFilled(lead, tabSize)) ++counts.filledWithTabs[i];
    }
}

// A line that is not empty.
void addLine(TextStatistics& counts, std::string_view line) {
    if (line.find('\t') != std::string_view::npos) ++counts.tabbed;
    if (line.back() == ' ' || line.back() == '\t') ++counts.withTrailingBlanks;
    const std::string_view lead = line.substr(0, std::min(line.find_first_not_of(" \t"), line.size()));
    if (!lead.empty() && lead.size() < line.size()) addLead(counts, lead);
    if (line.substr(lead.size()).starts_with('#')) {
        ++counts.directives;
        if (lead.empty()) ++counts.directivesAtMargin;
    }
}

}  // namespace

void TextStatistics::add(std::string_view text) {
    ++texts;
    if (text.ends_with('\n') && !text.ends_with("\n\n")) ++endingInOneFeed;
    std::size_t run = 0;
    bool isFirst = true;
    while (!text.empty()) {
        const std::size_t size = std::min(text.find('\n'), text.size());
        const std::string_view line = text.substr(0, size);
        text.remove_prefix(std::min(size + 1, text.size()));
        ++lines;
        if (line.empty()) {
            ++run;
            continue;
        }
        if (run > 0 && !isFirst) ++emptyRuns[std::min(run, longestRun)];
        run = 0;
        isFirst = false;
        addLine(*this, line);
    }
}

int TextStatistics::usualEmptyLines(double rare) const {
    const auto all = std::accumulate(emptyRuns.begin(), emptyRuns.end(), std::uint64_t{0});
    std::uint64_t longer = 0;
    std::size_t most = longestRun;
    while (most > 1 && static_cast<double>(longer + emptyRuns[most]) <= rare * static_cast<double>(all)) {
        longer += emptyRuns[most--];
    }
    return static_cast<int>(most);
}

}  // namespace BrevisUI
