// Puts new texts into files so that a path holds its whole old text or its whole new one at any moment. A text is
// written to a file beside the old one, which takes its place once it is on the disk; a file with several names, or in
// a directory that can't be written, is overwritten once its old text is safe.
//
// Syncing is what takes time. So changed files wait for each other, and one sync serves them all.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "disk/BrevisUI_FileSystem.h"
#include "disk/BrevisUI_RunStore.h"

namespace BrevisUI {

// A file that hasn't got its new text.
struct WriteFailure {
    enum class Cause { Missing, NoPermission, Changed, Busy, Failed, Damaged };

    std::string path;  // as the caller gave it
    Cause cause = Cause::Failed;
    std::string details;  // for Failed what the system says, for Damaged where the old text is
};
using WriteFailures = std::vector<WriteFailure>;

class FileWriter {
public:
    // How many changed files may wait for a sync.
    static constexpr std::size_t mostWaiting = 64;

    // All changes are noted in a journal of `store`, unless that is null. It begins with the first change.
    explicit FileWriter(FileSystem& system, RunStore* store = nullptr) : system_(system), store_(store) {}
    // Leaves the files that still wait as they are.
    ~FileWriter();
    FileWriter(const FileWriter&) = delete;
    FileWriter& operator=(const FileWriter&) = delete;

    // Accepts a new text for a file whose text was read as `oldText`. The failures are all that have come up now, those
    // of files accepted earlier among them.
    WriteFailures replace(const std::string& path, std::string_view oldText, std::string_view newText);
    // To be called behind the last file.
    WriteFailures finish();

    // Writes `text`, that of `path`, to another file, which is whole at any moment too.
    std::error_code copy(const std::string& path, std::string_view text, const std::string& copyPath);

    // Why the changes of this run can't be undone; empty if they can, and when it has been told.
    std::string takeWarning() { return std::exchange(warning_, {}); }

private:
    using Cause = WriteFailure::Cause;

    // A change on its way.
    struct Change {
        std::string path;
        std::string target;     // behind all links
        std::string temporary;  // empty until it is written
        struct stat status {};  // of the target
        std::size_t entry = noEntry;
    };
    static constexpr std::size_t noEntry = static_cast<std::size_t>(-1);

    bool isWaiting(const std::string& target) const;
    void begin(Change change, std::string_view oldText, std::string_view newText);
    // Whether the target is ours to change; what keeps it from that is noted.
    bool mayReplace(const Change& change, const std::string& present, std::string_view oldText);
    void stage(Change change, int target, std::string_view oldText, std::string_view newText);
    void replaceInPlace(const Change& change, std::string_view oldText, std::string_view newText);

    void commit();
    // All of them at once; false if each is to be synced by itself.
    bool syncWaiting();
    std::error_code syncCopies();
    void takePlace(const Change& change);
    void giveWay(const Change& change, bool exists);
    std::error_code readFile(const std::string& path, std::string& text);
    void takePlaceByOverwriting(const Change& change);
    void syncRenames();

    void note(Change& change, std::string_view oldText, std::string_view newText);
    void mark(const Change& change, RunJournal::State state);
    void loseJournal(const std::error_code& error);
    // A journal with the old text on the disk: that of the run or one beside the file, which `own` then holds.
    RunJournal* secure(const Change& change, std::string_view oldText, std::string_view newText,
                       std::unique_ptr<RunJournal>& own, std::error_code& error);
    void fail(const Change& change, Cause cause, std::string details = {});
    void fail(const Change& change, const std::error_code& error);

    FileSystem& system_;
    RunStore* const store_;
    std::unique_ptr<RunJournal> journal_;
    bool journalLost_ = false;
    bool storeSynced_ = false;
    std::string warning_;

    std::vector<Change> waiting_;      // all on one file system
    std::vector<std::string> copies_;  // files other than those that have been written since the last sync

    std::size_t unsyncedRenames_ = 0;
    std::string lastRenamed_;

    WriteFailures failures_;
};

}  // namespace BrevisUI
