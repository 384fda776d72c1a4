// Comments behind code in a column: those of lines that follow each other are a group.
#pragma once

#include <map>
#include <vector>

#include "second/Brevis_ColumnGroup.h"
#include "second/Brevis_GapWriter.h"

namespace Brevis {

// The text, the scheme and the table must outlive it. Goes by the places of the decisions so far.
class CommentColumns {
public:
    CommentColumns(const GapText& text, const Scheme& scheme, GapTable& gaps);

    static bool isWanted(const Scheme& scheme) {
        return scheme.alignTrailingComments || scheme.wsBeforeTrailingComment.isSet;
    }

    void run();

private:
    bool isTrailing(TokenIndex comment) const;
    TokenIndex lastTrailing() const;
    bool endsScope(TokenIndex comment) const;
    bool goesOn(TokenIndex comment);
    bool followsOn(TokenIndex comment) const;
    bool isConditional(TokenIndex directive) const;
    GapRule distanceOf(TokenIndex comment) const;
    void add(TokenIndex comment);
    void close();

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    std::vector<LaidPlace> places_;  // up to the last comment behind code
    GapRule distance_;
    ColumnGroup group_;
    TokenIndex last_ = 0;       // the last comment of the group
    TokenIndex code_ = 0;       // the first token of code behind a comment that goes on
    std::vector<int> columns_;  // of its comments as they stand, where no distance is set
};

}  // namespace Brevis
