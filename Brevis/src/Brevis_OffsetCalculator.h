// The pass that divides declarations into alignment groups. It only reads the tree.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "Brevis_FormatterProperties.h"
#include "Cpp_Nodes.h"

namespace Brevis {

// Output columns relative to the indent, keyed by node; the tables live no longer than the tree.
using ColumnTable = std::unordered_map<const Cpp::SyntaxNode*, std::int32_t>;

class OffsetCalculator : public Cpp::Emitter {
public:
    explicit OffsetCalculator(const PropertySet& properties);

protected:
    // Gives the members of the open group their column and opens a new one.
    virtual void endGroup() = 0;
};

}  // namespace Brevis
