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

    // What is open at a token.
    struct Frame {
        enum class Sort : std::uint8_t { File, Body, Item, Bracket };

        Sort sort = Sort::File;
        TokenIndex first = 0;
        TokenIndex last = 0;
        const Cpp::OutlineItem* item = nullptr;  // of an Item; of a Body its owner
        Scope own = 0;                           // the scope whose base the parts of it share
        Scope inner = 0;                         // of a line that begins inside of it
        Scope label = 0;                         // of a Body: of its labels
        Scope lambda = 0;                        // the scope of the lambda introducer that has been read last
        Scope element = 0;                       // of the later lines of an element
        bool isList = false;                     // of elements, each with its own later lines
        ColonLists::List colonList{};            // of an Item
    };

    void openItems(TokenIndex token);
    void openItem(const Cpp::OutlineItem& item, bool isOutermost);
    void indentItem(const Cpp::OutlineItem& item, const Frame& parent);
    void indentTrivia(TokenIndex token, Scope scope);
    void read(TokenIndex token);
    void readDeclarator(TokenIndex token);
    void readBody(TokenIndex brace);
    void readBracket(TokenIndex open);
    bool endsLine(TokenIndex token) const;
    void readClosing(TokenIndex close);
    void beginElement(TokenIndex token);

    Scope anchored(TokenIndex anchor, IndentScope::Mode mode, GapRule rule);
    Scope sharing(Scope base, IndentScope::Mode mode, GapRule rule);
    // Indented by the property, or at a distance if it is unset.
    Scope indented(Scope base, GapProperty property);
    Scope continuation(TokenIndex anchor);
    Scope labelScope(const Cpp::OutlineItem& item, const Frame& body);
    const Frame& bodyFrame() const;
    Frame& top() { return frames_.back(); }

    const GapText& text_;
    const Scheme& scheme_;
    GapTable& gaps_;
    BodyRules bodies_;
    StatementRules statements_;
    ColonLists colonLists_;
    std::vector<Frame> frames_;
    std::size_t next_ = 0;  // the next item of the outline
    Scope fileScope_ = 0;
    Scope asIs_ = 0;
    Scope margin_ = 0;
};

}  // namespace Brevis
