// The commands of the scheme editor: choosing, saving, deleting, comparing and bringing in schemes, and how it ends.
#include "StylesDlgTest.h"

#include <QAction>
#include <QTreeWidget>

#include "qt/BrevisUI_CompareDlg.h"

namespace BrevisUI {
namespace {

constexpr const char* builtInQuestion =
    "ask: You have modified a built-in scheme that is read only. Choose Yes to save the changes to a new scheme, No to "
    "discard the changes and Cancel to return to the Manage Schemes dialog.";

TEST_F(StylesDlgTest, startsWithANewSchemeWhereThereIsNone) {
    open();
    EXPECT_EQ(dlg->windowTitle(), QStringLiteral("Manage Schemes"));
    EXPECT_EQ(chooserRows(), QStringList{QStringLiteral("New Scheme")});
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("\\s"));
    answerSaveAs({"", "House"});
    press("saveAs");
    EXPECT_EQ(dialogs.log, std::vector<std::string>{"warning: You must enter a name for the scheme."});
    EXPECT_EQ(proposals.front(), "New Scheme (Modified)");
    EXPECT_EQ(chooserRows(), QStringList{QStringLiteral("House")});
    finish();
    EXPECT_EQ(textOf("House", "WS_BEFORE_ENUM_COMMA"), " ");
    EXPECT_FALSE(std::filesystem::exists(dir.file("schemes/New Scheme.fsc")));
}

TEST_F(StylesDlgTest, opensTheLastSchemeAndPageAgain) {
    give("First");
    give("Second");
    open();
    Q_EMIT find<QComboBox>("chooser")->activated(1);
    EXPECT_EQ(find<QComboBox>("chooser")->currentText(), QStringLiteral("Second"));
    QTest::keyClick(dlg.get(), Qt::Key_PageDown, Qt::ControlModifier);
    QTest::keyClick(dlg.get(), Qt::Key_PageDown, Qt::ControlModifier);
    press("togglePreview");
    finish();
    open();
    EXPECT_EQ(find<QComboBox>("chooser")->currentText(), QStringLiteral("Second"));
    EXPECT_EQ(find<QListWidget>("tabs")->currentItem()->text(), QStringLiteral("Enums"));
    EXPECT_FALSE(find<PreviewPane>("previewPane")->isVisible());
}

TEST_F(StylesDlgTest, choosingAnotherSchemeOrCancelLosesWhatWasNotSaved) {
    give("First", "3 WS_BEFORE_ENUM_COMMA \" \"\n");
    give("Second", "3 WS_BEFORE_ENUM_COMMA \"\t\"\n");
    open();
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("\\n"));
    Q_EMIT find<QComboBox>("chooser")->activated(1);
    EXPECT_EQ(find<QLineEdit>("WS_BEFORE_ENUM_COMMA")->text(), QStringLiteral("\\t"));
    Q_EMIT find<QComboBox>("chooser")->activated(0);
    EXPECT_EQ(find<QLineEdit>("WS_BEFORE_ENUM_COMMA")->text(), QStringLiteral("\\s"));
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("\\n"));
    QTest::keyClick(find("WS_BEFORE_ENUM_COMMA"), Qt::Key_Escape);
    EXPECT_FALSE(dlg->isVisible());
    EXPECT_EQ(dlg->result(), QDialog::Rejected);
    EXPECT_TRUE(dialogs.log.empty());
}

TEST_F(StylesDlgTest, aChangedBuiltInSchemeIsSavedUnderAnotherName) {
    give("Fixed", "3 WS_BEFORE_ENUM_COMMA \" \"\n", true);
    const std::string text = TestFiles::contents(dir.file("schemes/Fixed.fsc"));
    open();
    EXPECT_TRUE(find("builtIn")->isVisible());
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("\\n"));

    dialogs.answer = Answer::Cancel;
    dlg->accept();
    EXPECT_TRUE(dlg->isVisible());

    dialogs.answer = Answer::Yes;
    answerSaveAs({"Mine"});
    finish();
    EXPECT_EQ(dialogs.log, std::vector<std::string>(2, builtInQuestion));
    EXPECT_EQ(textOf("Mine", "WS_BEFORE_ENUM_COMMA"), "\n");
    EXPECT_EQ(TestFiles::contents(dir.file("schemes/Fixed.fsc")), text);

    give("Fixed", "3 WS_BEFORE_ENUM_COMMA \" \"\n", true);
    open();
    Q_EMIT find<QComboBox>("chooser")->activated(0);
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("\\t"));
    dialogs.answer = Answer::No;
    finish();
    EXPECT_EQ(textOf("Fixed", "WS_BEFORE_ENUM_COMMA"), " ");
    EXPECT_EQ(store.schemes().size(), 2U);
}

