// The stretches that the parser names, the run over one of them and what declarations and values share.
#include "Cpp_RoleFinder.h"

#include "Cpp_ParserWords.h"
#include "Cpp_ShapeWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Sort = ItemShape::Sort;
using Trn::TokenKind;

RoleFinder::RoleFinder(const Trn::TokenBuffer& buffer, const Trn::BracketTable& brackets, const ShapeScan& shapes,
                       Language language)
    : buffer_(&buffer), shapes_(&shapes), types_(buffer, brackets, shapes, language), roles_(buffer.size()) {}

// ---- Sorts of scopes

RoleFinder::Scope RoleFinder::values(Role comma) { return {.comma = comma}; }

RoleFinder::Scope RoleFinder::declaration(Role comma) {
    return {.comma = comma, .isList = true, .declares = true, .isPart = true};
}

RoleFinder::Scope RoleFinder::types(Role comma) {
    return {.comma = comma, .isList = true, .declares = true, .isTypeOnly = true, .isPart = true};
}

// ---- Stretches

void RoleFinder::item(const ItemShape& shape, Frame frame) {
    shape_ = shape;
    switch (shape.sort) {
        case Sort::Class:
            run(shape.first, (shape.colon != 0 ? shape.colon : shape.body) - 1, types(Role::DeclaratorComma));
            if (shape.colon != 0) {
                set(shape.colon, Role::BaseColon);
                run(shape.colon + 1, shape.body - 1, types(Role::BaseComma));
            }
            set(shape.body, Role::ClassBody);
            set(partner(shape.body), Role::ClassBody);
            break;
        case Sort::Enum: {
            run(shape.first, shape.body - 1, types(Role::DeclaratorComma));
            set(shape.body, Role::EnumBody);
            set(partner(shape.body), Role::EnumBody);
            Scope body = values(Role::EnumeratorComma);
            body.bracket = Role::EnumBody;
            run(shape.body + 1, partner(shape.body) - 1, body);
            break;
        }
        case Sort::Function: {
            const TokenIndex body = shape.body != 0 ? shape.body : shape.tryWord;
            const TokenIndex end = shape.colon != 0 ? shape.colon : body != 0 ? body : shape.last + 1;
            run(shape.first, end - 1, declaration(Role::DeclaratorComma));
            if (shape.colon != 0) {
                set(shape.colon, Role::MemberInitializerColon);
                Scope initializers = values(Role::MemberInitializerComma);
                initializers.bracket = Role::MemberInitializer;
                const TokenIndex brace = shape.body != 0 ? shape.body : shapes_->initializersEnd(shape.colon);
                run(shape.colon + 1, brace - 1, initializers);
            }
            if (shape.body != 0) {
                set(shape.body, Role::FunctionBody);
                set(partner(shape.body), Role::FunctionBody);
            }
            break;
        }
        case Sort::Data:
            run(shape.first, shape.last, declaration(Role::DeclaratorComma));
            break;
        case Sort::Statement: {
            const bool isAssert = isWord(shape.first, "static_assert") || isWord(shape.first, "_Static_assert");
            const bool isData = !isAssert && (frame != Frame::Block || shapes_->startsData(shape.first));
            run(shape.first, shape.last, isData ? declaration(Role::DeclaratorComma) : values(Role::CommaOperator));
            break;
        }
        case Sort::Macro:
            macroRow(shape.first, shape.last);
            break;
        case Sort::Head:
            head(shape.first, shape.last);
            break;
        case Sort::Loop:
        case Sort::Unread:
            run(shape.first, shape.last, values(Role::CommaOperator));
            break;
    }
    shape_ = {};
}

// A second bracket behind that of a macro has parameters: `FIXTURE(Name, test)(State& state) {`.
void RoleFinder::head(TokenIndex first, TokenIndex last) {
    const TokenIndex open = kind(last) == Kind::CloseParen ? partner(last) : last;
    const bool isSecond = open > first &&
                          kind(shapes_->previous(open)) == Kind::CloseParen &&
                          next(next(open)) < last &&
                          types_.holdsParameters(open) != TypeShapes::Guess::No;
    run(first, isSecond ? open - 1 : last, values(Role::CommaOperator));
    if (isSecond) run(open, last, declaration(Role::DeclaratorComma));
}

// Behind the call of a macro that begins a row stands a part of a declaration.
void RoleFinder::macroRow(TokenIndex first, TokenIndex last) {
    const TokenIndex open = next(first);
    const TokenIndex close = kind(open) == Kind::OpenParen ? partner(open) : last;
    const TokenIndex word = next(close);
    const bool isRow = close < last && (!isMacroCase(buffer_->text(word)) || kind(next(word)) == Kind::Less);
    const TokenIndex end = isRow ? close : last;
    run(first, end, values(Role::CommaOperator));
    if (isRow) run(end + 1, last, declaration(Role::DeclaratorComma));
}

