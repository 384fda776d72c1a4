// The gaps inside of expressions, types and declarators: what stands in front of each token and behind it, by its role.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

class SpacingRules {
public:
    SpacingRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps) {}

    // Goes over all tokens once.
    void run();

private:
    void operators(TokenIndex token);

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
};

}  // namespace Brevis
