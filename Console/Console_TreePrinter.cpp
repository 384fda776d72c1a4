// The printing pass. A line is the same for all classes but for the attributes that some of them have.
#include "Console_TreePrinter.h"

#include <string_view>

#include "Cpp_EachVisit.h"
#include "Trn_Escapes.h"

namespace Console {

namespace {

using namespace Cpp;

// In the order of NodeKind.
constexpr std::string_view classNames[] = {
    "TextNode",
    "CommentNode",
    "PreprocDirectiveNode",
    "IdNode",
    "KeywordNode",
    "AccessSpecNode",
    "BaseClauseNode",
    "ClassNameNode",
    "EnumHeadNode",
    "NamespaceHeadNode",
    "ExprNode",
    "ArgNode",
    "ParameterNode",
    "TypeNode",
    "FunctionReturnNode",
    "RootNode",
    "ClassBodyNode",
    "EnumBodyNode",
    "NamespaceBodyNode",
    "LinkageBlockBodyNode",
    "BlockNode",
    "ArgListNode",
    "ParameterListNode",
    "BaseClauseListNode",
    "InitializerListNode",
    "CtrlStmtNode",
    "ClassHeadNode",
    "ClassDeclNode",
    "EnumDeclNode",
    "NamespaceDeclNode",
    "LinkageBlockNode",
    "TemplateNode",
    "FunctionHeadNode",
    "FunctionDeclNode",
    "CtorDeclNode",
    "InitializerNode",
    "FunctionPtrDeclNode",
    "DataDeclNode",
    "CtrlSubStmtHeadNode",
    "CtrlSubStmtNode",
    "CaseNode",
    "LabelNode",
    "AsmNode",
    "VerbatimNode",
};
static_assert(std::size(classNames) == static_cast<std::size_t>(NodeKind::Verbatim) + 1);

class TreePrinter : public EachVisit<TreePrinter> {
public:
    std::string takeText() { return std::move(out_); }

    template <class Node>
    void each(Node& node) {
        startLine(node);
        attributes(node);
        if constexpr (std::is_base_of_v<TextLeafNode, Node>) text(node.text);
        out_ += '\n';
        ++level_;
        parts(node);
        --level_;
    }
    void each(SyntaxNode& node) {
        if (is<ArgNode>(node)) return each(static_cast<ArgNode&>(node));
        each(static_cast<ArgListNode&>(node));
    }

private:
    void startLine(const SyntaxNode& node) {
        out_.append(static_cast<std::size_t>(level_) * 2, ' ');
        out_.append(classNames[static_cast<std::size_t>(node.nodeKind())]);
        out_.append(" ").append(printPosition(node.firstPosition()));
        out_.append("-").append(printPosition(node.lastPosition()));
    }

    // What a class holds besides.
    template <class Node>
    void attributes(const Node& node) {
        if constexpr (requires { node.colonPosition; }) attribute("colon", printPosition(node.colonPosition));
        if constexpr (requires { node.endPosition; }) {
            if (node.endPosition.isSet()) attribute("end", printPosition(node.endPosition));
        }
    }
    void attributes(const AsmNode& node) { attribute("form", std::to_string(node.asmForm)); }
    void attributes(const KeywordNode& node) { attribute("kind", std::to_string(node.kind())); }
    void attributes(const AccessSpecNode& node) { attribute("access", std::to_string(node.accessKind)); }
    void attributes(const ClassNameNode& node) { attribute("key", std::to_string(node.classKey)); }
    void attributes(const CommentNode& node) {
        if (node.verbatim) out_ += " verbatim";
    }
    void attributes(const VerbatimNode& node) {
        if (node.isUnread) out_ += " unread";
    }
    void attributes(const BaseClauseNode& node) {
        attribute("access", std::to_string(node.accessKind));
        if (node.isVirtual) out_ += " virtual";
    }
    void attribute(std::string_view name, std::string_view value) {
        out_.append(" ").append(name).append("=").append(value);
    }
    void text(std::string_view value) { out_.append(" \"").append(Trn::escape(value)).append("\""); }

    template <class Node>
    void parts(Node& node) {
        if constexpr (HasMembers<Node>) forEachMember(node, [this](auto& member) { print(member.get()); });
        if constexpr (std::is_base_of_v<InteriorNode, Node>) {
            for (const auto& child : node) print(child.get());
        }
    }
    // A constructor's initializers come last.
    void parts(CtorDeclNode& node) {
        parts<FunctionDeclNode>(node);
        print(node.initializers.get());
    }
    void print(SyntaxNode* node) {
        if (node) node->accept(*this);
    }

    std::string out_;
    int level_ = 0;
};

}  // namespace

std::string printTree(Cpp::RootNode& root) {
    TreePrinter printer;
    root.accept(printer);
    return printer.takeText();
}

std::string printPosition(Trn::Position position) {
    return std::to_string(position.line) + ':' + std::to_string(position.column);
}

}  // namespace Console
