// The table of corvane-format.
#include "Console_OptionTable.h"

namespace Console {

namespace {

constexpr std::string_view formatUsages[] = {"[OPTION]... [FILE|DIR]..."};

constexpr std::string_view formatDescription =
    R"(Format C and C++ source files under a scheme file. Only white space changes.

Without FILE, or where FILE is -, standard input is read. The formatted text goes to standard output, unless one of -i,
--check and --diff asks for something else. With one of these, DIR stands for the source files below it, in the order of
their names; write-protected and hidden entries and symbolic links are left out, but a FILE is always taken. A file that
comes twice is taken once.)";

constexpr OptionRow schemeOptions[] = {
    {"-s", "--scheme", "SCHEME",
     "the scheme: the path of a scheme file or else the name of a scheme; without this option the nearest .corvane.fsc "
     "in the source file's directory or one of its parents, else the scheme Corvane that comes with the program",
     Completion::Schemes},
    {"", "--list-schemes", "", "list the names that --scheme knows, and format nothing"},
    {"", "--dump-scheme", "",
     "print the scheme in force for FILE, or else for the current directory, as a scheme file with a comment that "
     "tells "
     "where it was found, and format nothing"},
    {"", "--explain", "FILE[:LINE]",
     "tell for each change to FILE, or to the one line, the property that makes it, its value and where that stands in "
     "the scheme file, and format nothing; under a scheme with EDITION 2 only",
     Completion::Files},
    {"", "--upgrade-scheme", "SCHEME",
     "print the scheme with EDITION 2 that comes nearest to SCHEME, a path or a name, tell on standard error what will "
     "differ, and format nothing",
     Completion::Schemes},
};

constexpr OptionRow modeOptions[] = {
    {"-i", "--in-place", "", "write each file back"},
    {"",
     "--backup",
     "EXT",
     "with -i: keep the source as FILE.EXT; EXT is bak unless given",
     Completion::None,
     {},
     true},
    {"", "--check", "", "name each file that would change, and write nothing"},
    {"", "--diff", "", "show what would change as a unified diff, and write nothing"},
    {"", "--line-endings", "WHAT",
     "how lines end: keep, as in the source, which is the default; lf; crlf; native, as on this system",
     Completion::Words, "keep lf crlf native"},
    {"", "--undo", "",
     "give every file that the last run with -i has changed its old text back, unless it has changed since; "
     "where a signal stopped this, go on with the rest"},
    {"", "--recover", "",
     "look for what an interrupted run has left beside each FILE, in the current directory without FILE, and in the "
     "cache: give half-written files their old text back and remove temporary files"},
};

constexpr OptionRow fileOptions[] = {
    {"", "--project", "FILE",
     "take the files of a project: .dsp, .vcproj, .vcxproj, .vcxitems, compile_commands.json or the directory that "
     "holds the last; may be repeated",
     Completion::Files},
    {"", "--workspace", "FILE", "the same for the projects of a .dsw, .sln or .slnx", Completion::Files},
    {"", "--files-from", "FILE", "take the files and directories that FILE names, one a line; - is standard input",
     Completion::Files},
    {"-0", "", "", "with --files-from: each name ends with a NUL, not with its line"},
    {"", "--extensions", "LIST",
     "the extensions of source files below DIR and in projects, separated by commas, unless given "
     "c,cc,cpp,cxx,h,hh,hpp,hxx"},
    {"", "--exclude", "GLOB",
     "leave out what matches below DIR, as if GLOB were a line of a .gitignore file in DIR, for projects and --git one "
     "in the current directory; may be repeated"},
    {"", "--no-ignore", "", "take files below DIR and of projects although git ignores them"},
    {"", "--shard", "I/N",
     "take the I-th of N parts of the files. The parts are the same on every machine that has the same names below "
     "DIR; "
     "for projects names count from the project's directory, for FILE and --git from the current one"},
    {"-j", "--jobs", "N",
     "format N files at once, unless given as many as there are processors. What comes out is the same"},
    {"", "--assume-filename", "PATH",
     "the path of standard input, for messages and for the search for a scheme; without this option <stdin> and the "
     "current directory",
     Completion::Files},
};

constexpr OptionRow lineOptions[] = {
    {"", "--lines", "FROM:TO", "change these lines of the one FILE only, counted from 1; may be repeated"},
    {"",
     "--git",
     "REV",
     "change only lines that differ from a revision of git, HEAD unless given; without FILE and DIR take every source "
     "file of the work tree that has such lines",
     Completion::None,
     {},
     true},
    {"", "--staged", "", "with --git: only lines that are staged, as they stand in the work tree"},
};

constexpr OptionRow readingOptions[] = {
    {"", "--dialect", "NAME",
     "how C and C++ are read: auto, which is the default and tries the others in turn; classic, the language of the "
     "late nineties; modern, that of today",
     Completion::Words, "auto classic modern"},
    {"", "--language", "NAME",
     "the language of a text that is read in the modern dialect: auto, which is the default, C for a file *.c and else "
     "C++, or C where that refuses; c; c++",
     Completion::Words, "auto c c++"},
    {"", "--strict", "",
     "refuse a file with a part that can't be read; without this option that part is left as it stands, and the rest "
     "is "
     "formatted"},
};

constexpr OptionRow checkOptions[] = {
    {"", "--verify", "WHAT",
     "compare the tokens of the result with those of the source, and refuse a file where they differ; -i does so "
     "anyway. WHAT is tokens unless given; stable also formats the result again, and warns if that would change it",
     Completion::Words, "tokens stable", true},
    {"", "--no-verify", "", "with -i: compare nothing"},
};

constexpr OptionRow outputOptions[] = {
    {"", "--format", "FORM",
     "with --check: report each stretch that would change, and each file that is refused, in the form of other tools: "
     "sarif (2.1.0), checkstyle, github (commands of a workflow) or gcc",
     Completion::Words, "sarif checkstyle github gcc"},
    {"", "--color", "WHEN",
     "colour diffs and messages: auto, on a terminal unless NO_COLOR is set, which is the default; always; never",
     Completion::Words, "auto always never"},
    {"", "--threshold", "N",
     "leave out messages of a severity below N, 0 to 3, 2 unless given: 1 is information, 2 a warning, 3 an error",
     Completion::Words, "0 1 2 3"},
    {"", "--verbose", "",
     "tell for each file how many seams were mended, places where the scheme's white space would have changed the "
     "code; the threshold doesn't hide it. Name what is left out below DIR for being write-protected. At the end tell "
     "how many files were formatted, unchanged, refused, failed and left out; on a terminal that is told anyway"},
    {"", "--help", "", "show this help and exit"},
    {"", "--version", "", "show the version and exit"},
};

constexpr OptionGroup formatGroups[] = {
    {"Scheme", schemeOptions},   {"What to do", modeOptions}, {"Files", fileOptions}, {"Changed lines", lineOptions},
    {"Reading", readingOptions}, {"Safety", checkOptions},    {"Output", outputOptions},
};

constexpr ManualSection formatSections[] = {
    {"",
     R"(Messages go to standard error. A file that can't be read or parsed gives its messages and no output, and is left as
it is; the other files are still done.

--check and --diff may be combined. -i takes neither of them and no standard input; --backup needs -i; --assume-filename
needs standard input, which can be named only once. --verify and --no-verify cannot be combined. --list-schemes takes no
FILE, --dump-scheme one at most; neither takes -i, --check or --diff. --undo and --recover take no other option, and
--undo no FILE. --explain takes --scheme, --dialect, --language and --strict alone, --upgrade-scheme no other option. --project and --workspace need one of -i, --check and --diff. --format needs --check and takes no
--diff.

A scheme has a name once it stands in the user's scheme directory, by default $XDG_DATA_HOME/corvane/schemes, or
~/.local/share/corvane/schemes. The schemes that come with the program arrive there, write-protected: they are listed as
built-in.

On an interrupt (SIGINT, SIGTERM or SIGHUP) the files that are being formatted are brought to an end, and no other is
touched.

-i leaves a file alone that would not change. The old texts of the last ten runs are kept in $XDG_CACHE_HOME/corvane, by
default ~/.cache/corvane.

A file .corvaneignore, in the syntax of .gitignore, leaves out what it matches below its directory; what it says counts
for more than what git's own files say. If a project or a list cannot be read, nothing is formatted.

With --lines and --git the whole file is formatted, and of the changes those are taken over that lie in the chosen
lines; every other line comes out byte for byte. A line is split only if it is chosen, and joined to others only if all
of them are; a change that would need other lines is left out whole. To --git, all lines of a file are new that git
doesn't know. A staged line that has changed again in the work tree is left alone. --git takes no standard input, and
needs one of -i, --check and --diff without FILE.)"},
    {"Exit status",
     R"( 0  if all went well and, with --check or --diff, nothing would change,
 1  if --check or --diff found a file that would change,
 2  if a file was refused or failed, or the scheme or the arguments are bad.
 128 + N  if signal N has stopped the run.
Warnings don't change it.)"},
};

}  // namespace

constinit const ProgramManual formatManual = {
    "corvane-format", "format C and C++ source code by changing white space only", formatUsages, formatDescription, {},
    formatGroups,
    formatSections,
};

}  // namespace Console
