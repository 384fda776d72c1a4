// Puts a new text in the place of a file in one step: whoever reads the file, even after a crash, finds the whole old
// text or the whole new one.
#pragma once

#include <string>

namespace BrevisUI {

// A file that is replaced keeps its permissions and a new one gets the usual ones, unless it is to be write-protected.
enum class Protection { Usual, WriteProtected };

// Writes the text beside the file, flushes it and renames it. False if any of that fails; nothing has changed then. Of
// a link the file that it leads to is replaced. The directory must exist.
bool replaceFile(const std::string& path, const std::string& text, Protection protection = Protection::Usual);

}  // namespace BrevisUI
