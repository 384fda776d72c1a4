// Tokens, statements, labels and bodies as shapes.
#include "Cpp_ShapeScan.h"

#include <string>

#include "Cpp_ParserWords.h"
#include "Cpp_ShapeWords.h"

namespace Cpp {

namespace Kind = Trn::Kind;
using Trn::isEnd;
using Trn::TokenKind;

namespace {

// What ends an operand, so that a sign behind it is binary and a `[` a subscript.
constexpr bool endsOperand(TokenKind kind) {
    return kind == Kind::Identifier || kind == Kind::CloseParen || kind == Kind::CloseBracket || kind == Kind::Number ||
           kind == Kind::StringLiteral || kind == Kind::CharLiteral || kind == Kind::This || kind == Kind::True ||
           kind == Kind::False || kind == Kind::CloseBrace || isTypeKeyword(kind);
}

// Words that are operators in front of an expression.
constexpr WordSet modernOperators("co_return", "co_await", "co_yield", "requires");

}  // namespace

bool ShapeScan::isOpening(TokenIndex token) const {
    switch (kind(token)) {
        case Kind::OpenParen:
        case Kind::OpenBracket:
        case Kind::OpenBrace:
            return true;
        default:
            return false;
    }
}

TokenIndex ShapeScan::passAttributes(TokenIndex token) const {
    for (;;) {
        if (startsAttribute(token)) {
            token = behind(token);
        } else if (kind(token) == Kind::Identifier && bracketWords.contains(text(token)) &&
                   kind(next(token)) == Kind::OpenParen && text(token) != "decltype" &&
                   !text(token).starts_with("typeof") && !text(token).starts_with("__typeof")) {
            token = behind(next(token));
        } else {
            return token;
        }
    }
}

// ---- Statements

// A call that ends its line, with something behind it that can't go on with it, has no `;`: such is a macro's.
TokenIndex ShapeScan::statementEnd(TokenIndex first) const {
    const bool isCall = kind(first) == Kind::Identifier && kind(next(first)) == Kind::OpenParen;
    TokenIndex last = first;
    for (TokenIndex at = first;; at = next(last)) {
        const TokenKind here = kind(at);
        if (here == Kind::Semicolon) return at;
        if (isCloser(here)) return at == first ? first : last;
        last = isOpening(at) ? partner(at) : at;
        if (isCall && at == next(first) && startsLine(next(last)) &&
            (startsItem(next(last)) || startsSignedItem(first, next(last)))) {
            return last;
        }
    }
}

// Whether the sign behind a call, at the start of a line no deeper than that of the call, begins a statement: `++x`, or
// `*x = 1`, since a product is no place for a value.
bool ShapeScan::startsSignedItem(TokenIndex call, TokenIndex sign) const {
    const bool isStep = kind(sign) == Kind::PlusPlus || kind(sign) == Kind::MinusMinus;
    if (!isForRoles() || (!isStep && kind(sign) != Kind::Star)) return false;
    if (!startsLine(call) || lineColumn(sign) > lineColumn(call)) return false;
    TokenIndex at = sign;
    while (kind(at) == Kind::Star || kind(at) == Kind::PlusPlus || kind(at) == Kind::MinusMinus) at = next(at);
    if (kind(at) != Kind::Identifier && kind(at) != Kind::This && kind(at) != Kind::OpenParen) return false;
    if (isStep) return true;
    for (at = behind(at);; at = behind(at)) {
        switch (kind(at)) {
            case Kind::Dot:
            case Kind::Arrow:
            case Kind::Identifier:
            case Kind::OpenBracket:
            case Kind::OpenParen:
            case Kind::PlusPlus:
            case Kind::MinusMinus:
                continue;
            case Kind::Assign:
                return true;
            default:
                return kind(at) >= Kind::StarAssign && kind(at) <= Kind::PipeAssign;
        }
    }
}

// Whether the token, at the start of a line, can't go on with what stands in front of it.
bool ShapeScan::startsItem(TokenIndex token) const {
    const TokenKind here = kind(token);
    if (here == Kind::CloseBrace || here == Kind::EndOfInput || here == Kind::Tilde) return true;
    if (here == Kind::Identifier) return !isWord(token, "and") && !isWord(token, "or");
    return isItemKeyword(here) || here == Kind::StringLiteral ? here != Kind::StringLiteral : startsAttribute(token);
}

ItemShape ShapeScan::statement(TokenIndex first) const {
    ItemShape shape;
    shape.first = first;
    shape.sort = ItemShape::Sort::Statement;
    if (macros_ != nullptr && isNamedMacro(first, Frame::Block, shape)) return shape;
    const TokenIndex second = next(first);
    const bool isName = kind(first) == Kind::Identifier && !modernOperators.contains(text(first));
    if (isName && kind(second) == Kind::Identifier && startsLine(second) && isMacroCase(text(first))) {
        shape.sort = ItemShape::Sort::Macro;
        shape.last = first;
        return shape;
    }
    if (startsData(first)) return declaration(first, Frame::Block);
    // A macro in front of a block, with or without a bracket.
    if (isName && kind(second) == Kind::OpenBrace) {
        const TokenIndex inner = next(second);
        const TokenKind after = kind(next(partner(second)));
        const bool isValue = after == Kind::Semicolon && !brackets_->holdsSemicolon(second) && kind(inner) != Kind::If;
        const bool isTemporary = isForRoles() && (after == Kind::Dot || after == Kind::Arrow);
        if (!isValue && !isTemporary) {
            shape.sort = ItemShape::Sort::Head;
            shape.last = first;
            return shape;
        }
    }
    if (isName && kind(second) == Kind::OpenParen && kind(next(partner(second))) == Kind::OpenBrace) {
        shape.sort = ItemShape::Sort::Head;
        shape.last = partner(second);
        return shape;
    }
    if (isName && startsLoop(first)) {
        shape.sort = ItemShape::Sort::Loop;
        shape.last = partner(second);
        return shape;
    }
    if (const TokenIndex last = controlMacroEnd(first)) {
        shape.sort = ItemShape::Sort::Macro;
        shape.last = last;
        return shape;
    }
    shape.last = statementEnd(first);
    return shape;
}

// No expression goes on with one of these keywords. The `while` of a `do` has its `;` behind the condition. A call that
// ends its line is told apart by that.
TokenIndex ShapeScan::controlMacroEnd(TokenIndex first) const {
    if (!isForRoles() || kind(first) != Kind::Identifier || modernOperators.contains(text(first))) return 0;
    const bool isCall = kind(next(first)) == Kind::OpenParen;
    const TokenIndex last = isCall ? partner(next(first)) : first;
    const TokenIndex keyword = next(last);
    if (isCall && startsLine(keyword)) return 0;
    switch (kind(keyword)) {
        case Kind::For:
        case Kind::Do:
        case Kind::If:
        case Kind::Switch:
        case Kind::Try:
            return last;
        case Kind::While: {
            const TokenIndex open = next(keyword);
            return kind(open) == Kind::OpenParen && kind(next(partner(open))) != Kind::Semicolon ? last : 0;
        }
        default:
            return 0;
    }
}

// Whether the item begins with a macro whose name is known, and what it is then.
bool ShapeScan::isNamedMacro(TokenIndex first, Frame frame, ItemShape& shape) const {
    if (kind(first) != Kind::Identifier) return false;
    const MacroNames::Sort sort = macros_->sortOf(text(first));
    if (sort == MacroNames::Sort::None) return false;
    const bool hasBracket = kind(next(first)) == Kind::OpenParen;
    const TokenIndex last = hasBracket ? partner(next(first)) : first;
    const TokenIndex behindMacro = next(last);
    const bool hasSemicolon = kind(behindMacro) == Kind::Semicolon;
    if (sort == MacroNames::Sort::Loop) {
        // In front of a `;` it is an ordinary call.
        if (frame != Frame::Block || !hasBracket || hasSemicolon || isCloser(kind(behindMacro))) return false;
        shape.sort = ItemShape::Sort::Loop;
        shape.last = last;
        return true;
    }
    shape.sort = hasSemicolon && frame == Frame::Block ? ItemShape::Sort::Statement : ItemShape::Sort::Macro;
    shape.last = hasSemicolon ? behindMacro : last;
    return true;
}

// Whether a call that begins its line has a statement below it, set deeper.
bool ShapeScan::startsLoop(TokenIndex call) const {
    const TokenIndex open = next(call);
    if (kind(open) != Kind::OpenParen || !startsLine(call)) return false;
    const TokenIndex body = next(partner(open));
    return startsLine(body) && startsItem(body) && !isCloser(kind(body)) && lineColumn(body) > lineColumn(call) &&
           !holdsBrace(open, partner(open));
}

// Of a token that begins its line.
int ShapeScan::lineColumn(TokenIndex token) const {
    constexpr int tabSize = 8;
    const int size = buffer_->first(token).column - 1;
    if (source_.empty()) return size;
    int column = 0;
    for (const char c :
         source_.substr(buffer_->begin(token) - static_cast<std::size_t>(size), static_cast<std::size_t>(size))) {
        column += c == '\t' ? tabSize - column % tabSize : 1;
    }
    return column;
}

// Whether a statement of a block is a declaration: it begins with a keyword of these, or with a type that a name
// follows.
bool ShapeScan::startsData(TokenIndex first) const {
    TokenIndex at = passAttributes(first);
    const TokenKind begin = kind(at);
    if (isDeclarationKeyword(begin) || begin == Kind::Typename) return true;
    if (begin == Kind::Identifier && declarationWords.contains(text(at)) && !isWord(at, "static_assert") &&
        !isWord(at, "_Static_assert")) {
        return true;
    }
    if (isTypeKeyword(begin)) {
        // `int(x)` is a value and `int (*p)` none.
        return kind(next(at)) != Kind::OpenParen || startsDeclarator(next(at));
    }
    if (begin != Kind::Identifier || modernOperators.contains(text(at))) return false;

    // The name of a type, with template arguments and parts behind these.
    for (;;) {
        at = next(at);
        if (kind(at) == Kind::Less && partner(at) != 0 && !brackets_->holdsLogic(at)) {
            const TokenIndex close = partner(at);
            if (kind(next(close)) == Kind::Identifier && text(next(close)).starts_with("::")) {
                at = next(close);
                continue;
            }
            at = next(close);
        }
        break;
    }
    if (kind(at) == Kind::Const || kind(at) == Kind::Volatile) return true;
    if (kind(at) == Kind::Identifier) return !text(at).starts_with("::") && !startsAttribute(at);
    if (isTypeKeyword(kind(at))) return true;
    if (isForRoles() && isDeclarationKeyword(kind(at))) return !startsLine(at);  // behind a macro
    if (isForRoles() && startsPointerOfMacro(at)) return true;
    if (!isDeclaratorSign(kind(at)) || kind(at) == Kind::Caret) {
        // A structured binding has `auto`, a pointer to a function a bracket with a sign.
        return kind(at) == Kind::OpenParen && startsDeclarator(at) && kind(next(partner(at))) == Kind::OpenParen &&
               kind(next(at)) == Kind::Star && kind(previous(partner(at))) == Kind::Identifier &&
               kind(next(next(at))) == Kind::Identifier && next(next(next(at))) == partner(at);
    }
    const bool isLogic = kind(at) == Kind::AmpAmp;
    while (isDeclaratorSign(kind(at)) || kind(at) == Kind::Const || kind(at) == Kind::Volatile ||
           isWord(at, "restrict") || isWord(at, "__restrict") || isQualifierMacro(at)) {
        at = next(at);
    }
    if (kind(at) == Kind::OpenBracket) return isLogic;
    // `T *(*name)[2];`
    if (isForRoles() && kind(at) == Kind::OpenParen && !isLogic && startsDeclarator(at)) {
        const TokenIndex more = next(partner(at));
        const bool isMore = kind(more) == Kind::OpenBracket || kind(more) == Kind::OpenParen;
        const TokenKind end = isMore ? kind(next(partner(more))) : TokenKind{Kind::EndOfInput};
        return end == Kind::Semicolon || end == Kind::Assign;
    }
    if (kind(at) != Kind::Identifier) return false;
    switch (kind(next(at))) {
        case Kind::Assign:
            return true;
        case Kind::OpenParen:
            // No statement multiplies for nothing.
            return !isLogic && kind(next(partner(next(at)))) == Kind::Semicolon;
        case Kind::Semicolon:
        case Kind::Comma:
        case Kind::OpenBracket:
        case Kind::OpenBrace:
        case Kind::Colon:
            return !isLogic;
        default:
            return false;
    }
}

// Whether a word between a sign and a name stands for `restrict` or the like: `T* MY_RESTRICT name`.
bool ShapeScan::isQualifierMacro(TokenIndex word) const {
    return isForRoles() && kind(word) == Kind::Identifier && kind(next(word)) == Kind::Identifier &&
           isMacroCase(text(word));
}

// Whether a macro with its bracket is the type of a pointer, as in `TYPE(x) *name;`. No statement multiplies for nothing.
bool ShapeScan::startsPointerOfMacro(TokenIndex open) const {
    if (kind(open) != Kind::OpenParen) return false;
    TokenIndex at = next(partner(open));
    if (kind(at) != Kind::Star && kind(at) != Kind::Amp) return false;
    while (kind(at) == Kind::Star || kind(at) == Kind::Amp || kind(at) == Kind::Const || isQualifierMacro(at)) {
        at = next(at);
    }
    if (kind(at) != Kind::Identifier) return false;
    return kind(next(at)) == Kind::Assign || kind(next(at)) == Kind::Semicolon;
}

// ---- Labels

TokenIndex ShapeScan::labelColon(TokenIndex first) const {
    int questions = 0;
    for (TokenIndex at = first;; at = behind(at)) {
        const TokenKind here = kind(at);
        if (here == Kind::Question) ++questions;
        if (here == Kind::Colon && questions-- == 0) return at;
        if (here == Kind::Semicolon || isCloser(here)) return 0;
    }
}

bool ShapeScan::startsAccessLabel(TokenIndex first) const {
    TokenIndex colon = next(first);
    const bool isKeyword = isAccessKeyword(kind(first));
    if (!isKeyword && kind(first) != Kind::Identifier) return false;
    if (isKeyword && kind(colon) == Kind::Identifier) colon = next(colon);
    if (kind(colon) != Kind::Colon) return false;
    if (isKeyword) return true;
    // A bit-field without a name has its width behind the colon, and a `;` behind that.
    const TokenIndex behindColon = next(colon);
    return startsLine(behindColon) || (kind(behindColon) != Kind::Number && kind(next(behindColon)) != Kind::Semicolon);
}

bool ShapeScan::startsGotoLabel(TokenIndex first) const {
    return kind(first) == Kind::Identifier && kind(next(first)) == Kind::Colon;
}

// ---- Requires clauses and bodies

TokenIndex ShapeScan::requiresClauseEnd(TokenIndex first) const {
    TokenIndex at = next(first);
    for (;;) {
        while (kind(at) == Kind::Not) at = next(at);
        // No condition follows, so what is behind doesn't belong to the clause.
        if (kind(at) == Kind::OpenBrace || kind(at) == Kind::Semicolon || isCloser(kind(at))) return previous(at);
        TokenIndex last = at;
        if (isWord(at, "requires")) {
            at = next(at);
            if (kind(at) == Kind::OpenParen) at = behind(at);
            last = kind(at) == Kind::OpenBrace ? partner(at) : previous(at);
        } else if (kind(at) == Kind::OpenParen) {
            last = partner(at);
        } else {
            // A name with template arguments.
            for (;;) {
                last = at;
                if (kind(next(last)) == Kind::Less && partner(next(last)) != 0) last = partner(next(last));
                const TokenIndex more = next(last);
                if (kind(more) != Kind::Identifier || !text(more).starts_with("::")) break;
                at = more;
            }
        }
        at = next(last);
        if (kind(at) != Kind::AmpAmp && kind(at) != Kind::PipePipe) return last;
        at = next(at);
    }
}

bool ShapeScan::isBody(TokenIndex brace) const { return brackets_->holdsSemicolon(brace) || isLambdaBody(brace); }

// Goes back from the brace over what may stand between it and the `]` of a lambda.
bool ShapeScan::isLambdaBody(TokenIndex brace) const {
    constexpr int longest = 40;
    TokenIndex at = previous(brace);
    for (int i = 0; i < longest && at > 0; ++i) {
        switch (kind(at)) {
            case Kind::CloseBracket: {
                const TokenIndex open = partner(at);
                if (startsAttribute(open)) {
                    at = previous(open);
                    continue;
                }
                const TokenKind before = kind(previous(open));
                const bool isSign = before == Kind::Amp || before == Kind::AmpAmp;
                if (isSign && kind(previous(previous(open))) == Kind::Auto) return false;  // a structured binding
                return !endsOperand(before) || modernOperators.contains(text(previous(open)));
            }
            case Kind::CloseParen:
            case Kind::Greater:
            case Kind::ShiftRight:
                if (partner(at) == 0) return false;
                at = previous(partner(at));
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
            case Kind::Auto:
            case Kind::Throw:
                at = previous(at);
                continue;
            default:
                if (!isTypeKeyword(kind(at))) return false;
                at = previous(at);
        }
    }
    return false;
}

// Behind the one that it begins with.
bool ShapeScan::holdsDirectives(TokenIndex branch) const {
    const std::string_view lines = text(branch);
    for (std::size_t end = lines.find('\n'); end != std::string_view::npos; end = lines.find('\n', end + 1)) {
        const std::size_t begin = lines.find_first_not_of(" \t", end + 1);
        if (begin != std::string_view::npos && lines[begin] == '#') return true;
    }
    return false;
}

// What `#if 0` holds need not be code.
bool ShapeScan::holdsNoCode(TokenIndex first, TokenIndex last) const {
    for (TokenIndex at = first; at <= last; ++at) {
        if (!isDeadBranch(at)) continue;
        std::string line;
        for (const char c : text(at).substr(0, text(at).find('\n'))) {
            if (c != ' ' && c != '\t') line += c;
        }
        if (line.starts_with("#if0")) return true;
    }
    return false;
}

bool ShapeScan::holdsBody(TokenIndex first, TokenIndex last) const {
    for (TokenIndex at = first; at <= last; ++at) {
        if (kind(at) == Kind::OpenBrace && isBody(at)) return true;
    }
    return false;
}

bool ShapeScan::holdsBrace(TokenIndex first, TokenIndex last) const {
    for (TokenIndex at = first; at <= last; ++at) {
        if (kind(at) == Kind::OpenBrace) return true;
    }
    return false;
}

}  // namespace Cpp
