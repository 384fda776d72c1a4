// The choice between the branches of a conditional directive that don't balance on their own.
#pragma once

#include "Trn_TokenBuffer.h"

namespace Cpp {

// Where the branches of an `#if` can't all count at once, since one of them leaves a bracket open, closes one of those
// around it or ends in the middle of an item, the first branch counts. The others, from the `#elif` or `#else` through
// the `#endif`, become one directive each. So does a whole `#if 0`. One pass.
void chooseBranches(Trn::TokenBuffer& buffer);

}  // namespace Cpp
