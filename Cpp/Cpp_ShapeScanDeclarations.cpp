// Declarations as shapes: a scan over the tokens at the declaration's own depth until one tells what it is.
#include "Cpp_ParserWords.h"
#include "Cpp_ShapeDeclaration.h"
#include "Cpp_ShapeWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Sort = ItemShape::Sort;
using Trn::TokenKind;

ItemShape ShapeScan::declaration(TokenIndex first, Frame frame) const {
    Declaration scan{.frame = frame, .at = first};
    scan.shape.first = first;
    if (frame != Frame::Block && macros_ != nullptr && isNamedMacro(first, frame, scan.shape)) return scan.shape;
    if (frame != Frame::Block && isLoneMacro(first, first, frame)) {
        endAsMacro(scan, first);
        return scan.shape;
    }
    if (const TokenIndex last = frame != Frame::Block ? macroRowEnd(first, frame) : 0) {
        endAsMacro(scan, last);
        return scan.shape;
    }
    while (scanToken(scan) == Step::GoOn) {
    }
    return scan.shape;
}

// A word, or its call that ends at `last`, that is alone at the start or the end of an item and is no part of what
// follows: a macro.
bool ShapeScan::isLoneMacro(TokenIndex word, TokenIndex last, Frame frame) const {
    if (kind(word) != Kind::Identifier || isWord(word, "requires")) return false;
    const TokenIndex second = next(last);
    const TokenKind here = kind(second);
    if (here == Kind::CloseBrace || here == Kind::EndOfInput) return true;
    if (isAccessKeyword(here) || here == Kind::Namespace || here == Kind::Template || here == Kind::Using) return true;
    if (frame == Frame::Class && startsLine(second) && startsAccessLabel(second)) return true;
    if (!startsLine(second) || !isMacroCase(text(word))) return false;
    if (buffer_->first(second).line > buffer_->last(last).line + 1) return true;
    if (here == Kind::Extern || here == Kind::Typedef || here == Kind::Tilde || startsAttribute(second)) return true;
    // A return type on a line of its own has a function's name below it.
    if (here == Kind::Identifier) return kind(next(second)) != Kind::OpenParen || isMacroCase(text(second));
    return isDeclarationKeyword(here);
}

// The last token of a line that the call of a macro begins and another macro ends, as in `BEGIN(T) list<T> END`. 0 for no
// such line.
TokenIndex ShapeScan::macroRowEnd(TokenIndex first, Frame frame) const {
    if (kind(first) != Kind::Identifier || !isMacroCase(text(first)) || kind(next(first)) != Kind::OpenParen) return 0;
    TokenIndex last = 0;
    for (TokenIndex at = behind(next(first)); !startsLine(at); at = behind(at)) {
        switch (kind(at)) {
            case Kind::Semicolon:
            case Kind::Assign:
            case Kind::OpenBrace:
            case Kind::CloseBrace:
            case Kind::EndOfInput:
                return 0;
            default:
                last = at;
        }
    }
    if (last == 0) return 0;
    const bool isCall = kind(last) == Kind::OpenParen;
    const TokenIndex word = isCall ? previous(last) : last;
    if (isCall) last = partner(last);
    return isMacroCase(text(word)) && isLoneMacro(word, last, frame) ? last : 0;
}

ShapeScan::Step ShapeScan::scanToken(Declaration& scan) const {
    const TokenIndex at = scan.at;
    switch (kind(at)) {
        case Kind::EndOfInput:
        case Kind::CloseBrace:
        case Kind::CloseParen:
        case Kind::CloseBracket:
            return endUnterminated(scan);
        case Kind::Semicolon:
            return endAsData(scan, 0);
        case Kind::Assign:
            return endAsData(scan, at);
        case Kind::Colon:
            return scanColon(scan);
        case Kind::OpenBrace:
            return scanBrace(scan);
        case Kind::OpenParen:
            return scanParen(scan);
        case Kind::OpenBracket:
            if (startsAttribute(at)) {
                scan.at = behind(at);
            } else {
                scan.endName();
                if (scan.nameFirst == 0 && scan.previous != 0) scan.setName(at, partner(at));  // a structured binding
                scan.advance(partner(at), behind(at));
            }
            return Step::GoOn;
        case Kind::Less:
            return scanTemplateBracket(scan);
        case Kind::Comma:
            scan.endName();
            scan.isList = true;
            scan.advance(at, next(at));
            return Step::GoOn;
        case Kind::Class:
        case Kind::Struct:
        case Kind::Union:
            if (scanClass(scan)) return Step::Done;
            break;
        case Kind::Enum:
            if (scanEnum(scan)) return Step::Done;
            break;
        case Kind::Operator:
            return scanOperator(scan);
        case Kind::Identifier:
            return scanWord(scan);
        default:
            break;
    }
    scan.advance(at, next(at));
    return Step::GoOn;
}

