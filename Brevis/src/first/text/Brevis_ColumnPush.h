// A scope on the stack of output columns that a pass keeps for the enclosing constructs.
#pragma once

#include <vector>

namespace Brevis {

// Pushes a column for the extent of a scope and pops the top at its end, whatever pushed that.
class ColumnPush {
public:
    ColumnPush(std::vector<int>& stack, int column) : stack_(stack) { stack_.push_back(column); }
    ~ColumnPush() { stack_.pop_back(); }
    ColumnPush(const ColumnPush&) = delete;
    ColumnPush& operator=(const ColumnPush&) = delete;

private:
    std::vector<int>& stack_;
};

}  // namespace Brevis
