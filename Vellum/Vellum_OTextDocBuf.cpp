// Writing with the three convert modes. Without conversion whole stretches are copied and counted in bulk.
#include "Vellum_OTextDocBuf.h"

#include <algorithm>
#include <cctype>

namespace Vellum {

using LineStart = LiteralTracker::LineStart;

namespace {

bool isSpace(char c) { return std::isspace(static_cast<unsigned char>(c)) != 0; }

int knownMode(int mode) { return mode == 1 || mode == 2 ? mode : 0; }

int nextTabStop(int column, int tabSize) { return column + tabSize - column % tabSize; }

int columnBehind(std::string_view piece, int column, int tabSize) {
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
    }
}

void OTextDocBuf::setConvertMode(int mode) {
    sync();
    if (convertMode_ == 0) {
        catchUp();
        if (tracker_.followsBackslash()) {
            backslashEnd_ = text_.rfind('\\') + 1;
            blanksBehindBackslash_ = text_.substr(backslashEnd_);
        }
    }
    tracked_ = text_.size();
    convertMode_ = knownMode(mode);
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

void OTextDocBuf::put(char c) {
    if (convertMode_ != 0)
        putConverted(c);
    else if (c == '\n')
        putLineFeed();
    else
        putUnconverted({&c, 1});
}

void OTextDocBuf::put(std::string_view text) {
    if (convertMode_ == 0)
        putLines(text);
    else
        for (const char c : text) putConverted(c);
}

// ---- Without conversion

void OTextDocBuf::putLines(std::string_view text) {
    std::size_t lineFeed;
    while ((lineFeed = text.find('\n')) != std::string_view::npos) {
        putUnconverted(text.substr(0, lineFeed));
        putLineFeed();
        text.remove_prefix(lineFeed + 1);
    }
    putUnconverted(text);
}

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

void OTextDocBuf::putConverted(char c) {
    trackQuote(c);
    const bool stays = quote_ != '\0' || tracker_.inLiteral() || tracker_.behindBackslash();
    const bool followsBackslash = tracker_.followsBackslash();
    tracker_.feed(c);

    if (followsBackslash && isSpace(c) && c != '\n') blanksBehindBackslash_ += c;
    if (c == ' ' && convertMode_ == 2 && !stays) {
        putSpaceHeldBack();
    } else if (c == '\t' && convertMode_ == 1 && !stays) {
        for (int count = tabSize_ - column_ % tabSize_; count > 0; --count) putChar(' ');
    } else {
        sync();
        if (c == '\n' && followsBackslash) restoreBlanksBehindBackslash();
        putChar(c);
    }
    if (c == '\\' && tracker_.followsBackslash()) {
        blanksBehindBackslash_.clear();
        backslashEnd_ = text_.size();
    }
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
