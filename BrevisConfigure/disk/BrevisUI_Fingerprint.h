// Size and hash of a text: enough to know it again.
#pragma once

#include <cstdint>
#include <string_view>

namespace BrevisUI {

struct Fingerprint {
    std::uint64_t size = 0;
    std::uint64_t hash = 0;

    friend bool operator==(const Fingerprint&, const Fingerprint&) = default;
};

// FNV-1a.
constexpr Fingerprint fingerprintOf(std::string_view text) {
    std::uint64_t hash = 0xcbf29ce484222325;
    for (const char character : text) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001b3;
    }
    return {text.size(), hash};
}

}  // namespace BrevisUI
