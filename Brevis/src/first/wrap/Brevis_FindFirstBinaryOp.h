// The finder of binary operators, which has to tell a binary sign from a unary one.
#pragma once

#include "first/wrap/Brevis_FirstWrapToken.h"
#include "first/wrap/Brevis_WrapTokenSets.h"

namespace Brevis {

// Serves one text from its front to its end. Between two calls it keeps the kind in front of the operator found, so
// that a rest that begins with an operator of the chain has a left operand, while a sign at the front of the text has
// none.
class FindFirstBinaryOp : public FirstWrapToken {
public:
    std::size_t find(const LexedText& text, std::size_t from, std::size_t end) override;
    bool isWrapToken(Trn::TokenKind kind) const override;

private:
    bool isBreakableOp(Trn::TokenKind kind, Trn::TokenKind nextKind) const;

    Trn::TokenKind prevKind_ = Trn::Kind::EndOfInput;
};

}  // namespace Brevis
