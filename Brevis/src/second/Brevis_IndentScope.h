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
        At,        // the column of the anchor, and the text of the rule
        Margin,    // the left margin of the scheme
    };

    // Either a token or the number of another scope, by whose anchor this one goes.
    std::uint32_t from = 0;
    Mode mode = Mode::Distance;
    GapRule rule = GapRule::None;  // its text is added to the base; None adds nothing
    bool isAnchored = false;       // by the token `from`; otherwise it shares the base of the scope `from`
    bool isBelow = false;          // the text of the scope `from` belongs to the base of this one, which must be an Indent

    // 0 for a scope without one of its own.
    Trn::TokenIndex anchor() const { return isAnchored ? from : 0; }
    // That of every table for a scope with an anchor of its own.
    std::uint32_t base() const { return isAnchored ? 0 : from; }
};
static_assert(sizeof(IndentScope) == 8);

}  // namespace Brevis
