// Whatever else happens, a program tells why it ends.
#include "Console_ProgramMain.h"

#include <algorithm>
#include <cstring>
#include <exception>

namespace Console {

void complainOf(std::string_view program, const std::string& complaint) {
    writeErrorLine(std::string(program) + ": " + complaint);
}

void complainOfArguments(std::string_view program, const std::string& complaint) {
    complainOf(program, complaint);
    complainOf(program, "try '" + std::string(program) + " --help' for more information");
}

int runProgram(std::string_view program, int trouble, const std::function<int(StandardOutput&)>& run) {
    prepareStandardStreams();
    try {
        StandardOutput output;
        const int status = run(output);
        const int error = output.finish();
        if (error == 0) return status;
        complainOf(program, std::string("write error: ") + std::strerror(error));
        return std::max(status, trouble);
    } catch (const std::exception& exception) {
        complainOf(program, exception.what());
    }
    return trouble;
}

}  // namespace Console
