// The typed reading of one property, overloaded on the type of the value. True if the key stands in the table of that
// type; otherwise the value is left alone.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "scheme/Brevis_PropertySet.h"
#include "scheme/Brevis_WsProperty.h"

namespace Brevis {

inline bool readValue(const PropertySet& properties, std::string_view key, bool& value) {
    return properties.getBool(key, value);
}

inline bool readValue(const PropertySet& properties, std::string_view key, std::int32_t& value) {
    return properties.getInt(key, value);
}

inline bool readValue(const PropertySet& properties, std::string_view key, std::string& value) {
    return properties.getString(key, value);
}

inline bool readValue(const PropertySet& properties, std::string_view key, WsProperty& value) {
    if (!properties.getString(key, value.text)) return false;
    value.isSet = true;
    return true;
}

inline bool readValue(const PropertySet& properties, std::string_view key, std::optional<bool>& value) {
    bool present = false;
    if (!properties.getBool(key, present)) return false;
    value = present;
    return true;
}

}  // namespace Brevis
