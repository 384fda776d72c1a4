// A walk over the groups of a text between two kinds of brackets.
#pragma once

#include "first/wrap/Brevis_LexedText.h"

namespace Brevis {

// Works as ParenWalker does, but a closing token takes nothing off the count: a step ends at the `level`-th opening
// token behind the place where it began.
class BraceWalker {
public:
    // `text` must outlive the walker. A level below 1 becomes 1.
    BraceWalker(const LexedText& text, Trn::TokenKind openKind, int level)
        : text_(text), opens_(text.walked(openKind)), level_(static_cast<std::size_t>(level < 1 ? 1 : level)) {}

    void step();
    explicit operator bool() const { return found_; }

    const LexedText::Token& open() const { return text_[open_]; }
    std::size_t openIndex() const { return open_; }
    static constexpr bool hasName() { return false; }
    // The end token when the group isn't closed.
    const LexedText::Token& close() const { return text_[close_]; }
    // Whether breaking lines can change anything inside the group.
    bool mayBreak() const { return text_.mayBreakInside(open_); }

private:
    const LexedText& text_;
    const std::vector<std::size_t>& opens_;
    std::size_t level_;
    std::size_t next_ = 0;
    std::size_t open_ = 0;
    std::size_t close_ = 0;
    bool found_ = false;
};

}  // namespace Brevis
