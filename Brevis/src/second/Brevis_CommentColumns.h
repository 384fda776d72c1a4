// Comments behind code in a column: those of lines that follow each other are a group.
#pragma once

#include <map>
#include <vector>

#include "second/Brevis_ColumnGroup.h"
#include "second/Brevis_CommentDraft.h"

namespace Brevis {

// The text, the scheme, the table and the draft must outlive it. Goes by the places in the draft, which is there if
// comments are aligned.
class CommentColumns {
public:
    CommentColumns(const GapText& text, const Scheme& scheme, GapTable& gaps, const CommentDraft* draft = nullptr);

    static bool isWanted(const Scheme& scheme) {
        return scheme.alignTrailingComments || scheme.wsBeforeTrailingComment.isSet;
    }

    void run();

private:
    bool isTrailing(TokenIndex comment) const;
    bool endsScope(TokenIndex comment) const;
    bool goesOn(TokenIndex comment);
    bool followsOn(TokenIndex comment) const;
    bool isConditional(TokenIndex directive) const;
    bool clingsToBracket(TokenIndex comment) const;
    void setDistance(TokenIndex comment);
    GapRule distanceOf(TokenIndex comment) const;
    void add(TokenIndex comment);
    void close();

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    const CommentDraft* draft_;
    GapRule distance_;
    ColumnGroup group_;
    TokenIndex last_ = 0;       // the last comment of the group
    TokenIndex code_ = 0;       // the first token of code behind a comment that goes on
    std::vector<int> columns_;  // of its comments as they stand, where no distance is set
};

}  // namespace Brevis
