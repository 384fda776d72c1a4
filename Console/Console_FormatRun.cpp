// One file after the other: in place by the file job, to standard output by its middle part.
#include "Console_FormatRun.h"

#include <algorithm>
#include <cstdio>
#include <utility>

#include "BrevisUI_FileJob.h"
#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "Console_UnifiedDiff.h"

namespace Console {

using BrevisUI::fillIn;
namespace Message = BrevisUI::Message;
namespace Severity = BrevisUI::Severity;

FormatRun::FormatRun(const FormatOptions& options, StandardOutput& output)
    : options_(options), output_(output), schemes_(shippedSchemePath()) {}

void FormatRun::send(const std::string& text, int severity) {
    if (severity >= options_.threshold) writeErrorLine(text);
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
    int status = exitGood;
    for (const std::string& file : options_.files) {
        status = std::max(status, processFile(file));
        // Nobody would see what follows.
        if (!output_.good()) break;
    }
    return status;
}

const Brevis::PropertySet* FormatRun::schemeFor(const std::string& file) {
    const std::string& place = file == standardInput ? options_.assumeFilename : file;
    const std::string path = options_.scheme.empty() ? schemes_.pathFor(place) : options_.scheme;
    const LoadedScheme& loaded = schemes_.load(path);
    if (path != reportedScheme_) {
        for (const Remark& remark : loaded.remarks) send(remark.text, remark.severity);
        reportedScheme_ = path;
    }
    return loaded.good ? &loaded.scheme : nullptr;
}

int FormatRun::processFile(const std::string& file) {
    const Brevis::PropertySet* scheme = schemeFor(file);
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
    if (options_.check) output_.write(name + "\n");
    if (options_.diff) output_.write(unifiedDiff(name, source, formatted, StandardOutput::takesColours()));
    return exitWouldChange;
}

}  // namespace Console
