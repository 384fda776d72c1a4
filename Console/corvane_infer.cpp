// corvane-infer: finds the scheme that a code base is written in.
#include <algorithm>
#include <cstring>
#include <exception>
#include <string>
#include <variant>

#include "Console_FormatRun.h"
#include "Console_InferOptions.h"
#include "Console_InferRun.h"
#include "Console_StandardStreams.h"

namespace {

void complain(const std::string& complaint) {
    Console::writeErrorLine(std::string(Console::inferProgram) + ": " + complaint);
}

int execute(int argc, char** argv, Console::StandardOutput& output) {
    const auto command = Console::parseInferArguments(argc, argv);
    if (const auto* options = std::get_if<Console::InferOptions>(&command)) {
        return Console::inferScheme(*options, output);
    }
    if (const auto* shown = std::get_if<Console::InferText>(&command)) {
        output.write(shown->text);
        return Console::exitGood;
    }
    complain(std::get<Console::InferFailure>(command).complaint);
    complain("try '" + std::string(Console::inferProgram) + " --help' for more information");
    return Console::exitTrouble;
}

int guardedMain(int argc, char** argv) {
    Console::StandardOutput output;
    const int status = execute(argc, argv, output);
    if (const int error = output.finish()) {
        complain(std::string("write error: ") + std::strerror(error));
        return std::max(status, Console::exitTrouble);
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    Console::prepareStandardStreams();
    try {
        return guardedMain(argc, argv);
    } catch (const std::exception& exception) {
        complain(exception.what());
    }
    return Console::exitTrouble;
}
