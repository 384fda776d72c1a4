// Comments and directives with a line of their own: the indent of each. Runs behind the walk, which has found the
// indents of the code.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

class CommentRules {
public:
    CommentRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps) {}

    void run();

private:
    void ownLines(TokenIndex first, TokenIndex behind);
    bool beginsElseLine(TokenIndex brace) const;
    void behindCode(TokenIndex first, TokenIndex behind);
    bool goesOnWithDirective(TokenIndex token) const;
    bool goesOn(TokenIndex comment) const;
    void farRight(TokenIndex first, TokenIndex behind);
    void belowDeclaration(TokenIndex first, TokenIndex behind);
    bool isAboveName(TokenIndex directive) const;
    void beforeDirectives(TokenIndex first, TokenIndex behind);
    void keepIndented(TokenIndex directive);
    void atMargin(TokenIndex first, TokenIndex behind);
    bool isLabel(TokenIndex token);

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    std::size_t nextItem_ = 0;
};

}  // namespace Brevis
