// All schemes of a directory, held in memory while a program runs: it decides which file belongs to which scheme, and
// writes the changes back. It touches no other directory and knows nothing of what a scheme says.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "Trn_Exception.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

class PropertySetStore {
public:
    static constexpr std::string_view extension = ".fsc";

    // Something is wrong with the file at `path`. The text is what a user is told.
    class FileError : public Trn::Exception {
    public:
        const std::string& path() const { return path_; }

    protected:
        FileError(std::string path, std::string text) : Exception(std::move(text)), path_(std::move(path)) {}

    private:
        std::string path_;
    };
    class ReadError : public FileError {
    public:
        explicit ReadError(const std::string& path);
    };
    class WriteError : public FileError {
    public:
        explicit WriteError(const std::string& path);
    };

    // A scheme is built-in if its file was write-protected when it was read.
    struct Entry {
        bool builtIn = false;
        Brevis::PropertySet scheme;
    };
    using Schemes = std::map<std::string, Entry, std::less<>>;  // by name, in the order of its bytes

    PropertySetStore() = default;
    explicit PropertySetStore(std::string path) { setPath(std::move(path)); }

    // The directory, empty or with a separator at its end. A store without one reads and writes nothing.
    const std::string& path() const { return path_; }
    void setPath(std::string path);

    const Schemes& schemes() const { return contents_.schemes; }
    std::size_t count(std::string_view name) const { return contents_.schemes.count(name); }
    // Null if there is no scheme of this name.
    const Entry* find(std::string_view name) const;
    // The full path of the file that belongs to a scheme, empty if there is no such scheme.
    std::string fileOf(std::string_view name) const;

    // Adds a scheme, with a file name of its own. A scheme of the same name that is there already stays as it is.
    void insert(const Brevis::PropertySet& scheme);
    // Does nothing for a built-in scheme.
    void erase(std::string_view name);
    // Gives the scheme of the same name, which must not be built-in, a new content; its file stays its own.
    void update(const Brevis::PropertySet& scheme);

    // Loads the directory in the place of what the store held. Throws for the first file that is no scheme, and the
    // store is as it was.
    void read();
    // The same, but passes over files that are no schemes, gives their paths, and never removes them or takes their
    // names.
    std::vector<std::string> readSound();
    // Writes every scheme that isn't built-in, each file as a whole or not at all, and then removes the files that no
    // longer belong to a scheme. Throws at the first scheme that can't be written; nothing has been removed then.
    void write() const;

    // The names of the scheme files in the directory, in ascending order.
    std::vector<std::string> findPSFiles() const;
    // A file name for a new scheme of this name, which no other scheme has.
    std::string validFilename(std::string_view name) const;

    // Where the store tells what it does, for those who look for a fault in it. Off unless this is called.
    void traceTo(std::ostream& out) { trace_ = &out; }

private:
    struct Contents {
        Schemes schemes;
        std::map<std::string, std::string, std::less<>> files;  // file name to scheme name
        // Files whose text isn't in `schemes`: they are no schemes, or another file came first with the same name.
        std::set<std::string, std::less<>> foreignFiles;
    };

    void readFileInto(Contents& contents, const std::string& file) const;
    bool isTaken(const std::string& file) const;
    bool isStale(const std::string& file) const;
    void writeFileOf(const std::string& file, const Brevis::PropertySet& scheme) const;
    void removeStaleFiles() const;
    void trace(std::string_view text) const;
    void trace(std::string_view text, std::string_view subject) const;

    std::string path_;
    Contents contents_;
    std::ostream* trace_ = nullptr;
};

}  // namespace BrevisUI
