// corvane-format --upgrade-scheme: a scheme of the first edition of the rules becomes one of the second.
#pragma once

#include <string>

#include "Console_StandardStreams.h"

namespace Console {

// Writes the scheme that comes nearest to the one with this path or name, and tells on standard error what will differ.
// Gives the exit status.
int upgradeScheme(const std::string& pathOrName, StandardOutput& output);

}  // namespace Console
