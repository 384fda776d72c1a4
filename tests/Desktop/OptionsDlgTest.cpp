// The Options dialog as a user meets it.
#include "qt/BrevisUI_OptionsDlg.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include "DesktopTest.h"
#include "qt/BrevisUI_StylesDlg.h"

namespace BrevisUI {
namespace {

class OptionsDlgTest : public DesktopTest {
protected:
    // The control with the accessible name, which is its label without the colon.
    template <class Control>
    static Control& control(const OptionsDlg& dialog, const char* name) {
        for (auto* const found : dialog.findChildren<Control*>()) {
            if (found->accessibleName() == QString::fromUtf8(name)) return *found;
        }
        throw std::runtime_error(std::string("There is no control ") + name);
    }
    static QPushButton& button(const QDialog& dialog, const char* text) {
        for (auto* const found : dialog.findChildren<QPushButton*>()) {
            if (found->text().remove(QLatin1Char('&')) == QString::fromUtf8(text)) return *found;
        }
        throw std::runtime_error(std::string("There is no button ") + text);
    }
    void withOptions(const std::function<void(OptionsDlg&)>& act) {
        inDialog<OptionsDlg>(act);
        press("&Options...");
    }
};

TEST_F(OptionsDlgTest, bringsWhatWasEnteredIntoForceAndOntoTheDisk) {
    start();
    withOptions([](OptionsDlg& dialog) {
        auto& scheme = control<QComboBox>(dialog, "Formatting scheme");
        EXPECT_EQ(scheme.itemText(0), "<No Formatting>");
        EXPECT_EQ(scheme.currentText(), "Narrow");
        QTest::keyClick(&scheme, Qt::Key_Down);
        auto& extensions = control<QLineEdit>(dialog, "File extensions to format");
        EXPECT_EQ(extensions.text(), "c cc cpp cxx h hh hpp hxx");
        extensions.setText("c;cpp, .h");
        auto& backup = control<QLineEdit>(dialog, "Backup file extension");
        EXPECT_FALSE(backup.isEnabled());
        dialog.findChild<QCheckBox*>()->click();
        EXPECT_TRUE(backup.isEnabled());
        backup.setText(" .old. ");
        QTest::keyClick(&control<QComboBox>(dialog, "Display messages of severity"), Qt::Key_End);
        button(dialog, "OK").click();
    });
    EXPECT_EQ(window->state().schemeInForce->name(), "Wide");
    EXPECT_EQ(window->state().settings.messagesThreshold, 3u);
    const nlohmann::json saved = savedOptions();
    EXPECT_EQ(saved.at("StandaloneOnFormat"), "Wide");
    EXPECT_EQ(saved.at("FileExtensions"), "c cpp h");
    EXPECT_EQ(saved.at("CreateBackups"), 1);
    EXPECT_EQ(saved.at("BackupExtension"), "old");
    EXPECT_EQ(saved.at("MessagesThreshold"), 3);
    EXPECT_TRUE(saved.contains("StandaloneWindowPos"));
}

TEST_F(OptionsDlgTest, staysOpenAtABadExtensionAndChangesNothingAtCancel) {
    start();
    withOptions([this](OptionsDlg& dialog) {
        for (const char* name : {"File extensions to format", "Backup file extension"}) {
            auto& field = control<QLineEdit>(dialog, name);
            const QString good = field.text();
            dialog.findChild<QCheckBox*>()->setChecked(true);
            field.setText("a/b");
            dialogs.log.clear();
            button(dialog, "OK").click();
            EXPECT_TRUE(dialogs.hasTold("warning: Error: Invalid file extension entered."));
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(dialog.focusWidget(), &field);
            field.setText(good);
        }
        control<QComboBox>(dialog, "Formatting scheme").setCurrentIndex(0);
        button(dialog, "Cancel").click();
    });
    EXPECT_EQ(window->state().schemeInForce->name(), "Narrow");
    EXPECT_FALSE(savedOptions().contains("FileExtensions"));
}

TEST_F(OptionsDlgTest, takesOverWhatTheSchemeEditorHasMade) {
    start();
    withOptions([this](OptionsDlg& options) {
        inDialog<StylesDlg>([](StylesDlg& editor) { editor.accept(); });
        button(options, "Manage Schemes...").click();
        EXPECT_EQ(control<QComboBox>(options, "Formatting scheme").count(), 3);
        EXPECT_EQ(savedOptions().value("CurrentPropertySet", ""), "Narrow");
        options.accept();
    });
    EXPECT_TRUE(std::filesystem::exists(dir.file("schemes/Wide.fsc")));
}

TEST_F(OptionsDlgTest, explainsEachControlAsThePageOfTheHelpDoes) {
    start();
    withOptions([](OptionsDlg& dialog) {
        EXPECT_TRUE(
            control<QComboBox>(dialog, "Formatting scheme").toolTip().contains("what formatted code looks like"));
        EXPECT_TRUE(button(dialog, "Manage Schemes...").whatsThis().startsWith("\n<p>Opens the"));
        std::vector<const QWidget*> controls = {&button(dialog, "Manage Schemes..."), dialog.findChild<QCheckBox*>()};
        for (const auto* const found : dialog.findChildren<QComboBox*>()) controls.push_back(found);
        for (const auto* const found : dialog.findChildren<QLineEdit*>()) controls.push_back(found);
        EXPECT_EQ(controls.size(), 6u);
        for (const QWidget* const found : controls) {
            EXPECT_FALSE(found->whatsThis().isEmpty()) << found->accessibleName().toStdString();
            EXPECT_FALSE(found->toolTip().contains("<h")) << found->accessibleName().toStdString();
        }
        dialog.reject();
    });
}

TEST_F(OptionsDlgTest, letsALabelLeadToEveryField) {
    start();
    withOptions([](OptionsDlg& dialog) {
        std::string labels;
        for (const auto* const label : dialog.findChildren<QLabel*>()) {
            EXPECT_TRUE(label->buddy()) << label->text().toStdString();
            labels += label->text().remove(QLatin1Char('&')).toStdString() + "\n";
        }
        EXPECT_NE(labels.find("Formatting scheme:\n"), std::string::npos) << labels;
        dialog.reject();
    });
}

}  // namespace
}  // namespace BrevisUI
