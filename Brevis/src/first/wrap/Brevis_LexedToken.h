// A token of a text that is being wrapped, its place as byte offsets.
#pragma once

#include <cstddef>

#include "Trn_TokenKind.h"

namespace Brevis {

struct LexedToken {
    Trn::TokenKind kind = Trn::Kind::EndOfInput;
    std::size_t begin = 0;  // offset of its first character
    std::size_t end = 0;    // offset behind its last character
};

}  // namespace Brevis