void RoleFinder::declarators(TokenIndex first, TokenIndex last) {
    run(first, last, declaration(Role::DeclaratorComma));
}

// `template T* f<int>(T* t);`
void RoleFinder::instantiation(TokenIndex first, TokenIndex last) {
    shape_ = shapes_->declaration(next(first), Frame::Class);
    declarators(first, last);
    shape_ = {};
}

void RoleFinder::templateHead(TokenIndex first, TokenIndex last) { run(first, last, declaration(Role::TemplateComma)); }

void RoleFinder::usingItem(TokenIndex first, TokenIndex last) { run(first, last, types(Role::DeclaratorComma)); }

void RoleFinder::namespaceHead(TokenIndex first, TokenIndex brace, Role body) {
    run(first, brace - 1, declaration(Role::DeclaratorComma));
    set(brace, body);
    set(partner(brace), body);
}

void RoleFinder::label(TokenIndex first, TokenIndex colon, Role role) {
    Scope value = values(Role::CommaOperator);
    value.bracket = role;
    run(first, colon - 1, value);
    set(colon, role);
}

void RoleFinder::condition(TokenIndex at, bool isCatch) {
    set(at, Role::Condition);
    set(partner(at), Role::Condition);
    Scope scope = isCatch ? declaration(Role::ParameterComma) : values(Role::CommaOperator);
    if (isCatch) scope.bracket = Role::Parameters;
    if (!isCatch) scope.isCondition = true;
    if (!isCatch && types_.startsDeclaration(next(at))) scope.declares = scope.isPart = true;
    run(at + 1, partner(at) - 1, scope);
}

void RoleFinder::assembler(TokenIndex first, TokenIndex last) {
    Scope scope = values(Role::ArgumentComma);
    scope.bracket = Role::AsmColon;
    run(first, last, scope);
}

void RoleFinder::elements(TokenIndex first, TokenIndex last) { run(first, last, values(Role::ElementComma)); }

// What is left are empty statements, the braces of blocks and what the parser passes over.
std::vector<Role> RoleFinder::take() {
    const auto isOpen = [&](TokenIndex at) {
        const TokenKind here = kind(at);
        return roles_[at] == Role::None && here != Kind::OpenBrace && here != Kind::CloseBrace &&
               here != Kind::EndOfInput;
    };
    for (TokenIndex at = 1; at < buffer_->size(); ++at) {
        if (roles_[at] != Role::None) continue;
        if (kind(at) == Kind::OpenBrace) {
            set(at, Role::Body);
            set(partner(at), Role::Body);
        } else if (kind(at) == Kind::Semicolon) {
            set(at, Role::StatementEnd);
        } else if (kind(at) < Kind::Class && kind(at) >= Kind::Semicolon) {
            TokenIndex first = at, last = at;
            while (first > 1 && isOpen(first - 1)) --first;
            while (isOpen(last + 1)) ++last;
            run(first, last, values(Role::CommaOperator));
            at = last;
        }
    }
    return std::move(roles_);
}

// ---- The run

void RoleFinder::run(TokenIndex first, TokenIndex last, Scope scope) {
    if (first > last) return;
    scope.last = last;
    scopes_.assign(1, scope);
    previous_ = 0;
    for (TokenIndex at = first; at <= last; ++at) {
        if (Trn::isTrivia(kind(at))) continue;
        previous_ = at = read(at);
        while (scopes_.size() > 1 && top().last <= at) close();
    }
}

TokenIndex RoleFinder::read(TokenIndex at) {
    switch (kind(at)) {
        case Kind::OpenBrace:
            return readBrace(at);
        case Kind::OpenBracket:
            return readSquare(at);
        case Kind::Operator:
            return readOperatorName(at);
        case Kind::Comma:
            readComma(at);
            return at;
        case Kind::Semicolon:
            readSemicolon(at);
            return at;
        case Kind::Less:
            readAngle(at);
            return at;
        case Kind::Colon:
            readColon(at);
            return at;
        case Kind::CloseParen:
        case Kind::CloseBracket:
        case Kind::CloseBrace:
            return at;
        case Kind::Greater:
        case Kind::ShiftRight:
            if (roles_[at] != Role::None) return at;
            break;
        default:
            break;
    }
    return top().declares ? readDeclared(at) : readValue(at);
}

void RoleFinder::open(TokenIndex at, Role role, Scope scope) {
    set(at, role);
    set(partner(at), role);
    scope.last = partner(at);
    scope.bracket = role;
    scopes_.push_back(scope);
}

