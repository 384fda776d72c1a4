// corvane-format --explain: one file, nothing formatted or written.
#pragma once

#include "Console_FormatOptions.h"
#include "Console_StandardStreams.h"

namespace Console {

// Gives the exit status.
int explainFile(const FormatOptions& options, StandardOutput& output);

}  // namespace Console
