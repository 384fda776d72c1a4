// A user's files for one test, and the program started on them.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QMenuBar>
#include <QTimer>
#include <functional>
#include <memory>
#include <nlohmann/json.hpp>

#include "../support/TestFiles.h"
#include "ScriptedDialogs.h"
#include "qt/BrevisUI_BrevisDlg.h"

namespace BrevisUI {

class DesktopTest : public testing::Test {
protected:
    static constexpr const char* ugly = "void f( ){\n      g( );\n}\n";
    static constexpr const char* pretty = "void f( ){\n  g( );\n}\n";

    // A store with the schemes "Narrow", which is in force, and "Wide"; settings without backups.
    DesktopTest() {
        for (const auto& [name, indent] : {std::pair{"Narrow", "  "}, std::pair{"Wide", "        "}}) {
            dir.file("schemes/" + std::string(name) + ".fsc", schemeText(name, indent));
        }
        options["StandaloneOnFormat"] = "Narrow";
        options["CreateBackups"] = 0;
        options["StandaloneLastDirectory"] = dir.path();
    }

    static std::string schemeText(const std::string& name, const std::string& indent) {
        return "Brevis::PropertySet\n1\n\"" + name + "\"\n3 CORVANE_VERSION \"1\"\n3 INDENT_FN_CONTENT \"" + indent +
               "\"\n";
    }
    std::string settingsPath() const { return dir.file("settings/settings.json"); }
    void writeSettings() {
        const nlohmann::json json = {{"PropertySetStore", dir.file("schemes")}, {"Options", options}};
        TestFiles::write(settingsPath(), json.dump());
    }
    nlohmann::json savedOptions() const {
        return nlohmann::json::parse(TestFiles::contents(settingsPath())).at("Options");
    }

    BrevisDlg& start() {
        writeSettings();
        window = std::make_unique<BrevisDlg>(SettingsFile(settingsPath()), dialogs);
        window->show();
        return *window;
    }

    // Presses the row of the menu, its text given with the marks of accelerators.
    void press(const QString& row) const {
        for (QAction* const menu : window->menuBar()->actions()) {
            for (QAction* const action : menu->menu()->actions()) {
                if (action->text() == row) return action->trigger();
            }
        }
        FAIL() << "There is no row " << row.toStdString();
    }

    // All messages in the order of the pane, with D in the place of the directory.
    std::string shown() const {
        std::string all;
        for (const std::string& message : window->messages()) all += message;
        for (std::size_t at; (at = all.find(dir.path())) != all.npos;) all.replace(at, dir.path().size(), "D");
        return all;
    }

    // Has `act` called with the dialog that the program opens next and waits for.
    template <class Dialog>
    void inDialog(std::function<void(Dialog&)> act) {
        QTimer::singleShot(0, qApp, [act] {
            auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            act(*dialog);
        });
    }

    TestFiles::TempDir dir;
    nlohmann::json options;
    ScriptedDialogs dialogs;
    std::unique_ptr<BrevisDlg> window;
};

}  // namespace BrevisUI
