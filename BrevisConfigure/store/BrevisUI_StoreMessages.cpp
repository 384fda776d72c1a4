// Puts the texts of the store together.
#include "store/BrevisUI_StoreMessages.h"

#include "BrevisUI_Messages.h"

namespace BrevisUI {

namespace {

constexpr std::string_view readFailed =
    "Corvane C++ encountered an error while trying to read the scheme file \"%s\". To correct the problem, you should "
    "delete this file before restarting Corvane C++ and attempting this operation again.";

// Two halves, since a path may hold a %s of its own.
constexpr std::string_view writeFailed =
    "Corvane C++ encountered an error while trying to write the scheme file \"%s\".";
constexpr std::string_view writeHint =
    " To correct the problem, ensure you have enough disk space and that the directory \"%s\" is not marked read-only.";

constexpr std::string_view oneUnconvertible =
    "The scheme '%s' was created using a previous version of Corvane C++. The file is marked read-only and so cannot "
    "be "
    "converted. Please ensure the file is read-write and run Corvane C++ again. Once the scheme has been converted, "
    "the "
    "file can be set read-only again.";
constexpr std::string_view severalUnconvertible =
    "The following schemes were created using a previous version of Corvane C++:\r\n%sThe files are read-only and so "
    "cannot be converted. Please ensure that the scheme files listed are read-write and run Corvane C++ again. Once "
    "the "
    "schemes have been converted, the files can be set read-only again.";

}  // namespace

std::string readErrorText(std::string_view path) { return fillIn(readFailed, path); }

std::string writeErrorText(std::string_view path, std::string_view directory) {
    return fillIn(writeFailed, path) + fillIn(writeHint, directory);
}

std::string unconvertibleText(const std::vector<std::string>& names) {
    if (names.empty()) return {};
    if (names.size() == 1) return fillIn(oneUnconvertible, names.front());
    std::string list;
    for (const std::string& name : names) list.append(name).append("\r\n");
    return fillIn(severalUnconvertible, list);
}

}  // namespace BrevisUI
