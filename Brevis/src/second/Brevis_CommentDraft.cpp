// Copies the draft from one comment that moves to the next.
#include "second/Brevis_CommentDraft.h"

#include <algorithm>

namespace Brevis {

namespace Kind = Trn::Kind;

CommentDraft::CommentDraft(const GapText& text, const Scheme& scheme, const GapTable& gaps, KeptColumns* kept)
    : text_(text), scheme_(scheme), gaps_(gaps), draft_(GapWriter(text, scheme, gaps, kept).writeDraft(places_)) {}

const DraftPlace& CommentDraft::placeOf(TokenIndex token) const {
    const auto isEarlier = [](const DraftPlace& place, TokenIndex other) { return place.token < other; };
    return *std::lower_bound(places_.begin(), places_.end(), token, isEarlier);
}

std::optional<std::string> CommentDraft::finish() {
    if (scheme_.convertWs != 0) return std::nullopt;
    std::string finished;
    std::size_t copied = 0;
    for (const DraftPlace& place : places_) {
        if (!isMoved(place.token)) continue;
        const std::string_view gap(draft_.data() + place.gapBegin, place.begin - place.gapBegin);
        const std::optional<Change> change = changeOf(place, gap);
        if (!change) return std::nullopt;
        if (gap.size() == change->kept + change->blanks && gap.find('\t') == std::string_view::npos) continue;
        if (!place.isFree) return std::nullopt;
        if (copied == 0) finished.reserve(draft_.size() + draft_.size() / 16);
        finished.append(draft_, copied, place.gapBegin + change->kept - copied);
        finished.append(change->blanks, ' ');
        copied = place.begin;
    }
    if (copied == 0) return std::move(draft_);
    finished.append(draft_, copied);
    return finished;
}

bool CommentDraft::isMoved(TokenIndex comment) const {
    return gaps_[comment].rule == ruleOf<&Scheme::alignTrailingComments>();
}

// None where the comment has come to stand otherwise than in most texts.
std::optional<CommentDraft::Change> CommentDraft::changeOf(const DraftPlace& place, std::string_view gap) const {
    const int column = gaps_[place.token].column;
    if (gaps_[place.token].sort == Gap::Sort::Column) {
        if (gap.find_first_not_of(" \t") != std::string_view::npos) return std::nullopt;
        return Change{0, static_cast<std::size_t>(std::max(column - place.gap, 1))};
    }
    // A directive may begin with what the line above begins with.
    const TokenIndex next = place.token + 1;
    const bool endsLine = next == text_.size() || (gaps_.startsLine(next) && text_.kind(next) != Kind::Directive);
    if (!endsLine || gap.empty() || gap.find_last_not_of(" \t") != 0 || gap[0] != '\n') return std::nullopt;
    return Change{1, static_cast<std::size_t>(column)};
}

}  // namespace Brevis
