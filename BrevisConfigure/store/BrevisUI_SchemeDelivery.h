// Brings the schemes that come with the program into a user's scheme directory, as write-protected files, and newer
// ones later. What the user has made, changed or removed stays as it is.
//
// A hidden directory beside the schemes keeps a copy of each file as it was delivered last, and the version of the
// program that did so. From these follows what happens to a shipped file at a later run:
//   1. A program older than the one that delivered last delivers nothing.
//   2. The file is newer if its bytes differ from the copy. One that isn't newer is left alone.
//   3. A file without a copy is delivered unless the directory has a file of its name or a scheme of its name.
//   4. A newer file replaces the delivered one if that is still write-protected and the same as the copy, byte for
//   byte.
//      Otherwise it is the user's: one that was changed, made writable or removed is never touched again.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace BrevisUI {

// Gives the paths of files that couldn't be delivered; the next run tries again.
std::vector<std::string> deliverSchemes(const std::string& from, const std::string& to, std::string_view version);

// Delivers the shipped schemes of this program if `directory` is the scheme directory that a user has by default. Any
// other one is of the user's making, and what stands in it too.
std::vector<std::string> deliverShippedSchemes(const std::string& directory);

}  // namespace BrevisUI
