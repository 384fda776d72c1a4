// The finder of a fixed set of separators: commas, semicolons, shifts, logical operators.
#pragma once

#include "first/wrap/Brevis_FirstWrapToken.h"
#include "first/wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

// Two adjacent separators are no break point.
class FindFirstElem : public FirstWrapToken {
public:
    explicit FindFirstElem(const TokenSet& elements) : elements_(elements) {}

    std::size_t find(const LexedText& text, std::size_t from, std::size_t end) override;
    bool isWrapToken(Trn::TokenKind kind) const override { return elements_.contains(kind); }

private:
    TokenSet elements_;
};

}  // namespace Brevis
