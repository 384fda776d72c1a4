// corvane-inspect: shows what the engine makes of a source text or of a scheme, for people who debug it, for users who
// wonder and for tests. Console_InspectCommands has what it does.
#include <string>
#include <variant>

#include "Console_InspectArguments.h"
#include "Console_ProgramMain.h"

namespace {

int execute(int argc, char** argv, Console::StandardOutput& output) {
    const auto given = Console::parseInspectArguments(argc, argv);
    if (const auto* request = std::get_if<Console::InspectRequest>(&given)) {
        std::string text;
        const int status = request->command(request->options, text);
        output.write(text);
        return status;
    }
    if (const auto* shown = std::get_if<Console::InspectText>(&given)) {
        output.write(shown->text);
        return Console::inspectGood;
    }
    Console::complainOfArguments(Console::inspectProgram, std::get<Console::InspectFailure>(given).complaint);
    return Console::inspectTrouble;
}

}  // namespace

int main(int argc, char** argv) {
    return Console::runProgram(Console::inspectProgram, Console::inspectTrouble,
                               [=](Console::StandardOutput& output) { return execute(argc, argv, output); });
}
