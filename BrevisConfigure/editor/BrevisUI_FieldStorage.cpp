// Fields and the tables of a scheme, type by type.
#include "editor/BrevisUI_FieldStorage.h"

namespace BrevisUI {

namespace {

using Brevis::ChoiceValue;
using Brevis::PropertyInfo;
using Brevis::PropertyType;

// What a user can set. A scheme may have other numbers, which stay as they are until they are changed.
constexpr std::int32_t greatestNumber = 32767;

FieldKind kindOf(PropertyType type) {
    switch (type) {
        case PropertyType::Indent:
            return FieldKind::Indent;
        case PropertyType::Flag:
            return FieldKind::Flag;
        case PropertyType::Number:
            return FieldKind::Number;
        case PropertyType::Choice:
            return FieldKind::Choice;
        case PropertyType::Names:
            return FieldKind::Names;
        default:
            return FieldKind::WhiteSpace;
    }
}

// Where an absent key differs from every value that the control can show.
bool needsSwitch(const PropertyInfo& property, FieldKind kind) {
    const bool isValue = kind == FieldKind::WhiteSpace || kind == FieldKind::Indent || kind == FieldKind::Number;
    return isValue && property.edition != 1;
}

// The value of a choice without a selected button.
std::int32_t valueOfNone(const PropertyInfo& property) {
    for (const ChoiceValue& choice : property.choices) {
        if (choice.label.empty()) return choice.value;
    }
    return 0;
}

std::int32_t chosenValue(const PropertyInfo& property, std::optional<std::size_t> selected) {
    if (!selected) return valueOfNone(property);
    std::size_t button = 0;
    for (const ChoiceValue& choice : property.choices) {
        if (!choice.label.empty() && button++ == *selected) return choice.value;
    }
    return valueOfNone(property);
}

std::optional<std::size_t> buttonOf(const PropertyInfo& property, std::int32_t value) {
    std::size_t button = 0;
    for (const ChoiceValue& choice : property.choices) {
        if (choice.label.empty()) continue;
        if (choice.value == value) return button;
        ++button;
    }
    return std::nullopt;
}

}  // namespace

PageField makeField(const PropertyInfo& property) {
    PageField field;
    field.property = &property;
    field.kind = kindOf(property.type);
    field.group = property.group;
    field.label = property.label;
    field.choices = choiceLabels(property);
    field.hasSwitch = needsSwitch(property, field.kind);
    if (field.kind == FieldKind::Number || field.kind == FieldKind::Indent) field.most = greatestNumber;
    return field;
}

std::vector<std::string_view> choiceLabels(const PropertyInfo& property) {
    std::vector<std::string_view> labels;
    for (const ChoiceValue& choice : property.choices) {
        if (!choice.label.empty()) labels.push_back(choice.label);
    }
    return labels;
}

std::int32_t numberOf(const PageField& field) {
    switch (field.kind) {
        case FieldKind::Flag:
            return field.value.isChecked ? 1 : 0;
        case FieldKind::Choice:
            return chosenValue(*field.property, field.value.selected);
        default:
            return field.value.number;
    }
}

bool loadValue(const Brevis::PropertySet& scheme, PageField& field) {
    const PropertyInfo& property = *field.property;
    std::string text(property.defaultText);
    std::int32_t number = property.defaultNumber;
    bool isTrue = number != 0;
    bool isThere = false;
    switch (field.kind) {
        case FieldKind::Flag:
            isThere = scheme.getBool(property.key, isTrue);
            field.value.isChecked = isTrue;
            break;
        case FieldKind::Number:
            isThere = scheme.getInt(property.key, number);
            field.value.number = number;
            break;
        case FieldKind::Choice:
            isThere = scheme.getInt(property.key, number);
            field.value.selected = buttonOf(property, number);
            break;
        case FieldKind::Indent:
            isThere = scheme.getString(property.key, text);
            field.value.indent = showIndent(text);
            break;
        case FieldKind::WhiteSpace:
        case FieldKind::Names:
            isThere = scheme.getString(property.key, field.value.text = text);
            break;
    }
    field.value.isAbsent = !isThere && property.edition != 1;
    return isThere;
}

void storeValue(const PageField& field, Brevis::PropertySet& scheme) {
    if (field.value.isAbsent) {
        // The key may stand there with another type, which means nothing and stays.
        PageField stored = field;
        if (loadValue(scheme, stored)) eraseKey(field.key(), scheme);
        return;
    }
    switch (field.kind) {
        case FieldKind::Flag:
            return scheme.setBool(field.key(), field.value.isChecked);
        case FieldKind::Number:
        case FieldKind::Choice:
            return scheme.setInt(field.key(), numberOf(field));
        case FieldKind::Indent:
            return scheme.setString(field.key(), readIndent(field.value.indent));
        case FieldKind::WhiteSpace:
        case FieldKind::Names:
            return scheme.setString(field.key(), field.value.text);
    }
}

void eraseKey(std::string_view key, Brevis::PropertySet& scheme) {
    while (scheme.erase(key)) {
    }
}

}  // namespace BrevisUI
