// A map from files to lines.
#include "Console_LineChoice.h"

namespace Console {

void LineChoice::narrow(std::vector<std::string>& files) {
    if (!options_.git) return;
    std::vector<BrevisUI::LineSet> lines = changes_.linesOf(files);
    std::vector<std::string> changed;
    for (std::size_t index = 0; index < files.size(); ++index) {
        if (lines[index].empty()) continue;
        lines_.insert_or_assign(files[index], std::move(lines[index]));
        changed.push_back(std::move(files[index]));
    }
    files = std::move(changed);
}

const BrevisUI::LineSet* LineChoice::linesOf(const std::string& file) const {
    if (!options_.lines.empty()) return &options_.lines;
    const auto found = lines_.find(file);
    return found == lines_.end() ? nullptr : &found->second;
}

}  // namespace Console
