// What is a type by its shape, and what the tokens behind a bracket say about it.
#include "Cpp_TypeShapes.h"

#include "Cpp_ParserWords.h"
#include "Cpp_ShapeWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::TokenKind;
using Guess = TypeShapes::Guess;

namespace {

constexpr WordSet typeWords("char8_t", "char16_t", "char32_t", "_Bool", "__int128", "__int128_t",
                            "__uint128_t",  "_Complex", "__signed__",        "__const",  "__volatile__", "__restrict",
                            "__restrict__", "restrict", "__builtin_va_list", "_Float16", "__float128",   "__fp16",
                            "decltype",     "typeof",   "__typeof__",        "__typeof", "_Atomic");

constexpr WordSet prefixWords("co_return", "co_await", "co_yield", "__extension__", "__real__",
                              "__imag__", "__alignof__", "__alignof", "requires");

// What goes on with a value that has ended, or ends what holds it.
constexpr bool followsValue(TokenKind kind) {
    switch (kind) {
        case Kind::CloseParen:
        case Kind::CloseBracket:
        case Kind::CloseBrace:
        case Kind::Comma:
        case Kind::Semicolon:
        case Kind::Colon:
        case Kind::Question:
        case Kind::Dot:
        case Kind::Arrow:
        case Kind::Slash:
        case Kind::Percent:
        case Kind::Pipe:
        case Kind::PipePipe:
        case Kind::Caret:
        case Kind::Ellipsis:
        case Kind::EndOfInput:
        case Kind::Spaceship:
        case Kind::DotStar:
        case Kind::ArrowStar:
            return true;
        default:
            return kind == Kind::Assign || (kind >= Kind::ShiftLeft && kind <= Kind::NotEqual) ||
                   (kind >= Kind::StarAssign && kind <= Kind::PipeAssign);
    }
}

constexpr bool isClassKey(TokenKind kind) {
    return kind == Kind::Class || kind == Kind::Struct || kind == Kind::Union || kind == Kind::Enum ||
           kind == Kind::Typename;
}

// Camel case, or an end that names of types have.
bool looksLikeType(std::string_view name) {
    if (name.ends_with("_t") || name.ends_with("_type")) return true;
    if (const auto scope = name.rfind("::"); scope != std::string_view::npos) name.remove_prefix(scope + 2);
    if (name.size() < 2 || name[0] < 'A' || name[0] > 'Z') return false;
    return !isMacroCase(name);
}

}  // namespace

bool isTypeWord(std::string_view word) { return typeWords.contains(word); }
bool isPrefixWord(std::string_view word) { return prefixWords.contains(word); }

// ---- Template brackets

bool TypeShapes::isTemplateBracket(TokenIndex less, bool isInDeclaration) const {
    const TokenIndex greater = partner(less);
    if (greater == 0 || !isCpp()) return false;
    if (kind(greater) == Kind::ShiftRight && !closesTwo(less, greater)) return false;
    if (isInDeclaration) return true;
    const TokenIndex after = next(greater);
    const TokenKind follows = kind(after);
    // A comparison would want an operand there.
    if (follows == Kind::Greater || follows == Kind::ShiftRight || follows == Kind::OpenBrace) return true;
    if (followsValue(follows) && follows != Kind::Ellipsis) return true;
    if (follows == Kind::Identifier && buffer_->text(after).starts_with("::")) return true;
    const Evidence evidence = evidenceOfArguments(less, greater);
    if (evidence == Evidence::Type) return true;
    if (evidence == Evidence::None || brackets_->holdsLogic(less)) return false;
    switch (follows) {
        case Kind::OpenParen:
        case Kind::Ellipsis:
        case Kind::AmpAmp:
        case Kind::OpenBracket:
            return true;
        case Kind::Star:
        case Kind::Amp:
            return true;
        case Kind::Identifier:
            // `MACRO(A<B> name, ...)`; with a comma in the bracket, `f(a < b, c > d)` looks the same.
            return !holdsComma(less, greater);
        default:
            return false;
    }
}