void RoleFinder::close() {
    const Scope closed = top();
    scopes_.pop_back();
    if (closed.bracket == Role::LambdaIntroducer) return beginLambda(closed.last);
    closeAfter(closed);
}

void RoleFinder::closeAfter(const Scope& closed) {
    Scope& scope = top();
    switch (closed.bracket) {
        case Role::None:
        case Role::Attribute:
        case Role::Specifier:
        case Role::Placement:
            return;
        case Role::Cast:
            return beginOperand();
        case Role::Parameters:
            scope.isTail = scope.declares;
            return endOperand(true);
        case Role::DeclaratorGroup:
            scope.hasName = true;
            return endOperand(true);
        case Role::ArrayBound:
            scope.hasOperand = true;
            return;
        case Role::StructuredBinding:
            scope.hasName = true;
            return endOperand();
        case Role::TypeOperand:
            return endOperand(isTypeWord(buffer_->text(shapes_->previous(partner(closed.last)))));
        case Role::TemplateArguments:
            scope.hasOperand = true;
            scope.isType = scope.wantsType;
            scope.wantsType = false;
            return;
        default:
            return endOperand();
    }
}

// ---- Brackets

TokenIndex RoleFinder::readBrace(TokenIndex at) {
    Scope& scope = top();
    const TokenIndex end = partner(at);
    Role role = Role::BracedInitializer;
    const bool isBody = shapes_->isBody(at);
    if (scope.isLambda) {
        role = Role::LambdaBody;
    } else if (isWord(previous_, "requires") ||
               (kind(previous_) == Kind::CloseParen && isWord(shapes_->previous(partner(previous_)), "requires"))) {
        role = Role::RequiresBody;
    } else if (isBody) {
        role = Role::Body;
    } else if (scope.bracket == Role::MemberInitializer && scopes_.size() == 1) {
        role = Role::MemberInitializer;
    }
    if (isBody) {
        set(at, role);
        set(end, role);
        endOperand();
        return end;
    }
    scope.isNew = false;
    open(at, role, values(Role::ElementComma));
    return at;
}

TokenIndex RoleFinder::readSquare(TokenIndex at) {
    Scope& scope = top();
    const bool isBehindOperand = !scope.declares && scope.hasOperand;
    if (kind(previous_) == Kind::Delete && !scope.declares) {
        set(at, Role::ArrayDelete);
        set(partner(at), Role::ArrayDelete);
        return partner(at);
    }
    if (scope.bracket == Role::Attribute || (shapes_->startsAttribute(at) && !isBehindOperand)) {
        open(at, Role::Attribute, values(Role::AttributeComma));
    } else if (scope.declares) {
        const bool isBinding = scope.hasAuto && !scope.hasName;
        open(at, isBinding ? Role::StructuredBinding : Role::ArrayBound, values(Role::BindingComma));
    } else if (isBehindOperand) {
        open(at, scope.isType || scope.isNew ? Role::ArrayBound : Role::Subscript, values(Role::ArgumentComma));
    } else {
        const TokenKind after = kind(next(partner(at)));
        const bool isValue = after == Kind::Assign || after == Kind::Dot || after == Kind::OpenBracket;
        const bool isDesignator = scope.bracket == Role::BracedInitializer && (isValue || !types_.isCpp());
        open(at, isDesignator ? Role::Designator : Role::LambdaIntroducer, values(Role::CaptureComma));
    }
    return at;
}

void RoleFinder::readAngle(TokenIndex at) {
    Scope& scope = top();
    const bool isNamedCast = kind(previous_) >= Kind::StaticCast && kind(previous_) <= Kind::ReinterpretCast;
    const bool isHead =
        kind(previous_) == Kind::Template || (scope.isLambda && !scope.isTail && kind(previous_) == Kind::CloseBracket);
    if (isHead && partner(at) != 0) return open(at, Role::TemplateParameters, declaration(Role::TemplateComma));
    if (isNamedCast && partner(at) != 0) return open(at, Role::NamedCastType, types(Role::TemplateComma));
    // A `>>` that closes the bracket outside closes this one too.
    const bool isInner = partner(at) != 0 && partner(at) == scope.last &&
                         (scope.bracket == Role::TemplateArguments || scope.bracket == Role::TemplateParameters);
    if (isInner || types_.isTemplateBracket(at, scope.declares || scope.isNew || scope.isClause)) {
        return open(at, Role::TemplateArguments, values(Role::TemplateComma));
    }
    set(at, Role::Comparison);
    beginOperand();
}