TEST_F(StylesDlgTest, saveAsReplacesASchemeOfThatName) {
    give("First", "3 WS_BEFORE_ENUM_COMMA \" \"\n");
    give("Second", "3 WS_BEFORE_ENUM_COMMA \"\t\"\n");
    open();
    type("WS_BEFORE_ENUM_COMMA", QStringLiteral("\\n"));
    answerSaveAs({});
    press("saveAs");
    EXPECT_EQ(find<QComboBox>("chooser")->currentText(), QStringLiteral("First"));
    answerSaveAs({"Second"});
    press("saveAs");
    EXPECT_EQ(find<QComboBox>("chooser")->currentText(), QStringLiteral("Second"));
    EXPECT_FALSE(find("WS_BEFORE_ENUM_COMMA.back")->isVisible());
    finish();
    EXPECT_EQ(textOf("First", "WS_BEFORE_ENUM_COMMA"), " ");
    EXPECT_EQ(textOf("Second", "WS_BEFORE_ENUM_COMMA"), "\n");
}

TEST_F(StylesDlgTest, deletesAllButBuiltInSchemes) {
    give("A", "", true);
    give("B");
    open();
    press("delete");
    Q_EMIT find<QComboBox>("chooser")->activated(1);
    dialogs.answer = Answer::No;
    press("delete");
    EXPECT_EQ(chooserRows().size(), 2);
    dialogs.answer = Answer::Yes;
    press("delete");
    EXPECT_EQ(dialogs.log, (std::vector<std::string>{"warning: This scheme is built-in and cannot be deleted.",
                                                     "ask: Are you sure you wish to delete this scheme?",
                                                     "ask: Are you sure you wish to delete this scheme?"}));
    EXPECT_EQ(chooserRows(), QStringList{QStringLiteral("A")});
    // The pages have filled in what the built-in scheme lacks.
    dialogs.answer = Answer::No;
    finish();
    EXPECT_FALSE(std::filesystem::exists(dir.file("schemes/B.fsc")));
}

TEST_F(StylesDlgTest, theLastSchemeCanBeDeleted) {
    give("Only");
    open();
    press("delete");
    EXPECT_TRUE(chooserRows().isEmpty());
    EXPECT_FALSE(find("delete")->isEnabled());
    finish();
    EXPECT_TRUE(store.schemes().empty());
}

TEST_F(StylesDlgTest, schemesGoOutToAFileAndComeBack) {
    give("Mine", "3 WS_BEFORE_ENUM_COMMA \"\t\"\n");
    open();
    const auto command = [&](const char* text) {
        for (QAction* const action : dlg->findChildren<QAction*>()) {
            if (action->text() == QLatin1String(text)) return action->trigger();
        }
        FAIL() << text;
    };
    dialogs.chosen = {dir.file("out.fsc")};
    command("&Export...");
    answerSaveAs({"Theirs"});
    command("&Import...");
    EXPECT_EQ(chooserRows(), (QStringList{QStringLiteral("Mine"), QStringLiteral("Theirs")}));
    EXPECT_EQ(find<QComboBox>("chooser")->currentText(), QStringLiteral("Theirs"));
    EXPECT_EQ(find<QLineEdit>("WS_BEFORE_ENUM_COMMA")->text(), QStringLiteral("\\t"));
    dialogs.chosen = {dir.file("noise.fsc", "no scheme")};
    command("&Import...");
    EXPECT_TRUE(dialogs.hasTold("noise.fsc"));
    EXPECT_EQ(chooserRows().size(), 2);
}