// The name begins with the class in front of `::operator`, where there is one.
ShapeScan::Step ShapeScan::scanOperator(Declaration& scan) const {
    const TokenIndex at = scan.at;
    const bool isMember = scan.nameFirst != 0 && scan.nameLast == scan.previous &&
                          (text(at).starts_with("::") || text(scan.nameLast).ends_with("::"));
    scan.isOperator = true;
    scan.setName(isMember ? scan.nameFirst : at, previous(operatorParen(at)));
    scan.isNameEnded = true;
    scan.advance(scan.nameLast, operatorParen(at));
    return Step::GoOn;
}

// The word is the name, unless another one follows.
ShapeScan::Step ShapeScan::scanWord(Declaration& scan) const {
    const TokenIndex at = scan.at;
    const TokenIndex second = next(at);
    if (kind(second) == Kind::OpenParen && bracketWords.contains(text(at))) {
        scan.advance(partner(second), behind(second));
        return Step::GoOn;
    }
    if (kind(second) == Kind::OpenParen && (isWord(at, "static_assert") || isWord(at, "_Static_assert"))) {
        scan.shape.sort = Sort::Statement;
        scan.shape.last = statementEnd(at);
        return Step::Done;
    }
    // A name that ends in `::` goes on behind template brackets, `template` or a sign.
    const bool isBehindAngle = kind(scan.previous) == Kind::Greater || kind(scan.previous) == Kind::ShiftRight;
    const bool isContinued = isBehindAngle && (text(at).starts_with("::") || text(at).empty());
    // An empty word stands in front of `::operator`.
    if (!scan.isNameEnded) {
        if (isContinued && scan.nameFirst != 0)
            scan.nameLast = at;
        else if (!text(at).empty())
            scan.setName(at, at);
    }
    scan.advance(at, second);
    return Step::GoOn;
}

ShapeScan::Step ShapeScan::scanTemplateBracket(Declaration& scan) const {
    const TokenIndex close = partner(scan.at);
    if (close == 0) {
        scan.advance(scan.at, next(scan.at));
        return Step::GoOn;
    }
    if (!scan.isNameEnded && scan.nameLast == scan.previous) scan.nameLast = close;
    scan.advance(close, next(close));
    return Step::GoOn;
}

ShapeScan::Step ShapeScan::scanColon(Declaration& scan) const {
    if (scan.frame == Frame::Class || scan.shape.first != scan.previous) return endAsData(scan, scan.at);
    scan.shape.last = scan.at;  // a word and its colon, where no label can be
    return Step::Done;
}

// ---- Ends

ShapeScan::Step ShapeScan::endAsData(Declaration& scan, TokenIndex initializer) const {
    ItemShape& shape = scan.shape;
    TokenIndex end = initializer != 0 ? initializer : scan.at;
    while (kind(end) != Kind::Semicolon) {
        const TokenKind here = kind(end);
        if (here == Kind::EndOfInput || here == Kind::CloseBrace || here == Kind::CloseParen ||
            here == Kind::CloseBracket) {
            end = previous(end);
            break;
        }
        end = behind(end);
    }
    shape.last = end;
    shape.initializer = initializer;
    shape.nameFirst = scan.nameFirst;
    shape.nameLast = scan.listNameLast(*this);
    const bool hasType = shape.nameFirst > shape.first;
    shape.sort = hasType && shape.nameFirst != 0 && kind(end) == Kind::Semicolon ? Sort::Data : Sort::Statement;
    return Step::Done;
}

ShapeScan::Step ShapeScan::endAsMacro(Declaration& scan, TokenIndex last) const {
    scan.shape.sort = Sort::Macro;
    scan.shape.last = last;
    return Step::Done;
}

// The enclosing bracket ends in front of a `;`: macros alone may stand there.
ShapeScan::Step ShapeScan::endUnterminated(Declaration& scan) const {
    bool areMacros = scan.previous != 0;
    for (TokenIndex at = scan.shape.first; areMacros && at <= scan.previous; at = behind(at)) {
        areMacros = kind(at) == Kind::Identifier || kind(at) == Kind::OpenParen;
    }
    scan.shape.sort = areMacros ? Sort::Macro : Sort::Unread;
    scan.shape.last = scan.at > scan.shape.first ? previous(scan.at) : scan.shape.first;
    return Step::Done;
}

// ---- Classes and enums

// At a class key: whether a body follows it, with a head of names, macros, attributes and base clauses between.
bool ShapeScan::scanClass(Declaration& scan) const {
    if (scan.nameFirst != 0 && scan.isNameEnded) return false;
    TokenIndex colon = 0;
    for (TokenIndex at = next(scan.at);; at = next(at)) {
        at = passAttributes(at);
        switch (kind(at)) {
            case Kind::OpenBrace:
                if (colon == 0 && holdsValues(at)) return false;
                scan.shape.sort = Sort::Class;
                scan.shape.colon = colon;
                scan.shape.body = at;
                scan.shape.last = partner(at);
                return true;
            case Kind::Colon:
                if (colon != 0) return false;
                colon = at;
                break;
            case Kind::Less:
                if (partner(at) == 0) return false;
                at = partner(at);
                break;
            case Kind::OpenParen:
                // The arguments of a macro, or in a base clause those of a template.
                at = partner(at);
                if (colon == 0 && kind(next(at)) != Kind::Identifier && kind(next(at)) != Kind::OpenBrace &&
                    kind(next(at)) != Kind::Colon) {
                    return false;
                }
                if (colon == 0 && kind(next(at)) == Kind::OpenBrace &&
                    (!startsClass(scan) || namesFunction(scan.at, at))) {
                    return false;
                }
                break;
            case Kind::Identifier:
            case Kind::Ellipsis:
                break;
            case Kind::Public:
            case Kind::Private:
            case Kind::Protected:
            case Kind::Virtual:
            case Kind::Comma:
            case Kind::Typename:
            case Kind::Template:
                if (colon == 0) return false;
                break;
            default:
                return false;
        }
    }
}

