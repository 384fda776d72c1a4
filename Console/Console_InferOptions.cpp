// Reads the arguments with CLI11.
#include "Console_InferOptions.h"

#include <CLI/CLI.hpp>

#include "Console_Arguments.h"
#include "Console_ManualText.h"
#include "settings/BrevisUI_Extensions.h"
#include "settings/BrevisUI_Settings.h"

namespace Console {

namespace {

constexpr const char* inferVersion = "corvane-infer (Corvane C++) " CORVANE_VERSION_TEXT
                                    "\n"
                                    "Copyright (C) Vellum Software\n";

std::string namesOfRow(std::string_view name) {
    const OptionRow& row = optionRow(inferManual, name);
    return row.letter.empty() ? std::string(row.name) : std::string(row.letter) + ',' + std::string(row.name);
}

void addOptions(CLI::App& app, InferOptions& options, std::string& extensions) {
    const auto value = [&app](std::string_view name, auto& target) {
        return app.add_option(namesOfRow(name), target)
            ->type_name(std::string(optionRow(inferManual, name).argument))
            ->allow_extra_args(false);
    };
    const auto flag = [&app](std::string_view name, bool& target) {
        app.add_flag(namesOfRow(name), target)->disable_flag_override();
    };
    constexpr int leastAgreement = 51, mostAgreement = 100, mostJobs = 1024;
    app.set_help_flag("--help");
    app.set_version_flag("--version", inferVersion);
    value("--output", options.output);
    flag("--force", options.force);
    flag("--show", options.show);
    value("--edition", options.edition)->check(CLI::Range(1, 2).description(""));
    value("--agreement", options.agreement)->check(CLI::Range(leastAgreement, mostAgreement).description(""));
    value("--extensions", extensions);
    value("--exclude", options.selection.excludes);
    app.add_flag(namesOfRow("--no-ignore"))->disable_flag_override();
    value("--jobs", options.selection.jobs)->check(CLI::Range(1, mostJobs).description(""));
    app.add_option("PATH", options.selection.files);
}

std::string complaintAbout(const InferOptions& options) {
    if (options.selection.files.empty()) return "name the files or directories of the code base";
    for (const std::string& file : options.selection.files) {
        if (file == standardInput) return "standard input is no code base: name files or directories";
    }
    if (options.output.empty()) return "--output needs a path";
    if (options.selection.extensions.empty()) return "--extensions needs a list such as c,cpp,h";
    return {};
}

}  // namespace

std::variant<InferOptions, InferText, InferFailure> parseInferArguments(int argc, const char* const* argv) {
    InferOptions options;
    std::string extensions;
    CLI::App app;
    addOptions(app, options, extensions);
    try {
        parseArguments(app, argc, argv);
    } catch (const CLI::CallForHelp&) {
        return InferText{helpText(inferManual)};
    } catch (const CLI::CallForVersion&) {
        return InferText{inferVersion};
    } catch (const CLI::ParseError& error) {
        return InferFailure{error.what()};
    }
    options.selection.check = true;  // a directory stands for the files below it
    options.selection.gitIgnore = app.count("--no-ignore") == 0;
    options.selection.extensions =
        app.count("--extensions") > 0 ? BrevisUI::parseExtensions(extensions) : BrevisUI::Settings().fileExtensions;
    const std::string complaint = complaintAbout(options);
    if (!complaint.empty()) return InferFailure{complaint};
    return options;
}

}  // namespace Console
