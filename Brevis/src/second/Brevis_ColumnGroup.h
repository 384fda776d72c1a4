// Tokens of several lines that are to share a column.
#pragma once

#include <vector>

#include "second/Brevis_GapTable.h"

namespace Brevis {

class ColumnGroup {
public:
    // `rule` is the reason for the decisions. A column is a multiple of `multiple`.
    ColumnGroup(GapTable& gaps, GapRule rule, int multiple = 1) : gaps_(&gaps), rule_(rule), multiple_(multiple) {}

    bool isEmpty() const { return cells_.empty(); }
    // The token can stand in column `least` or further to the right; it stands `hang` columns in front of the others'.
    void add(TokenIndex token, int least, int hang = 0);
    // Puts the tokens into the leftmost column that fits all, but not in front of `column`, and begins anew. A group of
    // one is put there too.
    void close(int column = 0);

private:
    struct Cell {
        TokenIndex token;
        int hang;
    };

    GapTable* gaps_;
    GapRule rule_;
    int multiple_;
    int column_ = 0;
    std::vector<Cell> cells_;
};

}  // namespace Brevis
