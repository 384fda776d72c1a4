// The table of corvane-infer.
#include "Console_OptionTable.h"

namespace Console {

namespace {

constexpr std::string_view inferUsages[] = {"[OPTION]... PATH..."};

constexpr std::string_view inferDescription =
    R"(Find the scheme under which the least of a code base changes, and write it to a scheme file.

Each PATH is a source file or a directory, which stands for the source files below it. The places of each property of
white space vote for its value; flags and anchors are tried on a part of the files. A property on which the code is of
two minds stays unset: corvane-format then leaves its places as they are. The report tells how many lines would change
under the scheme all the same, and why. No source file is written.)";

constexpr OptionRow inferOptions[] = {
    {"-o", "--output", "FILE",
     "the scheme file to write, .corvane.fsc in the current directory unless given; - is standard output, and the "
     "report "
     "then goes to standard error",
     Completion::Files},
    {"", "--force", "", "write over a FILE that is there"},
    {"", "--show", "", "tell for each property the value that fits best, its places and the share of them that agree"},
    {"", "--edition", "N", "the edition of the rules that the scheme is for: 2, which is the default, or 1",
     Completion::Words, "1 2"},
    {"", "--agreement", "PERCENT",
     "the share of its places that must agree before a property gets a value, 51 to 100, 90 unless given"},
    {"", "--extensions", "LIST",
     "the extensions of source files below a directory, separated by commas, unless given c,cc,cpp,cxx,h,hh,hpp,hxx"},
    {"", "--exclude", "GLOB",
     "leave out what matches below a directory, as if GLOB were a line of a .gitignore file in it; may be repeated"},
    {"", "--no-ignore", "", "take files below a directory although git ignores them"},
    {"-j", "--jobs", "N",
     "read N files at once, unless given as many as there are processors; what comes out is the same"},
    {"", "--help", "", "show this help and exit"},
    {"", "--version", "", "show the version and exit"},
};

constexpr OptionGroup inferGroups[] = {{"Options", inferOptions}};

constexpr ManualSection inferSections[] = {
    {"",
     R"(Long lines are not looked at: the scheme has no LINE_WRAP. Names of macros are not found either: FOR_EACH_MACROS and
its kin can be added to the file by hand.)"},
    {"Exit status",
     R"( 0  if a scheme was found,
 2  if no source file could be read, if the scheme file could not be
    written, or if the arguments are bad.
 128 + N  if signal N has stopped the search.)"},
};

}  // namespace

constinit const ProgramManual inferManual = {
    "corvane-infer", "find the scheme that a code base is written in", inferUsages, inferDescription, {}, inferGroups,
    inferSections,
};

}  // namespace Console
