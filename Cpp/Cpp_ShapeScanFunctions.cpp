// Functions as shapes: the bracket of the parameters, and what may stand between it and the body or the `;`.
#include "Cpp_ParserWords.h"
#include "Cpp_ShapeDeclaration.h"
#include "Cpp_ShapeWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Sort = ItemShape::Sort;
using Trn::TokenKind;

// In front of the bracket of the parameters, behind `operator` and its sign.
TokenIndex ShapeScan::operatorParen(TokenIndex keyword) const {
    TokenIndex at = next(keyword);
    if (kind(at) == Kind::OpenParen) return behind(at);
    for (int i = 0; i < 64; ++i) {
        const TokenKind here = kind(at);
        if (here == Kind::OpenParen || here == Kind::Semicolon || here == Kind::OpenBrace || isCloser(here)) break;
        const bool isTemplate = here == Kind::Less && partner(at) != 0 && at != next(keyword);
        at = isTemplate ? next(partner(at)) : behind(at);
    }
    return at;
}

// Whether the bracket holds a declarator with a sign: `(*name)`, `(Class::*name)`.
bool ShapeScan::startsDeclarator(TokenIndex paren) const {
    TokenIndex at = next(paren);
    while (kind(at) == Kind::Identifier && kind(next(at)) != Kind::CloseParen) {
        if (text(at).ends_with("::")) return isDeclaratorSign(kind(next(at)));
        if (kind(next(at)) == Kind::Less && partner(next(at)) != 0) at = partner(next(at));
        at = next(at);
    }
    return isDeclaratorSign(kind(at));
}

ShapeScan::Step ShapeScan::scanParen(Declaration& scan) const {
    const TokenIndex open = scan.at;
    const TokenIndex close = partner(open);
    const TokenIndex tail = next(close);
    const TokenKind before = scan.previous == 0 ? TokenKind{Kind::EndOfInput} : kind(scan.previous);
    if (before == Kind::Explicit || before == Kind::Asm || before == Kind::Throw || scan.isList ||
        (before == Kind::CloseBracket && scan.nameLast == scan.previous && !scan.isOperator)) {
        scan.advance(close, tail);
        return Step::GoOn;
    }
    const bool hasName = scan.nameFirst != 0 && (scan.nameLast == scan.previous || scan.isOperator);
    if (!hasName) return scanDeclaratorParen(scan);
    const bool hasType = scan.nameFirst > scan.shape.first;
    const bool isBracketed =
        startsDeclarator(open) || (kind(next(open)) == Kind::Identifier && next(next(open)) == close);
    if (!scan.isOperator && isBracketed && kind(tail) == Kind::OpenParen) return scanDeclaratorParen(scan);
    // In a block a type, a name and a bracket are data, but in front of a body.
    if (scan.frame == Frame::Block && !scan.isOperator) {
        if (hasType && (kind(tail) == Kind::Semicolon || kind(tail) == Kind::Comma)) {
            scan.endName();
            return endAsData(scan, open);
        }
    }
    if (isAnnotation(scan)) {
        scan.setName(previous(scan.nameFirst), previous(scan.nameFirst));
        scan.endName();
        scan.at = tail;
        return endAsData(scan, tail);
    }
    scan.shape.open = open;
    if (scanFunctionTail(scan, tail)) {
        scan.shape.sort = Sort::Function;
        scan.shape.nameFirst = scan.nameFirst;
        scan.shape.nameLast = scan.nameLast;
        return Step::Done;
    }
    scan.shape.open = scan.shape.colon = scan.shape.body = 0;
    // A macro with arguments stands for an item, or for a part of what goes on behind it.
    if (!hasType && !scan.isOperator) {
        const TokenKind after = kind(tail);
        if (after == Kind::CloseBrace || after == Kind::EndOfInput) return endAsMacro(scan, close);
        if (startsLine(tail) &&
            (after == Kind::Identifier || isItemKeyword(after) || after == Kind::Tilde || startsAttribute(tail))) {
            return endAsMacro(scan, close);
        }
        if (after == Kind::OpenBrace) {
            scan.shape.sort = Sort::Head;
            scan.shape.last = close;
            return Step::Done;
        }
        scan.nameFirst = scan.nameLast = 0;
    }
    scan.advance(close, tail);
    return Step::GoOn;
}

// A bracket behind a type, or at the start: its declarator. With a second bracket it declares a function or a pointer
// to one.
ShapeScan::Step ShapeScan::scanDeclaratorParen(Declaration& scan) const {
    const TokenIndex open = scan.at;
    const TokenIndex close = partner(open);
    const TokenIndex tail = next(close);
    if (scan.previous == 0) {
        scan.shape.sort = Sort::Statement;
        scan.shape.last = statementEnd(scan.shape.first);
        return Step::Done;
    }
    scan.setName(open, close);
    scan.endName();
    if (kind(tail) == Kind::OpenParen) {
        scan.shape.open = tail;
        if (scanFunctionTail(scan, behind(tail)) && scan.shape.body != 0) {
            scan.shape.sort = Sort::Function;
            scan.shape.nameFirst = scan.nameFirst;
            scan.shape.nameLast = scan.nameLast;
            return Step::Done;
        }
        scan.shape.open = scan.shape.colon = scan.shape.body = scan.shape.tryWord = 0;
        scan.advance(partner(tail), behind(tail));
        return Step::GoOn;
    }
    scan.advance(close, tail);
    return Step::GoOn;
}

