// What the tests of the scheme editor share: schemes from the lines of their files, a window that counts what it is
// told, and a user who answers by a script.
#pragma once

#include <gtest/gtest.h>

#include <deque>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "editor/BrevisUI_StylesDlgHost.h"
#include "editor/BrevisUI_StylesSheet.h"

namespace BrevisUI::EditorSupport {

inline Brevis::PropertySet schemeOf(const std::string& properties, const std::string& name = "Mine") {
    std::istringstream in("Brevis::PropertySet\n1\n\"" + name + "\"\n" + properties);
    Brevis::PropertySet scheme;
    scheme.read(in);
    EXPECT_FALSE(in.fail()) << properties;
    return scheme;
}

// The line of a property in its file; empty if the scheme lacks it.
inline std::string lineOf(const Brevis::PropertySet& scheme, std::string_view key) {
    std::stringstream text;
    scheme.write(text);
    for (std::string line; std::getline(text, line);) {
        if (line.size() > 2 && line.substr(2).starts_with(std::string(key) + " ")) return line;
    }
    return {};
}

// A scheme in which every property of a page stands with its page default, none of the pages being switched off.
inline Brevis::PropertySet defaultScheme(const std::string& name = "Mine") {
    StylesSheet sheet;
    sheet.setScheme(Brevis::PropertySet(name));
    sheet.fetchScheme();
    return sheet.scheme();
}

struct Window : StylesListener {
    int modified = 0, redrawn = 0;
    std::set<std::string> pages;

    void schemeModified() override { ++modified; }
    void fieldsChanged(const StylesBasePage& page) override { pages.insert(std::string(page.info().className)); }
    void previewOutdated() override { ++redrawn; }
};

struct User : StylesDlgHost {
    std::deque<Answer> answers;
    std::deque<std::optional<std::string>> names;
    std::vector<std::string> shown;  // in the order of the boxes; a proposal in angle brackets

    void showWarning(std::string_view text) override { shown.emplace_back(text); }
    bool askYesNo(std::string_view text) override { return askYesNoCancel(text) == Answer::Yes; }
    Answer askYesNoCancel(std::string_view text) override {
        shown.emplace_back(text);
        return next(answers, Answer::Cancel);
    }
    std::optional<std::string> askSchemeName(std::string_view proposal) override {
        shown.push_back("<" + std::string(proposal) + ">");
        return next(names, std::optional<std::string>());
    }

private:
    template <class T>
    static T next(std::deque<T>& script, T otherwise) {
        if (script.empty()) {
            ADD_FAILURE() << "a question too many";
            return otherwise;
        }
        T answer = script.front();
        script.pop_front();
        return answer;
    }
};

}  // namespace BrevisUI::EditorSupport
