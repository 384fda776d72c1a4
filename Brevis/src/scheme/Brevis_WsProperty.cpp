// Reading of white-space properties.
#include "scheme/Brevis_WsProperty.h"

namespace Brevis {

WsProperty wsProperty(const PropertySet& properties, std::string_view key) {
    WsProperty property;
    property.isSet = properties.getString(key, property.text);
    return property;
}

}  // namespace Brevis
