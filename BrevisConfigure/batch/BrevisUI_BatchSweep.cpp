// Runs the file job over one file after the other.
#include "batch/BrevisUI_BatchSweep.h"

#include "BrevisUI_FileJob.h"
#include "BrevisUI_Messages.h"
#include "batch/BrevisUI_BatchMessages.h"

namespace BrevisUI {

bool BatchSweep::isCancelledNow() {
    host_.letUserInterfaceRun();
    return dialog_->isCancelled();
}

void BatchSweep::format(const std::string& path) {
    ++number_;
    formatNumbered(path);
}

bool BatchSweep::formatProject(const Project& project) {
    for (const std::string& path : project.files) {
        ++number_;
        if (isCancelledNow()) {
            sendCancelled();
            return false;
        }
        if (!path.empty() && extensions_.holds(path)) formatNumbered(path);
    }
    return true;
}

void BatchSweep::sendCancelled() {
    writer_.finish();
    host_.send(std::string(BatchMessage::cancelled), Severity::information);
}

void BatchSweep::sendEnd(std::string_view text) {
    writer_.finish();
    if (!dialog_->isCancelled()) host_.send(std::string(text), Severity::information);
}

void BatchSweep::formatNumbered(const std::string& path) {
    host_.setStatusText(fillInAll(Status::file, {std::to_string(number_), std::to_string(count_)}));
    formatFile(host_, path, scheme_, dialog_.get(), &writer_.writer());
    host_.advanceOverall();
}

}  // namespace BrevisUI
