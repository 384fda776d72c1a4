// Shows the phases of a run.
#include "BrevisUI_FileProgressDlg.h"

#include "BrevisUI_Messages.h"

namespace BrevisUI {

bool FileProgressDlg::UpdateFunction::operator()(const std::string& pattern) {
    if (!dialog_ || dialog_->isCancelled()) return false;
    dialog_->show(fillIn(pattern, fileName_), true);
    return true;
}

}  // namespace BrevisUI
