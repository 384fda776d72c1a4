// The guarded run of the main window.
#include "qt/BrevisUI_BrevisApp.h"

#include <QTimer>
#include <new>

#include "BrevisUI_Messages.h"
#include "Trn_Exception.h"
#include "qt/BrevisUI_BrevisDlg.h"

namespace BrevisUI {

bool BrevisApp::run(const std::function<void(BrevisDlg&)>& onShown) {
    try {
        runWindow(onShown);
        return true;
    } catch (const PropertySetStore::FileError& error) {
        tell(Dialogs::Icon::Warning, error.message());
    } catch (const std::bad_alloc&) {
        tell(Dialogs::Icon::Stop, Message::outOfMemory);
    } catch (const std::exception& error) {
        tell(Dialogs::Icon::Stop, fillIn(Message::unexpected, error.what()));
    }
    return false;
}

void BrevisApp::runWindow(const std::function<void(BrevisDlg&)>& onShown) {
    BrevisDlg window(SettingsFile(settingsPath_), dialogs_);
    // Other windows that are open go with this one.
    QObject::connect(&window, &BrevisDlg::closed, &application_, [] { QCoreApplication::exit(0); });
    window.show();
    if (onShown) QTimer::singleShot(0, &window, [&] { onShown(window); });
    QApplication::exec();
    if (const std::exception_ptr failure = application_.takeFailure()) std::rethrow_exception(failure);
}

void BrevisApp::tell(Dialogs::Icon icon, std::string_view text) { dialogs_.tell(nullptr, icon, text); }

}  // namespace BrevisUI
