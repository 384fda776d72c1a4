// Carries the decisions out: goes over the tokens once and writes each gap and each token, with exact columns. What
// comes out as the source has it is copied in stretches as long as possible.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "second/Brevis_BranchLines.h"
#include "second/Brevis_GapTable.h"
#include "second/Brevis_LaidPlace.h"
#include "second/Brevis_LineColumns.h"
#include "second/Brevis_PieceSizes.h"

namespace Brevis {

class KeptColumns;

// Of a comment or a directive in a text that is written before comments have columns. All are offsets or lines in that.
struct DraftPlace : LaidPlace {
    TokenIndex token = 0;
    std::uint32_t firstLine = 0;  // on which the tokens stand that the line of this one begins with
    std::uint32_t gapBegin = 0, begin = 0;
    bool isFree = false;  // nothing behind it goes by its column, unless it stands on its line
};

// The text, the scheme and the table must outlive the writer, which serves once. `kept` decides on columns as the writer
// comes to them; none if all is decided.
class GapWriter {
public:
    GapWriter(const GapText& text, const Scheme& scheme, const GapTable& gaps, KeptColumns* kept = nullptr);

    std::string write();
    // Writes, and tells the places of comments and directives. White space is not converted.
    std::string writeDraft(std::vector<DraftPlace>& places);
    // The places that `write` gives the tokens, by their indices.
    std::vector<LaidPlace> measure();

private:
    // A line of the output with the line of the source on which the same tokens stand, and the white space that each
    // begins with. All are offsets.
    struct Line {
        std::uint32_t out = 0, outSize = 0;
        std::uint32_t source = 0, sourceSize = 0;
        bool isStill = true;  // both begin alike, and the size in the output is not set
    };
    // What a scope needs of its anchor: offsets in the output, and of what follows the anchor on its line in the source
    // as well; 0 for nothing.
    struct Base {
        std::uint32_t line : 31 = 0;    // in `lines_`
        std::uint32_t isStill : 1 = 1;  // up to what follows the anchor the line is that of the source
        std::uint32_t at = 0;
        std::uint32_t behind = 0;
        std::uint32_t sourceBehind = 0;
    };

    // All that changes as the writer goes on and must be as it was to write tokens once more.
    struct Progress {
        std::size_t outSize = 0, runBegin = 0, runEnd = 0;
        TokenIndex nextCode = 0;
        std::size_t lineBegin = 0, sourceLine = 0;
        std::uint32_t lineNumber = 0;
        bool isLineStart = true, hasLine = false;
        std::size_t lines = 0;
        std::size_t nextAnchor = 0;
        TokenIndex nextAnchorToken = 0;
        std::size_t fresh = 0;
    };

    bool mayHoldTabs() const;

    enum class Columns { OfNone, OfComments, OfAll };

    void findAnchors();
    template <Columns columns>
    void run();
    template <Columns columns>
    void runFrom(TokenIndex first, TokenIndex end);
    TokenIndex passUnchanged(TokenIndex token, TokenIndex end);
    void keepColumns(TokenIndex begin);
    Progress progress() const;
    void goBackTo(const Progress& progress);
    std::size_t lineBeginOf(std::size_t offset) const;

    // Gaps
    template <Columns columns>
    bool writeInLine(TokenIndex token, const GapToken& at);
    void writeGap(TokenIndex token);
    void noteGap(TokenIndex token);
    void notePlace(TokenIndex token);
    void writeKept(TokenIndex token);
    void writeEnd();
    void writeColumn(TokenIndex token);
    void writeLines(TokenIndex token, int lineFeeds, std::string_view tail);
    bool needsFeed(TokenIndex token) const;
    bool isStill(TokenIndex token) const;
    bool goesWithCode(TokenIndex token) const;
    int sourceFeeds(TokenIndex token) const;
    int keptFeeds(TokenIndex token) const;
    // Whether tabs among the blanks get another width if these are moved.
    bool bendsTabs(std::string_view blanks, int shift) const {
        return shift % scheme_.tabSize != 0 && blanks.find('\t') != std::string_view::npos;
    }

