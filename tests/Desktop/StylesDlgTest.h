// The scheme editor on a store of its own, and hands to work it with.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <memory>
#include <vector>

#include "../support/TestFiles.h"
#include "ScriptedDialogs.h"
#include "qt/BrevisUI_CodeView.h"
#include "qt/BrevisUI_PreviewPane.h"
#include "qt/BrevisUI_StylesDlg.h"
#include "qt/BrevisUI_Text.h"

namespace BrevisUI {

class StylesDlgTest : public testing::Test {
protected:
    StylesDlgTest() : settings(dir.file("settings.json")), store(dir.file("schemes/")) {
        std::filesystem::create_directories(dir.file("schemes"));
    }

    // Puts a scheme into the store on the disk.
    void give(const std::string& name, const std::string& lines = "", bool isBuiltIn = false) {
        const std::string path = dir.file("schemes/" + name + ".fsc");
        TestFiles::write(path, "Brevis::PropertySet\n1\n\"" + name + "\"\n3 CORVANE_VERSION \"1.2.1\"\n" + lines);
        if (isBuiltIn) std::filesystem::permissions(path, std::filesystem::perms::owner_read);
    }

    StylesDlg& open() {
        store.read();
        dlg = std::make_unique<StylesDlg>(store, settings, memory, dialogs);
        dlg->show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(dlg.get()));
        return *dlg;
    }
    // Presses OK, which has to end the dialog, and writes the schemes to the disk and reads them again.
    void finish() {
        dlg->accept();
        ASSERT_EQ(dlg->result(), QDialog::Accepted);
        store = dlg->store();
        store.write();
        store.read();
    }

    template <class Widget = QWidget>
    Widget* find(std::string_view name) const {
        auto* const widget = dlg->findChild<Widget*>(toQt(name));
        EXPECT_TRUE(widget) << name;
        return widget;
    }
    void press(std::string_view button) const { QTest::mouseClick(find(button), Qt::LeftButton); }
    // Types into the field of a key in the place of what is there.
    void type(std::string_view key, const QString& text) const {
        dlg->showProperty(key);
        auto* const edit = find<QLineEdit>(key);
        edit->selectAll();
        if (text.isEmpty()) QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, text);
    }
    void click(std::string_view key) const {
        dlg->showProperty(key);
        find<QAbstractButton>(key)->click();
    }
    // Answers the dialog "Save Scheme" that comes next with each of the names in turn; an empty list cancels it.
    void answerSaveAs(std::vector<std::string> names) {
        QTimer::singleShot(0, qApp, [this, names = std::move(names)]() mutable {
            auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            auto* const field = dialog->findChild<QLineEdit*>(QStringLiteral("schemeName"));
            ASSERT_TRUE(field);
            proposals.push_back(fromQt(field->text()));
            if (names.empty()) return dialog->reject();
            field->setText(toQt(names.front()));
            names.erase(names.begin());
            if (!names.empty()) answerSaveAs(std::move(names));
            QTest::keyClick(field, Qt::Key_Return);
        });
    }

    std::string textOf(std::string_view scheme, std::string_view key) const {
        std::string value = "absent";
        const PropertySetStore::Entry* const entry = store.find(scheme);
        EXPECT_TRUE(entry) << scheme;
        if (entry) entry->scheme.getString(key, value);
        return value;
    }
    QString preview() const { return find<CodeView>("preview")->toPlainText(); }
    // What is marked in the preview, stretch by stretch.
    QStringList marks() const {
        QStringList texts;
        for (const auto& selection : find<CodeView>("preview")->extraSelections()) {
            texts.append(selection.cursor.selectedText().replace(QChar::ParagraphSeparator, u'\n'));
        }
        return texts;
    }
    QStringList chooserRows() const {
        const auto* const chooser = find<QComboBox>("chooser");
        QStringList rows;
        for (int row = 0; row < chooser->count(); ++row) rows.append(chooser->itemText(row));
        return rows;
    }

    TestFiles::TempDir dir;
    SettingsFile settings;
    PropertySetStore store;
    EditorMemory memory;
    ScriptedDialogs dialogs;
    std::unique_ptr<StylesDlg> dlg;
    std::vector<std::string> proposals;
};

}  // namespace BrevisUI
