// A plain copy of the state of an OIndentStream. It opens a scratch stream that behaves exactly
// as the real one would at the place where the text will land.
#pragma once

#include <string>

namespace Vellum {

struct IndentStreamSettings {
    std::string indent;
    bool keepLeadingWs = false;
    int convertMode = 0;  // 0 no conversion, 1 tabs to spaces, 2 spaces to tabs
    int tabSize = 1;
    int line = 1;
    int column = 0;  // 0-based output column
    // Only white space stands between this place and a backslash at a line end outside literals, comments and
    // directives, so that white space written here belongs to what has to stay as it is.
    bool behindBackslash = false;
};

}  // namespace Vellum