bool TypeShapes::holdsComma(TokenIndex open, TokenIndex close) const {
    TokenIndex at = next(open);
    while (at < close && kind(at) != Kind::Comma) at = shapes_->behind(at);
    return at < close;
}

// Whether the `>>` that ends the bracket closes another `<` inside or outside of it.
bool TypeShapes::closesTwo(TokenIndex less, TokenIndex shift) const {
    if (partner(shift) != less) return true;
    // The inner bracket is the last at this depth.
    for (TokenIndex at = next(less); at < shift; at = next(at)) {
        if (kind(at) == Kind::Less && partner(at) == shift) return true;
        if (shapes_->isOpening(at) || (kind(at) == Kind::Less && partner(at) != 0)) at = partner(at);
    }
    return false;
}

TypeShapes::Evidence TypeShapes::evidenceOfArguments(TokenIndex less, TokenIndex greater) const {
    Evidence evidence = Evidence::Name;
    bool isAtStart = true;
    for (TokenIndex at = next(less); at < greater; at = next(at)) {
        const TokenKind here = kind(at);
        switch (here) {
            case Kind::Question:
            case Kind::Assign:
            case Kind::PlusPlus:
            case Kind::MinusMinus:
            case Kind::Dot:
            case Kind::Arrow:
            case Kind::Semicolon:
            case Kind::Colon:
            case Kind::Return:
                return Evidence::None;
            case Kind::Const:
            case Kind::Volatile:
            case Kind::Typename:
            case Kind::Struct:
            case Kind::Class:
            case Kind::Auto:
                return Evidence::Type;
            case Kind::Star:
            case Kind::Amp:
            case Kind::AmpAmp:
                if (!isAtStart && endsType(at)) return Evidence::Type;
                break;
            default:
                if (isTypeKeyword(here) && kind(next(at)) != Kind::OpenParen) return Evidence::Type;
                if (here >= Kind::StarAssign && here <= Kind::PipeAssign) return Evidence::None;
        }
        isAtStart = here == Kind::Comma;
        if (shapes_->isOpening(at)) at = partner(at);
        if (here == Kind::Less && partner(at) != 0) {
            if (kind(partner(at)) == Kind::ShiftRight && kind(greater) == Kind::ShiftRight) return evidence;
            at = partner(at);
        }
    }
    return evidence;
}

// ---- Casts

// Behind a name, with its template arguments and what follows these.
TokenIndex TypeShapes::passName(TokenIndex at) const {
    for (;;) {
        at = next(at);
        if (kind(at) == Kind::Less && isTemplateBracket(at, true)) at = next(partner(at));
        if (kind(at) == Kind::Template) at = next(at);
        if (kind(at) != Kind::Identifier || !buffer_->text(at).starts_with("::")) return at;
    }
}

