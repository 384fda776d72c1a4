// The progress of one file, and the button that cancels the run: a small window beside the main one.
#pragma once

#include <QDialog>

#include "batch/BrevisUI_BatchHost.h"
#include "qt/BrevisUI_PaintPace.h"

class QProgressBar;
class QPushButton;

namespace BrevisUI {

class ElidedLabel;

class FileProgressWindow : public QDialog, public BatchProgressDlg {
    Q_OBJECT

public:
    explicit FileProgressWindow(QWidget* parent = nullptr);

    bool isCancelled() const override { return cancelled_; }
    void resetBar() override;
    void show(const std::string& text, bool step) override;
    void showBar(bool visible) override;

    // Escape and the close button of the window cancel too; the run takes the window away.
    void reject() override { cancel(); }
    void cancel();

private:
    ElidedLabel* text_;
    QProgressBar* bar_;
    QPushButton* cancelButton_;
    bool cancelled_ = false;
    PaintPace pace_;
};

}  // namespace BrevisUI
