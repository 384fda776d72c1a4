// Texts of the parts without a toolkit in the user's language.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <string>
#include <string_view>

#include "editor/BrevisUI_PropertySearch.h"
#include "qt/BrevisUI_Text.h"

namespace BrevisUI {

// A label or message. Marks of accelerators stay in it.
inline QString translated(std::string_view text) {
    return QCoreApplication::translate("BrevisUI", std::string(text).c_str());
}

// The same for a place that knows no accelerators: "&&" is one "&".
inline QString translatedPlain(std::string_view label) { return toQt(plainLabel(fromQt(translated(label)))); }

// The same without the colon at its end, for lists.
inline QString bareLabel(std::string_view label) {
    QString text = translatedPlain(label).trimmed();
    while (text.endsWith(u':') || text.endsWith(u' ')) text.chop(1);
    return text;
}

}  // namespace BrevisUI
