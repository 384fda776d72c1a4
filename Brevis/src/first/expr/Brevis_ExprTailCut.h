// Takes the last character of a stretch of expression tokens away. Only the tokens at its end are read anew, so that a
// text may hold any number of brackets without a close, each of which cuts the rest once more.
#pragma once

#include <vector>

#include "first/expr/Brevis_ExprWalk.h"

namespace Brevis {

// The tokens are changed for its extent; whoever looks at them beyond the end of the stretch has to wait.
class ExprTailCut {
public:
    // `slice` ends inside its last token.
    ExprTailCut(ExprTokens& tokens, const ExprSlice& slice);
    ~ExprTailCut();
    ExprTailCut(const ExprTailCut&) = delete;
    ExprTailCut& operator=(const ExprTailCut&) = delete;

    // False if the cut changes more than the end; then nothing has happened.
    bool isDone() const { return isDone_; }
    const ExprSlice& slice() const { return slice_; }

private:
    std::uint32_t firstChanged() const;
    bool staysAtEnd() const;

    ExprTokens& tokens_;
    ExprSlice slice_;
    std::uint32_t first_;          // index of the first token that is read anew
    std::vector<ExprToken> tail_;  // the new tokens, and those in their place while they are in use
    bool isDone_ = false;
};

}  // namespace Brevis