// What the tokens in front of `end` are. A type that is one name alone might be a value as well.
TypeShapes::Evidence TypeShapes::evidenceOfType(TokenIndex first, TokenIndex end) const {
    Evidence evidence = Evidence::None;
    bool hasName = false, hasKeyword = false;
    for (TokenIndex at = first; at < end;) {
        const TokenKind here = kind(at);
        if (isTypeKeyword(here) || here == Kind::Auto) {
            evidence = Evidence::Type;
            hasKeyword = true;
        } else if (isClassKey(here)) {
            if (kind(next(at)) != Kind::Identifier) return Evidence::None;
            evidence = Evidence::Type;
        } else if (isCvQualifier(here)) {
            evidence = Evidence::Type;
        } else if (here == Kind::Identifier && isTypeWord(buffer_->text(at))) {
            evidence = Evidence::Type;
            if (kind(next(at)) == Kind::OpenParen) {
                at = partner(next(at));
                hasName = true;
            }
        } else if (here == Kind::Identifier) {
            const bool isMember = buffer_->text(at).ends_with("::");
            const bool isMacro = !isCpp() && buffer_->text(at).starts_with("__");
            if (hasName && !isMember && !isMacro) return Evidence::None;
            hasName = true;
            if (evidence == Evidence::None) evidence = Evidence::Name;
            at = passName(at);
            continue;
        } else if (isDeclaratorSign(here)) {
            if (!hasName && !hasKeyword) return Evidence::None;
            evidence = Evidence::Type;
            if (at != end && next(at) < end) {
                const TokenKind after = kind(next(at));
                const bool goesOn = isDeclaratorSign(after) || isCvQualifier(after) || after == Kind::OpenBracket ||
                                    (after == Kind::Identifier && isTypeWord(buffer_->text(next(at))));
                // The qualifiers of a macro, such as `__user`.
                const bool isWordAtEnd = !isCpp() && after == Kind::Identifier && next(next(at)) == end &&
                                         buffer_->text(next(at)).starts_with("__");
                if (isWordAtEnd) return evidence;
                const bool isGroup = after == Kind::OpenParen && isDeclaratorGroup(next(at));
                if (!goesOn && !isGroup) return Evidence::None;
            }
        } else if (here == Kind::OpenParen) {
            if (!hasName && !hasKeyword) return Evidence::None;
            if (!isDeclaratorGroup(at)) {
                // Parameters of a function type, or a call.
                const bool isBehindGroup = kind(shapes_->previous(at)) == Kind::CloseParen;
                if (!isBehindGroup) return Evidence::None;
            }
            evidence = Evidence::Type;
            at = partner(at);
        } else if (here == Kind::OpenBracket) {
            if (evidence != Evidence::Type) return Evidence::None;
            at = partner(at);
        } else if (here != Kind::Ellipsis) {
            return Evidence::None;
        }
        at = next(at);
    }
    return evidence;
}

bool TypeShapes::isCast(TokenIndex open) {
    const TokenIndex close = partner(open);
    const TokenIndex after = next(close);
    const TokenKind follows = kind(after);
    if (follows == Kind::Identifier) {
        const std::string_view word = buffer_->text(after);
        if (word == "and" || word == "or") return false;
    } else if (followsValue(follows)) {
        return false;
    }
    const Evidence evidence = evidenceOfType(next(open), close);
    if (evidence != Evidence::Name) return evidence == Evidence::Type && follows != Kind::OpenBracket;
    switch (follows) {
        case Kind::OpenBracket:
            return false;
        case Kind::OpenBrace:
            return true;
        case Kind::OpenParen: {
            if (isKnownType(next(open))) return true;
            // The arguments of a call, where they are none or several.
            const TokenIndex end = partner(after);
            if (next(after) == end) return false;
            for (TokenIndex at = next(after); at < end; at = shapes_->behind(at)) {
                if (kind(at) == Kind::Comma) return false;
            }
            return looksLikeType(buffer_->text(next(open)));
        }
        case Kind::Plus:
        case Kind::Minus:
        case Kind::Star:
        case Kind::Amp:
        case Kind::AmpAmp:
        case Kind::PlusPlus:
        case Kind::MinusMinus:
            return isKnownType(next(open));
        case Kind::StringLiteral:
            return !isMacroCase(buffer_->text(next(open)));
        default:
            return true;
    }
}

bool TypeShapes::isKnownType(TokenIndex first) {
    if (!hasTypes_) collectTypes();
    const std::string_view name = buffer_->text(first);
    return name.ends_with("_t") || types_.contains(name);
}

