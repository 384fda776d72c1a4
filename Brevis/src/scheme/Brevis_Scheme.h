// Every property that the engine uses, as a typed value. A run reads its scheme once and hands this to all stages,
// which keep a reference and copy nothing. Which key fills which member is told by the catalogue
// (Brevis_PropertyCatalogue.h).
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Vellum_IndentStreamSettings.h"
#include "scheme/Brevis_PropertySet.h"
#include "scheme/Brevis_WsProperty.h"

namespace Brevis {

// A key that is missing, or stands in the table of another type, leaves its member as it is initialised here: white
// space unset, a flag false, a text empty, an integer the value that stands below.
struct Scheme {
    // The values of `properties` with the engine's defaults and limits applied. They differ from the page defaults of
    // the catalogue on purpose: these make an incomplete scheme safe to run, those fill in a scheme for a user.
    static Scheme from(const PropertySet& properties);
    bool operator==(const Scheme&) const = default;

    // ---- Global settings
    std::int32_t tabSize = 1;    // 1 to 32767
    std::int32_t convertWs = 0;  // 1 turns tabs to blanks, 2 blanks to tabs, 0 neither
    WsProperty leftMargin;
    // Linkage blocks and plain blocks
    WsProperty globalWsBeforeOpenBrace, globalWsAfterOpenBrace, globalIndentContent, globalWsBeforeCloseBrace;

    // ---- Namespaces
    WsProperty wsBeforeNsOpenBrace, wsAfterNsOpenBrace, indentNsContent, wsBeforeNsCloseBrace;

    // ---- Classes
    WsProperty wsAfterClassName, wsBeforeClassOpenBrace, wsAfterClassOpenBrace, indentClassContent,
        wsBeforeClassCloseBrace;
    WsProperty wsBeforeBaseClauses, wsBeforeBaseClausesComma, wsBetweenBaseClauses;
    WsProperty wsBeforeAccessSpecs, indentAccessSpecLabel;
    bool alignBaseClausesLeft = false;
    bool alignClassMemberNamesLeft = false;

    // ---- Member initializer lists
    WsProperty wsBeforeClassInitList, wsBeforeClassInits, wsBeforeClassInitsComma, wsBetweenClassInits,
        wsAfterClassInitList;

    // ---- Functions
    WsProperty wsAfterFnDefnReturnType, wsAfterFnDeclReturnType, wsAfterFnName;
    WsProperty wsAfterFnOpenParen, wsAfterParamTypeId, wsBeforeFnComma, wsBetweenFnParams, wsBeforeFnCloseParen;
    WsProperty wsBeforeFnOpenBrace, wsAfterFnOpenBrace, indentFnContent, wsBeforeFnCloseBrace;
    bool fnDoNotFormat = false;
    bool alignFnParamsLeft = false;
    bool alignFnDeclNamesLeft = false;

    // ---- Data declarations
    WsProperty wsAfterDdTypeId, wsAfterDdName, wsAfterDdRbracket;
    WsProperty wsBeforeDdOpenBrace, wsAfterDdOpenBrace, indentDdContent, wsBeforeDdComma, wsBetweenDdElements,
        wsBeforeDdCloseBrace;
    bool dataDoNotFormat = false;
    bool alignDdNamesLeft = false;
    bool alignDdInitializers = false;

    // ---- Enums
    WsProperty wsBeforeEnumOpenBrace, wsAfterEnumOpenBrace, indentEnumContent, wsBeforeEnumComma, wsBetweenEnumElements,
        wsBeforeEnumCloseBrace;
    bool alignEnumInitializers = false;

    // ---- Templates
    WsProperty wsBeforeTpOpenBracket, wsAfterTpOpenBracket, wsBeforeTpComma, wsBetweenTpParams, wsBeforeTpCloseBracket,
        wsAfterTpCloseBracket;
    bool alignTpParamsLeft = false;

    // ---- Control statements
    WsProperty wsAfterCsKey, wsAfterCsOpenParen, wsBetweenCsForClauses, wsBeforeCsCloseParen;
    WsProperty wsBeforeCsOpenBrace, wsAfterCsOpenBrace, indentCsContent, wsBeforeCsCloseBrace, wsBetweenCs;
    WsProperty indentCsCaseLabels, wsAfterCsCaseLabels, indentCsCaseContent;
    bool alignCsForClausesLeft = false;

    // ---- Expressions
    WsProperty wsBetweenExprOpOperands;
    WsProperty wsAfterExprOpenParen, wsBeforeExprCloseParen, wsAfterLbracket, wsBeforeRbracket;
    WsProperty wsAfterFnCallName, wsBeforeFnCallComma, wsBetweenFnCallArgs;
    bool alignFnCallArgsLeft = false;