// Behind the parameters: goes on to the body or the `;`. False if what stands there belongs to no function.
bool ShapeScan::scanFunctionTail(Declaration& scan, TokenIndex tail) const {
    ItemShape& shape = scan.shape;
    const bool hasType = scan.nameFirst > shape.first || scan.isOperator;
    constexpr int longest = 32;  // words and signs between the parameters and the body
    TokenIndex at = tail;
    for (int i = 0; i < longest; ++i) {
        at = passAttributes(at);
        switch (kind(at)) {
            case Kind::Semicolon:
                shape.last = at;
                return hasType || scan.frame == Frame::Class || at != tail;
            case Kind::OpenBrace:
                // A macro in front of a block looks like a constructor; outside of classes its name shows it.
                if (!hasType && at == tail && scan.frame != Frame::Class && kind(scan.nameLast) == Kind::Identifier &&
                    text(scan.nameLast).find("::") == std::string_view::npos && scan.nameFirst == scan.nameLast) {
                    return false;
                }
                shape.body = at;
                shape.last = partner(at);
                return true;
            case Kind::Colon:
                if (!hasType && scan.frame == Frame::Block) return false;
                shape.colon = at;
                shape.body = initializersEnd(at);
                if (shape.body == 0) return false;
                shape.last = partner(shape.body);
                return true;
            case Kind::Try:
                return scanTryBlock(shape, at);
            case Kind::Assign: {
                const TokenIndex value = next(at);
                if (kind(value) != Kind::Default && kind(value) != Kind::Delete && kind(value) != Kind::Number)
                    return false;
                shape.last = statementEnd(value);
                return kind(shape.last) == Kind::Semicolon;
            }
            case Kind::Comma:
                shape.last = statementEnd(at);
                return hasType && kind(shape.last) == Kind::Semicolon;
            case Kind::Arrow:
                at = passReturnType(at);
                continue;
            case Kind::Const:
            case Kind::Volatile:
            case Kind::Amp:
            case Kind::AmpAmp:
            case Kind::Mutable:
                if (oldStyleBody(at) != 0) break;
                at = next(at);
                continue;
            case Kind::Throw:
            case Kind::Asm:
                at = next(at);
                if (kind(at) == Kind::OpenParen) at = behind(at);
                continue;
            case Kind::Identifier:
                if (const TokenIndex behindWord = passTailWord(scan, at)) {
                    at = behindWord;
                    continue;
                }
                break;
            default:
                break;
        }
        if (kind(next(shape.open)) == Kind::CloseParen) return false;
        shape.body = oldStyleBody(at);
        if (shape.body == 0) return false;
        shape.last = partner(shape.body);
        return true;
    }
    return false;
}

// From the `try` in the place of a body through the last `catch`.
bool ShapeScan::scanTryBlock(ItemShape& shape, TokenIndex tryWord) const {
    const TokenIndex first = next(tryWord);
    const bool hasInitializers = kind(first) == Kind::Colon;
    const TokenIndex brace = hasInitializers ? initializersEnd(first) : first;
    if (brace == 0 || kind(brace) != Kind::OpenBrace) return false;
    for (shape.last = partner(brace); kind(next(shape.last)) == Kind::Catch;) {
        const TokenIndex block = behind(next(next(shape.last)));
        if (kind(block) != Kind::OpenBrace) return false;
        shape.last = partner(block);
    }
    shape.body = 0;
    shape.tryWord = tryWord;
    if (hasInitializers) shape.colon = first;
    return true;
}

