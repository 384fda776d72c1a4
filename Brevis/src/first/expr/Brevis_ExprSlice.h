// A stretch of a lexed text between two token borders. It owns nothing.
#pragma once

#include <cstdint>
#include <string_view>

#include "first/expr/Brevis_ExprTokens.h"

namespace Brevis {

struct ExprSlice {
    ExprTokens* tokens;
    std::uint32_t firstToken;
    std::uint32_t endToken;  // the index behind the last token
    std::uint32_t begin;     // the offsets of its text
    std::uint32_t end;

    std::string_view text() const { return tokens->text().substr(begin, end - begin); }
    bool isEmpty() const { return begin == end; }
    // True if it is made of tokens and white space alone: see ExprTokens.
    bool isPlain() const { return tokens->arePlain(firstToken, endToken); }
};

}  // namespace Brevis
