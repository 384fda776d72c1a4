// The two directions between an indent and its number and unit.
#include "editor/BrevisUI_IndentEntry.h"

#include <algorithm>

namespace BrevisUI {

IndentEntry showIndent(std::string_view text) {
    const bool hasTab = text.find('\t') != std::string_view::npos;
    return {static_cast<std::int32_t>(text.size()), hasTab ? IndentUnit::Tabs : IndentUnit::Spaces};
}

std::string readIndent(IndentEntry entry) {
    const auto length = static_cast<std::size_t>(std::max(entry.number, 0));
    return std::string(length, entry.unit == IndentUnit::Tabs ? '\t' : ' ');
}

}  // namespace BrevisUI
