// A run of corvane-format over its files, once the arguments have been read.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "BrevisUI_FormatHost.h"
#include "BrevisUI_LineEnds.h"
#include "Console_FormatOptions.h"
#include "Console_LineChoice.h"
#include "Console_Report.h"
#include "Console_SchemeFinder.h"
#include "Console_StandardStreams.h"
#include "disk/BrevisUI_FileWriter.h"

namespace Console {

inline constexpr int exitGood = 0, exitWouldChange = 1, exitTrouble = 2;

class FormatRun : private BrevisUI::FormatHost {
public:
    // `options` and `output` must outlive the run.
    FormatRun(const FormatOptions& options, StandardOutput& output);

    // Does what the options ask for: lists or prints schemes, or formats all files in their order. Gives the exit
    // status, which knows nothing of a failed write to `output`.
    int run();

private:
    void send(const std::string& text, int severity) override;
    void sendPlaced(const std::string& path, const Trn::ParseMessage& message) override;
    const BrevisUI::LineSet* chosenLines(const std::string& path) const override { return lines_.linesOf(path); }
    Brevis::Reading reading() const override { return options_.reading; }
    bool createBackups() const override { return options_.createBackups; }
    std::string backupExtension() const override { return options_.backupExtension; }
    bool verifyTokens() const override { return options_.verifyTokens; }
    bool verifyStability() const override { return options_.verifyStability; }
    BrevisUI::LineEndMode lineEnds() const override { return options_.lineEnds; }
    BrevisUI::FileWriter* fileWriter() override { return &writer_; }
    void onWriteFailed(const std::string&) override { writeFailed_ = true; }
    void onFormatted(const std::string& path, const Brevis::FormatResult& result) override;

    // The name of a file in messages.
    std::string displayName(const std::string& file) const;
    int listSchemes();
    int dumpScheme(const std::string& file);
    int formatFiles();
    // The same as processFiles, with every file in its place at the end.
    int writeFiles(const std::vector<std::string>& files);
    // The status of all files; stops early if there is no use in going on.
    int processFiles(const std::vector<std::string>& files);
    // The path of the scheme file that --scheme means.
    const std::string& givenScheme();
    // The path of the scheme file for a source file.
    std::string schemePathFor(const std::string& file);
    void sendRemarks(const std::vector<Remark>& remarks);
    // The scheme at a path, or null once the messages about it have been sent.
    const Brevis::PropertySet* schemeAt(const std::string& path);
    int processFile(const std::string& file);
    // The same for a report of what is found in the file.
    int reportFile(const std::string& file);
    int formatInPlace(const std::string& file, const Brevis::PropertySet& scheme);
    int formatToOutput(const std::string& file, const Brevis::PropertySet& scheme);
    // All bytes of a file or of standard input, or nothing once the message has been sent.
    std::optional<std::string> readSource(const std::string& file);
    int showChanges(const std::string& name, const std::string& source, const std::string& formatted);

    const FormatOptions& options_;
    StandardOutput& output_;
    const bool colouredOutput_, colouredMessages_;
    LineChoice lines_;
    std::unique_ptr<Report> report_;  // null: none is wanted
    FileFindings findings_;           // in the file in work
    std::string lastError_;           // about it, without a place
    SchemeFinder schemes_;
    BrevisUI::FileSystem system_;
    BrevisUI::RunStore store_;
    BrevisUI::FileWriter writer_;
    bool writeFailed_ = false;
    std::string givenScheme_;     // empty until it has been asked for
    std::string reportedScheme_;  // the path of the scheme whose remarks were sent last
};

}  // namespace Console
