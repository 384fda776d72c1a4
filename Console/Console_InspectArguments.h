// The command line of corvane-inspect.
#pragma once

#include <string>
#include <variant>

#include "Console_InspectCommands.h"

namespace Console {

struct InspectRequest {
    InspectCommand command = nullptr;
    InspectOptions options;
};
struct InspectFailure {
    std::string complaint;
};
struct InspectText {
    std::string text;  // for standard output
};

// Reads the arguments; the first is the program's name.
std::variant<InspectRequest, InspectText, InspectFailure> parseInspectArguments(int argc, const char* const* argv);

}  // namespace Console
