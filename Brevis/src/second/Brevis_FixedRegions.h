// The regions that comments mark as not to be formatted.
#pragma once

#include "scheme/Brevis_FormatterProperties.h"
#include "second/Brevis_GapTable.h"

namespace Brevis {

// Fixes every gap of such a region, from its opening comment through its closing one.
void fixRegions(const GapText& text, const RegionTable& regions, GapTable& gaps);

}  // namespace Brevis
