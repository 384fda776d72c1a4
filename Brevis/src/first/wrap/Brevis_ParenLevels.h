// Where the nesting of a text's parentheses reaches a level, without a walk over the whole text for each level.
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "first/wrap/Brevis_SegmentTree.h"

namespace Brevis {

class LexedText;

// Parentheses inside square brackets don't count, the last token of the text doesn't either, and a closing parenthesis
// takes nothing off a count of zero.
class ParenLevels {
public:
    // `text` must outlive the object.
    explicit ParenLevels(const LexedText& text);

    // The highest level of the text.
    int highest() const { return highest_; }
    // The first open parenthesis at or behind token `from` that reaches `level`, counted from zero there; the number of
    // tokens without one.
    std::size_t findLevel(std::size_t from, int level) const;

private:
    // How a stretch of parentheses changes the count.
    struct Climb {
        int change = 0;
        int lowest = 0;   // of the counts in front of and behind each parenthesis
        int highest = 0;  // how far the count rises above an earlier one at most
        int top = 0;      // the highest count
    };
    struct JoinClimbs {
        Climb operator()(const Climb& left, const Climb& right) const;
    };

    std::size_t walkToLevel(std::size_t from, int level) const;

    const LexedText& text_;
    std::vector<std::size_t> parens_;  // the indices of the tokens that count, ascending
    // Not there if parentheses and square brackets cross: then the place of the start decides which ones count.
    std::optional<SegmentTree<Climb, JoinClimbs>> climbs_;
    int highest_ = 0;
};

}  // namespace Brevis
