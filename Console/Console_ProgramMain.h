// What the programs have in common from their start to their end.
#pragma once

#include <functional>
#include <string>

#include "Console_StandardStreams.h"

namespace Console {

// A complaint of a program, with its name in front.
void complainOf(std::string_view program, const std::string& complaint);
// The same, and where to find help.
void complainOfArguments(std::string_view program, const std::string& complaint);

// Runs a program and gives its exit status: that of `run`, or `trouble` if more went wrong than it knows: its output
// could not be written, or something threw that nobody could be blamed for.
int runProgram(std::string_view program, int trouble, const std::function<int(StandardOutput&)>& run);

}  // namespace Console
