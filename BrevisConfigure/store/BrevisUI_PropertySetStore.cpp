// The store's dealings with its directory.
#include "store/BrevisUI_PropertySetStore.h"

#include <algorithm>
#include <filesystem>
#include <ostream>
#include <sstream>
#include <utility>

#include "BrevisUI_FileReplacement.h"
#include "BrevisUI_Files.h"
#include "store/BrevisUI_SchemeFilename.h"
#include "store/BrevisUI_StoreMessages.h"

namespace BrevisUI {

namespace {

namespace fs = std::filesystem;

constexpr char separator = '/';

std::string folderOf(const std::string& path) { return path.substr(0, path.rfind(separator) + 1); }

// Directories, pipes and devices have no scheme to read. A link that leads nowhere is a file that can't be read.
bool canBeFile(const fs::directory_entry& entry) {
    std::error_code error;
    const fs::file_type type = entry.status(error).type();
    return type == fs::file_type::regular || type == fs::file_type::not_found;
}

Brevis::PropertySet readScheme(const std::string& path) {
    std::string text;
    if (!readFile(path, text)) throw PropertySetStore::ReadError(path);
    std::istringstream in(text);
    Brevis::PropertySet scheme;
    scheme.read(in);
    if (in.fail()) throw PropertySetStore::ReadError(path);
    return scheme;
}

bool isGone(const std::string& path) {
    std::error_code error;
    return fs::symlink_status(path, error).type() == fs::file_type::not_found;
}

}  // namespace

PropertySetStore::ReadError::ReadError(const std::string& path) : FileError(path, readErrorText(path)) {}

PropertySetStore::WriteError::WriteError(const std::string& path)
    : FileError(path, writeErrorText(path, folderOf(path))) {}

void PropertySetStore::setPath(std::string path) {
    path_ = std::move(path);
    if (!path_.empty() && path_.back() != separator) path_ += separator;
}

const PropertySetStore::Entry* PropertySetStore::find(std::string_view name) const {
    const auto found = contents_.schemes.find(name);
    return found == contents_.schemes.end() ? nullptr : &found->second;
}

std::string PropertySetStore::fileOf(std::string_view name) const {
    for (const auto& [file, schemeName] : contents_.files) {
        if (schemeName == name) return path_ + file;
    }
    return {};
}

// A second file for the name would be read as a scheme of the same name at the next start.
void PropertySetStore::insert(const Brevis::PropertySet& scheme) {
    trace("PropertySetStore::insert");
    if (count(scheme.name()) > 0) return;
    contents_.files.emplace(validFilename(scheme.name()), scheme.name());
    contents_.schemes.emplace(scheme.name(), Entry{false, scheme});
}

void PropertySetStore::erase(std::string_view name) {
    trace("PropertySetStore::erase");
    const auto found = contents_.schemes.find(name);
    if (found == contents_.schemes.end() || found->second.builtIn) return;
    std::erase_if(contents_.files, [&](const auto& row) { return row.second == name; });
    contents_.schemes.erase(found);
}

void PropertySetStore::update(const Brevis::PropertySet& scheme) {
    const auto found = contents_.schemes.find(scheme.name());
    if (found == contents_.schemes.end() || found->second.builtIn) throw Trn::InvalidParameterException();
    found->second.scheme = scheme;
}

void PropertySetStore::readFileInto(Contents& contents, const std::string& file) const {
    trace("Found file \"", file);
    Entry entry{false, readScheme(path_ + file)};
    entry.builtIn = !fileIsWritable(path_ + file);
    std::string name = entry.scheme.name();
    if (contents.schemes.emplace(name, std::move(entry)).second) {
        contents.files.emplace(file, std::move(name));
    } else {
        contents.foreignFiles.insert(file);
    }
}

void PropertySetStore::read() {
    trace("PropertySetStore::read");
    if (path_.empty()) return;
    Contents contents;
    for (const std::string& file : findPSFiles()) readFileInto(contents, file);
    contents_ = std::move(contents);
}

// A file that has gone since the directory was listed is no trouble to anybody.
std::vector<std::string> PropertySetStore::readSound() {
    trace("PropertySetStore::readSound");
    std::vector<std::string> unread;
    if (path_.empty()) return unread;
    Contents contents;
    for (const std::string& file : findPSFiles()) {
        try {
            readFileInto(contents, file);
        } catch (const Trn::Exception&) {
            trace("Could not successfully read PropertySet \"", file);
            if (isGone(path_ + file)) continue;
            contents.foreignFiles.insert(file);
            unread.push_back(path_ + file);
        }
    }
    contents_ = std::move(contents);
    return unread;
}

// The new texts come first: if one can't be written, a scheme that has moved to another file still has its old one.
void PropertySetStore::write() const {
    trace("PropertySetStore::write");
    if (path_.empty()) return;
    std::error_code error;
    fs::create_directories(path_, error);
    for (const auto& [file, name] : contents_.files) {
        const Entry* entry = find(name);
        if (entry && !entry->builtIn) writeFileOf(file, entry->scheme);
    }
    removeStaleFiles();
}

void PropertySetStore::writeFileOf(const std::string& file, const Brevis::PropertySet& scheme) const {
    trace("Writing \"", file);
    const std::string path = path_ + file;
    std::ostringstream out;
    scheme.write(out);
    // A rename would put the text over a write-protected file too.
    const bool isProtected = fileExists(path) && !fileIsWritable(path);
    if (!isProtected && replaceFile(path, out.str())) return;
    trace("Could not successfully write PropertySet \"", file);
    throw WriteError(path);
}

// The file of a built-in scheme stays, whatever has become of its protection since it was read.
bool PropertySetStore::isStale(const std::string& file) const {
    return !contents_.files.contains(file) && !contents_.foreignFiles.contains(file) && fileIsWritable(path_ + file);
}

void PropertySetStore::removeStaleFiles() const {
    for (const std::string& file : findPSFiles()) {
        if (!isStale(file)) continue;
        trace("Deleting \"", file);
        std::error_code error;
        if (!fs::remove(path_ + file, error)) trace("Could not successfully delete PropertySet file \"", file);
    }
}

std::vector<std::string> PropertySetStore::findPSFiles() const {
    std::vector<std::string> files;
    if (path_.empty()) return files;
    std::error_code error;
    for (fs::directory_iterator entry(path_, error), end; !error && entry != end; entry.increment(error)) {
        std::string name = entry->path().filename().string();
        if (name.ends_with(extension) && canBeFile(*entry)) files.push_back(std::move(name));
    }
    std::sort(files.begin(), files.end());
    return files;
}

bool PropertySetStore::isTaken(const std::string& file) const {
    return contents_.files.contains(file) || contents_.foreignFiles.contains(file);
}

std::string PropertySetStore::validFilename(std::string_view name) const {
    std::string file = schemeFilename(name);
    for (int counter = 1; isTaken(file); ++counter) file = schemeFilename(name, counter);
    trace("Calculated filename: \"", file);
    return file;
}

void PropertySetStore::trace(std::string_view text) const {
    if (trace_) *trace_ << text << '\n';
}

void PropertySetStore::trace(std::string_view text, std::string_view subject) const {
    if (trace_) *trace_ << text << subject << "\"\n";
}

}  // namespace BrevisUI
