// The text of a scheme file with all that there is to say about it, in words for a user.
#pragma once

#include <string>

#include "Trn_ParseMessage.h"
#include "scheme/Brevis_PropertySet.h"

namespace Brevis {

// Reads `text` into an empty `scheme`. Gives false for a text that is no scheme, with one message of severity 3; a
// warning tells of a property that was left out, and information of a key that nobody knows, which has no line.
bool readSchemeText(const std::string& text, PropertySet& scheme, Trn::ParseMessageList& messages);

}  // namespace Brevis
