// The words that the shapes of the modern dialect know, beside the keywords of the lexer.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <string_view>

#include "Trn_TokenKind.h"

namespace Cpp {

// A few words. Most others are told from them by their first letter or their length.
template <std::size_t count>
class WordSet {
public:
    template <typename... Words>
    consteval explicit WordSet(Words... words) : words_{words...} {
        for (const std::string_view word : words_) {
            letters_ |= bitOf(static_cast<unsigned char>(word.front()));
            lengths_ |= bitOf(word.size());
        }
    }

    constexpr bool contains(std::string_view word) const {
        if (word.empty() || (letters_ & bitOf(static_cast<unsigned char>(word.front()))) == 0) return false;
        if ((lengths_ & bitOf(word.size())) == 0) return false;
        return std::find(words_.begin(), words_.end(), word) != words_.end();
    }

private:
    static constexpr std::uint64_t bitOf(std::size_t number) { return std::uint64_t{1} << (number % 64); }

    std::array<std::string_view, count> words_;
    std::uint64_t letters_ = 0, lengths_ = 0;
};
template <typename... Words>
WordSet(Words...) -> WordSet<sizeof...(Words)>;

// With a bracket behind them these belong to a type or a declaration and open no parameters.
inline constexpr WordSet bracketWords("__attribute__", "__attribute", "__declspec", "_declspec",
                                      "alignas",       "_Alignas",                  "decltype",   "typeof",
                                      "__typeof__",    "__typeof",                  "__decltype", "typeof_unqual",
                                      "_Atomic",       "_BitInt",                   "noexcept",   "__underlying_type");

// Words that begin a declaration and are no types.
inline constexpr WordSet declarationWords("constexpr", "consteval", "constinit", "thread_local", "_Thread_local",
                                          "__thread", "__extension__",
                                          "_Noreturn", "__inline", "__inline__", "__forceinline", "restrict",
                                          "__restrict", "__const",
                                          "__volatile__", "__signed__", "_Static_assert", "static_assert", "alignas",
                                          "_Alignas", "decltype",
                                          "typeof", "__typeof__", "__typeof", "_Atomic", "_Complex", "char8_t",
                                          "char16_t",
                                          "char32_t", "_Bool", "__int128", "__builtin_va_list");

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
