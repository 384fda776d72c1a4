// The directory in which the journals of the last runs are kept, by default in the user's cache directory.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "disk/BrevisUI_RunJournal.h"

namespace BrevisUI {

class RunStore {
public:
    static constexpr std::size_t keptRuns = 10;

    // Nothing is made before a run begins.
    RunStore(FileSystem& system, std::string directory) : system_(system), directory_(std::move(directory)) {}

    const std::string& directory() const { return directory_; }

    // Begins the journal of a new run, and removes those of the oldest runs. Null if there can't be one.
    std::unique_ptr<RunJournal> begin(std::error_code& error);
    // Brings the store itself to the disk, so that a journal in it can be found again.
    std::error_code sync();

    // The directories of all runs, the oldest first.
    std::vector<std::string> runs() const;

    // A name that no other run has: time and process.
    static std::string newRunName();

private:
    std::string runsDirectory() const { return directory_ + "/runs"; }
    void removeOldRuns();

    FileSystem& system_;
    const std::string directory_;
};

// Removes the journal in a directory unless its run is at work or has left a file that may need its old text.
void removeSettledRun(FileSystem& system, const std::string& directory);

}  // namespace BrevisUI
