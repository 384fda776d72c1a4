// corvane-pages: writes the manual pages and the completions of shells into a directory. It runs during the build and
// is not installed.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include "Console_ManualPages.h"

namespace {

bool write(const std::filesystem::path& path, const std::string& text) {
    std::filesystem::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file << text;
    return file.flush().good();
}

bool writePages(const std::filesystem::path& directory, const Console::ProgramManual& manual) {
    const std::string name(manual.name);
    return write(directory / "man" / (name + ".1"), Console::manualPage(manual, CORVANE_VERSION_TEXT)) &&
           write(directory / "bash" / name, Console::bashCompletion(manual)) &&
           write(directory / "zsh" / ("_" + name), Console::zshCompletion(manual)) &&
           write(directory / "fish" / (name + ".fish"), Console::fishCompletion(manual));
}

}  // namespace

int main(int argc, char** argv) {
    const auto areWritten = [&](auto... manuals) { return (writePages(argv[1], *manuals) && ...); };
    if (argc == 2 && areWritten(&Console::formatManual, &Console::inspectManual, &Console::inferManual)) return 0;
    std::cerr << "corvane-pages: could not write the pages\n";
    return 2;
}
