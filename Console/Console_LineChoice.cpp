// A map from files to lines.
#include "Console_LineChoice.h"

namespace Console {

void LineChoice::narrow(std::vector<std::string>& files) {
    if (!options_.git) return;
    std::erase_if(files, [this](const std::string& file) {
        BrevisUI::LineSet lines = changes_.linesOf(file);
        const bool isUnchanged = lines.empty();
        if (!isUnchanged) lines_.insert_or_assign(file, std::move(lines));
        return isUnchanged;
    });
}

const BrevisUI::LineSet* LineChoice::linesOf(const std::string& file) const {
    if (!options_.lines.empty()) return &options_.lines;
    const auto found = lines_.find(file);
    return found == lines_.end() ? nullptr : &found->second;
}

}  // namespace Console
