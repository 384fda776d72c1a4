// Answers what windows ask of the system, from a script, and writes down what they asked.
#pragma once

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "qt/BrevisUI_Dialogs.h"

namespace BrevisUI {

class ScriptedDialogs : public Dialogs {
public:
    void tell(QWidget* /*parent*/, Icon icon, std::string_view text) override {
        constexpr const char* words[] = {"information: ", "warning: ", "stop: "};
        log.push_back(words[static_cast<int>(icon)] + std::string(text));
        if (onTell) onTell();
    }
    Answer ask(QWidget* /*parent*/, std::string_view question) override {
        log.push_back("ask: " + std::string(question));
        return answer;
    }
    bool confirm(QWidget* parent, std::string_view question) override { return ask(parent, question) == Answer::Yes; }
    std::vector<std::string> chooseFiles(QWidget* /*parent*/, const FileChoice& choice) override {
        log.push_back("choose: " + choice.filter + " in " + choice.directory);
        return chosen;
    }
    std::optional<std::string> chooseFolder(QWidget* /*parent*/, std::string_view title,
                                            const std::string& directory) override {
        log.push_back(std::string(title) + " in " + directory);
        return chosen.empty() ? std::nullopt : std::optional(chosen.front());
    }
    std::optional<std::string> chooseNewFile(QWidget* /*parent*/, std::string_view /*filter*/,
                                             const std::string& /*path*/) override {
        return chosen.empty() ? std::nullopt : std::optional(chosen.front());
    }
    void openInEditor(QWidget* /*parent*/, const MessagePlace& place, const std::string& editor) override {
        log.push_back("open: " + place.path + " " + std::to_string(place.line) + " " + std::to_string(place.column) +
                      " with " + editor);
    }

    bool hasTold(std::string_view text) const {
        return std::ranges::any_of(log, [text](const std::string& line) { return line.find(text) != line.npos; });
    }

    std::vector<std::string> chosen;
    Answer answer = Answer::Yes;
    std::function<void()> onTell;
    std::vector<std::string> log;
};

}  // namespace BrevisUI
