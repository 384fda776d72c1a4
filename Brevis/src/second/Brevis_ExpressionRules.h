// The gaps round operators, at the commas of expressions and behind the keywords that an expression follows.
#pragma once

#include "second/Brevis_ExprGaps.h"

namespace Brevis {

class ExpressionRules {
public:
    explicit ExpressionRules(ExprGaps& gaps);

    // False for roles that are the matter of other rules, by their groups.
    static constexpr bool mayConcern(Cpp::Role role) { return role < Cpp::Role::Group; }
    // `bracket` is the role of the innermost bracket that is open at the token.
    void format(TokenIndex token, Cpp::Role bracket);
    // For a word.
    void keyword(TokenIndex token) {
        const Trn::TokenKind kind = text_.kind(token);
        if (kind == Trn::Kind::Return || kind == Trn::Kind::Throw || kind == Trn::Kind::Case) behindKeyword(token);
    }

private:
    bool standsAlone(TokenIndex token) const;
    void binary(TokenIndex token, Cpp::Role bracket);
    void prefix(TokenIndex token);
    void postfix(TokenIndex token);
    void member(TokenIndex token);
    void operatorName(TokenIndex token);
    void argumentComma(TokenIndex token);
    void shortComma(TokenIndex token);
    void behindKeyword(TokenIndex token);

    ExprGaps& gaps_;
    const GapText& text_;
    GapProperty betweenArguments_ = gapProperty<&Scheme::wsBetweenFnCallArgs>();
};

}  // namespace Brevis
