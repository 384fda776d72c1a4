// Names of runs begin with their time in a form that sorts.
#include "BrevisUI_RunStore.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <ctime>
#include <filesystem>

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

// The directory and those above it, as far as they are missing.
std::error_code makeDirectories(FileSystem& system, const fs::path& directory) {
    if (system.makeDirectory(directory.string()) == 0) return {};
    const std::error_code error = lastError();
    if (error == std::errc::file_exists) return {};
    if (error != std::errc::no_such_file_or_directory || !directory.has_relative_path()) return error;
    if (const std::error_code above = makeDirectories(system, directory.parent_path())) return above;
    return system.makeDirectory(directory.string()) == 0 || errno == EEXIST ? std::error_code() : lastError();
}

}  // namespace

std::string RunStore::newRunName() {
    timespec now{};
    clock_gettime(CLOCK_REALTIME, &now);
    tm parts{};
    gmtime_r(&now.tv_sec, &parts);
    std::array<char, 32> time{};
    std::strftime(time.data(), time.size(), "%Y%m%dT%H%M%S", &parts);
    std::array<char, 80> name{};
    std::snprintf(name.data(), name.size(), "%s.%09ld-%ld", time.data(), now.tv_nsec, static_cast<long>(getpid()));
    return name.data();
}

std::unique_ptr<RunJournal> RunStore::begin(std::error_code& error) {
    error = directory_.empty() ? std::make_error_code(std::errc::no_such_file_or_directory)
                               : makeDirectories(system_, runsDirectory());
    if (error) return nullptr;
    std::unique_ptr<RunJournal> journal = RunJournal::create(system_, runsDirectory() + "/" + newRunName(), error);
    removeOldRuns();
    return journal;
}

std::error_code RunStore::sync() {
    for (fs::path path = runsDirectory(); path.has_relative_path(); path = path.parent_path()) {
        if (const std::error_code error = syncPath(system_, path.string())) return error;
        if (path == directory_) break;
    }
    return syncPath(system_, fs::path(directory_).parent_path().string());
}

std::vector<std::string> RunStore::runs() const {
    std::vector<std::string> paths;
    std::error_code error;
    for (const fs::directory_entry& run : fs::directory_iterator(runsDirectory(), error)) {
        paths.push_back(run.path().string());
    }
    std::sort(paths.begin(), paths.end());
    return paths;
}

void RunStore::removeOldRuns() {
    const std::vector<std::string> all = runs();
    for (std::size_t index = 0; index + keptRuns < all.size(); ++index) removeSettledRun(system_, all[index]);
}

void removeSettledRun(FileSystem& system, const std::string& directory) {
    std::error_code error;
    const std::unique_ptr<RunJournal> journal = RunJournal::open(system, directory, error);
    if (error && error != std::errc::no_such_file_or_directory) return;
    if (journal && journal->scan()) return;
    const std::size_t count = journal ? journal->count() : 0;
    for (std::size_t entry = 0; entry < count; ++entry) {
        if (journal->state(entry) == RunJournal::State::InPlace) return;
    }
    RunJournal::remove(system, directory);
}

}  // namespace BrevisUI
