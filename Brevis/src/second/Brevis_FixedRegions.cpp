// One pass over the comments with the region that is open.
#include "second/Brevis_FixedRegions.h"

#include "Cpp_CommentRegion.h"

namespace Brevis {

namespace {

class RegionScan {
public:
    RegionScan(const RegionTable& regions, GapTable& gaps) : regions_(regions), gaps_(gaps) {}

    void read(TokenIndex comment, std::string_view marker) {
        if (depth_ > 0) {
            depth_ += Cpp::commentRegionStep(marker);
            if (depth_ == 0) fix(start_, comment);
        } else if (Cpp::opensCommentRegion(marker)) {
            depth_ = 1;
            start_ = comment;
        } else if (closing_.empty()) {
            open(comment, marker);
        } else if (marker == closing_) {
            closing_ = {};
            fix(tableStart_, comment);
        }
    }

private:
    void open(TokenIndex comment, std::string_view marker) {
        for (const auto& [opening, closing] : regions_) {
            if (marker != opening) continue;
            closing_ = closing;
            tableStart_ = comment;
            return;
        }
    }

    void fix(TokenIndex first, TokenIndex last) {
        for (TokenIndex token = first; token <= last; ++token) gaps_.fix(token);
    }

    const RegionTable& regions_;
    GapTable& gaps_;
    // A nesting region, in which nothing else is looked at
    int depth_ = 0;
    TokenIndex start_ = 0;
    // A region of the table, which may hold nesting ones
    std::string_view closing_;  // empty while none is open
    TokenIndex tableStart_ = 0;
};

}  // namespace

void fixRegions(const GapText& text, const RegionTable& regions, GapTable& gaps) {
    RegionScan scan(regions, gaps);
    for (const TokenIndex token : text.trivia()) {
        if (text.isComment(token)) scan.read(token, Cpp::markerOf(text.text(token)));
    }
}

}  // namespace Brevis
