// Column arithmetic: pure functions of texts and numbers. Columns count from 0; a tab stop lies at each multiple of the
// tab size.
#pragma once

#include <string_view>

#include "Vellum_Position.h"

namespace Brevis {

int charWidth(char c, int column, int tabSize);
int columnAfter(std::string_view text, int startColumn, int tabSize);
int columnBefore(std::string_view text, int column, int tabSize);
int roundUpToMultiple(int n, int m);
bool isMultiple(int n, int m);
int sameLineDistance(Vellum::Position a, Vellum::Position b);

// The pad that moves the output from `column` to an alignment column, which always lies on a tab stop.
int alignPad(int offset, int column, int indentWidth, int tabSize);

}  // namespace Brevis
