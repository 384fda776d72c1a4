// Writing with the three convert modes. Without conversion whole stretches are copied and counted in bulk.
#include "Vellum_OTextDocBuf.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace Vellum {

using LineStart = LiteralTracker::LineStart;

namespace {

bool isSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

int knownMode(int mode) { return mode == 1 || mode == 2 ? mode : 0; }

int nextTabStop(int column, int tabSize) { return column + tabSize - column % tabSize; }

int columnBehind(std::string_view piece, int column, int tabSize) {
    if (piece.size() < 16) {  // too short for a search to pay
        for (const char c : piece) column = c == '\t' ? nextTabStop(column, tabSize) : column + 1;
        return column;
    }
    std::size_t tab;
    while ((tab = piece.find('\t')) != std::string_view::npos) {
        column = nextTabStop(column + static_cast<int>(tab), tabSize);
        piece.remove_prefix(tab + 1);
    }
    return column + static_cast<int>(piece.size());
}

}  // namespace

OTextDocBuf::OTextDocBuf(const IndentStreamSettings& settings)
    : convertMode_(knownMode(settings.convertMode)),
      tabSize_(std::max(settings.tabSize, 1)),
      line_(std::max(settings.line, 1)),
      column_(std::max(settings.column, 0)) {
    if (settings.behindBackslash) {
        tracker_.startBehindBackslash();
        lineStart_ = LineStart::Backslash;
        followsClosely_ = convertMode_ != 0;
    }
}

void OTextDocBuf::setConvertMode(int mode) {
    sync();
    convertMode_ = knownMode(mode);
    if (!followsClosely_) {
        catchUp();
        if (tracker_.followsBackslash()) {
            backslashEnd_ = text_.rfind('\\') + 1;
            blanksBehindBackslash_ = text_.substr(backslashEnd_);
        }
    }
    tracked_ = text_.size();
    followsClosely_ = convertMode_ != 0;  // the line may have begun behind a quote or backslash, so up to its end
}

void OTextDocBuf::setTabSize(int tabSize) {
    sync();
    tabSize_ = std::max(tabSize, 1);
}

void OTextDocBuf::sync() {
    if (pendingSpaces_ == 0) return;
    text_.append(static_cast<std::size_t>(pendingSpaces_), ' ');
    pendingSpaces_ = 0;
}

bool OTextDocBuf::behindBackslash() const {
    if (lineStart_ != LineStart::Backslash) return false;
    const auto lastOnLine = std::find_if(text_.rbegin(), text_.rend(), [](char c) { return c == '\n' || !isSpace(c); });
    return lastOnLine == text_.rend() || *lastOnLine == '\n';
}

bool OTextDocBuf::convertsAfresh() const { return convertMode_ == 0 || (quote_ == '\0' && last_ != '\\'); }

void OTextDocBuf::put(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        putLine(text.substr(0, length));
        text.remove_prefix(length);
    }
}

void OTextDocBuf::putLine(std::string_view line) {
    if (convertMode_ != 0) return putConverted(line);
    const bool isEnded = line.back() == '\n';
    putUnconverted(line.substr(0, line.size() - isEnded));
    if (isEnded) putLineFeed();
}

// ---- Without conversion

void OTextDocBuf::putUnconverted(std::string_view piece) {
    text_.append(piece);
    column_ = columnBehind(piece, column_, tabSize_);
}

void OTextDocBuf::putLineFeed() {
    const bool matters = lineStart_ != LineStart::Plain || lineEndsInBackslash();
    text_ += '\n';
    ++line_;
    column_ = 0;
    // Only a backslash carries a literal, or white space that has to stay, over a line end.
    if (matters) catchUp();
    lineStart_ = matters ? tracker_.lineStart() : LineStart::Plain;
}

bool OTextDocBuf::lineEndsInBackslash() const {
    const auto last = std::find_if(text_.rbegin(), text_.rend(), [](char c) { return c == '\n' || !isSpace(c); });
    return last != text_.rend() && *last == '\\';
}

void OTextDocBuf::catchUp() {
    tracker_.feed(std::string_view(text_).substr(tracked_));
    tracked_ = text_.size();
}

// ---- With conversion

