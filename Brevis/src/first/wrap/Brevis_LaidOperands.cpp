#include "first/wrap/Brevis_LaidOperands.h"

#include "first/wrap/Brevis_Ladder.h"

namespace Brevis {

void LaidOperands::climb(const LaidText::Part& part, int column, std::optional<int> indentColumn) {
    LaidRange range(laid_, part, column, indentColumn);
    Ladder(values_, range).climb();
}

void LaidOperands::GroupPass::wrapInside(std::size_t open, bool hasName) {
    LaidText& laid = operands_.laid_;
    const LexedText& lexed = laid.lexed();
    if (lexed.closeOf(open) == lexed.count() && lexed.cutMakesOtherTokens()) return laid.giveUp();
    const auto columnAt = [&](LaidText::Boundary place) { return laid.columnBehind(0, place, operands_.column_); };
    std::optional<int> nameColumn;
    if (hasName) nameColumn = columnAt(LaidText::beforeToken(open - 1));
    operands_.climb(laid.inside(open), columnAt(LaidText::beforeGap(open + 1)), nameColumn);
}

}  // namespace Brevis
