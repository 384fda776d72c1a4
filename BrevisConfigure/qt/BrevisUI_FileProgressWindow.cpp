// Lays out the window and shows the phases.
#include "qt/BrevisUI_FileProgressWindow.h"

#include <QDialogButtonBox>
#include <QProgressBar>
#include <QPushButton>
#include <QVBoxLayout>

#include "qt/BrevisUI_ElidedLabel.h"
#include "qt/BrevisUI_Text.h"

namespace BrevisUI {

namespace {

constexpr int progressWidth = 60;
constexpr int textLines = 2;

}  // namespace

FileProgressWindow::FileProgressWindow(QWidget* parent)
    : QDialog(parent),
      text_(new ElidedLabel(textLines)),
      bar_(new QProgressBar),
      cancelButton_(new QPushButton(tr("Cancel"))),
      pace_(*this) {
    setWindowTitle(tr("Corvane C++"));
    bar_->setRange(0, stepCount);
    bar_->setTextVisible(false);
    bar_->setAccessibleName(tr("Progress of the file"));
    // The window keeps its size while the bar is away.
    QSizePolicy policy = bar_->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    bar_->setSizePolicy(policy);

    auto* const buttons = new QDialogButtonBox;
    buttons->addButton(cancelButton_, QDialogButtonBox::RejectRole);
    connect(buttons, &QDialogButtonBox::rejected, this, &FileProgressWindow::cancel);

    auto* const layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addWidget(bar_);
    layout->addWidget(buttons);
    resize(fontMetrics().averageCharWidth() * progressWidth, sizeHint().height());
}

void FileProgressWindow::resetBar() { bar_->setValue(0); }

void FileProgressWindow::show(const std::string& text, bool step) {
    pace_.begin();
    text_->setText(pathToQt(text));
    if (step) bar_->setValue(bar_->value() + 1);
    pace_.end();
}

void FileProgressWindow::showBar(bool visible) { bar_->setVisible(visible); }

void FileProgressWindow::cancel() {
    cancelled_ = true;
    cancelButton_->setEnabled(false);
}

}  // namespace BrevisUI
