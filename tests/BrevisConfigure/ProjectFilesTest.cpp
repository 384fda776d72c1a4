// The readers of projects and workspaces: what they list, and what they tell of malformed files.
#include "projects/BrevisUI_ProjectFiles.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "../support/TestFiles.h"
#include "BrevisUI_Messages.h"
#include "projects/BrevisUI_ProjectError.h"

namespace BrevisUI {
namespace {

namespace fs = std::filesystem;
using Lines = std::vector<std::string>;

constexpr const char* dspHead = "# Microsoft Developer Studio Project File - Name=\"x\" - Package Owner=<4>\n";
constexpr const char* dswHead = "Microsoft Developer Studio Workspace File, Format Version 6.00\n";
constexpr const char* slnHead = "\r\nMicrosoft Visual Studio Solution File, Format Version 12.00\r\n";

std::string item(const std::string& include) { return "<ClCompile Include=\"" + include + "\" />\n"; }
std::string msBuild(const std::string& body) { return "<Project>\n" + body + "</Project>\n"; }

// The text in UTF-16, for a text of ASCII with '@' for U+1F600 and '#' for half of a pair.
std::string utf16(const std::string& text, bool bigEndian) {
    std::u16string units = u"\uFEFF";
    for (const char c : text) {
        if (c == '@') {
            units += u"\U0001F600";
        } else {
            units += c == '#' ? char16_t{0xD801} : static_cast<char16_t>(c);
        }
    }
    std::string bytes;
    for (const char16_t unit : units) {
        const char high = static_cast<char>(unit >> 8), low = static_cast<char>(unit & 0xFF);
        bytes += bigEndian ? std::string{high, low} : std::string{low, high};
    }
    return bytes;
}

class ProjectFilesTest : public testing::Test {
protected:
    // The files of the only project, relative to the directory if they are in it.
    Lines filesOf(const std::string& name, const std::string& text) const {
        const ProjectList list = readProjects(dir.file(name, text));
        EXPECT_EQ(1u, list.projects.size());
        EXPECT_EQ(dir.file(name), list.projects.at(0).name);
        EXPECT_TRUE(list.complaints.empty());
        return relative(list.projects.at(0).files);
    }
    Lines relative(Lines paths) const {
        for (std::string& path : paths) {
            if (path.starts_with(dir.path() + "/")) path.erase(0, dir.path().size() + 1);
        }
        return paths;
    }
    std::string errorOf(const std::string& name, const std::string& text) const {
        dir.file(name, text);
        return errorOf(name);
    }
    std::string errorOf(const std::string& name) const {
        try {
            readProjects(dir.file(name));
        } catch (const Trn::Exception& error) {
            return error.what();
        }
        return "no error";
    }

