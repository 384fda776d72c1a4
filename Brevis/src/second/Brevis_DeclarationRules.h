// The gaps of declarations: types and names, parameters, declarators, initializers, base clauses and member
// initializers. Goes along with the loop over the tokens, and knows the item and the bracket that each stands in.
#pragma once

#include <vector>

#include "second/Brevis_BracedListRules.h"
#include "second/Brevis_GapTable.h"
#include "second/Brevis_PointerRules.h"

namespace Brevis {

// The text, the scheme and the table must outlive it.
class DeclarationRules {
public:
    DeclarationRules(const GapText& text, const Scheme& scheme, GapTable& gaps);

    // For every token but comments and directives, in their order.
    void openItems(TokenIndex token) {
        const std::vector<Cpp::OutlineItem>& items = text_.items();
        while (nextItem_ < items.size() && items[nextItem_].first <= token) openItem(items[nextItem_++]);
    }
    // False for operators, and for the commas of calls.
    static constexpr bool mayConcern(Cpp::Role role) {
        const bool isOperator = role >= Cpp::Role::Prefix && role <= Cpp::Role::CommaOperator;
        return !isOperator && role != Cpp::Role::ArgumentComma;
    }
    // For each of those with a role that may concern it, and for every bracket.
    void format(TokenIndex token);

private:
    // What is known of a stretch of one declaration: that up to `end` a comma comes, or none does.
    struct Stretch {
        TokenIndex end = 0;
        bool hasComma = false;
    };
    // What is open.
    struct Bracket {
        TokenIndex open = 0;
        TokenIndex last = 0;
        Cpp::Role role = Cpp::Role::None;
        bool isDone = false;  // the name of the parameter at hand has had its gap
        Stretch stretch{};
    };

    void openItem(const Cpp::OutlineItem& item);
    void openFunction(const Cpp::OutlineItem& item);
    void openData(const Cpp::OutlineItem& item);
    bool hasReturnType(const Cpp::OutlineItem& item) const;

    void sign(TokenIndex token);
    bool hasSeveralDeclarators(TokenIndex from);
    Stretch stretchFrom(TokenIndex from) const;
    void parameters(TokenIndex token);
    void endParameter(TokenIndex end);
    void parameterComma(TokenIndex comma);
    void declaratorComma(TokenIndex comma);
    void initializer(TokenIndex token);
    void construction(TokenIndex token);
    void baseColon(TokenIndex colon);
    void memberInitializerColon(TokenIndex colon);

    void aroundComma(TokenIndex comma, GapProperty before, GapProperty behind);
    // With the author's line ends where the scheme keeps them.
    void setInList(TokenIndex token, GapProperty property);
    void setInExpr(TokenIndex token, GapProperty property);
    void setMemberInitializer(TokenIndex token, GapProperty property);
    GapProperty inOneLine(GapProperty first, GapProperty second) const;
    bool isInParameters() const;

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    PointerRules pointers_;
    BracedListRules lists_;
    std::vector<Bracket> brackets_;
    Stretch fileStretch_;
    std::size_t nextItem_ = 0;
    const Cpp::OutlineItem* item_ = nullptr;  // the last one that has begun
    GapProperty behindReturnType_;            // of that item, a function
    bool staysOnLine_ = false;                // the member initializers at hand
};

}  // namespace Brevis
