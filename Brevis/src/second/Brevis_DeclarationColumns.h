// The names of neighbouring declarations in a column, and the values of data and enumerators.
#pragma once

#include <vector>

#include "second/Brevis_ColumnGroup.h"
#include "second/Brevis_GapWriter.h"

namespace Brevis {

// A column is a tab stop. The text, the scheme and the table must outlive it; `places` are those of the decisions so
// far.
class DeclarationColumns {
public:
    DeclarationColumns(const GapText& text, const Scheme& scheme, GapTable& gaps, std::vector<LaidPlace> places);

    static bool namesAreWanted(const Scheme& scheme) {
        return scheme.alignDdNamesLeft || scheme.alignClassMemberNamesLeft || scheme.alignFnDeclNamesLeft;
    }
    static bool valuesAreWanted(const Scheme& scheme) {
        return scheme.alignDdInitializers || scheme.alignEnumInitializers;
    }

    // Each of them goes over all items once.
    void alignNames();
    void alignValues();

private:
    void leaveBodies(TokenIndex token);
    void readName(const Cpp::OutlineItem& item);
    void readValue(const Cpp::OutlineItem& item);
    void addName(const Cpp::OutlineItem& item, ColumnGroup& group);
    void alignEnumerators(TokenIndex body);
    bool isOnLine(TokenIndex first, TokenIndex token) const;
    bool isJoined(TokenIndex token) const { return places_[token].gap == places_[token].column; }
    bool hangs(TokenIndex sign) const;
    void close();

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    std::vector<LaidPlace> places_;
    ColumnGroup data_;
    ColumnGroup functions_;
    ColumnGroup members_;
    ColumnGroup values_;
    std::vector<TokenIndex> bodies_;  // the last tokens of the items that are open
};

}  // namespace Brevis
