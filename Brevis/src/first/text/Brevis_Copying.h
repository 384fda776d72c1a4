// Moving through the input and copying from it. "Through" reads while the cursor is below the position; "before" then
// puts the last character back when the cursor stands on the position. The views are of the cursor's own text.
#pragma once

#include <string_view>

#include "first/text/Brevis_TextStreams.h"

namespace Brevis {

std::string_view readThrough(ITextDocStream& in, Position position);
std::string_view readBefore(ITextDocStream& in, Position position);
// These write what was read if the read did not fail, and tell whether it did.
bool copyThrough(ITextDocStream& in, OIndentStream& out, Position position);
bool copyBefore(ITextDocStream& in, OIndentStream& out, Position position);
bool copyThroughRaw(ITextDocStream& in, OIndentStream& out, Position position);
bool copyBeforeRaw(ITextDocStream& in, OIndentStream& out, Position position);
// Character for character: no indent added, no white space dropped.
void writeRaw(OIndentStream& out, std::string_view text);
bool skipThrough(ITextDocStream& in, Position position);
bool skipBefore(ITextDocStream& in, Position position);
std::string_view remainderOf(ITextDocStream& in);

}  // namespace Brevis
