// Builds the window and connects its parts; the library does the work.
#include "qt/BrevisUI_HelpWindow.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QStyle>
#include <QToolBar>
#include <QToolButton>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <sstream>

#include "qt/BrevisUI_HelpBrowser.h"
#include "qt/BrevisUI_Text.h"

namespace BrevisUI {

namespace {

constexpr int topicRole = Qt::UserRole;
constexpr std::string_view sizeName = "HelpWindowSize";  // width, height and width of the side, between blanks
constexpr QSize usualSize(1000, 700), leastSize(480, 320);
constexpr int usualSide = 270;

std::string topicOf(const QTreeWidgetItem& item) { return fromQt(item.data(0, topicRole).toString()); }

}  // namespace

HelpWindow::HelpWindow(const HelpLibrary& library, SettingsFile* settings, QWidget* parent)
    : QWidget(parent, Qt::Window),
      library_(library),
      settings_(settings),
      browser_(new HelpBrowser(library)),
      splitter_(new QSplitter),
      searchField_(new QLineEdit),
      side_(new QStackedWidget),
      contents_(new QTreeWidget),
      hits_(new QListWidget),
      findBar_(new QWidget),
      findField_(new QLineEdit),
      findResult_(new QLabel) {
    setWindowTitle(tr("Corvane C++ Help"));
    setMinimumSize(leastSize);

    auto* pageSide = new QWidget;
    auto* pageLayout = new QVBoxLayout(pageSide);
    pageLayout->setContentsMargins(0, 0, 0, 0);
    pageLayout->addWidget(browser_, 1);
    pageLayout->addWidget(makeFindBar());
    splitter_->addWidget(makeSide());
    splitter_->addWidget(pageSide);
    splitter_->setStretchFactor(1, 1);
    splitter_->setChildrenCollapsible(false);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(makeToolBar());
    layout->addWidget(splitter_, 1);

    fillContents();
    connect(browser_, &QTextBrowser::sourceChanged, this,
            [this](const QUrl& address) { followPage(fromQt(address.fileName())); });
    restoreSize();
}

bool HelpWindow::openTopic(std::string_view topic) {
    if (!browser_->openTopic(topic)) return false;
    standBesideModal();
    show();
    raise();
    activateWindow();
    browser_->setFocus();
    return true;
}

void HelpWindow::openContents() {
    searchField_->clear();
    openTopic(library_.contents().front().pages.front());
    contents_->setFocus();
}

std::string HelpWindow::page() const { return browser_->page(); }

QWidget* HelpWindow::makeToolBar() {
    auto* bar = new QToolBar;
    bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    const auto add = [&](const QIcon& icon, const QString& text, const QKeySequence& keys) {
        QAction* action = bar->addAction(icon, text);
        action->setShortcut(keys);
        action->setToolTip(tr("%1 (%2)").arg(text, keys.toString(QKeySequence::NativeText)));
        return action;
    };
    QAction* back = add(style()->standardIcon(QStyle::SP_ArrowBack), tr("Back"), QKeySequence(Qt::ALT | Qt::Key_Left));
    QAction* forward =
        add(style()->standardIcon(QStyle::SP_ArrowForward), tr("Forward"), QKeySequence(Qt::ALT | Qt::Key_Right));
    QAction* home = add({}, tr("Start"), QKeySequence(Qt::ALT | Qt::Key_Home));
    bar->addSeparator();
    QAction* find = add({}, tr("Find in page"), QKeySequence(Qt::CTRL | Qt::Key_F));
    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QAction::triggered, browser_, &QTextBrowser::backward);
    connect(forward, &QAction::triggered, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QAction::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QAction::setEnabled);
    connect(home, &QAction::triggered, this, &HelpWindow::openContents);
    connect(find, &QAction::triggered, this, &HelpWindow::startFinding);
    return bar;
}

