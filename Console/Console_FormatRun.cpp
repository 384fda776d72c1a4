// Lets the files be formatted by several threads, and does the rest one file after the other.
#include "Console_FormatRun.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <sstream>
#include <thread>
#include <utility>

#include "BrevisUI_FileJob.h"
#include "BrevisUI_Messages.h"
#include "BrevisUI_UserPlaces.h"
#include "Console_Colours.h"
#include "Console_FileSelection.h"
#include "Console_OrderedWork.h"
#include "Console_SchemeLibrary.h"

namespace Console {

namespace Severity = BrevisUI::Severity;
namespace fs = std::filesystem;

namespace {

// What is held of files that have been begun: enough for the threads to go on while a sync takes its time.
constexpr std::size_t mostFiles = 256;
constexpr std::uint64_t mostBytes = std::uint64_t{32} << 20;

// A comment must not go on in a line of its own.
std::string onOneLine(std::string path) {
    std::replace_if(
        path.begin(), path.end(), [](char c) { return c == '\n' || c == '\r'; }, '?');
    return path;
}

std::uint64_t sizeOf(const std::string& file) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(file, error);
    return error ? 0 : size;
}

std::size_t threadCount(unsigned jobs) { return jobs > 0 ? jobs : std::max(1u, std::thread::hardware_concurrency()); }

}  // namespace

FormatRun::FormatRun(const FormatOptions& options, StandardOutput& output)
    : options_(options),
      output_(output),
      colouredMessages_(wantsColours(options.colours, STDERR_FILENO)),
      lines_(options),
      report_(makeReport(options.report, fs::current_path().string())),
      store_(system_, BrevisUI::userCacheDirectory()),
      writer_(system_, &store_) {
    // The line would stand among the text.
    if (printsTexts() && isTerminal(STDOUT_FILENO)) progressLine_.disable();
}

void FormatRun::send(const std::string& text, int severity) {
    if (severity >= options_.threshold) writeError(colouredMessages_ ? colouredMessage(text, severity) : text);
}

void FormatRun::onWriteFailed(const std::string& path) {
    if (path != current_) summary_.takeBackFormatted();
}

void FormatRun::onFormatted(const std::string& path, const Brevis::FormatResult& result) {
    tellSeams(path, result.seams);
}

int FormatRun::run() {
    if (options_.listSchemes) return listSchemes();
    if (options_.dumpScheme) return dumpScheme(options_.files.front());
    return formatFiles();
}

int FormatRun::listSchemes() {
    const SchemeLibrary library;
    for (const auto& [name, scheme] : library.schemes()) {
        output_.write(name + (scheme.builtIn ? " (built-in)\n" : "\n"));
    }
    sendRemarks(library.remarks());
    return exitGood;
}

int FormatRun::dumpScheme(const std::string& file) {
    SchemeChoice schemes(options_.scheme);
    sendRemarks(schemes.remarks());
    const SchemeChoice::Choice choice = schemes.forFile(file == standardInput ? options_.assumeFilename : file);
    sendRemarks(choice);
    if (!choice.scheme->good) return exitTrouble;
    std::ostringstream out;
    out << "# This scheme was found at " << onOneLine(fs::absolute(choice.path).lexically_normal().string()) << '\n';
    choice.scheme->scheme.write(out);
    output_.write(out.str());
    return exitGood;
}

int FormatRun::formatFiles() {
    FileSelection selection(options_, lines_, [this](const std::string& text, int severity) { send(text, severity); });
    const std::vector<std::string> files = selection.select();
    selectionFailed_ = selection.hasFailed();
    tellProtected(selection.protectedEntries());
    const int signal = processFiles(files);
    return signal != 0 ? SignalWatch::statusFor(signal) : status();
}

int FormatRun::processFiles(const std::vector<std::string>& files) {
    // Who waits for standard input is stopped at once.
    std::optional<SignalWatch> watch;
    const auto again = options_.inPlace ? SignalWatch::Again::Nothing : SignalWatch::Again::ExitAtOnce;
    if (std::ranges::count(files, standardInput) == 0) watch.emplace(again);
    if (report_) write(report_->begin());
    if (!files.empty()) formatAll(files, watch ? &*watch : nullptr);
    finishWriting();
    // Whoever is late has stopped nothing.
    const int signal = watch && summary_.total() < files.size() ? watch->signal() : 0;
    endReport(signal != 0);
    tellEnd(signal, files.size());
    return signal;
}

