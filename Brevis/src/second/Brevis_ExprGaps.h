// How the rules of expressions set a gap: with the author's line ends where the scheme keeps them.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

// No white space, and one blank, for places that no property governs by itself.
inline constexpr GapProperty nothingBetween{nullptr, GapRule::Nothing};
inline constexpr GapProperty blankBetween{nullptr, GapRule::Blank};

// The text, the scheme and the table must outlive it.
class ExprGaps {
public:
    ExprGaps(const GapText& text, const Scheme& scheme, GapTable& gaps) : text(text), scheme(scheme), gaps_(gaps) {}

    // In an expression or a condition.
    void setInExpr(TokenIndex token, GapProperty property) { set(token, property, scheme.keepLineBreaksInExpr); }
    // In a list of arguments or parameters.
    void setInList(TokenIndex token, GapProperty property) { set(token, property, scheme.keepLineBreaksInLists); }
    // Where an author's line end stays whatever the scheme says.
    void setInLine(TokenIndex token, GapProperty property) { gaps_.setKeepingLines(token, property); }
    void setAlways(TokenIndex token, GapProperty property) { gaps_.set(token, property); }

    bool isSet(GapProperty property) const { return gaps_.isSet(property.rule); }
    bool hasLineFeed(GapProperty property) const { return gaps_.lineFeeds(property.rule) > 0; }
    bool isOpening(TokenIndex token) const { return text.isOpening(token); }

    const GapText& text;
    const Scheme& scheme;

private:
    void set(TokenIndex token, GapProperty property, bool keepsLines) {
        if (keepsLines) {
            gaps_.setKeepingLines(token, property);
        } else {
            gaps_.set(token, property);
        }
    }

    GapTable& gaps_;
};

}  // namespace Brevis
