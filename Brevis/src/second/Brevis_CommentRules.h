// Comments and directives: what stands in front of comments behind code, and the indent of those with a line of their
// own. Runs behind the rules of the code, since it asks which lines begin where.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

class CommentRules {
public:
    CommentRules(const GapText& text, GapTable& gaps) : text_(text), gaps_(gaps) {}

    void run();

private:
    void trailing(TokenIndex first, TokenIndex behind);
    void ownLines(TokenIndex first, TokenIndex behind);
    bool isLabel(TokenIndex token);

    const GapText& text_;
    GapTable& gaps_;
    std::size_t nextItem_ = 0;
};

}  // namespace Brevis
