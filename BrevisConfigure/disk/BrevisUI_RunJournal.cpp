// A line of the journal is one of
//     file PLACE OLD-SIZE OLD-HASH NEW-SIZE NEW-HASH PATH-LENGTH PATH
//     STATE ENTRY
// The length lets a path hold a line feed.
#include "BrevisUI_RunJournal.h"

#include <fcntl.h>

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <iterator>

namespace BrevisUI {

namespace {

// In the order of RunJournal::State.
constexpr std::string_view stateWords[] = {"begun", "in-place", "done", "kept", "undone"};
constexpr std::string_view fileWord = "file";

std::string textsOf(const std::string& directory) { return directory + "/texts"; }
std::string journalOf(const std::string& directory) { return directory + "/journal"; }

// Reads words and numbers, each with one character behind it.
class LineReader {
public:
    explicit LineReader(std::string_view rest) : rest_(rest) {}

    bool readWord(std::string_view& word) {
        const std::size_t length = rest_.find(' ');
        return length != std::string_view::npos && readText(length, word);
    }
    template <class Number>
    bool readNumber(Number& number) {
        const char* const begin = rest_.data();
        const auto [end, error] = std::from_chars(begin, begin + rest_.size(), number);
        std::string_view digits;
        return error == std::errc() && readText(static_cast<std::size_t>(end - begin), digits);
    }
    bool readText(std::size_t length, std::string_view& text) {
        if (length >= rest_.size()) return false;
        text = rest_.substr(0, length);
        rest_.remove_prefix(length + 1);
        return true;
    }

