// A run of corvane-infer: reads the files, lets the search go over them, writes the scheme and the report.
#pragma once

#include "Console_InferOptions.h"
#include "Console_StandardStreams.h"

namespace Console {

// Gives the exit status.
int inferScheme(const InferOptions& options, StandardOutput& output);

}  // namespace Console
