// The later lines of expressions and lists as columns: behind the bracket that they stand in, or below the operand that
// they go on with. Sets the scopes of such lines, and no gap.
#pragma once

#include <vector>

#include "second/Brevis_GapTable.h"

namespace Brevis {

// Runs behind the rules, since it goes by the lines as they are decided. The text, the scheme and the table must
// outlive it.
class ContinuationColumns {
public:
    ContinuationColumns(const GapText& text, const Scheme& scheme, GapTable& gaps);

    // Whether the scheme asks for any of it.
    static bool isWanted(const Scheme& scheme);

    // Goes over all tokens once.
    void run();

private:
    using Scope = std::uint32_t;

    // A run of operators of one precedence, and its first operand.
    struct Level {
        int precedence = 0;
        TokenIndex start = 0;
        TokenIndex question = 0;  // of a conditional expression
        // Of a part of a chain `a ? b : c ? d : e` whose author has it in one column with the one in front of it
        TokenIndex chainStart = 0;  // the first operand below which conditions stand, or 0
        TokenIndex colon = 0;       // that begins a line
        Scope colonScope = 0;       // of that
        bool isBehindColon = false;
        bool isNested = false;  // in an expression of another level, or behind more than what leads to an expression
        Scope scope = 0;
    };

    // What is open at a token: an item, a body or a bracket.
    struct Frame {
        TokenIndex first = 0;
        TokenIndex last = 0;
        bool isBracket = false;
        bool isBody = false;        // nothing but items and elements
        bool isExpression = false;  // its own tokens are operands and operators
        TokenIndex inside = 0;      // the first token of code in a bracket
        bool hasBehind = false;     // lines go behind `first`
        Scope behind = 0;
        TokenIndex base = 0;        // that its lines are indented from if nothing is behind it; 0 for the line
        TokenIndex colon = 0;       // of member initializers or base clauses
        TokenIndex element = 0;     // first token of the element at hand
        TokenIndex operand = 0;     // first token of the operand at hand, 0 in front of it
        TokenIndex operation = 0;   // the operator in front of that
        TokenIndex literal = 0;     // the first one of adjoining string literals
        TokenIndex shift = 0;       // the first `<<` of an expression
        TokenIndex declarator = 0;  // the first declarator of data
        std::size_t levels = 0;     // how many there were when it was opened
    };

    TokenIndex openItems(TokenIndex token);
    bool isBroken(TokenIndex first, TokenIndex last);
    void openBracket(TokenIndex open);
    void close(TokenIndex token);
    TokenIndex read(TokenIndex token);
    void beginElement();
    void readOperator(TokenIndex token, int precedence);
    void readQuestion(TokenIndex token);
    void readColon();
    TokenIndex leftOf(int precedence);
    bool areBelow(TokenIndex first, TokenIndex second) const;
    bool placeColon(TokenIndex token);
    bool leadsToExpression(TokenIndex token) const;

    void place(TokenIndex token);
    bool placeOperand(TokenIndex token);
    bool goesByHolder(TokenIndex token) const;
    bool placeInList(TokenIndex token);
    Scope scopeOf(Level& level);
    Scope at(TokenIndex anchor, bool isIndented);
    TokenIndex elementBase(const Frame& parent) const;
    bool alignsBracket(TokenIndex open) const;
    bool holdsColumn(TokenIndex open) const;
    bool isContinued(TokenIndex anchor) const;
    TokenIndex firstDeclarator(const Cpp::OutlineItem& item) const;
    Frame& top() { return frames_.back(); }

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    GapRule indent_;  // of continuation lines, None if it is unset
    std::vector<Frame> frames_;
    std::vector<Level> levels_;
    std::size_t nextItem_ = 0;
    TokenIndex itemStart_ = 0;  // the token at which an item has begun last
    TokenIndex lineStart_ = 0;  // the first one behind those asked for so far that begins a line
};

}  // namespace Brevis
