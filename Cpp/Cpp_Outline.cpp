// From the shape of an item to its place in the outline.
#include "Cpp_Outline.h"

namespace Cpp {

static_assert(static_cast<int>(OutlineItem::Sort::Unread) == static_cast<int>(ItemShape::Sort::Unread));

std::size_t Outline::open(const ItemShape& shape, Frame frame) {
    const std::size_t number = open(static_cast<Sort>(shape.sort), shape.first, frame);
    OutlineItem& item = items_[number];
    item.last = shape.last;
    item.nameFirst = shape.nameFirst;
    item.nameLast = shape.nameLast;
    item.open = shape.open;
    item.colon = shape.colon;
    item.body = shape.body;
    item.initializer = shape.initializer;
    return number;
}

}  // namespace Cpp