    TestFiles::TempDir dir;
};

TEST_F(ProjectFilesTest, ListsTheFilesOfADeveloperStudioProject) {
    setenv("CORVANE_TEST_ROOT", dir.path().c_str(), 1);
    const std::string text = std::string(dspHead) +
                             "# TARGTYPE \"Console\" 0x0103\nCFG=x - Debug\n!MESSAGE SOURCE=not.c\n# Begin Project\n"
                             "!IF  \"$(CFG)\" == \"x - Debug\"\n# PROP Use_MFC 0\n!ENDIF\n# Begin Target\n"
                             "# Name \"x - Debug\"\n# Begin Group \"Source - Files\"\n# PROP Default_Filter \"cpp;c\"\n"
                             "# Begin Source File\n\nSOURCE=.\\b.cpp\n\n!IF  \"$(CFG)\" == \"x - Debug\"\n"
                             "# Begin Custom Build - Running $(InputPath)\nInputPath=.\\b.cpp\n# End Custom Build\n"
                             "!ENDIF\n# End Source File\n# Begin Group \"inner\"\n# Begin Source File\n"
                             "SOURCE=\"..\\up\\with blank.h\"\n# End Source File\n# End Group\n# Begin Source File\n"
                             "SOURCE=.\\sub\\..\\b.cpp\n# End Source File\n# End Group\n# Begin Source File\n"
                             "SOURCE=$(CORVANE_TEST_ROOT)\\a.c\n# End Source File\n# Begin Source File\n"
                             "SOURCE=$(NO_SUCH_ROOT)\\c.c\n# End Source File\n# Begin Source File\n"
                             "SOURCE=C:\\lib\\d.c\n# End Source File\n# End Target\n# End Project\n";
    const Lines expected{"p/b.cpp", "up/with blank.h", "a.c", "p/$(NO_SUCH_ROOT)/c.c", "C:/lib/d.c"};
    EXPECT_EQ(expected, filesOf("p/x.dsp", text));
    std::string carriageReturns = "\xEF\xBB\xBF";
    for (const char c : text) carriageReturns += c == '\n' ? "\r\n" : std::string(1, c);
    EXPECT_EQ(expected, filesOf("p/y.DSP", carriageReturns));
}

TEST_F(ProjectFilesTest, ListsTheItemsOfAnXmlProject) {
    for (const char* name : {"p/w/b.cpp", "p/w/a.cpp", "p/w/d/c.cpp", "p/w/not.cpp", "p/w/a.txt"}) dir.file(name, "");
    const std::string text = msBuild(
        "<PropertyGroup Label=\"Globals\"><Shared>$(ProjectDir)..\\shared</Shared></PropertyGroup>\n"
        "<ItemDefinitionGroup><ClCompile><WarningLevel>Level3</WarningLevel></ClCompile></ItemDefinitionGroup>\n"
        "<ItemGroup>" +
        item("z.cpp") + item("sub\\y.cpp;$(shared)\\s%28 1%29.cpp; z.cpp") + item("$(Unknown)x.cpp") +
        "<ClInclude Include=\"&amp;.h\"><Filter>Headers</Filter></ClInclude><None Include=\"readme.txt\" "
        "/></ItemGroup>\n"
        "<ItemGroup Condition=\"false\"><ClCompile Include=\"w\\**\\*.cpp\" Exclude=\"w\\not*\" />" +
        item("w\\?.cpp") + item("$(MSBuildProjectDirectory)/$(MSBuildProjectName).cpp") + item("none\\*.cpp") +
        "</ItemGroup>\n");
    EXPECT_EQ((Lines{"p/z.cpp", "p/sub/y.cpp", "shared/s( 1).cpp", "p/$(Unknown)x.cpp", "p/&.h", "p/w/a.cpp",
                     "p/w/b.cpp", "p/w/d/c.cpp", "p/x.cpp"}),
              filesOf("p/x.vcxproj", text));
    EXPECT_EQ(Lines{"i/q.cpp"}, filesOf("i/x.vcxitems", msBuild(item("$(MSBuildThisFileDirectory)q.cpp"))));
    EXPECT_EQ((Lines{"v/a.cpp", "v/b.h"}),
              filesOf("v/x.vcproj",
                      "<VisualStudioProject><Files><Filter Name=\"s\"><File RelativePath=\".\\a.cpp\">"
                      "</File></Filter><File RelativePath=\"b.h\"/></Files></VisualStudioProject>"));
}

TEST_F(ProjectFilesTest, ReadsTextsWithAByteOrderMark) {
    const std::string text = msBuild(item("a@.cpp"));
    const Lines expected{"a\xF0\x9F\x98\x80.cpp"};
    EXPECT_EQ(expected, filesOf("le.vcxproj", utf16(text, false)));
    EXPECT_EQ(expected, filesOf("be.vcxproj", utf16(text, true)));
    EXPECT_EQ(Lines{"a.cpp"}, filesOf("u8.vcxproj", "\xEF\xBB\xBF" + msBuild(item("a.cpp"))));
    EXPECT_EQ(Lines{"\xEF\xBF\xBDz.cpp"}, filesOf("half.vcxproj", utf16(msBuild(item("#z.cpp")), true)));
    EXPECT_EQ(dir.file("odd.sln") + "(1) : error: The file is not a solution.",
              errorOf("odd.sln", utf16("S", false) + "x"));
}

TEST_F(ProjectFilesTest, ListsTheFilesOfACompilationDatabase) {
    fs::create_directories(dir.file("real/deep"));
    dir.file("real/s.c", "");
    fs::create_directory_symlink(dir.file("real/deep"), dir.file("link"));
    const std::string text = R"([
  {"directory": "/abs/build", "command": "cc -c ../src/a.c", "file": "../src/a.c"},
  {"directory": "/abs/build", "arguments": ["cc", "-c", "b.c"], "file": "/b.c", "output": "b.o"},
  {"directory": "sub", "file": "c\\d \u00e4.c", "extra": {"file": ["not.c"]}},
  {"directory": "/abs/src", "file": "./a.c"},
  {"directory": ")" + dir.file("link") +
                             "\", \"file\": \"../s.c\"}\n]\n";
    const Lines expected{"/abs/src/a.c", "/b.c", "sub/c\\d \xC3\xA4.c", "link/../s.c"};
    EXPECT_EQ(expected, filesOf("compile_commands.json", text));
    EXPECT_EQ(expected, relative(readProjects(dir.path()).projects.at(0).files));
    EXPECT_EQ(Lines(), filesOf("e/compile_commands.json", "[]"));
}

TEST_F(ProjectFilesTest, ListsAWorkspaceInFrontOfItsProjects) {
    const std::string one = dir.file("w/one/one.dsp", std::string(dspHead) + "SOURCE=a.c\nSOURCE=b.c\n");
    const std::string two = dir.file("w/two 2/two.vcxproj", msBuild(item("$(SolutionDir)c.c")));
    const std::string csproj = dir.file("w/other.csproj", "<Project/>");
    const std::string broken = dir.file("w/broken.vcxproj", "<Project>\n<ItemGroup>\n</Project>\n");
    dir.file("w/inner.sln", slnHead);
    const std::string cpp = "{8BC9CEB8-8B4A-11D0-8D11-00A0C91BC942}", folder = "{2150E333-8FDC-42A3-9474-1A3956D46DE8}";
    const auto project = [](const std::string& kind, const std::string& path) {
        return "Project(\"" + kind + "\") = \"n, \", \"" + path +
               "\", \"{1}\"\r\n\tProjectSection(X) = preProject\r\n\tEndProjectSection\r\nEndProject\r\n";
    };
    const struct {
        const char* name;
        std::string text;
        int line;  // of the first project; the others follow at equal distances
        int step;
    } cases[] = {
        {"w/all.dsw",
         std::string(dswHead) + "\n# WARNING\n\nProject: \"one\"=.\\one\\one.dsp - Package Owner=<4>\n\nPackage=<5>\n" +
             "{{{\nProject: \"no\"=.\\no.dsp\n}}}\n\nProject: \"two\"=\".\\two 2\\two.vcxproj\" - Package Owner=<4>\n"
             "Project: \"one\"=one\\one.dsp\nProject: \"g\"=gone.dsp - Package Owner=<4>\nProject: \"c\"=other.csproj\n"
             "Project: \"b\"=broken.vcxproj\nProject: \"i\"=inner.sln\nGlobal:\n\nPackage=<3>\n{{{\n}}}\n",
         14, 1},
        {"w/all.sln",
         slnHead + project(cpp, "one\\one.dsp") + project(folder, "Folder") + project(cpp, "two 2\\two.vcxproj") +
             project(cpp, "gone.dsp") + project("{FAE04EC0}", "other.csproj") + project(cpp, "broken.vcxproj") +
             project(cpp, "inner.sln") + "Global\r\nEndGlobal\r\n",
         15, 4},
        {"w/all.slnx",
         "<Solution>\n<Project Path=\"one/one.dsp\" />\n<Folder Name=\"/f/\"><File Path=\"x.txt\" />\n"
         "<Project Path=\"two 2\\two.vcxproj\"><Build Project=\"false\" /></Project></Folder>\n"
         "<Project Path=\"gone.dsp\" />\n<Project Path=\"other.csproj\"/>\n<Project Path=\"broken.vcxproj\"/>\n"
         "<Project Path=\"inner.sln\"/>\n</Solution>\n",
         5, 1},
    };
    for (const auto& [name, text, line, step] : cases) {
        const std::string path = dir.file(name, text);
        const ProjectList list = readProjects(path);
        const std::vector<Project> expected{
            {path, {}},
            {one, {dir.file("w/one/a.c"), dir.file("w/one/b.c")}},
            {two, {dir.file("w/c.c")}},
        };
        EXPECT_EQ(expected, list.projects) << name;
        const auto at = [&](int index) { return path + "(" + std::to_string(line + index * step) + ") : "; };
        const std::vector<ProjectComplaint> complaints{
            {Severity::error, at(0) + "error: The project \"" + dir.file("w/gone.dsp") + "\" cannot be found."},
            {Severity::information, at(1) + "information: Corvane C++ cannot read projects of this kind."},
            {Severity::error, broken + "(2) : error: The file cannot be read as XML."},
            {Severity::error, at(3) + "error: The workspace \"" + dir.file("w/inner.sln") +
                                  "\" is inside another one and will not be formatted."},
        };
        EXPECT_EQ(complaints, list.complaints) << name;
    }
}

TEST_F(ProjectFilesTest, TellsFileAndLineOfAMalformedFile) {
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
    for (const auto& [name, text, error] : cases) EXPECT_EQ(dir.file(name) + error, errorOf(name, text));
    EXPECT_EQ(dir.file("gone.dsp") + " : error: The file cannot be found.", errorOf("gone.dsp"));
    fs::create_directory(dir.file("empty"));
    EXPECT_EQ(dir.file("empty/compile_commands.json") + " : error: The file cannot be found.", errorOf("empty"));
}

}  // namespace
}  // namespace BrevisUI
