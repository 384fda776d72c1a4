// The windows that are drawn for the documentation: one function for each, which makes the window as a user meets it.
// A further window is one more row of the table in the source.
#pragma once

#include <QWidget>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "../../support/TestFiles.h"
#include "editor/BrevisUI_ProgramState.h"
#include "editor/BrevisUI_StylesDlgModel.h"
#include "help/BrevisUI_HelpLibrary.h"
#include "qt/BrevisUI_SystemDialogs.h"
#include "settings/BrevisUI_SettingsFile.h"

namespace Screenshots {

// What all windows share: a user's settings and schemes in a directory of their own. It outlives the windows.
struct Stage {
    // Copies the schemes that come with the program, and makes one of a user's.
    Stage();

    TestFiles::TempDir dir;
    BrevisUI::SystemDialogs dialogs;
    BrevisUI::SettingsFile settings;
    BrevisUI::ProgramState state;
    BrevisUI::EditorMemory memory;
    BrevisUI::HelpLibrary help;
};

struct Scene {
    std::string name;  // of the picture, without its extension
    std::function<std::unique_ptr<QWidget>(Stage&)> make;
};

std::vector<Scene> scenes();

}  // namespace Screenshots
