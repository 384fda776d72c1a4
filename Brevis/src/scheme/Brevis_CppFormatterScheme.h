// The values of a scheme that the main formatting visitor uses, read once when the visitor is built.
#pragma once

#include <cstdint>

#include "Vellum_IndentStreamSettings.h"
#include "scheme/Brevis_WsProperty.h"

namespace Brevis {

struct CppFormatterScheme {
    // `properties` has the engine defaults applied already. A missing white-space key gives an unset value, a missing
    // boolean false, a missing integer the value that stands here.
    explicit CppFormatterScheme(const PropertySet& properties);

    // The settings of an output stream at the start of a text.
    Vellum::IndentStreamSettings outputSettings() const;

    // Layout
    std::int32_t tabSize = 1;
    std::int32_t convertWs = 0;
    WsProperty leftMargin;

    // Linkage blocks and plain blocks
    WsProperty globalWsBeforeOpenBrace, globalWsAfterOpenBrace, globalIndentContent, globalWsBeforeCloseBrace;

    // Namespaces
    WsProperty wsBeforeNsOpenBrace, wsAfterNsOpenBrace, indentNsContent, wsBeforeNsCloseBrace;

    // Classes
    WsProperty wsAfterClassName, wsBeforeClassOpenBrace, wsAfterClassOpenBrace, indentClassContent,
        wsBeforeClassCloseBrace, wsBeforeBaseClauses, wsBeforeBaseClausesComma, wsBetweenBaseClauses,
        wsBeforeAccessSpecs, indentAccessSpecLabel;
    bool alignBaseClausesLeft = false;
    bool alignClassMemberNamesLeft = false;

    // Types and data
    WsProperty wsAfterParamTypeId, wsAfterDdTypeId, indentDdContent, wsAfterDdName, wsAfterDdRbracket,
        wsBetweenExprOpOperands, wsAfterFnCallName;
    bool dataDoNotFormat = false;
    bool alignDdNamesLeft = false;
    bool alignDdInitializers = false;
    bool alignFnCallArgsLeft = false;

    // Functions
    WsProperty wsAfterFnDefnReturnType, wsAfterFnDeclReturnType, wsAfterFnName, wsBeforeFnOpenBrace, wsAfterFnOpenBrace,
        indentFnContent, wsBeforeFnCloseBrace, wsAfterFnOpenParen, wsBeforeFnComma, wsBetweenFnParams,
        wsBeforeFnCloseParen;
    bool alignFnParamsLeft = false;
    bool fnDoNotFormat = false;
    bool alignFnDeclNamesLeft = false;

    // Member initializer lists
    WsProperty wsBeforeClassInitList, wsBeforeClassInits, wsBeforeClassInitsComma, wsBetweenClassInits,
        wsAfterClassInitList;

    // Templates
    WsProperty wsBeforeTpOpenBracket, wsAfterTpOpenBracket, wsBeforeTpComma, wsBetweenTpParams, wsBeforeTpCloseBracket,
        wsAfterTpCloseBracket;
    bool alignTpParamsLeft = false;

    // Control statements
    WsProperty wsBeforeCsOpenBrace, wsAfterCsKey, wsAfterCsOpenBrace, wsBetweenCs, wsBeforeCsCloseBrace,
        indentCsContent, wsBetweenCsForClauses, wsAfterCsOpenParen, wsBeforeCsCloseParen, indentCsCaseContent,
        indentCsCaseLabels, wsAfterCsCaseLabels;
    bool alignCsForClausesLeft = false;

    // Enums
    WsProperty wsBeforeEnumOpenBrace, wsAfterEnumOpenBrace, wsBeforeEnumCloseBrace, wsBeforeEnumComma,
        wsBetweenEnumElements, indentEnumContent;
    bool alignEnumInitializers = false;

    // Pointers: -1 the sign stays, 0 it keeps with the type, 1 with the identifier
    std::int32_t asteriskAnchor = -1;
    std::int32_t ampersandAnchor = -1;
    bool hangingAsterisk = false;
    bool hangingAmpersand = false;
};

}  // namespace Brevis
