// A run of corvane-format over its files, once the arguments have been read.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "BrevisUI_FormatHost.h"
#include "Console_FileTask.h"
#include "Console_FormatOptions.h"
#include "Console_LineChoice.h"
#include "Console_ProgressLine.h"
#include "Console_Report.h"
#include "Console_RunSummary.h"
#include "Console_SignalWatch.h"
#include "Console_StandardStreams.h"
#include "disk/BrevisUI_FileWriter.h"

namespace Console {

inline constexpr int exitGood = 0, exitWouldChange = 1, exitTrouble = 2;

// Files are formatted several at a time. Whatever the user sees and whatever happens on the disk is done by the thread
// of run(), in the order of the files.
class FormatRun : private BrevisUI::FormatHost {
public:
    // `options` and `output` must outlive the run.
    FormatRun(const FormatOptions& options, StandardOutput& output);

    // Does what the options ask for: lists or prints schemes, or formats all files in their order. Gives the exit
    // status, which knows nothing of a failed write to `output`.
    int run();

private:
    // The host of what is written back.
    void send(const std::string& text, int severity) override;
    bool createBackups() const override { return options_.createBackups; }
    std::string backupExtension() const override { return options_.backupExtension; }
    void onWriteFailed(const std::string& path) override;
    void onFormatted(const std::string& path, const Brevis::FormatResult& result) override;

    int listSchemes();
    int dumpScheme(const std::string& file);
    int formatFiles();
    // Gives the number of the signal that has stopped it, or 0.
    int processFiles(const std::vector<std::string>& files);
    void formatAll(const std::vector<std::string>& files, const SignalWatch* watch);
    // Shows and writes what has become of a file.
    void finishFile(const std::string& file, const FileOutcome& outcome);
    void finishWriting();
    void endReport(bool isStopped);
    void tellEnd(int signal, std::size_t count);
    int status() const;

    void sendRemarks(const std::vector<Remark>& remarks);
    // Those about the scheme of a file.
    void sendRemarks(const SchemeChoice::Choice& choice);
    void tellProtected(const std::vector<std::string>& paths);
    void tellSeams(const std::string& path, std::size_t seams);
    // Standard output and error, where the line of progress may stand.
    void write(const std::string& text);
    void writeError(const std::string& line);
    // Whether the formatted texts themselves go to standard output.
    bool printsTexts() const { return !options_.inPlace && !options_.check && !options_.diff; }

    const FormatOptions& options_;
    StandardOutput& output_;
    const bool colouredMessages_;
    LineChoice lines_;
    const std::unique_ptr<Report> report_;  // null: none is wanted
    BrevisUI::FileSystem system_;
    BrevisUI::RunStore store_;
    BrevisUI::FileWriter writer_;

    bool selectionFailed_ = false;  // something that was named could not be taken
    RunSummary summary_;
    ProgressLine progressLine_;
    RunProgress progress_;
    std::string current_;         // the file that is being finished
    std::string reportedScheme_;  // the path of the scheme whose remarks were sent last
    const ProgressLine::Clock::time_point start_ = ProgressLine::Clock::now();
};

}  // namespace Console
