// Makes manual pages and completions of shells from the tables of the programs.
#pragma once

#include <string>

#include "Console_OptionTable.h"

namespace Console {

// In the macros of man(7).
std::string manualPage(const ProgramManual& manual, std::string_view version);

std::string bashCompletion(const ProgramManual& manual);
std::string zshCompletion(const ProgramManual& manual);
std::string fishCompletion(const ProgramManual& manual);

}  // namespace Console
