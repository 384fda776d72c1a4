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
    FileJob(FormatHost& host, const std::string& path, FileProgressDlg* progress)
        : host_(host), path_(path), progress_(progress), showPhase_(progress, path) {}

    // Fills in all but the result.
    FileResult prepare(const Brevis::FormatterProperties& scheme, PreparedFile& file);
    // Without a writer, the file is a run of its own.
    FileResult write(const PreparedFile& file, FileWriter* runWriter);

private:
    FileResult fail(std::string_view message);
    // Whether the user has cancelled; events that wait act first.
    bool isCancelled() const;
    // The reason why the file can't be formatted in place, or null.
    const std::string_view* obstacle() const;
    std::optional<Brevis::FormatResult> format(const Brevis::FormatterProperties& scheme, const std::string& source);
    // Takes the backup and writes. Sends the messages.
    bool replace(const PreparedFile& file, FileWriter* runWriter);
    bool replaceBy(FileWriter& writer, bool isLast, const PreparedFile& file);

    FormatHost& host_;
    const std::string& path_;
    FileProgressDlg* progress_;
    FileProgressDlg::UpdateFunction showPhase_;
};

FileResult FileJob::prepare(const Brevis::FormatterProperties& scheme, PreparedFile& file) {
    if (isCancelled()) return FileResult::Cancelled;
    if (progress_) progress_->resetBar();
    showPhase_(Phase::open);
    host_.send(fillIn(Message::starting, path_), Severity::information);

    if (const std::string_view* message = obstacle()) return fail(*message);
    if (hasNoContents(path_)) {
        showPhase_(Phase::done);
        return FileResult::Empty;
    }
    // Read to the end before anything runs: a file that breaks off must not be written back as if it were whole.
    if (!readFile(path_, file.source)) return fail(Message::unreadable);

    if (isCancelled()) return FileResult::Cancelled;
    std::optional<Brevis::FormatResult> formatted = format(scheme, file.source);
    if (!formatted) return FileResult::Refused;
    file.formatted = std::move(*formatted);
    return file.formatted.text == file.source ? FileResult::Unchanged : FileResult::Formatted;
}

FileResult FileJob::write(const PreparedFile& file, FileWriter* runWriter) {
    if (file.result != FileResult::Formatted && file.result != FileResult::Unchanged) return file.result;
    showPhase_(Phase::write);
    const bool written = file.result == FileResult::Unchanged || replace(file, runWriter);
    showPhase_(Phase::done);
    if (!written) return FileResult::Failed;
    host_.onFormatted(path_, file.formatted);
    return file.result;
}

FileResult FileJob::fail(std::string_view message) {
    host_.send(fillIn(message, path_), Severity::error);
    return FileResult::Failed;
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

std::optional<Brevis::FormatResult> FileJob::format(const Brevis::FormatterProperties& scheme,
                                                    const std::string& source) {
    const TextJob job(host_, path_, scheme);
    if (progress_) return job.run(source, showPhase_);
    // The functor of the dialog would stop the run, having no dialog.
    Brevis::UpdateFunctor neverCancels;
    return job.run(source, neverCancels);
}

bool FileJob::replace(const PreparedFile& file, FileWriter* runWriter) {
    if (runWriter) return replaceBy(*runWriter, false, file);
    FileSystem system;
    FileWriter writer(system);
    return replaceBy(writer, true, file);
}

bool FileJob::replaceBy(FileWriter& writer, bool isLast, const PreparedFile& file) {
    if (host_.createBackups() && writer.copy(path_, file.source, path_ + "." + host_.backupExtension())) {
        fail(Message::noBackup);
        return false;
    }
    WriteFailures failures = writer.replace(path_, file.source, file.formatted.text);
    if (isLast) {
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

FileResult formatFile(FormatHost& host, const std::string& path, const Brevis::FormatterProperties& scheme,
                      FileProgressDlg* progress, FileWriter* writer) {
    const auto work = [&] {
        FileJob job(host, path, progress);
        PreparedFile file;
        file.result = job.prepare(scheme, file);
        return job.write(file, writer);
    };
    return guarded(host, path, work, FileResult::Refused);
}

PreparedFile prepareFile(FormatHost& host, const std::string& path, const Brevis::FormatterProperties& scheme) {
    PreparedFile file;
    const auto work = [&] { return FileJob(host, path, nullptr).prepare(scheme, file); };
    file.result = guarded(host, path, work, FileResult::Refused);
    return file;
}

FileResult writePrepared(FormatHost& host, FileWriter& writer, const std::string& path, const PreparedFile& file) {
    const auto work = [&] { return FileJob(host, path, nullptr).write(file, &writer); };
    return guarded(host, path, work, FileResult::Failed);
}

void tellFailures(FormatHost& host, const WriteFailures& failures) {
    for (const WriteFailure& failure : failures) {
        tellFailure(host, failure);
        host.onWriteFailed(failure.path);
    }
}

std::optional<std::string> formatText(FormatHost& host, const std::string& path,
                                      const Brevis::FormatterProperties& scheme,
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
