// Passes on what the commands ask for.
#include "qt/BrevisUI_WindowHost.h"

#include <QApplication>
#include <utility>

#include "qt/BrevisUI_StatusPanes.h"
#include "qt/BrevisUI_Text.h"

namespace BrevisUI {

namespace {

// The arrow of the pointer while a question is shown, whatever the run shows.
class ArrowCursor {
public:
    ArrowCursor() { QApplication::setOverrideCursor(Qt::ArrowCursor); }
    ~ArrowCursor() { QApplication::restoreOverrideCursor(); }
    ArrowCursor(const ArrowCursor&) = delete;
    ArrowCursor& operator=(const ArrowCursor&) = delete;
};

}  // namespace

WindowHost::WindowHost(QWidget* window, Dialogs& dialogs, StatusPanes& status, ProgramState& state, Events events)
    : window_(window), dialogs_(dialogs), status_(status), state_(state), events_(std::move(events)) {}

WindowHost::~WindowHost() = default;

void WindowHost::give(std::vector<std::string> paths, bool keepMessages) {
    given_ = std::move(paths);
    keepMessages_ = keepMessages;
}

void WindowHost::forget() {
    given_.reset();
    keepMessages_ = false;
}

void WindowHost::letUserInterfaceRun() {
    QCoreApplication::processEvents();
    if (progress_ && pause_ && pause_->isStopAsked()) progress_->cancel();
}

void WindowHost::alert(const std::string& text) {
    const ArrowCursor arrow;
    dialogs_.tell(window_, Dialogs::Icon::Stop, text);
}

std::vector<std::string> WindowHost::chooseFiles(const FileChoice& choice) {
    if (given_) return *std::exchange(given_, std::nullopt);
    return dialogs_.chooseFiles(window_, choice);
}

std::optional<std::string> WindowHost::chooseFolder(std::string_view title, const std::string& directory) {
    if (given_ && !given_->empty()) return std::exchange(given_, std::nullopt)->front();
    return dialogs_.chooseFolder(window_, title, directory);
}

Answer WindowHost::ask(const std::string& question) {
    const ArrowCursor arrow;
    return dialogs_.ask(window_, question);
}

void WindowHost::show(std::string_view text) {
    const ArrowCursor arrow;
    dialogs_.tell(window_, Dialogs::Icon::Information, text);
}

void WindowHost::clearMessages() {
    if (!keepMessages_) events_.clearMessages();
}

// Commands may call it again for each file.
void WindowHost::setBusy() {
    status_.setBusy();
    events_.busy(true);
    if (!pause_) pause_.emplace();
}

void WindowHost::setReady() {
    status_.setReady();
    events_.busy(false);
    pause_.reset();
}

void WindowHost::setStatusText(const std::string& text) { status_.setText(pathToQt(text)); }

void WindowHost::setOverallRange(int count) { status_.setRange(count); }

void WindowHost::advanceOverall() { status_.advance(); }

void WindowHost::showWaitCursor(bool visible) {
    if (visible) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    } else {
        QApplication::restoreOverrideCursor();
    }
}

std::unique_ptr<BatchProgressDlg> WindowHost::createProgress() {
    auto progress = std::make_unique<FileProgressWindow>(window_);
    progress->QDialog::show();
    progress_ = progress.get();
    return progress;
}

const Brevis::PropertySet* WindowHost::scheme() const {
    return state_.schemeInForce ? &*state_.schemeInForce : nullptr;
}

}  // namespace BrevisUI
