// The tag by which a node tells its class, so that nobody needs a dynamic_cast.
#pragma once

#include <cstdint>

namespace Cpp {

// One for each class that can be created.
enum class NodeKind : std::uint8_t {
    // Leaves
    Text,
    Comment,
    PreprocDirective,
    Id,
    Keyword,
    AccessSpec,
    BaseClause,
    ClassName,
    EnumHead,
    NamespaceHead,
    Expr,
    Arg,
    Parameter,
    Type,
    FunctionReturn,
    // Lists
    Root,
    ClassBody,
    EnumBody,
    NamespaceBody,
    LinkageBlockBody,
    Block,
    ArgList,
    ParameterList,
    BaseClauseList,
    InitializerList,
    CtrlStmt,
    // Nodes with single members
    ClassHead,
    ClassDecl,
    EnumDecl,
    NamespaceDecl,
    LinkageBlock,
    Template,
    FunctionHead,
    FunctionDecl,
    CtorDecl,
    Initializer,
    FunctionPtrDecl,
    DataDecl,
    CtrlSubStmtHead,
    CtrlSubStmt,
    Case,
    Label,
    Asm,
    // Of the modern dialect alone
    Verbatim,
};

}  // namespace Cpp
