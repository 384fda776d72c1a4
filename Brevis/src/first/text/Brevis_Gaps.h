// Gaps: the stretch between two tokens, that is white space, comments and directives. These operations rewrite the
// white space at the ends of a gap without harm to the comments in it.
//
// White space behind a backslash at a line end (outside literals, comments and directives) stays as it is: none of
// these operations takes from it or adds to it.
#pragma once

#include <string>
#include <string_view>

#include "first/text/Brevis_TextStreams.h"

namespace Brevis {

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

}  // namespace Brevis
