// Columns that the author has made by hand: tokens behind more than one blank that stand below each other do so again.
#pragma once

#include <limits>
#include <vector>

#include "second/Brevis_GapTable.h"
#include "second/Brevis_LaidPlace.h"

namespace Brevis {

// The text, the scheme and the table must outlive it. All other decisions stand.
class KeptColumns {
public:
    // Lines of the result that share no column with what stands in front of or behind them: the tokens up to `end`.
    struct Block {
        TokenIndex begin = 0, end = 0;
        bool hasWide = false;  // without a wide gap there is no column
        std::size_t firstLine = 0;
    };

    KeptColumns(const GapText& text, const Scheme& scheme, GapTable& gaps);

    // False if no gap of the text may belong to a column.
    static bool isWanted(const GapText& text, const Scheme& scheme);

    // The block that begins at a token, to be read next.
    Block blockFrom(TokenIndex begin);
    // The places of the tokens of the next block by the decisions so far, and of the token behind it. To be filled if it
    // has wide gaps.
    std::vector<LaidPlace>& places() { return places_; }
    // Decides on the columns of the block.
    void read(const Block& block);

    // A call on one line with a tab or many blanks beside one of its brackets is a row of a table, in which no gap
    // changes. To be known before places are measured.
    static void keepRows(const GapText& text, const Scheme& scheme, GapTable& gaps);

private:
    enum class Gaps { OfNone, Narrow, Wide };
    struct Stretch {
        TokenIndex end = 0;
        Gaps gaps = Gaps::OfNone;  // the widest one within
    };
    // What may belong to a column: a token, with the signs in front of it. Columns are those of the source.
    struct Cell {
        TokenIndex token = 0;
        TokenIndex anchor = 0;  // the name behind the signs
        int start = 0;
        int other = 0;          // of the name, or the last one of a number or an assignment
        int gap = 0;            // at which the white space in front of it begins
        int sort = 0;           // cells of a column have the same
        bool isWide = false;    // behind more than one blank
        bool isPadded = false;  // behind one where the scheme has none
        bool hasTab = false;
        bool isFixed = false;     // it begins a line, and so has a place
        bool isEnd = false;       // no token, but the place behind `token`, which ends a row
        bool isPassed = false;    // it was seen through a line that is blank there
        bool isLone = false;      // a column by itself
        std::uint32_t left = 0;   // the chain of those with the same start, 0 for none
        std::uint32_t right = 0;  // and of those with the same other column
    };
    // Cells of lines that follow each other.
    struct Chain {
        int column = 0;
        int size = 0;
        int wide = 0;  // how many of them are
        bool isPadded = false;
        bool hasTab = false;
        bool isRight = false;
    };
    // A line of the result, as far as its columns are known.
    struct Line {
        std::uint32_t number = 0;  // empty lines count
        TokenIndex first = 0;
        TokenIndex token = 0;  // comes to stand in `column`
        int column = 0;
        int shift = 0;  // from the source to the result, of its first token
        int numbers = 0;
        bool isBegun = true;                                              // its first token is where it comes to stand
        TokenIndex firstLinked = std::numeric_limits<TokenIndex>::max();  // in a column of lines above
    };

    static Gaps gapsBefore(const GapText& text, TokenIndex token);
    Stretch stretchFrom(TokenIndex first) const;
    bool endsItem(TokenIndex token) const;
    bool beginsLine(TokenIndex token) const;
    void passLines(const Block& block);
    void readLines(const Block& block);
    void readLine(TokenIndex first, TokenIndex last);
    void placeColumns();
    bool isTooLong(TokenIndex first, TokenIndex last) const;
    TokenIndex basisOf(TokenIndex first) const;
    bool isPlaced(TokenIndex first) const;
    void readCell(TokenIndex token, TokenIndex first);
    TokenIndex nameAt(TokenIndex token) const;
    int reachOfEnd(TokenIndex sign) const;
    void readEnd(TokenIndex first, TokenIndex last);
    int gapBegin(TokenIndex token, TokenIndex first) const;
    bool isPadded(TokenIndex token) const;
    void readFirst(TokenIndex first);
    bool isLone(const Cell& cell) const;
    bool readJoined(TokenIndex token, TokenIndex first);
    void link(Line& line);
    void linkBy(int Cell::*column, std::uint32_t Cell::*chain, bool isRight);
    void keepLinked(const Cell& cell);
    bool isInTable(const Cell& cell) const;
    void passCells(TokenIndex first);
    bool staysClear(TokenIndex token, TokenIndex first, const Cell& cell) const;
    int moved(const Cell* first, const Cell* last, int otherwise);
    bool areTight(const Cell* first, const Cell* last) const;
    void moveTo(TokenIndex token, int column, bool isOwn);
    void passSource(TokenIndex token);

    std::uint32_t chainOf(const Cell& cell) const;
    void placeChain(const Cell* first, const Cell* last, const Chain& chain);
    int lastColumn(const Cell& cell) const;
    const LaidPlace& place(TokenIndex token) const { return places_[token - begin_]; }
    // Of a token of the block.
    Line& lineOf(TokenIndex token) { return lines_[place(token).line]; }
    const Line& lineOf(TokenIndex token) const { return lines_[place(token).line]; }
    const Line& lineInFront(TokenIndex token) const;
    bool isJoined(TokenIndex token) const { return place(token).gap == place(token).column; }
    int columnBehindEnd(TokenIndex sign);
    int gapColumn(TokenIndex token);
    int widthBehind(TokenIndex token, int column) const;

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    TokenIndex begin_ = 1;           // of the block at hand
    std::vector<LaidPlace> places_;  // of its tokens; their lines are indices of `lines_` once they have been read
    std::vector<Line> lines_;        // of the text so far
    mutable TokenIndex lookedUp_ = 0;
    mutable std::size_t found_ = 0;  // its line
    std::vector<int> columns_;       // of the tokens of the line at hand
    int sourceColumn_ = 0;           // behind the token
    TokenIndex passed_ = 0;
    TokenIndex lastOfLine_ = 0;  // at hand
    std::vector<Cell> above_;    // the cells of the last line with code
    std::vector<Cell> here_;
    std::vector<Cell> through_;
    std::vector<Cell> linked_;
    std::vector<Chain> chains_;
};

}  // namespace Brevis
