// Reads what names files, sorts what directories hold, and remembers what has been taken.
#include "Console_FileSelection.h"

#include <unistd.h>

#include <algorithm>
#include <filesystem>

#include "BrevisUI_Files.h"
#include "BrevisUI_Messages.h"
#include "Trn_Exception.h"
#include "disk/BrevisUI_SiblingFile.h"
#include "files/BrevisUI_TextLines.h"
#include "files/BrevisUI_TreeWalk.h"
#include "projects/BrevisUI_ProjectFiles.h"
#include "projects/BrevisUI_ProjectPaths.h"

namespace Console {

using BrevisUI::fillIn;
using BrevisUI::IgnoreRules;

namespace {

constexpr std::string_view needsMode = "\"%s\" is a directory: it needs one of -i, --check and --diff.";
constexpr std::string_view noLines = "\"%s\" is a directory: --lines takes a file.";
constexpr std::string_view notListed = "The directory \"%s\" cannot be listed: ";
constexpr std::string_view listUnreadable = "The list of files \"%s\" cannot be read. No file will be formatted.";
constexpr std::string_view changesUnknown = "The changed lines are not known. No file will be formatted.";
constexpr std::string_view projectUnreadable = "The files of \"%s\" are not all known. No file will be formatted.";

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

// How a file is named in a directory, with slashes between the parts; the same wherever both stand together.
std::string nameFrom(const std::string& directory, const std::string& file) {
    const std::filesystem::path path = BrevisUI::fullPath(file);
    return path.lexically_relative(BrevisUI::fullPath(directory)).generic_string();
}

bool readList(const std::string& name, std::string& text) {
    if (name == standardInput) return BrevisUI::readStream(STDIN_FILENO, text);
    return BrevisUI::fileExists(name) && !BrevisUI::isDirectory(name) && BrevisUI::readFile(name, text);
}

std::vector<std::string_view> piecesOf(std::string_view text, char separator) {
    std::vector<std::string_view> pieces;
    while (!text.empty()) {
        pieces.push_back(text.substr(0, text.find(separator)));
        text.remove_prefix(std::min(pieces.back().size() + 1, text.size()));
    }
    return pieces;
}

}  // namespace

std::vector<std::string> FileSelection::select() {
    for (const std::string& name : options_.files) addNamed(name);
    if (!options_.filesFrom.empty()) addList();
    addProjects();
    if (options_.git) keepChanged();
    if (gaveUp_) files_.clear();
    return std::move(files_);
}

std::vector<std::string> FileSelection::protectedEntries() const {
    std::vector<std::string> entries;
    for (const auto& [identity, path] : protected_) {
        if (!known_.contains(identity)) entries.push_back(path);
    }
    std::ranges::sort(entries, comesFirst);
    return entries;
}

void FileSelection::fail(const std::string& text) {
    tell_(text, BrevisUI::Severity::error);
    failed_ = true;
}

void FileSelection::giveUp(const std::string& text) {
    fail(text);
    gaveUp_ = true;
}

void FileSelection::addNamed(const std::string& name) {
    if (name == standardInput) return files_.push_back(name);
    addPath(name);
}

void FileSelection::addList() {
    std::string text;
    if (!readList(options_.filesFrom, text)) return giveUp(fillIn(listUnreadable, options_.filesFrom));
    for (const std::string_view name : options_.nulSeparated ? piecesOf(text, '\0') : BrevisUI::linesOf(text)) {
        // Standard input has no place in a list.
        if (!name.empty()) addPath(name == standardInput ? "./-" : std::string(name));
    }
}

void FileSelection::addProjects() {
    BrevisUI::IgnoreRules rules(".", ignoreOptions(options_));
    for (const std::string& path : options_.projects) {
        try {
            addProject(path, rules);
        } catch (const Trn::Exception& error) {
            fail(error.message());
            giveUp(fillIn(projectUnreadable, path));
        }
    }
}

void FileSelection::addProject(const std::string& path, BrevisUI::IgnoreRules& rules) {
    const BrevisUI::ExtensionList extensions(options_.extensions);
    const std::string directory = BrevisUI::isDirectory(path) ? path : BrevisUI::parentOf(path);
    const auto [projects, complaints] = BrevisUI::readProjects(path);
    bool isWhole = true;
    for (const auto& [severity, text] : complaints) {
        tell_(text, severity);
        isWhole = isWhole && severity < BrevisUI::Severity::error;
    }
    if (!isWhole) giveUp(fillIn(projectUnreadable, path));
    for (const BrevisUI::Project& project : projects) {
        for (const std::string& file : project.files) {
            if (extensions.holds(file) && !rules.isIgnored(file, false)) add(file, directory);
        }
    }
}

void FileSelection::addChanged() {
    IgnoreRules::Options ignore = ignoreOptions(options_);
    // What git ignores is not among them, unless it knows the file all the same.
    ignore.gitIgnoreFiles = false;
    IgnoreRules rules(".", std::move(ignore));
    const BrevisUI::ExtensionList extensions(options_.extensions);
    std::vector<std::string> found = lines_.changedFiles();
    std::erase_if(found,
                  [&](const std::string& file) { return !extensions.holds(file) || rules.isIgnored(file, false); });
    std::ranges::sort(found, comesFirst);
    for (const std::string& file : found) add(file, ".");
}

void FileSelection::keepChanged() {
    try {
        if (options_.files.empty() && options_.projects.empty() && options_.filesFrom.empty()) addChanged();
        lines_.narrow(files_);
    } catch (const Trn::Exception& error) {
        fail(error.message());
        giveUp(std::string(changesUnknown));
    }
}

void FileSelection::addPath(const std::string& path) {
    if (!BrevisUI::isDirectory(path)) return add(path, ".");
    if (!options_.lines.empty()) return fail(fillIn(noLines, path));
    if (options_.inPlace || options_.check || options_.diff) return addTree(path);
    fail(fillIn(needsMode, path));
}

void FileSelection::addTree(const std::string& directory) {
    BrevisUI::IgnoreRules rules(directory, ignoreOptions(options_));
    BrevisUI::TreeWalk::Hooks hooks;
    hooks.leaveOut = [&](const std::string& path, bool isDirectory) { return rules.isIgnored(path, isDirectory); };
    hooks.onlyReads = !options_.inPlace;
    hooks.onProtected = [&](const std::string& path) {
        if (isOfShard(path, directory)) protected_.emplace(identities_.of(path), path);
    };
    hooks.onFailure = [this](const std::string& path, const std::error_code& error) {
        fail(fillIn(notListed, path) + error.message());
    };
    std::vector<std::string> found;
    BrevisUI::TreeWalk(BrevisUI::ExtensionList(options_.extensions), std::move(hooks))
        .walk(directory, [&](const std::string& file) { found.push_back(file); });
    std::ranges::sort(found, comesFirst);
    for (const std::string& file : found) add(file, directory);
}

void FileSelection::add(const std::string& file, const std::string& directory) {
    if (!known_.insert(identities_.of(file)).second) return;
    if (isOfShard(file, directory)) files_.push_back(file);
}

bool FileSelection::isOfShard(const std::string& file, const std::string& directory) const {
    return !options_.shard || options_.shard->holds(nameFrom(directory, file));
}

}  // namespace Console