QWidget* HelpWindow::makeSide() {
    auto* label = new QLabel(tr("&Search:"));
    label->setBuddy(searchField_);
    searchField_->setAccessibleName(tr("Search the help"));
    searchField_->setPlaceholderText(tr("All pages"));
    searchField_->setClearButtonEnabled(true);
    contents_->setHeaderHidden(true);
    contents_->setAccessibleName(tr("Contents"));
    hits_->setAccessibleName(tr("Pages found"));
    hits_->setWordWrap(true);
    hits_->setAlternatingRowColors(true);
    hits_->setResizeMode(QListView::Adjust);
    hits_->setSpacing(2);
    hits_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    side_->addWidget(contents_);
    side_->addWidget(hits_);

    auto* field = new QHBoxLayout;
    field->addWidget(label);
    field->addWidget(searchField_, 1);
    auto* sideWidget = new QWidget;
    auto* layout = new QVBoxLayout(sideWidget);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addLayout(field);
    layout->addWidget(side_, 1);

    connect(searchField_, &QLineEdit::textChanged, this, &HelpWindow::search);
    connect(searchField_, &QLineEdit::returnPressed, hits_, [this] {
        if (side_->currentWidget() == hits_ && hits_->count() > 0) hits_->setFocus();
    });
    connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
        if (item && !topicOf(*item).empty()) browser_->openTopic(topicOf(*item));
    });
    connect(hits_, &QListWidget::currentItemChanged, this, [this](const QListWidgetItem* item) {
        if (item) browser_->openTopic(fromQt(item->data(topicRole).toString()));
    });
    return sideWidget;
}

QWidget* HelpWindow::makeFindBar() {
    auto* label = new QLabel(tr("F&ind in page:"));
    label->setBuddy(findField_);
    findField_->setAccessibleName(tr("Find in page"));
    const auto button = [&](const QString& text, bool backward) {
        auto* made = new QToolButton;
        made->setText(text);
        connect(made, &QToolButton::clicked, this, [this, backward] { findNext(backward); });
        return made;
    };
    auto* close = new QToolButton;
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAutoRaise(true);
    close->setToolTip(tr("Close (Esc)"));
    close->setAccessibleName(tr("Close the search in the page"));
    connect(close, &QToolButton::clicked, this, &HelpWindow::stopFinding);

    auto* layout = new QHBoxLayout(findBar_);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(label);
    layout->addWidget(findField_, 1);
    layout->addWidget(button(tr("&Previous"), true));
    layout->addWidget(button(tr("&Next"), false));
    layout->addWidget(findResult_);
    layout->addWidget(close);
    findBar_->hide();
    connect(findField_, &QLineEdit::returnPressed, this, [this] { findNext(false); });
    return findBar_;
}

void HelpWindow::fillContents() {
    for (const HelpChapter& chapter : library_.contents()) {
        auto* heading = new QTreeWidgetItem(contents_, {toQt(chapter.title)});
        heading->setFlags(Qt::ItemIsEnabled);
        for (const std::string& name : chapter.pages) {
            const HelpPage* page = library_.page(name);
            if (!page) continue;
            auto* item = new QTreeWidgetItem(heading, {toQt(page->title)});
            item->setData(0, topicRole, toQt(name));
        }
    }
    contents_->expandAll();
}

void HelpWindow::search(const QString& query) {
    hits_->clear();
    if (query.trimmed().isEmpty()) {
        side_->setCurrentWidget(contents_);
        return;
    }
    const QSignalBlocker quiet(hits_);
    for (const HelpHit& hit : library_.search(fromQt(query))) {
        QString text = toQt(hit.title);
        if (hit.page != hit.title) text.append(tr(" (%1)").arg(toQt(hit.page)));
        auto* item = new QListWidgetItem(text + QLatin1Char('\n') + toQt(hit.excerpt), hits_);
        item->setData(topicRole, toQt(hit.topic));
    }
    if (hits_->count() == 0) {
        auto* none = new QListWidgetItem(tr("Nothing found."), hits_);
        none->setFlags(Qt::NoItemFlags);
    }
    side_->setCurrentWidget(hits_);
}

