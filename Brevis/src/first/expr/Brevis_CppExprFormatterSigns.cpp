// The expression formatter's rule for pointer and reference signs in a type or declaration.
#include <string>

#include "Vellum_WhiteSpace.h"
#include "first/expr/Brevis_CppExprFormatter.h"

namespace Brevis {

namespace Kind = Trn::Kind;

namespace {

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
        run.hasBlankGaps = run.hasBlankGaps && Vellum::isBlank(gap);
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

void writeRun(ExprWalk& walk, const SignRun& run, std::string_view before, std::string_view after) {
    walk.write(run.type);
    walk.writeMoved(before);
    walk.writeMoved(run.signs);
    walk.writeMoved(after);
}

}  // namespace

// The type's last token is the current one and a sign is next. A mixed run goes by its first sign.
void CppExprFormatter::pointerRun(ExprWalk& walk) {
    const bool isStar = walk.nextKind() == Kind::Star;
    const int anchor = isStar ? scheme().asteriskAnchor : scheme().ampersandAnchor;
    const WsProperty& between = isStar ? scheme().wsBetweenAsteriskAnchor : scheme().wsBetweenAmpersandAnchor;
    const SignRun run = readRun(walk);

    const bool keepsWithName = anchor == 1;
    if ((!keepsWithName && anchor != 0) || !run.hasBlankGaps) return walk.write(run.whole);
    if (!run.isMovable) return writeRun(walk, run, run.gapBefore, run.gapAfter);

    // The inner gap is the one between the sign and what it keeps with.
    std::string_view inner = between.text;
    std::string_view outer = wsAfterType_->text;
    if (!between.isSet) {
        const bool afterIsWider = walk.widthOf(run.gapAfter) > walk.widthOf(run.gapBefore);
        outer = afterIsWider ? run.gapAfter : run.gapBefore;
        inner = afterIsWider ? run.gapBefore : run.gapAfter;
    }
    const bool outerFirst = keepsWithName && !wsAfterType_->holdsLineFeed();
    writeRun(walk, run, outerFirst ? outer : inner, outerFirst ? inner : outer);
}

}  // namespace Brevis
