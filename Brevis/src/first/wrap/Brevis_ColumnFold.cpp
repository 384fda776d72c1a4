#include "first/wrap/Brevis_ColumnFold.h"

#include <algorithm>

#include "first/wrap/Brevis_LexedText.h"

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

bool ColumnFold::isSafe(std::string_view text, LeafDialect dialect) {
    const bool mayHoldSome = text.find('#') != text.npos || text.find("/*") != text.npos;
    if (!mayHoldSome) return true;
    const LexedText lexed(text, dialect);
    for (std::size_t i = 0; i < lexed.count(); ++i) {
        if (lexed[i].kind != Trn::Kind::BlockComment && lexed[i].kind != Trn::Kind::Directive) continue;
        const std::string_view token = text.substr(lexed[i].begin, lexed[i].end - lexed[i].begin);
        const std::size_t lineFeed = token.find('\n');
        if (lineFeed != token.npos && lineFeed + 1 < token.size()) return false;
    }
    return true;
}

}  // namespace Brevis
