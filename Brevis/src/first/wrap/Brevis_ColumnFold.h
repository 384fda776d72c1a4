// Keeps the lines of unfinished steps short, so that the cost of wrapping grows with the text and not with its square.
#pragma once

#include <string_view>

#include "first/text/Brevis_LeafDialect.h"
#include "first/wrap/Brevis_WrapPlace.h"

namespace Brevis {

// The arguments of a call far beyond the right margin are first broken where the call stands, and the next call follows
// on their last line: on a line of thousands of calls each one begins further to the right, until a later step breaks
// the line between the calls and the arguments move back. All that counts in between is that such a column lies beyond
// the margin, and where it lies between two tab stops. So these columns are folded back to just behind a limit.
//
// A result is only good if no folded column has been left in it and none has come near the limit; otherwise the steps
// are to be run anew without folding.
class ColumnFold {
public:
    // `rightMargin` and `place` are those of the whole text.
    ColumnFold(int rightMargin, const WrapPlace& place);

    // Folds the place of a group's inside.
    void fold(WrapPlace& place);
    // To be told of a line that moves from `column` to the left.
    void noteMove(int column, int target) { isSpoiled_ = isSpoiled_ || (column > limit_ && target <= limit_); }

    bool isGood(std::string_view result) const;

    // A token of several lines is laid out by the columns that it comes from, so a text with one is not folded.
    static bool isSafe(std::string_view text, LeafDialect dialect);

private:
    static constexpr int slack = 64;  // room for what moves to the left, and for columns that lie there by themselves

    int limit_;
    int tabSize_;
    bool isUsed_ = false;
    bool isSpoiled_ = false;
};

}  // namespace Brevis
