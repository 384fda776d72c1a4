// The first line is measured from the cursor's column, all others from column 0.
#include "first/wrap/Brevis_OverlongLines.h"

#include <algorithm>
#include <string_view>

#include "first/wrap/Brevis_WrapMeasure.h"

namespace Brevis {

std::vector<int> overlongLines(ITextDocStream& in, int limit) {
    std::vector<int> lines;
    int startColumn = in.column();
    std::string_view rest = in.readRest();
    for (int line = 1; !rest.empty(); ++line, startColumn = 0) {
        const std::size_t length = std::min(rest.find('\n'), rest.size());
        if (isWider(rest.substr(0, length), startColumn, in.tabSize(), limit)) lines.push_back(line);
        rest.remove_prefix(std::min(length + 1, rest.size()));
    }
    return lines;
}

}  // namespace Brevis
