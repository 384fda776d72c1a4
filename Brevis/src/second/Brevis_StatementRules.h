// The gaps of statements: heads of control statements, their parts, labels, and what separates items.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

class StatementRules {
public:
    StatementRules(const GapText& text, const Scheme& scheme, GapTable& gaps)
        : text_(text), scheme_(scheme), gaps_(gaps) {}

    // Sets the gaps of an item that are its own: its brackets and braces apart.
    void item(const Cpp::OutlineItem& item);

private:
    [[maybe_unused]] const GapText& text_;
    [[maybe_unused]] const Scheme& scheme_;
    [[maybe_unused]] GapTable& gaps_;
};

}  // namespace Brevis
