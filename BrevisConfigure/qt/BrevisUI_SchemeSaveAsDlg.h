// The dialog "Save Scheme": asks for the name of a scheme. Whether the name will do is for the caller to say.
#pragma once

#include <QDialog>

class QLineEdit;

namespace BrevisUI {

class SchemeSaveAsDlg : public QDialog {
    Q_OBJECT

public:
    explicit SchemeSaveAsDlg(const QString& proposal, QWidget* parent = nullptr);

    QString name() const;

private:
    QLineEdit* name_;
};

}  // namespace BrevisUI
