// The engine defaults. They differ from the page defaults of the catalogue on purpose: these make an incomplete scheme
// safe to run, those fill in a scheme for a user.
#include "scheme/Brevis_EngineDefaults.h"

#include "scheme/Brevis_PropertyCatalogue.h"

namespace Brevis {

namespace {

constexpr std::string_view typeGapKeys[] = {Key::WS_AFTER_DD_TYPE_ID, Key::WS_AFTER_FN_DECL_RETURN_TYPE,
                                            Key::WS_AFTER_FN_DEFN_RETURN_TYPE};

bool hasString(const PropertySet& properties, std::string_view key) {
    std::string value;
    return properties.getString(key, value);
}

void defaultInt(PropertySet& properties, std::string_view key, std::int32_t value) {
    std::int32_t present = 0;
    if (!properties.getInt(key, present)) properties.setInt(key, value);
}

// A tab of any size would overflow the columns of a line and fill the memory with blanks.
void limitTabSize(PropertySet& properties) {
    constexpr std::int32_t largest = 32767;
    std::int32_t tabSize = 0;
    if (properties.getInt(Key::TAB_SIZE, tabSize) && tabSize > largest) properties.setInt(Key::TAB_SIZE, largest);
}

void defaultString(PropertySet& properties, std::string_view key, std::string_view value) {
    if (!hasString(properties, key)) properties.setString(key, std::string(value));
}

// A type and a name must not grow together, so an empty value counts as a blank.
void replaceEmptyTypeGaps(PropertySet& properties) {
    for (const std::string_view key : typeGapKeys) {
        std::string value;
        if (properties.getString(key, value) && value.empty()) properties.setString(key, " ");
    }
}

// A scheme that places pointer signs decides the white space behind the type, so there must be a value to work with.
void supplyTypeGaps(PropertySet& properties) {
    for (const std::string_view key : typeGapKeys) {
        std::string value;
        properties.getString(key, value);
        if (value.empty()) properties.setString(key, " ");
    }
}

}  // namespace

void applyEngineDefaults(PropertySet& properties) {
    defaultInt(properties, Key::ASTERISK_ANCHOR, -1);
    defaultInt(properties, Key::AMPERSAND_ANCHOR, -1);
    defaultInt(properties, Key::TAB_SIZE, 1);
    limitTabSize(properties);
    defaultString(properties, Key::WS_AFTER_PARAM_TYPE_ID, " ");
    replaceEmptyTypeGaps(properties);
    if (hasString(properties, Key::WS_BETWEEN_AMPERSAND_ANCHOR) ||
        hasString(properties, Key::WS_BETWEEN_ASTERISK_ANCHOR)) {
        supplyTypeGaps(properties);
    }
    defaultInt(properties, Key::CONVERT_WS, 0);
    bool wrapsLines = false;
    properties.getBool(Key::LINE_WRAP, wrapsLines);
    if (wrapsLines) defaultString(properties, Key::WS_BETWEEN_EXPR_OP_OPERANDS, " ");
    defaultInt(properties, Key::EXPR_WRAP_STYLE, 1);
}

PropertySet withEngineDefaults(const PropertySet& properties) {
    PropertySet copy = properties;
    applyEngineDefaults(copy);
    return copy;
}

}  // namespace Brevis
