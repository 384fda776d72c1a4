// The hash is FNV-1a; its upper half, which more bytes of the name have a say in, is mixed into the lower.
#include "Console_Shard.h"

#include <charconv>

#include "disk/BrevisUI_Fingerprint.h"

namespace Console {

namespace {

std::optional<std::uint64_t> parseNumber(std::string_view text) {
    std::uint64_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return number;
}

}  // namespace

bool Shard::holds(std::string_view name) const {
    const std::uint64_t hash = BrevisUI::fingerprintOf(name).hash;
    return (hash ^ hash >> 32) % count == index - 1;
}

std::optional<Shard> parseShard(std::string_view text) {
    const std::size_t slash = text.find('/');
    if (slash == std::string_view::npos) return std::nullopt;
    const auto index = parseNumber(text.substr(0, slash)), count = parseNumber(text.substr(slash + 1));
    if (!index || !count || *index < 1 || *index > *count) return std::nullopt;
    return Shard{*index, *count};
}

}  // namespace Console
