// Comments and directives: which line they stand on. Runs behind the rules of the code, whose decisions it may take back.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

class CommentRules {
public:
    CommentRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps) {}

    void run();

private:
    [[maybe_unused]] const GapText& text_;
    [[maybe_unused]] const Scheme& scheme_;
    [[maybe_unused]] GapTable& gaps_;
};

}  // namespace Brevis
