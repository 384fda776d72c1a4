// Writes over a file in place, for a file that another can't take the place of. Its old text must be safe elsewhere.
#pragma once

#include <string>
#include <string_view>

#include "disk/BrevisUI_OpenFile.h"

namespace BrevisUI {

enum class Overwrite {
    Written,
    Kept,     // the file has its old text
    Busy,     // another program has locked it, and it was not touched
    Changed,  // it held another text than the old one, and was not touched
    Damaged,  // neither the new text nor the old one could be written whole
};

// `error` is that of the first call that failed.
Overwrite overwriteFile(FileSystem& system, const std::string& path, std::string_view oldText, std::string_view newText,
                        std::error_code& error);

// The same for a file whatever it holds. A link is not followed. Gives Written or Damaged, and
// Kept if it can't be opened.
Overwrite overwriteTornFile(FileSystem& system, const std::string& path, std::string_view text, std::error_code& error);

}  // namespace BrevisUI
