// The cursor from which all parse operations read. It has two forms: over a whole text, and over a list of
// tokens that was collected from another stream, which is how a parser backtracks.
#pragma once

#include <cstddef>
#include <limits>
#include <optional>
#include <span>
#include <vector>

#include "Trn_TokenList.h"

namespace Trn {

// A stretch of a buffer, as the second part of a list.
struct TokenStretch {
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
    explicit TokenStream(const TokenBuffer& buffer) : buffer_(buffer), tailOffset_(1) {}
    explicit TokenStream(const TokenList& list, TokenStretch tail = {});

    // The token at the cursor; the cursor advances.
    TokenView get() {
        if (cursor_ == behindEnd) return {};
        const TokenView token = at(cursor_);
        if (++cursor_ == listSize_) cursor_ = behindEnd;
        return token;
    }
    // The nth token ahead, 1 being the next.
    TokenView peek(std::size_t n = 1) const {
        const std::size_t index = cursor_ + n - 1;
        return cursor_ == behindEnd || index >= listSize_ ? TokenView() : at(index);
    }
    // Moves the cursor back by one; does nothing at the first token.
    void stepBack() {
        if (cursor_ == behindEnd) {
            if (listSize_ > 0) cursor_ = listSize_ - 1;
        } else if (cursor_ > 0) {
            --cursor_;
        }
    }
    // Moves the cursor back by one and puts `token` in that place; does nothing at the first token.
    void unget(const TokenView& token);

    // For a stream over a text: the index of the next token, and going on from another one.
    TokenIndex index() const { return buffer_.clamped(cursor_ + tailOffset_); }
    void seek(TokenIndex index) { cursor_ = index - tailOffset_; }

    const TokenBuffer& buffer() const { return buffer_; }
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

    struct Replaced {
        std::size_t place;
        TokenIndex token;
    };

    bool isOverList() const { return listSize_ != behindEnd; }
    // Nearly all reads are beyond the places where tokens have been put back.
    TokenView at(std::size_t place) const {
        return {buffer_, place < replacedEnd_ ? replacedAt(place) : originalAt(place)};
    }
    TokenIndex originalAt(std::size_t place) const {
        return place < list_.size() ? list_[place] : buffer_.clamped(place + tailOffset_);
    }
    TokenIndex replacedAt(std::size_t place) const;

    const TokenBuffer& buffer_;
    std::span<const TokenIndex> list_;
    std::size_t tailOffset_ = 0;        // from a place behind the list's own tokens to the index in the buffer
    std::size_t listSize_ = behindEnd;  // of list and tail together; a stream over a text has no size
    std::size_t cursor_ = 0;
    std::size_t replacedEnd_ = 0;  // behind the last place where a token has been put back
    std::vector<Replaced> replaced_;
    LookAhead lookAhead_;
};

}  // namespace Trn
