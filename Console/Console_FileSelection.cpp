// Walks the directories, sorts what they hold, and remembers what has been taken.
#include "Console_FileSelection.h"

#include <algorithm>
#include <filesystem>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "files/BrevisUI_IgnoreRules.h"
#include "files/BrevisUI_TreeWalk.h"
#include "projects/BrevisUI_ProjectPaths.h"

namespace Console {

using BrevisUI::fillIn;

namespace {

constexpr std::string_view needsMode = "\"%s\" is a directory: it needs one of -i, --check and --diff.";
constexpr std::string_view notListed = "The directory \"%s\" cannot be listed: ";

// A directory's files stand together, whatever other names begin with its own.
int rank(char c) { return c == '/' ? 0 : static_cast<unsigned char>(c); }

bool comesFirst(const std::string& one, const std::string& other) {
    return std::ranges::lexicographical_compare(one, other, {}, rank, rank);
}

BrevisUI::IgnoreRules::Options ignoreOptions(const FormatOptions& options) {
    BrevisUI::IgnoreRules::Options ignore;
    ignore.excludes = options.excludes;
    ignore.gitIgnoreFiles = options.gitIgnore;
    return ignore;
}

// The same for every name of a file, be it by a symbolic link.
std::string identityOf(const std::string& file) {
    std::error_code error;
    const std::string path = std::filesystem::canonical(file, error).string();
    return error ? BrevisUI::fullPath(file) : path;
}

}  // namespace

std::vector<std::string> FileSelection::select() {
    for (const std::string& name : options_.files) addNamed(name);
    return std::move(files_);
}

void FileSelection::fail(const std::string& text) {
    tell_(text, BrevisUI::Severity::error);
    failed_ = true;
}

void FileSelection::addNamed(const std::string& name) {
    if (name == standardInput) {
        files_.push_back(name);
    } else if (!BrevisUI::isDirectory(name)) {
        add(name);
    } else if (options_.inPlace || options_.check || options_.diff) {
        addTree(name);
    } else {
        fail(fillIn(needsMode, name));
    }
}

void FileSelection::addTree(const std::string& directory) {
    BrevisUI::IgnoreRules rules(directory, ignoreOptions(options_));
    BrevisUI::TreeWalk::Hooks hooks;
    hooks.leaveOut = [&](const std::string& path, bool isDirectory) { return rules.isIgnored(path, isDirectory); };
    hooks.onFailure = [this](const std::string& path, const std::error_code& error) {
        fail(fillIn(notListed, path) + error.message());
    };
    std::vector<std::string> found;
    BrevisUI::TreeWalk(BrevisUI::ExtensionList(options_.extensions), std::move(hooks))
        .walk(directory, [&](const std::string& file) { found.push_back(file); });
    std::ranges::sort(found, comesFirst);
    for (const std::string& file : found) add(file);
}

void FileSelection::add(const std::string& file) {
    if (known_.insert(identityOf(file)).second) files_.push_back(file);
}

}  // namespace Console
