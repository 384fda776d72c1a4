// corvane-inspect: shows what the engine makes of a source text or of a scheme, for people who debug it, for users who
// wonder and for tests. Here stand its arguments; Console_InspectCommands has what it does.
#include <CLI/CLI.hpp>
#include <map>
#include <string>

#include "Console_InspectCommands.h"
#include "Console_ManualText.h"
#include "Console_ProgramMain.h"

namespace {

constexpr const char* versionText = "corvane-inspect (Corvane C++) " CORVANE_VERSION_TEXT
                                    "\n"
                                    "Copyright (C) Vellum Software\n";

// What the arguments ask for: a command with its options, or a status to end with.
struct Request {
    Console::InspectCommand command = nullptr;
    Console::InspectOptions options;
    int status = Console::inspectGood;
};

CLI::App& addCommand(CLI::App& app, const char* name, Console::InspectCommand command, Request& request) {
    CLI::App* sub = app.add_subcommand(name);
    sub->set_help_flag("--help");
    sub->add_option("FILE", request.options.file);
    sub->callback([&request, command] { request.command = command; });
    return *sub;
}

// The choices of --dialect and --language, for the commands that read a text.
void addReading(CLI::App& command, Brevis::Reading& reading) {
    using enum Brevis::DialectChoice;
    const std::map<std::string, Brevis::DialectChoice> dialects{
        {"auto", automatic}, {"classic", classic}, {"modern", modern}};
    const std::map<std::string, Brevis::LanguageChoice> languages{{"auto", Brevis::LanguageChoice::automatic},
                                                                  {"c", Brevis::LanguageChoice::c},
                                                                  {"c++", Brevis::LanguageChoice::cpp}};
    command.add_option("--dialect", reading.dialect)->transform(CLI::Transformer(dialects));
    command.add_option("--language", reading.language)->transform(CLI::Transformer(languages));
}

Request parseArguments(int argc, char** argv, Console::StandardOutput& output) {
    Request request;
    CLI::App app;
    app.set_help_flag("--help");
    app.set_version_flag("--version", versionText);
    app.require_subcommand(1);
    addReading(addCommand(app, "tokens", Console::showTokens, request), request.options.reading);
    CLI::App& tree = addCommand(app, "tree", Console::showTree, request);
    addReading(tree, request.options.reading);
    CLI::Option* preformat = tree.add_flag("--preformat", request.options.preformat);
    tree.add_flag("--roles", request.options.roles)->excludes(preformat);
    tree.add_option("-s,--scheme", request.options.scheme);
    addCommand(app, "wrap", Console::showWrapped, request)
        .add_option("-s,--scheme", request.options.scheme)
        ->required();
    CLI::App& gaps = addCommand(app, "gaps", Console::showGaps, request);
    gaps.add_option("-s,--scheme", request.options.scheme);
    addReading(gaps, request.options.reading);
    addCommand(app, "scheme", Console::showScheme, request).add_option("-s,--scheme", request.options.scheme);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        output.write(Console::helpText(Console::inspectManual));
        request.command = nullptr;
    } catch (const CLI::CallForVersion&) {
        output.write(versionText);
        request.command = nullptr;
    } catch (const CLI::ParseError& error) {
        Console::complainOfArguments(Console::inspectProgram, error.what());
        request.command = nullptr;
        request.status = Console::inspectTrouble;
    }
    return request;
}

int execute(int argc, char** argv, Console::StandardOutput& output) {
    Request request = parseArguments(argc, argv, output);
    if (!request.command) return request.status;
    std::string text;
    const int status = request.command(request.options, text);
    output.write(text);
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    return Console::runProgram(Console::inspectProgram, Console::inspectTrouble,
                               [=](Console::StandardOutput& output) { return execute(argc, argv, output); });
}
