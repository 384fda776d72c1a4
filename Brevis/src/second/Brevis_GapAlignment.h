// Tokens of several lines that share a column: the stage between the rules of the constructs and the writer.
#pragma once

#include <optional>
#include <string>

#include "second/Brevis_GapTable.h"

namespace Brevis {

// Does what the keys of alignment ask for, with the places that the decisions so far give to the tokens. Nothing is
// done for a key that is unset. Gives the text as the writer would write it, if finding the columns has shown that.
std::optional<std::string> alignGaps(const GapText& text, const Scheme& scheme, GapTable& gaps);

}  // namespace Brevis
