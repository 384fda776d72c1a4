// A token of a buffer, as streams hand it out: its kind is at hand, its position and its text are looked up on demand.
#pragma once

#include <string_view>

#include "Trn_TokenBuffer.h"

namespace Trn {

// A default one is an end token without positions. A view must not outlive its buffer.
class TokenView {
public:
    TokenView() = default;
    TokenView(const TokenBuffer& buffer, TokenIndex index)
        : buffer_(&buffer), index_(index), kind_(buffer.kind(index)) {}

    TokenKind kind() const { return kind_; }
    TokenIndex index() const { return index_; }
    // As those of Token.
    Position first() const { return buffer_ ? buffer_->first(index_) : Position(); }
    Position last() const { return buffer_ ? buffer_->last(index_) : Position(); }
    std::string_view text() const { return buffer_ ? buffer_->text(index_) : std::string_view(); }

    // Whether both are the same token of one buffer.
    bool operator==(const TokenView& other) const { return index_ == other.index_; }

private:
    const TokenBuffer* buffer_ = nullptr;
    TokenIndex index_ = 0;
    TokenKind kind_ = Kind::EndOfInput;
};

}  // namespace Trn
