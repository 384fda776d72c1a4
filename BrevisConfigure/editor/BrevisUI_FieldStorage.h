// How the value of a control stands in a scheme. It knows one field at a time and no rules of pages.
#pragma once

#include "editor/BrevisUI_PageField.h"
#include "scheme/Brevis_PropertySet.h"

namespace BrevisUI {

// The field of a property as it is before anything is loaded.
PageField makeField(const Brevis::PropertyInfo& property);

// The labels of the radio buttons: those of the values that have one.
std::vector<std::string_view> choiceLabels(const Brevis::PropertyInfo& property);
// The number that a field stands for in the condition of another one: 1 for a checked box, the value of a choice.
std::int32_t numberOf(const PageField& field);

// Takes the value from the scheme. False if the key is missing; the field has the page default then, and counts as
// absent if its key is none of the first edition.
bool loadValue(const Brevis::PropertySet& scheme, PageField& field);
// A choice without a selected button stores the value that stands for none. An absent value takes the key away.
void storeValue(const PageField& field, Brevis::PropertySet& scheme);
// Removes a key from all tables.
void eraseKey(std::string_view key, Brevis::PropertySet& scheme);

}  // namespace BrevisUI
