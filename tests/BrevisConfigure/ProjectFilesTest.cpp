// The readers of projects and workspaces. A sample under projects/ is a file or directory NAME with what it lists in
// NAME.expected, each project with its files and then the complaints; paths start at projects/.
#include "projects/BrevisUI_ProjectFiles.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "../support/TestFiles.h"
#include "projects/BrevisUI_ProjectError.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;

const std::string samples = CORVANE_SOURCE_DIR "/tests/BrevisConfigure/projects";

std::string listing(const std::string& path) {
    const ProjectList list = readProjects(path);
    std::string text;
    for (const Project& project : list.projects) {
        text += project.name + "\n";
        for (const std::string& file : project.files) text += "  " + file + "\n";
    }
    for (const auto& [severity, complaint] : list.complaints)
        text += std::to_string(severity) + ": " + complaint + "\n";
    return text;
}

// Takes the directory of the samples away wherever it stands; what is beside it begins with "..".
std::string shortened(std::string text) {
    const std::string beside = fs::path(samples).parent_path().string();
    for (std::size_t at; (at = text.find(samples + "/")) != std::string::npos;) text.erase(at, samples.size() + 1);
    for (std::size_t at; (at = text.find(beside)) != std::string::npos;) text.replace(at, beside.size(), "..");
    return text;
}

TEST(ProjectFiles, ListWhatTheSamplesHold) {
    setenv("CORVANE_TEST_ROOT", "/root/of/the/test", 1);
    int count = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(samples)) {
        if (entry.path().extension() != ".expected") continue;
        const std::string path = entry.path().string(), sample = path.substr(0, path.rfind('.'));
        EXPECT_EQ(TestFiles::contents(path), shortened(listing(sample))) << sample;
        ++count;
    }
    EXPECT_EQ(12, count);
}

// Behind a link ".." leads to where the link's target stands, which is another file.
TEST(ProjectFiles, KeepWhatALinkMeans) {
    const TestFiles::TempDir dir;
    fs::create_directories(dir.file("real/deep"));
    dir.file("real/s.c", "");
    fs::create_directory_symlink(dir.file("real/deep"), dir.file("link"));
    const std::string list = dir.file("compile_commands.json", R"([{"directory": "link", "file": "../s.c"}])");
    EXPECT_EQ(list + "\n  " + dir.file("link/../s.c") + "\n", listing(list));
}

constexpr const char* dspHead = "# Microsoft Developer Studio Project File - Name=\"x\" - Package Owner=<4>\n";
constexpr const char* dswHead = "Microsoft Developer Studio Workspace File, Format Version 6.00\n";
constexpr const char* slnHead = "\r\nMicrosoft Visual Studio Solution File, Format Version 12.00\r\n";

std::string errorOf(const std::string& path) {
    try {
        readProjects(path);
    } catch (const Trn::Exception& error) {
        return error.what();
    }
    return "no error";
}

TEST(ProjectFiles, TellFileAndLineOfAMalformedFile) {
    const TestFiles::TempDir dir;
    const struct {
        const char* name;
        std::string text;
        std::string error;  // behind the path
    } cases[] = {
        {"a.dsp", "\n\nint main();\n", "(3) : error: The file is not a Developer Studio project."},
        {"b.dsp", "", "(1) : error: The file is not a Developer Studio project."},
        {"c.dsp", std::string(dspHead) + "SOURCE=\"a.c\n",
         "(2) : error: The name of a source file has no closing quote."},
        {"d.dsp", std::string(dspHead) + "# Begin Group \"g\"\n# Begin Source File\n# End Group\n",
         "(4) : error: \"End Group\" has no beginning."},
        {"e.dsp", std::string(dspHead) + "# Begin Project\n\n", "(2) : error: \"Begin Project\" has no end."},
        {"a.dsw", "x", "(1) : error: The file is not a Developer Studio workspace."},
        {"b.dsw", std::string(dswHead) + "Project: \"x\n", "(2) : error: The name of a project in quotes is missing."},
        {"c.dsw", std::string(dswHead) + "Project: \"x\"=\".\\x.dsp\n",
         "(2) : error: The path of a project is missing."},
        {"d.dsw", std::string(dswHead) + "{{{\n", "(2) : error: \"{{{\" has no end."},
        {"a.sln", "", "(1) : error: The file is not a solution."},
        {"b.sln", std::string(slnHead) + "Project(\"{1}\") = \"x\"\n",
         "(3) : error: The name and the path of a project are expected here."},
        {"c.sln", std::string(slnHead) + "Project(\"{1}\") = \"x\", \"x.dsp\", \"{2}\"\nGlobal\n",
         "(3) : error: \"Project\" has no end."},
        {"d.sln", std::string(slnHead) + "EndProject\n", "(3) : error: \"EndProject\" has no beginning."},
        {"a.slnx", "<Project/>", "(1) : error: The element \"Solution\" is expected here."},
        {"a.vcxproj", "<Project>\n<ItemGroup\n", "(2) : error: The file cannot be read as XML."},
        {"b.vcxproj", "", "(1) : error: The file cannot be read as XML."},
        {"a.json", "[\n{\"directory\": \"/\",\n}]", "(3) : error: The file cannot be read as JSON."},
        {"b.json", "[\n{\"directory\": \"/\",\n\"file\": 1}\n]", "(3) : error: The entry names no file."},
        {"c.json", "\n{}", "(2) : error: A list is expected here."},
        {"d.json", "7", "(1) : error: A list is expected here."},
        {"e.json", "[{\"file\": \"a\"},\n[]]", "(2) : error: An entry must be an object."},
        {"f.json", "", "(1) : error: The file cannot be read as JSON."},
        {"a.cpp", "", " : error: Corvane C++ cannot read projects of this kind."},
    };
    for (const auto& [name, text, error] : cases) {
        const std::string path = dir.file(name, text);
        EXPECT_EQ(path + error, errorOf(path));
    }
    EXPECT_EQ(dir.file("gone.dsp") + " : error: The file cannot be found.", errorOf(dir.file("gone.dsp")));
    fs::create_directory(dir.file("empty"));
    EXPECT_EQ(dir.file("empty/compile_commands.json") + " : error: The file cannot be found.",
              errorOf(dir.file("empty")));
}

}  // namespace
}  // namespace BrevisUI
