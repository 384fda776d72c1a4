// The file job: formats one file in place. It tests the file, runs the pipeline, checks the result, takes the backup
// and has the result put in the place of the file, if it differs; every way out but that of an empty file and of a
// cancel leaves a message.
#pragma once

#include <optional>
#include <string>

#include "BrevisUI_FileProgressDlg.h"
#include "BrevisUI_FormatHost.h"
#include "disk/BrevisUI_FileWriter.h"
#include "scheme/Brevis_FormatterProperties.h"

namespace BrevisUI {

enum class FileResult {
    Formatted,  // it holds its formatted text, or will once the writer of the run has finished
    Unchanged,  // it is formatted already, and was not written
    Empty,      // nothing to do: neither read nor written
    Refused,    // its text cannot be formatted; the file is as it was
    Failed,     // it cannot be read or written; it is as it was, or its old text is safe
    Cancelled,  // before the pipeline ran
};

// `scheme` is read in the way that the host tells. `progress` may be null; then nothing can cancel the run. `writer` is that of a run over several files, whose finish()
// the caller calls behind the last; if it is null, the file is a run of its own. No exception of the pipeline comes
// out. For a file that was refused or has failed, messages tell why.
FileResult formatFile(FormatHost& host, const std::string& path, const Brevis::FormatterProperties& scheme,
                      FileProgressDlg* progress = nullptr, FileWriter* writer = nullptr);

// The two halves of formatFile. The first changes nothing on the disk, so that a host may run it for several files at
// once; the second brings its outcome to the disk.
struct PreparedFile {
    FileResult result = FileResult::Failed;  // Formatted if there is a text to write
    std::string source;
    Brevis::FormatResult formatted;  // for Formatted and Unchanged
};
PreparedFile prepareFile(FormatHost& host, const std::string& path, const Brevis::FormatterProperties& scheme);
FileResult writePrepared(FormatHost& host, FileWriter& writer, const std::string& path, const PreparedFile& file);

// Sends the messages about files that haven't got their new text.
void tellFailures(FormatHost& host, const WriteFailures& failures);

// The job's middle part for a host that reads and writes by itself: the formatted text, or nothing once the messages of
// the failure have been sent. `path` names the text in them.
std::optional<std::string> formatText(FormatHost& host, const std::string& path,
                                      const Brevis::FormatterProperties& scheme,
                                      const std::string& source);

}  // namespace BrevisUI
