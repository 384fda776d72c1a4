// Lines of at most 80 columns: the names of an option on the left, what it does on the right.
#include "Console_ManualText.h"

#include <algorithm>
#include <stdexcept>

namespace Console {

namespace {

constexpr std::size_t width = 80, helpColumn = 26, hang = 2;

// The words of a text in lines, from `column` on; lines behind the first begin at `indent`.
void appendWrapped(std::string& out, std::string_view text, std::size_t column, std::size_t indent) {
    bool isFirst = true;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        text.remove_prefix(std::min(word.size() + 1, text.size()));
        if (!isFirst && column + 1 + word.size() > width) {
            out += '\n';
            out.append(indent, ' ');
            column = indent;
        } else if (!isFirst) {
            out += ' ';
            ++column;
        }
        out += word;
        column += word.size();
        isFirst = false;
    }
    out += '\n';
}

std::string headOf(const OptionRow& row) {
    std::string head = "  ";
    head += row.letter.empty() ? "    " : std::string(row.letter) + (row.name.empty() ? "" : ", ");
    head += row.name;
    if (row.argument.empty()) return head;
    const std::string argument = "=" + std::string(row.argument);
    return head + (row.isArgumentOptional ? "[" + argument + "]" : argument);
}

void appendRow(std::string& out, std::string head, std::string_view help) {
    if (head.size() + 2 > helpColumn) {
        out += head + "\n";
        head.clear();
    }
    head.resize(helpColumn, ' ');
    out += head;
    appendWrapped(out, help, helpColumn, helpColumn + hang);
}

void appendText(std::string& out, std::string_view text) {
    bool isFirst = true;
    forEachParagraph(
        text,
        [&](std::string_view paragraph) {
            if (!isFirst) out += '\n';
            isFirst = false;
            appendWrapped(out, paragraph, 0, 0);
        },
        [&](std::string_view line) { out.append(" ").append(line).append("\n"); });
}

}  // namespace

std::string helpText(const ProgramManual& manual) {
    std::string out;
    for (const std::string_view usage : manual.usages) {
        out.append(out.empty() ? "Usage: " : "  or:  ").append(manual.name).append(" ").append(usage).append("\n");
    }
    appendText(out, manual.description);
    if (!manual.commands.empty()) out += "\nCommands:\n";
    for (const auto& [name, help] : manual.commands) appendRow(out, "  " + std::string(name), help);
    for (const auto& [title, rows] : manual.groups) {
        out.append("\n").append(title).append(":\n");
        for (const OptionRow& row : rows) appendRow(out, headOf(row), row.help);
    }
    for (const auto& [title, text] : manual.sections) {
        out += '\n';
        if (!title.empty()) out.append(title).append(":\n");
        appendText(out, text);
    }
    return out;
}

const OptionRow& optionRow(const ProgramManual& manual, std::string_view name) {
    for (const OptionGroup& group : manual.groups) {
        for (const OptionRow& row : group.rows) {
            if (row.name == name || row.letter == name) return row;
        }
    }
    throw std::logic_error("no such option in the table: " + std::string(name));
}

}  // namespace Console
