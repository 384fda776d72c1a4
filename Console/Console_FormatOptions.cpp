// Reads the arguments with CLI11; the rules for combining options stand in `complaintAbout`.
#include "Console_FormatOptions.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "Console_Arguments.h"
#include "settings/BrevisUI_Extensions.h"
#include "settings/BrevisUI_Settings.h"

namespace Console {

namespace {

constexpr const char* versionText = "corvane-format (Corvane C++) " CORVANE_VERSION_TEXT
                                    "\n"
                                    "Copyright (C) Vellum Software\n";

constexpr const char* helpText =
    R"(Usage: corvane-format [OPTION]... [FILE|DIR]...
Format C and C++ source files under a scheme file. Only white space changes.

Without FILE, or where FILE is -, standard input is read. The formatted text goes
to standard output, unless one of -i, --check and --diff asks for something else.
With one of these, DIR stands for the source files below it, in the order of their
names; write-protected and hidden entries and symbolic links are left out, but a
FILE is always taken. A file that comes twice is taken once.

  -s, --scheme=SCHEME         the scheme: the path of a scheme file or else the name
                                of a scheme; without this option the nearest
                                .corvane.fsc in the source file's directory or one
                                of its parents, else the scheme Corvane that comes
                                with the program
      --list-schemes          list the names that --scheme knows, and format nothing
      --dump-scheme           print the scheme in force for FILE, or else for the
                                current directory, as a scheme file with a comment
                                that tells where it was found, and format nothing
  -i, --in-place              write each file back
      --backup[=EXT]          with -i: keep the source as FILE.EXT; EXT is bak
                                unless given
      --line-endings=WHAT     how lines end: keep, as in the source, which is the
                                default; lf; crlf; native, as on this system
      --project=FILE          take the files of a project: .dsp, .vcproj, .vcxproj,
                                .vcxitems, compile_commands.json or the directory
                                that holds the last; may be repeated
      --workspace=FILE        the same for the projects of a .dsw, .sln or .slnx
      --files-from=FILE       take the files and directories that FILE names, one a
                                line; - is standard input
  -0                          with --files-from: each name ends with a NUL, not with
                                its line
      --extensions=LIST       the extensions of source files below DIR and in
                                projects, separated by commas, unless given
                                c,cc,cpp,cxx,h,hh,hpp,hxx
      --exclude=GLOB          leave out what matches below DIR, as if GLOB were a
                                line of a .gitignore file in DIR, for projects one
                                in the current directory; may be repeated
      --no-ignore             take files below DIR and of projects although git
                                ignores them
      --shard=I/N             take the I-th of N parts of the files. The parts are
                                the same on every machine that has the same names
                                below DIR; for projects names count from the
                                project's directory, for FILE from the current one
  -j, --jobs=N                format N files at once, unless given as many as there
                                are processors. What comes out is the same
      --check                 write nothing; name each file that would change
      --diff                  write nothing; show what would change as a unified
                                diff, in colours on a terminal
      --verify[=WHAT]         compare the tokens of the result with those of the
                                source, and refuse a file where they differ; -i
                                does so anyway. WHAT is tokens unless given;
                                stable also formats the result again, and warns
                                if that would change it
      --no-verify             with -i: compare nothing
      --verbose               tell for each file how many seams were mended, places
                                where the scheme's white space would have changed
                                the code; the threshold doesn't hide it. At the end
                                tell how many files were formatted, unchanged,
                                refused and failed; on a terminal that is told
                                anyway
      --assume-filename=PATH  the path of standard input, for messages and for the
                                search for a scheme; without this option <stdin>
                                and the current directory
      --threshold=N           leave out messages of a severity below N, 0 to 3, 2
                                unless given: 1 is information, 2 a warning, 3 an
                                error
      --undo                  give every file that the last run with -i has changed
                                its old text back, unless it has changed since
      --recover               look for what an interrupted run has left beside each
                                FILE, in the current directory without FILE, and
                                in the cache: give half-written files their old
                                text back and remove temporary files
      --help                  show this help and exit
      --version               show the version and exit

Messages go to standard error. A file that can't be read or parsed gives its
messages and no output, and is left as it is; the other files are still done.

--check and --diff may be combined. -i takes neither of them and no standard
input; --backup needs -i; --assume-filename needs standard input, which can be
named only once. --verify and --no-verify cannot be combined. --list-schemes takes
no FILE, --dump-scheme one at most; neither takes -i, --check or --diff. --undo and
--recover take no other option, and --undo no FILE. --project and --workspace need
one of -i, --check and --diff.

A scheme has a name once it stands in the user's scheme directory, by default
$XDG_DATA_HOME/corvane/schemes, or ~/.local/share/corvane/schemes. The schemes that
come with the program arrive there, write-protected: they are listed as built-in.

On an interrupt (SIGINT, SIGTERM or SIGHUP) the files that are being formatted are
brought to an end, and no other is touched.

-i leaves a file alone that would not change. The old texts of the last ten runs
are kept in $XDG_CACHE_HOME/corvane, by default ~/.cache/corvane.

A file .corvaneignore, in the syntax of .gitignore, leaves out what it matches below
its directory; what it says counts for more than what git's own files say. If a
project or a list cannot be read, nothing is formatted.

Exit status:
  0  if all went well and, with --check or --diff, nothing would change,
  1  if --check or --diff found a file that would change,
  2  if a file was refused or failed, or the scheme or the arguments are bad.
  128 + N  if signal N has stopped the run.
Warnings don't change it.
)";

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

void addOptions(CLI::App& app, FormatOptions& options) {
    app.set_help_flag("--help");
    app.set_version_flag("--version", versionText);
    app.add_option("-s,--scheme", options.scheme)->type_name("SCHEME");
    app.add_flag("--list-schemes", options.listSchemes)->disable_flag_override();
    app.add_flag("--dump-scheme", options.dumpScheme)->disable_flag_override();
    app.add_flag("-i,--in-place", options.inPlace)->disable_flag_override();
    // A flag with a text: unlike an option it takes a value only behind an equals sign.
    app.add_flag("--backup{bak}", options.backupExtension);
    app.add_option("--line-endings")->check(CLI::IsMember({"keep", "lf", "crlf", "native"}));
    // Both take either, in the order given.
    app.add_option("--project,--workspace", options.projects)->type_name("FILE")->allow_extra_args(false);
    app.add_option("--files-from", options.filesFrom)->type_name("FILE");
    app.add_flag("-0", options.nulSeparated)->disable_flag_override();
    app.add_option("--extensions")->type_name("LIST");
    app.add_option("--exclude", options.excludes)->type_name("GLOB")->allow_extra_args(false);
    app.add_flag("--no-ignore")->disable_flag_override();
    app.add_flag("--undo")->disable_flag_override();
    app.add_flag("--recover")->disable_flag_override();
    app.add_flag("--check", options.check)->disable_flag_override();
    app.add_flag("--diff", options.diff)->disable_flag_override();
    app.add_flag("--verify{tokens}")->check(CLI::IsMember({"tokens", "stable"}));
    app.add_flag("--no-verify")->disable_flag_override();
    app.add_flag("--verbose", options.verbose)->disable_flag_override();
    app.add_option("--assume-filename", options.assumeFilename)->type_name("PATH");
    app.add_option("--threshold", options.threshold)->type_name("N")->check(CLI::Range(0, 3).description(""));
    app.add_option("-j,--jobs", options.jobs)->type_name("N")->check(CLI::Range(1, 1024).description(""));
    app.add_option("--shard")->type_name("I/N");
    app.add_option("FILE", options.files);
}

void readVerification(const CLI::App& app, FormatOptions& options) {
    const CLI::Option& verify = *app.get_option("--verify");
    options.verifyTokens = options.inPlace ? app.count("--no-verify") == 0 : verify.count() > 0;
    options.verifyStability = verify.count() > 0 && verify.as<std::string>() == "stable";
}

void readLineEnds(const CLI::App& app, FormatOptions& options) {
    if (app.count("--line-endings") == 0) return;
    const std::string given = app["--line-endings"]->as<std::string>();
    for (const auto& [word, mode] : lineEndWords) {
        if (given == word) options.lineEnds = mode;
    }
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

bool namesFiles(const FormatOptions& options) {
    return !options.files.empty() || !options.projects.empty() || !options.filesFrom.empty();
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
    if (!options.projects.empty() || !options.filesFrom.empty()) {
        return "--list-schemes and --dump-scheme take no --project, --workspace and --files-from";
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

FormatCommand failure(const std::string& complaint) { return {FormatCommand::Action::Fail, {}, complaint}; }

FormatCommand restoring(const CLI::App& app, FormatCommand command) {
    const bool undoes = app.count("--undo") > 0;
    command.action = undoes ? FormatCommand::Action::Undo : FormatCommand::Action::Recover;
    const std::string complaint = complaintAboutRestoring(app, !undoes);
    return complaint.empty() ? command : failure(complaint);
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
        return {FormatCommand::Action::ShowText, {}, helpText};
    } catch (const CLI::CallForVersion&) {
        return {FormatCommand::Action::ShowText, {}, versionText};
    } catch (const CLI::ParseError& error) {
        return failure(error.what());
    }
    if (app.count("--undo") > 0 || app.count("--recover") > 0) return restoring(app, command);
    options.createBackups = app.count("--backup") > 0;
    readVerification(app, options);
    readLineEnds(app, options);
    readTreeOptions(app, options);
    if (!namesFiles(options)) options.files.emplace_back(standardInput);
    std::string complaint;
    if (options.listSchemes || options.dumpScheme) complaint = complaintAboutSchemeQuery(options);
    if (complaint.empty()) complaint = complaintAbout(app, options);
    if (complaint.empty()) complaint = complaintAboutSelection(app, options);
    return complaint.empty() ? command : failure(complaint);
}

}  // namespace Console
