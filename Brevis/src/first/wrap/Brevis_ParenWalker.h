// A walk over the parenthesised groups of a text at one level of nesting.
#pragma once

#include "first/wrap/Brevis_LexedText.h"

namespace Brevis {

// The constructor finds nothing by itself: each step() looks for the next group, and the walker is false once there is
// none. Each step counts its level from zero, whatever the last one left open: at level 2 in `f(g(a), h(b))` the group
// of `g` is found, and the group of `h` isn't.
class ParenWalker {
public:
    // `text` must outlive the walker. A level below 1 becomes 1.
    ParenWalker(const LexedText& text, int level) : text_(text), level_(level < 1 ? 1 : level) {}

    void step();
    explicit operator bool() const { return found_; }

    // The parentheses of the group found. `close` is the end token when the group isn't closed.
    const LexedText::Token& open() const { return text_[open_]; }
    const LexedText::Token& close() const { return text_[close_]; }
    std::size_t openIndex() const { return open_; }
    // Whether breaking lines can change anything inside the group.
    bool mayBreak() const { return text_.mayBreakInside(open_); }
    // Whether a name stands in front of the group, which makes it the arguments of a call; `prev` is that name.
    bool hasName() const { return open_ > stepStart_ && prev().kind == Trn::Kind::Identifier; }
    const LexedText::Token& prev() const { return text_[open_ - 1]; }

private:
    const LexedText& text_;
    int level_;
    std::size_t stepStart_ = 0;  // where the last step began
    std::size_t next_ = 0;       // where the next one begins
    std::size_t open_ = 0;
    std::size_t close_ = 0;
    bool found_ = false;
};

}  // namespace Brevis
