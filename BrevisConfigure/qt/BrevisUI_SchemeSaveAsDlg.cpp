// One field and two buttons.
#include "qt/BrevisUI_SchemeSaveAsDlg.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace BrevisUI {

SchemeSaveAsDlg::SchemeSaveAsDlg(const QString& proposal, QWidget* parent)
    : QDialog(parent), name_(new QLineEdit(proposal, this)) {
    setWindowTitle(tr("Save Scheme"));
    auto* label = new QLabel(tr("Save this formatting scheme as:"), this);
    label->setBuddy(name_);
    name_->setAccessibleName(tr("Name of the scheme"));
    name_->setObjectName(QStringLiteral("schemeName"));
    // Wide enough for a name, whatever the font is.
    constexpr int characters = 40;
    name_->setMinimumWidth(name_->fontMetrics().averageCharWidth() * characters);
    name_->selectAll();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* column = new QVBoxLayout(this);
    column->addWidget(label);
    column->addWidget(name_);
    column->addStretch();
    column->addWidget(buttons);
}

QString SchemeSaveAsDlg::name() const { return name_->text(); }

}  // namespace BrevisUI