    std::size_t left() const { return rest_.size(); }

private:
    std::string_view rest_;
};

bool readFingerprint(LineReader& reader, Fingerprint& fingerprint) {
    return reader.readNumber(fingerprint.size) && reader.readNumber(fingerprint.hash);
}

bool readEntryLine(LineReader& reader, RunJournal::Entry& entry) {
    std::size_t length = 0;
    std::string_view path;
    const bool whole = reader.readNumber(entry.place) && readFingerprint(reader, entry.old) &&
                       readFingerprint(reader, entry.formatted) && reader.readNumber(length) &&
                       reader.readText(length, path);
    entry.path = path;
    return whole;
}

// No line is longer: a path isn't.
constexpr std::size_t longestLine = 1 << 13;
constexpr std::size_t pieceSize = 1 << 16;

std::string numbersOf(const Fingerprint& fingerprint) {
    return " " + std::to_string(fingerprint.size) + " " + std::to_string(fingerprint.hash);
}

}  // namespace

RunJournal::RunJournal(FileSystem& system, const std::string& directory, int flags)
    : system_(system),
      directory_(directory),
      texts_(system, textsOf(directory), O_RDWR | O_APPEND | flags),
      journal_(system, journalOf(directory), O_RDWR | O_APPEND | flags) {}

std::error_code RunJournal::openError() const { return texts_.openError() ? texts_.openError() : journal_.openError(); }

std::unique_ptr<RunJournal> RunJournal::create(FileSystem& system, const std::string& directory,
                                               std::error_code& error) {
    error.clear();
    if (system.makeDirectory(directory) == -1) {
        error = lastError();
        return nullptr;
    }
    std::unique_ptr<RunJournal> journal(new RunJournal(system, directory, O_CREAT | O_EXCL));
    error = journal->openError();
    if (!error && system.lock(journal->journal_.number()) == -1) error = lastError();
    if (!error) return journal;
    remove(system, directory);
    return nullptr;
}

std::unique_ptr<RunJournal> RunJournal::open(FileSystem& system, const std::string& directory, std::error_code& error) {
    std::unique_ptr<RunJournal> journal(new RunJournal(system, directory, 0));
    error = journal->openError();
    if (!error && system.lock(journal->journal_.number()) == -1) error = lastError();
    return error ? nullptr : std::move(journal);
}

// What broke off is taken back, so that whatever comes behind it can still be read.
std::error_code RunJournal::append(FileSystem& system, OpenFile& file, off_t& size, std::string_view text) {
    if (const std::error_code error = file.write(text)) {
        system.truncate(file.number(), size);
        return error;
    }
    size += static_cast<off_t>(text.size());
    return {};
}

std::error_code RunJournal::add(std::string_view path, std::string_view oldText, std::string_view newText,
                                std::size_t& entry) {
    std::string line(fileWord);
    line += " " + std::to_string(textsSize_);
    line += numbersOf(fingerprintOf(oldText)) + numbersOf(fingerprintOf(newText));
    line.append(" ").append(std::to_string(path.size())).append(" ").append(path).append("\n");
    if (const std::error_code error = append(system_, texts_, textsSize_, oldText)) return error;
    if (const std::error_code error = append(system_, journal_, journalSize_, line)) return error;
    entry = count_++;
    return {};
}

std::error_code RunJournal::mark(std::size_t entry, State state) {
    std::string line(stateWords[static_cast<std::size_t>(state)]);
    line += " " + std::to_string(entry) + "\n";
    if (entry < places_.size()) places_[entry].state = state;
    return append(system_, journal_, journalSize_, line);
}

std::error_code RunJournal::sync() {
    if (const std::error_code error = texts_.sync()) return error;
    if (const std::error_code error = journal_.sync()) return error;
    return syncPath(system_, directory_);
}

std::error_code RunJournal::scan() {
    places_.clear();
    off_t begin = 0;
    std::string piece;
    std::size_t length = 0;
    do {
        if (const std::error_code error = journal_.readSome(begin, pieceSize, piece)) return error;
        length = scanLines(piece, begin);
        begin += static_cast<off_t>(length);
    } while (length > 0);
    count_ = places_.size();
    journalSize_ = begin;
    // Only a whole line may stand in front of whatever is noted next.
    if (!piece.empty() && system_.truncate(journal_.number(), journalSize_) == -1) return lastError();
    return {};
}

std::size_t RunJournal::scanLines(std::string_view piece, off_t begin) {
    std::size_t read = 0;
    std::size_t length = 0;
    while (scanLine(piece.substr(read), begin + static_cast<off_t>(read), length)) read += length;
    return read;
}

bool RunJournal::scanLine(std::string_view line, off_t begin, std::size_t& length) {
    LineReader reader(line);
    std::string_view word;
    if (!reader.readWord(word)) return false;
    Entry entry;
    std::size_t number = places_.size();
    const auto* const state = std::find(std::begin(stateWords), std::end(stateWords), word);
    if (word == fileWord) {
        if (!readEntryLine(reader, entry)) return false;
        places_.push_back({begin, State::Begun});
    } else {
        if (state == std::end(stateWords) || !reader.readNumber(number) || number >= places_.size()) return false;
        places_[number].state = static_cast<State>(state - std::begin(stateWords));
    }
    length = line.size() - reader.left();
    return true;
}

std::error_code RunJournal::readEntry(std::size_t entry, Entry& found) {
    std::string line;
    if (const std::error_code error = journal_.readSome(places_[entry].line, longestLine, line)) return error;
    LineReader reader(line);
    std::string_view word;
    found.state = state(entry);
    const bool isWhole = reader.readWord(word) && readEntryLine(reader, found);
    return isWhole ? std::error_code() : std::make_error_code(std::errc::io_error);
}

std::error_code RunJournal::readOldText(const Entry& entry, std::string& text) {
    if (const std::error_code error = texts_.readAt(static_cast<off_t>(entry.place), entry.old.size, text))
        return error;
    return fingerprintOf(text) == entry.old ? std::error_code() : std::make_error_code(std::errc::io_error);
}

// Nothing but what a run has made goes; a directory that holds anything else stays.
std::error_code RunJournal::remove(FileSystem& system, const std::string& directory) {
    std::error_code first;
    const auto note = [&](int result) {
        if (result == -1 && errno != ENOENT && !first) first = lastError();
    };
    std::error_code unused;
    for (const auto& file : std::filesystem::directory_iterator(directory, unused)) {
        if (file.path().filename().string().starts_with(foundPrefix)) note(system.remove(file.path().string()));
    }
    note(system.remove(textsOf(directory)));
    note(system.remove(journalOf(directory)));
    note(system.removeDirectory(directory));
    return first;
}

}  // namespace BrevisUI
