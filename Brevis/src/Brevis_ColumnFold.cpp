#include "Brevis_ColumnFold.h"

#include <algorithm>

namespace Brevis {

ColumnFold::ColumnFold(int rightMargin, const WrapPlace& place)
    : limit_(std::max({rightMargin, place.indentWidth(), place.column}) + slack), tabSize_(place.settings->tabSize) {}

void ColumnFold::fold(WrapPlace& place) {
    const int column = place.indentColumn.value_or(place.column);
    if (column <= limit_ + slack) return;
    const int shift = (column - limit_ - slack) / tabSize_ * tabSize_;
    place.column -= shift;
    if (place.indentColumn) *place.indentColumn -= shift;
    isUsed_ = true;
}

bool ColumnFold::isGood(std::string_view result) const {
    if (!isUsed_) return true;
    if (isSpoiled_) return false;
    for (std::size_t line = result.find('\n'); line != std::string_view::npos; line = result.find('\n', line + 1)) {
        const std::string_view rest = result.substr(line + 1);
        const std::size_t indent = std::min(rest.find_first_not_of(" \t"), rest.size());
        if (columnAfter(rest.substr(0, indent), 0, tabSize_) > limit_) return false;
    }
    return true;
}

bool ColumnFold::isSafe(const LexedText& text) {
    for (std::size_t i = 0; i < text.count(); ++i) {
        if (text[i].kind != Trn::Kind::BlockComment && text[i].kind != Trn::Kind::Directive) continue;
        const std::string_view token = text.text().substr(text[i].begin, text[i].end - text[i].begin);
        if (token.find('\n') + 1 < token.size()) return false;
    }
    return true;
}

}  // namespace Brevis
