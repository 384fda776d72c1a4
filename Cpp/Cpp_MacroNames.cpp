// The list of names as it stands in a text.
#include "Cpp_MacroNames.h"

#include "Vellum_WhiteSpace.h"

namespace Cpp {

void MacroNames::add(Sort sort, std::string_view names) {
    for (names = Vellum::withoutLeadingSpace(names); !names.empty(); names = Vellum::withoutLeadingSpace(names)) {
        std::size_t size = 0;
        while (size < names.size() && !Vellum::isSpace(names[size])) ++size;
        sorts_[std::string(names.substr(0, size))] = sort;
        names.remove_prefix(size);
    }
}

}  // namespace Cpp
