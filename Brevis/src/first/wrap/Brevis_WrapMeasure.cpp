#include "first/wrap/Brevis_WrapMeasure.h"

#include "Trn_Exception.h"
#include "first/text/Brevis_Columns.h"

namespace Brevis {

bool isWider(std::string_view line, int column, int tabSize, int limit) {
    const bool hasTab = tabSize < 1 || column < 0 || line.find('\t') != line.npos;
    if (!hasTab) return column + static_cast<std::int64_t>(line.size()) > limit;
    return columnAfter(line, column, tabSize) > limit;
}

bool overflows(std::string_view text, int column, int tabSize, int limit) {
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        if (isWider(line, column, tabSize, limit)) return true;
        if (line.size() == text.size()) return false;
        text.remove_prefix(line.size() + 1);
        column = 0;
    }
    return false;
}

bool isPlainText(std::string_view text, const IndentStreamSettings& settings) {
    if (settings.convertMode == 1) return text.find('\t') == std::string_view::npos;
    if (settings.convertMode == 2) return settings.tabSize > 1 && text.find("  ") == std::string_view::npos;
    return true;
}

void checkGrowth(std::size_t wrappedSize, std::size_t size) {
    if (wrappedSize > size + maxGrowth) throw Trn::Exception("The text is too long once its lines are wrapped.");
}

}  // namespace Brevis
