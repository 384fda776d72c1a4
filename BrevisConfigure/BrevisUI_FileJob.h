// The file job: formats one file in place. It tests the file, runs the pipeline, checks the result, takes the backup
// and has the result put in the place of the file, if it differs; every way out but that of an empty file and of a
// cancel leaves a message.
#pragma once

#include <optional>
#include <string>

#include "BrevisUI_FileProgressDlg.h"
#include "BrevisUI_FormatHost.h"
#include "disk/BrevisUI_FileWriter.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

enum class FileResult {
    Formatted,  // it holds its formatted text, or will once the writer of the run has finished
    Empty,      // nothing to do: neither read nor written
    Refused,    // messages tell why; the file is as it was, or its old text is safe
    Cancelled,  // before the pipeline ran
};

// `progress` may be null; then nothing can cancel the run. No exception of the pipeline comes out.
FileResult formatFile(FormatHost& host, const std::string& path, const Brevis::PropertySet& scheme,
                      FileProgressDlg* progress = nullptr);

// Sends the messages about files that haven't got their new text.
void tellFailures(FormatHost& host, const WriteFailures& failures);

// The job's middle part for a host that reads and writes by itself: the formatted text, or nothing once the messages of
// the failure have been sent. `path` names the text in them.
std::optional<std::string> formatText(FormatHost& host, const std::string& path, const Brevis::PropertySet& scheme,
                                      const std::string& source);

}  // namespace BrevisUI
