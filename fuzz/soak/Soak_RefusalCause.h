// Names the cause of a refusal, so that refusals can be counted: what the message says and, as far as it can be told
// from the statement that it points at, the construct that the grammar doesn't know.
#pragma once

#include <string>
#include <string_view>

#include "Trn_ParseMessage.h"

namespace Soak {

// The message without numbers and without what it quotes of the text.
std::string messagePattern(std::string_view message);

// `text` has line feeds for line ends and is the one that the message is about.
std::string refusalCause(std::string_view text, const Trn::ParseMessage& message);

}  // namespace Soak
