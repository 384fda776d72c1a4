// The message of a cancelled run.
#include "run/Brevis_RunPhases.h"

namespace Brevis {

FormatResult cancelledRun(Trn::ParseMessageList& messages) {
    messages.push_back({1, {}, 0, "Formatting cancelled at user's request."});
    return {FormatOutcome::Cancelled, {}, 0};
}

}  // namespace Brevis
