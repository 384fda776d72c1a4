// The tokens of expressions. Whether an operand has ended decides between prefix and binary.
#include "Cpp_ParserWords.h"
#include "Cpp_RoleFinder.h"
#include "Cpp_ShapeWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Guess = TypeShapes::Guess;
using Trn::TokenKind;

void RoleFinder::endOperand(bool isType) {
    Scope& scope = top();
    scope.hasOperand = true;
    scope.isType = isType;
    scope.wantsType = false;
}

void RoleFinder::beginOperand() {
    Scope& scope = top();
    scope.hasOperand = scope.isType = scope.wantsType = false;
}

TokenIndex RoleFinder::readValue(TokenIndex at) {
    Scope& scope = top();
    const TokenKind here = kind(at);
    switch (here) {
        case Kind::OpenParen:
            readValueParen(at);
            return at;
        case Kind::Identifier:
            readValueWord(at);
            return at;
        case Kind::Number:
        case Kind::StringLiteral:
        case Kind::CharLiteral:
        case Kind::This:
        case Kind::True:
        case Kind::False:
        case Kind::Default:
            endOperand();
            return at;
        case Kind::Const:
        case Kind::Volatile:
            // In front of a type or behind one.
            if (scope.hasOperand)
                scope.isType = true;
            else
                scope.wantsType = true;
            return at;
        case Kind::Class:
        case Kind::Struct:
        case Kind::Union:
        case Kind::Enum:
        case Kind::Typename:
            scope.hasOperand = false;
            scope.wantsType = true;
            return at;
        case Kind::Auto:
            endOperand(true);
            return at;
        case Kind::New:
            beginOperand();
            scope.isNew = true;
            return at;
        case Kind::Star:
        case Kind::Amp:
        case Kind::AmpAmp:
            readSign(at);
            return at;
        case Kind::Not:
        case Kind::Tilde:
            set(at, Role::Prefix);
            beginOperand();
            return at;
        case Kind::Plus:
        case Kind::Minus:
            set(at, scope.hasOperand ? Role::Binary : Role::Prefix);
            scope.isNew = false;
            beginOperand();
            return at;
        case Kind::PlusPlus:
        case Kind::MinusMinus:
            set(at, scope.hasOperand ? Role::Postfix : Role::Prefix);
            return at;
        case Kind::Dot:
        case Kind::Arrow:
            if (here == Kind::Dot && !scope.hasOperand && scope.bracket == Role::BracedInitializer) {
                set(at, Role::Designator);
            } else if (here == Kind::Arrow && previous_ == 0 && !endsName(shapes_->previous(at))) {
                set(at, Role::TrailingReturn);
                scope.declares = true;
            } else {
                set(at, Role::Member);
            }
            beginOperand();
            return at;
        case Kind::Question:
            set(at, Role::Question);
            ++scope.questions;
            beginOperand();
            return at;
        case Kind::Ellipsis: {
            const TokenKind after = kind(next(at));
            const bool isRange = scope.bracket == Role::CaseColon || scope.bracket == Role::Designator;
            set(at, isRange ? Role::CaseRange : Role::Pack);
            // In a fold the operator stands on one side or on both.
            if (isRange || after == Kind::Number) beginOperand();
            return at;
        }
        case Kind::Assign: {
            const bool isInitializer = scope.bracket == Role::EnumBody || scope.bracket == Role::LambdaIntroducer ||
                                       roles_[previous_] == Role::Designator ||
                                       (scope.bracket == Role::BracedInitializer && previous_ != 0 &&
                                        roles_[shapes_->previous(previous_)] == Role::Designator);
            set(at, isInitializer ? Role::Initializer : Role::Assignment);
            if (scope.bracket == Role::LambdaIntroducer && !scope.hasOperand) set(at, Role::CaptureDefault);
            beginOperand();
            return at;
        }
        default:
            break;
    }
    if (isTypeKeyword(here)) {
        endOperand(true);
        return at;
    }
    if (here >= Kind::Class && here != Kind::Spaceship) {
        if (here < Kind::StaticCast || here > Kind::Template) beginOperand();
        return at;
    }
    // Operators that always have two operands.
    if ((here >= Kind::LessEqual && here <= Kind::NotEqual) || here == Kind::Greater || here == Kind::Spaceship) {
        set(at, Role::Comparison);
    } else if (here >= Kind::StarAssign && here <= Kind::PipeAssign) {
        set(at, Role::Assignment);
    } else if (here >= Kind::Semicolon) {
        set(at, Role::Binary);
    } else {
        return at;
    }
    scope.isNew = false;
    beginOperand();
    return at;
}

bool RoleFinder::endsName(TokenIndex at) const { return kind(at) == Kind::Identifier && !isWord(at, "noexcept"); }

