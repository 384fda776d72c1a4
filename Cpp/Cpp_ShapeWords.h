// The words that the shapes of the modern dialect know, beside the keywords of the lexer.
#pragma once

#include <algorithm>
#include <span>
#include <string_view>

#include "Trn_TokenKind.h"

namespace Cpp {

// With a bracket behind them these belong to a type or a declaration and open no parameters.
inline constexpr std::string_view bracketWords[] = {"__attribute__", "__attribute", "__declspec", "_declspec",
                                                    "alignas",       "_Alignas",    "decltype",   "typeof",
                                                    "__typeof__",    "__typeof",    "__decltype", "typeof_unqual",
                                                    "_Atomic",       "_BitInt",     "noexcept",   "__underlying_type"};

// Words that begin a declaration and are no types.
inline constexpr std::string_view declarationWords[] = {
    "constexpr",    "consteval",  "constinit",      "thread_local",     "_Thread_local", "__thread",   "__extension__",
    "_Noreturn",    "__inline",   "__inline__",     "__forceinline",    "restrict",      "__restrict", "__const",
    "__volatile__", "__signed__", "_Static_assert", "static_assert",    "alignas",       "_Alignas",   "decltype",
    "typeof",       "__typeof__", "__typeof",       "_Atomic",          "_Complex",      "char8_t",    "char16_t",
    "char32_t",     "_Bool",      "__int128",       "__builtin_va_list"};

constexpr bool isOneOf(std::span<const std::string_view> words, std::string_view word) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

// Keywords that may stand in front of a declarator and cannot begin an expression.
constexpr bool isDeclarationKeyword(Trn::TokenKind kind) {
    namespace Kind = Trn::Kind;
    switch (kind) {
        case Kind::Class:
        case Kind::Struct:
        case Kind::Union:
        case Kind::Enum:
        case Kind::Virtual:
        case Kind::Const:
        case Kind::Mutable:
        case Kind::Volatile:
        case Kind::Static:
        case Kind::Inline:
        case Kind::Explicit:
        case Kind::Auto:
        case Kind::Register:
        case Kind::Friend:
        case Kind::Typedef:
        case Kind::Extern:
            return true;
        default:
            return false;
    }
}

// The built-in types, with and without signs.
constexpr bool isTypeKeyword(Trn::TokenKind kind) {
    return (kind >= Trn::Kind::Char && kind <= Trn::Kind::Void) || kind == Trn::Kind::Signed ||
           kind == Trn::Kind::Unsigned;
}

// Keywords in front of which an item has ended, with or without a `;`.
constexpr bool isItemKeyword(Trn::TokenKind kind) {
    namespace Kind = Trn::Kind;
    return isDeclarationKeyword(kind) || isTypeKeyword(kind) || kind == Kind::Namespace || kind == Kind::Using ||
           kind == Kind::Template || kind == Kind::Public || kind == Kind::Private || kind == Kind::Protected ||
           (kind >= Kind::If && kind <= Kind::Return);
}

// What ends the bracket around an item, or the text.
constexpr bool isCloser(Trn::TokenKind kind) {
    namespace Kind = Trn::Kind;
    return kind == Kind::CloseParen || kind == Kind::CloseBracket || kind == Kind::CloseBrace ||
           kind == Kind::EndOfInput;
}

// Whether a word is written as macros are: no small letters.
constexpr bool isMacroCase(std::string_view word) {
    return word.size() > 1 && std::none_of(word.begin(), word.end(),
                                           [](char c) { return (c >= 'a' && c <= 'z') || c == ':' || c == '~'; });
}

// Signs in front of a declarator's name.
constexpr bool isDeclaratorSign(Trn::TokenKind kind) {
    return kind == Trn::Kind::Star || kind == Trn::Kind::Amp || kind == Trn::Kind::AmpAmp || kind == Trn::Kind::Caret;
}

}  // namespace Cpp
