// The program from its start to its end: builds the main window, runs it until it is closed, and tells the user what
// ended either before its time.
#pragma once

#include <functional>
#include <string>

#include "qt/BrevisUI_Application.h"
#include "qt/BrevisUI_Dialogs.h"

namespace BrevisUI {

class BrevisDlg;

class BrevisApp {
public:
    // The settings are in the file at `settingsPath`. Both objects must outlive this one.
    BrevisApp(Application& application, Dialogs& dialogs, std::string settingsPath)
        : application_(application), dialogs_(dialogs), settingsPath_(std::move(settingsPath)) {}

    // False if an error ended the program, which the user has been told. `onShown` is called once the window is there.
    bool run(const std::function<void(BrevisDlg&)>& onShown = {});

private:
    void runWindow(const std::function<void(BrevisDlg&)>& onShown);
    void tell(Dialogs::Icon icon, std::string_view text);

    Application& application_;
    Dialogs& dialogs_;
    std::string settingsPath_;
};

}  // namespace BrevisUI
