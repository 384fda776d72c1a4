// Brings the arguments of a program to CLI11 as they stand.
#pragma once

namespace CLI {
class App;
}

namespace Console {

// As app.parse(argc, argv), but each argument counts as it is written: one like [a,b] is a name and no list, and
// --option= gives the option an empty value and not what comes behind.
void parseArguments(CLI::App& app, int argc, const char* const* argv);

}  // namespace Console
