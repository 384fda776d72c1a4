// The dialect and language that a text was read in. A piece of it that is read anew is read in the same ones.
#pragma once

#include "Cpp_Dialect.h"

namespace Brevis {

struct LeafDialect {
    Cpp::Dialect dialect = Cpp::Dialect::classic;
    Cpp::Language language = Cpp::Language::cpp;
};

}  // namespace Brevis
