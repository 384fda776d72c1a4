// The few questions that the file job puts to the disk, and reading. No function throws for a file that fails; all tell
// by their result.
#pragma once

#include <string>

namespace BrevisUI {

bool fileExists(const std::string& path);
bool fileIsReadable(const std::string& path);
// On a system with permission bits a file without any write bit isn't writable, not even for the superuser.
bool fileIsWritable(const std::string& path);
bool isDirectory(const std::string& path);
// True for a file without contents, and for one whose size can't be told.
bool hasNoContents(const std::string& path);

// All bytes that are left of a file that is open, given by its number. False if reading failed; `text` then holds what
// came before.
bool readStream(int file, std::string& text);
bool readFile(const std::string& path, std::string& text);

}  // namespace BrevisUI