// A name with another one behind it, or with a sign and a name in a declaration that shows itself as one.
void TypeShapes::collectTypes() {
    hasTypes_ = true;
    TokenIndex beforePrevious = 0, previous = 0;
    for (TokenIndex at = 1; at < buffer_->size(); ++at) {
        const TokenKind here = kind(at);
        if (Trn::isTrivia(here)) continue;
        const bool isPreviousName = previous != 0 && kind(previous) == Kind::Identifier;
        if (isPreviousName) {
            const TokenKind front = beforePrevious != 0 ? kind(beforePrevious) : TokenKind{Kind::Semicolon};
            const std::string_view word = buffer_->text(previous);
            const bool isBehindKey = isClassKey(front) && isCpp();
            const bool isAlias = front == Kind::Using && here == Kind::Assign;
            const bool isFirst = front == Kind::OpenParen || front == Kind::Comma || front == Kind::Semicolon ||
                                 front == Kind::OpenBrace || front == Kind::CloseBrace || front == Kind::Const ||
                                 front == Kind::Static || front == Kind::Less;
            const bool isPair = here == Kind::Identifier && isFirst && !isPrefixWord(word) && !isTypeWord(word) &&
                                !declarationWords.contains(word);
            const bool isConst = front == Kind::Const && (here == Kind::Star || here == Kind::Amp);
            // The name of a typedef.
            const bool isTypedef = here == Kind::Semicolon && front == Kind::CloseBrace;
            if (isBehindKey || isAlias || isPair || isConst || isTypedef) types_.insert(word);
        }
        if (here == Kind::Typedef) {
            const TokenIndex end = shapes_->statementEnd(at);
            const TokenIndex name = shapes_->previous(end);
            if (kind(end) == Kind::Semicolon && kind(name) == Kind::Identifier) types_.insert(buffer_->text(name));
        }
        beforePrevious = previous;
        previous = at;
    }
}

// ---- Declarators and parameters

// An array has no place in a condition, so `flags & table[i]` is a value there.
bool TypeShapes::startsDeclaration(TokenIndex first) const {
    if (!shapes_->startsData(first)) return false;
    if (kind(first) != Kind::Identifier) return true;
    TokenIndex at = passName(first);
    if (!isDeclaratorSign(kind(at))) return true;
    while (isDeclaratorSign(kind(at))) at = next(at);
    return kind(at) != Kind::Identifier || kind(next(at)) != Kind::OpenBracket;
}

bool TypeShapes::isDeclaratorGroup(TokenIndex open) const {
    const TokenIndex close = partner(open);
    TokenIndex at = next(open);
    // A calling convention stands in front of the sign.
    if (kind(at) == Kind::Identifier && (isDeclaratorSign(kind(next(at)))) && kind(next(next(at))) != Kind::Number) {
        const std::string_view word = buffer_->text(at);
        if (!word.ends_with("::") && !isMacroCase(word) && !word.starts_with("__")) return false;
        at = next(at);
    }
    if (!isDeclaratorSign(kind(at))) return false;
    while (isDeclaratorSign(kind(at)) || isCvQualifier(kind(at))) at = next(at);
    if (at == close) return true;
    if (kind(at) == Kind::OpenParen) return isDeclaratorGroup(at);
    if (kind(at) != Kind::Identifier) return false;
    for (at = next(at); at < close; at = shapes_->behind(at)) {
        if (kind(at) != Kind::OpenBracket && kind(at) != Kind::OpenParen && kind(at) != Kind::Identifier) return false;
    }
    return true;
}

bool TypeShapes::endsType(TokenIndex sign) const {
    for (TokenIndex at = next(sign);; at = next(at)) {
        switch (kind(at)) {
            case Kind::Star:
            case Kind::Amp:
            case Kind::AmpAmp:
                break;
            case Kind::Const:
            case Kind::Volatile:
            case Kind::CloseParen:
            case Kind::Comma:
            case Kind::Greater:
            case Kind::ShiftRight:
            case Kind::Ellipsis:
            case Kind::Semicolon:
            case Kind::CloseBrace:
            case Kind::Assign:
                return true;
            case Kind::OpenBracket:
                return next(at) == partner(at) && kind(next(next(at))) == Kind::Greater;
            default:
                return false;
        }
    }
}

