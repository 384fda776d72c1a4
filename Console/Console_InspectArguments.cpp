// Reads the arguments with CLI11.
#include "Console_InspectArguments.h"

#include <CLI/CLI.hpp>
#include <map>

#include "Console_ManualText.h"

namespace Console {

namespace {

constexpr const char* inspectVersion = "corvane-inspect (Corvane C++) " CORVANE_VERSION_TEXT
                                       "\n"
                                       "Copyright (C) Vellum Software\n";

CLI::App& addCommand(CLI::App& app, const char* name, InspectCommand command, InspectRequest& request) {
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

void addCommands(CLI::App& app, InspectRequest& request) {
    app.set_help_flag("--help");
    app.set_version_flag("--version", inspectVersion);
    app.require_subcommand(1);
    addReading(addCommand(app, "tokens", showTokens, request), request.options.reading);
    CLI::App& tree = addCommand(app, "tree", showTree, request);
    addReading(tree, request.options.reading);
    CLI::Option* preformat = tree.add_flag("--preformat", request.options.preformat);
    tree.add_flag("--roles", request.options.roles)->excludes(preformat);
    tree.add_option("-s,--scheme", request.options.scheme);
    addCommand(app, "wrap", showWrapped, request).add_option("-s,--scheme", request.options.scheme)->required();
    CLI::App& gaps = addCommand(app, "gaps", showGaps, request);
    gaps.add_option("-s,--scheme", request.options.scheme);
    addReading(gaps, request.options.reading);
    addCommand(app, "scheme", showScheme, request).add_option("-s,--scheme", request.options.scheme);
}

}  // namespace

std::variant<InspectRequest, InspectText, InspectFailure> parseInspectArguments(int argc, const char* const* argv) {
    InspectRequest request;
    CLI::App app;
    addCommands(app, request);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        return InspectText{helpText(inspectManual)};
    } catch (const CLI::CallForVersion&) {
        return InspectText{inspectVersion};
    } catch (const CLI::ParseError& error) {
        return InspectFailure{error.what()};
    }
    return request;
}

}  // namespace Console
