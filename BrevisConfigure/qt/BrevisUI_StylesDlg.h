// The dialog "Manage Schemes": a chooser of schemes, the pages with their properties, and a preview that follows every
// change. It works on a copy of the store; what the caller does with the result is the caller's business. The rules are
// those of StylesDlgModel, the dialog draws and asks.
#pragma once

#include <QDialog>
#include <QString>
#include <QTimer>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/BrevisUI_StylesDlgModel.h"
#include "help/BrevisUI_HelpText.h"
#include "qt/BrevisUI_Dialogs.h"
#include "settings/BrevisUI_SettingsFile.h"
#include "store/BrevisUI_PropertySetStore.h"

class QAction;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QSplitter;
class QStackedWidget;

namespace BrevisUI {

class FieldControl;
class PreviewPane;
class StylesPageView;

class StylesDlg : public QDialog, private StylesDlgHost, private StylesListener {
    Q_OBJECT

public:
    // `settings` gives the samples, the font and the name of the scheme that was edited last, and takes that name when
    // the dialog ends with OK; the caller saves the file. All references must outlive the dialog.
    StylesDlg(PropertySetStore store, SettingsFile& settings, EditorMemory& memory, Dialogs& dialogs,
              QWidget* parent = nullptr);
    ~StylesDlg() override;

    // What the user made of the store; of use after exec() has given QDialog::Accepted.
    const PropertySetStore& store() const { return model_.store(); }

    // Goes to the control of a property.
    void showProperty(std::string_view key);
    // Goes to a page by its tab. False where a text that was refused keeps the user on the one that is shown.
    bool showPage(std::size_t tab);

    void accept() override;

Q_SIGNALS:
    // The user asks for a page of the help, such as "Classes.htm".
    void helpRequested(const QString& topic);

private:
    // ---- The parts of the window
    QLayout* makeChooserRow();
    QWidget* makeSheet();
    void addPage(StylesBasePage& page);
    std::string wordsOfHelp(std::string_view key) const;
    QLayout* makeButtonRow();
    void addShortcuts();

    // ---- Commands
    void choose(int row);
    void saveAs();
    void removeCurrent();
    void compare();
    void importScheme();
    void exportScheme();
    void showPreview(bool isShown);
    void askForHelp();

    // ---- Showing
    // The chooser and what depends on the current scheme.
    void showCurrent();
    // The user has to mend a text first. Nothing if there is nothing to mend.
    void tellRefusal(const ChangeResult& refusal);
    void highlight(FieldControl* control);
    void showChangeMark(std::size_t tab);

    // ---- StylesDlgHost
    void showWarning(std::string_view text) override;
    bool askYesNo(std::string_view text) override;
    StylesDlgHost::Answer askYesNoCancel(std::string_view text) override;
    std::optional<std::string> askSchemeName(std::string_view proposal) override;

    // ---- StylesListener
    void fieldsChanged(const StylesBasePage& page) override;
    void previewOutdated() override;

    Dialogs& dialogs_;
    HelpText help_;
    StylesDlgModel model_;

    QComboBox* chooser_;
    QLabel* builtInMark_;
    QPushButton* deleteButton_;
    QAction* compareAction_;
    QAction* exportAction_;
    QListWidget* tabs_;
    QStackedWidget* stack_;
    std::vector<StylesPageView*> views_;  // in the order of the tabs
    QSplitter* splitter_;
    PreviewPane* preview_;
    QPushButton* previewButton_;
    int previewWidth_ = 0;  // with the handle beside it, when it was shown last

    FieldControl* highlighted_ = nullptr;
    QTimer highlightTimer_;
};

}  // namespace BrevisUI
