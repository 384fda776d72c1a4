// Whether two tokens would become others if nothing stood between them.
#pragma once

#include <string_view>

#include "guard/Brevis_SeamToken.h"

namespace Brevis {

// `first` and `second` follow each other in `text`. Where dialects differ the answer is yes: a blank does no harm. Nor
// does one between a sign and a literal that has a backslash near its front, if `partsLiterals`.
bool wouldJoin(std::string_view text, const SeamToken& first, const SeamToken& second, bool partsLiterals);

}  // namespace Brevis
