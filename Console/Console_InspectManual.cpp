// The table of corvane-inspect.
#include "Console_OptionTable.h"

namespace Console {

namespace {

constexpr std::string_view inspectUsages[] = {
    "tokens [OPTION]... [FILE]", "tree [OPTION]... [FILE]", "wrap --scheme SCHEME [FILE]",
    "gaps [OPTION]... [FILE]",   "scheme [--scheme SCHEME] [FILE]",
};

constexpr std::string_view inspectDescription =
    R"(Show what the stages of the formatter make of a C or C++ source text, or of a scheme.

Without FILE, or where FILE is -, standard input is read; to the command scheme it stands for a file in the current
directory.)";

constexpr CommandRow inspectCommands[] = {
    {"tokens",
     "one token a line: its number, its first and last position and its text, between tabs; the end of the text comes "
     "last"},
    {"tree", "one node of the syntax tree a line, two blanks a level"},
    {"wrap", "the text as the second pass leaves it, which wraps long lines; the text is taken as formatted already"},
    {"gaps",
     "one stretch of white space a line that formatting would change: the position of what stands behind it, the key "
     "or "
     "the rule that decides so, the white space in the text and in the result, between tabs; under a scheme with "
     "EDITION "
     "2 only"},
    {"scheme",
     "one property a line: its key, the value in force and where that comes from, between tabs; the path of the scheme "
     "comes first"},
};

constexpr OptionRow inspectOptions[] = {
    {"", "--dialect", "NAME",
     "how the text is read: classic, the language of the late nineties; modern, that of today; auto, which is the "
     "default: classic for tokens, for tree the first that takes the text",
     Completion::Words, "auto classic modern"},
    {"", "--language", "NAME", "with tokens, tree and gaps, in the modern dialect: auto, c or c++", Completion::Words,
     "auto c c++"},
    {"", "--preformat", "",
     "with tree: the tree as the formatter gets it; a marked region that is left alone is a single comment"},
    {"", "--roles", "",
     "with tree: one token a line: its first position, its text and what it is to the text around it, such as prefix, "
     "pointer or cast, between tabs; the text is read in the modern dialect"},
    {"-s", "--scheme", "SCHEME",
     "with tree, wrap, gaps and scheme: the path or the name of the scheme; without one, gaps and scheme take the scheme "
     "that "
     "corvane-format would take for FILE, which the command scheme doesn't read; tree takes the names of macros from it",
     Completion::Schemes},
    {"", "--help", "", "show this help and exit"},
    {"", "--version", "", "show the version and exit"},
};

constexpr OptionGroup inspectGroups[] = {{"Options", inspectOptions}};

constexpr ManualSection inspectSections[] = {
    {"",
     R"(Rules without a key are named too. indent: a line moves with the line that it belongs to; guard: tokens have to stay
as they are; nothing, blank, line-feed, column, comment: what a rule puts there; comment-line: a later line of a comment
moves with its first one; line-end: what stands in front ends its line.

Positions are LINE:COLUMN. In a text, white space other than blanks, quotes and backslashes are escaped. What the
parser reports goes to standard error; the tree is shown even so.)"},
    {"Exit status",
     R"( 0  if the text or the scheme was read, whatever the parser reports,
 2  if one of them could not be read, if the text is nested too deeply or
    can't be wrapped for what the parser reports, or if the arguments are bad.)"},
};

}  // namespace

constinit const ProgramManual inspectManual = {
    "corvane-inspect", "show how a source text or a scheme is read", inspectUsages, inspectDescription, inspectCommands,
    inspectGroups, inspectSections,
};

}  // namespace Console
