// The count rises to a level where it stands that much above the lowest count since the start.
#include "first/wrap/Brevis_ParenLevels.h"

#include <algorithm>

#include "first/wrap/Brevis_LexedText.h"

namespace Brevis {

using namespace Trn::Kind;

ParenLevels::Climb ParenLevels::JoinClimbs::operator()(const Climb& left, const Climb& right) const {
    return {left.change + right.change, std::min(left.lowest, left.change + right.lowest),
            std::max({left.highest, right.highest, left.change + right.top - left.lowest}),
            std::max(left.top, left.change + right.top)};
}

ParenLevels::ParenLevels(const LexedText& text) : text_(text) {
    std::vector<Climb> climbs;
    int depth = 0;
    for (std::size_t i = 0; text.isWalked(i); ++i) {
        const Trn::TokenKind kind = text[i].kind;
        if (kind == OpenBracket) i = text.closeOf(i) - 1;
        if (kind != OpenParen && kind != CloseParen) continue;
        const bool isOpen = kind == OpenParen;
        parens_.push_back(i);
        climbs.push_back(isOpen ? Climb{1, 0, 1, 1} : Climb{-1, -1, 0, 0});
        depth = std::max(0, depth + (isOpen ? 1 : -1));
        highest_ = std::max(highest_, depth);
    }
    if (highest_ > 0 && text.pairs().areParensNested()) climbs_.emplace(climbs, JoinClimbs());
}

std::size_t ParenLevels::findLevel(std::size_t from, int level) const {
    if (!climbs_) return walkToLevel(from, level);
    const auto first = std::lower_bound(parens_.begin(), parens_.end(), from) - parens_.begin();
    const std::size_t found = climbs_->findSum(static_cast<std::size_t>(first),
                                               [level](const Climb& climb) { return climb.highest >= level; });
    return found < parens_.size() ? parens_[found] : text_.count();
}

std::size_t ParenLevels::walkToLevel(std::size_t from, int level) const {
    int depth = 0;
    for (std::size_t i = from; text_.isWalked(i); ++i) {
        const Trn::TokenKind kind = text_[i].kind;
        if (kind == OpenParen && ++depth == level) return i;
        if (kind == CloseParen && depth > 0) --depth;
        // The walk goes on at the closing bracket.
        if (kind == OpenBracket) i = text_.closeOf(i) - 1;
    }
    return text_.count();
}

}  // namespace Brevis