void RoleFinder::readValueWord(TokenIndex at) {
    Scope& scope = top();
    const std::string_view word = buffer_->text(at);
    if (isPrefixWord(word)) return beginOperand();
    if (isTypeWord(word) && kind(next(at)) != Kind::OpenParen) return endOperand(true);
    const bool isContinued = word.starts_with("::") && scope.hasOperand;
    if (scope.wantsType || (scope.isNew && !scope.hasOperand)) {
        // A word in front of template arguments hands its part on to these.
        const bool isNew = scope.isNew;
        const bool isBeforeArguments = kind(next(at)) == Kind::Less;
        endOperand(!isBeforeArguments || isNew);
        scope.wantsType = isBeforeArguments;
        return;
    }
    endOperand(isContinued && scope.isType);
}

// `*`, `&` and `&&`.
void RoleFinder::readSign(TokenIndex at) {
    Scope& scope = top();
    const bool isStar = kind(at) == Kind::Star;
    const bool isToMember = isStar && kind(previous_) == Kind::Identifier && buffer_->text(previous_).ends_with("::");
    const bool isOfType = scope.hasOperand && (scope.isType || scope.isNew);
    const bool isResult =
        scope.bracket == Role::TemplateArguments && scope.hasOperand && types_.endsResultType(at);
    if (isToMember || isOfType || isResult || (scope.hasOperand && types_.endsType(at))) {
        set(at, isStar ? Role::Pointer : Role::Reference);
        return endOperand(true);
    }
    if (!scope.hasOperand && scope.bracket == Role::LambdaIntroducer &&
        (kind(next(at)) == Kind::Comma || kind(next(at)) == Kind::CloseBracket)) {
        return set(at, Role::CaptureDefault);
    }
    set(at, scope.hasOperand ? Role::Binary : Role::Prefix);
    beginOperand();
}

void RoleFinder::readValueParen(TokenIndex at) {
    Scope& scope = top();
    const TokenKind before = previous_ != 0 ? kind(previous_) : TokenKind{Kind::EndOfInput};
    const bool isPackSize = before == Kind::Ellipsis && kind(shapes_->previous(previous_)) == Kind::Sizeof;
    if (before == Kind::Sizeof || before == Kind::Typeid || isPackSize)
        return open(at, Role::TypeOperand, values(Role::ArgumentComma));
    if (before == Kind::Identifier && bracketWords.contains(buffer_->text(previous_))) {
        const bool isType = !buffer_->text(previous_).starts_with("__attribute") &&
                            !buffer_->text(previous_).ends_with("declspec") && buffer_->text(previous_) != "alignas";
        return open(at, isType ? Role::TypeOperand : Role::Specifier, values(Role::ArgumentComma));
    }
    if (roles_[previous_] == Role::NamedCastType) return open(at, Role::NamedCastOperand, values(Role::ArgumentComma));
    if (scope.isNew && !scope.hasOperand) {
        const TokenKind after = kind(next(partner(at)));
        const bool isPlacement = after == Kind::Identifier || isTypeKeyword(after) || isCvQualifier(after) ||
                                 after == Kind::OpenParen || after == Kind::Typename || after == Kind::Struct;
        if (isPlacement) return open(at, Role::Placement, values(Role::ArgumentComma));
    } else if (scope.isNew) {
        scope.isNew = false;
        return open(at, Role::Construction, values(Role::ArgumentComma));
    }
    if (scope.hasOperand) return readOperandParen(at);
    if (isWord(previous_, "requires") && kind(next(partner(at))) == Kind::OpenBrace) {
        return open(at, Role::Parameters, declaration(Role::ParameterComma));
    }
    if (kind(next(at)) != Kind::OpenBrace && types_.isCast(at)) return open(at, Role::Cast, types(Role::ArgumentComma));
    // `OF((int a, char *b))`: a macro around parameters.
    const bool isDouble = before == Kind::OpenParen && next(partner(at)) == partner(previous_);
    const bool isWrapped = isDouble && (scope.bracket == Role::Call || scope.bracket == Role::Construction) &&
                           types_.holdsParameters(at) == Guess::Yes;
    open(at, Role::Group, isWrapped ? declaration(Role::ParameterComma) : values(Role::CommaOperator));
}

// Behind an operand: a call, or more of a type.
void RoleFinder::readOperandParen(TokenIndex at) {
    Scope& scope = top();
    if (scope.bracket == Role::MemberInitializer && scopes_.size() == 1) {
        return open(at, Role::MemberInitializer, values(Role::ArgumentComma));
    }
    if (roles_[previous_] == Role::DeclaratorGroup)
        return open(at, Role::Parameters, declaration(Role::ParameterComma));
    const bool isAbstract = next(next(at)) == partner(at);
    if (types_.isDeclaratorGroup(at) && (scope.isType || isAbstract)) {
        return open(at, Role::DeclaratorGroup, types(Role::DeclaratorComma));
    }
    const bool holdsTypes = scope.bracket == Role::TemplateArguments || scope.bracket == Role::TypeOperand;
    const Guess guess = types_.holdsParameters(at);
    if ((scope.isType && (holdsTypes || guess == Guess::Yes)) ||
        (scope.bracket == Role::TemplateArguments && guess == Guess::Yes)) {
        return open(at, Role::Parameters, declaration(Role::ParameterComma));
    }
    open(at, Role::Call, values(Role::ArgumentComma));
}

}  // namespace Cpp
