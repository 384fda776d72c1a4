// The gaps of braced initializers and of the elements of enums: braces, commas, and which lists stay on their line. A
// list directly behind a type, a name or `return` is no body of data: nothing is put in front of it or broken inside.
#pragma once

#include <vector>

#include "second/Brevis_GapTable.h"

namespace Brevis {

class BracedListRules {
public:
    BracedListRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps) {}

    // In the order of the text.
    void open(TokenIndex brace);
    void close(TokenIndex brace);
    void comma(TokenIndex comma);

private:
    struct List {
        TokenIndex last = 0;
        bool isEnum = false;
        bool isBody = false;    // of data, or of an enum
        bool isBroken = false;  // its elements take line feeds if the values have any
        bool isOuter = false;
    };

    List listOf(TokenIndex brace) const;
    // A value without a line feed leaves the rows of the author; one with a line feed acts where `list` may be broken.
    void set(TokenIndex token, GapProperty property, const List& list);
    // In a list that stays on its line a blank takes the place of a line feed.
    void setOrBlank(TokenIndex token, GapProperty property, const List& list);

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    std::vector<List> lists_;
};

}  // namespace Brevis
