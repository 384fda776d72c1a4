// The steps by which the operands of an expression are wrapped: first the arguments of the outermost calls, then the
// whole, and as long as it is too long, what stands inside braces and inside deeper and deeper parentheses.
#pragma once

#include <algorithm>

#include "Trn_NestingGuard.h"
#include "first/wrap/Brevis_BraceWalker.h"
#include "first/wrap/Brevis_ParenWalker.h"

namespace Brevis {

// `Operands` is StreamedOperands or LaidOperands.
template <class Operands>
class WrapSteps {
public:
    // `operands` must outlive the object.
    explicit WrapSteps(Operands& operands) : operands_(operands) {}

    void run() {
        if (maxParenDepth(operands_.lexed()) >= 1) wrapParens(1, true);
        operands_.climb();
        if (operands_.overflows()) wrapBraces();
        if (operands_.overflows()) wrapInnerParens();
    }

private:
    void wrapBraces() {
        const int depth = triedLevels(maxBraceDepth(operands_.lexed()));
        for (int level = 1; level <= depth && operands_.overflows(); ++level) {
            wrapGroups(BraceWalker(operands_.lexed(), Trn::Kind::OpenBrace, level), false);
        }
    }

    void wrapInnerParens() {
        const int depth = triedLevels(maxParenDepth(operands_.lexed()));
        for (int level = 1; level <= depth && operands_.overflows(); ++level) {
            if (level < depth) wrapParens(level + 1, true);
            if (operands_.overflows()) wrapParens(level, false);
        }
    }

    void wrapParens(int level, bool namedOnly) { wrapGroups(ParenWalker(operands_.lexed(), level), namedOnly); }

    // The insides of the groups at a level go down the ladder: those of calls or, if not `namedOnly`, all.
    template <class Walker>
    void wrapGroups(Walker group, bool namedOnly) {
        typename Operands::GroupPass pass(operands_);
        for (group.step(); group; group.step()) {
            if (namedOnly && !group.hasName()) continue;
            if (group.mayBreak() || pass.rewrites()) pass.wrapInside(group.openIndex(), group.hasName());
        }
        pass.finish();
    }

    // A nesting without limit would cost a walk for each of its levels.
    static int triedLevels(int depth) { return std::min(depth, Trn::NestingGuard::limit); }

    Operands& operands_;
};

}  // namespace Brevis