// Behind a word that may follow the parameters, with its bracket: one of the language or a macro. 0 for a word that
// begins something else.
TokenIndex ShapeScan::passTailWord(Declaration& scan, TokenIndex at) const {
    if (isWord(at, "requires")) return passRequires(at);
    TokenIndex behindWord = next(at);
    if (kind(behindWord) == Kind::OpenParen) behindWord = behind(behindWord);
    constexpr WordSet words("override", "final", "noexcept", "__restrict", "__asm__", "__asm");
    if (words.contains(text(at)) || bracketWords.contains(text(at))) return behindWord;
    const bool hasType = scan.nameFirst > scan.shape.first;
    if (!hasType && scan.frame != Frame::Class && startsLine(at)) return 0;
    // Behind a macro that gives a type the name of the function comes, with its bracket.
    if (!hasType && isMacroCase(text(scan.nameLast)) && !isMacroCase(text(at)) && kind(next(at)) == Kind::OpenParen)
        return 0;
    if (hasType && kind(behindWord) == Kind::OpenBrace && isMacroType(scan, at)) return 0;
    switch (kind(behindWord)) {
        case Kind::OpenBrace:
        case Kind::Semicolon:
        case Kind::Colon:
        case Kind::Assign:
        case Kind::Arrow:
        case Kind::Const:
        case Kind::Try:
            // A macro that stands for an item of its own may have one of these behind it too.
            return hasType || isMacroCase(text(at)) || kind(behindWord) != Kind::Semicolon ? behindWord : 0;
        case Kind::Identifier:
            // `__acquires(lock)` and its kin, one below the other.
            if (isForRoles() && text(at).starts_with("__") && text(behindWord).starts_with("__")) return behindWord;
            return isMacroCase(text(at)) || isWord(behindWord, "override") || isWord(behindWord, "noexcept") ||
                           isWord(behindWord, "final")
                       ? behindWord
                       : 0;
        default:
            return startsAttribute(behindWord) ? behindWord : 0;
    }
}

// Whether nothing but specifiers and macros stands in front of a macro with its bracket, and the name of a function
// behind it. Where the line ends in front of the macro must not matter, so that it may be put on a line of its own.
bool ShapeScan::isMacroType(const Declaration& scan, TokenIndex behindMacro) const {
    if (source_.empty() || !isMacroCase(text(scan.nameLast)) || isMacroCase(text(behindMacro))) return false;
    if (kind(behindMacro) != Kind::Identifier || kind(next(behindMacro)) != Kind::OpenParen) return false;
    const TokenIndex before = previous(scan.nameFirst);
    return kind(before) == Kind::Inline || kind(before) == Kind::Static ||
           (kind(before) == Kind::Identifier && isMacroCase(text(before)));
}

TokenIndex ShapeScan::passRequires(TokenIndex keyword) const { return next(requiresClauseEnd(keyword)); }

TokenIndex ShapeScan::passReturnType(TokenIndex arrow) const {
    TokenIndex at = next(arrow);
    for (;;) {
        switch (kind(at)) {
            case Kind::OpenBrace:
            case Kind::CloseBrace:
            case Kind::Semicolon:
            case Kind::Assign:
            case Kind::Try:
            case Kind::EndOfInput:
                return at;
            case Kind::Less:
                at = partner(at) != 0 ? next(partner(at)) : next(at);
                break;
            default:
                if (isWord(at, "requires")) return at;
                at = behind(at);
        }
    }
}

TokenIndex ShapeScan::initializersEnd(TokenIndex colon) const {
    for (TokenIndex at = next(colon);;) {
        if (kind(at) != Kind::Identifier && kind(at) != Kind::Typename && kind(at) != Kind::Template) return 0;
        // The name, with template arguments.
        while (kind(at) != Kind::OpenParen && kind(at) != Kind::OpenBrace) {
            if (kind(at) == Kind::Less && partner(at) != 0)
                at = next(partner(at));
            else if (kind(at) == Kind::Identifier || kind(at) == Kind::Typename || kind(at) == Kind::Template)
                at = next(at);
            else
                return 0;
        }
        at = behind(at);
        if (kind(at) == Kind::Ellipsis) at = next(at);
        if (kind(at) == Kind::OpenBrace) return at;
        if (kind(at) == Kind::Comma) at = next(at);
    }
}

// The `{` behind the declarations of old-style parameters, which begin here, or 0.
TokenIndex ShapeScan::oldStyleBody(TokenIndex first) const {
    if (kind(first) != Kind::Identifier && !isTypeKeyword(kind(first)) && !isDeclarationKeyword(kind(first))) return 0;
    bool isFirst = true;
    constexpr int longest = 500;  // tokens that such declarations take
    TokenIndex at = first;
    for (int i = 0; i < longest; ++i, at = behind(at)) {
        switch (kind(at)) {
            case Kind::OpenBrace:
                return kind(previous(at)) == Kind::Semicolon ? at : 0;
            case Kind::Semicolon:
                if (isFirst && kind(next(at)) != Kind::OpenBrace && kind(next(at)) != Kind::Identifier &&
                    !isTypeKeyword(kind(next(at))) && !isDeclarationKeyword(kind(next(at)))) {
                    return 0;
                }
                isFirst = false;
                break;
            case Kind::Identifier:
            case Kind::Star:
            case Kind::Comma:
            case Kind::OpenBracket:
            case Kind::OpenParen:
                break;
            case Kind::Static:
            case Kind::Extern:
            case Kind::Typedef:
            case Kind::Inline:
                return 0;
            default:
                if (!isTypeKeyword(kind(at)) && !isDeclarationKeyword(kind(at))) return 0;
        }
    }
    return 0;
}

}  // namespace Cpp
