// The gaps of statements: heads of control statements, their parts, labels, and what separates items.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

class StatementRules {
public:
    using Item = Cpp::OutlineItem;

    // What stands round an item. Pointers are null for nothing.
    struct Place {
        const Item* holder = nullptr;  // the item that it is a part or the body of
        const Item* before = nullptr;  // the one in front of it: in the same body, or the part before
    };

    StatementRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps) {}

    // Sets the gaps of an item that are its own: its brackets and braces apart.
    void item(const Item& item, const Place& place);
    // Behind the last token of a case that stays on one line: takes back every line feed that the source does not have
    // in it. To be called for each token, once all gaps in front of it are set.
    void endCase(TokenIndex token);
    // Whether `item`, the body of `holder`, is the `if` of an `else if` on one line.
    bool isElseIf(const Item& item, const Item* holder) const;
    // What puts a part behind the one in front of it.
    GapProperty inFrontOf(const Item& part) const;

private:
    void part(const Item& part, const Place& place);
    void betweenParts(const Item& part, const Item& before);
    void unbracedBody(const Item& body, const Item& holder);
    void inBody(const Item& item, const Item* before);
    void betweenFunctions(const Item& item, const Item& before);
    void accessLabel(const Item& label);
    void behindCaseLabel(const Item& label);
    bool staysOnOneLine(const Item& label);
    TokenIndex endOfLine(const Item& label);
    bool isLabel(TokenIndex token) const;
    void semicolon(const Item& item, const Place& place);
    bool isDefinition(const Item& item) const;
    bool isHandler(const Item& item) const;
    bool isBehindCaseBlock(const Item& item, TokenIndex before) const;
    bool followsOnLine(TokenIndex token) const;

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    // Of the case that was looked at last: the label's colon and the last token, 0 if it does not stay on one line
    TokenIndex caseColon_ = 0, caseEnd_ = 0;
    TokenIndex lookedAt_ = 0;  // labels up to here stand on a line that has been looked at
};

}  // namespace Brevis
