// Compares two texts token by token, as a compiler of today would cut them. It knows nothing of how one of them was
// made from the other.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "Trn_Position.h"

namespace Brevis {

// The first place at which two texts differ. Lines and columns count from 1; columns are bytes.
struct TokenDifference {
    Trn::Position place;  // in the first text, of the token or of the end of the text
    std::string before;   // the token of the first text, cut if it is long; empty at the end of the text
    std::string after;    // that of the second text
};

// Tokens are equal if their bytes are, where they belong to a directive or not, and whether a `(` makes a macro
// function-like; comments if they are without white space. Both texts have line feeds for line ends.
std::optional<TokenDifference> findTokenDifference(std::string_view text, std::string_view other);

}  // namespace Brevis
