// corvane-inspect: shows what the stages of the engine make of a source text, for people who debug it and for tests.
// Each sub-command is one function from a source to a text.
#include <CLI/CLI.hpp>
#include <cstring>
#include <exception>
#include <string>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "Brevis_Formatter.h"
#include "Console_SchemeFinder.h"
#include "Console_StandardStreams.h"
#include "Console_TreePrinter.h"
#include "Cpp_Lexer.h"
#include "Cpp_Parser.h"
#include "Trn_Escapes.h"
#include "Vellum_LineEnds.h"
#include "format/Brevis_CppPreFormatter.h"

namespace {

constexpr const char* program = "corvane-inspect";
constexpr const char* standardInput = "-";
constexpr int exitGood = 0;
constexpr int exitTrouble = 2;

constexpr const char* versionText = "corvane-inspect (Corvane C++) " CORVANE_VERSION_TEXT
                                    "\n"
                                    "Copyright (C) Vellum Software\n";

constexpr const char* helpText =
    R"(Usage: corvane-inspect tokens [FILE]
  or:  corvane-inspect tree [--preformat] [FILE]
  or:  corvane-inspect wrap --scheme SCHEME [FILE]
Show what the stages of the formatter make of a C or C++ source text.

Without FILE, or where FILE is -, standard input is read.

  tokens       one token a line: its number, its first and last position and its
                 text, between tabs; the end of the text comes last
  tree         one node of the syntax tree a line, two blanks a level
      --preformat  the tree as the formatter gets it: a marked region that is left
                     alone is a single comment
  wrap         the text as the second pass leaves it, which wraps long lines; the
                 text is taken as formatted already
  -s, --scheme SCHEME
               the scheme file
      --help     show this help and exit
      --version  show the version and exit

Positions are LINE:COLUMN. In a text, white space other than blanks, quotes and
backslashes are escaped. What the parser reports goes to standard error; the tree
is shown even so.

Exit status:
  0  if the text was read, whatever the parser reports,
  2  if it or the scheme could not be read, if it is nested too deeply or can't be
       wrapped for what the parser reports, or if the arguments are bad.
)";

void complain(const std::string& complaint) { Console::writeErrorLine(std::string(program) + ": " + complaint); }

struct Source {
    std::string name;  // for messages
    std::string text;  // with normalised line ends
};

// What the arguments ask of a command beside its source.
struct Options {
    bool preformat = false;
    std::string scheme;
};

// A command writes its text to `out` and gives the exit status.
int showTokens(const Source& source, const Options&, std::string& out) {
    Cpp::Lexer lexer(source.text);
    for (;;) {
        const Trn::Token token = lexer.next();
        out += std::to_string(token.kind()) + '\t' + Console::printPosition(token.first()) + '-' +
               Console::printPosition(token.last()) + '\t' + Trn::escape(token.text()) + '\n';
        if (token.kind() == Trn::Kind::EndOfInput) return exitGood;
    }
}

void writeMessages(const Source& source, const Trn::ParseMessageList& messages) {
    for (const Trn::ParseMessage& message : messages) {
        Console::writeErrorLine(BrevisUI::parseMessageLine(source.name, message));
    }
}

int showTree(const Source& source, const Options& options, std::string& out) {
    Cpp::Lexer lexer(source.text);
    Cpp::RootNode root;
    Trn::ParseMessageList messages;
    Cpp::Parser().parse(lexer, root, messages);
    writeMessages(source, messages);
    if (options.preformat) {
        Brevis::CppPreFormatter preFormatter(Brevis::regionTable());
        root.accept(preFormatter);
    }
    out = Console::printTree(root);
    return exitGood;
}

int showWrapped(const Source& source, const Options& options, std::string& out) {
    const Console::LoadedScheme loaded = Console::loadScheme(options.scheme);
    for (const Console::Remark& remark : loaded.remarks) Console::writeErrorLine(remark.text);
    if (!loaded.good) return exitTrouble;

    Trn::ParseMessageList messages;
    const Brevis::FormatterProperties properties(loaded.scheme);
    Brevis::FormatResult result = Brevis::Formatter().wrap(properties, source.text, messages);
    writeMessages(source, messages);
    if (!result.isFormatted()) return exitTrouble;
    out = std::move(result.text);
    return exitGood;
}

using Command = int (*)(const Source& source, const Options& options, std::string& out);

bool readSource(const std::string& file, Source& source) {
    const bool isStandardInput = file == standardInput;
    source.name = isStandardInput ? "<stdin>" : file;
    const bool isRead =
        isStandardInput ? BrevisUI::readStream(stdin, source.text) : BrevisUI::readFile(file, source.text);
    if (!isRead) {
        complain("cannot read '" + source.name + "': " + std::strerror(errno));
        return false;
    }
    Vellum::normalizeLineEnds(source.text);
    return true;
}

// What the arguments ask for: a command with its file and options, or a status to end with.
struct Request {
    Command command = nullptr;
    std::string file = standardInput;
    Options options;
    int status = exitGood;
};

CLI::App& addCommand(CLI::App& app, const char* name, Command command, Request& request) {
    CLI::App* sub = app.add_subcommand(name);
    sub->set_help_flag("--help");
    sub->add_option("FILE", request.file);
    sub->callback([&request, command] { request.command = command; });
    return *sub;
}

Request parseArguments(int argc, char** argv, Console::StandardOutput& output) {
    Request request;
    CLI::App app;
    app.set_help_flag("--help");
    app.set_version_flag("--version", versionText);
    app.require_subcommand(1);
    addCommand(app, "tokens", showTokens, request);
    addCommand(app, "tree", showTree, request).add_flag("--preformat", request.options.preformat);
    addCommand(app, "wrap", showWrapped, request).add_option("-s,--scheme", request.options.scheme)->required();
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        output.write(helpText);
        request.command = nullptr;
    } catch (const CLI::CallForVersion&) {
        output.write(versionText);
        request.command = nullptr;
    } catch (const CLI::ParseError& error) {
        complain(error.what());
        complain(std::string("try '") + program + " --help' for more information");
        request.command = nullptr;
        request.status = exitTrouble;
    }
    return request;
}

int guardedMain(int argc, char** argv) {
    Console::StandardOutput output;
    Request request = parseArguments(argc, argv, output);
    if (request.command) {
        Source source;
        if (!readSource(request.file, source)) return exitTrouble;
        std::string text;
        request.status = request.command(source, request.options, text);
        output.write(text);
    }
    if (const int error = output.finish()) {
        complain(std::string("write error: ") + std::strerror(error));
        return exitTrouble;
    }
    return request.status;
}

}  // namespace

int main(int argc, char** argv) {
    Console::prepareStandardStreams();
    try {
        return guardedMain(argc, argv);
    } catch (const std::exception& exception) {
        complain(exception.what());
    }
    return exitTrouble;
}
