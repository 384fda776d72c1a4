// Finds code that nobody here wrote: the sources among the files of Debian's packages.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace Harness {

// The sources among the files of a package, by the list that the package manager keeps; empty if it is not installed.
// `package` is Debian's name, without architecture.
std::vector<std::filesystem::path> sourcesOf(const std::string& package);

}  // namespace Harness
