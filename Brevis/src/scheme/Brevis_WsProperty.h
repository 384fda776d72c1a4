// The in-memory form of a white-space, indent or margin property.
#pragma once

#include <string>

namespace Brevis {

// Unset leaves the source's white space alone; set replaces it; set to empty removes it.
struct WsProperty {
    bool isSet = false;
    std::string text;

    bool holdsLineFeed() const { return isSet && text.find('\n') != std::string::npos; }
    bool operator==(const WsProperty&) const = default;
};

inline const WsProperty noWs{};
inline const WsProperty newlineWs{true, "\n"};

}  // namespace Brevis