TEST_F(StylesDlgTest, comparesTwoSchemesKeyByKey) {
    give("A", "3 WS_BEFORE_ENUM_COMMA \"\t\"\n3 WS_AFTER_FN_NAME \" \"\n");
    give("B", "3 WS_BEFORE_ENUM_COMMA \" \"\n3 WS_AFTER_FN_NAME \" \"\n2 RIGHT_MARGIN 70\n");
    store.read();
    struct : StylesDlgHost {
        void showWarning(std::string_view) override {}
        bool askYesNo(std::string_view) override { return false; }
        Answer askYesNoCancel(std::string_view) override { return Answer::Cancel; }
        std::optional<std::string> askSchemeName(std::string_view) override { return std::nullopt; }
    } host;
    // Both as they are in the store: the pages have filled in nothing yet.
    give("C");
    store.read();
    setCurrentScheme("C", settings);
    const StylesDlgModel model(store, settings, memory, host);
    CompareDlg compare(model);
    compare.findChild<QComboBox*>(QStringLiteral("first"))->setCurrentText(QStringLiteral("A"));
    compare.findChild<QComboBox*>(QStringLiteral("second"))->setCurrentText(QStringLiteral("B"));
    const auto* const rows = compare.findChild<QTreeWidget*>(QStringLiteral("rows"));
    const auto table = [&] {
        QStringList lines;
        for (int row = 0; row < rows->topLevelItemCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < rows->columnCount(); ++column) {
                cells.append(rows->topLevelItem(row)->text(column));
            }
            lines.append(cells.join(u'|'));
        }
        return fromQt(lines.join(u'\n'));
    };
    EXPECT_EQ(table(),
              "Enums|Before comma|\"\\t\"|\"\\s\"|WS_BEFORE_ENUM_COMMA\n"
              "Line Wrapping|Right margin|–|70|RIGHT_MARGIN");
    compare.findChild<QCheckBox*>(QStringLiteral("showsAll"))->click();
    EXPECT_EQ(rows->topLevelItemCount(), 4);  // the version and the equal value too
    EXPECT_NE(table().find("Functions|After function name|\"\\s\"|\"\\s\"|WS_AFTER_FN_NAME"), std::string::npos);
}

// By its label, by its key, by a word of its help; Enter goes there and doesn't end the dialog.
TEST_F(StylesDlgTest, findsAProperty) {
    give("Mine");
    open();
    const auto findAndEnter = [&](const char* query) {
        QTest::keyClick(dlg.get(), Qt::Key_F, Qt::ControlModifier);
        EXPECT_EQ(QApplication::focusWidget(), find("find"));
        QTest::keyClicks(find("find"), QLatin1String(query));
        QTest::keyClick(find("find"), Qt::Key_Return);
        return fromQt(find<QListWidget>("tabs")->currentItem()->text() + u' ' +
                      QApplication::focusWidget()->objectName());
    };
    EXPECT_EQ(findAndEnter("angle open"), "Templates WS_BEFORE_TP_OPEN_BRACKET");
    EXPECT_EQ(findAndEnter("RIGHT_MARG"), "Line Wrapping find");  // it is disabled, and only shown
    EXPECT_EQ(findAndEnter("ws_after_cs_key"), "Control Statements WS_AFTER_CS_KEY");
    // With the arrows another one than the first.
    find("find")->setFocus();
    find<QLineEdit>("find")->selectAll();
    QTest::keyClicks(find("find"), QStringLiteral("paren"));
    QWidget* const list = QApplication::activePopupWidget();
    ASSERT_TRUE(list);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Down, Qt::Key_Return}) QTest::keyClick(list, key);
    EXPECT_EQ(QApplication::focusWidget(), find("GLOBAL_WS_BEFORE_CLOSE_PAREN"));
    find("find")->setFocus();
    EXPECT_EQ(findAndEnter("WS_AFTER_CS_KEY"), "Control Statements WS_AFTER_CS_KEY");
    EXPECT_EQ(findAndEnter("no such property"), "Control Statements find");
    EXPECT_TRUE(dlg->isVisible());
    QTest::keyClick(find("find"), Qt::Key_Escape);
    EXPECT_TRUE(find<QLineEdit>("find")->text().isEmpty());
    EXPECT_TRUE(dlg->isVisible());
}

TEST_F(StylesDlgTest, asksForTheHelpOfThePage) {
    give("Mine");
    open();
    QStringList topics;
    QObject::connect(dlg.get(), &StylesDlg::helpRequested, [&](const QString& topic) { topics.append(topic); });
    dlg->showPage(5);
    QTest::keyClick(dlg.get(), Qt::Key_F1);
    dlg->showPage(12);
    QTest::keyClick(dlg.get(), Qt::Key_H, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([&] { return topics.size() == 2; }));
    EXPECT_EQ(topics, (QStringList{QStringLiteral("InitializerLists.htm"), QStringLiteral("LineWrapping.htm")}));
}

}  // namespace
}  // namespace BrevisUI
