// Reads the arguments with CLI11; the rules for combining options stand in `complaintAbout`.
#include "Console_FormatOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <initializer_list>
#include <iterator>
#include <sstream>
#include <string_view>
#include <utility>

#include "Console_Arguments.h"
#include "Console_ManualText.h"
#include "settings/BrevisUI_Extensions.h"
#include "settings/BrevisUI_Settings.h"

namespace Console {

namespace {

constexpr const char* versionText = "corvane-format (Corvane C++) " CORVANE_VERSION_TEXT
                                    "\n"
                                    "Copyright (C) Vellum Software\n";

struct LineEndWord {
    const char* word;
    BrevisUI::LineEndMode mode;
};
constexpr LineEndWord lineEndWords[] = {
    {"keep", BrevisUI::LineEndMode::Keep},
    {"lf", BrevisUI::LineEndMode::LineFeed},
    {"crlf", BrevisUI::LineEndMode::CarriageReturnLineFeed},
    {"native", BrevisUI::LineEndMode::Native},
};

constexpr std::pair<std::string_view, ReportForm> reportWords[] = {
    {"sarif", ReportForm::Sarif},
    {"checkstyle", ReportForm::Checkstyle},
    {"github", ReportForm::Github},
    {"gcc", ReportForm::Gcc},
};
constexpr std::pair<std::string_view, Brevis::DialectChoice> dialectWords[] = {
    {"auto", Brevis::DialectChoice::automatic},
    {"classic", Brevis::DialectChoice::classic},
    {"modern", Brevis::DialectChoice::modern},
};
constexpr std::pair<std::string_view, Brevis::LanguageChoice> languageWords[] = {
    {"auto", Brevis::LanguageChoice::automatic},
    {"c", Brevis::LanguageChoice::c},
    {"c++", Brevis::LanguageChoice::cpp},
};
constexpr std::pair<std::string_view, ColourUse> colourWords[] = {
    {"auto", ColourUse::Auto},
    {"always", ColourUse::Always},
    {"never", ColourUse::Never},
};

// The names of an option as the parser wants them. Whatever stands behind the name belongs to the parser.
std::string namesOf(std::string_view name, std::string_view behind = {}) {
    const OptionRow& row = optionRow(formatManual, name);
    std::string names(row.letter);
    if (!row.letter.empty() && !row.name.empty()) names += ',';
    return names.append(row.name).append(behind);
}

CLI::IsMember wordsOf(std::string_view name) {
    std::istringstream words{std::string(optionRow(formatManual, name).words)};
    return CLI::IsMember(std::vector<std::string>{std::istream_iterator<std::string>(words), {}});
}

// Adds the options of the table by their names: one that the table lacks throws.
class OptionAdder {
public:
    explicit OptionAdder(CLI::App& app) : app_(app) {}

