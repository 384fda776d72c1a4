// The main window: commands on real trees, messages, and what stops a command or the window.
#include "qt/BrevisUI_BrevisDlg.h"

#include <QApplication>
#include <QClipboard>
#include <QDropEvent>
#include <QMimeData>
#include <QStatusBar>
#include <QTest>
#include <QTextBlock>
#include <QUrl>

#include "DesktopTest.h"
#include "qt/BrevisUI_FileProgressWindow.h"
#include "qt/BrevisUI_MessagePane.h"

namespace BrevisUI {
namespace {

class BrevisDlgTest : public DesktopTest {
protected:
    BrevisDlgTest() {
        for (const char* name : {"tree/a.c", "tree/b.h", "tree/d/c.cpp", "tree/text"}) dir.file(name, ugly);
        dir.file("tree/p.dsp", "# Microsoft Developer Studio\nSOURCE=a.c\nSOURCE=b.h\n");
        dir.file("tree/w.dsw", "Microsoft Developer Studio Workspace File\nProject: \"1\"=p.dsp\n");
    }

    // The files below tree/ that are formatted.
    std::string formatted() const {
        std::string names;
        for (const char* name : {"a.c", "b.h", "d/c.cpp", "text"}) {
            if (TestFiles::contents(dir.file(std::string("tree/") + name)) == pretty) names += std::string(name) + " ";
        }
        return names;
    }
    MessagePane& pane() const { return *window->findChild<MessagePane*>(); }

    // Calls `act` each time that the run lets events in, with the number of the time, from 1.
    void duringRun(std::function<void(int)> act) {
        QObject::connect(&ticker, &QTimer::timeout, &ticker, [this, act, count = 0]() mutable {
            if (window->isBusy()) act(++count);
        });
        ticker.start(0);
    }

    QTimer ticker;
};

struct Flow {
    const char* row;
    const char* chosen;
    const char* formatted;
    const char* shown;

