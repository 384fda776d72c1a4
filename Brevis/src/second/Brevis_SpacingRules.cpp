// The one loop over the tokens; each theme has its rules in a file of its own.
#include "second/Brevis_SpacingRules.h"

#include "second/Brevis_BracketRules.h"
#include "second/Brevis_DeclarationRules.h"
#include "second/Brevis_ExpressionRules.h"
#include "second/Brevis_TemplateRules.h"

namespace Brevis {

using Sort = Cpp::OutlineItem::Sort;

void SpacingRules::run() {
    ExprGaps gaps(text_, scheme_, gaps_);
    ExpressionRules expressions(gaps);
    BracketRules brackets(gaps);
    TemplateRules templates(gaps);
    DeclarationRules declarations(text_, scheme_, gaps_);
    auto item = text_.items().begin();
    const auto isWord = [&](const GapToken& at) {
        const bool isPlain = at.role == Cpp::Role::None || at.role == Cpp::Role::StatementEnd;
        return isPlain && !at.isBracket && !Trn::isTrivia(at.kind);
    };
    for (TokenIndex token = 1; token < text_.size(); ++token) {
        const TokenIndex end = item != text_.items().end() ? item->first : text_.size();
        for (; token < end && isWord(text_.token(token)); ++token) expressions.keyword(token);
        if (token == text_.size()) break;
        for (; item != text_.items().end() && item->first <= token; ++item) {
            if (item->sort == Sort::Template) templates.head(*item);
            // What nobody could read, and assembler code, stays as it is.
            if (item->sort == Sort::Unread || item->sort == Sort::Assembler) token = item->last;
        }
        if (text_.isTrivia(token)) continue;
        declarations.openItems(token);
        const Cpp::Role role = text_.role(token);
        const bool isBracket = text_.isBracket(token);
        if ((role == Cpp::Role::None || role == Cpp::Role::StatementEnd) && !isBracket) {
            expressions.keyword(token);
            continue;
        }
        while (!brackets_.empty() && brackets_.back().last <= token) brackets_.pop_back();
        if (ExpressionRules::mayConcern(role)) expressions.format(token, innermost());
        if (BracketRules::mayConcern(role)) brackets.format(token);
        templates.format(token, innermost());
        if (DeclarationRules::mayConcern(role)) declarations.format(token);
        if (isBracket) passBracket(token);
    }
}

void SpacingRules::passBracket(TokenIndex token) {
    const TokenIndex partner = text_.partner(token);
    if (partner > token) brackets_.push_back({partner, text_.role(token)});
}

}  // namespace Brevis