    // The white space of a new line, in `scratch_`
    void addFeeds(TokenIndex token, int lineFeeds);
    void addPageBreaks(TokenIndex token);
    void addLead(TokenIndex token, std::string_view tail);
    std::string_view indentOf(std::uint32_t scope);
    void addBase(std::uint32_t scope);
    bool startsBelow(TokenIndex directive);
    void addAbove();
    void addDistance(TokenIndex token, const Base& base);
    void addWidth(std::string_view sample, int width);
    void padTo(int column);
    int scratchColumn() const;

    // Scopes
    const Base& baseOf(std::uint32_t scope) const;
    void findNextAnchor();
    void noteAnchors(TokenIndex token);
    void noteBehind(TokenIndex token);
    std::uint32_t lineIndex();
    std::string_view outLead(const Base& base);
    std::string_view sourceLead(const Base& base) const;
    int columnIn(const Base& base, std::uint32_t offset);
    int sourceBehindColumn(const Base& base);

    // Tokens
    void writeToken(TokenIndex token);
    bool writeBranch(TokenIndex token);
    int branchShift(TokenIndex branch);
    TokenIndex neighbourOf(TokenIndex branch, int column);
    bool movesWithLine(TokenIndex token) const;
    void writeLaterLines(TokenIndex token, std::string_view text);
    std::string_view trimmedLine(std::string_view line) const;

    // The output: what has been written, and a stretch of the source that comes behind it
    std::size_t position() const { return out_.size() + (runEnd_ - runBegin_); }
    void copyTo(std::size_t sourceEnd) { runEnd_ = sourceEnd; }
    void replaceTo(std::size_t sourceEnd, std::string_view text);
    void putGap(TokenIndex token, std::string_view text);
    void flush();
    void beginLine(std::size_t outOffset);
    void beginSourceLine(std::size_t offset);
    bool isLineStill() const;
    void countLines(std::string_view text);
    int column();
    int sourceColumn(TokenIndex token);

    const GapText& text_;
    const Scheme& scheme_;
    const GapTable& gaps_;

    std::string out_;
    std::size_t runBegin_ = 0, runEnd_ = 0;
    std::string scratch_;
    TokenIndex nextCode_ = 0;  // behind the last directive that asked for it
    bool converts_ = false;    // white space, behind the writing
    PieceSizes pieces_;        // each gap and each token, if white space is to be converted
    KeptColumns* kept_ = nullptr;
    TokenIndex nextBlock_ = 0;  // in which columns may be kept; 0 for none
    // Only if places are asked for
    std::vector<LaidPlace>* places_ = nullptr;
    TokenIndex placesBegin_ = 0;  // the token whose place is the first one
    std::vector<DraftPlace>* draftPlaces_ = nullptr;
    int laidColumn_ = 0;

    // The line that is being written
    std::size_t lineBegin_ = 0;
    std::size_t sourceLine_ = 0;
    std::uint32_t lineNumber_ = 0;
    std::uint32_t firstLine_ = 0;  // of its first token, for a draft
    bool isLineStart_ = true;      // the token at hand is the first one of its line
    bool hasLine_ = false;         // the last one of `lines_` is this line
    std::vector<Line> lines_;      // those on which anchors stand
    LineColumns columns_, sourceColumns_;

    static constexpr std::uint32_t noScope = 0xFFFFFFFF;
    std::uint32_t indentScope_ = noScope;  // whose lines begin with `indent_`, as long as no anchor comes
    std::string indent_;

    std::vector<std::uint32_t> anchored_;  // the scopes with an anchor, in the order of their anchors
    std::vector<Base> bases_;              // theirs, behind that of all others
    std::vector<std::uint32_t> ofScope_;   // the numbers of the bases; most scopes indent no line
    std::size_t nextAnchor_ = 0;           // in `anchored_`
    TokenIndex nextAnchorToken_ = 0;       // its anchor
    std::size_t fresh_ = 0;                // from here to `nextAnchor_` the anchor was the last token
};

}  // namespace Brevis
