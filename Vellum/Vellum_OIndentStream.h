// The output stream of the formatters: puts the current indent in front of each line, drops leading white
// space, converts between tabs and blanks and keeps the output column exact after every character.
// It writes into a string of its own and touches nothing else.
#pragma once

#include <string>
#include <string_view>

#include "Vellum_IndentStreamSettings.h"
#include "Vellum_OIndentBuf.h"

namespace Vellum {

class OIndentStream;

// Inserter: writes a text under a keep flag of true, so that the lines of the text keep their own leading
// white space behind the stream's indent.
struct Verbatim {
    std::string_view text;
};

class OIndentStream {
public:
    explicit OIndentStream(const IndentStreamSettings& settings) : buf_(settings) {}

    // Ordinary writing: the indent goes in front of each line that is not empty, and white space that arrives
    // at column 0 is dropped while the keep flag is false.
    OIndentStream& operator<<(std::string_view text);
    OIndentStream& operator<<(char c);
    OIndentStream& operator<<(Verbatim verbatim);
    // Character for character: no indent added, no white space dropped.
    void writeRaw(std::string_view text) { buf_.writeRaw(text); }

    // Makes room for a text of this size.
    void reserve(std::size_t size) { buf_.reserve(size); }
    // Writes held-back spaces and gives the text written so far.
    const std::string& str();
    // The same, moving the text out; the stream is not to be written to afterwards.
    std::string takeStr();

    IndentStreamSettings settings() const;

    const std::string& indent() const { return buf_.indent(); }
    bool keepLeadingWs() const { return buf_.keepLeadingWs(); }
    int convertMode() const { return buf_.convertMode(); }
    int tabSize() const { return buf_.tabSize(); }
    int line() const { return buf_.line(); }
    int column() const { return buf_.column(); }

    // True if only white space was written since a backslash at a line end that stands outside literals, comments
    // and directives: the stream adds and drops nothing there, and its users should not either.
    bool behindBackslash() const { return buf_.behindBackslash(); }
    // True at the start of a line that goes on with a string literal, which has to stay as it is.
    bool lineStartsInLiteral() const { return buf_.lineStart() == LiteralTracker::LineStart::Literal; }
    // True if a fresh stream opened with `settings` would convert what follows as this one does.
    bool convertsAfresh() const { return buf_.convertsAfresh(); }

    // These two store without any flushing.
    void setIndent(std::string indent) { buf_.setIndent(std::move(indent)); }
    void setKeepLeadingWs(bool keep) { buf_.setKeepLeadingWs(keep); }
    // These two let held-back spaces out under the old setting first.
    void setConvertMode(int mode) { buf_.setConvertMode(mode); }
    void setTabSize(int tabSize) { buf_.setTabSize(tabSize); }

private:
    friend class IndentStringGuard;  // swaps the indent, so that nothing is copied twice

    OIndentBuf buf_;
};

// Sets an indent and restores the former one at the end of the scope.
class IndentStringGuard {
public:
    IndentStringGuard(OIndentStream& stream, std::string indent);
    ~IndentStringGuard();
    IndentStringGuard(const IndentStringGuard&) = delete;
    IndentStringGuard& operator=(const IndentStringGuard&) = delete;

private:
    OIndentStream& stream_;
    std::string saved_;
};

// Sets the keep flag and restores the former one at the end of the scope.
class LeadingWsGuard {
public:
    LeadingWsGuard(OIndentStream& stream, bool keep);
    ~LeadingWsGuard();
    LeadingWsGuard(const LeadingWsGuard&) = delete;
    LeadingWsGuard& operator=(const LeadingWsGuard&) = delete;

private:
    OIndentStream& stream_;
    bool saved_;
};

}  // namespace Vellum
