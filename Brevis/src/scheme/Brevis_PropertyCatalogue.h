// The vocabulary of a scheme: every key that a PropertySet may hold, with its type, its page default and the member of
// Scheme that it fills. One table feeds the reading of a scheme, the tests, the reference page and the scheme editor;
// nothing else binds a key to what it means.
#pragma once

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>
#include <variant>

#include "scheme/Brevis_Scheme.h"

namespace Brevis {

// The program version that stands in the schemes of this program under CORVANE_VERSION.
inline constexpr std::string_view schemeVersion = "1.2.1";

enum class PropertyType {
    WhiteSpace,  // a string of blanks, tabs and line feeds; empty removes the white space, absent leaves it alone
    Indent,      // a string of blanks or of tabs
    Flag,        // a boolean
    Number,      // an integer
    Choice,      // an integer of `choices`
    Text,        // a string without a rule
    Names,       // a string of names, separated by blanks
};

enum class PropertyPage {
    None,  // no page shows the key, it can only come from a file
    Globals,
    Classes,
    Functions,
    Data,
    Enums,
    Namespaces,
    ControlStatements,
    Expressions,
    MemberInits,
    Templates,
    PointersRefs,
    Preprocessor,
    LineWrapping,
};

// Why the engine does not use a key.
enum class Unused {
    EditorOnly,  // state of a page, or a value that an editor copies into other keys
    Version,     // which program wrote the scheme
};

// What the engine does with a key: fill a member of Scheme, or nothing.
using SchemeField = std::variant<Unused, WsProperty Scheme::*, bool Scheme::*, std::optional<bool> Scheme::*,
                                 std::int32_t Scheme::*, std::string Scheme::*>;

// A value of a Choice. The label is that of its radio button, empty where none is selected.
struct ChoiceValue {
    std::int32_t value;
    std::string_view label;
};

// What a key means to its page, beside holding a value of the scheme.
enum class PropertyRole {
    Value,
    UseGlobal,    // the page takes the values with a twin from the global settings
    DoNotFormat,  // the page is switched off: a scheme that says so has none of its values
    Edition,      // which edition of the rules the scheme is for
};

// True while another property of the same page, a Flag or a Choice, has a value from `least` to `most`.
struct PropertyCondition {
    std::string_view key;
    std::int32_t least;
    std::int32_t most;
};

// The label of a control while another property of the same page has a value.
struct PropertyLabel {
    std::string_view key;
    std::int32_t value;
    std::string_view label;
};

// The page default is what the editor puts in place when it loads a scheme without the key. The defaults of the engine
// are others (Brevis_Scheme.h).
struct PropertyInfo {
    std::string_view key;
    PropertyType type;
    PropertyPage page;
    SchemeField field;
    std::string_view label;        // of the control on the page, "&&" showing one "&"; empty for a key without one
    std::int32_t defaultNumber;    // of a Flag (0 or 1), Number or Choice
    std::string_view defaultText;  // of the other types
    std::span<const ChoiceValue> choices;

    // What only the page needs to know.
    PropertyRole role = PropertyRole::Value;
    std::string_view group = "";                         // the label of the controls that it stands among
    std::string_view globalTwin = "";                    // the key of the global settings whose value it can take
    std::span<const PropertyCondition> conditions = {};  // the control can be used while all of them are true
    bool isClearedWhenOff = false;                       // a Flag that turns false while a condition isn't true
    std::span<const PropertyLabel> labels = {};          // in the place of `label`; the last one that held stays

    // The edition of the rules that the key came with. A key of the second one means nothing to the first, and a scheme
    // lacks it until a user gives it a value: no default fills it in.
    std::int32_t edition = 1;

