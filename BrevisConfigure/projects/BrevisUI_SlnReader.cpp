// Reads .sln files: for each project
//     Project("{kind}") = "name", "path", "{id}"
//     EndProject
// A folder of the solution is listed like a project and holds none of its own.
#include "files/BrevisUI_TextLines.h"
#include "projects/BrevisUI_LineScanner.h"
#include "projects/BrevisUI_ProjectError.h"
#include "projects/BrevisUI_ProjectPaths.h"
#include "projects/BrevisUI_ProjectReaders.h"

namespace BrevisUI {

namespace {

// The kind of a solution folder in capitals, as it is always written.
constexpr std::string_view folderKind = "{2150E333-8FDC-42A3-9474-1A3956D46DE8}";

class SlnReader {
public:
    SlnReader(const std::string& path, std::string_view text) : path_(path), text_(text), paths_(path) {}

    std::vector<ProjectReference> read() {
        for (const std::string_view line : linesOf(text_)) {
            ++line_;
            readLine(line);
        }
        if (!seenHeader_) fail(1, "The file is not a solution.");
        if (projectLine_ != 0) fail(projectLine_, "\"Project\" has no end.");
        return std::move(projects_);
    }

private:
    [[noreturn]] void fail(int line, const char* text) const { throw ProjectError(path_, line, text); }

    void readLine(std::string_view line) {
        LineScanner scanner(line);
        if (scanner.rest().empty()) return;
        if (!seenHeader_) {
            readHeader(scanner);
        } else if (scanner.take("Project(")) {
            if (projectLine_ != 0) fail(projectLine_, "\"Project\" has no end.");
            projectLine_ = line_;
            readProject(scanner);
        } else if (scanner.rest() == "EndProject") {
            if (projectLine_ == 0) fail(line_, "\"EndProject\" has no beginning.");
            projectLine_ = 0;
        }
    }

    void readHeader(LineScanner scanner) {
        seenHeader_ = scanner.take("Microsoft Visual Studio Solution File");
        if (!seenHeader_) fail(line_, "The file is not a solution.");
    }

    void readProject(LineScanner scanner) {
        const std::optional<std::string_view> kind = scanner.quoted();
        const bool hasName = kind && scanner.take(")") && scanner.take("=") && scanner.quoted() && scanner.take(",");
        const std::optional<std::string_view> path = hasName ? scanner.quoted() : std::nullopt;
        if (!path || path->empty()) fail(line_, "The name and the path of a project are expected here.");
        if (*kind != folderKind) projects_.push_back({line_, paths_.resolve(paths_.expand(*path))});
    }

    const std::string& path_;
    std::string_view text_;
    ProjectPaths paths_;
    std::vector<ProjectReference> projects_;
    int line_ = 0;
    int projectLine_ = 0;  // where the project that we are in begins, or 0
    bool seenHeader_ = false;
};

}  // namespace

std::vector<ProjectReference> readSln(const std::string& path, std::string_view text) {
    return SlnReader(path, text).read();
}

}  // namespace BrevisUI
