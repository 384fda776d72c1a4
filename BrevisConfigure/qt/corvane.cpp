// The desktop program. It takes no arguments.
#include "BrevisUI_UserPlaces.h"
#include "qt/BrevisUI_Application.h"
#include "qt/BrevisUI_BrevisApp.h"
#include "qt/BrevisUI_SystemDialogs.h"

int main(int argc, char** argv) {
    BrevisUI::Application application(argc, argv);
    BrevisUI::SystemDialogs dialogs;
    return BrevisUI::BrevisApp(application, dialogs, BrevisUI::userSettingsPath()).run() ? 0 : 1;
}
