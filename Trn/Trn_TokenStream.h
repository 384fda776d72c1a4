// The cursor from which all parse operations read. It has two forms: over a whole text, and over a list of
// tokens that was collected from another stream, which is how a parser backtracks.
#pragma once

#include <cstddef>
#include <limits>
#include <map>
#include <optional>
#include <span>

#include "Trn_TokenBuffer.h"

namespace Trn {

// A stretch of a buffer, as the second part of a list.
struct TokenStretch {
    const TokenBuffer* buffer = nullptr;
    std::size_t begin = 0;
    std::size_t end = 0;
};

// The stream copies no tokens: buffer and list must outlive it. A token that is put back in another's place is
// kept beside them, so that nobody else sees the change.
//
// A stream over a text goes on giving end tokens for ever. A stream over a list gives an end token without
// positions behind the last token, and a step back from there leads to the last token.
class TokenStream {
public:
    explicit TokenStream(const TokenBuffer& buffer) : tail_{&buffer, 0, 0} {}
    explicit TokenStream(std::span<const Token> list, TokenStretch tail = {});

    // The token at the cursor; the cursor advances. References are valid until the next `unget`.
    const Token& get();
    // The nth token ahead, 1 being the next.
    const Token& peek(std::size_t n = 1) const;
    // Moves the cursor back by one; does nothing at the first token.
    void stepBack();
    // Moves the cursor back by one and puts `token` in that place; does nothing at the first token.
    void unget(const Token& token);

    // Index of the next token, for telling whether an operation has read anything.
    std::size_t cursor() const { return cursor_; }

    // For a stream that stands behind a `{`: passes over everything up to and including the `}` that closes it and
    // gives that stretch. Without a result the stream stands behind the defective literal or end token that came
    // first. On a stream over a list the brace must be the last of the list's own tokens or lie behind them.
    std::optional<TokenStretch> passBraces();

    // A note for `cursor`, so that a long look ahead need not be repeated: what `peek(ahead)` showed. Putting a
    // token back clears it.
    struct LookAhead {
        std::size_t cursor = 0;
        std::size_t ahead = 0;  // 0 in the absence of a note
        bool reachedEnd = false;
    };
    const LookAhead* lookAhead() const {
        return lookAhead_.ahead != 0 && lookAhead_.cursor == cursor_ ? &lookAhead_ : nullptr;
    }
    void setLookAhead(std::size_t ahead, bool reachedEnd) { lookAhead_ = {cursor_, ahead, reachedEnd}; }

private:
    static constexpr std::size_t behindEnd = std::numeric_limits<std::size_t>::max();

    bool isOverList() const { return listSize_ != behindEnd; }
    const Token& at(std::size_t index) const;

    std::span<const Token> list_;
    TokenStretch tail_;
    std::size_t listSize_ = behindEnd;  // of list and tail together; a stream over a text has no size
    std::size_t cursor_ = 0;
    std::map<std::size_t, Token> replaced_;
    LookAhead lookAhead_;
};

}  // namespace Trn
