// What a sign, an operator or a bracket is to the text around it. Words, literals, comments and directives have no
// role.
#pragma once

#include <cstdint>
#include <string_view>

namespace Cpp {

// Both brackets of a pair have the same role.
enum class Role : std::uint8_t {
    None,

    // ---- Operators
    Prefix,
    Postfix,
    Binary,
    Comparison,
    Assignment,
    Member,  // `.` and `->`
    Question,
    TernaryColon,
    CommaOperator,

    // ---- Signs of declarations
    Pointer,         // `*` and `^`, that of a pointer to a member as well
    Reference,       // `&` and `&&`
    RefQualifier,    // the same behind parameters
    Pack,            // the `...` of a pack, of its expansion or of variadic parameters
    Initializer,     // the `=` in front of a value, a default argument, `default` or the type of an alias
    TrailingReturn,  // `->`
    Destructor,      // a `~` that stands apart from its name
    OperatorName,    // what an `operator` overloads
    CaseRange,       // `...`

    // ---- Colons
    LabelColon,
    CaseColon,
    AccessColon,
    BitFieldColon,
    BaseColon,
    MemberInitializerColon,
    EnumBaseColon,
    RangeColon,  // in the head of a `for`
    AsmColon,

    // ---- Commas and semicolons
    ArgumentComma,
    ParameterComma,
    TemplateComma,  // of parameters and of arguments
    DeclaratorComma,
    ElementComma,  // in a braced list
    EnumeratorComma,
    BaseComma,
    MemberInitializerComma,
    CaptureComma,
    BindingComma,
    AttributeComma,
    StatementEnd,
    ForSemicolon,

    // ---- Brackets
    Group,
    Call,
    Cast,
    NamedCastType,     // the `< >` of `static_cast` and its kin
    NamedCastOperand,  // and the bracket behind them
    Condition,         // the head of a control statement
    Parameters,
    DeclaratorGroup,    // `(*name)`
    Construction,       // of data, behind its name
    MemberInitializer,  // of either form
    TypeOperand,        // of `sizeof`, `typeid`, `decltype` and their kin
    Specifier,          // of `noexcept`, `alignas`, `__attribute__` and their kin
    Placement,          // behind `new`
    Subscript,
    ArrayBound,
    ArrayDelete,
    LambdaIntroducer,
    CaptureDefault,  // `&` or `=` in one
    Attribute,
    StructuredBinding,
    Designator,  // `[ ]`, or a `.` or a `:`
    TemplateArguments,
    TemplateParameters,
    BracedInitializer,

    // ---- Braces of bodies
    Body,  // of a control statement, a block or a statement expression
    FunctionBody,
    LambdaBody,
    RequiresBody,
    ClassBody,
    EnumBody,
    NamespaceBody,
    LinkageBody,
};

constexpr bool isBody(Role role) { return role >= Role::Body && role <= Role::LinkageBody; }
constexpr bool isPointerSign(Role role) { return role == Role::Pointer || role == Role::Reference; }

// As `corvane-inspect` and the tests write it.
std::string_view nameOf(Role role);

}  // namespace Cpp
