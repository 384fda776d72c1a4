// corvane-format: formats C and C++ files from the command line.
#include <algorithm>
#include <cstring>
#include <exception>
#include <string>

#include "Console_ExplainRun.h"
#include "Console_FormatOptions.h"
#include "Console_FormatRun.h"
#include "Console_RestoreRun.h"
#include "Console_StandardStreams.h"
#include "Console_UpgradeRun.h"
#include "Trn_Exception.h"

namespace {

constexpr const char* program = "corvane-format";

void complain(const std::string& complaint) { Console::writeErrorLine(std::string(program) + ": " + complaint); }

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
            complain(command.text);
            complain(std::string("try '") + program + " --help' for more information");
            return Console::exitTrouble;
        default:
            return Console::FormatRun(command.options, output).run();
    }
}

int guardedMain(int argc, char** argv) {
    Console::StandardOutput output;
    const int status = execute(Console::parseFormatArguments(argc, argv), output);
    if (const int error = output.finish()) {
        complain(std::string("write error: ") + std::strerror(error));
        return std::max(status, Console::exitTrouble);
    }
    return status;
}

}  // namespace

// What a file does wrong is dealt with file by file; here arrives only what no file can be blamed for.
int main(int argc, char** argv) {
    Console::prepareStandardStreams();
    try {
        return guardedMain(argc, argv);
    } catch (const std::exception& exception) {
        complain(exception.what());
    }
    return Console::exitTrouble;
}
