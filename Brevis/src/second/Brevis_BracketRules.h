// The gaps inside and in front of the brackets of expressions: groups, calls, casts, subscripts, and the heads of
// control statements with their semicolons.
#pragma once

#include "second/Brevis_ExprGaps.h"

namespace Brevis {

class BracketRules {
public:
    explicit BracketRules(ExprGaps& gaps);

    // False for roles that are the matter of other rules, by their groups.
    static constexpr bool mayConcern(Cpp::Role role) { return role >= Cpp::Role::ForSemicolon; }
    void format(TokenIndex token);

private:
    // The values inside of a pair.
    struct Inside {
        GapProperty afterOpen;
        GapProperty beforeClose;
        bool isList;
    };

    void inside(TokenIndex token, const Inside& values);
    void set(TokenIndex token, GapProperty property, const Inside& values);
    void call(TokenIndex token);
    void cast(TokenIndex token);
    void namedCastOperand(TokenIndex token);
    void square(TokenIndex token);
    void arrayDelete(TokenIndex token);
    void binding(TokenIndex token);
    void forSemicolon(TokenIndex token);

    static constexpr Inside parens(bool isList) {
        return {gapProperty<&Scheme::wsAfterExprOpenParen>(), gapProperty<&Scheme::wsBeforeExprCloseParen>(), isList};
    }
    static constexpr Inside squares() {
        return {gapProperty<&Scheme::wsAfterLbracket>(), gapProperty<&Scheme::wsBeforeRbracket>(), false};
    }
    static constexpr Inside head() {
        return {gapProperty<&Scheme::wsAfterCsOpenParen>(), gapProperty<&Scheme::wsBeforeCsCloseParen>(), false};
    }

    ExprGaps& gaps_;
    const GapText& text_;
    GapProperty betweenClauses_ = gapProperty<&Scheme::wsBetweenCsForClauses>();
};

}  // namespace Brevis
