// One function a kind of page.
#include "Console_ManualPages.h"

#include <algorithm>
#include <cctype>

#include "Console_ManualText.h"

namespace Console {

namespace {

std::string upper(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return result;
}

template <class Take>
void forEachRow(const ProgramManual& manual, Take take) {
    for (const OptionGroup& group : manual.groups) {
        for (const OptionRow& row : group.rows) take(row);
    }
}

std::string replaced(std::string_view text, char what, std::string_view with) {
    std::string result;
    for (const char c : text) c == what ? result += with : result += c;
    return result;
}

// A name of a shell function.
std::string functionName(const ProgramManual& manual) { return "_" + replaced(manual.name, '-', "_"); }

// What fits beside a completion.
std::string_view firstClause(std::string_view help) {
    if (help.starts_with("with ")) help.remove_prefix(help.find(": ") + 2);
    std::size_t end = help.find_first_of(":;");
    end = std::min({end, help.find(". "), help.find(", "), help.size()});
    return help.substr(0, end);
}

// Text in a manual page: a line must not begin like a request.
std::string roff(std::string_view text) {
    std::string result = replaced(replaced(text, '\\', "\\e"), '-', "\\-");
    if (result.starts_with('.') || result.starts_with('\'')) result.insert(0, "\\&");
    return result;
}

std::string manualHead(const OptionRow& row) {
    std::string head;
    if (!row.letter.empty()) head = "\\fB" + roff(row.letter) + "\\fR";
    if (!row.letter.empty() && !row.name.empty()) head += ", ";
    if (!row.name.empty()) head += "\\fB" + roff(row.name) + "\\fR";
    if (row.argument.empty()) return head;
    const std::string argument = "=\\fI" + roff(row.argument) + "\\fR";
    return head + (row.isArgumentOptional ? "[" + argument + "]" : argument);
}

// A heading begins a paragraph by itself.
bool endsWithHeading(const std::string& page) {
    return page.find(".SH ", page.rfind('\n', page.size() - 2) + 1) != std::string::npos;
}

void appendParagraphs(std::string& out, std::string_view text) {
    forEachParagraph(
        text,
        [&](std::string_view paragraph) { out += (endsWithHeading(out) ? "" : ".PP\n") + roff(paragraph) + "\n"; },
        [&](std::string_view line) { out += ".nf\n" + roff(line) + "\n.fi\n"; });
}

// In single quotes of a POSIX shell.
std::string inQuotes(std::string_view text) { return "'" + replaced(text, '\'', "'\\''") + "'"; }

// In single quotes of fish, which knows escapes there.
std::string fishQuoted(std::string_view text) {
    return "'" + replaced(replaced(text, '\\', "\\\\"), '\'', "\\'") + "'";
}

// Of zsh, which offers them beside files.
constexpr std::string_view zshSchemes = R"zsh(_corvane_schemes() {
    local -a schemes
    schemes=(${(f)"$(corvane-format --list-schemes 2>/dev/null | sed 's/ (built-in)$//')"})
    _alternative 'schemes:scheme:compadd -a schemes' 'files:file:_files'
}
)zsh";

// The schemes of the store, one a line; any of the programs may be the one that is installed.
constexpr std::string_view listSchemes = "corvane-format --list-schemes 2>/dev/null | sed 's/ (built-in)$//'";

std::string bashNames(const OptionRow& row) {
    std::string names(row.letter);
    if (!row.letter.empty() && !row.name.empty()) names += '|';
    return names.append(row.name);
}

std::string bashReply(const OptionRow& row) {
    switch (row.completion) {
        case Completion::Words:
            return "mapfile -t COMPREPLY < <(compgen -W " + inQuotes(row.words) + " -- \"$cur\")";
        case Completion::Files:
            return "compopt -o filenames; mapfile -t COMPREPLY < <(compgen -f -- \"$cur\")";
        case Completion::Schemes:
            return "local IFS=$'\\n'; compopt -o filenames; mapfile -t COMPREPLY < <(compgen -W \"$(" +
                   std::string(listSchemes) + ")\" -- \"$cur\"; compgen -f -- \"$cur\")";
        default:
            return ":";
    }
}

std::string zshAction(const OptionRow& row) {
    switch (row.completion) {
        case Completion::Words:
            return "(" + std::string(row.words) + ")";
        case Completion::Files:
            return "_files";
        case Completion::Schemes:
            return "_corvane_schemes";
        default:
            return " ";
    }
}

// Brackets and colons have a meaning to _arguments.
std::string zshText(std::string_view text) {
    return replaced(replaced(replaced(text, ':', "\\:"), '[', "\\["), ']', "\\]");
}

std::string zshArgument(const OptionRow& row) {
    std::string tail = "[" + zshText(firstClause(row.help)) + "]";
    if (!row.argument.empty()) {
        tail += row.isArgumentOptional ? "::" : ":";
        tail += zshText(row.argument) + ":" + zshAction(row);
    }
    const std::string sign = row.argument.empty() ? "" : row.isArgumentOptional ? "=-" : "=";
    std::string line;
    if (!row.letter.empty())
        line += "    '*" + std::string(row.letter) + (row.argument.empty() ? "" : "+") + "'" + inQuotes(tail) + " \\\n";
    if (!row.name.empty()) line += "    '*" + std::string(row.name) + sign + "'" + inQuotes(tail) + " \\\n";
    return line;
}

}  // namespace