namespace {

// The characters that end a stretch in which nothing has to stay: line ends, quotes and backslashes.
constexpr std::array<bool, 256> makeMarks() {
    std::array<bool, 256> marks{};
    for (const unsigned char c : {'\n', '"', '\'', '\\'}) marks[c] = true;
    return marks;
}

constexpr std::array<bool, 256> marks = makeMarks();

std::size_t findMark(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size() && !marks[static_cast<unsigned char>(text[at])]) ++at;
    return at;
}

}  // namespace

void OTextDocBuf::putConverted(std::string_view text) {
    while (!text.empty()) {
        if (followsClosely_) {
            putFollowed(text.front());
            text.remove_prefix(1);
            continue;
        }
        const std::size_t end = findMark(text);
        putPlainPiece(text.substr(0, end));
        if (end == text.size()) return;
        if (text[end] == '\n') {
            sync();
            text_ += '\n';
            ++line_;
            column_ = 0;
            lineStart_ = LineStart::Plain;
        } else {
            catchUp();
            for (int i = 0; i < pendingSpaces_; ++i) tracker_.feed(' ');
            followsClosely_ = true;
            putFollowed(text[end]);
        }
        text.remove_prefix(end + 1);
    }
}

// A piece of a line in which every tab and blank may be converted.
void OTextDocBuf::putPlainPiece(std::string_view piece) {
    const char converted = convertMode_ == 1 ? '\t' : ' ';
    while (!piece.empty()) {
        const std::size_t length = std::min(piece.find(converted), piece.size());
        if (length > 0) {
            sync();
            putUnconverted(piece.substr(0, length));
            piece.remove_prefix(length);
        }
        for (; !piece.empty() && piece.front() == converted; piece.remove_prefix(1)) {
            if (convertMode_ == 1)
                putTabAsSpaces();
            else
                putSpaceHeldBack();
        }
    }
}

void OTextDocBuf::putFollowed(char c) {
    trackQuote(c);
    const bool stays = quote_ != '\0' || tracker_.inLiteral() || tracker_.behindBackslash();
    const bool followsBackslash = tracker_.followsBackslash();
    tracker_.feed(c);

    if (followsBackslash && isSpace(c) && c != '\n') blanksBehindBackslash_ += c;
    if (c == ' ' && convertMode_ == 2 && !stays) {
        putSpaceHeldBack();
    } else if (c == '\t' && convertMode_ == 1 && !stays) {
        putTabAsSpaces();
    } else {
        sync();
        if (c == '\n' && followsBackslash) restoreBlanksBehindBackslash();
        putChar(c);
    }
    if (c == '\\' && tracker_.followsBackslash()) {
        blanksBehindBackslash_.clear();
        backslashEnd_ = text_.size();
    }
    if (c == '\n') {
        followsClosely_ = lineStart_ != LineStart::Plain;
        tracked_ = text_.size();
    }
}

void OTextDocBuf::putTabAsSpaces() {
    const int count = tabSize_ - column_ % tabSize_;
    text_.append(static_cast<std::size_t>(count), ' ');
    column_ += count;
}

// Only a run that starts at a tab stop and reaches the next one becomes a tab.
void OTextDocBuf::putSpaceHeldBack() {
    if (pendingSpaces_ == 0) {
        if (column_ % tabSize_ != 0) return putChar(' ');
        ++column_;
        pendingSpaces_ = 1;  // not a tab yet, even where a single column makes one
        return;
    }
    ++column_;
    if (++pendingSpaces_ == tabSize_) {
        pendingSpaces_ = 0;
        text_ += '\t';
    }
}

void OTextDocBuf::putChar(char c) {
    text_ += c;
    if (c == '\n') {
        ++line_;
        column_ = 0;
        lineStart_ = tracker_.lineStart();
    } else {
        column_ = c == '\t' ? nextTabStop(column_, tabSize_) : column_ + 1;
    }
}

void OTextDocBuf::trackQuote(char c) {
    if (quote_ != '\0') {
        if (c == '\n' || (last_ != '\\' && c == quote_)) quote_ = '\0';
    } else if (last_ != '\\' && (c == '"' || c == '\'')) {
        quote_ = c;
    }
    last_ = c;
}

void OTextDocBuf::restoreBlanksBehindBackslash() {
    text_.resize(backslashEnd_);
    text_ += blanksBehindBackslash_;
}

}  // namespace Vellum
