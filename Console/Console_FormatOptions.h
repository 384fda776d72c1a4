// The command line of corvane-format: its options, the rules for combining them and its help text.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BrevisUI_LineEnds.h"
#include "BrevisUI_LineSet.h"
#include "Console_Shard.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace Console {

inline constexpr std::string_view standardInput = "-";

enum class ReportForm { None, Sarif, Checkstyle, Github, Gcc };
enum class ColourUse { Auto, Always, Never };

struct FormatOptions {
    std::vector<std::string> files;       // and directories, in the order given; "-" is standard input
    std::vector<std::string> projects;    // and workspaces, whose files are taken
    std::string filesFrom;                // a list of further names, "-" being standard input; empty: not given
    bool nulSeparated = false;            // the names of the list
    std::vector<std::string> extensions;  // of the files below a directory and of projects, without dots
    std::vector<std::string> excludes;    // patterns of what is left out of these
    bool gitIgnore = true;                // leave out what git ignores, too
    std::string scheme;                   // a path or a name; empty: search for one
    bool listSchemes = false;
    bool dumpScheme = false;  // for the one file
    std::string explained;    // FILE or FILE:LINE whose changes are explained; empty: none
    bool inPlace = false;
    bool check = false;
    bool diff = false;
    bool createBackups = false;
    std::string backupExtension = "bak";
    BrevisUI::LineEndMode lineEnds = BrevisUI::LineEndMode::Keep;
    BrevisUI::LineSet lines;  // of the one file that may change; empty: all
    bool git = false;         // only lines may change that differ from a revision
    bool staged = false;      // and are staged
    std::string gitRevision = "HEAD";
    ReportForm report = ReportForm::None;  // what --check writes instead of names
    ColourUse colours = ColourUse::Auto;
    Brevis::Reading reading;  // of the texts
    bool verifyTokens = false;
    bool verifyStability = false;
    bool verbose = false;
    unsigned jobs = 0;           // files to format at once; 0: as many as there are processors
    std::optional<Shard> shard;  // the part of the files that is taken
    int threshold = 2;           // of message severities, 0 to 3
    std::string assumeFilename;  // empty: not given
};

// What the program is to do with its arguments.
struct FormatCommand {
    enum class Action {
        Run,
        Undo,
        Recover,  // what stands beside the files, or in the current directory if there are none
        Explain,
        UpgradeScheme,
        ShowText,
        Fail,
    };

    Action action = Action::Run;
    FormatOptions options;  // for Run and Explain, and the files for Recover
    std::string text;       // for ShowText what goes to standard output, for Fail the complaint without a line end, for
                            // UpgradeScheme the path or name of the scheme
};

// Reads the arguments; the first is the program's name. Every combination of options without sense fails.
FormatCommand parseFormatArguments(int argc, const char* const* argv);

}  // namespace Console
