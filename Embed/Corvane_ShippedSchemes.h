// The schemes that come with the library, as the build finds them in schemes/.
#pragma once

#include <span>
#include <string_view>

namespace corvane {

struct ShippedScheme {
    std::string_view name;
    std::string_view text;
};

extern const std::span<const ShippedScheme> shippedSchemes;

}  // namespace corvane
