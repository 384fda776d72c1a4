// What corvane-format does for one file before anything of it is shown or written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "BrevisUI_FileJob.h"
#include "Console_Findings.h"
#include "Console_FormatOptions.h"
#include "Console_LineChoice.h"
#include "Console_RunSummary.h"
#include "Console_SchemeChoice.h"

namespace Console {

struct FileOutcome {
    struct Message {
        std::string text;
        int severity;
    };

    std::string name;  // of the file, for messages
    SchemeChoice::Choice scheme;
    std::vector<Message> messages;     // in their order
    std::optional<std::size_t> seams;  // of a text that was formatted and is not to be written back
    FileFate fate = FileFate::Failed;
    std::uint64_t bytes = 0;          // that were read
    BrevisUI::PreparedFile prepared;  // with -i
    std::string output;               // for standard output
    FileFindings findings;            // for a report, which takes the place of the output
};

class FileTask {
public:
    // All must outlive the object.
    FileTask(const FormatOptions& options, SchemeChoice& schemes, const LineChoice& lines);

    // Reads and formats the file, or standard input. Any thread may call it.
    FileOutcome run(const std::string& file) const;

private:
    class Host;

    // The name of a file in messages.
    std::string displayName(const std::string& file) const;
    void formatInPlace(const std::string& file, Host& host) const;
    void formatToOutput(const std::string& file, Host& host) const;
    // All bytes of a file or of standard input, or nothing once the message has been sent.
    std::optional<std::string> readSource(const std::string& file, Host& host) const;
    void showChanges(const std::string& source, std::string formatted, FileOutcome& outcome) const;

    const FormatOptions& options_;
    SchemeChoice& schemes_;
    const LineChoice& lines_;
    const bool isColoured_;
};

}  // namespace Console
