// The gaps inside of expressions, types and declarators: what stands in front of each token and behind it, by its role.
#pragma once

#include <vector>

#include "second/Brevis_GapTable.h"

namespace Brevis {

class SpacingRules {
public:
    SpacingRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps) {}

    // Goes over all tokens once: of two rules for a gap that of the token behind it wins.
    void run();

private:
    // A bracket that is open.
    struct Bracket {
        TokenIndex last = 0;
        Cpp::Role role = Cpp::Role::None;
    };

    Cpp::Role innermost() const { return brackets_.empty() ? Cpp::Role::None : brackets_.back().role; }
    void passBracket(TokenIndex token);

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    std::vector<Bracket> brackets_;
};

}  // namespace Brevis