// Marks the page shown in the contents.
void HelpWindow::followPage(const std::string& page) {
    const HelpPage* shown = library_.page(page);
    if (!shown) return;
    setWindowTitle(tr("%1 - Corvane C++ Help").arg(toQt(shown->title)));
    const QSignalBlocker quiet(contents_);
    for (QTreeWidgetItemIterator item(contents_); *item; ++item) {
        if (topicOf(**item) == shown->name) contents_->setCurrentItem(*item);
    }
}

void HelpWindow::startFinding() {
    findBar_->show();
    findResult_->clear();
    findField_->setFocus();
    findField_->selectAll();
}

void HelpWindow::stopFinding() {
    findBar_->hide();
    browser_->setFocus();
}

// Goes on at the other end of the page when this one is reached.
void HelpWindow::findNext(bool backward) {
    const QString text = findField_->text();
    if (text.isEmpty()) return;
    const QTextDocument::FindFlags flags = backward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    bool found = browser_->find(text, flags);
    if (!found) {
        const QTextCursor before = browser_->textCursor();
        browser_->moveCursor(backward ? QTextCursor::End : QTextCursor::Start);
        found = browser_->find(text, flags);
        if (!found) browser_->setTextCursor(before);
    }
    findResult_->setText(found ? QString() : tr("Not found"));
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
    const bool isFinding = findBar_->isVisible();
    if (event->key() == Qt::Key_Escape) {
        if (isFinding)
            stopFinding();
        else
            close();
    } else if (event->key() == Qt::Key_F3 && isFinding) {
        findNext(event->modifiers().testFlag(Qt::ShiftModifier));
    } else {
        QWidget::keyPressEvent(event);
    }
}

void HelpWindow::closeEvent(QCloseEvent* event) {
    keepSize();
    QWidget::closeEvent(event);
}

void HelpWindow::hideEvent(QHideEvent* event) {
    keepSize();
    QWidget::hideEvent(event);
}

// A modal dialog lets only its children act, so the window is a child of the one that is open, for as long as it is
// open.
void HelpWindow::standBesideModal() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == parentWidget()) return;
    const bool wasVisible = isVisible();
    const QRect place = geometry();
    if (parentWidget()) parentWidget()->removeEventFilter(this);
    setParent(modal, Qt::Window);
    if (modal) modal->installEventFilter(this);
    // Where it stands for the first time is the affair of the system.
    if (wasVisible) {
        setGeometry(place);
        show();
    } else {
        resize(place.size());
    }
}

bool HelpWindow::eventFilter(QObject* watched, QEvent* event) {
    if (watched == parent() && event->type() == QEvent::Hide) standBesideModal();
    return QWidget::eventFilter(watched, event);
}

void HelpWindow::restoreSize() {
    std::array<int, 3> values = {usualSize.width(), usualSize.height(), usualSide};
    if (settings_) {
        std::istringstream kept(settings_->text(SettingsFile::Section::Options, sizeName).value_or(""));
        std::array<int, 3> read = {};
        if (kept >> read[0] >> read[1] >> read[2]) values = read;
    }
    const QSize room = screen()->availableSize();
    resize(QSize(values[0], values[1]).expandedTo(leastSize).boundedTo(room));
    const int side = std::min(values[2], width() * 2 / 5);
    splitter_->setSizes({side, width() - side});
}

void HelpWindow::keepSize() {
    if (!settings_ || isMaximized()) return;
    std::ostringstream kept;
    kept << width() << ' ' << height() << ' ' << splitter_->sizes().front();
    if (settings_->text(SettingsFile::Section::Options, sizeName) == kept.str()) return;
    settings_->setText(SettingsFile::Section::Options, sizeName, kept.str());
    settings_->save();
}

}  // namespace BrevisUI
