// Gives files their old texts back from the journals of runs: on request for a whole run, and after a crash for files
// that were being overwritten. It changes no file that has been changed by somebody else.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <vector>

#include "disk/BrevisUI_FileWriter.h"

namespace BrevisUI {

class Restorer {
public:
    // Shows one line to the user: what has been done, or what failed.
    enum class News { Done, Failed };
    using Tell = std::function<void(const std::string& text, News news)>;
    // Asked in front of each file: whether it and the rest are to be left for the next time.
    using IsStopped = std::function<bool()>;

    Restorer(FileSystem& system, const RunStore& store, Tell tell, IsStopped isStopped)
        : system_(system), store_(store), tell_(std::move(tell)), isStopped_(std::move(isStopped)) {}

    // Takes back the last run that has changed a file and has not been taken back, or what is left of it. False if a
    // file could not be brought back or there is no such run.
    bool undo();

    // Looks after what interrupted runs have left in the store and in these directories. False if that failed for a
    // file.
    bool recover(std::set<std::string> directories);
    // Whether anything has been left because it was stopped.
    bool hasLeft() const { return hasLeft_; }

private:
    using Entry = RunJournal::Entry;
    // A file that waits for its old text.
    struct Begun {
        std::size_t index;
        std::string path;
    };

    // What has become of a file of a run that is to be undone.
    enum class Step { Waits, LeftAlone, Failed };

    bool undoRun(RunJournal& journal);
    Step undoFile(RunJournal& journal, const Entry& entry, std::size_t index, FileWriter& writer);
    // For a file that the writer can't write; its text is safe in the journal.
    Step undoInPlace(RunJournal& journal, std::size_t index, const std::string& path, const std::string& present,
                     const std::string& oldText);
    bool finishUndo(RunJournal& journal, std::vector<Begun>& begun, FileWriter& writer);

    // Adds the directories in which the run may have left a temporary file.
    bool recoverRun(const std::string& run, std::set<std::string>& directories);
    // The same for saved texts beside files. They are trusted with files in their own directory, and with no others:
    // they may have come with a tree from elsewhere.
    bool recoverSavedTexts(const std::string& run);
    // `change` may change what an entry says.
    using Change = std::function<void(Entry& entry)>;
    bool recoverEntries(RunJournal& journal, const Change& change);
    bool recoverFile(RunJournal& journal, const Entry& entry, std::size_t index);
    bool putOldTextBack(RunJournal& journal, const Entry& entry, std::size_t index, const std::string& found);

    std::error_code read(const std::string& path, std::string& text);
    bool fail(const std::string& text);
    bool leavesRest();

    FileSystem& system_;
    const RunStore& store_;
    const Tell tell_;
    const IsStopped isStopped_;
    bool hasLeft_ = false;
};

}  // namespace BrevisUI
