// The finder of the end of a named cast's type.
#pragma once

#include "first/wrap/Brevis_FirstWrapToken.h"

namespace Brevis {

// Finds the `>` that closes `static_cast<T>` and its kin; a line is broken behind it.
class FindFirstCast : public FirstWrapToken {
public:
    std::size_t find(const LexedText& text, std::size_t from, std::size_t end) override;
    bool isWrapToken(Trn::TokenKind) const override { return false; }
};

}  // namespace Brevis
