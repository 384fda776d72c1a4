// Where a text that is being wrapped will stand.
#pragma once

#include <algorithm>
#include <optional>

#include "first/text/Brevis_Columns.h"
#include "first/text/Brevis_Copying.h"
#include "first/text/Brevis_Gaps.h"
#include "first/text/Brevis_StreamColumns.h"
#include "scheme/Brevis_WsProperty.h"

namespace Brevis {

class ColumnFold;

// The settings that a scratch stream is opened with, as a difference to those that the caller gave. The indent of a
// call's arguments reaches the column of the call's name; it is kept as that column, because it is only spelled out for
// a line that is really broken. Refers to the caller's settings, which must outlive it.
struct WrapPlace {
    explicit WrapPlace(const IndentStreamSettings& given)
        : settings(&given), column(given.column), behindBackslash(given.behindBackslash) {}

    // The width of the indent in force.
    int indentWidth() const {
        return indentColumn ? std::max(0, *indentColumn) : columnAfter(settings->indent, 0, settings->tabSize);
    }

    const IndentStreamSettings* settings;
    int column;                       // 0-based output column at which the text begins
    bool behindBackslash;             // as in IndentStreamSettings
    std::optional<int> indentColumn;  // the indent's column where it is not the settings' own
    ColumnFold* fold = nullptr;       // folds columns far beyond the margin, if any
};

}  // namespace Brevis
