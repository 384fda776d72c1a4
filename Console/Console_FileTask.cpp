// For -i the first half of the file job, for everything else its middle part.
#include "Console_FileTask.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <iterator>
#include <utility>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "Console_Colours.h"
#include "Console_UnifiedDiff.h"

namespace Console {

using BrevisUI::fillIn;
namespace Message = BrevisUI::Message;
namespace Severity = BrevisUI::Severity;

namespace {

FileFate fateOf(BrevisUI::FileResult result) {
    switch (result) {
        case BrevisUI::FileResult::Formatted:
            return FileFate::Formatted;
        case BrevisUI::FileResult::Unchanged:
        case BrevisUI::FileResult::Empty:
            return FileFate::Unchanged;
        case BrevisUI::FileResult::Refused:
            return FileFate::Refused;
        default:
            return FileFate::Failed;
    }
}

}  // namespace

// Keeps what is told for later, and for a report what is found, whatever the threshold is.
class FileTask::Host : public BrevisUI::FormatHost {
public:
    Host(const FormatOptions& options, const LineChoice& lines, FileOutcome& outcome)
        : outcome(outcome), options_(options), lines_(lines) {}

    void send(const std::string& text, int severity) override {
        if (severity >= Severity::error && firstError_.empty()) firstError_ = text;
        if (severity >= options_.threshold) outcome.messages.push_back({text, severity});
    }
    void sendPlaced(const std::string& path, const Trn::ParseMessage& message) override {
        FormatHost::sendPlaced(path, message);
        if (message.severity >= Severity::warning) outcome.findings.findings.push_back(findingFrom(message));
    }
    const BrevisUI::LineSet* chosenLines(const std::string& path) const override { return lines_.linesOf(path); }
    bool createBackups() const override { return options_.createBackups; }
    std::string backupExtension() const override { return options_.backupExtension; }
    bool verifyTokens() const override { return options_.verifyTokens; }
    bool verifyStability() const override { return options_.verifyStability; }
    Brevis::Reading reading() const override { return options_.reading; }
    BrevisUI::LineEndMode lineEnds() const override { return options_.lineEnds; }
    void onFormatted(const std::string&, const Brevis::FormatResult& result) override { outcome.seams = result.seams; }

    // To be called for a file that has no result: the report must tell of it.
    void findRefusal() {
        std::vector<Finding>& findings = outcome.findings.findings;
        const auto isRefusal = [](const Finding& finding) { return finding.kind == Finding::Kind::Refused; };
        if (std::ranges::none_of(findings, isRefusal)) {
            findings.push_back({Finding::Kind::Refused, {}, firstError_, {}});
        }
    }

    FileOutcome& outcome;

private:
    const FormatOptions& options_;
    const LineChoice& lines_;
    std::string firstError_;
};

FileTask::FileTask(const FormatOptions& options, SchemeChoice& schemes, const LineChoice& lines)
    : options_(options), schemes_(schemes), lines_(lines), isColoured_(wantsColours(options.colours, STDOUT_FILENO)) {}

FileOutcome FileTask::run(const std::string& file) const {
    FileOutcome outcome;
    outcome.name = displayName(file);
    outcome.findings.name = outcome.name;
    Host host(options_, lines_, outcome);
    outcome.scheme = schemes_.forFile(file == standardInput ? options_.assumeFilename : file);
    if (!outcome.scheme.scheme->good) {
        host.send("The file \"" + outcome.name + "\" will not be formatted: its scheme is bad.", Severity::error);
    } else if (options_.inPlace) {
        formatInPlace(file, host);
    } else {
        formatToOutput(file, host);
    }
    if (outcome.fate == FileFate::Refused || outcome.fate == FileFate::Failed) host.findRefusal();
    return outcome;
}

std::string FileTask::displayName(const std::string& file) const {
    if (file != standardInput) return file;
    return options_.assumeFilename.empty() ? "<stdin>" : options_.assumeFilename;
}

void FileTask::formatInPlace(const std::string& file, Host& host) const {
    FileOutcome& outcome = host.outcome;
    outcome.prepared = BrevisUI::prepareFile(host, file, outcome.scheme.scheme->properties);
    outcome.bytes = outcome.prepared.source.size();
    outcome.fate = fateOf(outcome.prepared.result);
    // It may wait with many others: no more is held than what is to be written.
    if (outcome.fate != FileFate::Formatted) {
        outcome.prepared.source = std::string();
        outcome.prepared.formatted.text = std::string();
    }
    outcome.prepared.source.shrink_to_fit();
}

std::optional<std::string> FileTask::readSource(const std::string& file, Host& host) const {
    std::string text;
    if (file == standardInput) {
        if (BrevisUI::readStream(STDIN_FILENO, text)) return text;
    } else if (BrevisUI::readFile(file, text)) {
        return text;
    } else if (!BrevisUI::fileExists(file)) {
        host.send(fillIn(Message::missing, file), Severity::error);
        return std::nullopt;
    }
    host.send(fillIn(Message::unreadable, host.outcome.name), Severity::error);
    return std::nullopt;
}

void FileTask::formatToOutput(const std::string& file, Host& host) const {
    FileOutcome& outcome = host.outcome;
    const std::string& name = outcome.name;
    host.send(fillIn(Message::starting, name), Severity::information);
    const std::optional<std::string> source = readSource(file, host);
    if (!source) return;
    outcome.bytes = source->size();
    outcome.fate = FileFate::Unchanged;
    if (source->empty()) return;

    std::optional<std::string> formatted = BrevisUI::formatText(host, name, outcome.scheme.scheme->properties, *source);
    if (!formatted) {
        outcome.fate = FileFate::Refused;
        return;
    }
    if (*source != *formatted) outcome.fate = FileFate::Formatted;
    showChanges(*source, std::move(*formatted), outcome);
}

void FileTask::showChanges(const std::string& source, std::string formatted, FileOutcome& outcome) const {
    if (!options_.check && !options_.diff) {
        outcome.output = std::move(formatted);
        return;
    }
    if (outcome.fate != FileFate::Formatted) return;
    if (options_.report != ReportForm::None) {
        std::ranges::move(findLayout(source, formatted), std::back_inserter(outcome.findings.findings));
        return;
    }
    if (options_.check) outcome.output = outcome.name + "\n";
    if (options_.diff) outcome.output += unifiedDiff(outcome.name, source, formatted, isColoured_);
}

}  // namespace Console