// `A<T*()>`: whether parameters of a function type end the template argument behind the sign.
bool TypeShapes::endsResultType(TokenIndex sign) const {
    TokenIndex open = next(sign);
    while (isDeclaratorSign(kind(open)) || isCvQualifier(kind(open))) open = next(open);
    if (kind(open) != Kind::OpenParen) return false;
    const TokenKind after = kind(next(partner(open)));
    if (after != Kind::Comma && after != Kind::Greater && after != Kind::ShiftRight) return false;
    return next(open) == partner(open) || holdsParameters(open) == Guess::Yes;
}

// Of the part between commas that begins at `at`, which is moved to its end.
Guess TypeShapes::isParameter(TokenIndex& at) const {
    at = shapes_->passAttributes(at);
    const TokenKind begin = kind(at);
    if (begin == Kind::Ellipsis || isClassKey(begin) || isCvQualifier(begin) || begin == Kind::Register ||
        begin == Kind::Auto) {
        return Guess::Yes;
    }
    if (isTypeKeyword(begin)) {
        const TokenIndex second = next(at);
        if (kind(second) == Kind::OpenBrace) return Guess::No;
        return kind(second) == Kind::OpenParen && !isDeclaratorGroup(second) ? Guess::Unknown : Guess::Yes;
    }
    if (begin != Kind::Identifier) return Guess::No;
    if (isTypeWord(buffer_->text(at)) && kind(next(at)) != Kind::OpenParen) return Guess::Yes;
    at = passName(at);
    if (kind(at) == Kind::Identifier || isCvQualifier(kind(at))) return Guess::Yes;
    if (kind(at) == Kind::Ellipsis) return kind(next(at)) == Kind::Identifier ? Guess::Yes : Guess::Unknown;
    if (kind(at) == Kind::Comma || kind(at) == Kind::CloseParen) return Guess::Unknown;
    if (kind(at) == Kind::OpenParen && isDeclaratorGroup(at)) return Guess::Unknown;
    if (!isDeclaratorSign(kind(at))) return Guess::No;
    if (endsType(at)) return Guess::Yes;
    const bool isPointer = kind(at) == Kind::Star;
    while (isDeclaratorSign(kind(at))) at = next(at);
    if (kind(at) == Kind::Ellipsis) return Guess::Yes;
    // The name of a parameter in C.
    if (kind(at) == Kind::This && isPointer) return Guess::Yes;
    // `T *(*name)(int)`
    if (kind(at) == Kind::OpenParen && kind(next(partner(at))) == Kind::OpenParen && isDeclaratorGroup(at)) {
        return Guess::Unknown;
    }
    if (kind(at) != Kind::Identifier) return Guess::No;
    // `T *restrict name`
    if (isTypeWord(buffer_->text(at)) || shapes_->isQualifierMacro(at) || isQualifiedSign(at)) return Guess::Yes;
    at = next(at);
    if (kind(at) == Kind::Assign || kind(at) == Kind::OpenBracket) return Guess::Yes;
    return kind(at) == Kind::Comma || kind(at) == Kind::CloseParen ? Guess::Unknown : Guess::No;
}

// `T* MY_RESTRICT* MY_RESTRICT name`, from the first macro on
bool TypeShapes::isQualifiedSign(TokenIndex macro) const {
    if (!isMacroCase(buffer_->text(macro)) || !isDeclaratorSign(kind(next(macro)))) return false;
    TokenIndex at = next(macro);
    while (isDeclaratorSign(kind(at))) at = next(at);
    return shapes_->isQualifierMacro(at);
}

Guess TypeShapes::holdsParameters(TokenIndex open) const {
    const TokenIndex close = partner(open);
    for (TokenIndex at = next(open); at < close; at = next(at)) {
        const Guess guess = isParameter(at);
        if (guess != Guess::Unknown) return guess;
        while (at < close && kind(at) != Kind::Comma) at = shapes_->behind(at);
    }
    return Guess::Unknown;
}

}  // namespace Cpp
