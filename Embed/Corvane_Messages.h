// From the messages of the engine to those of the public headers.
#pragma once

#include <corvane/messages.h>

#include "Trn_ParseMessage.h"

namespace corvane {

Messages publicMessages(const Trn::ParseMessageList& messages);

}  // namespace corvane
