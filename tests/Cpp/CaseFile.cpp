// Reads a file of cases line by line. The first fault ends the file.
#include "CaseFile.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace Cpp {

namespace fs = std::filesystem;

namespace {

class CaseFileReader {
public:
    explicit CaseFileReader(const fs::path& path) : path_(path), in_(path, std::ios::binary) {}

    std::vector<CaseGroup> run() {
        while (nextLine() && !line_.starts_with("== ")) requireProse();
        while (line_.starts_with("== ")) readGroup();
        require(!groups_.empty(), "no heading");
        return std::move(groups_);
    }

    std::string place() const { return path_.string() + ":" + std::to_string(number_) + ": "; }

private:
    void require(bool wanted, const std::string& fault) const {
        if (!wanted) throw std::runtime_error(fault);
    }

    bool nextLine() {
        ++number_;
        if (!std::getline(in_, line_)) line_.clear();
        return !in_.fail();
    }

    bool skipBlankLines() {
        while (nextLine() && line_.empty()) continue;
        return !in_.fail();
    }

    void requireProse() const { require(mark().empty(), "a mark without a source"); }

    void readGroup() {
        std::string name = path_.stem().string() + "_" + line_.substr(3);
        std::replace_if(
            name.begin(), name.end(), [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
        groups_.push_back({path_.string(), name, {}, {}});
        while (nextLine() && !line_.empty()) requireProse();
        while (skipBlankLines() && !line_.starts_with("== ")) readCase(groups_.back().cases.emplace_back());
        require(!groups_.back().cases.empty(), "a group without a case");
    }

    void readCase(TextCase& read) {
        read.line = number_;
        for (; mark().empty() || mark() == "!"; nextLine()) {
            require(!in_.fail() && !line_.starts_with("== "), "a source without a mark");
            read.source += line_ + '\n';
        }
        if (!read.source.empty()) read.source.pop_back();
        std::string* expected = nullptr;
        for (; !line_.empty(); nextLine()) {
            if (const std::string found = mark(); !found.empty()) {
                expected = &read.expected[found];
                require(expected->empty(), "a mark twice");
                *expected = line_.substr(std::min(found.size() + 1, line_.size()));
            } else {
                const std::size_t blanks = line_.find_first_not_of(' ');
                require(blanks == 3, "a line behind a mark is neither blank, nor a mark, nor indented by three");
                *expected += line_.substr(blanks - 1);
            }
        }
    }

    // The mark that the line begins with, or nothing.
    std::string mark() const {
        const std::string word = line_.substr(0, line_.find(' '));
        return word == "->" || word == "@" || word == "!" ? word : "";
    }

    fs::path path_;
    std::ifstream in_;
    std::string line_;
    int number_ = 0;
    std::vector<CaseGroup> groups_;
};

}  // namespace

std::vector<CaseGroup> readCaseGroups(const std::string& folder) {
    const fs::path directory = fs::path(CORVANE_SOURCE_DIR) / "tests" / "Cpp" / folder;
    std::vector<CaseGroup> groups;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        CaseFileReader reader(entry.path());
        try {
            for (CaseGroup& group : reader.run()) groups.push_back(std::move(group));
        } catch (const std::runtime_error& fault) {
            groups.push_back(
                {entry.path().string(), "fault_" + std::to_string(groups.size()), {}, reader.place() + fault.what()});
        }
    }
    if (groups.empty()) groups.push_back({directory.string(), "fault", {}, directory.string() + " holds no cases"});
    return groups;
}

}  // namespace Cpp
