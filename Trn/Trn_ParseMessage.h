// One report of the parser or the pipeline, and the list that they append to.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "Trn_Position.h"

namespace Trn {

struct ParseMessage {
    std::int32_t severity = 3;  // 1 information, 2 warning, 3 error
    Position position;          // (0,0) where there is none
    std::int32_t code = 0;      // the parser's code, 0 where the message carries its own text
    std::string text;
};

using ParseMessageList = std::vector<ParseMessage>;

}  // namespace Trn
