// One pass over the comments with the region that is open.
#include "second/Brevis_FixedRegions.h"

#include "Cpp_CommentRegion.h"

namespace Brevis {

namespace {

// What other formatters are told by. Who leaves a region alone there wants it left alone here too.
constexpr std::pair<std::string_view, std::string_view> foreignMarkers[] = {{"clang-format off", "clang-format on"},
                                                                            {"*INDENT-OFF*", "*INDENT-ON*"}};

// A reason may follow such a marker.
bool isMarker(std::string_view text, std::string_view marker) {
    if (!text.starts_with(marker)) return false;
    text.remove_prefix(marker.size());
    return text.empty() || text[0] == ' ' || text[0] == ':' || text[0] == '(';
}

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
        } else if (marker == closing_ || (isForeign_ && isMarker(marker, closing_))) {
            closing_ = {};
            fix(tableStart_, comment);
        }
    }

    // That of another formatter goes on to the end of the text.
    void end(TokenIndex size) {
        if (!closing_.empty() && isForeign_) fix(tableStart_, size - 1);
    }

private:
    void open(TokenIndex comment, std::string_view marker) {
        for (const auto& [opening, closing] : regions_) {
            if (marker == opening) return open(comment, closing, false);
        }
        for (const auto& [opening, closing] : foreignMarkers) {
            if (isMarker(marker, opening)) return open(comment, closing, true);
        }
    }

    void open(TokenIndex comment, std::string_view closing, bool isForeign) {
        closing_ = closing;
        tableStart_ = comment;
        isForeign_ = isForeign;
    }

    void fix(TokenIndex first, TokenIndex last) {
        for (TokenIndex token = first; token <= last; ++token) gaps_.fix(token);
    }

    const RegionTable& regions_;
    GapTable& gaps_;
    // A nesting region, in which nothing else is looked at
    int depth_ = 0;
    TokenIndex start_ = 0;
    // A region of the table or of another formatter, which may hold nesting ones
    std::string_view closing_;  // empty while none is open
    bool isForeign_ = false;
    TokenIndex tableStart_ = 0;
};

// `@` is no token, so it stands in the gap in front of its word.
bool isObjectiveC(const GapText& text, TokenIndex token, std::string_view word) {
    return text.token(token).isFixed && text.gap(token).ends_with('@') && text.text(token) == word;
}

// Interfaces and the like of Objective-C, which headers of other languages hold too, through their `@end`.
void fixObjectiveC(const GapText& text, GapTable& gaps) {
    TokenIndex start = 0;
    for (TokenIndex token = 1; token < text.size(); ++token) {
        if (!text.token(token).isFixed) continue;
        const bool isBegin = isObjectiveC(text, token, "interface") || isObjectiveC(text, token, "implementation") ||
                             isObjectiveC(text, token, "protocol");
        const Trn::TokenKind after = text.kind(text.next(text.next(token)));
        const bool isNamedOnly = after == Trn::Kind::Semicolon || after == Trn::Kind::Comma;
        if (start == 0 && isBegin && !isNamedOnly) start = token;
        if (start == 0 || !isObjectiveC(text, token, "end")) continue;
        for (; start <= token; ++start) gaps.fix(start);
        start = 0;
    }
}

// Macros of an assembler, which headers hold for both languages, through their `.endm`.
void fixAssembler(const GapText& text, GapTable& gaps) {
    TokenIndex start = 0;
    for (TokenIndex token = 1; token + 1 < text.size(); ++token) {
        if (text.kind(token) != Trn::Kind::Dot || !text.startsLine(token)) continue;
        if (start == 0 && text.isWord(token + 1, "macro")) start = token;
        if (start == 0 || !text.isWord(token + 1, "endm")) continue;
        for (; start <= token + 1; ++start) gaps.fix(start);
        start = 0;
    }
}

}  // namespace

void fixRegions(const GapText& text, const RegionTable& regions, GapTable& gaps) {
    RegionScan scan(regions, gaps);
    for (const TokenIndex token : text.trivia()) {
        if (text.isComment(token)) scan.read(token, Cpp::markerOf(text.text(token)));
    }
    scan.end(text.size());
    if (text.hasFixed()) fixObjectiveC(text, gaps);
    if (text.source().find(".endm") != std::string_view::npos) fixAssembler(text, gaps);
}

}  // namespace Brevis
