// Comments and directives: what stands in front of comments behind code, and the indent of those with a line of their
// own. Runs behind the rules of the code, since it asks which lines begin where.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

class CommentRules {
public:
    CommentRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps) {}

    void run();

private:
    void trailing(TokenIndex first, TokenIndex behind);
    void ownLines(TokenIndex first, TokenIndex behind);
    void beforeDirectives(TokenIndex first, TokenIndex behind);
    bool isLabel(TokenIndex token);

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    std::size_t nextItem_ = 0;
};

}  // namespace Brevis
