// One file after the other: in place by the file job, to standard output by its middle part.
#include "Console_FormatRun.h"

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <sstream>
#include <utility>

#include "BrevisUI_FileJob.h"
#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "BrevisUI_UserPlaces.h"
#include "Console_Colours.h"
#include "Console_FileSelection.h"
#include "Console_SchemeLibrary.h"
#include "Console_UnifiedDiff.h"
#include "disk/BrevisUI_SignalPause.h"

namespace Console {

using BrevisUI::fillIn;
namespace Message = BrevisUI::Message;
namespace Severity = BrevisUI::Severity;
namespace fs = std::filesystem;

namespace {

// A comment must not go on in a line of its own.
std::string onOneLine(std::string path) {
    std::replace_if(
        path.begin(), path.end(), [](char c) { return c == '\n' || c == '\r'; }, '?');
    return path;
}

}  // namespace

FormatRun::FormatRun(const FormatOptions& options, StandardOutput& output)
    : options_(options),
      output_(output),
      colouredOutput_(wantsColours(options.colours, STDOUT_FILENO)),
      colouredMessages_(wantsColours(options.colours, STDERR_FILENO)),
      lines_(options),
      report_(makeReport(options.report, fs::current_path().string())),
      schemes_(shippedSchemePath()),
      store_(system_, BrevisUI::userCacheDirectory()),
      writer_(system_, &store_) {}

void FormatRun::send(const std::string& text, int severity) {
    if (severity >= Severity::error && lastError_.empty()) lastError_ = text;
    if (severity >= options_.threshold) writeErrorLine(colouredMessages_ ? colouredMessage(text, severity) : text);
}

void FormatRun::sendPlaced(const std::string& path, const Trn::ParseMessage& message) {
    FormatHost::sendPlaced(path, message);
    if (message.severity >= Severity::warning) findings_.findings.push_back(findingFrom(message));
}

void FormatRun::onFormatted(const std::string& path, const Brevis::FormatResult& result) {
    if (!options_.verbose) return;
    writeErrorLine(path + ": " + std::to_string(result.seams) + (result.seams == 1 ? " seam" : " seams") + " mended");
}

std::string FormatRun::displayName(const std::string& file) const {
    if (file != standardInput) return file;
    return options_.assumeFilename.empty() ? "<stdin>" : options_.assumeFilename;
}

int FormatRun::run() {
    if (options_.listSchemes) return listSchemes();
    if (options_.dumpScheme) return dumpScheme(options_.files.front());
    return formatFiles();
}

int FormatRun::formatFiles() {
    FileSelection selection(options_, lines_, [this](const std::string& text, int severity) { send(text, severity); });
    const std::vector<std::string> files = selection.select();
    const int status = options_.inPlace ? writeFiles(files) : processFiles(files);
    return selection.hasFailed() ? exitTrouble : status;
}

int FormatRun::writeFiles(const std::vector<std::string>& files) {
    const BrevisUI::SignalPause pause;
    const int status = processFiles(files);
    BrevisUI::tellFailures(*this, writer_.finish());
    return writeFailed_ ? exitTrouble : status;
}

int FormatRun::processFiles(const std::vector<std::string>& files) {
    int status = exitGood;
    if (report_) output_.write(report_->begin());
    for (const std::string& file : files) {
        status = std::max(status, report_ ? reportFile(file) : processFile(file));
        // Nobody would see what follows, or wants it.
        if (!output_.good() || (options_.inPlace && BrevisUI::SignalPause::isStopAsked())) break;
    }
    if (report_) output_.write(report_->end(status != exitTrouble));
    return status;
}

int FormatRun::reportFile(const std::string& file) {
    findings_ = {displayName(file), {}};
    lastError_.clear();
    const int status = processFile(file);
    const auto isRefusal = [](const Finding& finding) { return finding.kind == Finding::Kind::Refused; };
    if (status == exitTrouble && std::ranges::none_of(findings_.findings, isRefusal)) {
        findings_.findings.push_back({Finding::Kind::Refused, {}, lastError_, {}});
    }
    output_.write(report_->file(findings_));
    return status;
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
    const std::string path = schemePathFor(file);
    const Brevis::PropertySet* scheme = schemeAt(path);
    if (!scheme) return exitTrouble;
    std::ostringstream out;
    out << "# This scheme was found at " << onOneLine(fs::absolute(path).lexically_normal().string()) << '\n';
    scheme->write(out);
    output_.write(out.str());
    return exitGood;
}

const std::string& FormatRun::givenScheme() {
    if (givenScheme_.empty()) {
        GivenScheme given = findGivenScheme(options_.scheme);
        sendRemarks(given.remarks);
        givenScheme_ = std::move(given.path);
    }
    return givenScheme_;
}

std::string FormatRun::schemePathFor(const std::string& file) {
    if (!options_.scheme.empty()) return givenScheme();
    const std::string& place = file == standardInput ? options_.assumeFilename : file;
    return schemes_.pathFor(BrevisUI::isDirectory(place) ? place + "/" : place);
}

void FormatRun::sendRemarks(const std::vector<Remark>& remarks) {
    for (const Remark& remark : remarks) send(remark.text, remark.severity);
}

const Brevis::PropertySet* FormatRun::schemeAt(const std::string& path) {
    const LoadedScheme& loaded = schemes_.load(path);
    if (path != reportedScheme_) sendRemarks(loaded.remarks);
    reportedScheme_ = path;
    return loaded.good ? &loaded.scheme : nullptr;
}

int FormatRun::processFile(const std::string& file) {
    const Brevis::PropertySet* scheme = schemeAt(schemePathFor(file));
    if (!scheme) {
        send("The file \"" + displayName(file) + "\" will not be formatted: its scheme is bad.", Severity::error);
        return exitTrouble;
    }
    return options_.inPlace ? formatInPlace(file, *scheme) : formatToOutput(file, *scheme);
}

int FormatRun::formatInPlace(const std::string& file, const Brevis::PropertySet& scheme) {
    const BrevisUI::FileResult result = BrevisUI::formatFile(*this, file, scheme);
    return result == BrevisUI::FileResult::Refused ? exitTrouble : exitGood;
}

std::optional<std::string> FormatRun::readSource(const std::string& file) {
    std::string text;
    if (file == standardInput) {
        if (BrevisUI::readStream(stdin, text)) return text;
    } else if (!BrevisUI::fileExists(file)) {
        send(fillIn(Message::missing, file), Severity::error);
        return std::nullopt;
    } else if (BrevisUI::readFile(file, text)) {
        return text;
    }
    send(fillIn(Message::unreadable, displayName(file)), Severity::error);
    return std::nullopt;
}

int FormatRun::formatToOutput(const std::string& file, const Brevis::PropertySet& scheme) {
    const std::string name = displayName(file);
    send(fillIn(Message::starting, name), Severity::information);
    const std::optional<std::string> source = readSource(file);
    if (!source) return exitTrouble;
    if (source->empty()) return exitGood;

    const bool compares = options_.check || options_.diff;
    const std::optional<std::string> formatted = BrevisUI::formatText(*this, name, scheme, *source);
    if (!formatted) return exitTrouble;
    if (compares) return showChanges(name, *source, *formatted);
    output_.write(*formatted);
    return exitGood;
}

int FormatRun::showChanges(const std::string& name, const std::string& source, const std::string& formatted) {
    if (source == formatted) return exitGood;
    if (report_) {
        std::ranges::move(findLayout(source, formatted), std::back_inserter(findings_.findings));
    } else if (options_.check) {
        output_.write(name + "\n");
    }
    if (options_.diff) output_.write(unifiedDiff(name, source, formatted, colouredOutput_));
    return exitWouldChange;
}

}  // namespace Console
