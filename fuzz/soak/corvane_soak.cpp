// corvane-soak: tries the engine on files of given directories under drawn schemes and prints what came of it, cause by
// cause. The exit status is 1 if anything was lost or failed.
#include <CLI/CLI.hpp>
#include <algorithm>
#include <fstream>
#include <iostream>
#include <map>
#include <stdexcept>

#include "Soak_Runner.h"
#include "Soak_Sources.h"

namespace {

namespace fs = std::filesystem;

constexpr int exitFault = 1;
constexpr int exitTrouble = 2;

std::vector<Soak::Directory> findDirectories(const std::vector<std::string>& names) {
    std::vector<Soak::Directory> directories;
    for (const std::string& name : names) {
        Soak::Directory directory{name, Soak::sourcesBelow(name)};
        std::cerr << name << ": " << directory.sources.size() << " sources\n";
        if (!directory.sources.empty()) directories.push_back(std::move(directory));
    }
    if (directories.empty()) throw std::runtime_error("no sources found");
    return directories;
}

std::vector<Brevis::PropertySet> shippedSchemes() {
    std::vector<fs::path> paths;
    for (const fs::directory_entry& entry : fs::directory_iterator(fs::path(CORVANE_SOURCE_DIR) / "schemes")) {
        if (entry.path().extension() == ".fsc") paths.push_back(entry.path());
    }
    std::sort(paths.begin(), paths.end());
    std::vector<Brevis::PropertySet> schemes;
    for (const fs::path& path : paths) {
        std::ifstream in(path);
        schemes.emplace_back().read(in);
        if (in.fail()) throw std::runtime_error("no scheme file: " + path.string());
    }
    return schemes;
}

int soak(int argc, char** argv) {
    CLI::App app("Tries the engine on the sources below directories under drawn schemes.");
    Soak::Settings settings;
    std::string folder = "soak";
    std::vector<std::string> names;
    app.add_option("--seed", settings.seed, "which files and schemes are drawn");
    app.add_option("--minutes", settings.minutes, "how long");
    app.add_option("--pairs", settings.pairs, "how many pairs of a file and a scheme");
    app.add_option("--first", settings.first, "the number of the first pair");
    app.add_option("--shrinks", settings.shrinks, "how many samples are made small");
    app.add_option("--out", folder, "the folder for the smallest text and scheme of each cause");
    const std::map<std::string, Brevis::DialectChoice> dialects{{"auto", Brevis::DialectChoice::automatic},
                                                                {"classic", Brevis::DialectChoice::classic},
                                                                {"modern", Brevis::DialectChoice::modern}};
    app.add_option("--dialect", settings.reading.dialect, "auto, classic or modern")
        ->transform(CLI::CheckedTransformer(dialects));
    app.add_flag("--shipped", settings.shippedOnly, "no drawn schemes, only the shipped ones, wrapping or not");
    app.add_option("DIR", names)->required();
    CLI11_PARSE(app, argc, argv);
    if (settings.minutes <= 0 && settings.pairs == 0) settings.minutes = 1;
    settings.folder = folder;
    fs::create_directories(settings.folder);

    Soak::Runner runner(settings, findDirectories(names), shippedSchemes());
    runner.run();
    runner.report(std::cout);
    return runner.foundFault() ? exitFault : 0;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return soak(argc, argv);
    } catch (const std::exception& exception) {
        std::cerr << "corvane-soak: " << exception.what() << '\n';
        return exitTrouble;
    }
}
