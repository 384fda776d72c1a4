// The expression formatter's rule for pointer and reference signs in a type or declaration.
#include <string>

#include "expr/Brevis_CppExprFormatter.h"

namespace Brevis {

namespace Kind = Trn::Kind;

namespace {

bool isBlank(std::string_view gap) { return trimmedLeft(gap).empty(); }

// A run of signs with the type in front of it and the gaps round it, as they were read.
struct SignRun {
    std::string_view type;
    std::string_view gapBefore;
    std::string signs;  // without white space between them
    std::string_view gapAfter;
    std::string_view whole;
    bool hasBlankGaps = true;  // all gaps, those between the signs too, hold only white space
    bool isMovable = true;     // a name or nothing at all stands behind
};

SignRun readRun(ExprWalk& walk) {
    SignRun run;
    const std::uint32_t start = walk.offset();
    const auto readGap = [&] {
        const std::string_view gap = walk.more() ? walk.readBefore(walk.next()) : walk.remainder();
        run.hasBlankGaps = run.hasBlankGaps && isBlank(gap);
        return gap;
    };
    run.type = walk.readThrough(walk.current());
    run.gapBefore = readGap();
    run.signs = walk.readThrough(walk.next());
    for (walk.advance(); walk.more() && isSign(walk.nextKind()); walk.advance()) {
        readGap();
        run.signs += walk.readThrough(walk.next());
    }
    run.gapAfter = readGap();
    run.isMovable = !walk.more() || walk.nextKind() == Kind::Identifier;
    run.whole = walk.textFrom(start);
    return run;
}

}  // namespace

// The type's last token is the current one and a sign is next. A mixed run goes by its first sign.
void CppExprFormatter::pointerRun(ExprWalk& walk) {
    const bool isStar = walk.nextKind() == Kind::Star;
    const int anchor = isStar ? scheme().asteriskAnchor : scheme().ampersandAnchor;
    const WsProperty& between = isStar ? scheme().wsBetweenAsteriskAnchor : scheme().wsBetweenAmpersandAnchor;
    OIndentStream& out = walk.out();
    const SignRun run = readRun(walk);

    const bool keepsWithName = anchor == 1;
    if ((!keepsWithName && anchor != 0) || !run.hasBlankGaps) {
        out << run.whole;
        return;
    }
    if (!run.isMovable) {
        out << run.type << run.gapBefore << run.signs << run.gapAfter;
        return;
    }

    // The inner gap is the one between the sign and what it keeps with.
    std::string_view inner = between.text;
    std::string_view outer = wsAfterType_->text;
    if (!between.isSet) {
        const auto width = [&](std::string_view gap) { return columnAfter(gap, out.column(), out.tabSize()); };
        const bool afterIsWider = width(run.gapAfter) > width(run.gapBefore);
        outer = afterIsWider ? run.gapAfter : run.gapBefore;
        inner = afterIsWider ? run.gapBefore : run.gapAfter;
    }
    if (keepsWithName && !wsAfterType_->holdsLineFeed())
        out << run.type << outer << run.signs << inner;
    else
        out << run.type << inner << run.signs << outer;
}

}  // namespace Brevis
