// Each change goes through these steps:
// 1. the target still holds the old text: else it is left alone;
// 2. the old text and what is about to happen go to the journal;
// 3. the new text goes to a file beside the target, with the target's attributes;
// 4. with the changes of other files: a sync;
// 5. the target is still the same file, untouched: the new file takes its name;
// 6. at the end of the run: a sync of the names.
#include "BrevisUI_FileWriter.h"

#include <fcntl.h>

#include <algorithm>
#include <filesystem>

#include "disk/BrevisUI_FileOverwriter.h"
#include "disk/BrevisUI_SiblingFile.h"

namespace BrevisUI {

namespace {

using State = RunJournal::State;

bool isSameTime(const timespec& a, const timespec& b) { return a.tv_sec == b.tv_sec && a.tv_nsec == b.tv_nsec; }

// Whether nothing has happened to a file between two calls.
bool isUntouched(const struct stat& a, const struct stat& b) {
    return a.st_dev == b.st_dev && a.st_ino == b.st_ino && a.st_size == b.st_size && isSameTime(a.st_mtim, b.st_mtim) &&
           isSameTime(a.st_ctim, b.st_ctim);
}

// Errors with which a directory says that no file can be made in it.
bool isClosedDirectory(const std::error_code& error) {
    return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
           error == std::errc::read_only_file_system;
}

}  // namespace

FileWriter::~FileWriter() {
    for (const Change& change : waiting_) system_.remove(change.temporary);
}

WriteFailures FileWriter::replace(const std::string& path, std::string_view oldText, std::string_view newText) {
    std::error_code error;
    const std::string target = std::filesystem::canonical(path, error).string();
    // The same file once more, under this name or another.
    if (isWaiting(target)) commit();
    Change change{path, error ? path : target, {}, {}, noEntry};
    begin(std::move(change), oldText, newText);
    // A program without other files to wait for calls finish() now.
    if (waiting_.size() >= mostWaiting) commit();
    return std::exchange(failures_, {});
}

WriteFailures FileWriter::finish() {
    commit();
    syncRenames();
    return std::exchange(failures_, {});
}

bool FileWriter::isWaiting(const std::string& target) const {
    return std::any_of(waiting_.begin(), waiting_.end(), [&](const Change& c) { return c.target == target; });
}

void FileWriter::begin(Change change, std::string_view oldText, std::string_view newText) {
    OpenFile target(system_, change.target, O_RDONLY);
    if (target.openError() == std::errc::permission_denied) return fail(change, Cause::NoPermission);
    if (target.openError()) return fail(change, target.openError());
    if (system_.status(target.number(), change.status) == -1) return fail(change, lastError());
    std::string present;
    if (const std::error_code error = target.read(present)) return fail(change, error);
    // Another run may have been quicker.
    if (present == newText || !mayReplace(change, present, oldText)) return;

    note(change, oldText, newText);
    if (change.status.st_nlink > 1) return replaceInPlace(change, oldText, newText);
    stage(std::move(change), target.number(), oldText, newText);
}

bool FileWriter::mayReplace(const Change& change, const std::string& present, std::string_view oldText) {
    constexpr mode_t writeBits = S_IWUSR | S_IWGRP | S_IWOTH;
    if ((change.status.st_mode & writeBits) == 0 || system_.mayWrite(change.target) == -1) {
        fail(change, Cause::NoPermission);
        return false;
    }
    if (present == oldText) return true;
    fail(change, Cause::Changed);
    return false;
}

void FileWriter::stage(Change change, int target, std::string_view oldText, std::string_view newText) {
    if (!waiting_.empty() && waiting_.front().status.st_dev != change.status.st_dev) commit();
    SiblingFile sibling(system_, change.target);
    std::error_code error = sibling.write(newText);
    const bool impossible = error ? isClosedDirectory(error) : bool(sibling.copyAttributes(target, change.status));
    if (impossible) return replaceInPlace(change, oldText, newText);
    if (!error) error = sibling.close();
    if (error) {
        mark(change, State::Kept);
        return fail(change, error);
    }
    sibling.keep();
    change.temporary = sibling.path();
    waiting_.push_back(std::move(change));
}

void FileWriter::replaceInPlace(const Change& change, std::string_view oldText, std::string_view newText) {
    std::error_code error;
    std::unique_ptr<RunJournal> own;
    RunJournal* const safe = secure(change, oldText, newText, own, error);
    if (!safe) {
        mark(change, State::Kept);
        return fail(change, Cause::Failed, "its old text cannot be saved: " + error.message());
    }
    const Overwrite result = overwriteFile(system_, change.target, oldText, newText, error);
    if (result == Overwrite::Damaged) return fail(change, Cause::Damaged, safe->directory());
    mark(change, result == Overwrite::Written ? State::Done : State::Kept);
    if (own) RunJournal::remove(system_, own->directory());
    if (result == Overwrite::Busy) fail(change, Cause::Busy);
    if (result == Overwrite::Changed) fail(change, Cause::Changed);
    if (result == Overwrite::Kept) fail(change, error);
}

RunJournal* FileWriter::secure(const Change& change, std::string_view oldText, std::string_view newText,
                               std::unique_ptr<RunJournal>& own, std::error_code& error) {
    if (journal_ && change.entry != noEntry) {
        error = journal_->mark(change.entry, State::InPlace);
        if (!error) error = journal_->sync();
        if (!error && !storeSynced_) error = store_->sync();
        if (!error) storeSynced_ = true;
        if (!error) return journal_.get();
    }
    own = RunJournal::create(system_, newSavedTextsPath(change.target), error);
    if (!own) return nullptr;
    std::size_t entry = 0;
    error = own->add(change.target, oldText, newText, entry);
    if (!error) error = own->mark(entry, State::InPlace);
    if (!error) error = own->sync();
    if (!error) error = syncPath(system_, parentOf(change.target));
    if (!error) return own.get();
    RunJournal::remove(system_, own->directory());
    return nullptr;
}

void FileWriter::commit() {
    if (waiting_.empty()) return;
    const bool areSynced = syncWaiting();
    const std::error_code copyError = areSynced ? std::error_code() : syncCopies();
    copies_.clear();
    for (const Change& change : std::exchange(waiting_, {})) {
        std::error_code error = copyError;
        if (!areSynced && !error) error = syncPath(system_, change.temporary);
        if (!error) {
            takePlace(change);
            continue;
        }
        system_.remove(change.temporary);
        mark(change, State::Kept);
        fail(change, error);
    }
}

// A sync of the whole file system would let a single file wait for what other programs write. It also tells of what went
// wrong with files of theirs: if it fails, each of ours is asked about.
bool FileWriter::syncWaiting() {
    if (waiting_.size() == 1 && copies_.empty()) return false;
    OpenFile file(system_, waiting_.front().temporary, O_RDONLY);
    return !file.openError() && system_.syncAll(file.number()) == 0;
}

std::error_code FileWriter::syncCopies() {
    for (const std::string& path : copies_) {
        if (const std::error_code error = syncPath(system_, path)) return error;
    }
    return {};
}

void FileWriter::takePlace(const Change& change) {
    struct stat present {};
    const bool exists = system_.status(change.target, present) == 0;
    if (!exists || !isUntouched(present, change.status)) return giveWay(change, exists);
    if (system_.rename(change.temporary, change.target) == -1) return takePlaceByOverwriting(change);
    mark(change, State::Done);
    ++unsyncedRenames_;
    lastRenamed_ = change.target;
}

// Whatever stands there now stays there, be it even what another run has made of the same file.
void FileWriter::giveWay(const Change& change, bool exists) {
    std::string present;
    std::string newText;
    const bool isSame = !readFile(change.target, present) && !readFile(change.temporary, newText) && present == newText;
    system_.remove(change.temporary);
    mark(change, State::Kept);
    if (!isSame) fail(change, exists ? Cause::Changed : Cause::Missing);
}

std::error_code FileWriter::readFile(const std::string& path, std::string& text) {
    OpenFile file(system_, path, O_RDONLY);
    return file.openError() ? file.openError() : file.read(text);
}

// Not every file system lets one file take the place of another.
void FileWriter::takePlaceByOverwriting(const Change& change) {
    std::string oldText;
    std::string newText;
    std::error_code error = readFile(change.target, oldText);
    if (!error) error = readFile(change.temporary, newText);
    system_.remove(change.temporary);
    if (!error) return replaceInPlace(change, oldText, newText);
    mark(change, State::Kept);
    fail(change, error);
}

// Each file is whole with either name, so that a failure changes nothing for anybody but the victim of a power cut.
void FileWriter::syncRenames() {
    if (unsyncedRenames_ == 0) return;
    OpenFile directory(system_, parentOf(lastRenamed_), O_RDONLY);
    if (directory.openError()) return;
    unsyncedRenames_ == 1 ? system_.sync(directory.number()) : system_.syncAll(directory.number());
    unsyncedRenames_ = 0;
}

std::error_code FileWriter::copy(const std::string& path, std::string_view text, const std::string& copyPath) {
    OpenFile model(system_, path, O_RDONLY);
    if (model.openError()) return model.openError();
    struct stat status {};
    if (system_.status(model.number(), status) == -1) return lastError();
    SiblingFile sibling(system_, copyPath);
    std::error_code error = sibling.write(text);
    // A copy of somebody else's file is ours, and has its mode at least.
    if (!error && sibling.copyAttributes(model.number(), status)) error = sibling.changeMode(status.st_mode & 0777);
    if (!error) error = sibling.close();
    if (!error && system_.rename(sibling.path(), copyPath) == -1) error = lastError();
    if (error) return error;
    sibling.keep();
    copies_.push_back(copyPath);
    return {};
}

void FileWriter::note(Change& change, std::string_view oldText, std::string_view newText) {
    if (!store_ || journalLost_) return;
    std::error_code error;
    if (!journal_) journal_ = store_->begin(error);
    if (journal_) error = journal_->add(change.target, oldText, newText, change.entry);
    if (error) loseJournal(error);
}

void FileWriter::mark(const Change& change, State state) {
    if (!journal_ || change.entry == noEntry) return;
    if (const std::error_code error = journal_->mark(change.entry, state)) loseJournal(error);
}

void FileWriter::loseJournal(const std::error_code& error) {
    if (!std::exchange(journalLost_, true)) warning_ = error.message();
}

void FileWriter::fail(const Change& change, Cause cause, std::string details) {
    failures_.push_back({change.path, cause, std::move(details)});
}

void FileWriter::fail(const Change& change, const std::error_code& error) {
    if (error == std::errc::no_such_file_or_directory) return fail(change, Cause::Missing);
    fail(change, Cause::Failed, error.message());
}

}  // namespace BrevisUI
