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

void Application::guard(const std::function<void()>& command) {
    auto* const application = qobject_cast<Application*>(instance());
    try {
        command();
    } catch (...) {
        if (!application) throw;
        application->keepFailure();
    }
}

bool Application::notify(QObject* receiver, QEvent* event) {
    try {
        return QApplication::notify(receiver, event);
    } catch (...) {
        keepFailure();
    }
    return true;
}

void Application::keepFailure() {
    if (!failure_) failure_ = std::current_exception();
    exit(1);
}

}  // namespace BrevisUI
