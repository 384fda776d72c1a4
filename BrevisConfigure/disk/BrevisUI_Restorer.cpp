// The fingerprints in a journal tell whose text a file holds.
#include "BrevisUI_Restorer.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "disk/BrevisUI_FileOverwriter.h"
#include "disk/BrevisUI_SiblingFile.h"

namespace BrevisUI {

namespace {

using State = RunJournal::State;

std::string named(const std::string& path) { return "The file \"" + path + "\""; }

bool isUndoable(State state) { return RunJournal::isOpen(state) || state == State::Done; }

bool holdsUndoable(const RunJournal& journal) {
    for (std::size_t index = 0; index < journal.count(); ++index) {
        if (isUndoable(journal.state(index))) return true;
    }
    return false;
}

// Whether somebody may still want what was found in a damaged file.
bool holdsFoundText(const std::string& run) {
    std::error_code error;
    for (const auto& file : std::filesystem::directory_iterator(run, error)) {
        if (file.path().filename().string().starts_with(RunJournal::foundPrefix)) return true;
    }
    return false;
}

std::error_code saveFoundText(FileSystem& system, const std::string& path, std::string_view text) {
    OpenFile file(system, path, O_CREAT | O_EXCL | O_WRONLY);
    if (file.openError()) return file.openError();
    if (const std::error_code error = file.write(text)) return error;
    return file.sync();
}

}  // namespace

bool Restorer::fail(const std::string& text) {
    tell_(text, News::Failed);
    return false;
}

bool Restorer::leavesRest() {
    hasLeft_ = hasLeft_ || isStopped_();
    return hasLeft_;
}

std::error_code Restorer::read(const std::string& path, std::string& text) {
    OpenFile file(system_, path, O_RDONLY);
    return file.openError() ? file.openError() : file.read(text);
}

bool Restorer::undo() {
    std::vector<std::string> runs = store_.runs();
    for (auto run = runs.rbegin(); run != runs.rend(); ++run) {
        std::error_code error;
        const std::unique_ptr<RunJournal> journal = RunJournal::open(system_, *run, error);
        if (error == std::errc::operation_would_block) {
            return fail("The last run is still at work. Nothing has been undone.");
        }
        if (!journal || journal->scan()) continue;
        if (holdsUndoable(*journal)) return undoRun(*journal);
    }
    return fail("There is no run to undo.");
}

// Backwards, since a run may have changed a file twice. Files wait for one sync, but none twice.
bool Restorer::undoRun(RunJournal& journal) {
    bool good = true;
    FileWriter writer(system_);
    std::vector<Begun> begun;
    Entry entry;
    for (std::size_t index = journal.count(); index-- > 0;) {
        if (!isUndoable(journal.state(index))) continue;
        if (leavesRest()) break;
        if (const std::error_code error = journal.readEntry(index, entry)) {
            good = fail("A part of the journal cannot be read: " + error.message() + ".");
            continue;
        }
        const auto isSame = [&](const Begun& other) { return other.path == entry.path; };
        if (begun.size() + 1 == FileWriter::mostWaiting || std::any_of(begun.begin(), begun.end(), isSame)) {
            good = finishUndo(journal, begun, writer) && good;
        }
        const Step step = undoFile(journal, entry, index, writer);
        if (step == Step::Waits) begun.push_back({index, entry.path});
        // Told once, it is not in the way of the run before this one.
        if (step == Step::LeftAlone) journal.mark(index, State::Kept);
        good = good && step == Step::Waits;
    }
    return finishUndo(journal, begun, writer) && good;
}

Restorer::Step Restorer::undoFile(RunJournal& journal, const Entry& entry, std::size_t index, FileWriter& writer) {
    const auto leave = [&](Step step, const std::string& reason) {
        fail(named(entry.path) + reason + " It is left as it is.");
        return step;
    };
    std::string present;
    std::string oldText;
    if (const std::error_code error = read(entry.path, present)) {
        const bool gone = error == std::errc::no_such_file_or_directory;
        return leave(gone ? Step::LeftAlone : Step::Failed, " cannot be read: " + error.message() + ".");
    }
    if (fingerprintOf(present) == entry.old) return Step::Waits;
    if (fingerprintOf(present) != entry.formatted) {
        if (entry.state == State::InPlace) return leave(Step::Failed, " may be half-written: try --recover.");
        return leave(Step::LeftAlone, " has changed since it was formatted.");
    }
    if (const std::error_code error = journal.readOldText(entry, oldText)) {
        return leave(Step::Failed, ": its old text cannot be read: " + error.message() + ".");
    }
    if (writer.replace(entry.path, present, oldText).empty()) return Step::Waits;
    return undoInPlace(journal, index, entry.path, present, oldText);
}

Restorer::Step Restorer::undoInPlace(RunJournal& journal, std::size_t index, const std::string& path,
                                     const std::string& present, const std::string& oldText) {
    std::error_code error = journal.mark(index, State::InPlace);
    if (!error) error = journal.sync();
    Overwrite result = Overwrite::Kept;
    if (!error) result = overwriteFile(system_, path, present, oldText, error);
    if (result == Overwrite::Written) return Step::Waits;
    if (result != Overwrite::Damaged) journal.mark(index, State::Done);
    fail(named(path) + " could not be written: " + (error ? error.message() : "another program changes it") + ".");
    return Step::Failed;
}

bool Restorer::finishUndo(RunJournal& journal, std::vector<Begun>& begun, FileWriter& writer) {
    const WriteFailures failures = writer.finish();
    for (const auto& [index, file] : std::exchange(begun, {})) {
        const std::string& path = file;
        const auto isPath = [&](const WriteFailure& failure) { return failure.path == path; };
        const auto failure = std::find_if(failures.begin(), failures.end(), isPath);
        if (failure != failures.end()) {
            fail(named(path) + " could not be written: " + failure->details + ".");
            continue;
        }
        journal.mark(index, State::Undone);
        tell_(named(path) + " has its old text again.", News::Done);
    }
    return failures.empty();
}

bool Restorer::recover(std::set<std::string> directories) {
    bool good = true;
    const std::set<std::string> given = directories;
    for (const std::string& run : store_.runs()) good = recoverRun(run, directories) && good;
    for (const std::string& directory : given) {
        for (const std::string& run : findSavedTexts(directory)) {
            if (leavesRest()) return good;
            good = recoverSavedTexts(run) && good;
            if (!holdsFoundText(run)) removeSettledRun(system_, run);
        }
    }
    for (const std::string& directory : directories) {
        if (leavesRest()) return good;
        for (const std::string& path : removeStaleSiblings(system_, directory)) {
            tell_("The temporary file \"" + path + "\" has been removed.", News::Done);
        }
    }
    return good;
}

bool Restorer::recoverRun(const std::string& run, std::set<std::string>& directories) {
    std::error_code error;
    const std::unique_ptr<RunJournal> journal = RunJournal::open(system_, run, error);
    // A run at work looks after itself, and one without a journal had not begun.
    if (!journal || journal->scan()) return true;
    return recoverEntries(*journal, [&](Entry& entry) { directories.insert(parentOf(entry.path)); });
}

bool Restorer::recoverSavedTexts(const std::string& run) {
    std::error_code error;
    const std::unique_ptr<RunJournal> journal = RunJournal::open(system_, run, error);
    if (!journal || journal->scan()) return true;
    return recoverEntries(*journal, [&](Entry& entry) {
        entry.path = parentOf(run) + "/" + std::filesystem::path(entry.path).filename().string();
    });
}

bool Restorer::recoverEntries(RunJournal& journal, const Change& change) {
    bool good = true;
    Entry entry;
    for (std::size_t index = 0; index < journal.count(); ++index) {
        if (!RunJournal::isOpen(journal.state(index))) continue;
        if (leavesRest()) break;
        if (const std::error_code error = journal.readEntry(index, entry)) {
            good = fail("A part of the journal cannot be read: " + error.message() + ".");
            continue;
        }
        change(entry);
        good = recoverFile(journal, entry, index) && good;
    }
    return good;
}

bool Restorer::recoverFile(RunJournal& journal, const Entry& entry, std::size_t index) {
    std::string present;
    const std::error_code error = read(entry.path, present);
    if (error && error != std::errc::no_such_file_or_directory) {
        return fail(named(entry.path) + " cannot be read: " + error.message() + ".");
    }
    if (!error && fingerprintOf(present) == entry.formatted) {
        journal.mark(index, State::Done);
        return true;
    }
    const bool mayBeTorn = !error && entry.state == State::InPlace && fingerprintOf(present) != entry.old;
    if (mayBeTorn) return putOldTextBack(journal, entry, index, present);
    journal.mark(index, State::Kept);
    return true;
}

// What the file holds is kept: it may be what somebody has made of it since.
bool Restorer::putOldTextBack(RunJournal& journal, const Entry& entry, std::size_t index, const std::string& found) {
    std::string path = journal.directory() + "/";
    path.append(RunJournal::foundPrefix).append(std::to_string(index)).append("-").append(std::to_string(getpid()));
    std::string oldText;
    std::error_code error = journal.readOldText(entry, oldText);
    if (!error) error = saveFoundText(system_, path, found);
    if (!error) overwriteTornFile(system_, entry.path, oldText, error);
    if (error) return fail(named(entry.path) + " is damaged, and could not be mended: " + error.message() + ".");
    journal.mark(index, State::Kept);
    tell_(named(entry.path) + " was half-written and has its old text again. What it held is kept in \"" + path + "\".",
          News::Done);
    return true;
}

}  // namespace BrevisUI
