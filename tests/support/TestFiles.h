// A directory of its own for a test, and the few things that tests do with the files in it.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace TestFiles {

inline std::string contents(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

inline void write(const std::string& path, const std::string& text) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << text;
}

// Made when the test begins and removed when it ends.
class TempDir {
public:
    TempDir() {
        std::string pattern = std::filesystem::temp_directory_path() / "corvane-test-XXXXXX";
        if (mkdtemp(pattern.data())) path_ = std::filesystem::canonical(pattern).string();
        EXPECT_FALSE(path_.empty());
    }
    ~TempDir() { std::filesystem::remove_all(path_); }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    const std::string& path() const { return path_; }
    std::string file(const std::string& name) const { return path_ + "/" + name; }
    // Makes the file and gives its path.
    std::string file(const std::string& name, const std::string& text) const {
        write(file(name), text);
        return file(name);
    }

private:
    std::string path_;
};

}  // namespace TestFiles
