// The regions that comments mark as not to be formatted.
#pragma once

#include "scheme/Brevis_FormatterProperties.h"
#include "second/Brevis_GapTable.h"

namespace Brevis {

// Fixes every gap of such a region, from that in front of its opening comment through that in front of its closing one.
// A region that is never closed is no region, but one that another formatter is told to leave alone goes on to the end.
// Objective-C is such a region too, from `@interface` to `@end`.
void fixRegions(const GapText& text, const RegionTable& regions, GapTable& gaps);

}  // namespace Brevis
