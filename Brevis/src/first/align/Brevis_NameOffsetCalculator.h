// The pass that finds the columns of the names of data and function declarations. It only reads the tree.
#pragma once

#include <string>

#include "first/align/Brevis_OffsetCalculator.h"

namespace Brevis {

class NameOffsetCalculator : public OffsetCalculator {
public:
    explicit NameOffsetCalculator(const Scheme& scheme);

    // Complete once a root has accepted the calculator.
    const ColumnTable& dataNameColumns() const { return dataNameColumns_; }
    const ColumnTable& functionNameColumns() const { return functionNameColumns_; }

    using OffsetCalculator::visit;
    void visit(Cpp::ClassBodyNode& node) override;
    // All members of one class body fall into one group.
    void visit(Cpp::AccessSpecNode&) override {}
    void visit(Cpp::DataDeclNode& node) override;
    void visit(Cpp::FunctionDeclNode& node) override;
    void visit(Cpp::CtorDeclNode& node) override;

protected:
    void endGroup() override;

private:
    using Group = std::vector<const Cpp::SyntaxNode*>;

    // How the scheme places one of the two pointer signs.
    struct SignStyle {
        char mark;
        int anchor;  // 0 with the type, 1 with the name
        int gap;     // the columns between the sign and what it is kept away from, -1 where the scheme is silent
        bool hanging;
    };

    int signGap(int anchor, const WsProperty& gap) const;
    // The sign at the end of a type, or null.
    const SignStyle* trailingSign(std::string_view type) const;

    // The columns from `start` to the end of the type, or to where the scheme will put its end.
    int measureTypeWidth(Cpp::Position start, const Cpp::TypeNode& type) const;
    int typeAnchoredWidth(Cpp::Position start, const Cpp::TypeNode& type, const SignStyle& sign) const;
    // Adds `node` to the group, `width` growing to its type. False, without doing so, for a type that can't be
    // measured.
    bool joinGroup(const Cpp::SyntaxNode& node, Cpp::Position start, const Cpp::TypeNode& type, Group& group,
                   int& width) const;
    bool joinDeclaration(const Cpp::FunctionDeclNode& node);
    static void settle(Group& group, ColumnTable& columns, int column);

    // Configuration
    bool alignClassMembers_;
    bool alignFunctions_;
    bool alignData_;
    SignStyle asterisk_;
    SignStyle ampersand_;
    // Where the walk is
    bool inClass_ = false;
    bool classJustEnded_ = false;
    // The open group
    Group pendingData_;
    Group pendingFunctions_;
    int dataWidth_ = 0;
    int functionWidth_ = 0;
    // Results
    ColumnTable dataNameColumns_;
    ColumnTable functionNameColumns_;
};

}  // namespace Brevis
