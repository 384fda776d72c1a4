// Writing with the three convert modes: runs of plain characters are copied and counted in one step, and only the
// characters that a mode looks at are taken one by one.
#include "Vellum_OTextDocBuf.h"

#include <algorithm>
#include <array>

#include "Vellum_WhiteSpace.h"

namespace Vellum {

using LineStart = LiteralTracker::LineStart;

namespace {

// The characters at which a run ends, by convert mode. With conversion nothing has to stay as it is on a line without
// quotes and backslashes.
constexpr std::array<CharSet, 3> modeStops = {
    CharSet("\n\t"),
    CharSet("\n\t\"'\\"),
    CharSet("\n\t \"'\\"),
};

// Most texts of a scratch stream are shorter, so that memory is asked for once.
constexpr std::size_t leastCapacity = 120;

int knownMode(int mode) { return mode == 1 || mode == 2 ? mode : 0; }

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

bool OTextDocBuf::behindBackslash() const { return lineStart_ == LineStart::Backslash && lastOnLine() == '\n'; }

bool OTextDocBuf::convertsAfresh() const { return convertMode_ == 0 || (quote_ == '\0' && last_ != '\\'); }

// The last character of the current line that is no white space, or a line feed if there is none.
char OTextDocBuf::lastOnLine() const {
    for (std::size_t end = text_.size(); end > 0; --end) {
        if (const char c = text_[end - 1]; c == '\n' || !isSpace(c)) return c;
    }
    return '\n';
}

// ---- Writing

void OTextDocBuf::put(std::string_view text) {
    while (!text.empty()) text.remove_prefix(putLine(text));
}

std::size_t OTextDocBuf::putLine(std::string_view text) {
    std::size_t at = 0;
    while (at < text.size()) {
        // The blanks behind a backslash may have to be restored.
        if (followsClosely_ && tracker_.followsBackslash()) {
            putFollowed(text[at]);
        } else {
            const std::size_t end = modeStops[static_cast<std::size_t>(convertMode_)].findIn(text, at);
            if (end > at) putRun(text.substr(at, end - at));
            if (end == text.size()) return end;
            at = end;
            putStop(text[at]);
        }
        if (text[at++] == '\n') break;
    }
    return at;
}

void OTextDocBuf::putRun(std::string_view run) {
    sync();
    const std::size_t size = text_.size() + run.size();
    if (size > text_.capacity()) text_.reserve(std::max(2 * size, leastCapacity));
    text_.append(run);
    column_ += static_cast<int>(run.size());
    if (!followsClosely_) return;
    tracker_.feed(run);
    last_ = run.back();
}

void OTextDocBuf::putStop(char c) {
    if (followsClosely_) return putFollowed(c);
    switch (c) {
        case '\n':
            return endLine();
        case '\t':
            return convertMode_ == 1 ? putTabAsSpaces() : putTab();
        case ' ':
            return putSpaceHeldBack();
        default:
            followClosely();
            return putFollowed(c);
    }
}

void OTextDocBuf::putTab() {
    sync();
    text_ += '\t';
    column_ += tabSize_ - column_ % tabSize_;
}

void OTextDocBuf::putTabAsSpaces() {
    const int count = tabSize_ - column_ % tabSize_;
    text_.append(static_cast<std::size_t>(count), ' ');
    column_ += count;
}

// Only a run that starts at a tab stop and reaches the next one becomes a tab.
void OTextDocBuf::putSpaceHeldBack() {
    const bool isHeldBack = pendingSpaces_ > 0;
    if (!isHeldBack && column_ % tabSize_ != 0) {
        text_ += ' ';
    } else if (++pendingSpaces_ == tabSize_ && isHeldBack) {  // one space is no tab yet, even where it is as wide
        pendingSpaces_ = 0;
        text_ += '\t';
    }
    ++column_;
}

void OTextDocBuf::startLine(LineStart lineStart) {
    sync();
    text_ += '\n';
    ++line_;
    column_ = 0;
    lineStart_ = lineStart;
}

void OTextDocBuf::endLine() {
    // Only a backslash carries a literal, or white space that has to stay, over a line end.
    const bool carries = convertMode_ == 0 && (lineStart_ != LineStart::Plain || lastOnLine() == '\\');
    startLine(LineStart::Plain);
    if (!carries) return;
    catchUp();
    lineStart_ = tracker_.lineStart();
}

// ---- With conversion, on a line where something may have to stay as it is

void OTextDocBuf::followClosely() {
    catchUp();
    for (int i = 0; i < pendingSpaces_; ++i) tracker_.feed(' ');
    followsClosely_ = true;
}

// One of the stops, or what stands behind a backslash.
void OTextDocBuf::putFollowed(char c) {
    trackQuote(c);
    const bool stays = quote_ != '\0' || tracker_.inLiteral() || tracker_.behindBackslash();
    const bool followsBackslash = tracker_.followsBackslash();
    tracker_.feed(c);

    if (c == '\n') return endFollowedLine(followsBackslash);
    if (followsBackslash && isSpace(c)) blanksBehindBackslash_ += c;
    if (c == ' ' && convertMode_ == 2 && !stays) return putSpaceHeldBack();
    if (c == '\t') return convertMode_ == 1 && !stays ? putTabAsSpaces() : putTab();
    sync();
    text_ += c;
    ++column_;
    if (c == '\\' && tracker_.followsBackslash()) {
        blanksBehindBackslash_.clear();
        backslashEnd_ = text_.size();
    }
}

void OTextDocBuf::endFollowedLine(bool followsBackslash) {
    if (followsBackslash) {  // its blanks stay as they came in
        sync();
        text_.resize(backslashEnd_);
        text_ += blanksBehindBackslash_;
    }
    startLine(tracker_.lineStart());
    followsClosely_ = lineStart_ != LineStart::Plain;
    tracked_ = text_.size();
}

void OTextDocBuf::trackQuote(char c) {
    if (quote_ != '\0') {
        if (c == '\n' || (last_ != '\\' && c == quote_)) quote_ = '\0';
    } else if (last_ != '\\' && (c == '"' || c == '\'')) {
        quote_ = c;
    }
    last_ = c;
}

void OTextDocBuf::catchUp() {
    tracker_.feed(std::string_view(text_).substr(tracked_));
    tracked_ = text_.size();
}

}  // namespace Vellum
