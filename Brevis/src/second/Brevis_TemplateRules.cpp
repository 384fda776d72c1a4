// Heads, arguments and their commas.
#include "second/Brevis_TemplateRules.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;

namespace {

constexpr GapProperty afterOpen = gapProperty<&Scheme::wsAfterTpOpenBracket>();
constexpr GapProperty beforeClose = gapProperty<&Scheme::wsBeforeTpCloseBracket>();
constexpr GapProperty beforeTemplateComma = gapProperty<&Scheme::wsBeforeTpComma>();
constexpr GapProperty between = gapProperty<&Scheme::wsBetweenTpParams>();

}  // namespace

TemplateRules::TemplateRules(ExprGaps& gaps) : gaps_(gaps), text_(gaps.text) {
    if (gaps.scheme.alignTpParamsLeft) betweenParameters_ = {nullptr, GapRule::LineFeed};
}

void TemplateRules::format(TokenIndex token, Role bracket) {
    switch (text_.role(token)) {
        case Role::TemplateArguments:
        case Role::TemplateParameters:
        case Role::NamedCastType:
            return angle(token);
        case Role::TemplateComma:
            return comma(token, bracket);
        default:
            return;
    }
}

void TemplateRules::angle(TokenIndex token) {
    const TokenIndex partner = text_.partner(token);
    const bool isEmpty = partner + 1 == token;
    if (partner > token) {
        beforeOpen(token);
        gaps_.setInList(text_.next(token), afterOpen);
    } else if (!isEmpty) {
        gaps_.setInList(token, beforeClose);
    } else if (gaps_.isSet(afterOpen) || gaps_.isSet(beforeClose)) {
        gaps_.setInList(token, nothingBetween);
    }
}

// Arguments and the head of a lambda belong to what they follow.
void TemplateRules::beforeOpen(TokenIndex token) {
    if (text_.kind(text_.previous(token)) == Kind::Template) {
        gaps_.setInList(token, gapProperty<&Scheme::wsBeforeTpOpenBracket>());
    } else if (gaps_.isSet(afterOpen)) {
        gaps_.setInList(token, nothingBetween);
    }
}

// Parameters may stand below each other; arguments never do.
void TemplateRules::comma(TokenIndex token, Role bracket) {
    const bool isHead = bracket == Role::TemplateParameters;
    if (isHead || !gaps_.hasLineFeed(beforeTemplateComma)) gaps_.setInList(token, beforeTemplateComma);
    if (isHead) return gaps_.setInList(text_.next(token), betweenParameters_);
    if (!gaps_.hasLineFeed(between)) gaps_.setInList(text_.next(token), between);
}

void TemplateRules::head(const Cpp::OutlineItem& item) {
    gaps_.setAlways(text_.next(item.last), gapProperty<&Scheme::wsAfterTpCloseBracket>());
}

}  // namespace Brevis
