// What the items of a text are and where their parts stand, item by item, for whoever works on tokens instead of nodes.
#pragma once

#include <cstdint>
#include <vector>

#include "Cpp_ItemShape.h"

namespace Cpp {

// An item is a declaration, a statement, a label, or a part of one that has a body of its own.
struct OutlineItem {
    enum class Sort : std::uint8_t {
        // As those of ItemShape
        Class,
        Enum,
        Function,
        Data,
        Macro,
        Head,  // with its block
        Loop,  // with its statement
        Statement,
        Unread,
        // Others
        Declarators,  // behind the `}` of a class or enum
        Namespace,
        Linkage,
        Using,
        Template,  // a head alone: what it belongs to follows as an item of its own
        Module,
        Assembler,
        AccessLabel,
        CaseLabel,
        GotoLabel,
        Empty,  // a lone `;`
        Block,
        Control,  // a control statement with all its parts
        Part,     // a keyword with its bracket and its body
    };

    Sort sort = Sort::Statement;
    Frame frame = Frame::File;
    TokenIndex first = 0;
    TokenIndex last = 0;  // of all, with body and `;`
    TokenIndex nameFirst = 0;
    TokenIndex nameLast = 0;     // of a Loop or Head its call
    TokenIndex open = 0;         // the bracket of parameters or of a condition; the `<` of a template head
    TokenIndex colon = 0;        // of a label; in front of member initializers or base clauses
    TokenIndex body = 0;         // the `{`, or the first token of a statement without braces
    TokenIndex initializer = 0;  // the `=`, `{`, `(` or `:` of data
};

// The items in order of their first tokens; what an item holds stands behind it.
class Outline {
public:
    using Sort = OutlineItem::Sort;

    const std::vector<OutlineItem>& items() const { return items_; }

    // For the parser. As a rule there are no more; a table that grows stands twice in memory for a while.
    void expect(std::size_t items) { items_.reserve(items); }
    // Gives the item's number.
    std::size_t open(Sort sort, TokenIndex first, Frame frame = Frame::File) {
        items_.push_back({.sort = sort, .frame = frame, .first = first, .last = first});
        return items_.size() - 1;
    }
    std::size_t open(const ItemShape& shape, Frame frame);
    OutlineItem& item(std::size_t number) { return items_[number]; }

private:
    std::vector<OutlineItem> items_;
};

}  // namespace Cpp
