// The walk that the finders of separators share: it leaves out what stands inside brackets and template arguments.
#pragma once

#include "first/wrap/Brevis_LexedText.h"

namespace Brevis {

// Walks over a part of a text, steps over the groups that it can, and counts what is open.
class DepthZeroWalk {
public:
    // The part begins at token `from` and ends in front of token `end`. `text` must outlive the walk.
    DepthZeroWalk(const LexedText& text, std::size_t from, std::size_t end) : text_(text), at_(from), end_(end) {}

    // False at the last token of the part, which is never walked.
    bool more() const { return at_ + 1 < end_; }
    void next() { ++at_; }
    std::size_t at() const { return at_; }
    Trn::TokenKind kind() const { return text_[at_].kind; }

    // Counts the current token, or the group that it opens, at whose end the walk then stands. Tells whether it is one
    // that may be a separator and stands at depth zero.
    bool count(Trn::TokenKind prevKind);

private:
    bool atDepthZero() const { return paren_ == 0 && brace_ == 0 && bracket_ == 0 && angle_ == 0; }
    bool open(int& depth);
    bool close(int& depth);
    bool openAngle();
    bool closeAngle();
    bool openCast();

    const LexedText& text_;
    std::size_t at_;
    std::size_t end_;
    int paren_ = 0;
    int brace_ = 0;
    int bracket_ = 0;
    int angle_ = 0;
};

// Gives the index of the first token of the part that stands at depth zero and for which `isBreak(index)` is true;
// `end` without one. `prevKind` is the kind of the token in front of the one tested. It is kept up to date for the
// test, and the token found is not put into it.
template <class BreakTest>
std::size_t findAtDepthZero(const LexedText& text, std::size_t from, std::size_t end, Trn::TokenKind& prevKind,
                            BreakTest isBreak) {
    for (DepthZeroWalk walk(text, from, end); walk.more(); walk.next()) {
        if (walk.count(prevKind) && isBreak(walk.at())) return walk.at();
        prevKind = walk.kind();
    }
    return end;
}

}  // namespace Brevis
