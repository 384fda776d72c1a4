// The Options dialog. It edits a copy and changes nothing by itself: whoever shows it applies the model at OK.
#pragma once

#include <QDialog>

#include "editor/BrevisUI_OptionsModel.h"
#include "editor/BrevisUI_StylesDlgModel.h"
#include "help/BrevisUI_HelpLibrary.h"
#include "qt/BrevisUI_Dialogs.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLabel;
class QLineEdit;
class QPushButton;

namespace BrevisUI {

class OptionsDlg : public QDialog {
    Q_OBJECT

public:
    // `settings` and `memory` are for the scheme editor. These and `dialogs` must outlive the dialog.
    OptionsDlg(const ProgramState& state, SettingsFile& settings, EditorMemory& memory, Dialogs& dialogs,
               QWidget* parent = nullptr);

    // What was entered; of use after exec() has given QDialog::Accepted.
    const OptionsModel& model() const { return model_; }

    // Stays open, with a box that tells why, if what was entered won't do.
    void accept() override;

    // Gives each control a tool tip and a what's-this text from its section of the page "Options.htm".
    void explainFrom(const HelpLibrary& help);

Q_SIGNALS:
    // The user asks for a page of the help, such as "Options.htm".
    void helpRequested(const QString& topic);

private:
    void layOut();
    void layOutSchemes(QFormLayout& form);
    void layOutFiles(QFormLayout& form);
    void fillSchemes();
    void fetchControls();
    void manageSchemes();

    OptionsModel model_;
    SettingsFile& settings_;
    EditorMemory& memory_;
    Dialogs& dialogs_;

    QComboBox* scheme_;
    QPushButton* manage_;
    QLineEdit* extensions_;
    QCheckBox* createBackups_;
    QLabel* backupLabel_;
    QLineEdit* backupExtension_;
    QComboBox* threshold_;
};

}  // namespace BrevisUI
