// A stretch of tokens that share what their lines begin with.
#pragma once

#include <cstdint>

#include "Trn_TokenBuffer.h"
#include "second/Brevis_Gap.h"

namespace Brevis {

// The base of a scope is the white space in front of the line on which its anchor comes to stand.
struct IndentScope {
    enum class Mode : std::uint8_t {
        Distance,  // a line keeps its distance to the line of the anchor, as the source has it
        Indent,    // the base and the text of the rule
        Behind,    // the column behind the anchor, a bracket, if something follows it on its line; else as `rule` says
        Margin,    // no white space at all
    };

    Trn::TokenIndex anchor = 0;
    Mode mode = Mode::Distance;
    GapRule rule = GapRule::None;  // its text is added to the base; None adds nothing
    bool isAnchored = false;       // by `anchor`; otherwise it shares the base of the scope `base`
    std::uint32_t base = 0;
    bool isBelow = false;  // the text of the scope `base` belongs to the base of this one, which must be an Indent
};

}  // namespace Brevis
