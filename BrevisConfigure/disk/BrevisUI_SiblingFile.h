// Temporary files beside the file whose place they are to take. Their names tell the process that made them, so that
// those of an interrupted run can be found and removed.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "disk/BrevisUI_OpenFile.h"

namespace BrevisUI {

// The directory that a file stands in.
std::string parentOf(const std::string& path);

// A new file, removed again unless it is kept.
class SiblingFile {
public:
    SiblingFile(FileSystem& system, const std::string& besides);
    ~SiblingFile();
    SiblingFile(const SiblingFile&) = delete;
    SiblingFile& operator=(const SiblingFile&) = delete;

    const std::string& path() const { return path_; }

    std::error_code write(std::string_view text);
    // Gives it all that the open file `model` has beside its text; to be called behind the last write.
    std::error_code copyAttributes(int model, const struct stat& status);
    std::error_code changeMode(mode_t mode);
    std::error_code close() { return file_.close(); }
    void keep() { kept_ = true; }

private:
    FileSystem& system_;
    const std::string path_;
    OpenFile file_;
    bool kept_ = false;
};

// Removes what interrupted runs have left in a directory, and gives the paths of that.
std::vector<std::string> removeStaleSiblings(FileSystem& system, const std::string& directory);

// The directories with saved texts that runs have left in a directory: those to be read as a RunJournal.
std::vector<std::string> findSavedTexts(const std::string& directory);
// A name for such a directory beside a file.
std::string newSavedTextsPath(const std::string& path);

}  // namespace BrevisUI
