// corvane-format: formats C and C++ files from the command line.
#include "Console_ExplainRun.h"
#include "Console_FormatOptions.h"
#include "Console_FormatRun.h"
#include "Console_ProgramMain.h"
#include "Console_RestoreRun.h"
#include "Console_UpgradeRun.h"

namespace {

constexpr const char* program = "corvane-format";

int execute(const Console::FormatCommand& command, Console::StandardOutput& output) {
    using Action = Console::FormatCommand::Action;
    switch (command.action) {
        case Action::ShowText:
            output.write(command.text);
            return Console::exitGood;
        case Action::Undo:
            return Console::undoLastRun(output);
        case Action::Recover:
            return Console::recoverFiles(command.options.files, output);
        case Action::Explain:
            return Console::explainFile(command.options, output);
        case Action::UpgradeScheme:
            return Console::upgradeScheme(command.text, output);
        case Action::Fail:
            Console::complainOfArguments(program, command.text);
            return Console::exitTrouble;
        default:
            return Console::FormatRun(command.options, output).run();
    }
}

}  // namespace

// What a file does wrong is dealt with file by file.
int main(int argc, char** argv) {
    return Console::runProgram(program, Console::exitTrouble, [=](Console::StandardOutput& output) {
        return execute(Console::parseFormatArguments(argc, argv), output);
    });
}
