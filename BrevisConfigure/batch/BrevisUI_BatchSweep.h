// One pass of the file job over a counted set of files, with the progress dialog and the overall bar. The dialog is
// there as long as the object.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "batch/BrevisUI_BatchHost.h"
#include "batch/BrevisUI_BatchWriter.h"
#include "files/BrevisUI_ExtensionList.h"
#include "projects/BrevisUI_ProjectSource.h"

namespace BrevisUI {

class BatchSweep {
public:
    // The host must outlive the object.
    BatchSweep(BatchHost& host, const Brevis::PropertySet& scheme)
        : host_(host), scheme_(scheme), extensions_(host.extensions()), dialog_(host.createProgress()), writer_(host) {}

    BatchProgressDlg& dialog() { return *dialog_; }
    const ExtensionList& extensions() const { return extensions_; }

    // The number of files that the status text tells.
    void setCount(int count) { count_ = count; }

    // Lets events act and tells whether the dialog has been cancelled.
    bool isCancelledNow();
    // Formats the next file.
    void format(const std::string& path);
    // Formats the files of the project that belong to the target; the others count as files too. False, with a
    // message, once the dialog is cancelled.
    bool formatProject(const Project& project);

    // The two ends of a pass: all files that were formatted are brought to the disk first. The second sends the text
    // unless the dialog has been cancelled.
    void sendCancelled();
    void sendEnd(std::string_view text);

private:
    void formatNumbered(const std::string& path);

    BatchHost& host_;
    const Brevis::FormatterProperties scheme_;
    const ExtensionList extensions_;
    const std::unique_ptr<BatchProgressDlg> dialog_;
    BatchWriter writer_;
    int count_ = 0;
    int number_ = 0;  // of the file last met
};

}  // namespace BrevisUI
