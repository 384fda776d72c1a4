// The reading of a scheme file with words for what is wrong with it.
#pragma once

#include <string>

#include "Trn_ParseMessage.h"
#include "scheme/Brevis_PropertySet.h"

namespace Brevis {

// Reads `text` into an empty `scheme`. Gives false for a text that is no scheme, with one message of severity 3; one
// of severity 2 tells of a property that was left out. Each has its line.
bool readSchemeText(const std::string& text, PropertySet& scheme, Trn::ParseMessageList& messages);

}  // namespace Brevis