TokenIndex RoleFinder::readOperatorName(TokenIndex at) {
    Scope& scope = top();
    scope.hasName = true;
    TokenIndex sign = next(at);
    switch (kind(sign)) {
        case Kind::Identifier:
        case Kind::Const:
        case Kind::Volatile:
        case Kind::Typename:
        case Kind::StringLiteral:
            return at;
        case Kind::New:
        case Kind::Delete:
            if (kind(next(sign)) != Kind::OpenBracket) break;
            sign = next(sign);
            [[fallthrough]];
        case Kind::OpenParen:
        case Kind::OpenBracket:
            set(sign, Role::OperatorName);
            sign = partner(sign);
            break;
        default:
            if (kind(sign) >= Kind::Class && kind(sign) != Kind::Spaceship) return at;
    }
    if (kind(sign) != Kind::New && kind(sign) != Kind::Delete) set(sign, Role::OperatorName);
    endOperand();
    return sign;
}

// ---- Commas, semicolons and colons

void RoleFinder::readComma(TokenIndex at) {
    Scope& scope = top();
    const bool isDeclarator = scope.isCondition && scope.isPart;
    set(at, isDeclarator ? Role::DeclaratorComma : scope.comma);
    scope.declares = scope.isPart && (scope.isList || isDeclarator);
    scope.hasName = scope.isTail = scope.isNew = scope.wantsType = false;
    scope.questions = 0;
    beginOperand();
}

void RoleFinder::readSemicolon(TokenIndex at) {
    Scope& scope = top();
    set(at, scope.isCondition ? Role::ForSemicolon : Role::StatementEnd);
    if (scope.isCondition) scope.declares = scope.isPart = types_.startsDeclaration(next(at));
    // Old-style parameters follow one another.
    if (!scope.isCondition && scope.isPart) scope.declares = true;
    scope.hasName = scope.isTail = scope.hasAuto = scope.isNew = scope.wantsType = false;
    scope.questions = 0;
    beginOperand();
}

void RoleFinder::readColon(TokenIndex at) {
    Scope& scope = top();
    Role role = Role::LabelColon;
    if (scope.questions > 0) {
        --scope.questions;
        role = Role::TernaryColon;
    } else if (scope.isCondition) {
        role = Role::RangeColon;
    } else if (shape_.sort == Sort::Enum) {
        role = Role::EnumBaseColon;
        return set(at, role);
    } else if (scope.declares && scope.isTail) {
        role = Role::MemberInitializerColon;
    } else if (scope.declares) {
        role = Role::BitFieldColon;
    } else if (scope.bracket == Role::BracedInitializer) {
        role = Role::Designator;
    } else if (scopes_.front().bracket == Role::AsmColon) {
        role = Role::AsmColon;
    }
    set(at, role);
    if (!scope.isLambda) scope.declares = false;
    beginOperand();
}

// ---- Lambdas and clauses

// Behind the introducer a scope lasts through the body.
void RoleFinder::beginLambda(TokenIndex closing) {
    const TokenIndex body = lambdaBody(closing);
    if (body == 0) return endOperand();
    Scope scope = declaration(Role::CommaOperator);
    scope.isLambda = true;
    scope.bracket = Role::LambdaBody;
    scope.last = partner(body);
    scopes_.push_back(scope);
}

TokenIndex RoleFinder::lambdaBody(TokenIndex closing) const {
    TokenIndex at = next(closing);
    if (kind(at) == Kind::Less && partner(at) != 0) at = next(partner(at));
    constexpr int longest = 60;
    for (int i = 0; i < longest; ++i) {
        switch (kind(at)) {
            case Kind::OpenBrace:
                return at;
            case Kind::OpenParen:
            case Kind::OpenBracket:
                at = shapes_->behind(at);
                continue;
            case Kind::Less:
                if (partner(at) == 0) return 0;
                at = next(partner(at));
                continue;
            case Kind::Identifier:
            case Kind::Mutable:
            case Kind::Static:
            case Kind::Const:
            case Kind::Volatile:
            case Kind::Arrow:
            case Kind::Star:
            case Kind::Amp:
            case Kind::AmpAmp:
            case Kind::PipePipe:
            case Kind::Auto:
            case Kind::Throw:
            case Kind::Typename:
            case Kind::Struct:
                at = next(at);
                continue;
            default:
                if (!isTypeKeyword(kind(at))) return 0;
                at = next(at);
        }
    }
    return 0;
}

// A requires clause is a value in the midst of a declaration.
void RoleFinder::clause(TokenIndex at) {
    Scope scope = values(Role::CommaOperator);
    scope.isClause = true;
    scope.last = std::min(shapes_->requiresClauseEnd(at), top().last);
    scopes_.push_back(scope);
}

}  // namespace Cpp
