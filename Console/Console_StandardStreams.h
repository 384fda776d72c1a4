// The standard streams of a console program.
#pragma once

#include <string_view>

namespace Console {

// To be called before anything is opened. A standard stream that the caller has closed is opened on something harmless,
// so that no file of ours can take its number; writing to it still fails. A reader that has gone becomes a failed
// write, and so does a file that is longer than the user's limit.
void prepareStandardStreams();

// Standard output. It remembers the first failure, so that it can be told at the end.
class StandardOutput {
public:
    StandardOutput();
    void write(std::string_view text);
    // False once a write has failed.
    bool good() const { return error_ == 0; }
    // Brings what was written in front of whatever standard error gets next.
    void flush();
    // Writes what is held back. Gives 0, or the error number of the first failure.
    int finish();

private:
    void noteFailure();

    int error_ = 0;
};

// Whether a stream, given by its number, is a terminal.
bool isTerminal(int stream);
// The same for one that can go back in its line and erase it.
bool isCapableTerminal(int stream);

// One line on standard error.
void writeErrorLine(std::string_view line);

}  // namespace Console
