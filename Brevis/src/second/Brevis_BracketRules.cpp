// One operation a sort of bracket.
#include "second/Brevis_BracketRules.h"

namespace Brevis {

namespace Kind = Trn::Kind;
using Cpp::Role;

namespace {

constexpr GapProperty afterCallName = gapProperty<&Scheme::wsAfterFnCallName>();

bool isWordGap(const WsProperty& value) { return !value.text.empty() && value.text.find('\n') == std::string::npos; }

}  // namespace

BracketRules::BracketRules(ExprGaps& gaps) : gaps_(gaps), text_(gaps.text) {
    if (gaps.scheme.alignCsForClausesLeft) betweenClauses_ = {nullptr, GapRule::LineFeed};
}

void BracketRules::format(TokenIndex token) {
    switch (text_.role(token)) {
        case Role::Group:
        case Role::Placement:
        case Role::DeclaratorGroup:
            return inside(token, parens(false));
        case Role::Call:
        case Role::TypeOperand:
            return call(token);
        case Role::Specifier:
            return inside(token, parens(true));
        case Role::Cast:
            return cast(token);
        case Role::NamedCastOperand:
            return namedCastOperand(token);
        case Role::Condition:
            return inside(token, head());
        case Role::ForSemicolon:
            return forSemicolon(token);
        case Role::Subscript:
        case Role::ArrayBound:
            return square(token);
        case Role::LambdaIntroducer:
            return inside(token, squares());
        case Role::Designator:
            if (text_.partner(token) != 0) inside(token, squares());
            return;
        case Role::ArrayDelete:
            return arrayDelete(token);
        case Role::StructuredBinding:
            return binding(token);
        default:
            return;
    }
}

void BracketRules::set(TokenIndex token, GapProperty property, const Inside& values) {
    if (values.isList) {
        gaps_.setInList(token, property);
    } else {
        gaps_.setInExpr(token, property);
    }
}

// An empty pair holds nothing, whatever the values.
void BracketRules::inside(TokenIndex token, const Inside& values) {
    const TokenIndex partner = text_.partner(token);
    if (partner > token) {
        set(text_.next(token), values.afterOpen, values);
    } else if (partner + 1 != token) {
        if (text_.isEmptyArgument(token)) return;
        set(token, values.beforeClose, values);
    } else if (gaps_.isSet(values.afterOpen) || gaps_.isSet(values.beforeClose)) {
        set(token, nothingBetween, values);
    }
}

// A bracket behind a string is an operand of assembler code, and `sizeof...` is no name.
void BracketRules::call(TokenIndex token) {
    const Trn::TokenKind before = text_.kind(text_.previous(token));
    const bool hasName = before != Kind::StringLiteral && before != Kind::Ellipsis;
    if (hasName && gaps_.isOpening(token)) gaps_.setInList(token, afterCallName);
    inside(token, parens(true));
}

void BracketRules::cast(TokenIndex token) {
    inside(token, parens(false));
    const TokenIndex next = text_.next(token);
    if (gaps_.isOpening(token) || text_.kind(next) == Kind::OpenBrace) return;
    gaps_.setInLine(next, gapProperty<&Scheme::wsAfterCast>());
}

void BracketRules::namedCastOperand(TokenIndex token) {
    if (gaps_.isOpening(token)) gaps_.setInList(token, gapProperty<&Scheme::wsAfterNamedCast>());
    inside(token, parens(true));
}

// A subscript belongs to what it follows, and so do the bounds of an array behind its name.
void BracketRules::square(TokenIndex token) {
    inside(token, squares());
    if (!gaps_.isOpening(token) || !gaps_.isSet(squares().afterOpen)) return;
    const Role before = text_.role(text_.previous(token));
    const bool isBehindSign = before == Role::Pointer || before == Role::Reference;
    const bool isOwn = text_.role(token) == Role::ArrayBound && gaps_.scheme.wsAfterDdName.isSet;
    if (!isBehindSign && !isOwn) gaps_.setInExpr(token, nothingBetween);
}

// `delete[] p`
void BracketRules::arrayDelete(TokenIndex token) {
    inside(token, squares());
    if (!gaps_.isSet(squares().afterOpen)) return;
    gaps_.setInExpr(gaps_.isOpening(token) ? token : text_.next(token),
                    gaps_.isOpening(token) ? nothingBetween : blankBetween);
}

// `auto [a, b]`
void BracketRules::binding(TokenIndex token) {
    inside(token, squares());
    const bool isBehindWord = gaps_.isOpening(token) && text_.kind(text_.previous(token)) == Kind::Auto;
    if (isBehindWord && isWordGap(gaps_.scheme.wsAfterDdTypeId)) {
        gaps_.setInLine(token, gapProperty<&Scheme::wsAfterDdTypeId>());
    }
}

// The values stand in front of the second and the third clause; a clause that is empty takes no room.
void BracketRules::forSemicolon(TokenIndex token) {
    if (!gaps_.isSet(betweenClauses_)) return;
    if (text_.role(text_.previous(token)) != Role::Condition) gaps_.setInExpr(token, nothingBetween);
    const TokenIndex next = text_.next(token);
    const bool isEmpty = text_.role(next) == Role::ForSemicolon || text_.role(next) == Role::Condition;
    gaps_.setInExpr(next, isEmpty ? nothingBetween : betweenClauses_);
}

}  // namespace Brevis
