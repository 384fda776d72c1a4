// Runs of corvane-format that format nothing: taking the last run back, and looking after what a crash has left.
#pragma once

#include <string>
#include <vector>

#include "Console_StandardStreams.h"

namespace Console {

// Both tell what they do on `output`, and what fails on standard error, and give the exit status.
int undoLastRun(StandardOutput& output);
// Looks beside these files, in those that are directories, and in the current directory if there are none.
int recoverFiles(const std::vector<std::string>& files, StandardOutput& output);

}  // namespace Console
