// The finder of the end of a C-style cast.
#pragma once

#include "first/wrap/Brevis_FirstWrapToken.h"

namespace Brevis {

// Finds a `)` with an operand behind it whose parenthesis stands behind neither a name nor a `>`, which would make it a
// call.
class FindFirstOldCast : public FirstWrapToken {
public:
    std::size_t find(const LexedText& text, std::size_t from, std::size_t end) override;
    bool isWrapToken(Trn::TokenKind) const override { return false; }
};

}  // namespace Brevis