void FormatRun::formatAll(const std::vector<std::string>& files, const SignalWatch* watch) {
    SchemeChoice schemes(options_.scheme);
    sendRemarks(schemes.remarks());
    progress_.allFiles = files.size();
    if (progressLine_.isWanted()) {
        for (const std::string& file : files) progress_.allBytes += sizeOf(file);
    }
    const FileTask task(options_, schemes, lines_);
    OrderedWork<FileOutcome>::Steps steps;
    steps.mayBegin = [&] { return !watch || watch->signal() == 0; };
    steps.weigh = [&](std::size_t item) { return sizeOf(files[item]); };
    steps.work = [&](std::size_t item) { return task.run(files[item]); };
    steps.take = [&](std::size_t item, const FileOutcome& outcome) {
        finishFile(files[item], outcome);
        // Nobody would see what follows.
        return output_.good();
    };
    OrderedWork<FileOutcome>({threadCount(options_.jobs), mostFiles, mostBytes}, std::move(steps)).run(files.size());
}

void FormatRun::finishFile(const std::string& file, const FileOutcome& outcome) {
    current_ = file;
    sendRemarks(outcome.scheme);
    for (const FileOutcome::Message& message : outcome.messages) send(message.text, message.severity);
    if (outcome.seams) tellSeams(outcome.name, *outcome.seams);
    write(report_ ? report_->file(outcome.findings) : outcome.output);
    FileFate fate = outcome.fate;
    if (options_.inPlace) {
        const BrevisUI::FileResult result = BrevisUI::writePrepared(*this, writer_, file, outcome.prepared);
        if (result == BrevisUI::FileResult::Failed) fate = FileFate::Failed;
    }
    summary_.add(fate);
    ++progress_.files;
    progress_.bytes += outcome.bytes;
    progressLine_.update(progress_);
}

void FormatRun::finishWriting() {
    current_.clear();
    BrevisUI::tellFailures(*this, writer_.finish());
    progressLine_.disable();
}

// It must be whole before a signal can act again.
void FormatRun::endReport(bool isStopped) {
    if (!report_) return;
    write(report_->end(!isStopped && status() != exitTrouble));
    output_.flush();
}

void FormatRun::tellEnd(int signal, std::size_t count) {
    if (signal != 0) {
        writeError("Stopped by " + SignalWatch::nameOf(signal) + " after " + std::to_string(summary_.total()) + " of " +
                   std::to_string(count) + (options_.inPlace ? " files; the others are as they were." : " files."));
    }
    const bool isWanted = isTerminal(STDERR_FILENO) && !(printsTexts() && isTerminal(STDOUT_FILENO));
    if (!options_.verbose && !isWanted) return;
    // An order that a reader of both streams understands.
    output_.flush();
    writeError(summary_.text(options_.inPlace || printsTexts(), ProgressLine::Clock::now() - start_));
}

int FormatRun::status() const {
    if (selectionFailed_ || summary_.hasTrouble()) return exitTrouble;
    return (options_.check || options_.diff) && summary_.formatted() > 0 ? exitWouldChange : exitGood;
}

void FormatRun::sendRemarks(const std::vector<Remark>& remarks) {
    for (const Remark& remark : remarks) send(remark.text, remark.severity);
}

void FormatRun::sendRemarks(const SchemeChoice::Choice& choice) {
    if (choice.path != reportedScheme_) sendRemarks(choice.scheme->remarks);
    reportedScheme_ = choice.path;
}

void FormatRun::tellSeams(const std::string& path, std::size_t seams) {
    if (options_.verbose)
        writeError(path + ": " + std::to_string(seams) + (seams == 1 ? " seam" : " seams") + " mended");
}

void FormatRun::tellProtected(const std::vector<std::string>& paths) {
    summary_.setProtected(paths.size());
    if (!options_.verbose) return;
    for (const std::string& path : paths) writeError(path + ": left out, write-protected");
}

void FormatRun::write(const std::string& text) {
    if (text.empty()) return;
    progressLine_.erase();
    output_.write(text);
    if (progressLine_.isWanted()) output_.flush();
}

void FormatRun::writeError(const std::string& line) {
    progressLine_.erase();
    writeErrorLine(line);
}

}  // namespace Console
