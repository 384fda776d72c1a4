// 1. Each gap that differs gets the lines of its source text. By its line ends it is plain (none on either side), a
// split
//    (some in the result alone), a join (some in the source alone) or a break (some on both sides).
// 2. Splits and joins between two breaks form a run. A gap that doesn't differ but holds a line end is a break, too.
// 3. A plain gap is taken if its line is chosen, a run as a whole if all of its lines are, and a break piece by piece,
//    each piece being what one line has of it. Where changes are free, a run is no more than its gaps.
#include "BrevisUI_ChosenLines.h"

#include <algorithm>
#include <vector>

#include "BrevisUI_GapWalk.h"
#include "Vellum_WhiteSpace.h"

namespace BrevisUI {

namespace {

using Pieces = std::vector<std::string_view>;

// The part of a gap that each line has, with its line end; the last piece has none.
Pieces splitLines(std::string_view gap) {
    Pieces pieces;
    std::size_t begin = 0;
    for (std::size_t at = gap.find('\n'); at != std::string_view::npos; at = gap.find('\n', begin)) {
        pieces.push_back(gap.substr(begin, at + 1 - begin));
        begin = at + 1;
    }
    pieces.push_back(gap.substr(begin));
    return pieces;
}

std::size_t countLineFeeds(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

// Puts a break together from what both texts have there. A text's first and last gap are breaks without the piece that
// would belong to a line in front of it or behind it.
class BreakText {
public:
    // `line` is the number of the line in which the gap begins.
    BreakText(const LineSet& lines, std::size_t line, std::string_view source, std::string_view formatted)
        : lines_(lines), line_(line), source_(splitLines(source)), formatted_(splitLines(formatted)) {}

    std::string make(bool opensText, bool endsText);

private:
    // The blank lines of either side are its pieces from `begin` to `end`.
    struct Blanks {
        std::size_t begin, end;

        std::size_t size() const { return end - begin; }
    };

    bool isChosen(std::size_t piece) const { return lines_.has(line_ + piece); }
    void addBlankLines(Blanks before, Blanks after);
    bool hasRoomFor(Blanks before, bool endsText) const;

    const LineSet& lines_;
    const std::size_t line_;
    const Pieces source_, formatted_;
    std::string text_;
};

std::string BreakText::make(bool opensText, bool endsText) {
    Blanks before{0, source_.size()};
    Blanks after{0, formatted_.size()};
    if (!opensText) {
        text_ += isChosen(0) ? formatted_.front() : source_.front();
        ++before.begin, ++after.begin;
    }
    // Behind the last line end there is no line.
    if (!endsText || (before.size() > 0 && source_.back().empty())) --before.end;
    if (!endsText || (after.size() > 0 && formatted_.back().empty())) --after.end;
    if (after.size() > before.size() && !hasRoomFor(before, endsText)) after.end = after.begin + before.size();
    addBlankLines(before, after);
    if (!endsText) text_ += isChosen(before.end) ? formatted_.back() : source_.back();
    return std::move(text_);
}

bool BreakText::hasRoomFor(Blanks before, bool endsText) const {
    // A last line without a line end would get one.
    if (endsText && !source_.back().empty() && !isChosen(source_.size() - 1)) return false;
    const std::size_t last = endsText ? before.end - 1 : before.end;
    for (std::size_t piece = 0; piece <= last; ++piece) {
        if (isChosen(piece)) return true;
    }
    return false;
}

void BreakText::addBlankLines(Blanks before, Blanks after) {
    std::size_t chosen = 0;
    for (std::size_t piece = before.begin; piece < before.end; ++piece) chosen += isChosen(piece) ? 1 : 0;
    std::size_t surplus = before.size() > after.size() ? before.size() - after.size() : 0;
    const bool isKept = surplus > chosen;
    for (std::size_t piece = before.begin; piece < before.end; ++piece) {
        if (isKept || !isChosen(piece)) {
            text_ += source_[piece];
            after.begin += isKept ? 0 : 1;
        } else if (surplus > 0) {
            --surplus;
        } else {
            text_ += formatted_[after.begin++];
        }
    }
    if (isKept) return;
    for (; after.begin < after.end; ++after.begin) text_ += formatted_[after.begin];
}

class Chooser {
public:
    Chooser(std::string_view source, std::string_view formatted, const LineSet& lines, GapChanges changes)
        : source_(source), formatted_(formatted), lines_(lines), changes_(changes) {}

    std::optional<std::string> run();

private:
    struct Member {
        Gap gap;
        std::size_t line;  // in which it begins
        bool isPlain;
    };

    // Takes a gap that differs, at the place that has been reached.
    void add(const Gap& gap);
    // Moves to a place of the source. A line end on the way, outside the gaps that differ, ends the run.
    void advanceTo(std::size_t place);
    void addBreak(const Gap& gap);
    // Writes what the run has collected.
    void endRun();
    bool takesRun() const;
    bool takesAlone(const Member& member) const;
    void write(const Gap& gap, std::string_view text);

    const std::string_view source_, formatted_;
    const LineSet& lines_;
    const GapChanges changes_;
    std::string text_;
    std::size_t written_ = 0;  // how much of the source has been written, as it is or replaced
    std::size_t place_ = 0;    // how much has been walked over
    std::size_t line_ = 1;     // at `place_`
    std::vector<Member> run_;  // the plain gaps between the members of a run too
};

std::optional<std::string> Chooser::run() {
    GapWalk walk(source_, formatted_);
    while (walk.next()) add(walk.gap());
    if (walk.isMismatch()) return std::nullopt;
    endRun();
    text_ += source_.substr(written_);
    return std::move(text_);
}

void Chooser::advanceTo(std::size_t place) {
    const std::size_t count = countLineFeeds(source_.substr(place_, place - place_));
    if (count > 0) endRun();
    line_ += count;
    place_ = place;
}

void Chooser::add(const Gap& gap) {
    advanceTo(gap.sourceBegin);
    const std::size_t before = countLineFeeds(gap.in(source_));
    const std::size_t after = countLineFeeds(gap.inFormatted(formatted_));
    // Nothing stands in front of the text that could be joined to it, or behind it.
    const bool isEdge = gap.sourceBegin == 0 || gap.sourceEnd == source_.size();
    if (isEdge || (before > 0 && after > 0)) {
        endRun();
        addBreak(gap);
    } else {
        run_.push_back({gap, line_, before == 0 && after == 0});
    }
    line_ += before;
    place_ = gap.sourceEnd;
}

void Chooser::addBreak(const Gap& gap) {
    const bool opensText = gap.sourceBegin == 0;
    const bool endsText = gap.sourceEnd == source_.size();
    const std::string_view before = gap.in(source_), after = gap.inFormatted(formatted_);
    const std::size_t count = countLineFeeds(before);
    // A line end that goes with nothing behind it is a join of all the lines that go.
    const bool joins = endsText && !opensText && count > 0 && countLineFeeds(after) == 0;
    if (joins && !lines_.hasAll(line_, line_ + count - (before.ends_with('\n') ? 1 : 0))) return;
    write(gap, BreakText(lines_, line_, before, after).make(opensText, endsText));
}

void Chooser::endRun() {
    const bool takes = takesRun();
    for (const Member& member : run_) {
        const bool isOnItsOwn = member.isPlain || changes_ == GapChanges::Free;
        if (isOnItsOwn ? takesAlone(member) : takes) write(member.gap, member.gap.inFormatted(formatted_));
    }
    run_.clear();
}

bool Chooser::takesAlone(const Member& member) const {
    return lines_.hasAll(member.line, member.line + countLineFeeds(member.gap.in(source_)));
}

bool Chooser::takesRun() const {
    std::size_t first = 0;
    std::size_t last = 0;
    for (const Member& member : run_) {
        if (member.isPlain) continue;
        if (first == 0) first = member.line;
        last = member.line + countLineFeeds(member.gap.in(source_));
    }
    return first > 0 && lines_.hasAll(first, last);
}

void Chooser::write(const Gap& gap, std::string_view text) {
    text_ += source_.substr(written_, gap.sourceBegin - written_);
    text_ += text;
    written_ = gap.sourceEnd;
}

}  // namespace

std::optional<std::string> takeChosenLines(std::string_view source, std::string_view formatted, const LineSet& lines,
                                           GapChanges changes) {
    return Chooser(source, formatted, lines, changes).run();
}

}  // namespace BrevisUI
