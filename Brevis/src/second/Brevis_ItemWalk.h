// The walk over the tokens that knows which item, body and bracket each of them stands in. It gives every gap the scope
// that indents it, and has the rules set the gaps of each construct.
#pragma once

#include <vector>

#include "second/Brevis_BodyRules.h"
#include "second/Brevis_ColonLists.h"
#include "second/Brevis_GapTable.h"
#include "second/Brevis_StatementRules.h"

namespace Brevis {

// The text, the scheme and the table must outlive the walk. The gaps inside of expressions and declarators are set
// before, since the indent of a list depends on where its lines begin.
class ItemWalk {
public:
    ItemWalk(const GapText& text, const Scheme& scheme, GapTable& gaps);

    void run();

private:
    using Scope = std::uint32_t;
    static constexpr Scope asIs = 0;  // that of every table, which moves nothing

    // What is open at a token.
    struct Frame {
        enum class Sort : std::uint8_t { File, Body, Item, Bracket };

        Sort sort = Sort::File;
        TokenIndex first = 0;
        TokenIndex last = 0;
        const Cpp::OutlineItem* item = nullptr;    // of an Item; of a Body its owner
        Scope own = 0;                             // the scope whose base the parts of it share
        Scope inner = 0;                           // of a line that begins inside of it
        Scope label = 0;                           // of a Body: the base of its last case label
        const Cpp::OutlineItem* before = nullptr;  // the part or the item of the body that has been opened last
        Scope lambda = 0;                          // the scope of the lambda introducer that has been read last
        TokenIndex element = 0;                    // the first token of the element at hand
        Scope elementScope = 0;                    // of its later lines, once there is one
        GapProperty close{};                       // of a Body: what puts its closing brace on a line
        ColonLists::List colonList{};              // of an Item
        Scope gotoLabel = 0;                       // of a Body: what its goto labels are measured from
        bool isHead = false;                       // of a function, in front of its name
        bool isList = false;                       // of elements, each with its own later lines
        bool isOneLine = false;                    // of a Body: the outermost one that stays on one line
        bool isBelowBracket = false;               // of a Body: its lines keep their distance to an open bracket
        bool isBehindLabels = false;               // of a Body: `before` is a macro that stands for labels
    };

    TokenIndex passQuiet(TokenIndex token);
    void openItems(TokenIndex token);
    void openItem(const Cpp::OutlineItem& item, bool isOutermost);
    Frame frameOf(const Cpp::OutlineItem& item, const Frame& parent);
    bool holdsLabel(const Frame& part) const;
    bool isTryOf(const Cpp::OutlineItem& item, const Frame& parent) const;
    bool standsForLabels(const Cpp::OutlineItem& item, const Frame& parent) const;
    bool endsInJump(const Cpp::OutlineItem& before) const;
    void indentItem(const Cpp::OutlineItem& item, const Frame& parent);
    bool isLabelMacro(const Cpp::OutlineItem& item, const Frame& body) const;
    bool isBehindTemplate(const Cpp::OutlineItem& item, const Frame& body) const;
    bool goesOnBehindEndif(const Cpp::OutlineItem& item, const Frame& part) const;
    GapProperty unbracedIndent() const;
    Scope scopeOfPart(const Cpp::OutlineItem& part, const Frame& statement);
    Scope scopeOfUnbraced(const Frame& holder);
    void indentHeadNotes(TokenIndex brace, Scope inner);
    void indentComments(TokenIndex token, Scope scope);
    void indentCommentsOfLabel(TokenIndex label, Scope scope, const Frame& body);
    void read(TokenIndex token);
    void readHead(TokenIndex token);
    void readSemicolon(TokenIndex token);
    void readBody(TokenIndex brace);
    Frame bodyFrame(TokenIndex brace, const BodyKeys& keys);
    bool isSwitch(const Frame& body) const;
    GapProperty indentOf(const BodyKeys& keys, const Frame& body) const;
    Scope baseInBracket(TokenIndex brace, const BodyKeys& keys, Scope own);
    bool staysInLine(TokenIndex token) const;
    TokenIndex bracketAbove(TokenIndex brace, const BodyKeys& keys) const;
    Scope baseOf(TokenIndex brace, const BodyKeys& keys, const Cpp::OutlineItem* owner);
    void indentOpen(TokenIndex brace, const BodyKeys& keys, const Frame& body);
    void readBracket(TokenIndex open);
    bool endsLine(TokenIndex token) const;
    void readClosing(TokenIndex close);
    void goOnBehind(TokenIndex close);
    void leaveParameters(TokenIndex close);
    bool mayStartLine(TokenIndex token) const;
    void beginElement(TokenIndex token);

    Scope anchored(TokenIndex anchor, IndentScope::Mode mode, GapRule rule);
    Scope sharing(Scope base, IndentScope::Mode mode, GapRule rule);
    // Indented by the property, or at a distance if it is unset.
    Scope indented(Scope base, GapProperty property);
    Scope continuation(TokenIndex anchor);
    Scope labelScope(const Cpp::OutlineItem& item, const Frame& body);
    // What the statements of a body stand on, as a base; `otherwise` if no value says so.
    Scope levelOf(const Frame& body, Scope otherwise);
    // Where a line begins that a set property puts there; else its distance stays.
    Scope below(Scope base, GapProperty property);
    Frame& top() { return frames_.back(); }

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    BodyRules bodies_;
    StatementRules statements_;
    ColonLists colonLists_;
    std::vector<Frame> frames_;
    std::size_t next_ = 0;   // the next item of the outline
    TokenIndex joined_ = 0;  // the end of the body at hand that stays on one line
    Scope fileScope_ = 0;
    Scope margin_ = 0;
};

}  // namespace Brevis
