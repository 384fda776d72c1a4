// Reads .dsw files: a line for each project, such as
//     Project: "name"=.\dir\name.dsp - Package Owner=<4>
// and blocks of foreign text between {{{ and }}}.
#include "files/BrevisUI_TextLines.h"
#include "projects/BrevisUI_LineScanner.h"
#include "projects/BrevisUI_ProjectError.h"
#include "projects/BrevisUI_ProjectPaths.h"
#include "projects/BrevisUI_ProjectReaders.h"

namespace BrevisUI {

namespace {

class DswReader {
public:
    DswReader(const std::string& path, std::string_view text) : path_(path), text_(text), paths_(path) {}

    std::vector<ProjectReference> read() {
        for (const std::string_view line : linesOf(text_)) {
            ++line_;
            readLine(trimBlanks(line));
        }
        if (!seenHeader_) fail(1, "The file is not a Developer Studio workspace.");
        if (blockLine_ != 0) fail(blockLine_, "\"{{{\" has no end.");
        return std::move(projects_);
    }

private:
    [[noreturn]] void fail(int line, const char* text) const { throw ProjectError(path_, line, text); }

    void readLine(std::string_view line) {
        LineScanner scanner(line);
        if (line.empty()) return;
        if (!seenHeader_) {
            readHeader(scanner);
        } else if (blockLine_ != 0) {
            if (line == "}}}") blockLine_ = 0;
        } else if (line == "{{{") {
            blockLine_ = line_;
        } else if (scanner.take("Project:")) {
            readProject(scanner);
        }
    }

    void readHeader(LineScanner scanner) {
        seenHeader_ = scanner.take("Microsoft Developer Studio Workspace File");
        if (!seenHeader_) fail(line_, "The file is not a Developer Studio workspace.");
    }

    void readProject(LineScanner scanner) {
        if (!scanner.quoted()) fail(line_, "The name of a project in quotes is missing.");
        if (!scanner.take("=")) fail(line_, "The path of a project is missing.");
        const std::optional<std::string_view> path =
            scanner.rest().starts_with('"') ? scanner.quoted() : withoutOwner(scanner.rest());
        if (!path || path->empty()) fail(line_, "The path of a project is missing.");
        projects_.push_back({line_, paths_.resolve(paths_.expand(*path))});
    }

    static std::string_view withoutOwner(std::string_view text) {
        return trimBlanks(text.substr(0, text.rfind(" - Package Owner=")));
    }

    const std::string& path_;
    std::string_view text_;
    ProjectPaths paths_;
    std::vector<ProjectReference> projects_;
    int line_ = 0;
    int blockLine_ = 0;  // where the block that we are in begins, or 0
    bool seenHeader_ = false;
};

}  // namespace

std::vector<ProjectReference> readDsw(const std::string& path, std::string_view text) {
    return DswReader(path, text).read();
}

}  // namespace BrevisUI
