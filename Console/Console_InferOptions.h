// The command line of corvane-infer.
#pragma once

#include <string>
#include <variant>

#include "Console_FormatOptions.h"

namespace Console {

inline constexpr std::string_view inferProgram = "corvane-infer";

struct InferOptions {
    FormatOptions selection;  // which files
    std::string output = ".corvane.fsc";
    bool force = false;
    bool show = false;
    int edition = 2;
    int agreement = 90;  // percent
};

struct InferFailure {
    std::string complaint;
};
struct InferText {
    std::string text;  // for standard output
};

// Reads the arguments; the first is the program's name.
std::variant<InferOptions, InferText, InferFailure> parseInferArguments(int argc, const char* const* argv);

}  // namespace Console
