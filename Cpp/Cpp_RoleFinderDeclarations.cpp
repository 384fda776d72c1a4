// The tokens of types and declarators.
#include "Cpp_ParserWords.h"
#include "Cpp_RoleFinder.h"
#include "Cpp_ShapeWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Guess = TypeShapes::Guess;
using Trn::TokenKind;

namespace {

// Those of these words that make a type of what their bracket holds.
bool asksType(std::string_view word) {
    return word == "decltype" || word == "__decltype" || word.starts_with("typeof") || word.starts_with("__typeof") ||
           word == "_Atomic" || word == "__underlying_type";
}

}  // namespace

TokenIndex RoleFinder::readDeclared(TokenIndex at) {
    Scope& scope = top();
    switch (kind(at)) {
        case Kind::OpenParen:
            readDeclaredParen(at);
            return at;
        case Kind::Identifier:
            return readDeclaredWord(at);
        case Kind::Star:
        case Kind::Caret:
            set(at, Role::Pointer);
            return at;
        case Kind::Amp:
        case Kind::AmpAmp:
            set(at, scope.isTail ? Role::RefQualifier : Role::Reference);
            return at;
        case Kind::Assign:
            set(at, Role::Initializer);
            scope.hasName = true;
            // The value of an alias or of a parameter that is a type goes on as one.
            if (scope.isTypeOnly) return at;
            scope.declares = false;
            beginOperand();
            return at;
        case Kind::Arrow:
            // `MACRO(name)->Call(1);` at file level.
            if (!scope.hasAuto && kind(next(at)) == Kind::Identifier && kind(next(next(at))) == Kind::OpenParen) {
                scope.declares = false;
                scope.hasOperand = true;
                return readValue(at);
            }
            set(at, Role::TrailingReturn);
            scope.isTail = false;
            scope.hasName = true;
            return at;
        case Kind::Ellipsis:
            set(at, Role::Pack);
            return at;
        case Kind::Tilde:
            set(at, Role::Destructor);
            return at;
        case Kind::Auto:
            scope.hasAuto = true;
            return at;
        default:
            break;
    }
    // No sign of a declaration: what follows was a value.
    if (kind(at) >= Kind::Slash && kind(at) <= Kind::ArrowStar) {
        scope.declares = false;
        scope.hasOperand = previous_ != 0 && kind(previous_) != Kind::Comma && !shapes_->isOpening(previous_);
        return readValue(at);
    }
    return at;
}

TokenIndex RoleFinder::readDeclaredWord(TokenIndex at) {
    Scope& scope = top();
    if (isWord(at, "requires")) {
        clause(at);
        return at;
    }
    const TokenKind after = kind(next(at));
    scope.hasName = after != Kind::Identifier && after != Kind::Star && after != Kind::Amp && after != Kind::AmpAmp;
    return at;
}

void RoleFinder::openParameters(TokenIndex at) { open(at, Role::Parameters, declaration(Role::ParameterComma)); }

void RoleFinder::openConstruction(TokenIndex at) { open(at, Role::Construction, values(Role::ArgumentComma)); }

void RoleFinder::readDeclaredParen(TokenIndex at) {
    Scope& scope = top();
    const TokenKind before = previous_ != 0 ? kind(previous_) : TokenKind{Kind::EndOfInput};
    const Guess guess = types_.holdsParameters(at);
    const TokenIndex close = partner(at);
    const TokenKind after = kind(next(close));
    // `T (name)(int)`
    if (at == shape_.nameFirst) return open(at, Role::DeclaratorGroup, declaration(Role::DeclaratorComma));
    if (at == shape_.open) {
        return guess == Guess::No && shape_.body == 0 && shape_.nameFirst > shape_.first ? openConstruction(at)
                                                                                         : openParameters(at);
    }
    if (at == shape_.initializer) {
        return guess == Guess::Yes || next(at) == close ? openParameters(at) : openConstruction(at);
    }
    if (before == Kind::Identifier && bracketWords.contains(buffer_->text(previous_))) {
        const bool isType = asksType(buffer_->text(previous_));
        return open(at, isType ? Role::TypeOperand : Role::Specifier, values(Role::ArgumentComma));
    }
    if (before == Kind::Throw) return open(at, Role::Specifier, types(Role::ArgumentComma));
    if (before == Kind::Explicit || (scope.isTail && before == Kind::Identifier)) {
        return open(at, Role::Specifier, values(Role::ArgumentComma));
    }
    if (scope.isLambda && !scope.isTail) return openParameters(at);
    if (before == Kind::CloseParen && roles_[previous_] == Role::DeclaratorGroup) return openParameters(at);
    if (types_.isDeclaratorGroup(at)) {
        Scope group = declaration(Role::DeclaratorComma);
        return open(at, Role::DeclaratorGroup, group);
    }
    if (before == Kind::Identifier || before == Kind::Greater || before == Kind::ShiftRight) {
        // A macro in front of more of the declaration.
        if (!scope.isTypeOnly && (after == Kind::Identifier || isTypeKeyword(after))) {
            return open(at, Role::Call, values(Role::ArgumentComma));
        }
        const bool wantsParameters = scope.isTypeOnly || scope.bracket == Role::Parameters ||
                                     scope.bracket == Role::DeclaratorGroup || next(at) == close;
        if (guess == Guess::Yes || (wantsParameters && guess == Guess::Unknown)) return openParameters(at);
        return openConstruction(at);
    }
    const bool isGroup = !scope.isTypeOnly && kind(next(at)) == Kind::Identifier && next(next(at)) == close;
    if (isGroup) return open(at, Role::DeclaratorGroup, declaration(Role::DeclaratorComma));
    openParameters(at);
}

}  // namespace Cpp
