// Rules that come later see what earlier ones have decided, and may decide otherwise.
#include "second/Brevis_GapRules.h"

#include "second/Brevis_CommentRules.h"
#include "second/Brevis_ContinuationColumns.h"
#include "second/Brevis_FixedRegions.h"
#include "second/Brevis_ItemWalk.h"
#include "second/Brevis_SpacingRules.h"

namespace Brevis {

void decideGaps(const GapText& text, const FormatterProperties& properties, GapTable& gaps) {
    fixRegions(text, properties.regions, gaps);
    SpacingRules(text, properties.scheme, gaps).run();
    ItemWalk(text, properties.scheme, gaps).run();
    if (ContinuationColumns::isWanted(properties.scheme)) ContinuationColumns(text, properties.scheme, gaps).run();
    CommentRules(text, properties.scheme, gaps).run();
}

}  // namespace Brevis
