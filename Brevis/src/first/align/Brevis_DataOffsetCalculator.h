// The pass that finds the column of the initializers of data declarations. It only reads the tree.
#pragma once

#include "first/align/Brevis_OffsetCalculator.h"

namespace Brevis {

class DataOffsetCalculator : public OffsetCalculator {
public:
    explicit DataOffsetCalculator(const Scheme& scheme)
        : OffsetCalculator(scheme), alignNames_(scheme.alignDdNamesLeft) {}

    // Complete once a root has accepted the calculator.
    const ColumnTable& initializerColumns() const { return columns_; }

    using OffsetCalculator::visit;
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;

protected:
    void endGroup() override;

private:
    int widthOf(const Cpp::DataDeclNode& node) const;
    void visitFunction(Cpp::FunctionDeclNode& node);

    // Configuration
    bool alignNames_;
    // The open group
    std::vector<const Cpp::SyntaxNode*> pending_;
    int maxWidth_ = 0;
    // Result
    ColumnTable columns_;
};

}  // namespace Brevis
