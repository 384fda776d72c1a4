// The main window's menu, messages and settings.
#include "qt/BrevisUI_BrevisDlg.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QScreen>
#include <QStyle>
#include <QTimer>
#include <QUrl>
#include <algorithm>

#include "BrevisUI_Files.h"
#include "BrevisUI_MessagePlace.h"
#include "qt/BrevisUI_Application.h"
#include "qt/BrevisUI_HelpWindow.h"
#include "qt/BrevisUI_MessagePane.h"
#include "qt/BrevisUI_OptionsDlg.h"
#include "qt/BrevisUI_StatusPanes.h"
#include "qt/BrevisUI_Text.h"
#include "qt/BrevisUI_WindowPlace.h"
#include "store/BrevisUI_SchemeConversion.h"
#include "store/BrevisUI_SchemeDelivery.h"

namespace BrevisUI {

namespace {

constexpr int widthInCharacters = 110, heightInLines = 28;

constexpr std::uint32_t highestThreshold = 3;

std::vector<std::string> localPaths(const QMimeData& data) {
    std::vector<std::string> paths;
    for (const QUrl& url : data.urls()) {
        if (url.isLocalFile()) paths.push_back(pathFromQt(url.toLocalFile()));
    }
    return paths;
}

}  // namespace

BrevisDlg::BrevisDlg(SettingsFile settings, Dialogs& dialogs)
    : dialogs_(dialogs),
      settings_(std::move(settings)),
      pane_(new MessagePane),
      status_(new StatusPanes),
      host_(this, dialogs, *status_, state_,
            {[this](const std::string& text, int severity) { logMessage(text, severity); }, [this] { clearMessages(); },
             [this](bool isBusy) { setBusy(isBusy); }}),
      run_(host_, &projects_) {
    setWindowTitle(tr("Corvane C++"));
    setCentralWidget(pane_);
    setStatusBar(status_);
    setAcceptDrops(true);
    fillMenus();
    connect(pane_, &MessagePane::messageActivated, this, &BrevisDlg::openMessage);
    readSettingsAndSchemes();
    placeWindow();
}

BrevisDlg::~BrevisDlg() = default;

void BrevisDlg::readSettingsAndSchemes() {
    if (const std::string_view warning = settings_.load(SettingsFile::Access::Full); !warning.empty()) warn(warning);
    state_.store.setPath(settledSchemeDirectory(settings_));
    deliverShippedSchemes(state_.store.path());
    state_.store.read();
    if (const std::string warning = convertOldSchemes(state_.store); !warning.empty()) warn(warning);
    state_.readSettingsFrom(settings_);
}

void BrevisDlg::warn(std::string_view text) { dialogs_.tell(this, Dialogs::Icon::Warning, text); }

// ---- Messages

void BrevisDlg::logMessage(const std::string& text, int severity) {
    const std::uint32_t threshold = state_.settings.messagesThreshold;
    if (threshold == 0) return;
    if (threshold <= highestThreshold && severity < static_cast<int>(threshold)) return;
    messages_.push_back(text + "\r\n");
    pane_->addMessage(pathToQt(text));
}

void BrevisDlg::clearMessages() {
    messages_.clear();
    pane_->clearMessages();
}

void BrevisDlg::openMessage(int number) {
    const auto index = static_cast<std::size_t>(number);
    if (index >= messages_.size()) return;
    const std::optional<MessagePlace> place = findPlace(messages_[index]);
    if (!place || !fileExists(place->path)) return;
    const std::string editor = settings_.text(SettingsFile::Section::Options, "Editor").value_or("");
    dialogs_.openInEditor(this, *place, editor);
}

// ---- Menu

QAction* BrevisDlg::addRow(QMenu* menu, const QString& text, const QString& help, const QKeySequence& shortcut) {
    QAction* const action = menu->addAction(text);
    action->setStatusTip(help);
    action->setShortcut(shortcut);
    return action;
}

template <class Slot>
void BrevisDlg::call(Slot slot) {
    if constexpr (std::is_member_function_pointer_v<Slot>) {
        (this->*slot)();
    } else {
        slot();
    }
}

template <class Slot>
QAction* BrevisDlg::addRow(QMenu* menu, const QString& text, const QString& help, const QKeySequence& shortcut,
                           Slot slot) {
    QAction* const action = addRow(menu, text, help, shortcut);
    connect(action, &QAction::triggered, this, [this, slot] { Application::guard([this, slot] { call(slot); }); });
    return action;
}

void BrevisDlg::fillMenus() {
    fillFormatMenu();

    QMenu* const edit = menuBar()->addMenu(tr("&Edit"));
    QAction* const copy = addRow(edit, tr("&Copy"), tr("Copies the current selection to the clipboard"),
                                 QKeySequence::Copy, [this] { pane_->copy(); });
    copy->setEnabled(false);
    connect(pane_, &MessagePane::copyAvailable, copy, &QAction::setEnabled);
    addRow(edit, tr("C&lear"), tr("Clears all messages from the window"), tr("Ctrl+L"), &BrevisDlg::clearMessages);

    QMenu* const tools = menuBar()->addMenu(tr("&Tools"));
    idleActions_.push_back(
        addRow(tools, tr("&Options..."), tr("Display the Options dialog"), tr("Ctrl+,"), &BrevisDlg::showOptions));

    QMenu* const helpMenu = menuBar()->addMenu(tr("&Help"));
    addRow(helpMenu, tr("&Contents"), tr("Displays the table of contents for the online documentation"),
           QKeySequence::HelpContents, [this] { help().openContents(); });
    addRow(helpMenu, tr("&About..."), tr("Displays the program information and copyright"), {}, &BrevisDlg::showAbout);
}

void BrevisDlg::fillFormatMenu() {
    QMenu* const menu = menuBar()->addMenu(tr("&Format"));
    idleActions_ = {
        addRow(menu, tr("&File..."), tr("Format a single file"), QKeySequence::Open, [this] { run_.formatFiles(); }),
        addRow(menu, tr("P&roject..."), tr("Format all C/C++ files in a Developer Studio project"), tr("Ctrl+Shift+O"),
               [this] { run_.formatProject(); }),
        addRow(menu, tr("&Workspace..."), tr("Format all C/C++ files in a Developer Studio workspace"),
               tr("Ctrl+Shift+W"), [this] { run_.formatWorkspace(); }),
        addRow(menu, tr("&Directory Tree..."), tr("Format all C/C++ files beneath a directory."), tr("Ctrl+D"),
               [this] { run_.formatDirectoryTree(); }),
    };
    menu->addSeparator();
    addRow(menu, tr("E&xit"), tr("Exit the application"), tr("Ctrl+Q"), &BrevisDlg::close);
}

void BrevisDlg::setBusy(bool isBusy) {
    for (QAction* const action : idleActions_) action->setEnabled(!isBusy);
}

// ---- The window and its settings

void BrevisDlg::placeWindow() {
    resize(fontMetrics().averageCharWidth() * widthInCharacters, fontMetrics().lineSpacing() * heightInLines);
    const std::optional<WindowPosition> position = state_.settings.windowPosition;
    if (!position || *position == WindowPosition() || !rectOf(*position).isValid()) return;
    QList<QRect> screens;
    for (const QScreen* const screen : QApplication::screens()) screens.append(screen->availableGeometry());
    setGeometry(fitToScreens(rectOf(*position), screens));
}

void BrevisDlg::takeWindowPosition() {
    const bool isSpread = isMaximized() || isFullScreen() || isMinimized();
    state_.settings.windowPosition = positionOf(isSpread ? normalGeometry() : geometry());
}

void BrevisDlg::saveSettings() {
    takeWindowPosition();
    if (const std::string_view warning = state_.writeSettingsTo(settings_); !warning.empty()) warn(warning);
}

void BrevisDlg::closeEvent(QCloseEvent* event) {
    if (isBusy()) {
        event->ignore();
        return;
    }
    if (help_) help_->close();
    saveSettings();
    event->accept();
    Q_EMIT closed();
}

// ---- Files that are dropped

void BrevisDlg::dragEnterEvent(QDragEnterEvent* event) {
    if (!isBusy() && !localPaths(*event->mimeData()).empty()) event->acceptProposedAction();
}

void BrevisDlg::dropEvent(QDropEvent* event) {
    // Whoever they come from mustn't wait until they are formatted, nor take a move for granted.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    const std::vector<std::string> paths = localPaths(*event->mimeData());
    QTimer::singleShot(0, this, [this, paths] { Application::guard([&] { formatPaths(paths); }); });
}

void BrevisDlg::formatPaths(const std::vector<std::string>& paths) {
    if (isBusy()) return;
    std::vector<std::string> files;
    bool keepMessages = false;
    const auto formatOne = [&](const std::string& path, void (BatchRun::*command)()) {
        formatGiven({path}, command, keepMessages);
        keepMessages = true;
    };
    for (const std::string& path : paths) {
        if (isDirectory(path)) {
            formatOne(path, &BatchRun::formatDirectoryTree);
        } else if (isWorkspaceFile(path)) {
            formatOne(path, &BatchRun::formatWorkspace);
        } else if (isProjectFile(path)) {
            formatOne(path, &BatchRun::formatProject);
        } else {
            files.push_back(path);
        }
    }
    if (!files.empty()) formatGiven(files, &BatchRun::formatFiles, keepMessages);
}

void BrevisDlg::formatGiven(const std::vector<std::string>& paths, void (BatchRun::*command)(), bool keepMessages) {
    host_.give(paths, keepMessages);
    (run_.*command)();
    host_.forget();
}

// ---- Other windows

void BrevisDlg::showOptions() {
    if (isBusy()) return;
    OptionsDlg dialog(state_, settings_, editorMemory_, dialogs_, this);
    dialog.explainFrom(helpLibrary());
    connect(&dialog, &OptionsDlg::helpRequested, this, &BrevisDlg::showHelp);
    if (dialog.exec() != QDialog::Accepted) return;
    takeWindowPosition();
    if (const std::string_view warning = dialog.model().apply(state_, settings_); !warning.empty()) warn(warning);
}

const HelpLibrary& BrevisDlg::helpLibrary() {
    if (!helpLibrary_) helpLibrary_ = std::make_unique<HelpLibrary>();
    return *helpLibrary_;
}

HelpWindow& BrevisDlg::help() {
    if (!help_) {
        help_ = std::make_unique<HelpWindow>(helpLibrary(), &settings_);
        help_->move(screen()->availableGeometry().center() - help_->rect().center());
    }
    return *help_;
}

void BrevisDlg::showHelp(const QString& topic) {
    if (!help().openTopic(fromQt(topic))) help().openContents();
}

void BrevisDlg::showAbout() {
    auto* const box =
        new QMessageBox(QMessageBox::NoIcon, tr("About Corvane C++"),
                        tr("Corvane C++ %1").arg(QStringLiteral(CORVANE_VERSION_TEXT)), QMessageBox::Ok, this);
    box->setInformativeText(
        tr("Formats C and C++ source code by changing nothing but white space.\n\nCopyright Vellum Software"));
    box->setIconPixmap(windowIcon().pixmap(style()->pixelMetric(QStyle::PM_MessageBoxIconSize)));
    box->setAttribute(Qt::WA_DeleteOnClose);
    // A run goes on behind it.
    box->open();
}

}  // namespace BrevisUI
