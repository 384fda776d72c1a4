// All rules in their order: after this every gap is decided, but for what alignment and wrapping change.
#pragma once

#include "scheme/Brevis_FormatterProperties.h"
#include "second/Brevis_GapTable.h"

namespace Brevis {

void decideGaps(const GapText& text, const FormatterProperties& properties, GapTable& gaps);

}  // namespace Brevis
