// When output is coloured, and the colours of messages.
#pragma once

#include <string>

#include "Console_FormatOptions.h"

namespace Console {

// Whether what is written to a stream, given by its number, gets colours. Under Auto it must be a terminal that knows
// some, and NO_COLOR must be unset or empty.
bool wantsColours(ColourUse use, int stream);

// A message with its severity in colour: the word for it, or all of a message without such a word.
std::string colouredMessage(const std::string& text, int severity);

}  // namespace Console
