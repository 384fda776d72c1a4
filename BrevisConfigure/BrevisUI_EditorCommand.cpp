// The table of editors and the filling in of command lines.
#include "BrevisUI_EditorCommand.h"

#include <algorithm>
#include <array>

namespace BrevisUI {

namespace {

struct KnownEditor {
    std::string_view program;
    std::string_view arguments;
    bool needsTerminal = false;
};

constexpr std::array<KnownEditor, 22> knownEditors{{
    {"code", "-g {path}:{line}:{column}"},
    {"codium", "-g {path}:{line}:{column}"},
    {"emacs", "+{line}:{column} {path}"},
    {"emacsclient", "-n +{line}:{column} {path}"},
    {"featherpad", "+{line} {path}"},
    {"geany", "--line {line} --column {column} {path}"},
    {"gedit", "+{line}:{column} {path}"},
    {"gnome-text-editor", "+{line}:{column} {path}"},
    {"gvim", "+{line} {path}"},
    {"kate", "--line {line} --column {column} {path}"},
    {"kwrite", "--line {line} --column {column} {path}"},
    {"mousepad", "--line={line} --column={column} {path}"},
    {"pluma", "+{line} {path}"},
    {"qtcreator", "-client {path}:{line}:{column}"},
    {"subl", "{path}:{line}:{column}"},
    {"xed", "+{line} {path}"},
    {"micro", "+{line}:{column} {path}", true},
    {"nano", "+{line},{column} {path}", true},
    {"nvim", "+{line} {path}", true},
    {"vi", "+{line} {path}", true},
    {"vim", "+{line} {path}", true},
    {"joe", "+{line} {path}", true},
}};

constexpr std::array<std::string_view, 2> terminal{"x-terminal-emulator", "-e"};

constexpr std::string_view pathMark = "{path}", lineMark = "{line}", columnMark = "{column}";

std::vector<std::string> splitWords(std::string_view commandLine) {
    std::vector<std::string> words;
    bool isQuoted = false, isWord = false;
    for (const char c : commandLine) {
        if (c == '"') {
            isQuoted = !isQuoted;
        } else if (c == ' ' && !isQuoted) {
            isWord = false;
            continue;
        }
        if (!isWord) words.emplace_back();
        isWord = true;
        if (c != '"') words.back() += c;
    }
    return words;
}

// The word with the place filled in. What has been filled in is never searched for marks.
std::string fillInPlace(std::string_view word, const MessagePlace& place) {
    const std::array<std::pair<std::string_view, std::string>, 3> values{{
        {pathMark, place.path},
        {lineMark, std::to_string(std::max(place.line, 1))},
        {columnMark, std::to_string(std::max(place.column, 1))},
    }};
    std::string text;
    while (!word.empty()) {
        const auto mark =
            std::ranges::find_if(values, [&](const auto& value) { return word.starts_with(value.first); });
        if (mark == values.end()) {
            text += word.front();
            word.remove_prefix(1);
        } else {
            text += mark->second;
            word.remove_prefix(mark->first.size());
        }
    }
    return text;
}

void append(std::vector<std::string>& command, const std::vector<std::string>& words, const MessagePlace& place) {
    for (const std::string& word : words) command.push_back(fillInPlace(word, place));
}

std::vector<std::string> settledCommand(std::string_view setting, const MessagePlace& place) {
    std::vector<std::string> words = splitWords(setting);
    if (!words.empty() && setting.find(pathMark) == std::string_view::npos) words.emplace_back(pathMark);
    std::vector<std::string> command;
    append(command, words, place);
    return command;
}

}  // namespace

std::vector<std::string> editorCommand(std::string_view setting, std::string_view environment,
                                       const MessagePlace& place) {
    if (std::vector<std::string> command = settledCommand(setting, place); !command.empty()) return command;
    std::vector<std::string> command;
    const std::vector<std::string> words = splitWords(environment);
    if (words.empty()) return command;
    const std::string_view path = words.front();
    const std::string_view name = path.substr(path.rfind('/') + 1);
    const auto known = std::ranges::find(knownEditors, name, &KnownEditor::program);
    if (known == knownEditors.end()) return command;
    if (known->needsTerminal) command.assign(terminal.begin(), terminal.end());
    command.insert(command.end(), words.begin(), words.end());
    append(command, splitWords(known->arguments), place);
    return command;
}

}  // namespace BrevisUI
