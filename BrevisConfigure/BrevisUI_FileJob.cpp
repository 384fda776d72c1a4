// The steps of the file job, in their order.
#include "BrevisUI_FileJob.h"

#include <algorithm>
#include <exception>
#include <new>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "BrevisUI_TextJob.h"

namespace BrevisUI {

namespace {

void sendUnexpected(FormatHost& host, const std::string& path, const std::string& details) {
    host.send(fillIn(Message::unexpected, details) + fillIn(Message::notFormatted, path), Severity::error);
}

// Runs `work`, turning whatever it throws into messages and `failed`.
template <class Work, class Result>
Result guarded(FormatHost& host, const std::string& path, Work work, Result failed) {
    try {
        return work();
    } catch (const std::bad_alloc&) {
        const std::string text(Message::outOfMemory);
        host.alert(text);
        host.send(text, Severity::error);
    } catch (const std::exception& exception) {
        sendUnexpected(host, path, exception.what());
    } catch (...) {
        sendUnexpected(host, path, "");
    }
    return failed;
}

class FileJob {
public:
    FileJob(FormatHost& host, const std::string& path, const Brevis::PropertySet& scheme, FileProgressDlg* progress)
        : host_(host), path_(path), textJob_(host, path, scheme), progress_(progress), showPhase_(progress, path) {}

    FileResult run();

private:
    FileResult refuse(std::string_view message);
    // Whether the user has cancelled; events that wait act first.
    bool isCancelled() const;
    // The reason why the file can't be formatted in place, or null.
    const std::string_view* obstacle() const;
    std::optional<Brevis::FormatResult> format(const std::string& source);
    // Takes the backup and writes, if there is something to write. Sends the messages.
    bool write(const std::string& formatted, const std::string& source);
    bool replace(FileWriter& writer, const std::string& formatted, const std::string& source);

    FormatHost& host_;
    const std::string& path_;
    TextJob textJob_;
    FileProgressDlg* progress_;
    FileProgressDlg::UpdateFunction showPhase_;
};

FileResult FileJob::run() {
    if (isCancelled()) return FileResult::Cancelled;
    if (progress_) progress_->resetBar();
    showPhase_(Phase::open);
    host_.send(fillIn(Message::starting, path_), Severity::information);

    if (const std::string_view* message = obstacle()) return refuse(*message);
    if (hasNoContents(path_)) {
        showPhase_(Phase::done);
        return FileResult::Empty;
    }
    // Read to the end before anything runs: a file that breaks off must not be written back as if it were whole.
    std::string source;
    if (!readFile(path_, source)) return refuse(Message::unreadable);

    if (isCancelled()) return FileResult::Cancelled;
    const std::optional<Brevis::FormatResult> formatted = format(source);
    if (!formatted) return FileResult::Refused;

    showPhase_(Phase::write);
    const bool written = write(formatted->text, source);
    showPhase_(Phase::done);
    if (!written) return FileResult::Refused;
    host_.onFormatted(path_, *formatted);
    return FileResult::Formatted;
}

FileResult FileJob::refuse(std::string_view message) {
    host_.send(fillIn(message, path_), Severity::error);
    return FileResult::Refused;
}

bool FileJob::isCancelled() const {
    if (!progress_) return false;
    host_.letUserInterfaceRun();
    return progress_->isCancelled();
}

const std::string_view* FileJob::obstacle() const {
    if (!fileExists(path_)) return &Message::missing;
    if (!fileIsReadable(path_) || !fileIsWritable(path_)) return &Message::noPermission;
    if (isDirectory(path_)) return &Message::unreadable;
    return nullptr;
}

std::optional<Brevis::FormatResult> FileJob::format(const std::string& source) {
    if (progress_) return textJob_.run(source, showPhase_);
    // The functor of the dialog would stop the run, having no dialog.
    Brevis::UpdateFunctor neverCancels;
    return textJob_.run(source, neverCancels);
}

bool FileJob::write(const std::string& formatted, const std::string& source) {
    if (formatted == source) return true;
    if (FileWriter* const writer = host_.fileWriter()) return replace(*writer, formatted, source);
    FileSystem system;
    FileWriter writer(system);
    return replace(writer, formatted, source);
}

bool FileJob::replace(FileWriter& writer, const std::string& formatted, const std::string& source) {
    if (host_.createBackups() && writer.copy(path_, source, path_ + "." + host_.backupExtension())) {
        refuse(Message::noBackup);
        return false;
    }
    WriteFailures failures = writer.replace(path_, source, formatted);
    if (&writer != host_.fileWriter()) {
        const WriteFailures late = writer.finish();
        failures.insert(failures.end(), late.begin(), late.end());
    }
    if (const std::string reason = writer.takeWarning(); !reason.empty()) {
        host_.send(fillIn(Message::noUndo, reason), Severity::warning);
    }
    tellFailures(host_, failures);
    return std::none_of(failures.begin(), failures.end(), [&](const auto& failure) { return failure.path == path_; });
}

std::string_view reasonOf(WriteFailure::Cause cause) {
    using Cause = WriteFailure::Cause;
    switch (cause) {
        case Cause::Missing:
            return Message::missing;
        case Cause::NoPermission:
            return Message::noPermission;
        case Cause::Changed:
            return Message::changedSinceRead;
        case Cause::Busy:
            return Message::busy;
        case Cause::Damaged:
            return Message::damaged;
        default:
            return Message::notWritten;
    }
}

void tellFailure(FormatHost& host, const WriteFailure& failure) {
    host.send(fillIn(reasonOf(failure.cause), failure.path) + failure.details, Severity::error);
    if (!failure.details.empty()) host.send(fillIn(Message::writeFailed, failure.path), Severity::error);
}

}  // namespace

FileResult formatFile(FormatHost& host, const std::string& path, const Brevis::PropertySet& scheme,
                      FileProgressDlg* progress) {
    return guarded(
        host, path, [&] { return FileJob(host, path, scheme, progress).run(); }, FileResult::Refused);
}

void tellFailures(FormatHost& host, const WriteFailures& failures) {
    for (const WriteFailure& failure : failures) {
        tellFailure(host, failure);
        host.onWriteFailed(failure.path);
    }
}

std::optional<std::string> formatText(FormatHost& host, const std::string& path, const Brevis::PropertySet& scheme,
                                      const std::string& source) {
    const auto work = [&]() -> std::optional<std::string> {
        Brevis::UpdateFunctor neverCancels;
        std::optional<Brevis::FormatResult> formatted = TextJob(host, path, scheme).run(source, neverCancels);
        if (!formatted) return std::nullopt;
        host.onFormatted(path, *formatted);
        return std::move(formatted->text);
    };
    return guarded(host, path, work, std::optional<std::string>());
}

}  // namespace BrevisUI