std::string manualPage(const ProgramManual& manual, std::string_view version) {
    std::string out = ".\\\" Made from the table of options; changes here get lost.\n";
    out +=
        ".TH " + upper(roff(manual.name)) + " 1 \"\" \"Corvane C++ " + std::string(version) + "\" \"User Commands\"\n";
    out += ".SH NAME\n" + roff(manual.name) + " \\- " + roff(manual.summary) + "\n.SH SYNOPSIS\n";
    for (std::size_t i = 0; i < manual.usages.size(); ++i) {
        if (i > 0) out += ".br\n";
        out += ".B " + roff(manual.name) + "\n" + roff(manual.usages[i]) + "\n";
    }
    out += ".SH DESCRIPTION\n";
    appendParagraphs(out, manual.description);
    if (!manual.commands.empty()) out += ".SH COMMANDS\n";
    for (const auto& [name, help] : manual.commands) out += ".TP\n.B " + roff(name) + "\n" + roff(help) + "\n";
    out += ".SH OPTIONS\n";
    for (const auto& [title, rows] : manual.groups) {
        if (manual.groups.size() > 1) out += ".SS \"" + roff(title) + "\"\n";
        for (const OptionRow& row : rows) out += ".TP\n" + manualHead(row) + "\n" + roff(row.help) + "\n";
    }
    for (const auto& [title, text] : manual.sections) {
        out += ".SH \"" + (title.empty() ? "NOTES" : upper(title)) + "\"\n";
        appendParagraphs(out, text);
    }
    const std::string_view other = manual.name == formatManual.name ? inspectManual.name : formatManual.name;
    return out + ".SH \"SEE ALSO\"\n.BR " + roff(other) + " (1)\n";
}

std::string bashCompletion(const ProgramManual& manual) {
    std::string names;
    std::string cases;
    forEachRow(manual, [&](const OptionRow& row) {
        for (const std::string_view name : {row.letter, row.name}) {
            if (!name.empty()) names += std::string(name) + " ";
        }
        if (row.argument.empty()) return;
        const std::string condition = row.isArgumentOptional ? "[[ $joined ]] && { " : "{ ";
        cases += "        " + bashNames(row) + ") " + condition + bashReply(row) + "; return; } ;;\n";
    });
    std::string commands;
    for (const CommandRow& command : manual.commands) commands += std::string(command.name) + " ";
    const std::string function = functionName(manual);
    std::string out = "# bash completion for " + std::string(manual.name) + "\n" + function + R"(() {
    local cur=${COMP_WORDS[COMP_CWORD]} prev=${COMP_WORDS[COMP_CWORD-1]} joined=
    COMPREPLY=()
    # An equals sign is a word of its own here.
    if [[ $cur == = ]]; then
        cur='' joined=1
    elif [[ $prev == = ]]; then
        prev=${COMP_WORDS[COMP_CWORD-2]} joined=1
    fi
    case $prev in
)" + cases + R"(    esac
    if [[ $cur == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W ')" +
                      names + R"(' -- "$cur")
        return
    fi
)";
    if (!commands.empty()) {
        out += "    if [[ $COMP_CWORD -eq 1 ]]; then\n        mapfile -t COMPREPLY < <(compgen -W '" + commands +
               "' -- \"$cur\")\n        return\n    fi\n";
    }
    return out + "    compopt -o filenames\n    mapfile -t COMPREPLY < <(compgen -f -- \"$cur\")\n}\ncomplete -F " +
           function + " " + std::string(manual.name) + "\n";
}

std::string zshCompletion(const ProgramManual& manual) {
    std::string out = "#compdef " + std::string(manual.name) + "\n" + std::string(zshSchemes) + "_arguments -s -S \\\n";
    forEachRow(manual, [&](const OptionRow& row) { out += zshArgument(row); });
    if (manual.commands.empty()) return out + "    '*:file:_files'\n";
    std::string commands;
    for (const CommandRow& command : manual.commands) commands += " " + std::string(command.name);
    return out + "    '1:command:(" + commands.substr(1) + ")' \\\n    '*:file:_files'\n";
}

std::string fishCompletion(const ProgramManual& manual) {
    const std::string head = "complete -c " + std::string(manual.name);
    std::string out = "# fish completion for " + std::string(manual.name) + "\n";
    for (const auto& [name, help] : manual.commands) {
        out +=
            head + " -n __fish_use_subcommand -a " + std::string(name) + " -d " + fishQuoted(firstClause(help)) + "\n";
    }
    forEachRow(manual, [&](const OptionRow& row) {
        out += head;
        if (!row.letter.empty()) out += " -s " + std::string(row.letter.substr(1));
        if (!row.name.empty()) out += " -l " + std::string(row.name.substr(2));
        if (!row.argument.empty() && !row.isArgumentOptional) {
            out += row.completion == Completion::Words || row.completion == Completion::None ? " -x" : " -r";
        }
        if (row.completion == Completion::Words) out += " -a " + fishQuoted(row.words);
        if (row.completion == Completion::Schemes) out += " -a " + fishQuoted("(" + std::string(listSchemes) + ")");
        out += " -d " + fishQuoted(firstClause(row.help)) + "\n";
    });
    return out;
}

}  // namespace Console
