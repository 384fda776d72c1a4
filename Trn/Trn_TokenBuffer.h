// All tokens of one text, read once. Any number of token streams look at it; nothing changes it any more.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "Trn_Lexer.h"
#include "Trn_Token.h"

namespace Trn {

class TokenBuffer {
public:
    // Reads the lexer to its end, and two end tokens: the first stands where its reading began, which is in front
    // of trailing white space; all later ones stand at the very end.
    explicit TokenBuffer(Lexer& lexer);

    // The token with this index; beyond the last real token the end tokens.
    const Token& at(std::size_t index) const { return index < tokens_.size() ? tokens_[index] : tokens_.back(); }

    // The index of the token that closes the `{` with this index, or of the defective literal or end token that
    // comes first. Braces are counted wherever they stand, in dead regions too.
    std::size_t braceEnd(std::size_t index) const;

private:
    void findBraceEnds() const;

    std::vector<Token> tokens_;
    // By index of the `{`; filled at the first question, since many texts never ask.
    mutable std::vector<std::uint32_t> braceEnds_;
};

}  // namespace Trn
