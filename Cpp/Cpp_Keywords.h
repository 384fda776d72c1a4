// The keywords of the lexer, found by a hash table that the compiler fills.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "Trn_TokenKind.h"

namespace Cpp {

struct Keyword {
    std::string_view text;
    Trn::TokenKind kind;
};

inline constexpr Keyword keywords[] = {
    {"class", Trn::Kind::Class},
    {"struct", Trn::Kind::Struct},
    {"public", Trn::Kind::Public},
    {"private", Trn::Kind::Private},
    {"protected", Trn::Kind::Protected},
    {"virtual", Trn::Kind::Virtual},
    {"namespace", Trn::Kind::Namespace},
    {"using", Trn::Kind::Using},
    {"const", Trn::Kind::Const},
    {"mutable", Trn::Kind::Mutable},
    {"volatile", Trn::Kind::Volatile},
    {"static", Trn::Kind::Static},
    {"inline", Trn::Kind::Inline},
    {"explicit", Trn::Kind::Explicit},
    {"signed", Trn::Kind::Signed},
    {"unsigned", Trn::Kind::Unsigned},
    {"auto", Trn::Kind::Auto},
    {"register", Trn::Kind::Register},
    {"friend", Trn::Kind::Friend},
    {"typedef", Trn::Kind::Typedef},
    {"typename", Trn::Kind::Typename},
    {"enum", Trn::Kind::Enum},
    {"union", Trn::Kind::Union},
    {"static_cast", Trn::Kind::StaticCast},
    {"dynamic_cast", Trn::Kind::DynamicCast},
    {"const_cast", Trn::Kind::ConstCast},
    {"reinterpret_cast", Trn::Kind::ReinterpretCast},
    {"template", Trn::Kind::Template},
    {"operator", Trn::Kind::Operator},
    {"asm", Trn::Kind::Asm},
    {"new", Trn::Kind::New},
    {"delete", Trn::Kind::Delete},
    {"throw", Trn::Kind::Throw},
    {"sizeof", Trn::Kind::Sizeof},
    {"typeid", Trn::Kind::Typeid},
    {"this", Trn::Kind::This},
    {"export", Trn::Kind::Export},
    {"extern", Trn::Kind::Extern},
    {"true", Trn::Kind::True},
    {"false", Trn::Kind::False},
    {"if", Trn::Kind::If},
    {"else", Trn::Kind::Else},
    {"for", Trn::Kind::For},
    {"do", Trn::Kind::Do},
    {"while", Trn::Kind::While},
    {"try", Trn::Kind::Try},
    {"catch", Trn::Kind::Catch},
    {"switch", Trn::Kind::Switch},
    {"case", Trn::Kind::Case},
    {"default", Trn::Kind::Default},
    {"continue", Trn::Kind::Continue},
    {"break", Trn::Kind::Break},
    {"goto", Trn::Kind::Goto},
    {"return", Trn::Kind::Return},
    {"char", Trn::Kind::Char},
    {"wchar_t", Trn::Kind::WcharT},
    {"bool", Trn::Kind::Bool},
    {"short", Trn::Kind::Short},
    {"int", Trn::Kind::Int},
    {"long", Trn::Kind::Long},
    {"float", Trn::Kind::Float},
    {"double", Trn::Kind::Double},
    {"void", Trn::Kind::Void},
};

// A hash table with open addressing. No slot of it is more than a few steps from its hash.
class KeywordTable {
public:
    constexpr KeywordTable() {
        for (std::size_t i = 0; i < std::size(keywords); ++i) {
            std::size_t slot = hash(keywords[i].text);
            while (slots_[slot] != 0) slot = (slot + 1) % slotCount;
            slots_[slot] = static_cast<std::uint8_t>(i + 1);
        }
    }

    // The keyword's number, or that of an identifier for any other text.
    constexpr Trn::TokenKind kindOf(std::string_view text) const {
        constexpr std::size_t shortest = 2, longest = 16;
        if (text.size() < shortest || text.size() > longest) return Trn::Kind::Identifier;
        for (std::size_t slot = hash(text); slots_[slot] != 0; slot = (slot + 1) % slotCount) {
            const Keyword& keyword = keywords[slots_[slot] - 1];
            if (keyword.text == text) return keyword.kind;
        }
        return Trn::Kind::Identifier;
    }

private:
    static constexpr std::size_t slotCount = 512;

    static constexpr std::size_t hash(std::string_view text) {
        const auto byte = [&](std::size_t i) { return static_cast<std::size_t>(static_cast<unsigned char>(text[i])); };
        return (byte(0) * 37 + byte(1) * 5 + byte(text.size() - 1) * 11 + text.size()) % slotCount;
    }

    std::array<std::uint8_t, slotCount> slots_{};
};

inline constexpr KeywordTable keywordTable;

}  // namespace Cpp
