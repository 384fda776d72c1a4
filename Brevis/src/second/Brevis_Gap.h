// The decision for one gap: what comes to stand in front of a token, and what has decided so.
#pragma once

#include <cstdint>

namespace Brevis {

// What decides: a property, by its row in the catalogue, or one of the rules that have no key.
enum class GapRule : std::uint8_t {
    None = 255,      // nothing: the gap stays
    Nothing = 254,   // no white space
    Blank = 253,     // one blank
    LineFeed = 252,  // one line feed
    Aligned = 251,   // a column that several lines share
    Wrapped = 250,   // a line feed that a long line needs
    Comment = 249,   // a comment stays where it is read
};

struct Gap {
    enum class Sort : std::uint8_t {
        Keep,        // as the source has it; a new line gets the indent of its scope
        Fixed,       // as the source has it, with every blank
        Blanks,      // the text of the rule, which has no line feed
        Lines,       // the text of the rule, which has one: so many line feeds, and what stands behind the last on top of
                     // the indent
        Break,       // at least one line feed: the source's line feeds if it has any, else those of the rule
        Column,      // blanks up to a column, at least one
        OwnColumn,   // the same, but the source's own white space if it leads there
        LineColumn,  // the line feeds of the source, and blanks up to a column
    };

    Sort sort = Sort::Keep;
    GapRule rule = GapRule::None;
    std::uint16_t column = 0;  // of a Column or a LineColumn, from 0
    std::uint32_t scope = 0;   // that gives the indent if a line begins here

    bool operator==(const Gap&) const = default;
};
static_assert(sizeof(Gap) == 8);

}  // namespace Brevis
