// The dialog that shows two schemes key by key. It changes nothing.
#pragma once

#include <QDialog>

#include "editor/BrevisUI_StylesDlgModel.h"

class QCheckBox;
class QComboBox;
class QLabel;
class QTreeWidget;

namespace BrevisUI {

class CompareDlg : public QDialog {
    Q_OBJECT

public:
    // Starts with the scheme that is worked on and the next one. The model must outlive the dialog.
    explicit CompareDlg(const StylesDlgModel& model, QWidget* parent = nullptr);

private:
    void compare();

    const StylesDlgModel& model_;
    QComboBox* first_;
    QComboBox* second_;
    QCheckBox* showsAll_;
    QTreeWidget* rows_;
    QLabel* count_;
};

}  // namespace BrevisUI
