// The identifiers that the parser knows, and the sets of keywords that several of its operations share.
#pragma once

#include <algorithm>
#include <string_view>

#include "Trn_TokenKind.h"

namespace Cpp {

// With a bracketed argument, part of a declaration's specifiers.
inline constexpr std::string_view declSpecWords[] = {"__based", "_based", "__assume", "__declspec"};

// The words that open an inline assembler statement.
inline constexpr std::string_view asmWords[] = {"asm", "_asm", "__asm", "asm_", "asm__", "_asm_", "__asm__", "___asm"};

inline bool isDeclSpecWord(std::string_view word) {
    return std::find(std::begin(declSpecWords), std::end(declSpecWords), word) != std::end(declSpecWords);
}

inline bool isAsmWord(std::string_view word) {
    return std::find(std::begin(asmWords), std::end(asmWords), word) != std::end(asmWords);
}

constexpr bool isAccessKeyword(Trn::TokenKind kind) {
    return kind >= Trn::Kind::Public && kind <= Trn::Kind::Protected;
}

// The kind of a word that stands as an access label.
inline constexpr int wordAccessKind = 4;

constexpr int accessKindOf(Trn::TokenKind kind) {
    namespace Kind = Trn::Kind;
    switch (kind) {
        case Kind::Public:
            return 1;
        case Kind::Protected:
            return 2;
        case Kind::Private:
            return 3;
        default:
            return 0;
    }
}

// `if`, `else`, `for`, `do`, `while`, `try`, `catch` and `switch`.
constexpr bool isControlKeyword(Trn::TokenKind kind) { return kind >= Trn::Kind::If && kind <= Trn::Kind::Switch; }

// The same with `case` and `default`.
constexpr bool isStatementKeyword(Trn::TokenKind kind) { return kind >= Trn::Kind::If && kind <= Trn::Kind::Default; }

// The built-in types that are one word without a sign.
constexpr bool isBuiltInType(Trn::TokenKind kind) { return kind >= Trn::Kind::Char && kind <= Trn::Kind::Void; }

// The symbols that, in front of the bracket of the parameters, name an overloaded operator.
constexpr bool isOverloadableSymbol(Trn::TokenKind kind) {
    namespace Kind = Trn::Kind;
    switch (kind) {
        case Kind::Dot:
        case Kind::DotStar:
        case Kind::Greater:
            return false;
        case Kind::Comma:
        case Kind::New:
        case Kind::Delete:
            return true;
        default:
            return kind == Kind::Assign || kind == Kind::Star || kind == Kind::Amp ||
                   (kind >= Kind::Slash && kind <= Kind::ArrowStar);
    }
}

// What shows that the bracket of a condition has been lost.
constexpr bool isLostParenLandmark(Trn::TokenKind kind) {
    namespace Kind = Trn::Kind;
    return kind == Kind::EndOfInput || kind == Kind::OpenBrace || kind == Kind::CloseBrace || kind == Kind::Namespace ||
           (kind >= Kind::If && kind <= Kind::Return);
}

constexpr bool isCvQualifier(Trn::TokenKind kind) { return kind == Trn::Kind::Const || kind == Trn::Kind::Volatile; }

}  // namespace Cpp
