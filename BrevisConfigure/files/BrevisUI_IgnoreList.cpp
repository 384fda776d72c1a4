// Reads the lines of ignore files.
#include "files/BrevisUI_IgnoreList.h"

#include "BrevisUI_Files.h"
#include "files/BrevisUI_TextLines.h"

namespace BrevisUI {

namespace {

// Blanks at the end don't count, save one behind a backslash.
std::string_view withoutTrailingBlanks(std::string_view line) {
    std::size_t end = 0;
    for (std::size_t at = 0; at < line.size(); ++at) {
        const bool isEscape = line[at] == '\\';
        if (isEscape) ++at;
        if (isEscape || line[at] != ' ') end = at + 1;
    }
    return line.substr(0, end);
}

bool takeFront(std::string_view& text, char c) {
    const bool found = text.starts_with(c);
    if (found) text.remove_prefix(1);
    return found;
}

bool takeBack(std::string_view& text, char c) {
    const bool found = text.ends_with(c);
    if (found) text.remove_suffix(1);
    return found;
}

}  // namespace

std::optional<IgnorePattern> IgnorePattern::parse(std::string_view line) {
    if (line.starts_with('#')) return std::nullopt;
    line = withoutTrailingBlanks(line);
    const bool isNegated = takeFront(line, '!');
    const bool onlyDirectories = takeBack(line, '/');
    if (line.empty()) return std::nullopt;
    const bool onlyName = line.find('/') == std::string_view::npos;
    takeFront(line, '/');

    IgnorePattern pattern(line);
    pattern.isNegated_ = isNegated;
    pattern.onlyDirectories_ = onlyDirectories;
    pattern.onlyName_ = onlyName;
    return pattern;
}

bool IgnorePattern::matches(std::string_view path, bool isDirectory) const {
    if (onlyDirectories_ && !isDirectory) return false;
    return glob_.matches(onlyName_ ? path.substr(path.rfind('/') + 1) : path);
}

void IgnoreList::add(std::string_view line) {
    if (std::optional<IgnorePattern> pattern = IgnorePattern::parse(line)) patterns_.push_back(std::move(*pattern));
}

void IgnoreList::read(const std::string& path) {
    std::string bytes;
    if (!isDirectory(path) && !readFile(path, bytes)) return;
    const std::string text = decodeText(bytes);
    for (const std::string_view line : linesOf(text)) add(line);
}

std::optional<bool> IgnoreList::verdict(std::string_view path, bool isDirectory) const {
    for (auto pattern = patterns_.rbegin(); pattern != patterns_.rend(); ++pattern) {
        if (pattern->matches(path, isDirectory)) return !pattern->isNegated();
    }
    return std::nullopt;
}

}  // namespace BrevisUI
