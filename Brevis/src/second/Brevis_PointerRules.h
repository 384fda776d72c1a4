// The gaps round the signs of pointers and references: a run of signs keeps with the type in front of it or with the
// name behind it. Reads tokens, and of the source no more than whether a line begins at a name.
#pragma once

#include "second/Brevis_GapTable.h"

namespace Brevis {

// What stands round a declared name, as far as its signs must know.
struct DeclaredName {
    GapProperty behindType;       // unset: one blank
    bool isOneOfSeveral = false;  // declarators: then the signs keep with the names, for all of them to read alike
    bool keepsLines = false;      // a line end of the source stays
    bool isLeft = false;          // nothing is to be changed
};

class PointerRules {
public:
    PointerRules(const GapText& text, const Scheme& scheme, GapTable& gaps);

    // Whether a type, or the list of declarators behind it, stands in front of the sign, so that a run begins with it.
    bool beginsRun(TokenIndex sign) const;
    // The whole run: from its first sign to the name, if there is one. `name` tells of what stands behind the run.
    void run(TokenIndex first, const DeclaredName& name);
    // The first token behind the run that is neither a sign nor a qualifier.
    TokenIndex behindRun(TokenIndex first) const;

private:
    bool isSign(TokenIndex token) const;
    bool isQualifier(TokenIndex token) const;
    bool opensGroup(TokenIndex token) const;
    bool isName(TokenIndex token) const;
    void setInside(TokenIndex first, TokenIndex end, bool isWithName, GapProperty between);
    void setBehindType(TokenIndex token, const DeclaredName& name);
    void setAtName(TokenIndex first, TokenIndex name, GapProperty between, const DeclaredName& declared);

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
};

}  // namespace Brevis
