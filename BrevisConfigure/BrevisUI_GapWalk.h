// Walks over a source text and what formatting has made of it, side by side. Both hold the same characters once white
// space is taken out, so each stretch of white space, a gap, has its partner. Pure text work.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace BrevisUI {

// The white space between two other characters, or at an end of the texts; either side may be empty.
struct Gap {
    std::size_t sourceBegin = 0, sourceEnd = 0;
    std::size_t formattedBegin = 0, formattedEnd = 0;

    std::string_view in(std::string_view source) const { return source.substr(sourceBegin, sourceEnd - sourceBegin); }
    std::string_view inFormatted(std::string_view formatted) const {
        return formatted.substr(formattedBegin, formattedEnd - formattedBegin);
    }
};

class GapWalk {
public:
    // Both texts must outlive the walk.
    GapWalk(std::string_view source, std::string_view formatted) : source_(source), formatted_(formatted) {}

    // Moves to the next gap whose two sides differ. False behind the last one, and where the other characters differ.
    bool next();
    const Gap& gap() const { return gap_; }
    // Whether the walk has ended because the texts differ in more than white space.
    bool isMismatch() const { return mismatch_; }

private:
    void readGap();

    std::string_view source_, formatted_;
    Gap gap_;
    bool mismatch_ = false;
};

// All gaps that differ, each cut down to what differs in it. For texts that differ in more than white space one gap
// that covers both texts.
std::vector<Gap> findChangedGaps(std::string_view source, std::string_view formatted);

}  // namespace BrevisUI
