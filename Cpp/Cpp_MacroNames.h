// Names of macros that a user has told, for places where the shape of the tokens alone doesn't show what a name stands
// for. Plain data, filled once and only read afterwards.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace Cpp {

class MacroNames {
public:
    enum class Sort : std::uint8_t {
        None,
        Item,  // with its bracket, if it has one, a whole item or statement that needs no `;`
        Loop,  // with its bracket the head of a loop, whose body follows
    };

    // `names` are separated by white space. A name that is told twice is what it was told to be last.
    void add(Sort sort, std::string_view names);

    bool empty() const { return sorts_.empty(); }
    Sort sortOf(std::string_view name) const {
        const auto found = sorts_.find(name);
        return found == sorts_.end() ? Sort::None : found->second;
    }

private:
    std::map<std::string, Sort, std::less<>> sorts_;
};

}  // namespace Cpp
