// The names of the roles.
#include "Cpp_Role.h"

#include <iterator>

namespace Cpp {

namespace {

constexpr std::string_view names[] = {
    "none",
    "prefix",
    "postfix",
    "binary",
    "comparison",
    "assignment",
    "member",
    "question",
    "ternary colon",
    "comma operator",
    "pointer",
    "reference",
    "ref qualifier",
    "pack",
    "initializer",
    "trailing return",
    "destructor",
    "operator name",
    "case range",
    "label colon",
    "case colon",
    "access colon",
    "bit field colon",
    "base colon",
    "member initializer colon",
    "enum base colon",
    "range colon",
    "asm colon",
    "argument comma",
    "parameter comma",
    "template comma",
    "declarator comma",
    "element comma",
    "enumerator comma",
    "base comma",
    "member initializer comma",
    "capture comma",
    "binding comma",
    "attribute comma",
    "statement end",
    "for semicolon",
    "group",
    "call",
    "cast",
    "named cast type",
    "named cast operand",
    "condition",
    "parameters",
    "declarator group",
    "construction",
    "member initializer",
    "type operand",
    "specifier",
    "placement",
    "subscript",
    "array bound",
    "array delete",
    "lambda introducer",
    "capture default",
    "attribute",
    "structured binding",
    "designator",
    "template arguments",
    "template parameters",
    "braced initializer",
    "body",
    "function body",
    "lambda body",
    "requires body",
    "class body",
    "enum body",
    "namespace body",
    "linkage body",
};
static_assert(std::size(names) == static_cast<std::size_t>(Role::LinkageBody) + 1);

}  // namespace

std::string_view nameOf(Role role) { return names[static_cast<std::size_t>(role)]; }

}  // namespace Cpp
