// Reading the last tokens of a stretch again.
#include "first/expr/Brevis_ExprTailCut.h"

#include <algorithm>

namespace Brevis {

namespace Kind = Trn::Kind;

ExprTailCut::ExprTailCut(ExprTokens& tokens, const ExprSlice& slice)
    : tokens_(tokens), slice_(slice), first_(firstChanged()) {
    const bool isWhole = first_ == slice.firstToken;
    tail_ = tokens.lexed(isWhole ? slice.begin : tokens[first_].begin, slice.end);
    isDone_ = staysAtEnd();
    if (!isDone_) return;
    slice_.endToken = first_ + static_cast<std::uint32_t>(tail_.size());
    tokens_.exchange(first_, tail_);
}

ExprTailCut::~ExprTailCut() {
    if (isDone_) tokens_.exchange(first_, tail_);
}

// The token in front of the last one too: a number that ran into the last one may be a token now. A word that ends in
// `operator` makes two tokens, which are read together.
std::uint32_t ExprTailCut::firstChanged() const {
    std::uint32_t first = std::max(slice_.firstToken + 1, slice_.endToken - 1) - 1;
    const ExprToken& token = tokens_[first];
    const bool isSecondHalf = token.kind != Kind::Colon && token.kind != Kind::Identifier && token.begin < token.end &&
                              tokens_.text()[token.begin] == ':';
    if (isSecondHalf && first > slice_.firstToken) --first;
    return first;
}

// A `>` that comes out of a `>>` may close a `<` anywhere, and more tokens need room.
bool ExprTailCut::staysAtEnd() const {
    const auto end = first_ + static_cast<std::uint32_t>(tail_.size());
    if (end > slice_.endToken && (slice_.endToken < tokens_.count() || end > tokens_.room())) return false;
    if (!tokens_.hasAngles()) return true;
    for (std::uint32_t i = first_; i < end; ++i) {
        if (tail_[i - first_].kind != Kind::Greater) continue;
        if (i >= slice_.endToken || tokens_[i].kind != Kind::Greater) return false;
    }
    return true;
}

}  // namespace Brevis
