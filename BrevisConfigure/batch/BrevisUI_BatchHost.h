// What the batch commands ask of the program that runs them: dialogs, the status bar and a few settings. It knows no
// toolkit; a window draws it, and so does a test.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "BrevisUI_FileProgressDlg.h"
#include "BrevisUI_FormatHost.h"
#include "BrevisUI_UserPlaces.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

enum class Answer { Yes, No, Cancel };

// The progress window of a whole run. It stands for all files of the run and is removed by its destructor.
class BatchProgressDlg : public FileProgressDlg {
public:
    virtual void showBar(bool visible) = 0;
};

// What an open-file dialog is to offer.
struct FileChoice {
    // In the form of BrevisUI::Filter.
    std::string filter;
    // More rows in the same form, for formats that came later; may be empty.
    std::string laterFilter;
    std::string directory;
    bool several = false;
};

class BatchHost : public FormatHost {
public:
    // The chosen paths in the order of the dialog; none if it was cancelled, and never more than one unless several
    // were asked for.
    virtual std::vector<std::string> chooseFiles(const FileChoice& choice) = 0;
    virtual std::optional<std::string> chooseFolder(std::string_view title, const std::string& directory) = 0;
    // A question with the buttons yes, no and cancel.
    virtual Answer ask(const std::string& question) = 0;
    // A text with an information icon.
    virtual void show(std::string_view text) = 0;

    virtual void clearMessages() = 0;

    // The status bar. `setBusy` shows the busy images and the overall bar; `setReady` takes both away and puts the
    // text for an idle program back.
    virtual void setBusy() = 0;
    virtual void setReady() = 0;
    virtual void setStatusText(const std::string& text) = 0;
    // The overall bar runs from 0 to `count` and stands at 0 afterwards.
    virtual void setOverallRange(int count) = 0;
    virtual void advanceOverall() = 0;

    virtual void showWaitCursor(bool /*visible*/) {}
    // Never null.
    virtual std::unique_ptr<BatchProgressDlg> createProgress() = 0;

    // Where dialogs start.
    virtual std::string lastDirectory() const = 0;
    virtual void setLastDirectory(const std::string& directory) = 0;

    // Where the old texts of the files of a command are kept.
    virtual std::string cacheDirectory() const { return userCacheDirectory(); }

    // The extensions of source files, without dots.
    virtual std::vector<std::string> extensions() const = 0;
    // The scheme in force, under its name, or null.
    virtual const Brevis::PropertySet* scheme() const = 0;
};

}  // namespace BrevisUI
