// Lexes a text that has been cut out of a source, for whoever works on it by offsets.
#pragma once

#include <cstdint>
#include <string_view>

#include "Cpp_Lexer.h"
#include "first/text/Brevis_LeafDialect.h"
#include "first/text/Brevis_OffsetFinder.h"

namespace Brevis {

struct LeafToken {
    Trn::TokenKind kind = Trn::Kind::EndOfInput;
    std::uint32_t begin = 0;  // offset of the first character
    std::uint32_t end = 0;    // offset behind the last character
};

class LeafLexer {
public:
    // `text` must outlive the lexer.
    explicit LeafLexer(std::string_view text, LeafDialect dialect = {})
        : lexer_(text, dialect.dialect, dialect.language), offsetOf_(text) {}

    // The next token. Behind the last one comes an end token, whose offsets say nothing.
    LeafToken next() {
        const Trn::Token token = lexer_.next();
        if (token.kind() == Trn::Kind::EndOfInput) return {};
        // A first position stands behind the first character.
        const std::size_t begin = offsetOf_(token.first()) - 1;
        return {token.kind(), static_cast<std::uint32_t>(begin), static_cast<std::uint32_t>(offsetOf_(token.last()))};
    }

private:
    Cpp::Lexer lexer_;
    OffsetFinder offsetOf_;
};

}  // namespace Brevis