    constexpr PropertyInfo as(PropertyRole newRole) const {
        PropertyInfo row = *this;
        row.role = newRole;
        return row;
    }
    constexpr PropertyInfo in(std::string_view newGroup) const {
        PropertyInfo row = *this;
        row.group = newGroup;
        return row;
    }
    constexpr PropertyInfo twinOf(std::string_view key) const {
        PropertyInfo row = *this;
        row.globalTwin = key;
        return row;
    }
    constexpr PropertyInfo when(std::span<const PropertyCondition> newConditions) const {
        PropertyInfo row = *this;
        row.conditions = newConditions;
        return row;
    }
    constexpr PropertyInfo clearedUnless(std::span<const PropertyCondition> newConditions) const {
        PropertyInfo row = when(newConditions);
        row.isClearedWhenOff = true;
        return row;
    }
    constexpr PropertyInfo ofEdition(std::int32_t newEdition) const {
        PropertyInfo row = *this;
        row.edition = newEdition;
        return row;
    }
    constexpr PropertyInfo labelled(std::span<const PropertyLabel> newLabels) const {
        PropertyInfo row = *this;
        row.labels = newLabels;
        return row;
    }
};

namespace Catalogue {

using Page = PropertyPage;
using Role = PropertyRole;

constexpr PropertyInfo whiteSpace(std::string_view key, Page page, SchemeField field, std::string_view label = "",
                                  std::string_view text = "") {
    return PropertyInfo{key, PropertyType::WhiteSpace, page, field, label, 0, text, {}}.in("White space");
}

constexpr PropertyInfo indent(std::string_view key, Page page, SchemeField field, std::string_view label) {
    return PropertyInfo{key, PropertyType::Indent, page, field, label, 0, "", {}}.in("Indent");
}

constexpr PropertyInfo flag(std::string_view key, Page page, SchemeField field, std::string_view label = "",
                            bool value = false) {
    return {key, PropertyType::Flag, page, field, label, value ? 1 : 0, "", {}};
}

constexpr PropertyInfo number(std::string_view key, Page page, SchemeField field, std::string_view label,
                              std::int32_t value) {
    return {key, PropertyType::Number, page, field, label, value, "", {}};
}

constexpr PropertyInfo choice(std::string_view key, Page page, SchemeField field, std::string_view label,
                              std::int32_t value, std::span<const ChoiceValue> choices) {
    return PropertyInfo{key, PropertyType::Choice, page, field, label, value, "", choices}.in(label);
}

constexpr PropertyInfo names(std::string_view key, Page page, SchemeField field, std::string_view label = "") {
    return PropertyInfo{key, PropertyType::Names, page, field, label, 0, "", {}}.in("Macros");
}

inline constexpr ChoiceValue editionValues[] = {{1, "First edition"}, {2, "Second edition"}};
inline constexpr ChoiceValue convertValues[] = {{0, "do not convert"}, {1, "tabs to spaces"}, {2, "spaces to tabs"}};
inline constexpr ChoiceValue anchorValues[] = {{-1, ""}, {0, "Typename"}, {1, "Identifier"}};
inline constexpr ChoiceValue wrapStyleValues[] = {{0, ""}, {1, "Align logically with previous line"}, {2, "Indent by"}};
inline constexpr ChoiceValue exprWrapStyleValues[] = {{1, "Before an operator"}, {2, "After an operator"}};
inline constexpr ChoiceValue shiftWrapStyleValues[] = {{1, "Before the shift operator"},
                                                       {2, "After the shift operator"}};
inline constexpr ChoiceValue commaWrapStyleValues[] = {{1, "Before the comma"}, {2, "After the comma"}};
inline constexpr ChoiceValue listWrapStrategyValues[] = {
    {0, ""}, {1, "Fit as many elements as possible on a single line"}, {2, "Put each element on a separate line"}};

// Page by page in the order of the controls.
// Conditions and labels of controls that depend on others.
inline constexpr PropertyCondition asteriskAnchored[] = {{"ASTERISK_ANCHOR", 0, 1}};
inline constexpr PropertyCondition asteriskAtIdentifier[] = {{"ASTERISK_ANCHOR", 1, 1}};
inline constexpr PropertyCondition ampersandAnchored[] = {{"AMPERSAND_ANCHOR", 0, 1}};
inline constexpr PropertyCondition ampersandAtIdentifier[] = {{"AMPERSAND_ANCHOR", 1, 1}};
inline constexpr PropertyCondition wraps[] = {{"LINE_WRAP", 1, 1}};
inline constexpr PropertyCondition wrapIndents[] = {{"LINE_WRAP", 1, 1}, {"WRAP_STYLE", 2, 2}};
inline constexpr PropertyLabel asteriskLabels[] = {{"ASTERISK_ANCHOR", 0, "White space between Type and * :"},
                                                   {"ASTERISK_ANCHOR", 1, "White space between * and Identifier:"}};
inline constexpr PropertyLabel ampersandLabels[] = {{"AMPERSAND_ANCHOR", 0, "White space between Type and && :"},
                                                    {"AMPERSAND_ANCHOR", 1, "White space between && and Identifier:"}};

inline constexpr std::string_view asteriskGroup = "Keep * with:", ampersandGroup = "Keep && with:",
                                  continuationGroup = "Treatment of line continuation";
// Groups of the controls for functions, whose labels would not tell them apart.
inline constexpr std::string_view declarations = "Declarations only", bothOfThem = "Declarations and definitions",
                                  definitions = "Definitions only";
inline constexpr std::string_view lambdas = "Lambdas", sourceLineEnds = "Line ends of the source";

inline constexpr PropertyInfo properties[] = {
    {"CORVANE_VERSION", PropertyType::Text, Page::None, Unused::Version, "", 0, schemeVersion, {}},

    // Global Settings.
    choice("EDITION", Page::Globals, &Scheme::edition, "Edition of the rules", 1, editionValues)
        .as(Role::Edition)
        .ofEdition(2),
    number("TAB_SIZE", Page::Globals, &Scheme::tabSize, "Tab size:", 4),
    choice("CONVERT_WS", Page::Globals, &Scheme::convertWs, "Convert", 1, convertValues),
    indent("LEFT_MARGIN", Page::Globals, &Scheme::leftMargin, "Left margin:"),
    indent("GLOBAL_INDENT_CONTENT", Page::Globals, &Scheme::globalIndentContent, "Body:"),
    whiteSpace("GLOBAL_WS_AFTER_OPEN_PAREN", Page::Globals, Unused::EditorOnly, "After open paren:"),
    whiteSpace("GLOBAL_WS_BEFORE_CLOSE_PAREN", Page::Globals, Unused::EditorOnly, "Before close paren:"),
    whiteSpace("GLOBAL_WS_BEFORE_OPEN_BRACE", Page::Globals, &Scheme::globalWsBeforeOpenBrace, "Before body open:"),
    whiteSpace("GLOBAL_WS_AFTER_OPEN_BRACE", Page::Globals, &Scheme::globalWsAfterOpenBrace, "After body open:"),
    whiteSpace("GLOBAL_WS_BEFORE_CLOSE_BRACE", Page::Globals, &Scheme::globalWsBeforeCloseBrace, "Before body close:"),
    whiteSpace("GLOBAL_WS_BEFORE_COMMA", Page::Globals, Unused::EditorOnly, "Before comma:"),
    flag("GLOBALS_DO_NOT_FORMAT", Page::Globals, Unused::EditorOnly).as(Role::DoNotFormat),

    // Classes, Structs and Unions.
    flag("CLASS_USE_GLOBAL_SETTINGS", Page::Classes, Unused::EditorOnly, "Use global settings").as(Role::UseGlobal),
    flag("CLASS_DO_NOT_FORMAT", Page::Classes, Unused::EditorOnly, "Do not format Classes, Structs or Unions")
        .as(Role::DoNotFormat),
    indent("INDENT_CLASS_CONTENT", Page::Classes, &Scheme::indentClassContent, "Body:").twinOf("GLOBAL_INDENT_CONTENT"),
    indent("INDENT_ACCESS_SPEC_LABEL", Page::Classes, &Scheme::indentAccessSpecLabel, "Access specifier:"),
    whiteSpace("WS_BEFORE_CLASS_OPEN_BRACE", Page::Classes, &Scheme::wsBeforeClassOpenBrace, "Before body open:")
        .twinOf("GLOBAL_WS_BEFORE_OPEN_BRACE"),
    whiteSpace("WS_AFTER_CLASS_OPEN_BRACE", Page::Classes, &Scheme::wsAfterClassOpenBrace, "After body open:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_BRACE"),
    whiteSpace("WS_BEFORE_CLASS_CLOSE_BRACE", Page::Classes, &Scheme::wsBeforeClassCloseBrace, "Before body close:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_BRACE"),
    whiteSpace("WS_AFTER_CLASS_NAME", Page::Classes, &Scheme::wsAfterClassName, "Before base clause open:"),
    whiteSpace("WS_BEFORE_BASE_CLAUSES", Page::Classes, &Scheme::wsBeforeBaseClauses, "After base clause open:"),
    whiteSpace("WS_BEFORE_BASE_CLAUSES_COMMA", Page::Classes, &Scheme::wsBeforeBaseClausesComma,
               "Before base clause comma:")
        .twinOf("GLOBAL_WS_BEFORE_COMMA"),
    whiteSpace("WS_BETWEEN_BASE_CLAUSES", Page::Classes, &Scheme::wsBetweenBaseClauses, "Between base clauses:"),
    flag("ALIGN_CLASS_MEMBER_NAMES_LEFT", Page::Classes, &Scheme::alignClassMemberNamesLeft,
         "Align class member names left"),

    // Functions.
    flag("FN_USE_GLOBAL_SETTINGS", Page::Functions, Unused::EditorOnly, "Use global settings").as(Role::UseGlobal),
    flag("FN_DO_NOT_FORMAT", Page::Functions, &Scheme::fnDoNotFormat, "Do not format Functions").as(Role::DoNotFormat),
    indent("INDENT_FN_CONTENT", Page::Functions, &Scheme::indentFnContent, "Body:").twinOf("GLOBAL_INDENT_CONTENT"),
    whiteSpace("WS_AFTER_FN_DECL_RETURN_TYPE", Page::Functions, &Scheme::wsAfterFnDeclReturnType,
               "After type name:", " ")
        .in(declarations),
    whiteSpace("WS_AFTER_FN_NAME", Page::Functions, &Scheme::wsAfterFnName, "After function name:").in(bothOfThem),
    whiteSpace("WS_AFTER_FN_OPEN_PAREN", Page::Functions, &Scheme::wsAfterFnOpenParen, "After open paren:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_PAREN")
        .in(bothOfThem),
    whiteSpace("WS_BEFORE_FN_CLOSE_PAREN", Page::Functions, &Scheme::wsBeforeFnCloseParen, "Before close paren:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_PAREN")
        .in(bothOfThem),
    whiteSpace("WS_BEFORE_FN_COMMA", Page::Functions, &Scheme::wsBeforeFnComma, "Before comma:")
        .twinOf("GLOBAL_WS_BEFORE_COMMA")
        .in(bothOfThem),
    whiteSpace("WS_BETWEEN_FN_PARAMS", Page::Functions, &Scheme::wsBetweenFnParams, "Between parameters:")
        .in(bothOfThem),
    whiteSpace("WS_AFTER_FN_DEFN_RETURN_TYPE", Page::Functions, &Scheme::wsAfterFnDefnReturnType,
               "After type name:", " ")
        .in(definitions),
    whiteSpace("WS_BEFORE_FN_OPEN_BRACE", Page::Functions, &Scheme::wsBeforeFnOpenBrace, "Before body open:")
        .twinOf("GLOBAL_WS_BEFORE_OPEN_BRACE")
        .in(definitions),
    whiteSpace("WS_AFTER_FN_OPEN_BRACE", Page::Functions, &Scheme::wsAfterFnOpenBrace, "After body open:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_BRACE")
        .in(definitions),
    whiteSpace("WS_BEFORE_FN_CLOSE_BRACE", Page::Functions, &Scheme::wsBeforeFnCloseBrace, "Before body close:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_BRACE")
        .in(definitions),
    flag("ALIGN_FN_DECL_NAMES_LEFT", Page::Functions, &Scheme::alignFnDeclNamesLeft,
         "Left align function names in groups of function declarations")
        .in(declarations),

    // Variable Declarations.
    flag("DATA_USE_GLOBAL_SETTINGS", Page::Data, Unused::EditorOnly, "Use global settings").as(Role::UseGlobal),
    flag("DATA_DO_NOT_FORMAT", Page::Data, &Scheme::dataDoNotFormat, "Do not format Variable Declarations")
        .as(Role::DoNotFormat),
    indent("INDENT_DD_CONTENT", Page::Data, &Scheme::indentDdContent, "Body:").twinOf("GLOBAL_INDENT_CONTENT"),
    whiteSpace("WS_AFTER_DD_TYPE_ID", Page::Data, &Scheme::wsAfterDdTypeId, "After typename:", " "),
    whiteSpace("WS_BEFORE_DD_OPEN_BRACE", Page::Data, &Scheme::wsBeforeDdOpenBrace, "Before init body open:")
        .twinOf("GLOBAL_WS_BEFORE_OPEN_BRACE"),
    whiteSpace("WS_AFTER_DD_OPEN_BRACE", Page::Data, &Scheme::wsAfterDdOpenBrace, "After init body open:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_BRACE"),
    whiteSpace("WS_BEFORE_DD_CLOSE_BRACE", Page::Data, &Scheme::wsBeforeDdCloseBrace, "Before init body close:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_BRACE"),
    whiteSpace("WS_BEFORE_DD_COMMA", Page::Data, &Scheme::wsBeforeDdComma, "Before comma:")
        .twinOf("GLOBAL_WS_BEFORE_COMMA"),
    whiteSpace("WS_BETWEEN_DD_ELEMENTS", Page::Data, &Scheme::wsBetweenDdElements, "Between init elements:", " "),
    flag("ALIGN_DD_NAMES_LEFT", Page::Data, &Scheme::alignDdNamesLeft, "Align identifiers"),
    flag("ALIGN_DD_INITIALIZERS", Page::Data, &Scheme::alignDdInitializers, "Align initializers"),

    // Enums.
    flag("ENUM_USE_GLOBAL_SETTINGS", Page::Enums, Unused::EditorOnly, "Use global settings").as(Role::UseGlobal),
    flag("ENUMS_DO_NOT_FORMAT", Page::Enums, Unused::EditorOnly, "Do not format Enums").as(Role::DoNotFormat),
    indent("INDENT_ENUM_CONTENT", Page::Enums, &Scheme::indentEnumContent, "Body:").twinOf("GLOBAL_INDENT_CONTENT"),
    whiteSpace("WS_BEFORE_ENUM_OPEN_BRACE", Page::Enums, &Scheme::wsBeforeEnumOpenBrace, "Before body open:")
        .twinOf("GLOBAL_WS_BEFORE_OPEN_BRACE"),
    whiteSpace("WS_AFTER_ENUM_OPEN_BRACE", Page::Enums, &Scheme::wsAfterEnumOpenBrace, "After body open:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_BRACE"),
    whiteSpace("WS_BEFORE_ENUM_CLOSE_BRACE", Page::Enums, &Scheme::wsBeforeEnumCloseBrace, "Before body close:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_BRACE"),
    whiteSpace("WS_BEFORE_ENUM_COMMA", Page::Enums, &Scheme::wsBeforeEnumComma, "Before comma:")
        .twinOf("GLOBAL_WS_BEFORE_COMMA"),
    whiteSpace("WS_BETWEEN_ENUM_ELEMENTS", Page::Enums, &Scheme::wsBetweenEnumElements, "Between elements:"),
    flag("ALIGN_ENUM_INITIALIZERS", Page::Enums, &Scheme::alignEnumInitializers, "Align initializers"),

    // Namespaces.
    flag("NS_USE_GLOBAL_SETTINGS", Page::Namespaces, Unused::EditorOnly, "Use global settings").as(Role::UseGlobal),
    flag("NAMESPACES_DO_NOT_FORMAT", Page::Namespaces, Unused::EditorOnly, "Do not format Namespaces")
        .as(Role::DoNotFormat),
    indent("INDENT_NS_CONTENT", Page::Namespaces, &Scheme::indentNsContent, "Body:").twinOf("GLOBAL_INDENT_CONTENT"),
    whiteSpace("WS_BEFORE_NS_OPEN_BRACE", Page::Namespaces, &Scheme::wsBeforeNsOpenBrace, "Before body open:")
        .twinOf("GLOBAL_WS_BEFORE_OPEN_BRACE"),
    whiteSpace("WS_AFTER_NS_OPEN_BRACE", Page::Namespaces, &Scheme::wsAfterNsOpenBrace, "After body open:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_BRACE"),
    whiteSpace("WS_BEFORE_NS_CLOSE_BRACE", Page::Namespaces, &Scheme::wsBeforeNsCloseBrace, "Before body close:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_BRACE"),

    // Control Statements.
    flag("CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS", Page::ControlStatements, Unused::EditorOnly, "Use global settings")
        .as(Role::UseGlobal),
    flag("CONTROL_STATEMENTS_DO_NOT_FORMAT", Page::ControlStatements, Unused::EditorOnly,
         "Do not format Control Statements")
        .as(Role::DoNotFormat),
    indent("INDENT_CS_CONTENT", Page::ControlStatements, &Scheme::indentCsContent, "Body:")
        .twinOf("GLOBAL_INDENT_CONTENT"),
    indent("INDENT_CS_CASE_LABELS", Page::ControlStatements, &Scheme::indentCsCaseLabels, "Case labels:"),
    indent("INDENT_CS_CASE_CONTENT", Page::ControlStatements, &Scheme::indentCsCaseContent, "Case content:"),
    whiteSpace("WS_AFTER_CS_KEY", Page::ControlStatements, &Scheme::wsAfterCsKey, "After keyword:"),
    whiteSpace("WS_BETWEEN_CS_FOR_CLAUSES", Page::ControlStatements, &Scheme::wsBetweenCsForClauses,
               "Between \"for\" clauses:"),
    whiteSpace("WS_AFTER_CS_OPEN_PAREN", Page::ControlStatements, &Scheme::wsAfterCsOpenParen, "After open paren:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_PAREN"),
    whiteSpace("WS_BEFORE_CS_CLOSE_PAREN", Page::ControlStatements, &Scheme::wsBeforeCsCloseParen,
               "Before close paren:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_PAREN"),
    whiteSpace("WS_BEFORE_CS_OPEN_BRACE", Page::ControlStatements, &Scheme::wsBeforeCsOpenBrace, "Before body open:")
        .twinOf("GLOBAL_WS_BEFORE_OPEN_BRACE"),
    whiteSpace("WS_AFTER_CS_OPEN_BRACE", Page::ControlStatements, &Scheme::wsAfterCsOpenBrace, "After body open:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_BRACE"),
    whiteSpace("WS_BEFORE_CS_CLOSE_BRACE", Page::ControlStatements, &Scheme::wsBeforeCsCloseBrace, "Before body close:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_BRACE"),
    whiteSpace("WS_BETWEEN_CS", Page::ControlStatements, &Scheme::wsBetweenCs, "After body close:"),
    whiteSpace("WS_AFTER_CS_CASE_LABELS", Page::ControlStatements, &Scheme::wsAfterCsCaseLabels, "After case labels:"),

    // Expressions.
    flag("EXPR_USE_GLOBAL_SETTINGS", Page::Expressions, Unused::EditorOnly, "Use global settings").as(Role::UseGlobal),
    flag("EXPR_DO_NOT_FORMAT", Page::Expressions, Unused::EditorOnly, "Do not format Expressions")
        .as(Role::DoNotFormat),
    whiteSpace("WS_AFTER_EXPR_OPEN_PAREN", Page::Expressions, &Scheme::wsAfterExprOpenParen, "After open paren:")
        .twinOf("GLOBAL_WS_AFTER_OPEN_PAREN"),
    whiteSpace("WS_BEFORE_EXPR_CLOSE_PAREN", Page::Expressions, &Scheme::wsBeforeExprCloseParen, "Before close paren:")
        .twinOf("GLOBAL_WS_BEFORE_CLOSE_PAREN"),
    whiteSpace("WS_AFTER_LBRACKET", Page::Expressions, &Scheme::wsAfterLbracket, "After left bracket:"),
    whiteSpace("WS_BEFORE_RBRACKET", Page::Expressions, &Scheme::wsBeforeRbracket, "Before right bracket:"),
    whiteSpace("WS_BETWEEN_EXPR_OP_OPERANDS", Page::Expressions, &Scheme::wsBetweenExprOpOperands,
               "Either side of an operator:"),
    whiteSpace("WS_AFTER_FN_CALL_NAME", Page::Expressions, &Scheme::wsAfterFnCallName, "After function name:"),
    whiteSpace("WS_BEFORE_FN_CALL_COMMA", Page::Expressions, &Scheme::wsBeforeFnCallComma, "Before comma:")
        .twinOf("GLOBAL_WS_BEFORE_COMMA"),
    whiteSpace("WS_BETWEEN_FN_CALL_ARGS", Page::Expressions, &Scheme::wsBetweenFnCallArgs, "Between arguments:"),

    // Member Initializer Lists.
    flag("MEMBERINITS_DO_NOT_FORMAT", Page::MemberInits, Unused::EditorOnly, "Do not format Member Initializer Lists")
        .as(Role::DoNotFormat),
    whiteSpace("WS_BEFORE_CLASS_INIT_LIST", Page::MemberInits, &Scheme::wsBeforeClassInitList,
               "Before initializer list:"),
    whiteSpace("WS_BEFORE_CLASS_INITS", Page::MemberInits, &Scheme::wsBeforeClassInits, "Before first initializer:"),
    whiteSpace("WS_BETWEEN_CLASS_INITS", Page::MemberInits, &Scheme::wsBetweenClassInits, "Between initializers:"),
    whiteSpace("WS_AFTER_CLASS_INIT_LIST", Page::MemberInits, &Scheme::wsAfterClassInitList, "After initializer list:"),
    whiteSpace("WS_BEFORE_CLASS_INITS_COMMA", Page::MemberInits, &Scheme::wsBeforeClassInitsComma, "Before comma:"),

    // Templates.
    flag("TEMPLATES_DO_NOT_FORMAT", Page::Templates, Unused::EditorOnly, "Do not format Templates")
        .as(Role::DoNotFormat),
    whiteSpace("WS_BEFORE_TP_OPEN_BRACKET", Page::Templates, &Scheme::wsBeforeTpOpenBracket,
               "Before open angle bracket:"),
    whiteSpace("WS_AFTER_TP_OPEN_BRACKET", Page::Templates, &Scheme::wsAfterTpOpenBracket, "After open angle bracket:"),
    whiteSpace("WS_BEFORE_TP_CLOSE_BRACKET", Page::Templates, &Scheme::wsBeforeTpCloseBracket,
               "Before close angle bracket:"),
    whiteSpace("WS_AFTER_TP_CLOSE_BRACKET", Page::Templates, &Scheme::wsAfterTpCloseBracket,
               "After close angle bracket:"),
    whiteSpace("WS_BETWEEN_TP_PARAMS", Page::Templates, &Scheme::wsBetweenTpParams, "Between parameters:"),
    whiteSpace("WS_BEFORE_TP_COMMA", Page::Templates, &Scheme::wsBeforeTpComma, "Before comma:"),

    // Pointers and References.
    flag("POINTERSREFS_DO_NOT_FORMAT", Page::PointersRefs, Unused::EditorOnly, "Do not format Pointers && References")
        .as(Role::DoNotFormat),
    choice("ASTERISK_ANCHOR", Page::PointersRefs, &Scheme::asteriskAnchor, asteriskGroup, -1, anchorValues),
    whiteSpace("WS_BETWEEN_ASTERISK_ANCHOR", Page::PointersRefs, &Scheme::wsBetweenAsteriskAnchor,
               "White space between * and Identifier:")
        .in(asteriskGroup)
        .when(asteriskAnchored)
        .labelled(asteriskLabels),
    flag("HANGING_ASTERISK", Page::PointersRefs, &Scheme::hangingAsterisk, "Hang * to left of aligned names:")
        .in(asteriskGroup)
        .clearedUnless(asteriskAtIdentifier),
    choice("AMPERSAND_ANCHOR", Page::PointersRefs, &Scheme::ampersandAnchor, ampersandGroup, -1, anchorValues),
    whiteSpace("WS_BETWEEN_AMPERSAND_ANCHOR", Page::PointersRefs, &Scheme::wsBetweenAmpersandAnchor,
               "White space between && and Identifier:")
        .in(ampersandGroup)
        .when(ampersandAnchored)
        .labelled(ampersandLabels),
    flag("HANGING_AMPERSAND", Page::PointersRefs, &Scheme::hangingAmpersand, "Hang && to left of aligned names:")
        .in(ampersandGroup)
        .clearedUnless(ampersandAtIdentifier),

    // Preprocessor Directives.
    flag("PPD_DO_NOT_FORMAT", Page::Preprocessor, Unused::EditorOnly, "Leave as is").as(Role::DoNotFormat),
    flag("ALIGN_PPD_LEFT_MOST", Page::Preprocessor, &Scheme::alignPpdLeftMost, "Align to left-most margin", true),

    // Line Wrapping.
    flag("LINE_WRAP", Page::LineWrapping, &Scheme::lineWrap, "Wrap long lines"),
    number("RIGHT_MARGIN", Page::LineWrapping, &Scheme::rightMargin, "Right margin:", 78).when(wraps),
    choice("WRAP_STYLE", Page::LineWrapping, &Scheme::wrapStyle, continuationGroup, 1, wrapStyleValues).when(wraps),
    indent("WRAP_INDENT", Page::LineWrapping, &Scheme::wrapIndent, "Indent by").when(wrapIndents).in(continuationGroup),
    choice("EXPR_WRAP_STYLE", Page::LineWrapping, &Scheme::exprWrapStyle, "Wrap expressions", 2, exprWrapStyleValues)
        .when(wraps),
    choice("SHIFT_WRAP_STYLE", Page::LineWrapping, &Scheme::shiftWrapStyle, "Wrap input and output expressions", 1,
           shiftWrapStyleValues)
        .when(wraps),
    choice("COMMA_WRAP_STYLE", Page::LineWrapping, &Scheme::commaWrapStyle, "Wrap comma separated lists", 2,
           commaWrapStyleValues)
        .when(wraps),
    choice("LIST_WRAP_STRATEGY", Page::LineWrapping, &Scheme::listWrapStrategy, "List wrap strategy", 1,
           listWrapStrategyValues)
        .when(wraps),
    flag("LINE_WRAP_DO_NOT_FORMAT", Page::LineWrapping, Unused::EditorOnly).as(Role::DoNotFormat),

    // No page shows these, they can only come from a file.
    whiteSpace("WS_AFTER_PARAM_TYPE_ID", Page::None, &Scheme::wsAfterParamTypeId),
    whiteSpace("WS_AFTER_DD_RBRACKET", Page::None, &Scheme::wsAfterDdRbracket),
    whiteSpace("WS_AFTER_DD_NAME", Page::None, &Scheme::wsAfterDdName),
    whiteSpace("WS_BEFORE_ACCESS_SPECS", Page::None, &Scheme::wsBeforeAccessSpecs),
    flag("ALIGN_BASE_CLAUSES_LEFT", Page::None, &Scheme::alignBaseClausesLeft),
    flag("ALIGN_FN_PARAMS_LEFT", Page::None, &Scheme::alignFnParamsLeft),
    flag("ALIGN_CS_FOR_CLAUSES_LEFT", Page::None, &Scheme::alignCsForClausesLeft),
    flag("ALIGN_TP_PARAMS_LEFT", Page::None, &Scheme::alignTpParamsLeft),
    flag("ALIGN_FN_CALL_ARGS_LEFT", Page::None, &Scheme::alignFnCallArgsLeft),

    // The keys of the second edition, page by page.
    indent("INDENT_LINKAGE_CONTENT", Page::Globals, &Scheme::indentLinkageContent, "Body of extern \"C\":")
        .ofEdition(2),
    whiteSpace("WS_BEFORE_LINKAGE_OPEN_BRACE", Page::Globals, &Scheme::wsBeforeLinkageOpenBrace,
               "Before extern \"C\" open:", " ")
        .ofEdition(2),
    whiteSpace("WS_IN_EMPTY_BODY", Page::Globals, &Scheme::wsInEmptyBody, "In an empty body:").ofEdition(2),
    whiteSpace("WS_BETWEEN_STATEMENTS", Page::Globals, &Scheme::wsBetweenStatements, "Between statements:", "\n")
        .ofEdition(2),
    whiteSpace("WS_BEFORE_SEMICOLON", Page::Globals, &Scheme::wsBeforeSemicolon, "Before semicolon:").ofEdition(2),
    whiteSpace("WS_BEFORE_TRAILING_COMMENT", Page::Globals, &Scheme::wsBeforeTrailingComment,
               "Before trailing comment:", " ")
        .ofEdition(2),
    whiteSpace("WS_AT_END_OF_FILE", Page::Globals, &Scheme::wsAtEndOfFile, "At end of file:", "\n").ofEdition(2),
    number("MAX_BLANK_LINES", Page::Globals, &Scheme::maxBlankLines, "At most in a row:", 1)
        .in("Blank lines")
        .ofEdition(2),
    flag("KEEP_BLANK_LINES_AT_BRACES", Page::Globals, &Scheme::keepBlankLinesAtBraces, "Keep those at braces")
        .in("Blank lines")
        .ofEdition(2),
    flag("KEEP_ALIGNED_COLUMNS", Page::Globals, &Scheme::keepAlignedColumns, "Keep hand-made columns").ofEdition(2),
    flag("ALIGN_TRAILING_COMMENTS", Page::Globals, &Scheme::alignTrailingComments, "Align trailing comments")
        .ofEdition(2),
    flag("REMOVE_TRAILING_WS", Page::Globals, &Scheme::removeTrailingWs, "Remove white space at line ends")
        .ofEdition(2),
    flag("KEEP_ONE_LINE_CLASS_BODIES", Page::Classes, &Scheme::keepOneLineClassBodies, "Keep bodies on one line")
        .ofEdition(2),
    whiteSpace("WS_AFTER_CLASS_FN_DEFN_RETURN_TYPE", Page::Functions, &Scheme::wsAfterClassFnDefnReturnType,
               "After type name, in a class:", " ")
        .in(definitions)
        .ofEdition(2),
    number("MIN_BLANK_LINES_BETWEEN_FN_DEFNS", Page::Functions, &Scheme::minBlankLinesBetweenFnDefns,
           "Blank lines between, at least:", 1)
        .in(definitions)
        .ofEdition(2),
    flag("KEEP_ONE_LINE_FN_BODIES", Page::Functions, &Scheme::keepOneLineFnBodies, "Keep bodies on one line")
        .in(definitions)
        .ofEdition(2),
    flag("KEEP_ONE_LINE_DD_BODIES", Page::Data, &Scheme::keepOneLineDdBodies, "Keep init bodies on one line")
        .ofEdition(2),
    flag("KEEP_ONE_LINE_ENUM_BODIES", Page::Enums, &Scheme::keepOneLineEnumBodies, "Keep bodies on one line")
        .ofEdition(2),
    indent("INDENT_NESTED_NS_CONTENT", Page::Namespaces, &Scheme::indentNestedNsContent, "Nested body:").ofEdition(2),
    indent("INDENT_CS_CASE_BLOCK_CONTENT", Page::ControlStatements, &Scheme::indentCsCaseBlockContent,
           "Case block content:")
        .ofEdition(2),
    indent("INDENT_CS_UNBRACED_CONTENT", Page::ControlStatements, &Scheme::indentCsUnbracedContent,
           "Body without braces:")
        .ofEdition(2),
    indent("INDENT_LABEL", Page::ControlStatements, &Scheme::indentLabel, "Goto labels:").ofEdition(2),
    whiteSpace("WS_BEFORE_CS_CASE_OPEN_BRACE", Page::ControlStatements, &Scheme::wsBeforeCsCaseOpenBrace,
               "Before case block open:", " ")
        .ofEdition(2),
    whiteSpace("WS_BEFORE_CS_DO_WHILE", Page::ControlStatements, &Scheme::wsBeforeCsDoWhile, "Before while of do:", " ")
        .ofEdition(2),
    flag("ALIGN_LABELS_LEFT_MOST", Page::ControlStatements, &Scheme::alignLabelsLeftMost,
         "Align goto labels to left-most margin")
        .ofEdition(2),
    flag("KEEP_ONE_LINE_CS_BODIES", Page::ControlStatements, &Scheme::keepOneLineCsBodies, "Keep bodies on one line")
        .ofEdition(2),
    flag("KEEP_ONE_LINE_CASES", Page::ControlStatements, &Scheme::keepOneLineCases, "Keep cases on one line")
        .ofEdition(2),
    whiteSpace("WS_AFTER_UNARY_OP", Page::Expressions, &Scheme::wsAfterUnaryOp, "After prefix operator:").ofEdition(2),
    whiteSpace("WS_BETWEEN_SUBSCRIPT_OP_OPERANDS", Page::Expressions, &Scheme::wsBetweenSubscriptOpOperands,
               "Operators in brackets:")
        .ofEdition(2),
    whiteSpace("WS_AFTER_CAST", Page::Expressions, &Scheme::wsAfterCast, "After cast:").ofEdition(2),
    whiteSpace("WS_AFTER_NAMED_CAST", Page::Expressions, &Scheme::wsAfterNamedCast, "After named cast:").ofEdition(2),
    indent("INDENT_LAMBDA_CONTENT", Page::Expressions, &Scheme::indentLambdaContent, "Body:").in(lambdas).ofEdition(2),
    whiteSpace("WS_BEFORE_LAMBDA_OPEN_BRACE", Page::Expressions, &Scheme::wsBeforeLambdaOpenBrace,
               "Before body open:", " ")
        .in(lambdas)
        .ofEdition(2),
    whiteSpace("WS_AFTER_LAMBDA_OPEN_BRACE", Page::Expressions, &Scheme::wsAfterLambdaOpenBrace,
               "After body open:", "\n")
        .in(lambdas)
        .ofEdition(2),
    whiteSpace("WS_BEFORE_LAMBDA_CLOSE_BRACE", Page::Expressions, &Scheme::wsBeforeLambdaCloseBrace,
               "Before body close:", "\n")
        .in(lambdas)
        .ofEdition(2),
    flag("KEEP_ONE_LINE_LAMBDA_BODIES", Page::Expressions, &Scheme::keepOneLineLambdaBodies, "Keep bodies on one line")
        .in(lambdas)
        .ofEdition(2),
    flag("KEEP_ONE_LINE_CLASS_INITS", Page::MemberInits, &Scheme::keepOneLineClassInits, "Keep lists on one line")
        .ofEdition(2),
    names("FOR_EACH_MACROS", Page::Preprocessor, &Scheme::forEachMacros, "For each element:").ofEdition(2),
    names("MACROS_LOOP", Page::Preprocessor, &Scheme::macrosLoop, "Other loops:").ofEdition(2),
    names("MACROS_STATEMENT", Page::Preprocessor, &Scheme::macrosStatement, "Whole statements:").ofEdition(2),
    names("MACROS_NAMESPACE_BEGIN", Page::Preprocessor, &Scheme::macrosNamespaceBegin, "Namespace begins:")
        .ofEdition(2),
    names("MACROS_NAMESPACE_END", Page::Preprocessor, &Scheme::macrosNamespaceEnd, "Namespace ends:").ofEdition(2),
    flag("KEEP_LINE_BREAKS_IN_EXPR", Page::LineWrapping, &Scheme::keepLineBreaksInExpr, "Keep those in expressions")
        .in(sourceLineEnds)
        .ofEdition(2),
    flag("KEEP_LINE_BREAKS_IN_LISTS", Page::LineWrapping, &Scheme::keepLineBreaksInLists, "Keep those in lists")
        .in(sourceLineEnds)
        .ofEdition(2),
    flag("ALIGN_CONTINUATION_LEFT", Page::LineWrapping, &Scheme::alignContinuationLeft,
         "Align the later lines with the open bracket")
        .in(sourceLineEnds)
        .ofEdition(2),
    flag("ALIGN_OPERANDS_LEFT", Page::LineWrapping, &Scheme::alignOperandsLeft,
         "Align the operands of an expression with the first one")
        .in(sourceLineEnds)
        .ofEdition(2),
    indent("INDENT_CONTINUATION", Page::LineWrapping, &Scheme::indentContinuation, "Indent of the later lines:")
        .in(sourceLineEnds)
        .ofEdition(2),
};

// Keys without an effect that are kept for schemes that hold them: two that belong to a page without a control of
// theirs, then those that are reserved.
inline constexpr std::string_view reservedKeys[] = {
    "WS_BETWEEN_CS_CASES",
    "POINTERSREFS_USE_GLOBAL_SETTINGS",
    "ALIGN_BASE_CLAUSES_LEFT_ON_WRAP",
    "ALIGN_CS_FOR_CLAUSES_ON_WRAP",
    "INDENT_CLASS_INITS",
    "INDENT_FN_PARAMS",
    "WS_AFTER_ACCESS_SPEC_LABEL",
    "WS_AFTER_FN_DECL",
};

// Keys of schemes of older program versions.
inline constexpr std::string_view oldKeys[] = {
    "SPACES_PER_TAB",
    "WS_AFTER_CLASS_HEAD",
    "WS_AFTER_NS_HEAD",
    "WS_AFTER_ENUM_HEAD",
    "WS_AFTER_FN_HEAD",
    "WS_AFTER_CS_HEAD",
    "ALIGN_FN_PARAMS_LEFT_ON_WRAP",
    "ALIGN_CS_FOR_CLAUSES_LEFT_ON_WRAP",
};

// The row of a key, or null for a key that the program doesn't know.
constexpr const PropertyInfo* find(std::string_view key) {
    for (const PropertyInfo& property : properties) {
        if (property.key == key) return &property;
    }
    return nullptr;
}

// The key of the row that fills a member; there is no such key if this doesn't compile.
template <class T>
consteval std::string_view keyOf(T Scheme::*member) {
    for (const PropertyInfo& property : properties) {
        if (property.field == SchemeField(member)) return property.key;
    }
    throw "no row fills this member";
}

// Whether a key belongs to the vocabulary, that of old schemes included.
constexpr bool isKnown(std::string_view key) {
    constexpr auto isOneOf = [](const auto& keys, std::string_view wanted) {
        return std::find(std::begin(keys), std::end(keys), wanted) != std::end(keys);
    };
    return find(key) != nullptr || isOneOf(reservedKeys, key) || isOneOf(oldKeys, key);
}

}  // namespace Catalogue

}  // namespace Brevis
