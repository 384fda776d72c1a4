// One operation a rule.
#include "second/Brevis_CommentRules.h"

namespace Brevis {

void CommentRules::run() {}

}  // namespace Brevis
