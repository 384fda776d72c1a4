// Tokens of several lines that share a column: the stage between the rules of the constructs and the writer.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

// Does what the keys of alignment ask for, with the places that the decisions so far give to the tokens. Nothing is
// done for a key that is unset.
void alignGaps(const GapText& text, const Scheme& scheme, GapTable& gaps);

}  // namespace Brevis
