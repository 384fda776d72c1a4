// One operation a sort of operator.
#include "second/Brevis_ExpressionRules.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;

namespace {

constexpr GapProperty operands = gapProperty<&Scheme::wsBetweenExprOpOperands>();
constexpr GapProperty subscriptOperands = gapProperty<&Scheme::wsBetweenSubscriptOpOperands>();
constexpr GapProperty afterSign = gapProperty<&Scheme::wsAfterUnaryOp>();
constexpr GapProperty beforeComma = gapProperty<&Scheme::wsBeforeFnCallComma>();
constexpr GapProperty afterKeyword = gapProperty<&Scheme::wsAfterCsKey>();

bool isSubscript(Role bracket) {
    return bracket == Role::Subscript || bracket == Role::ArrayBound || bracket == Role::Designator;
}

}  // namespace

ExpressionRules::ExpressionRules(ExprGaps& gaps) : gaps_(gaps), text_(gaps.text) {
    if (!gaps.isSet(betweenArguments_) && gaps.scheme.alignFnCallArgsLeft) {
        betweenArguments_ = {nullptr, GapRule::LineFeed};
    }
}

void ExpressionRules::format(TokenIndex token, Role bracket) {
    switch (text_.role(token)) {
        case Role::Binary:
        case Role::Comparison:
        case Role::Assignment:
        case Role::Question:
        case Role::TernaryColon:
        case Role::RangeColon:
        case Role::CaseRange:
            return binary(token, bracket);
        case Role::Prefix:
            return prefix(token);
        case Role::Postfix:
            return postfix(token);
        case Role::Member:
            return member(token);
        case Role::OperatorName:
            return operatorName(token);
        case Role::ArgumentComma:
            return argumentComma(token);
        case Role::CommaOperator:
        case Role::CaptureComma:
        case Role::BindingComma:
        case Role::AttributeComma:
            return shortComma(token);
        default:
            return;
    }
}

// An operator that is an argument, or the comma behind an argument that is empty.
bool ExpressionRules::standsAlone(TokenIndex token) const {
    const TokenIndex before = text_.previous(token);
    return text_.kind(before) == Kind::Comma || text_.partner(before) > before;
}

void ExpressionRules::binary(TokenIndex token, Role bracket) {
    const Trn::TokenKind kind = text_.kind(token);
    if (kind == Kind::DotStar || kind == Kind::ArrowStar) return member(token);
    const GapProperty value = isSubscript(bracket) ? subscriptOperands : operands;
    // `OPERATOR(<, name)`
    if (!standsAlone(token)) gaps_.setInExpr(token, value);
    // `a ?: b`
    if (kind == Kind::Colon && text_.role(token - 1) == Role::Question && gaps_.isSet(value)) {
        gaps_.setInExpr(token, nothingBetween);
    }
    gaps_.setInExpr(text_.next(token), value);
}

// What stands in front of a sign is the matter of the token in front.
void ExpressionRules::prefix(TokenIndex token) { gaps_.setInExpr(text_.next(token), afterSign); }

void ExpressionRules::postfix(TokenIndex token) {
    if (gaps_.isSet(afterSign)) gaps_.setInExpr(token, nothingBetween);
}

// A chain of calls that the author broke stays broken.
void ExpressionRules::member(TokenIndex token) {
    if (!gaps_.isSet(operands)) return;
    gaps_.setInLine(token, nothingBetween);
    gaps_.setInLine(text_.next(token), nothingBetween);
}

// `operator==` and its kin are names.
void ExpressionRules::operatorName(TokenIndex token) {
    if (gaps_.isSet(operands)) gaps_.setInLine(token, nothingBetween);
}

void ExpressionRules::argumentComma(TokenIndex token) {
    if (!standsAlone(token)) gaps_.setInList(token, beforeComma);
    const TokenIndex next = text_.next(token);
    if (!text_.isEmptyArgument(next)) gaps_.setInList(next, betweenArguments_);
}

// What is no list of arguments isn't laid out one below the other.
void ExpressionRules::shortComma(TokenIndex token) {
    if (!gaps_.hasLineFeed(beforeComma) && !standsAlone(token)) gaps_.setInList(token, beforeComma);
    const TokenIndex next = text_.next(token);
    if (!gaps_.hasLineFeed(betweenArguments_) && !text_.isEmptyArgument(next)) {
        gaps_.setInList(next, betweenArguments_);
    }
}

// `return (x)` goes by the gap of `if (x)`; an empty value would make a call of it.
void ExpressionRules::behindKeyword(TokenIndex token) {
    if (gaps_.scheme.wsAfterCsKey.text.empty() || gaps_.hasLineFeed(afterKeyword)) return;
    const TokenIndex next = text_.next(token);
    if (text_.kind(next) != Kind::Semicolon && text_.role(next) != Role::Specifier) gaps_.setInLine(next, afterKeyword);
}

}  // namespace Brevis
