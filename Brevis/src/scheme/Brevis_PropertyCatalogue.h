// The vocabulary of a scheme: every key that a PropertySet may hold, with its type and its page default. One table
// feeds the readers of the keys, the tests, the reference page and the scheme editor; nothing else spells a key out.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <string_view>

namespace Brevis {

// The program version that stands in the schemes of this program under Key::CORVANE_VERSION.
inline constexpr std::string_view schemeVersion = "1.2.1";

namespace Key {

inline constexpr std::string_view CORVANE_VERSION = "CORVANE_VERSION";

// Global Settings.
inline constexpr std::string_view TAB_SIZE = "TAB_SIZE";
inline constexpr std::string_view CONVERT_WS = "CONVERT_WS";
inline constexpr std::string_view LEFT_MARGIN = "LEFT_MARGIN";
inline constexpr std::string_view GLOBAL_INDENT_CONTENT = "GLOBAL_INDENT_CONTENT";
inline constexpr std::string_view GLOBAL_WS_AFTER_OPEN_PAREN = "GLOBAL_WS_AFTER_OPEN_PAREN";
inline constexpr std::string_view GLOBAL_WS_BEFORE_CLOSE_PAREN = "GLOBAL_WS_BEFORE_CLOSE_PAREN";
inline constexpr std::string_view GLOBAL_WS_BEFORE_OPEN_BRACE = "GLOBAL_WS_BEFORE_OPEN_BRACE";
inline constexpr std::string_view GLOBAL_WS_AFTER_OPEN_BRACE = "GLOBAL_WS_AFTER_OPEN_BRACE";
inline constexpr std::string_view GLOBAL_WS_BEFORE_CLOSE_BRACE = "GLOBAL_WS_BEFORE_CLOSE_BRACE";
inline constexpr std::string_view GLOBAL_WS_BEFORE_COMMA = "GLOBAL_WS_BEFORE_COMMA";
inline constexpr std::string_view GLOBALS_DO_NOT_FORMAT = "GLOBALS_DO_NOT_FORMAT";

// Classes, Structs and Unions.
inline constexpr std::string_view CLASS_USE_GLOBAL_SETTINGS = "CLASS_USE_GLOBAL_SETTINGS";
inline constexpr std::string_view CLASS_DO_NOT_FORMAT = "CLASS_DO_NOT_FORMAT";
inline constexpr std::string_view INDENT_CLASS_CONTENT = "INDENT_CLASS_CONTENT";
inline constexpr std::string_view INDENT_ACCESS_SPEC_LABEL = "INDENT_ACCESS_SPEC_LABEL";
inline constexpr std::string_view WS_BEFORE_CLASS_OPEN_BRACE = "WS_BEFORE_CLASS_OPEN_BRACE";
inline constexpr std::string_view WS_AFTER_CLASS_OPEN_BRACE = "WS_AFTER_CLASS_OPEN_BRACE";
inline constexpr std::string_view WS_BEFORE_CLASS_CLOSE_BRACE = "WS_BEFORE_CLASS_CLOSE_BRACE";
inline constexpr std::string_view WS_AFTER_CLASS_NAME = "WS_AFTER_CLASS_NAME";
inline constexpr std::string_view WS_BEFORE_BASE_CLAUSES = "WS_BEFORE_BASE_CLAUSES";
inline constexpr std::string_view WS_BEFORE_BASE_CLAUSES_COMMA = "WS_BEFORE_BASE_CLAUSES_COMMA";
inline constexpr std::string_view WS_BETWEEN_BASE_CLAUSES = "WS_BETWEEN_BASE_CLAUSES";
inline constexpr std::string_view ALIGN_CLASS_MEMBER_NAMES_LEFT = "ALIGN_CLASS_MEMBER_NAMES_LEFT";

// Functions.
inline constexpr std::string_view FN_USE_GLOBAL_SETTINGS = "FN_USE_GLOBAL_SETTINGS";
inline constexpr std::string_view FN_DO_NOT_FORMAT = "FN_DO_NOT_FORMAT";
inline constexpr std::string_view INDENT_FN_CONTENT = "INDENT_FN_CONTENT";
inline constexpr std::string_view WS_AFTER_FN_DECL_RETURN_TYPE = "WS_AFTER_FN_DECL_RETURN_TYPE";
inline constexpr std::string_view WS_AFTER_FN_NAME = "WS_AFTER_FN_NAME";
inline constexpr std::string_view WS_AFTER_FN_OPEN_PAREN = "WS_AFTER_FN_OPEN_PAREN";
inline constexpr std::string_view WS_BEFORE_FN_CLOSE_PAREN = "WS_BEFORE_FN_CLOSE_PAREN";
inline constexpr std::string_view WS_BEFORE_FN_COMMA = "WS_BEFORE_FN_COMMA";
inline constexpr std::string_view WS_BETWEEN_FN_PARAMS = "WS_BETWEEN_FN_PARAMS";
inline constexpr std::string_view WS_AFTER_FN_DEFN_RETURN_TYPE = "WS_AFTER_FN_DEFN_RETURN_TYPE";
inline constexpr std::string_view WS_BEFORE_FN_OPEN_BRACE = "WS_BEFORE_FN_OPEN_BRACE";
inline constexpr std::string_view WS_AFTER_FN_OPEN_BRACE = "WS_AFTER_FN_OPEN_BRACE";
inline constexpr std::string_view WS_BEFORE_FN_CLOSE_BRACE = "WS_BEFORE_FN_CLOSE_BRACE";
inline constexpr std::string_view ALIGN_FN_DECL_NAMES_LEFT = "ALIGN_FN_DECL_NAMES_LEFT";

// Variable Declarations.
inline constexpr std::string_view DATA_USE_GLOBAL_SETTINGS = "DATA_USE_GLOBAL_SETTINGS";
inline constexpr std::string_view DATA_DO_NOT_FORMAT = "DATA_DO_NOT_FORMAT";
inline constexpr std::string_view INDENT_DD_CONTENT = "INDENT_DD_CONTENT";
inline constexpr std::string_view WS_AFTER_DD_TYPE_ID = "WS_AFTER_DD_TYPE_ID";
inline constexpr std::string_view WS_BEFORE_DD_OPEN_BRACE = "WS_BEFORE_DD_OPEN_BRACE";
inline constexpr std::string_view WS_AFTER_DD_OPEN_BRACE = "WS_AFTER_DD_OPEN_BRACE";
inline constexpr std::string_view WS_BEFORE_DD_CLOSE_BRACE = "WS_BEFORE_DD_CLOSE_BRACE";
inline constexpr std::string_view WS_BEFORE_DD_COMMA = "WS_BEFORE_DD_COMMA";
inline constexpr std::string_view WS_BETWEEN_DD_ELEMENTS = "WS_BETWEEN_DD_ELEMENTS";
inline constexpr std::string_view ALIGN_DD_NAMES_LEFT = "ALIGN_DD_NAMES_LEFT";
inline constexpr std::string_view ALIGN_DD_INITIALIZERS = "ALIGN_DD_INITIALIZERS";

// Enums.
inline constexpr std::string_view ENUM_USE_GLOBAL_SETTINGS = "ENUM_USE_GLOBAL_SETTINGS";
inline constexpr std::string_view ENUMS_DO_NOT_FORMAT = "ENUMS_DO_NOT_FORMAT";
inline constexpr std::string_view INDENT_ENUM_CONTENT = "INDENT_ENUM_CONTENT";
inline constexpr std::string_view WS_BEFORE_ENUM_OPEN_BRACE = "WS_BEFORE_ENUM_OPEN_BRACE";
inline constexpr std::string_view WS_AFTER_ENUM_OPEN_BRACE = "WS_AFTER_ENUM_OPEN_BRACE";
inline constexpr std::string_view WS_BEFORE_ENUM_CLOSE_BRACE = "WS_BEFORE_ENUM_CLOSE_BRACE";
inline constexpr std::string_view WS_BEFORE_ENUM_COMMA = "WS_BEFORE_ENUM_COMMA";
inline constexpr std::string_view WS_BETWEEN_ENUM_ELEMENTS = "WS_BETWEEN_ENUM_ELEMENTS";
inline constexpr std::string_view ALIGN_ENUM_INITIALIZERS = "ALIGN_ENUM_INITIALIZERS";

// Namespaces.
inline constexpr std::string_view NS_USE_GLOBAL_SETTINGS = "NS_USE_GLOBAL_SETTINGS";
inline constexpr std::string_view NAMESPACES_DO_NOT_FORMAT = "NAMESPACES_DO_NOT_FORMAT";
inline constexpr std::string_view INDENT_NS_CONTENT = "INDENT_NS_CONTENT";
inline constexpr std::string_view WS_BEFORE_NS_OPEN_BRACE = "WS_BEFORE_NS_OPEN_BRACE";
inline constexpr std::string_view WS_AFTER_NS_OPEN_BRACE = "WS_AFTER_NS_OPEN_BRACE";
inline constexpr std::string_view WS_BEFORE_NS_CLOSE_BRACE = "WS_BEFORE_NS_CLOSE_BRACE";

// Control Statements.
inline constexpr std::string_view CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS = "CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS";
inline constexpr std::string_view CONTROL_STATEMENTS_DO_NOT_FORMAT = "CONTROL_STATEMENTS_DO_NOT_FORMAT";
inline constexpr std::string_view INDENT_CS_CONTENT = "INDENT_CS_CONTENT";
inline constexpr std::string_view INDENT_CS_CASE_LABELS = "INDENT_CS_CASE_LABELS";
inline constexpr std::string_view INDENT_CS_CASE_CONTENT = "INDENT_CS_CASE_CONTENT";
inline constexpr std::string_view WS_AFTER_CS_KEY = "WS_AFTER_CS_KEY";
inline constexpr std::string_view WS_BETWEEN_CS_FOR_CLAUSES = "WS_BETWEEN_CS_FOR_CLAUSES";
inline constexpr std::string_view WS_AFTER_CS_OPEN_PAREN = "WS_AFTER_CS_OPEN_PAREN";
inline constexpr std::string_view WS_BEFORE_CS_CLOSE_PAREN = "WS_BEFORE_CS_CLOSE_PAREN";
inline constexpr std::string_view WS_BEFORE_CS_OPEN_BRACE = "WS_BEFORE_CS_OPEN_BRACE";
inline constexpr std::string_view WS_AFTER_CS_OPEN_BRACE = "WS_AFTER_CS_OPEN_BRACE";
inline constexpr std::string_view WS_BEFORE_CS_CLOSE_BRACE = "WS_BEFORE_CS_CLOSE_BRACE";
inline constexpr std::string_view WS_BETWEEN_CS = "WS_BETWEEN_CS";
inline constexpr std::string_view WS_AFTER_CS_CASE_LABELS = "WS_AFTER_CS_CASE_LABELS";

// Expressions.
inline constexpr std::string_view EXPR_USE_GLOBAL_SETTINGS = "EXPR_USE_GLOBAL_SETTINGS";
inline constexpr std::string_view EXPR_DO_NOT_FORMAT = "EXPR_DO_NOT_FORMAT";
inline constexpr std::string_view WS_AFTER_EXPR_OPEN_PAREN = "WS_AFTER_EXPR_OPEN_PAREN";
inline constexpr std::string_view WS_BEFORE_EXPR_CLOSE_PAREN = "WS_BEFORE_EXPR_CLOSE_PAREN";
inline constexpr std::string_view WS_AFTER_LBRACKET = "WS_AFTER_LBRACKET";
inline constexpr std::string_view WS_BEFORE_RBRACKET = "WS_BEFORE_RBRACKET";
inline constexpr std::string_view WS_BETWEEN_EXPR_OP_OPERANDS = "WS_BETWEEN_EXPR_OP_OPERANDS";
inline constexpr std::string_view WS_AFTER_FN_CALL_NAME = "WS_AFTER_FN_CALL_NAME";
inline constexpr std::string_view WS_BEFORE_FN_CALL_COMMA = "WS_BEFORE_FN_CALL_COMMA";
inline constexpr std::string_view WS_BETWEEN_FN_CALL_ARGS = "WS_BETWEEN_FN_CALL_ARGS";

// Member Initializer Lists.
inline constexpr std::string_view MEMBERINITS_DO_NOT_FORMAT = "MEMBERINITS_DO_NOT_FORMAT";
inline constexpr std::string_view WS_BEFORE_CLASS_INIT_LIST = "WS_BEFORE_CLASS_INIT_LIST";
inline constexpr std::string_view WS_BEFORE_CLASS_INITS = "WS_BEFORE_CLASS_INITS";
inline constexpr std::string_view WS_BETWEEN_CLASS_INITS = "WS_BETWEEN_CLASS_INITS";
inline constexpr std::string_view WS_AFTER_CLASS_INIT_LIST = "WS_AFTER_CLASS_INIT_LIST";
inline constexpr std::string_view WS_BEFORE_CLASS_INITS_COMMA = "WS_BEFORE_CLASS_INITS_COMMA";

// Templates.
inline constexpr std::string_view TEMPLATES_DO_NOT_FORMAT = "TEMPLATES_DO_NOT_FORMAT";
inline constexpr std::string_view WS_BEFORE_TP_OPEN_BRACKET = "WS_BEFORE_TP_OPEN_BRACKET";
inline constexpr std::string_view WS_AFTER_TP_OPEN_BRACKET = "WS_AFTER_TP_OPEN_BRACKET";
inline constexpr std::string_view WS_BEFORE_TP_CLOSE_BRACKET = "WS_BEFORE_TP_CLOSE_BRACKET";
inline constexpr std::string_view WS_AFTER_TP_CLOSE_BRACKET = "WS_AFTER_TP_CLOSE_BRACKET";
inline constexpr std::string_view WS_BETWEEN_TP_PARAMS = "WS_BETWEEN_TP_PARAMS";
inline constexpr std::string_view WS_BEFORE_TP_COMMA = "WS_BEFORE_TP_COMMA";

// Pointers and References.
inline constexpr std::string_view POINTERSREFS_DO_NOT_FORMAT = "POINTERSREFS_DO_NOT_FORMAT";
inline constexpr std::string_view ASTERISK_ANCHOR = "ASTERISK_ANCHOR";
inline constexpr std::string_view WS_BETWEEN_ASTERISK_ANCHOR = "WS_BETWEEN_ASTERISK_ANCHOR";
inline constexpr std::string_view HANGING_ASTERISK = "HANGING_ASTERISK";
inline constexpr std::string_view AMPERSAND_ANCHOR = "AMPERSAND_ANCHOR";
inline constexpr std::string_view WS_BETWEEN_AMPERSAND_ANCHOR = "WS_BETWEEN_AMPERSAND_ANCHOR";
inline constexpr std::string_view HANGING_AMPERSAND = "HANGING_AMPERSAND";

// Preprocessor Directives.
inline constexpr std::string_view PPD_DO_NOT_FORMAT = "PPD_DO_NOT_FORMAT";
inline constexpr std::string_view ALIGN_PPD_LEFT_MOST = "ALIGN_PPD_LEFT_MOST";

// Line Wrapping.
inline constexpr std::string_view LINE_WRAP = "LINE_WRAP";
inline constexpr std::string_view RIGHT_MARGIN = "RIGHT_MARGIN";
inline constexpr std::string_view WRAP_STYLE = "WRAP_STYLE";
inline constexpr std::string_view WRAP_INDENT = "WRAP_INDENT";
inline constexpr std::string_view EXPR_WRAP_STYLE = "EXPR_WRAP_STYLE";
inline constexpr std::string_view SHIFT_WRAP_STYLE = "SHIFT_WRAP_STYLE";
inline constexpr std::string_view COMMA_WRAP_STYLE = "COMMA_WRAP_STYLE";
inline constexpr std::string_view LIST_WRAP_STRATEGY = "LIST_WRAP_STRATEGY";
inline constexpr std::string_view LINE_WRAP_DO_NOT_FORMAT = "LINE_WRAP_DO_NOT_FORMAT";

// Without a page.
inline constexpr std::string_view WS_AFTER_PARAM_TYPE_ID = "WS_AFTER_PARAM_TYPE_ID";
inline constexpr std::string_view WS_AFTER_DD_RBRACKET = "WS_AFTER_DD_RBRACKET";
inline constexpr std::string_view WS_AFTER_DD_NAME = "WS_AFTER_DD_NAME";
inline constexpr std::string_view WS_BEFORE_ACCESS_SPECS = "WS_BEFORE_ACCESS_SPECS";
inline constexpr std::string_view ALIGN_BASE_CLAUSES_LEFT = "ALIGN_BASE_CLAUSES_LEFT";
inline constexpr std::string_view ALIGN_FN_PARAMS_LEFT = "ALIGN_FN_PARAMS_LEFT";
inline constexpr std::string_view ALIGN_CS_FOR_CLAUSES_LEFT = "ALIGN_CS_FOR_CLAUSES_LEFT";
inline constexpr std::string_view ALIGN_TP_PARAMS_LEFT = "ALIGN_TP_PARAMS_LEFT";
inline constexpr std::string_view ALIGN_FN_CALL_ARGS_LEFT = "ALIGN_FN_CALL_ARGS_LEFT";

}  // namespace Key

enum class PropertyType {
    WhiteSpace,  // a string of blanks, tabs and line feeds; empty removes the white space, absent leaves it alone
    Indent,      // a string of blanks or of tabs
    Flag,        // a boolean
    Number,      // an integer
    Choice,      // an integer of `choices`
    Text,        // a string without a rule
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

// The page default is what the editor puts in place when it loads a scheme without the key. The defaults of the engine
// are others (Brevis_EngineDefaults.h).
struct PropertyInfo {
    std::string_view key;
    PropertyType type;
    PropertyPage page;
    std::string_view label;        // of the control on the page, "&&" showing one "&"; empty for a key without one
    std::int32_t defaultNumber;    // of a Flag (0 or 1), Number or Choice
    std::string_view defaultText;  // of the other types
};

namespace Catalogue {

using Page = PropertyPage;

constexpr PropertyInfo whiteSpace(std::string_view key, Page page, std::string_view label = "",
                                  std::string_view text = "") {
    return {key, PropertyType::WhiteSpace, page, label, 0, text};
}

constexpr PropertyInfo indent(std::string_view key, Page page, std::string_view label) {
    return {key, PropertyType::Indent, page, label, 0, ""};
}

constexpr PropertyInfo flag(std::string_view key, Page page, std::string_view label = "", bool value = false) {
    return {key, PropertyType::Flag, page, label, value ? 1 : 0, ""};
}

constexpr PropertyInfo number(std::string_view key, Page page, std::string_view label, std::int32_t value) {
    return {key, PropertyType::Number, page, label, value, ""};
}

constexpr PropertyInfo choice(std::string_view key, Page page, std::string_view label, std::int32_t value) {
    return {key, PropertyType::Choice, page, label, value, ""};
}

// Page by page in the order of the controls.
inline constexpr std::array<PropertyInfo, 128> properties{{
    {Key::CORVANE_VERSION, PropertyType::Text, Page::None, "", 0, schemeVersion},

    // Global Settings.
    number(Key::TAB_SIZE, Page::Globals, "Tab size:", 4),
    choice(Key::CONVERT_WS, Page::Globals, "Convert", 1),
    indent(Key::LEFT_MARGIN, Page::Globals, "Left margin:"),
    indent(Key::GLOBAL_INDENT_CONTENT, Page::Globals, "Body:"),
    whiteSpace(Key::GLOBAL_WS_AFTER_OPEN_PAREN, Page::Globals, "After open paren:"),
    whiteSpace(Key::GLOBAL_WS_BEFORE_CLOSE_PAREN, Page::Globals, "Before close paren:"),
    whiteSpace(Key::GLOBAL_WS_BEFORE_OPEN_BRACE, Page::Globals, "Before body open:"),
    whiteSpace(Key::GLOBAL_WS_AFTER_OPEN_BRACE, Page::Globals, "After body open:"),
    whiteSpace(Key::GLOBAL_WS_BEFORE_CLOSE_BRACE, Page::Globals, "Before body close:"),
    whiteSpace(Key::GLOBAL_WS_BEFORE_COMMA, Page::Globals, "Before comma:"),
    flag(Key::GLOBALS_DO_NOT_FORMAT, Page::Globals, ""),

    // Classes, Structs and Unions.
    flag(Key::CLASS_USE_GLOBAL_SETTINGS, Page::Classes, "Use global settings"),
    flag(Key::CLASS_DO_NOT_FORMAT, Page::Classes, "Do not format Classes, Structs or Unions"),
    indent(Key::INDENT_CLASS_CONTENT, Page::Classes, "Body:"),
    indent(Key::INDENT_ACCESS_SPEC_LABEL, Page::Classes, "Access specifier:"),
    whiteSpace(Key::WS_BEFORE_CLASS_OPEN_BRACE, Page::Classes, "Before body open:"),
    whiteSpace(Key::WS_AFTER_CLASS_OPEN_BRACE, Page::Classes, "After body open:"),
    whiteSpace(Key::WS_BEFORE_CLASS_CLOSE_BRACE, Page::Classes, "Before body close:"),
    whiteSpace(Key::WS_AFTER_CLASS_NAME, Page::Classes, "Before base clause open:"),
    whiteSpace(Key::WS_BEFORE_BASE_CLAUSES, Page::Classes, "After base clause open:"),
    whiteSpace(Key::WS_BEFORE_BASE_CLAUSES_COMMA, Page::Classes, "Before base clause comma:"),
    whiteSpace(Key::WS_BETWEEN_BASE_CLAUSES, Page::Classes, "Between base clauses:"),
    flag(Key::ALIGN_CLASS_MEMBER_NAMES_LEFT, Page::Classes, "Align class member names left"),

    // Functions.
    flag(Key::FN_USE_GLOBAL_SETTINGS, Page::Functions, "Use global settings"),
    flag(Key::FN_DO_NOT_FORMAT, Page::Functions, "Do not format Functions"),
    indent(Key::INDENT_FN_CONTENT, Page::Functions, "Body:"),
    whiteSpace(Key::WS_AFTER_FN_DECL_RETURN_TYPE, Page::Functions, "After type name:", " "),
    whiteSpace(Key::WS_AFTER_FN_NAME, Page::Functions, "After function name:"),
    whiteSpace(Key::WS_AFTER_FN_OPEN_PAREN, Page::Functions, "After open paren:"),
    whiteSpace(Key::WS_BEFORE_FN_CLOSE_PAREN, Page::Functions, "Before close paren:"),
    whiteSpace(Key::WS_BEFORE_FN_COMMA, Page::Functions, "Before comma:"),
    whiteSpace(Key::WS_BETWEEN_FN_PARAMS, Page::Functions, "Between parameters:"),
    whiteSpace(Key::WS_AFTER_FN_DEFN_RETURN_TYPE, Page::Functions, "After type name:", " "),
    whiteSpace(Key::WS_BEFORE_FN_OPEN_BRACE, Page::Functions, "Before body open:"),
    whiteSpace(Key::WS_AFTER_FN_OPEN_BRACE, Page::Functions, "After body open:"),
    whiteSpace(Key::WS_BEFORE_FN_CLOSE_BRACE, Page::Functions, "Before body close:"),
    flag(Key::ALIGN_FN_DECL_NAMES_LEFT, Page::Functions,
         "Left align function names in groups of function declarations"),

    // Variable Declarations.
    flag(Key::DATA_USE_GLOBAL_SETTINGS, Page::Data, "Use global settings"),
    flag(Key::DATA_DO_NOT_FORMAT, Page::Data, "Do not format Variable Declarations"),
    indent(Key::INDENT_DD_CONTENT, Page::Data, "Body:"),
    whiteSpace(Key::WS_AFTER_DD_TYPE_ID, Page::Data, "After typename:", " "),
    whiteSpace(Key::WS_BEFORE_DD_OPEN_BRACE, Page::Data, "Before init body open:"),
    whiteSpace(Key::WS_AFTER_DD_OPEN_BRACE, Page::Data, "After init body open:"),
    whiteSpace(Key::WS_BEFORE_DD_CLOSE_BRACE, Page::Data, "Before init body close:"),
    whiteSpace(Key::WS_BEFORE_DD_COMMA, Page::Data, "Before comma:"),
    whiteSpace(Key::WS_BETWEEN_DD_ELEMENTS, Page::Data, "Between init elements:", " "),
    flag(Key::ALIGN_DD_NAMES_LEFT, Page::Data, "Align identifiers"),
    flag(Key::ALIGN_DD_INITIALIZERS, Page::Data, "Align initializers"),

    // Enums.
    flag(Key::ENUM_USE_GLOBAL_SETTINGS, Page::Enums, "Use global settings"),
    flag(Key::ENUMS_DO_NOT_FORMAT, Page::Enums, "Do not format Enums"),
    indent(Key::INDENT_ENUM_CONTENT, Page::Enums, "Body:"),
    whiteSpace(Key::WS_BEFORE_ENUM_OPEN_BRACE, Page::Enums, "Before body open:"),
    whiteSpace(Key::WS_AFTER_ENUM_OPEN_BRACE, Page::Enums, "After body open:"),
    whiteSpace(Key::WS_BEFORE_ENUM_CLOSE_BRACE, Page::Enums, "Before body close:"),
    whiteSpace(Key::WS_BEFORE_ENUM_COMMA, Page::Enums, "Before comma:"),
    whiteSpace(Key::WS_BETWEEN_ENUM_ELEMENTS, Page::Enums, "Between elements:"),
    flag(Key::ALIGN_ENUM_INITIALIZERS, Page::Enums, "Align initializers"),

    // Namespaces.
    flag(Key::NS_USE_GLOBAL_SETTINGS, Page::Namespaces, "Use global settings"),
    flag(Key::NAMESPACES_DO_NOT_FORMAT, Page::Namespaces, "Do not format Namespaces"),
    indent(Key::INDENT_NS_CONTENT, Page::Namespaces, "Body:"),
    whiteSpace(Key::WS_BEFORE_NS_OPEN_BRACE, Page::Namespaces, "Before body open:"),
    whiteSpace(Key::WS_AFTER_NS_OPEN_BRACE, Page::Namespaces, "After body open:"),
    whiteSpace(Key::WS_BEFORE_NS_CLOSE_BRACE, Page::Namespaces, "Before body close:"),

    // Control Statements.
    flag(Key::CONTROL_STATEMENTS_USE_GLOBAL_SETTINGS, Page::ControlStatements, "Use global settings"),
    flag(Key::CONTROL_STATEMENTS_DO_NOT_FORMAT, Page::ControlStatements, "Do not format Control Statements"),
    indent(Key::INDENT_CS_CONTENT, Page::ControlStatements, "Body:"),
    indent(Key::INDENT_CS_CASE_LABELS, Page::ControlStatements, "Case labels:"),
    indent(Key::INDENT_CS_CASE_CONTENT, Page::ControlStatements, "Case content:"),
    whiteSpace(Key::WS_AFTER_CS_KEY, Page::ControlStatements, "After keyword:"),
    whiteSpace(Key::WS_BETWEEN_CS_FOR_CLAUSES, Page::ControlStatements, "Between \"for\" clauses:"),
    whiteSpace(Key::WS_AFTER_CS_OPEN_PAREN, Page::ControlStatements, "After open paren:"),
    whiteSpace(Key::WS_BEFORE_CS_CLOSE_PAREN, Page::ControlStatements, "Before close paren:"),
    whiteSpace(Key::WS_BEFORE_CS_OPEN_BRACE, Page::ControlStatements, "Before body open:"),
    whiteSpace(Key::WS_AFTER_CS_OPEN_BRACE, Page::ControlStatements, "After body open:"),
    whiteSpace(Key::WS_BEFORE_CS_CLOSE_BRACE, Page::ControlStatements, "Before body close:"),
    whiteSpace(Key::WS_BETWEEN_CS, Page::ControlStatements, "After body close:"),
    whiteSpace(Key::WS_AFTER_CS_CASE_LABELS, Page::ControlStatements, "After case labels:"),

    // Expressions.
    flag(Key::EXPR_USE_GLOBAL_SETTINGS, Page::Expressions, "Use global settings"),
    flag(Key::EXPR_DO_NOT_FORMAT, Page::Expressions, "Do not format Expressions"),
    whiteSpace(Key::WS_AFTER_EXPR_OPEN_PAREN, Page::Expressions, "After open paren:"),
    whiteSpace(Key::WS_BEFORE_EXPR_CLOSE_PAREN, Page::Expressions, "Before close paren:"),
    whiteSpace(Key::WS_AFTER_LBRACKET, Page::Expressions, "After left bracket:"),
    whiteSpace(Key::WS_BEFORE_RBRACKET, Page::Expressions, "Before right bracket:"),
    whiteSpace(Key::WS_BETWEEN_EXPR_OP_OPERANDS, Page::Expressions, "Either side of an operator:"),
    whiteSpace(Key::WS_AFTER_FN_CALL_NAME, Page::Expressions, "After function name:"),
    whiteSpace(Key::WS_BEFORE_FN_CALL_COMMA, Page::Expressions, "Before comma:"),
    whiteSpace(Key::WS_BETWEEN_FN_CALL_ARGS, Page::Expressions, "Between arguments:"),

    // Member Initializer Lists.
    flag(Key::MEMBERINITS_DO_NOT_FORMAT, Page::MemberInits, "Do not format Member Initializer Lists"),
    whiteSpace(Key::WS_BEFORE_CLASS_INIT_LIST, Page::MemberInits, "Before initializer list:"),
    whiteSpace(Key::WS_BEFORE_CLASS_INITS, Page::MemberInits, "Before first initializer:"),
    whiteSpace(Key::WS_BETWEEN_CLASS_INITS, Page::MemberInits, "Between initializers:"),
    whiteSpace(Key::WS_AFTER_CLASS_INIT_LIST, Page::MemberInits, "After initializer list:"),
    whiteSpace(Key::WS_BEFORE_CLASS_INITS_COMMA, Page::MemberInits, "Before comma:"),

    // Templates.
    flag(Key::TEMPLATES_DO_NOT_FORMAT, Page::Templates, "Do not format Templates"),
    whiteSpace(Key::WS_BEFORE_TP_OPEN_BRACKET, Page::Templates, "Before open angle bracket:"),
    whiteSpace(Key::WS_AFTER_TP_OPEN_BRACKET, Page::Templates, "After open angle bracket:"),
    whiteSpace(Key::WS_BEFORE_TP_CLOSE_BRACKET, Page::Templates, "Before close angle bracket:"),
    whiteSpace(Key::WS_AFTER_TP_CLOSE_BRACKET, Page::Templates, "After close angle bracket:"),
    whiteSpace(Key::WS_BETWEEN_TP_PARAMS, Page::Templates, "Between parameters:"),
    whiteSpace(Key::WS_BEFORE_TP_COMMA, Page::Templates, "Before comma:"),

    // Pointers and References.
    flag(Key::POINTERSREFS_DO_NOT_FORMAT, Page::PointersRefs, "Do not format Pointers && References"),
    choice(Key::ASTERISK_ANCHOR, Page::PointersRefs, "Keep * with:", -1),
    whiteSpace(Key::WS_BETWEEN_ASTERISK_ANCHOR, Page::PointersRefs, "White space between * and Identifier:"),
    flag(Key::HANGING_ASTERISK, Page::PointersRefs, "Hang * to left of aligned names:"),
    choice(Key::AMPERSAND_ANCHOR, Page::PointersRefs, "Keep && with:", -1),
    whiteSpace(Key::WS_BETWEEN_AMPERSAND_ANCHOR, Page::PointersRefs, "White space between && and Identifier:"),
    flag(Key::HANGING_AMPERSAND, Page::PointersRefs, "Hang && to left of aligned names:"),

    // Preprocessor Directives.
    flag(Key::PPD_DO_NOT_FORMAT, Page::Preprocessor, "Leave as is"),
    flag(Key::ALIGN_PPD_LEFT_MOST, Page::Preprocessor, "Align to left-most margin", true),

    // Line Wrapping.
    flag(Key::LINE_WRAP, Page::LineWrapping, "Wrap long lines"),
    number(Key::RIGHT_MARGIN, Page::LineWrapping, "Right margin:", 78),
    choice(Key::WRAP_STYLE, Page::LineWrapping, "Treatment of line continuation", 1),
    indent(Key::WRAP_INDENT, Page::LineWrapping, "Indent by"),
    choice(Key::EXPR_WRAP_STYLE, Page::LineWrapping, "Wrap expressions", 2),
    choice(Key::SHIFT_WRAP_STYLE, Page::LineWrapping, "Wrap input and output expressions", 1),
    choice(Key::COMMA_WRAP_STYLE, Page::LineWrapping, "Wrap comma separated lists", 2),
    choice(Key::LIST_WRAP_STRATEGY, Page::LineWrapping, "List wrap strategy", 1),
    flag(Key::LINE_WRAP_DO_NOT_FORMAT, Page::LineWrapping, ""),

    // No page shows these, they can only come from a file.
    whiteSpace(Key::WS_AFTER_PARAM_TYPE_ID, Page::None),
    whiteSpace(Key::WS_AFTER_DD_RBRACKET, Page::None),
    whiteSpace(Key::WS_AFTER_DD_NAME, Page::None),
    whiteSpace(Key::WS_BEFORE_ACCESS_SPECS, Page::None),
    flag(Key::ALIGN_BASE_CLAUSES_LEFT, Page::None),
    flag(Key::ALIGN_FN_PARAMS_LEFT, Page::None),
    flag(Key::ALIGN_CS_FOR_CLAUSES_LEFT, Page::None),
    flag(Key::ALIGN_TP_PARAMS_LEFT, Page::None),
    flag(Key::ALIGN_FN_CALL_ARGS_LEFT, Page::None),
}};

// The values of the Choice keys. A label is that of the value's radio button, empty where none is selected.
struct ChoiceValue {
    std::string_view key;
    std::int32_t value;
    std::string_view label;
};

inline constexpr ChoiceValue choices[] = {
    {Key::CONVERT_WS, 0, "do not convert"},
    {Key::CONVERT_WS, 1, "tabs to spaces"},
    {Key::CONVERT_WS, 2, "spaces to tabs"},
    {Key::ASTERISK_ANCHOR, -1, ""},
    {Key::ASTERISK_ANCHOR, 0, "Typename"},
    {Key::ASTERISK_ANCHOR, 1, "Identifier"},
    {Key::AMPERSAND_ANCHOR, -1, ""},
    {Key::AMPERSAND_ANCHOR, 0, "Typename"},
    {Key::AMPERSAND_ANCHOR, 1, "Identifier"},
    {Key::WRAP_STYLE, 0, ""},
    {Key::WRAP_STYLE, 1, "Align logically with previous line"},
    {Key::WRAP_STYLE, 2, "Indent by"},
    {Key::EXPR_WRAP_STYLE, 1, "Before an operator"},
    {Key::EXPR_WRAP_STYLE, 2, "After an operator"},
    {Key::SHIFT_WRAP_STYLE, 1, "Before the shift operator"},
    {Key::SHIFT_WRAP_STYLE, 2, "After the shift operator"},
    {Key::COMMA_WRAP_STYLE, 1, "Before the comma"},
    {Key::COMMA_WRAP_STYLE, 2, "After the comma"},
    {Key::LIST_WRAP_STRATEGY, 0, ""},
    {Key::LIST_WRAP_STRATEGY, 1, "Fit as many elements as possible on a single line"},
    {Key::LIST_WRAP_STRATEGY, 2, "Put each element on a separate line"},
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

// Whether a key belongs to the vocabulary, that of old schemes included.
constexpr bool isKnown(std::string_view key) {
    constexpr auto isOneOf = [](const auto& keys, std::string_view wanted) {
        return std::find(std::begin(keys), std::end(keys), wanted) != std::end(keys);
    };
    return find(key) != nullptr || isOneOf(reservedKeys, key) || isOneOf(oldKeys, key);
}

}  // namespace Catalogue

}  // namespace Brevis