    friend void PrintTo(const Flow& flow, std::ostream* out) { *out << flow.row; }
};
class FlowTest : public BrevisDlgTest, public testing::WithParamInterface<Flow> {};

TEST_P(FlowTest, formatsWhatWasChosen) {
    const Flow& flow = GetParam();
    start();
    dialogs.chosen = {dir.file(flow.chosen)};
    press(QString::fromUtf8(flow.row));
    EXPECT_EQ(formatted(), flow.formatted);
    EXPECT_EQ(shown(), flow.shown);
    EXPECT_EQ(pane().toPlainText().count(QLatin1Char('\n')) + 1, std::ssize(window->messages()));
    EXPECT_EQ(window->state().settings.lastDirectory, dir.file("tree"));
    EXPECT_FALSE(window->findChild<FileProgressWindow*>());
    EXPECT_FALSE(QApplication::overrideCursor());
}
INSTANTIATE_TEST_SUITE_P(
    BrevisDlg, FlowTest,
    testing::Values(
        Flow{"&File...", "tree/text", "text ", "Formatting \"D/tree/text\".\r\n"},
        Flow{"P&roject...", "tree/p.dsp", "a.c b.h ",
             "Formatting project \"D/tree/p.dsp\" using scheme \"Narrow\".\r\nFormatting \"D/tree/a.c\".\r\n"
             "Formatting \"D/tree/b.h\".\r\nFinished formatting project.\r\n"},
        Flow{"&Workspace...", "tree/w.dsw", "a.c b.h ",
             "Formatting workspace \"D/tree/w.dsw\" using scheme \"Narrow\".\r\n"
             "Formatting project \"D/tree/p.dsp\" using scheme \"Narrow\".\r\nFormatting \"D/tree/a.c\".\r\n"
             "Formatting \"D/tree/b.h\".\r\nFinished formatting workspace.\r\n"}),
    [](const auto& info) { return "of" + std::to_string(info.index); });

TEST_F(BrevisDlgTest, formatsADirectoryTree) {
    start();
    dialogs.chosen = {dir.file("tree")};
    press("&Directory Tree...");
    EXPECT_EQ(formatted(), "a.c b.h d/c.cpp ");
    EXPECT_TRUE(shown().ends_with("Finished formatting directory tree.\r\n")) << shown();
    EXPECT_EQ(window->messages().size(), 5u);
}

TEST_F(BrevisDlgTest, asksForASchemeFirst) {
    options["StandaloneOnFormat"] = "Gone";
    start();
    press("&Directory Tree...");
    EXPECT_TRUE(dialogs.hasTold("information: You have not selected a scheme"));
    EXPECT_EQ(dialogs.log.size(), 1u);
}

TEST_F(BrevisDlgTest, isCancelledInTheMiddleOfARun) {
    for (int i = 0; i < 200; ++i) dir.file("tree/many/" + std::to_string(i) + ".c", ugly);
    start();
    dialogs.chosen = {dir.file("tree/many")};
    int begun = 0;
    duringRun([&](int) {
        auto* const progress = window->findChild<FileProgressWindow*>();
        begun += progress && window->messages().size() == 4;
        if (begun == 1) QTest::keyClick(progress, Qt::Key_Escape);
    });
    press("&Directory Tree...");
    EXPECT_TRUE(shown().ends_with("Format operation cancelled at user's request.\r\n")) << shown();
    EXPECT_LT(window->messages().size(), 10u);
    // What was done up to then is on the disk.
    int done = 0;
    for (int i = 0; i < 200; ++i) {
        done += TestFiles::contents(dir.file("tree/many/" + std::to_string(i) + ".c")) == pretty;
    }
    EXPECT_GE(done, 2);
    EXPECT_LT(done, 10);
}

TEST_F(BrevisDlgTest, keepsOutCommandsAndStaysOpenWhileBusy) {
    start();
    dialogs.chosen = {dir.file("tree")};
    int times = 0;
    duringRun([&](int count) {
        times = count;
        for (const char* row :
             {"&File...", "P&roject...", "&Workspace...", "&Directory Tree...", "&Options...", "E&xit"}) {
            press(QString::fromUtf8(row));
        }
        window->formatPaths({dir.file("tree/text")});
        window->close();
        EXPECT_TRUE(window->isVisible());
    });
    press("&Directory Tree...");
    EXPECT_GT(times, 3);
    EXPECT_EQ(dialogs.log.size(), 2u);  // the folder and the question
    EXPECT_EQ(formatted(), "a.c b.h d/c.cpp ");
    EXPECT_TRUE(window->close());
}

TEST_F(BrevisDlgTest, showsMessagesFromTheThresholdOn) {
    struct Row {
        std::uint32_t threshold;
        const char* shown;
    };
    for (const Row& row :
         {Row{0, ""}, Row{1, "1\r\n2\r\n3\r\n"}, Row{2, "2\r\n3\r\n"}, Row{3, "3\r\n"}, Row{4, "1\r\n2\r\n3\r\n"}}) {
        options["MessagesThreshold"] = row.threshold;
        start();
        for (int severity = 1; severity <= 3; ++severity) window->logMessage(std::to_string(severity), severity);
        EXPECT_EQ(shown(), row.shown) << row.threshold;
    }
}

TEST_F(BrevisDlgTest, movesTheCaretBehindANewMessage) {
    start();
    window->logMessage("one\ntwo", 1);
    pane().selectAll();
    press("&Copy");
    EXPECT_EQ(QApplication::clipboard()->text(), "one\ntwo");
    window->logMessage("three", 1);
    EXPECT_FALSE(pane().textCursor().hasSelection());
    EXPECT_TRUE(pane().textCursor().atEnd());
    press("C&lear");
    EXPECT_TRUE(window->messages().empty());
    EXPECT_EQ(pane().toPlainText(), "");
}

TEST_F(BrevisDlgTest, opensTheFileOfAMessage) {
    options["Editor"] = "ed {path}";
    const std::string path = dir.file("tree/a.c");
    start();
    window->logMessage("one\nline more", 1);
    window->logMessage(path + "(3) : error: col 4: Text.", 3);
    window->logMessage(dir.file("gone.c") + "(3) : error: col 4: Text.", 3);
    for (int line = 0; line < 4; ++line) {
        const QTextCursor cursor(pane().document()->findBlockByNumber(line));
        QTest::mouseDClick(pane().viewport(), Qt::LeftButton, {}, pane().cursorRect(cursor).center());
    }
    EXPECT_EQ(dialogs.log, std::vector<std::string>{"open: " + path + " 3 4 with ed {path}"});
}

TEST_F(BrevisDlgTest, formatsWhatIsDropped) {
    start();
    QMimeData data;
    QList<QUrl> urls;
    for (const char* name : {"tree/text", "tree/p.dsp", "tree/d"}) {
        urls.append(QUrl::fromLocalFile(QString::fromStdString(dir.file(name))));
    }
    data.setUrls(urls);
    QDragEnterEvent enter(QPoint(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(9, 9), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(window.get(), &drop);
    EXPECT_EQ(formatted(), "");
    QCoreApplication::processEvents();
    EXPECT_EQ(formatted(), "a.c b.h d/c.cpp text ");
    // Nothing was chosen, and no command has cleared the messages of another.
    for (const std::string& line : dialogs.log) EXPECT_TRUE(line.starts_with("ask: ")) << line;
    EXPECT_NE(shown().find("Formatting project"), std::string::npos);
    EXPECT_NE(shown().find("Formatting \"D/tree/text\"."), std::string::npos);
}

TEST_F(BrevisDlgTest, showsTheHelpOfARowInTheStatusBar) {
    start();
    std::string texts;
    for (QAction* const menu : window->menuBar()->actions()) {
        for (QAction* const action : menu->menu()->actions()) {
            if (action->isSeparator()) continue;
            action->showStatusText(window.get());
            texts += window->statusBar()->currentMessage().toStdString() + "\n";
        }
    }
    EXPECT_EQ(texts,
              "Format a single file\nFormat all C/C++ files in a Developer Studio project\n"
              "Format all C/C++ files in a Developer Studio workspace\nFormat all C/C++ files beneath a directory.\n"
              "Exit the application\nCopies the current selection to the clipboard\n"
              "Clears all messages from the window\nDisplay the Options dialog\n"
              "Displays the table of contents for the online documentation\n"
              "Displays the program information and copyright\n");
}

}  // namespace
}  // namespace BrevisUI
