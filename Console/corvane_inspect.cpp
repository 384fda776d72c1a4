// corvane-inspect: shows what the engine makes of a source text or of a scheme, for people who debug it, for users who
// wonder and for tests. Here stand its arguments; Console_InspectCommands has what it does.
#include <CLI/CLI.hpp>
#include <cstring>
#include <exception>
#include <string>

#include "Console_InspectCommands.h"
#include "Console_StandardStreams.h"

namespace {

constexpr const char* versionText = "corvane-inspect (Corvane C++) " CORVANE_VERSION_TEXT
                                    "\n"
                                    "Copyright (C) Vellum Software\n";

constexpr const char* helpText =
    R"(Usage: corvane-inspect tokens [FILE]
  or:  corvane-inspect tree [--preformat] [FILE]
  or:  corvane-inspect wrap --scheme SCHEME [FILE]
  or:  corvane-inspect scheme [--scheme SCHEME] [FILE]
Show what the stages of the formatter make of a C or C++ source text, or of a
scheme.

Without FILE, or where FILE is -, standard input is read; to the command scheme it
stands for a file in the current directory.

  tokens       one token a line: its number, its first and last position and its
                 text, between tabs; the end of the text comes last
  tree         one node of the syntax tree a line, two blanks a level
      --preformat  the tree as the formatter gets it: a marked region that is left
                     alone is a single comment
  wrap         the text as the second pass leaves it, which wraps long lines; the
                 text is taken as formatted already
  scheme       one property a line: its key, the value in force and where that comes
                 from, between tabs; the path of the scheme comes first
  -s, --scheme SCHEME
               the path or the name of the scheme; without one, the command scheme shows
                 the scheme that corvane-format would take for FILE, which it doesn't read
      --help     show this help and exit
      --version  show the version and exit

Positions are LINE:COLUMN. In a text, white space other than blanks, quotes and
backslashes are escaped. What the parser reports goes to standard error; the tree
is shown even so.

Exit status:
  0  if the text or the scheme was read, whatever the parser reports,
  2  if one of them could not be read, if the text is nested too deeply or can't be
       wrapped for what the parser reports, or if the arguments are bad.
)";

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

Request parseArguments(int argc, char** argv, Console::StandardOutput& output) {
    Request request;
    CLI::App app;
    app.set_help_flag("--help");
    app.set_version_flag("--version", versionText);
    app.require_subcommand(1);
    addCommand(app, "tokens", Console::showTokens, request);
    addCommand(app, "tree", Console::showTree, request).add_flag("--preformat", request.options.preformat);
    addCommand(app, "wrap", Console::showWrapped, request)
        .add_option("-s,--scheme", request.options.scheme)
        ->required();
    addCommand(app, "scheme", Console::showScheme, request).add_option("-s,--scheme", request.options.scheme);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        output.write(helpText);
        request.command = nullptr;
    } catch (const CLI::CallForVersion&) {
        output.write(versionText);
        request.command = nullptr;
    } catch (const CLI::ParseError& error) {
        Console::complainOfInspect(error.what());
        Console::complainOfInspect(std::string("try '") + Console::inspectProgram + " --help' for more information");
        request.command = nullptr;
        request.status = Console::inspectTrouble;
    }
    return request;
}

int guardedMain(int argc, char** argv) {
    Console::StandardOutput output;
    Request request = parseArguments(argc, argv, output);
    if (request.command) {
        std::string text;
        request.status = request.command(request.options, text);
        output.write(text);
    }
    if (const int error = output.finish()) {
        Console::complainOfInspect(std::string("write error: ") + std::strerror(error));
        return Console::inspectTrouble;
    }
    return request.status;
}

}  // namespace

int main(int argc, char** argv) {
    Console::prepareStandardStreams();
    try {
        return guardedMain(argc, argv);
    } catch (const std::exception& exception) {
        Console::complainOfInspect(exception.what());
    }
    return Console::inspectTrouble;
}
