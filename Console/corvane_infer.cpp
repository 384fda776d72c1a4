// corvane-infer: finds the scheme that a code base is written in.
#include <variant>

#include "Console_FormatRun.h"
#include "Console_InferOptions.h"
#include "Console_InferRun.h"
#include "Console_ProgramMain.h"

namespace {

int execute(int argc, char** argv, Console::StandardOutput& output) {
    const auto command = Console::parseInferArguments(argc, argv);
    if (const auto* options = std::get_if<Console::InferOptions>(&command)) {
        return Console::inferScheme(*options, output);
    }
    if (const auto* shown = std::get_if<Console::InferText>(&command)) {
        output.write(shown->text);
        return Console::exitGood;
    }
    Console::complainOfArguments(Console::inferProgram, std::get<Console::InferFailure>(command).complaint);
    return Console::exitTrouble;
}

}  // namespace

int main(int argc, char** argv) {
    return Console::runProgram(Console::inferProgram, Console::exitTrouble,
                               [=](Console::StandardOutput& output) { return execute(argc, argv, output); });
}
