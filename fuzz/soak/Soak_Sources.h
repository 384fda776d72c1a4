// The files that a soak draws from.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace Soak {

inline constexpr std::uintmax_t largestSource = 300'000;

// The C and C++ sources below a directory, extensionless headers included, in the order of their paths. Links and what
// can't be read are passed over.
std::vector<std::filesystem::path> sourcesBelow(const std::filesystem::path& directory);

}  // namespace Soak
