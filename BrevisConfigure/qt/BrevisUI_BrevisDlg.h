// The main window: menu, message pane and status bar. It owns the schemes, the settings and the batch commands for the
// life of the program, and nothing of how they work.
#pragma once

#include <QMainWindow>
#include <deque>
#include <memory>
#include <string>
#include <vector>

#include "batch/BrevisUI_BatchRun.h"
#include "editor/BrevisUI_ProgramState.h"
#include "editor/BrevisUI_StylesDlgModel.h"
#include "help/BrevisUI_HelpLibrary.h"
#include "projects/BrevisUI_ProjectFiles.h"
#include "qt/BrevisUI_WindowHost.h"
#include "settings/BrevisUI_SettingsFile.h"

class QAction;
class QMenu;

namespace BrevisUI {

class HelpWindow;
class MessagePane;
class StatusPanes;

class BrevisDlg : public QMainWindow {
    Q_OBJECT

public:
    // Reads settings and schemes, which may throw what PropertySetStore::read and convertOldSchemes do. Warnings are
    // shown with `dialogs`, which must outlive the window.
    BrevisDlg(SettingsFile settings, Dialogs& dialogs);
    ~BrevisDlg() override;

    // Shows a message unless it is below the threshold. It has no line end.
    void logMessage(const std::string& text, int severity);
    void clearMessages();
    // All that passed the threshold since they were cleared, each with carriage return and line feed.
    const std::deque<std::string>& messages() const { return messages_; }

    bool isBusy() const { return run_.isBusy(); }
    const ProgramState& state() const { return state_; }

    // Formats files together, and each project, workspace or directory as the command for it does. Does nothing while
    // a command is at work.
    void formatPaths(const std::vector<std::string>& paths);

Q_SIGNALS:
    // The window has been closed and its settings are saved.
    void closed();

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void readSettingsAndSchemes();
    void warn(std::string_view text);

    void fillMenus();
    void fillFormatMenu();
    QAction* addRow(QMenu* menu, const QString& text, const QString& help, const QKeySequence& shortcut);
    template <class Slot>
    void call(Slot slot);
    template <class Slot>
    QAction* addRow(QMenu* menu, const QString& text, const QString& help, const QKeySequence& shortcut, Slot slot);
    void setBusy(bool isBusy);

    void placeWindow();
    void saveSettings();
    void takeWindowPosition();

    void formatGiven(const std::vector<std::string>& paths, void (BatchRun::*command)(), bool keepMessages);
    void showOptions();
    void openMessage(int number);
    const HelpLibrary& helpLibrary();
    HelpWindow& help();
    void showHelp(const QString& topic);
    void showAbout();

    Dialogs& dialogs_;
    SettingsFile settings_;
    ProgramState state_;
    EditorMemory editorMemory_;
    ProjectFiles projects_;
    std::deque<std::string> messages_;

    MessagePane* pane_;
    StatusPanes* status_;
    std::vector<QAction*> idleActions_;  // those that a run keeps out

    // Made when they are asked for.
    std::unique_ptr<HelpLibrary> helpLibrary_;
    std::unique_ptr<HelpWindow> help_;

    WindowHost host_;
    BatchRun run_;
};

}  // namespace BrevisUI
