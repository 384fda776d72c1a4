// The phases of a run as its user sees them, the same in every edition.
#pragma once

#include "Trn_ParseMessage.h"
#include "run/Brevis_FormatResult.h"

namespace Brevis {

// Patterns for the update functor.
inline constexpr const char* analyzingPhase = "Analyzing file:\n%s";
inline constexpr const char* formattingPhase = "Formatting file:\n%s";

// The end of a run whose update functor said stop; appends the message that tells it.
FormatResult cancelledRun(Trn::ParseMessageList& messages);

}  // namespace Brevis
