// Finds the lines that are too long.
#pragma once

#include <vector>

#include "first/text/Brevis_TextStreams.h"

namespace Brevis {

// The lines, counted from 1 for the line the cursor stands on, whose width is above `limit`. Reads to the end.
std::vector<int> overlongLines(ITextDocStream& in, int limit);

}  // namespace Brevis