    // ---- Pointers and references. An anchor: -1 the sign stays, 0 it keeps with the type, 1 with the identifier
    std::int32_t asteriskAnchor = -1;
    std::int32_t ampersandAnchor = -1;
    WsProperty wsBetweenAsteriskAnchor, wsBetweenAmpersandAnchor;
    bool hangingAsterisk = false;
    bool hangingAmpersand = false;

    // ---- Preprocessor directives: true at the left margin, false with the surrounding text, absent as they are
    std::optional<bool> alignPpdLeftMost;

    // ---- Line wrapping. A style of 1 breaks in front of the separator, 2 behind it, 0 not
    bool lineWrap = false;
    std::int32_t rightMargin = 0;  // not negative
    std::int32_t wrapStyle = 0;    // a continuation line: 1 is aligned, 2 is indented by wrapIndent, 0 neither
    WsProperty wrapIndent;
    std::int32_t exprWrapStyle = 1;
    std::int32_t shiftWrapStyle = 1;
    std::int32_t commaWrapStyle = 2;    // as the scheme has it: its readers differ over a value beyond 0 to 2
    std::int32_t listWrapStrategy = 0;  // 0 leaves a list, 1 fills lines, 2 puts each element on a line

    // ---- The edition of the rules by which a text is laid out: 1 or 2
    std::int32_t edition = 1;

    // ---- What only the second edition reads, by theme
    // Names of macros, separated by blanks
    std::string forEachMacros, macrosStatement, macrosLoop, macrosNamespaceBegin, macrosNamespaceEnd;
    // The author's line ends, and where the later lines go
    bool keepLineBreaksInExpr = false;
    bool keepLineBreaksInLists = false;
    bool alignContinuationLeft = false;
    bool alignOperandsLeft = false;
    WsProperty indentContinuation;
    // Columns of the author, comments behind code, blank lines (-1: as many as the source has), the ends of lines
    bool keepAlignedColumns = false;
    bool alignTrailingComments = false;
    WsProperty wsBeforeTrailingComment;
    bool keepBlankLinesAtBraces = false;
    std::int32_t maxBlankLines = -1;                // -1 to 1000
    std::int32_t minBlankLinesBetweenFnDefns = -1;  // -1 to 1000
    bool removeTrailingWs = false;
    WsProperty wsAtEndOfFile;
    // Expressions
    WsProperty wsAfterCast, wsAfterNamedCast, wsAfterUnaryOp, wsBetweenSubscriptOpOperands;
    // Statements and labels
    WsProperty wsBetweenStatements, wsBeforeSemicolon;
    WsProperty indentLabel;
    bool alignLabelsLeftMost = false;
    WsProperty wsBeforeCsCaseOpenBrace, wsBeforeCsDoWhile, indentCsCaseBlockContent, indentCsUnbracedContent;
    // Bodies that stay on the line on which the author wrote them, and those without content
    bool keepOneLineFnBodies = false;
    bool keepOneLineCsBodies = false;
    bool keepOneLineCases = false;
    bool keepOneLineClassBodies = false;
    bool keepOneLineEnumBodies = false;
    bool keepOneLineDdBodies = false;
    bool keepOneLineLambdaBodies = false;
    bool keepOneLineClassInits = false;
    WsProperty wsInEmptyBody;
    // Bodies of lambdas, linkage blocks and nested namespaces
    WsProperty wsBeforeLambdaOpenBrace, wsAfterLambdaOpenBrace, indentLambdaContent, wsBeforeLambdaCloseBrace;
    WsProperty wsBeforeLinkageOpenBrace, indentLinkageContent, indentNestedNsContent;
    // Functions defined in a class
    WsProperty wsAfterClassFnDefnReturnType;

    // ---- What follows from several members
    // Items that are to stand in one column have a line feed between them. Template arguments inside an expression go
    // by wsBetweenTpParams alone.
    const WsProperty& betweenBaseClauses() const { return alignBaseClausesLeft ? newlineWs : wsBetweenBaseClauses; }
    const WsProperty& betweenFnParams() const { return alignFnParamsLeft ? newlineWs : wsBetweenFnParams; }
    const WsProperty& betweenTpParams() const { return alignTpParamsLeft ? newlineWs : wsBetweenTpParams; }
    // A value for call arguments comes before their alignment.
    const WsProperty& betweenFnCallArgs() const {
        return alignFnCallArgsLeft && !wsBetweenFnCallArgs.isSet ? newlineWs : wsBetweenFnCallArgs;
    }
    // The settings of an output stream at the start of a text.
    Vellum::IndentStreamSettings outputSettings() const;
};

}  // namespace Brevis
