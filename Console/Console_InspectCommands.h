// The commands of corvane-inspect. Each reads what it needs, writes a text and says what it can't do to standard error.
#pragma once

#include <string>

#include "scheme/Brevis_FormatterProperties.h"

namespace Console {

struct InspectOptions {
    std::string file;    // empty if not given; "-" is standard input
    std::string scheme;  // the path of a scheme file, empty if not given
    bool preformat = false;
    bool roles = false;
    Brevis::Reading reading;
};

inline constexpr const char* inspectProgram = "corvane-inspect";
inline constexpr int inspectGood = 0;
inline constexpr int inspectTrouble = 2;

// A complaint goes to standard error behind the name of the program.
void complainOfInspect(const std::string& complaint);

// A command puts its text in `out` and gives the exit status.
using InspectCommand = int (*)(const InspectOptions& options, std::string& out);
int showTokens(const InspectOptions& options, std::string& out);
int showTree(const InspectOptions& options, std::string& out);
int showWrapped(const InspectOptions& options, std::string& out);
int showGaps(const InspectOptions& options, std::string& out);
int showScheme(const InspectOptions& options, std::string& out);

}  // namespace Console
