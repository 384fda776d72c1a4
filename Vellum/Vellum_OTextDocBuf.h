// The written text with its line and column: converts between tabs and spaces and leaves literals alone.
// It owns the text and touches nothing else.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "Vellum_IndentStreamSettings.h"
#include "Vellum_LiteralTracker.h"

namespace Vellum {

class OTextDocBuf {
public:
    // Out of range values become the nearest one allowed; a convert mode outside 0 to 2 acts as 0.
    explicit OTextDocBuf(const IndentStreamSettings& settings);

    int line() const { return line_; }
    // 0 at the start of a line. Held-back spaces count.
    int column() const { return column_; }
    int convertMode() const { return convertMode_; }
    int tabSize() const { return tabSize_; }

    // These two let held-back spaces out under the old setting first.
    void setConvertMode(int mode);
    void setTabSize(int tabSize);

    // Makes room for a text of this size.
    void reserve(std::size_t size) { text_.reserve(size); }
    // Writes held-back spaces.
    void sync();
    // Without held-back spaces.
    const std::string& text() const { return text_; }
    std::string takeText() { return std::move(text_); }

    // What stands at the start of the current line.
    LiteralTracker::LineStart lineStart() const { return lineStart_; }
    // True if only white space was written since a backslash at a line end that stands outside literals, comments
    // and directives. White space at such a place stays as the source has it.
    bool behindBackslash() const;
    // True if a stream that starts here without a past converts what follows as this one would.
    bool convertsAfresh() const;

protected:
    void put(std::string_view text);
    // Writes the text through its first line feed and gives the number of characters taken.
    std::size_t putLine(std::string_view text);

private:
    void putRun(std::string_view run);
    void putStop(char c);
    void putFollowed(char c);
    void putTab();
    void putTabAsSpaces();
    void putSpaceHeldBack();
    void startLine(LiteralTracker::LineStart lineStart);
    void endLine();
    void endFollowedLine(bool followsBackslash);
    void followClosely();
    void trackQuote(char c);
    char lastOnLine() const;
    void catchUp();

    std::string text_;

    // Settings
    int convertMode_;
    int tabSize_;

    // Position, and what has not left yet
    int line_;
    int column_;
    int pendingSpaces_ = 0;

    // The simple quote tracking of the conversions: the open quote, or NUL, and the last character
    char quote_ = '\0';
    char last_ = '\0';

    // The exact state of the text. It follows only where it is needed, up to `tracked_`: with conversion, at once on a
    // line that holds a quote or a backslash or that begins behind one.
    LiteralTracker tracker_;
    std::size_t tracked_ = 0;
    bool followsClosely_ = false;
    LiteralTracker::LineStart lineStart_ = LiteralTracker::LineStart::Plain;
    // The blanks behind a stray backslash as they came in: if a line feed follows they stay so.
    std::string blanksBehindBackslash_;
    std::size_t backslashEnd_ = 0;
};

}  // namespace Vellum
