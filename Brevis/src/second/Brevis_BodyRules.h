// The gaps round the braces of bodies, and the indent of what they hold.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

// The properties of one sort of body.
struct BodyKeys {
    Cpp::Role role;
    GapProperty beforeOpen;
    GapProperty afterOpen;
    GapProperty indent;
    GapProperty beforeClose;
    bool Scheme::*keepsOneLine = nullptr;
};

class BodyRules {
public:
    BodyRules(const GapText& text, const Scheme& scheme, GapTable& gaps) : text_(text), scheme_(scheme), gaps_(gaps) {}

    // The keys for a brace; `owner` may be null. Null if nothing formats such a brace.
    const BodyKeys* keysOf(TokenIndex brace, const Cpp::OutlineItem* owner) const;
    // Sets the gaps of the two braces.
    void format(TokenIndex brace, const BodyKeys& keys);

private:
    bool staysOnOneLine(TokenIndex brace, const BodyKeys& keys) const;
    void formatEmpty(TokenIndex brace, const BodyKeys& keys);
    void setAtBrace(TokenIndex token, GapProperty property);

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
};

}  // namespace Brevis
