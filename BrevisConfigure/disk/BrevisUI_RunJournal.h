// What one run does to files, kept in a directory of its own. `texts` there holds the old texts, one behind the other;
// `journal` holds a line for each file that is about to change, and one for each step that a file has taken since. Both
// only grow. The run holds a lock on the journal for as long as it lives.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "disk/BrevisUI_Fingerprint.h"
#include "disk/BrevisUI_OpenFile.h"

namespace BrevisUI {

class RunJournal {
public:
    enum class State : std::uint8_t {
        Begun,    // the file holds its old text or its new one, and a temporary file may lie beside it
        InPlace,  // it may hold anything
        Done,     // it has got its new text
        Kept,     // it has kept its old text
        Undone,   // it has got its old text back
    };

    struct Entry {
        std::string path;
        std::uint64_t place = 0;  // of the old text in `texts`
        Fingerprint old;
        Fingerprint formatted;
        State state = State::Begun;
    };

    // Whether an interrupted run may have left something behind.
    static bool isOpen(State state) { return state == State::Begun || state == State::InPlace; }

    // Makes the directory and the two files in it; leaves nothing behind if that fails.
    static std::unique_ptr<RunJournal> create(FileSystem& system, const std::string& directory, std::error_code& error);
    // Opens what a run has left. The error is EWOULDBLOCK if that run is still at work.
    static std::unique_ptr<RunJournal> open(FileSystem& system, const std::string& directory, std::error_code& error);

    const std::string& directory() const { return directory_; }

    // Notes a file that is about to change. Entries are numbered from 0.
    std::error_code add(std::string_view path, std::string_view oldText, std::string_view newText, std::size_t& entry);
    std::error_code mark(std::size_t entry, State state);
    // Brings both files and their directory to the disk.
    std::error_code sync();

    // Looks through all that an earlier run has noted; an end that broke off is cut away. What follows is good behind
    // it only. A few bytes are held for each entry, so that a run may have any number.
    std::error_code scan();
    std::size_t count() const { return count_; }
    State state(std::size_t entry) const { return places_[entry].state; }
    std::error_code readEntry(std::size_t entry, Entry& found);
    // An error too if the text isn't the one that was stored.
    std::error_code readOldText(const Entry& entry, std::string& text);

    // What begins like this in the directory has been found in a file that was half-written.
    static constexpr std::string_view foundPrefix = "found-";

    // Removes a journal and its directory.
    static std::error_code remove(FileSystem& system, const std::string& directory);

private:
    RunJournal(FileSystem& system, const std::string& directory, int flags);

    // An entry that was found by scan().
    struct Place {
        off_t line : 56;  // where it begins in the journal
        State state : 8;
    };

    // Takes in the whole lines that a piece of the journal begins with, and gives their length.
    std::size_t scanLines(std::string_view piece, off_t begin);
    bool scanLine(std::string_view line, off_t begin, std::size_t& length);
    std::error_code openError() const;
    static std::error_code append(FileSystem& system, OpenFile& file, off_t& size, std::string_view text);

    FileSystem& system_;
    const std::string directory_;
    OpenFile texts_;
    OpenFile journal_;
    off_t textsSize_ = 0;
    off_t journalSize_ = 0;
    std::size_t count_ = 0;
    std::vector<Place> places_;
};

}  // namespace BrevisUI