    void flag(std::string_view name) { app_.add_flag(namesOf(name))->disable_flag_override(); }
    void flag(std::string_view name, bool& value) { app_.add_flag(namesOf(name), value)->disable_flag_override(); }
    template <class Value>
    CLI::Option* option(std::string_view name, Value& value) {
        return app_.add_option(namesOf(name), value)->type_name(std::string(optionRow(formatManual, name).argument));
    }
    CLI::Option* option(std::string_view name) {
        return app_.add_option(namesOf(name))->type_name(std::string(optionRow(formatManual, name).argument));
    }

private:
    CLI::App& app_;
};

void addOptions(CLI::App& app, FormatOptions& options) {
    OptionAdder add(app);
    app.set_help_flag(namesOf("--help"));
    app.set_version_flag(namesOf("--version"), versionText);
    add.option("--scheme", options.scheme);
    add.flag("--list-schemes", options.listSchemes);
    add.flag("--dump-scheme", options.dumpScheme);
    add.option("--explain", options.explained);
    add.option("--upgrade-scheme");
    add.flag("--in-place", options.inPlace);
    // A flag with a text: unlike an option it takes a value only behind an equals sign.
    app.add_flag(namesOf("--backup", "{bak}"), options.backupExtension);
    app.add_flag(namesOf("--git", "{HEAD}"), options.gitRevision);
    app.add_flag(namesOf("--verify", "{tokens}"))->check(wordsOf("--verify"));
    add.option("--line-endings")->check(wordsOf("--line-endings"));
    // Both take either, in the order given.
    app.add_option(namesOf("--project", ",") + namesOf("--workspace"), options.projects)
        ->type_name("FILE")
        ->allow_extra_args(false);
    add.option("--files-from", options.filesFrom);
    add.flag("-0", options.nulSeparated);
    add.option("--extensions");
    add.option("--exclude", options.excludes)->allow_extra_args(false);
    add.flag("--no-ignore");
    add.option("--shard");
    add.option("--jobs", options.jobs)->check(CLI::Range(1, 1024).description(""));
    app.add_option(namesOf("--lines"))
        ->type_name("FROM:TO")
        ->allow_extra_args(false)
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    add.flag("--staged", options.staged);
    add.flag("--undo");
    add.flag("--recover");
    add.flag("--check", options.check);
    add.flag("--diff", options.diff);
    add.flag("--no-verify");
    add.flag("--verbose", options.verbose);
    add.option("--dialect")->check(wordsOf("--dialect"));
    add.option("--language")->check(wordsOf("--language"));
    add.flag("--strict", options.reading.isStrict);
    add.option("--format")->check(wordsOf("--format"));
    add.option("--color")->check(wordsOf("--color"));
    add.option("--assume-filename", options.assumeFilename);
    add.option("--threshold", options.threshold)->check(CLI::Range(0, 3).description(""));
    app.add_option("FILE", options.files);
}

// Sets `value` to what the word of an option means, if it was given.
template <class Words, class Value>
void readWord(const CLI::App& app, const std::string& name, const Words& words, Value& value) {
    if (app.count(name) == 0) return;
    const std::string given = app[name]->as<std::string>();
    for (const auto& [word, meaning] : words) {
        if (given == word) value = meaning;
    }
}

bool readNumber(std::string_view text, std::size_t& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

// Gives a complaint, or nothing.
std::string readLines(const CLI::App& app, FormatOptions& options) {
    if (app.count("--lines") == 0) return {};
    for (const auto& given : app["--lines"]->as<std::vector<std::string>>()) {
        const std::string_view text = given;
        const std::size_t colon = std::min(text.find(':'), text.size());
        std::size_t first = 0;
        std::size_t last = 0;
        const bool isGood = readNumber(text.substr(0, colon), first) &&
                            readNumber(text.substr(std::min(colon + 1, text.size())), last) && 1 <= first &&
                            first <= last;
        if (!isGood) return "--lines: \"" + given + "\" is not FROM:TO, two numbers of lines from 1";
        options.lines.add(first, last);
    }
    return {};
}

bool namesFiles(const FormatOptions& options) {
    return !options.files.empty() || !options.projects.empty() || !options.filesFrom.empty();
}

std::string complaintAboutLines(const CLI::App& app, const FormatOptions& options) {
    const bool hasMode = options.inPlace || options.check || options.diff;
    if (options.staged && !options.git) return "--staged has no meaning without --git";
    if (options.git && options.gitRevision.empty()) return "--git needs a revision behind its equals sign";
    if (app.count("--lines") > 0) {
        if (options.git) return "--lines and --git cannot be combined";
        const bool isOne = options.files.size() == 1 && options.projects.empty() && options.filesFrom.empty();
        if (!isOne) return "--lines takes one file, not more and no project or list";
        if (options.shard) return "--lines and --shard cannot be combined: one file has no parts";
    }
    if (options.git && std::ranges::count(options.files, standardInput) > 0) return "--git takes no standard input";
    if (options.git && !namesFiles(options) && !hasMode) {
        return "--git without a file needs one of --in-place, --check and --diff";
    }
    return {};
}

void readVerification(const CLI::App& app, FormatOptions& options) {
    const CLI::Option& verify = *app.get_option("--verify");
    options.verifyTokens = options.inPlace ? app.count("--no-verify") == 0 : verify.count() > 0;
    options.verifyStability = verify.count() > 0 && verify.as<std::string>() == "stable";
}

void readTreeOptions(const CLI::App& app, FormatOptions& options) {
    if (app.count("--shard") > 0) options.shard = parseShard(app["--shard"]->as<std::string>());
    options.gitIgnore = app.count("--no-ignore") == 0;
    const CLI::Option& given = *app.get_option("--extensions");
    options.extensions =
        given.count() > 0 ? BrevisUI::parseExtensions(given.as<std::string>()) : BrevisUI::Settings().fileExtensions;
}

// A pattern or an extension with a dot would match nothing.
bool isExtension(const std::string& text) {
    return BrevisUI::isValidExtension(text) && text.find_first_of("*.") == std::string::npos;
}

std::string complaintAboutSelection(const CLI::App& app, const FormatOptions& options) {
    const bool readsInput = std::ranges::count(options.files, standardInput) > 0;
    const bool hasMode = options.inPlace || options.check || options.diff;
    if (app.count("--files-from") > 0 && options.filesFrom.empty()) return "--files-from needs a path";
    if (app.count("--shard") > 0 && !options.shard) return "--shard needs a part such as 1/4";
    if (options.shard && readsInput) return "--shard needs files: standard input has no parts";
    if (options.nulSeparated && options.filesFrom.empty()) return "-0 has no meaning without --files-from";
    if (options.filesFrom == standardInput && readsInput) return "standard input can be read only once";
    if (std::ranges::count(options.projects, "") > 0) return "--project and --workspace need a path";
    if (!options.projects.empty() && !hasMode) {
        return "--project and --workspace need one of --in-place, --check and --diff";
    }
    if (options.extensions.empty()) return "--extensions needs a list such as c,cpp,h";
    for (const std::string& extension : options.extensions) {
        if (!isExtension(extension)) return "--extensions: \"" + extension + "\" is no extension";
    }
    return {};
}

// The rules for the options that format nothing.
std::string complaintAboutSchemeQuery(const FormatOptions& options) {
    if (options.listSchemes && options.dumpScheme) return "--list-schemes and --dump-scheme cannot be combined";
    if (options.inPlace || options.check || options.diff) {
        return "--list-schemes and --dump-scheme format nothing: --in-place, --check and --diff have no meaning";
    }
    if (!options.projects.empty() || !options.filesFrom.empty() || options.git) {
        return "--list-schemes and --dump-scheme take no --project, --workspace, --files-from and --git";
    }
    if (options.listSchemes && options.files != std::vector<std::string>{std::string(standardInput)}) {
        return "--list-schemes takes no files";
    }
    return options.files.size() > 1 ? "--dump-scheme takes one file at most" : "";
}

// What is wrong with the combination of the options, or nothing. An empty value is no value.
std::string complaintAbout(const CLI::App& app, const FormatOptions& options) {
    const auto standardInputs = std::count(options.files.begin(), options.files.end(), standardInput);
    if (app.count("--scheme") > 0 && options.scheme.empty()) return "--scheme needs a path or a name";
    if (app.count("--assume-filename") > 0 && options.assumeFilename.empty()) return "--assume-filename needs a path";
    if (options.inPlace && options.check) return "--in-place and --check cannot be combined: --check writes nothing";
    if (options.inPlace && options.diff) return "--in-place and --diff cannot be combined: --diff writes nothing";
    if (options.report != ReportForm::None && (!options.check || options.diff)) {
        return "--format needs --check, without --diff";
    }
    if (options.createBackups && !options.inPlace) return "--backup has no meaning without --in-place";
    if (app.count("--verify") > 0 && app.count("--no-verify") > 0) {
        return "--verify and --no-verify cannot be combined";
    }
    if (options.backupExtension.find('/') != std::string::npos) return "the extension of --backup cannot hold a slash";
    if (options.inPlace && standardInputs > 0) return "--in-place needs files: standard input cannot be written back";
    if (standardInputs > 1) return "standard input can be read only once";
    if (!options.assumeFilename.empty() && standardInputs == 0) {
        return "--assume-filename has no meaning unless standard input is read";
    }
    return {};
}

// The same for a command that formats nothing.
std::string complaintAboutRestoring(const CLI::App& app, bool takesFiles) {
    std::size_t given = 0;
    for (const CLI::Option* option : app.get_options()) given += option->count() > 0 ? 1 : 0;
    if (app.count("FILE") > 0) {
        if (!takesFiles) return "--undo takes no file: it brings back every file of the last run";
        --given;
    }
    return given > 1 ? "--undo and --recover cannot be combined with other options" : "";
}

// Whether an option is given that is none of `allowed`.
bool hasOthers(const CLI::App& app, std::initializer_list<std::string_view> allowed) {
    std::size_t others = 0;
    for (const CLI::Option* option : app.get_options()) others += option->count() > 0 ? 1 : 0;
    for (const std::string_view name : allowed) others -= app.count(std::string(name)) > 0 ? 1 : 0;
    return others > 0;
}

FormatCommand failure(const std::string& complaint) { return {FormatCommand::Action::Fail, {}, complaint}; }

FormatCommand restoring(const CLI::App& app, FormatCommand command) {
    const bool undoes = app.count("--undo") > 0;
    command.action = undoes ? FormatCommand::Action::Undo : FormatCommand::Action::Recover;
    const std::string complaint = complaintAboutRestoring(app, !undoes);
    return complaint.empty() ? command : failure(complaint);
}

FormatCommand explaining(const CLI::App& app, FormatCommand command) {
    if (command.options.explained.empty()) return failure("--explain needs a file");
    if (hasOthers(app, {"--explain", "--scheme", "--dialect", "--language", "--strict"})) {
        return failure("--explain takes --scheme, --dialect, --language and --strict, and no other option or file");
    }
    if (app.count("--scheme") > 0 && command.options.scheme.empty()) return failure("--scheme needs a path or a name");
    command.action = FormatCommand::Action::Explain;
    return command;
}

FormatCommand upgrading(const CLI::App& app, FormatCommand command) {
    command.text = app["--upgrade-scheme"]->as<std::string>();
    if (command.text.empty()) return failure("--upgrade-scheme needs a path or a name");
    if (hasOthers(app, {"--upgrade-scheme"})) return failure("--upgrade-scheme takes no other option and no file");
    command.action = FormatCommand::Action::UpgradeScheme;
    return command;
}

}  // namespace

FormatCommand parseFormatArguments(int argc, const char* const* argv) {
    FormatCommand command;
    FormatOptions& options = command.options;
    CLI::App app;
    addOptions(app, options);
    try {
        parseArguments(app, argc, argv);
    } catch (const CLI::CallForHelp&) {
        return {FormatCommand::Action::ShowText, {}, helpText(formatManual)};
    } catch (const CLI::CallForVersion&) {
        return {FormatCommand::Action::ShowText, {}, versionText};
    } catch (const CLI::ParseError& error) {
        return failure(error.what());
    }
    if (app.count("--undo") > 0 || app.count("--recover") > 0) return restoring(app, command);
    if (app.count("--upgrade-scheme") > 0) return upgrading(app, command);
    options.createBackups = app.count("--backup") > 0;
    readVerification(app, options);
    options.git = app.count("--git") > 0;
    readWord(app, "--line-endings", lineEndWords, options.lineEnds);
    readWord(app, "--dialect", dialectWords, options.reading.dialect);
    readWord(app, "--language", languageWords, options.reading.language);
    readWord(app, "--format", reportWords, options.report);
    readWord(app, "--color", colourWords, options.colours);
    if (app.count("--explain") > 0) return explaining(app, command);
    readTreeOptions(app, options);
    if (!namesFiles(options) && !options.git) options.files.emplace_back(standardInput);
    std::string complaint = readLines(app, options);
    if (options.listSchemes || options.dumpScheme) complaint = complaintAboutSchemeQuery(options);
    if (complaint.empty()) complaint = complaintAbout(app, options);
    if (complaint.empty()) complaint = complaintAboutSelection(app, options);
    if (complaint.empty()) complaint = complaintAboutLines(app, options);
    return complaint.empty() ? command : failure(complaint);
}

}  // namespace Console
