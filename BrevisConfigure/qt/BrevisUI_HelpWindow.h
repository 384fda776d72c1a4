// The window of the help: the contents or what a search has found at the left, a page at the right, and a field to find
// words in the page. It stays open beside the windows that it explains.
#pragma once

#include <QWidget>

#include "help/BrevisUI_HelpLibrary.h"
#include "settings/BrevisUI_SettingsFile.h"

class QAction;
class QLabel;
class QLineEdit;
class QListWidget;
class QSplitter;
class QStackedWidget;
class QTreeWidget;

namespace BrevisUI {

class HelpBrowser;

class HelpWindow : public QWidget {
    Q_OBJECT

public:
    // The library must outlive the window, and so must the settings, which keep its size; without them it is forgotten.
    explicit HelpWindow(const HelpLibrary& library, SettingsFile* settings = nullptr, QWidget* parent = nullptr);

    // Shows the window with a page, such as "Options.htm" or "Classes.htm#WS_AFTER_CLASS_NAME", and brings it to the
    // front, also beside a modal dialog that is open. False, and nothing happens, if there is no such page.
    bool openTopic(std::string_view topic);
    // The same for the first page, with the table of contents at its side.
    void openContents();

    // The name of the page shown: "Options.htm".
    std::string page() const;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QWidget* makeToolBar();
    QWidget* makeSide();
    QWidget* makeFindBar();
    void fillContents();
    void search(const QString& query);
    void followPage(const std::string& page);
    void startFinding();
    void stopFinding();
    void findNext(bool backward);
    void standBesideModal();
    void restoreSize();
    void keepSize();

    const HelpLibrary& library_;
    SettingsFile* settings_;
    HelpBrowser* browser_;
    QSplitter* splitter_;
    QLineEdit* searchField_;
    QStackedWidget* side_;  // the contents, or what was found
    QTreeWidget* contents_;
    QListWidget* hits_;
    QWidget* findBar_;
    QLineEdit* findField_;
    QLabel* findResult_;
};

}  // namespace BrevisUI
