// Reads the scheme values of the main formatting visitor by a table of keys and members.
#include "scheme/Brevis_CppFormatterScheme.h"

#include <algorithm>

#include "scheme/Brevis_PropertyCatalogue.h"

namespace Brevis {

namespace {

template <class T>
struct Binding {
    std::string_view key;
    T CppFormatterScheme::*member;
};

constexpr Binding<WsProperty> wsBindings[] = {
    {Key::LEFT_MARGIN, &CppFormatterScheme::leftMargin},
    {Key::GLOBAL_WS_BEFORE_OPEN_BRACE, &CppFormatterScheme::globalWsBeforeOpenBrace},
    {Key::GLOBAL_WS_AFTER_OPEN_BRACE, &CppFormatterScheme::globalWsAfterOpenBrace},
    {Key::GLOBAL_INDENT_CONTENT, &CppFormatterScheme::globalIndentContent},
    {Key::GLOBAL_WS_BEFORE_CLOSE_BRACE, &CppFormatterScheme::globalWsBeforeCloseBrace},
    {Key::WS_BEFORE_NS_OPEN_BRACE, &CppFormatterScheme::wsBeforeNsOpenBrace},
    {Key::WS_AFTER_NS_OPEN_BRACE, &CppFormatterScheme::wsAfterNsOpenBrace},
    {Key::INDENT_NS_CONTENT, &CppFormatterScheme::indentNsContent},
    {Key::WS_BEFORE_NS_CLOSE_BRACE, &CppFormatterScheme::wsBeforeNsCloseBrace},
    {Key::WS_AFTER_CLASS_NAME, &CppFormatterScheme::wsAfterClassName},
    {Key::WS_BEFORE_CLASS_OPEN_BRACE, &CppFormatterScheme::wsBeforeClassOpenBrace},
    {Key::WS_AFTER_CLASS_OPEN_BRACE, &CppFormatterScheme::wsAfterClassOpenBrace},
    {Key::INDENT_CLASS_CONTENT, &CppFormatterScheme::indentClassContent},
    {Key::WS_BEFORE_CLASS_CLOSE_BRACE, &CppFormatterScheme::wsBeforeClassCloseBrace},
    {Key::WS_BEFORE_BASE_CLAUSES, &CppFormatterScheme::wsBeforeBaseClauses},
    {Key::WS_BEFORE_BASE_CLAUSES_COMMA, &CppFormatterScheme::wsBeforeBaseClausesComma},
    {Key::WS_BETWEEN_BASE_CLAUSES, &CppFormatterScheme::wsBetweenBaseClauses},
    {Key::WS_BEFORE_ACCESS_SPECS, &CppFormatterScheme::wsBeforeAccessSpecs},
    {Key::INDENT_ACCESS_SPEC_LABEL, &CppFormatterScheme::indentAccessSpecLabel},
    {Key::WS_AFTER_PARAM_TYPE_ID, &CppFormatterScheme::wsAfterParamTypeId},
    {Key::WS_AFTER_DD_TYPE_ID, &CppFormatterScheme::wsAfterDdTypeId},
    {Key::INDENT_DD_CONTENT, &CppFormatterScheme::indentDdContent},
    {Key::WS_AFTER_DD_NAME, &CppFormatterScheme::wsAfterDdName},
    {Key::WS_AFTER_DD_RBRACKET, &CppFormatterScheme::wsAfterDdRbracket},
    {Key::WS_BETWEEN_EXPR_OP_OPERANDS, &CppFormatterScheme::wsBetweenExprOpOperands},
    {Key::WS_AFTER_FN_CALL_NAME, &CppFormatterScheme::wsAfterFnCallName},
    {Key::WS_AFTER_FN_DEFN_RETURN_TYPE, &CppFormatterScheme::wsAfterFnDefnReturnType},
    {Key::WS_AFTER_FN_DECL_RETURN_TYPE, &CppFormatterScheme::wsAfterFnDeclReturnType},
    {Key::WS_AFTER_FN_NAME, &CppFormatterScheme::wsAfterFnName},
    {Key::WS_BEFORE_FN_OPEN_BRACE, &CppFormatterScheme::wsBeforeFnOpenBrace},
    {Key::WS_AFTER_FN_OPEN_BRACE, &CppFormatterScheme::wsAfterFnOpenBrace},
    {Key::INDENT_FN_CONTENT, &CppFormatterScheme::indentFnContent},
    {Key::WS_BEFORE_FN_CLOSE_BRACE, &CppFormatterScheme::wsBeforeFnCloseBrace},
    {Key::WS_AFTER_FN_OPEN_PAREN, &CppFormatterScheme::wsAfterFnOpenParen},
    {Key::WS_BEFORE_FN_COMMA, &CppFormatterScheme::wsBeforeFnComma},
    {Key::WS_BETWEEN_FN_PARAMS, &CppFormatterScheme::wsBetweenFnParams},
    {Key::WS_BEFORE_FN_CLOSE_PAREN, &CppFormatterScheme::wsBeforeFnCloseParen},
    {Key::WS_BEFORE_CLASS_INIT_LIST, &CppFormatterScheme::wsBeforeClassInitList},
    {Key::WS_BEFORE_CLASS_INITS, &CppFormatterScheme::wsBeforeClassInits},
    {Key::WS_BEFORE_CLASS_INITS_COMMA, &CppFormatterScheme::wsBeforeClassInitsComma},
    {Key::WS_BETWEEN_CLASS_INITS, &CppFormatterScheme::wsBetweenClassInits},
    {Key::WS_AFTER_CLASS_INIT_LIST, &CppFormatterScheme::wsAfterClassInitList},
    {Key::WS_BEFORE_TP_OPEN_BRACKET, &CppFormatterScheme::wsBeforeTpOpenBracket},
    {Key::WS_AFTER_TP_OPEN_BRACKET, &CppFormatterScheme::wsAfterTpOpenBracket},
    {Key::WS_BEFORE_TP_COMMA, &CppFormatterScheme::wsBeforeTpComma},
    {Key::WS_BETWEEN_TP_PARAMS, &CppFormatterScheme::wsBetweenTpParams},
    {Key::WS_BEFORE_TP_CLOSE_BRACKET, &CppFormatterScheme::wsBeforeTpCloseBracket},
    {Key::WS_AFTER_TP_CLOSE_BRACKET, &CppFormatterScheme::wsAfterTpCloseBracket},
    {Key::WS_BEFORE_CS_OPEN_BRACE, &CppFormatterScheme::wsBeforeCsOpenBrace},
    {Key::WS_AFTER_CS_KEY, &CppFormatterScheme::wsAfterCsKey},
    {Key::WS_AFTER_CS_OPEN_BRACE, &CppFormatterScheme::wsAfterCsOpenBrace},
    {Key::WS_BETWEEN_CS, &CppFormatterScheme::wsBetweenCs},
    {Key::WS_BEFORE_CS_CLOSE_BRACE, &CppFormatterScheme::wsBeforeCsCloseBrace},
    {Key::INDENT_CS_CONTENT, &CppFormatterScheme::indentCsContent},
    {Key::WS_BETWEEN_CS_FOR_CLAUSES, &CppFormatterScheme::wsBetweenCsForClauses},
    {Key::WS_AFTER_CS_OPEN_PAREN, &CppFormatterScheme::wsAfterCsOpenParen},
    {Key::WS_BEFORE_CS_CLOSE_PAREN, &CppFormatterScheme::wsBeforeCsCloseParen},
    {Key::INDENT_CS_CASE_CONTENT, &CppFormatterScheme::indentCsCaseContent},
    {Key::INDENT_CS_CASE_LABELS, &CppFormatterScheme::indentCsCaseLabels},
    {Key::WS_AFTER_CS_CASE_LABELS, &CppFormatterScheme::wsAfterCsCaseLabels},
    {Key::WS_BEFORE_ENUM_OPEN_BRACE, &CppFormatterScheme::wsBeforeEnumOpenBrace},
    {Key::WS_AFTER_ENUM_OPEN_BRACE, &CppFormatterScheme::wsAfterEnumOpenBrace},
    {Key::WS_BEFORE_ENUM_CLOSE_BRACE, &CppFormatterScheme::wsBeforeEnumCloseBrace},
    {Key::WS_BEFORE_ENUM_COMMA, &CppFormatterScheme::wsBeforeEnumComma},
    {Key::WS_BETWEEN_ENUM_ELEMENTS, &CppFormatterScheme::wsBetweenEnumElements},
    {Key::INDENT_ENUM_CONTENT, &CppFormatterScheme::indentEnumContent},
};

constexpr Binding<bool> boolBindings[] = {
    {Key::ALIGN_BASE_CLAUSES_LEFT, &CppFormatterScheme::alignBaseClausesLeft},
    {Key::ALIGN_CLASS_MEMBER_NAMES_LEFT, &CppFormatterScheme::alignClassMemberNamesLeft},
    {Key::DATA_DO_NOT_FORMAT, &CppFormatterScheme::dataDoNotFormat},
    {Key::ALIGN_DD_NAMES_LEFT, &CppFormatterScheme::alignDdNamesLeft},
    {Key::ALIGN_DD_INITIALIZERS, &CppFormatterScheme::alignDdInitializers},
    {Key::ALIGN_FN_CALL_ARGS_LEFT, &CppFormatterScheme::alignFnCallArgsLeft},
    {Key::ALIGN_FN_PARAMS_LEFT, &CppFormatterScheme::alignFnParamsLeft},
    {Key::FN_DO_NOT_FORMAT, &CppFormatterScheme::fnDoNotFormat},
    {Key::ALIGN_FN_DECL_NAMES_LEFT, &CppFormatterScheme::alignFnDeclNamesLeft},
    {Key::ALIGN_TP_PARAMS_LEFT, &CppFormatterScheme::alignTpParamsLeft},
    {Key::ALIGN_CS_FOR_CLAUSES_LEFT, &CppFormatterScheme::alignCsForClausesLeft},
    {Key::ALIGN_ENUM_INITIALIZERS, &CppFormatterScheme::alignEnumInitializers},
    {Key::HANGING_ASTERISK, &CppFormatterScheme::hangingAsterisk},
    {Key::HANGING_AMPERSAND, &CppFormatterScheme::hangingAmpersand},
};

constexpr Binding<std::int32_t> intBindings[] = {
    {Key::TAB_SIZE, &CppFormatterScheme::tabSize},
    {Key::CONVERT_WS, &CppFormatterScheme::convertWs},
    {Key::ASTERISK_ANCHOR, &CppFormatterScheme::asteriskAnchor},
    {Key::AMPERSAND_ANCHOR, &CppFormatterScheme::ampersandAnchor},
};

}  // namespace

CppFormatterScheme::CppFormatterScheme(const PropertySet& properties) {
    for (const auto& [key, member] : wsBindings) this->*member = wsProperty(properties, key);
    for (const auto& [key, member] : boolBindings) properties.getBool(key, this->*member);
    for (const auto& [key, member] : intBindings) properties.getInt(key, this->*member);

    // Column arithmetic needs a tab size of at least 1, and an unknown conversion must not lose any text.
    tabSize = std::max(tabSize, 1);
    if (convertWs < 0 || convertWs > 2) convertWs = 0;

    if (alignFnParamsLeft) wsBetweenFnParams = newlineWs;
    if (alignTpParamsLeft) wsBetweenTpParams = newlineWs;
}

Vellum::IndentStreamSettings CppFormatterScheme::outputSettings() const {
    Vellum::IndentStreamSettings settings;
    settings.convertMode = convertWs;
    settings.tabSize = tabSize;
    return settings;
}

}  // namespace Brevis
