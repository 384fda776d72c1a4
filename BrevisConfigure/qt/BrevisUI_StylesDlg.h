// The dialog "Manage Schemes": a chooser of schemes, the pages with their properties, and a preview that follows every
// change. It works on a copy of the store; what the caller does with the result is the caller's business.
#pragma once

#include <QDialog>
#include <QString>
#include <memory>

#include "editor/BrevisUI_StylesDlgModel.h"
#include "qt/BrevisUI_Dialogs.h"
#include "settings/BrevisUI_SettingsFile.h"
#include "store/BrevisUI_PropertySetStore.h"

namespace BrevisUI {

class StylesDlg : public QDialog {
    Q_OBJECT

public:
    // `settings` gives the samples, the font and the name of the scheme that was edited last, and takes that name when
    // the dialog ends with OK; the caller saves the file. All references must outlive the dialog.
    StylesDlg(PropertySetStore store, SettingsFile& settings, EditorMemory& memory, Dialogs& dialogs,
              QWidget* parent = nullptr);
    ~StylesDlg() override;

    // What the user made of the store; of use after exec() has given QDialog::Accepted.
    const PropertySetStore& store() const;

Q_SIGNALS:
    // The user asks for a page of the help, such as "Classes.htm".
    void helpRequested(const QString& topic);

private:
    struct Private;
    std::unique_ptr<Private> d_;
};

}  // namespace BrevisUI
