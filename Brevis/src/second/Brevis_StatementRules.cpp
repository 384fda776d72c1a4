// One operation a sort of item.
#include "second/Brevis_StatementRules.h"

namespace Brevis {

void StatementRules::item(const Cpp::OutlineItem&) {}

}  // namespace Brevis
