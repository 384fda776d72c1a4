// A diff is a row of files. Each has a head, whose line "+++ " names it, and hunks; a hunk's head counts its lines, so
// that none of them is taken for anything else, whatever it holds.
#include "Console_GitDiff.h"

#include <algorithm>
#include <charconv>

namespace Console {

namespace {

constexpr std::string_view newPrefix = "b/";

class Parser {
public:
    explicit Parser(std::string_view text) : rest_(text) {}

    std::vector<GitFileDiff> run();

private:
    std::string_view takeLine();
    // Passes over the lines of a hunk.
    void skip(const GitHunk& hunk);

    std::string_view rest_;
};

bool takeText(std::string_view& rest, std::string_view text) {
    if (!rest.starts_with(text)) return false;
    rest.remove_prefix(text.size());
    return true;
}

std::size_t takeNumber(std::string_view& rest, std::size_t otherwise) {
    std::size_t number = otherwise;
    const auto end = std::from_chars(rest.data(), rest.data() + rest.size(), number).ptr;
    rest.remove_prefix(static_cast<std::size_t>(end - rest.data()));
    return number;
}

// `@@ -1,2 +3 @@`: a count that isn't there is 1.
GitHunk readHunk(std::string_view line) {
    GitHunk hunk;
    takeText(line, "@@ -");
    hunk.oldFirst = takeNumber(line, 0);
    hunk.oldCount = takeText(line, ",") ? takeNumber(line, 0) : 1;
    takeText(line, " +");
    hunk.newFirst = takeNumber(line, 0);
    hunk.newCount = takeText(line, ",") ? takeNumber(line, 0) : 1;
    return hunk;
}

char takeOctal(std::string_view& rest) {
    int value = 0;
    for (int digits = 0; digits < 3 && !rest.empty() && rest[0] >= '0' && rest[0] <= '7'; ++digits) {
        value = value * 8 + (rest[0] - '0');
        rest.remove_prefix(1);
    }
    return static_cast<char>(value);
}

char takeEscaped(std::string_view& rest) {
    constexpr std::string_view letters = "abtnvfr", values = "\a\b\t\n\v\f\r";
    if (rest[0] >= '0' && rest[0] <= '7') return takeOctal(rest);
    const char letter = rest[0];
    rest.remove_prefix(1);
    const std::size_t index = letters.find(letter);
    return index == std::string_view::npos ? letter : values[index];
}

// Names with odd characters stand in quotes, as in C. One with blanks has a tab behind it instead.
std::string readName(std::string_view text) {
    if (!takeText(text, "\"")) return std::string(text.substr(0, text.find('\t')));
    std::string name;
    while (!text.empty() && text[0] != '"') {
        if (takeText(text, "\\") && !text.empty()) {
            name += takeEscaped(text);
        } else if (!text.empty()) {
            name += text[0];
            text.remove_prefix(1);
        }
    }
    return name;
}

std::string_view Parser::takeLine() {
    const std::string_view line = rest_.substr(0, rest_.find('\n'));
    rest_.remove_prefix(std::min(line.size() + 1, rest_.size()));
    return line;
}

void Parser::skip(const GitHunk& hunk) {
    for (std::size_t count = hunk.oldCount + hunk.newCount; count > 0 && !rest_.empty();) {
        // A remark about the line before it is none of them.
        if (!takeLine().starts_with('\\')) --count;
    }
}

std::vector<GitFileDiff> Parser::run() {
    std::vector<GitFileDiff> files;
    bool isWanted = false;
    bool isNew = false;
    bool isRenamed = false;
    while (!rest_.empty()) {
        std::string_view line = takeLine();
        if (line.starts_with("diff --git ")) {
            isWanted = isNew = isRenamed = false;
        } else if (line.starts_with("new file mode ")) {
            isNew = true;
        } else if (takeText(line, "rename to ")) {
            isWanted = isRenamed = true;
            files.push_back({readName(line), {}});
        } else if (takeText(line, "+++ ") && !isRenamed) {
            const std::string name = readName(line);
            isWanted = name.starts_with(newPrefix);
            if (isWanted) files.push_back({name.substr(newPrefix.size()), {}, isNew});
        } else if (line.starts_with("@@ ")) {
            const GitHunk hunk = readHunk(line);
            skip(hunk);
            if (isWanted) files.back().hunks.push_back(hunk);
        }
    }
    return files;
}

// The line behind a stretch.
std::size_t lineBehind(std::size_t first, std::size_t count) { return count == 0 ? first + 1 : first + count; }

void addMapped(BrevisUI::LineSet& mapped, const BrevisUI::LineSet& oldLines, std::size_t oldFirst, std::size_t oldLast,
               std::size_t newFirst) {
    for (const auto& [first, last] : oldLines.ranges()) {
        const std::size_t from = std::max(first, oldFirst);
        const std::size_t to = std::min(last, oldLast);
        if (from <= to) mapped.add(newFirst + (from - oldFirst), newFirst + (to - oldFirst));
    }
}

}  // namespace

std::vector<GitFileDiff> parseGitDiff(std::string_view text) { return Parser(text).run(); }

BrevisUI::LineSet newLines(const std::vector<GitHunk>& hunks) {
    BrevisUI::LineSet lines;
    for (const GitHunk& hunk : hunks) {
        if (hunk.newCount > 0) lines.add(hunk.newFirst, hunk.newFirst + hunk.newCount - 1);
    }
    return lines;
}

BrevisUI::LineSet mapLines(const BrevisUI::LineSet& oldLines, const std::vector<GitHunk>& hunks) {
    BrevisUI::LineSet mapped;
    std::size_t oldLine = 1;
    std::size_t newLine = 1;
    for (const GitHunk& hunk : hunks) {
        const std::size_t behind = lineBehind(hunk.oldFirst, hunk.oldCount);
        addMapped(mapped, oldLines, oldLine, behind - hunk.oldCount - 1, newLine);
        oldLine = behind;
        newLine = lineBehind(hunk.newFirst, hunk.newCount);
    }
    // Far enough for any file, and nothing overflows.
    addMapped(mapped, oldLines, oldLine, BrevisUI::LineSet::lastLine / 2, newLine);
    return mapped;
}

}  // namespace Console
