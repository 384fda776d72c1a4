// One line for a whole run.
#include "Console_RunSummary.h"

#include <array>
#include <cstdio>

namespace Console {

std::size_t& RunSummary::countOf(FileFate fate) {
    switch (fate) {
        case FileFate::Formatted:
            return formatted_;
        case FileFate::Unchanged:
            return unchanged_;
        case FileFate::Refused:
            return refused_;
        default:
            return failed_;
    }
}

void RunSummary::takeBackFormatted() {
    --formatted_;
    ++failed_;
}

std::string RunSummary::text(bool writes, std::chrono::duration<double> time) const {
    std::array<char, 40> seconds{};
    std::snprintf(seconds.data(), seconds.size(), " failed in %.2f s", time.count());
    std::string text = std::to_string(formatted_) + (formatted_ == 1 ? " file " : " files ");
    text += writes ? "formatted, " : "would change, ";
    text += std::to_string(unchanged_) + " unchanged, " + std::to_string(refused_) + " refused, ";
    text += std::to_string(failed_) + seconds.data();
    return protected_ == 0 ? text : text + "; " + std::to_string(protected_) + " left out, write-protected";
}

}  // namespace Console
