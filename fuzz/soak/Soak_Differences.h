// Tells in which ways two texts differ that are equal but for white space.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace Soak {

// One description for each kind of change, without repetition and in the order of the text: what happened to the gap
// and between which characters it stands.
std::vector<std::string> gapDifferences(std::string_view before, std::string_view after);

}  // namespace Soak
