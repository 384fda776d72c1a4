// Keeps the first exception.
#include "qt/BrevisUI_Application.h"

#include <QIcon>

namespace BrevisUI {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {
    setApplicationName(QStringLiteral("corvane"));
    setApplicationVersion(QStringLiteral(CORVANE_VERSION_TEXT));
    setDesktopFileName(QStringLiteral("corvane"));
    setWindowIcon(QIcon(QStringLiteral(":/corvane/corvane.svg")));
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        if (!failure_) failure_ = std::current_exception();
        exit(1);
    }
    return true;
}

}  // namespace BrevisUI
