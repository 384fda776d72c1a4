// What the reports of a parser mean to a run.
#pragma once

#include "Trn_ParseMessage.h"

namespace Brevis {

// Takes out of `reports` what is a mere remark on a usable tree. Gives whether the text can be formatted with what is
// left: nothing, or, unless the run is strict, warnings of parts that stay as they stand.
bool settleReports(Trn::ParseMessageList& reports, bool isStrict);

}  // namespace Brevis
