// Runs the tests of the whole engine. With --update the golden expectations are rewritten instead of compared.
#include <gtest/gtest.h>

#include <cstdlib>
#include <string_view>

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    for (int i = 1; i < argc; ++i) {
        if (std::string_view(argv[i]) == "--update") setenv("CORVANE_UPDATE_GOLDEN", "1", 1);
    }
    return RUN_ALL_TESTS();
}
