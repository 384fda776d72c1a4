// The help window: topics, the contents, search, find in page, keys, and the size that it remembers.
#include "qt/BrevisUI_HelpWindow.h"

#include <gtest/gtest.h>

#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QTest>
#include <QTextBrowser>
#include <QTreeWidget>

#include "../support/TestFiles.h"

namespace BrevisUI {
namespace {

// The parts by their accessible names, as a user without a screen knows them.
template <class Widget>
Widget* part(const HelpWindow& window, const char* accessibleName) {
    for (Widget* widget : window.findChildren<Widget*>()) {
        if (widget->accessibleName() == QLatin1String(accessibleName)) return widget;
    }
    ADD_FAILURE() << accessibleName;
    return nullptr;
}

// Shortcuts go to the active window only.
void activate(HelpWindow& window, const char* topic) {
    ASSERT_TRUE(window.openTopic(topic));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST(HelpWindow, OpensEveryPageByName) {
    const HelpLibrary library;
    HelpWindow window(library);
    for (const HelpPage& page : library.pages()) {
        ASSERT_TRUE(window.openTopic(page.name)) << page.name;
        EXPECT_EQ(page.name, window.page());
        EXPECT_TRUE(window.windowTitle().startsWith(QString::fromStdString(page.title)));
        EXPECT_TRUE(
            part<QTextBrowser>(window, "Help page")->toPlainText().startsWith(QString::fromStdString(page.title)));
        const QTreeWidgetItem* marked = part<QTreeWidget>(window, "Contents")->currentItem();
        ASSERT_TRUE(marked) << page.name;
        EXPECT_EQ(QString::fromStdString(page.title), marked->text(0));
    }
    EXPECT_TRUE(window.isVisible());
    window.openTopic("Options.htm");
    EXPECT_FALSE(window.openTopic("Nothing.htm"));
    EXPECT_EQ("Options.htm", window.page());
}

TEST(HelpWindow, GoesToAPropertyAndBack) {
    const HelpLibrary library;
    HelpWindow window(library);
    activate(window, "Schemes.htm");
    ASSERT_TRUE(window.openTopic("ControlStatements.htm#WS_BETWEEN_CS"));
    const auto* browser = part<QTextBrowser>(window, "Help page");
    EXPECT_EQ(QStringLiteral("WS_BETWEEN_CS"), browser->source().fragment());
    QTest::keyClick(&window, Qt::Key_Left, Qt::AltModifier);
    EXPECT_EQ("Schemes.htm", window.page());
    QTest::keyClick(&window, Qt::Key_Right, Qt::AltModifier);
    EXPECT_EQ("ControlStatements.htm", window.page());
    window.openContents();
    EXPECT_EQ(library.contents().front().pages.front(), window.page());
}

TEST(HelpWindow, ChoosingInTheContentsShowsThePage) {
    const HelpLibrary library;
    HelpWindow window(library);
    window.openContents();
    auto* contents = part<QTreeWidget>(window, "Contents");
    contents->setCurrentItem(contents->topLevelItem(1)->child(1));
    EXPECT_EQ(library.contents()[1].pages[1], window.page());
}

TEST(HelpWindow, SearchesAllPages) {
    const HelpLibrary library;
    HelpWindow window(library);
    activate(window, "Introduction.htm");
    auto* field = part<QLineEdit>(window, "Search the help");
    auto* hits = part<QListWidget>(window, "Pages found");
    QTest::keyClicks(field, QStringLiteral("right margin"));
    ASSERT_TRUE(hits->isVisible());
    EXPECT_EQ(static_cast<int>(library.search("right margin").size()), hits->count());
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_TRUE(hits->hasFocus());
    hits->setCurrentRow(0);
    EXPECT_EQ("LineWrapping.htm", window.page());
    field->setText(QStringLiteral("zebra"));
    EXPECT_EQ(1, hits->count());
    EXPECT_FALSE(hits->item(0)->flags().testFlag(Qt::ItemIsEnabled));
    EXPECT_EQ("LineWrapping.htm", window.page());
    field->clear();
    EXPECT_TRUE(part<QTreeWidget>(window, "Contents")->isVisible());
}

TEST(HelpWindow, FindsInThePageAndClosesWithEscape) {
    const HelpLibrary library;
    HelpWindow window(library);
    activate(window, "Options.htm");
    auto* browser = part<QTextBrowser>(window, "Help page");
    auto* field = part<QLineEdit>(window, "Find in page");
    EXPECT_FALSE(field->isVisible());
    QTest::keyClick(&window, Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(field->isVisible());
    QTest::keyClicks(field, QStringLiteral("severity"));
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(QStringLiteral("severity"), browser->textCursor().selectedText());
    const int place = browser->textCursor().position();
    QTest::keyClick(field, Qt::Key_Return);
    EXPECT_EQ(place, browser->textCursor().position()) << "the only one comes round again";
    QTest::keyClick(field, Qt::Key_Escape);
    EXPECT_FALSE(field->isVisible());
    EXPECT_TRUE(window.isVisible());
    QTest::keyClick(&window, Qt::Key_Escape);
    EXPECT_FALSE(window.isVisible());
}

// Keys go through the system here, which keeps them from windows behind a modal dialog.
TEST(HelpWindow, CanBeUsedBesideModalDialogsAndOutlivesThem) {
    const HelpLibrary library;
    HelpWindow window(library);
    {
        QDialog outer;
        outer.setModal(true);
        outer.show();
        {
            QDialog inner(&outer);
            inner.setModal(true);
            inner.show();
            activate(window, "Enums.htm");
            QTest::keyClick(window.windowHandle(), Qt::Key_F, Qt::ControlModifier);
            EXPECT_TRUE(part<QLineEdit>(window, "Find in page")->isVisible());
            inner.reject();
        }
        EXPECT_TRUE(window.isVisible());
        activate(window, "Schemes.htm");
        QTest::keyClick(window.windowHandle(), Qt::Key_Escape);
        EXPECT_FALSE(part<QLineEdit>(window, "Find in page")->isVisible());
    }
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(nullptr, window.parentWidget());
    EXPECT_EQ("Schemes.htm", window.page());
}

TEST(HelpWindow, RemembersItsSize) {
    const TestFiles::TempDir dir;
    const HelpLibrary library;
    {
        SettingsFile settings(dir.file("settings.json"));
        settings.load(SettingsFile::Access::Full);
        HelpWindow window(library, &settings);
        window.openContents();
        window.resize(700, 500);
        window.close();
    }
    SettingsFile settings(dir.file("settings.json"));
    settings.load(SettingsFile::Access::Full);
    EXPECT_EQ(QSize(700, 500), HelpWindow(library, &settings).size());
    settings.setText(SettingsFile::Section::Options, "HelpWindowSize", "1 x");
    EXPECT_EQ(HelpWindow(library).size(), HelpWindow(library, &settings).size());
}

// Words that can't be told from what is behind them: the colours of a page must follow the palette.
TEST(HelpWindow, TakesItsColoursFromThePalette) {
    const HelpLibrary library;
    HelpWindow window(library);
    window.openTopic("Globals.htm#CONVERT_WS");
    auto* browser = part<QTextBrowser>(window, "Help page");
    QPalette dark;
    dark.setColor(QPalette::Base, QColor(20, 20, 20));
    dark.setColor(QPalette::Text, QColor(230, 230, 230));
    dark.setColor(QPalette::Link, QColor(140, 190, 255));
    window.setPalette(dark);
    const QString sheet = browser->document()->defaultStyleSheet();
    EXPECT_TRUE(sheet.contains(QStringLiteral("#8cbeff")));
    EXPECT_EQ("Globals.htm", window.page());
    EXPECT_TRUE(browser->toHtml().contains(QStringLiteral("color:#8cbeff"))) << "the page was not drawn anew";
}

}  // namespace
}  // namespace BrevisUI
