// The progress window of a run as the file job sees it, and the functor that joins it to the pipeline. A host draws it
// with whatever toolkit it has.
#pragma once

#include <string>

#include "run/Brevis_UpdateFunctor.h"

namespace BrevisUI {

class FileProgressDlg {
public:
    // The steps of the bar: one for each phase of a good run.
    static constexpr int stepCount = 5;

    virtual ~FileProgressDlg() = default;

    virtual bool isCancelled() const = 0;
    // Sets the bar to 0.
    virtual void resetBar() = 0;
    // Shows the text and, if `step` is true, moves the bar on by one.
    virtual void show(const std::string& text, bool step) = 0;

    class UpdateFunction;
};

class FileProgressDlg::UpdateFunction : public Brevis::UpdateFunctor {
public:
    // `dialog` may be null: then every call gives false, that is to say stop.
    UpdateFunction(FileProgressDlg* dialog, std::string fileName) : dialog_(dialog), fileName_(std::move(fileName)) {}

    // Shows the phase. False without a dialog or when it has been cancelled.
    bool operator()(const std::string& pattern) override;

private:
    FileProgressDlg* dialog_;
    std::string fileName_;
};

}  // namespace BrevisUI