// `struct S s { .a = 1 };`
bool ShapeScan::holdsValues(TokenIndex brace) const {
    const TokenIndex name = previous(brace);
    if (!isForRoles() || kind(name) != Kind::Identifier || kind(previous(name)) != Kind::Identifier) return false;
    const TokenKind first = kind(next(brace));
    return first == Kind::Dot || first == Kind::Number || first == Kind::StringLiteral;
}

// Whether nothing stands in front of the class key that may be part of a function's.
bool ShapeScan::startsClass(const Declaration& scan) const {
    const TokenIndex first = scan.shape.first;
    return scan.at == first || (isForRoles() && kind(first) == Kind::Typedef && next(first) == scan.at);
}

// `struct S f(int a) {`
bool ShapeScan::namesFunction(TokenIndex key, TokenIndex close) const {
    const TokenIndex name = previous(partner(close));
    return isForRoles() && kind(name) == Kind::Identifier && previous(name) != key &&
           kind(previous(name)) == Kind::Identifier && !isMacroCase(text(name)) && !bracketWords.contains(text(name));
}

bool ShapeScan::scanEnum(Declaration& scan) const {
    for (TokenIndex at = next(scan.at);; at = next(at)) {
        at = passAttributes(at);
        switch (kind(at)) {
            case Kind::OpenBrace:
                scan.shape.sort = Sort::Enum;
                scan.shape.body = at;
                scan.shape.last = partner(at);
                return true;
            case Kind::Less:
                if (partner(at) == 0) return false;
                at = partner(at);
                break;
            case Kind::OpenParen:
                at = partner(at);
                break;
            case Kind::Identifier:
            case Kind::Class:
            case Kind::Struct:
            case Kind::Colon:
            case Kind::Const:
            case Kind::Typename:
                break;
            default:
                if (!isTypeKeyword(kind(at))) return false;
        }
        if (kind(at) == Kind::Identifier && kind(next(at)) == Kind::OpenParen && !isMacroCase(text(at)) &&
            !bracketWords.contains(text(at))) {
            return false;  // a function that gives the enum
        }
    }
}

// ---- Braces

// At the bracket of `type name MACRO(...){value};`.
bool ShapeScan::isAnnotation(const Declaration& scan) const {
    const TokenIndex macro = scan.nameFirst;
    const TokenIndex name = previous(macro);
    if (!isForRoles() || macro != scan.nameLast || kind(macro) != Kind::Identifier || !isMacroCase(text(macro)))
        return false;
    if (name <= scan.shape.first || kind(name) != Kind::Identifier || isMacroCase(text(name))) return false;
    const TokenIndex type = previous(name);
    const TokenKind before = kind(type);
    const bool isType = before == Kind::Greater || before == Kind::ShiftRight || isTypeKeyword(before) ||
                        isDeclaratorSign(before) || (before == Kind::Identifier && !isMacroCase(text(type)));
    const TokenIndex brace = next(partner(scan.at));
    if (!isType || kind(brace) != Kind::OpenBrace || kind(next(partner(brace))) != Kind::Semicolon) return false;
    for (TokenIndex at = next(brace); at < partner(brace); at = behind(at)) {
        if (kind(at) == Kind::Semicolon) return false;
    }
    return true;
}

// A brace behind a name: the value of data, or a block behind a macro.
ShapeScan::Step ShapeScan::scanBrace(Declaration& scan) const {
    ItemShape& shape = scan.shape;
    const TokenIndex close = partner(scan.at);
    const TokenKind after = kind(next(close));
    const bool isValue = scan.nameFirst > shape.first && (after == Kind::Semicolon || after == Kind::Comma);
    if (isValue || (scan.isList && scan.nameFirst != 0)) {
        scan.endName();
        return endAsData(scan, scan.at);
    }
    shape.body = scan.at;
    if (scan.previous == shape.first || (scan.previous != 0 && kind(scan.previous) == Kind::CloseParen)) {
        shape.sort = Sort::Head;
        shape.last = scan.previous;
        return Step::Done;
    }
    bool areWords = scan.previous != 0;
    for (TokenIndex at = shape.first; areWords && at <= scan.previous; at = next(at)) {
        areWords = kind(at) == Kind::Identifier || kind(at) == Kind::StringLiteral || isItemKeyword(kind(at));
    }
    shape.sort = areWords ? Sort::Head : Sort::Unread;
    shape.last = areWords ? scan.previous : close;
    return Step::Done;
}

}  // namespace Cpp
