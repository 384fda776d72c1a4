// The small shared tools of formatting: column arithmetic, the operations that copy from the input cursor up to a
// position, and the rewriting of gaps without harm to the comments in them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "Brevis_WsProperty.h"
#include "Vellum_ITextDocStream.h"
#include "Vellum_OIndentStream.h"
#include "Vellum_Position.h"

namespace Brevis {

using Vellum::IndentStreamSettings;
using Vellum::IndentStringGuard;
using Vellum::ITextDocStream;
using Vellum::LeadingWsGuard;
using Vellum::OIndentStream;
using Vellum::Position;
using Vellum::Verbatim;

// ---- Column arithmetic. Columns count from 0; a tab stop lies at each multiple of the tab size.

int charWidth(char c, int column, int tabSize);
int columnAfter(std::string_view text, int startColumn, int tabSize);
int columnBefore(std::string_view text, int column, int tabSize);
int roundUpToMultiple(int n, int m);
bool isMultiple(int n, int m);
int sameLineDistance(Position a, Position b);

// The text that, used as an indent, reaches `column` under the stream's tab size and convert mode.
std::string indentStringFor(const OIndentStream& stream, int column);
// The width of the stream's indent, from column 0.
int indentWidth(const OIndentStream& stream);
// The 0-based output column of the character written last (0 at column 0).
int lastColumn(const OIndentStream& stream);

// Inserter: `columns` columns of alignment white space; a negative number counts as 0.
struct Pad {
    int columns;
};
OIndentStream& operator<<(OIndentStream& out, Pad pad);

// The pad that moves the output from `column` to an alignment column, which always lies on a tab stop.
int alignPad(int offset, int column, int indentWidth, int tabSize);

// ---- Moving through the input. "Through" reads while the cursor is below the position; "before" then puts the
// ---- last character back when the cursor stands on the position. The views are of the cursor's own text.

std::string_view readThrough(ITextDocStream& in, Position position);
std::string_view readBefore(ITextDocStream& in, Position position);
// These write what was read if the read did not fail, and tell whether it did.
bool copyThrough(ITextDocStream& in, OIndentStream& out, Position position);
bool copyBefore(ITextDocStream& in, OIndentStream& out, Position position);
bool copyThroughRaw(ITextDocStream& in, OIndentStream& out, Position position);
bool copyBeforeRaw(ITextDocStream& in, OIndentStream& out, Position position);
// Character for character: no indent added, no white space dropped.
void writeRaw(OIndentStream& out, std::string_view text);
bool skipThrough(ITextDocStream& in, Position position);
bool skipBefore(ITextDocStream& in, Position position);
std::string_view remainderOf(ITextDocStream& in);

// ---- Gaps: the stretch between two tokens, that is white space, comments and directives.
//
// White space behind a backslash at a line end (outside literals, comments and directives) stays as it is: none of
// these operations takes from it or adds to it.

bool endsInLineToken(std::string_view text);
bool startsWithLineToken(std::string_view text);
// True if any token of the text is a line comment.
bool holdsLineComment(std::string_view text);
// True if any token of the text is a comment or a directive.
bool holdsCommentOrDirective(std::string_view text);

// True if `text` ends in such white space.
bool endsBehindBackslash(std::string_view text);
// Write or append a white-space value, unless it would be added to such white space.
void writeWs(OIndentStream& out, std::string_view ws);
void writeWsVerbatim(OIndentStream& out, std::string_view ws);
void appendWs(std::string& text, std::string_view ws);

void trimLeft(std::string& text);
void trimRight(std::string& text);
std::string_view trimmedLeft(std::string_view text);
std::string_view trimmedRight(std::string_view text);

void setGapTrailing(std::string& text, std::string_view ws);
void setGapLeading(std::string& text, std::string_view ws);
void setGapBoth(std::string& text, std::string_view leading, std::string_view trailing);
void trimGapLeading(std::string& text);
void trimGapTrailing(std::string& text);
void trimGapBoth(std::string& text);
void replaceCharInGap(std::string& text, char from, char to);

// ---- Escapes of a white-space string in a scheme file.

std::string unescapeText(std::string_view text);
std::string escapeText(std::string_view text);

// The lines, counted from 1 for the line the cursor stands on, whose width is above `limit`. Reads to the end.
std::vector<int> overlongLines(ITextDocStream& in, int limit);

}  // namespace Brevis
