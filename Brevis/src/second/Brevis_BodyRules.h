// The gaps round the braces of bodies, and which property indents what they hold.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

// The properties of one sort of body. A property without a rule does nothing.
struct BodyKeys {
    Cpp::Role role;
    GapProperty beforeOpen;
    GapProperty afterOpen;
    GapProperty indent;
    GapProperty beforeClose;
    bool Scheme::*keepsOneLine = nullptr;
    bool goesByLabel = false;  // its columns are those of the label in front of it
    bool keepsBrace = false;   // the brace that opens stays on its line
};

class BodyRules {
public:
    BodyRules(const GapText& text, const Scheme& scheme, GapTable& gaps);

    // The keys for a brace; `owner` may be null. Null if nothing formats such a brace.
    const BodyKeys* keysOf(TokenIndex brace, const Cpp::OutlineItem* owner) const;
    // Sets the gaps of the two braces. True if no line may begin inside, since the body stays on one line.
    bool format(TokenIndex brace, const BodyKeys& keys, const Cpp::OutlineItem* owner);
    // Takes back every line feed that the source does not have, inside of a body that stays on one line.
    void joinLines(TokenIndex brace);

private:
    void findLinkageKeys();
    void findCaseKeys();
    void findBlockKeys();
    const BodyKeys* keysOfBlock(TokenIndex brace, const Cpp::OutlineItem* owner) const;
    bool staysOnOneLine(TokenIndex brace, const BodyKeys& keys) const;
    void formatOpen(TokenIndex brace, const BodyKeys& keys, bool stays);
    bool keepsBlankLines(const BodyKeys& keys) const;
    void formatFirst(TokenIndex token, const BodyKeys& keys);
    void formatShared(TokenIndex brace, const BodyKeys& keys);
    void formatEmpty(TokenIndex close, const BodyKeys& keys);
    bool holdsNamespace(TokenIndex brace) const;
    bool sharesLine(TokenIndex brace, const Cpp::OutlineItem* owner) const;

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    BodyKeys linkage_;
    BodyKeys case_;
    BodyKeys block_;
    bool hasCaseKeys_ = false;
};

}  // namespace Brevis
