// What users are told about the command lines of the programs: one table each, from which come the names that the
// parsers know, the help texts, the manual pages and the completions of the shells. Data only.
#pragma once

#include <span>
#include <string_view>

namespace Console {

// What a shell offers behind an option.
enum class Completion { None, Words, Files, Schemes };

struct OptionRow {
    std::string_view letter;    // with its hyphen; may be empty, as may be the name
    std::string_view name;      // with its hyphens
    std::string_view argument;  // empty: takes none
    std::string_view help;      // a sentence without a stop; its first clause is what completions show
    Completion completion = Completion::None;
    std::string_view words = {};      // the values, between blanks
    bool isArgumentOptional = false;  // it is then taken behind an equals sign only

    constexpr std::string_view anyName() const { return name.empty() ? letter : name; }
};

struct OptionGroup {
    std::string_view title;
    std::span<const OptionRow> rows;
};

struct CommandRow {
    std::string_view name;
    std::string_view help;
};

// Running text between blank lines. A line that begins with a blank stands as it is.
struct ManualSection {
    std::string_view title;  // empty: the help text goes on without one, the manual page has a section NOTES
    std::string_view text;
};

struct ProgramManual {
    std::string_view name;
    std::string_view summary;                  // for the manual page, without a stop
    std::span<const std::string_view> usages;  // behind the name
    std::string_view description;
    std::span<const CommandRow> commands;  // of which one must be given, if there are any
    std::span<const OptionGroup> groups;
    std::span<const ManualSection> sections;
};

extern const ProgramManual formatManual;
extern const ProgramManual inspectManual;
extern const ProgramManual inferManual;

// The row of an option, by its name or letter. Throws std::logic_error if there is none.
const OptionRow& optionRow(const ProgramManual& manual, std::string_view name);

}  // namespace Console
