// Runs another program and takes what it writes. The only place that starts processes; no shell is involved.
#pragma once

#include <string>
#include <vector>

namespace Console {

struct ChildResult {
    int status = -1;  // of its exit; -1 if it could not be started or was ended by a signal
    std::string output;
};

// Runs `arguments`, the first of which is looked for in PATH, with an empty standard input and our standard error, or
// none if `quiet`. Waits for the end.
ChildResult runProgram(const std::vector<std::string>& arguments, bool quiet = false);

}  // namespace Console
