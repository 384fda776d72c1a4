// The main window as the batch commands see it: it asks with the dialogs of the system, shows what a run does in pane
// and status bar, and lets the window live between two files.
#pragma once

#include <QPointer>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "batch/BrevisUI_BatchHost.h"
#include "disk/BrevisUI_SignalPause.h"
#include "editor/BrevisUI_ProgramState.h"
#include "qt/BrevisUI_Dialogs.h"
#include "qt/BrevisUI_FileProgressWindow.h"

namespace BrevisUI {

class StatusPanes;

class WindowHost : public BatchHost {
public:
    // What the host tells the window.
    struct Events {
        std::function<void(const std::string& text, int severity)> message;
        std::function<void()> clearMessages;
        std::function<void(bool isBusy)> busy;
    };

    // All must outlive the object, save that `window`, the parent of dialogs, may go first.
    WindowHost(QWidget* window, Dialogs& dialogs, StatusPanes& status, ProgramState& state, Events events);
    ~WindowHost() override;

    // The next dialog that chooses files or a folder gives these paths without being shown, and the message pane isn't
    // cleared if `keepMessages` is set. To be undone by `forget` behind the command.
    void give(std::vector<std::string> paths, bool keepMessages);
    void forget();

    void send(const std::string& text, int severity) override { events_.message(text, severity); }
    void letUserInterfaceRun() override;
    void alert(const std::string& text) override;
    bool createBackups() const override { return state_.settings.createBackups; }
    std::string backupExtension() const override { return state_.settings.backupExtension; }

    std::vector<std::string> chooseFiles(const FileChoice& choice) override;
    std::optional<std::string> chooseFolder(std::string_view title, const std::string& directory) override;
    Answer ask(const std::string& question) override;
    void show(std::string_view text) override;
    void clearMessages() override;
    void setBusy() override;
    void setReady() override;
    void setStatusText(const std::string& text) override;
    void setOverallRange(int count) override;
    void advanceOverall() override;
    void showWaitCursor(bool visible) override;
    std::unique_ptr<BatchProgressDlg> createProgress() override;
    Brevis::Reading reading() const override { return {.dialect = state_.settings.dialect}; }
    std::string lastDirectory() const override { return state_.settings.lastDirectory; }
    void setLastDirectory(const std::string& directory) override { state_.settings.lastDirectory = directory; }
    std::vector<std::string> extensions() const override { return state_.settings.fileExtensions; }
    const Brevis::PropertySet* scheme() const override;

private:
    QPointer<QWidget> window_;
    Dialogs& dialogs_;
    StatusPanes& status_;
    ProgramState& state_;
    const Events events_;

    std::optional<std::vector<std::string>> given_;
    bool keepMessages_ = false;

    // Of the command at work.
    std::optional<SignalPause> pause_;
    QPointer<FileProgressWindow> progress_;
};

}  // namespace BrevisUI
