// The indents of the lines of a list behind a colon: base clauses, and member initializers.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

class ColonLists {
public:
    using Scope = std::uint32_t;

    // The list of an item, if it has one.
    struct List {
        TokenIndex colon = 0;
        TokenIndex first = 0;  // behind the colon
        Scope item = 0;        // the scope of the item that holds the list
        Scope colonLine = 0;   // what begins with the line of the colon
        Scope aligned = 0;     // below the first element
        Scope kept = 0;        // lines that the author has begun
    };

    ColonLists(const GapText& text, const Scheme& scheme, GapTable& gaps) : text_(text), scheme_(scheme), gaps_(gaps) {}

    // For every token of an item that stands in no bracket; `item` is the scope that its parts share.
    void indent(TokenIndex token, List& list, Scope item) {
        const bool isColon =
            text_.role(token) == Cpp::Role::BaseColon || text_.role(token) == Cpp::Role::MemberInitializerColon;
        if (isColon) {
            begin(token, list, item);
        } else if (list.colon != 0) {
            indentInList(token, list, item);
        }
    }
    // For a comment between the elements.
    void indentComment(TokenIndex comment, const List& list);

private:
    void begin(TokenIndex colon, List& list, Scope item);
    void indentInList(TokenIndex token, List& list, Scope item);
    Scope shared(Scope base);
    bool isDecided(TokenIndex token) const;
    bool hasTail(TokenIndex token) const { return !gaps_.tail(gaps_[token].rule).empty(); }

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
};

}  // namespace Brevis
