// One control of a page of the scheme editor, as plain values: what a window has to draw, and what a user has set.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/BrevisUI_IndentEntry.h"
#include "scheme/Brevis_PropertyCatalogue.h"

namespace BrevisUI {

enum class FieldKind {
    WhiteSpace,  // a line of text; `value.text`, which showWhiteSpace turns into what the user sees
    Names,       // a line of text; `value.text`, names of macros separated by blanks
    Indent,      // a number and a unit box; `value.indent`
    Flag,        // a check box; `value.isChecked`
    Number,      // a number from `least` to `most`; `value.number`
    Choice,      // a group of radio buttons, one a row of `choices`; `value.selected`
};

// What a control holds. Only the member of the field's kind counts, the others are as they are here.
struct FieldValue {
    std::string text;
    IndentEntry indent;
    bool isChecked = false;
    std::int32_t number = 0;
    std::optional<std::size_t> selected;  // index in `choices`; none: no button is selected
    // The scheme lacks the key and keeps lacking it; the members above are the page default. Never true of a key that
    // the first edition has.
    bool isAbsent = false;

    bool operator==(const FieldValue&) const = default;
};

struct PageField {
    const Brevis::PropertyInfo* property = nullptr;  // never null once it is made
    FieldKind kind = FieldKind::WhiteSpace;
    // The label of the box around its controls; empty: it stands outside all boxes. "&&" shows one "&".
    std::string_view group;
    // As it stands now; "&&" shows one "&". A Choice bears its label on the box around it.
    std::string_view label;
    std::vector<std::string_view> choices;  // labels of the radio buttons
    std::int32_t least = 0, most = 0;       // of a Number, and of the number of an Indent
    bool hasSwitch = false;                 // the control needs a box that says whether the scheme has the key at all
    bool isHidden = false;                  // not to be shown at all
    bool isEnabled = true;
    FieldValue value;
    // A text that was entered and refused, in the form of the entry. The scheme keeps `value.text` meanwhile.
    std::optional<std::string> refusedEntry;

    std::string_view key() const { return property->key; }
    // Of a line of text: what the entry shows when it is filled, the refused text if there is one. A text that is being
    // typed may have another form for the same value, such as a lone backslash on the way to its letter;
    // leave it alone.
    std::string entry() const;
    // The value that an entry stands for; none for one that is refused.
    std::optional<std::string> read(std::string_view entry) const;
};

}  // namespace BrevisUI
