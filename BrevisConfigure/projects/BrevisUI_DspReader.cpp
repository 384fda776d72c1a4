// Reads .dsp files: lines of a makefile with the structure in comments, such as "# Begin Source File". What depends on
// a configuration stands between !IF and !ENDIF; a file counts whatever its configuration.
#include <algorithm>

#include "files/BrevisUI_TextLines.h"
#include "projects/BrevisUI_FileList.h"
#include "projects/BrevisUI_LineScanner.h"
#include "projects/BrevisUI_ProjectError.h"
#include "projects/BrevisUI_ProjectPaths.h"
#include "projects/BrevisUI_ProjectReaders.h"

namespace BrevisUI {

namespace {

class DspReader {
public:
    explicit DspReader(const ProjectInput& input) : input_(input), paths_(input.path) {}

    std::vector<std::string> read() {
        for (const std::string_view line : linesOf(input_.text)) {
            ++line_;
            readLine(line);
        }
        if (!seenHeader_) fail("The file is not a Developer Studio project.");
        if (!blocks_.empty()) failAt(blocks_.back().line, "\"Begin " + blocks_.back().kind + "\" has no end.");
        return files_.take();
    }

private:
    struct Block {
        int line = 0;
        std::string kind;
    };

    [[noreturn]] void failAt(int line, const std::string& text) const { throw ProjectError(input_.path, line, text); }
    [[noreturn]] void fail(const std::string& text) const { failAt(std::max(line_, 1), text); }

    void readLine(std::string_view line) {
        LineScanner scanner(line);
        if (scanner.rest().empty()) return;
        if (!seenHeader_) {
            readHeader(scanner);
        } else if (scanner.take("#")) {
            readComment(scanner);
        } else if (scanner.take("SOURCE=")) {
            readSource(scanner);
        }
    }

    void readHeader(LineScanner scanner) {
        seenHeader_ = scanner.take("#") && scanner.take("Microsoft Developer Studio");
        if (!seenHeader_) fail("The file is not a Developer Studio project.");
    }

    void readComment(LineScanner scanner) {
        if (scanner.take("Begin ")) {
            blocks_.push_back({line_, kindOf(scanner.rest())});
        } else if (scanner.take("End ")) {
            closeBlock(kindOf(scanner.rest()));
        }
    }

    // The words of the kind; a name in quotes or a text behind a dash may follow.
    static std::string kindOf(std::string_view text) {
        return std::string(trimBlanks(text.substr(0, std::min(text.find('"'), text.find(" - ")))));
    }

    void closeBlock(const std::string& kind) {
        if (blocks_.empty() || blocks_.back().kind != kind) fail("\"End " + kind + "\" has no beginning.");
        blocks_.pop_back();
    }

    void readSource(LineScanner scanner) {
        const bool isQuoted = scanner.rest().starts_with('"');
        const std::optional<std::string_view> path = isQuoted ? scanner.quoted() : scanner.rest();
        if (!path) fail("The name of a source file has no closing quote.");
        if (!path->empty()) files_.add(paths_.resolve(paths_.expand(*path)));
    }

    const ProjectInput& input_;
    ProjectPaths paths_;
    FileList files_;
    std::vector<Block> blocks_;
    int line_ = 0;
    bool seenHeader_ = false;
};

}  // namespace

std::vector<std::string> readDsp(const ProjectInput& input) { return DspReader(input).read(); }

}  // namespace BrevisUI
