// A text that is written before its comments have found their columns, and finished by moving those. Nothing but the
// comments' own blanks goes by their columns as a rule, so the text need not be written twice.
#pragma once

#include <optional>
#include <string>

#include "second/Brevis_GapWriter.h"

namespace Brevis {

// The text, the scheme and the table must outlive it.
class CommentDraft {
public:
    // Writes the text by the decisions so far, and by those of `kept` on columns, if there are any.
    CommentDraft(const GapText& text, const Scheme& scheme, const GapTable& gaps, KeptColumns* kept);

    // Of a comment or a directive.
    const DraftPlace& placeOf(TokenIndex token) const;
    // What the writer would write now that comments have columns; serves once. None if it has to be asked, since more
    // goes by a comment that moves.
    std::optional<std::string> finish();

private:
    // How many bytes of the gap stay, and with how many blanks it goes on.
    struct Change {
        std::size_t kept = 0, blanks = 0;
    };

    bool isMoved(TokenIndex comment) const;
    std::optional<Change> changeOf(const DraftPlace& place, std::string_view gap) const;

    const GapText& text_;
    const Scheme& scheme_;
    const GapTable& gaps_;
    std::vector<DraftPlace> places_;
    std::string draft_;
};

}  // namespace Brevis
